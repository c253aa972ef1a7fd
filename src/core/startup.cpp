#include "core/startup.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QSettings>
#include <QSqlError>
#include <QSqlQuery>

#include "core/company_database.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/passwords.h"

namespace ventarix::startup {

namespace {

const QString kS = QStringLiteral("S");

QSettings Almacen() { return QSettings(QStringLiteral("Ventarix"), QStringLiteral("TVik")); }

// A password still in the clear, from an older company, is hashed at its owner's login; the
// stored text the session keeps comes back. Failing to write it is logged and does not stop
// the login: the clear text keeps working until the next one.
QString HashAlEntrar(const Session& session, Connection& connection, const QString& usuario,
                     const QString& tecleada, const QString& guardada) {
  if (!passwords::NeedsHashing(guardada)) return guardada;
  const QString hash = passwords::Hash(tecleada);
  if (hash.isEmpty()) return guardada;
  Transaction transaction(connection);
  QString error;
  if (!transaction.ok() ||
      !connection.Run(QStringLiteral("update usuarios set \"contraseña\" = ? where usuario = ?"),
                      {hash, usuario}, &error) ||
      !transaction.Commit()) {
    mFunciones::RegistrarError(session, error.isEmpty() ? transaction.error() : error);
    return guardada;
  }
  return hash;
}

}  // namespace

bool SeparadorDecimalEsPunto(const QLocale& locale) {
  return !locale.toString(0.5, 'f', 1).contains(QLatin1Char(','));
}

bool SeparadorDecimalEsPunto() { return SeparadorDecimalEsPunto(QLocale::system()); }

QString MensajeSeparadorDecimal() {
  return QStringLiteral(
      "Se requiere configurar la separación de decimales con PUNTO ( . )\n"
      "Panel de Control\n"
      "Configuración Regional\n"
      "Español(México), Número");
}

EleccionGuardada LeerEleccion() {
  QSettings settings = Almacen();
  return {settings.value(QStringLiteral("MDB0")).toString(),
          settings.value(QStringLiteral("MDB1")).toString(),
          settings.value(QStringLiteral("MDB2")).toString(),
          settings.value(QStringLiteral("MDB3")).toString()};
}

void GuardarEleccion(const Session& session) {
  QSettings settings = Almacen();
  settings.setValue(QStringLiteral("MDB0"), session.Motor);
  settings.setValue(QStringLiteral("MDB1"), session.BaseDatos);
  settings.setValue(QStringLiteral("MDB2"), session.BaseNombre);
  settings.setValue(QStringLiteral("MDB3"), session.BaseCarpeta);
  settings.sync();
}

void OlvidarEleccion() {
  QSettings settings = Almacen();
  settings.clear();
  settings.sync();
}

QString MotorDeTitulo(const QString& titulo) {
  if (titulo.isEmpty()) return {};
  // The same rule as `empresa nueva`: whatever is not a connection file is a SQLite file.
  if (titulo.toLower().contains(QLatin1String(".txt"))) return QStringLiteral("Sql");
  return QStringLiteral("Access");
}

void AplicarEleccion(Session& session, const EleccionGuardada& eleccion) {
  session.Sql = false;
  session.Access = false;
  session.Motor = eleccion.motor;
  session.BaseDatos = eleccion.base_datos;
  session.BaseNombre = eleccion.base_nombre;
  session.BaseCarpeta = eleccion.base_carpeta;
  if (session.Motor == QLatin1String("Sql")) {
    session.Sql = true;
  } else if (session.Motor == QLatin1String("Access")) {
    session.Access = true;
  } else {
    session.BaseDatos.clear();
  }
}

EleccionGuardada EleccionDeArchivo(const QString& path) {
  const QFileInfo info(path);
  return {MotorDeTitulo(info.fileName()), info.absoluteFilePath(), info.fileName(),
          info.absolutePath()};
}

Outcome ChecarEmpresa(Session& session) {
  const Outcome fallo{false, {}, MessageIcon::kNone, {}};
  if (session.BaseDatos.isEmpty() || !QFileInfo::exists(session.BaseDatos)) return fallo;
  mFunciones::ConstruirCadenas(session);
  Connection connection(session.Cadena);
  if (!connection.ok()) return fallo;
  // A file that is no database, or one the engine can't read, says so rather than lacking
  // its tables.
  if (Outcome legible = RevisarIntegridad(connection, session.BaseDatos, false); !legible) {
    return legible;
  }
  const QString tabla = QStringLiteral("tablas");
  for (const QString& name : connection.Tables()) {
    if (name.compare(tabla, Qt::CaseInsensitive) == 0) return Outcome::Ok();
  }
  return Outcome::Refuse(QStringLiteral("En la base de datos:\n") + session.BaseDatos +
                         QStringLiteral("\nno existe la tabla: ") + tabla);
}

bool PedirDireccionRemota(const Session& session) {
  return session.Sql && session.Cadena.contains(QLatin1String("1433"));
}

QString DireccionActual(const Session& session) {
  const std::optional<ConnectionTarget> target = ParseCadena(session.Cadena);
  return target ? target->host : QString();
}

RespuestaDireccion RevisarDireccion(const QString& respuesta) {
  RespuestaDireccion r;
  for (const QChar c : respuesta) {
    if (!c.isSpace()) r.direccion += c;
  }
  r.vacia = r.direccion.isEmpty();
  r.valida = !r.vacia && r.direccion.count(QLatin1Char('.')) == 3;
  return r;
}

bool CambiarDireccionRemota(Session& session, const QString& direccion) {
  std::optional<ConnectionTarget> target = ParseCadena(session.Cadena);
  if (!target || target->engine != Engine::kPostgres) return false;
  target->host = direccion;
  target->port = 1433;
  const QString cadena = PostgresCadena(*target);
  QSaveFile file(session.BaseDatos);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) return false;
  const QByteArray lineas = (cadena + QLatin1Char('\n') + cadena + QLatin1Char('\n')).toUtf8();
  if (file.write(lineas) != lineas.size() || !file.commit()) return false;
  session.Cadena = cadena;
  session.CadenaShape = cadena;
  return true;
}

