#include "core/mFunciones.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QSysInfo>
#include <QTextStream>

#include "core/column_rules.h"
#include "core/datos_instalacion.h"
#include "core/dialect.h"
#include "core/passwords.h"
#include "core/schema.h"

namespace ventarix::mFunciones {

namespace {

const QString kRfcGenerico = QStringLiteral("XAXX010101000");
// Scratch files younger than this may still be in use by another session on this machine.
constexpr qint64 kEdadArchivoTemporal = 6 * 3600;

// Creates the folder when missing and hands its path back.
QString Carpeta(const QString& path) {
  QDir().mkpath(path);
  return path;
}

// The RFC names a folder: separators would nest it elsewhere.
QString NombreDeCarpeta(QString rfc) {
  rfc = rfc.trimmed();
  rfc.replace(QLatin1Char('/'), QLatin1Char('_'));
  rfc.replace(QLatin1Char('\\'), QLatin1Char('_'));
  if (rfc.isEmpty() || rfc == QLatin1String(".") || rfc == QLatin1String("..")) {
    return kRfcGenerico;
  }
  return rfc;
}

}  // namespace

void ConstruirCadenas(Session& session) {
  session.Cadena.clear();
  session.CadenaShape.clear();
  if (session.Access) {
    session.Cadena = SqliteCadena(session.BaseDatos);
    session.CadenaShape = session.Cadena;
    return;
  }
  QFile file(session.BaseDatos);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return;
  QTextStream in(&file);
  if (!in.atEnd()) session.Cadena = in.readLine().trimmed();
  if (!in.atEnd()) session.CadenaShape = in.readLine().trimmed();
}

void CrearCarpetas(Session& session) {
  const QString base = session.BaseCarpeta;
  session.CarpetaInicio = Carpeta(base + QStringLiteral("/Inicio"));
  session.CarpetaEmpresas = Carpeta(session.CarpetaInicio + QStringLiteral("/Empresas"));
  session.CarpetaImagenes = Carpeta(session.CarpetaInicio + QStringLiteral("/Imagenes"));
  session.CarpetaErrores = Carpeta(session.CarpetaInicio + QStringLiteral("/Errores"));
  session.CarpetaEsquemasCFD = Carpeta(session.CarpetaInicio + QStringLiteral("/EsquemasCFD"));
  session.CarpetaEsquemasCFDi = Carpeta(session.CarpetaInicio + QStringLiteral("/EsquemasCFDi"));
  // A new installation starts with the SAT files the program ships.
  instalacion::CompletarEsquemas(session);
  session.CarpetaEmpresa = Carpeta(session.CarpetaEmpresas + QLatin1Char('/') +
                                   NombreDeCarpeta(session.empresa.Text(QStringLiteral("rfc"))));
  session.CarpetaCer = Carpeta(session.CarpetaEmpresa + QStringLiteral("/cer"));
  // Certificates and private keys: for the owner of the account alone.
  QFile::setPermissions(session.CarpetaCer, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  session.CarpetaXml = Carpeta(session.CarpetaEmpresa + QStringLiteral("/xml"));
  session.CarpetaRpt = Carpeta(session.CarpetaEmpresa + QStringLiteral("/rpt"));
  session.CarpetaBak = Carpeta(session.CarpetaEmpresa + QStringLiteral("/bak"));
  session.CarpetaTmp = Carpeta(session.CarpetaEmpresa + QStringLiteral("/tmp"));
}

QString NombreEquipo() { return QSysInfo::machineHostName(); }

qint32 NumeroSiguiente(Connection& connection, const QString& column, const QString& table,
                       const QString& condition, const QVariantList& values) {
  QString statement = QStringLiteral("select max(%1) as ultimo from %2")
                          .arg(dialect::Name(column), dialect::Name(table));
  if (!condition.isEmpty()) statement += QLatin1Char(' ') + condition;
  const QVariant ultimo = connection.Scalar(statement, values);
  if (ultimo.isNull()) return 1;
  return static_cast<qint32>(ultimo.toLongLong()) + 1;
}

qint32 NumeroSiguiente(const Session& session, const QString& column, const QString& table,
                       const QString& condition, const QVariantList& values) {
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    RegistrarError(session, connection.error());
    return 1;
  }
  return NumeroSiguiente(connection, column, table, condition, values);
}

bool InsertarConNumero(Connection& connection, const QString& table, const QString& column,
                       const QVariantMap& fila, qint32* numero, QString* error) {
  QStringList nombres = {dialect::Name(column)};
  for (const QString& nombre : fila.keys()) {
    if (nombre.compare(column, Qt::CaseInsensitive) != 0) nombres << dialect::Name(nombre);
  }
  const QString sentencia =
      QStringLiteral("insert into %1 (%2) values (%3) on conflict do nothing")
          .arg(dialect::Name(table), nombres.join(QStringLiteral(", ")),
               QStringList(nombres.size(), QStringLiteral("?")).join(QStringLiteral(", ")));
  // Enough for every workstation of a shop saving at once.
  constexpr int kIntentos = 50;
  for (int intento = 0; intento < kIntentos; ++intento) {
    const qint32 siguiente = NumeroSiguiente(connection, column, table);
    QVariantList valores = {siguiente};
    for (auto it = fila.constBegin(); it != fila.constEnd(); ++it) {
      if (it.key().compare(column, Qt::CaseInsensitive) != 0) valores << it.value();
    }
    QSqlQuery query = connection.Exec(sentencia, valores);
    if (query.lastError().isValid()) {
      if (error) *error = QueryError(query);
      return false;
    }
    if (query.numRowsAffected() == 1) {
      *numero = siguiente;
      return true;
    }
  }
  if (error) *error = QStringLiteral("No se pudo tomar un número nuevo en ") + table;
  return false;
}

namespace {

// The server is asked only on a PostgreSQL company without a fixed date.
QDateTime FechaDe(Connection* connection, const Session& session, bool solo_fecha) {
  if (!session.FechaFija.isEmpty()) {
    const QDate fija = QDate::fromString(session.FechaFija, QStringLiteral("yyyyMMdd"));
    if (fija.isValid()) return QDateTime(fija, QTime(0, 0));
  }
  QDateTime fecha;
  if (connection != nullptr && connection->ok()) {
    fecha = dialect::ReadDate(connection->Scalar(QStringLiteral("select ") + dialect::Now(true) +
                                                 QStringLiteral(" as fecha")));
  }
  if (!fecha.isValid()) fecha = QDateTime::currentDateTime();
  if (solo_fecha) fecha = QDateTime(fecha.date(), QTime(0, 0));
  return fecha;
}

}  // namespace

QDateTime FechaServidor(const Session& session, bool solo_fecha) {
  if (!session.Sql || !session.FechaFija.isEmpty()) return FechaDe(nullptr, session, solo_fecha);
  Connection connection(session.Cadena);
  return FechaDe(&connection, session, solo_fecha);
}

QDateTime FechaServidor(Connection& connection, const Session& session, bool solo_fecha) {
  return FechaDe(session.Sql ? &connection : nullptr, session, solo_fecha);
}

SqlText SqlProducto(const QString& codigo) {
  // An empty code would match every product whose alternate codes are empty.
  if (codigo.isEmpty()) return {QStringLiteral("select * from productos where codigo = ''"), {}};
  return {QStringLiteral("select * from productos where codigo = ? or codigo1 = ? or "
                         "codigo2 = ? or codigo3 = ?"),
          {codigo, codigo, codigo, codigo}};
}

bool ExisteFolio(const Session& session, const QString& tabla, const QString& serie, qint32 folio) {
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    RegistrarError(session, connection.error());
    return false;
  }
  QSqlQuery query =
      connection.Exec(QStringLiteral("select serie, folio from %1 where serie = ? and folio = ?")
                          .arg(dialect::Name(tabla)),
                      {serie, folio});
  if (query.lastError().isValid()) {
    RegistrarError(session, QueryError(query));
    return false;
  }
  return query.next();
}

