// The stamping of a saved CFDi document: read and checked from its row, sealed again, sent to
// the PAC, and with a complete reply its file rebuilt with the Complemento and its row given
// the stamp. No database transaction is open while the PAC is asked: the row is read on a read
// connection that is closed before the exchange, and written in one short transaction after it.
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/session.h"
#include "edocs/cadena_original.h"
#include "edocs/mTimbrar_familias.h"

namespace ventarix::edocs::timbrado {
namespace {

using namespace Qt::StringLiterals;

// What steps 1 to 6 leave: the block rebuilt from the row and the material to seal it.
struct Leido {
  Comprobante comprobante;
  Material material;
};

Outcome Leer(const Session& session, const FamiliaTimbrado& familia, const QString& documento,
             Leido* leido) {
  Connection connection(session.Cadena, Connection::Acceso::kLectura);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  QSqlQuery fila =
      connection.Exec(u"select esquema, status, "_s + familia.columna_rango + u", hora from "_s +
                          dialect::Name(familia.tabla) + u" where "_s + familia.llave + u" = ?"_s,
                      {documento});
  if (!fila.next()) return Outcome::Refuse(familia.no_localizado);
  if (fila.value(0).toString().trimmed().toUpper() != u"CFDI"_s) {
    return Outcome::Refuse(familia.sin_esquema);
  }
  if (fila.value(1).toString().trimmed().toUpper() == u"BAJA"_s) {
    return Outcome::Refuse(familia.baja);
  }
  const int rango = fila.value(2).toInt();
  const QDateTime hora = dialect::ReadDate(fila.value(3));
  fila.finish();
  if (Outcome material =
          CargarMaterial(session, connection, familia, rango, hora, &leido->material);
      !material) {
    return material;
  }
  if (!LeerComprobante(connection, familia.tabla, familia.llave, documento, &leido->comprobante)) {
    return Outcome::Refuse(familia.sin_datos);
  }
  return Outcome::Ok();
}

// The steps of sealing over the block read from the row, with the certificate in force: the
// seal the PAC receives is computed here, not taken from the row.
bool Sellar(const Session& session, const FamiliaTimbrado& familia, Leido& leido) {
  Comprobante& c = leido.comprobante;
  c.timbre = {};
  c.NoCertificado = leido.material.no_certificado;
  c.Certificado = leido.material.certificado;
  c.Sello.clear();
  const CadenaOriginal cadena = GenerarCadenaOriginal(
      QDir(session.CarpetaEsquemasCFDi).filePath(u"cadenaoriginal_3_2.xslt"_s),
      ConstruirXml(c, FormatoXml::kCfdi32, familia.impuestos));
  if (!cadena.ok) {
    // The step's message is the user's; why the cadena could not be made goes to the log.
    mFunciones::RegistrarError(session, cadena.error);
    return false;
  }
  c.CadenaOriginal = cadena.cadena;
  c.Sello = leido.material.llave->FirmarSha1(cadena.cadena.toUtf8());
  return !c.Sello.isEmpty();
}

// Written beside and moved into place: the file is either the old one or the new one, whole.
bool GuardarArchivo(const QString& ruta, const QByteArray& xml) {
  QSaveFile archivo(ruta);
  return !xml.isEmpty() && archivo.open(QIODevice::WriteOnly) && archivo.write(xml) == xml.size() &&
         archivo.commit();
}

QByteArray LeerArchivo(const QString& ruta) {
  QFile archivo(ruta);
  return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

// Step 14: the stamp's columns, and for an invoice the seal it was stamped with.
Outcome Escribir(const Session& session, const FamiliaTimbrado& familia, const QString& documento,
                 const Comprobante& c, const TimbreRecibido& recibido) {
  QStringList columnas;
  QVariantList valores;
  if (familia.escribe_sello) {
    columnas << u"sello"_s << u"nocertificado"_s << u"certificado"_s;
    valores << c.Sello << c.NoCertificado << c.Certificado;
  }
  columnas << u"uuid"_s << u"fechatimbrado"_s << u"cadenaoriginalsat"_s << u"nocertificadosat"_s
           << u"sellosat"_s;
  valores << recibido.timbre.uuid << recibido.timbre.fecha_timbrado << recibido.cadena_original
          << recibido.timbre.no_certificado_sat << recibido.timbre.sello_sat << documento;
  Connection connection(session.Cadena);
  Transaction transaccion(connection);
  if (!transaccion.ok()) return Outcome::Stop(transaccion.error());
  QSqlQuery cambio =
      connection.Exec(u"update "_s + dialect::Name(familia.tabla) + u" set "_s +
                          columnas.join(u" = ?, "_s) + u" = ? where "_s + familia.llave + u" = ?"_s,
                      valores);
  if (!cambio.isActive()) return Outcome::Stop(QueryError(cambio));
  if (cambio.numRowsAffected() < 1) return Outcome::Refuse(familia.no_localizado);
  if (!transaccion.Commit()) return Outcome::Stop(transaccion.error());
  return Outcome::Ok();
}

}  // namespace

ResultadoTimbrado Timbrar(const Session& session, const FamiliaTimbrado& familia,
                          const QString& documento, const CuentaPac& cuenta) {
  ResultadoTimbrado r;
  // Nothing reaches the PAC for a user who may not change the family's documents.
  r.outcome = mFunciones::TienePermiso(session, familia.derechos, u"C"_s);
  if (!r.outcome) return r;
  Leido leido;
  r.outcome = Leer(session, familia, documento, &leido);
  if (!r.outcome) return r;

  // First build: sealed, without Complemento, in the file the PAC receives.
  const QString ruta = QDir(session.CarpetaXml).filePath(documento + u".xml"_s);
  if (!Sellar(session, familia, leido) ||
      !GuardarArchivo(ruta,
                      ConstruirXml(leido.comprobante, FormatoXml::kCfdi32, familia.impuestos))) {
    r.outcome = Outcome::Stop(u"No se pudo crear el archivo XML para su respectivo timbrado"_s);
    return r;
  }
  const QByteArray enviado = LeerArchivo(ruta);
  if (enviado.isEmpty()) {
    r.outcome = Outcome::Stop(u"No existe el archivo XML en la carpeta indicada\n\n"_s + ruta);
    return r;
  }

  const RespuestaPac respuesta = PacTimbrar(cuenta, enviado);
  if (!respuesta.entregada()) {
    r.outcome = Outcome::Warning(respuesta.falla);
    return r;
  }
  r.respuesta = respuesta.texto;
  if (respuesta.texto.trimmed().isEmpty()) {
    r.outcome =
        Outcome::Warning(u"No hay respuesta de timbrado por parte del PAC <Solución Factible>"_s);
    return r;
  }
  // A refusal, a reply that is not the service's, and a document the PAC had already stamped
  // (307, which carries the first stamp) are all told by the tags alone.
  const TimbreRecibido recibido = LeerTimbre(respuesta.texto);
  if (!recibido.completo()) {
    r.outcome = Outcome::Refuse(u"Información incompleta del nodo complemento SAT del XML"_s);
    return r;
  }

  // Second build: the same seal, now with the Complemento, over the same file.
  leido.comprobante.timbre = recibido.timbre;
  if (!GuardarArchivo(ruta,
                      ConstruirXml(leido.comprobante, FormatoXml::kCfdi32, familia.impuestos))) {
    r.outcome = Outcome::Stop(u"No se generó correctamente el nodo complemento SAT del XML"_s);
    return r;
  }
  r.outcome = Escribir(session, familia, documento, leido.comprobante, recibido);
  if (r.outcome) r.uuid = recibido.timbre.uuid;
  return r;
}

}  // namespace ventarix::edocs::timbrado
