// Saved grid views and the statements a browser runs over them, on both engines.
#include <algorithm>

#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTest>

#include "core/browse_families.h"
#include "core/browse_filter.h"
#include "core/browse_format.h"
#include "core/browse_query.h"
#include "core/mBrowse.h"
#include "core/passwords.h"
#include "demo/demo_company.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mBrowse;
using namespace Qt::StringLiterals;

namespace {

// A scratch table with an integer key, a number with repeats and gaps, and a text.
void CrearPrueba(Connection& c, int filas) {
  QVERIFY(testing::Escribir(
      c, QStringLiteral(
             "create table prueba (id integer not null, grupo integer, nombre text, extra text)")));
  Transaction t(c);
  for (int i = 1; i <= filas; ++i) {
    const QVariant grupo = i % 11 == 0 ? QVariant() : QVariant(i % 7);
    QVERIFY(testing::Escribir(c, u"insert into prueba (id, grupo, nombre) values (?, ?, ?)"_s,
                              {i, grupo, u"N%1"_s.arg(i % 5)}));
  }
  QVERIFY(t.Commit());
}

// Every row of the view, page by page, as the grid reads them.
std::vector<int> LeerTodo(Connection& c, const Consulta& consulta, int pagina) {
  std::vector<int> ids;
  const QStringList columnas = {u"id"_s, u"grupo"_s, u"nombre"_s, u"extra"_s};
  QVariantList ultima;
  for (int vuelta = 0; vuelta < 10000; ++vuelta) {
    const Pagina p =
        LeerPagina(c, consulta, columnas, ultima, static_cast<qint64>(ids.size()), pagina);
    if (!p.outcome.ok) qWarning() << p.outcome.message;
    if (p.filas.empty()) break;
    for (const QVariantList& fila : p.filas) ids.push_back(fila.value(0).toInt());
    ultima = p.filas.back();
  }
  return ids;
}

}  // namespace

