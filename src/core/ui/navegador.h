#pragma once

#include <QString>
#include <QWidget>

#include "core/browse_families.h"
#include "core/browse_view.h"
#include "core/mBrowse.h"
#include "core/session.h"
#include "core/ui/accion_extra.h"

class QAction;
class QLabel;
class QTableView;
class QToolBar;

namespace ventarix {

class FormRegistry;
class ModeloVista;

// The grid browser every catalogue and document family opens from the menus (FrmClientes,
// FrmFacturas, ...): the user's saved view of the family's table, with its searches, filter,
// sort, sums of the selected cells, and the add, change and cancel screens behind rights and
// authorization. A family's own buttons and keys come from the registry (AccionExtra).
class Navegador : public QWidget {
  Q_OBJECT

 public:
  Navegador(Session& session, const mBrowse::Familia& familia, const FormRegistry& registry,
            QWidget* parent = nullptr);

  // The load sequence: saved view, statement, year, count guard, layout, position.
  bool CargarVista();
  // After a save: the row whose key is `llave` read again and shown, or added.
  void RefrescarFila(const QString& llave);
  // Moves to the row whose key column holds the value; false when it is not loaded.
  bool BuscarEnFila(const QString& columna, const QVariant& valor);
  // The toolbar button's authorization prompts; true when the act may go on.
  bool Autorizar(int boton);
  // Whether the user's rights on the family allow the act ("A", "B", "C"); when not, the
  // message is shown. A family without a rights column allows it.
  bool Permitido(const QString& accion);
  // Opens the form on the record of key `llave`; the key it saved, whose row is shown again.
  QString AbrirForma(const QString& forma, const QString& llave = {});
  // The key of the current row, or empty.
  QString LlaveActual() const;
  // The whole load again, with the search, sort and row the user has now.
  void Recargar();
  // The screen Cambiar opens instead of the family's change screen; empty: the family's own.
  void setPantallaDeCambio(const QString& forma) { pantalla_cambio_ = forma; }
  const QString& pantallaDeCambio() const { return pantalla_cambio_; }
  // Writes the current row, first column, search and sort into the user's view.
  void GuardarVista();
  void Buscar(int tecla);
  void Ordenar(int columna);
  void Filtrar();
  // <F8>: false when the view has no period to choose.
  bool Periodo();
  QString MostrarFilas() const;

  QTableView* grid() const { return fg1_; }
  ModeloVista* modelo() const { return modelo_; }
  const mBrowse::Vista& vista() const { return vista_; }
  const mBrowse::Familia& familia() const { return familia_; }
  Session& session() const { return session_; }

 public slots:
  void AlinearGrid(int alineacion);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConstruirBarra();
  void AgregarBotonSeis(const AccionExtra& extra);
  bool Tecla(QKeyEvent* event);
  bool TeclaExtra(QKeyEvent* event);
  QAction* Boton(int numero) const;
  void Nuevo();
  void Cambiar();
  void Cancelar();
  void Borrar();
  void DarDeBajaOBorrar(const QString& forma, bool borrar);
  QStringList LlavesSeleccionadas() const;
  void QuitarFila(const QString& llave);
  void Imprimir();
  void Formato();
  void Copiar();
  void MostrarSuma();
  void AplicarBusqueda(const mBrowse::Busqueda& busqueda, bool filtro);
  void PintarFondo();
  void Estado();
  int AnchoDeDatos(int columna) const;

  Session& session_;
  const mBrowse::Familia& familia_;
  const FormRegistry& registry_;
  const ExtrasNavegador extras_;
  mBrowse::Vista vista_;
  ModeloVista* modelo_;
  QTableView* fg1_;
  QToolBar* barra_;
  QLabel* estado_;
  mBrowse::Busqueda busqueda_;  // the search in force, as the user gave it
  QString pantalla_cambio_;
  bool cargada_ = false;
  bool colocada_ = false;  // placed in the main window's work area
};

// The browsers of every family, by form name.
void RegistrarNavegadores(FormRegistry& registry);

}  // namespace ventarix
