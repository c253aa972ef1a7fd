// The demo shop's purchases: goods received into warehouses 2 and 3, three of them from the
// suppliers' CFDI files shipped with the demo (3.2, 3.3 and 4.0), typed ones at the catalogue's
// cost, and an expense that moves no stock. Saved through the capture engine after the sales
// history, so the sales are those of a shop whose store 1 saw no purchase; at cost, so that no
// price moves.
#include <QDir>

#include "core/datos_instalacion.h"
#include "core/session_load.h"
#include "demo/demo_tables.h"
#include "purchasing/familia_compras.h"
#include "purchasing/importar_cfdi.h"

namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;

struct Importada {
  const char* archivo;
  qint32 proveedor;
  const char* movimiento;
  int dia;  // days after the first of the history
};

constexpr Importada kImportadas[] = {{"proveedor_cfdi32.xml", 1, "ALMACEN2", 3},
                                     {"proveedor_cfdi33.xml", 2, "ALMACEN3", 12},
                                     {"proveedor_cfdi40.xml", 3, "ALMACEN2", 25}};

Session SesionDeCompras(Connection& c) {
  Session s = SesionDeDemo(c);
  s.SerieCompras = SerieDe("compras");
  return s;
}

captura::Documento Encabezado(qint32 proveedor, const char* movimiento, const QDate& fecha,
                              const QString& tipo, const QString& obs) {
  captura::Documento d;
  d.encabezado = {{u"proveedor"_s, proveedor},
                  {u"movimiento"_s, QString::fromUtf8(movimiento)},
                  {u"tipo"_s, tipo},
                  {u"obs"_s, obs},
                  {u"plazo"_s, 30},
                  {u"fecha"_s, QDateTime(fecha, QTime(0, 0))}};
  return d;
}

QVariantMap AlCosto(Connection& c, const QString& codigo, double cantidad) {
  return {{u"codigo"_s, codigo},
          {u"cantidad"_s, cantidad},
          {u"precio"_s, c.Scalar(u"select costo from productos where codigo = ?"_s, {codigo})}};
}

bool Guardado(const captura::Guardado& g, QString* error) {
  if (!g.outcome) *error = u"Compra de demostración: "_s + g.outcome.message;
  return g.outcome.ok;
}

}  // namespace

bool EscribirCompras(Connection& c, QString* error) {
  const Session s = SesionDeCompras(c);
  const QDir carpeta(instalacion::CarpetaSat(u"demo"_s) + u"/compras"_s);
  const QDate inicio = PrimerDiaDeHistoria();
  for (const Importada& i : kImportadas) {
    const QString archivo = carpeta.filePath(QString::fromUtf8(i.archivo));
    captura::Documento d =
        Encabezado(i.proveedor, i.movimiento, inicio.addDays(i.dia), u"CREDITO"_s, {});
    if (!Guardado(compras::ImportarCompra(s, c, archivo, d), error)) return false;
  }
  captura::Documento recibida =
      Encabezado(1, "ALMACEN2", inicio.addDays(18), u"CONTADO"_s, u"RESURTIDO DE BODEGA"_s);
  recibida.encabezado.insert(u"remision"_s, u"R-1042"_s);
  recibida.partidas = {AlCosto(c, u"1-00004"_s, 12), AlCosto(c, u"1-00005"_s, 6)};
  if (!Guardado(captura::GuardarDocumento(s, c, compras::Compras(), recibida), error)) return false;
  captura::Documento gasto = Encabezado(2, compras::kGastos, inicio.addDays(20), u"CONTADO"_s,
                                        u"MANTENIMIENTO DEL LOCAL"_s);
  gasto.encabezado.insert(u"factura"_s, u"F-77"_s);
  gasto.partidas = {AlCosto(c, u"1-00006"_s, 2)};
  return Guardado(captura::GuardarDocumento(s, c, compras::Compras(), gasto), error);
}

}  // namespace ventarix::demo
