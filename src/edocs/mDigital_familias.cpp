// What differs between the document families that share the sealing engine.
#include "edocs/mDigital_pasos.h"

namespace ventarix::edocs::digital {
namespace {

using enum Paso;

// The invoice grid: sums in 9 (subtotal), 8 (discount), 12 (total), rate and tax in 10 and 11;
// the credit note's grid has two more columns in front.
constexpr ColumnasRejilla kRejillaFactura{9, 8, 12, 10, 11, 1, 2, 3, 4, 5, 6, 9};
constexpr ColumnasRejilla kRejillaNota{11, 10, 14, 12, 13, 3, 4, 5, 6, 7, 8, 11};

constexpr char kFacturaDeBaja[] = "Esta factura se encuentra de baja";
constexpr char kNotaDeBaja[] = "Esta nota de crédito se encuentra de baja";
constexpr char kFacturaFuera[] =
    "Este número de factura esta fuera del rango de los folios digitales";

Familia Sellado(bool egreso, bool cfd) {
  Familia f;
  f.tipo_de_comprobante = egreso ? "egreso" : "ingreso";
  f.pasos = {kStatus, kFormaDePago, kConceptos, kEsquemas, kRango, kCliente};
  // Only a CFD invoice carries an addenda; credit notes have none.
  if (cfd && !egreso) f.pasos.push_back(kMarca);
  f.sella = true;
  f.cfd = cfd;
  f.folios = egreso ? FamiliaFolios::kNotas : FamiliaFolios::kFacturas;
  f.rango = Rango::kCertificados;
  f.esquema = cfd ? "CFD" : "CFDI";
  f.baja = egreso ? kNotaDeBaja : kFacturaDeBaja;
  f.sin_rango = egreso ? "Se requiere el registro de una serie de egreso en: Folios Notas"
                       : "Se requiere el registro de una serie de ingreso en: Folios Facturas";
  f.fuera_de_rango =
      egreso ? "Este número de nota esta fuera del rango de los folios digitales" : kFacturaFuera;
  f.columnas = egreso ? kRejillaNota : kRejillaFactura;
  f.resumen_codigo = egreso ? "NOTA" : "CORTE";
  f.resumen_unidad = egreso ? "NA" : "CORTE";
  f.retenciones = !egreso;
  // A credit note is sealed with its Traslados only; stamping rebuilds it with the total.
  f.impuestos = egreso ? Impuestos::kSoloTraslados : Impuestos::kCompletos;
  return f;
}

// CBB and NOTA: no schema files, no file; the income side ends with the credit test.
Familia Preparacion(bool egreso, bool cbb) {
  Familia f = Sellado(egreso, false);
  f.pasos = {kStatus, kFormaDePago, kConceptos, kRango, kCliente};
  if (!egreso) f.pasos.push_back(kCredito);
  f.sella = false;
  f.rango = cbb ? Rango::kCbb : Rango::kSolo;
  f.esquema = cbb ? "CBB" : "NOTA";
  f.regimen_requerido = cbb;
  if (cbb) {
    f.sin_rango = egreso ? "Se requiere un código bidimensional en folios notas de crédito"
                         : "Se requiere un código bidimensional en folios facturas";
    f.fuera_de_rango =
        egreso ? "Este número de nota de crédito esta fuera del rango de los folios digitales"
               : kFacturaFuera;
  } else {
    // The NOTA scheme speaks of invoices on both sides.
    f.baja = kFacturaDeBaja;
    f.sin_rango = "Se requiere el registro de una serie de ingreso en: Empresa, Folios Digitales";
    f.fuera_de_rango = kFacturaFuera;
  }
  return f;
}

}  // namespace

const Familia& IngresoCFDi() {
  static const Familia f = Sellado(false, false);
  return f;
}
const Familia& IngresoCFD() {
  static const Familia f = Sellado(false, true);
  return f;
}
const Familia& EgresoCFDi() {
  static const Familia f = Sellado(true, false);
  return f;
}
const Familia& EgresoCFD() {
  static const Familia f = Sellado(true, true);
  return f;
}
const Familia& IngresoCBB() {
  static const Familia f = Preparacion(false, true);
  return f;
}
const Familia& EgresoCBB() {
  static const Familia f = Preparacion(true, true);
  return f;
}
const Familia& IngresoNOTA() {
  static const Familia f = Preparacion(false, false);
  return f;
}
const Familia& EgresoNOTA() {
  static const Familia f = Preparacion(true, false);
  return f;
}
// The point of sale's delivery note: only the client and its credit.
const Familia& Remision() {
  static const Familia f = [] {
    Familia r = Preparacion(false, false);
    r.pasos = {kCliente, kCredito};
    return r;
  }();
  return f;
}

}  // namespace ventarix::edocs::digital
