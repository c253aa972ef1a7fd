// The company a subcommand works on, opened as the desktop opens it but without a login.
#include <QFileInfo>
#include <QSqlQuery>

#include "app/commands.h"
#include "core/database.h"
#include "core/inicio.h"
#include "core/session_load.h"
#include "core/startup.h"

namespace ventarix::app {

namespace {

using namespace Qt::StringLiterals;

// Who works: the user's row gives the roles and the store, and the session load its rights.
// The ADMINISTRADOR of a company without any administrator has no row and every right, as at
// the desktop.
bool Entrar(Session& session, const QString& usuario, QString* error) {
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  QSqlQuery q = c.Exec(
      u"select usuario, administrador, gerente, tienda from usuarios where "
      u"usuario = ?"_s,
      {usuario});
  if (!q.isActive()) {
    *error = QueryError(q);
    return false;
  }
  if (q.next()) {
    session.Usuario = q.value(0).toString();
    session.Administrador = q.value(1).toString() == u"S";
    session.Gerente = q.value(2).toString() == u"S";
    const int tienda = q.value(3).toInt();
    session.Tienda = tienda >= 1 && tienda <= 5 ? tienda : 1;
    return true;
  }
  if (usuario == u"ADMINISTRADOR" &&
      c.Scalar(u"select count(*) from usuarios where administrador = 'S'"_s).toLongLong() == 0) {
    return true;
  }
  *error = u"Usuario no registrado para acceso al sistema: "_s + usuario;
  return false;
}

}  // namespace

QString Opcion(const QStringList& args, const QString& nombre) {
  for (qsizetype i = 0; i < args.size(); ++i) {
    if (args[i] == nombre) return args.value(i + 1);
    if (args[i].startsWith(nombre + u'=')) return args[i].mid(nombre.size() + 1);
  }
  return {};
}

bool AbrirEmpresa(const QString& path, Session& session, QString* error, const QString& usuario) {
  inicio::PrepararSesion(session);
  startup::AplicarEleccion(session, startup::EleccionDeArchivo(path));
  if (!QFileInfo::exists(session.BaseDatos)) {
    *error = u"No existe la empresa "_s + path;
    return false;
  }
  const Outcome revision = startup::ChecarEmpresa(session);
  if (!revision) {
    *error = revision.message;
    if (error->isEmpty()) {
      *error =
          u"No se puede abrir la empresa "_s + path + u": "_s + Connection(session.Cadena).error();
    }
    return false;
  }
  if (!usuario.isEmpty() && !Entrar(session, usuario, error)) return false;
  CargarSesion(session);
  return true;
}

}  // namespace ventarix::app
