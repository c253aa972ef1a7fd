#include "core/catalogo_nombre.h"

#include <QSqlRecord>

#include "core/database.h"

namespace ventarix {

using namespace Qt::StringLiterals;

QString TablaDeCatalogo(Catalogo catalogo) {
  switch (catalogo) {
    case Catalogo::kClientes:
      return u"clientes"_s;
    case Catalogo::kAgentes:
      return u"agentes"_s;
    case Catalogo::kProveedores:
      return u"proveedores"_s;
    case Catalogo::kMarcas:
      return u"marcas"_s;
    case Catalogo::kLineas:
      return u"lineas"_s;
    case Catalogo::kMetodos:
      return u"metodos"_s;
    case Catalogo::kBancos:
      return u"bancos"_s;
  }
  return {};
}

std::optional<RowValues> LeerCatalogo(const Session& session, Catalogo catalogo, qint32 numero) {
  Connection c(session.Cadena);
  if (!c.ok()) return std::nullopt;
  QSqlQuery query =
      c.Exec(u"select * from %1 where numero = ?"_s.arg(TablaDeCatalogo(catalogo)), {numero});
  if (!query.next()) return std::nullopt;
  RowValues row;
  const QSqlRecord record = query.record();
  for (int i = 0; i < record.count(); ++i) row.Set(record.fieldName(i), query.value(i));
  return row;
}

}  // namespace ventarix
