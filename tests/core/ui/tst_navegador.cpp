// The grid browser as a clerk uses it on the demo shop: searching clients with F4, sorting,
// summing selected balances, finding the saved view again the next day, and the rights and
// password checks in front of the add screen.
#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/formularios.h"
#include "core/dialect.h"
#include "core/mBrowse.h"
#include "core/passwords.h"
#include "core/session_load.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/navegador.h"
#include "demo/demo_company.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using namespace ventarix;
using testing::ModalCatcher;

namespace {

std::unique_ptr<testing::TestCompany> Demo() {
  QFETCH_GLOBAL(QString, engine);
  auto company =
      std::make_unique<testing::TestCompany>(engine, testing::TestCompany::Contenido::kDemo);
  if (company->skipped()) {
    QTest::qSkip("VENTARIX_TEST_PG is not set", __FILE__, __LINE__);
    return nullptr;
  }
  if (!company->ok()) {
    QTest::qFail("no demo company", __FILE__, __LINE__);
    return nullptr;
  }
  return company;
}

// The session of a clerk after login: the user's rights read from the company.
Session Sesion(const testing::TestCompany& company, const QString& usuario) {
  Session session = company.MakeSession();
  session.Usuario = usuario;
  session.Contrasena = passwords::Hash(u"CAJA"_s);
  CargarPermisos(session);
  return session;
}

void AgregarUsuario(const QString& cadena, const QString& usuario, const QString& clientes) {
  Connection c(cadena);
  QVERIFY(testing::Escribir(
      c,
      QStringLiteral("insert into usuarios (usuario, \"contraseña\", tienda, administrador, "
                     "gerente, permisos, clientes) values (?, ?, 1, 'N', 'N', ?, ?)"),
      {usuario, passwords::Hash(u"CAJA"_s), QString(200, u'1'), clientes}));
}

QStringList Columna(const Navegador& navegador, const QString& nombre) {
  const int c = navegador.modelo()->ColumnaDe(nombre);
  QStringList valores;
  for (int f = 0; f < navegador.modelo()->rowCount(); ++f) {
    valores << navegador.modelo()->Valor(f, c).toString();
  }
  return valores;
}

QString Titulo(const Navegador* navegador, const QString& columna) {
  const ModeloVista* modelo = navegador->modelo();
  return modelo->headerData(modelo->ColumnaDe(columna), Qt::Horizontal).toString();
}

}  // namespace

#define VENTARIX_DEMO(var) \
  const auto var = Demo(); \
  if (!var) return

