#pragma once

#include <vector>

#include <QVariantMap>

#include "core/catalogo_nombre.h"
#include "core/session.h"
#include "documents/captura.h"
#include "documents/pagos.h"

namespace ventarix {

// A field of the payment's header, below the party: a catalogue number with its name beside
// it (F1 opens its look-up), or a text.
struct CampoDePago {
  const char* columna;  // "metodo"
  const char* titulo;   // "Método de pago"
  bool catalogo = false;
  Catalogo cual = Catalogo::kBancos;
  const char* ayuda = nullptr;  // the look-up's keyword: "BANCOS"
  bool mayusculas = true;
};

// What the payment screens of one side show differently: their names and captions, the
// party, the header's fields and the grids' headings.
struct PantallaPagos {
  const pagos::Lado& lado;
  const captura::FamiliaCaptura& (*familia)();
  const captura::FamiliaCaptura& (*familia_saldar)();
  const char* alta;           // "FrmCxCa"
  const char* cambio;         // "FrmCxCc"
  const char* saldar;         // "FrmCxCs"
  const char* titulo_alta;    // "CUENTAS POR COBRAR - ALTAS"
  const char* titulo_cambio;  // "CUENTAS POR COBRAR - CAMBIOS"
  const char* titulo_saldar;  // "SALDAR Cuentas x Cobrar de Clientes"
  const char* titulo_socio;   // "Cliente"
  Catalogo socio;
  const char* ayuda_socio;           // "CLIENTES"
  std::vector<CampoDePago> campos;   // between the party and the annotation
  const char* documento;             // the grids' first heading: "Factura"
  const char* referencia = nullptr;  // the payment grid's second heading, if any
  const char* referencia_saldar;     // the settle grid's: "Depto"
  const char* quitar;                // "Quitar factura de ajuste de pagos"
  const char* seguro_quitar;         // "Seguro quitar factura de ajuste de pagos"
  // What choosing a catalogue field fills in the others (the next cheque of a bank).
  QVariantMap (*al_elegir)(const Session& session, const QString& columna, qint32 numero) = nullptr;
};

}  // namespace ventarix
