// The built program, run as a shop's administrator would, on a machine without a display.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace ventarix::testing {

struct Run {
  int code = -1;
  QString out;
  QString err;
};

// `entrada` is what the administrator types on standard input (a password).
inline Run Ventarix(const QStringList& args, const QByteArray& entrada = {}) {
  QProcess process;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    env.remove(QString::fromLatin1(name));
  }
  process.setProcessEnvironment(env);
  process.start(QStringLiteral(VENTARIX_BUILD_DIR "/src/ventarix"), args);
  process.write(entrada);
  process.closeWriteChannel();
  Run run;
  if (!process.waitForFinished(300000) || process.exitStatus() != QProcess::NormalExit) {
    run.err = QStringLiteral("ventarix did not finish: ") + process.errorString();
    return run;
  }
  run.code = process.exitCode();
  run.out = QString::fromUtf8(process.readAllStandardOutput());
  run.err = QString::fromUtf8(process.readAllStandardError());
  return run;
}

inline QString Describe(const Run& run) {
  return QStringLiteral("exit %1\n%2\n%3").arg(run.code).arg(run.out, run.err);
}

}  // namespace ventarix::testing
