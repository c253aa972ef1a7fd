#include "core/mBrowse.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSqlError>
#include <QSqlQuery>

#include "core/browse_filter.h"
#include "core/browse_titulos.h"
#include "core/dialect.h"

namespace ventarix::mBrowse {

namespace {

const QString kColumnasTablas = QStringLiteral(
    "tabla, usuario, sentencia, cadena, busqueda, ordenar, permisos, seguridad, extender, "
    "renglon, altura, posicion");

std::optional<Vista> LeerFila(Connection& connection, const QString& tabla,
                              const QString& usuario) {
  QSqlQuery query =
      connection.Exec(QStringLiteral("select ") + kColumnasTablas +
                          QStringLiteral(" from tablas where tabla = ? and usuario = ?"),
                      {tabla, usuario});
  if (!query.next()) return std::nullopt;
  Vista v;
  v.Tabla = query.value(0).toString();
  v.Usuario = query.value(1).toString();
  v.Sentencia = query.value(2).toString();
  v.Cadena = query.value(3).toString();
  v.Busqueda = query.value(4).toString();
  v.Ordenar = query.value(5).toString();
  v.Permisos = query.value(6).toString();
  v.Seguridad = query.value(7).toString();
  v.Extender = query.value(8).toInt();
  v.Renglon = query.value(9).toInt();
  v.Altura = query.value(10).toInt();
  v.Posicion = query.value(11).toInt();
  return v;
}

bool InsertarFila(Connection& connection, const Vista& v, QString* error) {
  return connection.Run(QStringLiteral("insert into tablas (") + kColumnasTablas +
                            QStringLiteral(") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                        {v.Tabla, v.Usuario, v.Sentencia, v.Cadena, v.Busqueda, v.Ordenar,
                         v.Permisos, v.Seguridad, v.Extender, v.Renglon, v.Altura, v.Posicion},
                        error);
}

// The statement's error, or else the engine's (a transaction that did not begin or commit).
QString Motivo(Connection& connection, const QString& error) {
  if (!error.isEmpty()) return error;
  return connection.error().isEmpty() ? connection.db().lastError().text() : connection.error();
}

QString SentenciaDeTabla(const QString& tabla) {
  return QStringLiteral("select * from ") + dialect::Name(tabla);
}

// Whether the definition names exactly the statement's fields.
bool CoincideCon(const std::vector<ColumnaVista>& columnas, const std::vector<Campo>& campos) {
  if (columnas.size() != campos.size()) return false;
  for (const Campo& campo : campos) {
    const bool esta = std::any_of(columnas.begin(), columnas.end(), [&](const ColumnaVista& c) {
      return c.nombre.compare(campo.nombre, Qt::CaseInsensitive) == 0;
    });
    if (!esta) return false;
  }
  return true;
}

// A view whose table changed is laid out again from the table, its search, sort and
// position dropped as they may name a column that is gone; who may use which button, and
// after which password, stays as the view editor left it. A new template row is added.
bool Rehacer(Connection& connection, bool nueva, const std::vector<ColumnaVista>& columnas,
             Vista* fila, QString* error) {
  fila->Cadena = EscribirCadena(columnas);
  if (!nueva) {
    fila->Busqueda.clear();
    fila->Ordenar.clear();
    fila->Renglon = 0;
    fila->Posicion = 0;
  }
  Transaction transaccion(connection);
  if (!transaccion.ok()) {
    *error = Motivo(connection, {});
    return false;
  }
  const bool escrito =
      nueva
          ? InsertarFila(connection, *fila, error)
          : connection.Run(QStringLiteral("update tablas set cadena = ?, busqueda = ?, "
                                          "ordenar = ?, renglon = 0, posicion = 0 "
                                          "where tabla = ? and usuario = ?"),
                           {fila->Cadena, QString(), QString(), fila->Tabla, fila->Usuario}, error);
  if (escrito && transaccion.Commit()) return true;
  *error = Motivo(connection, *error);
  return false;
}

// The user's own row as a copy of the stored one the browser showed (the template's, or a
// view with no row at all when there is none yet).
bool CopiarPlantilla(Connection& connection, const Vista& vista, const QString& usuario,
                     QString* error) {
  std::optional<Vista> guardada =
      LeerFila(connection, vista.Tabla, QString::fromLatin1(kPlantilla));
  if (!guardada) {
    guardada = Vista{};
    guardada->Tabla = vista.Tabla;
    guardada->Sentencia = SentenciaDeTabla(vista.Tabla);
    guardada->Cadena = vista.Cadena;
  }
  guardada->Usuario = usuario;
  return InsertarFila(connection, *guardada, error);
}

// Names, addresses and descriptions need room; codes and flags do not.
bool EsTextoLargo(const QString& nombre) {
  static const QStringList kLargos = {
      QStringLiteral("nombre"),    QStringLiteral("producto"),  QStringLiteral("descripcion"),
      QStringLiteral("calle"),     QStringLiteral("colonia"),   QStringLiteral("localidad"),
      QStringLiteral("municipio"), QStringLiteral("contacto"),  QStringLiteral("obs"),
      QStringLiteral("empresa"),   QStringLiteral("referencia")};
  const QString n = nombre.toLower();
  return kLargos.contains(n) || n.startsWith(QLatin1String("email"));
}

}  // namespace

std::vector<ColumnaVista> DefinicionInicial(const std::vector<Campo>& campos) {
  std::vector<ColumnaVista> columnas;
  for (const Campo& campo : campos) {
    ColumnaVista c;
    c.nombre = campo.nombre;
    c.tipo = campo.tipo;
    c.opciones = QStringList{TituloDeColumna(campo.nombre)};
    switch (TipoDe(campo.tipo)) {
      case TipoColumna::kNumero:
        c.formato = campo.tipo == kTipoDoble ? QStringLiteral("#,##0.00") : QString();
        c.alineacion = 1;
        c.ancho = 90;
        break;
      case TipoColumna::kFecha:
        c.formato = QStringLiteral("dd mmm yyyy");
        c.ancho = 95;
        break;
      default:
        c.ancho = EsTextoLargo(campo.nombre) ? 240 : qBound(70, campo.nombre.size() * 11, 130);
    }
    columnas.push_back(c);
  }
  return columnas;
}

VistaCargada ObtenerVista(const Session& session, const QString& tabla,
                          const QString& sentencia_inicial) {
  VistaCargada resultado;
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    resultado.outcome = Outcome::Stop(connection.error());
    return resultado;
  }
  Connection lectura(session.Cadena, Connection::Acceso::kVista);
  const QString plantilla = QString::fromLatin1(kPlantilla);
  std::optional<Vista> fila = LeerFila(connection, tabla, session.Usuario);
  resultado.propia = fila.has_value();
  if (!fila) fila = LeerFila(connection, tabla, plantilla);
  const bool nueva = !fila;
  if (nueva) {
    fila = Vista{};
    fila->Tabla = tabla;
    fila->Usuario = plantilla;
    fila->Sentencia = sentencia_inicial.isEmpty() ? SentenciaDeTabla(tabla) : sentencia_inicial;
  }
  const QString sentencia =
      fila->Sentencia.trimmed().isEmpty() ? SentenciaDeTabla(tabla) : fila->Sentencia;
  const Campos campos = CamposDeSentencia(lectura, sentencia);
  if (!campos.outcome) {
    if (nueva && !connection.Tables().contains(tabla, Qt::CaseInsensitive)) {
      resultado.outcome = Outcome::Stop(QStringLiteral("NO EXISTE LA TABLA:  [") + tabla);
    } else {
      resultado.outcome = campos.outcome;
    }
    return resultado;
  }
  std::vector<ColumnaVista> columnas = LeerCadena(fila->Cadena);
  if (nueva || !CoincideCon(columnas, campos.campos)) {
    columnas = DefinicionInicial(campos.campos);
    QString error;
    if (!Rehacer(connection, nueva, columnas, &*fila, &error)) {
      resultado.outcome = Outcome::Stop(error);
      return resultado;
    }
  }
  resultado.vista = *fila;
  resultado.columnas = std::move(columnas);
  return resultado;
}