bool EntrarSinAcceso(Session& session) {
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    mFunciones::RegistrarError(session, connection.error());
    return false;
  }
  QSqlQuery query = connection.Exec(QStringLiteral("select * from usuarios"));
  if (query.lastError().isValid()) {
    mFunciones::RegistrarError(session, QueryError(query));
    return false;
  }
  session.ContrasenaAdministrador = QString::fromLatin1(mFunciones::kClaveFija);
  session.ContrasenaGerente = session.ContrasenaAdministrador;
  bool hay_administrador = false;
  while (query.next()) {
    const QString contrasena = query.value(QStringLiteral("contraseña")).toString();
    if (query.value(QStringLiteral("administrador")).toString() == kS) {
      session.ContrasenaAdministrador = contrasena;
      hay_administrador = true;
    } else if (query.value(QStringLiteral("gerente")).toString() == kS) {
      session.ContrasenaGerente = contrasena;
    }
  }
  if (hay_administrador) return false;
  // A company without an administrator has no login: whoever opens it is the administrator.
  query.finish();
  QString error;
  Transaction transaction(connection);
  if (!transaction.ok() || !connection.Run(QStringLiteral("delete from usuarios"), {}, &error) ||
      !transaction.Commit()) {
    mFunciones::RegistrarError(session, error.isEmpty() ? transaction.error() : error);
    return false;
  }
  session.Contrasena.clear();
  session.ContrasenaAdministrador.clear();
  session.ContrasenaGerente.clear();
  session.Usuario = QStringLiteral("ADMINISTRADOR");
  session.Administrador = true;
  session.Gerente = false;
  return true;
}

Outcome Entrar(Session& session, const QString& usuario, const QString& contrasena) {
  Connection connection(session.Cadena);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  QSqlQuery query =
      connection.Exec(QStringLiteral("select * from usuarios where usuario = ?"), {usuario});
  if (query.lastError().isValid()) {
    mFunciones::RegistrarError(session, QueryError(query));
    return Outcome::Stop(QueryError(query));
  }
  if (!query.next()) {
    return Outcome::Warning(QStringLiteral("Usuario no registrado para acceso al sistema"),
                            QStringLiteral("usuario"));
  }
  const QString guardada = query.value(QStringLiteral("contraseña")).toString();
  if (!passwords::Verify(contrasena, guardada)) {
    return Outcome::Warning(QStringLiteral("Contraseña no válida para acceso al sistema"),
                            QStringLiteral("contrasena"));
  }
  session.Usuario = query.value(QStringLiteral("usuario")).toString();
  session.Administrador = query.value(QStringLiteral("administrador")).toString() == kS;
  session.Gerente = query.value(QStringLiteral("gerente")).toString() == kS;
  const int tienda = query.value(QStringLiteral("tienda")).toInt();
  session.Tienda = tienda >= 1 && tienda <= 5 ? tienda : 1;
  query.finish();
  // The stored text: authorization prompts verify against it.
  session.Contrasena = HashAlEntrar(session, connection, session.Usuario, contrasena, guardada);
  return Outcome::Ok();
}

}  // namespace ventarix::startup
