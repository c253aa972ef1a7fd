#pragma once

// The engine behind every sealing and preparation driver: one chain of steps, fed by a table
// of what differs between the families (income or egreso, CFDi, CFD, CBB, NOTA, the point of
// sale's delivery note). Internal to the electronic documents.
#include <memory>
#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "edocs/cfdi_xml.h"
#include "edocs/folios.h"
#include "edocs/llave_privada.h"
#include "edocs/mDigital.h"

namespace ventarix {
class Connection;
}

namespace ventarix::edocs::digital {

// Grid columns of the capture screen: the sums of the document and the concept's cells.
struct ColumnasRejilla {
  int subtotal, descuento, total, tasa, iva;
  int codigo, descripcion, unidad, cantidad, precio, importe, concepto_subtotal;
};

enum class Paso {
  kStatus,
  kFormaDePago,
  kConceptos,
  kEsquemas,
  kRango,
  kCliente,
  kMarca,
  kCredito
};

// How a family finds its folio range: joined with its key material (CFD, CFDi), joined with its
// two-dimensional code image (CBB), or alone (NOTA).
enum class Rango { kCertificados, kCbb, kSolo };

struct Familia {
  const char* tipo_de_comprobante;  // "ingreso" / "egreso"
  std::vector<Paso> pasos;          // in the order the screen meets them
  bool sella = false;               // builds, seals and writes the XML after the checks
  bool cfd = false;                 // CFD 2.2: its schema list, sheet and approval columns
  FamiliaFolios folios = FamiliaFolios::kFacturas;
  Rango rango = Rango::kSolo;
  const char* esquema = "";  // the range's scheme
  const char* baja;
  const char* sin_rango;
  const char* fuera_de_rango;
  bool regimen_requerido = false;  // CBB names the missing regime; CFD/CFDi stop silently
  ColumnasRejilla columnas;
  const char* resumen_codigo;
  const char* resumen_unidad;
  bool retenciones = false;
  Impuestos impuestos = Impuestos::kCompletos;
};

const Familia& IngresoCFDi();
const Familia& IngresoCFD();
const Familia& EgresoCFDi();
const Familia& EgresoCFD();
const Familia& IngresoCBB();
const Familia& EgresoCBB();
const Familia& IngresoNOTA();
const Familia& EgresoNOTA();
const Familia& Remision();

// The range row as the checks read it.
struct RangoLeido {
  QString version, no_aprobacion, ano_aprobacion, archivo_cer, archivo_key, algoritmo, regimen,
      password;
  qint64 inicial = 0, final = 0;
  QByteArray certificado, llave;
  bool certificado_nulo = true, llave_nula = true;
};

// One run of a driver. Msg1 of resultado is the first failing step's message.
struct Contexto {
  const Session& session;
  DocumentoCaptura& forma;
  const Familia& familia;
  Connection& connection;
  std::optional<QString> descripcion;  // the sealing drivers' free description
  ResultadoSellado resultado;
  RangoLeido rango;
  QString ruta_cer, ruta_key;  // the materialised files in CarpetaCer
  QString password;
  std::shared_ptr<const LlavePrivada> llave;  // opened once per session (llaves_abiertas.h)
  QString marca_addenda;                      // the client's addenda mark
};

// A step that fails leaves its message and stops the chain.
inline bool Falla(Contexto& ctx, const QString& mensaje) {
  ctx.resultado.Msg1 = mensaje;
  return false;
}

// Steps over the screen's content (mDigital_conceptos.cpp).
bool PasoStatus(Contexto& ctx);
bool PasoFormaDePago(Contexto& ctx);
bool PasoConceptos(Contexto& ctx);
bool PasoEsquemas(Contexto& ctx);
// The comprobante block's texts taken from the screen once every check passed.
void LlenarDelFormulario(Contexto& ctx);

// The folio range and its material (mDigital_rango.cpp).
bool PasoRango(Contexto& ctx);

// The client, its addenda mark and the credit test (mDigital_cliente.cpp).
bool PasoCliente(Contexto& ctx);
bool PasoMarca(Contexto& ctx);
bool PasoCredito(Contexto& ctx);

// Build, cadena original, seal and file (mDigital_sellado.cpp).
void Sellar(Contexto& ctx);

// Runs a family's chain over the screen's content, on its own read connection or on the
// connection of a save in progress.
ResultadoSellado Ejecutar(const Session& session, DocumentoCaptura& forma, const Familia& familia,
                          std::optional<QString> descripcion);
ResultadoSellado Ejecutar(const Session& session, Connection& connection, DocumentoCaptura& forma,
                          const Familia& familia, std::optional<QString> descripcion);

}  // namespace ventarix::edocs::digital
