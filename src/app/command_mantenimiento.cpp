#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include "app/commands.h"
#include "app/empresa_abierta.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/session.h"
#include "maintenance/sweeps.h"

namespace ventarix::app {

namespace {

constexpr int kAnchoBarra = 20;

int Usage() {
  PrintError(QStringLiteral("Uso: ventarix mantenimiento manto1|manto2|barrido --empresa RUTA"));
  return kExitUsage;
}

QString Barra(int hechos, int total) {
  const int llenos = total > 0 ? hechos * kAnchoBarra / total : 0;
  return QLatin1Char('[') + QString(llenos, QLatin1Char('#')) +
         QString(kAnchoBarra - llenos, QLatin1Char('.')) + QLatin1Char(']');
}

// One line per step, begun when the step begins and ended with its time, so that a night's
// log shows which step a failure stopped in.
mantenimiento::Avance AvanceEnConsola(QTextStream& out, qint64* filas) {
  mantenimiento::Avance avance;
  avance.paso = [&out](const QString& paso, int numero, int pasos) {
    out << Barra(numero, pasos) << QStringLiteral(" %1/%2 ").arg(numero, 2).arg(pasos)
        << QStringLiteral("%1").arg(paso, -36) << Qt::flush;
  };
  avance.terminado = [&out](const QString&, qint64 milisegundos) {
    out << QStringLiteral("%1 ms").arg(milisegundos, 8) << Qt::endl;
  };
  avance.detener = [filas] {
    ++*filas;
    return false;
  };
  return avance;
}

}  // namespace

int RunMantenimiento(const QStringList& args) {
  using Barrido = Outcome (*)(const Session&, const mantenimiento::Avance&);
  const QString accion = args.value(0);
  Barrido barrido = nullptr;
  if (accion == QLatin1String("manto1")) barrido = &mantenimiento::Manto1;
  if (accion == QLatin1String("manto2")) barrido = &mantenimiento::Manto2;
  if (accion == QLatin1String("barrido")) barrido = &mantenimiento::Barrido;
  if (barrido == nullptr) {
    if (!accion.isEmpty())
      PrintError(QStringLiteral("Acción desconocida: mantenimiento ") + accion);
    return Usage();
  }
  const QString path = Opcion(args, QStringLiteral("--empresa"));
  if (path.isEmpty()) return Usage();

  Session session;
  QString error;
  if (!AbrirEmpresa(path, QStringLiteral("ADMINISTRADOR"), session, &error)) {
    PrintError(error);
    return kExitFailed;
  }
  QTextStream out(stdout);
  out << QStringLiteral("Mantenimiento %1 de %2").arg(accion, path) << Qt::endl;
  qint64 filas = 0;
  QElapsedTimer reloj;
  reloj.start();
  const Outcome hecho = barrido(session, AvanceEnConsola(out, &filas));
  if (!hecho) {
    out << Qt::endl;
    PrintError(QStringLiteral("El mantenimiento no terminó: ") + hecho.message);
    // The company's folder tree is known by now: the month's error log keeps it too.
    mFunciones::RegistrarError(session, hecho.message);
    return kExitFailed;
  }
  if (barrido == &mantenimiento::Barrido)
    out << QStringLiteral("Productos: %1").arg(filas) << Qt::endl;
  out << QStringLiteral("Terminado en %1 ms").arg(reloj.elapsed()) << Qt::endl;
  return kExitOk;
}

}  // namespace ventarix::app
