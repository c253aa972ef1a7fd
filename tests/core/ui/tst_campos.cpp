// The capture fields as a clerk meets them on every form: the field with the focus takes the
// session's colour and its text is selected, amounts show their decimals on leaving, Enter and
// the arrows walk through the fields, Esc and F1 ask the form, a client's number brings its
// name and its row, and a code searched in a grid is marked and counted.
#include <QFormLayout>
#include <QLabel>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include "core/database.h"
#include "core/ui/buscar_en_grid.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/formato_moneda.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::ModalCatcher;

namespace {

// A small document header: client, reference in upper case, e-mail in lower case, price with
// 2 decimals, quantity with 3, cost with 4, and a grid of rows.
struct Forma {
  explicit Forma(const Session& session)
      : cliente(new CampoCatalogo(session, Catalogo::kClientes, &widget)),
        referencia(new CampoCaptura(session, &widget)),
        correo(new CampoCaptura(session, &widget)),
        precio(new CampoCaptura(session, &widget)),
        cantidad(new CampoCaptura(session, &widget)),
        costo(new CampoCaptura(session, &widget)),
        grid(new QTableWidget(3, 2, &widget)) {
    widget.setWindowTitle(u"Remisiones"_s);
    referencia->setMayusculas();
    correo->setMinusculas();
    precio->setDecimales(2);
    cantidad->setDecimales(3);
    costo->setDecimales(4);
    auto* layout = new QFormLayout(&widget);
    layout->addRow(u"Cliente"_s, cliente);
    layout->addRow(u"Referencia"_s, referencia);
    layout->addRow(u"Correo"_s, correo);
    layout->addRow(u"Precio"_s, precio);
    layout->addRow(u"Cantidad"_s, cantidad);
    layout->addRow(u"Costo"_s, costo);
    layout->addRow(grid);
    grid->setHorizontalHeaderLabels({u"Código"_s, u"Descripción"_s});
    const QStringList codigos = {u"TOR-1/4"_s, u"RON-3/8"_s, u"tor-1/2"_s};
    const QStringList descripciones = {u"TORNILLO 1/4"_s, u"RONDANA 3/8"_s, u"TORNILLO 1/2"_s};
    for (int fila = 0; fila < 3; ++fila) {
      grid->setItem(fila, 0, new QTableWidgetItem(codigos[fila]));
      grid->setItem(fila, 1, new QTableWidgetItem(descripciones[fila]));
    }
    widget.resize(560, 360);
  }

  bool Mostrar() {
    widget.show();
    widget.activateWindow();
    return QTest::qWaitForWindowActive(&widget);
  }

  QWidget widget;
  CampoCatalogo* cliente;
  CampoCaptura* referencia;
  CampoCaptura* correo;
  CampoCaptura* precio;
  CampoCaptura* cantidad;
  CampoCaptura* costo;
  QTableWidget* grid;
};

bool AgregarCliente(const QString& cadena, int numero, const QString& nombre) {
  Connection c(cadena);
  QString error;
  const bool ok = testing::Escribir(
      c,
      u"insert into clientes (numero, nombre, rfc, plazo, credito, saldo, agente, metodo) "
      "values (?, ?, ?, 30, 25000, 1500.5, 2, 1)"_s,
      {numero, nombre, u"FOH850101AB1"_s}, &error);
  if (!ok) qWarning("%s", qPrintable(error));
  return ok;
}

}  // namespace

