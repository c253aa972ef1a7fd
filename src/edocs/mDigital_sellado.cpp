// The sealing and preparation drivers: one chain of checks over the capture screen's content,
// then, for CFD and CFDi, the document built, its cadena original from the SAT's sheet, the
// seal and the file in CarpetaXml. Nothing is written to the database here: the screen saves
// the row with the block this leaves when no message came back.
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include "core/database.h"
#include "core/mFunciones.h"
#include "edocs/cadena_original.h"
#include "edocs/mDigital_pasos.h"

namespace ventarix::edocs::digital {
namespace {

Domicilio DomicilioDeEmpresa(const RowValues& empresa, const QString& prefijo) {
  const auto texto = [&](const char* columna) {
    return empresa.Text(prefijo + QString::fromUtf8(columna));
  };
  return {texto("calle"),     texto("noexterior"),  texto("nointerior"), texto("colonia"),
          texto("localidad"), texto("referencia"),  texto("municipio"),  texto("estado"),
          texto("pais"),      texto("codigopostal")};
}

Emisor EmisorDeEmpresa(const RowValues& empresa) {
  Emisor emisor;
  emisor.rfc = empresa.Text(QStringLiteral("rfc"));
  emisor.nombre = empresa.Text(QStringLiteral("nombre"));
  emisor.fiscal = DomicilioDeEmpresa(empresa, {});
  emisor.expedido_en = DomicilioDeEmpresa(empresa, QStringLiteral("expedidoen"));
  return emisor;
}

bool Correr(Paso paso, Contexto& ctx) {
  switch (paso) {
    case Paso::kStatus:
      return PasoStatus(ctx);
    case Paso::kFormaDePago:
      return PasoFormaDePago(ctx);
    case Paso::kConceptos:
      return PasoConceptos(ctx);
    case Paso::kEsquemas:
      return PasoEsquemas(ctx);
    case Paso::kRango:
      return PasoRango(ctx);
    case Paso::kCliente:
      return PasoCliente(ctx);
    case Paso::kMarca:
      return PasoMarca(ctx);
    case Paso::kCredito:
      return PasoCredito(ctx);
  }
  return false;
}

// Invoices and credit notes keep their files side by side in xml/, named by serie and folio.
bool FolioGuardado(Connection& connection, const QString& serie, const QString& folio) {
  bool numero = false;
  const qint32 valor = folio.toInt(&numero);
  if (!numero) return false;
  return connection
             .Scalar(QStringLiteral("select (select count(*) from facturas where serie = ? and "
                                    "folio = ?) + (select count(*) from \"notas cliente\" where "
                                    "serie = ? and folio = ?)"),
                     {serie, valor, serie, valor})
             .toInt() > 0;
}

// The sealed document: the one the cadena was made from with the seal written in the root's
// empty sello attribute, which is what building it again with the seal gives. Empty when that
// attribute is not in the root's tag: the document is then built again.
QByteArray ConSello(const QByteArray& sin_sello, const QString& sello) {
  static const QByteArray kVacio = QByteArrayLiteral(" sello=\"\"");
  const qsizetype declaracion = sin_sello.startsWith("<?") ? sin_sello.indexOf("?>") : 0;
  const qsizetype raiz = sin_sello.indexOf('<', declaracion);
  const qsizetype fin_raiz = sin_sello.indexOf('>', raiz);
  const qsizetype lugar = sin_sello.indexOf(kVacio, raiz);
  if (declaracion < 0 || raiz < 0 || lugar < 0 || lugar > fin_raiz) return {};
  QByteArray xml = sin_sello;
  return xml.insert(lugar + kVacio.size() - 1, sello.toLatin1());
}

// Written beside under a scratch name and moved into place: a failed write leaves no half file
// and a reader finds the old file or the new one, never a mix. The file is not forced to the
// disk: waiting for it cost more than all the rest of a seal, and the row saved with the
// document keeps everything the file holds (CrearXmlDesdeFactura writes it again). The
// engine's words when it could not be written.
QString EscribirEnSuLugar(const QString& ruta, const QByteArray& xml) {
  QFile temporal(QFileInfo(ruta).dir().filePath(
      QStringLiteral("TVIK") + QString::number(QRandomGenerator::global()->generate64(), 36) +
      QStringLiteral(".TMP")));
  if (!temporal.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
      temporal.write(xml) != xml.size() || !temporal.flush()) {
    const QString error = temporal.errorString();
    temporal.remove();
    return error;
  }
  temporal.close();
  // POSIX rename replaces an existing file in one step.
  if (std::rename(QFile::encodeName(temporal.fileName()).constData(),
                  QFile::encodeName(ruta).constData()) != 0) {
    const QString error = QString::fromLocal8Bit(std::strerror(errno));
    temporal.remove();
    return error;
  }
  return {};
}

// A fault inside the sealing itself is logged and leaves Msg1 as it stands; the screen learns
// of it through error_interno.
void Trampa(Contexto& ctx, const QString& descripcion) {
  mFunciones::RegistrarError(ctx.session, descripcion);
  ctx.resultado.error_interno = descripcion;
}

}  // namespace

void Sellar(Contexto& ctx) {
  Comprobante& comprobante = ctx.resultado.comprobante;
  if (!ctx.llave || !ctx.llave->ok()) {
    Falla(ctx, QStringLiteral("Se requiere un archivo llave en: Folios Facturas"));
    return;
  }
  const bool cfd = ctx.familia.cfd;
  const QString hoja = QDir(cfd ? ctx.session.CarpetaEsquemasCFD : ctx.session.CarpetaEsquemasCFDi)
                           .filePath(cfd ? QStringLiteral("cadenaoriginal_2_2.xslt")
                                         : QStringLiteral("cadenaoriginal_3_2.xslt"));
  // The module decides the document's form, whatever Version the range holds.
  const FormatoXml formato = cfd ? FormatoXml::kCfd22 : FormatoXml::kCfdi32;
  comprobante.Sello.clear();
  const QByteArray sin_sello = ConstruirXml(comprobante, formato, ctx.familia.impuestos);
  if (sin_sello.isEmpty()) return Trampa(ctx, QStringLiteral("Sellar: documento vacío"));
  const CadenaOriginal cadena = GenerarCadenaOriginal(hoja, sin_sello);
  if (!cadena.ok) {
    Falla(ctx, cadena.error);
    return;
  }
  comprobante.CadenaOriginal = cadena.cadena;
  comprobante.Sello = ctx.llave->FirmarSha1(cadena.cadena.toUtf8());
  if (comprobante.Sello.isEmpty()) return Trampa(ctx, QStringLiteral("Sellar: firma vacía"));
  // noCertificado and certificado were set before the cadena; the seal takes its empty place.
  QByteArray xml = ConSello(sin_sello, comprobante.Sello);
  if (xml.isEmpty()) xml = ConstruirXml(comprobante, formato, ctx.familia.impuestos);
  const QString ruta =
      QDir(ctx.session.CarpetaXml).filePath(NombreArchivoXml(comprobante.Serie, comprobante.Folio));
  // The file of a document already saved under this serie and folio stays as it is: another
  // workstation took the folio first, and this document will be saved under the next one.
  if (QFile::exists(ruta) && FolioGuardado(ctx.connection, comprobante.Serie, comprobante.Folio)) {
    Falla(ctx, QStringLiteral("El archivo XML pertenece a otro documento ya guardado: ") + ruta);
    return;
  }
  if (const QString error = EscribirEnSuLugar(ruta, xml); !error.isEmpty()) {
    return Trampa(ctx, QStringLiteral("Sellar: ") + ruta + QLatin1Char(' ') + error);
  }
  ctx.resultado.archivo = ruta;
}

ResultadoSellado Ejecutar(const Session& session, Connection& connection, DocumentoCaptura& forma,
                          const Familia& familia, std::optional<QString> descripcion) {
  Contexto ctx{.session = session,
               .forma = forma,
               .familia = familia,
               .connection = connection,
               .descripcion = std::move(descripcion)};
  if (!connection.ok()) {
    ctx.resultado.Msg1 = connection.error();
    return ctx.resultado;
  }
  ctx.resultado.comprobante.emisor = EmisorDeEmpresa(session.empresa);
  for (Paso paso : familia.pasos) {
    if (!Correr(paso, ctx)) return ctx.resultado;
  }
  LlenarDelFormulario(ctx);
  if (familia.sella) Sellar(ctx);
  return ctx.resultado;
}

ResultadoSellado Ejecutar(const Session& session, DocumentoCaptura& forma, const Familia& familia,
                          std::optional<QString> descripcion) {
  Connection connection(session.Cadena, Connection::Acceso::kLectura);
  return Ejecutar(session, connection, forma, familia, std::move(descripcion));
}

}  // namespace ventarix::edocs::digital

