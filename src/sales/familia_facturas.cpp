// Invoices: the serie and scheme of a folio range, a currency, three retentions and a summary
// text; typed freely ('LIBRE') or made from delivery notes ('PRODUCTOS'); sealed by the
// range's scheme as the last check.
#include <QSqlQuery>

#include "core/dialect.h"
#include "documents/captura_filas.h"
#include "documents/mSaldos.h"
#include "sales/completar_ventas.h"
#include "sales/familias_ventas.h"
#include "sales/sellar_documento.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;
using captura::Numero;
using captura::Texto;

bool EsDeRemisiones(const Documento& d) { return Texto(d.encabezado, "depto") == u"PRODUCTOS"_s; }

}  // namespace

Outcome EsquemaYTipoDeCambio(const Session&, Connection&, const Documento& d, bool) {
  if (Texto(d.encabezado, "esquema").isEmpty()) {
    return Outcome::Warning(u"Se requiere la definición de un esquema [CBB, CFD, CFDi, NOTA]"_s,
                            u"Esquema"_s);
  }
  const QString moneda = Texto(d.encabezado, "moneda");
  if (moneda != u"MXN"_s && Numero(d.encabezado, "tipocambio") <= 1) {
    return Outcome::Warning(u"Se requiere un tipo de cambio mayor a 1 para la moneda "_s + moneda,
                            u"TipoCambio"_s);
  }
  return Outcome::Ok();
}

QString ResumenDe(const Documento& d) { return d.encabezado.value(u"descripcion"_s).toString(); }

