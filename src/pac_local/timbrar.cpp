// What the stand-in checks of a document before stamping it, in the order a PAC does, and the
// stamp it gives: the codes and words of the SAT's validation matrix.
#include <QDir>
#include <QUuid>

#include "edocs/cadena_original.h"
#include "edocs/xml_errores.h"
#include "pac_local/firma.h"
#include "pac_local/qr_png.h"
#include "pac_local/servicio.h"

namespace ventarix::pac {

namespace {

// Documents older than this, or dated more than a few minutes ahead, are not stamped.
constexpr qint64 kHorasAtras = 72;
constexpr qint64 kSegundosAdelante = 5 * 60;
constexpr char kFormatoFecha[] = "yyyy-MM-ddTHH:mm:ss";

QString Fecha(const QDateTime& fecha) { return fecha.toString(QLatin1String(kFormatoFecha)); }

// A result of timbrar: the stamp's fields (none for a refusal), alphabetical like the
// service's type.
Campos Certificacion(int status, const QString& mensaje, const Timbre* t = nullptr) {
  auto valor = [t](QString Timbre::*campo) { return t != nullptr ? t->*campo : QString(); };
  return {{QStringLiteral("cadenaOriginal"), valor(&Timbre::cadena_original)},
          {QStringLiteral("certificadoSAT"), valor(&Timbre::no_certificado_sat)},
          {QStringLiteral("cfdiTimbrado"), valor(&Timbre::cfdi_timbrado)},
          {QStringLiteral("fechaTimbrado"), valor(&Timbre::fecha_timbrado)},
          {QStringLiteral("mensaje"), mensaje},
          {QStringLiteral("qrCode"), valor(&Timbre::qr_code)},
          {QStringLiteral("selloSAT"), valor(&Timbre::sello_sat)},
          {QStringLiteral("status"), QString::number(status)},
          {QStringLiteral("uuid"), valor(&Timbre::uuid)},
          {QStringLiteral("versionTFD"), t != nullptr ? QStringLiteral("1.0") : QString()}};
}

// The total as the QR text of a 3.2 document writes it: ten digits, point, six decimals.
QString TotalQr(const QString& total) { return QString::asprintf("%017.6f", total.toDouble()); }

}  // namespace

Campos Servicio::TimbrarDocumento(const QByteArray& xml) {
  edocs::InicializarXml();
  edocs::ErroresXml errores;
  const edocs::XmlDocPtr doc(xmlReadMemory(xml.constData(), static_cast<int>(xml.size()), nullptr,
                                           nullptr, XML_PARSE_NONET));
  if (!doc) return Certificacion(301, QStringLiteral("XML mal formado: ") + errores.Texto());
  if (const QString invalido = esquemas_->Validar(doc.get()); !invalido.isEmpty()) {
    return Certificacion(301, QStringLiteral("XML mal formado: no es válido contra el esquema "
                                             "del CFDI 3.2: ") +
                                  invalido);
  }
  const DatosCfdi datos = LeerDatos(doc.get());
  const QByteArray certificado = QByteArray::fromBase64(datos.certificado.toLatin1());
  const edocs::CadenaOriginal cadena = edocs::GenerarCadenaOriginal(
      QDir(configuracion_.esquemas).filePath(QStringLiteral("cadenaoriginal_3_2.xslt")), xml);
  if (!cadena.ok || !FirmaVerifica(certificado, cadena.cadena.toUtf8(), datos.sello)) {
    return Certificacion(302, QStringLiteral("Sello mal formado o inválido: el sello no es la "
                                             "firma de la cadena original con el certificado "
                                             "del comprobante"));
  }
  const QString rfc = RfcDelCertificado(certificado);
  if (rfc != datos.rfc_emisor) {
    return Certificacion(303, QStringLiteral("Sello no corresponde a emisor: el certificado es "
                                             "de %1 y el emisor es %2")
                                  .arg(rfc, datos.rfc_emisor));
  }
  const edocs::Certificado csd = edocs::LeerCertificado(certificado);
  if (datos.fecha > csd.valido_hasta) {
    return Certificacion(304, QStringLiteral("Certificado revocado o caduco: el certificado %1 "
                                             "venció el %2")
                                  .arg(csd.NoCertificado, Fecha(csd.valido_hasta)));
  }
  if (datos.fecha < csd.valido_desde) {
    return Certificacion(305, QStringLiteral("Fecha de emisión fuera de vigencia del CSD: el "
                                             "certificado %1 es válido desde el %2")
                                  .arg(csd.NoCertificado, Fecha(csd.valido_desde)));
  }
  // A document stamped before gets its first stamp back even past the 72 hours: a client whose
  // reply was lost retries with the same document, maybe days later.
  if (const auto previo = registro_->PorSello(datos.sello))
    return Certificacion(307, QStringLiteral("CFDI previamente timbrado"), &*previo);
  const QDateTime ahora = QDateTime::currentDateTime();
  if (datos.fecha < ahora.addSecs(-kHorasAtras * 3600) ||
      datos.fecha > ahora.addSecs(kSegundosAdelante)) {
    return Certificacion(401, QStringLiteral("Fecha y hora de generación fuera de rango: el "
                                             "comprobante es del %1 y se timbran los de las "
                                             "últimas 72 horas")
                                  .arg(Fecha(datos.fecha)));
  }
  if (datos.timbrado)
    return Certificacion(307, QStringLiteral("El CFDI contiene un timbre previo"));
  return Nuevo(doc.get(), datos);
}

Campos Servicio::Nuevo(xmlDoc* doc, const DatosCfdi& datos) {
  Tfd tfd{.uuid = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(),
          .fecha_timbrado = Fecha(QDateTime::currentDateTime()),
          .sello_cfd = datos.sello,
          .no_certificado_sat = certificado_.NoCertificado};
  const edocs::CadenaOriginal cadena = edocs::GenerarCadenaOriginal(
      QDir(configuracion_.esquemas).filePath(QStringLiteral("cadenaoriginal_TFD_1_0.xslt")),
      DocumentoTfd(tfd));
  if (!cadena.ok)
    return Certificacion(500, QStringLiteral("Error, proceso no completado: ") + cadena.error);
  tfd.sello_sat = llave_->FirmarSha1(cadena.cadena.toUtf8());
  const QByteArray qr =
      PngCodigoQR(QStringLiteral("?re=%1&rr=%2&tt=%3&id=%4")
                      .arg(datos.rfc_emisor, datos.rfc_receptor, TotalQr(datos.total), tfd.uuid));
  // The real service returns fechaTimbrado in GMT; the stand-in gives the TFD's own local form
  // so that a client may build the timbre from the reply either way.
  const Timbre nuevo{.uuid = tfd.uuid,
                     .sello_cfd = datos.sello,
                     .rfc_emisor = datos.rfc_emisor,
                     .fecha = Fecha(datos.fecha),
                     .fecha_timbrado = tfd.fecha_timbrado,
                     .sello_sat = tfd.sello_sat,
                     .no_certificado_sat = tfd.no_certificado_sat,
                     .cadena_original = cadena.cadena,
                     .qr_code = QString::fromLatin1(qr.toBase64()),
                     .cfdi_timbrado = QString::fromLatin1(AgregarTimbre(doc, tfd).toBase64())};
  const auto guardado = registro_->Guardar(nuevo);
  if (!guardado) {
    return Certificacion(502, QStringLiteral("Error de lectura/escritura en la base de datos del "
                                             "PAC"));
  }
  if (guardado->uuid != nuevo.uuid)  // the same document, stamped meanwhile by another request
    return Certificacion(307, QStringLiteral("CFDI previamente timbrado"), &*guardado);
  return Certificacion(200, QStringLiteral("CFDI timbrado satisfactoriamente"), &nuevo);
}

}  // namespace ventarix::pac
