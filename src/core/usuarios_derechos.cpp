// The rights of a user: the menu mask, the rights texts, the field locks and the invoice
// series.
#include <QSqlError>
#include <QSqlQuery>

#include "core/database.h"
#include "core/session_load.h"
#include "core/usuarios.h"
#include "core/usuarios_sql.h"

namespace ventarix::usuarios {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSeries = 9;

QString Serie(int numero) { return u"seriefacturacion"_s + QString::number(numero); }

QString SiNo(bool valor) { return valor ? u"S"_s : u"N"_s; }

// Every column the rights screen writes, in the order of its values.
QStringList ColumnasGuardadas() {
  QStringList columnas = {u"permisos"_s};
  for (const QString& columna : ColumnasDeDerechos()) columnas << columna.toLower();
  columnas << u"modificarcosto"_s << u"modificarplazo"_s << u"modificarcredito"_s
           << u"aplicarseriesenfacturas"_s;
  for (int i = 1; i <= kSeries; ++i) columnas << Serie(i);
  return columnas;
}

QVariantList ValoresGuardados(const Derechos& derechos) {
  QVariantList valores = {derechos.permisos};
  for (const QString& columna : ColumnasDeDerechos()) valores << derechos.textos.value(columna);
  valores << SiNo(derechos.modificar_costo) << SiNo(derechos.modificar_plazo)
          << SiNo(derechos.modificar_credito) << SiNo(derechos.aplicar_series);
  for (const QString& serie : derechos.series) valores << serie.trimmed();
  return valores;
}

}  // namespace

const QStringList& ColumnasDeDocumentos() {
  static const QStringList kColumnas = {
      u"OrdenesCompra"_s, u"Compras"_s,      u"ContraRecibos"_s,  u"Cotizaciones"_s, u"Pedidos"_s,
      u"Remisiones"_s,    u"Facturas"_s,     u"Produccion"_s,     u"Traspasos"_s,    u"CxC"_s,
      u"CxP"_s,           u"NotasCliente"_s, u"NotasProveedor"_s, u"Licitaciones"_s, u"Ajustes"_s};
  return kColumnas;
}

const QStringList& ColumnasDeCatalogos() {
  static const QStringList kColumnas = {u"Clientes"_s, u"Agentes"_s,        u"Proveedores"_s,
                                        u"Marcas"_s,   u"Lineas"_s,         u"Productos"_s,
                                        u"Bancos"_s,   u"FoliosFacturas"_s, u"FoliosNotas"_s};
  return kColumnas;
}

bool TextoDeDerechosValido(const QString& texto) {
  if (texto.size() > 3) return false;
  for (const QChar letra : texto) {
    if (letra != u'S' && letra != u'N') return false;
  }
  return true;
}

QString BloqueDePermisos(const QList<bool>& estados) {
  QString bloque;
  bloque.reserve(inicio::kLargoBloque);
  for (const bool estado : estados) bloque += estado ? u'1' : u'0';
  return bloque.leftJustified(inicio::kLargoBloque, u'0', true);
}

QString MascaraDePermisos(const std::array<QList<bool>, 4>& bloques) {
  QString mascara;
  for (const QList<bool>& estados : bloques) mascara += BloqueDePermisos(estados);
  return mascara;
}

bool PuedeModificar(const Session& session, const QString& columna) {
  return session.Administrador || session.usuario.Flag(columna);
}

Outcome LeerDerechos(const Session& session, const QString& usuario, Derechos* derechos) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery query = c.Exec(
      u"select "_s + ColumnasGuardadas().join(u", "_s) + u" from usuarios where usuario = ?"_s,
      {usuario});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  if (!query.next()) {
    return Outcome::Warning(u"Usuario no registrado para acceso al sistema"_s);
  }
  const auto texto = [&query](const QString& columna) {
    return query.value(columna.toLower()).toString();
  };
  derechos->permisos = texto(u"permisos"_s);
  derechos->textos.clear();
  for (const QString& columna : ColumnasDeDerechos()) derechos->textos[columna] = texto(columna);
  derechos->modificar_costo = texto(u"modificarcosto"_s) == u"S"_s;
  derechos->modificar_plazo = texto(u"modificarplazo"_s) == u"S"_s;
  derechos->modificar_credito = texto(u"modificarcredito"_s) == u"S"_s;
  derechos->aplicar_series = texto(u"aplicarseriesenfacturas"_s) == u"S"_s;
  for (int i = 0; i < kSeries; ++i) derechos->series[i] = texto(Serie(i + 1));
  return Outcome::Ok();
}

Outcome GuardarDerechos(const Session& session, const QString& usuario, const Derechos& derechos) {
  if (!session.Administrador) {
    return Outcome::Warning(u"Este usuario no tiene permisos para cambios de registros"_s);
  }
  for (const QString& columna : ColumnasDeDerechos()) {
    if (!TextoDeDerechosValido(derechos.textos.value(columna))) {
      return Outcome::Warning(
          u"Los derechos se escriben con S o N: altas, bajas y cambios, por ejemplo SSN"_s,
          columna);
    }
  }
  QStringList asignaciones;
  for (const QString& columna : ColumnasGuardadas()) asignaciones << columna + u" = ?"_s;
  QVariantList valores = ValoresGuardados(derechos);
  valores << usuario;

  sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  const std::optional<int> cambiados = guardado.Actualizar(
      u"update usuarios set "_s + asignaciones.join(u", "_s) + u" where usuario = ?"_s, valores);
  if (!cambiados) return guardado.falla();
  if (*cambiados == 0) {
    return Outcome::Warning(u"Usuario no registrado para acceso al sistema"_s);
  }
  return guardado.Terminar();
}

}  // namespace ventarix::usuarios
