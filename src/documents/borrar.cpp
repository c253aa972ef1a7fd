// Deletion: meant for a mistake just made. Folios are consecutive, so only the last document
// of a serie (the highest number of a catalogue) may go, and nothing that another record
// names, cancelled or not.
#include <QSqlQuery>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "documents/bajas_clases.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

// A document stamped at the SAT exists there for good: it can only be cancelled.
Outcome RevisarFolioFiscal(const Clase& k, const Antes& a) {
  const QString uuid = a.encabezado.Text(u"uuid"_s).trimmed();
  if (k.folio_fiscal == FolioFiscal::kNo || uuid.isEmpty() ||
      a.encabezado.Text(u"esquema"_s) != u"CFDI") {
    return Outcome::Ok();
  }
  QString mensaje = u"Existe un folio fiscal digital / UUID"_s;
  if (k.folio_fiscal == FolioFiscal::kBloqueaConUuid) mensaje += u"\n\n"_s + uuid;
  return Outcome::Refuse(mensaje);
}

// The serie's highest folio, or the catalogue's highest number, must be the record's own.
Outcome RevisarMayor(Connection& c, const Clase& k, const Antes& a) {
  if (k.mayor.isEmpty()) return Outcome::Ok();
  const QString columna = k.numerica ? k.llave : u"folio"_s;
  QString sentencia =
      u"select max("_s + dialect::Name(columna) + u") from "_s + dialect::Name(k.tabla);
  QVariantList valores;
  if (!k.numerica) {
    sentencia += u" where serie = ?"_s;
    valores << a.encabezado.Value(u"serie"_s);
  }
  QSqlQuery q = c.Exec(sentencia, valores);
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  const qint64 propio =
      k.numerica ? a.valor.toLongLong() : a.encabezado.Value(u"folio"_s).toLongLong();
  if (q.next() && q.value(0).toLongLong() > propio) return Outcome::Warning(k.mayor);
  return Outcome::Ok();
}

// The side rows first (a folio range's sealing material only of its own family), then the
// document's rows, then the record.
Outcome Eliminar(Connection& c, const Clase& k, const Antes& a) {
  QStringList tablas = k.borrar_antes;
  if (!k.catalogo) tablas << k.tabla + u" detalles"_s;
  tablas << k.tabla;
  for (const QString& tabla : tablas) {
    QString sentencia = u"delete from "_s + dialect::Name(tabla) + u" where "_s +
                        dialect::Name(k.llave) + u" = ?"_s;
    QVariantList valores = {a.valor};
    if (k.documento >= 0 && tabla != k.tabla) {
      sentencia += u" and documento = ?"_s;
      valores << k.documento;
    }
    if (Outcome o = Ejecutar(c, sentencia, valores); !o) return o;
  }
  return Outcome::Ok();
}

Outcome BorrarRegistro(const Session& session, Connection& c, const Clase& k,
                       const QString& llave) {
  Antes a;
  a.accion = Accion::kBorrado;
  if (Outcome o = LeerRegistro(c, k, llave, &a); !o) return o;
  if (Outcome o = Bloquear(c, k.bloqueos_borrado, a.valor); !o) return o;
  if (Outcome o = RevisarFolioFiscal(k, a); !o) return o;
  if (Outcome o = RevisarMayor(c, k, a); !o) return o;
  if (k.revisar) {
    if (Outcome o = k.revisar(session, c, a); !o) return o;
  }
  if (Outcome o = LeerListas(c, k, &a); !o) return o;
  if (Outcome o = Eliminar(c, k, a); !o) return o;
  return k.recalcular ? k.recalcular(session, c, a) : Outcome::Ok();
}

}  // namespace

Outcome Borrar(const Session& session, const QString& clase, const QString& llave) {
  const Clase* k = Buscar(clase);
  if (!k) return Outcome::Stop(u"No se conoce la clase de registro "_s + clase);
  if (Outcome o = mFunciones::TienePermiso(session, k->derechos, u"B"_s); !o) return o;
  return EnTransaccion(session,
                       [&](Connection& c) { return BorrarRegistro(session, c, *k, llave); });
}

}  // namespace ventarix::bajas
