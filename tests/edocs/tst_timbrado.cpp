// Stamping saved CFDi documents of the demo company through the stand-in PAC: the stamped file
// is what the SAT's schemas accept and both seals verify; every failure on the way (a PAC down,
// silent, answering nonsense or refusing) leaves the row as it was; a reply lost after the PAC
// stamped ends, at the next attempt, with the stamp the PAC kept; a UUID is cancelled twice.
#include <QDateTime>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include "core/database.h"
#include "core/dialect.h"
#include "core/session_load.h"
#include "documents/captura.h"
#include "edocs/herramientas.h"
#include "edocs/mTimbrar_familias.h"
#include "sales/familias_ventas.h"
#include "support/empresa_demo.h"
#include "support/pac_intermedio.h"
#include "support/pac_local.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace Qt::StringLiterals;
using Modo = testing::PacIntermedio::Modo;
namespace vt = ventarix::testing;

namespace {

const QString kSat = QStringLiteral(VENTARIX_SHARED_DIR "/sat/cfdi32/");
constexpr char kCompleto[] = "Información incompleta del nodo complemento SAT del XML";

// The demo company's session, its PAC account the provider's test one at `url`.
Session SesionDe(const vt::TestCompany& company, const QString& url) {
  Session s = company.MakeSession();
  CargarSesion(s);
  s.empresa.Set(u"pacusuario"_s, u"testing@solucionfactible.com"_s);
  s.empresa.Set(u"pacpassword"_s, u"timbrado.SF.16672"_s);
  s.empresa.Set(u"pacurlpruebas"_s, url);
  s.empresa.Set(u"pacurlproduccion"_s, url);
  return s;
}

// An invoice of 116 saved as the capture screen saves it, or a prompt-payment note over one.
QString Guardar(Session& s, bool nota) {
  captura::Documento factura;
  factura.encabezado = {{u"cliente"_s, 2}};
  factura.partidas = {{{u"codigo"_s, u"SERV-01"_s},
                       {u"descripcion"_s, u"SERVICIO DE CORTE"_s},
                       {u"cantidad"_s, 1},
                       {u"precio"_s, 100},
                       {u"impuesto"_s, 16}}};
  captura::Guardado g = captura::GuardarDocumento(s, ventas::Facturas(), factura);
  if (!nota || !g.outcome) return g.outcome ? g.llave : g.outcome.message;
  captura::Documento credito;
  credito.encabezado = {{u"cliente"_s, 2}};
  credito.partidas = {{{u"factura"_s, g.llave}, {u"dppp"_s, u"S"_s}}};
  g = captura::GuardarDocumento(s, ventas::NotasCliente(), credito);
  return g.outcome ? g.llave : g.outcome.message;
}

const timbrado::FamiliaTimbrado& Familia(bool nota) {
  return nota ? timbrado::Notas() : timbrado::Facturas();
}

// The seal and stamp columns of the row, to compare before and after.
QVariantMap Fila(const Session& s, bool nota, const QString& llave) {
  Connection c(s.Cadena);
  QSqlQuery q = c.Exec(
      u"select sello, nocertificado, certificado, uuid, fechatimbrado, "
      "sellosat, nocertificadosat, cadenaoriginalsat, hora, emisorrfc from "_s +
          dialect::Name(Familia(nota).tabla) + u" where "_s + Familia(nota).llave + u" = ?"_s,
      {llave});
  QVariantMap fila;
  if (q.next()) {
    for (int i = 0; i < q.record().count(); ++i) fila.insert(q.record().fieldName(i), q.value(i));
  }
  return fila;
}

// An RSA-SHA1 signature checked by openssl with the public key of a DER certificate.
bool FirmaVerifica(const QByteArray& der, const QString& firma, const QString& cadena) {
  Comprobante c;
  c.Certificado = QString::fromLatin1(der.toBase64());
  c.Sello = firma;
  c.CadenaOriginal = cadena;
  QByteArray detalle;
  const bool ok = vt::SelloVerifica(c, &detalle);
  if (!ok) qWarning() << detalle;
  return ok;
}

// The schema the stamped file must meet: the CFDi's and the TimbreFiscalDigital's at once.
QString EsquemaTimbrado(const QString& carpeta) {
  const QString ruta = carpeta + u"/cfdi_tfd.xsd"_s;
  vt::Escribir(ruta, (u"<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">"
                      "<xs:import namespace=\"http://www.sat.gob.mx/cfd/3\" schemaLocation=\""_s +
                      kSat +
                      u"cfdv32.xsd\"/><xs:import namespace=\"http://www.sat.gob.mx/"
                      "TimbreFiscalDigital\" schemaLocation=\""_s +
                      kSat + u"TimbreFiscalDigital.xsd\"/></xs:schema>"_s)
                         .toUtf8());
  return ruta;
}

// What the stamped file tells: its root's seal and certificate, and the TFD's attributes.
struct Timbrado {
  vt::Elemento raiz, tfd;
  bool impuestos_con_total = false;
};

Timbrado LeerTimbrado(const QByteArray& xml) {
  const QList<vt::Elemento> elementos = vt::Analizar(xml);
  Timbrado t;
  if (elementos.isEmpty()) return t;
  t.raiz = elementos.first();
  const auto tfd = vt::Todos(elementos, u"tfd:TimbreFiscalDigital"_s);
  if (!tfd.isEmpty()) t.tfd = tfd.first();
  const auto impuestos = vt::Todos(elementos, u"cfdi:Impuestos"_s);
  t.impuestos_con_total = !impuestos.isEmpty() &&
                          impuestos.first().atributos.hasAttribute(u"totalImpuestosTrasladados"_s);
  return t;
}

// The TFD alone, as the SAT's sheet of its cadena reads it.
QString CadenaTfd(const vt::Elemento& tfd, const QString& carpeta) {
  QString xml =
      u"<tfd:TimbreFiscalDigital xmlns:tfd=\"http://www.sat.gob.mx/TimbreFiscalDigital\""_s;
  for (const char* a :
       {"version", "UUID", "FechaTimbrado", "selloCFD", "noCertificadoSAT", "selloSAT"})
    xml += u" %1=\"%2\""_s.arg(QLatin1String(a), tfd.Valor(QLatin1String(a)).toHtmlEscaped());
  const QString ruta = carpeta + u"/tfd.xml"_s;
  vt::Escribir(ruta, (xml + u"/>"_s).toUtf8());
  return QString::fromUtf8(
      vt::Ejecutar(u"xsltproc"_s, {kSat + u"cadenaoriginal_TFD_1_0.xslt"_s, ruta}).out);
}

// The service's reply around the content of its result.
QByteArray Sobre(const QByteArray& resultado) {
  return "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\">"
         "<soapenv:Body><ns:timbrarResponse "
         "xmlns:ns=\"http://timbrado.ws.cfdi.solucionfactible.com\">"
         "<ns:return xmlns:ax=\"http://timbrado.ws.cfdi.solucionfactible.com/xsd\">" +
         resultado + "</ns:return></ns:timbrarResponse></soapenv:Body></soapenv:Envelope>";
}

// A stamp without its QR code.
QByteArray ReplySinQr() {
  return Sobre(
      "<ax:resultados><ax:cadenaOriginal>||1.0|AB|2026-11-25T10:00:00|x|1||</ax:cadenaOriginal>"
      "<ax:certificadoSAT>20001000000300022323</ax:certificadoSAT>"
      "<ax:fechaTimbrado>2026-11-25T10:00:00</ax:fechaTimbrado><ax:selloSAT>c2VsbG8=</ax:selloSAT>"
      "<ax:status>200</ax:status><ax:uuid>6F1C0E33-3B0E-4C43-9E3B-0A2B7A2E1F10</ax:uuid>"
      "</ax:resultados><ax:status>200</ax:status>");
}

}  // namespace

