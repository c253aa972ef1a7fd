#include "core/ui/mdi_inicio_tablas.h"

#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include "core/database.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

constexpr int kAltoDeFila = 22;
constexpr int kMargen = 40;
constexpr int kAnchoMaximo = 1200;
constexpr int kAlto = 440;

// The note under every search prompt: a star brings the whole list back.
const QString kTodos = QStringLiteral("* = TODOS");

int Tecla(int key) {
  switch (key) {
    case Qt::Key_F2:
      return 2;
    case Qt::Key_F3:
      return 3;
    case Qt::Key_F4:
      return 4;
    default:
      return 0;
  }
}

}  // namespace

MDIInicioTablas::MDIInicioTablas(Session& session, ayuda::PeticionAyuda peticion, QWidget* parent)
    : QDialog(parent), session_(session), peticion_(std::move(peticion)) {
  setObjectName(QStringLiteral("MDIInicioTablas"));
  setWindowTitle(peticion_.titulo);
  modelo_ = new QStandardItemModel(this);
  tabla_ = new QTableView(this);
  tabla_->setObjectName(QStringLiteral("Fg1"));
  tabla_->setModel(modelo_);
  tabla_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tabla_->setSelectionBehavior(QAbstractItemView::SelectRows);
  tabla_->setSelectionMode(QAbstractItemView::SingleSelection);
  tabla_->setTabKeyNavigation(false);
  tabla_->verticalHeader()->setDefaultSectionSize(kAltoDeFila);
  tabla_->verticalHeader()->hide();
  tabla_->installEventFilter(this);
  connect(tabla_, &QTableView::doubleClicked, this, &MDIInicioTablas::Elegir);
  teclas_ = new QLabel(this);
  teclas_->setObjectName(QStringLiteral("Teclas"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabla_);
  layout->addWidget(teclas_);

  QStringList titulos;
  for (const ayuda::ColumnaAyuda& columna : peticion_.columnas) titulos << columna.titulo;
  modelo_->setHorizontalHeaderLabels(titulos);
  // The designed width, but never so narrow that the caption and its search key are cut.
  int ancho = kMargen;
  for (int i = 0; i < static_cast<int>(peticion_.columnas.size()); ++i) {
    const int columna =
        qMax(peticion_.columnas[i].ancho, tabla_->horizontalHeader()->sectionSizeHint(i));
    tabla_->setColumnWidth(i, columna);
    ancho += columna;
  }
  tabla_->horizontalHeader()->setStretchLastSection(true);
  resize(qMin(ancho, kAnchoMaximo), kAlto);
  Cargar();
}

int MDIInicioTablas::filas() const { return modelo_->rowCount(); }

// Every row is read at once and the connection closed: the statements carry their own limits.
QString MDIInicioTablas::Leer() {
  Connection c(session_.Cadena);
  if (!c.ok()) return c.error();
  QSqlQuery q = c.Exec(peticion_.sentencia, peticion_.valores);
  if (!q.isActive()) return QueryError(q);
  const int columnas = qMin(q.record().count(), static_cast<int>(peticion_.columnas.size()));
  while (q.next()) {
    QList<QStandardItem*> fila;
    for (int i = 0; i < columnas; ++i) {
      const ayuda::ColumnaAyuda& columna = peticion_.columnas[i];
      auto* item = new QStandardItem(ayuda::Formatear(q.value(i), columna.formato));
      item->setData(q.value(i), Qt::UserRole);
      item->setTextAlignment(Qt::Alignment::fromInt(columna.alineacion));
      fila << item;
    }
    modelo_->appendRow(fila);
  }
  return {};
}

void MDIInicioTablas::Cargar() {
  modelo_->removeRows(0, modelo_->rowCount());
  if (const QString error = Leer(); !error.isEmpty()) MostrarError(this, session_, error);
  const int filas = modelo_->rowCount();
  QString teclas = QStringLiteral("%1 registros").arg(filas);
  if (!peticion_.busquedas.empty()) {
    teclas += QStringLiteral("   ");
    for (const ayuda::BusquedaAyuda& busqueda : peticion_.busquedas) {
      teclas += QStringLiteral(" <F%1>").arg(busqueda.tecla);
    }
    teclas += QStringLiteral(" Buscar");
  }
  teclas_->setText(teclas);
  if (filas > 0) tabla_->selectRow(0);
  tabla_->setFocus();
}

void MDIInicioTablas::Buscar(int tecla) {
  const ayuda::BusquedaAyuda* busqueda = ayuda::BusquedaDeTecla(peticion_, tecla);
  if (busqueda == nullptr) return;
  bool aceptado = false;
  const QString respuesta = QInputDialog::getText(this, QString::fromLatin1(ui::kTitulo),
                                                  busqueda->indicacion + QLatin1Char('\n') + kTodos,
                                                  QLineEdit::Normal, {}, &aceptado);
  if (!aceptado || respuesta.trimmed().isEmpty()) return;
  const Engine engine = session_.Sql ? Engine::kPostgres : Engine::kSqlite;
  peticion_ = ayuda::Buscar(peticion_, ayuda::BusquedaEnAyuda(engine, *busqueda, respuesta));
  Cargar();
}

void MDIInicioTablas::Elegir() {
  const QModelIndex actual = tabla_->currentIndex();
  if (!actual.isValid()) return;
  resultado_ = modelo_->index(actual.row(), 0).data(Qt::UserRole).toString().trimmed();
  accept();
}

void MDIInicioTablas::Salir() {
  resultado_.clear();
  reject();
}

bool MDIInicioTablas::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tabla_ && event->type() == QEvent::KeyPress) {
    auto* tecla = static_cast<QKeyEvent*>(event);
    switch (tecla->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Escape:
      case Qt::Key_F2:
      case Qt::Key_F3:
      case Qt::Key_F4:
        keyPressEvent(tecla);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void MDIInicioTablas::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Elegir();
      return;
    case Qt::Key_Escape:
      Salir();
      return;
    default:
      if (const int tecla = Tecla(event->key()); tecla != 0) {
        Buscar(tecla);
        return;
      }
      QDialog::keyPressEvent(event);
  }
}

}  // namespace ventarix
