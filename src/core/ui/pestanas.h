#pragma once

#include <QTabWidget>

namespace ventarix {

// The tabs of every screen. Ctrl+Tab and Ctrl+PgDn go to the next tab, Ctrl+Shift+Tab and
// Ctrl+PgUp to the previous one, from any field of the window, a grid included (a grid would
// otherwise take Ctrl+Tab to move cell by cell), and the focus goes to the tab's first field.
// Every tab has an Alt letter: a title without "&" gets the first letter of its words, else of
// the title, that no other caption of the window uses.
class Pestanas : public QTabWidget {
  Q_OBJECT

 public:
  explicit Pestanas(QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void tabInserted(int index) override;

 private:
  void Avanzar(int paso);
  void EntrarEnPagina();
  void PonerLetra(int index);
};

}  // namespace ventarix
