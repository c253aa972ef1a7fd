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
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mFunciones;

namespace {

// A row built the way every add starts: the zeroes and empty texts of the table, then the
// caller's own columns.
bool Insertar(Connection& c, const QString& tabla, const QVariantMap& propios) {
  QVariantMap fila = InicializarRegistro(tabla);
  for (auto it = propios.cbegin(); it != propios.cend(); ++it) fila.insert(it.key(), it.value());
  QStringList nombres, marcas;
  for (const QString& nombre : fila.keys()) {
    nombres << dialect::Name(nombre);
    marcas << QStringLiteral("?");
  }
  QString error;
  const bool ok = c.Run(
      QStringLiteral("insert into %1 (%2) values (%3)")
          .arg(dialect::Name(tabla), nombres.join(QLatin1Char(',')), marcas.join(QLatin1Char(','))),
      fila.values(), &error);
  if (!ok) qWarning("%s", qPrintable(error));
  return ok;
}

// What the database demands of a product, a client, a delivery note and one of its rows.
QVariantMap Producto(const QString& codigo) {
  return {{QStringLiteral("codigo"), codigo},
          {QStringLiteral("marca"), 1},
          {QStringLiteral("linea"), 1}};
}

QVariantMap Cliente(int numero, const QString& status, const QString& juridico) {
  return {{QStringLiteral("numero"), numero},
          {QStringLiteral("metodo"), 1},
          {QStringLiteral("status"), status},
          {QStringLiteral("juridico"), juridico}};
}

QVariantMap Remision(const QString& serie, int folio, bool sql) {
  return {{QStringLiteral("remision"), serie + QLatin1Char('-') + QString::number(folio)},
          {QStringLiteral("serie"), serie},
          {QStringLiteral("folio"), folio},
          {QStringLiteral("fecha"), dialect::DateValue(QDate(2014, 1, 31), sql)},
          {QStringLiteral("periodo"), 2014},
          {QStringLiteral("cliente"), 1},
          {QStringLiteral("metodo"), 1},
          {QStringLiteral("tienda"), 1},
          {QStringLiteral("usuario"), QStringLiteral("ADMINISTRADOR")},
          {QStringLiteral("equipo"), QStringLiteral("PRUEBAS")}};
}

QVariantMap RenglonDeRemision(const QString& remision, int item, bool sql) {
  return {{QStringLiteral("remision"), remision},
          {QStringLiteral("item"), item},
          {QStringLiteral("fecha"), dialect::DateValue(QDate(2014, 1, 31), sql)},
          {QStringLiteral("codigo"), QStringLiteral("P1")},
          {QStringLiteral("descripcion"), QStringLiteral("TORNILLO")},
          {QStringLiteral("unidad"), QStringLiteral("PZA")},
          {QStringLiteral("cliente"), 1},
          {QStringLiteral("almacen"), 1}};
}

QStringList Codigos(Connection& c, const SqlText& sql) {
  QSqlQuery q = c.Exec(sql.text + QStringLiteral(" order by codigo"), sql.values);
  QStringList codigos;
  while (q.next()) codigos << q.value(QStringLiteral("codigo")).toString();
  return codigos;
}

}  // namespace

