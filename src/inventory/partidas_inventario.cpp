#include "inventory/partidas_inventario.h"

#include <QSqlQuery>

#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/registro_leido.h"
#include "documents/mInventario.h"

namespace ventarix::inventario {

using namespace Qt::StringLiterals;

double Numero(const QVariantMap& valores, const char* columna) {
  return mFunciones::ValorNumerico(valores.value(QString::fromUtf8(columna)));
}

QString Texto(const QVariantMap& valores, const char* columna) {
  return mFunciones::ValorTexto(valores.value(QString::fromUtf8(columna))).trimmed();
}

bool Falta(const QVariantMap& valores, const char* columna) {
  const QVariant valor = valores.value(QString::fromUtf8(columna));
  return !valor.isValid() || valor.isNull() || valor.toString().trimmed().isEmpty();
}

void PonerSiFalta(QVariantMap* valores, const char* columna, const QVariant& valor) {
  if (Falta(*valores, columna)) valores->insert(QString::fromUtf8(columna), valor);
}

Outcome LeerProducto(Connection& c, const QString& codigo, RowValues* producto) {
  const QString buscado = codigo.trimmed().toUpper();
  if (QSqlQuery& exacto = c.ExecRepetida(u"select * from productos where codigo = ?"_s, {buscado});
      exacto.next()) {
    *producto = RegistroLeido(exacto);
    return Outcome::Ok();
  }
  const mFunciones::SqlText sql = mFunciones::SqlProducto(buscado);
  QSqlQuery otro = c.Exec(sql.text, sql.values);
  if (!otro.next()) {
    return Outcome::Warning(u"Este código no existe en productos\n\n"_s + buscado, u"Fg1"_s);
  }
  *producto = RegistroLeido(otro);
  return Outcome::Ok();
}

Outcome CompletarDescripcion(Connection& c, QVariantMap* p, RowValues* producto) {
  if (Outcome o = LeerProducto(c, Texto(*p, "codigo"), producto); !o) return o;
  p->insert(u"codigo"_s, producto->Text(u"codigo"_s));
  PonerSiFalta(p, "descripcion", producto->Text(u"producto"_s));
  PonerSiFalta(p, "unidad", producto->Text(u"unidad"_s));
  return Outcome::Ok();
}

Outcome ObservacionRequerida(const QVariantMap& encabezado, const QString& campo) {
  if (Texto(encabezado, "obs").isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de una observación"_s, campo);
  }
  return Outcome::Ok();
}

Outcome MoverAlmacen(Connection& c, const QString& tabla, const QString& columna,
                     const QString& llave, int almacen, int signo) {
  QString error;
  if (!mInventario::ActualizarExistencias(c, tabla, columna, llave, almacen, signo, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

int Almacen(const QVariant& valor) {
  QString texto = valor.toString().trimmed().toUpper();
  texto.remove(u"ALMACEN"_s);
  bool ok = false;
  const int numero = texto.toInt(&ok);
  return ok && numero >= 1 && numero <= 5 ? numero : 0;
}

}  // namespace ventarix::inventario