class TestBrowse : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // A form's first load makes the template everybody sees; a user's own row appears when the
  // user leaves the form, and the template stays as it was.
  void VistaDePlantillaYPropia() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    session.Usuario = u"CAJERO"_s;
    const VistaCargada primera = ObtenerVista(session, u"clientes"_s);
    QVERIFY2(primera.outcome.ok, qPrintable(primera.outcome.message));
    QCOMPARE(primera.vista.Usuario, u"ADMINISTRADOR"_s);
    QVERIFY(!primera.propia);
    QVERIFY(primera.vista.Sentencia.contains(u"\"clientes\""_s));
    const auto rfc =
        std::find_if(primera.columnas.begin(), primera.columnas.end(),
                     [](const ColumnaVista& c) { return c.nombre == QLatin1String("rfc"); });
    QVERIFY(rfc != primera.columnas.end());
    QCOMPARE(TipoDe(rfc->tipo), TipoColumna::kTexto);
    const auto saldo =
        std::find_if(primera.columnas.begin(), primera.columnas.end(),
                     [](const ColumnaVista& c) { return c.nombre == QLatin1String("saldo"); });
    QVERIFY(saldo != primera.columnas.end());
    QCOMPARE(saldo->formato, u"#,##0.00"_s);

    Vista mia = primera.vista;
    mia.Renglon = 7;
    // The buttons' rights and prompts are the view editor's, never the browser's to write.
    mia.Permisos = u"000"_s;
    mia.Seguridad = u"1|Nuevo|0"_s;
    mia.Ordenar = u"[nombre] Desc"_s;
    Busqueda filtro;
    filtro.filtro = {{u"nombre"_s, u"O'B"_s}};
    mia.Busqueda = EscribirBusqueda(filtro);
    QVERIFY(GuardarVista(session, mia).ok);
    const VistaCargada otra_vez = ObtenerVista(session, u"clientes"_s);
    QVERIFY(otra_vez.propia);
    QCOMPARE(otra_vez.vista.Renglon, 7);
    QVERIFY(otra_vez.vista.Permisos.isEmpty() && otra_vez.vista.Seguridad.isEmpty());
    QCOMPARE(otra_vez.vista.Ordenar, u"[nombre] Desc"_s);
    const Busqueda leida = LeerBusqueda(otra_vez.vista.Busqueda);
    QCOMPARE(leida.filtro, filtro.filtro);
    const Condicion condicion = CondicionGuardada(
        leida, company.sql() ? Engine::kPostgres : Engine::kSqlite, otra_vez.columnas, {});
    QVERIFY(condicion.texto.contains(u"\"nombre\""_s));
    QCOMPARE(LeerBusqueda(session, u"clientes"_s).valores, condicion.valores);

    session.Usuario = u"ADMINISTRADOR"_s;
    const VistaCargada plantilla = ObtenerVista(session, u"clientes"_s);
    QCOMPARE(plantilla.vista.Renglon, 0);
    QVERIFY(plantilla.vista.Ordenar.isEmpty());
    QCOMPARE(ObtenerVista(session, u"no hay tal"_s).outcome.message,
             u"NO EXISTE LA TABLA:  [no hay tal"_s);
  }

  // A dropped column: each saved layout is built again from the table on first use; its row
  // and search go, while who may use which button, and after which password, stay.
  void ColumnaBorradaReconstruyeLaVista() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      CrearPrueba(c, 3);
    }
    session.Usuario = u"ANA"_s;
    QCOMPARE(ObtenerVista(session, u"prueba"_s).columnas.size(), size_t(4));
    Vista propia = ObtenerVista(session, u"prueba"_s).vista;
    propia.Renglon = 2;
    QVERIFY(GuardarVista(session, propia).ok);
    const Formato formato{.AplicarPermisos = true,
                          .AplicarSeguridad = true,
                          .Permisos = u"101"_s,
                          .Seguridad = u"3|Cancelar|1|x|0"_s};
    const QString plantilla = QString::fromLatin1(kPlantilla);
    QVERIFY(GuardarFormato(session, u"prueba"_s, {u"ANA"_s, plantilla}, formato, {}).ok);
    {
      Connection c(session.Cadena);
      QVERIFY(testing::Escribir(c, u"alter table prueba drop column extra"_s));
    }
    for (const QString& usuario : {u"ANA"_s, plantilla}) {
      session.Usuario = usuario;
      const VistaCargada nueva = ObtenerVista(session, u"prueba"_s);
      QVERIFY2(nueva.outcome.ok, qPrintable(nueva.outcome.message));
      QCOMPARE(nueva.columnas.size(), size_t(3));
      QCOMPARE(nueva.vista.Renglon, 0);
      QVERIFY(nueva.propia);
      QCOMPARE(nueva.vista.Permisos, formato.Permisos);
      QCOMPARE(nueva.vista.Seguridad, formato.Seguridad);
      QCOMPARE(ObtenerVista(session, u"prueba"_s).columnas.size(), size_t(3));
    }
  }

  // Pages by key after the last row read must give exactly the rows, in the order, that one
  // sorted statement gives: nulls and repeated values included, both directions.
  void PaginasPorLlaveComoUnaConsulta_data() {
    QTest::addColumn<QString>("columna");
    QTest::addColumn<bool>("descendente");
    QTest::addColumn<bool>("unica");
    QTest::newRow("key only") << QString() << false << true;
    QTest::newRow("repeats and nulls, up") << u"grupo"_s << false << true;
    QTest::newRow("repeats and nulls, down") << u"grupo"_s << true << true;
    QTest::newRow("text down") << u"nombre"_s << true << true;
    QTest::newRow("by offset") << u"grupo"_s << true << false;
  }
  void PaginasPorLlaveComoUnaConsulta() {
    QFETCH(QString, columna);
    QFETCH(bool, descendente);
    QFETCH(bool, unica);
    VENTARIX_COMPANY_CONNECTION(company, c);
    CrearPrueba(c, 500);
    Consulta consulta;
    consulta.sentencia = u"select * from prueba"_s;
    consulta.busqueda = {u"t.id <> ?"_s, {13}};
    consulta.llave = {u"id"_s};
    consulta.llave_unica = unica;
    if (!columna.isEmpty()) consulta.orden = {{columna, descendente}};

    const QString direccion = descendente ? u" desc nulls last"_s : u" asc nulls first"_s;
    QString orden = u" order by "_s;
    if (!columna.isEmpty()) orden += columna + direccion + u", "_s;
    orden += u"id"_s + direccion;
    std::vector<int> esperado;
    QSqlQuery q = c.Exec(u"select id from prueba where id <> 13"_s + orden);
    while (q.next()) esperado.push_back(q.value(0).toInt());
    QCOMPARE(esperado.size(), size_t(499));
    Connection vista(company.cadena(), Connection::Acceso::kVista);
    QCOMPARE(LeerTodo(vista, consulta, 7), esperado);
    QCOMPARE(ContarFilas(vista, consulta).value_or(-1), qint64(499));
  }

  // A view's statement may be typed by an administrator; it runs on a read-only connection
  // and only as one select.
  void SentenciaDeLaVistaNoEscribeNiSale_data() {
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<bool>("permitida");
    QTest::newRow("plain") << u"select numero, nombre from clientes"_s << true;
    QTest::newRow("literal with a semicolon") << u"select 'a;b' as x from clientes"_s << true;
    QTest::newRow("closing and a second statement")
        << u"select 1 as x) as t; delete from clientes; select * from (select 1"_s << false;
    QTest::newRow("not a select") << u"delete from clientes"_s << false;
    QTest::newRow("attach") << u"select * from clientes where 1 = (attach 'x' as y)"_s << false;
    QTest::newRow("server files") << u"select pg_read_file('/etc/passwd') as x"_s << false;
    QTest::newRow("catalogue") << u"select * from sqlite_master"_s << false;
    QTest::newRow("other schema") << u"select * from information_schema.tables"_s << false;
    QTest::newRow("settings") << u"select set_config('a.b', 'c', false) as x"_s << false;
  }
  void SentenciaDeLaVistaNoEscribeNiSale() {
    QFETCH(QString, sentencia);
    QFETCH(bool, permitida);
    QCOMPARE(SentenciaPermitida(sentencia).ok, permitida);
  }
  // Text kept in `tablas` (a view's statement, a saved search) and a statement under test in
  // the view editor reach the server as one read-only statement that cannot read passwords or
  // keys, whatever they say: nothing is renamed and no secret comes back.
  void TextoGuardadoNoEscribeNiLeeSecretos_data() {
    QTest::addColumn<QString>("via");
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("corre");
    QTest::newRow("a quote inside a comment")
        << u"vista"_s
        << u"select numero, nombre from clientes -- '\n) as t; set default_transaction_read_only "
           u"= off; commit; update clientes set nombre='X' where numero=2; select * from (select "
           u"1 as numero --'"_s
        << false;
    QTest::newRow("a data-changing with")
        << u"vista"_s << u"with x as (delete from clientes returning numero) select * from x"_s
        << false;
    QTest::newRow("a saved search")
        << u"busqueda"_s
        << u"where 1=1)) as c; set default_transaction_read_only = off; commit; update clientes "
           u"set nombre='X' where(numero = 4); select ((1"_s
        << true;
    QTest::newRow("a statement under test")
        << u"probar"_s
        << u"select numero from clientes) as t; update clientes set nombre='X'; select * from "
           u"(select 1 as numero"_s
        << false;
    QTest::newRow("a key's password")
        << u"vista"_s << u"select password from certificados"_s << false;
    QTest::newRow("passwords of users")
        << u"vista"_s << u"select usuario, \"contraseña\" as c from usuarios"_s << false;
    QTest::newRow("every column of a range")
        << u"vista"_s << u"select * from \"folios facturas\""_s << false;
    QTest::newRow("the built-in range view")
        << u"vista"_s << QString::fromUtf8(FamiliaDeForma(u"FrmFoliosFacturas"_s)->sentencia)
        << true;
  }
  void TextoGuardadoNoEscribeNiLeeSecretos() {
    QFETCH(QString, via);
    QFETCH(QString, texto);
    QFETCH(bool, corre);
    VENTARIX_COMPANY_CONNECTION(company, c);
    for (int numero : {2, 4}) {
      QVERIFY(testing::InsertarFila(
          c, u"clientes"_s, {{u"numero"_s, numero}, {u"nombre"_s, u"CLIENTE %1"_s.arg(numero)}}));
    }
    QVERIFY(testing::InsertarFila(c, u"certificados"_s,
                                  {{u"numero"_s, 1}, {u"password"_s, u"SECRETO"_s}}));
    QVERIFY(testing::InsertarFila(c, u"folios facturas"_s,
                                  {{u"numero"_s, 1}, {u"password"_s, u"SECRETO"_s}}));
    Session session = company.MakeSession();
    session.Administrador = true;
    Outcome resultado;
    std::vector<QVariantList> filas;
    if (via == u"probar"_s) {
      resultado = ProbarSentencia(session, texto, {});
    } else {
      Vista vista;
      vista.Tabla = u"clientes"_s;
      vista.Usuario = session.Usuario;
      vista.Sentencia = via == u"vista"_s ? texto : u"select * from clientes"_s;
      vista.Busqueda = via == u"busqueda"_s ? texto : QString();
      QVERIFY(GuardarVista(session, vista).ok);
      // What a report reads back of the saved search, and what the browser runs.
      QVERIFY(LeerBusqueda(session, u"clientes"_s).vacia());
      Connection lectura(session.Cadena, Connection::Acceso::kVista);
      Consulta consulta;
      consulta.sentencia = vista.Sentencia;
      consulta.busqueda =
          CondicionGuardada(LeerBusqueda(vista.Busqueda),
                            company.sql() ? Engine::kPostgres : Engine::kSqlite, {}, {});
      const Pagina pagina = LeerPagina(lectura, consulta, {}, {}, 0, 100);
      resultado = pagina.outcome;
      filas = pagina.filas;
    }
    QCOMPARE(resultado.ok, corre);
    for (const QVariantList& fila : filas) {
      for (const QVariant& valor : fila) QVERIFY(valor.toString() != u"SECRETO"_s);
    }
    QCOMPARE(c.Scalar(u"select count(*) from clientes where nombre like 'CLIENTE %'"_s).toInt(), 2);
  }

  // A product code among the rows finds the documents that hold it; no typed text breaks the
  // statement or brings rows from outside the view.
  void BusquedaEntreLasPartidas() {
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany company(engine, testing::TestCompany::Contenido::kDemo);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY2(company.ok(), qPrintable(company.error()));
    Connection c(company.cadena(), Connection::Acceso::kVista);
    const Engine motor = company.sql() ? Engine::kPostgres : Engine::kSqlite;
    const Familia* ajustes = FamiliaDeForma(u"FrmAjustes"_s);
    const BusquedaFamilia& porCodigo = *std::find_if(
        ajustes->busquedas.begin(), ajustes->busquedas.end(),
        [](const BusquedaFamilia& b) { return b.modo == ModoBusqueda::kSubconsulta; });
    const QString codigo =
        c
            .Scalar(QStringLiteral(
                "select min(codigo) from \"ajustes de inventario detalles\" where almacen = 2"))
            .toString();
    const int con_codigo = c.Scalar(QStringLiteral("select count(distinct ajuste) from \"ajustes "
                                                   "de inventario detalles\" where codigo = ?"),
                                    {codigo})
                               .toInt();
    QVERIFY(con_codigo >= 1);
    Consulta consulta;
    consulta.sentencia = u"select * from \"ajustes de inventario\""_s;
    auto contar = [&](const QString& respuesta) {
      consulta.busqueda = CondicionDeSubconsulta(motor, QString::fromUtf8(porCodigo.columna),
                                                 QString::fromUtf8(porCodigo.subconsulta),
                                                 QString::fromUtf8(porCodigo.detalle), respuesta);
      return ContarFilas(c, consulta).value_or(-1);
    };
    QCOMPARE(contar(codigo.toLower()), qint64(con_codigo));
    const qint64 todos =
        c.Scalar(QStringLiteral("select count(*) from \"ajustes de inventario\"")).toLongLong();
    QCOMPARE(contar(u"*"_s), todos);
    QRandomGenerator azar(20261123);
    const QString piezas = u"'\\\"%_;-*/()ñÑ?! abcSELECT"_s;
    for (int i = 0; i < 400; ++i) {
      QString texto;
      const int largo = azar.bounded(1, 30);
      for (int j = 0; j < largo; ++j) texto += piezas.at(azar.bounded(piezas.size()));
      const qint64 filas = contar(texto);
      QVERIFY2(filas >= 0 && filas <= todos, qPrintable(texto));
      consulta.busqueda = CondicionDeBusqueda(motor, u"obs"_s, false, texto);
      QVERIFY2(ContarFilas(c, consulta).value_or(-1) >= 0, qPrintable(texto));
    }
  }

  // Field 3 equal to 0 asks the user's password when an administrator's exists; field 5 equal
  // to 0 asks the manager's, which the administrator's also answers. An empty password is not
  // asked.
  void PromptsDeLosBotones() {
    Session session;
    session.Contrasena = passwords::Hash(u"YO"_s);
    session.ContrasenaGerente = passwords::Hash(u"JEFE"_s);
    session.ContrasenaAdministrador = passwords::Hash(u"ADMIN"_s);
    const QString seguridad = u"1|Nuevo|0|x|1\r\n3|Cancelar|1|x|0\r2|Cambiar|1|x|1"_s;
    const std::vector<Prompt> nuevo = PromptsDeBoton(session, seguridad, 1);
    QCOMPARE(nuevo.size(), size_t(1));
    QCOMPARE(nuevo[0].titulo, u"Escriba la contraseña del usuario"_s);
    QCOMPARE(nuevo[0].claves, QStringList{session.Contrasena});
    const std::vector<Prompt> cancelar = PromptsDeBoton(session, seguridad, 3);
    QCOMPARE(cancelar.size(), size_t(1));
    QCOMPARE(cancelar[0].titulo, u"Escriba la contraseña del gerente"_s);
    QCOMPARE(cancelar[0].claves,
             (QStringList{session.ContrasenaGerente, session.ContrasenaAdministrador}));
    session.ContrasenaGerente.clear();
    QVERIFY(PromptsDeBoton(session, seguridad, 3).empty());
    QVERIFY(PromptsDeBoton(session, seguridad, 2).empty());
    QVERIFY(PromptsDeBoton(session, seguridad, 6).empty());
    session.ContrasenaAdministrador.clear();
    QVERIFY(PromptsDeBoton(session, seguridad, 1).empty());
    QVERIFY(!BotonPermitido(u"1101"_s, 3));
    QVERIFY(BotonPermitido(u"1101"_s, 4));
    QVERIFY(BotonPermitido(u"11"_s, 6));
  }

  void SumaDeLaSeleccion() {
    QCOMPARE(SumaSeleccion({1.5, 2, 1000}, 3), u"Suma = 1,003.50,  Celdas = 3"_s);
    QCOMPARE(SumaSeleccion({1.5}, 3), u"Suma = 1.50,  Celdas = 3"_s);
    QCOMPARE(SumaSeleccion({}, 2), u"Celdas = 2"_s);
    const std::vector<double> muchas(kMaximoCeldas, 1.0);
    QCOMPARE(SumaSeleccion(muchas, kMaximoCeldas), u"Suma = 32,767.00,  Celdas = 32767"_s);
    QCOMPARE(SumaSeleccion({}, kMaximoCeldas + 1), u"Error, Demasiadas filas = 32768"_s);
    QVERIFY(SumaSeleccion({}, 0).isEmpty());
    QCOMPARE(MostrarFilas(120), u"120 filas"_s);
    QCOMPARE(MostrarFilas(120, 3), u"3/120 filas"_s);
    QCOMPARE(LeerOrdenar(u"[fecha] Desc, [folio] asc, basura"_s).size(), size_t(2));
    QCOMPARE(EscribirOrdenar(LeerOrdenar(u"[fecha] Desc,[folio]"_s)),
             u"[fecha] Desc, [folio] Asc"_s);
  }
};

QTEST_GUILESS_MAIN(TestBrowse)
#include "tst_browse.moc"
