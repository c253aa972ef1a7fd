#pragma once

// Rows the stock tests write, and what they read back: the five warehouse columns of a product.
#include <array>

#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "support/document_rows.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline std::array<double, 5> Existencias(Connection& c, const QString& codigo) {
  std::array<double, 5> stock{};
  QSqlQuery q = c.Exec(
      u"select almacen1, almacen2, almacen3, almacen4, almacen5 from productos where codigo = ?"_s,
      {codigo});
  if (q.next()) {
    for (int i = 0; i < 5; ++i) stock[i] = q.value(i).toDouble();
  }
  return stock;
}

inline double Existencia(Connection& c, const QString& codigo, int almacen) {
  return Existencias(c, codigo)[almacen - 1];
}

struct Fila {
  QString codigo;
  double cantidad = 0;
};

// A document as the capture screens leave it, with the columns its family reads stock by.
struct Doc {
  QString tabla, columna_clave, clave;
  int almacen = 1;
  QList<Fila> filas;  // adjustments: negative quantities are salidas
  int destino = 0;    // transfers: receiving warehouse
  QString origen;     // notes: the invoice or purchase returned to
  QString producto;   // production: `cantidad` of it is made
  double cantidad = 0;
  bool cerrada = false;
  QVariantMap cabecera;  // header columns of the test's own, as a purchase's movimiento
  bool baja = false;
};

inline Doc NuevoDoc(const QString& tabla, const QString& clave, int almacen,
                    const QList<Fila>& filas) {
  static const QHash<QString, QString> kClaves{{u"remisiones"_s, u"remision"_s},
                                               {u"compras"_s, u"compra"_s},
                                               {u"ajustes de inventario"_s, u"ajuste"_s},
                                               {u"traspasos"_s, u"traspaso"_s},
                                               {u"produccion"_s, u"produccion"_s},
                                               {u"notas cliente"_s, u"nota"_s},
                                               {u"notas proveedor"_s, u"nota"_s},
                                               {u"facturas"_s, u"factura"_s},
                                               {u"pedidos"_s, u"pedido"_s}};
  return {tabla, kClaves.value(tabla), clave, almacen, filas};
}

// Writes the detail rows, and the header too unless `cabecera` is false.
inline bool Escribir(Connection& c, const Doc& d, bool cabecera = true) {
  QVariantMap head{{d.columna_clave, d.clave}}, row;
  const QString& t = d.tabla;
  if (t == u"remisiones" || t == u"compras" || t == u"ajustes de inventario") {
    head.insert(t == u"ajustes de inventario" ? u"almacen"_s : u"tienda"_s, d.almacen);
    row.insert(u"almacen"_s, d.almacen);
  }
  if (t == u"compras") head.insert(u"movimiento"_s, u"ALMACEN%1"_s.arg(d.almacen));
  if (t == u"traspasos") {
    row = {{u"de"_s, QString::number(d.almacen)}, {u"a"_s, QString::number(d.destino)}};
    head.insert(row);
  }
  if (t == u"produccion") {
    head.insert({{u"codigo"_s, d.producto}, {u"cantidad"_s, d.cantidad}});
    if (d.cerrada) head.insert(u"termino"_s, dialect::DateValue(DiaDePrueba(), c.sql()));
  }
  if (t == u"notas cliente") row.insert(u"factura"_s, d.origen);
  if (t == u"notas proveedor") row.insert(u"compra"_s, d.origen);
  head.insert(d.cabecera);
  if (cabecera && !InsertarFila(c, t, head)) return false;
  int item = 0;
  for (const Fila& f : d.filas) {
    QVariantMap v = row;
    v.insert({{d.columna_clave, d.clave}, {u"item"_s, ++item}, {u"codigo"_s, f.codigo}});
    if (t == u"ajustes de inventario") {
      v.insert(f.cantidad >= 0 ? u"entradas"_s : u"salidas"_s, qAbs(f.cantidad));
    } else {
      v.insert(t == u"produccion" ? u"consumo"_s : u"cantidad"_s, f.cantidad);
    }
    if (!InsertarFila(c, t + u" detalles"_s, v)) return false;
  }
  return true;
}

}  // namespace ventarix::testing
