// A purchase order and a supplier credit note typed on the capture screen, on the demo
// company and both engines: the order left pending, the note lowering the purchase it names.
#include <cmath>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "catalogs/ui/pantallas_prueba.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "purchasing/compras_por_pagar.h"
#include "purchasing/ui/pantallas_proveedor.h"
#include "sales/ui/captura_prueba.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Capturar;
using ventarix::testing::EnCelda;
using ventarix::testing::Valor;
using R = RejillaCaptura;

class TestPantallasProveedor : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Supplier 1 is asked for 4 of 1-00001: the order waits 'POR SURTIR' for all 4. Then one unit
  // of his purchase C-1 (owing 100) goes back on a credit note: C-1 owes 100 less the note.
  void OrdenYNotaDelProveedor() {
    const auto e = testing::EmpresaDemoCon([](Connection& c) {
      return testing::InsertarCompras(c, {}, {{u"C-1"_s, 1, 100, QDate(2026, 10, 5)}});
    });
    if (!e) return;
    Session session = e->s;
    {
      FormaCaptura orden(session, compras_ui::OrdenesCompra(), false, QString());
      QVERIFY(testing::Mostrar(orden));
      QCOMPARE(orden.objectName(), u"FrmOrdenesCompraA"_s);
      QTRY_VERIFY(testing::Foco() != nullptr);
      Capturar({u"1"_s, QString(), u"cotizacion 55"_s, u"surtir en una semana"_s});
      EnCelda(orden.rejilla(), u"1-00001"_s);
      EnCelda(orden.rejilla(), u"4"_s);
      testing::SaveShot(&orden, u"frm_ordenes_compra_a"_s);
      testing::Guardar(orden);
      QCOMPARE(orden.result(), int(QDialog::Accepted));
    }
    const QString llave = session.OrdenActual;
    QVERIFY(llave.startsWith(session.SerieOrdenesCompra + u'-'));
    QCOMPARE(Valor(session, u"select status from \"ordenes de compra\" where orden = ?"_s, {llave})
                 .toString(),
             u"POR SURTIR"_s);
    QCOMPARE(Valor(session, u"select surtir from \"ordenes de compra detalles\" where orden = ?"_s,
                   {llave})
                 .toDouble(),
             4.0);

    FormaCaptura nota(session, compras_ui::NotasProveedor(), false, QString());
    QVERIFY(testing::Mostrar(nota));
    QTRY_VERIFY(testing::Foco() != nullptr);
    Capturar({u"1"_s, u"nc-5"_s, u"devolucion de una pieza"_s});
    EnCelda(nota.rejilla(), u"1-00001"_s);
    EnCelda(nota.rejilla(), u"1"_s);
    {
      // The button Compra asks the purchase the goods came with.
      testing::ModalCatcher catcher({{.input = u"c-1"_s}});
      auto* boton = nota.findChild<QPushButton*>(u"Compra"_s);
      boton->setFocus();
      QTest::keyClick(boton, Qt::Key_Return);
      QTRY_COMPARE(catcher.pending(), 0);
    }
    QCOMPARE(nota.rejilla()->Partida(0).value(u"compra"_s).toString(), u"C-1"_s);
    testing::SaveShot(&nota, u"frm_notas_proveedor_a"_s);
    testing::Guardar(nota);
    QCOMPARE(nota.result(), int(QDialog::Accepted));
    const double total = Valor(session, u"select total from \"notas proveedor\" where nota = ?"_s,
                               {session.NotaActual})
                             .toDouble();
    QVERIFY(total > 0);
    QCOMPARE(Valor(session, u"select saldo from compras where compra = 'C-1'"_s).toDouble(),
             std::round((100 - total) * 100) / 100);  // a balance keeps two places
  }
};

QTEST_MAIN(TestPantallasProveedor)
#include "tst_pantallas_proveedor.moc"