Outcome GuardarVista(const Session& session, const Vista& vista) {
  Connection connection(session.Cadena);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  Transaction transaccion(connection);
  if (!transaccion.ok()) return Outcome::Stop(transaccion.error());
  QString error;
  QSqlQuery existe =
      connection.Exec(QStringLiteral("select count(*) from tablas where tabla = ? and usuario = ?"),
                      {vista.Tabla, session.Usuario});
  const bool hay = existe.next() && existe.value(0).toInt() > 0;
  existe.finish();
  // The user's own row starts as the stored view: its statement, buttons' rights and prompts
  // are the view editor's, never the caller's.
  bool ok = hay || CopiarPlantilla(connection, vista, session.Usuario, &error);
  ok = ok &&
       connection.Run(QStringLiteral("update tablas set renglon = ?, posicion = ?, busqueda = ?, "
                                     "ordenar = ? where tabla = ? and usuario = ?"),
                      {vista.Renglon, vista.Posicion, vista.Busqueda, vista.Ordenar, vista.Tabla,
                       session.Usuario},
                      &error);
  if (!ok || !transaccion.Commit()) {
    return Outcome::Stop(Motivo(connection, error));
  }
  return Outcome::Ok();
}

Outcome BorrarVista(const Session& session, const QString& tabla) {
  Connection connection(session.Cadena);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  Transaction transaccion(connection);
  if (!transaccion.ok()) return Outcome::Stop(transaccion.error());
  QString error;
  if (!connection.Run(QStringLiteral("delete from tablas where tabla = ? and usuario = ?"),
                      {tabla, session.Usuario}, &error) ||
      !transaccion.Commit()) {
    return Outcome::Stop(Motivo(connection, error));
  }
  if (!transaccion.Commit()) return Outcome::Stop(transaccion.error());
  return Outcome::Ok();
}

