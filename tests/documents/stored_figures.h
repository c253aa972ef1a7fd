#pragma once

// What the document tests write and read back: rows of a table given as one list of columns and
// one line of values each, one column of one row by its key, and a row's columns against the
// figures and texts expected, reported together so one run shows every mismatch.
#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "support/document_rows.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline bool InsertarFilas(Connection& c, const QString& tabla, const QStringList& columnas,
                          const QList<QVariantList>& filas) {
  for (const QVariantList& valores : filas) {
    QVariantMap fila;
    for (int i = 0; i < columnas.size(); ++i) fila.insert(columnas[i], valores.value(i));
    if (!InsertarFila(c, tabla, fila)) return false;
  }
  return true;
}

inline QVariant Leer(Connection& c, const QString& tabla, const QString& columna_clave,
                     const QVariant& clave, const QString& columna) {
  return c.Scalar(u"select %1 from %2 where %3 = ?"_s.arg(
                      dialect::Name(columna), dialect::Name(tabla), dialect::Name(columna_clave)),
                  {clave});
}

// Empty when every column of `esperado` ("importe=6.6711|codigo=CORTE") holds its value:
// numbers to the ninth place, the rest as text.
inline QString Diferencias(const QSqlQuery& fila, const QString& esperado) {
  QString texto;
  for (const QString& par : esperado.split(u'|')) {
    const QString columna = par.section(u'=', 0, 0);
    const QString valor = par.section(u'=', 1);
    const QVariant leido = fila.value(columna);
    bool numero = false;
    const double cifra = valor.toDouble(&numero);
    const bool igual = numero ? qAbs(leido.toDouble() - cifra) < 1e-9 : leido.toString() == valor;
    if (!igual) texto += u"%1: %2, expected %3; "_s.arg(columna, leido.toString(), valor);
  }
  return texto;
}

// The same for the row of `tabla` whose `columna_clave` is `clave`.
inline QString Diferencias(Connection& c, const QString& tabla, const QString& columna_clave,
                           const QVariant& clave, const QString& esperado) {
  QSqlQuery fila = c.Exec(
      u"select * from %1 where %2 = ?"_s.arg(dialect::Name(tabla), dialect::Name(columna_clave)),
      {clave});
  if (!fila.next()) return u"no row %1 in %2"_s.arg(clave.toString(), tabla);
  return Diferencias(fila, esperado);
}

}  // namespace ventarix::testing

// Fails with every mismatch of the row of `tabla` whose `columna_clave` is `clave`.
#define COMPARE_ROW(c, tabla, columna_clave, clave, esperado)                          \
  do {                                                                                 \
    const QString diff_ =                                                              \
        ::ventarix::testing::Diferencias(c, tabla, columna_clave, clave, esperado);    \
    QVERIFY2(diff_.isEmpty(),                                                          \
             qPrintable(tabla + u' ' + QVariant(clave).toString() + u": "_s + diff_)); \
  } while (false)
