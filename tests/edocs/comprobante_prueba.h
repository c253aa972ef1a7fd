#pragma once

// The invoice the XML tests build: a complete emisor and receptor, two concepts, VAT at 16 %,
// and its stamped twin.
#include <QString>

#include "edocs/comprobante.h"

namespace ventarix::testing {

using edocs::Comprobante;
using edocs::Domicilio;

// An invoice as the sealing leaves it, before the seal.
inline Comprobante Factura() {
  using namespace Qt::StringLiterals;
  Comprobante c;
  c.Version = u"3.2"_s;
  c.Serie = u"A"_s;
  c.Folio = u"15"_s;
  c.fecha = QDateTime(QDate(2014, 5, 20), QTime(10, 30, 5));
  c.FormaDePago = u"PAGO EN UNA SOLA EXHIBICION"_s;
  c.NoCertificado = u"20001000000100005867"_s;
  c.Certificado = u"TUlJRWRqQ0NBMTZnQXdJQkFnSVVNakF3TURF"_s;
  c.CondicionesDePago = u"CONTADO"_s;
  c.SubTotal = u"2000"_s;
  c.Descuento = u"0"_s;
  c.Total = u"2320"_s;
  c.MetodoDePago = u"EFECTIVO"_s;
  c.TipoDeComprobante = u"ingreso"_s;
  c.RegimenFiscal = u"REGIMEN GENERAL DE LEY PERSONAS MORALES"_s;
  c.LugarExpedicion = u"MONTERREY, NUEVO LEON"_s;
  c.NumCtaPago = u"NO IDENTIFICADO"_s;
  c.TipoCambio = u"1.0000"_s;
  c.Moneda = u"MXN"_s;
  c.TasaIva = 16;
  c.TotalIva = 320;
  c.emisor = {
      u"AAA010101AAA"_s,
      u"FERRETERA DEL NORTE SA DE CV"_s,
      Domicilio{u"AV. JUAREZ"_s, u"120"_s, u"B"_s, u"CENTRO"_s, u"MONTERREY"_s,
                u"FRENTE A LA PLAZA"_s, u"MONTERREY"_s, u"NUEVO LEON"_s, u"MEXICO"_s, u"64000"_s},
      {}};
  c.receptor.rfc = u"XAXX010101000"_s;
  c.receptor.nombre = u"PEREZ & HIJOS \"LA ESQUINA\""_s;
  c.receptor.domicilio = {u"HIDALGO"_s,   u"45"_s,         {},          u"OBRERA"_s, {}, {},
                          u"GUADALUPE"_s, u"NUEVO LEON"_s, u"MEXICO"_s, u"67100"_s};
  c.conceptos = {{u"TOR-01"_s, u"TORNILLO DE ACERO 1/4"_s, u"PZA"_s, 100, 12.5, 1250, 1250},
                 {u"CLA-02"_s, u"CLAVO 2 PULGADAS"_s, u"KG"_s, 3, 250, 750, 750}};
  return c;
}

inline Comprobante Timbrada() {
  using namespace Qt::StringLiterals;
  Comprobante c = Factura();
  c.Sello = u"c2VsbG8gZGUgbGEgZmFjdHVyYQ=="_s;
  c.timbre = {u"AD662D33-6934-459C-A128-BDF0393E0F44"_s, u"2014-05-20T10:31:12"_s,
              u"20001000000100003992"_s, u"c2VsbG8gZGVsIFNBVA=="_s};
  return c;
}

}  // namespace ventarix::testing
