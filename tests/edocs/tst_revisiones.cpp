// The checks of the sealing chain as a clerk meets them, on both engines: every fault of a
// document stacked on all the later ones, so that the earliest must be the one reported; the
// words of the credit-note side; the key material and its files; the client's address; the
// SAT files the scheme needs. A refused document leaves no file.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
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

// The faults of an invoice in the order the chain looks at them.
enum Falta {
  kBaja,
  kSinFormaDePago,
  kSinCodigos,
  kSinHoja,
  kSinRango,
  kRfcEmpresa,
  kNombreEmpresa,
  kFolioFuera,
  kVencido,
  kContrasena,
  kSinCliente,
  kFaltas
};

void Aplicar(Falta falta, Session& s, DocumentoCaptura& forma, const QString& vacia) {
  switch (falta) {
    case kBaja:
      forma.Status = u"BAJA"_s;
      break;
    case kSinFormaDePago:
      forma.FormaDePago.clear();
      break;
    case kSinCodigos:
      for (QStringList& fila : forma.Fg1) fila[1].clear();
      break;
    case kSinHoja:
      s.CarpetaEsquemasCFDi = vacia;
      break;
    case kSinRango:
      forma.Ingreso = 99;
      break;
    case kRfcEmpresa:
      s.empresa.Set(u"rfc"_s, u"AAA010101"_s);
      break;
    case kNombreEmpresa:
      s.empresa.Set(u"nombre"_s, QString());
      break;
    case kFolioFuera:
      forma.Datos.insert(0, u"700"_s);
      break;
    case kVencido:
      forma.Fecha = QDateTime(QDate(2020, 1, 2), QTime(9, 0));
      break;
    case kContrasena:
      QVERIFY(EjecutarSql(s, u"update certificados set password = ? where documento = 0"_s,
                          {u"12345678b"_s}));
      break;
    case kSinCliente:
      forma.Datos.insert(1, u"999"_s);
      break;
    case kFaltas:
      break;
  }
}

}  // namespace

