#include "core/ui/mdi_inicio_presentacion.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <QVBoxLayout>
#include <QVersionNumber>

#include "core/session_load.h"

namespace ventarix {

namespace {
constexpr int kMilisegundosEnPantalla = 500;
constexpr int kTamanoLogo = 96;
}  // namespace

QString MDIInicioPresentacion::Version() {
  const QVersionNumber version = QVersionNumber::fromString(QStringLiteral(VENTARIX_VERSION));
  return QStringLiteral("Versión %1.%2.%3")
      .arg(version.majorVersion())
      .arg(version.minorVersion())
      .arg(version.microVersion());
}

MDIInicioPresentacion::MDIInicioPresentacion(Session& session, QWidget* parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint), session_(session) {
  setObjectName(QStringLiteral("MDIInicioPresentacion"));
  setWindowTitle(Version());
  setAutoFillBackground(true);
  setStyleSheet(
      QStringLiteral("QDialog { background: #1f3b5c; border: 2px solid #0f2038; }"
                     "QLabel { color: white; }"));

  auto* nombre = new QLabel(QStringLiteral("Ventarix"), this);
  QFont grande = nombre->font();
  grande.setPointSizeF(grande.pointSizeF() * 3);
  grande.setBold(true);
  nombre->setFont(grande);
  auto* lema =
      new QLabel(QStringLiteral("Sistema administrativo y de facturación electrónica"), this);
  auto* version = new QLabel(Version(), this);
  version->setObjectName(QStringLiteral("Version"));
  empresa_ = new QLabel(this);
  empresa_->setObjectName(QStringLiteral("Empresa"));
  image1_ = new QLabel(this);
  image1_->setObjectName(QStringLiteral("Image1"));
  image2_ = new QLabel(this);
  image2_->setObjectName(QStringLiteral("Image2"));

  auto* layout = new QVBoxLayout(this);
  layout->addStretch();
  layout->addWidget(nombre, 0, Qt::AlignCenter);
  layout->addWidget(lema, 0, Qt::AlignCenter);
  layout->addWidget(empresa_, 0, Qt::AlignCenter);
  layout->addStretch();
  layout->addWidget(version, 0, Qt::AlignRight);
  setFixedSize(520, 300);

  timer1_ = new QTimer(this);
  timer1_->setInterval(40);
  connect(timer1_, &QTimer::timeout, this, &MDIInicioPresentacion::Mover);
  Cargar();
}

void MDIInicioPresentacion::Cargar() {
  CargarSesion(session_);
  empresa_->setText(session_.empresa.Text(QStringLiteral("empresa")));
  QPixmap logo;
  if (!session_.ArchivoLogo.isEmpty() && QFile::exists(session_.ArchivoLogo) &&
      logo.load(session_.ArchivoLogo)) {
    logo = logo.scaled(kTamanoLogo, kTamanoLogo, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image1_->setPixmap(logo);
    image2_->setPixmap(logo);
    image1_->setGeometry(10, 10, logo.width(), logo.height());
    image2_->setGeometry(width() - logo.width() - 10, height() - logo.height() - 10, logo.width(),
                         logo.height());
    // The logos pass behind the texts, never over them.
    image1_->lower();
    image2_->lower();
    timer1_->start();
  } else {
    image1_->hide();
    image2_->hide();
  }
}

// The two logos cross the screen in opposite directions; nothing else depends on it.
void MDIInicioPresentacion::Mover() {
  const int paso = 4;
  image1_->move((image1_->x() + paso) % width(), image1_->y());
  int x2 = image2_->x() - paso;
  if (x2 + image2_->width() < 0) x2 = width();
  image2_->move(x2, image2_->y());
}

void MostrarPresentacion(Session& session, QWidget* parent) {
  MDIInicioPresentacion presentacion(session, parent);
  presentacion.show();
  QApplication::processEvents();
  QEventLoop espera;
  QTimer::singleShot(kMilisegundosEnPantalla, &espera, &QEventLoop::quit);
  espera.exec(QEventLoop::ExcludeUserInputEvents);
  presentacion.close();
}

}  // namespace ventarix
