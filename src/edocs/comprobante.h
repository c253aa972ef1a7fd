#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

namespace ventarix::edocs {

// The ten address attributes shared by DomicilioFiscal, ExpedidoEn and Domicilio.
struct Domicilio {
  QString calle, noExterior, noInterior, colonia, localidad, referencia, municipio, estado, pais,
      codigoPostal;
};

// Emisor block: the company's snapshot (columns emisor* of the document row).
struct Emisor {
  QString rfc, nombre;
  Domicilio fiscal;
  Domicilio expedido_en;  // written only when its calle and noExterior are both set
};

// Receptor block: the client's snapshot (columns receptor* of the document row) plus the
// contact and credit fields the capture screens read.
struct Receptor {
  int cliente = 0;
  QString rfc, nombre;
  Domicilio domicilio;
  QString contacto, telefonos, celular, nextel, email1, email2, email3;
  double saldo = 0, credito = 0;
};

struct Concepto {
  QString codigo, descripcion, unidad;
  double cantidad = 0, precio = 0, importe = 0, subtotal = 0;
};

// The stamp of the PAC, present on stamped CFDi documents only.
struct Timbre {
  QString uuid, fecha_timbrado, no_certificado_sat, sello_sat;
  bool empty() const { return uuid.isEmpty(); }
};

// Everything a sealed document carries, as the sealing leaves it and as the document row stores
// it. Texts are kept exactly as they go into the XML.
struct Comprobante {
  QString Version;  // "3.2" CFDi, "2.2" CFD
  QString Serie, Folio;
  QDateTime fecha;  // written "yyyy-MM-ddThh:mm:ss"
  QString Sello, NoAprobacion, AnoAprobacion, FormaDePago, NoCertificado, Certificado,
      CondicionesDePago;
  QString SubTotal, Descuento, MotivoDescuento, Total;  // shortest text of the sums
  QString MetodoDePago, TipoDeComprobante, RegimenFiscal, LugarExpedicion, NumCtaPago;
  QString TipoCambio;  // "0.0000"
  QString Moneda, CadenaOriginal, Algoritmo;

  double TasaIva = 0, TotalIva = 0, RetencionIsr = 0, RetencionIva = 0, RetencionCed = 0,
         TipoCambioValor = 0;
  QVector<Concepto> conceptos;

  Emisor emisor;
  Receptor receptor;
  Timbre timbre;

  bool cfd() const { return Version == QLatin1String("2.2"); }
};

}  // namespace ventarix::edocs
