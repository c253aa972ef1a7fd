// The value helpers every capture field goes through: numbers out of any text, cleaned texts
// and keys, amounts, fixed-width ticket columns, the RFC, the rights test, the check of a
// document's rows, and the name of a catalogue number read from the company.
#include <QSqlQuery>
#include <QTest>

#include "core/catalogo_nombre.h"
#include "core/database.h"
#include "core/mFunciones_valores.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mFunciones;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(ventarix::MessageIcon)

namespace {

// "codigo|descripcion|unidad|utilidad" per row, as a clerk leaves them in the grid.
std::vector<PartidaCapturada> Capturadas(const QStringList& filas) {
  std::vector<PartidaCapturada> partidas;
  for (const QString& fila : filas) {
    const QStringList f = fila.split(u'|');
    partidas.push_back({f.value(0), f.value(1), f.value(2), f.value(3).toDouble()});
  }
  return partidas;
}

// A catalogue row with its number and name; agents also belong to a store.
bool Insertar(Connection& c, const QString& tabla, int numero, const QString& nombre) {
  const bool agente = tabla == u"agentes"_s;
  QVariantList valores = {numero, nombre};
  if (agente) valores << 1;
  QString error;
  const bool ok = testing::Escribir(
      c,
      u"insert into %1 (numero, nombre%2) values (?, ?%3)"_s.arg(
          tabla, agente ? u", tienda"_s : QString(), agente ? u", ?"_s : QString()),
      valores, &error);
  if (!ok) qWarning("%s", qPrintable(error));
  return ok;
}

}  // namespace

