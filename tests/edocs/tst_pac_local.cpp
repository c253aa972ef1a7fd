// Stamping and cancelling through the PAC client against the stand-in PAC: what a PAC refuses,
// what its stamp holds (checked by openssl, xmllint and zbarimg, outside the system's code),
// that the same document gets its first stamp back, and how the client tells a PAC that is
// down or silent.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>

#include "core/session.h"
#include "edocs/cadena_original.h"
#include "edocs/certificado.h"
#include "edocs/cfdi_xml.h"
#include "edocs/comprobante_prueba.h"
#include "edocs/herramientas.h"
#include "edocs/llave_privada.h"
#include "edocs/pac_cliente.h"
#include "edocs/pac_respuesta.h"
#include "support/pac_local.h"

using namespace Qt::StringLiterals;
using namespace ventarix::edocs;
using namespace ventarix::testing;

namespace {

const QString kCsd = u"" VENTARIX_SHARED_DIR "/sat/csd/"_s;
const QString kSat = u"" VENTARIX_SHARED_DIR "/sat/cfdi32/"_s;
const QString kVigente = u"EKU9003173C9_30001000000500003416"_s;

// The test invoice sealed with a SAT test CSD (file base in csd/) on its date; `rfc` is the
// issuer written, the certificate's own when empty.
QByteArray Sellado(const QString& csd, const QDateTime& fecha, QString rfc = {}) {
  const Certificado cer = LeerCertificadoDeArchivo(kCsd + csd + u".cer"_s);
  Comprobante c = Factura();
  c.fecha = fecha;
  c.NoCertificado = cer.NoCertificado;
  c.Certificado = cer.base64;
  c.emisor.rfc = rfc.isEmpty() ? csd.section(u'_', 0, 0) : rfc;
  const CadenaOriginal cadena =
      GenerarCadenaOriginal(kSat + u"cadenaoriginal_3_2.xslt"_s, ConstruirXml(c));
  c.Sello = LlavePrivada::AbrirArchivo(kCsd + csd + u".key"_s, u"12345678a"_s)
                .FirmarSha1(cadena.cadena.toUtf8());
  return ConstruirXml(c);
}

QDateTime Ahora() { return QDateTime::currentDateTime().addSecs(-60); }

CuentaPac Cuenta(const PacLocal& pac) {
  CuentaPac cuenta{u"testing@solucionfactible.com"_s, u"timbrado.SF.16672"_s};
  cuenta.url_pruebas = cuenta.url_produccion = pac.url();
  return cuenta;
}

QString Tag(const RespuestaPac& r, const QString& nombre) {
  return ExtraerEtiqueta(r.texto, u"<"_s + nombre, u"</"_s + nombre + u">"_s);
}

// The stamped document against the CFDi and timbre schemas, xmllint as the judge.
QByteArray ValidarTimbrado(const QByteArray& xml) {
  QTemporaryDir dir;
  const QString importa =
      u"<xs:import namespace=\"http://www.sat.gob.mx/%1\" schemaLocation=\"%2\"/>"_s;
  Escribir(dir.filePath(u"sat.xsd"_s),
           (u"<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">"_s +
            importa.arg(u"cfd/3"_s, kSat + u"cfdv32.xsd"_s) +
            importa.arg(u"TimbreFiscalDigital"_s, kSat + u"TimbreFiscalDigital.xsd"_s) +
            u"</xs:schema>"_s)
               .toUtf8());
  Escribir(dir.filePath(u"doc.xml"_s), xml);
  const Salida s = Ejecutar(u"xmllint"_s, {u"--noout"_s, u"--nonet"_s, u"--schema"_s,
                                           dir.filePath(u"sat.xsd"_s), dir.filePath(u"doc.xml"_s)});
  return s.codigo == 0 ? QByteArray() : s.Todo();
}

QString LeerQr(const QByteArray& png) {
  QTemporaryDir dir;
  Escribir(dir.filePath(u"qr.png"_s), png);
  return QString::fromUtf8(
             Ejecutar(u"zbarimg"_s, {u"--raw"_s, u"-q"_s, dir.filePath(u"qr.png"_s)}).out)
      .trimmed();
}

}  // namespace

