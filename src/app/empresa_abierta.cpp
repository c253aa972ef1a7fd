#include "app/empresa_abierta.h"

#include <QFileInfo>
#include <QSqlQuery>

#include "core/database.h"
#include "core/inicio.h"
#include "core/session_load.h"
#include "core/startup.h"

namespace ventarix::app {

namespace {

// The user's row decides who works: roles and store. Nothing is read when the user is the
// built-in administrator of a company that has no such row.
bool Usuario(Session& session, const QString& usuario, QString* error) {
  session.Usuario = usuario.trimmed().toUpper();
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(QStringLiteral("select administrador, gerente, tienda from usuarios "
                                      "where usuario = ?"),
                       {session.Usuario});
  if (!q.next()) {
    if (session.Usuario == QLatin1String("ADMINISTRADOR")) return true;
    *error = QStringLiteral("No existe el usuario ") + session.Usuario;
    return false;
  }
  session.Administrador = q.value(0).toString() == QLatin1String("S");
  session.Gerente = q.value(1).toString() == QLatin1String("S");
  session.Tienda = qBound(1, q.value(2).toInt(), 5);
  return true;
}

}  // namespace

QString Opcion(const QStringList& args, const QString& nombre) {
  for (qsizetype i = 0; i < args.size(); ++i) {
    if (args[i] == nombre) return args.value(i + 1);
    if (args[i].startsWith(nombre + QLatin1Char('='))) return args[i].mid(nombre.size() + 1);
  }
  return {};
}

QStringList SinOpciones(const QStringList& args, const QStringList& con_valor) {
  QStringList palabras;
  for (qsizetype i = 0; i < args.size(); ++i) {
    if (con_valor.contains(args[i])) {
      ++i;
    } else if (!args[i].startsWith(QLatin1String("--"))) {
      palabras << args[i];
    }
  }
  return palabras;
}

bool AbrirEmpresa(const QString& path, const QString& usuario, Session& session, QString* error) {
  inicio::PrepararSesion(session);
  startup::AplicarEleccion(session, startup::EleccionDeArchivo(path));
  if (!QFileInfo::exists(session.BaseDatos)) {
    *error = QStringLiteral("No existe la empresa ") + path;
    return false;
  }
  const Outcome revision = startup::ChecarEmpresa(session);
  if (!revision) {
    *error = revision.message;
    if (error->isEmpty()) {
      *error = QStringLiteral("No se puede abrir la empresa ") + path + QStringLiteral(": ") +
               Connection(session.Cadena).error();
    }
    return false;
  }
  if (!Usuario(session, usuario, error)) return false;
  CargarSesion(session);
  return true;
}

}  // namespace ventarix::app
