// The document XML of CFDi 3.2 and CFD 2.2 as built from the comprobante block: the SAT's own
// schemas accept it (xmllint as the independent judge), each "only when" rule holds at its
// edge, the seal is filled in place, and whole documents are pinned against golden files.
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "edocs/cfdi_xml.h"
#include "edocs/comprobante_prueba.h"
#include "edocs/herramientas.h"

using namespace ventarix::edocs;
using namespace ventarix::testing;
using namespace Qt::StringLiterals;

namespace {

QStringList Hijos(const QList<Elemento>& elementos, int nivel = 1, const QString& padre = {}) {
  QStringList nombres;
  for (const Elemento& e : elementos) {
    if (e.nivel == nivel && (padre.isEmpty() || e.padre == padre)) nombres << e.nombre;
  }
  return nombres;
}

Comprobante Cfd() {
  Comprobante c = Factura();
  c.Version = u"2.2"_s;
  c.NoAprobacion = u"49"_s;
  c.AnoAprobacion = u"2012"_s;
  c.Descuento = u"100"_s;
  c.MotivoDescuento = u"PRONTO PAGO"_s;
  c.RetencionIsr = 10;
  c.RetencionIva = 21.33;
  return c;
}

}  // namespace

Q_DECLARE_METATYPE(ventarix::edocs::Comprobante)

class TestCfdiXml : public QObject {
  Q_OBJECT

 private slots:
  void TextoNumero_data() {
    QTest::addColumn<double>("valor");
    QTest::addColumn<QString>("texto");
    QTest::newRow("entero") << 1160.0 << u"1160"_s;
    QTest::newRow("tasa decimal") << 0.16 << u"0.16"_s;
    QTest::newRow("cero") << 0.0 << u"0"_s;
    QTest::newRow("cero negativo") << -0.0 << u"0"_s;
    QTest::newRow("suma con ruido binario") << 0.1 + 0.2 << u"0.3"_s;
    QTest::newRow("centavos") << 1234.5 << u"1234.5"_s;
    QTest::newRow("dos tercios redondeado") << 2.0 / 3.0 << u"0.666666666666667"_s;
    QTest::newRow("millones con centavos") << 123456789012.34 << u"123456789012.34"_s;
    QTest::newRow("negativo") << -2.5 << u"-2.5"_s;
    QTest::newRow("pequeno sin exponente") << 0.00001 << u"0.00001"_s;
    QTest::newRow("grande sin exponente") << 1e15 << u"1000000000000000"_s;
    QTest::newRow("16 cifras se corta a 15") << 1160.0000000000002 << u"1160"_s;
    QTest::newRow("no es numero") << qQNaN() << u"0"_s;
  }
  void TextoNumero() {
    QFETCH(double, valor);
    QFETCH(QString, texto);
    QCOMPARE(ventarix::edocs::TextoNumero(valor), texto);
  }

  // xmllint with the SAT's schemas is the judge, through one schema that imports the CFD, the
  // CFDi and the stamp's. The invoice, credit-note and plain CFD files are judged where they
  // are sealed; here the stamp, the discount and every withholding, which the sealing fixture
  // never carries.
  void ValidaConElEsquemaDelSat_data() {
    QTest::addColumn<Comprobante>("comprobante");
    Comprobante timbrada = Timbrada();
    timbrada.Descuento = u"100"_s;
    timbrada.MotivoDescuento = u"PRONTO PAGO"_s;
    timbrada.RetencionIsr = 10;
    timbrada.RetencionIva = 21.33;
    timbrada.RetencionCed = 2;
    QTest::newRow("CFDi timbrado con retenciones y descuento") << timbrada;
    QTest::newRow("CFD 2.2 con retenciones y descuento") << Cfd();
  }
  void ValidaConElEsquemaDelSat() {
    QFETCH(Comprobante, comprobante);
    QTemporaryDir dir;
    const QString esquema = dir.filePath(u"sat.xsd"_s), archivo = dir.filePath(u"doc.xml"_s);
    const QString importa = u"<xs:import namespace=\"http://www.sat.gob.mx/%1\" schemaLocation=\""_s
                            VENTARIX_SHARED_DIR u"/sat/%2\"/>"_s;
    QVERIFY(Escribir(esquema,
                     (u"<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">"_s +
                      importa.arg(u"cfd/3"_s, u"cfdi32/cfdv32.xsd"_s) +
                      importa.arg(u"cfd/2"_s, u"cfd22/cfdv22.xsd"_s) +
                      importa.arg(u"TimbreFiscalDigital"_s, u"cfdi32/TimbreFiscalDigital.xsd"_s) +
                      u"</xs:schema>"_s)
                         .toUtf8()));
    QVERIFY(Escribir(archivo, ConstruirXml(comprobante, Impuestos::kCompletos)));
    const Salida s = Ejecutar(u"xmllint"_s, {u"--noout"_s, u"--schema"_s, esquema, archivo});
    QVERIFY2(s.codigo == 0, s.Todo().constData());
  }

