// Receipts and settle receipts: what each adds to the capture engine.
#include "sales/cuentas_por_cobrar.h"

#include <QSqlQuery>

#include "core/mFunciones_valores.h"
#include "documents/mSaldos.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

double Numero(const QVariantMap& m, const char* c) {
  return mFunciones::ValorNumerico(m.value(QString::fromUtf8(c)));
}
QString Texto(const QVariantMap& m, const char* c) {
  return mFunciones::ValorTexto(m.value(QString::fromUtf8(c))).trimmed();
}

// A row pays an invoice when it names one and carries an amount; a settle row always pays
// the whole balance, whatever it says.
bool PagaFactura(const QVariantMap& p) {
  return !Texto(p, "factura").isEmpty() && Numero(p, "abono") != 0;
}
bool NombraFactura(const QVariantMap& p) { return !Texto(p, "factura").isEmpty(); }

double TotalDe(const Documento& d, captura::PartidaPresente presente) {
  double total = 0;
  for (const QVariantMap& p : d.partidas) {
    if (presente(p)) total += Numero(p, "abono");
  }
  return total;
}

// The invoice a row names, as it stands now: only one still 'POR COBRAR' can be paid. The
// row takes its client and balance; an invoice that is not open keeps no balance, and the
// checks refuse it.
void LeerFactura(Connection& c, QVariantMap* p) {
  QSqlQuery& q = c.ExecRepetida(
      u"select cliente, saldo from facturas where factura = ? and status = 'POR COBRAR'"_s,
      {Texto(*p, "factura")});
  p->remove(u"saldo"_s);
  if (!q.next()) return;
  p->insert(u"cliente"_s, q.value(0).toInt());
  p->insert(u"saldo"_s, q.value(1).toDouble());
}

Outcome AbonoDelCliente(const Session&, Connection& c, const Documento&, QVariantMap* p) {
  LeerFactura(c, p);
  if (p->contains(u"saldo"_s)) {
    p->insert(u"abono"_s, AbonoAdmitido(Numero(*p, "abono"), Numero(*p, "saldo")));
  }
  return Outcome::Ok();
}

Outcome SaldoCompleto(const Session&, Connection& c, const Documento&, QVariantMap* p) {
  LeerFactura(c, p);
  p->insert(u"abono"_s, Numero(*p, "saldo"));
  return Outcome::Ok();
}

// A receipt always names a client: the settle receipt of every client's invoices names the
// client of its first row.
Outcome ClienteDelPrimerRenglon(const Session&, Connection& c, Documento* d) {
  if (Numero(d->encabezado, "cliente") > 0) return Outcome::Ok();
  for (const QVariantMap& p : d->partidas) {
    if (!NombraFactura(p)) continue;
    d->encabezado.insert(u"cliente"_s, c.Scalar(u"select cliente from facturas where factura = ?"_s,
                                                {Texto(p, "factura")}));
    break;
  }
  return Outcome::Ok();
}

// Every row names an open invoice of the receipt's client (any client on a settle receipt).
Outcome FacturasAbiertas(const Documento& d, captura::PartidaPresente presente, qint32 cliente) {
  for (const QVariantMap& p : d.partidas) {
    if (!presente(p)) continue;
    if (!p.contains(u"saldo"_s) || (cliente != 0 && Numero(p, "cliente") != cliente)) {
      return Outcome::Warning(
          u"La factura "_s + Texto(p, "factura") + u" no está por cobrar"_s +
              (cliente != 0 ? u" al cliente "_s + QString::number(cliente) : QString()),
          u"Fg1"_s);
    }
  }
  return Outcome::Ok();
}

Outcome Requerido(bool hay, const QString& mensaje, const QString& campo) {
  return hay ? Outcome::Ok() : Outcome::Warning(mensaje, campo);
}

// Method and bank, then (after the settle's period) the annotation: what both receipts ask.
Outcome MetodoYBanco(const Documento& d) {
  if (Outcome o = Requerido(Numero(d.encabezado, "metodo") > 0,
                            u"Se requiere la entrada de un método de pago"_s, u"Datos2"_s);
      !o) {
    return o;
  }
  return Requerido(Numero(d.encabezado, "banco") > 0, u"Se requiere la entrada de un banco"_s,
                   u"Datos3"_s);
}

Outcome Anotacion(const Documento& d) {
  return Requerido(!Texto(d.encabezado, "anotacion").isEmpty(),
                   u"Se requiere la entrada de una anotación"_s, u"Datos4"_s);
}

