#include "core/ui/trabajo_en_espera.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>

#include "core/ui/message_box.h"

namespace ventarix::ui {

void EsperarTrabajo(QWidget* parent, const QString& aviso, const std::function<void()>& trabajo) {
  QProgressDialog espera(aviso, QString(), 0, 0, parent);
  espera.setWindowTitle(QString::fromLatin1(kTitulo));
  espera.setWindowModality(Qt::ApplicationModal);
  espera.setMinimumDuration(0);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QThread* hilo = QThread::create(trabajo);
  QEventLoop ciclo;
  QObject::connect(hilo, &QThread::finished, &ciclo, &QEventLoop::quit);
  hilo->start();
  espera.show();
  ciclo.exec(QEventLoop::ExcludeUserInputEvents);
  hilo->wait();
  delete hilo;
  espera.close();
  QApplication::restoreOverrideCursor();
}

}  // namespace ventarix::ui
