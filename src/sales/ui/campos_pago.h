#pragma once

#include <QVariantMap>
#include <QWidget>

#include "core/catalogo_nombre.h"
#include "core/session.h"
#include "documents/captura.h"

class QGridLayout;
class QLabel;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;

// What every receipt asks above its grid: Serie and the number Datos(0), the client Datos(1),
// the payment method Datos(2), the bank Datos(3), each with its name beside it, and the
// annotation Datos(4). F1 on a number opens its look-up.
class CamposPago : public QWidget {
  Q_OBJECT

 public:
  CamposPago(Session& session, QWidget* parent);

  CampoCatalogo* cliente() const { return cliente_; }
  CampoCaptura* folio() const { return folio_; }
  // The fields in the order Enter walks them.
  QList<QWidget*> Orden() const;
  // The next number of the family's serie, as a forecast.
  void Nuevo(const captura::FamiliaCaptura& familia);
  void Mostrar(const QVariantMap& encabezado);
  // cliente, metodo, banco, anotacion into the document's header.
  void Poner(captura::Documento* documento) const;
  void setSoloLectura(bool solo_lectura);

 private:
  CampoCatalogo* CampoDe(Catalogo catalogo, const char* palabra, int indice);

  Session& session_;
  QGridLayout* rejilla_;
  QLabel* serie_;
  CampoCaptura* folio_;
  CampoCatalogo* cliente_;
  CampoCatalogo* metodo_;
  CampoCatalogo* banco_;
  CampoCaptura* anotacion_;
};

// Amounts as the receipts show them: "#,##0.00".
QString Importe(double valor);

}  // namespace ventarix
