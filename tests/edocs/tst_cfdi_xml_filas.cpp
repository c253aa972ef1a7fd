// The comprobante block stored in its document row and read back on both engines, and a stored
// invoice's file written again from the row: byte for byte the file the block builds, the
// summary concept preferred to the detail rows, and each refusal with its message and icon.
#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "core/database.h"
#include "edocs/cfdi_xml.h"
#include "edocs/comprobante_prueba.h"
#include "edocs/herramientas.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace Qt::StringLiterals;

namespace {

// Every field of the block set, the approval of CFD and the stamp of CFDi alike, so that the
// two schemes' files between them show every column.
Comprobante Bloque() {
  Comprobante c = testing::Timbrada();
  c.NoAprobacion = u"49"_s;
  c.AnoAprobacion = u"2012"_s;
  c.CondicionesDePago = u"CREDITO 30 DIAS"_s;
  c.SubTotal = u"2000.5"_s;
  c.Descuento = u"100.25"_s;
  c.MotivoDescuento = u"PRONTO PAGO"_s;
  c.Total = u"2200.29"_s;
  c.NumCtaPago = u"0123"_s;
  c.TipoCambio = u"13.2500"_s;
  c.TipoCambioValor = 13.25;
  c.Moneda = u"USD"_s;
  c.CadenaOriginal = u"||3.2|A|15|2014-05-20T10:30:05||"_s;
  c.Algoritmo = u"sha-1"_s;
  c.TotalIva = 304.04;
  c.RetencionIsr = 10;
  c.RetencionIva = 21.33;
  c.RetencionCed = 2.5;
  c.emisor.expedido_en = {u"MORELOS"_s, u"7"_s,        u"2"_s,        u"OBRERA"_s, u"SALTILLO"_s,
                          u"ESQUINA"_s, u"SALTILLO"_s, u"COAHUILA"_s, u"MEXICO"_s, u"25000"_s};
  c.receptor.cliente = 7;
  c.receptor.domicilio.noInterior = u"3"_s;
  c.receptor.domicilio.localidad = u"GUADALUPE"_s;
  c.receptor.domicilio.referencia = u"JUNTO AL MERCADO"_s;
  c.conceptos[0].precio = 12.505;
  c.conceptos[0].importe = 1250.5;
  c.conceptos[0].subtotal = 1150.4;
  return c;
}

// A concept as a detail or summary row of a document.
QVariantMap FilaConcepto(const QString& llave, const QString& documento, int item,
                         const Concepto& k) {
  return {{llave, documento},         {u"item"_s, item},
          {u"codigo"_s, k.codigo},    {u"descripcion"_s, k.descripcion},
          {u"unidad"_s, k.unidad},    {u"cantidad"_s, k.cantidad},
          {u"precio"_s, k.precio},    {u"importe"_s, k.importe},
          {u"subtotal"_s, k.subtotal}};
}

// The document row as the capture screen leaves it before the block is written, and its
// detail rows in reverse item order, so that the reading must sort them.
bool InsertarDocumento(Connection& c, const QString& tabla, const QString& llave,
                       const QString& documento, const Comprobante& bloque, QString* error) {
  if (!testing::InsertarFila(c, tabla, {{llave, documento}}, error)) return false;
  for (int i = bloque.conceptos.size(); i >= 1; --i) {
    const QVariantMap fila = FilaConcepto(llave, documento, i, bloque.conceptos[i - 1]);
    if (!testing::InsertarFila(c, tabla + u" detalles"_s, fila, error)) return false;
  }
  return true;
}

// An invoice stored with its block; esquema and status as the test needs them.
bool GuardarFactura(const Session& s, const QString& factura, const Comprobante& bloque,
                    const QString& esquema, const QString& status, QString* error) {
  Connection c(s.Cadena);
  return InsertarDocumento(c, u"facturas"_s, u"factura"_s, factura, bloque, error) &&
         EscribirComprobante(c, u"facturas"_s, u"factura"_s, factura, bloque, error) &&
         testing::Escribir(c, u"update facturas set esquema = ?, status = ? where factura = ?"_s,
                           {esquema, status, factura}, error);
}

Session SesionConXml(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  s.CarpetaXml = company.folder() + u"/xml"_s;
  QDir().mkpath(s.CarpetaXml);
  return s;
}

}  // namespace

Q_DECLARE_METATYPE(ventarix::MessageIcon)

