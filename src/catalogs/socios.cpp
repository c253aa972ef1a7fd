#include "catalogs/socios.h"

#include <QSqlError>
#include <QSqlQuery>

#include "core/database.h"
#include "core/mFunciones.h"
#include "core/usuarios.h"

namespace ventarix::socios {

using namespace Qt::StringLiterals;

Outcome LeerSocio(const Session& session, Socio socio, qint32 numero, Registro* registro) {
  const Familia& familia = FamiliaDe(socio);
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery query =
      c.Exec(u"select * from %1 where numero = ?"_s.arg(QLatin1String(familia.tabla)), {numero});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  if (!query.next()) {
    return Outcome::Stop(
        u"No existe el %1 número %2"_s.arg(QLatin1String(familia.singular)).arg(numero));
  }
  registro->numero = numero;
  registro->status = query.value(u"status"_s).toString() == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s;
  registro->valores.Clear();
  for (const Campo* campo : Campos(familia, true)) {
    const QString columna = QLatin1String(campo->columna).toString().toLower();
    registro->valores.Set(columna, query.value(columna));
  }
  return Outcome::Ok();
}

qint32 NumeroPropuesto(const Session& session, Socio socio) {
  return mFunciones::NumeroSiguiente(session, u"numero"_s,
                                     QLatin1String(FamiliaDe(socio).tabla).toString());
}

QString CuentaSugerida(Socio socio, qint32 numero) {
  const char* prefijo = FamiliaDe(socio).prefijo_cuenta;
  if (prefijo == nullptr) return {};
  return QLatin1String(prefijo) + u"%1"_s.arg(numero, 6, 10, QLatin1Char('0'));
}

QString StatusAlternado(const QString& status) {
  return status == u"BAJA"_s ? u"ALTA"_s : u"BAJA"_s;
}

QStringList Tipos(const Session& session) {
  QStringList tipos;
  Connection c(session.Cadena);
  if (!c.ok()) return tipos;
  QSqlQuery query = c.Exec(u"select nombre from tipos order by nombre"_s);
  while (query.next()) tipos << query.value(0).toString();
  return tipos;
}

const QStringList& Addendas() {
  static const QStringList addendas = {QString(), u"QUALITAS"_s, u"INBURSA"_s, u"AXXA"_s,
                                       u"COPPEL"_s};
  return addendas;
}

QStringList CamposBloqueados(const Session& session, Socio socio, bool cambio) {
  QStringList campos;
  if (socio != Socio::kClientes || !cambio) return campos;
  if (!usuarios::PuedeModificar(session, u"ModificarPlazo"_s)) campos << u"Plazo"_s;
  if (!usuarios::PuedeModificar(session, u"ModificarCredito"_s)) campos << u"Credito"_s;
  return campos;
}

double ComisionPorDias(const RowValues& agente, int dias) {
  for (int rango = 0; rango < 4; ++rango) {
    const int desde = agente.Integer(u"dias%1"_s.arg(2 * rango + 1));
    const int hasta = agente.Integer(u"dias%1"_s.arg(2 * rango + 2));
    if (dias >= desde && dias <= hasta) return agente.Number(u"comision%1"_s.arg(rango + 1));
  }
  return 0;
}

}  // namespace ventarix::socios
