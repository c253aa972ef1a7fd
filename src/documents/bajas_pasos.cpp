// The steps both actions share: the record read and held, its blocking checks, the lists read
// before anything changes, and the transaction around it all.
#include <QSqlQuery>

#include "core/dialect.h"
#include "core/registro_leido.h"
#include "documents/bajas_clases.h"
#include "documents/mInventario.h"
#include "documents/mSaldos.h"

namespace ventarix::bajas {

using namespace Qt::StringLiterals;

Outcome EnTransaccion(const Session& session, const std::function<Outcome(Connection&)>& accion) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome o = accion(c); !o) return o;
  if (!t.Commit()) return Outcome::Stop(t.error());
  return Outcome::Ok();
}

Outcome LeerRegistro(Connection& c, const Clase& k, const QString& llave, Antes* antes) {
  antes->llave = llave.trimmed();
  antes->valor = antes->llave;
  const Outcome no_existe =
      Outcome::Warning(u"No existe en '"_s + k.tabla + u"' el registro "_s + antes->llave);
  if (k.numerica) {
    bool numero = false;
    antes->valor = antes->llave.toInt(&numero);
    if (!numero) return no_existe;
  }
  QSqlQuery q =
      c.Exec(u"select * from "_s + dialect::Name(k.tabla) + u" where "_s + dialect::Name(k.llave) +
                 u" = ?"_s + (c.sql() ? u" for update"_s : QString()),
             {antes->valor});
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  if (!q.next()) return no_existe;
  antes->encabezado = RegistroLeido(q);
  return Outcome::Ok();
}

Outcome Bloquear(Connection& c, const std::vector<Bloqueo>& bloqueos, const QVariant& valor) {
  for (const Bloqueo& bloqueo : bloqueos) {
    QSqlQuery q = c.Exec(bloqueo.sentencia, {valor});
    if (!q.isActive()) return Outcome::Stop(QueryError(q));
    if (q.next()) return Outcome::Warning(bloqueo.mensaje + q.value(0).toString());
  }
  return Outcome::Ok();
}

Outcome LeerListas(Connection& c, const Clase& k, Antes* antes) {
  QString error;
  if (k.codigos) {
    antes->codigos = mInventario::ListaCodigosDocumento(c, k.tabla, k.llave, antes->llave, &error);
  }
  if (error.isEmpty() && !k.relacionado.isEmpty()) {
    antes->relacionados = mSaldos::ListaDocumentosRelacionados(c, k.tabla, k.llave, antes->llave,
                                                               k.relacionado, &error);
  }
  if (!error.isEmpty()) return Outcome::Stop(error);
  if (!k.socio.isEmpty()) antes->socio = antes->encabezado.Integer(k.socio);
  return Outcome::Ok();
}

Outcome Ejecutar(Connection& c, const QString& sentencia, const QVariantList& valores) {
  QString error;
  if (!c.Run(sentencia, valores, &error)) return Outcome::Stop(error);
  return Outcome::Ok();
}

Outcome Existencias(Connection& c, int almacen, const QStringList& codigos) {
  QString error;
  if (!mInventario::RecalcularExistencias(c, almacen, codigos, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

}  // namespace ventarix::bajas
