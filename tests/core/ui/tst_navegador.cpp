// The grid browser as a clerk uses it on the demo shop: searching clients with F4, sorting,
// summing selected balances, finding the saved view again the next day, and the rights and
// password checks in front of the add screen.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include "catalogs/demo_company.h"
#include "core/mBrowse.h"
#include "core/passwords.h"
#include "core/session_load.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using testing::ModalCatcher;

namespace {

std::unique_ptr<testing::TestCompany> Demo() {
  QFETCH_GLOBAL(QString, engine);
  auto company = std::make_unique<testing::TestCompany>(engine, false);
  if (company->skipped()) {
    QTest::qSkip("VENTARIX_TEST_PG is not set", __FILE__, __LINE__);
    return nullptr;
  }
  if (!company->ok() || !CrearEmpresaDemo(company->path()).ok) {
    QTest::qFail("no demo company", __FILE__, __LINE__);
    return nullptr;
  }
  return company;
}

// The session of a clerk after login: the user's rights read from the company.
Session Sesion(const testing::TestCompany& company, const QString& usuario) {
  Session session = company.MakeSession();
  session.Usuario = usuario;
  session.Contrasena = passwords::Hash(QStringLiteral("CAJA"));
  CargarPermisos(session);
  return session;
}

void AgregarUsuario(const QString& cadena, const QString& usuario, const QString& clientes) {
  Connection c(cadena);
  QVERIFY(
      c.Run(QStringLiteral("insert into usuarios (usuario, \"contraseña\", tienda, administrador, "
                           "gerente, permisos, clientes) values (?, ?, 1, 'N', 'N', ?, ?)"),
            {usuario, passwords::Hash(QStringLiteral("CAJA")), QString(200, u'1'), clientes}));
}

QStringList Columna(const Navegador& navegador, const QString& nombre) {
  const int c = navegador.modelo()->ColumnaDe(nombre);
  QStringList valores;
  for (int f = 0; f < navegador.modelo()->rowCount(); ++f) {
    valores << navegador.modelo()->Valor(f, c).toString();
  }
  return valores;
}

}  // namespace

#define VENTARIX_DEMO(var) \
  const auto var = Demo(); \
  if (!var) return

class TestNavegador : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void BuscarOrdenarSumarYVolver() {
    VENTARIX_DEMO(company);
    AgregarUsuario(company->cadena(), QStringLiteral("CAJERO"), QStringLiteral("SSS"));
    Session session = Sesion(*company, QStringLiteral("CAJERO"));
    FormRegistry registry;
    auto navegador = std::make_unique<Navegador>(
        session, *mBrowse::FamiliaDeForma(QStringLiteral("FrmClientes")), registry);
    navegador->show();
    QVERIFY(QTest::qWaitForWindowExposed(navegador.get()));
    QCOMPARE(navegador->modelo()->rowCount(), 60);
    QCOMPARE(navegador->findChild<QLabel*>(QStringLiteral("Filas"))->text(),
             QStringLiteral("1/60 filas"));
    testing::SaveShot(navegador.get(), QStringLiteral("navegador_clientes"));

    // F4: part of a name, in lower case, finds every client whose name holds it.
    Connection c(company->cadena());
    const QString nombre =
        c.Scalar(QStringLiteral("select nombre from clientes where numero = 7")).toString();
    const QString parte = nombre.mid(1, 4).toLower();
    const int esperados =
        c.Scalar(QStringLiteral("select count(*) from clientes where upper(nombre) like ?"),
                 {u'%' + parte.toUpper() + u'%'})
            .toInt();
    {
      ModalCatcher catcher({{parte}});
      QTest::keyClick(navegador->grid(), Qt::Key_F4);
      QTRY_COMPARE(catcher.pending(), 0);
      QCOMPARE(catcher.texts.value(0), QStringLiteral("Nombre del Cliente a Buscar\n* = TODOS"));
    }
    QTRY_COMPARE(navegador->modelo()->rowCount(), esperados);
    for (const QString& n : Columna(*navegador, QStringLiteral("nombre"))) {
      QVERIFY2(n.contains(parte, Qt::CaseInsensitive), qPrintable(n));
    }
    testing::SaveShot(navegador.get(), QStringLiteral("navegador_busqueda"));

    // "*" shows everybody again; Ctrl+Space on the name sorts up, and again down.
    {
      ModalCatcher catcher({{QStringLiteral("*")}});
      QTest::keyClick(navegador->grid(), Qt::Key_F4);
      QTRY_COMPARE(catcher.pending(), 0);
    }
    QTRY_COMPARE(navegador->modelo()->rowCount(), 60);
    const int columna_nombre = navegador->modelo()->ColumnaDe(QStringLiteral("nombre"));
    navegador->grid()->setCurrentIndex(navegador->modelo()->index(0, columna_nombre));
    QTest::keyClick(navegador->grid(), Qt::Key_Space, Qt::ControlModifier);
    QStringList nombres = Columna(*navegador, QStringLiteral("nombre"));
    QStringList ordenados = nombres;
    std::sort(ordenados.begin(), ordenados.end());
    QCOMPARE(nombres.first(), ordenados.first());
    QTest::keyClick(navegador->grid(), Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Columna(*navegador, QStringLiteral("nombre")).first(), ordenados.last());
    QCOMPARE(session.VistaOrden, QStringLiteral("[nombre] Desc"));

