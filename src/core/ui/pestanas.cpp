#include "core/ui/pestanas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>
#include <QTabBar>

namespace ventarix {

namespace {

// The Alt letter of a caption: the character after a single "&".
QChar LetraDe(const QString& texto) {
  for (qsizetype i = 0; i + 1 < texto.size(); ++i) {
    if (texto[i] != u'&') continue;
    if (texto[i + 1] != u'&') return texto[i + 1].toUpper();
    ++i;
  }
  return {};
}

// The Alt letters the window's captions already hold.
QString LetrasUsadas(const QWidget* ventana) {
  QString usadas;
  auto agregar = [&usadas](const QString& texto) {
    if (const QChar letra = LetraDe(texto); !letra.isNull()) usadas += letra;
  };
  for (const QAbstractButton* boton : ventana->findChildren<QAbstractButton*>()) {
    agregar(boton->text());
  }
  for (const QLabel* etiqueta : ventana->findChildren<QLabel*>()) agregar(etiqueta->text());
  for (const QGroupBox* grupo : ventana->findChildren<QGroupBox*>()) agregar(grupo->title());
  for (const QTabWidget* pestanas : ventana->findChildren<QTabWidget*>()) {
    for (int i = 0; i < pestanas->count(); ++i) agregar(pestanas->tabText(i));
  }
  return usadas;
}

// The first free letter at the start of a word, else anywhere in the title; -1 for none.
qsizetype PosicionLibre(const QString& titulo, const QString& usadas) {
  auto libre = [&](qsizetype i) {
    return titulo[i].isLetterOrNumber() && !usadas.contains(titulo[i].toUpper());
  };
  for (qsizetype i = 0; i < titulo.size(); ++i) {
    if ((i == 0 || titulo[i - 1].isSpace()) && libre(i)) return i;
  }
  for (qsizetype i = 0; i < titulo.size(); ++i) {
    if (libre(i)) return i;
  }
  return -1;
}

}  // namespace

Pestanas::Pestanas(QWidget* parent) : QTabWidget(parent) {
  const std::pair<QKeySequence, int> teclas[] = {
      {QKeySequence(Qt::CTRL | Qt::Key_Tab), 1},
      {QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1},
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1},
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1},
      {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1},
  };
  for (const auto& [tecla, paso] : teclas) {
    auto* atajo = new QShortcut(tecla, this);
    atajo->setContext(Qt::WindowShortcut);
    connect(atajo, &QShortcut::activated, this, [this, paso] { Avanzar(paso); });
  }
  // A tab reached by its Alt letter takes the keyboard along, once the tab bar has turned it.
  tabBar()->installEventFilter(this);
}

bool Pestanas::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tabBar() && event->type() == QEvent::Shortcut) {
    QMetaObject::invokeMethod(this, &Pestanas::EntrarEnPagina, Qt::QueuedConnection);
  }
  return QTabWidget::eventFilter(watched, event);
}

void Pestanas::showEvent(QShowEvent* event) {
  // The buttons and labels of the window exist by now: the letters keep clear of theirs.
  for (int i = 0; i < count(); ++i) PonerLetra(i);
  QTabWidget::showEvent(event);
}

void Pestanas::tabInserted(int index) {
  QTabWidget::tabInserted(index);
  if (isVisible()) PonerLetra(index);
}

void Pestanas::PonerLetra(int index) {
  const QString titulo = tabText(index);
  if (!LetraDe(titulo).isNull()) return;
  const qsizetype posicion = PosicionLibre(titulo, LetrasUsadas(window()));
  if (posicion < 0) return;
  QString con_letra = titulo;
  con_letra.insert(posicion, u'&');
  setTabText(index, con_letra);
}

void Pestanas::Avanzar(int paso) {
  if (count() < 2) return;
  int siguiente = currentIndex();
  // A hidden or disabled tab is passed over, as a click can't reach it either.
  for (int vuelta = 0; vuelta < count(); ++vuelta) {
    siguiente = (siguiente + paso + count()) % count();
    if (isTabVisible(siguiente) && isTabEnabled(siguiente)) break;
  }
  setCurrentIndex(siguiente);
  EntrarEnPagina();
}

// The focus on the page's first field (the page itself when it is one, as a grid is), unless
// it is already on the page, where Qt puts it back on the field last used there.
void Pestanas::EntrarEnPagina() {
  QWidget* pagina = currentWidget();
  QWidget* foco = QApplication::focusWidget();
  if (pagina == nullptr || !isVisible() || (foco != nullptr && pagina->isAncestorOf(foco)) ||
      foco == pagina) {
    return;
  }
  if ((pagina->focusPolicy() & Qt::TabFocus) != 0) {
    pagina->setFocus(Qt::TabFocusReason);
    return;
  }
  for (QWidget* w = pagina->nextInFocusChain(); w != pagina; w = w->nextInFocusChain()) {
    if (pagina->isAncestorOf(w) && w->isVisible() && w->isEnabled() &&
        (w->focusPolicy() & Qt::TabFocus) != 0) {
      w->setFocus(Qt::TabFocusReason);
      return;
    }
  }
}

}  // namespace ventarix