bool BorrarDetalles(Connection& connection, const QString& tabla, const QString& columna,
                    const QString& valor) {
  if (valor.isEmpty()) return true;
  return RunInTransaction(
      connection,
      QStringLiteral("delete from %1 where %2 = ?")
          .arg(dialect::Name(tabla + QStringLiteral(" detalles")), dialect::Name(columna)),
      {valor});
}

QVariantMap InicializarRegistro(const QString& tabla) {
  QVariantMap row;
  const schema::Table* table = schema::FindTable(tabla);
  if (!table) return row;
  for (const schema::Column& column : table->columns) {
    const QString name = QString::fromUtf8(column.name);
    // A column the database validates (a positive number, a required text, a word from a
    // list) is the caller's to fill: a zero or an empty text there would only be refused.
    if (!column_rules::For(tabla, name, column.type).checks.empty()) continue;
    switch (column.type) {
      case schema::Type::kInt32:
      case schema::Type::kInt16:
        row.insert(name, 0);
        break;
      case schema::Type::kDouble:
        row.insert(name, 0.0);
        break;
      case schema::Type::kText:
      case schema::Type::kYesNo:
        row.insert(name, QStringLiteral(""));
        break;
      case schema::Type::kDateTime:
      case schema::Type::kBinary:
        break;
    }
  }
  return row;
}

