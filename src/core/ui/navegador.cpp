#include "core/ui/navegador.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/dialect.h"
#include "core/mBrowse.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

// The view's columns in the statement's order, with the layout its definition gives them.
std::vector<mBrowse::ColumnaVista> EnOrdenDeSentencia(
    const std::vector<mBrowse::Campo>& campos, const std::vector<mBrowse::ColumnaVista>& cadena) {
  std::vector<mBrowse::ColumnaVista> columnas = mBrowse::DefinicionInicial(campos);
  for (mBrowse::ColumnaVista& c : columnas) {
    for (const mBrowse::ColumnaVista& guardada : cadena) {
      if (guardada.nombre.compare(c.nombre, Qt::CaseInsensitive) == 0) {
        const mBrowse::ColumnaVista nueva = c;
        c = guardada;
        c.tipo = nueva.tipo;
        // A column saved as text that turns out a number (a count the engine could not type
        // before) is laid out as a number.
        if (mBrowse::TipoDe(guardada.tipo) != mBrowse::TipoDe(nueva.tipo)) {
          c.alineacion = nueva.alineacion;
          c.formato = nueva.formato;
        }
      }
    }
  }
  return columnas;
}

// Widest a column grows to show its values.
constexpr int kAnchoMaximo = 380;
// Rows of the first page measured.
constexpr int kMuestra = 100;

// Where a browser's window was left, per user and form, on this workstation: screens differ
// from one workstation to the next, so the size is no part of the shared view.
QString ClaveDeVentana(const Session& session, const QString& forma) {
  return QStringLiteral("Navegadores/") + session.Usuario + u'/' + forma;
}

// The saved place inside the work area, or the whole area.
QRect Colocacion(const QRect& guardada, const QRect& area) {
  if (!guardada.isValid()) return area;
  QRect r(guardada.topLeft(), guardada.size().boundedTo(area.size()));
  r.moveRight(qMin(r.right(), area.right()));
  r.moveBottom(qMin(r.bottom(), area.bottom()));
  r.moveLeft(qMax(r.left(), area.left()));
  r.moveTop(qMax(r.top(), area.top()));
  return r;
}

}  // namespace

Navegador::Navegador(Session& session, const mBrowse::Familia& familia,
                     const FormRegistry& registry, QWidget* parent)
    : QWidget(parent),
      session_(session),
      familia_(familia),
      registry_(registry),
      extras_(registry.ExtrasDe(QString::fromLatin1(familia.forma))) {
  setObjectName(QString::fromLatin1(familia.forma));
  setWindowTitle(QString::fromUtf8(familia.titulo));
  setAttribute(Qt::WA_DeleteOnClose);
  modelo_ = new ModeloVista(session_, this);
  fg1_ = new QTableView(this);
  fg1_->setObjectName(QStringLiteral("Fg1"));
  fg1_->setModel(modelo_);
  fg1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  fg1_->setSelectionBehavior(QAbstractItemView::SelectItems);
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->setWordWrap(false);
  fg1_->verticalHeader()->setDefaultSectionSize(22);
  fg1_->horizontalHeader()->setSectionsClickable(true);
  fg1_->installEventFilter(this);
  connect(fg1_->horizontalHeader(), &QHeaderView::sectionClicked, this, &Navegador::Ordenar);
  connect(fg1_, &QTableView::doubleClicked, this, &Navegador::Cambiar);
  connect(fg1_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &Navegador::MostrarSuma);
  // A reload or a search empties the selection without a word: the panel follows.
  connect(modelo_, &ModeloVista::modelReset, this, &Navegador::MostrarSuma);
  connect(fg1_->selectionModel(), &QItemSelectionModel::currentChanged, this, &Navegador::Estado);
  connect(modelo_, &ModeloVista::rowsInserted, this, &Navegador::Estado);
  connect(modelo_, &ModeloVista::Error, this,
          [this](const QString& texto) { MostrarError(this, session_, texto); });
  estado_ = new QLabel(this);
  estado_->setObjectName(QStringLiteral("Filas"));
  ConstruirBarra();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(barra_);
  if (extras_.panel) {
    auto* lado = new QSplitter(this);
    lado->addWidget(fg1_);
    lado->addWidget(extras_.panel(*this));
    lado->setStretchFactor(0, 3);
    lado->setStretchFactor(1, 1);
    layout->addWidget(lado, 1);
  } else {
    layout->addWidget(fg1_, 1);
  }
  layout->addWidget(estado_);
  resize(900, 520);
  CargarVista();
}

