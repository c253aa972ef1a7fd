#include "core/database.h"

#include <QAtomicInteger>
#include <QDir>
#include <QSqlError>
#include <QSqlRecord>
#include <QUrl>

#include "core/engine_handles.h"
#include "core/passwords.h"
#include "core/rol_consulta.h"

namespace ventarix {

namespace {

QString NextConnectionName() {
  static QAtomicInteger<quint64> counter;
  return QStringLiteral("ventarix-%1").arg(counter.fetchAndAddRelaxed(1));
}

const QString kSqlitePrefix = QStringLiteral("sqlite:");

}  // namespace

std::optional<ConnectionTarget> ParseCadena(const QString& cadena) {
  const QString text = cadena.trimmed();
  ConnectionTarget target;
  if (text.startsWith(kSqlitePrefix)) {
    target.engine = Engine::kSqlite;
    target.path = text.mid(kSqlitePrefix.size());
    if (target.path.isEmpty()) return std::nullopt;
    return target;
  }
  const QUrl url(text, QUrl::StrictMode);
  if (!url.isValid()) return std::nullopt;
  const QString scheme = url.scheme().toLower();
  if (scheme != QLatin1String("postgresql") && scheme != QLatin1String("postgres")) {
    return std::nullopt;
  }
  target.engine = Engine::kPostgres;
  target.host = url.host();
  target.port = url.port(5432);
  target.user = url.userName();
  target.password = url.password();
  target.catalog = url.path().mid(1);
  if (target.host.isEmpty() || target.catalog.isEmpty()) return std::nullopt;
  return target;
}

QString SqliteCadena(const QString& path) {
  return kSqlitePrefix + QDir::cleanPath(QDir().absoluteFilePath(path));
}

QString PostgresCadena(const ConnectionTarget& target) {
  QUrl url;
  url.setScheme(QStringLiteral("postgresql"));
  url.setUserName(target.user);
  url.setPassword(target.password);
  url.setHost(target.host);
  url.setPort(target.port);
  url.setPath(QLatin1Char('/') + target.catalog);
  return url.toString();
}

Connection::Connection(const QString& cadena, Acceso acceso)
    : name_(NextConnectionName()), acceso_(acceso) {
  const std::optional<ConnectionTarget> target = ParseCadena(cadena);
  if (!target) {
    error_ = QStringLiteral("Cadena de conexión no válida: ") + passwords::Enmascarar(cadena);
    return;
  }
  engine_ = target->engine;
  const bool lectura = acceso != Acceso::kEscritura;
  if (engine_ == Engine::kSqlite) {
    if (!QFile::exists(target->path)) {
      error_ = QStringLiteral("No existe el archivo: ") + target->path;
      return;
    }
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_);
    db_.setDatabaseName(target->path);
    // Several workstations may share the file: a writer waits for another instead of failing.
    db_.setConnectOptions(lectura
                              ? QStringLiteral("QSQLITE_BUSY_TIMEOUT=15000;QSQLITE_OPEN_READONLY")
                              : QStringLiteral("QSQLITE_BUSY_TIMEOUT=15000"));
  } else {
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name_);
    db_.setHostName(target->host);
    db_.setPort(target->port);
    db_.setUserName(target->user);
    db_.setPassword(target->password);
    db_.setDatabaseName(target->catalog);
    db_.setConnectOptions(QStringLiteral("connect_timeout=10"));
  }
  ok_ = db_.open();
  if (!ok_) {
    error_ = db_.lastError().text();
    return;
  }
  if (engine_ == Engine::kSqlite) {
    if (acceso == Acceso::kVista) {
      engine::SoloLecturaSinSecretos(engine::SqliteHandle(db_));
    } else if (acceso == Acceso::kEscritura) {
      engine::ExigirTransaccionParaEscribir(engine::SqliteHandle(db_));
    }
    return;
  }
  // Keep the server quiet about notices. The program sends many small statements: compiling
  // them ahead costs more than it saves. Outside a Transaction the session cannot write.
  QSqlQuery(db_).exec(QStringLiteral("set client_min_messages to warning"));
  QSqlQuery(db_).exec(QStringLiteral("set jit = off"));
  QSqlQuery(db_).exec(QStringLiteral("set default_transaction_read_only = on"));
  if (acceso == Acceso::kVista) rol_consulta::Asumir(*this, target->catalog);
}

Connection::~Connection() {
  preparadas_.clear();
  if (db_.isValid()) db_.close();
  db_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
}