QString EscribirBusqueda(const Busqueda& busqueda) {
  if (busqueda.vacia()) return {};
  QJsonObject objeto;
  if (busqueda.tecla >= 0) {
    objeto.insert(QStringLiteral("tecla"), busqueda.tecla);
    objeto.insert(QStringLiteral("respuesta"), busqueda.respuesta);
  } else {
    QJsonArray filtro;
    for (const auto& [columna, texto] : busqueda.filtro) filtro.append(QJsonArray{columna, texto});
    objeto.insert(QStringLiteral("filtro"), filtro);
  }
  return QStringLiteral("where ") +
         QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact));
}

Busqueda LeerBusqueda(const QString& guardada) {
  const QString texto = guardada.trimmed();
  if (!texto.startsWith(QLatin1String("where "), Qt::CaseInsensitive)) return {};
  const QJsonObject objeto = QJsonDocument::fromJson(texto.mid(6).toUtf8()).object();
  Busqueda busqueda;
  if (objeto.contains(QStringLiteral("tecla"))) {
    busqueda.tecla = objeto.value(QStringLiteral("tecla")).toInt(-1);
    busqueda.respuesta = objeto.value(QStringLiteral("respuesta")).toString();
    return busqueda;
  }
  for (const QJsonValue& par : objeto.value(QStringLiteral("filtro")).toArray()) {
    const QJsonArray a = par.toArray();
    if (a.size() == 2 && a[0].isString() && a[1].isString()) {
      busqueda.filtro.append({a[0].toString(), a[1].toString()});
    }
  }
  return busqueda;
}

Condicion CondicionGuardada(const Busqueda& busqueda, Engine engine,
                            const std::vector<ColumnaVista>& columnas,
                            const std::vector<BusquedaFamilia>& busquedas) {
  const auto columna_de = [&](const QString& nombre) -> const ColumnaVista* {
    for (const ColumnaVista& c : columnas) {
      if (c.nombre.compare(nombre, Qt::CaseInsensitive) == 0) return &c;
    }
    return nullptr;
  };
  if (busqueda.tecla >= 0) {
    for (const BusquedaFamilia& b : busquedas) {
      if (b.tecla != busqueda.tecla) continue;
      const ColumnaVista* columna = columna_de(QString::fromUtf8(b.columna));
      if (columna == nullptr) return {};
      if (b.modo == ModoBusqueda::kSubconsulta) {
        return CondicionDeSubconsulta(engine, columna->nombre, QString::fromUtf8(b.subconsulta),
                                      QString::fromUtf8(b.detalle), busqueda.respuesta);
      }
      return CondicionDeBusqueda(engine, columna->nombre, b.modo == ModoBusqueda::kIgual,
                                 busqueda.respuesta);
    }
    return {};
  }
  std::vector<Condicion> condiciones;
  for (const auto& [nombre, texto] : busqueda.filtro) {
    const ColumnaVista* columna = columna_de(nombre);
    if (columna == nullptr) continue;
    const ResultadoFiltro r =
        CondicionDeFiltro(engine, TipoDe(columna->tipo), columna->nombre, texto);
    if (r.outcome) condiciones.push_back(r.condicion);
  }
  return UnirCondiciones(condiciones);
}

