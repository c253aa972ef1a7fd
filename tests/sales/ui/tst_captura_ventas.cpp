// The capture screens of the sales documents as a clerk uses them from the keyboard, on the
// demo company and both engines: a delivery note captured from its browser (one price taken
// from the price list with F1) and opened again, a credit note refused over the client's
// limit, and an order partly filled by a note.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/passwords.h"
#include "core/session_load.h"
#include "core/ui/browse_model.h"
#include "core/ui/campo_captura.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/navegador.h"
#include "documents/ui/rejilla_captura.h"
#include "sales/ui/captura_prueba.h"
#include "sales/ui/frm_ventas.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::AlAbrirse;
using ventarix::testing::Capturar;
using ventarix::testing::EnCelda;
using ventarix::testing::Foco;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;
using ventarix::testing::Valor;
using R = RejillaCaptura;

namespace {

double Existencia(const Session& s, const QString& codigo) {
  return Valor(s, u"select almacen1 from productos where codigo = ?"_s, {codigo}).toDouble();
}

QString Etiqueta(const QWidget& forma, const QString& nombre) {
  return forma.findChild<QLabel*>(nombre)->text();
}

// Runs `paso` on the modal window named `nombre` as soon as it is up, whatever opens first.
template <typename Paso>
void CuandoAparezca(const QString& nombre, Paso paso) {
  auto* espera = new QTimer;
  espera->setInterval(10);
  QObject::connect(espera, &QTimer::timeout, [espera, nombre, paso] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal->objectName() != nombre || !modal->isVisible()) return;
    espera->stop();
    espera->deleteLater();
    paso(modal);
  });
  espera->start();
}

}  // namespace

