// The view editor's domain on both engines: what it refuses, which rows of `tablas` it
// writes for which users, and that a statement under test changes nothing.
#include <map>
#include <memory>

#include <QSqlQuery>
#include <QTest>

#include "core/browse_format.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mBrowse;
using namespace Qt::StringLiterals;

namespace {

const QString kTabla = u"facturas"_s;

// The template's view of invoices, or the same view for another user.
bool AgregarVista(Connection& c, const QString& usuario, const QString& permisos,
                  const QString& sentencia = u"select * from facturas"_s) {
  return testing::Escribir(
      c,
      u"insert into tablas (tabla, usuario, sentencia, cadena, busqueda, ordenar, "
      u"permisos, seguridad, extender, renglon, altura, posicion) values (?, ?, ?, "
      u"'factura|202|90|0|0|', 'where t.serie = ''A''', '[folio] Asc', ?, "
      u"'3|BAJAS|0|x|1', 0, 7, 18, 3)"_s,
      {kTabla, usuario, sentencia, permisos});
}

// A user's row as stored, by column.
QVariantMap Fila(Connection& c, const QString& usuario) {
  QSqlQuery q =
      c.Exec(u"select * from tablas where tabla = ? and usuario = ?"_s, {kTabla, usuario});
  QVariantMap fila;
  if (!q.next()) return fila;
  for (const char* columna : {"sentencia", "cadena", "busqueda", "ordenar", "permisos", "seguridad",
                              "renglon", "posicion", "altura"}) {
    fila.insert(QString::fromLatin1(columna), q.value(QString::fromLatin1(columna)));
  }
  return fila;
}

Formato Aplicar(bool permisos, bool seguridad, bool ordenar, bool sql, const QString& texto) {
  return {permisos, seguridad, ordenar, sql, texto, texto, texto, texto};
}

}  // namespace

Q_DECLARE_METATYPE(ventarix::mBrowse::Formato)

