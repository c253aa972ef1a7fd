#pragma once

// Rows written straight into a test company, as the capture screens leave them: the columns a
// test names take its values, every other column a value the column rules accept.
#include <QDate>
#include <QDateTime>
#include <QStringList>
#include <QVariantMap>

#include "core/database.h"
#include "core/dialect.h"
#include "core/schema.h"
#include "support/escribir.h"

namespace ventarix::testing {

// The day every test document is dated, unless the test says otherwise.
inline QDate DiaDePrueba() { return QDate(2024, 3, 15); }

inline QString StatusInicialDe(const QString& tabla) {
  if (tabla == u"facturas") return QStringLiteral("POR COBRAR");
  if (tabla == u"compras") return QStringLiteral("POR PAGAR");
  if (tabla == u"remisiones") return QStringLiteral("POR FACTURAR");
  if (tabla == u"produccion") return QStringLiteral("EN PROCESO");
  if (tabla == u"traspasos") return QStringLiteral("APLICADO");
  if (tabla == u"pedidos" || tabla == u"ordenes de compra") return QStringLiteral("POR SURTIR");
  return QStringLiteral("ALTA");
}

inline QVariant ValorValido(const QString& tabla, const schema::Column& column, bool sql) {
  using enum schema::Type;
  const QString name = QString::fromUtf8(column.name);
  static const QStringList kPositivos = {
      QStringLiteral("folio"),     QStringLiteral("numero"),    QStringLiteral("cliente"),
      QStringLiteral("proveedor"), QStringLiteral("metodo"),    QStringLiteral("marca"),
      QStringLiteral("linea"),     QStringLiteral("tienda"),    QStringLiteral("ingreso"),
      QStringLiteral("egreso"),    QStringLiteral("documento"), QStringLiteral("almacen"),
      QStringLiteral("item")};
  if (name == u"fecha") return dialect::DateValue(DiaDePrueba(), sql);
  if (name == u"periodo") return DiaDePrueba().year();
  if (name == u"status") return StatusInicialDe(tabla);
  if (name == u"usuario") return QStringLiteral("ADMINISTRADOR");
  if (name == u"equipo") return QStringLiteral("PRUEBAS");
  if (name == u"esquema") return QStringLiteral("CFDI");
  if (name == u"codigo" || name == u"descripcion" || name == u"producto") {
    return QStringLiteral("ARTICULO");
  }
  if (name == u"moneda") return QStringLiteral("MXN");
  if (name == u"serie") return QStringLiteral("A");
  if (name == u"unidad") return QStringLiteral("PZA");
  switch (column.type) {
    case kText:
      return QString(QLatin1String(""));
    case kYesNo:
      return QStringLiteral("N");
    case kInt32:
    case kInt16:
      return kPositivos.contains(name) ? 1 : 0;
    case kDouble:
      return 0.0;
    case kDateTime:
      return dialect::DateValue(QDateTime(), sql);
    case kBinary:
      return QVariant(QMetaType(QMetaType::QByteArray));
  }
  return {};
}

// Inserts one row of `tabla`; `valores` by lower-case column name, dates as QDate/QDateTime.
inline bool InsertarFila(Connection& c, const QString& tabla, const QVariantMap& valores,
                         QString* error = nullptr) {
  const schema::Table* table = schema::FindTable(tabla);
  if (!table) {
    if (error) *error = QStringLiteral("no table ") + tabla;
    return false;
  }
  QStringList names, marks;
  QVariantList values;
  for (const schema::Column& column : table->columns) {
    const QString name = QString::fromUtf8(column.name);
    names << dialect::Name(name);
    marks << QStringLiteral("?");
    QVariant value =
        valores.contains(name) ? valores.value(name) : ValorValido(tabla, column, c.sql());
    if (value.metaType().id() == QMetaType::QDate)
      value = dialect::DateValue(value.toDate(), c.sql());
    if (value.metaType().id() == QMetaType::QDateTime) {
      value = dialect::DateValue(value.toDateTime(), c.sql());
    }
    values << value;
  }
  return testing::Escribir(c,
                           QStringLiteral("insert into ") + dialect::Name(tabla) +
                               QStringLiteral(" (") + names.join(QLatin1Char(',')) +
                               QStringLiteral(") values (") + marks.join(QLatin1Char(',')) +
                               QLatin1Char(')'),
                           values, error);
}

}  // namespace ventarix::testing
