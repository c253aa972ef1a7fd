// The folio range of a document: its row (with the key material or the CBB image it needs),
// the company's identity, the folio inside the range and, for the sealed schemes, the
// certificate in force on the document's date and the key that opens with its password.
#include <openssl/crypto.h>

#include <QDir>
#include <QFile>
#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "edocs/certificado.h"
#include "edocs/llaves_abiertas.h"
#include "edocs/mDigital_pasos.h"

namespace ventarix::edocs::digital {
namespace {

// The certificate and key file messages name the invoice ranges on both sides.
constexpr char kSinCertificado[] = "Se requiere un archivo certificado en: Folios Facturas";
constexpr char kSinLlave[] = "Se requiere un archivo llave en: Folios Facturas";

QString SentenciaRango(const Familia& familia) {
  const QString tabla = dialect::Name(TablaFolios(familia.folios));
  QString columnas = QStringLiteral(
      "f.version, f.noaprobacion, f.anoaprobacion, f.folioinicial, f.foliofinal, "
      "f.archivocertificado, f.archivollave, f.algoritmosellodigital, f.regimenfiscal");
  switch (familia.rango) {
    case Rango::kCertificados:
      return QStringLiteral("select ") + columnas +
             QStringLiteral(", c.certificado, c.llave, c.password from ") + tabla +
             QStringLiteral(
                 " f, certificados c where c.documento = ? and f.numero = c.numero "
                 "and upper(f.esquema) = ? and f.numero = ?");
    case Rango::kCbb:
      return QStringLiteral("select ") + columnas + QStringLiteral(" from ") + tabla +
             QStringLiteral(
                 " f, cbb c where c.documento = ? and f.numero = c.numero "
                 "and upper(f.esquema) = ? and f.numero = ?");
    case Rango::kSolo:
      break;
  }
  return QStringLiteral("select ") + columnas + QStringLiteral(" from ") + tabla +
         QStringLiteral(" f where f.esquema = ? and f.numero = ?");
}

bool LeerRango(Contexto& ctx) {
  const Familia& familia = ctx.familia;
  QVariantList valores;
  if (familia.rango != Rango::kSolo) valores << DocumentoFolios(familia.folios);
  valores << QString::fromUtf8(familia.esquema) << ctx.forma.Ingreso;
  QSqlQuery query = ctx.connection.Exec(SentenciaRango(familia), valores);
  if (!query.next()) return Falla(ctx, QString::fromUtf8(familia.sin_rango));
  RangoLeido& r = ctx.rango;
  const auto texto = [&query](const char* columna) {
    return query.value(QString::fromUtf8(columna)).toString();
  };
  r.version = texto("version");
  r.no_aprobacion = texto("noaprobacion");
  r.ano_aprobacion = texto("anoaprobacion");
  r.archivo_cer = texto("archivocertificado");
  r.archivo_key = texto("archivollave");
  r.algoritmo = texto("algoritmosellodigital");
  r.regimen = texto("regimenfiscal");
  r.inicial = query.value(QStringLiteral("folioinicial")).toLongLong();
  r.final = query.value(QStringLiteral("foliofinal")).toLongLong();
  if (familia.rango == Rango::kCertificados) {
    r.certificado = query.value(QStringLiteral("certificado")).toByteArray();
    r.llave = query.value(QStringLiteral("llave")).toByteArray();
    r.password = query.value(QStringLiteral("password")).toString();
  }
  return true;
}

// The stored .cer and .key are written into CarpetaCer when missing there.
bool Materializar(Contexto& ctx) {
  const RangoLeido& r = ctx.rango;
  if (r.certificado.isEmpty())
    return Falla(ctx, QStringLiteral("Se requiere un archivo certificado"));
  if (r.llave.isEmpty()) return Falla(ctx, QStringLiteral("Se requiere un archivo llave"));
  // A stored name that leads out of CarpetaCer is neither written nor read.
  if (Outcome nombres = RevisarNombresDeArchivo(r.archivo_cer, r.archivo_key); !nombres) {
    return Falla(ctx, nombres.message);
  }
  const QString carpeta = ctx.session.CarpetaCer;
  if (carpeta.isEmpty() || !QDir(carpeta).exists()) return true;
  MaterialSellado material{true, r.certificado, r.llave, r.password};
  // A range without a file name has no file to look for.
  const auto ruta = [&carpeta](const QString& archivo) {
    return archivo.isEmpty() ? QString() : QDir(carpeta).filePath(archivo);
  };
  // The step's message is the screen's; why the file could not be written goes to the log.
  const auto escribir = [&](const QString& cer, const QString& key, const char* mensaje) {
    const Outcome escrito = RestaurarArchivos(material, carpeta, cer, key);
    if (escrito) return true;
    mFunciones::RegistrarError(ctx.session, escrito.message);
    return Falla(ctx, QString::fromUtf8(mensaje));
  };
  ctx.ruta_cer = ruta(r.archivo_cer);
  if (!escribir(r.archivo_cer, {}, "No se generó correctamente el archivo certificado")) {
    return false;
  }
  ctx.ruta_key = ruta(r.archivo_key);
  return escribir({}, r.archivo_key, "No se generó correctamente el archivo llave");
}

bool EmpresaValida(Contexto& ctx) {
  const QString rfc = ctx.session.empresa.Text(QStringLiteral("rfc"));
  if (!mFunciones::EsRfcValido(rfc)) {
    return Falla(ctx, QStringLiteral("El RFC de la empresa no es válido: ") +
                          (rfc.isEmpty() ? QStringLiteral("Sin RFC") : rfc));
  }
  if (ctx.session.empresa.Text(QStringLiteral("nombre")).isEmpty()) {
    return Falla(ctx, QStringLiteral("El nombre de la empresa no es válido"));
  }
  return true;
}

// Folio 1 is what a new screen proposes: it moves to the range's first folio.
bool FolioEnRango(Contexto& ctx) {
  const auto folio = static_cast<qint64>(mFunciones::ValorNumerico(ctx.forma.Dato(0)));
  if (folio >= ctx.rango.inicial && folio <= ctx.rango.final) return true;
  if (folio == 1) {
    ctx.forma.Datos.insert(0, QString::number(ctx.rango.inicial));
    return true;
  }
  return Falla(ctx, QString::fromUtf8(ctx.familia.fuera_de_rango));
}

// The certificate and key are read from CarpetaCer for every document, and opened once per
// session for as long as the range's bytes and password stay the same.
RangoDeSellado RangoDelDocumento(const Contexto& ctx) {
  return {.base = ctx.session.Cadena, .folios = ctx.familia.folios, .numero = ctx.forma.Ingreso};
}

// The file whole; empty when it cannot be read, which no certificate or key opens.
QByteArray LeerArchivo(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool CertificadoVigente(Contexto& ctx) {
  if (ctx.ruta_cer.isEmpty() || !QFile::exists(ctx.ruta_cer)) {
    return Falla(ctx, QString::fromUtf8(kSinCertificado));
  }
  const std::shared_ptr<const Certificado> leido =
      CertificadoDeRango(RangoDelDocumento(ctx), LeerArchivo(ctx.ruta_cer));
  if (!leido) return Falla(ctx, QStringLiteral("Se requiere un archivo certificado válido"));
  const Certificado& certificado = *leido;
  Comprobante& comprobante = ctx.resultado.comprobante;
  comprobante.NoCertificado = certificado.NoCertificado;
  // The document carries the DER's Base64 on one line, without the trailing line break the
  // encoder of the first sealing library appended.
  comprobante.Certificado = certificado.base64;
  const QDateTime& fecha = ctx.forma.Fecha;
  if (fecha < certificado.valido_desde || fecha > certificado.valido_hasta) {
    return Falla(ctx, QStringLiteral("Certificado válido del ") +
                          FechaDeVigencia(certificado.valido_desde) + QStringLiteral(" al ") +
                          FechaDeVigencia(certificado.valido_hasta));
  }
  return true;
}

bool LlaveAbierta(Contexto& ctx) {
  if (ctx.ruta_key.isEmpty() || !QFile::exists(ctx.ruta_key)) {
    return Falla(ctx, QString::fromUtf8(kSinLlave));
  }
  // The key's bytes are read each time: a file changed in CarpetaCer opens again.
  QByteArray der = LeerArchivo(ctx.ruta_key);
  ctx.llave = LlaveDeRango(RangoDelDocumento(ctx), der, ctx.rango.password);
  OPENSSL_cleanse(der.data(), static_cast<size_t>(der.size()));
  if (!ctx.llave) {
    return Falla(ctx, QStringLiteral("La contraseña de la llave privada no es válida"));
  }
  return true;
}

void GuardarEnBloque(Contexto& ctx) {
  Comprobante& comprobante = ctx.resultado.comprobante;
  const RangoLeido& r = ctx.rango;
  comprobante.RegimenFiscal = r.regimen;
  if (ctx.familia.rango == Rango::kCertificados) {
    comprobante.Version = r.version;
    comprobante.Algoritmo = r.algoritmo;
    ctx.password = r.password;
  }
  // CFDi has no approval; CBB keeps it for the printed form.
  if (ctx.familia.cfd || ctx.familia.rango == Rango::kCbb) {
    comprobante.NoAprobacion = r.no_aprobacion;
    comprobante.AnoAprobacion = r.ano_aprobacion;
  }
}

}  // namespace

bool PasoRango(Contexto& ctx) {
  if (!LeerRango(ctx)) return false;
  const bool sellado = ctx.familia.rango == Rango::kCertificados;
  if (sellado && !Materializar(ctx)) return false;
  if (!EmpresaValida(ctx) || !FolioEnRango(ctx)) return false;
  if (ctx.familia.rango != Rango::kSolo && ctx.rango.regimen.isEmpty()) {
    // The range screen refuses a sealed range without regime; such a range ends the chain
    // without a message, so the driver reports success and writes no file.
    if (!ctx.familia.regimen_requerido) return false;
    return Falla(ctx, QStringLiteral("Se requiere el registro de un régimen fiscal"));
  }
  if (sellado && (!CertificadoVigente(ctx) || !LlaveAbierta(ctx))) return false;
  GuardarEnBloque(ctx);
  return true;
}

}  // namespace ventarix::edocs::digital
