#include "catalogs/ui/mdi_inicio_precios.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "core/mFunciones_valores.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

QTableWidgetItem* Celda(const QString& texto, Qt::Alignment alineacion) {
  auto* celda = new QTableWidgetItem(texto);
  celda->setTextAlignment(alineacion | Qt::AlignVCenter);
  celda->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  return celda;
}

}  // namespace

MDIInicioPrecios::MDIInicioPrecios(Session& session, const QString& codigo, QWidget* parent)
    : QDialog(parent), session_(session), codigo_(codigo.trimmed()) {
  setObjectName(QStringLiteral("MDIInicioPrecios"));
  setWindowTitle(QStringLiteral("Precios"));
  producto_ = new QLabel(QStringLiteral("Código: %1").arg(codigo_), this);
  producto_->setObjectName(QStringLiteral("Codigo"));
  fg1_ = new QTableWidget(5, 3, this);
  fg1_->setObjectName(QStringLiteral("Fg1"));
  fg1_->setHorizontalHeaderLabels(
      {QStringLiteral("Nivel"), QStringLiteral("Utilidad %"), QStringLiteral("Precio $")});
  fg1_->verticalHeader()->hide();
  fg1_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  fg1_->setSelectionBehavior(QAbstractItemView::SelectRows);
  fg1_->setSelectionMode(QAbstractItemView::SingleSelection);
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->setTabKeyNavigation(false);
  connect(fg1_, &QTableWidget::cellDoubleClicked, this, [this](int fila, int) { Elegir(fila); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(producto_);
  layout->addWidget(fg1_);
  resize(340, 210);
  Leer();
}

// A failed read is shown once the window is on screen, over it.
void MDIInicioPrecios::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  fg1_->setFocus();
  if (lectura_.ok) return;
  const QString mensaje = lectura_.message;
  lectura_ = Outcome::Ok();
  QTimer::singleShot(0, this, [this, mensaje] { MostrarError(this, session_, mensaje); });
}

// A failed read leaves zeros, as for an unknown code.
void MDIInicioPrecios::Leer() {
  lectura_ = precios_producto::Leer(session_, codigo_, niveles_);
  if (!lectura_) niveles_ = precios_producto::Calcular({});
  for (int k = 0; k < 5; ++k) {
    const precios_producto::Nivel& nivel = niveles_[k];
    fg1_->setItem(k, 0, Celda(nivel.nombre, Qt::AlignLeft));
    fg1_->setItem(k, 1, Celda(mFunciones::FormatoNumero(nivel.utilidad, 2), Qt::AlignRight));
    fg1_->setItem(k, 2, Celda(mFunciones::FormatoNumero(nivel.precio, 2), Qt::AlignRight));
  }
  fg1_->setCurrentCell(0, 0);
}

void MDIInicioPrecios::Elegir(int fila) {
  if (fila < 0 || fila >= 5) return;
  precio_ = niveles_[fila].precio;
  accept();
}

void MDIInicioPrecios::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Elegir(fg1_->currentRow());
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace ventarix