class TestCfdiXmlFilas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // What is written is what is read: every field reaches one of the two schemes' files, and
  // the few that no file carries are compared by hand.
  void EscribirYLeer_data() {
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QString>("llave");
    QTest::addColumn<bool>("retenciones");
    QTest::newRow("factura") << u"facturas"_s << u"factura"_s << true;
    QTest::newRow("nota de credito") << u"notas cliente"_s << u"nota"_s << false;
  }
  void EscribirYLeer() {
    QFETCH(QString, tabla);
    QFETCH(QString, llave);
    QFETCH(bool, retenciones);
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    const Comprobante escrito = Bloque();
    QString error;
    QVERIFY2(InsertarDocumento(c, tabla, llave, u"A-15"_s, escrito, &error), qPrintable(error));
    QVERIFY2(EscribirComprobante(c, tabla, llave, u"A-15"_s, escrito, &error), qPrintable(error));

    Comprobante leido;
    QVERIFY(LeerComprobante(c, tabla, llave, u"A-15"_s, &leido));
    Comprobante esperado = escrito;
    if (!retenciones) {  // a credit-note row has no retention columns
      esperado.RetencionIsr = esperado.RetencionIva = esperado.RetencionCed = 0;
    }
    QCOMPARE(ConstruirXml(leido, FormatoXml::kCfdi32), ConstruirXml(esperado, FormatoXml::kCfdi32));
    QCOMPARE(ConstruirXml(leido, FormatoXml::kCfd22), ConstruirXml(esperado, FormatoXml::kCfd22));
    QCOMPARE(leido.CadenaOriginal, esperado.CadenaOriginal);
    QCOMPARE(leido.Algoritmo, esperado.Algoritmo);
    QCOMPARE(leido.TipoCambioValor, 13.25);
    QCOMPARE(leido.receptor.cliente, 7);
    QCOMPARE(leido.conceptos.size(), 2);
    QCOMPARE(leido.conceptos[0].subtotal, 1150.4);
    QCOMPARE(leido.RetencionCed, esperado.RetencionCed);

    // A later write replaces what was there, blanks included.
    Comprobante segundo = escrito;
    segundo.Serie.clear();
    segundo.timbre = {};
    segundo.AnoAprobacion.clear();
    QVERIFY2(EscribirComprobante(c, tabla, llave, u"A-15"_s, segundo, &error), qPrintable(error));
    QVERIFY(LeerComprobante(c, tabla, llave, u"A-15"_s, &leido));
    QCOMPARE(leido.Serie, QString());
    QVERIFY(leido.timbre.empty());
    QCOMPARE(leido.AnoAprobacion, QString());
    QCOMPARE(leido.Folio, u"15"_s);
  }

  // Rows of older companies keep amounts as text, thousands separators included; a missing row
  // is neither read nor written, and a folio that is no number is refused by the engine or kept
  // as typed, never lost.
  void FilasViejasYFaltantes() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QString error;
    for (const QString& ddl :
         {u"create table viejas (factura varchar(20), folio varchar(10), hora varchar(20), "
          "subtotal varchar(20), tipocambio varchar(20), impuesto varchar(10), iva varchar(20))"_s,
          u"create table \"viejas resumen\" (factura varchar(20), codigo varchar(20))"_s,
          u"create table \"viejas detalles\" (factura varchar(20), item integer, "
          "codigo varchar(20), cantidad varchar(20), precio varchar(20), importe varchar(20))"_s,
          u"insert into viejas values ('V-1', ' 15', '2014-05-20 10:30:05', '1,160.50', '13.25', "
          "'16', '185.68')"_s,
          u"insert into \"viejas detalles\" values ('V-1', 1, 'TOR-01', '3', '386.8333', "
          "'1,160.50')"_s}) {
      QVERIFY2(testing::Escribir(c, ddl, {}, &error), qPrintable(error));
    }
    Comprobante leido;
    QVERIFY(LeerComprobante(c, u"viejas"_s, u"factura"_s, u"V-1"_s, &leido));
    QCOMPARE(leido.Folio, u"15"_s);
    QCOMPARE(leido.fecha, QDateTime(QDate(2014, 5, 20), QTime(10, 30, 5)));
    QCOMPARE(leido.SubTotal, u"1160.5"_s);
    QCOMPARE(leido.TipoCambio, u"13.2500"_s);
    QCOMPARE(leido.TasaIva, 16.0);
    QCOMPARE(leido.TotalIva, 185.68);
    QCOMPARE(leido.RetencionIsr, 0.0);  // a column the table lacks reads as nothing
    QCOMPARE(leido.conceptos.size(), 1);
    QCOMPARE(leido.conceptos[0].precio, 386.8333);
    QCOMPARE(leido.conceptos[0].importe, 1160.5);

    QVERIFY(!LeerComprobante(c, u"facturas"_s, u"factura"_s, u"Z-1"_s, &leido));
    QVERIFY(!EscribirComprobante(c, u"facturas"_s, u"factura"_s, u"Z-1"_s, Bloque(), &error));
    QVERIFY(!error.isEmpty());
    error.clear();
    QVERIFY(testing::InsertarFila(c, u"facturas"_s, {{u"factura"_s, u"A-16"_s}}));
    Comprobante raro = Bloque();
    raro.Folio = u"16X"_s;
    if (EscribirComprobante(c, u"facturas"_s, u"factura"_s, u"A-16"_s, raro, &error)) {
      QVERIFY(LeerComprobante(c, u"facturas"_s, u"factura"_s, u"A-16"_s, &raro));
      QCOMPARE(raro.Folio, u"16X"_s);
    } else {
      QVERIFY(!error.isEmpty());
    }
  }

  // The rebuilt file is the one the block builds, byte for byte: the stamp in a CFDi, none in
  // a CFD even when its row holds a stray UUID.
  void CrearXmlDesdeLaFila_data() {
    QTest::addColumn<bool>("cfd");
    QTest::newRow("CFDi") << false;
    QTest::newRow("CFD") << true;
  }
  void CrearXmlDesdeLaFila() {
    QFETCH(bool, cfd);
    VENTARIX_COMPANY(company);
    const Session s = SesionConXml(company);
    Comprobante bloque = Bloque();
    if (cfd) bloque.Version = u"2.2"_s;
    const FormatoXml formato = cfd ? FormatoXml::kCfd22 : FormatoXml::kCfdi32;
    QString error;
    QVERIFY2(
        GuardarFactura(s, u"A-15"_s, bloque, cfd ? u"CFD"_s : u"CFDI"_s, u"POR COBRAR"_s, &error),
        qPrintable(error));
    const QString archivo = s.CarpetaXml + u"/A-15.xml"_s;
    const Outcome r =
        cfd ? CrearXmlDesdeFacturaCFD(s, u"A-15"_s) : CrearXmlDesdeFactura(s, u"A-15"_s);
    QVERIFY2(r.ok, qPrintable(r.message));
    const QByteArray xml = testing::Leer(archivo);
    QCOMPARE(xml, ConstruirXml(bloque, formato));
    QCOMPARE(xml.contains("TimbreFiscalDigital"), !cfd);
    if (cfd) return;

    // A summary row stands in for the detail rows.
    Connection c(s.Cadena);
    const Concepto corte{u"CORTE"_s, u"VENTAS DEL DIA"_s, u"CORTE"_s, 1, 2000.5, 2000.5, 1900.25};
    QVERIFY(testing::InsertarFila(c, u"facturas resumen"_s,
                                  FilaConcepto(u"factura"_s, u"A-15"_s, 1, corte), &error));
    QVERIFY(CrearXmlDesdeFactura(s, u"A-15"_s).ok);
    Comprobante resumido = bloque;
    resumido.conceptos = {corte};
    QCOMPARE(testing::Leer(archivo), ConstruirXml(resumido, FormatoXml::kCfdi32));
  }

  void MensajesDeLaReconstruccion_data() {
    QTest::addColumn<bool>("cfd");
    QTest::addColumn<QString>("esquema");  // empty: no row at all
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<MessageIcon>("icono");
    QTest::addColumn<bool>("sin_carpeta");
    const QString esquema_cfdi = u"Para el timbrado de esta factura se requiere un esquema CFDi"_s;
    const QString baja = u"Esta factura esta dada de baja"_s;
    QTest::newRow("CFDi sin fila")
        << false << QString() << QString() << u"No se localizó este número de factura"_s
        << MessageIcon::kStop << false;
    QTest::newRow("CFD sin fila") << true << QString() << QString()
                                  << u"No se obtuvieron datos de esta factura"_s
                                  << MessageIcon::kStop << false;
    QTest::newRow("CFDi sobre fila CFD")
        << false << u"CFD"_s << u"POR COBRAR"_s << esquema_cfdi << MessageIcon::kWarning << false;
    QTest::newRow("CFD sobre fila CFDI")
        << true << u"CFDI"_s << u"POR COBRAR"_s << esquema_cfdi << MessageIcon::kWarning << false;
    QTest::newRow("esquema antes que baja")
        << false << u"CFD"_s << u"BAJA"_s << esquema_cfdi << MessageIcon::kWarning << false;
    QTest::newRow("CFDi de baja") << false << u"CFDI"_s << u"BAJA"_s << baja << MessageIcon::kStop
                                  << false;
    QTest::newRow("CFD de baja") << true << u"CFD"_s << u"BAJA"_s << baja << MessageIcon::kStop
                                 << false;
    QTest::newRow("carpeta inexistente")
        << false << u"CFDI"_s << u"LIQUIDADO"_s
        << u"No se pudo crear el archivo XML para su respectivo timbrado"_s << MessageIcon::kStop
        << true;
  }
  void MensajesDeLaReconstruccion() {
    QFETCH(bool, cfd);
    QFETCH(QString, esquema);
    QFETCH(QString, status);
    QFETCH(QString, mensaje);
    QFETCH(MessageIcon, icono);
    QFETCH(bool, sin_carpeta);
    VENTARIX_COMPANY(company);
    Session s = SesionConXml(company);
    QString error;
    if (!esquema.isEmpty()) {
      QVERIFY2(GuardarFactura(s, u"A-15"_s, Bloque(), esquema, status, &error), qPrintable(error));
    }
    if (sin_carpeta) s.CarpetaXml = company.folder() + u"/no/hay/tal"_s;
    const Outcome r =
        cfd ? CrearXmlDesdeFacturaCFD(s, u"A-15"_s) : CrearXmlDesdeFactura(s, u"A-15"_s);
    QVERIFY(!r.ok);
    QCOMPARE(r.message, mensaje);
    QCOMPARE(r.icon, icono);
    QVERIFY(!QFile::exists(s.CarpetaXml + u"/A-15.xml"_s));
  }
};

QTEST_GUILESS_MAIN(TestCfdiXmlFilas)
#include "tst_cfdi_xml_filas.moc"