class TestMFunciones : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void NumeroSiguienteTomaElMaximoMasUno() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    const QString numero = QStringLiteral("numero");
    const QString clientes = QStringLiteral("clientes");
    QCOMPARE(NumeroSiguiente(c, numero, clientes), 1);
    QVERIFY(Insertar(c, clientes, Cliente(3, QStringLiteral("BAJA"), QStringLiteral("N"))));
    QVERIFY(Insertar(c, clientes, Cliente(7, QStringLiteral("ALTA"), QStringLiteral("N"))));
    QCOMPARE(NumeroSiguiente(c, numero, clientes), 8);
    const QString where = QStringLiteral("where status = ?");
    QCOMPARE(NumeroSiguiente(c, numero, clientes, where, {QStringLiteral("BAJA")}), 4);
    // A condition that leaves no row counts as an empty table.
    QCOMPARE(NumeroSiguiente(c, numero, clientes, where, {QStringLiteral("OTRO")}), 1);
    // Detail sequences of one document, on a table whose name has a blank.
    Session s = company.MakeSession();
    const QString detalles = QStringLiteral("remisiones detalles");
    QVERIFY(Insertar(c, detalles, RenglonDeRemision(QStringLiteral("A-1"), 1, s.Sql)));
    QVERIFY(Insertar(c, detalles, RenglonDeRemision(QStringLiteral("A-1"), 2, s.Sql)));
    QVERIFY(Insertar(c, detalles, RenglonDeRemision(QStringLiteral("A-2"), 9, s.Sql)));
    const QString de_remision = QStringLiteral("where remision = ?");
    QCOMPARE(
        NumeroSiguiente(s, QStringLiteral("item"), detalles, de_remision, {QStringLiteral("A-1")}),
        3);
    QCOMPARE(
        NumeroSiguiente(s, QStringLiteral("item"), detalles, de_remision, {QStringLiteral("A-3")}),
        1);
  }

  void SqlProductoBuscaPorCualquierCodigo() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVariantMap cien = Producto(QStringLiteral("100"));
    cien.insert(QStringLiteral("codigo1"), QStringLiteral("X"));
    QVariantMap doscientos = Producto(QStringLiteral("200"));
    doscientos.insert(QStringLiteral("codigo3"), QStringLiteral("Z'9"));
    for (const QVariantMap& p : {cien, Producto(QStringLiteral("X")), doscientos}) {
      QVERIFY(Insertar(c, QStringLiteral("productos"), p));
    }
    QCOMPARE(Codigos(c, SqlProducto(QStringLiteral("X"))),
             (QStringList{QStringLiteral("100"), QStringLiteral("X")}));
    // A quote in a code is a value like any other.
    QCOMPARE(Codigos(c, SqlProducto(QStringLiteral("Z'9"))), QStringList{QStringLiteral("200")});
    // Every product above has empty alternate codes; an empty code still finds none.
    QCOMPARE(Codigos(c, SqlProducto(QString())), QStringList());
    QCOMPARE(Codigos(c, SqlProducto(QStringLiteral("300"))), QStringList());
  }

  void ExisteFolioPorSerieYFolio() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    {
      Connection c(company.cadena());
      QVERIFY(Insertar(c, QStringLiteral("remisiones"), Remision(QStringLiteral("A"), 5, s.Sql)));
    }
    const QString remisiones = QStringLiteral("remisiones");
    QVERIFY(ExisteFolio(s, remisiones, QStringLiteral("A"), 5));
    QVERIFY(!ExisteFolio(s, remisiones, QStringLiteral("B"), 5));
    QVERIFY(!ExisteFolio(s, remisiones, QStringLiteral("A"), 6));
    QVERIFY(!ExisteFolio(s, remisiones, QString(), 5));
    QVERIFY(!ExisteFolio(s, QStringLiteral("facturas"), QStringLiteral("A"), 5));
  }

  void BorrarDetallesSoloDelDocumento() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    const QString tabla = QStringLiteral("remisiones detalles");
    QVERIFY(Insertar(c, tabla, RenglonDeRemision(QStringLiteral("A-1"), 1, c.sql())));
    QVERIFY(Insertar(c, tabla, RenglonDeRemision(QStringLiteral("A-1"), 2, c.sql())));
    QVERIFY(Insertar(c, tabla, RenglonDeRemision(QStringLiteral("A-2"), 1, c.sql())));
    const QString cuantos = QStringLiteral("select count(*) from \"remisiones detalles\"");
    QVERIFY(BorrarDetalles(c, QStringLiteral("remisiones"), QStringLiteral("remision"), QString()));
    QCOMPARE(c.Scalar(cuantos).toInt(), 3);
    QVERIFY(BorrarDetalles(c, QStringLiteral("remisiones"), QStringLiteral("remision"),
                           QStringLiteral("A-1")));
    QCOMPARE(c.Scalar(cuantos).toInt(), 1);
    QCOMPARE(c.Scalar(QStringLiteral("select remision from \"remisiones detalles\"")).toString(),
             QStringLiteral("A-2"));
  }

  void InicializarRegistroDaCerosYTextosVacios() {
    VENTARIX_COMPANY(company);
    const QVariantMap fila = InicializarRegistro(QStringLiteral("productos"));
    QCOMPARE(fila.value(QStringLiteral("precio1")).toDouble(), 0.0);
    QCOMPARE(fila.value(QStringLiteral("proveedor1")).toInt(), 0);
    QVERIFY(!fila.value(QStringLiteral("descripcion")).toString().isNull());
    QVERIFY(!fila.contains(QStringLiteral("fecha ultima compra")));
    // Brand and status are validated by the database: the caller's to fill.
    QVERIFY(!fila.contains(QStringLiteral("marca")));
    QVERIFY(!fila.contains(QStringLiteral("status")));
    QVERIFY(InicializarRegistro(QStringLiteral("no existe")).isEmpty());
    // What it gives binds on the engine: the row reads back as zeroes and empty texts.
    Connection c(company.cadena());
    QVERIFY(Insertar(c, QStringLiteral("productos"), Producto(QStringLiteral("P"))));
    QSqlQuery q = c.Exec(QStringLiteral("select * from productos where codigo = 'P'"));
    QVERIFY(q.next());
    QCOMPARE(q.value(QStringLiteral("almacen3")).toDouble(), 0.0);
    QCOMPARE(q.value(QStringLiteral("producto")).toString(), QStringLiteral(""));
    QVERIFY(!q.value(QStringLiteral("producto")).isNull());
    QCOMPARE(q.value(QStringLiteral("status")).toString(), QStringLiteral("ALTA"));
    QVERIFY(q.value(QStringLiteral("fecha ultima compra")).isNull());
  }

  void EsJuridicoSoloConLaMarca() {
    VENTARIX_COMPANY(company);
    {
      Connection c(company.cadena());
      QVERIFY(Insertar(c, QStringLiteral("clientes"),
                       Cliente(1, QStringLiteral("ALTA"), QStringLiteral("S"))));
      QVERIFY(Insertar(c, QStringLiteral("clientes"),
                       Cliente(2, QStringLiteral("ALTA"), QStringLiteral("N"))));
    }
    const Session s = company.MakeSession();
    QVERIFY(EsJuridico(s, 1));
    QVERIFY(!EsJuridico(s, 2));
    QVERIFY(!EsJuridico(s, 3));
  }

  void FechaServidor_data() {
    QTest::addColumn<QString>("fija");
    QTest::addColumn<bool>("solo_fecha");
    QTest::addColumn<QDateTime>("esperada");
    QTest::newRow("fija") << QStringLiteral("20140131") << false
                          << QDateTime(QDate(2014, 1, 31), QTime(0, 0));
    QTest::newRow("fija, solo fecha")
        << QStringLiteral("20121231") << true << QDateTime(QDate(2012, 12, 31), QTime(0, 0));
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
                           << QStringLiteral("errores_ene2014.txt")
                           << QStringLiteral("05/enero/2014 03:07:09 pm");
    QTest::newRow("medianoche") << QDateTime(QDate(2013, 9, 30), QTime(0, 5, 0))
                                << QStringLiteral("errores_sep2013.txt")
                                << QStringLiteral("30/septiembre/2013 12:05:00 am");
    QTest::newRow("mediodia") << QDateTime(QDate(2015, 12, 1), QTime(12, 0, 59))
                              << QStringLiteral("errores_dic2015.txt")
                              << QStringLiteral("01/diciembre/2015 12:00:59 pm");
    QTest::newRow("agosto") << QDateTime(QDate(2016, 8, 17), QTime(9, 30, 0))
                            << QStringLiteral("errores_ago2016.txt")
                            << QStringLiteral("17/agosto/2016 09:30:00 am");
  }
  void LineaDeError() {
    QFETCH(QDateTime, momento);
    QFETCH(QString, archivo);
    QFETCH(QString, fecha);
    Session s;
    s.CarpetaErrores = QStringLiteral("/base/Inicio/Errores");
    s.CarpetaEmpresa = QStringLiteral("/base/Inicio/Empresas/AAA010101AAA");
    s.Usuario = QStringLiteral("ANA");
    QCOMPARE(ArchivoDeErrores(s, momento.date()),
             QStringLiteral("/base/Inicio/Errores/") + archivo);
    QCOMPARE(mFunciones::LineaDeError(s, QStringLiteral("no existe la columna"), momento),
             QStringLiteral("/base/Inicio/Empresas/AAA010101AAA, USUARIO: ANA,  no existe la "
                            "columna   ") +
                 fecha);
  }

  void RegistrarErrorAgregaRenglones() {
    QTemporaryDir dir;
    Session s;
    s.BaseCarpeta = dir.path();
    // Before the folder tree is known the shared error folder is still used.
    RegistrarError(s, QStringLiteral("primero"));
    CrearCarpetas(s);
    // A server's message over several lines still makes one line of the log.
    RegistrarError(s, QStringLiteral("segundo\nLINE 1: select"));
    QFile file(ArchivoDeErrores(s, QDate::currentDate()));
    QVERIFY2(file.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(file.fileName()));
    const QStringList lineas =
        QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lineas.size(), 2);
    QVERIFY(lineas[0].startsWith(QStringLiteral(", USUARIO: ADMINISTRADOR,  primero   ")));
    QVERIFY(lineas[1].startsWith(
        s.CarpetaEmpresa + QStringLiteral(", USUARIO: ADMINISTRADOR,  segundo LINE 1: select   ")));
    QVERIFY(
        QRegularExpression(QStringLiteral("   \\d\\d/[a-z]+/\\d{4} \\d\\d:\\d\\d:\\d\\d [ap]m$"))
            .match(lineas[1])
            .hasMatch());
  }

  void CrearCarpetasConElRfc() {
    QTemporaryDir dir;
    Session s;
    s.BaseCarpeta = dir.path();
    s.empresa.Set(QStringLiteral("rfc"), QStringLiteral("AAA010101AAA"));
    CrearCarpetas(s);
    const QString base = dir.path();
    QCOMPARE(s.CarpetaErrores, base + QStringLiteral("/Inicio/Errores"));
    QCOMPARE(s.CarpetaEsquemasCFDi, base + QStringLiteral("/Inicio/EsquemasCFDi"));
    QCOMPARE(s.CarpetaEmpresa, base + QStringLiteral("/Inicio/Empresas/AAA010101AAA"));
    QCOMPARE(s.CarpetaTmp, s.CarpetaEmpresa + QStringLiteral("/tmp"));
    for (const QString& carpeta : {s.CarpetaImagenes, s.CarpetaCer, s.CarpetaXml, s.CarpetaRpt,
                                   s.CarpetaBak, s.CarpetaTmp}) {
      QVERIFY2(QFileInfo(carpeta).isDir(), qPrintable(carpeta));
    }
    // A new RFC makes a new empty tree; the old one stays.
    s.empresa.Set(QStringLiteral("rfc"), QStringLiteral("BBB010101BBB"));
    CrearCarpetas(s);
    QVERIFY(QFileInfo(s.CarpetaXml).isDir());
    QVERIFY(QFileInfo(base + QStringLiteral("/Inicio/Empresas/AAA010101AAA/xml")).isDir());
    // An RFC with a separator stays one folder.
    s.empresa.Set(QStringLiteral("rfc"), QStringLiteral("../X"));
    CrearCarpetas(s);
    QCOMPARE(QFileInfo(s.CarpetaEmpresa).dir().path(), s.CarpetaEmpresas);
  }

  void ArchivoTemporalBarreLosViejos() {
    Session s;
    const QDir temp(QDir::tempPath());
    const QString viejo = temp.filePath(QStringLiteral("TVIKPRUEBA0.TMP"));
    const QString reciente = temp.filePath(QStringLiteral("TVIKPRUEBA1.TMP"));
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
    QVERIFY2(QRegularExpression(QStringLiteral("^TVIK[0-9A-F]+\\.TMP$"))
                 .match(QFileInfo(ruta).fileName())
                 .hasMatch(),
             qPrintable(ruta));
    QVERIFY(!QFileInfo::exists(ruta));
    QVERIFY(!QFileInfo::exists(viejo));
    QVERIFY(QFileInfo::exists(reciente));
    QFile::remove(reciente);
  }

  void ExtraerLogoUnaVez() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    CrearCarpetas(s);
    QVERIFY(!ExtraerLogo(s));  // no row in empresa
    QCOMPARE(s.ArchivoLogo, s.CarpetaTmp + QStringLiteral("/logo.tmp"));
    const QByteArray imagen("\x89PNG\r\n\x1a\n\0\x01\x02", 11);
    {
      Connection c(company.cadena());
      QVERIFY(Insertar(c, QStringLiteral("empresa"),
                       {{QStringLiteral("numero"), 1}, {QStringLiteral("logotipo"), imagen}}));
    }
    QVERIFY(ExtraerLogo(s));
    QFile file(s.ArchivoLogo);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), imagen);
    file.close();
    // An extracted logo is kept until the company screen deletes it.
    {
      Connection c(company.cadena());
      QVERIFY(c.Run(QStringLiteral("update empresa set logotipo = null")));
    }
    QVERIFY(ExtraerLogo(s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), imagen);
  }

  void SerieEnListaSoloConLaMarca() {
    Session s;
    QVariantList values{1};
    QCOMPARE(SerieEnLista(s, values), QString());
    QCOMPARE(values.size(), 1);
    s.usuario.Set(QStringLiteral("AplicarSeriesEnFacturas"), QStringLiteral("S"));
    s.usuario.Set(QStringLiteral("SerieFacturacion1"), QStringLiteral("B"));
    s.usuario.Set(QStringLiteral("SerieFacturacion2"), QStringLiteral("C"));
    QCOMPARE(SerieEnLista(s, values), QStringLiteral(" and serie in (?,?,?,?,?)"));
    QCOMPARE(values, (QVariantList{1, QStringLiteral("B"), QStringLiteral("C"), QString(),
                                   QString(), QString()}));
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
