#pragma once

#include <QString>
#include <QWidget>

#include "core/browse_families.h"
#include "core/browse_view.h"
#include "core/mBrowse.h"
#include "core/session.h"

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
// authorization.
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
  // Writes the current row, first column, search and sort into the user's view.
  void GuardarVista();
  void Buscar(int tecla);
  void Ordenar(int columna);
  void Filtrar();
  QString MostrarFilas() const;

  QTableView* grid() const { return fg1_; }
  ModeloVista* modelo() const { return modelo_; }
  const mBrowse::Vista& vista() const { return vista_; }
  const mBrowse::Familia& familia() const { return familia_; }

 public slots:
  void AlinearGrid(int alineacion);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConstruirBarra();
  bool Tecla(QKeyEvent* event);
  void Nuevo();
  void Cambiar();
  void CambiarCodigo();
  void Recargar();
  void ModoPrecios();
  void Predeterminar();
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
  void AbrirForma(const QString& forma);
  QString LlaveActual() const;
  void PintarFondo();
  void Estado();
  int AnchoDeDatos(int columna) const;

  Session& session_;
  const mBrowse::Familia& familia_;
  const FormRegistry& registry_;
  mBrowse::Vista vista_;
  ModeloVista* modelo_;
  QTableView* fg1_;
  QToolBar* barra_;
  QLabel* estado_;
  mBrowse::Busqueda busqueda_;  // the search in force, as the user gave it
  bool modo_precios_ = false;   // products: Enter opens the quick price screen
  bool cargada_ = false;
  bool colocada_ = false;  // placed in the main window's work area
};

// The browsers of every family, by form name.
void RegistrarNavegadores(FormRegistry& registry);

}  // namespace ventarix
