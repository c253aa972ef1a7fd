// Receipts and settle receipts: the client's side of the payments engine.
#include "sales/cuentas_por_cobrar.h"

#include "documents/mSaldos.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;

// The invoices paid and the clients who own them; no other client's balance is touched.
Outcome SaldosDeLasFacturas(Connection& c, const QStringList& facturas) {
  if (Outcome o = mSaldos::RecalcularSaldosFacturas(c, facturas, {}); !o) return o;
  return mSaldos::RecalcularSaldoClientesDeFacturas(c, facturas);
}

const pagos::Lado kCxC{
    .tabla = "cxc",
    .derechos = "CxC",
    .serie = &Session::SerieCxC,
    .socio = "cliente",
    .socios = "clientes",
    .documentos = "facturas",
    .documento = "factura",
    .abierto = "POR COBRAR",
    .referencia_saldar = "f.depto",
    .falta_socio = "Se requiere un número de cliente",
    .falta_abono = "Se requiere la entrada de un abono de cliente",
    .no_abierto = "La factura %1 no está por cobrar",
    .del_socio = " al cliente %1",
    .medios = {{.columna = "metodo",
                .mensaje = "Se requiere la entrada de un método de pago",
                .campo = "Datos2"},
               {.columna = "banco",
                .mensaje = "Se requiere la entrada de un banco",
                .campo = "Datos3"}},
    .columnas = {u"metodo"_s, u"banco"_s, u"anotacion"_s},
    .saldos = SaldosDeLasFacturas,
};

}  // namespace

const pagos::Lado& LadoCxC() { return kCxC; }

const captura::FamiliaCaptura& CxC() {
  static const captura::FamiliaCaptura f = pagos::Pasos<kCxC>::Familia(&Session::PagoActual, false);
  return f;
}

const captura::FamiliaCaptura& CxCSaldar() {
  static const captura::FamiliaCaptura f = pagos::Pasos<kCxC>::Familia(&Session::PagoActual, true);
  return f;
}

}  // namespace ventarix::ventas
