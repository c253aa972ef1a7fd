#include "edocs/ui/rpt_informe.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QTableWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/database.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {

constexpr int kColumnaFolio = 3;
constexpr int kColumnaTotal = 6;
constexpr int kColumnaIva = 7;
constexpr int kColumnaTipoDeCambio = 11;

QTableWidgetItem* Celda(const QString& texto, bool numero) {
  auto* celda = new QTableWidgetItem(texto);
  celda->setTextAlignment((numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  celda->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  return celda;
}

QAction* Accion(QToolBar* barra, const QString& nombre, const QString& texto, Qt::Key tecla) {
  QAction* accion = barra->addAction(texto);
  accion->setObjectName(nombre);
  accion->setShortcut(QKeySequence(tecla));
  accion->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  accion->setToolTip(texto + QStringLiteral(" (") + QKeySequence(tecla).toString() +
                     QLatin1Char(')'));
  return accion;
}

}  // namespace

rptInforme::rptInforme(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), visor_(VisorDelSistema()) {
  setObjectName(QStringLiteral("rptInforme"));
  auto* barra = new QToolBar(this);
  addAction(Accion(barra, QStringLiteral("Listar"), QStringLiteral("Listar"), Qt::Key_F5));
  addAction(Accion(barra, QStringLiteral("Crear"), QStringLiteral("Crear archivo"), Qt::Key_F6));
  addAction(Accion(barra, QStringLiteral("Abrir"), QStringLiteral("Abrir informe"), Qt::Key_F7));
  const QList<QAction*> acciones = barra->actions();
  connect(acciones[0], &QAction::triggered, this, [this] { Listar(); });
  connect(acciones[1], &QAction::triggered, this, &rptInforme::Crear);
  connect(acciones[2], &QAction::triggered, this, &rptInforme::Abrir);

  combo_ = new QComboBox(this);
  combo_->setObjectName(QStringLiteral("Combo"));
  combo_->addItems(edocs::EsquemasInforme());
  fecha_ = new QDateEdit(mFunciones::FechaServidor(session_, true).date(), this);
  fecha_->setObjectName(QStringLiteral("Fecha"));
  // A month picker: the day means nothing to the report.
  fecha_->setLocale(QLocale(QLocale::Spanish, QLocale::Mexico));
  fecha_->setDisplayFormat(QStringLiteral("MMMM yyyy"));
  titulo_ = new QLabel(this);
  titulo_->setObjectName(QStringLiteral("Titulo"));
  archivo_ = new QLabel(this);
  archivo_->setObjectName(QStringLiteral("Archivo"));
  archivo_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  fg1_ = new QTableWidget(0, static_cast<int>(edocs::ColumnasInforme().size()), this);
  fg1_->setObjectName(QStringLiteral("Fg1"));
  fg1_->setHorizontalHeaderLabels(edocs::ColumnasInforme());
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->setSelectionBehavior(QAbstractItemView::SelectRows);
  fg1_->setTabKeyNavigation(false);

  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("Esquema"), combo_);
  campos->addRow(QStringLiteral("Mes"), fecha_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(barra);
  layout->addLayout(campos);
  layout->addWidget(titulo_);
  layout->addWidget(fg1_, 1);
  layout->addWidget(archivo_);
  connect(fecha_, &QDateEdit::dateChanged, this, &rptInforme::ActualizarTitulo);
  connect(combo_, &QComboBox::currentIndexChanged, this, &rptInforme::ActualizarTitulo);
  ActualizarTitulo();
  resize(980, 420);
}

QDate rptInforme::Mes() const { return fecha_->date(); }

void rptInforme::ActualizarTitulo() {
  const QString titulo = edocs::TituloInforme(Mes());
  titulo_->setText(titulo);
  setWindowTitle(titulo);
  archivo_->setText(QDir::toNativeSeparators(edocs::ArchivoInforme(session_, Mes())));
}

// Enter moves on from the scheme to the month, and from the month lists.
void rptInforme::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (fecha_->hasFocus()) {
      Listar();
      fg1_->setFocus();
    } else {
      focusNextChild();
    }
    return;
  }
  QWidget::keyPressEvent(event);
}

bool rptInforme::Listar() {
  Connection connection(session_.Cadena, Connection::Acceso::kLectura);
  if (!connection.ok()) {
    MostrarError(this, session_, connection.error());
    return false;
  }
  const edocs::ListadoInforme listado =
      edocs::ListarInforme(connection, combo_->currentText(), Mes());
  if (!listado.ok) {
    MostrarError(this, session_, listado.error);
    return false;
  }
  renglones_ = listado.renglones;
  Mostrar();
  ui::ShowOutcome(this, session_, edocs::RevisarListado(listado, combo_->currentText(), Mes()));
  return true;
}

void rptInforme::Mostrar() {
  fg1_->setRowCount(static_cast<int>(renglones_.size()));
  const int columnas = fg1_->columnCount();
  for (int fila = 0; fila < renglones_.size(); ++fila) {
    const edocs::RenglonInforme& r = renglones_[fila];
    for (int columna = 1; columna <= columnas; ++columna) {
      QString texto = edocs::ValorArchivo(r, columna);
      const bool importe = columna == kColumnaTotal || columna == kColumnaIva;
      if (importe) {
        texto = mFunciones::FormatoNumero(columna == kColumnaTotal ? r.total : r.iva, 2);
      }
      const bool numero = importe || columna == kColumnaFolio || columna == kColumnaTipoDeCambio;
      fg1_->setItem(fila, columna - 1, Celda(texto, numero));
    }
  }
  fg1_->resizeColumnsToContents();
}

// The file is always made from the month and scheme on screen: they are listed again first,
// so that an empty month is said before the confirmations.
void rptInforme::Crear() {
  if (!Listar()) return;
  const QString path = edocs::ArchivoInforme(session_, Mes());
  const QString ruta = QStringLiteral("\n\n") + QDir::toNativeSeparators(path);
  if (ui::Ask(this, QStringLiteral("Crear informe archivo mensual para enviar al SAT") + ruta) !=
      QMessageBox::Yes) {
    return;
  }
  if (ui::Ask(this, QStringLiteral("Seguro crear informe archivo mensual para enviar al SAT") +
                        ruta) != QMessageBox::Yes) {
    return;
  }
  const Outcome escrito = edocs::EscribirInforme(path, renglones_);
  if (!escrito) {
    ui::ShowOutcome(this, session_, escrito);
    return;
  }
  ui::Inform(this, QStringLiteral("El informe archivo a enviar al SAT es") + ruta);
  MostrarArchivoDeTexto(this, path, visor_);
}

void rptInforme::Abrir() {
  const QString path =
      QFileDialog::getOpenFileName(this, QStringLiteral("Informes mensuales SAT"),
                                   session_.CarpetaBak, QStringLiteral("Archivos TXT (*.txt)"));
  if (!path.isEmpty()) MostrarArchivoDeTexto(this, path, visor_);
}

void RegistrarInformeSat(FormRegistry& registry) {
  registry.Add(QStringLiteral("rptInforme"),
               [](Session& session) { return new rptInforme(session); });
}

}  // namespace ventarix
