#include "core/session_load.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/rol_consulta.h"

namespace ventarix {

namespace {

const QString kS = QStringLiteral("S");

// Every column of the current row, by its lower-case name.
void LeerFila(const QSqlQuery& query, RowValues& row) {
  const QSqlRecord record = query.record();
  for (int i = 0; i < record.count(); ++i) row.Set(record.fieldName(i), query.value(i));
}

// Opens a connection and runs one read; a failure goes to the error log and leaves the
// caller's defaults in place.
class Lectura {
 public:
  Lectura(const Session& session, const QString& statement, const QVariantList& values = {})
      : session_(session), connection_(session.Cadena) {
    if (!connection_.ok()) {
      mFunciones::RegistrarError(session_, connection_.error());
      return;
    }
    query_ = connection_.Exec(statement, values);
    if (query_.lastError().isValid()) {
      mFunciones::RegistrarError(session_, QueryError(query_));
      return;
    }
    ok_ = true;
  }
  bool ok() const { return ok_; }
  QSqlQuery& query() { return query_; }

 private:
  const Session& session_;
  Connection connection_;
  QSqlQuery query_;
  bool ok_ = false;
};

void EmpresaPredeterminada(RowValues& empresa) {
  empresa.Clear();
  empresa.Set(QStringLiteral("Numero"), 1);
  empresa.Set(QStringLiteral("Moneda"), QStringLiteral("MXN"));
  empresa.Set(QStringLiteral("Impuesto"), 16);
  empresa.Set(QStringLiteral("Obsoletos"), QStringLiteral("Obsoletos"));
  empresa.Set(QStringLiteral("Respaldar"), 1);
  empresa.Set(QStringLiteral("Utilizar_Mayusculas"), kS);
  empresa.Set(QStringLiteral("Guardar_Sin_Existencias"), kS);
  empresa.Set(QStringLiteral("Tallas"), QStringLiteral("N"));
  empresa.Set(QStringLiteral("ServidorSMTP"), QString::fromLatin1(kServidorSMTPPredeterminado));
  empresa.Set(QStringLiteral("PuertoSMTP"), QString::fromLatin1(kPuertoSMTPPredeterminado));
  empresa.Set(QStringLiteral("De"), QString::fromLatin1(kDePredeterminado));
  empresa.Set(QStringLiteral("Password"), QString::fromLatin1(kPasswordSMTPPredeterminado));
  empresa.Set(QStringLiteral("Autenticacion"), kS);
}

void ConfiguracionPredeterminada(RowValues& configurar) {
  configurar.Clear();
  configurar.Set(QStringLiteral("PantallaPorDefaultEnTpv"), 2);
  configurar.Set(QStringLiteral("PantallaDeCobroEnTpv"), 1);
  configurar.Set(QStringLiteral("ClientePorDefaultEnTpv"), 1);
  configurar.Set(QStringLiteral("AgenteAUtilizarParaEsteUsuario"), 1);
  configurar.Set(QStringLiteral("MostrarVentasDelDiaEnTpv"), QStringLiteral("N"));
  configurar.Set(QStringLiteral("PermitirCorteDeCaja"), QString());
  configurar.Set(QStringLiteral("PermitirModificarPrecioEnTpv"), kS);
  configurar.Set(QStringLiteral("PermitirModificarDescuentoEnTpv"), kS);
  configurar.Set(QStringLiteral("GuardarPrecioModificadoEnProductos"), kS);
  configurar.Set(QStringLiteral("EntrarDirectamenteATpv"), QStringLiteral("N"));
}

// The three printed forms of the point of sale: which are used and the first series.
void DerivarDocumentosTpv(Session& session) {
  const QString prefijos[] = {QStringLiteral("Ticket"), QStringLiteral("Nota"),
                              QStringLiteral("Cotizacion")};
  const QString letras[] = {QStringLiteral("T"), QStringLiteral("N"), QStringLiteral("C")};
  QStringList usados;
  session.SerieTpv.clear();
  for (int i = 0; i < 3; ++i) {
    const QString columna = prefijos[i] + QStringLiteral("Serie");
    const QString serie = session.configurar.Text(columna).toUpper();
    session.configurar.Set(columna, serie);
    if (serie.isEmpty()) continue;
    usados << letras[i];
    if (session.SerieTpv.isEmpty()) session.SerieTpv = serie;
  }
  if (usados.isEmpty()) {
    for (const QString& prefijo : prefijos) {
      session.configurar.Set(prefijo + QStringLiteral("Serie"), QStringLiteral("A"));
    }
    usados = QStringList{letras[0], letras[1], letras[2]};
    session.SerieTpv = QStringLiteral("A");
  }
  session.DocumentosTpv = usados.join(QLatin1Char(','));
}

void CargarCambioDeCodigo(Session& session) {
  session.CambioDeCodigoPendiente = false;
  const bool sql = session.Sql;
  Lectura lectura(session,
                  QStringLiteral("select numero from empresa where %1 > 0 and %2 > 0 "
                                 "and numero = 1")
                      .arg(dialect::Length(dialect::Name(QStringLiteral("codigo actual")), sql),
                           dialect::Length(dialect::Name(QStringLiteral("codigo nuevo")), sql)));
  session.CambioDeCodigoPendiente = lectura.ok() && lectura.query().next();
}

void CargarCantidadDeProductos(Session& session) {
  session.MuchosProductos = false;
  Lectura lectura(session, QStringLiteral("select count(*) as filas from productos"));
  if (lectura.ok() && lectura.query().next()) {
    session.MuchosProductos = lectura.query().value(0).toLongLong() > kMuchosProductos;
  }
}

// Scratch files of earlier runs beside the program. An installed program's folder is not
// ours to clean.
void BorrarTemporalesDelPrograma() {
  const QString carpeta = QCoreApplication::applicationDirPath();
  if (carpeta.isEmpty() || !QFileInfo(carpeta).isWritable()) return;
  const QDir dir(carpeta);
  for (const QFileInfo& archivo : dir.entryInfoList({QStringLiteral("*.tmp")}, QDir::Files)) {
    QFile::remove(archivo.absoluteFilePath());
  }
}

}  // namespace

void PermisosCompletos(RowValues& usuario, const QString& nombre) {
  usuario.Set(QStringLiteral("Usuario"), nombre);
  usuario.Set(QStringLiteral("Permisos"), QString(255, QLatin1Char('1')));
  for (const char* columna : {"ModificarCosto", "ModificarPlazo", "ModificarCredito"}) {
    usuario.Set(QString::fromLatin1(columna), kS);
  }
  for (const QString& columna : ColumnasDeDerechos()) usuario.Set(columna, QStringLiteral("SSS"));
}

void CargarEsquemas(Session& session) {
  session.EsquemasCFD = {QStringLiteral("cadenaoriginal_2_2.xslt"),
                         QStringLiteral("cfdv22.xsd"),
                         QStringLiteral("detallista.xsd"),
                         QStringLiteral("divisas.xsd"),
                         QStringLiteral("donat11.xsd"),
                         QStringLiteral("ecb.xsd"),
                         QStringLiteral("ecc.xsd"),
                         QStringLiteral("implocal.xsd"),
                         QStringLiteral("psgecfd.xsd"),
                         QStringLiteral("terceros11.xsd")};
  session.EsquemasCFDi = {QStringLiteral("cadenaoriginal_3_2.xslt"),
                          QStringLiteral("cfdv22.xsd"),
                          QStringLiteral("detallista.xsd"),
                          QStringLiteral("divisas.xsd"),
                          QStringLiteral("donat.xsd"),
                          QStringLiteral("ecb.xsd"),
                          QStringLiteral("ecc.xsd"),
                          QStringLiteral("implocal.xsd"),
                          QStringLiteral("psgecfd.xsd"),
                          QStringLiteral("terceros.xsd")};
}

const QStringList& ColumnasDeDerechos() {
  static const QStringList columnas = {QStringLiteral("OrdenesCompra"),
                                       QStringLiteral("Compras"),
                                       QStringLiteral("ContraRecibos"),
                                       QStringLiteral("Cotizaciones"),
                                       QStringLiteral("Pedidos"),
                                       QStringLiteral("Remisiones"),
                                       QStringLiteral("Facturas"),
                                       QStringLiteral("Produccion"),
                                       QStringLiteral("Traspasos"),
                                       QStringLiteral("CxC"),
                                       QStringLiteral("CxP"),
                                       QStringLiteral("NotasCliente"),
                                       QStringLiteral("NotasProveedor"),
                                       QStringLiteral("Licitaciones"),
                                       QStringLiteral("Ajustes"),
                                       QStringLiteral("Clientes"),
                                       QStringLiteral("Agentes"),
                                       QStringLiteral("Proveedores"),
                                       QStringLiteral("Marcas"),
                                       QStringLiteral("Lineas"),
                                       QStringLiteral("Productos"),
                                       QStringLiteral("Bancos"),
                                       QStringLiteral("FoliosFacturas"),
                                       QStringLiteral("FoliosNotas")};
  return columnas;
}

void CargarEmpresa(Session& session) {
  EmpresaPredeterminada(session.empresa);
  Lectura lectura(session, QStringLiteral("select * from empresa where numero = 1"));
  if (lectura.ok() && lectura.query().next()) {
    session.empresa.Clear();
    LeerFila(lectura.query(), session.empresa);
    // The logo is read on its own when it is needed.
    session.empresa.Set(QStringLiteral("logotipo"), QVariant());
  }
  session.UtilizarMayusculas = session.empresa.Flag(QStringLiteral("Utilizar_Mayusculas"));
  if (session.empresa.Text(QStringLiteral("Rfc")).trimmed().isEmpty()) {
    session.empresa.Set(QStringLiteral("Rfc"), QStringLiteral("XAXX010101000"));
  }
}

void CargarPermisos(Session& session) {
  session.usuario.Clear();
  Lectura lectura(session, QStringLiteral("select * from usuarios where usuario = ?"),
                  {session.Usuario});
  if (lectura.ok()) {
    if (lectura.query().next()) {
      LeerFila(lectura.query(), session.usuario);
      // The password has no business in the rights block; the login keeps what it needs.
      session.usuario.Set(QStringLiteral("contraseña"), QVariant());
    } else if (session.Usuario == QLatin1String("ADMINISTRADOR")) {
      PermisosCompletos(session.usuario, session.Usuario);
    }
  }
  session.Cargado = true;
}

void CargarConfiguracion(Session& session) {
  ConfiguracionPredeterminada(session.configurar);
  Lectura lectura(session, QStringLiteral("select * from configurar where usuario = ?"),
                  {session.Usuario});
  if (lectura.ok() && lectura.query().next()) {
    RowValues fila;
    LeerFila(lectura.query(), fila);
    // A column left empty keeps the terminal's default.
    for (auto it = fila.All().cbegin(); it != fila.All().cend(); ++it) {
      if (!it.value().isNull() || !session.configurar.Has(it.key())) {
        session.configurar.Set(it.key(), it.value());
      }
    }
  }
  DerivarDocumentosTpv(session);
}

void CargarSeries(Session& session) {
  QString* campos[] = {
      &session.SerieOrdenesCompra, &session.SerieCompras,      &session.SerieLicitaciones,
      &session.SerieContraRecibos, &session.SerieCotizaciones, &session.SeriePedidos,
      &session.SerieRemisiones,    &session.SerieProduccion,   &session.SerieTraspasos,
      &session.SerieCxC,           &session.SerieCxP,          &session.SerieNcp,
      &session.SerieAjustes};
  static const char* const kDocumentos[] = {
      "ordenescompra", "compras",    "licitaciones", "contrarecibos", "cotizaciones",
      "pedidos",       "remisiones", "produccion",   "traspasos",     "cxc",
      "cxp",           "ncp",        "ajustes"};
  for (QString* campo : campos) *campo = QStringLiteral("A");
  Lectura lectura(session, QStringLiteral("select documento, serie from series"));
  if (!lectura.ok()) return;
  while (lectura.query().next()) {
    const QString documento = lectura.query().value(0).toString().trimmed().toLower();
    for (size_t i = 0; i < std::size(kDocumentos); ++i) {
      if (documento == QLatin1String(kDocumentos[i])) {
        *campos[i] = lectura.query().value(1).toString().toUpper();
        break;
      }
    }
  }
}

namespace {

// `numero` of the newest active range, unless a range is marked "+" as the default.
qint32 FolioActivo(const Session& session, const QString& tabla, const QString& condicion,
                   const QVariantList& values) {
  Lectura lectura(session,
                  QStringLiteral("select numero, predeterminar from %1 where status = "
                                 "'ALTA'%2 order by numero desc")
                      .arg(dialect::Name(tabla), condicion),
                  values);
  if (!lectura.ok() || !lectura.query().next()) return 0;
  qint32 folio = lectura.query().value(0).toInt();
  do {
    if (lectura.query().value(1).toString() == QLatin1String("+")) {
      folio = lectura.query().value(0).toInt();
      break;
    }
  } while (lectura.query().next());
  return folio;
}

}  // namespace

void CargarFolios(Session& session) {
  QVariantList values;
  const QString series = mFunciones::SerieEnLista(session, values);
  session.FolioFacturas = FolioActivo(session, QStringLiteral("folios facturas"), series, values);
  session.FolioNotas = FolioActivo(session, QStringLiteral("folios notas"), {}, {});
}

namespace {

// A PostgreSQL company made before its views had a query role gets one at its first start;
// when the company's user may not make roles the reason goes to the error log.
void PrepararVistas(const Session& session) {
  if (!session.Sql) return;
  Connection connection(session.Cadena);
  if (!connection.ok()) return;
  const QString catalogo =
      connection.Scalar(QStringLiteral("select current_database()")).toString();
  if (rol_consulta::Disponible(connection, catalogo)) return;
  if (const Outcome rol = rol_consulta::Preparar(connection); !rol) {
    mFunciones::RegistrarError(session, rol.message);
  }
}

}  // namespace

void CargarSesion(Session& session) {
  CargarEmpresa(session);
  PrepararVistas(session);
  mFunciones::CrearCarpetas(session);
  CargarPermisos(session);
  CargarConfiguracion(session);
  CargarEsquemas(session);
  CargarSeries(session);
  CargarFolios(session);
  CargarCambioDeCodigo(session);
  CargarCantidadDeProductos(session);
  mFunciones::ExtraerLogo(session);
  BorrarTemporalesDelPrograma();
  for (size_t i = 0; i < session.Almacenes.size(); ++i) {
    session.Almacenes[i] = QStringLiteral("ALMACEN%1").arg(i + 1);
  }
}

}  // namespace ventarix
