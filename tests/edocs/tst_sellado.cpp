// Sealing invoices and credit notes, CFDi 3.2 and CFD 2.2, on both engines. The sealed files are
// checked by independent tools (xmllint against the SAT schema, xsltproc with the SAT sheet,
// openssl with the certificate's public key) and pinned byte for byte against golden files;
// then the checks a clerk meets, each with its exact words, the first failing one winning.
#include <QTest>

#include "core/database.h"
#include "edocs/herramientas.h"
#include "edocs/mDigital.h"
#include "edocs/sellado_prueba.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace ventarix::testing;
using namespace Qt::StringLiterals;

namespace {

// The first element of a name, with or without its prefix.
QString Atributo(const QByteArray& xml, const QString& elemento, const QString& nombre) {
  return Todos(Analizar(xml), elemento).value(0).Valor(nombre);
}

QString ArchivosEn(const QString& carpeta) {
  return QDir(carpeta).entryList(QDir::Files).join(u',');
}

}  // namespace

class TestSellado : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    // The validity message shows local time; the fixture's dates are read in UTC.
    qputenv("TZ", "UTC");
    tzset();
  }
  void initTestCase_data() { AddEngineRows(); }

  // ---- Known answers: the file as the SAT's tools read it ----

  void ConocidosPorHerramientas_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<QString>("golden");
    QTest::addColumn<QString>("archivo");
    QTest::newRow("factura CFDi") << int(kIngresoCFDi) << u"factura_cfdi.xml"_s << u"A-15.xml"_s;
    QTest::newRow("factura CFD") << int(kIngresoCFD) << u"factura_cfd.xml"_s << u"B-15.xml"_s;
    QTest::newRow("nota CFDi") << int(kEgresoCFDi) << u"nota_cfdi.xml"_s << u"NC-15.xml"_s;
    QTest::newRow("nota CFD") << int(kEgresoCFD) << u"nota_cfd.xml"_s << u"ND-15.xml"_s;
  }
  void ConocidosPorHerramientas() {
    QFETCH(int, driver);
    QFETCH(QString, golden);
    QFETCH(QString, archivo);
    VENTARIX_SELLADO(company, session);
    const bool cfd = driver == kIngresoCFD || driver == kEgresoCFD,
               nota = Datos(Driver(driver)).nota;
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    forma.Datos.insert(10, u"12.5"_s);  // an ISR retention, kept by invoices only
    const ResultadoSellado r = Correr(Driver(driver), session, forma);
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(QFileInfo(r.archivo).fileName(), archivo);
    QCOMPARE(QFileInfo(r.archivo).path(), QDir(session.CarpetaXml).path());

    const QString carpeta = cfd ? session.CarpetaEsquemasCFD : session.CarpetaEsquemasCFDi;
    const Salida xsd =
        Ejecutar(u"xmllint"_s, {u"--noout"_s, u"--nonet"_s, u"--schema"_s,
                                carpeta + (cfd ? u"/cfdv22.xsd"_s : u"/cfdv32.xsd"_s), r.archivo});
    QVERIFY2(xsd.codigo == 0, xsd.err.constData());

    const QString hoja =
        carpeta + (cfd ? u"/cadenaoriginal_2_2.xslt"_s : u"/cadenaoriginal_3_2.xslt"_s);
    const Salida xslt = Ejecutar(u"xsltproc"_s, {u"--nonet"_s, hoja, r.archivo});
    QCOMPARE(xslt.codigo, 0);
    QCOMPARE(r.comprobante.CadenaOriginal, QString::fromUtf8(xslt.out));

    QByteArray detalle;
    QVERIFY2(SelloVerifica(r.comprobante, &detalle), detalle.constData());

    const QByteArray xml = Leer(r.archivo);
    const QString raiz = u"Comprobante"_s;
    QCOMPARE(Atributo(xml, raiz, u"sello"_s), r.comprobante.Sello);
    QCOMPARE(Atributo(xml, raiz, u"noCertificado"_s), u"20001000000100005867"_s);
    QCOMPARE(Atributo(xml, raiz, u"tipoDeComprobante"_s), nota ? u"egreso"_s : u"ingreso"_s);
    // 10 x 2.50 + 2 x 845.50 = 1716, and 16 % of it; the retention only on invoices.
    QCOMPARE(Atributo(xml, raiz, u"subTotal"_s), u"1716"_s);
    QCOMPARE(Atributo(xml, u"Traslado"_s, u"importe"_s), u"274.56"_s);
    QCOMPARE(Atributo(xml, u"Impuestos"_s, u"totalImpuestosTrasladados"_s),
             nota ? QString() : u"274.56"_s);
    QCOMPARE(Atributo(xml, u"Retencion"_s, u"importe"_s), nota ? QString() : u"12.5"_s);
    QCOMPARE(Atributo(xml, raiz, u"noAprobacion"_s), cfd ? u"98765"_s : QString());
    CompararConDorado(golden, xml);
  }

  // ---- The certificate in force on the document's date ----

  void Vigencia_data() {
    QTest::addColumn<QDateTime>("fecha");
    QTest::addColumn<bool>("sella");
    const QDateTime desde(QDate(2012, 7, 27), QTime(17, 2, 0));
    const QDateTime hasta(QDate(2016, 7, 27), QTime(17, 2, 0));
    QTest::newRow("primer segundo") << desde << true;
    QTest::newRow("un segundo antes") << desde.addSecs(-1) << false;
    QTest::newRow("último segundo") << hasta << true;
    QTest::newRow("un segundo después") << hasta.addSecs(1) << false;
  }
  void Vigencia() {
    QFETCH(QDateTime, fecha);
    QFETCH(bool, sella);
    VENTARIX_SELLADO(company, session);
    for (const Driver driver : {kIngresoCFDi, kEgresoCFDi}) {
      DocumentoCaptura forma = DocumentoDe(driver);
      forma.Fecha = fecha;
      const ResultadoSellado r = Correr(driver, session, forma);
      // Both sides give the same words, with both bounds in local time.
      QCOMPARE(r.Msg1, sella ? QString()
                             : u"Certificado válido del 27/jul/2012 05:02:00 pm al "
                               "27/jul/2016 05:02:00 pm"_s);
      QCOMPARE(r.archivo.isEmpty(), !sella);
    }
  }

  // ---- The folio against its range ----

  void Folio_data() {
    QTest::addColumn<int>("rango");
    QTest::addColumn<QString>("serie");
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("folio");
    QTest::addColumn<QString>("archivo");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("1 en 501-600 pasa a 501")
        << int(kFactura501) << u"E"_s << u"1"_s << u"501"_s << u"E-501.xml"_s << QString();
    QTest::newRow("1 en 1-100 se queda")
        << int(kFacturaCFDi) << u"A"_s << u"1"_s << u"1"_s << u"A-1.xml"_s << QString();
    QTest::newRow("600 es el último")
        << int(kFactura501) << u"E"_s << u"600"_s << u"600"_s << u"E-600.xml"_s << QString();
    QTest::newRow("700 fuera")
        << int(kFactura501) << u"E"_s << u"700"_s << u"700"_s << QString()
        << u"Este número de factura esta fuera del rango de los folios digitales"_s;
    QTest::newRow("2 en 501-600 fuera")
        << int(kFactura501) << u"E"_s << u"2"_s << u"2"_s << QString()
        << u"Este número de factura esta fuera del rango de los folios digitales"_s;
    QTest::newRow("sin serie, sin guion")
        << int(kFacturaSinSerie) << QString() << u"15"_s << u"15"_s << u"15.xml"_s << QString();
  }
  void Folio() {
    QFETCH(int, rango);
    QFETCH(QString, serie);
    QFETCH(QString, tecleado);
    QFETCH(QString, folio);
    QFETCH(QString, archivo);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = Documento(rango, serie, false);
    forma.Datos.insert(0, tecleado);
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QCOMPARE(r.Msg1, mensaje);
    QCOMPARE(forma.Dato(0), folio);
    QCOMPARE(ArchivosEn(session.CarpetaXml), archivo);
    if (!mensaje.isEmpty()) return;
    QCOMPARE(r.comprobante.Folio, folio);
    const QByteArray xml = Leer(r.archivo);
    QCOMPARE(Atributo(xml, u"Comprobante"_s, u"folio"_s), folio);
    const Elemento raiz = Analizar(xml).value(0);
    QCOMPARE(raiz.atributos.hasAttribute(u"serie"_s), !serie.isEmpty());
  }

  // ---- What the screen's content becomes ----

  void Conceptos() {
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
    const QString larga = QString(u"BROCA PARA CONCRETO "_s).repeated(15);  // 300 characters
    forma.Fg1.insert(1, FilaFactura(u"BRO-38"_s, larga, u"PZA"_s, 1, 100));
    forma.Fg1.append(FilaFactura(QString(), u"RENGLON SIN CODIGO"_s, u"PZA"_s, 1, 50));
    forma.Fg1.append(FilaFactura(u"sin-u"_s, u"SIN UNIDAD"_s, QString(), 1, 50));
    forma.Datos.insert(5, u"19.8765"_s);  // a stray rate on a peso document
    ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QCOMPARE(r.Msg1, u"Se requiere una descripción para la fila: 5"_s);
    QVERIFY(r.archivo.isEmpty());

    forma.Fg1.removeLast();
    r = SellarIngresoCFDi(session, forma, {});
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(forma.Dato(5), u"1.0000"_s);
    QCOMPARE(r.comprobante.TipoCambio, u"1.0000"_s);
    // The row without code stays out; the long description is kept whole in the block.
    QCOMPARE(r.comprobante.conceptos.size(), 3);
    QCOMPARE(r.comprobante.conceptos.at(1).descripcion, larga.toUpper());
    const QByteArray xml = Leer(r.archivo);
    QCOMPARE(xml.count("<cfdi:Concepto "), 3);
    QVERIFY(xml.contains("descripcion=\"" + larga.left(255).toUtf8() + "\""));
    QVERIFY(!xml.contains(larga.left(256).toUtf8()));

    // A foreign currency keeps its rate, written with four decimals.
    forma.Datos.insert(0, u"16"_s);
    forma.Moneda = u"USD"_s;
    forma.Datos.insert(5, u"13.25"_s);
    r = SellarIngresoCFDi(session, forma, {});
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(r.comprobante.TipoCambio, u"13.2500"_s);
    QCOMPARE(r.comprobante.Moneda, u"USD"_s);
  }

  // A description makes the document one summary concept over the grid's sums.
  void Resumen_data() {
    QTest::addColumn<bool>("nota");
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<QString>("unidad");
    QTest::newRow("corte de factura") << false << u"CORTE"_s << u"CORTE"_s;
    QTest::newRow("nota de crédito") << true << u"NOTA"_s << u"NA"_s;
  }
  void Resumen() {
    QFETCH(bool, nota);
    QFETCH(QString, codigo);
    QFETCH(QString, unidad);
    VENTARIX_SELLADO(company, session);
    const Driver driver = nota ? kEgresoCFDi : kIngresoCFDi;
    DocumentoCaptura forma = DocumentoDe(driver);
    const ResultadoSellado r =
        Correr(driver, session, forma, u"Devolución, mercancía\r\ndañada #3"_s);
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(r.comprobante.conceptos.size(), 1);
    const Concepto& c = r.comprobante.conceptos.at(0);
    QCOMPARE(c.codigo, codigo);
    QCOMPARE(c.unidad, unidad);
    // Cleaned: upper case, accents and punctuation gone, line break removed without a blank.
    QCOMPARE(c.descripcion, u"DEVOLUCIN MERCANCADAÑADA 3"_s);
    QCOMPARE(c.cantidad, 1.0);
    QCOMPARE(c.precio, 1716.0);
    QCOMPARE(c.importe, 1716.0);
    QCOMPARE(c.subtotal, 1716.0);
    // A description of blanks is still a summary.
    DocumentoCaptura otra = Documento(kFacturaCFDi, u"A"_s, false);
    otra.Datos.insert(0, u"16"_s);
    QCOMPARE(SellarIngresoCFDi(session, otra, u"   "_s).comprobante.conceptos.size(), 1);
  }

  // ---- The range's key, opened once per session ----

  // The key is kept opened between documents, but what seals is always the range as it stands:
  // a password changed in the range refuses, and a new key file in CarpetaCer signs.
  void LlaveDelRango() {
    VENTARIX_SELLADO(company, session);
    const auto sellar = [&session](const QString& folio) {
      DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
      forma.Datos.insert(0, folio);
      return SellarIngresoCFDi(session, forma, {});
    };
    const auto password = [&session](const QString& texto) {
      return EjecutarSql(
          session, u"update certificados set password = ? where documento = 0 and numero = ?"_s,
          {texto, int(kFacturaCFDi)});
    };
    QVERIFY2(sellar(u"15"_s).ok(), "first document");
    QVERIFY(password(u"12345678b"_s));
    QCOMPARE(sellar(u"16"_s).Msg1, u"La contraseña de la llave privada no es válida"_s);
    QVERIFY(password(u"12345678a"_s));
    QVERIFY2(sellar(u"16"_s).ok(), "the right password again");

    // Another pair of the same company copied over the range's files, names kept.
    const QString otra = CarpetaSat() + u"/csd/AAA010101AAA_20001000000100005868"_s;
    const QDir cer(session.CarpetaCer);
    for (const QString& extension : {u".cer"_s, u".key"_s}) {
      QFile::remove(cer.filePath(BaseCsd() + extension));
      QVERIFY(QFile::copy(otra + extension, cer.filePath(BaseCsd() + extension)));
    }
    const ResultadoSellado r = sellar(u"17"_s);
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(r.comprobante.NoCertificado, u"20001000000100005868"_s);
    QCOMPARE(r.comprobante.Certificado, QString::fromLatin1(Leer(otra + u".cer"_s).toBase64()));
    QByteArray detalle;
    QVERIFY2(SelloVerifica(r.comprobante, &detalle), detalle.constData());
  }
};

QTEST_GUILESS_MAIN(TestSellado)
#include "tst_sellado.moc"
