#include "sales/ui/mdi_inicio_facturar.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/ui/abrir_ayuda.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCliente = 2;
constexpr int kTotal = 4;
constexpr int kFacturar = 7;  // the check: column 8 counting the row heading

QString Dinero(double valor) {
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
  return kLocale.toString(valor, 'f', 2);
}

std::vector<ventas::RemisionPorFacturar> Leer(const Session& session) {
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  if (!c.ok()) return {};
  return ventas::RemisionesPorFacturar(c, session.Tienda);
}

}  // namespace

std::optional<captura::Documento> MDIInicioFacturar::Facturar(Session& session, QWidget* parent) {
  std::vector<ventas::RemisionPorFacturar> remisiones = Leer(session);
  if (remisiones.empty()) {
    ui::Inform(parent, u"No existen registros por facturar"_s, MessageIcon::kWarning);
    return std::nullopt;
  }
  MDIInicioFacturar dialogo(session, std::move(remisiones), parent);
  if (dialogo.exec() != QDialog::Accepted || dialogo.Marcadas().isEmpty()) return std::nullopt;
  captura::Documento factura;
  Connection c(session.Cadena);
  const Outcome hecha = c.ok() ? ventas::DocumentoDeRemisiones(c, dialogo.Marcadas(), &factura)
                               : Outcome::Stop(c.error());
  if (!hecha) {
    ui::ShowOutcome(parent, session, hecha);
    return std::nullopt;
  }
  return factura;
}

MDIInicioFacturar::MDIInicioFacturar(Session& session,
                                     std::vector<ventas::RemisionPorFacturar> remisiones,
                                     QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(u"MDIInicioFacturar"_s);
  setWindowTitle(u"Facturar REMISIONES"_s);
  fg1_ = new QTableWidget(0, 8, this);
  fg1_->setObjectName(u"Fg1"_s);
  fg1_->setHorizontalHeaderLabels({u"Remisión"_s, u"Fecha"_s, u"Cliente"_s, u"Nombre"_s,
                                   u"Facturar $"_s, u"Plazo"_s, u"Tipo"_s, u"Facturar"_s});
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->setSelectionBehavior(QAbstractItemView::SelectRows);
  fg1_->setSelectionMode(QAbstractItemView::SingleSelection);
  fg1_->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
  fg1_->installEventFilter(this);
  connect(fg1_, &QTableWidget::itemChanged, this, &MDIInicioFacturar::Sumar);
  total_ = new QLabel(Dinero(0), this);
  total_->setObjectName(u"Total"_s);
  total_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  total_->setFrameShape(QFrame::Panel);
  total_->setFrameShadow(QFrame::Sunken);
  total_->setMinimumWidth(total_->fontMetrics().horizontalAdvance(u"000,000,000.00"_s));
  QPushButton* todas = BotonDeCaptura("&Todas", "Todas", this);
  QPushButton* aceptar = BotonDeCaptura("&Aceptar", "Aceptar", this);
  QPushButton* salir = BotonDeCaptura("&Salir", "Salir", this);
  connect(todas, &QPushButton::clicked, this, &MDIInicioFacturar::Todas);
  connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  auto* pie = new QHBoxLayout;
  pie->addWidget(new QLabel(u"Total a facturar"_s, this));
  pie->addWidget(total_);
  pie->addStretch();
  pie->addWidget(todas);
  pie->addWidget(aceptar);
  pie->addWidget(salir);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fg1_, 1);
  layout->addLayout(pie);
  resize(860, 420);
  Mostrar(remisiones);
  fg1_->setFocus();
}

void MDIInicioFacturar::Mostrar(const std::vector<ventas::RemisionPorFacturar>& remisiones) {
  const QSignalBlocker bloqueo(fg1_);
  fg1_->setRowCount(static_cast<int>(remisiones.size()));
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    const ventas::RemisionPorFacturar& r = remisiones[i];
    const QStringList textos = {r.remision,
                                r.fecha.toString(u"dd/MM/yyyy"_s),
                                QString::number(r.cliente),
                                r.nombre,
                                Dinero(r.total),
                                QString::number(r.plazo),
                                r.tipo};
    for (int col = 0; col < textos.size(); ++col) {
      auto* celda = new QTableWidgetItem(textos[col]);
      if (col == kCliente || col == kTotal || col == 5) {
        celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      }
      celda->setData(Qt::UserRole, col == kTotal ? QVariant(r.total) : QVariant(r.cliente));
      fg1_->setItem(i, col, celda);
    }
    auto* marca = new QTableWidgetItem;
    marca->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    marca->setCheckState(Qt::Unchecked);
    fg1_->setItem(i, kFacturar, marca);
  }
  fg1_->resizeColumnsToContents();
  if (fg1_->rowCount() > 0) fg1_->setCurrentCell(0, kFacturar);
  Sumar();
}

void MDIInicioFacturar::Recargar() { Mostrar(Leer(session_)); }

// The client's number from the look-up; all its notes ticked.
void MDIInicioFacturar::Todas() {
  const QString cliente = AbrirAyuda(session_, u"CLIENTES"_s, this);
  activateWindow();
  if (cliente.isEmpty()) return;
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    if (fg1_->item(i, kCliente)->data(Qt::UserRole).toInt() == cliente.toInt()) {
      fg1_->item(i, kFacturar)->setCheckState(Qt::Checked);
    }
  }
}

void MDIInicioFacturar::Sumar() {
  double total = 0;
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    if (fg1_->item(i, kFacturar)->checkState() == Qt::Checked) {
      total += fg1_->item(i, kTotal)->data(Qt::UserRole).toDouble();
    }
  }
  total_->setText(Dinero(total));
}

QStringList MDIInicioFacturar::Marcadas() const {
  QStringList llaves;
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    if (fg1_->item(i, kFacturar)->checkState() == Qt::Checked) llaves << fg1_->item(i, 0)->text();
  }
  return llaves;
}

void MDIInicioFacturar::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

bool MDIInicioFacturar::eventFilter(QObject* objeto, QEvent* event) {
  if (objeto == fg1_ && event->type() == QEvent::KeyPress) {
    const int fila = fg1_->currentRow();
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_F1:
        Todas();
        return true;
      case Qt::Key_Space:
        Recargar();
        return true;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        if (fila >= 0) {
          QTableWidgetItem* marca = fg1_->item(fila, kFacturar);
          marca->setCheckState(marca->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
          if (fila + 1 < fg1_->rowCount()) fg1_->setCurrentCell(fila + 1, kFacturar);
        }
        return true;
      case Qt::Key_Escape:
        reject();
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(objeto, event);
}

}  // namespace ventarix