class TestBrowseFormat : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void Rechazos_data() {
    QTest::addColumn<Formato>("formato");
    QTest::addColumn<QStringList>("usuarios");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    const QStringList ana{u"ANA"_s};
    const QString seguridad =
        u"Cada línea de seguridad lleva hasta cinco campos separados por "
        u"|; los campos 3 y 5 son números"_s;
    const QString orden =
        u"El orden se escribe como [columna] Asc o [columna] Desc, separados por comas"_s;
    QTest::newRow("nada aplicado")
        << Aplicar(false, false, false, false, u"1"_s) << ana
        << u"Se requiere Aplicar Permisos, Aplicar Seguridad, Aplicar Ordenar o Aplicar Sql"_s
        << QString();
    QTest::newRow("sin usuarios") << Aplicar(true, false, false, false, u"101"_s) << QStringList()
                                  << u"Se requiere marcar al menos un usuario"_s << u"Usuarios"_s;
    QTest::newRow("permisos con 2")
        << Aplicar(true, false, false, false, u"1021"_s) << ana
        << u"Los permisos se escriben con 1 y 0, uno por botón"_s << u"Permisos"_s;
    QTest::newRow("seis campos") << Aplicar(false, true, false, false, u"1|A|0\n2|a|1|c|1|e"_s)
                                 << ana << seguridad << u"Seguridad"_s;
    QTest::newRow("campo 3 no es numero") << Aplicar(false, true, false, false, u"3|BAJAS|NO"_s)
                                          << ana << seguridad << u"Seguridad"_s;
    QTest::newRow("orden sin sentido")
        << Aplicar(false, false, true, false, u"[folio] Asc, fecha"_s) << ana << orden
        << u"Ordenar"_s;
    QTest::newRow("orden con sentencia")
        << Aplicar(false, false, true, false, u"[folio] Asc; delete from tablas"_s) << ana << orden
        << u"Ordenar"_s;
  }

  // Each refusal comes with its message and field, before any connection: a save that went
  // further would fail on the missing company with another message.
  void Rechazos() {
    QFETCH(Formato, formato);
    QFETCH(QStringList, usuarios);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    Session session;
    session.Cadena = u"sqlite:/no/existe.mdb"_s;
    const Outcome o = GuardarFormato(session, kTabla, usuarios, formato, {});
    QCOMPARE(o.message, mensaje);
    QCOMPARE(o.icon, MessageIcon::kWarning);
    QCOMPARE(o.field, campo);
  }

  // The administrator hands new toolbar permissions and a sort to the template, to ANA who has
  // her own view and to LUIS who has none: only those two columns change; LUIS starts from
  // the template's layout without its search or position. The editor opens on the user's own
  // row, else the template's.
  void SoloLoAplicado() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(AgregarVista(c, u"ADMINISTRADOR"_s, u"1111"_s));
    QVERIFY(AgregarVista(c, u"ANA"_s, u"1010"_s, u"select * from facturas where tienda = 1"_s));
    Session session = company.MakeSession();
    session.Usuario = u"ANA"_s;
    QCOMPARE(VistaDeFormato(session, kTabla).Permisos, u"1010"_s);
    session.Usuario = u"LUIS"_s;
    QCOMPARE(VistaDeFormato(session, kTabla).Permisos, u"1111"_s);

    Formato formato = Aplicar(true, false, true, false, u"never written"_s);
    formato.Permisos = u"0110"_s;
    formato.Ordenar = u"[total] Desc, [fecha] Asc"_s;
    const Outcome o =
        GuardarFormato(session, kTabla, {u"ADMINISTRADOR"_s, u"ANA"_s, u"LUIS"_s}, formato, {});
    QCOMPARE(o.message, u"Permisos guardados con éxito"_s);
    QCOMPARE(o.icon, MessageIcon::kInformation);
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 3);
    const QVariantMap admin = Fila(c, u"ADMINISTRADOR"_s), ana = Fila(c, u"ANA"_s),
                      luis = Fila(c, u"LUIS"_s);
    for (const QVariantMap& fila : {admin, ana, luis}) {
      QCOMPARE(fila[u"permisos"_s].toString(), u"0110"_s);
      QCOMPARE(fila[u"ordenar"_s].toString(), u"[total] Desc, [fecha] Asc"_s);
      QCOMPARE(fila[u"seguridad"_s].toString(), u"3|BAJAS|0|x|1"_s);
    }
    QCOMPARE(admin[u"busqueda"_s].toString(), u"where t.serie = 'A'"_s);
    QCOMPARE(ana[u"sentencia"_s].toString(), u"select * from facturas where tienda = 1"_s);
    QCOMPARE(luis[u"sentencia"_s].toString(), u"select * from facturas"_s);
    QCOMPARE(luis[u"cadena"_s].toString(), u"factura|202|90|0|0|"_s);
    QCOMPARE(luis[u"altura"_s].toInt(), 18);
    QCOMPARE(luis[u"busqueda"_s].toString(), QString());
    QCOMPARE(luis[u"renglon"_s].toInt() + luis[u"posicion"_s].toInt(), 0);
  }

  // Without a template a new row holds only what was applied, security lines one per line
  // with carriage return and line feed. A save that fails half-way (a user must have a name)
  // leaves the rows already written as they were.
  void SinPlantillaYTodoONada() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    const Session session = company.MakeSession();
    const Formato seguridad = Aplicar(false, true, false, false, u"1|ALTAS|0\n\n3|B|1|x|0\r\n"_s);
    QVERIFY(GuardarFormato(session, kTabla, {u"ANA"_s}, seguridad, {}).ok);
    QCOMPARE(Fila(c, u"ANA"_s)[u"seguridad"_s].toString(), u"1|ALTAS|0\r\n3|B|1|x|0"_s);
    QCOMPARE(Fila(c, u"ANA"_s)[u"sentencia"_s].toString(), QString());

    const Formato permisos = Aplicar(true, false, false, false, u"0"_s);
    const Outcome o = GuardarFormato(session, kTabla, {u"ANA"_s, QString()}, permisos, {});
    QCOMPARE(o.icon, MessageIcon::kStop);
    QCOMPARE(Fila(c, u"ANA"_s)[u"permisos"_s].toString(), QString());
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 1);
  }

  void Sentencia_data() {
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("mensaje");  // empty: accepted
    const QString bien = u"select factura, folio, fecha, total from facturas"_s;
    QTest::newRow("texto") << bien << u"factura"_s << kTipoTexto << QString();
    QTest::newRow("entero") << bien << u"FOLIO"_s << kTipoEntero16 << QString();
    QTest::newRow("fecha") << bien << u"fecha"_s << kTipoFecha << QString();
    QTest::newRow("doble") << bien << u"total"_s << kTipoDoble << QString();
    QTest::newRow("falta") << bien << u"numero"_s << kTipoEntero32
                           << u"Se require la columna de numero con el tipo de datos 3"_s;
    QTest::newRow("texto no es entero")
        << bien << u"factura"_s << kTipoEntero32
        << u"Se require la columna de factura con el tipo de datos 3"_s;
    QTest::newRow("entero no es texto")
        << bien << u"folio"_s << kTipoTexto
        << u"Se require la columna de folio con el tipo de datos 202"_s;
    QTest::newRow("convertida a texto")
        << u"select cast(folio as text) as folio from facturas"_s << u"folio"_s << kTipoEntero16
        << u"Se require la columna de folio con el tipo de datos 2"_s;
  }

  // A new statement keeps the columns the browser reads, each of its kind.
  void Sentencia() {
    QFETCH(QString, sentencia);
    QFETCH(QString, nombre);
    QFETCH(int, tipo);
    QFETCH(QString, mensaje);
    testing::TestCompany& company = ConFactura();
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    Connection c(company.cadena());
    QVERIFY(testing::Escribir(c, u"delete from tablas"_s));
    const Formato formato = Aplicar(false, false, false, true, sentencia);
    const Outcome o =
        GuardarFormato(company.MakeSession(), kTabla, {u"ANA"_s}, formato, {{nombre, tipo}});
    QCOMPARE(o.message, mensaje.isEmpty() ? u"Permisos guardados con éxito"_s : mensaje);
    QCOMPARE(Fila(c, u"ANA"_s)[u"sentencia"_s].toString(),
             mensaje.isEmpty() ? sentencia : QString());
  }

  // A statement that does not run is refused with the engine's words; one that tries to write
  // around the select is refused before anything changes.
  void SentenciaQueNoCorreONoLee() {
    testing::TestCompany& company = ConFactura();
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    Connection c(company.cadena());
    for (const QString& sentencia :
         {u"select * from no_existe"_s, u"select 1 as x; delete from facturas"_s,
          u"select 1 as x) as a; delete from facturas; select * from (select 1"_s,
          u"with b as (delete from facturas returning *) select * from b"_s}) {
      const Formato formato = Aplicar(false, false, false, true, sentencia);
      const Outcome o = GuardarFormato(company.MakeSession(), kTabla, {u"ANA"_s}, formato, {});
      QVERIFY2(o.message.startsWith(u"La sentencia no se puede ejecutar: "_s),
               qPrintable(o.message));
      QCOMPARE(c.Scalar(u"select count(*) from facturas"_s).toInt(), 1);
    }
  }

 private:
  // The statements under test only read one invoice: one company per engine serves them all.
  testing::TestCompany& ConFactura() {
    QFETCH_GLOBAL(QString, engine);
    std::unique_ptr<testing::TestCompany>& company = empresas_[engine];
    if (!company) {
      company = std::make_unique<testing::TestCompany>(engine);
      Connection c(company->cadena());
      if (company->ok()) testing::InsertarFila(c, u"facturas"_s, {{u"factura"_s, u"A-1"_s}});
    }
    return *company;
  }

  std::map<QString, std::unique_ptr<testing::TestCompany>> empresas_;
};

QTEST_GUILESS_MAIN(TestBrowseFormat)
#include "tst_browse_format.moc"
