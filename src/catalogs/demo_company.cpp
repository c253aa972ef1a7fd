#include "catalogs/demo_company.h"

#include "catalogs/demo_tables.h"
#include "core/company_database.h"
#include "core/database.h"

namespace ventarix {

namespace {

constexpr quint32 kSemilla = 20260105;

// Every table in one go, in the order their numbers are referred to.
bool EscribirTodo(Connection& c, QString* error) {
  demo::Dice dice(kSemilla);
  return demo::EscribirEmpresa(c, error) && demo::EscribirMetodos(c, error) &&
         demo::EscribirTipos(c, error) && demo::EscribirSeries(c, error) &&
         demo::EscribirBancos(c, error) && demo::EscribirAgentes(c, error) &&
         demo::EscribirClientes(c, dice, error) && demo::EscribirProveedores(c, dice, error) &&
         demo::EscribirLineas(c, error) && demo::EscribirMarcas(c, error) &&
         demo::EscribirProductos(c, dice, error) &&
         demo::EscribirProductoTerminado(c, dice, error) &&
         demo::EscribirClientesUtilidades(c, error) && demo::EscribirPreciosPorCliente(c, error) &&
         demo::EscribirInventarioInicial(c, error) && demo::EscribirFolios(c, error);
}

}  // namespace

Outcome CrearEmpresaDemo(const QString& path) {
  const Outcome made = CrearEmpresa(path);
  if (!made) return made;
  Connection connection(CadenaDeRuta(path));
  if (!connection.ok()) return Outcome::Stop(connection.error());
  QString error;
  {
    Transaction transaction(connection);
    if (!transaction.ok())
      return Outcome::Stop(QStringLiteral("No se pudo iniciar la transacción"));
    if (!EscribirTodo(connection, &error)) return Outcome::Stop(error);
    if (!transaction.Commit()) {
      return Outcome::Stop(QStringLiteral("No se pudo guardar la empresa de demostración"));
    }
  }
  return Outcome::Ok();
}

}  // namespace ventarix