  void ExpedidoEnSoloConCalleYNumero_data() {
    QTest::addColumn<QString>("calle");
    QTest::addColumn<QString>("numero");
    QTest::addColumn<bool>("presente");
    QTest::newRow("calle y numero") << u"MORELOS"_s << u"7"_s << true;
    QTest::newRow("sin calle") << QString() << u"7"_s << false;
    QTest::newRow("sin numero exterior") << u"MORELOS"_s << QString() << false;
  }
  void ExpedidoEnSoloConCalleYNumero() {
    QFETCH(QString, calle);
    QFETCH(QString, numero);
    QFETCH(bool, presente);
    Comprobante c = Factura();
    c.emisor.expedido_en = {calle,         numero,        {},          u"CENTRO"_s, {}, {},
                            u"SALTILLO"_s, u"COAHUILA"_s, u"MEXICO"_s, u"25000"_s};
    const QList<Elemento> xml = Analizar(ConstruirXml(c));
    const QList<Elemento> expedido = Todos(xml, u"cfdi:ExpedidoEn"_s);
    QCOMPARE(expedido.size(), presente ? 1 : 0);
    if (presente) QCOMPARE(expedido[0].Valor(u"municipio"_s), u"SALTILLO"_s);
    // DomicilioFiscal, [ExpedidoEn], RegimenFiscal: the order the schema demands.
    QCOMPARE(Hijos(xml, 2, u"cfdi:Emisor"_s).join(u','),
             presente ? u"cfdi:DomicilioFiscal,cfdi:ExpedidoEn,cfdi:RegimenFiscal"_s
                      : u"cfdi:DomicilioFiscal,cfdi:RegimenFiscal"_s);
  }

  void DescuentoSoloMayorQueCero_data() {
    QTest::addColumn<QString>("descuento");
    QTest::addColumn<QString>("motivo");
    QTest::addColumn<QString>("atributos");
    QTest::newRow("cero con motivo") << u"0"_s << u"PRONTO PAGO"_s << QString();
    QTest::newRow("vacio") << QString() << u"PRONTO PAGO"_s << QString();
    QTest::newRow("negativo") << u"-5"_s << u"PRONTO PAGO"_s << QString();
    QTest::newRow("con motivo") << u"12.5"_s << u"PRONTO PAGO"_s
                                << u"descuento=12.5,motivoDescuento=PRONTO PAGO"_s;
    QTest::newRow("sin motivo") << u"12.5"_s << QString() << u"descuento=12.5"_s;
  }
  void DescuentoSoloMayorQueCero() {
    QFETCH(QString, descuento);
    QFETCH(QString, motivo);
    QFETCH(QString, atributos);
    Comprobante c = Factura();
    c.Descuento = descuento;
    c.MotivoDescuento = motivo;
    const Elemento raiz = Analizar(ConstruirXml(c)).value(0);
    QStringList hallados;
    for (const QXmlStreamAttribute& a : raiz.atributos) {
      const QString nombre = a.qualifiedName().toString();
      if (nombre.contains(u"escuento"_s)) hallados << nombre + u'=' + a.value().toString();
    }
    QCOMPARE(hallados.join(u','), atributos);
  }