bool Navegador::CargarVista() {
  const mBrowse::VistaCargada cargada =
      mBrowse::ObtenerVista(session_, windowTitle(),
                            familia_.sentencia ? QString::fromUtf8(familia_.sentencia) : QString());
  if (!cargada.outcome) {
    ui::ShowOutcome(this, session_, cargada.outcome);
    return false;
  }
  vista_ = cargada.vista;
  const QString sentencia = vista_.Sentencia.trimmed().isEmpty()
                                ? QStringLiteral("select * from ") + dialect::Name(vista_.Tabla)
                                : vista_.Sentencia;
  mBrowse::Campos campos;
  {
    Connection lectura(session_.Cadena, Connection::Acceso::kVista);
    campos = mBrowse::CamposDeSentencia(lectura, sentencia);
  }
  if (!campos.outcome) {
    ui::ShowOutcome(this, session_, campos.outcome);
    return false;
  }
  mBrowse::Consulta consulta;
  consulta.sentencia = sentencia;
  busqueda_ = mBrowse::LeerBusqueda(vista_.Busqueda);
  session_.VistaBusqueda = vista_.Busqueda;
  session_.VistaOrden = vista_.Ordenar;
  if (mBrowse::TienePeriodo(campos.campos) && session_.AnoAMostrar > 0) {
    consulta.periodo = session_.AnoAMostrar;
  }
  const std::vector<mBrowse::ColumnaVista> columnas =
      EnOrdenDeSentencia(campos.campos, cargada.columnas);
  consulta.busqueda = mBrowse::CondicionGuardada(
      busqueda_, session_.Sql ? Engine::kPostgres : Engine::kSqlite, columnas, familia_.busquedas);
  auto nombre_en_vista = [&](const QString& nombre) -> QString {
    for (const mBrowse::Campo& c : campos.campos) {
      if (c.nombre.compare(nombre, Qt::CaseInsensitive) == 0) return c.nombre;
    }
    return {};
  };
  for (const mBrowse::Orden& o : mBrowse::LeerOrdenar(vista_.Ordenar)) {
    const QString nombre = nombre_en_vista(o.columna);
    if (!nombre.isEmpty()) consulta.orden.push_back({nombre, o.descendente});
  }
  consulta.llave_unica = familia_.llave_unica;
  for (const char* llave : familia_.llave) {
    const QString nombre = nombre_en_vista(QString::fromUtf8(llave));
    if (nombre.isEmpty()) {
      consulta.llave.clear();
      consulta.llave_unica = false;
      break;
    }
    consulta.llave << nombre;
  }
  const Outcome cargado = modelo_->Cargar(consulta, columnas);
  if (!cargado) ui::ShowOutcome(this, session_, cargado);

  for (int i = 1; i <= 10; ++i) {
    if (QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_%1").arg(i))) {
      boton->setEnabled(mBrowse::BotonPermitido(vista_.Permisos, i));
    }
  }
  for (int c = 0; c < static_cast<int>(columnas.size()); ++c) {
    fg1_->setColumnHidden(c, columnas[c].oculta);
    fg1_->setColumnWidth(c, qMax(columnas[c].ancho, AnchoDeDatos(c)));
  }
  if (vista_.Altura > 0) fg1_->verticalHeader()->setDefaultSectionSize(vista_.Altura);
  const int renglon = qMax(0, vista_.Renglon);
  modelo_->AsegurarFila(renglon);
  int columna = qBound(0, vista_.Posicion, qMax(0, modelo_->columnCount() - 1));
  while (columna < modelo_->columnCount() - 1 && fg1_->isColumnHidden(columna)) ++columna;
  if (modelo_->rowCount() > 0) {
    const QModelIndex actual = modelo_->index(qMin(renglon, modelo_->rowCount() - 1), columna);
    fg1_->setCurrentIndex(actual);
    fg1_->scrollTo(actual, QAbstractItemView::PositionAtTop);
  }
  PintarFondo();
  Estado();
  cargada_ = true;
  return cargado.ok;
}

void Navegador::RefrescarFila(const QString& llave) {
  if (llave.isEmpty() || familia_.llave.empty()) return;
  const QString columna = QString::fromUtf8(familia_.llave.front());
  const int indice = modelo_->ColumnaDe(columna);
  if (indice < 0) return;
  mBrowse::Pagina pagina;
  {
    Connection lectura(session_.Cadena, Connection::Acceso::kVista);
    const mBrowse::Condicion donde{QStringLiteral("t.") +
                                       dialect::Name(modelo_->columnas()[indice].nombre) +
                                       QStringLiteral(" = ?"),
                                   {llave}};
    pagina = mBrowse::LeerFilas(lectura, modelo_->consulta().sentencia, donde, 1);
  }
  if (!pagina.outcome || pagina.filas.empty()) return;
  const int fila = modelo_->ReemplazarFila(pagina.filas.front());
  fg1_->setCurrentIndex(modelo_->index(fila, qMax(0, fg1_->currentIndex().column())));
}

