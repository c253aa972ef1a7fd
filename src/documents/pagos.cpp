// The payments engine: the checks, the rows completed from the documents they pay, the
// payment's total and the balances derived again, for either side.
#include "documents/pagos.h"

#include <QSqlQuery>

#include "core/mFunciones_valores.h"

namespace ventarix::pagos {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

QString S(const char* texto) { return QString::fromUtf8(texto); }

double Numero(const QVariantMap& m, const char* c) {
  return mFunciones::ValorNumerico(m.value(S(c)));
}
QString Texto(const QVariantMap& m, const char* c) {
  return mFunciones::ValorTexto(m.value(S(c))).trimmed();
}

using Presente = bool (*)(const Lado& l, const QVariantMap& partida);

double TotalDe(const Lado& l, const Documento& d, Presente presente) {
  double total = 0;
  for (const QVariantMap& p : d.partidas) {
    if (presente(l, p)) total += Numero(p, "abono");
  }
  return total;
}

// The document a row names, as it stands now: only one still owed can be paid. The row takes
// its party and balance; a document that is not open keeps no balance, and the checks refuse
// it.
void LeerDocumento(const Lado& l, Connection& c, QVariantMap* p) {
  QSqlQuery& q = c.ExecRepetida(u"select %1, saldo from %2 where %3 = ? and status = ?"_s.arg(
                                    S(l.socio), S(l.documentos), S(l.documento)),
                                {Texto(*p, "documento"), S(l.abierto)});
  p->remove(u"saldo"_s);
  if (!q.next()) return;
  p->insert(S(l.socio), q.value(0).toInt());
  p->insert(u"saldo"_s, q.value(1).toDouble());
}

// The engine's rows say "documento"; the side's table says "factura" or "compra".
void NombrarDocumento(const Lado& l, QVariantMap* p) {
  if (!p->contains(u"documento"_s)) p->insert(u"documento"_s, p->value(S(l.documento)));
  p->insert(S(l.documento), p->value(u"documento"_s));
}

// Every row names an open document of the payment's party (any party on a settle payment).
Outcome DocumentosAbiertos(const Lado& l, const Documento& d, Presente presente, qint32 socio) {
  for (const QVariantMap& p : d.partidas) {
    if (!presente(l, p)) continue;
    if (!p.contains(u"saldo"_s) || (socio != 0 && Numero(p, l.socio) != socio)) {
      return Outcome::Warning(S(l.no_abierto).arg(Texto(p, l.documento)) +
                                  (socio != 0 ? S(l.del_socio).arg(socio) : QString()),
                              u"Fg1"_s);
    }
  }
  return Outcome::Ok();
}

Outcome Requerido(bool hay, const QString& mensaje, const QString& campo) {
  return hay ? Outcome::Ok() : Outcome::Warning(mensaje, campo);
}

Outcome Medios(const Lado& l, const Documento& d) {
  for (const Requisito& r : l.medios) {
    const bool hay =
        r.numero ? Numero(d.encabezado, r.columna) > 0 : !Texto(d.encabezado, r.columna).isEmpty();
    if (Outcome o = Requerido(hay, S(r.mensaje), S(r.campo)); !o) return o;
  }
  return Outcome::Ok();
}

Outcome Anotacion(const Lado& l, const Documento& d) {
  return Requerido(!Texto(d.encabezado, "anotacion").isEmpty(),
                   u"Se requiere la entrada de una anotación"_s, S(l.campo_anotacion));
}

}  // namespace

double AbonoAdmitido(double abono, double saldo) { return abono > 0 && abono <= saldo ? abono : 0; }