class TestRevisiones : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    qputenv("TZ", "UTC");
    tzset();
  }
  void initTestCase_data() { AddEngineRows(); }

  void PrimeraFallaGana_data() {
    QTest::addColumn<int>("primera");
    QTest::addColumn<QString>("mensaje");
    const QString fuera = u"Este número de factura esta fuera del rango de los folios digitales"_s;
    QTest::newRow("baja") << int(kBaja) << u"Esta factura se encuentra de baja"_s;
    QTest::newRow("forma de pago")
        << int(kSinFormaDePago) << u"Se requiere la entrada de una forma de pago"_s;
    QTest::newRow("códigos") << int(kSinCodigos)
                             << u"Se requiere al menos la entrada de un código y descripción"_s;
    QTest::newRow("hoja") << int(kSinHoja)
                          << u"Se requiere el archivo: cadenaoriginal_3_2.xslt en: %1"_s;
    QTest::newRow("rango")
        << int(kSinRango)
        << u"Se requiere el registro de una serie de ingreso en: Folios Facturas"_s;
    QTest::newRow("rfc empresa") << int(kRfcEmpresa)
                                 << u"El RFC de la empresa no es válido: AAA010101"_s;
    QTest::newRow("nombre empresa")
        << int(kNombreEmpresa) << u"El nombre de la empresa no es válido"_s;
    QTest::newRow("folio") << int(kFolioFuera) << fuera;
    QTest::newRow("vigencia")
        << int(kVencido)
        << u"Certificado válido del 27/jul/2012 05:02:00 pm al 27/jul/2016 05:02:00 pm"_s;
    QTest::newRow("contraseña") << int(kContrasena)
                                << u"La contraseña de la llave privada no es válida"_s;
    QTest::newRow("cliente") << int(kSinCliente) << u"Se requiere la entrada de un cliente"_s;
  }
  void PrimeraFallaGana() {
    QFETCH(int, primera);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    QTemporaryDir vacia;
    DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
    for (int f = primera; f < kFaltas; ++f) Aplicar(Falta(f), session, forma, vacia.path());
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QCOMPARE(r.Msg1, mensaje.contains(u"%1"_s) ? mensaje.arg(vacia.path()) : mensaje);
    QVERIFY(r.archivo.isEmpty());
    QVERIFY(QDir(session.CarpetaXml).isEmpty());
  }

  // The credit-note side speaks of notes, except in the certificate and key file messages.
  void PalabrasDeNotas_data() {
    QTest::addColumn<int>("falta");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("baja") << int(kBaja) << u"Esta nota de crédito se encuentra de baja"_s;
    QTest::newRow("rango") << int(kSinRango)
                           << u"Se requiere el registro de una serie de egreso en: Folios Notas"_s;
    QTest::newRow("folio") << int(kFolioFuera)
                           << u"Este número de nota esta fuera del rango de los folios digitales"_s;
    QTest::newRow("vigencia")
        << int(kVencido)
        << u"Certificado válido del 27/jul/2012 05:02:00 pm al 27/jul/2016 05:02:00 pm"_s;
  }
  void PalabrasDeNotas() {
    QFETCH(int, falta);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    for (const bool cfd : {false, true}) {
      DocumentoCaptura forma = Documento(cfd ? kNotaCFD : kNotaCFDi, u"NC"_s, true);
      Aplicar(Falta(falta), session, forma, {});
      const ResultadoSellado r = (cfd ? SellarEgresoCFD : SellarEgresoCFDi)(session, forma, {});
      QCOMPARE(r.Msg1, mensaje);
    }
  }

  void Material_data() {
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<bool>("sin_carpeta");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("certificado nulo")
        << u"update certificados set certificado = null where documento = 1"_s << false
        << u"Se requiere un archivo certificado"_s;
    QTest::newRow("llave nula") << u"update certificados set llave = null where documento = 1"_s
                                << false << u"Se requiere un archivo llave"_s;
    QTest::newRow("sin carpeta de certificados")
        << QString() << true << u"Se requiere un archivo certificado en: Folios Facturas"_s;
    QTest::newRow("rango sin archivo llave")
        << u"update \"folios notas\" set archivollave = ''"_s << false
        << u"Se requiere un archivo llave en: Folios Facturas"_s;
  }
  void Material() {
    QFETCH(QString, sentencia);
    QFETCH(bool, sin_carpeta);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    if (!sentencia.isEmpty()) QVERIFY(EjecutarSql(session, sentencia, {}));
    if (sin_carpeta) QVERIFY(QDir(session.CarpetaCer).removeRecursively());
    DocumentoCaptura forma = Documento(kNotaCFDi, u"NC"_s, true);
    QCOMPARE(SellarEgresoCFDi(session, forma, {}).Msg1, mensaje);
  }

  // The .cer and .key come back from the database when the folder lost them.
  void MaterialRestaurado() {
    VENTARIX_SELLADO(company, session);
    const QString cer = QDir(session.CarpetaCer).filePath(BaseCsd() + u".cer"_s);
    const QString key = QDir(session.CarpetaCer).filePath(BaseCsd() + u".key"_s);
    QVERIFY(!QFile::exists(cer));
    DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
    QVERIFY(SellarIngresoCFDi(session, forma, {}).ok());
    QCOMPARE(LeerBytes(cer), LeerBytes(CarpetaSat() + u"/csd/"_s + BaseCsd() + u".cer"_s));
    QCOMPARE(LeerBytes(key), LeerBytes(CarpetaSat() + u"/csd/"_s + BaseCsd() + u".key"_s));
    QVERIFY(QFile::remove(key));
    forma.Datos.insert(0, u"16"_s);
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    QVERIFY(QFile::exists(key));
    QVERIFY(QFile::exists(r.archivo));
  }

  void Cliente_data() {
    QTest::addColumn<QString>("columna");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("mensaje");
    const QString rfc = u"El RFC de este cliente no es válido: "_s;
    QTest::newRow("sin rfc") << u"rfc"_s << QString() << rfc + u"Sin RFC"_s;
    QTest::newRow("rfc mes 13") << u"rfc"_s << u"FCL851323QA7"_s << rfc + u"FCL851323QA7"_s;
    QTest::newRow("calle") << u"calle"_s << QString()
                           << u"Se requiere la entrada de una nombre de Calle"_s;
    QTest::newRow("exterior") << u"noexterior"_s << QString()
                              << u"Se requiere la entrada de un No. Exterior"_s;
    QTest::newRow("interior no hace falta") << u"nointerior"_s << QString() << QString();
    QTest::newRow("colonia") << u"colonia"_s << QString()
                             << u"Se requiere la entrada de una Colonia"_s;
    QTest::newRow("municipio") << u"municipio"_s << QString()
                               << u"Se requiere la entrada de un Municipio"_s;
    QTest::newRow("estado") << u"estado"_s << QString() << u"Se requiere la entrada de un Estado"_s;
    QTest::newRow("país") << u"pais"_s << QString() << u"Se requiere la entrada de un País"_s;
    QTest::newRow("cp de 4") << u"codigopostal"_s << u"6400"_s
                             << u"Se requiere la entrada de un Código Postal"_s;
    QTest::newRow("cp de 6") << u"codigopostal"_s << u"640001"_s
                             << u"Se requiere la entrada de un Código Postal"_s;
  }
  void Cliente() {
    QFETCH(QString, columna);
    QFETCH(QString, valor);
    QFETCH(QString, mensaje);
    VENTARIX_SELLADO(company, session);
    QVERIFY(EjecutarSql(session, u"update clientes set %1 = ? where numero = ?"_s.arg(columna),
                        {valor, kCliente}));
    DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QCOMPARE(r.Msg1, mensaje);
    QCOMPARE(r.archivo.isEmpty(), !mensaje.isEmpty());
  }

  void ClienteInexistente() {
    VENTARIX_SELLADO(company, session);
    DocumentoCaptura forma = Documento(kFacturaCFDi, u"A"_s, false);
    forma.Datos.insert(1, u"4321"_s);
    QCOMPARE(SellarIngresoCFDi(session, forma, {}).Msg1, u"Se requiere la entrada de un cliente"_s);
    QCOMPARE(forma.Dato(1), u"0"_s);
  }

  // The first file of the scheme's list missing from its folder is named with the folder.
  void ArchivosDelEsquema_data() {
    QTest::addColumn<bool>("cfd");
    QTest::addColumn<QString>("falta");
    QTest::newRow("CFDi donat") << false << u"donat.xsd"_s;
    QTest::newRow("CFDi cfdv22 de la lista") << false << u"cfdv22.xsd"_s;
    QTest::newRow("CFD terceros11") << true << u"terceros11.xsd"_s;
  }
  void ArchivosDelEsquema() {
    QFETCH(bool, cfd);
    QFETCH(QString, falta);
    VENTARIX_SELLADO(company, session);
    QTemporaryDir copia;
    QString& carpeta = cfd ? session.CarpetaEsquemasCFD : session.CarpetaEsquemasCFDi;
    const QDir origen(carpeta);
    for (const QString& nombre : origen.entryList(QDir::Files)) {
      if (nombre != falta) QVERIFY(QFile::copy(origen.filePath(nombre), copia.filePath(nombre)));
    }
    carpeta = copia.path();
    DocumentoCaptura forma =
        cfd ? Documento(kFacturaCFD, u"B"_s, false) : Documento(kFacturaCFDi, u"A"_s, false);
    const ResultadoSellado r = (cfd ? SellarIngresoCFD : SellarIngresoCFDi)(session, forma, {});
    QCOMPARE(r.Msg1, u"Se requiere el archivo: "_s + falta + u" en: "_s + copia.path());
  }

  // Kept as the chain always behaved: a range without regime, and a CFD for a client whose
  // addenda is built by its own screen, end without a message and without a file.
  void SinArchivoNiMensaje_data() {
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<bool>("cfd");
    QTest::addColumn<bool>("archivo");
    QTest::newRow("CFDi sin régimen")
        << u"update \"folios facturas\" set regimenfiscal = ''"_s << false << false;
    QTest::newRow("CFD de QUALITAS")
        << u"update clientes set addenda = 'QUALITAS'"_s << true << false;
    QTest::newRow("CFD de INBURSA")
        << u"update clientes set addenda = 'INBURSA'"_s << true << false;
    QTest::newRow("CFDi de QUALITAS se sella")
        << u"update clientes set addenda = 'QUALITAS'"_s << false << true;
  }
  void SinArchivoNiMensaje() {
    QFETCH(QString, sentencia);
    QFETCH(bool, cfd);
    QFETCH(bool, archivo);
    VENTARIX_SELLADO(company, session);
    QVERIFY(EjecutarSql(session, sentencia, {}));
    DocumentoCaptura forma =
        cfd ? Documento(kFacturaCFD, u"B"_s, false) : Documento(kFacturaCFDi, u"A"_s, false);
    const ResultadoSellado r = (cfd ? SellarIngresoCFD : SellarIngresoCFDi)(session, forma, {});
    QCOMPARE(r.Msg1, QString());
    QCOMPARE(!r.archivo.isEmpty(), archivo);
    QCOMPARE(QDir(session.CarpetaXml).isEmpty(), !archivo);
  }
};

QTEST_GUILESS_MAIN(TestRevisiones)
#include "tst_revisiones.moc"
