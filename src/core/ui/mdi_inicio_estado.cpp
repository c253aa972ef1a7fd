// The status bar of the main window: database, store, engine, a free panel, the year the
// browsers show and the user.
#include <cmath>

#include <QDate>
#include <QEvent>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPainter>
#include <QPolygonF>
#include <QStatusBar>
#include <QStyle>

#include "core/inicio.h"
#include "core/startup.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

// Share of the width each panel takes, in hundredths, as the window grows or shrinks.
// The fourth holds a browser's sum and count, which must be read whole.
constexpr std::array<int, 6> kAnchos = {40, 6, 9, 28, 5, 12};
constexpr int kIcono = 16;

// A gold star beside the user's name marks an administrator.
QPixmap MarcaDeAdministrador() {
  QPixmap marca(kIcono, kIcono);
  marca.fill(Qt::transparent);
  QPainter pintor(&marca);
  pintor.setRenderHint(QPainter::Antialiasing);
  QPolygonF estrella;
  for (int i = 0; i < 10; ++i) {
    const double radio = i % 2 == 0 ? kIcono / 2.0 - 0.5 : kIcono / 5.0;
    const double angulo = -M_PI / 2 + i * M_PI / 5;
    estrella << QPointF(kIcono / 2.0 + radio * std::cos(angulo),
                        kIcono / 2.0 + radio * std::sin(angulo));
  }
  pintor.setPen(QColor(0x8a, 0x6d, 0x00));
  pintor.setBrush(QColor(0xf2, 0xc2, 0x00));
  pintor.drawPolygon(estrella);
  return marca;
}

}  // namespace

void MDIInicio::ConstruirEstado() {
  QStatusBar* barra = statusBar();
  barra->setObjectName(QStringLiteral("StatusBar1"));
  for (int i = 0; i < 6; ++i) {
    auto* panel = new QWidget(barra);
    panel->setObjectName(QStringLiteral("Panel%1").arg(i + 1));
    // Ignored: the width comes from the panel's share alone, never from its text.
    panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel->setMinimumWidth(0);
    auto* fila = new QHBoxLayout(panel);
    fila->setContentsMargins(2, 0, 2, 0);
    fila->setSpacing(3);
    iconos_[i] = new QLabel(panel);
    iconos_[i]->setObjectName(QStringLiteral("Icono"));
    iconos_[i]->hide();
    textos_[i] = new QLabel(panel);
    textos_[i]->setObjectName(QStringLiteral("Texto"));
    textos_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    fila->addWidget(iconos_[i]);
    fila->addWidget(textos_[i], 1);
    panel->installEventFilter(this);
    paneles_[i] = panel;
    barra->addWidget(panel, kAnchos[i]);
  }
  paneles_[0]->setToolTip(QStringLiteral("Abrir una base de datos al iniciar el sistema"));
  paneles_[4]->setToolTip(QStringLiteral("Año a Mostrar"));
  paneles_[5]->setToolTip(QStringLiteral("Usuarios"));
}

void MDIInicio::LlenarPaneles() {
  textos_[0]->setText(session_.BaseDatos);
  textos_[1]->setText(QStringLiteral("Tienda ") + QString::number(session_.Tienda));
  textos_[2]->setText(session_.Sql ? QStringLiteral("PostgreSQL") : QStringLiteral("SQLite"));
  iconos_[2]->setPixmap(style()->standardIcon(QStyle::SP_DriveHDIcon).pixmap(kIcono, kIcono));
  iconos_[2]->show();
  textos_[4]->setText(QString::number(session_.AnoAMostrar));
  textos_[5]->setText(session_.Usuario);
  iconos_[5]->setVisible(session_.Administrador);
  iconos_[5]->setPixmap(MarcaDeAdministrador());
  iconos_[5]->setToolTip(QStringLiteral("Administrador"));
  const QString empresa = session_.empresa.Text(QStringLiteral("empresa"));
  setWindowTitle(empresa.isEmpty() ? QStringLiteral("Ventarix")
                                   : QStringLiteral("Ventarix - ") + empresa);
}

void MDIInicio::MostrarSuma(const QString& texto) { textos_[3]->setText(texto); }

QString MDIInicio::Panel(int numero) const {
  if (numero < 1 || numero > 6) return {};
  return textos_[numero - 1]->text();
}

bool MDIInicio::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease) {
    if (watched == paneles_[0]) {
      ClicBaseDatos();
      return true;
    }
    if (watched == paneles_[4]) {
      ClicAno();
      return true;
    }
    if (watched == paneles_[5]) {
      AbrirUsuarios();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

// Forgetting the database choice makes the next start ask for a database file.
void MDIInicio::ClicBaseDatos() {
  const auto respuesta =
      ui::Ask(this, QStringLiteral("Abrir una base de datos al iniciar el sistema"),
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (respuesta != QMessageBox::Yes) return;
  startup::OlvidarEleccion();
  textos_[0]->setText(QStringLiteral("Listo"));
}

void MDIInicio::ClicAno() {
  bool aceptado = false;
  const QString respuesta = QInputDialog::getText(
      this, QString::fromLatin1(ui::kTitulo), QStringLiteral("Año a Mostrar"), QLineEdit::Normal,
      QString::number(QDate::currentDate().year()), &aceptado);
  if (!aceptado) return;
  const std::optional<int> ano = inicio::AnoDeRespuesta(respuesta);
  if (!ano) return;
  session_.AnoAMostrar = *ano;
  MostrarAno();
  EnviarTecla(Qt::Key_F5);
}

void MDIInicio::MostrarAno() { textos_[4]->setText(QString::number(session_.AnoAMostrar)); }

}  // namespace ventarix
