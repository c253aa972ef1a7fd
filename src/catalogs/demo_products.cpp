#include <cmath>

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "catalogs/demo_catalog.h"
#include "catalogs/demo_tables.h"
#include "core/dialect.h"

// Lines, brands and the products of the demo shop. Prices follow the company's arithmetic
// rule from each product's cost and its brand's margins, as a brand recalculation leaves
// them.
namespace ventarix::demo {

namespace {

constexpr int kImpuesto = 16;

QStringList ColumnasProducto() {
  QStringList columns{
      QStringLiteral("codigo"),    QStringLiteral("codigo1"),      QStringLiteral("codigo2"),
      QStringLiteral("codigo3"),   QStringLiteral("producto"),     QStringLiteral("descripcion"),
      QStringLiteral("unidad"),    QStringLiteral("marca"),        QStringLiteral("linea"),
      QStringLiteral("ubicacion"), QStringLiteral("zona"),         QStringLiteral("moneda"),
      QStringLiteral("pt"),        QStringLiteral("costo"),        QStringLiteral("ultimo costo"),
      QStringLiteral("venta"),     QStringLiteral("ultima venta"), QStringLiteral("precio")};
  for (int k = 1; k <= 5; ++k) columns << QStringLiteral("precio%1").arg(k);
  for (int k = 1; k <= 5; ++k) columns << QStringLiteral("utilidad%1").arg(k);
  columns << QStringList{QStringLiteral("impuesto"), QStringLiteral("comision"),
                         QStringLiteral("descuento"), QStringLiteral("min"), QStringLiteral("max")};
  for (int k = 1; k <= 5; ++k) columns << QStringLiteral("almacen%1").arg(k);
  columns << QStringList{QStringLiteral("fecha ultima compra"), QStringLiteral("proveedor1"),
                         QStringLiteral("imagen"), QStringLiteral("status")};
  return columns;
}

// The cost of the variant-th size, a little dearer each step, with a few percent of noise.
qint64 CostoEnCentavos(Dice& dice, const Articulo& a, int variante) {
  const qint64 escalon = static_cast<qint64>(a.centavos) * (10 + 3 * variante) / 10;
  return escalon * dice.Between(95, 105) / 100;
}

// Stock for each of the five warehouses: the main store always holds some.
QVariantList Existencias(Dice& dice, qint64 costo) {
  const bool caro = costo > 50000;
  QVariantList stock{static_cast<double>(caro ? dice.Between(2, 8) : dice.Between(6, 90))};
  for (int k = 2; k <= 5; ++k) {
    const int tope = (caro ? 4 : 40) / (k - 1);
    stock << static_cast<double>(dice.Between(0, tope));
  }
  return stock;
}

struct Nombres {
  QString producto, descripcion;
};

Nombres NombresDe(const Articulo& a, const QString& variante, const QString& marca) {
  const QString nombre = Texto(a.nombre);
  const qsizetype coma = nombre.indexOf(QStringLiteral(", "));
  const QString cabeza = coma < 0 ? nombre : nombre.left(coma);
  const QString cola = coma < 0 ? Vacio() : nombre.mid(coma);
  const QString producto = cabeza + QLatin1Char(' ') + variante;
  return {producto, producto + cola + QStringLiteral(", MARCA ") + marca};
}

}  // namespace

bool EscribirLineas(Connection& c, QString* error) {
  // The name again under "linea", the column the obsolete stock file reads.
  RowWriter writer(c, QStringLiteral("lineas"),
                   {QStringLiteral("numero"), QStringLiteral("nombre"), QStringLiteral("linea"),
                    QStringLiteral("status")});
  int numero = 0;
  for (const char* nombre : Lineas()) {
    if (!writer.Add({++numero, Texto(nombre), Texto(nombre), Texto("ALTA")})) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

bool EscribirMarcas(Connection& c, QString* error) {
  QStringList columns{QStringLiteral("numero"), QStringLiteral("nombre")};
  for (int k = 1; k <= 5; ++k) columns << QStringLiteral("utilidad%1").arg(k);
  columns << QStringLiteral("marca") << QStringLiteral("status");
  RowWriter writer(c, QStringLiteral("marcas"), columns);
  int numero = 0;
  for (const Marca& m : Marcas()) {
    QVariantList row{++numero, Texto(m.nombre)};
    for (int u : m.utilidades) row << static_cast<double>(u);
    row << Texto(m.nombre) << Texto("ALTA");
    if (!writer.Add(row)) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

bool EscribirProductos(Connection& c, Dice& dice, QString* error) {
  RowWriter writer(c, QStringLiteral("productos"), ColumnasProducto());
  QList<int> por_marca(Marcas().size() + 1, 0);
  int item = 0;
  for (const Articulo& a : Articulos()) {
    const Marca& marca = Marcas()[a.linea - 1];
    for (int v = 0; v < a.variantes.size(); ++v) {
      ++item;
      // Codes are brand-consecutive, as the company's setting makes new products take them.
      const QString codigo =
          QStringLiteral("%1-%2").arg(a.linea).arg(++por_marca[a.linea], 5, 10, QLatin1Char('0'));
      const Nombres n = NombresDe(a, Texto(a.variantes[v]), Texto(marca.nombre));
      const qint64 costo = CostoEnCentavos(dice, a, v);
      const double costo_pesos = Cents(costo);
      QVariantList precios;
      for (int u : marca.utilidades) precios << PriceAtMargin(costo_pesos, u);
      const double precio1 = precios[0].toDouble();
      const double precio = std::round(precio1 * (100 + kImpuesto) * 100.0) / 10000.0;
      QVariantList row{codigo,
                       BarCode(item),
                       Vacio(),
                       Vacio(),
                       n.producto,
                       n.descripcion,
                       Texto(a.unidad),
                       a.linea,
                       a.linea,
                       QStringLiteral("PASILLO %1, ANAQUEL %2").arg(a.linea).arg(v % 6 + 1),
                       QStringLiteral("ZONA%1").arg((a.linea - 1) % 4 + 1, 2, 10, QLatin1Char('0')),
                       Texto("MXN"),
                       Texto("N"),
                       costo_pesos,
                       costo_pesos,
                       precio1,
                       0.0,
                       precio};
      row << precios;
      for (int u : marca.utilidades) row << static_cast<double>(u);
      row << static_cast<double>(kImpuesto) << static_cast<double>(a.linea % 3 + 1) << 0.0
          << (costo > 50000 ? 2.0 : 10.0) << (costo > 50000 ? 10.0 : 120.0);
      row << Existencias(dice, costo);
      const QDateTime compra(QDate(2026, 1, 5).addDays(item % 28), QTime(10, 30));
      row << dialect::DateValue(compra, c.sql()) << marca.proveedor << Texto("N") << Texto("ALTA");
      if (!writer.Add(row)) {
        *error = writer.error();
        return false;
      }
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
  RowWriter writer(c, QStringLiteral("clientes utilidades"),
                   {QStringLiteral("cliente"), QStringLiteral("marca"), QStringLiteral("utilidad"),
                    QStringLiteral("dcto")});
  for (const auto& [cliente, nivel] : niveles) {
    for (int marca = 1; marca <= Marcas().size(); ++marca) {
      if (!writer.Add({cliente, marca, nivel, 0.0})) {
        *error = writer.error();
        return false;
      }
    }
  }
  return true;
}

}  // namespace ventarix::demo
