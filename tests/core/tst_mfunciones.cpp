#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/registro_inicial.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mFunciones;
using namespace Qt::StringLiterals;
using testing::Insertar;

namespace {

// What the database demands of a product and a client.
QVariantMap Producto(const QString& codigo) {
  return {{u"codigo"_s, codigo}, {u"marca"_s, 1}, {u"linea"_s, 1}};
}

QVariantMap Cliente(int numero, const QString& status, const QString& juridico) {
  return {
      {u"numero"_s, numero}, {u"metodo"_s, 1}, {u"status"_s, status}, {u"juridico"_s, juridico}};
}

QStringList Codigos(Connection& c, const SqlText& sql) {
  QSqlQuery q = c.Exec(sql.text + u" order by codigo"_s, sql.values);
  QStringList codigos;
  while (q.next()) codigos << q.value(u"codigo"_s).toString();
  return codigos;
}

}  // namespace

class TestMFunciones : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Next numbers, folios, legal-entity marks and detail deletion over one small company:
  // two clients, a delivery note A-5 and the rows of.
  void ConsultasSobreDocumentos() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    Session s = company.MakeSession();
    const QString numero = u"numero"_s;
    const QString clientes = u"clientes"_s;
    QCOMPARE(NumeroSiguiente(c, numero, clientes), 1);
    QVERIFY(Insertar(c, clientes, Cliente(3, u"BAJA"_s, u"N"_s)));
    QVERIFY(Insertar(c, clientes, Cliente(7, u"ALTA"_s, u"S"_s)));
    QCOMPARE(NumeroSiguiente(c, numero, clientes), 8);
    const QString where = u"where status = ?"_s;
    QCOMPARE(NumeroSiguiente(c, numero, clientes, where, {u"BAJA"_s}), 4);
    // A condition that leaves no row counts as an empty table.
    QCOMPARE(NumeroSiguiente(c, numero, clientes, where, {u"OTRO"_s}), 1);
    QVERIFY(EsJuridico(s, 7));
    QVERIFY(!EsJuridico(s, 3));
    QVERIFY(!EsJuridico(s, 1));

    const QString remisiones = u"remisiones"_s;
    QVERIFY(testing::InsertarFila(
        c, remisiones, {{u"remision"_s, u"A-5"_s}, {u"serie"_s, u"A"_s}, {u"folio"_s, 5}}));
    QVERIFY(ExisteFolio(s, remisiones, u"A"_s, 5));
    QVERIFY(!ExisteFolio(s, remisiones, u"B"_s, 5));
    QVERIFY(!ExisteFolio(s, remisiones, u"A"_s, 6));
    QVERIFY(!ExisteFolio(s, remisiones, QString(), 5));
    QVERIFY(!ExisteFolio(s, u"facturas"_s, u"A"_s, 5));

    // Detail sequences of one document, on a table whose name has a blank.
    const QString detalles = u"remisiones detalles"_s;
    for (const auto& [remision, item] : {std::pair{"A-1", 1}, {"A-1", 2}, {"A-2", 9}}) {
      QVERIFY(testing::InsertarFila(
          c, detalles, {{u"remision"_s, QString::fromUtf8(remision)}, {u"item"_s, item}}));
    }
    const QString de_remision = u"where remision = ?"_s;
    QCOMPARE(NumeroSiguiente(s, u"item"_s, detalles, de_remision, {u"A-1"_s}), 3);
    QCOMPARE(NumeroSiguiente(s, u"item"_s, detalles, de_remision, {u"A-3"_s}), 1);
    const QString cuantos = u"select count(*) from \"remisiones detalles\""_s;
    QVERIFY(BorrarDetalles(c, remisiones, u"remision"_s, QString()));
    QCOMPARE(c.Scalar(cuantos).toInt(), 3);
    QVERIFY(BorrarDetalles(c, remisiones, u"remision"_s, u"A-1"_s));
    QCOMPARE(c.Scalar(cuantos).toInt(), 1);
    QCOMPARE(c.Scalar(u"select remision from \"remisiones detalles\""_s).toString(), u"A-2"_s);
  }

  void SqlProductoBuscaPorCualquierCodigo() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVariantMap cien = Producto(u"100"_s);
    cien.insert(u"codigo1"_s, u"X"_s);
    QVariantMap doscientos = Producto(u"200"_s);
    doscientos.insert(u"codigo3"_s, u"Z'9"_s);
    for (const QVariantMap& p : {cien, Producto(u"X"_s), doscientos}) {
      QVERIFY(Insertar(c, u"productos"_s, p));
    }
    QCOMPARE(Codigos(c, SqlProducto(u"X"_s)), (QStringList{u"100"_s, u"X"_s}));
    // A quote in a code is a value like any other.
    QCOMPARE(Codigos(c, SqlProducto(u"Z'9"_s)), QStringList{u"200"_s});
    // Every product above has empty alternate codes; an empty code still finds none.
    QCOMPARE(Codigos(c, SqlProducto(QString())), QStringList());
    QCOMPARE(Codigos(c, SqlProducto(u"300"_s)), QStringList());
  }

  void InicializarRegistroDaCerosYTextosVacios() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    const QVariantMap fila = InicializarRegistro(u"productos"_s);
    QVERIFY(!fila.contains(u"fecha ultima compra"_s));
    // Brand and status are validated by the database: the caller's to fill.
    QVERIFY(!fila.contains(u"marca"_s));
    QVERIFY(!fila.contains(u"status"_s));
    QVERIFY(InicializarRegistro(u"no existe"_s).isEmpty());
    // What it gives binds on the engine: the row reads back as zeroes and empty texts.
    QVERIFY(Insertar(c, u"productos"_s, Producto(u"P"_s)));
    QSqlQuery q = c.Exec(u"select * from productos where codigo = 'P'"_s);
    QVERIFY(q.next());
    QCOMPARE(q.value(u"almacen3"_s).toDouble(), 0.0);
    QCOMPARE(q.value(u"producto"_s).toString(), u""_s);
    QVERIFY(!q.value(u"producto"_s).isNull());
    QCOMPARE(q.value(u"status"_s).toString(), u"ALTA"_s);
    QVERIFY(q.value(u"fecha ultima compra"_s).isNull());
  }

  void FechaServidor_data() {
    QTest::addColumn<QString>("fija");
    QTest::addColumn<bool>("solo_fecha");
    QTest::addColumn<QDateTime>("esperada");
    QTest::newRow("fija") << u"20140131"_s << false << QDateTime(QDate(2014, 1, 31), QTime(0, 0));
    QTest::newRow("fija, solo fecha")
        << u"20121231"_s << true << QDateTime(QDate(2012, 12, 31), QTime(0, 0));
    QTest::newRow("reloj") << QString() << false << QDateTime();
    QTest::newRow("reloj, solo fecha") << QString() << true << QDateTime();
  }
  void FechaServidor() {
    QFETCH(QString, fija);
    QFETCH(bool, solo_fecha);
    QFETCH(QDateTime, esperada);
    Session s;
    s.FechaFija = fija;
    if (esperada.isValid()) {
      QCOMPARE(mFunciones::FechaServidor(s, solo_fecha), esperada);
      return;
    }
    VENTARIX_COMPANY(company);
    s = company.MakeSession();
    const QDateTime antes = QDateTime::currentDateTime().addSecs(-5);
    const QDateTime fecha = mFunciones::FechaServidor(s, solo_fecha);
    // The test's server runs on this machine: its clock is the workstation's.
    QVERIFY(qAbs(fecha.secsTo(QDateTime::currentDateTime())) < 86400);
    if (solo_fecha) {
      QCOMPARE(fecha.time(), QTime(0, 0));
      QVERIFY(qAbs(fecha.date().daysTo(QDate::currentDate())) <= 1);
    } else {
      QVERIFY2(fecha >= antes.addSecs(-1), qPrintable(fecha.toString(Qt::ISODate)));
    }
  }

  void LineaDeError_data() {
    QTest::addColumn<QDateTime>("momento");
    QTest::addColumn<QString>("archivo");
    QTest::addColumn<QString>("fecha");
    QTest::newRow("tarde") << QDateTime(QDate(2014, 1, 5), QTime(15, 7, 9))
                           << u"errores_ene2014.txt"_s << u"05/enero/2014 03:07:09 pm"_s;
    QTest::newRow("medianoche") << QDateTime(QDate(2013, 9, 30), QTime(0, 5, 0))
                                << u"errores_sep2013.txt"_s << u"30/septiembre/2013 12:05:00 am"_s;
    QTest::newRow("mediodia") << QDateTime(QDate(2015, 12, 1), QTime(12, 0, 59))
                              << u"errores_dic2015.txt"_s << u"01/diciembre/2015 12:00:59 pm"_s;
    QTest::newRow("agosto") << QDateTime(QDate(2016, 8, 17), QTime(9, 30, 0))
                            << u"errores_ago2016.txt"_s << u"17/agosto/2016 09:30:00 am"_s;
  }
  void LineaDeError() {
    QFETCH(QDateTime, momento);
    QFETCH(QString, archivo);
    QFETCH(QString, fecha);
    Session s;
    s.CarpetaErrores = u"/base/Inicio/Errores"_s;
    s.CarpetaEmpresa = u"/base/Inicio/Empresas/AAA010101AAA"_s;
    s.Usuario = u"ANA"_s;
    QCOMPARE(ArchivoDeErrores(s, momento.date()), u"/base/Inicio/Errores/"_s + archivo);
    QCOMPARE(mFunciones::LineaDeError(s, u"no existe la columna"_s, momento),
             QStringLiteral("/base/Inicio/Empresas/AAA010101AAA, USUARIO: ANA,  no existe la "
                            "columna   ") +
                 fecha);
  }

  void RegistrarErrorAgregaRenglones() {
    QTemporaryDir dir;
    Session s;
    s.BaseCarpeta = dir.path();
    // Before the folder tree is known the shared error folder is still used.
    RegistrarError(s, u"primero"_s);
    CrearCarpetas(s);
    // A server's message over several lines still makes one line of the log.
    RegistrarError(s, u"segundo\nLINE 1: select"_s);
    QFile file(ArchivoDeErrores(s, QDate::currentDate()));
    QVERIFY2(file.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(file.fileName()));
    const QStringList lineas =
        QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lineas.size(), 2);
    QVERIFY(lineas[0].startsWith(u", USUARIO: ADMINISTRADOR,  primero   "_s));
    QVERIFY(lineas[1].startsWith(s.CarpetaEmpresa +
                                 u", USUARIO: ADMINISTRADOR,  segundo LINE 1: select   "_s));
    QVERIFY(QRegularExpression(u"   \\d\\d/[a-z]+/\\d{4} \\d\\d:\\d\\d:\\d\\d [ap]m$"_s)
                .match(lineas[1])
                .hasMatch());
  }

  void CrearCarpetasConElRfc() {
    QTemporaryDir dir;
    Session s;
    s.BaseCarpeta = dir.path();
    s.empresa.Set(u"rfc"_s, u"AAA010101AAA"_s);
    CrearCarpetas(s);
    const QString base = dir.path();
    QCOMPARE(s.CarpetaErrores, base + u"/Inicio/Errores"_s);
    QCOMPARE(s.CarpetaEsquemasCFDi, base + u"/Inicio/EsquemasCFDi"_s);
    QCOMPARE(s.CarpetaEmpresa, base + u"/Inicio/Empresas/AAA010101AAA"_s);
    QCOMPARE(s.CarpetaTmp, s.CarpetaEmpresa + u"/tmp"_s);
    for (const QString& carpeta : {s.CarpetaImagenes, s.CarpetaCer, s.CarpetaXml, s.CarpetaRpt,
                                   s.CarpetaBak, s.CarpetaTmp}) {
      QVERIFY2(QFileInfo(carpeta).isDir(), qPrintable(carpeta));
    }
    // A new RFC makes a new empty tree; the old one stays.
    s.empresa.Set(u"rfc"_s, u"BBB010101BBB"_s);
    CrearCarpetas(s);
    QVERIFY(QFileInfo(s.CarpetaXml).isDir());
    QVERIFY(QFileInfo(base + u"/Inicio/Empresas/AAA010101AAA/xml"_s).isDir());
    // An RFC with a separator stays one folder.
    s.empresa.Set(u"rfc"_s, u"../X"_s);
    CrearCarpetas(s);
    QCOMPARE(QFileInfo(s.CarpetaEmpresa).dir().path(), s.CarpetaEmpresas);
  }

  void ArchivoTemporalBarreLosViejos() {
    Session s;
    const QDir temp(QDir::tempPath());
    const QString viejo = temp.filePath(u"TVIKPRUEBA0.TMP"_s);
    const QString reciente = temp.filePath(u"TVIKPRUEBA1.TMP"_s);
    for (const QString& ruta : {viejo, reciente}) {
      QFile f(ruta);
      QVERIFY(f.open(QIODevice::WriteOnly));
    }
    {
      QFile f(viejo);
      QVERIFY(f.open(QIODevice::ReadWrite));
      QVERIFY(f.setFileTime(QDateTime::currentDateTime().addDays(-2),
                            QFileDevice::FileModificationTime));
    }
    const QString ruta = ArchivoTemporal(s);
    QCOMPARE(s.BaseTemporal, ruta);
    QCOMPARE(QFileInfo(ruta).absolutePath(), QFileInfo(QDir::tempPath()).absoluteFilePath());
    QVERIFY2(
        QRegularExpression(u"^TVIK[0-9A-F]+\\.TMP$"_s).match(QFileInfo(ruta).fileName()).hasMatch(),
        qPrintable(ruta));
    QVERIFY(!QFileInfo::exists(ruta));
    QVERIFY(!QFileInfo::exists(viejo));
    QVERIFY(QFileInfo::exists(reciente));
    QFile::remove(reciente);
  }

  void ExtraerLogoUnaVez() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    Session s = company.MakeSession();
    CrearCarpetas(s);
    QVERIFY(!ExtraerLogo(s));  // no row in empresa
    QCOMPARE(s.ArchivoLogo, s.CarpetaTmp + u"/logo.tmp"_s);
    const QByteArray imagen("\x89PNG\r\n\x1a\n\0\x01\x02", 11);
    QVERIFY(Insertar(c, u"empresa"_s, {{u"numero"_s, 1}, {u"logotipo"_s, imagen}}));
    QVERIFY(ExtraerLogo(s));
    QFile file(s.ArchivoLogo);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), imagen);
    file.close();
    // An extracted logo is kept until the company screen deletes it.
    QVERIFY(testing::Escribir(c, u"update empresa set logotipo = null"_s));
    QVERIFY(ExtraerLogo(s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), imagen);
  }

  void SerieEnListaSoloConLaMarca() {
    Session s;
    QVariantList values{1};
    QCOMPARE(SerieEnLista(s, values), QString());
    QCOMPARE(values.size(), 1);
    s.usuario.Set(u"AplicarSeriesEnFacturas"_s, u"S"_s);
    s.usuario.Set(u"SerieFacturacion1"_s, u"B"_s);
    s.usuario.Set(u"SerieFacturacion2"_s, u"C"_s);
    s.usuario.Set(u"SerieFacturacion9"_s, u"J"_s);
    // All nine of the user's series.
    QCOMPARE(SerieEnLista(s, values), u" and serie in (?,?,?,?,?,?,?,?,?)"_s);
    QCOMPARE(values, (QVariantList{1, u"B"_s, u"C"_s, QString(), QString(), QString(), QString(),
                                   QString(), QString(), u"J"_s}));
  }

  void ConstruirCadenas() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    if (s.Access) {
      QCOMPARE(s.Cadena, SqliteCadena(company.path()));
      QCOMPARE(s.CadenaShape, s.Cadena);
      return;
    }
    QCOMPARE(s.Cadena, company.cadena());
    // A connection file with one line: ordinary work runs, the second string stays empty.
    QFile file(company.path());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Text));
    QTextStream(&file) << company.cadena();
    file.close();
    mFunciones::ConstruirCadenas(s);
    QCOMPARE(s.Cadena, company.cadena());
    QVERIFY(s.CadenaShape.isEmpty());
    Connection c(s.Cadena);
    QVERIFY(c.ok());
  }
};

QTEST_GUILESS_MAIN(TestMFunciones)
#include "tst_mfunciones.moc"
