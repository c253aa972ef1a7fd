// Look-ups of the product catalogue: the main list, a client's prices, stock per warehouse,
// finished goods, the point of sale's lists and the stock per location.
#include <algorithm>

#include "core/ayuda_peticiones.h"
#include "core/browse_filter.h"

namespace ventarix::ayuda::detalle {

namespace {

// The code of the prompt-payment discount row of a credit note: not a product, nothing to
// choose.
constexpr char16_t kDescuentoProntoPago[] = u"DPPP";

PeticionAyuda Ubicaciones() {
  PeticionAyuda p = Nueva(QStringLiteral("Ubicaciones"),
                          QStringLiteral("select ubicacion, sum(almacen1) from productos"),
                          QStringLiteral(" group by ubicacion order by ubicacion"));
  p.columnas = {Texto(QStringLiteral("Ubicación"), 2500),
                Cifra(QStringLiteral("Existencias"), 1500, QString::fromLatin1(kDinero))};
  return p;
}

// Companies that number codes by brand ("12-00045") read their list by brand and code; the
// others by finished goods first, then by name.
QString OrdenDeProductos(const Session& session) {
  return session.empresa.Flag(QStringLiteral("utilizar_consecutivo_en_codigo"))
             ? QStringLiteral(" order by marca, codigo")
             : QStringLiteral(" order by pt, producto");
}

std::optional<PeticionAyuda> Productos(const Session& session, const ParametrosAyuda& param) {
  PeticionAyuda p = Nueva(QStringLiteral("Productos"),
                          QStringLiteral("select codigo, marca, producto, unidad, almacen1, "
                                         "almacen2, pt, costo, venta from productos"),
                          OrdenDeProductos(session));
  const QString codigo = param.codigo.trimmed();
  if (codigo.toUpper() == kDescuentoProntoPago) {
    p.inmediata = true;
    p.resultado_inmediato = QString::fromUtf16(kDescuentoProntoPago);
  } else if (!codigo.isEmpty()) {
    p.restriccion = mBrowse::Contiene(session.Sql ? Engine::kPostgres : Engine::kSqlite,
                                      QStringLiteral("codigo"), codigo);
  } else {
    p.restriccion = PrimeraMarca(session, {});
  }
  p.columnas = {Texto(QStringLiteral("Código <F2>"), 1500),
                Cifra(QStringLiteral("Marca <F3>"), 900),
                Texto(QStringLiteral("Producto <F4>"), 4600),
                Texto(QStringLiteral("Uda"), 900),
                Cifra(QStringLiteral("Almacen1 Existencia"), 1300, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Almacen2 Existencia"), 1300, QString::fromLatin1(kDinero)),
                Texto(QStringLiteral("Producto Terminado"), 900),
                Cifra(QStringLiteral("Costo $"), 1200, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Venta $"), 1200, QString::fromLatin1(kDinero))};
  p.busquedas = BusquedasDeProducto({});
  return p;
}

// The prices agreed with one client.
PeticionAyuda ProductosPrecios(const ParametrosAyuda& param) {
  PeticionAyuda p = Nueva(QStringLiteral("Productos Precios"),
                          QStringLiteral("select e.codigo, p.marca, p.producto, p.unidad, "
                                         "p.almacen1, e.precio "
                                         "from productos p, \"productos precios\" e"),
                          QStringLiteral(" order by e.codigo"));
  p.fija = QStringLiteral("e.codigo = p.codigo and e.cliente = ?");
  p.valores_fijos = {param.cliente};
  p.columnas = {Texto(QStringLiteral("Código"), 1500),
                Cifra(QStringLiteral("Marca"), 900),
                Texto(QStringLiteral("Producto"), 4600),
                Texto(QStringLiteral("Uda"), 900),
                Cifra(QStringLiteral("Almacen1 Existencia"), 1300, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Precio $"), 1200, QString::fromLatin1(kDinero))};
  return p;
}

PeticionAyuda Productos2(const Session& session) {
  PeticionAyuda p = Nueva(QStringLiteral("Productos"),
                          QStringLiteral("select codigo, marca, producto, almacen1, costo, venta, "
                                         "zona from productos"),
                          QStringLiteral(" order by producto"));
  p.restriccion = PrimeraMarca(session, {});
  p.columnas = {Texto(QStringLiteral("Codigo <F2>"), 1500),
                Cifra(QStringLiteral("Marca <F3>"), 900),
                Texto(QStringLiteral("Producto <F4>"), 4600),
                Cifra(QStringLiteral("Existen"), 1200, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Costo $"), 1200, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Venta $"), 1200, QString::fromLatin1(kDinero)),
                Texto(QStringLiteral("Zona"), 900)};
  p.busquedas = BusquedasDeProducto({});
  return p;
}

// Code, brand name and product, then the given stock columns.
PeticionAyuda ConMarca(const Session& session, const QString& titulo, const QString& columnas) {
  const QString r = QStringLiteral("r.");
  PeticionAyuda p = Nueva(titulo,
                          QStringLiteral("select r.codigo, m.nombre, r.producto, ") + columnas +
                              QStringLiteral(" from productos r, marcas m"),
                          QStringLiteral(" order by r.codigo"));
  p.fija = QStringLiteral("r.marca = m.numero");
  p.restriccion = PrimeraMarca(session, r);
  p.columnas = {Texto(QStringLiteral("Código <F2>"), 1500),
                Texto(QStringLiteral("Marca <F3>"), 1800),
                Texto(QStringLiteral("Producto <F4>"), 4600)};
  p.busquedas = BusquedasDeProducto(r);
  return p;
}

PeticionAyuda ProductosAlmacenes(const Session& session) {
  PeticionAyuda p = ConMarca(session, QStringLiteral("Productos Almacenes"),
                             QStringLiteral("r.almacen1, r.almacen2, r.almacen3, r.almacen4, "
                                            "r.almacen5"));
  for (int i = 1; i <= 5; ++i) {
    p.columnas.push_back(
        Cifra(QStringLiteral("Almacen%1").arg(i), 1100, QString::fromLatin1(kDinero)));
  }
  return p;
}

PeticionAyuda Produccion(const Session& session) {
  PeticionAyuda p = ConMarca(session, QStringLiteral("Producto Terminado"),
                             QStringLiteral("r.unidad, r.almacen1, r.almacen2, r.almacen3, "
                                            "r.costo, r.venta"));
  p.fija += QStringLiteral(" and r.pt = 'S'");
  p.columnas.push_back(Texto(QStringLiteral("Uda"), 900));
  for (int i = 1; i <= 3; ++i) {
    p.columnas.push_back(
        Cifra(QStringLiteral("Almacen%1").arg(i), 1100, QString::fromLatin1(kDinero)));
  }
  p.columnas.push_back(Cifra(QStringLiteral("Costo $"), 1200, QString::fromLatin1(kDinero)));
  p.columnas.push_back(Cifra(QStringLiteral("Venta $"), 1200, QString::fromLatin1(kDinero)));
  return p;
}

// The point of sale's lists: the text typed so far narrows them by name or by code, the
// stock shown is the user's store's, and the price is the one with tax.
PeticionAyuda ProductosTpv(const Session& session, const ParametrosAyuda& param, bool por_codigo) {
  const int almacen = std::clamp(session.Tienda, 1, 5);
  PeticionAyuda p =
      Nueva(por_codigo ? QStringLiteral("Produtos Tpv") : QStringLiteral("Productos Tpv"),
            QStringLiteral("select codigo, marca, producto, impuesto, ubicacion, almacen%1, precio "
                           "from productos")
                .arg(almacen),
            por_codigo ? QStringLiteral(" order by marca,codigo limit 32767")
                       : QStringLiteral(" order by producto limit 32767"));
  const QString columna = por_codigo ? QStringLiteral("codigo") : QStringLiteral("producto");
  p.restriccion = mBrowse::Contiene(session.Sql ? Engine::kPostgres : Engine::kSqlite, columna,
                                    param.codigo.trimmed());
  p.columnas = {Texto(QStringLiteral("Código"), 1500),
                Cifra(QStringLiteral("Marca"), 900),
                Texto(QStringLiteral("Producto"), 4600),
                Cifra(QStringLiteral("Impuesto %"), 1000, QString::fromLatin1(kDinero)),
                Texto(QStringLiteral("Ubicación"), 1200),
                Cifra(QStringLiteral("Existencia"), 1200, QString::fromLatin1(kDinero)),
                Cifra(QStringLiteral("Precio Neto $"), 1300, QString::fromLatin1(kDinero))};
  return p;
}

}  // namespace

std::optional<PeticionAyuda> PeticionProducto(const Session& session, const QString& palabra,
                                              const ParametrosAyuda& parametros) {
  if (palabra == u"PRODUCTOS") return Productos(session, parametros);
  if (palabra == u"UBICACIONES") return Ubicaciones();
  if (palabra == u"PRODUCTOS PRECIOS") return ProductosPrecios(parametros);
  if (palabra == u"PRODUCTOS 2") return Productos2(session);
  if (palabra == u"PRODUCTOS ALMACENES") return ProductosAlmacenes(session);
  if (palabra == u"PRODUCCION") return Produccion(session);
  if (palabra == u"PRODUCTOS TPV X PRODUCTO") return ProductosTpv(session, parametros, false);
  if (palabra == u"PRODUCTOS TPV X CODIGO") return ProductosTpv(session, parametros, true);
  return std::nullopt;
}

}  // namespace ventarix::ayuda::detalle
