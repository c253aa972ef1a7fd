#pragma once

#include <QDialog>
#include <QHash>

#include "catalogs/socios.h"
#include "core/outcome.h"
#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;
class EtiquetaStatus;
class PreciosDelCliente;

// The add and change screen of a client, supplier, agent or bank, laid out from the family's
// fields. The change screen reads the row of the number it is given; a save closes accepted
// and tells the number saved, Salir or Esc close rejected.
class FormaSocio : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  // `llave`: the number of the partner changed; ignored by the add screen.
  FormaSocio(Session& session, socios::Socio socio, bool cambio, const QString& llave = {},
             QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

  // The field of a column ("Rfc", "Agente", ...), or null.
  QWidget* Campo(const QString& columna) const { return campos_.value(columna); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* Pagina();
  QGroupBox* Grupo(const socios::Grupo& grupo, QWidget* pagina);
  QWidget* CrearCampo(const socios::Campo& campo, QWidget* parent);
  void CampoDeCuenta(CampoCaptura* cuenta, QWidget* contenedor);
  CampoCatalogo* CampoDeCatalogo(const socios::Campo& campo, QWidget* parent);
  void Cargar();
  void Mostrar(const socios::Registro& registro);
  socios::Registro Capturado() const;
  void RevisarRfc(bool avisar);
  void GuardarClicked();
  void Avisar(const Outcome& outcome);
  void OrdenDeCaptura();

  Session& session_;
  const socios::Familia& familia_;
  bool cambio_;
  qint32 numero_ = 0;
  QTabWidget* tabs_;
  CampoCaptura* numero_campo_;
  EtiquetaStatus* status_;
  QLabel* fecha_ = nullptr;
  QLabel* cuenta_sugerida_ = nullptr;
  QHash<QString, QWidget*> campos_;
  PreciosDelCliente* precios_ = nullptr;
  QPushButton* guardar_;
  QPushButton* salir_;
  QString rfc_revisado_;
  QString llave_;
  QString guardada_;
};

}  // namespace ventarix
