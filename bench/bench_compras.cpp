// A 20-row purchase into warehouse 2 saved through the capture engine (checks, folio, header,
// rows, totals, stock, last purchase data and costs, balances, order fulfilment) on a company
// of 100,000 documents: p50 and p95 of each engine.
#include "big_company.h"
#include "documents/captura.h"
#include "guardados.h"
#include "purchasing/familia_compras.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

void Ajustar(Session& s) {
  s.SerieCompras = u"W"_s;
  s.usuario.Set(u"Compras"_s, u"SSS"_s);
  // Costs and prices follow every purchase: the heaviest of the company's rules.
  s.empresa.Set(u"EnCompras_Modificar_Costos_y_Precios"_s, u"S"_s);
  s.empresa.Set(u"EnCompras_Modificar_Al_Ultimo_Costo"_s, u"S"_s);
  s.empresa.Set(u"Aplicar_Utilidad_Aritmetica"_s, u"S"_s);
}

captura::Documento Compra(int n) {
  captura::Documento d;
  d.encabezado = {{u"proveedor"_s, 1 + n % bench::kProveedores},
                  {u"factura"_s, u"F-%1"_s.arg(n)},
                  {u"obs"_s, u"BANCO"_s},
                  {u"tipo"_s, u"CREDITO"_s},
                  {u"movimiento"_s, u"ALMACEN2"_s},
                  {u"plazo"_s, 30}};
  for (int i = 0; i < 20; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 20 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 5},
                          {u"precio"_s, 5.5 + (n + i) % 40}});
  }
  return d;
}

}  // namespace

int main(int argc, char** argv) {
  return bench::MedirGuardados(argc, argv, "compras", compras::Compras(), Ajustar, Compra);
}
