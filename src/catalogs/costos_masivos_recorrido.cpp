#include "catalogs/costos_masivos_recorrido.h"

#include <cmath>
#include <limits>

#include <QSqlError>
#include <QSqlQuery>

#include "core/mFunciones_valores.h"

namespace ventarix::costos_masivos::detalle {

using namespace Qt::StringLiterals;

namespace {

// Spreadsheet cells may hold line breaks; a code or a name never does.
QString Texto(const Fila& fila, int columna) {
  QString texto = fila.value(columna);
  texto.remove(u'\r');
  texto.remove(u'\n');
  return mFunciones::ValorTexto(texto).toUpper();
}

// A figure too long to be a number would be stored as infinity: it counts as nothing.
double Numero(const Fila& fila, int columna) {
  const double valor = mFunciones::ValorNumerico(fila.value(columna));
  return std::isfinite(valor) ? valor : 0;
}

bool EsEncabezado(const QString& codigo) { return codigo == u"CÓDIGO" || codigo == u"CODIGO"; }

// A brand or line number the catalogue can hold: a whole number from 1 up.
bool EsNumeroDeCatalogo(double valor) {
  return valor >= 1 && valor <= std::numeric_limits<qint32>::max();
}

Resultado Fallo(const QString& descripcion, int fila) {
  Resultado resultado;
  resultado.outcome = Outcome::Stop(descripcion);
  resultado.fila = fila;
  return resultado;
}

}  // namespace

FilaLeida LeerFila(const Fila& fila) {
  FilaLeida leida;
  leida.codigo = Texto(fila, kCodigo);
  leida.producto = Texto(fila, kProducto);
  leida.unidad = Texto(fila, kUnidad);
  leida.costo = Numero(fila, kCosto);
  leida.marca = Numero(fila, kMarca);
  leida.linea = Numero(fila, kLinea);
  leida.impuesto = Numero(fila, kImpuesto);
  leida.precio = Numero(fila, kPrecio);
  leida.venta = Numero(fila, kVenta);
  return leida;
}

Resultado Recorrer(const Session& session, const QList<Fila>& filas, const GuardarFila& guardar,
                   const QString& mensaje) {
  Connection c(session.Cadena);
  if (!c.ok()) return Fallo(c.error(), 1);
  Transaction transaccion(c);
  if (!transaccion.ok()) return Fallo(c.error(), 1);

  Resultado resultado;
  qsizetype i = 0;
  for (; i < filas.size(); ++i) {
    const FilaLeida fila = LeerFila(filas.at(i));
    if (fila.codigo.isEmpty()) break;
    if (EsEncabezado(fila.codigo)) continue;
    const Paso paso = guardar(c, fila);
    if (!paso.outcome) {
      // Leaving without Commit undoes the rows already written.
      resultado.outcome = paso.outcome;
      resultado.fila = static_cast<int>(i) + 1;
      resultado.columna = paso.columna;
      resultado.productos = 0;
      return resultado;
    }
    if (paso.escrito) ++resultado.productos;
  }
  resultado.fila = static_cast<int>(i) + 1;
  if (!transaccion.Commit()) return Fallo(c.error(), resultado.fila);
  resultado.outcome = {true, mensaje + QString::number(resultado.fila), MessageIcon::kInformation,
                       QString()};
  return resultado;
}

std::optional<Guardado> LeerProducto(Connection& c, const QString& codigo, QString* error) {
  QSqlQuery query = c.Exec(
      u"select utilidad1, utilidad2, utilidad3, utilidad4, utilidad5, impuesto "
      "from productos where codigo = ?"_s,
      {codigo});
  if (query.lastError().isValid()) {
    *error = QueryError(query);
    return std::nullopt;
  }
  if (!query.next()) return std::nullopt;
  Guardado guardado;
  for (int k = 0; k < 5; ++k) guardado.utilidades[k] = query.value(k).toDouble();
  guardado.impuesto = query.value(5).toDouble();
  return guardado;
}

Paso Agregar(Connection& c, const FilaLeida& fila, bool con_precios) {
  QSqlQuery existe = c.Exec(u"select count(*) from productos where codigo = ?"_s, {fila.codigo});
  if (existe.lastError().isValid() || !existe.next()) {
    return Paso::Refusado(Outcome::Stop(QueryError(existe)));
  }
  if (existe.value(0).toLongLong() > 0) return Paso::Nada();

  // The same checks as a product typed on its own screen.
  if (fila.codigo == u"DPPP") {
    return Paso::Refusado(Outcome::Warning(u"Este código se utiliza para notas de crédito"_s),
                          kCodigo);
  }
  if (!EsNumeroDeCatalogo(fila.marca)) {
    return Paso::Refusado(Outcome::Warning(u"Se requiere la entrada de una marca"_s), kMarca);
  }
  if (!EsNumeroDeCatalogo(fila.linea)) {
    return Paso::Refusado(Outcome::Warning(u"Se requiere la entrada de una línea"_s), kLinea);
  }

  QString columnas = u"codigo, costo, producto, unidad, marca, linea, impuesto, status"_s;
  QString marcas = u"?, ?, ?, ?, ?, ?, ?, ?"_s;
  QVariantList valores = {fila.codigo,
                          fila.costo,
                          fila.producto,
                          fila.unidad,
                          static_cast<qint32>(std::lround(fila.marca)),
                          static_cast<qint32>(std::lround(fila.linea)),
                          fila.impuesto,
                          u"ALTA"_s};
  if (con_precios) {
    columnas += u", precio, venta"_s;
    marcas += u", ?, ?"_s;
    valores << fila.precio << fila.venta;
  }
  QString error;
  if (!c.Run(u"insert into productos ("_s + columnas + u") values ("_s + marcas + u')', valores,
             &error)) {
    return Paso::Refusado(Outcome::Stop(error));
  }
  return Paso::Escrito();
}

}  // namespace ventarix::costos_masivos::detalle
