// The shop's invoices: every few days the notes asked for with an invoice ('FACTURA') are
// invoiced, a free invoice now and then, the oldest open invoice collected (in full, or half of
// it by transfer), and a few credit notes, each sealed with the test
// certificate by the capture screens' own routine, its XML in the company's xml folder.
#include <cmath>

#include <QSqlQuery>
#include <QSqlRecord>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/session_load.h"
#include "demo/demo_tables.h"
#include "documents/captura.h"
#include "sales/cuentas_por_cobrar.h"
#include "sales/facturar_remisiones.h"
#include "sales/familias_ventas.h"

namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

// A document the checks refuse (a suspended client) is left out; only a failure stops the demo.
bool Guardar(Connection& c, const Session& s, const captura::FamiliaCaptura& f, const Documento& d,
             QString* error) {
  const captura::Guardado g = captura::GuardarDocumento(s, c, f, d);
  if (g.outcome.IsRunTimeError()) *error = g.outcome.message;
  return !g.outcome.IsRunTimeError();
}

// The notes of one client waiting for their invoice, oldest first.
bool FacturarRemisiones(Connection& c, const Session& s, const QDate& fecha, QString* error) {
  QSqlQuery q = c.Exec(
      u"select cliente, remision from remisiones where status = 'POR FACTURAR' and tipo = "
      "'FACTURA' and tienda = ? and fecha <= ? order by cliente, folio"_s,
      {s.Tienda, dialect::DateValue(fecha, c.sql())});
  std::map<qint32, QStringList> por_cliente;
  while (q.next() && por_cliente.size() <= 2) {
    por_cliente[q.value(0).toInt()] << q.value(1).toString();
  }
  q.finish();
  int facturados = 0;
  for (const auto& [cliente, notas] : por_cliente) {
    if (++facturados > 2) break;
    Documento d;
    if (Outcome o = ventas::DocumentoDeRemisiones(c, notas, &d); !o) {
      *error = o.message;
      return false;
    }
    d.encabezado.insert(u"fecha"_s, fecha);
    if (!Guardar(c, s, ventas::Facturas(), d, error)) return false;
  }
  return true;
}

// A service typed freely: cutting to measure.
bool FacturaLibre(Connection& c, const Session& s, const QDate& fecha, qint32 cliente,
                  double metros, QString* error) {
  Documento d;
  d.encabezado = {{u"fecha"_s, fecha}, {u"cliente"_s, cliente}, {u"plazo"_s, 0}};
  d.partidas = {{{u"codigo"_s, u"SERV-CORTE"_s},
                 {u"descripcion"_s, u"SERVICIO DE CORTE A LA MEDIDA"_s},
                 {u"unidad"_s, u"METRO"_s},
                 {u"cantidad"_s, metros},
                 {u"precio"_s, 35.0},
                 {u"impuesto"_s, 16.0}}};
  return Guardar(c, s, ventas::Facturas(), d, error);
}

// The prompt-payment discount on the newest open invoice, or the return of its first row.
bool NotaDeCredito(Connection& c, const Session& s, const QDate& fecha, bool descuento,
                   QString* error) {
  QSqlQuery q = c.Exec(
      u"select factura, cliente, depto from facturas where status = 'POR COBRAR' and depto = ? "
      "order by fecha desc, folio desc"_s,
      {descuento ? u"LIBRE"_s : u"PRODUCTOS"_s});
  if (!q.next()) return true;
  Documento d;
  d.encabezado = {{u"fecha"_s, fecha}, {u"cliente"_s, q.value(1)}};
  QVariantMap partida{{u"factura"_s, q.value(0)}};
  if (descuento) {
    partida.insert(u"dppp"_s, u"S"_s);
  } else {
    const QVariant codigo =
        c.Scalar(u"select codigo from \"facturas detalles\" where factura = ? order by item"_s,
                 {q.value(0)});
    partida.insert(u"codigo"_s, codigo);
    partida.insert(u"cantidad"_s, 1);
  }
  q.finish();
  d.partidas = {partida};
  return Guardar(c, s, ventas::NotasCliente(), d, error);
}

// A deposit for the oldest open invoice: all of its balance, or half of it.
bool Cobrar(Connection& c, const Session& s, const QDate& fecha, bool completo, QString* error) {
  QSqlQuery q = c.Exec(
      u"select factura, cliente, saldo from facturas where status = 'POR COBRAR' and saldo > 0 "
      "order by fecha, folio"_s);
  if (!q.next()) return true;
  const double saldo = q.value(2).toDouble();
  Documento d;
  d.encabezado = {{u"fecha"_s, fecha},
                  {u"cliente"_s, q.value(1)},
                  {u"metodo"_s, 1},
                  {u"banco"_s, 1},
                  {u"anotacion"_s, completo ? u"DEPOSITO"_s : u"TRANSFERENCIA PARCIAL"_s}};
  d.partidas = {
      {{u"factura"_s, q.value(0)}, {u"abono"_s, completo ? saldo : std::round(saldo * 50) / 100}}};
  q.finish();
  return Guardar(c, s, ventas::CxC(), d, error);
}

}  // namespace

void PrepararSesionFiscal(Connection& c, const QString& carpeta, Session* s) {
  QSqlQuery q = c.Exec(u"select * from empresa where numero = 1"_s);
  if (q.next()) {
    for (int i = 0; i < q.record().count(); ++i) {
      s->empresa.Set(q.record().fieldName(i), q.value(i));
    }
  }
  s->BaseCarpeta = carpeta;
  mFunciones::CrearCarpetas(*s);
  CargarEsquemas(*s);
  s->FolioFacturas = 1;
  s->FolioNotas = 1;
}

bool Facturar(Connection& c, const Session& s, Dice& dice, int dia, const QDate& fecha,
              QString* error) {
  if (dia % 8 == 7 && !FacturarRemisiones(c, s, fecha, error)) return false;
  if (dia % 13 == 6 &&
      !FacturaLibre(c, s, fecha, dice.Between(2, kClientes), dice.Between(2, 12), error)) {
    return false;
  }
  if (dia % 10 == 4 && !Cobrar(c, s, fecha, dia % 20 == 4, error)) return false;
  if (dia % 26 == 20 && !NotaDeCredito(c, s, fecha, dia % 52 == 20, error)) return false;
  return true;
}

}  // namespace ventarix::demo
