// The payables screens driven by keys as the treasurer works: a cheque from the browser with
// the bank's next cheque offered, then found again by the bank's account.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>
#include <QTest>
#include <QTimer>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/ui/forma_pago.h"
#include "documents/ui/rejilla_pagos.h"
#include "purchasing/compras_por_pagar.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using R = RejillaPagos;

namespace {

constexpr qint32 kProveedor = 9001;
const QDate kOctubre(2026, 10, 5);

QWidget* Foco() { return QApplication::focusWidget(); }

// Types each value into the field that has the focus (replacing what it offers) and presses
// Enter; a null value keeps what the field offers.
void Capturar(const QStringList& valores) {
  for (const QString& valor : valores) {
    QVERIFY2(Foco() != nullptr, qPrintable(valor));
    if (!valor.isNull()) {
      if (auto* campo = qobject_cast<QLineEdit*>(Foco())) campo->selectAll();
      QTest::keyClick(Foco(), Qt::Key_Backspace);
      QTest::keyClicks(Foco(), valor);
    }
    QTest::keyClick(Foco(), Qt::Key_Return);
  }
}

}  // namespace

class TestPantallasCxP : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Bank 2 wrote cheque 7 before: choosing it offers transfer 1 and cheque 8. The treasurer
  // clears the transfer, keeps cheque 8 and pays C-1 whole with F8; C-2 stays owed. F4 with
  // the bank's account finds the payments from that bank.
  void ChequeDesdeElNavegador() {
    const auto e = testing::EmpresaDemoCon([](Connection& c) {
      return testing::InsertarCompras(c, {kProveedor},
                                      {{u"C-2"_s, kProveedor, 50, kOctubre},
                                       {u"C-1"_s, kProveedor, 100, kOctubre.addDays(-20)}}) &&
             testing::InsertarFila(c, u"cxp"_s,
                                   {{u"pago"_s, u"X-1"_s},
                                    {u"folio"_s, 1},
                                    {u"fecha"_s, kOctubre},
                                    {u"periodo"_s, kOctubre.year()},
                                    {u"banco"_s, 2},
                                    {u"cheque"_s, u"7"_s}}) &&
             testing::InsertarFila(c, u"cxp"_s,
                                   {{u"pago"_s, u"X-2"_s},
                                    {u"folio"_s, 2},
                                    {u"fecha"_s, kOctubre},
                                    {u"periodo"_s, kOctubre.year()},
                                    {u"banco"_s, 1},
                                    {u"cheque"_s, u"30"_s}});
    });
    if (!e) return;
    Session session = e->s;
    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador = new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmCxP"_s), registry);
    QVERIFY(testing::Mostrar(*navegador));
    QTimer::singleShot(0, [&] {
      auto* alta = qobject_cast<FormaPago*>(QApplication::activeModalWidget());
      QVERIFY(alta != nullptr && QTest::qWaitForWindowActive(alta));
      QCOMPARE(alta->objectName(), u"FrmCxPa"_s);
      QTRY_VERIFY(Foco() != nullptr && alta->isAncestorOf(Foco()));
      Capturar({u"9001"_s, u"2"_s});
      QCOMPARE(alta->findChild<QLineEdit*>(u"Datos3"_s)->text(), u"1"_s);
      QCOMPARE(alta->findChild<QLineEdit*>(u"Datos4"_s)->text(), u"8"_s);
      Capturar({u""_s, QString(), u"ferretera del norte"_s, u"pago facturas"_s});
      R* grid = alta->rejilla();
      QCOMPARE(Foco(), grid);
      QCOMPARE(grid->item(0, R::kDocumento)->text(), u"C-1"_s);
      QCOMPARE(grid->item(0, R::kReferencia)->text(), u"FC-1/RC-1"_s);
      QTest::keyClick(grid, Qt::Key_F8);
      QCOMPARE(alta->findChild<QLabel*>(u"Total"_s)->text(), u"100.00"_s);
      testing::SaveShot(alta, u"frm_cxpa"_s);
      testing::Guardar(*alta);
      if (QTest::currentTestFailed()) alta->close();
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Insert);

    const QString llave = session.PagoActual;
    QVERIFY(llave.startsWith(session.SerieCxP + u'-'));
    Connection c(session.Cadena);
    QSqlQuery q = c.Exec(
        u"select cheque, transferencia, beneficiario, abono from cxp where pago = ?"_s, {llave});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toString(), u"8"_s);
    QCOMPARE(q.value(1).toString(), QString());
    QCOMPARE(q.value(2).toString(), u"FERRETERA DEL NORTE"_s);
    QCOMPARE(q.value(3).toDouble(), 100.0);
    QCOMPARE(c.Scalar(u"select status from compras where compra = 'C-1'"_s).toString(),
             u"LIQUIDADA"_s);
    {
      testing::ModalCatcher catcher({{.input = u"100-002-000002"_s}});
      QTest::keyClick(navegador->grid(), Qt::Key_F4);
      QVERIFY(catcher.texts.value(0).startsWith(u"Cuenta Bancaria a Buscar"_s));
    }
    // Cheque 7 and this one, of bank 2; not cheque 30 of bank 1.
    QCOMPARE(navegador->modelo()->rowCount(), 2);
    testing::SaveShot(navegador, u"navegador_cxp"_s);
    navegador->close();
  }
};

QTEST_MAIN(TestPantallasCxP)
#include "tst_pantallas_cxp.moc"
