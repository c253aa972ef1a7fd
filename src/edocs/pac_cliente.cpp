#include "edocs/pac_cliente.h"

#include <mutex>

#include "core/session.h"
#include "edocs/curl_ptr.h"
#include "edocs/pac_respuesta.h"

namespace ventarix::edocs {

void InicializarCurl() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

namespace {

constexpr char kProveedor[] = "PAC <Solución Factible>";

QString Pac() { return QString::fromUtf8(kProveedor); }

// One parameter of the operation, its value escaped as element text.
QByteArray Parametro(const char* nombre, const QString& valor) {
  const QByteArray etiqueta(nombre);
  return "<tim:" + etiqueta + '>' + valor.toHtmlEscaped().toUtf8() + "</tim:" + etiqueta + '>';
}

QByteArray Sobre(const char* operacion, const QByteArray& parametros) {
  const QByteArray op(operacion);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
         "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:tim=\"http://timbrado.ws.cfdi.solucionfactible.com\">"
         "<soapenv:Body><tim:" +
         op + '>' + parametros + "</tim:" + op + "></soapenv:Body></soapenv:Envelope>";
}

size_t Acumular(char* datos, size_t tamano, size_t cuantos, void* destino) {
  static_cast<QByteArray*>(destino)->append(datos, static_cast<qsizetype>(tamano * cuantos));
  return tamano * cuantos;
}

// Why no reply arrived, in the user's words.
QString Falla(CURLcode codigo, const char* detalle) {
  const QString motivo =
      QString::fromUtf8(detalle[0] != '\0' ? detalle : curl_easy_strerror(codigo));
  switch (codigo) {
    case CURLE_OPERATION_TIMEDOUT:
      return QStringLiteral("El %1 no respondió a tiempo").arg(Pac());
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_URL_MALFORMAT:
    case CURLE_UNSUPPORTED_PROTOCOL:
      return QStringLiteral("No se pudo establecer comunicación con el %1: ").arg(Pac()) + motivo;
    default:
      return QStringLiteral("Se interrumpió la comunicación con el %1: ").arg(Pac()) + motivo;
  }
}

// One SOAP 1.1 exchange: the envelope posted, the reply's result element as text.
RespuestaPac Enviar(const CuentaPac& cuenta, const QString& url, const char* operacion,
                    const QByteArray& parametros) {
  InicializarCurl();
  RespuestaPac respuesta;
  const CurlPtr curl(curl_easy_init());
  const QByteArray accion = QByteArray("SOAPAction: \"urn:") + operacion + '"';
  curl_slist* lista = curl_slist_append(nullptr, "Content-Type: text/xml; charset=UTF-8");
  if (lista != nullptr) lista = curl_slist_append(lista, accion.constData());
  // No "Expect: 100-continue" pause before large documents: the body goes at once.
  if (lista != nullptr) lista = curl_slist_append(lista, "Expect:");
  const CurlSlistPtr cabeceras(lista);
  if (!curl || !cabeceras) {
    respuesta.falla = QStringLiteral("No se pudo preparar la comunicación con el %1").arg(Pac());
    return respuesta;
  }
  const QByteArray direccion = url.toUtf8();
  QByteArray cuerpo = Sobre(operacion, parametros);
  QByteArray recibido;
  char detalle[CURL_ERROR_SIZE] = {};
  CURL* c = curl.get();
  curl_easy_setopt(c, CURLOPT_URL, direccion.constData());
  curl_easy_setopt(c, CURLOPT_HTTPHEADER, cabeceras.get());
  curl_easy_setopt(c, CURLOPT_POSTFIELDS, cuerpo.constData());
  curl_easy_setopt(c, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(cuerpo.size()));
  curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, Acumular);
  curl_easy_setopt(c, CURLOPT_WRITEDATA, &recibido);
  curl_easy_setopt(c, CURLOPT_ERRORBUFFER, detalle);
  curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, static_cast<long>(cuenta.segundos_conexion));
  curl_easy_setopt(c, CURLOPT_TIMEOUT, static_cast<long>(cuenta.segundos_respuesta));
  const CURLcode codigo = curl_easy_perform(c);
  cuerpo.fill('\0');  // it carried the account's password, and the CSD's when cancelling
  if (codigo != CURLE_OK) {
    respuesta.falla = Falla(codigo, detalle);
    return respuesta;
  }
  // An empty body is an empty reply: the stamping tells it with its own message.
  if (recibido.trimmed().isEmpty()) return respuesta;
  // Axis2 sends its faults with HTTP 500: the body is read whatever the status.
  respuesta.texto = TextoRespuestaSoap(recibido, QString::fromLatin1(operacion));
  return respuesta;
}

}  // namespace

CuentaPac CuentaPacDeEmpresa(const Session& session) {
  const RowValues& empresa = session.empresa;
  CuentaPac cuenta;
  cuenta.usuario = empresa.Text(QStringLiteral("pacusuario"));
  cuenta.password = empresa.Text(QStringLiteral("pacpassword"));
  cuenta.produccion = empresa.Flag(QStringLiteral("pacproduccion"));
  const QString pruebas = empresa.Text(QStringLiteral("pacurlpruebas")).trimmed();
  const QString produccion = empresa.Text(QStringLiteral("pacurlproduccion")).trimmed();
  if (!pruebas.isEmpty()) cuenta.url_pruebas = pruebas;
  if (!produccion.isEmpty()) cuenta.url_produccion = produccion;
  return cuenta;
}

RespuestaPac PacTimbrar(const CuentaPac& cuenta, const QByteArray& xml) {
  const QByteArray parametros = Parametro("usuario", cuenta.usuario) +
                                Parametro("password", cuenta.password) +
                                Parametro("cfdi", QString::fromLatin1(xml.toBase64())) +
                                Parametro("zip", QStringLiteral("false"));
  return Enviar(cuenta, cuenta.produccion ? cuenta.url_produccion : cuenta.url_pruebas, "timbrar",
                parametros);
}

RespuestaPac PacCancelar(const CuentaPac& cuenta, const QString& uuid,
                         const QByteArray& certificado, const QByteArray& llave,
                         const QString& password) {
  const QByteArray parametros =
      Parametro("usuario", cuenta.usuario) + Parametro("password", cuenta.password) +
      Parametro("uuids", uuid) +
      Parametro("derCertCSD", QString::fromLatin1(certificado.toBase64())) +
      Parametro("derKeyCSD", QString::fromLatin1(llave.toBase64())) +
      Parametro("contrasenaCSD", password);
  // Cancelling always goes to the production address, whatever the account's flag.
  return Enviar(cuenta, cuenta.url_produccion, "cancelar", parametros);
}

QString ExtraerEtiqueta(const QString& respuesta, const QString& apertura, const QString& cierre) {
  const qsizetype inicio = respuesta.indexOf(apertura);
  if (inicio < 0) return {};
  const qsizetype mayor = respuesta.indexOf(QLatin1Char('>'), inicio);
  if (mayor < 0) return {};
  const qsizetype fin = respuesta.indexOf(cierre, mayor + 1);
  if (fin < 0) return {};
  return respuesta.mid(mayor + 1, fin - mayor - 1);
}

}  // namespace ventarix::edocs