class TestValores : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }

  void ValorNumericoDeCualquierTexto_data() {
    QTest::addColumn<QVariant>("valor");
    QTest::addColumn<double>("numero");
    QTest::newRow("second point dropped") << QVariant(u"12.5.7"_s) << 12.57;
    QTest::newRow("minus alone") << QVariant(u"-"_s) << 0.0;
    QTest::newRow("thousands") << QVariant(u"1,234.50"_s) << 1234.5;
    QTest::newRow("letters") << QVariant(u"abc"_s) << 0.0;
    QTest::newRow("double minus") << QVariant(u"--5"_s) << -5.0;
    QTest::newRow("blanks around") << QVariant(u"  -3.25 "_s) << -3.25;
    QTest::newRow("currency sign") << QVariant(u"$1,000"_s) << 1000.0;
    QTest::newRow("minus at the end") << QVariant(u"5-"_s) << 5.0;
    QTest::newRow("point alone") << QVariant(u"."_s) << 0.0;
    QTest::newRow("no leading zero") << QVariant(u"-.5"_s) << -0.5;
    QTest::newRow("exponent is letters") << QVariant(u"1e3"_s) << 13.0;
    QTest::newRow("empty") << QVariant(QString()) << 0.0;
    QTest::newRow("null") << QVariant() << 0.0;
    QTest::newRow("integer from a query") << QVariant(42) << 42.0;
    QTest::newRow("small double from a query") << QVariant(0.00001) << 0.00001;
    QTest::newRow("negative double") << QVariant(-1234.5678) << -1234.5678;
  }
  void ValorNumericoDeCualquierTexto() {
    QFETCH(QVariant, valor);
    QFETCH(double, numero);
    QCOMPARE(ValorNumerico(valor), numero);
  }

  void ValorTextoLimpia_data() {
    QTest::addColumn<QVariant>("valor");
    QTest::addColumn<bool>("soloClave");
    QTest::addColumn<QString>("texto");
    QTest::newRow("quote removed") << QVariant(u"O'Higgins"_s) << false << u"OHiggins"_s;
    QTest::newRow("backtick and degree") << QVariant(u" `45° norte "_s) << false << u"45 norte"_s;
    QTest::newRow("case kept") << QVariant(u"Juárez ñ"_s) << false << u"Juárez ñ"_s;
    QTest::newRow("number") << QVariant(125) << false << u"125"_s;
    QTest::newRow("null") << QVariant() << false << QString();
    QTest::newRow("key upper-cased") << QVariant(u"ab-12*ñ0"_s) << true << u"AB*Ñ0"_s;
    QTest::newRow("key drops blanks and quotes") << QVariant(u"a b'c"_s) << true << u"ABC"_s;
    QTest::newRow("key of accents") << QVariant(u"José"_s) << true << u"JOS"_s;
    QTest::newRow("key empty") << QVariant(u"  "_s) << true << QString();
  }
  void ValorTextoLimpia() {
    QFETCH(QVariant, valor);
    QFETCH(bool, soloClave);
    QFETCH(QString, texto);
    QCOMPARE(ValorTexto(valor, soloClave), texto);
  }

  void FiltrarCaracteresDeDireccion_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("filtrado");
    QTest::newRow("address") << u"calle 5 #12, int. 3/b-ñ"_s << u"CALLE 5 12 INT. 3/B-Ñ"_s;
    QTest::newRow("accents dropped") << u"Mérida"_s << u"MRIDA"_s;
    QTest::newRow("quotes dropped") << u"O'Brien \"x\""_s << u"OBRIEN X"_s;
    QTest::newRow("empty") << QString() << QString();
  }
  void FiltrarCaracteresDeDireccion() {
    QFETCH(QString, texto);
    QFETCH(QString, filtrado);
    QCOMPARE(FiltrarCaracteres(texto), filtrado);
  }

  void FormatoDeImportes_data() {
    QTest::addColumn<double>("valor");
    QTest::addColumn<int>("decimales");
    QTest::addColumn<QString>("texto");
    // decimales 0 stands for FormatoMoneda.
    QTest::newRow("zero amount") << 0.0 << 0 << u"0"_s;
    QTest::newRow("amount") << 1234.5 << 0 << u"1,234.50"_s;
    QTest::newRow("millions negative") << -1234567.891 << 0 << u"-1,234,567.89"_s;
    QTest::newRow("cents rounded") << 0.999 << 0 << u"1.00"_s;
    QTest::newRow("almost zero") << 0.001 << 0 << u"0.00"_s;
    QTest::newRow("almost zero negative") << -0.001 << 0 << u"0.00"_s;
    QTest::newRow("two decimals") << 0.0 << 2 << u"0.00"_s;
    QTest::newRow("three decimals") << 1234.5 << 3 << u"1,234.500"_s;
    QTest::newRow("four decimals") << 98765.43219 << 4 << u"98,765.4322"_s;
    QTest::newRow("four decimals negative zero") << -0.00001 << 4 << u"0.0000"_s;
  }
  void FormatoDeImportes() {
    QFETCH(double, valor);
    QFETCH(int, decimales);
    QFETCH(QString, texto);
    QCOMPARE(decimales == 0 ? FormatoMoneda(valor) : FormatoNumero(valor, decimales), texto);
  }

  void AlinearColumnas_data() {
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QVariant>("valor");
    QTest::addColumn<int>("ancho");
    QTest::addColumn<QString>("texto");
    QTest::newRow("long") << u"Long"_s << QVariant(42) << 6 << u"    42"_s;
    QTest::newRow("integer rounds") << u"Integer"_s << QVariant(u"12.6"_s) << 4 << u"  13"_s;
    QTest::newRow("integer negative") << u"Integer"_s << QVariant(-2.5) << 4 << u"  -3"_s;
    QTest::newRow("double") << u"Double"_s << QVariant(1234.5) << 10 << u"  1,234.50"_s;
    QTest::newRow("double zero") << u"Double"_s << QVariant(0.0) << 6 << u"  0.00"_s;
    QTest::newRow("wide amount kept whole")
        << u"Double"_s << QVariant(1234567.5) << 6 << u"1,234,567.50"_s;
    QTest::newRow("string padded") << u"String"_s << QVariant(u"PIJA"_s) << 8 << u"PIJA    "_s;
    QTest::newRow("string cut") << u"String"_s << QVariant(u"TORNILLO HEXAGONAL"_s) << 8
                                << u"TORNILLO"_s;
    QTest::newRow("date") << u"Date"_s << QVariant(QDate(2014, 1, 5)) << 10 << u"05/ene/14 "_s;
    QTest::newRow("date time") << u"Date"_s << QVariant(QDateTime(QDate(2009, 8, 7), QTime(9, 30)))
                               << 9 << u"07/ago/09"_s;
    QTest::newRow("date as stored text")
        << u"Date"_s << QVariant(u"2013-12-31 18:00:00"_s) << 9 << u"31/dic/13"_s;
  }
  void AlinearColumnas() {
    QFETCH(QString, tipo);
    QFETCH(QVariant, valor);
    QFETCH(int, ancho);
    QFETCH(QString, texto);
    QCOMPARE(Alinear(tipo, valor, ancho), texto);
  }

  void Rfc_data() {
    QTest::addColumn<QString>("rfc");
    QTest::addColumn<bool>("valido");
    QTest::addColumn<QString>("mensaje");
    const QString mes = u"El mes no corresponde al RFC"_s;
    const QString dia = u"El día no corresponde al RFC"_s;
    QTest::newRow("generic public") << u"XAXX010101000"_s << true << QString();
    QTest::newRow("company") << u"ABC850101AB1"_s << true << QString();
    QTest::newRow("person") << u"GOMJ8502319A1"_s << true << QString();
    QTest::newRow("31 february") << u"ABC850231AB1"_s << true << QString();
    QTest::newRow("ampersand") << u"A&C850101AB1"_s << true << QString();
    QTest::newRow("enye person") << u"MUÑO850101XY3"_s << true << QString();
    QTest::newRow("enye and ampersand in check") << u"MUNO850101Ñ&3"_s << true << QString();
    QTest::newRow("month 13") << u"ABC851301AB1"_s << false << mes;
    QTest::newRow("month 00") << u"ABC850001AB1"_s << false << mes;
    QTest::newRow("person month 13") << u"GOMJ851301AB1"_s << false << mes;
    QTest::newRow("month before day") << u"ABC851332AB1"_s << false << mes;
    QTest::newRow("day 32") << u"ABC850132AB1"_s << false << dia;
    QTest::newRow("day 00") << u"ABC850100AB1"_s << false << dia;
    QTest::newRow("person day 32") << u"GOMJ850132AB1"_s << false << dia;
    QTest::newRow("lower case") << u"abc850101AB1"_s << false << QString();
    QTest::newRow("digit among letters") << u"AB1850101AB1"_s << false << QString();
    QTest::newRow("letter among digits") << u"ABC85O101AB1"_s << false << QString();
    QTest::newRow("hyphen in check") << u"ABC850101A-1"_s << false << QString();
    QTest::newRow("11 characters") << u"ABC85010AB1"_s << false << QString();
    QTest::newRow("14 characters") << u"XAXX0101010000"_s << false << QString();
    QTest::newRow("blank inside") << u"XAXX 10101000"_s << false << QString();
    QTest::newRow("empty") << QString() << false << QString();
  }
  void Rfc() {
    QFETCH(QString, rfc);
    QFETCH(bool, valido);
    QFETCH(QString, mensaje);
    const Outcome outcome = RfcValido(rfc);
    QCOMPARE(outcome.ok, valido);
    QCOMPARE(EsRfcValido(rfc), valido);
    QCOMPARE(outcome.message, mensaje);
    if (!mensaje.isEmpty()) {
      QCOMPARE(outcome.icon, MessageIcon::kStop);
      QCOMPARE(outcome.field, u"Rfc"_s);
    }
  }

  void Permisos_data() {
    QTest::addColumn<QString>("derechos");
    QTest::addColumn<QString>("letra");
    QTest::addColumn<QString>("mensaje");  // empty when allowed, "-" refused silently
    const QString altas = u"Este usuario no tiene permisos para el registro de altas"_s;
    const QString bajas = u"Este usuario no tiene permisos para bajas de registros"_s;
    const QString cambios = u"Este usuario no tiene permisos para cambios de registros"_s;
    QTest::newRow("add allowed") << u"SSS"_s << u"A"_s << QString();
    QTest::newRow("cancel allowed") << u"NSN"_s << u"B"_s << QString();
    QTest::newRow("change allowed") << u"NNS"_s << u"C"_s << QString();
    QTest::newRow("add denied") << u"NSS"_s << u"A"_s << altas;
    QTest::newRow("cancel denied") << u"SNS"_s << u"B"_s << bajas;
    QTest::newRow("change denied") << u"SSN"_s << u"C"_s << cambios;
    QTest::newRow("lower-case s denies") << u"sss"_s << u"A"_s << altas;
    QTest::newRow("short text, cancel") << u"S"_s << u"B"_s << bajas;
    QTest::newRow("short text, change") << u"SS"_s << u"C"_s << cambios;
    QTest::newRow("short text, add") << u"S"_s << u"A"_s << QString();
    QTest::newRow("empty text") << QString() << u"A"_s << altas;
    // Any letter but A, B, C refuses without a message, even on full rights.
    for (const QString& letra : {u"D"_s, u"a"_s, QString(), u"AB"_s}) {
      QTest::addRow("letter '%s'", qPrintable(letra)) << u"SSS"_s << letra << u"-"_s;
    }
  }
  void Permisos() {
    QFETCH(QString, derechos);
    QFETCH(QString, letra);
    QFETCH(QString, mensaje);
    const Outcome outcome = TienePermiso(derechos, letra);
    QCOMPARE(outcome.ok, mensaje.isEmpty());
    if (mensaje == u"-"_s) {
      QVERIFY(outcome.message.isEmpty());
      return;
    }
    QCOMPARE(outcome.message, mensaje);
    if (!outcome.ok) QCOMPARE(outcome.icon, MessageIcon::kWarning);
  }

  // The user's rights are read from the session's block by the family's column name.
  void PermisoDeLaSesion() {
    Session session;
    session.usuario.Set(u"clientes"_s, u"SNS"_s);
    session.usuario.Set(u"facturas"_s, u"SSS"_s);
    QVERIFY(TienePermiso(session, u"Clientes"_s, u"A"_s).ok);
    QCOMPARE(TienePermiso(session, u"Clientes"_s, u"B"_s).message,
             u"Este usuario no tiene permisos para bajas de registros"_s);
    QVERIFY(TienePermiso(session, u"Facturas"_s, u"B"_s).ok);
    QCOMPARE(TienePermiso(session, u"Remisiones"_s, u"C"_s).message,
             u"Este usuario no tiene permisos para cambios de registros"_s);
  }

  void Partidas_data() {
    QTest::addColumn<QStringList>("filas");
    QTest::addColumn<int>("revisar");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<MessageIcon>("icono");
    const int no = static_cast<int>(RevisarUtilidad::kNo);
    const int advertir = static_cast<int>(RevisarUtilidad::kAdvertir);
    const int exigir = static_cast<int>(RevisarUtilidad::kExigir);
    const QString ninguna = u"Se requiere al menos el registro de una partida"_s;
    const MessageIcon ok = MessageIcon::kNone;
    const MessageIcon aviso = MessageIcon::kWarning;
    QTest::newRow("empty grid") << QStringList() << no << ninguna << aviso;
    QTest::newRow("only text lines")
        << QStringList{u"|NOTA: ENTREGA EN OBRA||0"_s} << no << ninguna << aviso;
    QTest::newRow("complete row") << QStringList{u"T1|TORNILLO|PZA|10"_s} << exigir << QString()
                                  << ok;
    QTest::newRow("unit alone") << QStringList{u"T1||PZA|10"_s} << no << QString() << ok;
    QTest::newRow("description alone")
        << QStringList{u"T1|TORNILLO||10"_s} << no << QString() << ok;
    QTest::newRow("neither, row 2")
        << QStringList{u"||||"_s, u"T1|| |5"_s} << no
        << u"Se requiere una descripción ó unidad para la fila: 2"_s << aviso;
    QTest::newRow("margin zero warned")
        << QStringList{u"T1|TORNILLO|PZA|10"_s, u"T2|RONDANA|PZA|0"_s} << advertir
        << u"Es importante verificar la utilidad para la fila: 2"_s << aviso;
    QTest::newRow("negative margin refused")
        << QStringList{u"T1|TORNILLO|PZA|10"_s, u"|NOTA||0"_s, u"T3|TUERCA|PZA|-1.5"_s} << exigir
        << u"Se requiere una utilidad mayor a cero para la fila: 3"_s << MessageIcon::kStop;
    QTest::newRow("margin not looked at")
        << QStringList{u"T1|TORNILLO|PZA|-4"_s} << no << QString() << ok;
    QTest::newRow("uncoded row's margin ignored")
        << QStringList{u"T1|TORNILLO|PZA|3"_s, u"|NOTA||0"_s} << exigir << QString() << ok;
    QTest::newRow("first fault wins")
        << QStringList{u"T1|TORNILLO|PZA|0"_s, u"T2|||5"_s} << advertir
        << u"Es importante verificar la utilidad para la fila: 1"_s << aviso;
  }
  void Partidas() {
    QFETCH(QStringList, filas);
    QFETCH(int, revisar);
    QFETCH(QString, mensaje);
    QFETCH(MessageIcon, icono);
    const Outcome outcome =
        ValidarPartidas(Capturadas(filas), static_cast<RevisarUtilidad>(revisar));
    QCOMPARE(outcome.ok, mensaje.isEmpty());
    QCOMPARE(outcome.message, mensaje);
    QCOMPARE(outcome.icon, icono);
    if (!outcome.ok) QCOMPARE(outcome.field, u"Fg1"_s);
  }

  // Each catalogue gives the name of its number; a client's row comes whole; an unknown
  // number, zero or a company out of reach gives nothing.
  void NombreDeCatalogo() {
    VENTARIX_COMPANY(company);
    const Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(c.ok());
      for (const char* tabla : {"agentes", "proveedores", "marcas", "lineas", "bancos"}) {
        QVERIFY(Insertar(c, QLatin1String(tabla), 7,
                         u"SIETE DE "_s + QString::fromLatin1(tabla).toUpper()));
      }
      QVERIFY(Insertar(c, u"metodos"_s, 3, u"TRANSFERENCIA"_s));
      QVERIFY(testing::Escribir(
          c,
          u"insert into clientes (numero, nombre, rfc, plazo, credito, saldo, agente, metodo, "
          "banco, email1, codigopostal, addenda) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
          {15, u"FERRETERIA O'HIGGINS"_s, u"FOH850101AB1"_s, 30, 50000.0, 1234.56, 7, 3, 7,
           u"compras@ohiggins.mx"_s, u"44100"_s, u"COPPEL"_s}));
    }
    const QList<Catalogo> catalogos = {Catalogo::kAgentes, Catalogo::kProveedores,
                                       Catalogo::kMarcas, Catalogo::kLineas, Catalogo::kBancos};
    for (Catalogo catalogo : catalogos) {
      const auto fila = LeerCatalogo(session, catalogo, 7);
      QVERIFY2(fila.has_value(), qPrintable(TablaDeCatalogo(catalogo)));
      QCOMPARE(fila->Text(u"nombre"_s), u"SIETE DE "_s + TablaDeCatalogo(catalogo).toUpper());
      QVERIFY(!LeerCatalogo(session, catalogo, 8).has_value());
    }
    QCOMPARE(LeerCatalogo(session, Catalogo::kMetodos, 3)->Text(u"nombre"_s), u"TRANSFERENCIA"_s);

    const auto cliente = LeerCatalogo(session, Catalogo::kClientes, 15);
    QVERIFY(cliente.has_value());
    QCOMPARE(cliente->Text(u"nombre"_s), u"FERRETERIA O'HIGGINS"_s);
    QCOMPARE(cliente->Number(u"credito"_s), 50000.0);
    QCOMPARE(cliente->Number(u"saldo"_s), 1234.56);
    QCOMPARE(cliente->Text(u"codigopostal"_s), u"44100"_s);
    QCOMPARE(cliente->Text(u"addenda"_s), u"COPPEL"_s);
    QVERIFY(cliente->Has(u"numctapago"_s));
    QVERIFY(!LeerCatalogo(session, Catalogo::kClientes, 0).has_value());

    Session perdida = session;
    perdida.Cadena = u"sqlite:/no/such/folder/empresa.db"_s;
    QVERIFY(!LeerCatalogo(perdida, Catalogo::kClientes, 15).has_value());
  }
};

QTEST_GUILESS_MAIN(TestValores)
#include "tst_valores.moc"
