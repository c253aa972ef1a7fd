#pragma once

#include <vector>

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include "core/database.h"

// Statements whose text comes from the database (a saved view's select, typed by an
// administrator) run only here, on a Connection::Acceso::kVista connection. Whatever the text
// says, one statement reaches the server per call (PostgreSQL's extended protocol takes one;
// SQLite compiles one and Qt refuses a tail), inside a read-only transaction that is rolled
// back afterwards, as a role or under an authorizer that cannot read passwords or keys.
namespace ventarix {

struct ResultadoVista {
  QString error;  // the engine's words; empty when the statement ran
  QStringList nombres;
  QList<QMetaType> tipos;
  std::vector<QVariantList> filas;
  bool ok() const { return error.isEmpty(); }
};

// Runs `texto` with `valores` bound to its `?` marks, in order. Dates travel as the text of
// dialect::DateValue.
ResultadoVista EjecutarVista(Connection& vista, const QString& texto, const QVariantList& valores);

// PostgreSQL numbers its marks: "?" outside quotes and comments become $1, $2 ...
QString MarcasNumeradas(const QString& texto);

}  // namespace ventarix