void Navegador::QuitarFila(const QString& llave) {
  const int columna = modelo_->ColumnaDe(QString::fromUtf8(familia_.llave.front()));
  if (columna >= 0) modelo_->QuitarFila(modelo_->BuscarFila(columna, llave));
}

bool Navegador::BuscarEnFila(const QString& columna, const QVariant& valor) {
  const int indice = modelo_->ColumnaDe(columna);
  if (indice < 0) return false;
  const int fila = modelo_->BuscarFila(indice, valor);
  if (fila < 0) return false;
  // The row found is the selection too, whatever keys are held: the next <Del> takes it alone.
  fg1_->selectionModel()->setCurrentIndex(
      modelo_->index(fila, qMax(0, fg1_->currentIndex().column())),
      QItemSelectionModel::ClearAndSelect);
  return true;
}

void Navegador::GuardarVista() {
  if (!cargada_) return;
  vista_.Renglon = qMax(0, fg1_->currentIndex().row());
  vista_.Posicion = qMax(0, fg1_->columnAt(0));
  vista_.Ordenar = mBrowse::EscribirOrdenar(modelo_->consulta().orden);
  vista_.Busqueda = mBrowse::EscribirBusqueda(busqueda_);
  const Outcome guardada = mBrowse::GuardarVista(session_, vista_);
  if (!guardada) MostrarError(this, session_, guardada.message);
}

// What the column needs to show its caption and the values of the first rows, up to a cap:
// a view's saved width is the least it gets.
int Navegador::AnchoDeDatos(int columna) const {
  const QFontMetrics letra = fg1_->fontMetrics();
  const QString titulo = modelo_->headerData(columna, Qt::Horizontal).toString();
  int ancho = fg1_->horizontalHeader()->fontMetrics().horizontalAdvance(titulo) + 16;
  const int filas = qMin(modelo_->rowCount(), kMuestra);
  for (int f = 0; f < filas; ++f) {
    const QString texto = modelo_->data(modelo_->index(f, columna)).toString();
    ancho = qMax(ancho, letra.horizontalAdvance(texto) + 12);
  }
  return qMin(ancho, kAnchoMaximo);
}

// The first time the browser shows in the main window it takes the place the user left it in,
// or the whole work area.
void Navegador::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  auto* ventana = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (colocada_ || ventana == nullptr || ventana->mdiArea() == nullptr) return;
  colocada_ = true;
  const QRect guardada = QSettings(QStringLiteral("Ventarix"), QStringLiteral("TVik"))
                             .value(ClaveDeVentana(session_, objectName()))
                             .toRect();
  ventana->setGeometry(Colocacion(guardada, ventana->mdiArea()->viewport()->rect()));
}

void Navegador::closeEvent(QCloseEvent* event) {
  GuardarVista();
  auto* ventana = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (colocada_ && ventana != nullptr && !ventana->isMaximized() && !ventana->isMinimized()) {
    QSettings(QStringLiteral("Ventarix"), QStringLiteral("TVik"))
        .setValue(ClaveDeVentana(session_, objectName()), ventana->geometry());
  }
  if (auto* mdi = window(); mdi != this) {
    QMetaObject::invokeMethod(mdi, "MostrarSuma", Q_ARG(QString, QString()));
  }
  event->accept();
}

// A pale colour drawn anew at each load tells one load from the next.
void Navegador::PintarFondo() {
  QRandomGenerator* azar = QRandomGenerator::global();
  const QColor fondo(215 + azar->bounded(41), 215 + azar->bounded(41), 215 + azar->bounded(41));
  fg1_->setStyleSheet(
      QStringLiteral("QTableView#Fg1 { background-color: %1; alternate-background-color: %1; }"
                     "QTableView#Fg1::item:focus { border: 2px solid rgb(0,0,125); }")
          .arg(fondo.name()));
}

QString Navegador::MostrarFilas() const {
  const QModelIndex actual = fg1_->currentIndex();
  return mBrowse::MostrarFilas(modelo_->limite(), actual.isValid() ? actual.row() + 1 : 0);
}

void Navegador::Estado() { estado_->setText(MostrarFilas()); }

void Navegador::AlinearGrid(int alineacion) {
  for (int c = 0; c < modelo_->columnCount(); ++c) {
    fg1_->horizontalHeader()->setDefaultAlignment(static_cast<Qt::Alignment>(alineacion));
  }
}

void RegistrarNavegadores(FormRegistry& registry) {
  for (const mBrowse::Familia& familia : mBrowse::Familias()) {
    const FormRegistry* propio = &registry;
    registry.Add(QString::fromLatin1(familia.forma), [&familia, propio](Session& session) {
      return new Navegador(session, familia, *propio);
    });
  }
}

}  // namespace ventarix
