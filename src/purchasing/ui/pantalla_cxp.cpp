// What the payables screens show of the supplier's side.
#include "purchasing/ui/pantalla_cxp.h"

#include "purchasing/cuentas_por_pagar.h"

namespace ventarix {

namespace {

using namespace Qt::StringLiterals;

QVariantMap MediosDelBanco(const Session& session, const QString& columna, qint32 banco) {
  if (columna != u"banco"_s) return {};
  const compras::MediosSiguientes siguientes = compras::SiguientesDelBanco(session, banco);
  return {{u"transferencia"_s, QString::number(siguientes.transferencia)},
          {u"cheque"_s, QString::number(siguientes.cheque)}};
}

}  // namespace

const PantallaPagos& PantallaCxP() {
  static const PantallaPagos p{
      .lado = compras::LadoCxP(),
      .familia = compras::CxP,
      .familia_saldar = compras::CxPSaldar,
      .alta = "FrmCxPa",
      .cambio = "FrmCxPc",
      .saldar = "FrmCxPs",
      .titulo_alta = "CUENTAS POR PAGAR - ALTAS",
      .titulo_cambio = "CUENTAS POR PAGAR - CAMBIOS",
      .titulo_saldar = "SALDAR Cuentas x Pagar de Proveedores",
      .titulo_socio = "Proveedor",
      .socio = Catalogo::kProveedores,
      .ayuda_socio = "PROVEEDORES",
      .campos = {{.columna = "banco",
                  .titulo = "Banco",
                  .catalogo = true,
                  .cual = Catalogo::kBancos,
                  .ayuda = "BANCOS"},
                 {.columna = "transferencia", .titulo = "Transferencia"},
                 {.columna = "cheque", .titulo = "Cheque"},
                 {.columna = "beneficiario", .titulo = "Beneficiario"}},
      .documento = "Compra",
      .referencia = "Factura/Remisión",
      .referencia_saldar = "Factura/Remisión",
      .quitar = "Quitar compra de ajuste de pagos",
      .seguro_quitar = "Seguro quitar compra de ajuste de pagos",
      .al_elegir = MediosDelBanco,
  };
  return p;
}

}  // namespace ventarix
