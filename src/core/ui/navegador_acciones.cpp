// What a browser does with its toolbar and keys: add, change and cancel behind rights and
// authorization, the searches, the sort, the sum of the selected cells and the copy.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QStyle>
#include <QTableView>
#include <QToolBar>

#include "core/browse_filter.h"
#include "core/dialect.h"
#include "core/mBrowse.h"
#include "core/mFunciones_valores.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/message_box.h"
#include "core/ui/navegador.h"
#include "edocs/folios_rangos.h"

namespace ventarix {

namespace {

bool EsProductos(const mBrowse::Familia& familia) {
  return QLatin1String(familia.forma) == QLatin1String("FrmProductos");
}

// The folio browsers: which range table they show.
bool FamiliaDeFolios(const mBrowse::Familia& familia, edocs::FamiliaFolios* folios) {
  const QLatin1String forma(familia.forma);
  if (forma == QLatin1String("FrmFoliosFacturas")) *folios = edocs::FamiliaFolios::kFacturas;
  if (forma == QLatin1String("FrmFoliosNotas")) *folios = edocs::FamiliaFolios::kNotas;
  return forma == QLatin1String("FrmFoliosFacturas") || forma == QLatin1String("FrmFoliosNotas");
}

int TeclaDeFuncion(int key) {
  return key >= Qt::Key_F2 && key <= Qt::Key_F8 ? key - Qt::Key_F1 + 1 : -1;
}

}  // namespace

void Navegador::ConstruirBarra() {
  barra_ = new QToolBar(this);
  barra_->setObjectName(QStringLiteral("Toolbar"));
  barra_->setIconSize(QSize(18, 18));
  barra_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QStyle* estilo = style();
  auto boton = [&](int numero, QStyle::StandardPixmap icono, const QString& texto, auto accion) {
    QAction* a = barra_->addAction(estilo->standardIcon(icono), texto);
    a->setObjectName(QStringLiteral("Toolbar_%1").arg(numero));
    connect(a, &QAction::triggered, this, accion);
    return a;
  };
  boton(1, QStyle::SP_FileIcon, QStringLiteral("Nuevo"), &Navegador::Nuevo);
  boton(2, QStyle::SP_FileDialogDetailedView, QStringLiteral("Cambiar"), &Navegador::Cambiar);
  boton(3, QStyle::SP_DialogCancelButton, QStringLiteral("Cancelar"), &Navegador::Cancelar);
  barra_->addSeparator();
  boton(5, QStyle::SP_DialogSaveButton, QStringLiteral("Copiar"), &Navegador::Copiar);
  boton(6, QStyle::SP_FileDialogContentsView, QStringLiteral("Imprimir"), &Navegador::Imprimir);
  barra_->addSeparator();
  if (QLatin1String(familia_.forma) == QLatin1String("FrmUsuarios")) {
    boton(7, QStyle::SP_DialogApplyButton, QStringLiteral("Permisos"), [this] {
      if (!session_.Administrador) return;
      session_.RegistroActual = LlaveActual();
      if (!session_.RegistroActual.isEmpty()) AbrirForma(QStringLiteral("FrmUsuariosP"));
    });
  }
  if (edocs::FamiliaFolios folios; FamiliaDeFolios(familia_, &folios)) {
    boton(8, QStyle::SP_DialogYesButton, QStringLiteral("Predeterminar"),
          &Navegador::Predeterminar);
  }
  boton(10, QStyle::SP_DialogCloseButton, QStringLiteral("Cerrar"), [this] {
    if (auto* ventana = parentWidget(); ventana && ventana->inherits("QMdiSubWindow")) {
      ventana->close();
    } else {
      close();
    }
  });
  // Only an administrator keeps users.
  if (familia_.derechos == nullptr && !session_.Administrador) {
    for (int i : {1, 3, 7}) {
      if (QAction* a = barra_->findChild<QAction*>(QStringLiteral("Toolbar_%1").arg(i))) {
        a->setVisible(false);
      }
    }
  }
}

bool Navegador::eventFilter(QObject* watched, QEvent* event) {
  if (watched == fg1_ && event->type() == QEvent::KeyPress) {
    return Tecla(static_cast<QKeyEvent*>(event));
  }
  return QWidget::eventFilter(watched, event);
}

bool Navegador::Tecla(QKeyEvent* event) {
  const int key = event->key();
  if (event->modifiers() & Qt::ControlModifier) {
    switch (key) {
      case Qt::Key_C:
        Copiar();
        return true;
      case Qt::Key_Space:
        Ordenar(fg1_->currentIndex().column());
        return true;
      case Qt::Key_F9:
        Formato();
        return true;
      case Qt::Key_1:
        Imprimir();
        return true;
      case Qt::Key_B:
        Buscar(0);
        return true;
      case Qt::Key_G:
        CambiarCodigo();
        return true;
      case Qt::Key_D:
        Predeterminar();
        return true;
      case Qt::Key_Delete:
        Borrar();
        return true;
      case Qt::Key_End:
        // The grid then moves to the last row of the whole view, not of the pages read.
        modelo_->IrAlFinal();
        return false;
      default:
        return false;
    }
  }
  switch (key) {
    case Qt::Key_Escape:
      barra_->findChild<QAction*>(QStringLiteral("Toolbar_10"))->trigger();
      return true;
    case Qt::Key_Insert:
      Nuevo();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Cambiar();
      return true;
    case Qt::Key_Delete:
      Cancelar();
      return true;
    case Qt::Key_F5:
      Recargar();
      return true;
    case Qt::Key_F9:
      Filtrar();
      return true;
    case Qt::Key_F12:
      ModoPrecios();
      return true;
    default:
      break;
  }
  if (const int f = TeclaDeFuncion(key); f > 0) {
    Buscar(f);
    return true;
  }
  return false;
}

QString Navegador::LlaveActual() const {
  if (familia_.llave.empty()) return {};
  const int columna = modelo_->ColumnaDe(QString::fromUtf8(familia_.llave.front()));
  const QModelIndex actual = fg1_->currentIndex();
  if (columna < 0 || !actual.isValid()) return {};
  return modelo_->Valor(actual.row(), columna).toString();
}

bool Navegador::Autorizar(int boton) {
  for (const mBrowse::Prompt& prompt : mBrowse::PromptsDeBoton(session_, vista_.Seguridad, boton)) {
    session_.AutorizacionTitulo = prompt.titulo;
    session_.AutorizacionClave = prompt.claves;
    session_.Autorizado = false;
    MDIInicioAutorizacion dialogo(session_, this);
    dialogo.exec();
    if (!session_.Autorizado) return false;
  }
  session_.Autorizado = true;
  return true;
}

// The family's add and change screens are modal: when one saves, it leaves its key in
// RegistroActual and the browser shows that row.
void Navegador::AbrirForma(const QString& forma) {
  const QString antes = session_.RegistroActual;
  if (auto* mdi = qobject_cast<MDIInicio*>(window())) {
    mdi->Abrir(forma);
  } else {
    QWidget* pantalla = registry_.Create(forma, session_);
    if (auto* dialogo = qobject_cast<QDialog*>(pantalla)) {
      dialogo->setParent(this, dialogo->windowFlags() | Qt::Dialog);
      dialogo->exec();
      delete dialogo;
    } else if (pantalla != nullptr) {
      pantalla->setAttribute(Qt::WA_DeleteOnClose);
      pantalla->show();
    }
  }
  if (!session_.RegistroActual.isEmpty()) RefrescarFila(session_.RegistroActual);
  Q_UNUSED(antes);
}

void Navegador::Nuevo() {
  QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_1"));
  if (!boton->isEnabled() || !boton->isVisible()) return;
  if (familia_.derechos != nullptr) {
    const Outcome permiso = mFunciones::TienePermiso(
        session_, QString::fromLatin1(familia_.derechos), QStringLiteral("A"));
    if (!permiso) return ui::ShowOutcome(this, session_, permiso);
  }
  if (!Autorizar(1)) return;
  session_.RegistroActual.clear();
  AbrirForma(QString::fromLatin1(familia_.alta));
}

void Navegador::Cambiar() {
  QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_2"));
  if (!boton->isEnabled() || !fg1_->currentIndex().isValid()) return;
  const QString llave = LlaveActual();
  if (familia_.derechos != nullptr) {
    const Outcome permiso = mFunciones::TienePermiso(
        session_, QString::fromLatin1(familia_.derechos), QStringLiteral("C"));
    if (!permiso) return ui::ShowOutcome(this, session_, permiso);
  } else if (!session_.Administrador && llave != session_.Usuario) {
    return;
  }
  if (!Autorizar(2)) return;
  session_.RegistroActual = llave;
  AbrirForma(modo_precios_ ? QStringLiteral("FrmProductosP")
                           : QString::fromLatin1(familia_.cambio));
}

// Products only: Enter opens the quick price screen instead of the whole product.
void Navegador::ModoPrecios() {
  if (!EsProductos(familia_)) return;
  modo_precios_ = !modo_precios_;
  ui::Inform(this,
             QStringLiteral("Pantalla para modo precios ") +
                 (modo_precios_ ? QStringLiteral("ACTIVADA") : QStringLiteral("DESACTIVADA")));
}

// Products only: the code change runs through every table, so the whole view is read again.
void Navegador::CambiarCodigo() {
  if (!EsProductos(familia_) || !fg1_->currentIndex().isValid()) return;
  const Outcome permiso = mFunciones::TienePermiso(session_, QString::fromLatin1(familia_.derechos),
                                                   QStringLiteral("C"));
  if (!permiso) return ui::ShowOutcome(this, session_, permiso);
  session_.RegistroActual = LlaveActual();
  AbrirForma(QStringLiteral("FrmProductosG"));
  Recargar();
}

// Folio ranges only: the current range becomes the one the invoice or credit-note screens start
// with; every row's mark changes, so the whole view is read again.
void Navegador::Predeterminar() {
  edocs::FamiliaFolios folios;
  QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_8"));
  if (!FamiliaDeFolios(familia_, &folios) || boton == nullptr || !boton->isEnabled() ||
      !fg1_->currentIndex().isValid() || !Autorizar(8)) {
    return;
  }
  const Outcome hecho = edocs::Predeterminar(session_, folios, LlaveActual().toInt());
  if (!hecho) return ui::ShowOutcome(this, session_, hecho);
  Recargar();
}

// The whole load again (the year panel may have changed), with the search, sort and row the
// user has now.
void Navegador::Recargar() {
  GuardarVista();
  CargarVista();
}

void Navegador::Cancelar() { DarDeBajaOBorrar(QStringLiteral("MDIInicioBajas"), false); }

void Navegador::Borrar() { DarDeBajaOBorrar(QStringLiteral("MDIInicioBorrar"), true); }

// <Del> cancels and <Ctrl+Del> deletes the selected rows, behind the right "B" and the cancel
// button's authorization; the screen of the action asks and acts, and the browser then shows
// the rows cancelled or takes out those deleted. Users keep their own delete screen.
void Navegador::DarDeBajaOBorrar(const QString& forma, bool borrar) {
  QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_3"));
  if (!boton->isEnabled() || !boton->isVisible() || !fg1_->currentIndex().isValid()) return;
  if (familia_.derechos != nullptr) {
    const Outcome permiso = mFunciones::TienePermiso(
        session_, QString::fromLatin1(familia_.derechos), QStringLiteral("B"));
    if (!permiso) return ui::ShowOutcome(this, session_, permiso);
  }
  if (!Autorizar(3)) return;
  if (familia_.derechos == nullptr) {
    session_.RegistroActual = LlaveActual();
    return AbrirForma(QStringLiteral("FrmUsuariosB"));
  }
  const QString columna = QString::fromUtf8(familia_.llave.front());
  if (modelo_->ColumnaDe(columna) < 0) {
    return ui::Inform(this, QStringLiteral("No se encuentra la columna [") + columna + u']',
                      MessageIcon::kStop);
  }
  const QStringList hechas = registry_.Actuar(forma, session_, QString::fromUtf8(familia_.titulo),
                                              LlavesSeleccionadas(), this);
  for (const QString& llave : hechas) borrar ? QuitarFila(llave) : RefrescarFila(llave);
}

// The keys of the selection's rows, from its first row to its last, or of the current row.
QStringList Navegador::LlavesSeleccionadas() const {
  const int columna = modelo_->ColumnaDe(QString::fromUtf8(familia_.llave.front()));
  const QItemSelection seleccion = fg1_->selectionModel()->selection();
  int primera = seleccion.isEmpty() ? fg1_->currentIndex().row() : INT_MAX;
  int ultima = seleccion.isEmpty() ? primera : -1;
  for (const QItemSelectionRange& rango : seleccion) {
    primera = qMin(primera, rango.top());
    ultima = qMax(ultima, rango.bottom());
  }
  modelo_->AsegurarFilas(primera, ultima);
  QStringList llaves;
  for (int fila = primera; fila <= ultima; ++fila) {
    const QString llave = modelo_->Valor(fila, columna).toString().trimmed();
    if (!llave.isEmpty() && !llaves.contains(llave)) llaves << llave;
  }
  return llaves;
}

void Navegador::Imprimir() {
  QAction* boton = barra_->findChild<QAction*>(QStringLiteral("Toolbar_6"));
  if (!boton->isEnabled() || !Autorizar(6)) return;
  AbrirForma(QStringLiteral("RteVista"));
}

void Navegador::Buscar(int tecla) {
  const mBrowse::BusquedaFamilia* busqueda = nullptr;
  for (const mBrowse::BusquedaFamilia& b : familia_.busquedas) {
    if (b.tecla == tecla) busqueda = &b;
  }
  if (busqueda == nullptr) return;
  const QString columna = QString::fromUtf8(busqueda->columna);
  const int indice = modelo_->ColumnaDe(columna);
  if (indice < 0) {
    return ui::Inform(this, QStringLiteral("No se encuentra la columna [") + columna + u']',
                      MessageIcon::kStop);
  }
  bool aceptado = false;
  const QString respuesta =
      QInputDialog::getText(this, QString::fromLatin1(ui::kTitulo),
                            QString::fromUtf8(busqueda->indicacion) + QStringLiteral("\n* = TODOS"),
                            QLineEdit::Normal, QString(), &aceptado)
          .trimmed();
  if (!aceptado || respuesta.isEmpty()) return;
  mBrowse::Busqueda nueva;
  nueva.tecla = tecla;
  nueva.respuesta = respuesta;
  AplicarBusqueda(nueva, false);
}

void Navegador::AplicarBusqueda(const mBrowse::Busqueda& busqueda, bool filtro) {
  const mBrowse::Condicion condicion =
      mBrowse::CondicionGuardada(busqueda, session_.Sql ? Engine::kPostgres : Engine::kSqlite,
                                 modelo_->columnas(), familia_.busquedas);
  session_.FiltroActivo = filtro && !condicion.vacia();
  busqueda_ = condicion.vacia() ? mBrowse::Busqueda{} : busqueda;
  vista_.Busqueda = mBrowse::EscribirBusqueda(busqueda_);
  session_.VistaBusqueda = vista_.Busqueda;
  mBrowse::Consulta consulta = modelo_->consulta();
  consulta.busqueda = condicion;
  const Outcome cargado = modelo_->Cargar(consulta, modelo_->columnas());
  if (!cargado) ui::ShowOutcome(this, session_, cargado);
  if (modelo_->rowCount() > 0)
    fg1_->setCurrentIndex(modelo_->index(0, qMax(0, fg1_->currentIndex().column())));
  PintarFondo();
  Estado();
}

void Navegador::Ordenar(int columna) {
  if (columna < 0 || columna >= modelo_->columnCount()) return;
  const QString nombre = modelo_->columnas()[columna].nombre;
  mBrowse::Consulta consulta = modelo_->consulta();
  const bool ya = consulta.orden.size() == 1 &&
                  consulta.orden.front().columna.compare(nombre, Qt::CaseInsensitive) == 0;
  const bool descendente = ya && !consulta.orden.front().descendente;
  consulta.orden = {{nombre, descendente}};
  vista_.Ordenar = mBrowse::EscribirOrdenar(consulta.orden);
  session_.VistaOrden = vista_.Ordenar;
  const Outcome cargado = modelo_->Cargar(consulta, modelo_->columnas());
  if (!cargado) ui::ShowOutcome(this, session_, cargado);
  if (modelo_->rowCount() > 0) fg1_->setCurrentIndex(modelo_->index(0, columna));
  PintarFondo();
  Estado();
}

// Only the cells of numeric columns add up; every selected cell counts. Run at each change of
// the selection and at each load, so that a search that finds nothing clears the panel.
void Navegador::MostrarSuma() {
  const QItemSelection seleccion = fg1_->selectionModel()->selection();
  qint64 celdas = 0;
  for (const QItemSelectionRange& rango : seleccion) {
    for (int c = rango.left(); c <= rango.right(); ++c) {
      if (!fg1_->isColumnHidden(c)) celdas += rango.height();
    }
  }
  std::vector<double> valores;
  for (const QItemSelectionRange& rango : seleccion) {
    if (celdas > mBrowse::kMaximoCeldas) break;
    modelo_->AsegurarFilas(rango.top(), rango.bottom());
    for (int c = rango.left(); c <= rango.right(); ++c) {
      const mBrowse::ColumnaVista& columna = modelo_->columnas()[c];
      if (fg1_->isColumnHidden(c) ||
          mBrowse::TipoDe(columna.tipo) != mBrowse::TipoColumna::kNumero) {
        continue;
      }
      for (int f = rango.top(); f <= rango.bottom(); ++f) {
        valores.push_back(mFunciones::ValorNumerico(modelo_->Valor(f, c)));
      }
    }
  }
  const QString texto = mBrowse::SumaSeleccion(valores, celdas);
  if (auto* mdi = qobject_cast<MDIInicio*>(window())) mdi->MostrarSuma(texto);
  setProperty("suma", texto);
}

// One cell goes as its text; a range as lines of tab-separated cells, with the line breaks
// inside a cell turned into blanks.
void Navegador::Copiar() {
  const QModelIndexList celdas = fg1_->selectionModel()->selectedIndexes();
  if (celdas.isEmpty()) return;
  for (const QItemSelectionRange& rango : fg1_->selectionModel()->selection()) {
    modelo_->AsegurarFilas(rango.top(), rango.bottom());
  }
  if (celdas.size() == 1) {
    QApplication::clipboard()->setText(celdas.front().data().toString());
    return;
  }
  int primera_fila = INT_MAX, ultima_fila = 0, primera_columna = INT_MAX, ultima_columna = 0;
  for (const QModelIndex& i : celdas) {
    primera_fila = qMin(primera_fila, i.row());
    ultima_fila = qMax(ultima_fila, i.row());
    primera_columna = qMin(primera_columna, i.column());
    ultima_columna = qMax(ultima_columna, i.column());
  }
  QStringList lineas;
  for (int f = primera_fila; f <= ultima_fila; ++f) {
    QStringList linea;
    for (int c = primera_columna; c <= ultima_columna; ++c) {
      if (fg1_->isColumnHidden(c)) continue;
      const QModelIndex i = modelo_->index(f, c);
      QString texto = fg1_->selectionModel()->isSelected(i) ? i.data().toString() : QString();
      texto.replace(QStringLiteral("\r\n"), QStringLiteral(" "))
          .replace(u'\r', u' ')
          .replace(u'\n', u' ');
      linea << texto;
    }
    lineas << linea.join(u'\t');
  }
  QApplication::clipboard()->setText(lineas.join(QStringLiteral("\r\n")));
}

}  // namespace ventarix
