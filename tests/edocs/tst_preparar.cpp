// The schemes without XML (CBB, NOTA) and the point of sale's delivery note, on both engines:
// their ranges, the words each side uses, the company and client checks they share with the
// sealing, and the credit limit that only the income side and the delivery note test.
#include <QDir>
#include <QTest>

#include "core/database.h"
#include "edocs/mDigital.h"
#include "edocs/sellado_prueba.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace ventarix::testing;
using namespace Qt::StringLiterals;

namespace {

const QString kFacturaFuera =
    u"Este número de factura esta fuera del rango de los folios digitales"_s;

}  // namespace

class TestPreparar : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { AddEngineRows(); }

  // What the screen stores after a CBB or NOTA document passed, and that nothing reached disk.
  void Bloque_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QString>("aprobacion");
    QTest::addColumn<QString>("regimen");
    const QString regimen = u"REGIMEN GENERAL DE LEY PERSONAS MORALES"_s;
    QTest::newRow("CBB factura") << int(kIngresoCBB) << u"ingreso"_s << u"98765"_s << regimen;
    QTest::newRow("CBB nota") << int(kEgresoCBB) << u"egreso"_s << u"98765"_s << regimen;
    QTest::newRow("NOTA factura") << int(kIngresoNOTA) << u"ingreso"_s << QString() << QString();
    QTest::newRow("NOTA nota") << int(kEgresoNOTA) << u"egreso"_s << QString() << QString();
  }
  void Bloque() {
    QFETCH(int, driver);
    QFETCH(QString, tipo);
    QFETCH(QString, aprobacion);
    QFETCH(QString, regimen);
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    forma.Datos.insert(0, u"1"_s);
    const ResultadoSellado r = Correr(Driver(driver), session, forma);
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    const Comprobante& c = r.comprobante;
    QCOMPARE(c.TipoDeComprobante, tipo);
    QCOMPARE(c.NoAprobacion, aprobacion);
    QCOMPARE(c.AnoAprobacion, aprobacion.isEmpty() ? QString() : u"2012"_s);
    QCOMPARE(c.RegimenFiscal, regimen);
    QCOMPARE(c.Folio, u"1"_s);
    QCOMPARE(c.Total, u"1990.56"_s);
    QCOMPARE(c.conceptos.size(), 2);
    QCOMPARE(c.receptor.rfc, u"FCL850923QA7"_s);
    QCOMPARE(c.emisor.rfc, u"AAA010101AAA"_s);
    QVERIFY(c.Sello.isEmpty());
    QVERIFY(r.archivo.isEmpty());
    QVERIFY(QDir(session.CarpetaXml).isEmpty());
  }

  // The range and folio each driver accepts, and the status words (the credit-note NOTA keeps
  // the invoice's; the delivery note does not look): a row with no range is a cancelled
  // document on the driver's own range.
  void Rango_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<int>("rango");
    QTest::addColumn<QString>("folio");
    QTest::addColumn<QString>("mensaje");
    const QString factura = u"Esta factura se encuentra de baja"_s;
    QTest::newRow("CBB factura de baja") << int(kIngresoCBB) << 0 << QString() << factura;
    QTest::newRow("NOTA factura de baja") << int(kIngresoNOTA) << 0 << QString() << factura;
    QTest::newRow("CBB nota de baja")
        << int(kEgresoCBB) << 0 << QString() << u"Esta nota de crédito se encuentra de baja"_s;
    QTest::newRow("NOTA nota de baja") << int(kEgresoNOTA) << 0 << QString() << factura;
    QTest::newRow("remisión de baja no lo mira") << int(kRemision) << 0 << QString() << QString();
    QTest::newRow("CBB sin imagen") << int(kIngresoCBB) << int(kFacturaCBBSinImagen) << u"1"_s
                                    << u"Se requiere un código bidimensional en folios facturas"_s;
    QTest::newRow("CBB sobre un rango CFDi")
        << int(kIngresoCBB) << int(kFacturaCFDi) << u"1"_s
        << u"Se requiere un código bidimensional en folios facturas"_s;
    QTest::newRow("CBB sin régimen") << int(kIngresoCBB) << int(kFacturaCBBSinRegimen) << u"1"_s
                                     << u"Se requiere el registro de un régimen fiscal"_s;
    QTest::newRow("CBB folio fuera")
        << int(kIngresoCBB) << int(kFacturaCBB) << u"101"_s << kFacturaFuera;
    QTest::newRow("CBB nota sobre CFDi")
        << int(kEgresoCBB) << int(kNotaCFDi) << u"1"_s
        << u"Se requiere un código bidimensional en folios notas de crédito"_s;
    QTest::newRow("CBB nota folio fuera")
        << int(kEgresoCBB) << int(kNotaCBB) << u"700"_s
        << u"Este número de nota de crédito esta fuera del rango de los folios digitales"_s;
    const QString sin_nota =
        u"Se requiere el registro de una serie de ingreso en: Empresa, Folios Digitales"_s;
    QTest::newRow("NOTA sobre CBB") << int(kIngresoNOTA) << int(kFacturaCBB) << u"1"_s << sin_nota;
    QTest::newRow("NOTA nota sobre CBB") << int(kEgresoNOTA) << int(kNotaCBB) << u"1"_s << sin_nota;
    QTest::newRow("NOTA folio fuera")
        << int(kIngresoNOTA) << int(kFacturaNOTA) << u"700"_s << kFacturaFuera;
    QTest::newRow("NOTA nota folio fuera")
        << int(kEgresoNOTA) << int(kNotaNOTA) << u"700"_s << kFacturaFuera;
  }
  void Rango() {
    QFETCH(int, driver);
    QFETCH(int, rango);
    QFETCH(QString, folio);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    if (rango == 0) {
      forma.Status = u"BAJA"_s;
    } else {
      forma.Ingreso = rango;
      forma.Datos.insert(0, folio);
    }
    QCOMPARE(Correr(Driver(driver), session, forma).Msg1, mensaje);
  }

  // A NOTA is as demanding as a sealed document about the company and the client.
  void EmpresaYCliente_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<QString>("rfc_empresa");
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("NOTA sin RFC") << int(kIngresoNOTA) << QString() << QString()
                                  << u"El RFC de la empresa no es válido: Sin RFC"_s;
    QTest::newRow("NOTA nota con RFC corto") << int(kEgresoNOTA) << u"AAA0101"_s << QString()
                                             << u"El RFC de la empresa no es válido: AAA0101"_s;
    QTest::newRow("NOTA cliente sin colonia")
        << int(kIngresoNOTA) << u"AAA010101AAA"_s << u"update clientes set colonia = ''"_s
        << u"Se requiere la entrada de una Colonia"_s;
    QTest::newRow("remisión cliente sin CP")
        << int(kRemision) << QString() << u"update clientes set codigopostal = ''"_s
        << u"Se requiere la entrada de un Código Postal"_s;
  }
  void EmpresaYCliente() {
    QFETCH(int, driver);
    QFETCH(QString, rfc_empresa);
    QFETCH(QString, sentencia);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    session.empresa.Set(u"rfc"_s, rfc_empresa);
    if (!sentencia.isEmpty()) QVERIFY(EjecutarSql(session, sentencia));
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    QCOMPARE(Correr(Driver(driver), session, forma).Msg1, mensaje);
  }

  // Credit 1,000 with a term of 30 days, unless the row says otherwise.
  void Credito_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<int>("cliente");
    QTest::addColumn<QString>("plazo");
    QTest::addColumn<double>("saldo");
    QTest::addColumn<bool>("excedido");
    QTest::newRow("CBB un centavo arriba")
        << int(kIngresoCBB) << kCliente << u"30"_s << 1000.01 << true;
    QTest::newRow("CBB justo en el límite")
        << int(kIngresoCBB) << kCliente << u"30"_s << 1000.0 << false;
    QTest::newRow("NOTA arriba") << int(kIngresoNOTA) << kCliente << u"30"_s << 2500.0 << true;
    QTest::newRow("remisión arriba") << int(kRemision) << kCliente << u"30"_s << 2500.0 << true;
    QTest::newRow("crédito 0 nunca")
        << int(kIngresoCBB) << kClienteSinCredito << u"30"_s << 1e9 << false;
    QTest::newRow("plazo 0 no retiene") << int(kRemision) << kCliente << u"0"_s << 2500.0 << false;
    QTest::newRow("CBB nota no lo mira")
        << int(kEgresoCBB) << kCliente << u"30"_s << 2500.0 << false;
    QTest::newRow("NOTA nota no lo mira")
        << int(kEgresoNOTA) << kCliente << u"30"_s << 2500.0 << false;
    QTest::newRow("CFDi no lo mira") << int(kIngresoCFDi) << kCliente << u"30"_s << 2500.0 << false;
  }
  void Credito() {
    QFETCH(int, driver);
    QFETCH(int, cliente);
    QFETCH(QString, plazo);
    QFETCH(double, saldo);
    QFETCH(bool, excedido);
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    forma.Datos.insert(1, QString::number(cliente));
    forma.Datos.insert(3, plazo);
    forma.Saldo = saldo;
    const ResultadoSellado r = Correr(Driver(driver), session, forma);
    QCOMPARE(r.Msg1, excedido ? u"Límite de crédito excedido ! ! !"_s : QString());
  }

  // The delivery note of the point of sale looks only at its client and credit.
  void Remision() {
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = DocumentoDe(kRemision);
    forma.FormaDePago.clear();
    forma.Fg1.clear();
    ResultadoSellado r = PrepararRemision(session, forma);
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QCOMPARE(r.comprobante.MetodoDePago, u"NO IDENTIFICADO"_s);
    QCOMPARE(r.comprobante.NumCtaPago, u"NO IDENTIFICADO"_s);
    QCOMPARE(r.comprobante.receptor.nombre, u"FERRETERIA EL CLAVO SA DE CV"_s);
    forma.Datos.insert(1, u"55"_s);
    r = PrepararRemision(session, forma);
    QCOMPARE(r.Msg1, u"Se requiere la entrada de un cliente"_s);
    QCOMPARE(forma.Dato(1), u"0"_s);
    QCOMPARE(forma.Nombre, u"F1"_s);
  }
};

QTEST_GUILESS_MAIN(TestPreparar)
#include "tst_preparar.moc"
