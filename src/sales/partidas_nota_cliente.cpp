#include "sales/partidas_nota_cliente.h"

#include <QSqlQuery>

#include "sales/familias_ventas.h"

namespace ventarix::ventas {

using namespace Qt::StringLiterals;

bool RangoDeNotasConFolios(Connection& c, qint32 numero) {
  QSqlQuery q =
      c.Exec(u"select folioinicial, foliofinal from \"folios notas\" where numero = ?"_s, {numero});
  return q.next() && (q.value(0).toInt() != 0 || q.value(1).toInt() != 0);
}

std::optional<QString> DeptoDeFactura(Connection& c, const QString& factura) {
  QSqlQuery q = c.Exec(u"select depto from facturas where factura = ?"_s, {factura});
  if (!q.next()) return std::nullopt;
  return q.value(0).toString().trimmed();
}

Outcome PartidasDeFactura(const Session& session, Connection& c, const captura::Documento& nota,
                          const QString& factura, bool descuento, const QString& codigo,
                          std::vector<QVariantMap>* partidas) {
  captura::Documento d = nota;
  QVariantMap fila{{u"factura"_s, factura}};
  if (descuento) fila.insert(u"dppp"_s, u"S"_s);
  if (!codigo.isEmpty()) fila.insert(u"codigo"_s, codigo);
  d.partidas = {fila};
  if (Outcome o = NotasCliente().completar_encabezado(session, c, &d); !o) return o;
  *partidas = std::move(d.partidas);
  return Outcome::Ok();
}

}  // namespace ventarix::ventas
