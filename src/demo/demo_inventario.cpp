// The demo shop's stock documents of the last days, saved through the capture engine as the
// stock screens save them: a count of warehouse 2 that finds fewer screws than the system
// said, a transfer that sends warehouse 1's goods to warehouse 2, and an order of fixing sets
// made from their materials and closed.
#include "core/session_load.h"
#include "demo/demo_tables.h"
#include "documents/captura.h"
#include "inventory/familias_inventario.h"

namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

bool Falla(QString* error, const Outcome& o) {
  *error = o.message;
  return false;
}

QVariant Dia(const QDate& fecha) { return fecha.toString(Qt::ISODate); }

}  // namespace

bool EscribirInventario(Connection& c, QString* error) {
  Session s;
  s.Sql = c.sql();
  s.Usuario = u"ADMINISTRADOR"_s;
  s.Equipo = u"DEMO"_s;
  s.Tienda = 1;
  PermisosCompletos(s.usuario, s.Usuario);
  s.SerieAjustes = SerieDe("ajustes");
  s.SerieTraspasos = SerieDe("traspasos");
  s.SerieProduccion = SerieDe("produccion");
  const QDate hoy = QDate::currentDate();

  Documento conteo;
  conteo.encabezado = {{u"fecha"_s, Dia(hoy.addDays(-3))},
                       {u"almacen"_s, 2},
                       {u"obs"_s, u"CONTEO FÍSICO DE FIN DE MES"_s},
                       {u"tipo"_s, u"CONTEO"_s}};
  const double en_sistema =
      c.Scalar(u"select almacen2 from productos where codigo = '1-00004'"_s).toDouble();
  conteo.partidas = {{{u"codigo"_s, u"1-00004"_s}, {u"real"_s, qMax(0.0, en_sistema - 2)}}};
  if (Outcome o = captura::GuardarDocumento(s, c, inventario::Ajustes(), conteo).outcome; !o) {
    return Falla(error, o);
  }

  Documento traspaso;
  traspaso.encabezado = {{u"fecha"_s, Dia(hoy.addDays(-2))},
                         {u"de"_s, 1},
                         {u"a"_s, 2},
                         {u"referencia"_s, u"SUCURSAL CENTRO"_s},
                         {u"obs"_s, u"SURTIDO SEMANAL DE LA SUCURSAL"_s}};
  traspaso.partidas = {{{u"codigo"_s, u"1-00037"_s}, {u"cantidad"_s, 4}}};
  if (Outcome o = captura::GuardarDocumento(s, c, inventario::Traspasos(), traspaso).outcome; !o) {
    return Falla(error, o);
  }

  Documento orden;
  orden.encabezado = {
      {u"fecha"_s, Dia(hoy.addDays(-1))},
      {u"codigo"_s,
       c.Scalar(u"select codigo from \"productos consumos\" order by codigo"_s).toString()},
      {u"cantidad"_s, 2},
      {u"operadorinicia"_s, u"TALLER"_s},
      {u"obs"_s, u"JUEGOS PARA EXHIBICIÓN"_s}};
  const captura::Guardado g = captura::GuardarDocumento(s, c, inventario::Produccion(), orden);
  if (!g.outcome) return Falla(error, g.outcome);
  const Outcome cierre = inventario::CerrarProduccion(s, c, g.llave, hoy, u"TALLER"_s);
  return cierre ? true : Falla(error, cierre);
}

}  // namespace ventarix::demo
