// What a browser does with its toolbar and keys: add, change and cancel behind rights and
// authorization, the searches, the sort, the sum of the selected cells and the copy.
#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>

#include "core/browse_filter.h"
#include "core/dialect.h"
#include "core/mBrowse.h"
#include "core/mFunciones_valores.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/message_box.h"
#include "core/ui/navegador.h"

namespace ventarix {

namespace {

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
  const auto sexto = std::find_if(extras_.acciones.begin(), extras_.acciones.end(),
                                  [](const AccionExtra& extra) { return extra.boton == 6; });
  if (sexto == extras_.acciones.end()) {
    boton(6, QStyle::SP_FileDialogContentsView, QStringLiteral("Imprimir"), &Navegador::Imprimir);
  } else {
    AgregarBotonSeis(*sexto);
  }
  barra_->addSeparator();
  std::vector<QAction*> propios;
  for (const AccionExtra& extra : extras_.acciones) {
    if (extra.boton == 0 || extra.boton == 6) continue;
    propios.push_back(
        boton(extra.boton, extra.icono, extra.texto, [this, &extra] { extra.accion(*this); }));
  }
  boton(10, QStyle::SP_DialogCloseButton, QStringLiteral("Cerrar"), [this] {
    if (auto* ventana = parentWidget(); ventana && ventana->inherits("QMdiSubWindow")) {
      ventana->close();
    } else {
      close();
    }
  });
  // A family without a rights column is kept by administrators only.
  if (familia_.derechos == nullptr && !session_.Administrador) {
    for (QAction* a : propios) a->setVisible(false);
    for (int i : {1, 3}) Boton(i)->setVisible(false);
  }
}

// A family's own button 6, behind Autorizar 6 like the print it replaces, with its menu.
void Navegador::AgregarBotonSeis(const AccionExtra& extra) {
  const auto autorizado = [this] { return Boton(6)->isEnabled() && Autorizar(6); };
  QAction* a = barra_->addAction(style()->standardIcon(extra.icono), extra.texto);
  a->setObjectName(QStringLiteral("Toolbar_6"));
  connect(a, &QAction::triggered, this, [this, &extra, autorizado] {
    if (autorizado()) extra.accion(*this);
  });
  if (extra.menu.empty()) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("Toolbar_6_Menu"));
  for (const EntradaMenu& entrada : extra.menu) {
    menu->addAction(entrada.texto, this, [this, &entrada, autorizado] {
      if (autorizado()) entrada.accion(*this);
    });
  }
  a->setMenu(menu);
  if (auto* boton = qobject_cast<QToolButton*>(barra_->widgetForAction(a))) {
    boton->setPopupMode(QToolButton::MenuButtonPopup);
  }
}

QAction* Navegador::Boton(int numero) const {
  return barra_->findChild<QAction*>(QStringLiteral("Toolbar_%1").arg(numero));
}

bool Navegador::eventFilter(QObject* watched, QEvent* event) {
  if (watched == fg1_ && event->type() == QEvent::KeyPress) {
    return Tecla(static_cast<QKeyEvent*>(event));
  }
  return QWidget::eventFilter(watched, event);
}

// The family's own keys; one whose button is disabled or hidden does nothing.
bool Navegador::TeclaExtra(QKeyEvent* event) {
  const Qt::KeyboardModifiers modificadores = event->modifiers() & ~Qt::KeypadModifier;
  for (const AccionExtra& extra : extras_.acciones) {
    if (extra.tecla != event->key() || extra.modificadores != modificadores) continue;
    QAction* boton = extra.boton != 0 ? Boton(extra.boton) : nullptr;
    if (boton == nullptr || (boton->isEnabled() && boton->isVisible())) extra.accion(*this);
    return true;
  }
  return false;
}

