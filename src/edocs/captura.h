#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace ventarix::edocs {

// The content of an invoice or credit-note capture screen, as the sealing and preparation
// drivers read it. The screens of the sales documents fill one of these from their fields and
// hand it over; the drivers may change it as the screen would (the folio moved to the range's
// first one, the exchange rate of MXN set to "1.0000", the client cleared when it is missing).
struct DocumentoCaptura {
  QString Status;       // the Status label: "ALTA", "BAJA", ...
  QString Serie;        // the Serie caption
  QString FormaDePago;  // combo FormaDePago
  QString Moneda;       // combo Moneda: "MXN", "USD", ...
  QDateTime Fecha;      // the Fecha control: date and time
  int Ingreso = 0;      // range number: facturas.Ingreso, or [notas cliente].Egreso
  double Saldo = 0;     // the client's balance with this document, for the credit test

  // The text boxes Datos(i) by index: 0 folio, 1 client, 3 term, 5 exchange rate,
  // 6 description, 10-12 retentions ISR/IVA/CED, 30 payment method, 31 NumCtaPago,
  // 32 payment conditions, 33 discount motive, 34 place of issue. Missing ones read empty.
  QHash<int, QString> Datos;
  QString MetodoNombre;  // the Nombre caption beside Datos(30)
  QString Nombre;        // the client's Nombre caption beside Datos(1)

  // The grid Fg1: one QStringList per data row, cell texts by column index (column 0 is the
  // row header). The invoice and credit-note grids differ in their columns; the drivers know.
  QVector<QStringList> Fg1;

  QString Dato(int i) const { return Datos.value(i); }
  QString Celda(int fila, int columna) const {
    const QStringList& row = Fg1.at(fila);
    return columna < row.size() ? row.at(columna) : QString();
  }
};

}  // namespace ventarix::edocs
