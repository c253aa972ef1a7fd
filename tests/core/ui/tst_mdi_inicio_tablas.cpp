// The look-up list as a clerk uses it from a field's F1: the clients appear with their
// captions and formatted balances, F4 asks for part of a name and narrows the list, Enter or a
// double click takes the row's number, Esc leaves with nothing, and the discount code of a
// credit note needs no list at all.
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QTest>

#include "core/ayuda.h"
#include "core/database.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/mdi_inicio_tablas.h"
#include "support/document_rows.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ModalCatcher;

namespace {

bool Clientes(const Session& session) {
  Connection c(session.Cadena);
  const QList<QPair<int, QString>> clientes{{1, u"FERRETERIA LA PALMA"_s},
                                            {2, u"RAMIREZ Y HNOS"_s},
                                            {3, u"PLOMERIA DEL CENTRO"_s},
                                            {10, u"MATERIALES RAMOS"_s}};
  for (const auto& [numero, nombre] : clientes) {
    const QVariantMap fila{{u"numero"_s, numero},
                           {u"nombre"_s, nombre},
                           {u"rfc"_s, u"XAXX010101000"_s},
                           {u"tipo"_s, u"CONTADO"_s},
                           {u"saldo"_s, numero * 1234.5}};
    if (!testing::InsertarFila(c, u"clientes"_s, fila)) return false;
  }
  return true;
}

// The look-up of `clave` over the clients, shown and exposed as the clerk sees it.
struct Abierta {
  Abierta(Session& session, const QString& clave)
      : dialogo(session, *ayuda::Peticion(session, clave)) {
    dialogo.show();
    expuesta = QTest::qWaitForWindowExposed(&dialogo);
    lista = dialogo.findChild<QTableView*>(QStringLiteral("Fg1"));
  }
  QString Celda(int fila, int columna) const {
    return lista->model()->index(fila, columna).data().toString();
  }
  MDIInicioTablas dialogo;
  QTableView* lista = nullptr;
  bool expuesta = false;
};

}  // namespace

class TestMdiInicioTablas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // F4 with "ram" leaves the two clients whose name holds it; Down and Enter take the second.
  void BuscarPorNombreYElegir() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Clientes(session));
    Abierta a(session, u"clientes"_s);
    QVERIFY(a.expuesta && a.lista != nullptr);
    QCOMPARE(a.dialogo.windowTitle(), u"Clientes"_s);
    QCOMPARE(a.lista->model()->headerData(0, Qt::Horizontal).toString(), u"Número <F2>"_s);
    QCOMPARE(a.lista->model()->headerData(2, Qt::Horizontal).toString(), u"Rfc <F3>"_s);
    QCOMPARE(a.dialogo.filas(), 4);
    QCOMPARE(a.Celda(3, 4), u"12,345.00"_s);
    QVERIFY(a.lista->model()->index(3, 4).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);

    ModalCatcher catcher({{u"ram"_s}});
    QTest::keyClick(a.lista, Qt::Key_F4);
    QCOMPARE(catcher.texts, QStringList{u"Nombre del cliente a buscar\n* = TODOS"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(a.dialogo.filas(), 2);
    QCOMPARE(a.Celda(1, 1), u"MATERIALES RAMOS"_s);
    QCOMPARE(a.dialogo.findChild<QLabel*>(u"Teclas"_s)->text().left(11), u"2 registros"_s);
    testing::SaveShot(&a.dialogo, u"mdi_inicio_tablas"_s);

    QTest::keyClick(a.lista, Qt::Key_Down);
    QTest::keyClick(a.lista, Qt::Key_Return);
    QCOMPARE(a.dialogo.result(), int(QDialog::Accepted));
    QCOMPARE(a.dialogo.resultado(), u"10"_s);
  }

  // A cancelled prompt keeps the list; a number finds its client; "*" brings all back; a key
  // that searches nothing here opens no prompt; a double click takes the row under the pointer.
  void BuscarPorNumeroTodosYDobleClic() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Clientes(session));
    Abierta a(session, u"CLIENTES"_s);
    QVERIFY(a.expuesta);
    ModalCatcher catcher({{u"3"_s, false}, {u"3"_s}, {u"*"_s}});
    QTest::keyClick(a.lista, Qt::Key_F2);
    QCOMPARE(a.dialogo.filas(), 4);
    QTest::keyClick(a.lista, Qt::Key_F2);
    QCOMPARE(a.dialogo.filas(), 1);
    QCOMPARE(a.Celda(0, 1), u"PLOMERIA DEL CENTRO"_s);
    QTest::keyClick(a.lista, Qt::Key_F3);
    QCOMPARE(a.dialogo.filas(), 4);
    QCOMPARE(catcher.texts.value(0), u"Numero de cliente a buscar\n* = TODOS"_s);
    QCOMPARE(catcher.texts.value(2), u"Rfc del cliente a buscar\n* = TODOS"_s);

    Abierta bancos(session, u"BANCOS"_s);
    QTest::keyClick(bancos.lista, Qt::Key_F2);
    QCOMPARE(catcher.texts.size(), 3);
    bancos.dialogo.hide();

    // A real double click: the first click, then the second that the view reads as double.
    const QRect celda = a.lista->visualRect(a.lista->model()->index(1, 1));
    QTest::mouseClick(a.lista->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(a.lista->viewport(), Qt::LeftButton, {}, celda.center());
    QCOMPARE(a.dialogo.result(), int(QDialog::Accepted));
    QCOMPARE(a.dialogo.resultado(), u"2"_s);
  }

  // From a field: Enter takes the first client, Esc leaves nothing behind.
  void AbrirAyudaDesdeUnCampo() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Clientes(session));
    ModalCatcher catcher({{QString(), true}, {QString(), false}});
    QCOMPARE(AbrirAyuda(session, u"Clientes"_s, nullptr), u"1"_s);
    QCOMPARE(catcher.texts, QStringList{u"MDIInicioTablas"_s});
    QCOMPARE(catcher.titles, QStringList{u"Clientes"_s});
    QCOMPARE(AbrirAyuda(session, u"CLIENTES"_s, nullptr), QString());
    QCOMPARE(catcher.texts.size(), 2);
  }

  // The discount row's code comes back at once; an unknown keyword opens nothing; a statement
  // the database refuses shows its error as a stop and leaves an empty list.
  void SinListaYSentenciaRechazada() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    ModalCatcher catcher;
    ayuda::ParametrosAyuda parametros;
    parametros.codigo = u"dppp"_s;
    QCOMPARE(AbrirAyuda(session, u"PRODUCTOS"_s, nullptr, parametros), u"DPPP"_s);
    QCOMPARE(AbrirAyuda(session, u"NADA"_s, nullptr), QString());
    QTest::qWait(60);
    QVERIFY(catcher.texts.isEmpty());

    ayuda::PeticionAyuda peticion = *ayuda::Peticion(session, u"CLIENTES"_s);
    peticion.sentencia = u"select numero from nada"_s;
    MDIInicioTablas dialogo(session, peticion);
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Critical});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(dialogo.filas(), 0);
  }
};

QTEST_MAIN(TestMdiInicioTablas)
#include "tst_mdi_inicio_tablas.moc"
