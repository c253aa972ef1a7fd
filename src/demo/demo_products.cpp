#include <cmath>

#include <QDateTime>
#include <QPair>
#include <QString>

#include "core/dialect.h"
#include "demo/demo_catalog.h"
#include "demo/demo_tables.h"

// Lines, brands and the products of the demo shop. Prices follow the company's arithmetic
// rule from each product's cost and its brand's margins, as a brand recalculation leaves
// them.
namespace ventarix::demo {

namespace {

const char* const kUtilidades[] = {"utilidad1", "utilidad2", "utilidad3", "utilidad4", "utilidad5"};
const char* const kPrecios[] = {"precio1", "precio2", "precio3", "precio4", "precio5"};
const char* const kAlmacenes[] = {"almacen1", "almacen2", "almacen3", "almacen4", "almacen5"};

// The cost of the variant-th size, dearer by the article's step for each size, with a few
// percent of noise.
qint64 CostoEnCentavos(Dice& dice, const Articulo& a, int variante) {
  const qint64 escalon = static_cast<qint64>(a.centavos) * (100 + a.paso * variante) / 100;
  return escalon * dice.Between(95, 105) / 100;
}

// Stock in each of the five warehouses; the main store always holds some.
Fila Existencias(Dice& dice, qint64 costo) {
  const bool caro = costo > 50000;
  Fila stock{{kAlmacenes[0], static_cast<double>(caro ? dice.Between(2, 8) : dice.Between(6, 90))}};
  for (int k = 1; k < 5; ++k) {
    stock.append({kAlmacenes[k], static_cast<double>(dice.Between(0, (caro ? 4 : 40) / k))});
  }
  return stock;
}

// The five price levels and their margins, and the sale price with and without tax.
Fila Precios(const Marca& marca, double costo, int impuesto) {
  Fila precios;
  for (int k = 0; k < 5; ++k)
    precios.append({kPrecios[k], PriceAtMargin(costo, marca.utilidades[k])});
  for (int k = 0; k < 5; ++k) precios.append({kUtilidades[k], double(marca.utilidades[k])});
  const double precio1 = precios[0].valor.toDouble();
  const double con_impuesto = std::round(precio1 * (100 + impuesto) * 100.0) / 10000.0;
  precios += Fila{{"venta", precio1}, {"precio", con_impuesto}, {"impuesto", double(impuesto)}};
  return precios;
}

// Short name with the size, and the long one with the packing and the brand.
QPair<QString, QString> Nombres(const Articulo& a, const QString& variante, const Marca& marca) {
  const QString nombre = Texto(a.nombre);
  const qsizetype coma = nombre.indexOf(QStringLiteral(", "));
  const QString producto = (coma < 0 ? nombre : nombre.left(coma)) + QLatin1Char(' ') + variante;
  const QString empaque = coma < 0 ? QString() : nombre.mid(coma);
  return {producto, producto + empaque + QStringLiteral(", MARCA ") + Texto(marca.nombre)};
}

// Codes are brand-consecutive ("1-00045"), as the company's setting makes new products take
// them; the first alternate code is the bar code.
Fila Producto(Dice& dice, Connection& c, const Articulo& a, int variante, int consecutivo,
              int item) {
  const Marca& marca = Marcas()[a.linea - 1];
  const auto [producto, descripcion] = Nombres(a, Texto(a.variantes[variante]), marca);
  const qint64 centavos = CostoEnCentavos(dice, a, variante);
  const double costo = Cents(centavos);
  const bool caro = centavos > 50000;
  Fila row{
      {"codigo", QStringLiteral("%1-%2").arg(a.linea).arg(consecutivo, 5, 10, QLatin1Char('0'))},
      {"codigo1", BarCode(item)},
      {"codigo2", Vacio()},
      {"codigo3", Vacio()},
      {"producto", producto},
      {"descripcion", descripcion},
      {"unidad", Texto(a.unidad)},
      {"marca", a.linea},
      {"linea", a.linea},
      {"ubicacion", QStringLiteral("PASILLO %1, ANAQUEL %2").arg(a.linea).arg(variante % 6 + 1)},
      {"zona", QStringLiteral("ZONA%1").arg((a.linea - 1) % 4 + 1, 2, 10, QLatin1Char('0'))},
      {"moneda", Texto("MXN")},
      {"pt", Texto("N")},
      {"costo", costo},
      {"ultimo costo", costo},
      {"ultima venta", 0.0}};
  row += Precios(marca, costo, a.impuesto);
  row += Fila{{"comision", double(a.linea % 3 + 1)},
              {"descuento", 0.0},
              {"min", caro ? 2.0 : 10.0},
              {"max", caro ? 10.0 : 120.0}};
  row += Existencias(dice, centavos);
  const QDateTime compra(QDate(2026, 1, 5).addDays(item % 28), QTime(10, 30));
  row += Fila{{"fecha ultima compra", dialect::DateValue(compra, c.sql())},
              {"proveedor1", marca.proveedor},
              {"imagen", Texto("N")},
              {"status", Texto("ALTA")}};
  return row;
}

// A value of a row already built, replaced.
void Poner(Fila& row, const char* columna, const QVariant& valor) {
  for (Campo& campo : row) {
    if (qstrcmp(campo.columna, columna) == 0) campo.valor = valor;
  }
}

// The materials of the shop's one product of its own: a fixing set packed in the back room
// from a box of wood screws, a box of washers and a bag of wall plugs.
const char* const kMateriales[] = {"1-00004", "1-00032", "1-00037"};

}  // namespace

bool EscribirLineas(Connection& c, QString* error) {
  RowWriter writer(c, QStringLiteral("lineas"));
  int numero = 0;
  for (const char* nombre : Lineas()) {
    // The name again under "linea", the column the obsolete stock file reads.
    const Fila row{{"numero", ++numero},
                   {"nombre", Texto(nombre)},
                   {"linea", Texto(nombre)},
                   {"status", Texto("ALTA")}};
    if (!Agregar(writer, row, error)) return false;
  }
  return true;
}

bool EscribirMarcas(Connection& c, QString* error) {
  RowWriter writer(c, QStringLiteral("marcas"));
  int numero = 0;
  for (const Marca& m : Marcas()) {
    Fila row{{"numero", ++numero}, {"nombre", Texto(m.nombre)}};
    for (int k = 0; k < 5; ++k) row.append({kUtilidades[k], double(m.utilidades[k])});
    row += Fila{{"marca", Texto(m.nombre)}, {"status", Texto("ALTA")}};
    if (!Agregar(writer, row, error)) return false;
  }
  return true;
}

bool EscribirProductos(Connection& c, Dice& dice, QString* error) {
  RowWriter writer(c, QStringLiteral("productos"));
  QList<int> por_marca(Marcas().size() + 1, 0);
  int item = 0;
  for (const Articulo& a : Articulos()) {
    for (int v = 0; v < a.variantes.size(); ++v) {
      const Fila row = Producto(dice, c, a, v, ++por_marca[a.linea], ++item);
      if (!Agregar(writer, row, error)) return false;
    }
  }
  return true;
}

bool EscribirProductoTerminado(Connection& c, Dice& dice, QString* error) {
  double costo = 0;
  for (const char* material : kMateriales) {
    const QVariant uno = c.Scalar(QStringLiteral("select costo from productos where codigo = ?"),
                                  {QString::fromLatin1(material)});
    if (uno.isNull()) {
      *error = QStringLiteral("Falta el material ") + QString::fromLatin1(material);
      return false;
    }
    costo += uno.toDouble();
  }
  const int consecutivo =
      c.Scalar(QStringLiteral("select count(*) from productos where marca = 1")).toInt() + 1;
  const int items = c.Scalar(QStringLiteral("select count(*) from productos")).toInt();
  Fila row = Producto(dice, c, Articulos().first(), 0, consecutivo, items + 1);
  const QString nombre = QStringLiteral("JUEGO DE FIJACIÓN PARA REPISA");
  Poner(row, "producto", nombre);
  Poner(row, "descripcion", nombre + QStringLiteral(", TORNILLOS, RONDANAS Y TAQUETES"));
  Poner(row, "unidad", QStringLiteral("JUEGO"));
  Poner(row, "pt", QStringLiteral("S"));
  Poner(row, "costo", costo);
  Poner(row, "ultimo costo", costo);
  for (const Campo& precio : Precios(Marcas().first(), costo, 16))
    Poner(row, precio.columna, precio.valor);
  RowWriter producto(c, QStringLiteral("productos"));
  if (!Agregar(producto, row, error)) return false;
  RowWriter consumos(c, QStringLiteral("productos consumos"));
  int item = 0;
  for (const char* material : kMateriales) {
    const Fila consumo{{"codigo", row.first().valor},
                       {"equivale", QString::fromLatin1(material)},
                       {"cantidad", 1.0},
                       {"item", ++item}};
    if (!Agregar(consumos, consumo, error)) return false;
  }
  // A size the suppliers no longer make: kept for its history, no longer sold.
  return c.Run(QStringLiteral("update productos set status = ? where codigo = ?"),
               {Texto("BAJA"), QStringLiteral("1-00010")}, error);
}

// Two wholesale clients have agreed prices on their usual products: level 2 less 5 %.
bool EscribirPreciosPorCliente(Connection& c, QString* error) {
  QSqlQuery clientes =
      c.Exec(QStringLiteral("select numero from clientes where tipo = ? order by numero"),
             {Texto("MAYOREO")});
  QList<int> numeros;
  while (clientes.next() && numeros.size() < 2) numeros.append(clientes.value(0).toInt());
  QSqlQuery productos = c.Exec(QStringLiteral("select codigo, precio2 from productos where marca "
                                              "in (1, 7) and status = ? order by codigo"),
                               {Texto("ALTA")});
  QList<QPair<QString, double>> acordados;
  while (productos.next() && acordados.size() < 6) {
    const double precio2 = productos.value(1).toDouble();
    acordados.append({productos.value(0).toString(), std::round(precio2 * 95.0) / 100.0});
  }
  RowWriter writer(c, QStringLiteral("productos precios"));
  for (int cliente : numeros) {
    int item = 0;
    for (const auto& [codigo, precio] : acordados) {
      const Fila row{
          {"codigo", codigo}, {"cliente", cliente}, {"precio", precio}, {"item", ++item}};
      if (!Agregar(writer, row, error)) return false;
    }
  }
  return true;
}

// Wholesale clients buy at price level 2 and government offices at level 3, of every brand.
bool EscribirClientesUtilidades(Connection& c, QString* error) {
  QSqlQuery clientes = c.Exec(
      QStringLiteral("select numero, tipo from clientes where tipo in (?, ?) order by numero"),
      {Texto("MAYOREO"), Texto("GOBIERNO")});
  QList<QPair<int, int>> niveles;
  while (clientes.next()) {
    niveles.append(
        {clientes.value(0).toInt(), clientes.value(1).toString() == Texto("MAYOREO") ? 2 : 3});
  }
  RowWriter writer(c, QStringLiteral("clientes utilidades"));
  for (const auto& [cliente, nivel] : niveles) {
    for (int marca = 1; marca <= Marcas().size(); ++marca) {
      const Fila row{{"cliente", cliente}, {"marca", marca}, {"utilidad", nivel}, {"dcto", 0.0}};
      if (!Agregar(writer, row, error)) return false;
    }
  }
  return true;
}

}  // namespace ventarix::demo
