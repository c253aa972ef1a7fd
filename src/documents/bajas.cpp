// Cancellation: the record keeps its key and folio, takes the status 'BAJA' (documents with the
// reason given), its rows drop to zero, and everything derived from it is recomputed.
#include <QSqlQuery>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "documents/bajas_clases.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

// The rows lose their quantities (and the links to their source documents); the header takes
// 'BAJA'.
Outcome Anular(Connection& c, const Clase& k, const Antes& a, const QString& motivo) {
  const QString donde = u" where "_s + dialect::Name(k.llave) + u" = ?"_s;
  if (!k.partidas_baja.isEmpty()) {
    if (Outcome o = Ejecutar(c,
                             u"update "_s + dialect::Name(k.tabla + u" detalles"_s) + u" set "_s +
                                 k.partidas_baja + donde,
                             {a.valor});
        !o) {
      return o;
    }
  }
  if (k.catalogo) {
    return Ejecutar(c, u"update "_s + dialect::Name(k.tabla) + u" set status = 'BAJA'"_s + donde,
                    {a.valor});
  }
  QStringList asignaciones;
  if (!k.encabezado_baja.isEmpty()) asignaciones << k.encabezado_baja;
  asignaciones << u"status = 'BAJA'"_s << u"\"motivo de baja\" = ?"_s;
  return Ejecutar(
      c, u"update "_s + dialect::Name(k.tabla) + u" set "_s + asignaciones.join(u", "_s) + donde,
      {motivo, a.valor});
}

Outcome Baja(const Session& session, Connection& c, const Clase& k, const QString& llave,
             const QString& motivo) {
  Antes a;
  a.accion = Accion::kBaja;
  if (Outcome o = LeerRegistro(c, k, llave, &a); !o) return o;
  if (a.encabezado.Text(u"status"_s) == u"BAJA") {
    return Outcome::Warning(u"Este registro de '"_s + k.tabla + u"' ya esta dado de baja"_s);
  }
  if (Outcome o = Bloquear(c, k.bloqueos_baja, a.valor); !o) return o;
  if (k.revisar) {
    if (Outcome o = k.revisar(session, c, a); !o) return o;
  }
  if (Outcome o = LeerListas(c, k, &a); !o) return o;
  if (Outcome o = Anular(c, k, a, motivo); !o) return o;
  if (k.totalizar) {
    if (Outcome o = k.totalizar(session, c, a); !o) return o;
  }
  return k.recalcular ? k.recalcular(session, c, a) : Outcome::Ok();
}

}  // namespace

namespace {

// The refusals before the record is read: the kind, the right, the reason.
Outcome Admitir(const Session& session, const Clase* k, const QString& clase,
                const QString& razon) {
  if (!k) return Outcome::Stop(u"No se conoce la clase de registro "_s + clase);
  if (Outcome o = mFunciones::TienePermiso(session, k->derechos, u"B"_s); !o) return o;
  if (!k->catalogo && razon.isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un motivo de baja"_s, u"Motivo"_s);
  }
  return Outcome::Ok();
}

}  // namespace

Outcome DarDeBaja(const Session& session, const QString& clase, const QString& llave,
                  const QString& motivo) {
  const Clase* k = Buscar(clase);
  const QString razon = motivo.trimmed();
  if (Outcome o = Admitir(session, k, clase, razon); !o) return o;
  return EnTransaccion(session, [&](Connection& c) { return Baja(session, c, *k, llave, razon); });
}

Outcome DarDeBaja(const Session& session, Connection& c, const QString& clase, const QString& llave,
                  const QString& motivo) {
  const Clase* k = Buscar(clase);
  const QString razon = motivo.trimmed();
  if (Outcome o = Admitir(session, k, clase, razon); !o) return o;
  return Baja(session, c, *k, llave, razon);
}

Outcome ClasesConLlave(const Session& session, const QString& llave, QStringList* clases) {
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  if (!c.ok()) return Outcome::Stop(c.error());
  clases->clear();
  for (const Clase& k : Tabla()) {
    if (k.catalogo) continue;
    QSqlQuery q = c.Exec(u"select count(*) from "_s + dialect::Name(k.tabla) + u" where "_s +
                             dialect::Name(k.llave) + u" = ?"_s,
                         {llave.trimmed()});
    if (!q.isActive()) return Outcome::Stop(QueryError(q));
    if (q.next() && q.value(0).toLongLong() > 0) *clases << QString::fromLatin1(k.clase);
  }
  return Outcome::Ok();
}

}  // namespace ventarix::bajas
