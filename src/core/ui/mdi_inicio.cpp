#include "core/ui/mdi_inicio.h"

#include <QActionGroup>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

#include "core/inicio.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/mdi_inicio_presentacion.h"

namespace ventarix {

MDIInicio::MDIInicio(Session& session, const FormRegistry& registry, QWidget* parent)
    : QMainWindow(parent), session_(session), registry_(registry) {
  setObjectName(QStringLiteral("MDIInicio"));
  setWindowTitle(QStringLiteral("Ventarix"));
  area_ = new QMdiArea(this);
  area_->setObjectName(QStringLiteral("Area"));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setCentralWidget(area_);
  ConstruirBarra();
  ConstruirMenus();
  ConstruirEstado();
  resize(1100, 700);
}

void MDIInicio::Cargar() {
  MostrarPresentacion(session_, this);
  LlenarPaneles();
  AplicarPermisos();
  if (session_.CambioDeCodigoPendiente) Abrir(QStringLiteral("MDIInicioCambiar"));
  if (inicio::EntrarDirectamenteATpv(session_) && tpv_->isEnabled()) AbrirTpv();
}

// The splash again: everything read from the database at start is read anew.
void MDIInicio::Recargar() {
  MostrarPresentacion(session_, this);
  LlenarPaneles();
  AplicarPermisos();
}

QString MDIInicio::Abrir(const QString& forma, const QString& llave) {
  // A window closed in this same event is hidden but not yet deleted: it doesn't count.
  QMdiSubWindow* abierta = abiertas_.value(forma);
  if (abierta != nullptr && !abierta->isHidden()) {
    abierta->showNormal();
    area_->setActiveSubWindow(abierta);
    return {};
  }
  QWidget* pantalla = registry_.Create(forma, session_, llave);
  if (pantalla == nullptr) return {};
  if (auto* dialogo = qobject_cast<QDialog*>(pantalla)) return EjecutarDialogo(dialogo, this);
  QMdiSubWindow* ventana = area_->addSubWindow(pantalla);
  ventana->setObjectName(forma + QStringLiteral("_ventana"));
  abiertas_.insert(forma, ventana);
  ventana->show();
  area_->setActiveSubWindow(ventana);
  return {};
}

QWidget* MDIInicio::FormaActiva() const {
  QMdiSubWindow* ventana = area_->currentSubWindow();
  return ventana != nullptr ? ventana->widget() : nullptr;
}

void MDIInicio::EnviarTecla(int key, Qt::KeyboardModifiers modifiers) {
  QWidget* forma = FormaActiva();
  if (forma == nullptr) return;
  QWidget* destino = forma->focusWidget() != nullptr ? forma->focusWidget() : forma;
  QKeyEvent press(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(destino, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers);
  QApplication::sendEvent(destino, &release);
}

void MDIInicio::AbrirUsuarios() {
  const std::optional<mBrowse::Prompt> prompt = inicio::AutorizacionUsuarios(session_);
  if (prompt && !MDIInicioAutorizacion::Autorizar(session_, prompt->titulo, prompt->claves, this)) {
    return;
  }
  Abrir(QStringLiteral("FrmUsuarios"));
}

void MDIInicio::AbrirTpv() { Abrir(inicio::FormaTpv(session_)); }

// Browsers offer the slot AlinearGrid(int alignment); other screens are left alone.
void MDIInicio::AlinearGrid() {
  QWidget* forma = FormaActiva();
  if (forma == nullptr || !inicio::AdmiteAlineacion(forma->windowTitle())) return;
  QMetaObject::invokeMethod(forma, "AlinearGrid", Qt::DirectConnection,
                            Q_ARG(int, static_cast<int>(alineacion_)));
}

void MDIInicio::CerrarActiva() {
  if (QMdiSubWindow* ventana = area_->currentSubWindow()) ventana->close();
}

void MDIInicio::ConstruirBarra() {
  QToolBar* barra = addToolBar(QStringLiteral("Herramientas"));
  barra->setObjectName(QStringLiteral("Toolbar1"));
  barra->setMovable(false);
  barra->setToolButtonStyle(Qt::ToolButtonIconOnly);
  QStyle* estilo = style();
  auto boton = [&](int numero, QStyle::StandardPixmap icono, const QString& ayuda) {
    QAction* accion = barra->addAction(estilo->standardIcon(icono), ayuda);
    accion->setObjectName(QStringLiteral("Toolbar1_%1").arg(numero));
    return accion;
  };

  QAction* filtrar = boton(1, QStyle::SP_FileDialogContentsView, QStringLiteral("Filtrar (F9)"));
  connect(filtrar, &QAction::triggered, this, [this] { EnviarTecla(Qt::Key_F9); });
  auto* menu_filtrar = new QMenu(this);
  menu_filtrar->addAction(QStringLiteral("Formato de ticket"), this,
                          [this] { Abrir(QStringLiteral("FrmTpvTicket")); });
  filtrar->setMenu(menu_filtrar);
  barra->addSeparator();
  connect(boton(3, QStyle::SP_FileDialogDetailedView, QStringLiteral("Buscar (F4)")),
          &QAction::triggered, this, [this] { EnviarTecla(Qt::Key_F4); });
  connect(boton(4, QStyle::SP_FileDialogInfoView, QStringLiteral("Otra búsqueda (Ctrl+B)")),
          &QAction::triggered, this, [this] { EnviarTecla(Qt::Key_B, Qt::ControlModifier); });
  connect(boton(5, QStyle::SP_FileDialogListView, QStringLiteral("Formato de la vista (Ctrl+F9)")),
          &QAction::triggered, this, [this] { EnviarTecla(Qt::Key_F9, Qt::ControlModifier); });
  barra->addSeparator();

  QAction* alinear = boton(7, QStyle::SP_ToolBarHorizontalExtensionButton,
                           QStringLiteral("Alinear la cuadrícula"));
  connect(alinear, &QAction::triggered, this, &MDIInicio::AlinearGrid);
  auto* menu_alinear = new QMenu(this);
  auto* grupo = new QActionGroup(menu_alinear);
  const std::array<std::pair<const char*, Qt::Alignment>, 3> alineaciones = {{
      {"A la izquierda", Qt::AlignLeft},
      {"Al centro", Qt::AlignCenter},
      {"A la derecha", Qt::AlignRight},
  }};
  for (const auto& [titulo, alineacion] : alineaciones) {
    QAction* opcion = menu_alinear->addAction(QString::fromUtf8(titulo));
    opcion->setCheckable(true);
    opcion->setChecked(alineacion == alineacion_);
    grupo->addAction(opcion);
    const Qt::Alignment valor = alineacion;
    connect(opcion, &QAction::triggered, this, [this, valor] {
      alineacion_ = valor;
      AlinearGrid();
    });
  }
  alinear->setMenu(menu_alinear);
  barra->addSeparator();

  tpv_ = barra->addAction(estilo->standardIcon(QStyle::SP_DriveNetIcon),
                          QStringLiteral("Punto de venta"));
  tpv_->setObjectName(QStringLiteral("Toolbar1_Tpv"));
  connect(tpv_, &QAction::triggered, this, &MDIInicio::AbrirTpv);
  connect(boton(9, QStyle::SP_DialogCloseButton, QStringLiteral("Salir del sistema")),
          &QAction::triggered, this, &QWidget::close);
  barra->addSeparator();
  connect(boton(14, QStyle::SP_TitleBarCloseButton, QStringLiteral("Cerrar la ventana activa")),
          &QAction::triggered, this, &MDIInicio::CerrarActiva);
  for (QToolButton* tb : barra->findChildren<QToolButton*>()) {
    if (tb->defaultAction() != nullptr && tb->defaultAction()->menu() != nullptr) {
      tb->setPopupMode(QToolButton::MenuButtonPopup);
    }
  }
}

}  // namespace ventarix
