#include <QString>
#include <QStringList>

#include "app/commands.h"
#include "core/company_database.h"
#include "core/database.h"

namespace ventarix::app {

namespace {

int Usage(const QString& line) {
  PrintError(QStringLiteral("Uso: ventarix ") + line);
  return kExitUsage;
}

int Failed(const QString& message) {
  PrintError(message);
  return kExitFailed;
}

int Nueva(const QString& path) {
  const Outcome made = CrearEmpresa(path);
  if (!made)
    return Failed(QStringLiteral("No se creó la empresa ") + path + QStringLiteral(": ") +
                  made.message);
  Print(QStringLiteral("Empresa creada: ") + path);
  return kExitOk;
}

// An existing company opened for upkeep or as the source of a copy, its file read whole;
// *error says why not.
QString CadenaExistente(const QString& path, QString* error) {
  const QString cadena = CadenaDeRuta(path);
  if (cadena.isEmpty()) {
    *error = QStringLiteral("No se puede leer el archivo de conexión: ") + path;
    return {};
  }
  Connection connection(cadena);
  if (const Outcome legible = RevisarIntegridad(connection, path, true); !legible) {
    *error = legible.message;
    return {};
  }
  return cadena;
}

int Reparar(const QString& path) {
  QString error;
  const QString cadena = CadenaExistente(path, &error);
  if (cadena.isEmpty()) return Failed(error);
  Connection connection(cadena);
  int changes = 0;
  const Outcome done = RepararEstructura(connection, [&changes](const QString& line) {
    Print(line);
    ++changes;
  });
  if (!done) return Failed(QStringLiteral("La reparación no terminó: ") + done.message);
  if (changes > 0) Print(QStringLiteral("Cambios aplicados: %1").arg(changes));
  // What the stored rows did not allow is still to do: the company is not complete.
  if (!done.message.isEmpty()) return Failed(done.message);
  if (changes == 0) Print(QStringLiteral("La estructura de la empresa está completa."));
  return kExitOk;
}

int Copiar(const QString& origen, const QString& destino) {
  QString error;
  if (CadenaExistente(origen, &error).isEmpty()) return Failed(error);
  const Outcome made = CrearEmpresa(destino);
  if (!made)
    return Failed(QStringLiteral("No se creó la empresa ") + destino + QStringLiteral(": ") +
                  made.message);
  qint64 total = 0;
  int tables = 0;
  const Outcome copied =
      CopiarEmpresa(origen, destino, [&total, &tables](const QString& table, qint64 rows) {
        Print(QStringLiteral("  %1 %2").arg(table, -32).arg(rows, 10));
        total += rows;
        ++tables;
      });
  if (!copied) return Failed(QStringLiteral("La copia no terminó: ") + copied.message);
  Print(QStringLiteral("  %1 %2").arg(QStringLiteral("Total"), -32).arg(total, 10));
  Print(QStringLiteral("Copiadas %1 filas de %2 tablas de %3 a %4")
            .arg(total)
            .arg(tables)
            .arg(origen, destino));
  return kExitOk;
}

}  // namespace

int RunEmpresa(const QStringList& args) {
  const QString action = args.value(0);
  if (action == QLatin1String("nueva")) {
    if (args.size() != 2) return Usage(QStringLiteral("empresa nueva RUTA"));
    return Nueva(args[1]);
  }
  if (action == QLatin1String("reparar")) {
    if (args.size() != 2) return Usage(QStringLiteral("empresa reparar RUTA"));
    return Reparar(args[1]);
  }
  if (action == QLatin1String("copiar")) {
    if (args.size() != 3) return Usage(QStringLiteral("empresa copiar ORIGEN DESTINO"));
    return Copiar(args[1], args[2]);
  }
  if (!action.isEmpty()) PrintError(QStringLiteral("Acción desconocida: empresa ") + action);
  return Usage(QStringLiteral("empresa nueva|reparar|copiar ..."));
}

}  // namespace ventarix::app