class TestTimbrado : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { vt::AddEngineRows(); }

  void DocumentoTimbrado_data() {
    QTest::addColumn<bool>("nota");
    QTest::newRow("factura") << false;
    QTest::newRow("nota de crédito") << true;
  }
  // The stamped file meets both schemas; the issuer's seal verifies over the cadena of the
  // SAT's sheet, the PAC's over the TFD's; the row holds the stamp. A note keeps its seal of
  // capture, while the file, rebuilt with totalImpuestosTrasladados, carries a new one.
  void DocumentoTimbrado() {
    QFETCH(bool, nota);
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    const auto company = vt::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company, pac.url());
    const QString llave = Guardar(s, nota);
    const QVariantMap antes = Fila(s, nota, llave);
    QVERIFY2(!antes.isEmpty(), qPrintable(llave));

    const ResultadoTimbrado r = nota ? TimbrarNota(s, llave) : TimbrarFactura(s, llave);
    QVERIFY2(r.outcome, qPrintable(r.outcome.message + u"\n"_s + r.respuesta));
    QVERIFY(r.respuesta.contains(u"<status>200</status>"_s));
    QCOMPARE(pac.Timbres(), 1);

    const QString archivo = s.CarpetaXml + u'/' + llave + u".xml"_s;
    const vt::Salida xsd = vt::Ejecutar(
        u"xmllint"_s,
        {u"--noout"_s, u"--nonet"_s, u"--schema"_s, EsquemaTimbrado(company->folder()), archivo});
    QVERIFY2(xsd.codigo == 0, xsd.Todo().constData());
    const Timbrado t = LeerTimbrado(vt::Leer(archivo));
    QCOMPARE(t.tfd.Valor(u"UUID"_s), r.uuid);
    QCOMPARE(t.tfd.Valor(u"selloCFD"_s), t.raiz.Valor(u"sello"_s));
    QVERIFY(t.impuestos_con_total);
    const QString cadena = QString::fromUtf8(
        vt::Ejecutar(u"xsltproc"_s, {kSat + u"cadenaoriginal_3_2.xslt"_s, archivo}).out);
    QVERIFY(FirmaVerifica(QByteArray::fromBase64(t.raiz.Valor(u"certificado"_s).toLatin1()),
                          t.raiz.Valor(u"sello"_s), cadena));
    const QString cadena_tfd = CadenaTfd(t.tfd, company->folder());
    QVERIFY(FirmaVerifica(vt::Leer(pac.certificado()), t.tfd.Valor(u"selloSAT"_s), cadena_tfd));

    const QVariantMap despues = Fila(s, nota, llave);
    QCOMPARE(despues[u"uuid"_s].toString(), r.uuid);
    QCOMPARE(despues[u"fechatimbrado"_s].toString(), t.tfd.Valor(u"FechaTimbrado"_s));
    QCOMPARE(despues[u"sellosat"_s].toString(), t.tfd.Valor(u"selloSAT"_s));
    QCOMPARE(despues[u"nocertificadosat"_s].toString(), t.tfd.Valor(u"noCertificadoSAT"_s));
    QCOMPARE(despues[u"cadenaoriginalsat"_s].toString(), cadena_tfd);
    for (const QString& columna : {u"sello"_s, u"nocertificado"_s, u"certificado"_s})
      QCOMPARE(despues[columna], antes[columna]);
    // The note was sealed without the total of its taxes: the stamped seal is another one.
    QCOMPARE(despues[u"sello"_s].toString() == t.raiz.Valor(u"sello"_s), !nota);
  }

  void FallaDejaLaFila_data() {
    QTest::addColumn<int>("modo");  // -1: the stand-in itself
    QTest::addColumn<QByteArray>("texto");
    QTest::addColumn<QString>("cambio");  // column of the row or of the company changed first
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("en_respuesta");
    const QString incompleto = QString::fromUtf8(kCompleto);
    QTest::newRow("PAC caído") << int(Modo::kNoEscucha) << QByteArray() << QString()
                               << u"No se pudo establecer comunicación"_s << QString();
    QTest::newRow("PAC mudo") << int(Modo::kSilencio) << QByteArray() << QString()
                              << u"no respondió a tiempo"_s << QString();
    QTest::newRow("respuesta que no es XML")
        << int(Modo::kTexto) << QByteArray("Servicio en mantenimiento") << QString() << incompleto
        << u"Servicio en mantenimiento"_s;
    QTest::newRow("cuerpo vacío")
        << int(Modo::kTexto) << QByteArray() << QString()
        << u"No hay respuesta de timbrado por parte del PAC <Solución Factible>"_s << QString();
    QTest::newRow("resultado vacío")
        << int(Modo::kTexto) << Sobre({}) << QString()
        << u"No hay respuesta de timbrado por parte del PAC <Solución Factible>"_s << QString();
    QTest::newRow("uuid sin qrCode")
        << int(Modo::kTexto) << ReplySinQr() << QString() << incompleto << u"6F1C0E33"_s;
    QTest::newRow("fuera de las 72 horas")
        << -1 << QByteArray() << u"hora"_s << incompleto << u"<status>401</status>"_s;
    QTest::newRow("emisor ajeno al certificado")
        << -1 << QByteArray() << u"emisorrfc"_s << incompleto << u"<status>303</status>"_s;
    QTest::newRow("cuenta del PAC")
        << -1 << QByteArray() << u"pacpassword"_s << incompleto << u"<status>601</status>"_s;
    // Nothing is sent for a user who may not change invoices.
    QTest::newRow("usuario sin cambios")
        << int(Modo::kTexto) << ReplySinQr() << u"facturas"_s
        << u"Este usuario no tiene permisos para cambios de registros"_s << QString();
  }
  void FallaDejaLaFila() {
    QFETCH(int, modo);
    QFETCH(QByteArray, texto);
    QFETCH(QString, cambio);
    QFETCH(QString, mensaje);
    QFETCH(QString, en_respuesta);
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    std::optional<testing::PacIntermedio> falso;
    if (modo >= 0) falso.emplace(Modo(modo), texto);
    const auto company = vt::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company, falso ? falso->url() : pac.url());
    const QString llave = Guardar(s, false);
    Connection c(s.Cadena);
    if (cambio == u"hora") {
      const QDateTime hace_cuatro_dias = QDateTime::currentDateTime().addDays(-4);
      QVERIFY(RunInTransaction(c, u"update facturas set hora = ? where factura = ?"_s,
                               {dialect::DateValue(hace_cuatro_dias, c.sql()), llave}));
    } else if (cambio == u"emisorrfc") {
      QVERIFY(RunInTransaction(c, u"update facturas set emisorrfc = ? where factura = ?"_s,
                               {u"AAA010101AAA"_s, llave}));
    } else if (cambio == u"pacpassword") {
      s.empresa.Set(cambio, u"otra"_s);
    } else if (cambio == u"facturas") {
      s.usuario.Set(cambio, u"SSN"_s);
    }
    const QVariantMap antes = Fila(s, false, llave);
    QVERIFY2(!antes.isEmpty(), qPrintable(llave));
    CuentaPac cuenta = CuentaPacDeEmpresa(s);
    cuenta.segundos_conexion = 2;
    cuenta.segundos_respuesta = 2;

    const ResultadoTimbrado r = timbrado::Timbrar(s, timbrado::Facturas(), llave, cuenta);
    QVERIFY(!r.outcome);
    QVERIFY2(r.outcome.message.contains(mensaje), qPrintable(r.outcome.message));
    // What the PAC said is a stop; what kept it from saying anything, a warning.
    QCOMPARE(r.outcome.icon,
             mensaje == QString::fromUtf8(kCompleto) ? MessageIcon::kStop : MessageIcon::kWarning);
    QVERIFY2(r.respuesta.contains(en_respuesta), qPrintable(r.respuesta));
    QVERIFY(r.uuid.isEmpty());
    QCOMPARE(Fila(s, false, llave), antes);
    QCOMPARE(pac.Timbres(), 0);
    if (falso && modo != int(Modo::kNoEscucha)) QCOMPARE(falso->Pedidos(), cambio.isEmpty());
  }

  void FechaDelTimbre_data() {
    QTest::addColumn<QString>("fecha");
    QTest::addColumn<QString>("cadena");
    QTest::addColumn<QString>("esperada");
    const QString cadena = u"||1.0|6F1C0E33|2026-11-25T10:00:00|c2Vsbw==|20001000000300022323||"_s;
    QTest::newRow("local") << u"2026-11-25T10:00:00"_s << cadena << u"2026-11-25T10:00:00"_s;
    QTest::newRow("GMT con fracción, de la cadena")
        << u"2026-11-25T16:00:00.123Z"_s << cadena << u"2026-11-25T10:00:00"_s;
    QTest::newRow("GMT sin cadena")
        << u"2026-11-25T16:00:00Z"_s << QString() << u"2026-11-25T16:00:00"_s;
    QTest::newRow("con zona, cadena ajena")
        << u"2026-11-25T10:00:00-06:00"_s << u"||1.0|x|ayer|y|z||"_s << u"2026-11-25T10:00:00"_s;
  }
  // The TFD takes the PAC's local time, never a zone or a fraction.
  void FechaDelTimbre() {
    QFETCH(QString, fecha);
    QFETCH(QString, cadena);
    QFETCH(QString, esperada);
    const QString respuesta = u"<return><resultados><cadenaOriginal>"_s + cadena +
                              u"</cadenaOriginal><fechaTimbrado>"_s + fecha +
                              u"</fechaTimbrado></resultados></return>"_s;
    QCOMPARE(timbrado::LeerTimbre(respuesta).timbre.fecha_timbrado, esperada);
  }

  // The PAC stamped but its reply was lost: the row is untouched, and the next attempt, with
  // the same seal, gets the PAC's earlier stamp (307) and stores its UUID.
  void RespuestaPerdida() {
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    testing::PacIntermedio perdida(Modo::kPerderRespuesta, pac.url().toUtf8());
    const auto company = vt::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company, perdida.url());
    const QString llave = Guardar(s, false);
    const QVariantMap antes = Fila(s, false, llave);

    const ResultadoTimbrado primera = TimbrarFactura(s, llave);
    QVERIFY(!primera.outcome);
    QVERIFY(primera.respuesta.isEmpty());
    QCOMPARE(Fila(s, false, llave), antes);
    QCOMPARE(perdida.Pedidos(), 1);
    QCOMPARE(pac.Timbres(), 1);

    s.empresa.Set(u"pacurlpruebas"_s, pac.url());
    const ResultadoTimbrado segunda = TimbrarFactura(s, llave);
    QVERIFY2(segunda.outcome, qPrintable(segunda.outcome.message + segunda.respuesta));
    QVERIFY(segunda.respuesta.contains(u"<status>307</status>"_s));
    QCOMPARE(pac.Timbres(), 1);
    QCOMPARE(Fila(s, false, llave)[u"uuid"_s].toString(), segunda.uuid);
    const Timbrado t = LeerTimbrado(vt::Leer(s.CarpetaXml + u'/' + llave + u".xml"_s));
    QCOMPARE(t.tfd.Valor(u"UUID"_s), segunda.uuid);
  }

  // The issuer's CSD cancels the stamp (201), then again (202); the row does not change.
  void Cancelacion() {
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    const auto company = vt::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company, pac.url());
    const QString llave = Guardar(s, false);
    const ResultadoTimbrado r = TimbrarFactura(s, llave);
    QVERIFY2(r.outcome, qPrintable(r.outcome.message + r.respuesta));
    const QVariantMap timbrada = Fila(s, false, llave);

    Connection c(s.Cadena);
    QSqlQuery q = c.Exec(
        u"select f.archivocertificado, f.archivollave, c.password from "
        "\"folios facturas\" f, certificados c where c.documento = 0 and "
        "c.numero = f.numero and f.numero = ?"_s,
        {s.FolioFacturas});
    QVERIFY(q.next());
    const QString cer = s.CarpetaCer + u'/' + q.value(0).toString();
    const QString key = s.CarpetaCer + u'/' + q.value(1).toString();
    const QString password = q.value(2).toString();
    q.finish();
    for (const char* codigo : {"201", "202"}) {
      const ResultadoCancelacion cancelada =
          CancelarUUID(s, u' ' + r.uuid + u' ', cer, key, password);
      QVERIFY2(cancelada.outcome, qPrintable(cancelada.outcome.message));
      QCOMPARE(ExtraerEtiqueta(cancelada.respuesta, u"<statusUUID"_s, u"</statusUUID>"_s),
               QString::fromLatin1(codigo));
    }
    QCOMPARE(pac.Cancelados(), 1);
    QCOMPARE(Fila(s, false, llave), timbrada);
    const ResultadoCancelacion sin_llave = CancelarUUID(s, r.uuid, cer, key + u".no"_s, password);
    QVERIFY(!sin_llave.outcome);
    QVERIFY(sin_llave.outcome.message.contains(u"llave"_s));
  }
};

QTEST_GUILESS_MAIN(TestTimbrado)
#include "tst_timbrado.moc"