QString ArchivoTemporal(Session& session) {
  QDir carpeta(QDir::tempPath());
  // Files left by earlier runs go; a recent one may belong to another session working on this
  // machine right now, so it stays until a later run.
  const QDateTime limite = QDateTime::currentDateTime().addSecs(-kEdadArchivoTemporal);
  const QFileInfoList viejos = carpeta.entryInfoList({QStringLiteral("TVIK*.TMP")}, QDir::Files);
  for (const QFileInfo& viejo : viejos) {
    if (viejo.lastModified() < limite) QFile::remove(viejo.absoluteFilePath());
  }
  QString ruta;
  do {
    ruta = carpeta.filePath(QStringLiteral("TVIK") +
                            QString::number(QRandomGenerator::global()->generate(), 16).toUpper() +
                            QStringLiteral(".TMP"));
  } while (QFileInfo::exists(ruta));
  session.BaseTemporal = ruta;
  return ruta;
}

bool ExtraerLogo(Session& session) {
  session.ArchivoLogo = session.CarpetaTmp + QStringLiteral("/logo.tmp");
  if (QFileInfo::exists(session.ArchivoLogo)) return true;
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    RegistrarError(session, connection.error());
    return false;
  }
  QSqlQuery query =
      connection.Exec(QStringLiteral("select logotipo from empresa where numero = 1"));
  if (query.lastError().isValid()) {
    RegistrarError(session, QueryError(query));
    return false;
  }
  if (!query.next() || query.value(0).isNull()) return false;
  const QByteArray imagen = query.value(0).toByteArray();
  if (imagen.isEmpty()) return false;
  QFile file(session.ArchivoLogo);
  if (!file.open(QIODevice::WriteOnly) || file.write(imagen) != imagen.size()) {
    RegistrarError(session, file.errorString() + QLatin1Char(' ') + session.ArchivoLogo);
    file.remove();
    return false;
  }
  return true;
}

QString SerieEnLista(const Session& session, QVariantList& values) {
  if (session.usuario.Text(QStringLiteral("AplicarSeriesEnFacturas")) != QLatin1String("S")) {
    return {};
  }
  QStringList marcas;
  for (int i = 1; i <= 9; ++i) {
    marcas << QStringLiteral("?");
    values << session.usuario.Text(QStringLiteral("SerieFacturacion%1").arg(i));
  }
  return QStringLiteral(" and serie in (") + marcas.join(QLatin1Char(',')) + QLatin1Char(')');
}

