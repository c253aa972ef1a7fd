#pragma once

#include <vector>

#include <QDialog>
#include <QHash>
#include <QVariantMap>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "documents/captura.h"
#include "documents/row_arithmetic.h"
#include "documents/ui/pantalla_captura.h"

class QComboBox;
class QHBoxLayout;
class QDateEdit;
class QLabel;
class QPushButton;
class QTimer;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;
class Pestanas;
class RejillaCaptura;

// The capture screen of every sales document, add (Frm<Doc>A, empty key) and change
// (Frm<Doc>C, the key of the document): Serie, the folio Datos(0), Fecha, Tipo, Status, the
// family's Datos fields, the tabs with the grid Fg1 and further data, the running totals, the
// credit warning Msg1 flashing by its Timer, the family's buttons, Guardar and Salir. The
// checks and the save are the capture engine's; the screen gathers the document and shows
// what comes back. A document that may no longer be changed opens for viewing.
class FormaCaptura : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FormaCaptura(Session& session, const captura_ui::Pantalla& pantalla, bool cambio,
               const QString& llave, QWidget* parent = nullptr);

  ~FormaCaptura() override;

  QString Guardada() const override { return guardada_; }

  Session& session() const { return session_; }
  const captura_ui::Pantalla& pantalla() const { return pantalla_; }
  bool cambio() const { return cambio_; }
  RejillaCaptura* rejilla() const { return fg1_; }

  // The document as the screen holds it now.
  captura::Documento Capturado() const;
  qint32 Cliente() const;
  int Plazo() const;
  // The client's balance and limit as they were read with the client.
  double SaldoDelCliente() const { return saldo_cliente_; }
  double CreditoDelCliente() const { return credito_cliente_; }
  DocumentSums Sumas() const { return sumas_; }
  // The header as the change screen read it ("uuid", "esquema" ...); empty on a new document.
  const QVariantMap& Leido() const { return leido_; }
  // "LIBRE" or "PRODUCTOS" where the family has a Depto; empty otherwise.
  QString Depto() const;
  // A document made elsewhere (delivery notes to invoice): the header fields it names, its
  // rows and its Depto; "PRODUCTOS" locks the client and the rows.
  void PonerDocumento(const captura::Documento& documento);
  // The header fields the document names that are still empty on the screen.
  void Completar(const QVariantMap& encabezado);

  // Rows brought in (from an order, a quotation or a paste) from the row `desde` down, each
  // passing the stock warning.
  void TraerPartidas(const std::vector<QVariantMap>& partidas, int desde);
  // All rows replaced (a discount applied), keeping the state before for undo.
  void CambiarPartidas(const std::vector<QVariantMap>& partidas);

  // The screen's arithmetic: every row, the totals, the family's credit display.
  void RecalcularPantalla();
  // The balance and limit shown, and the warning flashing in Msg1 (empty text: none).
  void MostrarCredito(double saldo, double credito, const QString& aviso);
  bool Destellando() const;
  // A step of the electronic pipeline that failed: its message flashes in Msg1.
  void Destellar(const QString& aviso);

  // One message box, with the focus on the field named by the outcome and its tab shown.
  void Avisar(const Outcome& outcome);
  // A code not in productos: "Agregar código ? ", and on yes the product screen opens on it.
  // The code of the product saved there, or empty when the clerk declined or saved nothing.
  QString OfrecerProducto(const QString& codigo);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* objeto, QEvent* event) override;

 private:
  QWidget* CrearDato(const captura_ui::Dato& dato, QWidget* padre);
  QWidget* Encabezado();
  QWidget* PaginaDeDatos(int pagina);
  QHBoxLayout* ListaDeMovimientos(QWidget* caja);
  QWidget* Totales();
  QWidget* DatosFiscales();
  void PonerRango(qint32 numero);
  void ElegirRango();
  void MonedaElegida();
  void PonerDepto(const QString& depto);
  void CargarFiscales(const QVariantMap& encabezado);
  void CapturarFiscales(captura::Documento* d) const;
  void PedirRetencion(int indice);
  void EditarResumen(int indice);
  double Retenciones() const;
  QWidget* Botones();
  void Conectar();
  void Cargar(const QString& llave);
  void Nuevo();
  void ClienteLeido(const RowValues& cliente);
  void CondicionesDePago();
  void AyudaDeCampo(CampoCatalogo* campo);
  void AyudaDeRejilla(int fila, int columna);
  void CeldaEscrita(int fila, int columna);
  void CodigoEscrito(int fila);
  bool ChecarExistencia(int fila);
  void Pegar(const QList<QStringList>& filas, int desde);
  void Guardar();
  bool Autorizado();
  void Recordar();
  void Deshacer();
  void Rehacer();
  QString Texto(int indice) const;
  void PonerTexto(int indice, const QString& texto);

  Session& session_;
  const captura_ui::Pantalla& pantalla_;
  const bool cambio_;
  QString llave_;
  QString guardada_;
  int almacen_ = 1;
  QLabel* serie_;
  QLabel* ingreso_ = nullptr;
  QLabel* esquema_ = nullptr;
  QLabel* depto_ = nullptr;
  QComboBox* moneda_ = nullptr;
  QLabel* etiqueta_cambio_ = nullptr;
  CampoCaptura* tipo_cambio_ = nullptr;
  QComboBox* forma_de_pago_ = nullptr;
  QVariantMap leido_;
  QDateEdit* fecha_;
  QComboBox* tipo_;
  QComboBox* movimiento_ = nullptr;
  QLabel* status_;
  QHash<int, QWidget*> datos_;
  Pestanas* tabs_;
  RejillaCaptura* fg1_;
  QHash<QString, QLabel*> totales_;
  QLabel* msg1_;
  QTimer* timer_;
  QString aviso_;
  QPushButton* guardar_;
  QPushButton* salir_;
  DocumentSums sumas_;
  double saldo_cliente_ = 0;
  double credito_cliente_ = 0;
  bool cargando_ = false;  // the stored document is being shown: the client brings nothing
  std::vector<QVariantMap> vigente_;  // the grid after the last change
  // Grid states for undo and redo on the change screen.
  std::vector<std::vector<QVariantMap>> antes_, despues_;
};

}  // namespace ventarix
