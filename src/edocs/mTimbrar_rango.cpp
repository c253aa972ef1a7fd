// Step 5 of the stamping: the range the document was sealed under and its key material, in
// force on the document's Hora. The folio and RFC checks of the sealing are not repeated: the
// document passed them when it was saved.
#include <openssl/crypto.h>

#include <QDir>
#include <QFile>
#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/session.h"
#include "edocs/certificado.h"
#include "edocs/llaves_abiertas.h"
#include "edocs/mTimbrar_familias.h"

namespace ventarix::edocs::timbrado {
namespace {

using namespace Qt::StringLiterals;

// These messages go to a plain message box: no icon, and not a run-time error.
Outcome Aviso(const QString& texto) { return {false, texto, MessageIcon::kNone, {}, true}; }

struct RangoTimbrado {
  QString archivo_cer, archivo_key, regimen;
};

std::optional<RangoTimbrado> LeerRango(Connection& connection, const FamiliaTimbrado& familia,
                                       int rango) {
  QSqlQuery q = connection.Exec(u"select archivocertificado, archivollave, regimenfiscal from "_s +
                                    dialect::Name(TablaFolios(familia.folios)) +
                                    u" where numero = ? and upper(esquema) = 'CFDI'"_s,
                                {rango});
  if (!q.next()) return std::nullopt;
  return RangoTimbrado{q.value(0).toString(), q.value(1).toString(), q.value(2).toString()};
}

// The stored .cer and .key written into CarpetaCer when missing there, as at sealing.
Outcome Materializar(const Session& session, const MaterialSellado& sellado,
                     const RangoTimbrado& rango) {
  const QString carpeta = session.CarpetaCer;
  if (carpeta.isEmpty() || !QDir(carpeta).exists()) return Outcome::Ok();
  const auto escribir = [&](const QString& cer, const QString& key, const QString& mensaje) {
    const Outcome escrito = RestaurarArchivos(sellado, carpeta, cer, key);
    if (escrito) return Outcome::Ok();
    mFunciones::RegistrarError(session, escrito.message);
    return Aviso(mensaje);
  };
  if (Outcome cer = escribir(rango.archivo_cer, {},
                             u"No se generó correctamente el archivo "
                             u"certificado"_s);
      !cer) {
    return cer;
  }
  return escribir({}, rango.archivo_key, u"No se generó correctamente el archivo llave"_s);
}

// The files are looked for in CarpetaCer only: without that folder there are none.
QString RutaEnCarpetaCer(const Session& session, const QString& archivo) {
  const QString& carpeta = session.CarpetaCer;
  if (archivo.isEmpty() || !EsNombreDeArchivo(archivo) || carpeta.isEmpty() ||
      !QDir(carpeta).exists()) {
    return {};
  }
  return QDir(carpeta).filePath(archivo);
}

}  // namespace

Outcome CargarMaterial(const Session& session, Connection& connection,
                       const FamiliaTimbrado& familia, int rango, const QDateTime& hora,
                       Material* material) {
  const std::optional<RangoTimbrado> leido = LeerRango(connection, familia, rango);
  const MaterialSellado sellado = LeerMaterial(connection, familia.folios, rango);
  if (!leido || !sellado.existe) return Aviso(familia.sin_rango);
  if (sellado.certificado.isEmpty()) return Aviso(u"Se requiere un archivo certificado"_s);
  if (sellado.llave.isEmpty()) return Aviso(u"Se requiere un archivo llave"_s);
  if (Outcome escrito = Materializar(session, sellado, *leido); !escrito) return escrito;
  if (leido->regimen.isEmpty()) return Aviso(u"Se requiere un régimen fiscal"_s);

  const QString ruta_cer = RutaEnCarpetaCer(session, leido->archivo_cer);
  const QString en_folios = u" en: "_s + familia.carpeta_folios;
  if (ruta_cer.isEmpty() || !QFile::exists(ruta_cer)) {
    return Aviso(u"Se requiere un archivo certificado"_s + en_folios);
  }
  const Certificado certificado = LeerCertificadoDeArchivo(ruta_cer);
  if (!certificado.ok) return Aviso(u"Se requiere un archivo certificado"_s + en_folios);
  if (hora < certificado.valido_desde || hora > certificado.valido_hasta) {
    return Aviso(u"Certificado válido del "_s + FechaDeVigencia(certificado.valido_desde) +
                 u" al "_s + FechaDeVigencia(certificado.valido_hasta));
  }
  const QString ruta_key = RutaEnCarpetaCer(session, leido->archivo_key);
  if (ruta_key.isEmpty() || !QFile::exists(ruta_key)) {
    return Aviso(u"Se requiere un archivo llave"_s + en_folios);
  }
  // The range's key opened for the session serves here too while the file and password are
  // the same.
  QFile archivo_key(ruta_key);
  QByteArray der = archivo_key.open(QIODevice::ReadOnly) ? archivo_key.readAll() : QByteArray();
  std::shared_ptr<const LlavePrivada> llave = LlaveDeRango(
      {.base = session.Cadena, .folios = familia.folios, .numero = rango}, der, sellado.password);
  OPENSSL_cleanse(der.data(), static_cast<size_t>(der.size()));
  if (!llave || !llave->ok()) return Aviso(u"La contraseña de la llave privada no es válida"_s);
  material->no_certificado = certificado.NoCertificado;
  material->certificado = certificado.base64;
  material->llave = std::move(llave);
  return Outcome::Ok();
}

}  // namespace ventarix::edocs::timbrado
