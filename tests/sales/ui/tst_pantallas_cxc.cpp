// The receivables screens as the cashier uses them from the keyboard, on the demo company and
// both engines: a receipt from the browser (F8 pays one invoice whole, an amount above the
// other's balance goes back to 0) found again by its invoice and opened in the change screen,
// and the month's small balances settled with one row taken out.
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>
#include <QTimer>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/session_load.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/ui/forma_pago.h"
#include "documents/ui/forma_saldar.h"
#include "documents/ui/rejilla_pagos.h"
#include "sales/facturas_por_cobrar.h"
#include "sales/ui/pantalla_cxc.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;
using R = RejillaPagos;

namespace {

constexpr qint32 kCliente = 9001;
constexpr qint32 kOtro = 9002;
const QDate kOctubre(2026, 10, 5);

QWidget* Foco() { return QApplication::focusWidget(); }

// Types each value into the field that has the focus and presses Enter.
void Capturar(const QStringList& valores) {
  for (const QString& valor : valores) {
    QVERIFY2(Foco() != nullptr, qPrintable(valor));
    QTest::keyClicks(Foco(), valor);
    QTest::keyClick(Foco(), Qt::Key_Return);
  }
}

QString Etiqueta(const QWidget& forma, const QString& nombre) {
  return forma.findChild<QLabel*>(nombre)->text();
}

// "status saldo" of an invoice.
QString Factura(const Session& s, const QString& factura) {
  Connection c(s.Cadena);
  QSqlQuery q = c.Exec(u"select status, saldo from facturas where factura = ?"_s, {factura});
  return q.next() ? u"%1 %2"_s.arg(q.value(0).toString()).arg(q.value(1).toDouble()) : QString();
}

// Runs `paso` on the next modal window once it is up (a screen opened by a key).
template <typename Paso>
void AlAbrirse(Paso paso) {
  QTimer::singleShot(0, [paso] {
    QWidget* modal = QApplication::activeModalWidget();
    QVERIFY(modal != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(modal));
    paso(modal);
    if (QTest::currentTestFailed()) modal->close();
  });
}

}  // namespace