Condicion LeerBusqueda(const Session& session, const QString& tabla) {
  Connection connection(session.Cadena);
  QSqlQuery query = connection.Exec(
      QStringLiteral("select busqueda, cadena from tablas where tabla = ? and usuario = ?"),
      {tabla, session.Usuario});
  if (!query.next()) return {};
  std::vector<BusquedaFamilia> busquedas;
  for (const Familia& f : Familias()) {
    if (tabla.compare(QString::fromUtf8(f.titulo), Qt::CaseInsensitive) == 0)
      busquedas = f.busquedas;
  }
  return CondicionGuardada(LeerBusqueda(query.value(0).toString()),
                           connection.sql() ? Engine::kPostgres : Engine::kSqlite,
                           LeerCadena(query.value(1).toString()), busquedas);
}

bool TienePeriodo(const std::vector<Campo>& campos) {
  return std::any_of(campos.begin(), campos.end(), [](const Campo& c) {
    return c.nombre.compare(QLatin1String("periodo"), Qt::CaseInsensitive) == 0;
  });
}

std::vector<Prompt> PromptsDeBoton(const Session& session, const QString& seguridad, int boton) {
  std::vector<Prompt> prompts;
  QString texto = seguridad;
  texto.replace(u'\r', u'\n');
  for (const QString& linea : texto.split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList campos = linea.split(u'|');
    bool ok = false;
    if (campos.value(0).trimmed().toInt(&ok) != boton || !ok) continue;
    const auto es_cero = [&](int i) {
      bool numero = false;
      const int valor = campos.value(i - 1).trimmed().toInt(&numero);
      return numero && valor == 0;
    };
    if (es_cero(3) && !session.ContrasenaAdministrador.isEmpty() && !session.Contrasena.isEmpty()) {
      prompts.push_back(
          {QStringLiteral("Escriba la contraseña del usuario"), {session.Contrasena}});
    }
    if (es_cero(5) && !session.ContrasenaGerente.isEmpty()) {
      QStringList claves = {session.ContrasenaGerente};
      if (!session.ContrasenaAdministrador.isEmpty()) claves << session.ContrasenaAdministrador;
      prompts.push_back({QStringLiteral("Escriba la contraseña del gerente"), claves});
    }
    break;
  }
  return prompts;
}

bool BotonPermitido(const QString& permisos, int boton) {
  return boton < 1 || boton > permisos.size() || permisos.at(boton - 1) != u'0';
}

QString MostrarFilas(qint64 filas, qint64 fila_actual) {
  if (fila_actual > 0) {
    return QString::number(fila_actual) + u'/' + QString::number(filas) + QStringLiteral(" filas");
  }
  return QString::number(filas) + QStringLiteral(" filas");
}

QString SumaSeleccion(const std::vector<double>& valores, qint64 celdas) {
  if (celdas <= 0) return {};
  if (celdas > kMaximoCeldas) {
    return QStringLiteral("Error, Demasiadas filas = ") + QString::number(celdas);
  }
  const QString cuenta = QStringLiteral("Celdas = ") + QString::number(celdas);
  if (valores.empty()) return cuenta;
  double suma = 0;
  for (double v : valores) suma += v;
  QLocale formato = QLocale::c();
  formato.setNumberOptions(QLocale::DefaultNumberOptions);
  return QStringLiteral("Suma = ") + formato.toString(suma, 'f', 2) + QStringLiteral(",  ") +
         cuenta;
}

}  // namespace ventarix::mBrowse
