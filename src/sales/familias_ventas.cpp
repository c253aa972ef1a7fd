// Delivery notes, quotations and sales orders: what each adds to the capture engine.
#include "sales/familias_ventas.h"

#include <QSqlQuery>

#include "catalogs/mFunciones_precios.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/registro_leido.h"
#include "documents/mSaldos.h"
#include "documents/row_arithmetic.h"
#include "sales/completar_ventas.h"
#include "sales/cuentas_por_cobrar.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

double Numero(const QVariantMap& m, const char* c) {
  return mFunciones::ValorNumerico(m.value(QString::fromUtf8(c)));
}
QString Texto(const QVariantMap& m, const char* c) {
  return mFunciones::ValorTexto(m.value(QString::fromUtf8(c))).trimmed();
}
qint32 Cliente(const Documento& d) { return static_cast<qint32>(Numero(d.encabezado, "cliente")); }

Outcome Requerido(const Documento& d, const char* columna, const QString& mensaje,
                  const QString& campo) {
  if (Texto(d.encabezado, columna).isEmpty()) return Outcome::Warning(mensaje, campo);
  return Outcome::Ok();
}

// A delivery note or an order for a client over the limit on credit cannot be saved while the
// warning flashes.
Outcome LimiteDeCredito(const Session&, Connection& c, const Documento& d, bool) {
  const Credito credito =
      CreditoDe(c, Cliente(d), static_cast<int>(Numero(d.encabezado, "plazo")), TotalDe(d));
  if (credito.excedido) return Outcome::Warning(u"Límite de crédito excedido ! ! !"_s, u"Msg1"_s);
  return Outcome::Ok();
}

Outcome CamposRemision(const Session&, Connection&, const Documento& d, bool) {
  if (Outcome o = Requerido(d, "obs", u"Se requiere la entrada de una observación"_s, u"Datos5"_s);
      !o) {
    return o;
  }
  if (Outcome o = Requerido(d, "tipo", u"Se requiere la entrada de un tipo"_s, u"Tipo"_s); !o) {
    return o;
  }
  if (Numero(d.encabezado, "metodo") <= 0) {
    return Outcome::Warning(u"Se requiere la entrada de un Método de Pago"_s, u"Datos30"_s);
  }
  return Outcome::Ok();
}

Outcome CamposPedido(const Session&, Connection&, const Documento& d, bool) {
  if (Outcome o = Requerido(d, "tipo", u"Se requiere la entrada de un tipo de pedido"_s, u"Tipo"_s);
      !o) {
    return o;
  }
  if (Outcome o = Requerido(d, "referencia",
                            u"Se requiere la entrada de una referencia de pedido"_s, u"Datos20"_s);
      !o) {
    return o;
  }
  return Requerido(d, "obs", u"Se requiere la entrada de una observación"_s, u"Datos5"_s);
}

Outcome CamposCotizacion(const Session&, Connection&, const Documento& d, bool) {
  if (Outcome o = Requerido(d, "obs", u"Se requiere la entrada de una observación"_s, u"Datos5"_s);
      !o) {
    return o;
  }
  return Requerido(d, "tipo", u"Se requiere la entrada de un tipo de unidad"_s, u"Tipo"_s);
}

// Leaving the client's field brings its agent, credit term and payment data.
Outcome DatosDelCliente(const Session&, Connection& c, Documento* d) {
  QSqlQuery q = c.Exec(u"select agente, plazo, metodo, numctapago from clientes where numero = ?"_s,
                       {Cliente(*d)});
  if (!q.next()) return Outcome::Ok();
  const QStringList columnas = {u"agente"_s, u"plazo"_s, u"metodo"_s, u"numctapago"_s};
  for (int i = 0; i < columnas.size(); ++i) {
    if (!d->encabezado.contains(columnas[i])) d->encabezado.insert(columnas[i], q.value(i));
  }
  return Outcome::Ok();
}

