#include <QDate>
#include <QString>

#include "core/dialect.h"
#include "demo/demo_tables.h"
#include "documents/mSaldos.h"

// The demo shop's stock does not come from nowhere: one opening count per warehouse, an
// inventory adjustment whose entries are what each product holds there. A stock rebuild (the
// nightly sweep) then finds the same figures.
namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;

bool Falla(QString* error, const QString& text) {
  *error = text;
  return false;
}

bool EscribirAjuste(Connection& c, int almacen, const QDate& fecha, QString* error) {
  const QString ajuste = u"A-%1"_s.arg(almacen);
  const QString columna = u"almacen%1"_s.arg(almacen);
  const QVariant dia = dialect::DateValue(fecha, c.sql());
  if (!c.Run(u"insert into \"ajustes de inventario\" (ajuste, serie, folio, fecha, periodo, "
             u"status, obs, usuario, equipo, almacen, tipo, tienda, total) "
             u"values (?, 'A', ?, ?, ?, 'ALTA', ?, 'ADMINISTRADOR', 'DEMO', ?, ?, ?, 0)"_s,
             {ajuste, almacen, dia, fecha.year(), u"INVENTARIO INICIAL"_s, almacen,
              u"INVENTARIO INICIAL"_s, almacen},
             error)) {
    return false;
  }
  // The column name is one of the five warehouses, never typed by anybody.
  const QString filas =
      u"insert into \"ajustes de inventario detalles\" (ajuste, item, fecha, codigo, "
      u"descripcion, unidad, cantidad, almacen, tienda, costo, existencias, entradas, salidas, "
      u"\"real\") select ?, row_number() over (order by codigo), ?, codigo, "
      u"coalesce(nullif(descripcion, ''), producto), unidad, %1, ?, ?, costo, 0, %1, 0, %1 "
      u"from productos where %1 > 0"_s.arg(columna);
  if (!c.Run(filas, {ajuste, dia, almacen, almacen}, error)) return false;
  const Outcome total = mSaldos::TotalizarAjuste(c, ajuste);
  return total ? true : Falla(error, total.message);
}

}  // namespace

bool EscribirInventarioInicial(Connection& c, QString* error) {
  const QDate fecha = PrimerDiaDeHistoria().addDays(-1);
  for (int almacen = 1; almacen <= 5; ++almacen) {
    if (!EscribirAjuste(c, almacen, fecha, error)) return false;
  }
  return true;
}

}  // namespace ventarix::demo
