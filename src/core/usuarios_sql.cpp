#include "core/usuarios_sql.h"

#include <QSqlError>
#include <QSqlQuery>

namespace ventarix::usuarios::sql {

Guardado::Guardado(const Session& session) : connection_(session.Cadena) {
  if (!connection_.ok()) {
    Fallar(connection_.error());
    return;
  }
  transaction_.emplace(connection_);
  if (!transaction_->ok()) {
    Fallar(transaction_->error());
    return;
  }
  ok_ = true;
}

bool Guardado::Fallar(const QString& descripcion) {
  ok_ = false;
  falla_ = Outcome::Stop(descripcion);
  return false;
}

std::optional<qint64> Guardado::Contar(const QString& statement, const QVariantList& values) {
  QSqlQuery query = connection_.Exec(statement, values);
  if (query.lastError().isValid() || !query.next()) {
    Fallar(QueryError(query));
    return std::nullopt;
  }
  return query.value(0).toLongLong();
}

bool Guardado::Ejecutar(const QString& statement, const QVariantList& values) {
  QString error;
  if (connection_.Run(statement, values, &error)) return true;
  return Fallar(error);
}

std::optional<int> Guardado::Actualizar(const QString& statement, const QVariantList& values) {
  QSqlQuery query = connection_.Exec(statement, values);
  if (query.lastError().isValid()) {
    Fallar(QueryError(query));
    return std::nullopt;
  }
  return query.numRowsAffected();
}

Outcome Guardado::Terminar() {
  if (!ok_) return falla_;
  if (!transaction_->Commit()) {
    Fallar(transaction_->error());
    return falla_;
  }
  return Outcome::Ok();
}

}  // namespace ventarix::usuarios::sql
