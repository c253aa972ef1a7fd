#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include "app/commands.h"
#include "core/company_database.h"
#include "core/database.h"
#include "core/dialect.h"
#include "demo/demo_company.h"

namespace ventarix::app {

namespace {

// What a shop's administrator looks at first: how much the demo holds.
void PrintContents(const QString& path) {
  Connection connection(CadenaDeRuta(path));
  if (!connection.ok()) return;
  for (const char* table : {"clientes", "agentes", "proveedores", "bancos", "marcas", "lineas",
                            "productos", "remisiones", "cotizaciones", "pedidos", "facturas",
                            "notas cliente", "cxc", "compras", "cxp"}) {
    const QString name = QString::fromLatin1(table);
    const qint64 rows =
        connection.Scalar(QStringLiteral("select count(*) from ") + dialect::Name(name))
            .toLongLong();
    Print(QStringLiteral("  %1 %2").arg(name, -14).arg(rows, 6));
  }
}

}  // namespace

int RunDemo(const QStringList& args) {
  if (args.size() != 1) {
    PrintError(QStringLiteral("Uso: ventarix demo RUTA"));
    return kExitUsage;
  }
  const QString path = args[0];
  QElapsedTimer timer;
  timer.start();
  const Outcome made = CrearEmpresaDemo(path);
  if (!made) {
    PrintError(QStringLiteral("No se creó la empresa de demostración ") + path +
               QStringLiteral(": ") + made.message);
    return kExitFailed;
  }
  Print(
      QStringLiteral("Empresa de demostración creada: %1 (%2 ms)").arg(path).arg(timer.elapsed()));
  PrintContents(path);
  Print(QStringLiteral("Ábrala con: ventarix --empresa ") + path);
  return kExitOk;
}

}  // namespace ventarix::app
