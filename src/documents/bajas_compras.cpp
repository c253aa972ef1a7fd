// The purchase side: purchase orders, purchases, contra-receipts, supplier payments, supplier
// credit notes and tenders.
#include "documents/bajas_clases.h"
#include "documents/mChecarExistencias.h"
#include "documents/mSaldos.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

// A purchase that brought goods may not take away what was already sold from its warehouse;
// an expense ('GASTOS') moved no stock.
Outcome ExistenciasDeCompra(const Session& session, Connection& c, const Antes& a) {
  const QString movimiento = a.encabezado.Text(u"movimiento"_s).trimmed().toUpper();
  if (movimiento == u"GASTOS") return Outcome::Ok();
  // The goods went into the warehouse the purchase names; older rows without one, the store's.
  if (movimiento.startsWith(u"ALMACEN"_s)) {
    return mChecarExistencias::ChecarExistenciasEntrada(session, c, u"compras"_s, u"compra"_s,
                                                        a.llave, movimiento, true, nullptr);
  }
  const int tienda = a.encabezado.Integer(u"tienda"_s);
  if (tienda <= 0) return Outcome::Warning(u"Se requiere conocer el número de almacen"_s);
  return mChecarExistencias::ChecarExistenciasEntrada(
      session, c, u"compras"_s, u"compra"_s, a.llave, u"ALMACEN%1"_s.arg(tienda), true, nullptr);
}

Outcome TotalesOrden(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarOrdenCompra(c, a.llave);
}

Outcome TotalesCompra(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarCompra(c, a.llave, 0);
}

Outcome TotalesNota(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarNotaProveedor(c, a.llave, 0);
}

Outcome RecalcularCompra(const Session&, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSaldosCompras(c, {a.llave}); },
                 [&] { return mSaldos::RecalcularSaldoProveedores(c, a.socio); },
                 [&] { return mSaldos::RecalcularSurtirOrdenes(c, a.relacionados); },
                 [&] { return Existencias(c, 0, a.codigos); });
}

Outcome RecalcularPago(const Session&, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSaldosCompras(c, a.relacionados); },
                 [&] { return mSaldos::RecalcularSaldoProveedores(c, a.socio); });
}

// Cancelling a supplier's note refreshes the balance of the client that has the supplier's
// number, as the system always did; the supplier's own balance follows at its next
// recomputation (on PostgreSQL the purchases' recomputation already refreshes it).
Outcome RecalcularNota(const Session&, Connection& c, const Antes& a) {
  return EnOrden([&] { return mSaldos::RecalcularSaldosCompras(c, a.relacionados); },
                 [&] {
                   if (a.accion != Accion::kBaja) return Outcome::Ok();
                   return mSaldos::RecalcularSaldoClientes(c, a.socio);
                 },
                 [&] { return Existencias(c, 0, a.codigos); });
}

}  // namespace

std::vector<Clase> Compras() {
  return {
      {.clase = "ORDENESCOMPRA",
       .tabla = u"ordenes de compra"_s,
       .llave = u"orden"_s,
       .derechos = u"OrdenesCompra"_s,
       .bloqueos_baja = {{u"select compra from \"compras detalles\" where orden = ?"_s,
                          u"Existen registros de ordenes de compras con la compra "_s}},
       .partidas_baja = u"cantidad = 0, surtir = 0"_s,
       .totalizar = TotalesOrden,
       .bloqueos_borrado = {{u"select compra from \"compras detalles\" where orden = ?"_s,
                             u"Existen registros de ordenes de compra con la compra "_s}},
       .mayor = u"Existe un folio mayor a esta orden"_s},
      {.clase = "COMPRAS",
       .tabla = u"compras"_s,
       .llave = u"compra"_s,
       .derechos = u"Compras"_s,
       .codigos = true,
       .relacionado = u"orden"_s,
       .socio = u"proveedor"_s,
       .revisar = ExistenciasDeCompra,
       .recalcular = RecalcularCompra,
       .bloqueos_baja =
           {{u"select c.pago from cxp c, \"cxp detalles\" d where c.pago = d.pago and "
             u"c.status <> 'BAJA' and d.compra = ?"_s,
             u"Existen registros de compras en cuentas por pagar con el pago "_s},
            {u"select n.nota from \"notas proveedor\" n, \"notas proveedor detalles\" d where "
             u"n.nota = d.nota and n.status <> 'BAJA' and d.compra = ?"_s,
             u"Existen registros de compras en notas de proveedor con la nota "_s},
            {u"select c.contrarecibo from contrarecibos c, \"contrarecibos detalles\" d where "
             u"c.contrarecibo = d.contrarecibo and c.status <> 'BAJA' and d.compra = ?"_s,
             u"Existen registros de compras en contrarecibos con el contrarecibo "_s}},
       .partidas_baja = u"cantidad = 0, orden = ''"_s,
       .totalizar = TotalesCompra,
       .bloqueos_borrado =
           {{u"select pago from \"cxp detalles\" where compra = ?"_s,
             u"Existen registros de compras en cuentas por pagar con el pago "_s},
            {u"select nota from \"notas proveedor detalles\" where compra = ?"_s,
             u"Existen registros de compras en notas de proveedor con la nota "_s},
            {u"select contrarecibo from \"contrarecibos detalles\" where compra = ?"_s,
             u"Existen registros de compras en contrarecibos con el contrarecibo "_s}},
       .mayor = u"Existe un folio mayor a esta compra"_s},
      {.clase = "CONTRARECIBOS",
       .tabla = u"contrarecibos"_s,
       .llave = u"contrarecibo"_s,
       .derechos = u"ContraRecibos"_s,
       .partidas_baja = u"compra = 'BAJA', remision = '', factura = '', total = 0"_s,
       .encabezado_baja = u"facturas = 0, total = 0"_s,
       .mayor = u"Existe un folio mayor a este contrarecibo"_s},
      {.clase = "CXP",
       .tabla = u"cxp"_s,
       .llave = u"pago"_s,
       .derechos = u"CxP"_s,
       .relacionado = u"compra"_s,
       .socio = u"proveedor"_s,
       .recalcular = RecalcularPago,
       .partidas_baja = u"abono = 0"_s,
       .encabezado_baja = u"abono = 0"_s,
       .mayor = u"Existe un folio mayor a este pago"_s},
      {.clase = "NOTASPROVEEDOR",
       .tabla = u"notas proveedor"_s,
       .llave = u"nota"_s,
       .derechos = u"NotasProveedor"_s,
       .codigos = true,
       .relacionado = u"compra"_s,
       .socio = u"proveedor"_s,
       .recalcular = RecalcularNota,
       .partidas_baja = u"cantidad = 0, compra = 'BAJA'"_s,
       .totalizar = TotalesNota,
       .mayor = u"Existe un folio mayor a esta nota"_s},
      {.clase = "LICITACIONES",
       .tabla = u"licitaciones"_s,
       .llave = u"licitacion"_s,
       .derechos = u"Licitaciones"_s,
       .mayor = u"Existe un folio mayor a esta licitación"_s},
  };
}

}  // namespace ventarix::bajas
