#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include "app/commands.h"
#include "app/desktop.h"

namespace {

using namespace ventarix::app;

// The company named by "--empresa PATH" or "--empresa=PATH"; empty without one. Other options
// starting with "-" belong to Qt (-platform, -style) and go through to the desktop.
bool FindEmpresa(int argc, char** argv, QString* empresa) {
  const QString option = QStringLiteral("--empresa");
  for (int i = 1; i < argc; ++i) {
    const QString arg = QString::fromLocal8Bit(argv[i]);
    if (arg == option) {
      if (i + 1 >= argc) return false;
      *empresa = QString::fromLocal8Bit(argv[i + 1]);
      return true;
    }
    if (arg.startsWith(option + QLatin1Char('='))) {
      *empresa = arg.mid(option.size() + 1);
      return true;
    }
  }
  return true;
}

int RunSubcommand(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QStringList args = QCoreApplication::arguments().mid(1);
  const QString command = args.takeFirst();
  if (command == QLatin1String("empresa")) return RunEmpresa(args);
  if (command == QLatin1String("demo")) return RunDemo(args);
  if (command == QLatin1String("mantenimiento")) return RunMantenimiento(args);
  if (command == QLatin1String("documento")) return RunDocumento(args);
  if (command == QLatin1String("compra")) return RunCompra(args);
  if (command == QLatin1String("timbrar")) return RunTimbrar(args);
  if (command == QLatin1String("cancelar")) return RunCancelar(args);
  if (command == QLatin1String("--help") || command == QLatin1String("-h") ||
      command == QLatin1String("ayuda")) {
    PrintHelp();
    return kExitOk;
  }
  if (command == QLatin1String("--version")) {
    Print(QStringLiteral("Ventarix " VENTARIX_VERSION));
    return kExitOk;
  }
  PrintError(QStringLiteral("Orden desconocida: ") + command);
  PrintError(QStringLiteral("Escriba \"ventarix --help\" para ver las órdenes."));
  return kExitUsage;
}

bool IsSubcommand(const char* arg) {
  const QString word = QString::fromLocal8Bit(arg);
  return !word.startsWith(QLatin1Char('-')) || word == QLatin1String("--help") ||
         word == QLatin1String("-h") || word == QLatin1String("--version");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && IsSubcommand(argv[1])) return RunSubcommand(argc, argv);
  QString empresa;
  if (!FindEmpresa(argc, argv, &empresa)) {
    QCoreApplication app(argc, argv);
    PrintError(QStringLiteral("Falta la ruta de la empresa después de --empresa."));
    return kExitUsage;
  }
  return ventarix::RunDesktop(argc, argv, empresa);
}
