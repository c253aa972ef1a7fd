#include "documents/mInventario.h"

#include <QRegularExpression>
#include <QSqlQuery>

#include "core/dialect.h"
#include "documents/set_statements.h"

namespace ventarix::mInventario {

namespace {

using namespace Qt::StringLiterals;

// Codes bound into one "in (...)" list; keeps well inside the engines' limits on bound values.
constexpr qsizetype kCodigosPorSentencia = 500;

QString Columna(int almacen) { return u"almacen%1"_s.arg(almacen); }

bool Fallo(QString* error, const QString& text) {
  if (error) *error = text;
  return false;
}

// Table stems and key columns are the program's own names, never typed by a user; anything
// else is refused before it reaches a statement.
bool NombreValido(const QString& name) {
  static const QRegularExpression kNombre(u"^[a-z][a-z ]*$"_s);
  return kNombre.match(name).hasMatch();
}

bool Confirmar(Transaction& transaction, QString* error) {
  return transaction.Commit() || Fallo(error, transaction.error());
}

QString Detalles(const QString& tabla) { return dialect::Name(tabla + u" detalles"_s); }

// Runs `statement` for the codes: once for every product, or once per slice of the list with
// " where codigo in (...)" appended. A list of nothing runs nothing.
bool RunForCodigos(Connection& connection, const QString& statement, const QVariantList& values,
                   const Codigos& codigos, QString* error) {
  Transaction transaction(connection);
  if (!transaction.ok()) return Fallo(error, transaction.error());
  if (!TurnoDeRecalculo(connection, error)) return false;
  if (!codigos) return connection.Run(statement, values, error) && Confirmar(transaction, error);
  for (qsizetype first = 0; first < codigos->size(); first += kCodigosPorSentencia) {
    const QStringList slice = codigos->mid(first, kCodigosPorSentencia);
    QVariantList bound = values;
    for (const QString& codigo : slice) bound << codigo;
    QStringList marks(slice.size(), u"?"_s);
    const QString text = statement + u" where codigo in ("_s + marks.join(u',') + u')';
    if (!connection.Run(text, bound, error)) return false;
  }
  return Confirmar(transaction, error);
}

// What a family's row moves: its quantity expression, and whether only the rows of the
// warehouse being moved count (purchases name the warehouse on each row).
struct Familia {
  QString cantidad = u"d.cantidad"_s;
  bool por_almacen = false;
};

Familia FamiliaDe(const QString& tabla) {
  if (tabla == u"ajustes de inventario") return {u"(d.entradas - d.salidas)"_s, false};
  if (tabla == u"produccion") return {u"d.consumo"_s, false};
  if (tabla == u"compras") return {u"d.cantidad"_s, true};
  return {};
}

}  // namespace

QStringList ListaCodigosDocumento(Connection& connection, const QString& tabla,
                                  const QString& columna_clave, const QString& clave,
                                  QString* error) {
  QStringList codigos;
  if (!NombreValido(tabla) || !NombreValido(columna_clave)) {
    Fallo(error, u"Tabla no válida: "_s + tabla);
    return codigos;
  }
  QSqlQuery query =
      connection.Exec(u"select codigo from "_s + Detalles(tabla) + u" where "_s +
                          dialect::Name(columna_clave) + u" = ? group by codigo order by codigo"_s,
                      {clave});
  if (!query.isActive()) {
    Fallo(error, QueryError(query));
    return codigos;
  }
  while (query.next()) codigos << query.value(0).toString();
  return codigos;
}

bool RecalcularExistencias(Connection& connection, int almacen, const Codigos& codigos,
                           QString* error) {
  if (almacen == 1) {
    return RecalcularAlmacen(connection, codigos, 1, error) &&
           RecalcularProduccion(connection, codigos, error);
  }
  if (almacen >= 2 && almacen <= 5) return RecalcularAlmacen(connection, codigos, almacen, error);
  for (int n = 1; n <= 5; ++n) {
    if (!RecalcularAlmacen(connection, codigos, n, error)) return false;
  }
  return RecalcularProduccion(connection, codigos, error);
}

bool RecalcularAlmacen(Connection& connection, const Codigos& codigos, int almacen,
                       QString* error) {
  if (almacen < 1 || almacen > 5) return Fallo(error, u"Almacén no válido: %1"_s.arg(almacen));
  // An expense ('GASTOS') names the store on its rows but brought nothing into it.
  // The column is computed outright from sums by product, so a product on many rows counts
  // every row and nothing needs zeroing first. Transfers keep their warehouses as text. The
  // warehouse tests are written as expressions so that the engine finds the rows by product
  // code: an index on the warehouse alone would read a whole warehouse for every product.
  QString text =
      u"update productos set "_s + Columna(almacen) +
      u" = "_s
      u"coalesce((select sum(d.cantidad) from \"compras detalles\" d"
      u" where d.codigo = productos.codigo and d.almacen + 0 = ?"
      u" and not exists (select 1 from compras c where c.compra = d.compra"
      u" and c.movimiento = 'GASTOS')), 0)"
      u" + coalesce((select sum(d.entradas - d.salidas) from \"ajustes de inventario detalles\" d"
      u" where d.codigo = productos.codigo and d.almacen + 0 = ?), 0)"
      u" - coalesce((select sum(d.cantidad) from \"remisiones detalles\" d"
      u" where d.codigo = productos.codigo and d.almacen + 0 = ?), 0)"
      u" - coalesce((select sum(d.cantidad) from \"traspasos detalles\" d"
      u" where d.codigo = productos.codigo and d.de || '' = ?), 0)"
      u" + coalesce((select sum(d.cantidad) from \"traspasos detalles\" d"
      u" where d.codigo = productos.codigo and d.a || '' = ?), 0)"_s;
  const QString numero = QString::number(almacen);
  QVariantList values{almacen, almacen, almacen, numero, numero};
  if (almacen == 1) {
    // Returns on invoices of products come back to warehouse 1, whatever store sold them.
    text +=
        u" + coalesce((select sum(d.cantidad) from \"notas cliente detalles\" d, facturas f"
        u" where d.codigo = productos.codigo and d.factura = f.factura"
        u" and f.depto = 'PRODUCTOS'), 0)"_s;
  }
  text +=
      u" - coalesce((select sum(d.cantidad) from \"notas proveedor detalles\" d, compras c"
      u" where d.codigo = productos.codigo and d.compra = c.compra"
      u" and c.movimiento = ?), 0)"_s;
  values << u"ALMACEN"_s + numero;
  return RunForCodigos(connection, text, values, codigos, error);
}

bool RecalcularProduccion(Connection& connection, const Codigos& codigos, QString* error) {
  // SQLite companies count a finished product once its order is closed; PostgreSQL companies
  // count every order. The two have always differed here and are kept so.
  const QString cerrada = connection.sql() ? QString() : u" and o.termino is not null"_s;
  const QString text =
      u"update productos set almacen1 = coalesce(almacen1, 0)"
      u" - coalesce((select sum(d.consumo) from \"produccion detalles\" d"
      u" where d.codigo = productos.codigo), 0)"
      u" + coalesce((select sum(o.cantidad) from produccion o"
      u" where o.codigo = productos.codigo"_s +
      cerrada + u"), 0)"_s;
  return RunForCodigos(connection, text, {}, codigos, error);
}

bool ActualizarExistencias(Connection& connection, const QString& tabla,
                           const QString& columna_clave, const QString& clave, int almacen,
                           int signo, QString* error) {
  if (almacen < 1 || almacen > 5) return Fallo(error, u"Almacén no válido: %1"_s.arg(almacen));
  if (!NombreValido(tabla) || !NombreValido(columna_clave)) {
    return Fallo(error, u"Tabla no válida: "_s + tabla);
  }
  const Familia familia = FamiliaDe(tabla);
  const QString filas = u" from "_s + Detalles(tabla) + u" d where d."_s +
                        dialect::Name(columna_clave) + u" = ?"_s +
                        (familia.por_almacen ? u" and d.almacen = ?"_s : QString());
  QVariantList filtro{clave};
  if (familia.por_almacen) filtro << almacen;
  const QString columna = Columna(almacen);
  const QString text = u"update productos set "_s + columna + u" = coalesce("_s + columna +
                       u", 0) "_s + (signo < 0 ? u'-' : u'+') + u" coalesce((select sum("_s +
                       familia.cantidad + u')' + filas +
                       u" and d.codigo = productos.codigo), 0)"
                       u" where codigo in (select d.codigo"_s +
                       filas + u')';
  return RunInTransaction(connection, text, filtro + filtro, error);
}

bool ActualizarExistenciasProduccion(Connection& connection, const QString& clave, int signo,
                                     QString* error) {
  const QString text =
      u"update productos set almacen1 = coalesce(almacen1, 0) "_s + (signo < 0 ? u'-' : u'+') +
      u" coalesce((select sum(o.cantidad) from produccion o"
      u" where o.produccion = ? and o.codigo = productos.codigo), 0)"
      u" where codigo in (select o.codigo from produccion o where o.produccion = ?)"_s;
  return RunInTransaction(connection, text, {clave, clave}, error);
}

}  // namespace ventarix::mInventario