QSqlQuery Connection::Exec(const QString& statement, const QVariantList& values) {
  QSqlQuery query(db_);
  query.setForwardOnly(true);
  // PostgreSQL prepares only queries and data changes; a statement without values (DDL among
  // them) goes to the server as it stands.
  if (values.isEmpty()) {
    query.exec(statement);
    return query;
  }
  if (!query.prepare(statement)) return query;
  for (const QVariant& v : values) query.addBindValue(v);
  query.exec();
  return query;
}

QSqlQuery& Connection::ExecRepetida(const QString& statement, const QVariantList& values) {
  std::unique_ptr<QSqlQuery>& query = preparadas_[statement];
  if (query == nullptr || (!query->isValid() && query->lastError().isValid())) {
    // Prepared the first time, and again after a text that would not prepare.
    query = std::make_unique<QSqlQuery>(db_);
    query->setForwardOnly(true);
    if (!query->prepare(statement)) return *query;
  }
  query->finish();
  for (qsizetype i = 0; i < values.size(); ++i) query->bindValue(static_cast<int>(i), values[i]);
  query->exec();
  return *query;
}

bool Connection::Run(const QString& statement, const QVariantList& values, QString* error) {
  QSqlQuery query = Exec(statement, values);
  if (query.lastError().isValid()) {
    if (error) *error = QueryError(query);
    return false;
  }
  return true;
}

QVariant Connection::Scalar(const QString& statement, const QVariantList& values) {
  QSqlQuery query = Exec(statement, values);
  if (query.next()) return query.value(0);
  return {};
}

QStringList Connection::Tables() { return db_.tables(QSql::Tables); }

Transaction::Transaction(Connection& connection) : connection_(connection) {
  if (!connection_.ok()) {
    error_ = connection_.error();
    return;
  }
  if (connection_.acceso() != Connection::Acceso::kEscritura) {
    error_ = QStringLiteral("La conexión es de solo lectura.");
    return;
  }
  if (connection_.transacciones_ > 0) {
    // Joins the transaction already begun on this connection.
    started_ = true;
    ++connection_.transacciones_;
    return;
  }
  QSqlQuery begin(connection_.db());
  started_ = begin.exec(connection_.sql() ? QStringLiteral("begin transaction read write")
                                          : QStringLiteral("begin immediate"));
  if (!started_) {
    error_ = QueryError(begin);
    connection_.error_ = error_;
    return;
  }
  outer_ = true;
  connection_.transacciones_ = 1;
  connection_.interior_fallido_ = false;
}

Transaction::~Transaction() {
  if (!started_ || done_) return;
  if (!outer_) {
    connection_.interior_fallido_ = true;
    --connection_.transacciones_;
    return;
  }
  Rollback();
}

void Transaction::Rollback() {
  QSqlQuery(connection_.db()).exec(QStringLiteral("rollback"));
  connection_.transacciones_ = 0;
  done_ = true;
}

bool Transaction::Commit() {
  if (!started_ || done_) return false;
  if (!outer_) {
    done_ = true;
    --connection_.transacciones_;
    return true;
  }
  // A statement that failed on PostgreSQL leaves the transaction unable to commit: the server
  // would roll back and call it done.
  PGconn* pg = engine::PostgresHandle(connection_.db());
  const bool fallida = connection_.interior_fallido_ ||
                       (pg != nullptr && PQtransactionStatus(pg) == PQTRANS_INERROR);
  if (fallida) {
    error_ = QStringLiteral("La transacción no se completó: se deshizo.");
    connection_.error_ = error_;
    Rollback();
    return false;
  }
  QSqlQuery commit(connection_.db());
  if (!commit.exec(QStringLiteral("commit"))) {
    error_ = QueryError(commit);
    connection_.error_ = error_;
    Rollback();
    return false;
  }
  connection_.transacciones_ = 0;
  done_ = true;
  return true;
}

bool RunInTransaction(Connection& connection, const QString& statement, const QVariantList& values,
                      QString* error) {
  Transaction transaction(connection);
  QString fallo = transaction.error();
  if (transaction.ok() && connection.Run(statement, values, &fallo) && transaction.Commit()) {
    return true;
  }
  if (fallo.isEmpty()) fallo = transaction.error();
  if (error) *error = fallo;
  return false;
}

QString QueryError(const QSqlQuery& query) {
  const QSqlError e = query.lastError();
  QString text = e.databaseText().trimmed();
  if (text.isEmpty()) text = e.text().trimmed();
  return text;
}

}  // namespace ventarix
