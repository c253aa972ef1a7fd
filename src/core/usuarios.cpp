#include "core/usuarios.h"

#include <optional>

#include <QSqlError>
#include <QSqlQuery>

#include "core/database.h"
#include "core/mFunciones.h"
#include "core/passwords.h"
#include "core/usuarios_sql.h"

namespace ventarix::usuarios {

using namespace Qt::StringLiterals;

namespace {

// The store as typed, when it is a whole number from 1 to `maxima`.
std::optional<int> LeerTienda(const QString& texto, int maxima) {
  bool ok = false;
  const int tienda = texto.trimmed().toInt(&ok);
  if (!ok || tienda < 1 || tienda > maxima) return std::nullopt;
  return tienda;
}

// The stored form of a typed password. An empty one stays empty, so that a user without
// password still reads as such to the callers of the authorization prompt.
std::optional<QString> ContrasenaGuardada(const QString& tecleada) {
  if (tecleada.isEmpty()) return QString();
  QString hash = passwords::Hash(tecleada);
  if (hash.isEmpty()) return std::nullopt;
  return hash;
}

Outcome NoSePudoProteger() { return Outcome::Stop(u"No se pudo proteger la contraseña"_s); }

Outcome NoRegistrado() {
  return Outcome::Warning(u"Usuario no registrado para acceso al sistema"_s, u"Usuario"_s);
}

QString SiNo(bool valor) { return valor ? u"S"_s : u"N"_s; }

}  // namespace

bool PuedeCambiar(const Session& session, const QString& usuario) {
  return session.Administrador || usuario.trimmed() == session.Usuario;
}

Outcome AltaUsuario(Session& session, const DatosUsuario& datos) {
  if (!session.Administrador) {
    return Outcome::Warning(u"Este usuario no tiene permisos para el registro de altas"_s);
  }
  const QString usuario = datos.usuario.trimmed();
  if (usuario.isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada del usuario"_s, u"Usuario"_s);
  }
  const std::optional<int> tienda = LeerTienda(datos.tienda, 3);
  if (!tienda) {
    return Outcome::Warning(u"Se requiere la entrada de la tienda 1, 2 o 3"_s, u"Tienda"_s);
  }
  const std::optional<QString> contrasena = ContrasenaGuardada(datos.contrasena);
  if (!contrasena) return NoSePudoProteger();

  sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  const std::optional<qint64> mismos =
      guardado.Contar(u"select count(*) from usuarios where usuario = ?"_s, {usuario});
  if (!mismos) return guardado.falla();
  if (*mismos > 0) {
    return Outcome::Warning(u"Este usuario ya está registrado"_s, u"Usuario"_s);
  }
  const std::optional<qint64> administradores =
      guardado.Contar(u"select count(*) from usuarios where administrador = 'S'"_s);
  if (!administradores) return guardado.falla();
  // The first user must be able to enter and to give rights to the others.
  const bool administrador = datos.administrador || *administradores == 0;
  const QString permisos = QString(kLargoPermisos, administrador || datos.gerente ? u'1' : u'0');
  if (!guardado.Ejecutar(
          u"insert into usuarios (usuario, \"contraseña\", tienda, administrador, "
          "gerente, permisos) values (?, ?, ?, ?, ?, ?)"_s,
          {usuario, *contrasena, *tienda, SiNo(administrador), SiNo(datos.gerente), permisos})) {
    return guardado.falla();
  }
  return guardado.Terminar();
}

Outcome CambioUsuario(Session& session, const DatosUsuario& datos) {
  const QString usuario = datos.usuario.trimmed();
  if (!PuedeCambiar(session, usuario)) {
    return Outcome::Warning(u"Este usuario no tiene permisos para cambios de registros"_s);
  }
  const std::optional<int> tienda = LeerTienda(datos.tienda, 5);
  if (!tienda) {
    return Outcome::Warning(u"Se requiere la entrada de la tienda 1, 2, 3, 4 o 5"_s, u"Tienda"_s);
  }
  const std::optional<QString> contrasena = ContrasenaGuardada(datos.contrasena);
  if (!contrasena) return NoSePudoProteger();

  QStringList asignaciones;
  QVariantList valores;
  if (!contrasena->isEmpty()) {
    asignaciones << u"\"contraseña\" = ?"_s;
    valores << *contrasena;
  }
  asignaciones << u"tienda = ?"_s;
  valores << *tienda;
  // Someone who is no administrator cannot make themselves a manager.
  if (session.Administrador) {
    asignaciones << u"gerente = ?"_s;
    valores << SiNo(datos.gerente);
  }
  valores << usuario;

  sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  const std::optional<int> cambiados = guardado.Actualizar(
      u"update usuarios set "_s + asignaciones.join(u", "_s) + u" where usuario = ?"_s, valores);
  if (!cambiados) return guardado.falla();
  if (*cambiados == 0) return NoRegistrado();
  const Outcome terminado = guardado.Terminar();
  // The prompts that ask for one's own password verify against the session's copy.
  if (terminado && usuario == session.Usuario && !contrasena->isEmpty()) {
    session.Contrasena = *contrasena;
  }
  return terminado;
}

Outcome BorrarUsuario(const Session& session, const QString& usuario) {
  if (!session.Administrador) {
    return Outcome::Warning(u"Este usuario no tiene permisos para bajas de registros"_s);
  }
  const QString clave = usuario.trimmed();
  sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  // A company left without an administrator loses every user at its next start, and whoever
  // opens it then enters with all rights and no password.
  const std::optional<qint64> es_administrador = guardado.Contar(
      u"select count(*) from usuarios where usuario = ? and administrador = 'S'"_s, {clave});
  const std::optional<qint64> otros = guardado.Contar(
      u"select count(*) from usuarios where usuario <> ? and administrador = 'S'"_s, {clave});
  if (!es_administrador || !otros) return guardado.falla();
  if (*es_administrador > 0 && *otros == 0) {
    return Outcome::Warning(u"No se puede borrar al único administrador de la empresa"_s);
  }
  const std::optional<int> borrados =
      guardado.Actualizar(u"delete from usuarios where usuario = ?"_s, {clave});
  if (!borrados) return guardado.falla();
  if (*borrados == 0) return NoRegistrado();
  return guardado.Terminar();
}

Outcome LeerUsuario(const Session& session, const QString& usuario, DatosUsuario* datos) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery query =
      c.Exec(u"select usuario, tienda, administrador, gerente from usuarios where usuario = ?"_s,
             {usuario.trimmed()});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  if (!query.next()) return NoRegistrado();
  datos->usuario = query.value(0).toString();
  datos->contrasena.clear();
  datos->tienda = QString::number(query.value(1).toInt());
  datos->administrador = query.value(2).toString() == u"S"_s;
  datos->gerente = query.value(3).toString() == u"S"_s;
  return Outcome::Ok();
}

}  // namespace ventarix::usuarios
