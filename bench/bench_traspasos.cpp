// A 20-row transfer from warehouse 1 to warehouse 2 saved through the capture engine (checks,
// folio, header, rows, totals, the stock of both warehouses) on a company of 100,000
// documents: p50 and p95 of each engine over 40 saves.
#include "big_company.h"
#include "documents/captura.h"
#include "guardados.h"
#include "inventory/familias_inventario.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

captura::Documento Traspaso(int n) {
  captura::Documento d;
  d.encabezado = {{u"de"_s, 1}, {u"a"_s, 2}, {u"obs"_s, u"BANCO"_s}};
  for (int i = 0; i < 20; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 20 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 3}});
  }
  return d;
}

void Ajustar(Session& s) {
  s.SerieTraspasos = u"W"_s;
  s.usuario.Set(u"Traspasos"_s, u"SSS"_s);
  // The generated stock is whatever the generated documents left: the bench times the save,
  // not the refusal of a short warehouse.
  s.empresa.Set(u"guardar_sin_existencias"_s, u"S"_s);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::MedirGuardados(argc, argv, "traspasos", inventario::Traspasos(), Ajustar, Traspaso);
}