class TestNavegador : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
  }

  void BuscarOrdenarSumarYVolver() {
    VENTARIX_DEMO(company);
    AgregarUsuario(company->cadena(), u"CAJERO"_s, u"SSS"_s);
    Session session = Sesion(*company, u"CAJERO"_s);
    FormRegistry registry;
    auto navegador =
        std::make_unique<Navegador>(session, *mBrowse::FamiliaDeForma(u"FrmClientes"_s), registry);
    navegador->show();
    QVERIFY(QTest::qWaitForWindowExposed(navegador.get()));
    QCOMPARE(navegador->modelo()->rowCount(), 60);
    QCOMPARE(navegador->findChild<QLabel*>(u"Filas"_s)->text(), u"1/60 filas"_s);
    testing::SaveShot(navegador.get(), u"navegador_clientes"_s);

    // F4: part of a name, in lower case, finds every client whose name holds it.
    Connection c(company->cadena());
    const QString nombre = c.Scalar(u"select nombre from clientes where numero = 7"_s).toString();
    const QString parte = nombre.mid(1, 4).toLower();
    const int esperados = c.Scalar(u"select count(*) from clientes where upper(nombre) like ?"_s,
                                   {u'%' + parte.toUpper() + u'%'})
                              .toInt();
    {
      ModalCatcher catcher({{parte}});
      QTest::keyClick(navegador->grid(), Qt::Key_F4);
      QTRY_COMPARE(catcher.pending(), 0);
      QCOMPARE(catcher.texts.value(0), u"Nombre del Cliente a Buscar\n* = TODOS"_s);
    }
    QTRY_COMPARE(navegador->modelo()->rowCount(), esperados);
    for (const QString& n : Columna(*navegador, u"nombre"_s)) {
      QVERIFY2(n.contains(parte, Qt::CaseInsensitive), qPrintable(n));
    }
    testing::SaveShot(navegador.get(), u"navegador_busqueda"_s);

    // "*" shows everybody again; Ctrl+Space on the name sorts up, and again down.
    {
      ModalCatcher catcher({{u"*"_s}});
      QTest::keyClick(navegador->grid(), Qt::Key_F4);
      QTRY_COMPARE(catcher.pending(), 0);
    }
    QTRY_COMPARE(navegador->modelo()->rowCount(), 60);
    const int columna_nombre = navegador->modelo()->ColumnaDe(u"nombre"_s);
    navegador->grid()->setCurrentIndex(navegador->modelo()->index(0, columna_nombre));
    QTest::keyClick(navegador->grid(), Qt::Key_Space, Qt::ControlModifier);
    QStringList nombres = Columna(*navegador, u"nombre"_s);
    QStringList ordenados = nombres;
    std::sort(ordenados.begin(), ordenados.end());
    QCOMPARE(nombres.first(), ordenados.first());
    QTest::keyClick(navegador->grid(), Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Columna(*navegador, u"nombre"_s).first(), ordenados.last());
    QCOMPARE(session.VistaOrden, u"[nombre] Desc"_s);

    // Three numbers selected with the mouse and Shift+Down: their sum and count go to the
    // status bar.
    const int numero = navegador->modelo()->ColumnaDe(u"numero"_s);
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
    Session manana = Sesion(*company, u"CAJERO"_s);
    Navegador otra(manana, *mBrowse::FamiliaDeForma(u"FrmClientes"_s), registry);
    QCOMPARE(otra.modelo()->consulta().orden.size(), size_t(1));
    QVERIFY(otra.modelo()->consulta().orden.front().descendente);
    QCOMPARE(otra.grid()->currentIndex().row(), 4);
    QCOMPARE(otra.modelo()->Valor(4, columna_nombre).toString(), quinto);

    // RFCs are text: counted, never added. A search that finds nothing clears the panel.
    const QModelIndex rfc = otra.modelo()->index(0, otra.modelo()->ColumnaDe(u"rfc"_s));
    QTest::mouseClick(otra.grid()->viewport(), Qt::LeftButton, {},
                      otra.grid()->visualRect(rfc).center());
    QTest::keyClick(otra.grid(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(otra.property("suma").toString(), u"Celdas = 2"_s);
    ModalCatcher catcher({{u"NADIE SE LLAMA ASI"_s}});
    QTest::keyClick(otra.grid(), Qt::Key_F4);
    QTRY_COMPARE(otra.modelo()->rowCount(), 0);
    QCOMPARE(otra.property("suma").toString(), QString());
  }

  // A clerk without the add right is told so; with the right, a view that guards the add
  // button asks for the clerk's own password and refuses a wrong one.
  void DerechosYAutorizacion() {
    VENTARIX_DEMO(company);
    AgregarUsuario(company->cadena(), u"MOSTRADOR"_s, u"NSS"_s);
    AgregarUsuario(company->cadena(), u"ADMIN"_s, u"SSS"_s);
    {
      Connection c(company->cadena());
      QVERIFY(testing::Escribir(
          c, u"update usuarios set administrador = 'S' where usuario = 'ADMIN'"_s));
    }
    FormRegistry registry;
    Session mostrador = Sesion(*company, u"MOSTRADOR"_s);
    {
      Navegador navegador(mostrador, *mBrowse::FamiliaDeForma(u"FrmClientes"_s), registry);
      navegador.show();
      ModalCatcher catcher;
      QTest::keyClick(navegador.grid(), Qt::Key_Insert);
      QTRY_COMPARE(catcher.texts.size(), 1);
      QCOMPARE(catcher.texts.front(),
               u"Este usuario no tiene permisos para el registro de altas"_s);
    }

    Session cajero = Sesion(*company, u"CAJERO"_s);
    cajero.usuario.Set(u"Clientes"_s, u"SSS"_s);
    cajero.ContrasenaAdministrador = passwords::Hash(u"JEFE"_s);
    {
      // The browser above made the template view; the administrator guards its add button.
      Connection c(company->cadena());
      QVERIFY(testing::Escribir(
          c, QStringLiteral("update tablas set seguridad = '1|Nuevo|0|x|1' where tabla = "
                            "'clientes'")));
    }
    Navegador navegador(cajero, *mBrowse::FamiliaDeForma(u"FrmClientes"_s), registry);
    navegador.show();
    ModalCatcher catcher({{u"otra"_s}, {}, {QString(), false}}, u"autorizacion_"_s);
    QTest::keyClick(navegador.grid(), Qt::Key_Insert);
    QTRY_COMPARE(catcher.pending(), 0);
    QCOMPARE(catcher.texts.value(0), u"MDIInicioAutorizacion"_s);
    QCOMPARE(catcher.texts.value(1), u"Esta contraseña no corresponde para una autorización"_s);
    QCOMPARE(catcher.texts.size(), 3);  // left with Esc: no add screen
  }

  // F9 on the adjustments: a folio range and the day of the opening count narrow the grid to
  // those documents, and the year panel's year applies on top.
  void FiltrarPorRangoYFecha() {
    VENTARIX_DEMO(company);
    Session session = Sesion(*company, u"ADMINISTRADOR"_s);
    Connection c(company->cadena());
    const QDate dia =
        dialect::ReadDate(c.Scalar(u"select min(fecha) from \"ajustes de inventario\""_s)).date();
    session.AnoAMostrar = dia.year();
    FormRegistry registry;
    Navegador navegador(session, *mBrowse::FamiliaDeForma(u"FrmAjustes"_s), registry);
    navegador.show();
    QCOMPARE(navegador.modelo()->rowCount(),
             c.Scalar(u"select count(*) from \"ajustes de inventario\" where periodo = ?"_s,
                      {dia.year()})
                 .toInt());
    QTimer::singleShot(0, this, [&] {
      auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialogo != nullptr);
      auto* lineas = dialogo->findChild<QTableWidget*>(u"Fg1"_s);
      QLineEdit* ultima = nullptr;
      for (int f = 0; f < lineas->rowCount(); ++f) {
        const QString columna = lineas->item(f, 0)->text();
        auto* texto = qobject_cast<QLineEdit*>(lineas->cellWidget(f, 2));
        if (texto != nullptr) ultima = texto;
        if (columna == QLatin1String("folio")) QTest::keyClicks(texto, u"2-4"_s);
        if (columna == QLatin1String("fecha")) {
          QTest::keyClicks(texto, dia.toString(u"d/M/yyyy"_s));
        }
      }
      testing::SaveShot(dialogo, u"navegador_filtro"_s);
      QTest::keyClick(ultima, Qt::Key_F9);
    });
    QTest::keyClick(navegador.grid(), Qt::Key_F9);
    QVERIFY(session.FiltroActivo);
    QCOMPARE(Columna(navegador, u"folio"_s), (QStringList{u"2"_s, u"3"_s, u"4"_s}));
    session.AnoAMostrar = dia.year() - 1;
    QTest::keyClick(navegador.grid(), Qt::Key_F5);
    QCOMPARE(navegador.modelo()->rowCount(), 0);
    // F8 lists the years the table holds, newest first; the one taken is shown.
    const int ultimo = c.Scalar(u"select max(periodo) from \"ajustes de inventario\""_s).toInt();
    QTimer::singleShot(0, this, [] {
      QWidget* lista = QApplication::activeModalWidget();
      QVERIFY(lista != nullptr && lista->objectName() == u"MDIInicioTablas"_s);
      QTest::keyClick(lista->focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(navegador.grid(), Qt::Key_F8);
    QCOMPARE(session.AnoAMostrar, ultimo);
    QCOMPARE(Columna(navegador, u"folio"_s), (QStringList{u"2"_s, u"3"_s, u"4"_s}));
  }

  // F12 on the products turns price mode on: Enter then opens the quick price screen.
  void ModoPreciosDeProductos() {
    VENTARIX_DEMO(company);
    Session session = Sesion(*company, u"ADMINISTRADOR"_s);
    FormRegistry registry;
    RegistrarFormularios(registry);
    Navegador navegador(session, *mBrowse::FamiliaDeForma(u"FrmProductos"_s), registry);
    navegador.show();
    ModalCatcher catcher({{}, {QString(), false}, {}});
    QTest::keyClick(navegador.grid(), Qt::Key_F12);
    QTest::keyClick(navegador.grid(), Qt::Key_Return);
    QTest::keyClick(navegador.grid(), Qt::Key_F12);
    QTRY_COMPARE(catcher.pending(), 0);
    QCOMPARE(catcher.texts,
             (QStringList{u"Pantalla para modo precios ACTIVADA"_s, u"FrmProductosP"_s,
                          u"Pantalla para modo precios DESACTIVADA"_s}));
  }

  // The users' browser has what the users registered beside their screens: Permisos, hidden
  // with Nuevo and Cancelar from someone who is no administrator, and Supr opening the users'
  // own delete screen on the current user instead of the cancellations.
  void BotonesPropiosDeUsuarios() {
    VENTARIX_DEMO(company);
    AgregarUsuario(company->cadena(), u"CAJERO"_s, u"SSS"_s);
    FormRegistry registry;
    RegistrarFormularios(registry);
    const mBrowse::Familia& usuarios = *mBrowse::FamiliaDeForma(u"FrmUsuarios"_s);
    Session cajero = company->MakeSession();
    cajero.Administrador = false;
    {
      Navegador navegador(cajero, usuarios, registry);
      for (int boton : {1, 3, 7}) {
        QVERIFY(!navegador.findChild<QAction*>(u"Toolbar_%1"_s.arg(boton))->isVisible());
      }
    }
    Session session = company->MakeSession();
    Navegador navegador(session, usuarios, registry);
    navegador.show();
    QCOMPARE(navegador.findChild<QAction*>(u"Toolbar_7"_s)->text(), u"Permisos"_s);
    QVERIFY(navegador.BuscarEnFila(u"usuario"_s, u"CAJERO"_s));
    QStringList abiertas;
    QTimer::singleShot(0, this, [&] {
      QWidget* dialogo = QApplication::activeModalWidget();
      abiertas << dialogo->objectName() << dialogo->findChild<QLabel*>(u"Pregunta"_s)->text();
      dialogo->findChild<QPushButton*>(u"Borrar"_s)->click();
    });
    QTest::keyClick(navegador.grid(), Qt::Key_Delete);
    QCOMPARE(abiertas, (QStringList{u"FrmUsuariosB"_s, u"Borrar el usuario CAJERO"_s}));
    Connection c(company->cadena());
    QCOMPARE(c.Scalar(u"select count(*) from usuarios where usuario = 'CAJERO'"_s).toInt(), 0);
  }

  // Ctrl+End on 3,000 invoices lands on the last one at once, reading its page alone; the
  // rows between arrive in key order when read, and Ctrl+Home goes back to the first.
  void CtrlFinYCtrlInicio() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(testing::Escribir(
        c,
        u"insert into facturas (factura, serie, folio, fecha, periodo, status, usuario, equipo, "
        u"cliente, tienda, esquema, metodo, ingreso) with recursive s(g) as (select 1 union all "
        u"select g + 1 from s where g < 3000) select 'A-' || g, 'A', g, current_timestamp, 2025, "
        u"'BAJA', 'PRUEBAS', 'PRUEBAS', 1, 1, 'CFDI', 1, 1 from s"_s));
    QStringList facturas;
    for (QSqlQuery q = c.Exec(u"select factura from facturas order by factura"_s); q.next();) {
      facturas << q.value(0).toString();
    }
    Session session = company.MakeSession();
    session.AnoAMostrar = 2025;
    FormRegistry registry;
    Navegador navegador(session, *mBrowse::FamiliaDeForma(u"FrmFacturas"_s), registry);
    ModeloVista* modelo = navegador.modelo();
    QAbstractItemModelTester tester(modelo, QAbstractItemModelTester::FailureReportingMode::QtTest);
    navegador.show();
    const qint64 leidas = modelo->leidas();
    QTest::keyClick(navegador.grid(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(navegador.grid()->currentIndex().row(), 2999);
    QCOMPARE(modelo->leidas() - leidas, ModeloVista::kPagina);
    modelo->AsegurarFilas(0, 2999);
    QCOMPARE(Columna(navegador, u"factura"_s), facturas);
    QTest::keyClick(navegador.grid(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(navegador.grid()->currentIndex().row(), 0);
  }

  // The products fill the main window's work area, with Spanish captions and whole names, and
  // open again at the size left; the folio ranges' used folios stand by the key, as numbers.
  void VentanaAMedidaDelTrabajo() {
    VENTARIX_DEMO(company);
    QSettings(u"Ventarix"_s, u"TVik"_s).remove(u"Navegadores"_s);
    Session session = Sesion(*company, u"ADMINISTRADOR"_s);
    FormRegistry registry;
    RegistrarNavegadores(registry);
    MDIInicio principal(session, registry);
    principal.show();
    principal.Abrir(u"FrmProductos"_s);
    auto* productos = qobject_cast<Navegador*>(principal.FormaActiva());
    QMdiSubWindow* ventana = principal.area()->currentSubWindow();
    QCOMPARE(ventana->geometry(), principal.area()->viewport()->rect());
    QCOMPARE(Titulo(productos, u"ultimo costo"_s), u"Último costo"_s);
    const int producto = productos->modelo()->ColumnaDe(u"producto"_s);
    for (const QString& nombre : Columna(*productos, u"producto"_s).mid(0, 100))
      QVERIFY(productos->fontMetrics().horizontalAdvance(nombre) <
              productos->grid()->columnWidth(producto));
    testing::SaveShot(&principal, u"navegador_productos_mdi"_s);
    ventana->resize(700, 400);
    ventana->close();
    principal.Abrir(u"FrmProductos"_s);
    QCOMPARE(principal.area()->currentSubWindow()->size(), QSize(700, 400));
    principal.Abrir(u"FrmFoliosFacturas"_s);
    auto* folios = qobject_cast<Navegador*>(principal.FormaActiva());
    QCOMPARE(Titulo(folios, u"anoaprobacion"_s), u"Año aprobación"_s);
    const QModelIndex ocupados =
        folios->modelo()->index(0, folios->modelo()->ColumnaDe(u"ocupados"_s));
    QVERIFY(ocupados.column() == 3 &&
            ocupados.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    testing::SaveShot(&principal, u"navegador_folios_mdi"_s);
  }

  // The count guard: exactly 200,000 rows are all shown; one more and the grid stops there.
  void LimiteDeFilas() {
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany company(engine);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY(company.ok());
    Connection c(company.cadena());
    QVERIFY(testing::Escribir(c, u"create table muchas (id integer not null)"_s));
    QVERIFY(testing::Escribir(
        c, company.sql()
               ? u"insert into muchas select g from generate_series(1, 200000) g"_s
               : QStringLiteral("insert into muchas with recursive s(g) as (select 1 union all "
                                "select g + 1 from s where g < 200000) select g from s")));
    Session session = company.MakeSession();
    mBrowse::Consulta consulta;
    consulta.sentencia = u"select * from muchas"_s;
    consulta.llave = {u"id"_s};
    consulta.llave_unica = true;
    const std::vector<mBrowse::ColumnaVista> columnas = {{u"id"_s, mBrowse::kTipoEntero32}};
    // Big pages: the guard, not the paging, is under test here.
    ModeloVista modelo(session, nullptr, 25000);
    QVERIFY(modelo.Cargar(consulta, columnas).ok);
    QCOMPARE(modelo.limite(), qint64(200000));
    modelo.AsegurarFila(199999);
    QCOMPARE(modelo.rowCount(), 200000);
    QCOMPARE(modelo.Valor(199999, 0).toInt(), 200000);
    QVERIFY(!modelo.canFetchMore());

    QVERIFY(testing::Escribir(c, u"insert into muchas (id) values (200001)"_s));
    QVERIFY(modelo.Recargar().ok);
    QCOMPARE(modelo.filas_totales(), qint64(200001));
    QCOMPARE(modelo.limite(), qint64(200000));
    modelo.AsegurarFila(200000);
    QCOMPARE(modelo.rowCount(), 200000);
    QCOMPARE(modelo.Valor(199999, 0).toInt(), 200000);
    QVERIFY(!modelo.canFetchMore());
  }

 private:
  QTemporaryDir settings_;
};

QTEST_MAIN(TestNavegador)
#include "tst_navegador.moc"
