#pragma once

#include <array>
#include <functional>

#include <QDialog>
#include <QHash>

#include "core/outcome.h"
#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "edocs/folios_rangos.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QTabWidget;

namespace ventarix {

class CajaLeyenda;
class CampoCaptura;

// The add and change screen of a folio range, for invoices and credit notes alike: the
// numbers and series above, and TabStrip1 below with the frame of the chosen scheme, the
// logo's placement and the legends of the printed form (and the promissory note on the
// invoice side). The change screen shows the scheme read-only and restores the range's
// certificate and key into CarpetaCer. On saving it closes accepted and tells the range's
// number.
class FormaFolios : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  QString Guardada() const override { return guardada_; }

  // The file dialog: caption, initial folder, filter; the chosen path, or empty on cancel.
  using AbrirArchivo =
      std::function<QString(QWidget* parent, const QString&, const QString&, const QString&)>;
  void setAbrirArchivo(AbrirArchivo abrir) { abrir_archivo_ = std::move(abrir); }

 protected:
  // `llave`: the number of the range changed; ignored by the add screen.
  FormaFolios(Session& session, edocs::FamiliaFolios familia, bool alta, const QString& llave,
              QWidget* parent);
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ConstruirEncabezado();
  QWidget* ConstruirFila(const QString& campo, const QString& titulo, QWidget* control);
  void ConstruirPaginas();
  QWidget* PaginaCbb();
  QWidget* PaginaLogotipo();
  QWidget* PaginaLeyendas();
  QWidget* PaginaPagare();
  void ConstruirBotones();
  void OrdenarCampos();
  void CambiarEsquema();
  edocs::Esquema EsquemaActual() const;
  void MostrarCantidad();
  void AlDejar(CampoCaptura* campo, void (FormaFolios::*revision)());
  void RevisarSerie();
  void RevisarContrasena();
  void AbrirCertificado();
  void AbrirLlave();
  void MostrarInforme();
  void AgregarCbb();
  void QuitarCbb();
  void MostrarCbb();
  void MostrarEtiquetas();
  void Cargar();
  edocs::RangoFolios Capturado() const;
  void Mostrar(const Outcome& outcome);
  void Guardar();

  Session& session_;
  const edocs::FamiliaFolios familia_;
  const QString llave_;
  const bool alta_;
  AbrirArchivo abrir_archivo_;
  QString guardada_;

  QLabel* numero_;
  QComboBox* esquema_;
  QLabel* version_;
  CampoCaptura* serie_;
  CampoCaptura* folio_inicial_;
  CampoCaptura* folio_final_;
  QLabel* cantidad_;
  QLabel* status_;
  QTabWidget* tabs_;
  std::array<QWidget*, 4> frames_{};
  QHash<QString, QWidget*> filas_;  // a scheme field's row, by the field's name
  CampoCaptura* regimen_fiscal_;
  CampoCaptura* no_aprobacion_;
  CampoCaptura* ano_aprobacion_;
  CampoCaptura* archivo_certificado_;
  CampoCaptura* archivo_llave_;
  CampoCaptura* password_;
  std::array<QLabel*, 3> informe_{};
  QLabel* image1_;
  QLabel* tamano_;
  QCheckBox* imprimir_logotipo_;
  QComboBox* ubicar_logotipo_;
  QComboBox* alinear_empresa_;
  QComboBox* alinear_logotipo_;
  CajaLeyenda* domicilio_;
  std::array<CajaLeyenda*, 3> leyendas_{};
  CajaLeyenda* pagare_ = nullptr;
  CajaLeyenda* caja_actual_;
  QMenu* mnu_etiquetas_;
  QPushButton* etiquetas_;
  QPushButton* guardar_;
  QPushButton* salir_;

  // The certificate as read (number and validity), the files chosen in this visit, and the
  // CBB image on screen.
  edocs::RangoFolios certificado_;
  QString ruta_certificado_, ruta_llave_;
  QByteArray cbb_;
};

}  // namespace ventarix