bool EsJuridico(const Session& session, qint32 cliente) {
  Connection connection(session.Cadena);
  if (!connection.ok()) {
    RegistrarError(session, connection.error());
    return false;
  }
  QSqlQuery query = connection.Exec(
      QStringLiteral("select numero from clientes where juridico = 'S' and numero = ?"), {cliente});
  if (query.lastError().isValid()) {
    RegistrarError(session, QueryError(query));
    return false;
  }
  return query.next();
}

bool AbrirArchivo(const QString& path) {
  if (path.isEmpty()) return false;
#if defined(Q_OS_WIN)
  return QProcess::startDetached(QStringLiteral("explorer.exe"), {QDir::toNativeSeparators(path)});
#elif defined(Q_OS_MACOS)
  return QProcess::startDetached(QStringLiteral("open"), {path});
#else
  return QProcess::startDetached(QStringLiteral("xdg-open"), {path});
#endif
}

namespace {

// Month names as the Spanish (Mexico) workstations wrote them in the log: lower case, the
// short form without a point.
QString MesAbreviado(int mes) {
  static const char* const kMeses[] = {"ene", "feb", "mar", "abr", "may", "jun",
                                       "jul", "ago", "sep", "oct", "nov", "dic"};
  return QString::fromLatin1(kMeses[(mes - 1) % 12]);
}

QString MesCompleto(int mes) {
  static const char* const kMeses[] = {"enero",      "febrero", "marzo",     "abril",
                                       "mayo",       "junio",   "julio",     "agosto",
                                       "septiembre", "octubre", "noviembre", "diciembre"};
  return QString::fromLatin1(kMeses[(mes - 1) % 12]);
}

}  // namespace

QString ArchivoDeErrores(const Session& session, const QDate& fecha) {
  QString carpeta = session.CarpetaErrores;
  // Before the folders of a session are known, the shared error folder still has a place.
  if (carpeta.isEmpty() && !session.BaseCarpeta.isEmpty()) {
    carpeta = session.BaseCarpeta + QStringLiteral("/Inicio/Errores");
  }
  if (carpeta.isEmpty()) return {};
  return carpeta + QStringLiteral("/errores_") + MesAbreviado(fecha.month()) +
         QString::number(fecha.year()) + QStringLiteral(".txt");
}

QString LineaDeError(const Session& session, const QString& descripcion, const QDateTime& momento) {
  const QTime hora = momento.time();
  const int hora12 = hora.hour() % 12 == 0 ? 12 : hora.hour() % 12;
  const QString fecha = QStringLiteral("%1/%2/%3 %4:%5:%6 %7")
                            .arg(momento.date().day(), 2, 10, QLatin1Char('0'))
                            .arg(MesCompleto(momento.date().month()))
                            .arg(momento.date().year())
                            .arg(hora12, 2, 10, QLatin1Char('0'))
                            .arg(hora.minute(), 2, 10, QLatin1Char('0'))
                            .arg(hora.second(), 2, 10, QLatin1Char('0'))
                            .arg(hora.hour() < 12 ? QStringLiteral("am") : QStringLiteral("pm"));
  // One error, one line: the server's messages come with line breaks of their own. A
  // connection string in them keeps its password out of the file.
  return session.CarpetaEmpresa + QStringLiteral(", USUARIO: ") + session.Usuario +
         QStringLiteral(",  ") + passwords::Enmascarar(descripcion).simplified() +
         QStringLiteral("   ") + fecha;
}

void RegistrarError(const Session& session, const QString& descripcion) {
  const QDateTime ahora = QDateTime::currentDateTime();
  const QString ruta = ArchivoDeErrores(session, ahora.date());
  if (ruta.isEmpty()) return;
  QDir().mkpath(QFileInfo(ruta).absolutePath());
  QFile file(ruta);
  if (!file.open(QIODevice::Append | QIODevice::Text)) return;
  QTextStream(&file) << LineaDeError(session, descripcion, ahora) << '\n';
}

}  // namespace ventarix::mFunciones