class TestPantallasCxC : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Insert in the browser, client 9001: T-1 (100, the older) comes first; F8 pays it whole,
  // 80 against T-2's 50 goes back to 0. The receipt of 100 is in the browser, T-1 is paid
  // off, and Enter opens the receipt again with its one row.
  void ReciboDesdeElNavegador() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    {
      Connection c(session.Cadena);
      QVERIFY(testing::InsertarFacturas(
          c, {kCliente},
          {{u"T-2"_s, kCliente, 50, kOctubre}, {u"T-1"_s, kCliente, 100, kOctubre.addDays(-20)}}));
    }
    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador = new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmCxC"_s), registry);
    QVERIFY(Mostrar(*navegador));
    AlAbrirse([&](QWidget* modal) {
      auto* alta = qobject_cast<FormaPago*>(modal);
      QVERIFY(alta != nullptr);
      QCOMPARE(alta->objectName(), u"FrmCxCa"_s);
      QCOMPARE(Etiqueta(*alta, u"Status"_s), u"ALTA"_s);
      QTRY_VERIFY(Foco() != nullptr && alta->isAncestorOf(Foco()));
      Capturar({u"9001"_s, u"1"_s, u"1"_s, u"deposito"_s});
      R* grid = alta->rejilla();
      QCOMPARE(Foco(), grid);
      QCOMPARE(grid->rowCount(), 2);
      QCOMPARE(grid->item(0, R::kDocumento)->text(), u"T-1"_s);
      QTest::keyClick(grid, Qt::Key_F8);
      QCOMPARE(grid->item(0, R::kSaldo)->text(), u"0.00"_s);
      QTest::keyClick(grid, Qt::Key_Return);
      QCOMPARE(grid->currentRow(), 1);
      QTest::keyClicks(grid, u"8"_s);
      QTest::keyClicks(Foco(), u"0"_s);
      QTest::keyClick(Foco(), Qt::Key_Return);
      QCOMPARE(grid->item(1, R::kAbono)->text(), u"0"_s);
      QCOMPARE(grid->item(1, R::kSaldo)->text(), u"50.00"_s);
      QCOMPARE(Etiqueta(*alta, u"Total"_s), u"100.00"_s);
      testing::SaveShot(alta, u"frm_cxca"_s);
      Guardar(*alta);
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Insert);

    const QString llave = session.PagoActual;
    QVERIFY(llave.startsWith(session.SerieCxC + u'-'));
    QCOMPARE(Factura(session, u"T-1"_s), u"LIQUIDADO 0"_s);
    QCOMPARE(Factura(session, u"T-2"_s), u"POR COBRAR 50"_s);
    const ModeloVista* modelo = navegador->modelo();
    const int fila = navegador->grid()->currentIndex().row();
    QCOMPARE(modelo->Valor(fila, modelo->ColumnaDe(u"pago"_s)).toString(), llave);
    QCOMPARE(modelo->Valor(fila, modelo->ColumnaDe(u"abono"_s)).toDouble(), 100.0);
    testing::SaveShot(navegador, u"navegador_cxc"_s);
    {
      // Ctrl+B finds the receipts that paid an invoice.
      ModalCatcher catcher({{.input = u"T-1"_s}});
      QTest::keyClick(navegador->grid(), Qt::Key_B, Qt::ControlModifier);
      QVERIFY(catcher.texts.value(0).startsWith(u"Factura a Buscar"_s));
    }
    QCOMPARE(navegador->modelo()->rowCount(), 1);
    QCOMPARE(modelo->Valor(0, modelo->ColumnaDe(u"pago"_s)).toString(), llave);

    AlAbrirse([&](QWidget* modal) {
      auto* cambio = qobject_cast<FormaPago*>(modal);
      QVERIFY(cambio != nullptr);
      QCOMPARE(cambio->objectName(), u"FrmCxCc"_s);
      QCOMPARE(cambio->rejilla()->rowCount(), 1);
      QCOMPARE(cambio->rejilla()->item(0, R::kAbono)->text(), u"100.00"_s);
      QCOMPARE(Etiqueta(*cambio, u"Total"_s), u"100.00"_s);
      QVERIFY(cambio->findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
      testing::SaveShot(cambio, u"frm_cxcc"_s);
      cambio->reject();
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Return);
    navegador->close();
  }

  // October between -2 and 2: T-3 owes 1.50, T-5 0.50, T-4 was overpaid by 0.50; "Saldo
  // Final" 1.50. Delete on T-5, answered Yes twice, takes it out (1.00); the receipt closes
  // T-3 and T-4 and leaves T-5 owing.
  void SaldarDesdeLaPantalla() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    {
      Connection c(session.Cadena);
      QVERIFY(testing::InsertarFacturas(c, {kCliente, kOtro},
                                        {{u"T-3"_s, kCliente, 20, kOctubre, 18.5},
                                         {u"T-5"_s, kCliente, 30, kOctubre.addDays(1), 29.5},
                                         {u"T-4"_s, kOtro, 100, kOctubre, 100.5}}));
    }
    FormaSaldar saldar(session, PantallaCxC());
    QVERIFY(Mostrar(saldar));
    QCOMPARE(saldar.windowTitle(), u"SALDAR Cuentas x Cobrar de Clientes"_s);
    QTRY_VERIFY(Foco() != nullptr);
    Capturar({QString(), u"1"_s, u"1"_s, u"ajuste de centavos"_s, QString()});
    for (const QString& valor : {u"2026"_s, u"10"_s, u"-2"_s, u"2"_s}) {
      QLineEdit* campo = qobject_cast<QLineEdit*>(Foco());
      QVERIFY2(campo != nullptr, Foco() ? Foco()->metaObject()->className() : "none");
      campo->selectAll();
      Capturar({valor});
    }
    QTableWidget* grid = saldar.rejilla();
    QCOMPARE(grid->rowCount(), 3);
    QCOMPARE(Etiqueta(saldar, u"Total"_s), u"1.50"_s);
    QCOMPARE(grid->item(1, 2)->text(), u"T-5"_s);
    grid->setFocus();
    grid->setCurrentCell(1, 2);
    {
      ModalCatcher catcher;
      QTest::keyClick(grid, Qt::Key_Delete);
      QTRY_COMPARE(catcher.texts.size(), 2);
      QCOMPARE(catcher.texts, QStringList({u"Quitar factura de ajuste de pagos\n\nT-5"_s,
                                           u"Seguro quitar factura de ajuste de pagos\n\nT-5"_s}));
    }
    QCOMPARE(grid->rowCount(), 2);
    QCOMPARE(Etiqueta(saldar, u"Total"_s), u"1.00"_s);
    testing::SaveShot(&saldar, u"frm_cxcs"_s);
    Guardar(saldar);
    QVERIFY(!saldar.Guardada().isEmpty());
    QCOMPARE(Factura(session, u"T-3"_s), u"LIQUIDADO 0"_s);
    QCOMPARE(Factura(session, u"T-4"_s), u"LIQUIDADO 0"_s);
    QCOMPARE(Factura(session, u"T-5"_s), u"POR COBRAR 0.5"_s);
  }
};

QTEST_MAIN(TestPantallasCxC)
#include "tst_pantallas_cxc.moc"