// The delivery note's payment data as the screen leaves it: the method's name, the account's
// last digits or "NO IDENTIFICADO", and cash or credit by the term.
Outcome DatosDePago(const Session& session, Connection& c, Documento* d) {
  if (Outcome o = DatosDelCliente(session, c, d); !o) return o;
  QVariantMap& e = d->encabezado;
  const QVariant nombre = c.Scalar(u"select nombre from metodos where numero = ?"_s,
                                   {static_cast<qint32>(Numero(e, "metodo"))});
  e.insert(u"metododepago"_s, nombre.toString());
  QString cuenta = Texto(e, "numctapago");
  if (cuenta.size() < 4) cuenta.clear();
  e.insert(u"numctapago"_s, cuenta.isEmpty() ? u"NO IDENTIFICADO"_s : cuenta);
  if (Texto(e, "condicionesdepago").isEmpty()) {
    e.insert(u"condicionesdepago"_s, Numero(e, "plazo") == 0 ? u"CONTADO"_s : u"CREDITO"_s);
  }
  return Outcome::Ok();
}

// A row of a known code takes what the screen would show: the catalogue's description and
// unit, the client's price and discount, tax, cost and commission; what the row already
// holds stays.
Outcome Completar(const Session&, Connection& c, const Documento& d, QVariantMap* p) {
  const QString codigo = Texto(*p, "codigo").toUpper();
  // The exact code first, by its index; the alternate codes only when it is not one.
  RowValues producto;
  if (QSqlQuery& exacto = c.ExecRepetida(u"select * from productos where codigo = ?"_s, {codigo});
      exacto.next()) {
    producto = RegistroLeido(exacto);
  } else {
    const mFunciones::SqlText sql = mFunciones::SqlProducto(codigo);
    QSqlQuery otro = c.Exec(sql.text, sql.values);
    if (!otro.next()) {
      return Outcome::Warning(u"Este código no existe en productos\n\n"_s + codigo, u"Fg1"_s);
    }
    producto = RegistroLeido(otro);
  }
  auto poner = [p](const char* columna, const QVariant& valor) {
    const QString nombre = QString::fromUtf8(columna);
    if (!p->contains(nombre) || p->value(nombre).toString().trimmed().isEmpty()) {
      p->insert(nombre, valor);
    }
  };
  p->insert(u"codigo"_s, producto.Text(u"codigo"_s));
  poner("descripcion", producto.Text(u"producto"_s));
  poner("unidad", producto.Text(u"unidad"_s));
  poner("cantidad", 1);
  if (!p->contains(u"precio"_s)) {
    const std::optional<mFunciones::PrecioHallado> especial =
        mFunciones::PrecioEspecial(c, Cliente(d), producto.Text(u"codigo"_s));
    const mFunciones::PrecioHallado hallado =
        especial ? *especial : mFunciones::PrecioPorCliente(c, Cliente(d), producto);
    p->insert(u"precio"_s, hallado.PrecioEncontrado);
    poner("dcto", hallado.DctoEncontrado);
  }
  poner("dcto", 0);
  poner("impuesto", producto.Number(u"impuesto"_s));
  poner("costo", producto.Number(u"costo"_s));
  poner("com", producto.Number(u"comision"_s));
  poner("surtir", Numero(*p, "cantidad"));
  return Outcome::Ok();
}

Outcome TotalizarRemision(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarRemision(c, llave);
}
Outcome TotalizarCotizacion(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarCotizacion(c, llave);
}
Outcome TotalizarPedido(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarPedido(c, llave);
}

// The orders a delivery note draws on: what is still pending, and their statuses.
Outcome SurtirPedidos(const Session&, Connection& c, const Documento&, const captura::Hechos& h) {
  if (h.fuentes.isEmpty()) return Outcome::Ok();
  return mSaldos::RecalcularSurtirPedidos(c, h.fuentes);
}

// A new or changed order's own pending quantities, against the notes already drawn on it.
Outcome SurtirPedido(const Session&, Connection& c, const Documento&, const captura::Hechos& h) {
  return mSaldos::RecalcularSurtirPedidos(c, {h.llave});
}

const QStringList kColumnasPartida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"costo"_s, u"com"_s};

}  // namespace

Outcome CompletarPartidaDeVenta(const Session& session, Connection& c, const Documento& d,
                                QVariantMap* partida) {
  return Completar(session, c, d, partida);
}

Outcome DatosDePagoDelCliente(const Session& session, Connection& c, Documento* d) {
  return DatosDePago(session, c, d);
}

