// Look-ups of documents and of the lists around them: open invoices and purchases and their
// rows, pending orders and quotations, the point of sale's delivery notes, folio ranges with
// what they have left, series, periods and report designs.
#include <algorithm>

#include "core/ayuda_peticiones.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/schema.h"

namespace ventarix::ayuda::detalle {

namespace {

const QString kDinero2 = QString::fromLatin1(kDinero);

PeticionAyuda RemisionesTpv(const QString& titulo) {
  PeticionAyuda p =
      Nueva(titulo,
            QStringLiteral("select remision, fecha, total, referencia, tipo, usuario, "
                           "status from remisiones"),
            QStringLiteral(" order by fecha desc, remision desc limit 10000"));
  p.columnas = {Texto(QStringLiteral("Remisión <F2>"), 1500),
                Fecha(QStringLiteral("Fecha")),
                Cifra(QStringLiteral("Total $"), 1300, kDinero2),
                Texto(QStringLiteral("Referencia <F4>"), 3000),
                Texto(QStringLiteral("Tipo"), 1300),
                Texto(QStringLiteral("Usuario"), 1500),
                Texto(QStringLiteral("Status"), 1500)};
  p.busquedas = {
      {2, QStringLiteral("remision"), QStringLiteral("Remisión a buscar"), false},
      {4, QStringLiteral("referencia"), QStringLiteral("Referencia a buscar"), false},
  };
  return p;
}

// What a client or a supplier still owes or is owed, document by document.
PeticionAyuda PorCobrarOPagar(const QString& titulo, const QString& seleccion, const QString& fija,
                              qint32 socio, const QString& documento, const QString& factura) {
  PeticionAyuda p = Nueva(titulo, seleccion, QStringLiteral(" order by serie, folio"));
  p.fija = fija;
  p.valores_fijos = {socio};
  p.columnas = {Texto(documento, 1500), Texto(factura, 1800), Fecha(QStringLiteral("Fecha")),
                Cifra(QStringLiteral("Plazo"), 900)};
  for (const char16_t* suma : {u"Total $", u"Abonos $", u"Descuentos $", u"Saldo $"}) {
    p.columnas.push_back(Cifra(QString::fromUtf16(suma), 1300, kDinero2));
  }
  return p;
}

PeticionAyuda FacturasCliente(const ParametrosAyuda& param) {
  return PorCobrarOPagar(QStringLiteral("Facturas x Cobrar"),
                         QStringLiteral("select factura, depto, fecha, plazo, total, abonos, "
                                        "descuentos, saldo from facturas"),
                         QStringLiteral("cliente = ? and status = 'POR COBRAR'"), param.cliente,
                         QStringLiteral("Factura"), QStringLiteral("Depto"));
}

PeticionAyuda FacturasProveedor(const ParametrosAyuda& param) {
  return PorCobrarOPagar(
      QStringLiteral("Compras x Pagar"),
      QStringLiteral("select compra, coalesce(factura, '') || '/' || coalesce(remision, ''), "
                     "fecha, plazo, total, abonos, descuentos, saldo from compras"),
      QStringLiteral("proveedor = ? and status = 'POR PAGAR'"), param.proveedor,
      QStringLiteral("Compra"), QStringLiteral("Factura/Remisión"));
}

// The rows of one invoice or purchase; purchase prices carry four decimals.
PeticionAyuda Renglones(const QString& titulo, const QString& tabla, const QString& llave,
                        const QString& documento, const QString& formato) {
  PeticionAyuda p = Nueva(titulo,
                          QStringLiteral("select codigo, descripcion, unidad, cantidad, precio, "
                                         "total, item from ") +
                              dialect::Name(tabla),
                          QStringLiteral(" order by item"));
  p.fija = llave + QStringLiteral(" = ?");
  p.valores_fijos = {documento};
  p.columnas = {Texto(QStringLiteral("Código"), 1500),
                Texto(QStringLiteral("Descripción"), 4600),
                Texto(QStringLiteral("Unidad"), 900),
                Cifra(QStringLiteral("Cantidad"), 1200, kDinero2),
                Cifra(QStringLiteral("Precio $"), 1300, formato),
                Cifra(QStringLiteral("Total $"), 1300, kDinero2),
                Cifra(QStringLiteral("Item"), 900)};
  return p;
}

// Purchase orders still to be received; those of one supplier when the screen has one.
PeticionAyuda OrdenesCompra(const ParametrosAyuda& param) {
  PeticionAyuda p = Nueva(QStringLiteral("Ordenes de Compra"),
                          QStringLiteral("select orden, fecha, referencia, tipo, total "
                                         "from \"ordenes de compra\""),
                          QStringLiteral(" order by serie, folio"));
  p.fija = QStringLiteral("status in ('POR SURTIR', 'BACKORDER')");
  if (param.proveedor > 0) {
    p.fija += QStringLiteral(" and proveedor = ?");
    p.valores_fijos = {param.proveedor};
  }
  p.columnas = {Texto(QStringLiteral("Orden"), 1500), Fecha(QStringLiteral("Fecha")),
                Texto(QStringLiteral("Referencia"), 3000), Texto(QStringLiteral("Tipo"), 1300),
                Cifra(QStringLiteral("Total $"), 1300, kDinero2)};
  return p;
}

// A client's live quotations and pending orders, with the client's name.
PeticionAyuda DelCliente(const QString& titulo, const QString& seleccion, const QString& status,
                         const ParametrosAyuda& param) {
  PeticionAyuda p = Nueva(titulo, seleccion, QStringLiteral(" order by o.serie, o.folio"));
  p.fija = QStringLiteral("o.cliente = l.numero and o.status ") + status +
           QStringLiteral(" and o.cliente = ?");
  p.valores_fijos = {param.cliente};
  return p;
}

PeticionAyuda Cotizaciones(const ParametrosAyuda& param) {
  PeticionAyuda p = DelCliente(QStringLiteral("Cotizaciones"),
                               QStringLiteral("select o.cotizacion, o.fecha, o.cliente, l.nombre, "
                                              "o.tipo, o.total from cotizaciones o, clientes l"),
                               QStringLiteral("= 'ALTA'"), param);
  p.columnas = {
      Texto(QStringLiteral("Cotización"), 1500), Fecha(QStringLiteral("Fecha")),
      Cifra(QStringLiteral("Cliente"), 900),     Texto(QStringLiteral("Nombre"), 3500),
      Texto(QStringLiteral("Tipo"), 1300),       Cifra(QStringLiteral("Total $"), 1300, kDinero2)};
  return p;
}

PeticionAyuda Pedidos(const ParametrosAyuda& param) {
  PeticionAyuda p = DelCliente(QStringLiteral("Pedidos"),
                               QStringLiteral("select o.pedido, o.fecha, o.cliente, l.nombre, "
                                              "o.referencia, o.total from pedidos o, clientes l"),
                               QStringLiteral("in ('POR SURTIR', 'BACKORDER')"), param);
  p.columnas = {
      Texto(QStringLiteral("Pedido"), 1500),     Fecha(QStringLiteral("Fecha")),
      Cifra(QStringLiteral("Cliente"), 900),     Texto(QStringLiteral("Nombre"), 3500),
      Texto(QStringLiteral("Referencia"), 2000), Cifra(QStringLiteral("Total $"), 1300, kDinero2)};
  return p;
}

PeticionAyuda Reportes() {
  PeticionAyuda p = Nueva(QStringLiteral("Reportes"),
                          QStringLiteral("select r.reporte, (select i.impresora from impresoras i "
                                         "where i.reporte = r.reporte limit 1) from reporte r"),
                          QStringLiteral(" order by r.reporte"));
  p.columnas = {Texto(QStringLiteral("Reporte"), 3500), Texto(QStringLiteral("Impresora"), 3500)};
  return p;
}

PeticionAyuda Series(const ParametrosAyuda& param) {
  PeticionAyuda p =
      Nueva(QStringLiteral("Series"), QStringLiteral("select serie, nombre from series"),
            QStringLiteral(" order by serie"));
  p.fija = QStringLiteral("documento = ?");
  p.valores_fijos = {param.documento};
  p.columnas = {Texto(QStringLiteral("Serie"), 1200), Texto(QStringLiteral("Nombre"), 3500)};
  return p;
}

// The active folio ranges with how many folios each has, has used and has left. A user bound
// to some invoice series sees only their ranges.
PeticionAyuda Folios(const Session& session, bool notas) {
  const QString usados =
      notas ? QStringLiteral("(select count(*) from \"notas cliente\" where egreso = f.numero)")
            : QStringLiteral("(select count(*) from facturas where ingreso = f.numero)");
  PeticionAyuda p =
      Nueva(notas ? QStringLiteral("Folios Notas de Crédito (Egreso)")
                  : QStringLiteral("Folios Facturas (Ingreso)"),
            QStringLiteral("select f.numero, f.serie, f.esquema, f.folioinicial, f.foliofinal, "
                           "f.foliofinal - f.folioinicial + 1, %1 as ocupados, "
                           "f.foliofinal - f.folioinicial + 1 - %1 as quedan from %2 f")
                .arg(usados, notas ? QStringLiteral("\"folios notas\"")
                                   : QStringLiteral("\"folios facturas\"")),
            QStringLiteral(" order by f.numero"));
  p.fija = QStringLiteral("f.status = 'ALTA'");
  if (!notas) p.fija += mFunciones::SerieEnLista(session, p.valores_fijos);
  p.columnas = {
      Cifra(QStringLiteral("Número"), 900),       Texto(QStringLiteral("Serie"), 900),
      Texto(QStringLiteral("Esquema"), 1000),     Cifra(QStringLiteral("Folio Inicial"), 1300),
      Cifra(QStringLiteral("Folio Final"), 1300), Cifra(QStringLiteral("Folios"), 1100),
      Cifra(QStringLiteral("Ocupados"), 1100),    Cifra(QStringLiteral("Quedan"), 1100)};
  return p;
}

PeticionAyuda SeriesRegistradas(const QString& titulo, const QString& tabla) {
  PeticionAyuda p = Nueva(titulo, QStringLiteral("select distinct serie from ") + tabla,
                          QStringLiteral(" order by serie"));
  p.columnas = {Texto(QStringLiteral("Serie"), 1500)};
  return p;
}

// The table name travels into the text, so only a table of the company that keeps periods
// is accepted.
std::optional<PeticionAyuda> Periodos(const ParametrosAyuda& param) {
  const schema::Table* tabla = schema::FindTable(param.tabla.trimmed());
  if (tabla == nullptr) return std::nullopt;
  const bool con_periodo =
      std::any_of(tabla->columns.begin(), tabla->columns.end(),
                  [](const schema::Column& c) { return qstrcmp(c.name, "periodo") == 0; });
  if (!con_periodo) return std::nullopt;
  PeticionAyuda p = Nueva(QStringLiteral("Periodos"),
                          QStringLiteral("select distinct periodo from ") +
                              dialect::Name(QString::fromUtf8(tabla->name)),
                          QStringLiteral(" order by periodo desc"));
  p.columnas = {Cifra(QStringLiteral("Periodo"), 1200)};
  return p;
}

}  // namespace

std::optional<PeticionAyuda> PeticionDocumento(const Session& session, const QString& palabra,
                                               const ParametrosAyuda& param) {
  if (palabra == u"REMISIONES TPV 1") return RemisionesTpv(QStringLiteral("Remisión a Editar"));
  if (palabra == u"REMISIONES TPV 2") return RemisionesTpv(QStringLiteral("Remisión a Imprimir"));
  if (palabra == u"REMISIONES TPV 3") {
    return RemisionesTpv(QStringLiteral("Remisión a Imprimir en Zonas"));
  }
  if (palabra == u"FACTURAS CLIENTE") return FacturasCliente(param);
  if (palabra == u"FACTURAS PROVEEDOR") return FacturasProveedor(param);
  if (palabra == u"FACTURAS CLIENTE PRODUCTOS") {
    return Renglones(QStringLiteral("Productos x Cobrar"), QStringLiteral("facturas detalles"),
                     QStringLiteral("factura"), param.factura, kDinero2);
  }
  if (palabra == u"FACTURAS PROVEEDOR PRODUCTOS") {
    return Renglones(QStringLiteral("Productos x Pagar"), QStringLiteral("compras detalles"),
                     QStringLiteral("compra"), param.factura, QString::fromLatin1(kPrecio));
  }
  if (palabra == u"ORDENESCOMPRA") return OrdenesCompra(param);
  if (palabra == u"COTIZACIONES") return Cotizaciones(param);
  if (palabra == u"PEDIDOS") return Pedidos(param);
  if (palabra == u"REPORTES") return Reportes();
  if (palabra == u"SERIES") return Series(param);
  if (palabra == u"FOLIOS FACTURAS") return Folios(session, false);
  if (palabra == u"FOLIOS NOTAS") return Folios(session, true);
  if (palabra == u"SERIES REGISTRADAS FACTURAS") {
    return SeriesRegistradas(QStringLiteral("Series Facturas"), QStringLiteral("facturas"));
  }
  if (palabra == u"SERIES REGISTRADAS REMISIONES") {
    return SeriesRegistradas(QStringLiteral("Series Remisiones"), QStringLiteral("remisiones"));
  }
  if (palabra == u"PERIODOS") return Periodos(param);
  return std::nullopt;
}

}  // namespace ventarix::ayuda::detalle
