// The delivery notes a store invoices, and the invoice document they give.
#include "sales/facturar_remisiones.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include "core/dialect.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;

// What the invoice takes from the first ticked note's header.
const QStringList kEncabezadoDeRemision = {
    u"cliente"_s,           u"agente"_s,     u"plazo"_s,    u"pedido"_s, u"orden de compra"_s,
    u"solicitado por"_s,    u"referencia"_s, u"enviar a"_s, u"metodo"_s, u"numctapago"_s,
    u"condicionesdepago"_s, u"tipo"_s};

// What each invoice row takes from a note's row.
const QStringList kPartidaDeRemision = {u"codigo"_s,   u"descripcion"_s, u"unidad"_s,
                                        u"cantidad"_s, u"precio"_s,      u"dcto"_s,
                                        u"impuesto"_s, u"costo"_s,       u"remision"_s};

QString Columnas(const QStringList& columnas) {
  QStringList nombres;
  for (const QString& c : columnas) nombres << dialect::Name(c);
  return nombres.join(u", "_s);
}

}  // namespace

std::vector<RemisionPorFacturar> RemisionesPorFacturar(Connection& c, int tienda) {
  std::vector<RemisionPorFacturar> lista;
  QSqlQuery q = c.Exec(
      u"select r.remision, r.fecha, r.cliente, c.nombre, r.total, r.plazo, r.tipo "
      "from remisiones r, clientes c where r.status = 'POR FACTURAR' and r.tipo <> 'COTIZACION' "
      "and r.cliente = c.numero and r.tienda = ? order by r.hora desc, r.folio desc"_s,
      {tienda});
  while (q.next()) {
    lista.push_back({.remision = q.value(0).toString(),
                     .fecha = q.value(1).toDateTime(),
                     .cliente = q.value(2).toInt(),
                     .nombre = q.value(3).toString(),
                     .total = q.value(4).toDouble(),
                     .plazo = q.value(5).toInt(),
                     .tipo = q.value(6).toString()});
  }
  return lista;
}

Outcome DocumentoDeRemisiones(Connection& c, const QStringList& remisiones,
                              captura::Documento* factura) {
  if (remisiones.isEmpty()) return Outcome::Warning(u"No existen registros por facturar"_s);
  QSqlQuery e = c.Exec(
      u"select "_s + Columnas(kEncabezadoDeRemision) + u" from remisiones where remision = ?"_s,
      {remisiones.first()});
  if (!e.next()) {
    return Outcome::Warning(u"Esta remisión no existe: "_s + remisiones.first(), u"Remisiones"_s);
  }
  for (int i = 0; i < kEncabezadoDeRemision.size(); ++i) {
    factura->encabezado.insert(kEncabezadoDeRemision[i], e.value(i));
  }
  factura->encabezado.insert(u"depto"_s, u"PRODUCTOS"_s);
  factura->partidas.clear();
  // The rows of all the notes by note key, then by item; the header is the first ticked one's.
  QStringList por_llave = remisiones;
  por_llave.sort();
  for (const QString& remision : por_llave) {
    QSqlQuery q = c.Exec(u"select "_s + Columnas(kPartidaDeRemision) +
                             u" from \"remisiones detalles\" where remision = ? order by item"_s,
                         {remision});
    while (q.next()) {
      QVariantMap fila;
      for (int i = 0; i < kPartidaDeRemision.size(); ++i) {
        fila.insert(kPartidaDeRemision[i], q.value(i));
      }
      factura->partidas.push_back(fila);
    }
  }
  return Outcome::Ok();
}

}  // namespace ventarix::ventas
