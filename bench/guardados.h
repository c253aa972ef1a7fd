#pragma once

#include <functional>

#include "core/session.h"
#include "documents/captura.h"

namespace ventarix::bench {

// A document family's save timed on a large company: the catalogues and `documentos`
// generated documents (argv[1] scales the 100,000), then 40 saves of the family's document
// number i through captura::GuardarDocumento, p50 and p95 printed as a table row, on SQLite and,
// with VENTARIX_TEST_PG, on PostgreSQL. `ajustar` gives the session its serie, rights and
// company flags. The program's exit status.
int MedirGuardados(int argc, char** argv, const char* nombre,
                   const captura::FamiliaCaptura& familia,
                   const std::function<void(Session&)>& ajustar,
                   const std::function<captura::Documento(int)>& documento);

}  // namespace ventarix::bench