  void Retenciones_data() {
    QTest::addColumn<double>("isr");
    QTest::addColumn<double>("iva");
    QTest::addColumn<double>("ced");
    QTest::addColumn<QString>("total");
    QTest::addColumn<QString>("retenciones");
    QTest::addColumn<double>("tasa");  // the VAT of the grid, on a subtotal of 2000
    QTest::addColumn<QString>("traslado");
    QTest::newRow("ninguna") << 0.0 << 0.0 << 0.0 << QString() << QString() << 16.0 << u"16 320"_s;
    QTest::newRow("solo ISR") << 10.0 << 0.0 << 0.0 << u"10"_s << u"ISR 10"_s << 16.0
                              << u"16 320"_s;
    QTest::newRow("solo IVA") << 0.0 << 21.33 << 0.0 << u"21.33"_s << u"IVA 21.33"_s << 16.0
                              << u"16 320"_s;
    QTest::newRow("la tercera sale como ISR")
        << 0.0 << 0.0 << 2.0 << u"2"_s << u"ISR 2"_s << 16.0 << u"16 320"_s;
    QTest::newRow("las tres") << 10.0 << 21.33 << 2.5 << u"33.83"_s << u"ISR 10,IVA 21.33,ISR 2.5"_s
                              << 16.0 << u"16 320"_s;
    QTest::newRow("sin IVA, el traslado en cero")
        << 0.0 << 0.0 << 0.0 << QString() << QString() << 0.0 << u"0 0"_s;
  }
  void Retenciones() {
    QFETCH(double, isr);
    QFETCH(double, iva);
    QFETCH(double, ced);
    QFETCH(QString, total);
    QFETCH(QString, retenciones);
    QFETCH(double, tasa);
    QFETCH(QString, traslado);
    Comprobante c = Factura();
    c.TasaIva = tasa;
    c.TotalIva = tasa * 20;
    c.RetencionIsr = isr;
    c.RetencionIva = iva;
    c.RetencionCed = ced;
    const QList<Elemento> xml = Analizar(ConstruirXml(c));
    const Elemento impuestos = Todos(xml, u"cfdi:Impuestos"_s).value(0);
    QCOMPARE(impuestos.Valor(u"totalImpuestosRetenidos"_s), total);
    QCOMPARE(impuestos.atributos.hasAttribute(u"totalImpuestosRetenidos"_s), !total.isEmpty());
    QCOMPARE(impuestos.Valor(u"totalImpuestosTrasladados"_s), traslado.section(u' ', 1));
    QCOMPARE(Todos(xml, u"cfdi:Retenciones"_s).size(), retenciones.isEmpty() ? 0 : 1);
    QStringList halladas;
    for (const Elemento& r : Todos(xml, u"cfdi:Retencion"_s)) {
      halladas << r.Valor(u"impuesto"_s) + u' ' + r.Valor(u"importe"_s);
    }
    QCOMPARE(halladas.join(u','), retenciones);
    // One Traslado always, with the rate as the grid holds it.
    const QList<Elemento> traslados = Todos(xml, u"cfdi:Traslado"_s);
    QCOMPARE(traslados.size(), 1);
    QCOMPARE(traslados[0].Valor(u"tasa"_s) + u' ' + traslados[0].Valor(u"importe"_s), traslado);
  }

  void DescripcionDelConcepto_data() {
    QTest::addColumn<QString>("descripcion");
    QTest::addColumn<QString>("enXml");
    const QString larga = QString(300, u'X');
    QTest::newRow("300 caracteres a 255") << larga << larga.left(255);
    QTest::newRow("CR LF desaparece sin blanco")
        << u"TORNILLO\r\nDE ACERO"_s << u"TORNILLODE ACERO"_s;
    QTest::newRow("se quita antes de cortar") << u"\r\n"_s.repeated(10) + larga << larga.left(255);
    QTest::newRow("LF solo se queda") << u"A\nB"_s << u"A\nB"_s;
    // A character outside the BMP straddling the cut goes whole or not at all.
    const QString astral = QString(254, u'Y') + QString::fromUcs4(U"\U0001F527") + u"ZZ"_s;
    QTest::newRow("sin medio caracter") << astral << QString(254, u'Y');
    QTest::newRow("caracteres del XML")
        << u"CODO 90° <PVC> & \"1/2\""_s << u"CODO 90° <PVC> & \"1/2\""_s;
    QTest::newRow("control no viaja") << u"BROCA\x01 3/8"_s << u"BROCA 3/8"_s;
  }
  void DescripcionDelConcepto() {
    QFETCH(QString, descripcion);
    QFETCH(QString, enXml);
    Comprobante c = Factura();
    c.conceptos[1].descripcion = descripcion;
    const QList<Elemento> conceptos = Todos(Analizar(ConstruirXml(c)), u"cfdi:Concepto"_s);
    QCOMPARE(conceptos.size(), 2);
    QCOMPARE(conceptos[1].Valor(u"descripcion"_s), enXml);
    QCOMPARE(conceptos[0].Valor(u"valorUnitario"_s), u"12.5"_s);
  }

