#include "documents/set_statements.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace ventarix {

bool TurnoDeRecalculo(Connection& connection, QString* error) {
  if (!connection.sql()) return true;
  // Any fixed number serves; this one spells "VTX" and marks the turn in pg_locks.
  return connection.Run(QStringLiteral("select pg_advisory_xact_lock(5657688)"), {}, error);
}

Outcome RunSetStatements(Connection& connection, const std::vector<SetStatement>& statements) {
  Transaction transaction(connection);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  if (QString error; !TurnoDeRecalculo(connection, &error)) return Outcome::Stop(error);
  for (const SetStatement& s : statements) {
    QString error;
    if (!connection.Run(s.text, s.values, &error)) return Outcome::Stop(error);
  }
  if (!transaction.Commit()) return Outcome::Stop(transaction.error());
  return Outcome::Ok();
}

void YieldToScreen() {
  if (QCoreApplication::instance()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

}  // namespace ventarix