Outcome CamposCxC(const Session&, Connection&, const Documento& d, bool alta) {
  const auto cliente = static_cast<qint32>(Numero(d.encabezado, "cliente"));
  if (Outcome o = Requerido(cliente > 0, u"Se requiere un número de cliente"_s, u"Datos1"_s); !o) {
    return o;
  }
  if (Outcome o = MetodoYBanco(d); !o) return o;
  if (Outcome o = Anotacion(d); !o) return o;
  // A change keeps its rows: it has neither rows to check nor a total to ask for.
  if (!alta) return Outcome::Ok();
  if (Outcome o = FacturasAbiertas(d, PagaFactura, cliente); !o) return o;
  return Requerido(TotalDe(d, PagaFactura) > 0, u"Se requiere la entrada de un abono de cliente"_s,
                   u"Total"_s);
}

Outcome CamposSaldar(const Session&, Connection&, const Documento& d, bool alta) {
  if (Outcome o = MetodoYBanco(d); !o) return o;
  const int mes = static_cast<int>(Numero(d.encabezado, "mes"));
  if (Outcome o = Requerido(Numero(d.encabezado, "anio") > 0 && mes >= 1 && mes <= 12,
                            u"Se requiere la entrada de un periodo"_s, u"Datos5"_s);
      !o) {
    return o;
  }
  if (Outcome o = Anotacion(d); !o) return o;
  if (!alta) return Outcome::Ok();
  if (Outcome o = FacturasAbiertas(d, NombraFactura, 0); !o) return o;
  return Requerido(TotalDe(d, NombraFactura) != 0, u"Se requiere la entrada de un abono"_s,
                   u"Total"_s);
}

// The receipt's `abono` is the sum of its rows.
Outcome TotalizarPago(const Session&, Connection& c, const captura::Documento&,
                      const QString& pago) {
  QString error;
  if (!c.Run(u"update cxc set abono = (select coalesce(sum(d.abono), 0) from \"cxc detalles\" d "
             u"where d.pago = ?) where pago = ?"_s,
             {pago, pago}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

// The invoices paid and the clients who own them; no other client's balance is touched.
Outcome SaldosDeLasFacturas(const Session&, Connection& c, const captura::Documento&,
                            const captura::Hechos& h) {
  const QStringList& facturas = h.fuentes;
  if (facturas.isEmpty()) return Outcome::Ok();  // an empty scope would mean every invoice
  if (Outcome o = mSaldos::RecalcularSaldosFacturas(c, facturas, {}); !o) return o;
  return mSaldos::RecalcularSaldoClientesDeFacturas(c, facturas);
}

const QStringList kColumnas = {u"metodo"_s, u"banco"_s, u"anotacion"_s};
const QStringList kColumnasPartida = {u"abono"_s, u"cliente"_s};

}  // namespace

double AbonoAdmitido(double abono, double saldo) { return abono > 0 && abono <= saldo ? abono : 0; }

const captura::FamiliaCaptura& CxC() {
  static const captura::FamiliaCaptura f{
      .tabla = "cxc",
      .llave = "pago",
      .derechos = "CxC",
      .actual = &Session::PagoActual,
      .serie = &Session::SerieCxC,
      .status_inicial = "ALTA",
      .productos = false,
      .presente = PagaFactura,
      .cambio_con_partidas = false,
      .checar_suspendido = false,
      .mensaje_folio = "Se requiere un número de pago mayor a cero",
      .columnas = kColumnas,
      .columnas_partida = kColumnasPartida,
      .fuente_partida = "factura",
      .con_costo = false,
      .revisar_campos = CamposCxC,
      .completar = AbonoDelCliente,
      .totalizar = TotalizarPago,
      .recalcular = SaldosDeLasFacturas,
  };
  return f;
}

const captura::FamiliaCaptura& CxCSaldar() {
  static const captura::FamiliaCaptura f{
      .tabla = "cxc",
      .llave = "pago",
      .derechos = "CxC",
      .actual = &Session::PagoActual,
      .serie = &Session::SerieCxC,
      .status_inicial = "ALTA",
      .productos = false,
      .presente = NombraFactura,
      .cambio_con_partidas = false,
      .checar_suspendido = false,
      .mensaje_folio = "Se requiere un número de pago mayor a cero",
      .columnas = kColumnas,
      .columnas_partida = kColumnasPartida,
      .fuente_partida = "factura",
      .con_costo = false,
      .revisar_campos = CamposSaldar,
      .completar_encabezado = ClienteDelPrimerRenglon,
      .completar = SaldoCompleto,
      .totalizar = TotalizarPago,
      .recalcular = SaldosDeLasFacturas,
  };
  return f;
}

}  // namespace ventarix::ventas