  // Read from the text itself, not from a parser that might reorder; the CFD root and the
  // CFDi root without discount are pinned whole by the golden files.
  void OrdenDeAtributosDeLaRaiz() {
    Comprobante c = Factura();
    c.Descuento = u"100"_s;
    c.MotivoDescuento = u"PRONTO PAGO"_s;
    const QString texto = QString::fromUtf8(ConstruirXml(c));
    const qsizetype inicio = texto.indexOf(u"Comprobante "_s);
    const QString etiqueta = texto.mid(inicio, texto.indexOf(u'>', inicio) - inicio);
    QStringList nombres;
    static const QRegularExpression kAtributo(u"\\s([\\w:]+)=\""_s);
    for (const QRegularExpressionMatch& m : kAtributo.globalMatch(etiqueta)) {
      nombres << m.captured(1);
    }
    QCOMPARE(nombres.join(u' '),
             u"xmlns:cfdi xmlns:xsi xsi:schemaLocation version serie folio fecha "
             "condicionesDePago formaDePago subTotal LugarExpedicion NumCtaPago metodoDePago "
             "Moneda TipoCambio descuento motivoDescuento total tipoDeComprobante noCertificado "
             "certificado sello"_s);
  }

  // The seal is set where the empty attribute stood: nothing else of the file moves.
  void SelloEnSuLugar() {
    Comprobante c = Factura();
    const QByteArray vacio = ConstruirXml(c);
    c.Sello = u"Zm9vYmFy+/8="_s;
    QByteArray esperado = vacio;
    esperado.replace("sello=\"\"", "sello=\"Zm9vYmFy+/8=\"");
    QCOMPARE(ConstruirXml(c), esperado);
    QVERIFY(esperado != vacio);
  }

  void CfdSinPrefijoConAddendaAlFinal() {
    Comprobante c = Timbrada();  // a CFD never carries a Complemento, stamp or not
    c.Version = u"2.2"_s;
    const QByteArray addenda =
        "<if:FacturaInterfactura xmlns:if=\"https://www.interfactura.com/Schemas/Documentos\" "
        "id=\"003773\"><if:EmisorRI RI=\"123\"/></if:FacturaInterfactura>";
    const QList<Elemento> xml = Analizar(ConstruirXml(c, Impuestos::kCompletos, addenda));
    QCOMPARE(Hijos(xml).join(u','), u"Emisor,Receptor,Conceptos,Impuestos,Addenda"_s);
    const Elemento emisor_ri = Todos(xml, u"if:EmisorRI"_s).value(0);
    QCOMPARE(emisor_ri.nivel, 3);
    QCOMPARE(emisor_ri.Valor(u"RI"_s), u"123"_s);
    // A block that is not XML fails the build rather than spoiling the file.
    QVERIFY(ConstruirXml(c, Impuestos::kCompletos, "<if:Roto>").isEmpty());
  }

  // Whole files, layout text nodes included, pinned byte for byte.
  void DocumentosCompletos() {
    CompararConDorado(u"construido_cfdi32_timbrado.xml"_s, ConstruirXml(Timbrada()));
    Comprobante cfd = Cfd();
    cfd.emisor.expedido_en = {u"MORELOS"_s,  u"7"_s,        {},          {},        {}, {},
                              u"SALTILLO"_s, u"COAHUILA"_s, u"MEXICO"_s, u"25000"_s};
    cfd.RetencionCed = 2;
    CompararConDorado(u"construido_cfd22.xml"_s, ConstruirXml(cfd));
  }
};

QTEST_GUILESS_MAIN(TestCfdiXml)
#include "tst_cfdi_xml.moc"
