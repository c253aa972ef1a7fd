#include "catalogs/productos.h"

#include <QSqlQuery>

#include "catalogs/guardado.h"
#include "catalogs/productos_codigos.h"
#include "catalogs/productos_listas.h"
#include "core/database.h"
#include "core/mFunciones_valores.h"
#include "core/usuarios.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

namespace {

// The columns a save writes, in the order of Valores().
const QStringList& Columnas() {
  static const QStringList kColumnas = {
      u"producto"_s,  u"unidad"_s,    u"marca"_s,     u"linea"_s,     u"ubicacion"_s,
      u"precio"_s,    u"impuesto"_s,  u"costo"_s,     u"venta"_s,     u"comision"_s,
      u"descuento"_s, u"min"_s,       u"max"_s,       u"zona"_s,      u"descripcion"_s,
      u"codigo1"_s,   u"codigo2"_s,   u"codigo3"_s,   u"utilidad1"_s, u"utilidad2"_s,
      u"utilidad3"_s, u"utilidad4"_s, u"utilidad5"_s, u"precio1"_s,   u"precio2"_s,
      u"precio3"_s,   u"precio4"_s,   u"precio5"_s,   u"moneda"_s,    u"pt"_s,
      u"status"_s,    u"codigo"_s};
  return kColumnas;
}

QString Texto(const QString& valor) { return mFunciones::ValorTexto(valor); }

QVariantList Valores(const RowValues& empresa, const Producto& p,
                     const std::optional<catalogs::NivelesGuardados>& guardado) {
  const QString zona = Texto(p.zona).isEmpty() ? u"ZONA00"_s : Texto(p.zona);
  QVariantList v{Texto(p.producto),
                 Texto(p.unidad),
                 p.marca,
                 p.linea,
                 Texto(p.ubicacion),
                 p.precio,
                 p.impuesto,
                 p.costo,
                 p.venta,
                 p.comision,
                 p.descuento,
                 p.min,
                 p.max,
                 zona,
                 Texto(p.descripcion),
                 Texto(p.codigo1),
                 Texto(p.codigo2),
                 Texto(p.codigo3)};
  for (double u : p.utilidades) v << u;
  for (double precio : PreciosAGuardar(empresa, p, guardado)) v << precio;
  const QString moneda = Texto(p.moneda).isEmpty() ? u"MXN"_s : Texto(p.moneda);
  v << moneda << (p.pt ? u"S"_s : u"N"_s) << (p.status == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s)
    << Texto(p.codigo);
  return v;
}

// The cost, margins and level prices the product holds; nothing when there is no such code.
std::optional<catalogs::NivelesGuardados> LeerNiveles(Connection& c, const QString& codigo) {
  QSqlQuery q = c.Exec(
      u"select costo, utilidad1, utilidad2, utilidad3, utilidad4, utilidad5, precio1, precio2, "
      u"precio3, precio4, precio5 from productos where codigo = ?"_s,
      {codigo});
  if (!q.next()) return std::nullopt;
  catalogs::NivelesGuardados guardado{.costo = q.value(0).toDouble()};
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    guardado.utilidades[k] = q.value(1 + k).toDouble();
    guardado.precios[k] = q.value(1 + catalogs::kNiveles + k).toDouble();
  }
  return guardado;
}

Outcome RevisarBaja(const Session& session, Connection& c, const Producto& p) {
  return catalogs::RevisarBaja(session, c, u"Productos"_s, u"productos"_s, u"codigo"_s,
                               Texto(p.codigo), p.status);
}

}  // namespace

std::array<double, catalogs::kNiveles> PreciosAGuardar(
    const RowValues& empresa, const Producto& producto,
    const std::optional<catalogs::NivelesGuardados>& guardado) {
  const catalogs::Niveles niveles =
      catalogs::NivelesDeProducto(catalogs::FormulaDeEmpresa(empresa), guardado, producto.costo,
                                  producto.impuesto, producto.utilidades);
  std::array<double, catalogs::kNiveles> precios = producto.precios;
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    if (niveles[k].precio) precios[k] = *niveles[k].precio;
  }
  return precios;
}