class TestPacLocal : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QVERIFY2(pac_.ok(), qPrintable(pac_.error())); }

  // A good invoice is stamped; its timbre verifies with the PAC's certificate, the stamped
  // file is a valid CFDi, the QR carries the SAT's text; sent again it gets the same stamp.
  void TimbraYDevuelveElPrimerTimbre() {
    const QByteArray documento = Sellado(kVigente, Ahora());
    const RespuestaPac r = PacTimbrar(Cuenta(pac_), documento);
    QVERIFY2(r.entregada(), qPrintable(r.falla));
    QCOMPARE(Tag(r, u"status"_s), u"200"_s);
    const QString uuid = Tag(r, u"uuid"_s);
    QCOMPARE(uuid.size(), 36);
    QCOMPARE(uuid, uuid.toUpper());
    const QByteArray timbrado = QByteArray::fromBase64(Tag(r, u"cfdiTimbrado"_s).toLatin1());
    QVERIFY2(ValidarTimbrado(timbrado).isEmpty(), ValidarTimbrado(timbrado).constData());

    const QList<Elemento> tfd = Todos(Analizar(timbrado), u"tfd:TimbreFiscalDigital"_s);
    QCOMPARE(tfd.size(), 1);
    QCOMPARE(tfd[0].padre, u"cfdi:Complemento"_s);
    QCOMPARE(tfd[0].Valor(u"UUID"_s), uuid);
    QCOMPARE(tfd[0].Valor(u"FechaTimbrado"_s), Tag(r, u"fechaTimbrado"_s));
    QCOMPARE(tfd[0].Valor(u"selloSAT"_s), Tag(r, u"selloSAT"_s));
    QCOMPARE(tfd[0].Valor(u"noCertificadoSAT"_s), Tag(r, u"certificadoSAT"_s));
    Comprobante sat;  // the timbre's cadena as the SAT defines it, signed by the PAC's key
    sat.CadenaOriginal = u"||1.0|%1|%2|%3|%4||"_s.arg(uuid, tfd[0].Valor(u"FechaTimbrado"_s),
                                                      tfd[0].Valor(u"selloCFD"_s),
                                                      tfd[0].Valor(u"noCertificadoSAT"_s));
    QCOMPARE(Tag(r, u"cadenaOriginal"_s), sat.CadenaOriginal);
    sat.Sello = tfd[0].Valor(u"selloSAT"_s);
    sat.Certificado = QString::fromLatin1(Leer(pac_.certificado()).toBase64());
    QByteArray detalle;
    QVERIFY2(SelloVerifica(sat, &detalle), detalle.constData());
    QCOMPARE(LeerQr(QByteArray::fromBase64(Tag(r, u"qrCode"_s).toLatin1())),
             u"?re=EKU9003173C9&rr=XAXX010101000&tt=0000002320.000000&id="_s + uuid);

    const RespuestaPac otra = PacTimbrar(Cuenta(pac_), documento);
    QCOMPARE(Tag(otra, u"status"_s), u"307"_s);
    QCOMPARE(Tag(otra, u"uuid"_s), uuid);
    QCOMPARE(Tag(otra, u"selloSAT"_s), Tag(r, u"selloSAT"_s));
    QCOMPARE(pac_.Timbres(), 1);
  }

  void Rechaza_data() {
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("mensaje");
    const QString ok = u"timbrado.SF.16672"_s;
    QByteArray otro_sello = Sellado(kVigente, Ahora());
    otro_sello.replace("sello=\"", "sello=\"A");
    QTest::newRow("no es XML") << QByteArray("factura") << ok << u"301"_s << u"XML mal formado"_s;
    QTest::newRow("sello alterado")
        << otro_sello << ok << u"302"_s << u"Sello mal formado o inválido"_s;
    QTest::newRow("RFC ajeno") << Sellado(kVigente, Ahora(), u"AAA010101AAA"_s) << ok << u"303"_s
                               << u"Sello no corresponde a emisor"_s;
    QTest::newRow("CSD vencido") << Sellado(u"AAA010101AAA_20001000000100005867"_s, Ahora()) << ok
                                 << u"304"_s << u"Certificado revocado o caduco"_s;
    QTest::newRow("antes del CSD")
        << Sellado(kVigente, QDateTime(QDate(2023, 1, 2), QTime(9, 0))) << ok << u"305"_s
        << u"Fecha de emisión fuera de vigencia del CSD"_s;
    QByteArray con_timbre = Sellado(kVigente, Ahora().addSecs(-3));
    con_timbre.replace("</cfdi:Comprobante>",
                       "<cfdi:Complemento><tfd:TimbreFiscalDigital xmlns:tfd=\"http://www.sat.gob."
                       "mx/TimbreFiscalDigital\" version=\"1.0\" UUID=\"AD662D33-6934-459C-A128-"
                       "BDF0393E0F44\" FechaTimbrado=\"2026-01-02T10:31:12\" selloCFD=\"c2VsbG8=\" "
                       "noCertificadoSAT=\"20001000000100003992\" selloSAT=\"c2VsbG8=\"/>"
                       "</cfdi:Complemento></cfdi:Comprobante>");
    QTest::newRow("timbre de otro PAC")
        << con_timbre << ok << u"307"_s << u"El CFDI contiene un timbre previo"_s;
    QTest::newRow("de hace 4 días") << Sellado(kVigente, Ahora().addDays(-4)) << ok << u"401"_s
                                    << u"Fecha y hora de generación fuera de rango"_s;
    QTest::newRow("contraseña errónea")
        << Sellado(kVigente, Ahora()) << u"otra"_s << u"601"_s << u"Error de autenticación"_s;
  }
  void Rechaza() {
    QFETCH(QByteArray, xml);
    QFETCH(QString, password);
    QFETCH(QString, status);
    QFETCH(QString, mensaje);
    CuentaPac cuenta = Cuenta(pac_);
    cuenta.password = password;
    const int antes = pac_.Timbres();
    const RespuestaPac r = PacTimbrar(cuenta, xml);
    QVERIFY2(r.entregada(), qPrintable(r.falla));
    QCOMPARE(Tag(r, u"status"_s), status);
    QVERIFY2(Tag(r, u"mensaje"_s).startsWith(mensaje) ||
                 Tag(r, u"resultados"_s).contains(u"<mensaje>"_s + mensaje),
             qPrintable(r.texto));
    QVERIFY(Tag(r, u"uuid"_s).isEmpty());
    QCOMPARE(pac_.Timbres(), antes);
  }

  // Cancelled with the issuer's CSD (201), again (202); another issuer's CSD (203); a UUID
  // the PAC never stamped (205).
  void Cancela() {
    const RespuestaPac timbre = PacTimbrar(Cuenta(pac_), Sellado(kVigente, Ahora().addSecs(-7)));
    const QString uuid = Tag(timbre, u"uuid"_s);
    QVERIFY2(!uuid.isEmpty(), qPrintable(timbre.texto + timbre.falla));
    auto cancelar = [this](const QString& u, const QString& csd) {
      return Tag(PacCancelar(Cuenta(pac_), u, Leer(kCsd + csd + u".cer"_s),
                             Leer(kCsd + csd + u".key"_s), u"12345678a"_s),
                 u"statusUUID"_s);
    };
    QCOMPARE(cancelar(uuid, u"AAA010101AAA_20001000000100005867"_s), u"203"_s);
    QCOMPARE(cancelar(uuid + u"|02|"_s, kVigente), u"201"_s);
    QCOMPARE(cancelar(uuid, kVigente), u"202"_s);
    QCOMPARE(cancelar(u"00000000-0000-0000-0000-000000000000"_s, kVigente), u"205"_s);
    QCOMPARE(pac_.Cancelados(), 1);
    const RespuestaPac mala = PacCancelar(Cuenta(pac_), uuid, Leer(kCsd + kVigente + u".cer"_s),
                                          Leer(kCsd + kVigente + u".key"_s), u"x"_s);
    QVERIFY2(Tag(mala, u"mensaje"_s).contains(u"contraseña"_s), qPrintable(mala.texto));
  }

  // Nobody on the port: the client says so at once. A server that accepts and never answers:
  // the client gives up after the account's time-out.
  void FallasDeComunicacion() {
    const int oyente = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof direccion;
    QVERIFY(bind(oyente, reinterpret_cast<sockaddr*>(&direccion), largo) == 0 &&
            listen(oyente, 4) == 0 &&
            getsockname(oyente, reinterpret_cast<sockaddr*>(&direccion), &largo) == 0);
    CuentaPac cuenta;
    cuenta.segundos_respuesta = 1;
    cuenta.url_pruebas =
        u"http://127.0.0.1:%1/ws/services/Timbrado"_s.arg(ntohs(direccion.sin_port));
    QElapsedTimer reloj;
    reloj.start();
    const RespuestaPac muda = PacTimbrar(cuenta, "<x/>");
    QVERIFY2(muda.falla.contains(u"no respondió a tiempo"_s), qPrintable(muda.falla));
    QVERIFY(reloj.elapsed() >= 900 && reloj.elapsed() < 5000);
    close(oyente);

    reloj.restart();
    const RespuestaPac nadie = PacTimbrar(cuenta, "<x/>");
    QVERIFY2(nadie.falla.startsWith(u"No se pudo establecer comunicación con el PAC"_s),
             qPrintable(nadie.falla));
    QVERIFY(reloj.elapsed() < 900);
  }

  // The company's account; an empty address is the provider's published one.
  void CuentaDeLaEmpresa() {
    ventarix::Session session;
    session.empresa.Set(u"pacusuario"_s, u"u@x.mx"_s);
    session.empresa.Set(u"pacproduccion"_s, u"S"_s);
    session.empresa.Set(u"pacurlpruebas"_s, u" http://127.0.0.1:1/ws "_s);
    session.empresa.Set(u"pacurlproduccion"_s, QString());
    const CuentaPac cuenta = CuentaPacDeEmpresa(session);
    QCOMPARE(cuenta.usuario, u"u@x.mx"_s);
    QVERIFY(cuenta.produccion);
    QCOMPARE(cuenta.url_pruebas, u"http://127.0.0.1:1/ws"_s);
    QCOMPARE(cuenta.url_produccion, QString::fromLatin1(kPacUrlProduccion));
  }

  // Prefixes are the server's choice: elements are read by namespace and written by local name.
  void TextoDeLaRespuesta_data() {
    QTest::addColumn<QByteArray>("cuerpo");
    QTest::addColumn<QString>("texto");
    const QByteArray sobre =
        "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body>%1</e:Body>"
        "</e:Envelope>";
    QTest::newRow("prefijos propios y nil")
        << QByteArray(sobre).replace(
               "%1",
               "<p:timbrarResponse xmlns:p=\"http://timbrado.ws.cfdi.solucionfactible.com\">"
               "<p:return xmlns:q=\"http://timbrado.ws.cfdi.solucionfactible.com/xsd\" "
               "xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\">\n <q:mensaje>Ok"
               "</q:mensaje>\n <q:resultados><q:uuid i:nil=\"true\"/><q:status>301"
               "</q:status></q:resultados><q:status>200</q:status></p:return>"
               "</p:timbrarResponse>")
        << u"<mensaje>Ok</mensaje><resultados><uuid></uuid><status>301</status></resultados>"
           "<status>200</status>"_s;
    QTest::newRow("falla SOAP")
        << QByteArray(sobre).replace("%1",
                                     "<e:Fault><faultcode>e:Server</faultcode><faultstring>"
                                     "Usuario bloqueado</faultstring></e:Fault>")
        << u"<faultcode>e:Server</faultcode><faultstring>Usuario bloqueado</faultstring>"_s;
    QTest::newRow("no es XML") << QByteArray("Servicio no disponible")
                               << u"Servicio no disponible"_s;
  }
  void TextoDeLaRespuesta() {
    QFETCH(QByteArray, cuerpo);
    QFETCH(QString, texto);
    QCOMPARE(TextoRespuestaSoap(cuerpo, u"timbrar"_s), texto);
  }

  void ExtraerEtiqueta_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("valor");
    QTest::newRow("primera gana") << u"<uuid>A</uuid><uuid>B</uuid>"_s << u"A"_s;
    QTest::newRow("con atributos") << u"<uuid x=\"1\">A</uuid>"_s << u"A"_s;
    QTest::newRow("vacía") << u"<uuid></uuid>"_s << QString();
    QTest::newRow("sin cierre") << u"<uuid>A"_s << QString();
    QTest::newRow("sin >") << u"<uuid"_s << QString();
    QTest::newRow("sin apertura") << u"A</uuid>"_s << QString();
    QTest::newRow("otra que empieza igual") << u"<uuidX>A</uuid>"_s << u"A"_s;
  }
  void ExtraerEtiqueta() {
    QFETCH(QString, texto);
    QFETCH(QString, valor);
    QCOMPARE(ventarix::edocs::ExtraerEtiqueta(texto, u"<uuid"_s, u"</uuid>"_s), valor);
  }

 private:
  PacLocal pac_;
};

QTEST_GUILESS_MAIN(TestPacLocal)
#include "tst_pac_local.moc"
