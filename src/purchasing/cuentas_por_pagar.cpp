// Payments to suppliers and settle payments: the supplier's side of the payments engine.
#include "purchasing/cuentas_por_pagar.h"

#include "documents/mSaldos.h"

namespace ventarix::compras {

namespace {

using namespace Qt::StringLiterals;

// The purchases paid and the suppliers who own them; no other supplier's balance is touched.
Outcome SaldosDeLasCompras(Connection& c, const QStringList& compras) {
  if (Outcome o = mSaldos::RecalcularSaldosCompras(c, compras, {}); !o) return o;
  return mSaldos::RecalcularSaldoProveedoresDeCompras(c, compras);
}

const pagos::Lado kCxP{
    .tabla = "cxp",
    .derechos = "CxP",
    .serie = &Session::SerieCxP,
    .socio = "proveedor",
    .socios = "proveedores",
    .documentos = "compras",
    .documento = "compra",
    .abierto = "POR PAGAR",
    // The supplier's invoice and delivery note joined by a slash.
    .referencia = "f.factura || '/' || f.remision",
    .referencia_saldar = "f.factura || '/' || f.remision",
    .falta_socio = "Se requiere un número de proveedor",
    .falta_abono = "Se requiere la entrada de un abono",
    .no_abierto = "La compra %1 no está por pagar",
    .del_socio = " al proveedor %1",
    .medios = {{.columna = "banco",
                .mensaje = "Se requiere la entrada de un banco",
                .campo = "Datos2"},
               {.columna = "beneficiario",
                .mensaje = "Se requiere la entrada de un beneficiario",
                .campo = "Datos5",
                .numero = false}},
    .campo_anotacion = "Datos6",
    .campo_periodo = "Datos7",
    .columnas = {u"banco"_s, u"transferencia"_s, u"cheque"_s, u"beneficiario"_s, u"anotacion"_s},
    .saldos = SaldosDeLasCompras,
};

// Transfer and cheque numbers are kept as text: the highest is the highest number they hold,
// not the last in alphabetical order ("9" before "10").
qint64 Siguiente(Connection& c, const QString& columna, qint32 banco) {
  const QString numero =
      c.sql() ? u"cast(nullif(regexp_replace(%1, '[^0-9]', '', 'g'), '') as bigint)"_s.arg(columna)
              : u"cast(nullif(%1, '') as integer)"_s.arg(columna);
  const QVariant ultimo =
      c.Scalar(u"select max(%1) from cxp where banco = ?"_s.arg(numero), {banco});
  return ultimo.isNull() ? 1 : ultimo.toLongLong() + 1;
}

}  // namespace

const pagos::Lado& LadoCxP() { return kCxP; }

const captura::FamiliaCaptura& CxP() {
  static const captura::FamiliaCaptura f = pagos::Pasos<kCxP>::Familia(&Session::PagoActual, false);
  return f;
}

const captura::FamiliaCaptura& CxPSaldar() {
  static const captura::FamiliaCaptura f = pagos::Pasos<kCxP>::Familia(&Session::PagoActual, true);
  return f;
}

MediosSiguientes SiguientesDelBanco(Connection& c, qint32 banco) {
  return {.transferencia = Siguiente(c, u"transferencia"_s, banco),
          .cheque = Siguiente(c, u"cheque"_s, banco)};
}

MediosSiguientes SiguientesDelBanco(const Session& session, qint32 banco) {
  Connection c(session.Cadena);
  if (!c.ok()) return {};
  return SiguientesDelBanco(c, banco);
}

}  // namespace ventarix::compras