    // Three numbers selected with the mouse and Shift+Down: their sum and count go to the
    // status bar.
    const int numero = navegador->modelo()->ColumnaDe(QStringLiteral("numero"));
    QTableView* grid = navegador->grid();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(navegador->modelo()->index(0, numero)).center());
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    double suma = 0;
    for (int f = 0; f < 3; ++f) suma += navegador->modelo()->Valor(f, numero).toDouble();
    QVERIFY(suma > 0);
    QCOMPARE(navegador->property("suma").toString(), mBrowse::SumaSeleccion({suma}, 3));

    // Leaving keeps the sort and the row; tomorrow's session finds them again.
    navegador->grid()->setCurrentIndex(navegador->modelo()->index(4, columna_nombre));
    const QString quinto = navegador->modelo()->Valor(4, columna_nombre).toString();
    navegador->close();
    navegador.reset();
    Session manana = Sesion(*company, QStringLiteral("CAJERO"));
    Navegador otra(manana, *mBrowse::FamiliaDeForma(QStringLiteral("FrmClientes")), registry);
    QCOMPARE(otra.modelo()->consulta().orden.size(), size_t(1));
    QVERIFY(otra.modelo()->consulta().orden.front().descendente);
    QCOMPARE(otra.grid()->currentIndex().row(), 4);
    QCOMPARE(otra.modelo()->Valor(4, columna_nombre).toString(), quinto);
  }

  // A clerk without the add right is told so; with the right, a view that guards the add
  // button asks for the clerk's own password and refuses a wrong one.
  void DerechosYAutorizacion() {
    VENTARIX_DEMO(company);
    AgregarUsuario(company->cadena(), QStringLiteral("MOSTRADOR"), QStringLiteral("NSS"));
    AgregarUsuario(company->cadena(), QStringLiteral("ADMIN"), QStringLiteral("SSS"));
    {
      Connection c(company->cadena());
      QVERIFY(
          c.Run(QStringLiteral("update usuarios set administrador = 'S' where usuario = 'ADMIN'")));
    }
    FormRegistry registry;
    Session mostrador = Sesion(*company, QStringLiteral("MOSTRADOR"));
    {
      Navegador navegador(mostrador, *mBrowse::FamiliaDeForma(QStringLiteral("FrmClientes")),
                          registry);
      navegador.show();
      ModalCatcher catcher;
      QTest::keyClick(navegador.grid(), Qt::Key_Insert);
      QTRY_COMPARE(catcher.texts.size(), 1);
      QCOMPARE(catcher.texts.front(),
               QStringLiteral("Este usuario no tiene permisos para el registro de altas"));
    }

    Session cajero = Sesion(*company, QStringLiteral("CAJERO"));
    cajero.usuario.Set(QStringLiteral("Clientes"), QStringLiteral("SSS"));
    cajero.ContrasenaAdministrador = passwords::Hash(QStringLiteral("JEFE"));
    {
      // The browser above made the template view; the administrator guards its add button.
      Connection c(company->cadena());
      QVERIFY(
          c.Run(QStringLiteral("update tablas set seguridad = '1|Nuevo|0|x|1' where tabla = "
                               "'clientes'")));
    }
    Navegador navegador(cajero, *mBrowse::FamiliaDeForma(QStringLiteral("FrmClientes")), registry);
    navegador.show();
    ModalCatcher catcher({{QStringLiteral("otra")}, {}, {QString(), false}},
                         QStringLiteral("autorizacion_"));
    QTest::keyClick(navegador.grid(), Qt::Key_Insert);
    QTRY_COMPARE(catcher.pending(), 0);
    QCOMPARE(catcher.texts.value(0), QStringLiteral("MDIInicioAutorizacion"));
    QCOMPARE(catcher.texts.value(1),
             QStringLiteral("Esta contraseña no corresponde para una autorización"));
    QVERIFY(!cajero.Autorizado);
  }

  // F9 on the adjustments: a folio range and the day of the opening count narrow the grid to
  // those documents, and the year panel's year applies on top.
  void FiltrarPorRangoYFecha() {
    VENTARIX_DEMO(company);
    Session session = Sesion(*company, QStringLiteral("ADMINISTRADOR"));
    const QDate dia(QDate::currentDate().year(), 1, 2);
    session.AnoAMostrar = dia.year();
    FormRegistry registry;
    Navegador navegador(session, *mBrowse::FamiliaDeForma(QStringLiteral("FrmAjustes")), registry);
    navegador.show();
    QCOMPARE(navegador.modelo()->rowCount(), 5);
    QTimer::singleShot(0, this, [&] {
      auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialogo != nullptr);
      auto* lineas = dialogo->findChild<QTableWidget*>(QStringLiteral("Fg1"));
      QLineEdit* ultima = nullptr;
      for (int f = 0; f < lineas->rowCount(); ++f) {
        const QString columna = lineas->item(f, 0)->text();
        auto* texto = qobject_cast<QLineEdit*>(lineas->cellWidget(f, 2));
        if (texto != nullptr) ultima = texto;
        if (columna == QLatin1String("folio")) QTest::keyClicks(texto, QStringLiteral("2-4"));
        if (columna == QLatin1String("fecha")) {
          QTest::keyClicks(texto, dia.toString(QStringLiteral("d/M/yyyy")));
        }
      }
      testing::SaveShot(dialogo, QStringLiteral("navegador_filtro"));
      QTest::keyClick(ultima, Qt::Key_F9);
    });
    QTest::keyClick(navegador.grid(), Qt::Key_F9);
    QVERIFY(session.FiltroActivo);
    QCOMPARE(Columna(navegador, QStringLiteral("folio")),
             (QStringList{QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")}));
    session.AnoAMostrar = dia.year() - 1;
    QTest::keyClick(navegador.grid(), Qt::Key_F5);
    QCOMPARE(navegador.modelo()->rowCount(), 0);
  }

  // F12 on the products turns price mode on: Enter then opens the quick price screen.
  void ModoPreciosDeProductos() {
    VENTARIX_DEMO(company);
    Session session = Sesion(*company, QStringLiteral("ADMINISTRADOR"));
    FormRegistry registry;
    RegistrarFormularios(registry);
    Navegador navegador(session, *mBrowse::FamiliaDeForma(QStringLiteral("FrmProductos")),
                        registry);
    navegador.show();
    ModalCatcher catcher({{}, {QString(), false}, {}});
    QTest::keyClick(navegador.grid(), Qt::Key_F12);
    QTest::keyClick(navegador.grid(), Qt::Key_Return);
    QTest::keyClick(navegador.grid(), Qt::Key_F12);
    QTRY_COMPARE(catcher.pending(), 0);
    QCOMPARE(catcher.texts,
             (QStringList{QStringLiteral("Pantalla para modo precios ACTIVADA"),
                          QStringLiteral("FrmProductosP"),
                          QStringLiteral("Pantalla para modo precios DESACTIVADA")}));
    QCOMPARE(session.RegistroActual, navegador.modelo()->Valor(0, 0).toString());
  }

  // The count guard: exactly 200,000 rows are all shown; one more and the grid stops there.
  void LimiteDeFilas() {
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany company(engine);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY(company.ok());
    Connection c(company.cadena());
    QVERIFY(c.Run(QStringLiteral("create table muchas (id integer not null)")));
    QVERIFY(
        c.Run(company.sql()
                  ? QStringLiteral("insert into muchas select g from generate_series(1, 200000) g")
                  : QStringLiteral("insert into muchas with recursive s(g) as (select 1 union all "
                                   "select g + 1 from s where g < 200000) select g from s")));
    Session session = company.MakeSession();
    mBrowse::Consulta consulta;
    consulta.sentencia = QStringLiteral("select * from muchas");
    consulta.llave = {QStringLiteral("id")};
    consulta.llave_unica = true;
    const std::vector<mBrowse::ColumnaVista> columnas = {
        {QStringLiteral("id"), mBrowse::kTipoEntero32}};
    // Big pages: the guard, not the paging, is under test here.
    ModeloVista modelo(session, nullptr, 25000);
    QVERIFY(modelo.Cargar(consulta, columnas).ok);
    QCOMPARE(modelo.limite(), qint64(200000));
    modelo.AsegurarFila(199999);
    QCOMPARE(modelo.rowCount(), 200000);
    QCOMPARE(modelo.Valor(199999, 0).toInt(), 200000);
    QVERIFY(!modelo.canFetchMore());

    QVERIFY(c.Run(QStringLiteral("insert into muchas (id) values (200001)")));
    QVERIFY(modelo.Recargar().ok);
    QCOMPARE(modelo.filas_totales(), qint64(200001));
    QCOMPARE(modelo.limite(), qint64(200000));
    modelo.AsegurarFila(200000);
    QCOMPARE(modelo.rowCount(), 200000);
    QCOMPARE(modelo.Valor(199999, 0).toInt(), 200000);
    QVERIFY(!modelo.canFetchMore());
  }
};

QTEST_MAIN(TestNavegador)
#include "tst_navegador.moc"
