// The cancellation of a UUID at the PAC: a conversation between the user and the provider.
// The certificate and key need not be those of any range, and nothing in the database changes.
#include <QFile>

#include "edocs/mTimbrar.h"
#include "edocs/pac_cliente.h"

namespace ventarix::edocs {
namespace {

using namespace Qt::StringLiterals;

Outcome LeerArchivo(const QString& ruta, const QString& que, QByteArray* contenido) {
  QFile archivo(ruta);
  if (ruta.isEmpty() || !archivo.open(QIODevice::ReadOnly)) {
    return Outcome::Warning(u"No se pudo leer el archivo "_s + que + u": "_s + ruta +
                            (ruta.isEmpty() ? QString() : u"\n\n"_s + archivo.errorString()));
  }
  *contenido = archivo.readAll();
  return Outcome::Ok();
}

}  // namespace

ResultadoCancelacion CancelarUUID(const Session& session, const QString& uuid,
                                  const QString& archivo_cer, const QString& archivo_key,
                                  const QString& password) {
  ResultadoCancelacion r;
  QByteArray certificado, llave;
  r.outcome = LeerArchivo(archivo_cer, u"certificado"_s, &certificado);
  if (r.outcome) r.outcome = LeerArchivo(archivo_key, u"llave"_s, &llave);
  if (!r.outcome) return r;
  const RespuestaPac respuesta =
      PacCancelar(CuentaPacDeEmpresa(session), uuid.trimmed(), certificado, llave, password);
  llave.fill('\0');
  if (!respuesta.entregada()) {
    r.outcome = Outcome::Warning(respuesta.falla);
    return r;
  }
  r.respuesta = respuesta.texto;
  if (r.respuesta.trimmed().isEmpty()) {
    r.outcome = Outcome::Warning(
        u"No hay respuesta de cancelación por parte del PAC <Solución "_s
        u"Factible>"_s);
  }
  return r;
}

}  // namespace ventarix::edocs
