#include "maintenance/sweeps.h"

#include <vector>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

#include "core/company_database.h"
#include "core/database.h"
#include "core/dialect.h"
#include "documents/mInventario.h"
#include "documents/mSaldos.h"

namespace ventarix::mantenimiento {

namespace {

using namespace Qt::StringLiterals;

// One step of a sweep: its label and what it does on the sweep's connection.
struct Paso {
  QString etiqueta;
  std::function<Outcome(Connection&)> hacer;
};

Outcome Sentencia(Connection& connection, const QString& statement) {
  QString error;
  if (!connection.Run(statement, {}, &error)) return Outcome::Stop(error);
  return Outcome::Ok();
}

Outcome DeBool(bool ok, const QString& error) { return ok ? Outcome::Ok() : Outcome::Stop(error); }

// Runs the steps in order inside one transaction, telling the progress of each.
Outcome Correr(const Session& session, const std::vector<Paso>& pasos, const Avance& avance) {
  Connection connection(session.Cadena);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  // A sweep rewrites what it reads: on a damaged file it would spread the damage.
  if (Outcome legible = RevisarIntegridad(connection, session.BaseDatos, true); !legible) {
    return legible;
  }
  Transaction transaction(connection);
  if (!transaction.ok()) return Outcome::Stop(connection.error());
  const int total = static_cast<int>(pasos.size());
  for (int i = 0; i < total; ++i) {
    if (avance.paso) avance.paso(pasos[i].etiqueta, i + 1, total);
    QElapsedTimer reloj;
    reloj.start();
    const Outcome hecho = pasos[i].hacer(connection);
    if (!hecho) return hecho;
    if (avance.terminado) avance.terminado(pasos[i].etiqueta, reloj.elapsed());
  }
  if (!transaction.Commit()) return Outcome::Stop(connection.error());
  return Outcome::Ok();
}

const char* const kDocumentos[] = {"ordenes de compra",
                                   "compras",
                                   "contrarecibos",
                                   "cotizaciones",
                                   "pedidos",
                                   "remisiones",
                                   "facturas",
                                   "produccion",
                                   "traspasos",
                                   "cxc",
                                   "cxp",
                                   "notas cliente",
                                   "notas proveedor",
                                   "ajustes de inventario"};

}  // namespace

Outcome Manto1(const Session& session, const Avance& avance) {
  std::vector<Paso> pasos;
  for (const char* tabla : kDocumentos) {
    const QString nombre = QString::fromUtf8(tabla);
    pasos.push_back({u"Periodo de "_s + nombre.toUpper(), [nombre, &session](Connection& c) {
                       return Sentencia(c, u"update "_s + dialect::Name(nombre) +
                                               u" set periodo = "_s +
                                               dialect::Year(u"fecha"_s, session.Sql));
                     }});
  }
  pasos.push_back({u"Existencias en cero"_s, [](Connection& c) {
                     return Sentencia(c,
                                      u"update productos set almacen1 = 0, almacen2 = 0, "
                                      u"almacen3 = 0, almacen4 = 0, almacen5 = 0"_s);
                   }});
  pasos.push_back({u"Existencias de todos los almacenes"_s, [](Connection& c) {
                     QString error;
                     const bool ok = mInventario::RecalcularExistencias(c, 0, std::nullopt, &error);
                     return DeBool(ok, error);
                   }});
  pasos.push_back({u"Redondeo de existencias"_s, [](Connection& c) {
                     // PostgreSQL rounds to places only a numeric, not a double.
                     QStringList columnas;
                     for (int n = 1; n <= 5; ++n) {
                       columnas << u"almacen%1 = round(cast(almacen%1 as numeric),2)"_s.arg(n);
                     }
                     return Sentencia(c, u"update productos set "_s + columnas.join(u", "_s));
                   }});
  return Correr(session, pasos, avance);
}

Outcome Manto2(const Session& session, const Avance& avance) {
  const QStringList todos;
  std::vector<Paso> pasos = {
      {u"Saldos de FACTURAS"_s,
       [&](Connection& c) { return mSaldos::RecalcularSaldosFacturas(c, todos); }},
      {u"Saldos de COMPRAS"_s,
       [&](Connection& c) { return mSaldos::RecalcularSaldosCompras(c, todos); }},
      {u"Status de ORDENES DE COMPRA"_s,
       [&](Connection& c) { return mSaldos::RecalcularSurtirOrdenes(c, todos); }},
      {u"Status de PEDIDOS"_s,
       [&](Connection& c) { return mSaldos::RecalcularSurtirPedidos(c, todos); }},
      {u"Status de REMISIONES"_s,
       [&](Connection& c) { return mSaldos::RecalcularStatusRemisiones(c, session, todos); }},
      {u"Saldos de CLIENTES"_s,
       [&](Connection& c) { return mSaldos::RecalcularSaldoClientes(c, 0); }},
      {u"Saldos de PROVEEDORES"_s,
       [&](Connection& c) { return mSaldos::RecalcularSaldoProveedores(c, 0); }},
  };
  return Correr(session, pasos, avance);
}

Outcome Barrido(const Session& session, const Avance& avance) {
  const QDir imagenes(session.CarpetaImagenes);
  auto recorrer = [&](Connection& c) -> Outcome {
    QStringList codigos;
    {
      QSqlQuery query = c.Exec(u"select codigo from productos order by codigo"_s);
      if (!query.isActive()) return Outcome::Stop(QueryError(query));
      while (query.next()) codigos << query.value(0).toString();
    }
    for (const QString& codigo : codigos) {
      // The picture is matched by the exact code: a code that is no plain file name (a slash
      // in it) never finds one.
      const bool hay = !codigo.contains(u'/') && !codigo.contains(u'\\') &&
                       QFileInfo(imagenes.filePath(codigo + u".jpg"_s)).isFile();
      QString error;
      if (!c.Run(u"update productos set imagen = ? where codigo = ?"_s,
                 {hay ? u"S"_s : QString(u""_s), codigo}, &error)) {
        return Outcome::Stop(error);
      }
      if (avance.detener && avance.detener()) break;
    }
    return Outcome::Ok();
  };
  return Correr(session, {{u"Imágenes de productos"_s, recorrer}}, avance);
}

}  // namespace ventarix::mantenimiento
