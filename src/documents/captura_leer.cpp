// A stored document read back for its change screen, and how the engine reads a document's
// values.
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "documents/captura.h"
#include "documents/captura_filas.h"

namespace ventarix::captura {

namespace {

using namespace Qt::StringLiterals;

QVariantMap Fila(const QSqlQuery& q) {
  QVariantMap fila;
  const QSqlRecord r = q.record();
  for (int i = 0; i < r.count(); ++i) fila.insert(r.fieldName(i).toLower(), q.value(i));
  return fila;
}

}  // namespace

double Numero(const QVariantMap& valores, const char* columna) {
  return mFunciones::ValorNumerico(valores.value(QString::fromUtf8(columna)));
}

QString Texto(const QVariantMap& valores, const char* columna) {
  return mFunciones::ValorTexto(valores.value(QString::fromUtf8(columna))).trimmed();
}

bool TieneCodigo(const QVariantMap& partida) { return !Texto(partida, "codigo").isEmpty(); }

bool Presente(const FamiliaCaptura& f, const QVariantMap& partida) {
  return f.presente ? f.presente(partida) : TieneCodigo(partida);
}

RowInput EntradaDe(const QVariantMap& p) {
  return {Numero(p, "cantidad"), Numero(p, "precio"), Numero(p, "dcto"),
          Numero(p, "impuesto"), Numero(p, "costo"),  Numero(p, "com")};
}

QDateTime FechaDe(const Documento& d) {
  const QVariant valor = d.encabezado.value(u"fecha"_s);
  QDateTime fecha = dialect::ReadDate(valor);
  if (!fecha.isValid()) fecha = QDateTime(QDate::fromString(valor.toString(), Qt::ISODate), {});
  if (!fecha.isValid()) fecha = QDateTime::currentDateTime();
  return QDateTime(fecha.date(), QTime(0, 0));
}

int AlmacenDe(const Session& session, Connection& c, const FamiliaCaptura& f, const Documento& d) {
  if (f.almacen) return f.almacen(d);
  int almacen = session.Tienda;
  if (!d.llave.isEmpty()) {
    const QVariant guardado =
        c.Scalar(u"select tienda from "_s + dialect::Name(QString::fromUtf8(f.tabla)) +
                     u" where "_s + dialect::Name(QString::fromUtf8(f.llave)) + u" = ?"_s,
                 {d.llave});
    if (guardado.toInt() > 0) almacen = guardado.toInt();
  }
  return qBound(1, almacen, 5);
}

Leido LeerDocumento(Connection& c, const FamiliaCaptura& f, const QString& llave) {
  Leido leido;
  const QString tabla = dialect::Name(QString::fromUtf8(f.tabla));
  const QString columna = dialect::Name(QString::fromUtf8(f.llave));
  QSqlQuery encabezado =
      c.Exec(u"select * from "_s + tabla + u" where "_s + columna + u" = ?"_s, {llave});
  if (!encabezado.next()) {
    leido.outcome =
        Outcome::Stop(encabezado.lastError().isValid() ? QueryError(encabezado)
                                                       : u"No existe el documento "_s + llave);
    return leido;
  }
  leido.documento.llave = llave;
  leido.documento.encabezado = Fila(encabezado);
  leido.documento.folio_previsto = encabezado.value(u"folio"_s).toInt();
  leido.modificable =
      Texto(leido.documento.encabezado, "status") == QString::fromUtf8(f.status_inicial);
  QSqlQuery partidas =
      c.Exec(u"select * from "_s + dialect::Name(QString::fromUtf8(f.tabla) + u" detalles"_s) +
                 u" where "_s + columna + u" = ? order by item"_s,
             {llave});
  while (partidas.next()) leido.documento.partidas.push_back(Fila(partidas));
  return leido;
}

Leido LeerDocumento(const Session& session, const FamiliaCaptura& f, const QString& llave) {
  Connection c(session.Cadena);
  if (!c.ok()) return {Outcome::Stop(c.error()), {}, false};
  return LeerDocumento(c, f, llave);
}

}  // namespace ventarix::captura
