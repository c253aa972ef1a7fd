// Purchases: what they add to the capture engine.
#include "purchasing/familia_compras.h"

#include <optional>

#include <QSqlError>
#include <QSqlQuery>

#include "catalogs/mFunciones_precios.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/registro_leido.h"
#include "documents/captura_filas.h"
#include "documents/mSaldos.h"

namespace ventarix::compras {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

using captura::Numero;
using captura::Texto;

qint32 Proveedor(const Documento& d) {
  return static_cast<qint32>(Numero(d.encabezado, "proveedor"));
}

int Almacen(const Documento& d) { return AlmacenDeMovimiento(Texto(d.encabezado, "movimiento")); }

Outcome Campos(const Session&, Connection&, const Documento& d, bool) {
  if (Texto(d.encabezado, "tipo").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un tipo de compra"_s, u"Tipo"_s);
  }
  if (Texto(d.encabezado, "remision").isEmpty() && Texto(d.encabezado, "factura").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de una remisión o una factura"_s, u"Datos2"_s);
  }
  if (Texto(d.encabezado, "obs").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de una observación"_s, u"Datos5"_s);
  }
  // The screen offers only the list; a document from elsewhere may name anything.
  const QString movimiento = Texto(d.encabezado, "movimiento");
  const int almacen = AlmacenDeMovimiento(movimiento);
  if (movimiento != QLatin1String(kGastos) && (almacen < 1 || almacen > 5)) {
    return Outcome::Warning(
        u"Movimiento no válido: \"%1\" (ALMACEN1 a ALMACEN5 o GASTOS)"_s.arg(movimiento),
        u"Movimiento"_s);
  }
  return Outcome::Ok();
}

// Movimiento as the list writes it, in upper case: the stock rebuild tells an expense by it.
Outcome MovimientoEnMayusculas(const Session&, Connection&, Documento* d) {
  d->encabezado.insert(u"movimiento"_s, Texto(d->encabezado, "movimiento").toUpper());
  return Outcome::Ok();
}

// A row of a known code takes the catalogue's description, unit and tax, and its cost as the
// price when none is typed; an unknown code keeps what was typed (an expense's free row).
Outcome Completar(const Session& session, Connection& c, const Documento&, QVariantMap* p) {
  const QString codigo = Texto(*p, "codigo").toUpper();
  // The exact code first, by its index and a statement prepared once; the alternate codes
  // only when it is not one.
  std::optional<RowValues> hallado;
  if (QSqlQuery& exacto = c.ExecRepetida(u"select * from productos where codigo = ?"_s, {codigo});
      exacto.next()) {
    hallado = RegistroLeido(exacto);
  } else {
    const mFunciones::SqlText sql = mFunciones::SqlProducto(codigo);
    if (QSqlQuery otro = c.Exec(sql.text, sql.values); otro.next()) hallado = RegistroLeido(otro);
  }
  if (hallado) {
    const RowValues& producto = *hallado;
    auto poner = [p](const char* columna, const QVariant& valor) {
      const QString nombre = QString::fromUtf8(columna);
      if (p->value(nombre).toString().trimmed().isEmpty()) p->insert(nombre, valor);
    };
    p->insert(u"codigo"_s, producto.Text(u"codigo"_s));
    poner("descripcion", producto.Text(u"producto"_s));
    poner("unidad", producto.Text(u"unidad"_s));
    poner("precio", producto.Number(u"costo"_s));
    poner("impuesto", producto.Number(u"impuesto"_s));
  }
  if (!p->contains(u"cantidad"_s)) p->insert(u"cantidad"_s, 1);
  p->insert(u"tienda"_s, session.Tienda);
  return Outcome::Ok();
}

Outcome Totalizar(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarCompra(c, llave);
}

// Each row of a known product, in order, makes the supplier its last one (the former moves
// to proveedor2), its price the last cost and the purchase's date the last purchase's; then
// the cost and prices follow by the company's rules. So of two rows of one product the later
// one's price stays.
Outcome UltimaCompra(const Session& session, Connection& c, const Documento& d) {
  const QVariant fecha = dialect::DateValue(captura::FechaDe(d).date(), session.Sql);
  for (const QVariantMap& p : d.partidas) {
    const QString codigo = Texto(p, "codigo").toUpper();
    if (codigo.isEmpty()) continue;
    // The same statement for every row: prepared once per save.
    QSqlQuery& q = c.ExecRepetida(
        u"update productos set proveedor2 = proveedor1, proveedor1 = ?, "
        u"\"ultimo costo\" = ?, \"fecha ultima compra\" = ? where codigo = ?"_s,
        {Proveedor(d), Numero(p, "precio"), fecha, codigo});
    if (q.lastError().isValid()) return Outcome::Stop(QueryError(q));
    if (Outcome o =
            mFunciones::ActualizarCostoDesdeCompra(c, session.empresa, codigo, Numero(p, "precio"));
        !o) {
      return o;
    }
  }
  return Outcome::Ok();
}

// The expiry date is written only on the rows that give one; the others keep it null.
Outcome Caducidades(const Session& session, Connection& c, const Documento& d,
                    const QString& llave) {
  int item = 0;
  for (const QVariantMap& p : d.partidas) {
    if (Texto(p, "codigo").isEmpty()) continue;
    ++item;
    const QDate caducidad = p.value(u"caducidad"_s).toDate();
    if (!caducidad.isValid()) continue;
    QString error;
    if (!c.Run(u"update \"compras detalles\" set caducidad = ? where compra = ? and item = ?"_s,
               {dialect::DateValue(caducidad, session.Sql), llave, item}, &error)) {
      return Outcome::Stop(error);
    }
  }
  return Outcome::Ok();
}

Outcome Recalcular(const Session& session, Connection& c, const Documento& d,
                   const captura::Hechos& h) {
  if (Outcome o = Caducidades(session, c, d, h.llave); !o) return o;
  if (Almacen(d) > 0) {
    if (Outcome o = UltimaCompra(session, c, d); !o) return o;
  }
  if (Outcome o = mSaldos::RecalcularSaldosCompras(c, {h.llave}); !o) return o;
  if (Outcome o = mSaldos::RecalcularSaldoProveedores(c, Proveedor(d)); !o) return o;
  if (!h.alta && h.socio_anterior != Proveedor(d)) {
    if (Outcome o = mSaldos::RecalcularSaldoProveedores(c, h.socio_anterior); !o) return o;
  }
  if (h.fuentes.isEmpty()) return Outcome::Ok();
  return mSaldos::RecalcularSurtirOrdenes(c, h.fuentes);
}

}  // namespace

