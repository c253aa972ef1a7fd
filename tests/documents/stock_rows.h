#pragma once

// Rows the stock tests write straight into a company: products and documents as the capture
// screens leave them, every required column filled with a valid value.
#include <array>

#include <QDate>
#include <QSqlQuery>
#include <QStringList>
#include <QVariantMap>

#include "core/database.h"
#include "core/dialect.h"
#include "core/schema.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline QString StatusInicial(const QString& tabla) {
  if (tabla == u"facturas") return QStringLiteral("POR COBRAR");
  if (tabla == u"compras") return QStringLiteral("POR PAGAR");
  if (tabla == u"remisiones") return QStringLiteral("POR FACTURAR");
  if (tabla == u"produccion") return QStringLiteral("EN PROCESO");
  if (tabla == u"traspasos") return QStringLiteral("APLICADO");
  if (tabla == u"pedidos" || tabla == u"ordenes de compra") return QStringLiteral("POR SURTIR");
  return QStringLiteral("ALTA");
}

// A valid value for a column the test leaves unset: numbers that must be above zero get 1,
// required texts a word, dates the fixed document date; the rest zero, empty or null.
inline QVariant ValorPorOmision(const QString& tabla, const schema::Column& column, bool sql) {
  using enum schema::Type;
  const QString name = QString::fromUtf8(column.name);
  static const QStringList kPositivos = {
      u"folio"_s,  u"numero"_s,  u"cliente"_s, u"proveedor"_s, u"metodo"_s,  u"marca"_s, u"linea"_s,
      u"tienda"_s, u"ingreso"_s, u"egreso"_s,  u"documento"_s, u"almacen"_s, u"item"_s};
  if (name == u"fecha") return dialect::DateValue(QDate(2024, 3, 15), sql);
  if (name == u"periodo") return 2024;
  if (name == u"status") return StatusInicial(tabla);
  if (name == u"usuario") return QStringLiteral("ADMINISTRADOR");
  if (name == u"equipo") return QStringLiteral("PRUEBAS");
  if (name == u"esquema") return QStringLiteral("CFDI");
  if (name == u"moneda") return QStringLiteral("MXN");
  if (name == u"descripcion" || name == u"producto") return QStringLiteral("ARTICULO");
  if (name == u"unidad") return QStringLiteral("PZA");
  if (name == u"serie") return QStringLiteral("A");
  switch (column.type) {
    case kText:
      return QString(u""_s);
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

// Inserts one row of `tabla` with `valores` (lower-case column names) over the defaults.
inline bool Insertar(Connection& c, const QString& tabla, const QVariantMap& valores,
                     QString* error = nullptr) {
  const schema::Table* table = schema::FindTable(tabla);
  if (!table) {
    if (error) *error = u"no table "_s + tabla;
    return false;
  }
  QStringList names, marks;
  QVariantList values;
  for (const schema::Column& column : table->columns) {
    const QString name = QString::fromUtf8(column.name);
    names << dialect::Name(name);
    marks << u"?"_s;
    values << (valores.contains(name) ? valores.value(name)
                                      : ValorPorOmision(tabla, column, c.sql()));
  }
  return c.Run(u"insert into "_s + dialect::Name(tabla) + u" ("_s + names.join(u',') +
                   u") values ("_s + marks.join(u',') + u')',
               values, error);
}

inline std::array<double, 5> Existencias(Connection& c, const QString& codigo) {
  std::array<double, 5> stock{};
  QSqlQuery q = c.Exec(
      u"select almacen1, almacen2, almacen3, almacen4, almacen5 from productos where codigo = ?"_s,
      {codigo});
  if (q.next()) {
    for (int i = 0; i < 5; ++i) stock[i] = q.value(i).toDouble();
  }
  return stock;
}

inline double Existencia(Connection& c, const QString& codigo, int almacen) {
  return Existencias(c, codigo)[almacen - 1];
}

}  // namespace ventarix::testing