class TestCampos : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }

  // The field with the focus is painted and its text selected; the one left gets its colour
  // back. Enter and Down go forward, Up back.
  void FocoYMovimiento() {
    Session session;
    session.ColorFondo = 0xC0FFC0;
    Forma forma(session);
    QVERIFY(forma.Mostrar());
    const QColor normal = forma.referencia->palette().color(QPalette::Base);
    forma.precio->setText(u"15"_s);

    forma.referencia->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(forma.referencia, u"pedido 7"_s);
    QCOMPARE(forma.referencia->text(), u"PEDIDO 7"_s);
    QCOMPARE(forma.referencia->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xC0));
    QTest::keyClick(forma.referencia, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), forma.correo);
    QCOMPARE(forma.referencia->palette().color(QPalette::Base), normal);
    QTest::keyClick(forma.correo, Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), forma.precio);
    QCOMPARE(forma.precio->selectedText(), u"15"_s);
    QCOMPARE(forma.precio->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xC0));
    QTest::keyClick(forma.precio, Qt::Key_Up);
    QCOMPARE(forma.precio->text(), u"15.00"_s);
    QTest::keyClick(forma.correo, Qt::Key_Up);
    QCOMPARE(QApplication::focusWidget(), forma.referencia);
    QCOMPARE(forma.referencia->selectedText(), u"PEDIDO 7"_s);

    // A click also selects the whole text, so that typing replaces it.
    QTest::mouseClick(forma.cantidad, Qt::LeftButton);
    QTest::qWait(20);
    QCOMPARE(QApplication::focusWidget(), forma.cantidad);
    QTest::keyClicks(forma.cantidad, u"4"_s);
    QTest::mouseClick(forma.cantidad, Qt::LeftButton);
    QTest::qWait(20);
    QCOMPARE(forma.cantidad->text(), u"4"_s);
  }

  // Whatever is typed in an amount shows with the field's decimals when the focus leaves, and
  // reads back as the number.
  void NumerosAlSalir() {
    Session session;
    Forma forma(session);
    QVERIFY(forma.Mostrar());
    forma.precio->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(forma.precio, u"1,234.5"_s);
    QTest::keyClick(forma.precio, Qt::Key_Return);
    QTest::keyClicks(forma.cantidad, u"2.5.1"_s);
    QTest::keyClick(forma.cantidad, Qt::Key_Return);
    QTest::keyClicks(forma.costo, u"abc"_s);
    QTest::keyClick(forma.costo, Qt::Key_Up);
    QCOMPARE(forma.precio->text(), u"1,234.50"_s);
    QCOMPARE(forma.precio->Numero(), 1234.5);
    QCOMPARE(forma.cantidad->text(), u"2.510"_s);
    QCOMPARE(forma.costo->text(), u"0.0000"_s);
    forma.costo->setNumero(-0.12345);
    QCOMPARE(forma.costo->text(), u"-0.1235"_s);

    // An e-mail keeps to lower case as typed; a text field is never reformatted.
    forma.correo->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(forma.correo, u"Ventas@Ferre.MX"_s);
    QTest::keyClick(forma.correo, Qt::Key_Return);
    QCOMPARE(forma.correo->text(), u"ventas@ferre.mx"_s);
    forma.referencia->setText(u"1234.5"_s);
    forma.referencia->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(forma.referencia, Qt::Key_Return);
    QCOMPARE(forma.referencia->text(), u"1234.5"_s);

    FormatoMoneda(forma.referencia);
    QCOMPARE(forma.referencia->text(), u"1,234.50"_s);
    forma.referencia->setText(u"-"_s);
    FormatoMoneda(forma.referencia);
    QCOMPARE(forma.referencia->text(), u"0"_s);
  }

  // Esc asks the form to leave, F1 and a double click ask for the look-up; none of them moves
  // the focus or changes the text.
  void SalirYAyuda() {
    Session session;
    Forma forma(session);
    QVERIFY(forma.Mostrar());
    QSignalSpy salir(forma.referencia, &CampoCaptura::Salir);
    QSignalSpy ayuda(forma.referencia, &CampoCaptura::Ayuda);
    QSignalSpy ayuda_cliente(forma.cliente, &CampoCatalogo::Ayuda);
    forma.referencia->setText(u"ABC"_s);
    forma.referencia->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(forma.referencia, Qt::Key_Escape);
    QCOMPARE(salir.count(), 1);
    QTest::keyClick(forma.referencia, Qt::Key_F1);
    QCOMPARE(ayuda.count(), 1);
    QTest::mouseDClick(forma.referencia, Qt::LeftButton);
    QCOMPARE(ayuda.count(), 2);
    QCOMPARE(QApplication::focusWidget(), forma.referencia);
    QCOMPARE(forma.referencia->text(), u"ABC"_s);
    QTest::keyClick(forma.cliente->campo(), Qt::Key_F1);
    QCOMPARE(ayuda_cliente.count(), 1);
  }

  // A client's number brings its name beside it and hands the whole row to the document once;
  // leaving it unchanged reads nothing more; an unknown number clears the name.
  void NumeroDeCliente() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarCliente(company.cadena(), 15, u"FERRETERIA O'HIGGINS"_s));
    const Session session = company.MakeSession();
    Forma forma(session);
    QVERIFY(forma.Mostrar());
    QList<RowValues> leidos;
    connect(forma.cliente, &CampoCatalogo::ClienteLeido, this,
            [&leidos](const RowValues& fila) { leidos << fila; });

    forma.cliente->setFocus(Qt::OtherFocusReason);
    QCOMPARE(QApplication::focusWidget(), forma.cliente->campo());
    QTest::keyClicks(forma.cliente->campo(), u"15"_s);
    QTest::keyClick(forma.cliente->campo(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), forma.referencia);
    QCOMPARE(forma.cliente->nombre()->text(), u"FERRETERIA O'HIGGINS"_s);
    QCOMPARE(forma.cliente->nombre()->objectName(), u"Nombre"_s);
    QCOMPARE(leidos.size(), 1);
    QCOMPARE(leidos[0].Integer(u"numero"_s), 15);
    QCOMPARE(leidos[0].Integer(u"plazo"_s), 30);
    QCOMPARE(leidos[0].Number(u"credito"_s), 25000.0);
    QCOMPARE(leidos[0].Number(u"saldo"_s), 1500.5);
    QCOMPARE(leidos[0].Integer(u"agente"_s), 2);
    QCOMPARE(leidos[0].Text(u"rfc"_s), u"FOH850101AB1"_s);
    forma.correo->setText(u"ventas@ferre.mx"_s);
    forma.precio->setNumero(1234.5);
    forma.cantidad->setNumero(2.5);
    forma.costo->setNumero(812.3456);
    QTest::keyClicks(forma.referencia, u"pedido 7"_s);
    ventarix::testing::SaveShot(&forma.widget, u"campos"_s);

    QTest::keyClick(forma.referencia, Qt::Key_Up);
    QTest::keyClick(forma.cliente->campo(), Qt::Key_Return);
    QCOMPARE(leidos.size(), 1);

    QTest::keyClick(forma.referencia, Qt::Key_Up);
    QTest::keyClicks(forma.cliente->campo(), u"99"_s);
    QTest::keyClick(forma.cliente->campo(), Qt::Key_Down);
    QVERIFY(forma.cliente->nombre()->text().isEmpty());
    QCOMPARE(leidos.size(), 1);

    forma.cliente->setNumero(15);
    QCOMPARE(forma.cliente->nombre()->text(), u"FERRETERIA O'HIGGINS"_s);
    QCOMPARE(leidos.size(), 2);
  }

  // Two codes hold "tor" in the current column: both turn blue, the first becomes current and
  // the count is told; one hit is not told; no hit leaves the grid where it was.
  void BuscarCodigoEnGrid() {
    Session session;
    Forma forma(session);
    QVERIFY(forma.Mostrar());
    forma.grid->setCurrentCell(1, 0);
    ModalCatcher catcher;
    QCOMPARE(BuscarEnGrid(forma.grid, u"tor"_s), 2);
    QCOMPARE(catcher.texts, QStringList{u"El código TOR fué encontrado 2 veces"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(forma.grid->currentRow(), 0);
    QCOMPARE(forma.grid->item(0, 0)->foreground().color(), QColor(Qt::blue));
    QCOMPARE(forma.grid->item(2, 0)->foreground().color(), QColor(Qt::blue));
    QVERIFY(forma.grid->item(1, 0)->foreground().color() != QColor(Qt::blue));
    QVERIFY(forma.grid->item(0, 1)->foreground().color() != QColor(Qt::blue));

    QCOMPARE(BuscarEnGrid(forma.grid, u"ron-3"_s), 1);
    QCOMPARE(forma.grid->currentRow(), 1);
    QCOMPARE(forma.grid->item(1, 0)->foreground().color(), QColor(Qt::blue));
    QVERIFY(forma.grid->item(0, 0)->foreground().color() != QColor(Qt::blue));

    // The search runs in the current column only.
    forma.grid->setCurrentCell(1, 1);
    QCOMPARE(BuscarEnGrid(forma.grid, u"tor-1"_s), 0);
    QCOMPARE(forma.grid->currentRow(), 1);
    QCOMPARE(BuscarEnGrid(forma.grid, u"tornillo"_s), 2);
    QCOMPARE(forma.grid->currentColumn(), 1);
    QCOMPARE(BuscarEnGrid(forma.grid, QString()), 0);
    QTest::qWait(100);
    QCOMPARE(catcher.texts.size(), 2);
  }
};

QTEST_MAIN(TestCampos)
#include "tst_campos.moc"
