#pragma once

#include <vector>

#include <QAbstractTableModel>
#include <QSet>
#include <QVariantList>

#include "core/browse_query.h"
#include "core/browse_view.h"
#include "core/session.h"

class QTimer;

namespace ventarix {

// The rows of a saved view for a grid. Rows arrive in pages as the user scrolls; each page
// opens its own read-only connection and closes it, so nothing stays open between events (an
// open read on a SQLite file would hold the till's writes). Sorting and filtering happen in
// SQL; at most kLimiteFilas rows are ever shown.
//
// A jump to the end, or far down, makes every row of the view a row of the model at once (the
// count guard knows how many) and reads only the page jumped to; a row between is read, with
// its page, when the grid first asks for it. Until then it shows empty.
class ModeloVista : public QAbstractTableModel {
  Q_OBJECT

 public:
  static constexpr int kPagina = 256;

  // `pagina`: rows read per page.
  explicit ModeloVista(const Session& session, QObject* parent = nullptr, int pagina = kPagina);

  // Counts the rows and reads the first page. Returns the engine's words when the statement
  // fails.
  Outcome Cargar(const mBrowse::Consulta& consulta,
                 const std::vector<mBrowse::ColumnaVista>& columnas);
  Outcome Recargar() { return Cargar(consulta_, columnas_); }

  const mBrowse::Consulta& consulta() const { return consulta_; }
  const std::vector<mBrowse::ColumnaVista>& columnas() const { return columnas_; }
  // Rows the statement has (before the cut), and rows shown at most.
  qint64 filas_totales() const { return filas_totales_; }
  qint64 limite() const { return limite_; }
  int ColumnaDe(const QString& nombre) const;
  QVariant Valor(int fila, int columna) const;
  // Makes `fila` (or the last row, when there are fewer) a read row of the model: the next
  // page when it is near, else its own page alone.
  void AsegurarFila(int fila);
  // Every row of the view in the model, the last page read: where Ctrl+End goes.
  void IrAlFinal();
  // Reads the rows of [desde, hasta] not read yet (a selection about to be summed or copied).
  void AsegurarFilas(int desde, int hasta);
  bool Leida(int fila) const;
  // Rows read from the database since the last load.
  qint64 leidas() const { return leidas_; }
  // Puts the row in place of the loaded one with the same key, or adds it at the end; returns
  // its row number.
  int ReemplazarFila(const QVariantList& valores);
  // Takes a row out (a record deleted for good).
  void QuitarFila(int fila);
  // The first loaded row whose column holds the value, or -1.
  int BuscarFila(int columna, const QVariant& valor) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  bool canFetchMore(const QModelIndex& parent = {}) const override;
  void fetchMore(const QModelIndex& parent = {}) override;

 signals:
  void Error(const QString& texto);

 private:
  QString Formatear(const QVariant& valor, const mBrowse::ColumnaVista& columna) const;

  const Session& session_;
  mBrowse::Consulta consulta_;
  std::vector<mBrowse::ColumnaVista> columnas_;
  QStringList nombres_;
  std::vector<QVariantList> filas_;
  qint64 filas_totales_ = 0;
  qint64 limite_ = 0;
  // Reads up to cuantas more rows on the open connection and appends them.
  void Anexar(Connection& lectura, qint64 cuantas);
  // Every row of the view a row of the model, those not read yet empty.
  void Completar();
  // Reads the page of unread rows around `fila`, next to a read row when it can so that it
  // goes by key.
  void LeerBloque(Connection& lectura, int fila);
  // The rows the grid asked for before they were read, read once the event loop turns.
  void LeerPedidas();

  bool leyendo_ = false;
  int pagina_ = kPagina;
  qint64 leidas_ = 0;
  mutable QSet<int> pedidas_;
  QTimer* lector_;
};

}  // namespace ventarix