class TestCapturaVentas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Insert in the browser, client 2, three codes (the third by its bar code) with their
  // quantities, the first priced at level 3 from the list; the note is in the browser with
  // its total, stock fell by the quantities, and Enter opens it again in the change screen.
  void RemisionDesdeElNavegador() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QStringList codigos = {u"1-00001"_s, u"1-00002"_s, u"1-00003"_s};
    const QList<double> cantidades = {3, 2, 1};
    QList<double> antes;
    for (const QString& codigo : codigos) antes << Existencia(session, codigo);
    const double precio3 =
        Valor(session, u"select precio3 from productos where codigo = ?"_s, {codigos[0]})
            .toDouble();
    const QString barras =
        Valor(session, u"select codigo1 from productos where codigo = ?"_s, {codigos[2]})
            .toString();

    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador =
        new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmRemisiones"_s), registry);
    QVERIFY(Mostrar(*navegador));
    QString total_en_pantalla;
    AlAbrirse([&](QWidget* modal) {
      auto* alta = qobject_cast<FormaCaptura*>(modal);
      QVERIFY(alta != nullptr);
      QCOMPARE(alta->objectName(), u"FrmRemisionesA"_s);
      QCOMPARE(alta->windowTitle(), u"REMISIONES - ALTAS"_s);
      QCOMPARE(Etiqueta(*alta, u"Status"_s), u"POR FACTURAR"_s);
      Capturar({u"2"_s, QString(), QString(), QString(), u"mostrador"_s});
      auto* grid = alta->rejilla();
      QCOMPARE(Foco(), grid);
      EnCelda(grid, codigos[0]);
      QCOMPARE(grid->currentColumn(), grid->Col(R::kCantidad));
      EnCelda(grid, u"3"_s);
      QCOMPARE(grid->currentColumn(), grid->Col(R::kPrecio));
      // F1 on the price: Venta, Precio 1, 2, 3 ... Down three times takes level 3.
      AlAbrirse([](QWidget* lista) {
        QCOMPARE(lista->objectName(), u"ListaDePrecios"_s);
        testing::SaveShot(lista, u"lista_de_precios"_s);
        QWidget* tabla = lista->focusWidget();
        for (int i = 0; i < 3; ++i) QTest::keyClick(tabla, Qt::Key_Down);
        QTest::keyClick(tabla, Qt::Key_Return);
      });
      QTest::keyClick(grid, Qt::Key_F1);
      QCOMPARE(grid->Numero(0, R::kPrecio), precio3);
      QTRY_COMPARE(Foco(), grid);
      QTest::keyClick(grid, Qt::Key_Return);
      EnCelda(grid, codigos[1]);
      EnCelda(grid, u"2"_s);
      QTest::keyClick(grid, Qt::Key_Return);
      EnCelda(grid, barras);
      QCOMPARE(grid->Codigo(2), codigos[2]);
      EnCelda(grid, u"1"_s);
      QCOMPARE(grid->Numero(0, R::kImporte), 3 * precio3);
      total_en_pantalla = Etiqueta(*alta, u"Total"_s);
      QVERIFY(Etiqueta(*alta, u"Msg1"_s).isEmpty());
      testing::SaveShot(alta, u"frm_remisiones_a"_s);
      Guardar(*alta);
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Insert);

    const QString llave = session.RemisionActual;
    QVERIFY(llave.startsWith(session.SerieRemisiones + u'-'));
    const double total =
        Valor(session, u"select total from remisiones where remision = ?"_s, {llave}).toDouble();
    QVERIFY(total > 0);
    QCOMPARE(total_en_pantalla, QLocale(QLocale::English).toString(total, 'f', 2));
    const ModeloVista* modelo = navegador->modelo();
    const int fila = navegador->grid()->currentIndex().row();
    QCOMPARE(modelo->Valor(fila, modelo->ColumnaDe(u"remision"_s)).toString(), llave);
    QCOMPARE(modelo->Valor(fila, modelo->ColumnaDe(u"total"_s)).toDouble(), total);
    for (int i = 0; i < codigos.size(); ++i) {
      QCOMPARE(Existencia(session, codigos[i]), antes[i] - cantidades[i]);
    }
    testing::SaveShot(navegador, u"navegador_remisiones"_s);

    AlAbrirse([&](QWidget* modal) {
      auto* cambio = qobject_cast<FormaCaptura*>(modal);
      QVERIFY(cambio != nullptr);
      QCOMPARE(cambio->objectName(), u"FrmRemisionesC"_s);
      QCOMPARE(cambio->findChild<CampoCaptura*>(u"Numero"_s)->text(), u"2"_s);
      QCOMPARE(cambio->rejilla()->Codigo(2), codigos[2]);
      // The stock shown is what is there once this note is undone.
      QCOMPARE(cambio->rejilla()->Numero(0, R::kExistencia), antes[0]);
      QVERIFY(cambio->findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
      testing::SaveShot(cambio, u"frm_remisiones_c"_s);
      cambio->reject();
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Return);
    navegador->close();
  }

  // Client 2 may owe 10,000: with Plazo 30 a note of 200 units flashes the warning and
  // Guardar shows it; nothing is written.
  void RemisionSobreElLimiteDeCredito() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const int notas = Valor(session, u"select count(*) from remisiones"_s).toInt();
    FrmRemisionesA alta(session, QString());
    QVERIFY(Mostrar(alta));
    Capturar({u"2"_s, QString(), u"30"_s, QString(), u"mostrador"_s});
    EnCelda(alta.rejilla(), u"1-00001"_s);
    EnCelda(alta.rejilla(), u"200"_s);
    QCOMPARE(Etiqueta(alta, u"Msg1"_s), u"Límite de crédito excedido ! ! !"_s);
    QVERIFY(alta.findChild<QTimer*>(u"Timer"_s)->isActive());
    testing::SaveShot(&alta, u"frm_remisiones_a_credito"_s);
    {
      ModalCatcher catcher;
      Guardar(alta);
      QCOMPARE(catcher.texts, QStringList{u"Límite de crédito excedido ! ! !"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QVERIFY(alta.isVisible());
    QCOMPARE(Valor(session, u"select count(*) from remisiones"_s).toInt(), notas);
  }

  // The view's security line 1 asks the manager's password as the last check of a new note:
  // Esc leaves the note on the screen unsaved, the right password saves it.
  void ContrasenaDelGerenteAlGuardar() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    session.ContrasenaGerente = passwords::Hash(u"JEFE"_s);
    QVERIFY(mBrowse::ObtenerVista(session, u"remisiones"_s).outcome);
    {
      Connection c(session.Cadena);
      Transaction t(c);
      QVERIFY(c.Run(u"update tablas set seguridad = ? where tabla = ?"_s,
                    {u"1|Nuevo|1|x|0"_s, u"remisiones"_s}));
      QVERIFY(t.Commit());
    }
    const int notas = Valor(session, u"select count(*) from remisiones"_s).toInt();
    FrmRemisionesA alta(session, QString());
    QVERIFY(Mostrar(alta));
    Capturar({u"2"_s, QString(), QString(), QString(), u"mostrador"_s});
    EnCelda(alta.rejilla(), u"1-00001"_s);
    {
      ModalCatcher catcher({{.input = u"x"_s, .accept = false}});
      Guardar(alta);
      QCOMPARE(catcher.texts, QStringList{u"MDIInicioAutorizacion"_s});
    }
    QVERIFY(alta.isVisible());
    QCOMPARE(Valor(session, u"select count(*) from remisiones"_s).toInt(), notas);
    ModalCatcher catcher({{.input = u"jefe"_s}});
    Guardar(alta);
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select count(*) from remisiones"_s).toInt(), notas + 1);
  }

  // The description cell's button opens the long-text dialog: two lines typed there go back
  // to the row in upper case, line break kept; Cancelar leaves the row as it was.
  void DescripcionLarga() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    FrmRemisionesA alta(session, QString());
    QVERIFY(Mostrar(alta));
    Capturar({u"2"_s, QString(), QString(), QString(), u"mostrador"_s});
    R* grid = alta.rejilla();
    EnCelda(grid, u"1-00001"_s);
    const QString original = grid->Partida(0).value(u"descripcion"_s).toString();
    QVERIFY(!original.isEmpty());
    for (const bool aceptar : {false, true}) {
      alta.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&alta));
      grid->setFocus();
      grid->setCurrentCell(0, grid->Col(R::kDescripcion));
      QTest::keyClick(grid, Qt::Key_F2);
      auto* editor = qobject_cast<QLineEdit*>(Foco());
      QVERIFY(editor != nullptr);
      AlAbrirse([aceptar](QWidget* dialogo) {
        QCOMPARE(dialogo->objectName(), u"TextoLargo"_s);
        QTest::keyClick(Foco(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(Foco(), u"martillo de acero"_s);
        QTest::keyClick(Foco(), Qt::Key_Return);
        QTest::keyClicks(Foco(), u"mango de fibra"_s);
        if (aceptar) testing::SaveShot(dialogo, u"texto_largo"_s);
        dialogo->findChild<QPushButton*>(aceptar ? u"Aceptar"_s : u"Cancelar"_s)->click();
      });
      editor->findChild<QAction*>(u"TextoLargo"_s)->trigger();
      QTest::keyClick(editor, Qt::Key_Return);
      QCoreApplication::processEvents();
      const QString descripcion = grid->Partida(0).value(u"descripcion"_s).toString();
      QCOMPARE(descripcion, aceptar ? u"MARTILLO DE ACERO\nMANGO DE FIBRA"_s : original);
    }
  }

  // On a stored note's change screen: rows pasted from a spreadsheet (heading and unknown
  // code dropped), a discount for every row by its button, then Ctrl+Z takes back the
  // discount and the paste one by one and redo brings the paste again.
  void PegarDescontarDeshacer() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QString llave =
        Valor(session, u"select min(remision) from remisiones where status = 'POR FACTURAR'"_s)
            .toString();
    FrmRemisionesC cambio(session, llave);
    QVERIFY(Mostrar(cambio));
    R* grid = cambio.rejilla();
    const std::vector<QVariantMap> guardadas = grid->Partidas();
    const auto filas = [grid] {
      size_t con_codigo = 0;
      for (int fila = 0; fila < grid->rowCount(); ++fila)
        con_codigo += !grid->Codigo(fila).isEmpty();
      return con_codigo;
    };
    const auto descuentos = [grid] {
      QList<double> d;
      for (const QVariantMap& p : grid->Partidas()) {
        if (!p.value(u"codigo"_s).toString().isEmpty()) d << p.value(u"dcto"_s).toDouble();
      }
      return d;
    };
    const size_t n = filas();
    QApplication::clipboard()->setText(
        u"Código\tDescripción\tUda\tCantidad\n1-00004\tx\tPZA\t2\nNO-EXISTE\t\t\t1\n"_s);
    grid->setFocus();
    grid->setCurrentCell(static_cast<int>(n), grid->Col(R::kCodigo));
    QTest::keySequence(grid, QKeySequence::Paste);
    QCOMPARE(filas(), n + 1);
    QCOMPARE(grid->Codigo(static_cast<int>(n)), u"1-00004"_s);
    QCOMPARE(grid->Numero(static_cast<int>(n), R::kCantidad), 2.0);
    auto* boton = cambio.findChild<QPushButton*>(u"AplicarDescuento"_s);
    boton->setFocus();
    {
      ModalCatcher catcher({{.input = u"10"_s}});
      QTest::keyClick(boton, Qt::Key_Return);
      QCOMPARE(catcher.texts, QStringList{u"Aplicar descuento %"_s});
    }
    QCOMPARE(descuentos(), QList<double>(static_cast<qsizetype>(n + 1), 10.0));
    QTest::keySequence(&cambio, QKeySequence::Undo);
    QCOMPARE(filas(), n + 1);
    QVERIFY(descuentos() != QList<double>(static_cast<qsizetype>(n + 1), 10.0));
    QTest::keySequence(&cambio, QKeySequence::Undo);
    QVERIFY(grid->Partidas() == guardadas);
    QTest::keySequence(&cambio, QKeySequence::Redo);
    QCOMPARE(filas(), n + 1);
    QCOMPARE(grid->Codigo(static_cast<int>(n)), u"1-00004"_s);
  }

  // An order of 5 is brought into a note with its button and only 2 are delivered: the
  // order shows BACKORDER with 3 still to deliver.
  void PedidoSurtidoEnParte() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    // A client with no order pending in the demo's history, so the look-up offers only this one.
    const QString cliente =
        Valor(session,
              u"select min(numero) from clientes c where numero > 1 and not exists "
              u"(select 1 from pedidos p where p.cliente = c.numero and p.status in "
              u"('POR SURTIR', 'BACKORDER'))"_s)
            .toString();
    QVERIFY(!cliente.isEmpty());
    {
      FrmPedidosA pedido(session, QString());
      QVERIFY(Mostrar(pedido));
      QCOMPARE(pedido.rejilla()->Col(R::kCantidad), 5);
      QCOMPARE(pedido.rejilla()->Col(R::kImpuesto), 11);
      Capturar({cliente, QString(), QString(), u"oc-77"_s, u"entrega en obra"_s});
      EnCelda(pedido.rejilla(), u"1-00001"_s);
      EnCelda(pedido.rejilla(), u"5"_s);
      QCOMPARE(pedido.rejilla()->Numero(0, R::kSurtir), 5.0);
      testing::SaveShot(&pedido, u"frm_pedidos_a"_s);
      Guardar(pedido);
      QCOMPARE(pedido.result(), int(QDialog::Accepted));
    }
    const QString llave = session.PedidoActual;
    QVERIFY(llave.startsWith(session.SeriePedidos + u'-'));
    QCOMPARE(Valor(session, u"select status from pedidos where pedido = ?"_s, {llave}).toString(),
             u"POR SURTIR"_s);
    {
      FrmRemisionesA nota(session, QString());
      QVERIFY(Mostrar(nota));
      QTRY_VERIFY(Foco() != nullptr);
      Capturar({cliente, QString(), QString(), QString(), u"primera entrega"_s});
      auto* boton = nota.findChild<QPushButton*>(u"AplicarPedido"_s);
      boton->setFocus();
      {
        ModalCatcher catcher({ModalCatcher::Reply{}});
        QTest::keyClick(boton, Qt::Key_Return);
        QTRY_COMPARE(catcher.pending(), 0);
      }
      QTRY_COMPARE(Foco(), nota.rejilla());
      QCOMPARE(nota.rejilla()->Partida(0).value(u"pedido"_s).toString(), llave);
      QCOMPARE(nota.rejilla()->Numero(0, R::kCantidad), 5.0);
      EnCelda(nota.rejilla(), u"2"_s);
      Guardar(nota);
      QCOMPARE(nota.result(), int(QDialog::Accepted));
    }
    QCOMPARE(Valor(session, u"select status from pedidos where pedido = ?"_s, {llave}).toString(),
             u"BACKORDER"_s);
    QCOMPARE(Valor(session, u"select surtir from \"pedidos detalles\" where pedido = ?"_s, {llave})
                 .toDouble(),
             3.0);
    FrmPedidosC cambio(session, llave);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(Etiqueta(cambio, u"Status"_s), u"BACKORDER"_s);
    QVERIFY(!cambio.findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
    testing::SaveShot(&cambio, u"frm_pedidos_c"_s);
    FrmCotizacionesA cotizacion(session, QString());
    QVERIFY(Mostrar(cotizacion));
    testing::SaveShot(&cotizacion, u"frm_cotizaciones_a"_s);
  }
  // A code not found, answered Yes, opens the product screen on that code over the note.
  void CodigoNuevoAbreElProducto() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    FormRegistry registry;
    RegistrarFormularios(registry);
    MDIInicio ventana(session, registry);
    ventana.show();
    QString pregunta;
    QString codigo_en_pantalla;
    AlAbrirse([&](QWidget* modal) {
      auto* alta = qobject_cast<FormaCaptura*>(modal);
      QVERIFY(alta != nullptr);
      Capturar({u"2"_s, QString(), QString(), QString(), u"mostrador"_s});
      CuandoAparezca(u"FrmProductosA"_s, [&](QWidget* producto) {
        codigo_en_pantalla = producto->findChild<CampoCaptura*>(u"Codigo"_s)->text();
        testing::SaveShot(producto, u"frm_productos_a_desde_remision"_s);
        qobject_cast<QDialog*>(producto)->reject();
      });
      auto* espera = new QTimer(alta);
      espera->setInterval(10);
      QObject::connect(espera, &QTimer::timeout, [&pregunta, espera] {
        auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (caja == nullptr || !caja->isVisible()) return;
        espera->stop();
        pregunta = caja->text();
        caja->button(QMessageBox::Yes)->click();
      });
      espera->start();
      EnCelda(alta->rejilla(), u"ZZ-NUEVO"_s);
      QTRY_VERIFY(!codigo_en_pantalla.isEmpty());
      alta->reject();
    });
    ventana.Abrir(u"FrmRemisionesA"_s);
    QCOMPARE(pregunta, u"Este código no existe en productos\n\nAgregar código ? "_s);
    QCOMPARE(codigo_en_pantalla, u"ZZ-NUEVO"_s);
  }
  // F8 unlocks the folio of a new note; a folio typed there gives way to the serie's next one.
  void FolioDesbloqueadoConF8() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const int siguiente = Valor(session, u"select max(folio) from remisiones where serie = ?"_s,
                                {session.SerieRemisiones})
                              .toInt() +
                          1;
    FrmRemisionesA alta(session, QString());
    QVERIFY(Mostrar(alta));
    QWidget* cliente = Foco();
    auto* folio = alta.findChild<CampoCaptura*>(u"Datos0"_s);
    QVERIFY(folio->isReadOnly());
    QTest::keyClick(cliente, Qt::Key_F8);
    QCOMPARE(Foco(), folio);
    QVERIFY(!folio->isReadOnly());
    QTest::keyClicks(folio, u"9"_s);
    cliente->setFocus();
    Capturar({u"2"_s, QString(), QString(), QString(), u"mostrador"_s});
    EnCelda(alta.rejilla(), u"1-00001"_s);
    EnCelda(alta.rejilla(), u"1"_s);
    Guardar(alta);
    QCOMPARE(session.RemisionActual, session.SerieRemisiones + u'-' + QString::number(siguiente));
  }
};

QTEST_MAIN(TestCapturaVentas)
#include "tst_captura_ventas.moc"
