#include "catalogs/marcas.h"

#include "catalogs/guardado.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"

namespace ventarix::marcas {

using namespace Qt::StringLiterals;

namespace {

QString Columna(const char* nombre, int k) {
  return QString::fromLatin1(nombre) + QString::number(k);
}

Outcome Revisar(const Session& session, const Marca& marca, const QString& letra) {
  if (Outcome permiso = mFunciones::TienePermiso(session, u"Marcas"_s, letra); !permiso) {
    return permiso;
  }
  if (marca.nombre.trimmed().isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un nombre"_s, u"Nombre"_s);
  }
  return Outcome::Ok();
}

Outcome RevisarBaja(const Session& session, Connection& c, const Marca& marca, qint32 numero) {
  return catalogs::RevisarBaja(session, c, u"Marcas"_s, u"marcas"_s, u"numero"_s, numero,
                               marca.status);
}

QVariantList Valores(const Marca& marca) {
  QVariantList valores{mFunciones::ValorTexto(marca.nombre)};
  for (double u : marca.utilidades) valores << u;
  valores << (marca.status == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s);
  return valores;
}

}  // namespace

QString ExpresionDeNivel(catalogs::Formula formula, int nivel) {
  const QString u = Columna("utilidad", nivel);
  switch (formula) {
    case catalogs::Formula::kFinanciera:
      return u"case when %1 = 100 then %2 else round(cast(costo / ((100 - %1) / 100) as numeric), "
             u"2) end"_s.arg(u, Columna("precio", nivel));
    case catalogs::Formula::kAritmetica:
      return u"round(cast(costo * (1 + (%1 / 100)) as numeric), 2)"_s.arg(u);
    case catalogs::Formula::kNinguna:
      break;
  }
  return {};
}

Outcome LeerMarca(const Session& session, qint32 numero, Marca* marca) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q = c.Exec(
      u"select numero, nombre, utilidad1, utilidad2, utilidad3, utilidad4, utilidad5, status "
      u"from marcas where numero = ?"_s,
      {numero});
  if (!q.next()) return Outcome::Stop(QueryError(q));
  marca->numero = q.value(0).toInt();
  marca->nombre = q.value(1).toString();
  for (int k = 0; k < catalogs::kNiveles; ++k) marca->utilidades[k] = q.value(2 + k).toDouble();
  marca->status = q.value(7).toString() == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s;
  return Outcome::Ok();
}

Outcome AltaMarca(const Session& session, const Marca& marca, qint32* numero) {
  if (Outcome revision = Revisar(session, marca, u"A"_s); !revision) return revision;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  const QVariantList valores = Valores(marca);
  QVariantMap fila = {{u"nombre"_s, valores.value(0)}, {u"status"_s, valores.value(6)}};
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    fila.insert(u"utilidad%1"_s.arg(k + 1), valores.value(1 + k));
  }
  if (Outcome baja = RevisarBaja(session, c, marca, 0); !baja) return baja;
  qint32 nuevo = 0;
  QString error;
  if (!mFunciones::InsertarConNumero(c, u"marcas"_s, u"numero"_s, fila, &nuevo, &error) ||
      !t.Commit()) {
    return catalogs::ErrorAlGuardar(c, error.isEmpty() ? t.error() : error);
  }
  *numero = nuevo;
  return Outcome::Ok();
}

bool RecalcularPreciosDeMarca(Connection& c, catalogs::Formula formula, qint32 marca,
                              QString* error) {
  if (formula == catalogs::Formula::kNinguna) return true;
  QStringList asignaciones;
  for (int k = 1; k <= catalogs::kNiveles; ++k) {
    asignaciones << Columna("precio", k) + u" = "_s + ExpresionDeNivel(formula, k);
  }
  return RunInTransaction(
      c, u"update productos set "_s + asignaciones.join(u", "_s) + u" where marca = ?"_s, {marca},
      error);
}

bool AplicarUtilidadesEnProductos(Connection& c, catalogs::Formula formula, const Marca& marca,
                                  QString* error) {
  QVariantList valores;
  for (double u : marca.utilidades) valores << u;
  valores << marca.numero;
  Transaction t(c);
  if (!t.ok()) {
    if (error) *error = t.error();
    return false;
  }
  const bool hecho =
      c.Run(
          u"update productos set utilidad1 = ?, utilidad2 = ?, utilidad3 = ?, "
          u"utilidad4 = ?, utilidad5 = ? where marca = ?"_s,
          valores, error) &&
      RecalcularPreciosDeMarca(c, formula, marca.numero, error) &&
      c.Run(
          u"update productos set venta = precio1, precio = precio1 * ( 1 + (impuesto/100) ) "
          u"where marca = ?"_s,
          {marca.numero}, error);
  if (hecho && !t.Commit()) {
    if (error) *error = t.error();
    return false;
  }
  return hecho;
}

Outcome CambioMarca(const Session& session, const Marca& marca) {
  if (Outcome revision = Revisar(session, marca, u"C"_s); !revision) return revision;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome baja = RevisarBaja(session, c, marca, marca.numero); !baja) return baja;
  QString error;
  bool ok = c.Run(
      u"update marcas set nombre = ?, utilidad1 = ?, utilidad2 = ?, utilidad3 = ?, "
      u"utilidad4 = ?, utilidad5 = ?, status = ? where numero = ?"_s,
      Valores(marca) << marca.numero, &error);
  if (ok && session.empresa.Flag(u"Aplicar_Utilidades_De_Marcas_En_Productos"_s)) {
    ok =
        AplicarUtilidadesEnProductos(c, catalogs::FormulaDeEmpresa(session.empresa), marca, &error);
  }
  if (!ok || !t.Commit()) return catalogs::ErrorAlGuardar(c, error);
  return Outcome::Ok();
}

}  // namespace ventarix::marcas
