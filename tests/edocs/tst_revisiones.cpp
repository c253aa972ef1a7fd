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

using Cambio = void (*)(Session&, DocumentoCaptura&, const QString& vacia);
const Cambio kCambios[kFaltas] = {
    [](Session&, DocumentoCaptura& f, const QString&) { f.Status = u"BAJA"_s; },
    [](Session&, DocumentoCaptura& f, const QString&) { f.FormaDePago.clear(); },
    [](Session&, DocumentoCaptura& f, const QString&) {
      for (QStringList& fila : f.Fg1) fila[1].clear();
    },
    [](Session& s, DocumentoCaptura&, const QString& vacia) { s.CarpetaEsquemasCFDi = vacia; },
    [](Session&, DocumentoCaptura& f, const QString&) { f.Ingreso = 99; },
    [](Session& s, DocumentoCaptura&, const QString&) { s.empresa.Set(u"rfc"_s, u"AAA010101"_s); },
    [](Session& s, DocumentoCaptura&, const QString&) { s.empresa.Set(u"nombre"_s, QString()); },
    [](Session&, DocumentoCaptura& f, const QString&) { f.Datos.insert(0, u"700"_s); },
    [](Session&, DocumentoCaptura& f, const QString&) {
      f.Fecha = QDateTime(QDate(2020, 1, 2), QTime(9, 0));
    },
    [](Session& s, DocumentoCaptura&, const QString&) {
      QVERIFY(EjecutarSql(s, u"update certificados set password = ? where documento = 0"_s,
                          {u"12345678b"_s}));
    },
    [](Session&, DocumentoCaptura& f, const QString&) { f.Datos.insert(1, u"999"_s); }};

void Aplicar(Falta falta, Session& s, DocumentoCaptura& forma, const QString& vacia) {
  kCambios[falta](s, forma, vacia);
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
    DocumentoCaptura forma = DocumentoDe(kIngresoCFDi);
    for (int f = primera; f < kFaltas; ++f) Aplicar(Falta(f), session, forma, vacia.path());
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    QCOMPARE(r.Msg1, mensaje.contains(u"%1"_s) ? mensaje.arg(vacia.path()) : mensaje);
    if (primera == kSinCliente) QCOMPARE(forma.Dato(1), u"0"_s);  // the unknown client is cleared
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
    for (const Driver driver : {kEgresoCFDi, kEgresoCFD}) {
      DocumentoCaptura forma = DocumentoDe(driver);
      Aplicar(Falta(falta), session, forma, {});
      QCOMPARE(Correr(driver, session, forma).Msg1, mensaje);
    }
  }

  // One change to the fixture's rows, then the document sealed: the key material, the
  // client's address, and, kept as the chain always behaved, a range without regime and a CFD
  // for a client whose addenda is built by its own screen, which end without a message and
  // without a file. An empty statement removes the certificates' folder instead.
  void UnCambio_data() {
    QTest::addColumn<int>("driver");
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("valor");  // bound to the statement's mark, if it has one
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<bool>("archivo");
    auto fila = [](const char* nombre, const QString& sentencia, const QString& valor,
                   const QString& mensaje, bool archivo = false, Driver driver = kIngresoCFDi) {
      QTest::newRow(nombre) << int(driver) << sentencia << valor << mensaje << archivo;
    };
    const QString material = u"update certificados set %1 = null where documento = 1"_s;
    fila("certificado nulo", material.arg(u"certificado"_s), {},
         u"Se requiere un archivo certificado"_s, false, kEgresoCFDi);
    fila("llave nula", material.arg(u"llave"_s), {}, u"Se requiere un archivo llave"_s, false,
         kEgresoCFDi);
    fila("sin carpeta de certificados", {}, {},
         u"Se requiere un archivo certificado en: Folios Facturas"_s, false, kEgresoCFDi);
    fila("rango sin archivo llave", u"update \"folios notas\" set archivollave = ''"_s, {},
         u"Se requiere un archivo llave en: Folios Facturas"_s, false, kEgresoCFDi);
    const QString rfc = u"El RFC de este cliente no es válido: "_s;
    const QString cliente = u"update clientes set %1 = ?"_s;
    const QString cp = u"Se requiere la entrada de un Código Postal"_s;
    fila("sin rfc", cliente.arg(u"rfc"_s), {}, rfc + u"Sin RFC"_s);
    fila("rfc mes 13", cliente.arg(u"rfc"_s), u"FCL851323QA7"_s, rfc + u"FCL851323QA7"_s);
    fila("calle", cliente.arg(u"calle"_s), {}, u"Se requiere la entrada de una nombre de Calle"_s);
    fila("exterior", cliente.arg(u"noexterior"_s), {},
         u"Se requiere la entrada de un No. Exterior"_s);
    fila("interior no hace falta", cliente.arg(u"nointerior"_s), {}, {}, true);
    fila("colonia", cliente.arg(u"colonia"_s), {}, u"Se requiere la entrada de una Colonia"_s);
    fila("municipio", cliente.arg(u"municipio"_s), {}, u"Se requiere la entrada de un Municipio"_s);
    fila("estado", cliente.arg(u"estado"_s), {}, u"Se requiere la entrada de un Estado"_s);
    fila("país", cliente.arg(u"pais"_s), {}, u"Se requiere la entrada de un País"_s);
    fila("cp de 4", cliente.arg(u"codigopostal"_s), u"6400"_s, cp);
    fila("cp de 6", cliente.arg(u"codigopostal"_s), u"640001"_s, cp);
    fila("CFDi sin régimen", u"update \"folios facturas\" set regimenfiscal = ''"_s, {}, {});
    const QString addenda = cliente.arg(u"addenda"_s);
    fila("CFD de QUALITAS", addenda, u"QUALITAS"_s, {}, false, kIngresoCFD);
    fila("CFD de INBURSA", addenda, u"INBURSA"_s, {}, false, kIngresoCFD);
    fila("CFDi de QUALITAS se sella", addenda, u"QUALITAS"_s, {}, true);
    fila("nota CFD de QUALITAS se sella", addenda, u"QUALITAS"_s, {}, true, kEgresoCFD);
  }
  void UnCambio() {
    QFETCH(int, driver);
    QFETCH(QString, sentencia);
    QFETCH(QString, valor);
    QFETCH(QString, mensaje);
    QFETCH(bool, archivo);
    VENTARIX_SELLADO(company, session);
    if (sentencia.isEmpty()) {
      QVERIFY(QDir(session.CarpetaCer).removeRecursively());
    } else {
      QVERIFY(EjecutarSql(session, sentencia,
                          sentencia.contains(u'?') ? QVariantList{valor} : QVariantList{}));
    }
    DocumentoCaptura forma = DocumentoDe(Driver(driver));
    const ResultadoSellado r = Correr(Driver(driver), session, forma);
    QCOMPARE(r.Msg1, mensaje);
    QCOMPARE(!r.archivo.isEmpty(), archivo);
    QCOMPARE(QDir(session.CarpetaXml).isEmpty(), !archivo);
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
    DocumentoCaptura forma = DocumentoDe(cfd ? kIngresoCFD : kIngresoCFDi);
    QCOMPARE(Correr(cfd ? kIngresoCFD : kIngresoCFDi, session, forma).Msg1,
             u"Se requiere el archivo: "_s + falta + u" en: "_s + copia.path());
  }
};

QTEST_GUILESS_MAIN(TestRevisiones)
#include "tst_revisiones.moc"