namespace ventarix::edocs {

using digital::Ejecutar;

ResultadoSellado SellarIngresoCFDi(const Session& session, DocumentoCaptura& forma,
                                   const QString& descripcion) {
  return Ejecutar(session, forma, digital::IngresoCFDi(), descripcion);
}
ResultadoSellado SellarIngresoCFD(const Session& session, DocumentoCaptura& forma,
                                  const QString& descripcion) {
  return Ejecutar(session, forma, digital::IngresoCFD(), descripcion);
}
ResultadoSellado SellarEgresoCFDi(const Session& session, DocumentoCaptura& forma,
                                  const QString& descripcion) {
  return Ejecutar(session, forma, digital::EgresoCFDi(), descripcion);
}
ResultadoSellado SellarEgresoCFD(const Session& session, DocumentoCaptura& forma,
                                 const QString& descripcion) {
  return Ejecutar(session, forma, digital::EgresoCFD(), descripcion);
}
ResultadoSellado PrepararIngresoCBB(const Session& session, DocumentoCaptura& forma) {
  return Ejecutar(session, forma, digital::IngresoCBB(), std::nullopt);
}
ResultadoSellado PrepararIngresoNOTA(const Session& session, DocumentoCaptura& forma) {
  return Ejecutar(session, forma, digital::IngresoNOTA(), std::nullopt);
}
ResultadoSellado PrepararEgresoCBB(const Session& session, DocumentoCaptura& forma) {
  return Ejecutar(session, forma, digital::EgresoCBB(), std::nullopt);
}
ResultadoSellado PrepararEgresoNOTA(const Session& session, DocumentoCaptura& forma) {
  return Ejecutar(session, forma, digital::EgresoNOTA(), std::nullopt);
}
ResultadoSellado PrepararRemision(const Session& session, DocumentoCaptura& forma) {
  return Ejecutar(session, forma, digital::Remision(), std::nullopt);
}

ResultadoSellado SellarEnGuardado(const Session& session, Connection& connection,
                                  DocumentoCaptura& forma, bool egreso, const QString& esquema,
                                  const QString& descripcion) {
  const bool cfd = esquema == QLatin1String("CFD");
  const digital::Familia* familia =
      esquema == QLatin1String("CFDI")  ? &(egreso ? digital::EgresoCFDi() : digital::IngresoCFDi())
      : cfd                             ? &(egreso ? digital::EgresoCFD() : digital::IngresoCFD())
      : esquema == QLatin1String("CBB") ? &(egreso ? digital::EgresoCBB() : digital::IngresoCBB())
      : esquema == QLatin1String("NOTA")
          ? &(egreso ? digital::EgresoNOTA() : digital::IngresoNOTA())
          : nullptr;
  if (!familia) {
    ResultadoSellado r;
    r.Msg1 = QStringLiteral("Se requiere la definición de un esquema [CBB, CFD, CFDi, NOTA]");
    return r;
  }
  std::optional<QString> resumen;
  if (familia->sella) resumen = descripcion;
  return digital::Ejecutar(session, connection, forma, *familia, resumen);
}

}  // namespace ventarix::edocs
