#include "catalogs/ui/ventana_costos.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "catalogs/ui/rejilla_pegado.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

// A sheet of a few hundred products is the usual size; a paste adds what it needs.
constexpr int kFilasIniciales = 200;

// The busy pointer while a run writes, back to normal however the run ends.
struct Ocupado {
  Ocupado() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Ocupado() { QApplication::restoreOverrideCursor(); }
};

QPushButton* Boton(const QString& texto, const QString& nombre, QWidget* padre) {
  auto* boton = new QPushButton(texto, padre);
  boton->setObjectName(nombre);
  boton->setAutoDefault(false);
  return boton;
}

}  // namespace

VentanaDeCostos::VentanaDeCostos(Session& session, Forma forma, QWidget* parent)
    : QWidget(parent), session_(session), guardado_(std::move(forma.guardado)) {
  setObjectName(forma.nombre);
  setWindowTitle(forma.titulo);
  rejilla_ = new RejillaDePegado(forma.columnas, kFilasIniciales, this);
  agregar_ = new QRadioButton(QStringLiteral("&Agregar productos nuevos"), this);
  agregar_->setObjectName(QStringLiteral("Agregar"));
  actualizar_ = new QRadioButton(forma.actualizar, this);
  actualizar_->setObjectName(QStringLiteral("Actualizar"));
  actualizar_->setChecked(true);
  filas_ = new QLabel(this);
  filas_->setObjectName(QStringLiteral("Filas"));
  guardar_ = Boton(QStringLiteral("&Guardar"), QStringLiteral("Guardar"), this);
  salir_ = Boton(QStringLiteral("&Salir"), QStringLiteral("Salir"), this);

  auto* opciones = new QHBoxLayout;
  opciones->addWidget(agregar_);
  opciones->addWidget(actualizar_);
  if (!forma.venta_y_precio.isEmpty()) {
    venta_y_precio_ = new QCheckBox(forma.venta_y_precio, this);
    venta_y_precio_->setObjectName(QStringLiteral("VentaYPrecio"));
    opciones->addWidget(venta_y_precio_);
  }
  opciones->addStretch();
  opciones->addWidget(filas_);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(guardar_);
  botones->addWidget(salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(opciones);
  layout->addWidget(rejilla_);
  layout->addLayout(botones);

  connect(guardar_, &QPushButton::clicked, this, &VentanaDeCostos::GuardarClicked);
  connect(salir_, &QPushButton::clicked, this, &VentanaDeCostos::Salir);
  connect(rejilla_, &RejillaDePegado::Cambiada, this, &VentanaDeCostos::ContarFilas);
  connect(rejilla_, &QTableWidget::itemChanged, this, &VentanaDeCostos::ContarFilas);
  ContarFilas();
  rejilla_->setCurrentCell(0, 0);
  rejilla_->setFocus();
  resize(760, 480);
}

// A cell still being typed is committed while the grid is destroyed: by then this window
// can no longer count its rows.
VentanaDeCostos::~VentanaDeCostos() { rejilla_->disconnect(this); }

void VentanaDeCostos::GuardarClicked() {
  const costos_masivos::Modo modo =
      agregar_->isChecked() ? costos_masivos::Modo::kAgregar : costos_masivos::Modo::kActualizar;
  const bool venta_y_precio = venta_y_precio_ != nullptr && venta_y_precio_->isChecked();
  costos_masivos::Resultado resultado;
  {
    Ocupado ocupado;
    resultado = guardado_(session_, rejilla_->Filas(), modo, venta_y_precio);
  }
  Mostrar(resultado);
}

// The closing message names the row reached, and the grid shows it; a refused row shows its
// cell, ready to be fixed.
void VentanaDeCostos::Mostrar(const costos_masivos::Resultado& resultado) {
  ui::ShowOutcome(this, session_, resultado.outcome);
  const int fila = resultado.fila - 1;
  if (fila >= 0 && fila < rejilla_->rowCount()) {
    rejilla_->setCurrentCell(fila, qMax(resultado.columna, 0));
  }
  rejilla_->setFocus();
}

void VentanaDeCostos::ContarFilas() {
  filas_->setText(QStringLiteral("Filas con código: %1").arg(rejilla_->FilasConCodigo()));
}

void VentanaDeCostos::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Salir();
    return;
  }
  QWidget::keyPressEvent(event);
}

// Inside the main window the frame around the form is what closes.
void VentanaDeCostos::Salir() {
  if (auto* marco = qobject_cast<QMdiSubWindow*>(parentWidget())) {
    marco->close();
    return;
  }
  close();
}

}  // namespace ventarix