Outcome QuitarResumen(Connection& c, const char* tabla, const char* llave_columna,
                      const QString& llave, const QString& resumen) {
  QString error;
  if (resumen.isEmpty() &&
      !c.Run(u"delete from "_s + dialect::Name(QString::fromUtf8(tabla)) + u" where "_s +
                 dialect::Name(QString::fromUtf8(llave_columna)) + u" = ?"_s,
             {llave}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

// Method, conditions and place of issue, in the order of the screen's second tab.
Outcome CamposFiscales(const Session&, Connection&, const Documento& d, bool) {
  if (Numero(d.encabezado, "metodo") <= 0) {
    return Outcome::Warning(u"Se requiere la entrada de un Método de Pago"_s, u"Datos30"_s);
  }
  if (Texto(d.encabezado, "condicionesdepago").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de Condiciones de Pago"_s, u"Datos32"_s);
  }
  if (Texto(d.encabezado, "lugarexpedicion").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de Lugar de Expedición"_s, u"Datos34"_s);
  }
  return Outcome::Ok();
}

// What the electronic screens show when they open: pesos at rate 1, one payment, the client's
// payment data, and the company's town as the place of issue.
Outcome DatosFiscales(const Session& session, Connection& c, Documento* d) {
  if (Outcome o = DatosDePagoDelCliente(session, c, d); !o) return o;
  QVariantMap& e = d->encabezado;
  if (Texto(e, "moneda").isEmpty()) e.insert(u"moneda"_s, u"MXN"_s);
  e.insert(u"moneda"_s, Texto(e, "moneda").toUpper());
  if (Texto(e, "moneda") == u"MXN"_s) e.insert(u"tipocambio"_s, 1.0);
  if (Texto(e, "formadepago").isEmpty()) {
    e.insert(u"formadepago"_s, u"PAGO EN UNA SOLA EXHIBICION"_s);
  }
  if (Texto(e, "lugarexpedicion").isEmpty()) {
    const QString municipio = session.empresa.Text(u"municipio"_s).trimmed();
    const QString estado = session.empresa.Text(u"estado"_s).trimmed();
    e.insert(u"lugarexpedicion"_s, municipio.isEmpty() || estado.isEmpty()
                                       ? municipio + estado
                                       : municipio + u", "_s + estado);
  }
  return Outcome::Ok();
}

namespace {

Outcome EncabezadoFactura(const Session& session, Connection& c, Documento* d) {
  if (Texto(d->encabezado, "depto").isEmpty()) d->encabezado.insert(u"depto"_s, u"LIBRE"_s);
  if (Texto(d->encabezado, "tipo").isEmpty()) d->encabezado.insert(u"tipo"_s, u"DIRECTA"_s);
  return DatosFiscales(session, c, d);
}

// A free row of a known code takes the catalogue's data; an unknown code stays with unit
// "PIEZA". Rows from delivery notes stay as the notes had them.
Outcome PartidaFactura(const Session& session, Connection& c, const Documento& d, QVariantMap* p) {
  p->insert(u"facturar"_s, Texto(d.encabezado, "depto"));
  if (EsDeRemisiones(d)) return Outcome::Ok();
  if (CompletarPartidaDeVenta(session, c, d, p)) return Outcome::Ok();
  p->insert(u"codigo"_s, Texto(*p, "codigo").toUpper());
  p->insert(u"descripcion"_s, Texto(*p, "descripcion").toUpper());
  if (Texto(*p, "unidad").isEmpty()) p->insert(u"unidad"_s, u"PIEZA"_s);
  if (!p->contains(u"cantidad"_s)) p->insert(u"cantidad"_s, 1);
  return Outcome::Ok();
}

Outcome TotalizarFactura(const Session& session, Connection& c, const Documento& d,
                         const QString& llave) {
  const QString resumen = ResumenDe(d);
  if (Outcome o = QuitarResumen(c, "facturas resumen", "factura", llave, resumen); !o) return o;
  const mSaldos::Retenciones retenciones{.isr = Numero(d.encabezado, "retencion isr $"),
                                         .iva = Numero(d.encabezado, "retencion iva $"),
                                         .ced = Numero(d.encabezado, "retencion ced $")};
  return mSaldos::TotalizarFactura(c, session, llave, retenciones, resumen, captura::FechaDe(d));
}

// The invoice's balance and its client's (the old client's too after a change), the notes it
// holds leave 'POR FACTURAR' at once, and the products sold from notes have their last sale.
Outcome RecalcularFactura(const Session& session, Connection& c, const Documento& d,
                          const captura::Hechos& h) {
  const qint32 cliente = static_cast<qint32>(Numero(d.encabezado, "cliente"));
  if (Outcome o = mSaldos::RecalcularSaldosFacturas(c, {h.llave}, {cliente, h.socio_anterior});
      !o) {
    return o;
  }
  if (!h.alta && !h.fuentes.isEmpty()) {
    if (Outcome o = mSaldos::RecalcularStatusRemisiones(c, session, h.fuentes); !o) return o;
  }
  QString error;
  if (!c.Run(u"update remisiones as r set status = f.factura, facturada = f.hora "
             "from facturas f, \"facturas detalles\" d where r.remision = d.remision and "
             "f.factura = d.factura and f.status <> 'BAJA' and f.factura = ?"_s,
             {h.llave}, &error)) {
    return Outcome::Stop(error);
  }
  if (EsDeRemisiones(d) &&
      !c.Run(u"update productos set \"fecha ultima venta\" = ? where codigo in "
             "(select codigo from \"facturas detalles\" where factura = ?)"_s,
             {dialect::DateValue(captura::FechaDe(d), c.sql()), h.llave}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

}  // namespace

const captura::FamiliaCaptura& Facturas() {
  static const captura::FamiliaCaptura f{
      .tabla = "facturas",
      .llave = "factura",
      .derechos = "Facturas",
      .actual = &Session::FacturaActual,
      .serie = nullptr,
      .status_inicial = "POR COBRAR",
      .columnas = {u"esquema"_s,
                   u"ingreso"_s,
                   u"agente"_s,
                   u"plazo"_s,
                   u"pedido"_s,
                   u"descripcion"_s,
                   u"obs"_s,
                   u"orden de compra"_s,
                   u"solicitado por"_s,
                   u"referencia"_s,
                   u"enviar a"_s,
                   u"metodo"_s,
                   u"tipo"_s,
                   u"depto"_s,
                   u"moneda"_s,
                   u"tipocambio"_s,
                   u"retencion isr $"_s,
                   u"retencion iva $"_s,
                   u"retencion ced $"_s,
                   u"formadepago"_s,
                   u"metododepago"_s,
                   u"numctapago"_s,
                   u"condicionesdepago"_s,
                   u"motivodescuento"_s,
                   u"lugarexpedicion"_s},
      .columnas_partida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"costo"_s, u"com"_s,
                           u"facturar"_s},
      .almacen_partida = "tienda",
      .fuente_partida = "remision",
      .checar_partidas = false,
      .rango = {.tabla = "folios facturas",
                .columna = "ingreso",
                .predeterminado = &Session::FolioFacturas,
                .series_del_usuario = true},
      .folio_existente = "Esta serie y folio de factura ya existe en el sistema",
      .revisar_credito = EsquemaYTipoDeCambio,
      .revisar_campos = CamposFiscales,
      .completar_encabezado = EncabezadoFactura,
      .completar = PartidaFactura,
      .totalizar = TotalizarFactura,
      .recalcular = RecalcularFactura,
      .sellar = SellarFactura,
  };
  return f;
}

}  // namespace ventarix::ventas