Outcome RevisarProducto(const Session& session, const Producto& p, bool alta) {
  const Outcome permiso = mFunciones::TienePermiso(session, u"Productos"_s, alta ? u"A"_s : u"C"_s);
  if (!permiso) return permiso;
  if (Outcome reservado = RevisarCodigoReservado(p.codigo, u"Codigo"_s); !reservado) {
    return reservado;
  }
  if (p.marca == 0) return Outcome::Warning(u"Se requiere la entrada de una marca"_s, u"Marca"_s);
  if (p.linea == 0) return Outcome::Warning(u"Se requiere la entrada de una línea"_s, u"Linea"_s);
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  const std::array<std::pair<QString, QString>, 3> alternos = {
      {{p.codigo1, u"Codigo1"_s}, {p.codigo2, u"Codigo2"_s}, {p.codigo3, u"Codigo3"_s}}};
  for (const auto& [alterno, campo] : alternos) {
    if (Outcome revision = RevisarCodigoAlterno(c, p.codigo, alterno, campo); !revision) {
      return revision;
    }
  }
  if (!alta) return Outcome::Ok();
  if (Texto(p.codigo).isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un código"_s, u"Codigo"_s);
  }
  if (ExisteCodigo(c, Texto(p.codigo))) {
    return Outcome::Warning(u"Este código ya existe en el catálogo de productos"_s, u"Codigo"_s);
  }
  return Outcome::Ok();
}

Outcome AltaProducto(const Session& session, const Producto& p) {
  if (Outcome revision = RevisarProducto(session, p, true); !revision) return revision;
  Connection c(session.Cadena);
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome baja = RevisarBaja(session, c, p); !baja) return baja;
  const QStringList& columnas = Columnas();
  const QString marcas = QStringList(columnas.size(), u"?"_s).join(u", "_s);
  QString error;
  const bool ok = c.Run(u"insert into productos ("_s + columnas.join(u", "_s) + u") values ("_s +
                            marcas + u")"_s,
                        Valores(session.empresa, p, std::nullopt), &error) &&
                  EscribirPreciosClientes(c, Texto(p.codigo), p.precios_clientes, &error) &&
                  EscribirConsumos(c, Texto(p.codigo), p.consumos, &error);
  if (!ok || !t.Commit()) return catalogs::ErrorAlGuardar(c, error);
  return Outcome::Ok();
}

Outcome CambioProducto(const Session& session, const Producto& cambiado) {
  if (Outcome revision = RevisarProducto(session, cambiado, false); !revision) return revision;
  Connection c(session.Cadena);
  const std::optional<catalogs::NivelesGuardados> guardado = LeerNiveles(c, Texto(cambiado.codigo));
  if (!guardado) {
    return Outcome::Refuse(u"Este código no existe en el catálogo de productos"_s, u"Codigo"_s);
  }
  // A user barred from costs keeps the stored one, and the levels are priced from it.
  Producto p = cambiado;
  if (!usuarios::PuedeModificar(session, u"ModificarCosto"_s)) p.costo = guardado->costo;
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome baja = RevisarBaja(session, c, p); !baja) return baja;
  QStringList asignaciones;
  for (const QString& columna : Columnas().mid(0, Columnas().size() - 1)) {
    asignaciones << columna + u" = ?"_s;
  }
  QString error;
  bool ok = c.Run(u"update productos set "_s + asignaciones.join(u", "_s) + u" where codigo = ?"_s,
                  Valores(session.empresa, p, guardado), &error);
  if (ok && p.precios_clientes_cambiados) {
    ok = EscribirPreciosClientes(c, Texto(p.codigo), p.precios_clientes, &error);
  }
  if (ok && p.consumos_cambiados) ok = EscribirConsumos(c, Texto(p.codigo), p.consumos, &error);
  if (!ok || !t.Commit()) return catalogs::ErrorAlGuardar(c, error);
  return Outcome::Ok();
}

}  // namespace ventarix::productos