Credito CreditoDe(Connection& c, qint32 cliente, int plazo, double total) {
  QSqlQuery q = c.Exec(u"select saldo, credito from clientes where numero = ?"_s, {cliente});
  const bool hay = q.next();
  return CreditoDe(hay ? q.value(0).toDouble() : 0, hay ? q.value(1).toDouble() : 0, cliente, plazo,
                   total);
}

// A cash sale, or a client without a limit, never adds to the balance shown.
Credito CreditoDe(double saldo, double credito, qint32 cliente, int plazo, double total) {
  Credito r{.saldo = saldo, .credito = credito};
  const bool a_credito = cliente != 0 && plazo != 0 && r.credito != 0;
  if (a_credito) r.saldo += total;
  r.excedido = a_credito && r.saldo > r.credito;
  return r;
}

double TotalDe(const Documento& d) {
  DocumentSums sumas;
  for (const QVariantMap& p : d.partidas) {
    if (Texto(p, "codigo").isEmpty()) continue;
    sumas.Add(ComputeRow({Numero(p, "cantidad"), Numero(p, "precio"), Numero(p, "dcto"),
                          Numero(p, "impuesto"), Numero(p, "costo"), Numero(p, "com")},
                         true));
  }
  return sumas.total;
}

const captura::FamiliaCaptura& Remisiones() {
  static const captura::FamiliaCaptura f{
      .tabla = "remisiones",
      .llave = "remision",
      .derechos = "Remisiones",
      .actual = &Session::RemisionActual,
      .serie = &Session::SerieRemisiones,
      .status_inicial = "POR FACTURAR",
      .columnas = {u"agente"_s, u"plazo"_s, u"pedido"_s, u"obs"_s, u"tipo"_s, u"referencia"_s,
                   u"orden de compra"_s, u"solicitado por"_s, u"enviar a"_s, u"metodo"_s,
                   u"metododepago"_s, u"numctapago"_s, u"condicionesdepago"_s},
      .columnas_partida = kColumnasPartida + QStringList{u"pedido"_s},
      .almacen_partida = "almacen",
      .fuente_partida = "pedido",
      .existencias = captura::Existencias::kSalida,
      .revisar_credito = LimiteDeCredito,
      .revisar_campos = CamposRemision,
      .completar_encabezado = DatosDePago,
      .completar = Completar,
      .totalizar = TotalizarRemision,
      .recalcular = SurtirPedidos,
  };
  return f;
}

const captura::FamiliaCaptura& Cotizaciones() {
  static const captura::FamiliaCaptura f{
      .tabla = "cotizaciones",
      .llave = "cotizacion",
      .derechos = "Cotizaciones",
      .actual = &Session::CotizacionActual,
      .serie = &Session::SerieCotizaciones,
      .status_inicial = "ALTA",
      .columnas = {u"agente"_s, u"plazo"_s, u"obs"_s, u"tipo"_s, u"referencia"_s},
      .columnas_partida = kColumnasPartida,
      .almacen_partida = "tienda",
      .revisar_campos = CamposCotizacion,
      .completar_encabezado = DatosDelCliente,
      .completar = Completar,
      .totalizar = TotalizarCotizacion,
  };
  return f;
}

const captura::FamiliaCaptura& Pedidos() {
  static const captura::FamiliaCaptura f{
      .tabla = "pedidos",
      .llave = "pedido",
      .derechos = "Pedidos",
      .actual = &Session::PedidoActual,
      .serie = &Session::SeriePedidos,
      .status_inicial = "POR SURTIR",
      .columnas = {u"agente"_s, u"plazo"_s, u"obs"_s, u"tipo"_s, u"referencia"_s},
      .columnas_partida = kColumnasPartida + QStringList{u"surtir"_s},
      .almacen_partida = "tienda",
      .con_costo = false,
      .revisar_credito = LimiteDeCredito,
      .revisar_campos = CamposPedido,
      .completar_encabezado = DatosDelCliente,
      .completar = Completar,
      .totalizar = TotalizarPedido,
      .recalcular = SurtirPedido,
  };
  return f;
}

const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla) {
  for (const captura::FamiliaCaptura* f :
       {&Remisiones(), &Cotizaciones(), &Pedidos(), &CxC(), &Facturas(), &NotasCliente()}) {
    if (tabla.compare(QString::fromUtf8(f->tabla), Qt::CaseInsensitive) == 0) return f;
  }
  return nullptr;
}

}  // namespace ventarix::ventas
