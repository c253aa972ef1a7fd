#include "demo/demo_company.h"

#include <memory>

#include <QFileInfo>

#include "core/company_database.h"
#include "core/company_tables.h"
#include "core/database.h"
#include "demo/demo_tables.h"

namespace ventarix {

namespace {

constexpr quint32 kSemilla = 20260105;

// Every table in one go, in the order their numbers are referred to.
bool EscribirTodo(Connection& c, const QString& carpeta, QString* error) {
  demo::Dice dice(kSemilla);
  return demo::EscribirEmpresa(c, error) && demo::EscribirMetodos(c, error) &&
         demo::EscribirTipos(c, error) && demo::EscribirSeries(c, error) &&
         demo::EscribirBancos(c, error) && demo::EscribirAgentes(c, error) &&
         demo::EscribirClientes(c, dice, error) && demo::EscribirProveedores(c, dice, error) &&
         demo::EscribirLineas(c, error) && demo::EscribirMarcas(c, error) &&
         demo::EscribirProductos(c, dice, error) &&
         demo::EscribirProductoTerminado(c, dice, error) &&
         demo::EscribirClientesUtilidades(c, error) && demo::EscribirPreciosPorCliente(c, error) &&
         demo::EscribirInventarioInicial(c, error) && demo::EscribirFolios(c, error) &&
         demo::EscribirHistoria(c, dice, carpeta, error) && demo::EscribirCompras(c, error) &&
         demo::EscribirPagosAProveedores(c, error) && demo::EscribirInventario(c, error);
}

}  // namespace

Outcome CrearEmpresaDemo(const QString& path) {
  std::unique_ptr<Connection> connection;
  if (Outcome o = company_tables::OpenEmpty(path, connection); !o) return o;
  // Tables and rows in one transaction: a demo cut short leaves an empty database that
  // another `demo` accepts.
  Transaction transaction(*connection);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  const Outcome made = CrearTablas(*connection);
  if (!made) return made;
  QString error;
  // The sealed documents' files go to the folder tree beside the company file.
  if (!EscribirTodo(*connection, QFileInfo(path).absolutePath(), &error)) {
    return Outcome::Stop(error);
  }
  if (!transaction.Commit()) {
    return Outcome::Stop(QStringLiteral("No se pudo guardar la empresa de demostración: ") +
                         transaction.error());
  }
  return made;
}

}  // namespace ventarix
