#pragma once

#include <QVariantMap>
#include <QWidget>

#include "core/session.h"
#include "documents/captura.h"
#include "documents/ui/pantalla_pagos.h"

class QDateEdit;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;

// What every payment asks above its grid: Serie and the number Datos(0), the party Datos(1),
// the side's fields from Datos(2) on (method and bank of a receipt; bank, transfer, cheque
// and beneficiary of a payment to a supplier), catalogue numbers with their names beside
// them, and the annotation last. F1 on a number opens its look-up.
class CamposPago : public QWidget {
  Q_OBJECT

 public:
  CamposPago(Session& session, const PantallaPagos& pantalla, QWidget* parent);

  CampoCatalogo* socio() const { return socio_; }
  CampoCaptura* folio() const { return folio_; }
  // The fields in the order Enter walks them.
  QList<QWidget*> Orden() const { return orden_; }
  // The next number of the family's serie, as a forecast.
  void Nuevo(const captura::FamiliaCaptura& familia);
  void Mostrar(const QVariantMap& encabezado);
  // The party and the side's fields into the document's header.
  void Poner(captura::Documento* documento) const;

 private:
  CampoCatalogo* Catalogo(const QString& titulo, ventarix::Catalogo cual, const char* ayuda,
                          int indice);
  void Elegido(const QString& columna, qint32 numero);

  Session& session_;
  const PantallaPagos& pantalla_;
  QGridLayout* rejilla_;
  QLabel* serie_;
  CampoCaptura* folio_;
  CampoCatalogo* socio_;
  QHash<QString, CampoCatalogo*> catalogos_;
  QHash<QString, CampoCaptura*> textos_;
  QList<QWidget*> orden_;
};

// Amounts as the payments show them: "#,##0.00".
QString Importe(double valor);

// What both payment screens show around their grid: the date Fecha, the sunken amount Total
// wide enough for `ancho`, and the row below the grid with that amount's caption, Guardar and
// Salir.
QDateEdit* CampoFecha(QWidget* forma);
QLabel* CampoTotal(QWidget* forma, const QString& ancho);
QHBoxLayout* PieDePago(QWidget* forma, const QString& titulo, QLabel* total, QPushButton* guardar,
                       QPushButton* salir);

}  // namespace ventarix