Outcome CompletarPartidaDeCompra(const Session& session, Connection& c, const Documento& d,
                                 QVariantMap* partida) {
  return Completar(session, c, d, partida);
}

int AlmacenDeMovimiento(const QString& movimiento) {
  const QString m = movimiento.trimmed().toUpper();
  if (!m.startsWith(u"ALMACEN"_s)) return 0;
  bool ok = false;
  const int n = m.mid(7).toInt(&ok);
  return ok && n > 0 ? n : 0;
}

const captura::FamiliaCaptura& Compras() {
  static const captura::FamiliaCaptura f{
      .tabla = "compras",
      .llave = "compra",
      .derechos = "Compras",
      .actual = &Session::CompraActual,
      .serie = &Session::SerieCompras,
      .status_inicial = "POR PAGAR",
      .socio = "proveedor",
      .columnas = {u"remision"_s, u"factura"_s, u"plazo"_s, u"obs"_s, u"tipo"_s, u"movimiento"_s},
      .columnas_partida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"posicion"_s, u"tienda"_s},
      .almacen_partida = "almacen",
      .fuente_partida = "orden",
      .con_costo = false,
      .existencias = captura::Existencias::kEntrada,
      .almacen = Almacen,
      .checar_entrada = true,
      .revisar_campos = Campos,
      .completar_encabezado = MovimientoEnMayusculas,
      .completar = Completar,
      .totalizar = Totalizar,
      .recalcular = Recalcular,
  };
  return f;
}

const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla) {
  if (tabla.compare(QString::fromUtf8(Compras().tabla), Qt::CaseInsensitive) == 0) {
    return &Compras();
  }
  return nullptr;
}

}  // namespace ventarix::compras
