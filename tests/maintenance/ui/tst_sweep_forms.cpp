// The maintenance windows as the administrator opens them from the utilities menu: the sweep
// runs as the window shows, the window can't be closed half-way, it closes by itself, a failure
// is shown, and the pictures walk can be stopped.
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>

#include "app/formularios.h"
#include "core/mFunciones.h"
#include "core/ui/form_registry.h"
#include "maintenance/ui/mdi_inicio_manto.h"
#include "support/document_rows.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::InsertarFila;
using testing::ModalCatcher;

namespace {

Session Sesion(const testing::TestCompany& company) {
  Session session = company.MakeSession();
  mFunciones::CrearCarpetas(session);
  return session;
}

// Opens the named screen inside an MDI area, as the main window does, and watches it: once
// it is under way `durante` runs, from inside the sweep.
class Apertura {
 public:
  Apertura(Session& session, const QString& forma, std::function<void(QMdiSubWindow*)> durante)
      : durante_(std::move(durante)) {
    FormRegistry registry;
    RegistrarFormularios(registry);
    ventana_ = qobject_cast<VentanaDeMantenimiento*>(registry.Create(forma, session));
    if (ventana_ == nullptr) return;
    area_.resize(520, 260);
    area_.show();
    marco_ = area_.addSubWindow(ventana_);
    QObject::connect(&reloj_, &QTimer::timeout, &area_, [this] {
      if (ventana_ == nullptr || !ventana_->corriendo() || visto_) return;
      visto_ = true;
      durante_(marco_);
    });
    reloj_.start(0);
    marco_->show();
  }

  bool abierta() const { return !marco_.isNull(); }
  bool vista() const { return visto_; }
  VentanaDeMantenimiento* ventana() const { return ventana_; }

 private:
  std::function<void(QMdiSubWindow*)> durante_;
  QMdiArea area_;
  QTimer reloj_;
  QPointer<VentanaDeMantenimiento> ventana_;
  QPointer<QMdiSubWindow> marco_;
  bool visto_ = false;
};

}  // namespace

class TestSweepForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void sweepRunsAndClosesByItself_data() {
    QTest::addColumn<QString>("forma");
    QTest::addColumn<QString>("lectura");
    QTest::addColumn<double>("esperado");
    QTest::newRow("manto1") << u"MDIInicioManto1"_s
                            << u"select almacen1 from productos where codigo = 'BROCA'"_s << 5.0;
    QTest::newRow("manto2") << u"MDIInicioManto2"_s
                            << u"select saldo from facturas where factura = 'A-1'"_s << 100.0;
  }
  void sweepRunsAndClosesByItself() {
    VENTARIX_COMPANY(company);
    QFETCH(QString, forma);
    QFETCH(QString, lectura);
    QFETCH(double, esperado);
    Connection c(company.cadena());
    // A purchase of 5 drills the stock doesn't show, an unpaid invoice that shows as paid.
    QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, u"BROCA"_s}}));
    QVERIFY(InsertarFila(c, u"compras detalles"_s,
                         {{u"compra"_s, u"C-1"_s}, {u"codigo"_s, u"BROCA"_s}, {u"cantidad"_s, 5}}));
    QVERIFY(InsertarFila(c, u"facturas"_s,
                         {{u"factura"_s, u"A-1"_s}, {u"total"_s, 100}, {u"saldo"_s, 0}}));

    Session session = Sesion(company);
    bool cerro_a_medias = true;
    QString paso;
    Apertura apertura(session, forma, [&](QMdiSubWindow* marco) {
      paso = marco->findChild<QLabel*>(u"Paso"_s)->text();
      testing::SaveShot(marco, forma + u'_' + engine);
      cerro_a_medias = marco->close();
    });
    QVERIFY(apertura.ventana() != nullptr);
    QTRY_VERIFY_WITH_TIMEOUT(!apertura.abierta(), 20000);
    QVERIFY(apertura.vista());
    QVERIFY(!paso.isEmpty());
    QVERIFY(!cerro_a_medias);
    QCOMPARE(c.Scalar(lectura).toDouble(), esperado);
  }

  void failureIsShownAndTheWindowCloses() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(testing::Escribir(c, u"drop table \"traspasos detalles\""_s));
    Session session = Sesion(company);
    ModalCatcher catcher;
    Apertura apertura(session, u"MDIInicioManto1"_s, [](QMdiSubWindow*) {});
    QTRY_VERIFY_WITH_TIMEOUT(!apertura.abierta(), 20000);
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Critical});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QVERIFY2(catcher.texts.value(0).contains(u"traspasos detalles"_s),
             qPrintable(catcher.texts.value(0)));
  }

  void barridoDetenerAsks_data() {
    QTest::addColumn<int>("respuesta");
    QTest::addColumn<int>("marcados");
    QTest::newRow("yes: the walk ends after the row in hand") << int(QMessageBox::Yes) << 1;
    QTest::newRow("no: the walk goes on") << int(QMessageBox::No) << 3;
  }
  void barridoDetenerAsks() {
    VENTARIX_COMPANY(company);
    QFETCH(int, respuesta);
    QFETCH(int, marcados);
    Session session = Sesion(company);
    Connection c(company.cadena());
    for (const QString& codigo : {u"A"_s, u"B"_s, u"C"_s}) {
      QFile foto(session.CarpetaImagenes + u'/' + codigo + u".jpg"_s);
      QVERIFY(foto.open(QIODevice::WriteOnly));
      QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, codigo}}));
    }
    ModalCatcher catcher({{{}, true, QMessageBox::StandardButton(respuesta)}},
                         u"barrido_pregunta_"_s + engine + u'_');
    Apertura apertura(session, u"MDIInicioBarrido"_s, [&](QMdiSubWindow* marco) {
      testing::SaveShot(marco, u"MDIInicioBarrido_"_s + engine);
      marco->findChild<QPushButton*>(u"Detener"_s)->click();
    });
    QTRY_VERIFY_WITH_TIMEOUT(!apertura.abierta(), 20000);
    QCOMPARE(catcher.texts, QStringList{u"Detener éste módulo actual"_s});
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Question});
    QCOMPARE(c.Scalar(u"select count(*) from productos where imagen = 'S'"_s).toInt(), marcados);
  }
};

QTEST_MAIN(TestSweepForms)
#include "tst_sweep_forms.moc"
