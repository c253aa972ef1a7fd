// The demo shop's payments to its suppliers: each purchase paid cash ('CONTADO') is paid in
// full by transfer from bank 1 the day it came, and the oldest purchase on credit half by
// cheque from bank 3 a fortnight later, each with its bank's next number. Saved through the
// capture engine after the purchases.
#include <cmath>

#include <QSqlQuery>

#include "core/dialect.h"
#include "demo/demo_tables.h"
#include "purchasing/cuentas_por_pagar.h"

namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;

struct Compra {
  QString compra;
  qint32 proveedor;
  QDateTime fecha;
  double saldo;
};

std::vector<Compra> Compras(Connection& c, const QString& tipo) {
  std::vector<Compra> compras;
  QSqlQuery q = c.Exec(
      u"select compra, proveedor, fecha, saldo from compras where tipo = ? and "
      u"status = 'POR PAGAR' order by fecha, compra"_s,
      {tipo});
  while (q.next()) {
    compras.push_back({q.value(0).toString(), q.value(1).toInt(), dialect::ReadDate(q.value(2)),
                       q.value(3).toDouble()});
  }
  return compras;
}

// One payment of `abono` on the purchase, by the bank's next transfer or cheque.
bool Pagar(const Session& s, Connection& c, const Compra& compra, double abono, qint32 banco,
           bool cheque, int dias, QString* error) {
  const compras::MediosSiguientes siguientes = compras::SiguientesDelBanco(c, banco);
  const QString beneficiario =
      c.Scalar(u"select nombre from proveedores where numero = ?"_s, {compra.proveedor}).toString();
  captura::Documento d;
  d.encabezado = {{u"proveedor"_s, compra.proveedor},
                  {u"banco"_s, banco},
                  {cheque ? u"cheque"_s : u"transferencia"_s,
                   QString::number(cheque ? siguientes.cheque : siguientes.transferencia)},
                  {u"beneficiario"_s, beneficiario},
                  {u"anotacion"_s, u"PAGO DE LA COMPRA "_s + compra.compra},
                  {u"fecha"_s, compra.fecha.addDays(dias)}};
  d.partidas = {{{u"compra"_s, compra.compra}, {u"abono"_s, abono}}};
  const captura::Guardado g = captura::GuardarDocumento(s, c, compras::CxP(), d);
  if (!g.outcome) *error = u"Pago de demostración: "_s + g.outcome.message;
  return g.outcome.ok;
}

}  // namespace

bool EscribirPagosAProveedores(Connection& c, QString* error) {
  Session s = SesionDeDemo(c);
  s.SerieCxP = SerieDe("cxp");
  for (const Compra& compra : Compras(c, u"CONTADO"_s)) {
    if (!Pagar(s, c, compra, compra.saldo, 1, false, 0, error)) return false;
  }
  const std::vector<Compra> a_credito = Compras(c, u"CREDITO"_s);
  if (a_credito.empty()) return true;
  const Compra& primera = a_credito.front();
  return Pagar(s, c, primera, std::round(primera.saldo * 50) / 100, 3, true, 15, error);
}

}  // namespace ventarix::demo
