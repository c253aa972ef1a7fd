#include "catalogs/productos_codigos.h"

#include <cmath>

#include "catalogs/marcas.h"
#include "catalogs/productos.h"
#include "core/mFunciones_valores.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

Outcome RevisarCodigoReservado(const QString& codigo, const QString& campo) {
  if (codigo.trimmed().compare(QLatin1String(kCodigoNotas), Qt::CaseInsensitive) == 0) {
    return Outcome::Warning(u"Este código se utiliza para notas de crédito"_s, campo);
  }
  return Outcome::Ok();
}

bool ExisteCodigo(Connection& c, const QString& codigo) {
  QSqlQuery q = c.Exec(u"select codigo from productos where codigo = ?"_s, {codigo});
  return q.next();
}

Outcome RevisarCodigoNuevo(const Session& session, const QString& codigo) {
  const QString limpio = mFunciones::ValorTexto(codigo);
  if (limpio.isEmpty()) return Outcome::Ok();
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error(), u"Codigo"_s);
  if (ExisteCodigo(c, limpio)) {
    return Outcome::Warning(u"Este código ya existe en el catálogo de productos"_s, u"Codigo"_s);
  }
  return Outcome::Ok();
}

QString CodigoConsecutivo(const Session& session, qint32 marca) {
  if (marca < 1) return {};
  Connection c(session.Cadena);
  if (!c.ok()) return {};
  const qint64 registros =
      c.Scalar(u"select count(*) as registros from productos where marca = ?"_s, {marca})
          .toLongLong();
  return QString::number(marca) + u'-' + u"%1"_s.arg(registros + 1, 5, 10, QChar(u'0'));
}

Outcome RevisarCodigoAlterno(Connection& c, const QString& codigo, const QString& alterno,
                             const QString& campo) {
  const QString x = mFunciones::ValorTexto(alterno);
  if (x.isEmpty()) return Outcome::Ok();
  QSqlQuery q = c.Exec(
      u"select codigo, producto from productos where (codigo1 = ? or codigo2 = ? or codigo3 = ?) "
      u"and codigo <> ?"_s,
      {x, x, x, mFunciones::ValorTexto(codigo)});
  if (!q.next()) return Outcome::Ok();
  return Outcome::Warning(u"Este código alterno ya existe en el código: \n"_s +
                              q.value(0).toString() + u'\n' + q.value(1).toString(),
                          campo);
}

Outcome RevisarCodigoAlterno(const Session& session, const QString& codigo, const QString& alterno,
                             const QString& campo) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error(), campo);
  return RevisarCodigoAlterno(c, codigo, alterno, campo);
}

QString NombreDeProducto(const Session& session, const QString& codigo) {
  Connection c(session.Cadena);
  if (!c.ok()) return {};
  return c.Scalar(u"select producto from productos where codigo = ?"_s, {codigo}).toString();
}

QString FormatoZona(const QString& tecleado) {
  if (tecleado.trimmed().isEmpty()) return {};
  const double numero = mFunciones::ValorNumerico(tecleado);
  const qint64 zona = static_cast<qint64>(std::llround(numero));
  return u"ZONA"_s + u"%1"_s.arg(zona, 2, 10, QChar(u'0'));
}

std::optional<std::array<double, catalogs::kNiveles>> UtilidadesDeMarca(const Session& session,
                                                                        qint32 marca) {
  marcas::Marca leida;
  if (marca < 1 || !marcas::LeerMarca(session, marca, &leida)) return std::nullopt;
  return leida.utilidades;
}

}  // namespace ventarix::productos
