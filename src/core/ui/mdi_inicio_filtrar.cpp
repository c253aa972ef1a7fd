#include "core/ui/mdi_inicio_filtrar.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/browse_filter.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

using namespace Qt::StringLiterals;

QString NombreDeTipo(mBrowse::TipoColumna tipo) {
  switch (tipo) {
    case mBrowse::TipoColumna::kTexto:
      return u"Texto"_s;
    case mBrowse::TipoColumna::kNumero:
      return u"Número"_s;
    case mBrowse::TipoColumna::kFecha:
      return u"Fecha"_s;
    case mBrowse::TipoColumna::kOtro:
      break;
  }
  return u"Otro"_s;
}

QTableWidgetItem* Celda(const QString& texto) {
  auto* item = new QTableWidgetItem(texto);
  item->setFlags(Qt::ItemIsEnabled);
  return item;
}

}  // namespace

MDIInicioFiltrar::MDIInicioFiltrar(Session& session,
                                   const std::vector<mBrowse::ColumnaVista>& columnas,
                                   const QStringList& textos_previos, QWidget* parent)
    : QDialog(parent), session_(session), columnas_(columnas) {
  setObjectName(u"MDIInicioFiltrar"_s);
  setWindowTitle(u"Filtrar"_s);
  setModal(true);
  grid_ = new QTableWidget(0, 3, this);
  grid_->setObjectName(u"Fg1"_s);
  grid_->setHorizontalHeaderLabels({u"Columna"_s, u"Tipo"_s, u"Texto"_s});
  grid_->verticalHeader()->hide();
  grid_->setSelectionMode(QAbstractItemView::NoSelection);
  grid_->setFocusPolicy(Qt::NoFocus);
  grid_->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
  grid_->setColumnWidth(0, 170);
  grid_->setColumnWidth(1, 70);
  for (int i = 0; i < static_cast<int>(columnas_.size()); ++i) {
    if (!columnas_[i].oculta) AgregarLinea(i, textos_previos.value(i));
  }
  auto* ayuda = new QLabel(
      u"* todo;  blanco: vacíos;  texto: contiene;  a,b: cualquiera;  10-20: rango;  "
      "31/12/2014, 12/2014, 2014"_s,
      this);
  auto* aplicar = new QPushButton(u"Aplicar"_s, this);
  aplicar->setObjectName(u"Aplicar"_s);
  auto* salir = new QPushButton(u"Salir"_s, this);
  salir->setObjectName(u"Salir"_s);
  for (QPushButton* boton : {aplicar, salir}) {
    boton->setAutoDefault(false);
    boton->setFocusPolicy(Qt::NoFocus);
  }
  connect(aplicar, &QPushButton::clicked, this, &MDIInicioFiltrar::Aplicar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  auto* botones = new QHBoxLayout;
  botones->addWidget(ayuda, 1);
  botones->addWidget(aplicar);
  botones->addWidget(salir);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(grid_);
  layout->addLayout(botones);
  resize(620, 420);
  if (!textos_.empty()) textos_.front()->setFocus();
}

void MDIInicioFiltrar::AgregarLinea(int indice, const QString& texto_previo) {
  const mBrowse::ColumnaVista& columna = columnas_[indice];
  const int fila = grid_->rowCount();
  grid_->insertRow(fila);
  grid_->setItem(fila, 0, Celda(columna.nombre));
  grid_->setItem(fila, 1, Celda(NombreDeTipo(mBrowse::TipoDe(columna.tipo))));
  auto* texto = new QLineEdit(texto_previo, grid_);
  texto->setObjectName(u"Texto"_s);
  texto->setFrame(false);
  texto->setMaxLength(mBrowse::kLargoMaximoFiltro);
  texto->installEventFilter(this);
  grid_->setCellWidget(fila, 2, texto);
  indices_.push_back(indice);
  textos_.push_back(texto);
}

QStringList MDIInicioFiltrar::textos() const {
  QStringList lista;
  for (size_t i = 0; i < columnas_.size(); ++i) lista << QString();
  for (size_t fila = 0; fila < textos_.size(); ++fila)
    lista[indices_[fila]] = textos_[fila]->text();
  return lista;
}

bool MDIInicioFiltrar::eventFilter(QObject* watched, QEvent* event) {
  const auto it = std::find(textos_.begin(), textos_.end(), watched);
  if (it == textos_.end()) return QDialog::eventFilter(watched, event);
  const int fila = static_cast<int>(it - textos_.begin());
  if (event->type() == QEvent::FocusIn) grid_->setCurrentCell(fila, 2);
  if (event->type() != QEvent::KeyPress) return false;
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F9:
      Aplicar();
      return true;
    case Qt::Key_Down:
      IrALinea(fila + 1);
      return true;
    case Qt::Key_Up:
      IrALinea(fila - 1);
      return true;
    default:
      return false;
  }
}

void MDIInicioFiltrar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F9:
      Aplicar();
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

void MDIInicioFiltrar::IrALinea(int fila) {
  if (fila < 0 || fila >= static_cast<int>(textos_.size())) return;
  textos_[fila]->setFocus(Qt::TabFocusReason);
  textos_[fila]->selectAll();
  grid_->scrollTo(grid_->model()->index(fila, 2));
}

void MDIInicioFiltrar::Aplicar() {
  const Engine engine = session_.Sql ? Engine::kPostgres : Engine::kSqlite;
  std::vector<mBrowse::Condicion> condiciones;
  for (size_t fila = 0; fila < textos_.size(); ++fila) {
    const mBrowse::ColumnaVista& columna = columnas_[indices_[fila]];
    const mBrowse::ResultadoFiltro resultado = mBrowse::CondicionDeFiltro(
        engine, mBrowse::TipoDe(columna.tipo), columna.nombre, textos_[fila]->text());
    if (!resultado.outcome) {
      // The message names the column; the cursor goes back to its line.
      ui::ShowOutcome(this, session_,
                      {false, resultado.outcome.message, resultado.outcome.icon, {}});
      IrALinea(static_cast<int>(fila));
      return;
    }
    condiciones.push_back(resultado.condicion);
  }
  condicion_ = mBrowse::UnirCondiciones(condiciones);
  accept();
}

}  // namespace ventarix