namespace motor {

// A row pays a document when it names one and carries an amount; a settle row always pays
// the whole balance, whatever it says. The screens name it "documento", the command line by
// the side's own column.
bool NombraDocumento(const Lado& l, const QVariantMap& p) {
  return !Texto(p, "documento").isEmpty() || !Texto(p, l.documento).isEmpty();
}
bool PagaDocumento(const Lado& l, const QVariantMap& p) {
  return NombraDocumento(l, p) && Numero(p, "abono") != 0;
}

QStringList ColumnasPartida(const Lado& l) { return {u"abono"_s, S(l.socio)}; }

Outcome RevisarPago(const Lado& l, Connection&, const Documento& d, bool alta) {
  const auto socio = static_cast<qint32>(Numero(d.encabezado, l.socio));
  if (Outcome o = Requerido(socio > 0, S(l.falta_socio), u"Datos1"_s); !o) return o;
  if (Outcome o = Medios(l, d); !o) return o;
  if (Outcome o = Anotacion(l, d); !o) return o;
  // A change keeps its rows: it has neither rows to check nor a total to ask for.
  if (!alta) return Outcome::Ok();
  if (Outcome o = DocumentosAbiertos(l, d, motor::PagaDocumento, socio); !o) return o;
  return Requerido(TotalDe(l, d, motor::PagaDocumento) > 0, S(l.falta_abono), u"Total"_s);
}

Outcome RevisarSaldar(const Lado& l, Connection&, const Documento& d, bool alta) {
  if (Outcome o = Medios(l, d); !o) return o;
  const int mes = static_cast<int>(Numero(d.encabezado, "mes"));
  if (Outcome o = Requerido(Numero(d.encabezado, "anio") > 0 && mes >= 1 && mes <= 12,
                            u"Se requiere la entrada de un periodo"_s, S(l.campo_periodo));
      !o) {
    return o;
  }
  if (Outcome o = Anotacion(l, d); !o) return o;
  if (!alta) return Outcome::Ok();
  if (Outcome o = DocumentosAbiertos(l, d, motor::NombraDocumento, 0); !o) return o;
  return Requerido(TotalDe(l, d, motor::NombraDocumento) != 0,
                   u"Se requiere la entrada de un abono"_s, u"Total"_s);
}

Outcome AbonoAdmitidoDe(const Lado& l, Connection& c, QVariantMap* p) {
  NombrarDocumento(l, p);
  LeerDocumento(l, c, p);
  if (p->contains(u"saldo"_s)) {
    p->insert(u"abono"_s, AbonoAdmitido(Numero(*p, "abono"), Numero(*p, "saldo")));
  }
  return Outcome::Ok();
}

Outcome SaldoCompleto(const Lado& l, Connection& c, QVariantMap* p) {
  NombrarDocumento(l, p);
  LeerDocumento(l, c, p);
  p->insert(u"abono"_s, Numero(*p, "saldo"));
  return Outcome::Ok();
}

// A payment always names a party: the settle payment of every party's documents names the
// party of its first row.
Outcome SocioDelPrimerRenglon(const Lado& l, Connection& c, Documento* d) {
  if (Numero(d->encabezado, l.socio) > 0) return Outcome::Ok();
  for (QVariantMap& p : d->partidas) {
    if (!NombraDocumento(l, p)) continue;
    NombrarDocumento(l, &p);
    d->encabezado.insert(S(l.socio), c.Scalar(u"select %1 from %2 where %3 = ?"_s.arg(
                                                  S(l.socio), S(l.documentos), S(l.documento)),
                                              {Texto(p, "documento")}));
    break;
  }
  return Outcome::Ok();
}

// The payment's `abono` is the sum of its rows.
Outcome Totalizar(const Lado& l, Connection& c, const QString& pago) {
  QString error;
  if (!c.Run(u"update %1 set abono = (select coalesce(sum(d.abono), 0) from \"%1 detalles\" d "
             u"where d.pago = ?) where pago = ?"_s.arg(S(l.tabla)),
             {pago, pago}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

Outcome Saldos(const Lado& l, Connection& c, const captura::Hechos& h) {
  if (h.fuentes.isEmpty()) return Outcome::Ok();  // an empty scope would mean every document
  return l.saldos(c, h.fuentes);
}

}  // namespace motor

}  // namespace ventarix::pagos