bool Navegador::Tecla(QKeyEvent* event) {
  if (TeclaExtra(event)) return true;
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
      Boton(10)->trigger();
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
    case Qt::Key_F8:
      if (Periodo()) return true;
      break;
    default:
      break;
  }
  if (const int f = TeclaDeFuncion(key); f > 0) {
    Buscar(f);
    return true;
  }
  return false;
}

// <F8> on a document browser: the year to show, among those its table holds. The main
// window's year panel follows, and the rows of that year are read.
bool Navegador::Periodo() {
  if (modelo_->ColumnaDe(QStringLiteral("periodo")) < 0) return false;
  ayuda::ParametrosAyuda parametros;
  parametros.tabla = vista_.Tabla;
  const QString ano = AbrirAyuda(session_, QStringLiteral("PERIODOS"), this, parametros);
  if (ano.isEmpty()) return true;
  session_.AnoAMostrar = ano.toInt();
  if (auto* mdi = window(); mdi != this) QMetaObject::invokeMethod(mdi, "MostrarAno");
  Recargar();
  return true;
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
    if (!MDIInicioAutorizacion::Autorizar(session_, prompt.titulo, prompt.claves, this)) {
      return false;
    }
  }
  return true;
}

bool Navegador::Permitido(const QString& accion) {
  if (familia_.derechos == nullptr) return true;
  const Outcome permiso =
      mFunciones::TienePermiso(session_, QString::fromLatin1(familia_.derechos), accion);
  if (!permiso) ui::ShowOutcome(this, session_, permiso);
  return permiso.ok;
}

// The family's add and change screens are modal: when one saves, it tells its key and the
// browser shows that row.
QString Navegador::AbrirForma(const QString& forma, const QString& llave) {
  QString guardada;
  if (auto* mdi = qobject_cast<MDIInicio*>(window())) {
    guardada = mdi->Abrir(forma, llave);
  } else {
    QWidget* pantalla = registry_.Create(forma, session_, llave);
    if (auto* dialogo = qobject_cast<QDialog*>(pantalla)) {
      guardada = EjecutarDialogo(dialogo, this);
    } else if (pantalla != nullptr) {
      pantalla->setAttribute(Qt::WA_DeleteOnClose);
      pantalla->show();
    }
  }
  if (!guardada.isEmpty()) RefrescarFila(guardada);
  return guardada;
}

void Navegador::Nuevo() {
  QAction* boton = Boton(1);
  if (!boton->isEnabled() || !boton->isVisible()) return;
  // A document's screen asks for the authorization itself, as its last check before saving.
  if (!Permitido(QStringLiteral("A")) || (!familia_.documento && !Autorizar(1))) return;
  AbrirForma(QString::fromLatin1(familia_.alta));
}

void Navegador::Cambiar() {
  if (!Boton(2)->isEnabled() || !fg1_->currentIndex().isValid()) return;
  const QString llave = LlaveActual();
  // Without a rights column, someone who is no administrator changes only their own row.
  if (familia_.derechos == nullptr && !session_.Administrador && llave != session_.Usuario) return;
  if (!Permitido(QStringLiteral("C")) || (!familia_.documento && !Autorizar(2))) return;
  AbrirForma(pantalla_cambio_.isEmpty() ? QString::fromLatin1(familia_.cambio) : pantalla_cambio_,
             llave);
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
// the rows cancelled or takes out those deleted. A family with a delete screen of its own
// (users) opens it instead.
void Navegador::DarDeBajaOBorrar(const QString& forma, bool borrar) {
  QAction* boton = Boton(3);
  if (!boton->isEnabled() || !boton->isVisible() || !fg1_->currentIndex().isValid()) return;
  // Documents number their security lines 1 add, 2 cancel or delete, 3 change.
  if (!Permitido(QStringLiteral("B")) || !Autorizar(familia_.documento ? 2 : 3)) return;
  if (!extras_.baja.isEmpty()) {
    AbrirForma(extras_.baja, LlaveActual());
    return;
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
  QAction* boton = Boton(6);
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
