#include "big_company.h"

#include <vector>

#include <QStringList>

#include "core/dialect.h"

namespace ventarix::bench {

namespace {

using namespace Qt::StringLiterals;

// A column and the SQL that computes it from the generated numbers: d the document, i the
// row within it, n the row over the whole range.
struct Columna {
  const char* nombre;
  QString expresion;
};

// One family of documents: its tables, its share of the invoices and what its rows hold.
struct Familia {
  QString tabla;
  QString clave;
  QString prefijo;  // keys are prefijo || d, e.g. "F-17"
  int por_cien;     // documents per hundred invoices
  int filas;        // rows per document
  bool articulos;   // rows carry codigo, descripcion, unidad, cantidad
  bool sumas;       // header sums follow from the rows
  std::vector<Columna> cabecera;
  std::vector<Columna> detalle;
};

QString Clave(const char* prefijo, const QString& numero) {
  return u"('%1' || (%2))"_s.arg(QLatin1String(prefijo), numero);
}

// A product code spread over the catalogue by document and row.
QString Codigo(const QString& documento, const QString& item) {
  return u"('P' || (((%1) * 31 + (%2) * 577) % %3 + 1))"_s.arg(documento, item).arg(kProductos);
}

QString Cliente(const QString& numero) { return u"(1 + (%1) % %2)"_s.arg(numero).arg(kClientes); }

QString Proveedor(const QString& numero) {
  return u"(1 + (%1) % %2)"_s.arg(numero).arg(kProveedores);
}

// Days of January of the current year, at nine in the morning.
QString Fecha(bool sql) {
  return sql ? u"(date_trunc('year', localtimestamp(0)) + (d % 28) * interval '1 day' + "
               u"interval '9 hours')"_s
             : u"datetime('now', 'localtime', 'start of year', '+' || (d % 28) || ' days', "
               u"'+9 hours')"_s;
}

std::vector<Columna> Dinero(const QString& cantidad, const QString& precio) {
  const QString importe = u"(%1) * (%2)"_s.arg(cantidad, precio);
  return {{"precio", precio},
          {"importe", importe},
          {"dcto", u"0"_s},
          {"descuento", u"0"_s},
          {"subtotal", importe},
          {"impuesto", u"16"_s},
          {"iva", importe + u" * 0.16"_s},
          {"total", importe + u" * 1.16"_s}};
}

std::vector<Columna> Costo(const QString& cantidad, const QString& precio) {
  return {{"costo", u"(%1) * 0.7"_s.arg(precio)},
          {"costototal", u"(%1) * (%2) * 0.7"_s.arg(cantidad, precio)},
          {"com", u"0"_s},
          {"comision", u"0"_s},
          {"utilidad", u"(%1) * (%2) * 0.3"_s.arg(cantidad, precio)}};
}

std::vector<Columna> Mas(std::vector<Columna> a, const std::vector<Columna>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// Sales: invoices, delivery notes (half of them held by an invoice, two in five delivering
// against an order), orders, payments and credit notes of invoices.
std::vector<Familia> Ventas() {
  const QString precio = u"(10.5 + n % 90)"_s;
  const QString cantidad = u"(1 + n % 5)"_s;
  return {
      {u"facturas"_s,
       u"factura"_s,
       u"F-"_s,
       100,
       kFilasPorFactura,
       true,
       true,
       {{"cliente", Cliente(u"d"_s)},
        {"agente", u"1"_s},
        {"tienda", u"(1 + d % 5)"_s},
        {"depto", u"case when d % 2 = 0 then 'PRODUCTOS' else 'LIBRE' end"_s},
        {"status", u"case when d % 97 = 0 then 'BAJA' else 'POR COBRAR' end"_s},
        {"tipo", u"'CREDITO'"_s},
        {"esquema", u"'CFDI'"_s},
        {"metodo", u"1"_s},
        {"ingreso", u"1"_s}},
       Mas(Mas({{"codigo", Codigo(u"d + 3"_s, u"i"_s)},
                {"cantidad", cantidad},
                {"remision",
                 u"case when d % 2 = 0 then "_s + Clave("R-", u"d"_s) + u" else '' end"_s},
                {"tienda", u"1"_s},
                {"facturar", u"case when d % 2 = 0 then 'PRODUCTOS' else 'LIBRE' end"_s}},
               Dinero(cantidad, precio)),
           Costo(cantidad, precio))},
      {u"remisiones"_s,
       u"remision"_s,
       u"R-"_s,
       100,
       5,
       true,
       true,
       {{"cliente", Cliente(u"d"_s)}, {"tienda", u"(1 + d % 5)"_s}, {"metodo", u"1"_s}},
       Mas(Mas({{"codigo", Codigo(u"(d - 1) / 5 + 1"_s, u"i"_s)},
                {"cantidad", u"2"_s},
                {"cliente", Cliente(u"d"_s)},
                {"almacen", u"(1 + d % 5)"_s},
                {"pedido", u"case when d % 5 in (1, 2) then "_s +
                               Clave("P-", u"(d - 1) / 5 + 1"_s) + u" else '' end"_s}},
               Dinero(u"2"_s, precio)),
           Costo(u"2"_s, precio))},
      {u"pedidos"_s,
       u"pedido"_s,
       u"P-"_s,
       20,
       5,
       true,
       true,
       {{"cliente", Cliente(u"d * 5"_s)}, {"tienda", u"1"_s}},
       Mas({{"codigo", Codigo(u"d"_s, u"i"_s)},
            {"cantidad", u"case when d % 3 = 0 then 4 else 10 end"_s},
            {"surtir", u"case when d % 3 = 0 then 4 else 10 end"_s},
            {"cliente", Cliente(u"d * 5"_s)},
            {"costo", u"7"_s},
            {"com", u"0"_s},
            {"tienda", u"1"_s}},
           Dinero(u"case when d % 3 = 0 then 4 else 10 end"_s, precio))},
      {u"cxc"_s,
       u"pago"_s,
       u"K-"_s,
       80,
       1,
       false,
       false,
       {{"cliente", Cliente(u"d"_s)},
        {"metodo", u"1"_s},
        {"banco", u"1"_s},
        {"abono", u"(select total from facturas where factura = "_s + Clave("F-", u"d"_s) + u')'}},
       {{"cliente", Cliente(u"d"_s)},
        {"factura", Clave("F-", u"d"_s)},
        {"abono",
         u"case when d % 4 = 0 then 100 else (select total from facturas where factura = "_s +
             Clave("F-", u"d"_s) + u") end"_s}}},
      {u"notas cliente"_s,
       u"nota"_s,
       u"N-"_s,
       10,
       2,
       true,
       true,
       {{"cliente", Cliente(u"d * 10 - 3"_s)},
        {"tienda", u"1"_s},
        {"egreso", u"1"_s},
        {"esquema", u"'CFDI'"_s},
        {"metodo", u"1"_s}},
       Mas({{"codigo", Codigo(u"d * 10 + 0"_s, u"i"_s)},
            {"cantidad", u"1"_s},
            {"cliente", Cliente(u"d * 10 - 3"_s)},
            {"factura", Clave("F-", u"d * 10 - 3"_s)},
            {"partida", u"i"_s},
            {"tienda", u"1"_s}},
           Dinero(u"1"_s, u"5"_s))},
  };
}

// Purchases (one in four against a purchase order), purchase orders, their payments and
// supplier credit notes.
std::vector<Familia> Compras() {
  const QString precio = u"(6.25 + n % 60)"_s;
  return {
      {u"compras"_s,
       u"compra"_s,
       u"C-"_s,
       20,
       10,
       true,
       true,
       {{"proveedor", Proveedor(u"d"_s)},
        {"tienda", u"(1 + d % 5)"_s},
        {"movimiento", u"('ALMACEN' || (1 + d % 5))"_s},
        {"factura", Clave("FP", u"d"_s)}},
       Mas({{"codigo", Codigo(u"(d - 1) / 4 + 7"_s, u"(i - 1) % 5 + 1"_s)},
            {"cantidad", u"3"_s},
            {"proveedor", Proveedor(u"d"_s)},
            {"almacen", u"(1 + d % 5)"_s},
            {"tienda", u"(1 + d % 5)"_s},
            {"orden", u"case when d % 4 = 1 then "_s + Clave("O-", u"(d - 1) / 4 + 1"_s) +
                          u" else '' end"_s}},
           Dinero(u"3"_s, precio))},
      {u"ordenes de compra"_s,
       u"orden"_s,
       u"O-"_s,
       5,
       5,
       true,
       true,
       {{"proveedor", Proveedor(u"d * 4"_s)}, {"tienda", u"1"_s}},
       Mas({{"codigo", Codigo(u"d + 6"_s, u"i"_s)},
            {"cantidad", u"6"_s},
            {"surtir", u"6"_s},
            {"proveedor", Proveedor(u"d * 4"_s)},
            {"tienda", u"1"_s}},
           Dinero(u"6"_s, precio))},
      {u"cxp"_s,
       u"pago"_s,
       u"Q-"_s,
       15,
       1,
       false,
       false,
       {{"proveedor", Proveedor(u"d"_s)},
        {"banco", u"1"_s},
        {"abono", u"(select total from compras where compra = "_s + Clave("C-", u"d"_s) + u')'}},
       {{"proveedor", Proveedor(u"d"_s)},
        {"compra", Clave("C-", u"d"_s)},
        {"abono", u"(select total from compras where compra = "_s + Clave("C-", u"d"_s) + u')'}}},
      {u"notas proveedor"_s,
       u"nota"_s,
       u"M-"_s,
       2,
       2,
       true,
       true,
       {{"proveedor", Proveedor(u"d * 10 - 3"_s)}, {"tienda", u"1"_s}},
       Mas({{"codigo", Codigo(u"d * 10 + 1"_s, u"i"_s)},
            {"cantidad", u"1"_s},
            {"proveedor", Proveedor(u"d * 10 - 3"_s)},
            {"compra", Clave("C-", u"d * 10 - 3"_s)},
            {"partida", u"i"_s},
            {"tienda", u"1"_s}},
           Dinero(u"1"_s, u"4"_s))},
  };
}

// Transfers out of warehouse 1, adjustments of every warehouse, production orders.
std::vector<Familia> Inventario(bool sql) {
  return {
      {u"traspasos"_s,
       u"traspaso"_s,
       u"T-"_s,
       10,
       5,
       true,
       true,
       {{"de", u"'1'"_s}, {"a", u"('' || (2 + d % 4))"_s}, {"tienda", u"1"_s}},
       Mas(Mas({{"codigo", Codigo(u"d + 11"_s, u"i"_s)},
                {"cantidad", u"1"_s},
                {"de", u"'1'"_s},
                {"a", u"('' || (2 + d % 4))"_s},
                {"tienda", u"1"_s}},
               Dinero(u"1"_s, u"8"_s)),
           Costo(u"1"_s, u"8"_s))},
      {u"ajustes de inventario"_s,
       u"ajuste"_s,
       u"J-"_s,
       5,
       10,
       true,
       false,
       {{"almacen", u"(1 + d % 5)"_s}, {"tienda", u"1"_s}},
       {{"codigo", Codigo(u"d + 13"_s, u"i"_s)},
        {"cantidad", u"0"_s},
        {"almacen", u"(1 + d % 5)"_s},
        {"tienda", u"1"_s},
        {"costo", u"10"_s},
        {"existencias", u"0"_s},
        {"entradas", u"5"_s},
        {"salidas", u"case when n % 3 = 0 then 1 else 0 end"_s},
        {"real", u"0"_s}}},
      {u"produccion"_s,
       u"produccion"_s,
       u"X-"_s,
       2,
       3,
       true,
       false,
       {{"cliente", u"1"_s},
        {"codigo", Codigo(u"d"_s, u"9"_s)},
        {"cantidad", u"2"_s},
        {"costo", u"15"_s},
        {"termino", u"case when d % 2 = 0 then "_s + Fecha(sql) + u" else null end"_s}},
       {{"codigo", Codigo(u"d + 17"_s, u"i"_s)},
        {"cantidad", u"1"_s},
        {"consumo", u"1"_s},
        {"costo", u"5"_s},
        {"total", u"5"_s}}},
  };
}

// "with ... r(n, d, i)": the numbers first..last, and for each its document and row when
// documents have `filas` rows.
QString Numeros(bool sql, int filas) {
  const QString r = u"r as (select n, (n - 1) / %1 + 1 as d, (n - 1) % %1 + 1 as i from %2)"_s;
  if (sql) {
    return u"with "_s +
           r.arg(filas).arg(u"generate_series(cast(? as integer), cast(? as integer)) as s(n)"_s) +
           u' ';
  }
  return u"with recursive s(n) as (select ? union all select n + 1 from s where n < ?), "_s +
         r.arg(filas).arg(u"s"_s) + u' ';
}

bool Insertar(Connection& c, const QString& tabla, int filas, const std::vector<Columna>& columnas,
              qint64 primero, qint64 ultimo, QString* error) {
  QStringList nombres;
  QStringList expresiones;
  for (const Columna& columna : columnas) {
    nombres << dialect::Name(QString::fromUtf8(columna.nombre));
    expresiones << columna.expresion;
  }
  const QString text = Numeros(c.sql(), filas) + u"insert into "_s + dialect::Name(tabla) +
                       u" ("_s + nombres.join(u", "_s) + u") select "_s +
                       expresiones.join(u", "_s) + u" from r"_s;
  if (c.Run(text, {primero, ultimo}, error)) return true;
  if (error) *error = tabla + u": "_s + *error;
  return false;
}

// importe .. total of the headers numbered first..last, summed from their rows.
bool Sumar(Connection& c, const Familia& f, qint64 primero, qint64 ultimo, QString* error) {
  QStringList sumas;
  for (const char* columna : {"importe", "descuento", "subtotal", "iva", "total"}) {
    sumas << u"%1 = (select coalesce(sum(d.%1), 0) from %2 d where d.%3 = h.%3)"_s.arg(
        QLatin1String(columna), dialect::Name(f.tabla + u" detalles"_s), f.clave);
  }
  return c.Run(u"update "_s + dialect::Name(f.tabla) + u" as h set "_s + sumas.join(u", "_s) +
                   u" where h.folio between ? and ?"_s,
               {primero, ultimo}, error);
}

bool Generar(Connection& c, const Familia& f, int desde, int hasta, qint64* filas, QString* error) {
  const qint64 primero = (qint64(desde) - 1) * f.por_cien / 100 + 1;
  const qint64 ultimo = qint64(hasta) * f.por_cien / 100;
  if (ultimo < primero) return true;
  const QString fecha = Fecha(c.sql());
  const QByteArray prefijo = f.prefijo.toUtf8();
  // The key's name must outlive the statements it is written into.
  const QByteArray clave = f.clave.toUtf8();
  std::vector<Columna> cabecera = {{clave.constData(), Clave(prefijo.constData(), u"d"_s)},
                                   {"serie", u"'%1'"_s.arg(f.prefijo.left(1))},
                                   {"folio", u"d"_s},
                                   {"fecha", fecha},
                                   {"hora", fecha},
                                   {"periodo", dialect::Year(dialect::Now(c.sql()), c.sql())},
                                   {"usuario", u"'BENCH'"_s},
                                   {"equipo", u"'BENCH'"_s}};
  std::vector<Columna> detalle = {
      {clave.constData(), Clave(prefijo.constData(), u"d"_s)}, {"item", u"i"_s}, {"fecha", fecha}};
  if (f.articulos) {
    detalle.push_back({"descripcion", u"'ARTICULO'"_s});
    detalle.push_back({"unidad", u"'PZA'"_s});
  }
  if (!Insertar(c, f.tabla, 1, Mas(cabecera, f.cabecera), primero, ultimo, error) ||
      !Insertar(c, f.tabla + u" detalles"_s, f.filas, Mas(detalle, f.detalle),
                (primero - 1) * f.filas + 1, ultimo * f.filas, error)) {
    return false;
  }
  if (f.sumas && !Sumar(c, f, primero, ultimo, error)) return false;
  *filas += (ultimo - primero + 1) * (1 + f.filas);
  return true;
}

}  // namespace

bool GenerarCatalogos(Connection& c, QString* error) {
  Transaction t(c);
  return t.ok() &&
         Insertar(c, u"productos"_s, 1,
                  {{"codigo", u"('P' || d)"_s},
                   {"producto", u"('ARTICULO ' || d)"_s},
                   {"unidad", u"'PZA'"_s},
                   {"marca", u"1"_s},
                   {"linea", u"1"_s},
                   {"costo", u"(5 + d % 50)"_s},
                   {"precio", u"(10 + d % 90)"_s}},
                  1, kProductos, error) &&
         Insertar(c, u"clientes"_s, 1,
                  {{"numero", u"d"_s}, {"nombre", u"('CLIENTE ' || d)"_s}, {"metodo", u"1"_s}}, 1,
                  kClientes, error) &&
         Insertar(c, u"proveedores"_s, 1,
                  {{"numero", u"d"_s}, {"nombre", u"('PROVEEDOR ' || d)"_s}}, 1, kProveedores,
                  error) &&
         t.Commit();
}

bool GenerarDocumentos(Connection& c, int desde, int hasta, qint64* filas, QString* error) {
  // Payments read the totals of the invoices and purchases they pay, so those come first.
  std::vector<Familia> familias = Ventas();
  for (Familia& f : Compras()) familias.push_back(std::move(f));
  for (Familia& f : Inventario(c.sql())) familias.push_back(std::move(f));
  Transaction t(c);
  if (!t.ok()) {
    *error = t.error();
    return false;
  }
  for (const Familia& f : familias) {
    if (!Generar(c, f, desde, hasta, filas, error)) return false;
  }
  return t.Commit() || (*error = t.error(), false);
}

}  // namespace ventarix::bench
