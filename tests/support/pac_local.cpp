#include "support/pac_local.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

namespace ventarix::testing {

namespace {

constexpr int kEsperaMs = 15000;

QString Registro(const QTemporaryDir& carpeta) {
  return carpeta.filePath(QStringLiteral("timbres.sqlite"));
}

// A count over the stand-in's records, read on a connection of its own.
int Contar(const QString& archivo, const QString& condicion) {
  const QString nombre = QStringLiteral("pac-local-") + QUuid::createUuid().toString();
  int cuantos = -1;
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
    db.setDatabaseName(archivo);
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=5000"));
    if (db.open()) {
      QSqlQuery q(db);
      if (q.exec(QStringLiteral("select count(*) from timbres where ") + condicion) && q.next())
        cuantos = q.value(0).toInt();
    }
  }
  QSqlDatabase::removeDatabase(nombre);
  return cuantos;
}

}  // namespace

PacLocal::PacLocal()
    : carpeta_(std::make_unique<QTemporaryDir>()), proceso_(std::make_unique<QProcess>()) {
  proceso_->setProcessChannelMode(QProcess::SeparateChannels);
  proceso_->start(QStringLiteral(VENTARIX_PAC_PROGRAM),
                  {QStringLiteral("--puerto"), QStringLiteral("0"), QStringLiteral("--datos"),
                   Registro(*carpeta_)});
  if (!proceso_->waitForStarted(kEsperaMs)) {
    error_ = proceso_->errorString();
    return;
  }
  // The program prints its address once it listens.
  while (!proceso_->canReadLine() && proceso_->waitForReadyRead(kEsperaMs)) {
  }
  url_ = QString::fromUtf8(proceso_->readLine()).trimmed();
  if (url_.isEmpty()) {
    proceso_->waitForFinished(1000);
    error_ = QStringLiteral("ventarix-pac no abrió su puerto: ") +
             QString::fromUtf8(proceso_->readAllStandardError());
  }
}

PacLocal::~PacLocal() {
  if (proceso_->state() != QProcess::NotRunning) {
    proceso_->terminate();
    if (!proceso_->waitForFinished(5000)) proceso_->kill();
    proceso_->waitForFinished(5000);
  }
}

bool PacLocal::ok() const { return error_.isEmpty(); }
QString PacLocal::error() const { return error_; }
QString PacLocal::url() const { return url_; }

QString PacLocal::certificado() const {
  return QStringLiteral(VENTARIX_SOURCE_DIR "/data/pac-local/pac-local.cer");
}

int PacLocal::Timbres() const { return Contar(Registro(*carpeta_), QStringLiteral("1 = 1")); }
int PacLocal::Cancelados() const {
  return Contar(Registro(*carpeta_), QStringLiteral("cancelado = 1"));
}

}  // namespace ventarix::testing
