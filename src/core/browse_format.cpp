#include "core/browse_format.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

#include "core/database.h"
#include "core/mFunciones.h"

namespace ventarix::mBrowse {

namespace {

using namespace Qt::StringLiterals;

const QString kPlantillaTexto = QString::fromLatin1(kPlantilla);

bool SeguridadValida(const QString& seguridad) {
  static const QRegularExpression kNumero(u"^\\s*[0-9]*\\s*$"_s);
  for (const QString& linea : LineasDeSeguridad(seguridad).split(u"\r\n"_s, Qt::SkipEmptyParts)) {
    const QStringList campos = linea.split(u'|');
    if (campos.size() > 5) return false;
    if (campos.size() >= 3 && !kNumero.match(campos[2]).hasMatch()) return false;
    if (campos.size() >= 5 && !kNumero.match(campos[4]).hasMatch()) return false;
  }
  return true;
}

bool OrdenValido(const QString& ordenar) {
  static const QRegularExpression kOrden(
      u"^\\s*(\\[[^\\]]+\\]|[^\\s\\[\\],]+)\\s+(asc|desc)\\s*$"_s,
      QRegularExpression::CaseInsensitiveOption);
  if (ordenar.trimmed().isEmpty()) return true;
  for (const QString& parte : ordenar.split(u',')) {
    if (!kOrden.match(parte).hasMatch()) return false;
  }
  return true;
}

Outcome Revisar(const QStringList& usuarios, const Formato& f) {
  if (!f.AplicarPermisos && !f.AplicarSeguridad && !f.AplicarOrdenar && !f.AplicarSql) {
    return Outcome::Warning(
        u"Se requiere Aplicar Permisos, Aplicar Seguridad, Aplicar Ordenar o Aplicar Sql"_s);
  }
  if (usuarios.isEmpty()) {
    return Outcome::Warning(u"Se requiere marcar al menos un usuario"_s, u"Usuarios"_s);
  }
  static const QRegularExpression kPermisos(u"^[01]*$"_s);
  if (f.AplicarPermisos && !kPermisos.match(f.Permisos).hasMatch()) {
    return Outcome::Warning(u"Los permisos se escriben con 1 y 0, uno por botón"_s, u"Permisos"_s);
  }
  if (f.AplicarSeguridad && !SeguridadValida(f.Seguridad)) {
    return Outcome::Warning(
        u"Cada línea de seguridad lleva hasta cinco campos separados por |; "
        u"los campos 3 y 5 son números"_s,
        u"Seguridad"_s);
  }
  if (f.AplicarOrdenar && !OrdenValido(f.Ordenar)) {
    return Outcome::Warning(
        u"El orden se escribe como [columna] Asc o [columna] Desc, separados por comas"_s,
        u"Ordenar"_s);
  }
  return Outcome::Ok();
}

bool ExisteFila(Connection& c, const QString& tabla, const QString& usuario) {
  return c.Scalar(u"select count(*) from tablas where tabla = ? and usuario = ?"_s,
                  {tabla, usuario})
             .toInt() > 0;
}

// A new user's row starts as the template's layout; the template's own search and position
// are its user's, not the view's.
bool AgregarFila(Connection& c, const QString& tabla, const QString& usuario, QString* error) {
  if (usuario != kPlantillaTexto && ExisteFila(c, tabla, kPlantillaTexto)) {
    return c.Run(
        u"insert into tablas (tabla, usuario, sentencia, cadena, busqueda, ordenar, permisos, "
        u"seguridad, extender, renglon, altura, posicion) "
        u"select tabla, ?, sentencia, cadena, '', ordenar, permisos, seguridad, extender, 0, "
        u"altura, 0 from tablas where tabla = ? and usuario = ?"_s,
        {usuario, tabla, kPlantillaTexto}, error);
  }
  QVariantMap fila = mFunciones::InicializarRegistro(u"tablas"_s);
  fila.insert(u"tabla"_s, tabla);
  fila.insert(u"usuario"_s, usuario);
  QStringList marcas;
  for (qsizetype i = 0; i < fila.size(); ++i) marcas << u"?"_s;
  return c.Run(u"insert into tablas ("_s + fila.keys().join(u", "_s) + u") values ("_s +
                   marcas.join(u", "_s) + u')',
               fila.values(), error);
}

bool ActualizarFila(Connection& c, const QString& tabla, const QString& usuario, const Formato& f,
                    QString* error) {
  QStringList asignaciones;
  QVariantList valores;
  const auto poner = [&](bool aplicar, const char* columna, const QString& valor) {
    if (!aplicar) return;
    asignaciones << QString::fromLatin1(columna) + u" = ?"_s;
    valores << valor;
  };
  poner(f.AplicarPermisos, "permisos", f.Permisos);
  poner(f.AplicarSeguridad, "seguridad", LineasDeSeguridad(f.Seguridad));
  poner(f.AplicarOrdenar, "ordenar", f.Ordenar.trimmed());
  poner(f.AplicarSql, "sentencia", f.Sentencia.trimmed());
  valores << tabla << usuario;
  return c.Run(
      u"update tablas set "_s + asignaciones.join(u", "_s) + u" where tabla = ? and usuario = ?"_s,
      valores, error);
}

}  // namespace

std::vector<UsuarioDeFormato> UsuariosDeFormato(const Session& session) {
  std::vector<UsuarioDeFormato> usuarios{{kPlantillaTexto, false}};
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(u"select * from usuarios order by usuario"_s);
  while (q.next()) {
    const QString usuario = q.value(u"usuario"_s).toString();
    if (usuario == kPlantillaTexto) continue;
    usuarios.push_back({usuario, q.value(u"gerente"_s).toString() == u"S"_s});
  }
  return usuarios;
}

Vista VistaDeFormato(const Session& session, const QString& tabla) {
  Vista vista;
  vista.Tabla = tabla;
  Connection c(session.Cadena);
  for (const QString& usuario : {session.Usuario, kPlantillaTexto}) {
    QSqlQuery q =
        c.Exec(u"select * from tablas where tabla = ? and usuario = ?"_s, {tabla, usuario});
    if (!q.next()) continue;
    vista.Usuario = usuario;
    vista.Sentencia = q.value(u"sentencia"_s).toString();
    vista.Cadena = q.value(u"cadena"_s).toString();
    vista.Busqueda = q.value(u"busqueda"_s).toString();
    vista.Ordenar = q.value(u"ordenar"_s).toString();
    vista.Permisos = q.value(u"permisos"_s).toString();
    vista.Seguridad = q.value(u"seguridad"_s).toString();
    vista.Extender = q.value(u"extender"_s).toInt();
    vista.Renglon = q.value(u"renglon"_s).toInt();
    vista.Altura = q.value(u"altura"_s).toInt();
    vista.Posicion = q.value(u"posicion"_s).toInt();
    break;
  }
  return vista;
}

Outcome RevisarAdministrador(const Session& session) {
  if (session.Administrador) return Outcome::Ok();
  return Outcome::Warning(u"Solo un administrador puede cambiar el formato de las vistas"_s);
}

Outcome GuardarFormato(const Session& session, const QString& tabla, const QStringList& usuarios,
                       const Formato& formato, const std::vector<ColumnaRequerida>& requeridas) {
  if (Outcome administrador = RevisarAdministrador(session); !administrador) return administrador;
  if (const Outcome revisado = Revisar(usuarios, formato); !revisado) return revisado;
  if (formato.AplicarSql && !formato.Sentencia.trimmed().isEmpty()) {
    const Outcome probado = ProbarSentencia(session, formato.Sentencia.trimmed(), requeridas);
    if (!probado) return probado;
  }
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction transaccion(c);
  if (!transaccion.ok()) return Outcome::Stop(transaccion.error());
  QString error;
  for (const QString& usuario : usuarios) {
    if (!ExisteFila(c, tabla, usuario) && !AgregarFila(c, tabla, usuario, &error)) {
      return Outcome::Stop(error);
    }
    if (!ActualizarFila(c, tabla, usuario, formato, &error)) return Outcome::Stop(error);
  }
  if (!transaccion.Commit()) return Outcome::Stop(transaccion.error());
  return {true, u"Permisos guardados con éxito"_s, MessageIcon::kInformation, {}};
}

QString LineasDeSeguridad(const QString& texto) {
  static const QRegularExpression kSaltos(u"[\r\n]+"_s);
  QStringList lineas;
  for (const QString& linea : texto.split(kSaltos, Qt::SkipEmptyParts)) {
    if (!linea.trimmed().isEmpty()) lineas << linea.trimmed();
  }
  return lineas.join(u"\r\n"_s);
}

}  // namespace ventarix::mBrowse
