// The sales side: quotations, sales orders, delivery notes, invoices, receipts and client
// credit notes.
#include "documents/bajas_clases.h"
#include "documents/mSaldos.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

Outcome TotalesCotizacion(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarCotizacion(c, a.llave);
}

Outcome TotalesPedido(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarPedido(c, a.llave);
}

Outcome TotalesRemision(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarRemision(c, a.llave);
}

// Retentions go to 0 with the rows; the summary row, if any, is left as it is.
Outcome TotalesFactura(const Session& session, Connection& c, const Antes& a) {
  return mSaldos::TotalizarFactura(c, session, a.llave, mSaldos::Retenciones{}, QString());
}

Outcome TotalesNota(const Session& session, Connection& c, const Antes& a) {
  return mSaldos::TotalizarNotaCliente(c, session, a.llave);
}

// The orders the note drew on have their pending quantities back; the goods return to stock.
Outcome RecalcularRemision(const Session&, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSurtirPedidos(c, a.relacionados); },
                 [&] { return Existencias(c, 0, a.codigos); });
}

// The delivery notes the invoice held are free again (those of the current year).
Outcome RecalcularFactura(const Session& session, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSaldosFacturas(c, {a.llave}); },
                 [&] { return mSaldos::RecalcularSaldoClientes(c, a.socio); },
                 [&] { return mSaldos::RecalcularStatusRemisiones(c, session, a.relacionados); });
}

// A settle receipt holds invoices of several clients: each of them owes again.
Outcome RecalcularPago(const Session&, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSaldosFacturas(c, a.relacionados, {a.socio}); },
                 [&] { return mSaldos::RecalcularSaldoClientesDeFacturas(c, a.relacionados); });
}

Outcome RecalcularNota(const Session& session, Connection& c, const Antes& a) {
  return EnOrden([&] { return RecalcularPago(session, c, a); },
                 [&] { return Existencias(c, 0, a.codigos); });
}

const QString kRemisionesDelPedido =
    u"select remision from \"remisiones detalles\" where pedido = ?"_s;

}  // namespace

std::vector<Clase> Ventas() {
  return {
      {.clase = "COTIZACIONES",
       .tabla = u"cotizaciones"_s,
       .llave = u"cotizacion"_s,
       .derechos = u"Cotizaciones"_s,
       .partidas_baja = u"cantidad = 0"_s,
       .totalizar = TotalesCotizacion,
       .mayor = u"Existe un folio mayor a esta cotización"_s},
      {.clase = "PEDIDOS",
       .tabla = u"pedidos"_s,
       .llave = u"pedido"_s,
       .derechos = u"Pedidos"_s,
       .bloqueos_baja = {{kRemisionesDelPedido, u"Existen registros de pedidos en la remisión "_s}},
       .partidas_baja = u"cantidad = 0"_s,
       .totalizar = TotalesPedido,
       .bloqueos_borrado = {{kRemisionesDelPedido,
                             u"Existen registros de pedidos en la remisión "_s}},
       .mayor = u"Existe un folio mayor a este pedido"_s},
      {.clase = "REMISIONES",
       .tabla = u"remisiones"_s,
       .llave = u"remision"_s,
       .derechos = u"Remisiones"_s,
       .codigos = true,
       .relacionado = u"pedido"_s,
       .recalcular = RecalcularRemision,
       .bloqueos_baja = {{u"select f.factura from facturas f, \"facturas detalles\" d where "
                          u"f.factura = d.factura and f.status <> 'BAJA' and d.remision = ?"_s,
                          u"Existen registros de remisiones en la factura "_s}},
       .partidas_baja = u"cantidad = 0, pedido = ''"_s,
       .totalizar = TotalesRemision,
       .bloqueos_borrado = {{u"select factura from \"facturas detalles\" where remision = ?"_s,
                             u"Existen registros de remisiones en facturas con la factura "_s}},
       .mayor = u"Existe un folio mayor a esta remisión"_s},
      {.clase = "FACTURAS",
       .tabla = u"facturas"_s,
       .llave = u"factura"_s,
       .derechos = u"Facturas"_s,
       .relacionado = u"remision"_s,
       .socio = u"cliente"_s,
       .recalcular = RecalcularFactura,
       // A cancelled credit note no longer blocks only because its rows were rewritten with
       // factura 'BAJA'.
       .bloqueos_baja = {{u"select c.pago from cxc c, \"cxc detalles\" d where c.pago = d.pago and "
                          u"c.status <> 'BAJA' and d.factura = ?"_s,
                          u"Existen registros de facturas en cuentas por cobrar con el pago "_s},
                         {u"select nota from \"notas cliente detalles\" where factura = ?"_s,
                          u"Existen registros de facturas en notas de cliente con la nota "_s}},
       .partidas_baja = u"cantidad = 0, remision = ''"_s,
       .totalizar = TotalesFactura,
       .bloqueos_borrado = {{u"select pago from \"cxc detalles\" where factura = ?"_s,
                             u"Existen registros de facturas en cuentas por cobrar con el pago "_s},
                            {u"select nota from \"notas cliente detalles\" where factura = ?"_s,
                             u"Existen registros de facturas en notas de cliente con la nota "_s}},
       .folio_fiscal = FolioFiscal::kBloqueaConUuid,
       .mayor = u"Existe un folio mayor a esta factura"_s,
       .borrar_antes = {u"facturas resumen"_s}},
      {.clase = "CXC",
       .tabla = u"cxc"_s,
       .llave = u"pago"_s,
       .derechos = u"CxC"_s,
       .relacionado = u"factura"_s,
       .socio = u"cliente"_s,
       .recalcular = RecalcularPago,
       .partidas_baja = u"abono = 0"_s,
       .encabezado_baja = u"abono = 0"_s,
       .mayor = u"Existe un folio mayor a este pago"_s},
      {.clase = "NOTASCLIENTE",
       .tabla = u"notas cliente"_s,
       .llave = u"nota"_s,
       .derechos = u"NotasCliente"_s,
       .codigos = true,
       .relacionado = u"factura"_s,
       .socio = u"cliente"_s,
       .recalcular = RecalcularNota,
       .partidas_baja = u"cantidad = 0, factura = 'BAJA'"_s,
       .totalizar = TotalesNota,
       .folio_fiscal = FolioFiscal::kBloquea,
       .mayor = u"Existe un folio mayor a esta nota"_s,
       .borrar_antes = {u"notas cliente resumen"_s}},
  };
}

}  // namespace ventarix::bajas
