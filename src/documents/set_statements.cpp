#include "documents/set_statements.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace ventarix {

Outcome RunSetStatements(Connection& connection, const std::vector<SetStatement>& statements) {
  for (const SetStatement& s : statements) {
    QString error;
    if (!connection.Run(s.text, s.values, &error)) return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

void YieldToScreen() {
  if (QCoreApplication::instance()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

}  // namespace ventarix
