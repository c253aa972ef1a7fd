#include "catalogs/configurar_datos.h"

#include <QSqlQuery>

#include "catalogs/fila_configuracion.h"
#include "core/database.h"
#include "core/session_load.h"
#include "core/usuarios_sql.h"

namespace ventarix::configurar {

using namespace Qt::StringLiterals;

namespace {

const QString kAdministrador = u"ADMINISTRADOR"_s;

struct Rango {
  QString campo;
  int minimo;
  int maximo;
  QString mensaje;
};

// The choices among numbered screens and line formats the point of sale knows.
std::vector<Rango> Rangos() {
  std::vector<Rango> rangos = {
      {u"PantallaPorDefaultEnTpv"_s, 1, 3, u"Se requiere la pantalla de venta 1, 2 o 3"_s},
      {u"PantallaDeCobroEnTpv"_s, 1, 3, u"Se requiere la pantalla de cobro 1, 2 o 3"_s}};
  for (const QString& formulario : Formularios()) {
    for (const QString& copia : {u"FormatoOriginal"_s, u"FormatoCopia"_s}) {
      rangos.push_back({formulario + copia, 0, 5, u"Se requiere un formato de 0 a 5"_s});
    }
  }
  return rangos;
}

Outcome RevisarRangos(const RowValues& datos) {
  for (const Rango& rango : Rangos()) {
    const double valor = datos.Number(rango.campo);
    if (valor < rango.minimo || valor > rango.maximo) {
      return Outcome::Warning(rango.mensaje, rango.campo);
    }
  }
  return Outcome::Ok();
}

}  // namespace

const QStringList& Formularios() {
  static const QStringList formularios = {u"Ticket"_s, u"Nota"_s, u"Cotizacion"_s};
  return formularios;
}

bool PuedeConfigurar(const Session& session, const QString& usuario) {
  return session.Administrador || usuario.trimmed() == session.Usuario;
}

QStringList UsuariosConfigurables(const Session& session, Outcome* error) {
  if (error) *error = Outcome::Ok();
  if (!session.Administrador) return {session.Usuario};
  QStringList usuarios = {kAdministrador};
  Connection connection(session.Cadena);
  QSqlQuery query;
  if (connection.ok()) query = connection.Exec(u"select usuario from usuarios order by usuario"_s);
  if (!connection.ok() || !query.isActive()) {
    const Outcome falla = Outcome::Stop(connection.ok() ? QueryError(query) : connection.error());
    if (error) *error = falla;
    return {session.Usuario};
  }
  while (query.next()) {
    const QString usuario = query.value(0).toString().trimmed();
    if (!usuario.isEmpty() && !usuarios.contains(usuario)) usuarios << usuario;
  }
  return usuarios;
}

RowValues LeerConfiguracion(const Session& session, const QString& usuario, Outcome* error) {
  if (error) *error = Outcome::Ok();
  // The same read as the session load, for any user: defaults where nothing is stored.
  Session otra = session;
  otra.Usuario = usuario;
  CargarConfiguracion(otra);
  RowValues fila = otra.configurar;
  for (const QString& formulario : Formularios()) fila.Set(formulario + u"Serie"_s, QString());

  Connection connection(session.Cadena);
  QSqlQuery query;
  if (connection.ok()) {
    query = connection.Exec(
        u"select ticketserie, notaserie, cotizacionserie from configurar where usuario = ?"_s,
        {usuario});
  }
  if (!connection.ok() || !query.isActive()) {
    const Outcome falla = Outcome::Stop(connection.ok() ? QueryError(query) : connection.error());
    if (error) *error = falla;
    return fila;
  }
  if (query.next()) {
    for (int i = 0; i < Formularios().size(); ++i) {
      fila.Set(Formularios()[i] + u"Serie"_s, query.value(i).toString().trimmed().toUpper());
    }
  }
  return fila;
}

Outcome GuardarConfiguracion(Session& session, const QString& usuario, const RowValues& datos) {
  const QString clave = usuario.trimmed();
  if (clave.isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada del usuario"_s, u"Usuario"_s);
  }
  if (!PuedeConfigurar(session, clave)) {
    return Outcome::Warning(u"Este usuario no tiene permisos para cambios de registros"_s,
                            u"Usuario"_s);
  }
  if (Outcome rangos = RevisarRangos(datos); !rangos) return rangos;
  RowValues limpios = datos;
  for (const QString& formulario : Formularios()) {
    const QString columna = formulario + u"Serie"_s;
    limpios.Set(columna, datos.Text(columna).trimmed().toUpper());
  }
  ajustes::FilaParaGuardar fila;
  if (Outcome armada = ajustes::ArmarFila(u"configurar"_s, limpios, {u"usuario"_s}, {}, &fila);
      !armada) {
    return armada;
  }

  usuarios::sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  const std::optional<qint64> filas =
      guardado.Contar(u"select count(*) from configurar where usuario = ?"_s, {clave});
  if (!filas) return guardado.falla();
  if (*filas > 0) {
    QVariantList valores = fila.valores;
    valores << clave;
    if (!guardado.Ejecutar(
            ajustes::SentenciaActualizar(u"configurar"_s, fila, u"where usuario = ?"_s), valores)) {
      return guardado.falla();
    }
  } else {
    fila.columnas.prepend(u"usuario"_s);
    fila.valores.prepend(clave);
    if (!guardado.Ejecutar(ajustes::SentenciaAgregar(u"configurar"_s, fila), fila.valores)) {
      return guardado.falla();
    }
  }
  if (Outcome terminado = guardado.Terminar(); !terminado) return terminado;
  if (clave == session.Usuario) CargarConfiguracion(session);
  return Outcome::Ok();
}

}  // namespace ventarix::configurar
