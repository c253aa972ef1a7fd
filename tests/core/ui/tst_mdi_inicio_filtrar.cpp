// The filter dialog as a clerk uses it from a browser: Down through the lines of the visible
// columns, a range of totals and a year typed in two of them, Enter; the conditions then pick
// the invoices a person would pick. A date that does not exist is refused on its line, Esc
// leaves without a filter, and an earlier filter comes back to be changed.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>

#include "core/browse_filter.h"
#include "core/database.h"
#include "core/ui/mdi_inicio_filtrar.h"
#include "support/document_rows.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using mBrowse::ColumnaVista;
using testing::ModalCatcher;

namespace {

// Totals 100, 250.50 and 999.99 in January and February 2014, and 40 in 2013.
bool Facturas(const Session& session) {
  Connection c(session.Cadena);
  const QList<std::tuple<int, double, QDate>> facturas{{1, 100.0, {2014, 1, 5}},
                                                       {2, 250.5, {2014, 1, 31}},
                                                       {3, 999.99, {2014, 2, 1}},
                                                       {4, 40.0, {2013, 12, 31}}};
  for (const auto& [folio, total, fecha] : facturas) {
    const QVariantMap fila{{u"factura"_s, u"A-"_s + QString::number(folio)},
                           {u"serie"_s, u"A"_s},
                           {u"folio"_s, folio},
                           {u"total"_s, total},
                           {u"fecha"_s, dialect::DateValue(fecha, session.Sql)},
                           {u"periodo"_s, fecha.year()}};
    if (!testing::InsertarFila(c, u"facturas"_s, fila)) return false;
  }
  return true;
}

std::vector<ColumnaVista> Columnas() {
  auto columna = [](const char* nombre, int tipo, bool oculta = false) {
    ColumnaVista c;
    c.nombre = QString::fromLatin1(nombre);
    c.tipo = tipo;
    c.oculta = oculta;
    return c;
  };
  return {columna("factura", mBrowse::kTipoTexto),    columna("folio", mBrowse::kTipoEntero32),
          columna("hora", mBrowse::kTipoFecha, true), columna("total", mBrowse::kTipoDoble),
          columna("fecha", mBrowse::kTipoFecha),      columna("obs", mBrowse::kTipoTexto)};
}

QList<int> Folios(const Session& session, const mBrowse::Condicion& condicion) {
  Connection c(session.Cadena);
  QSqlQuery q =
      c.Exec(u"select folio from (select * from facturas) as t where "_s +
                 (condicion.vacia() ? u"1 = 1"_s : condicion.texto) + u" order by folio"_s,
             condicion.valores);
  QList<int> folios;
  while (q.next()) folios << q.value(0).toInt();
  if (!q.isActive()) folios << -1;
  return folios;
}

QLineEdit* Linea(MDIInicioFiltrar& dialogo, int fila) {
  return qobject_cast<QLineEdit*>(dialogo.findChild<QTableWidget*>(u"Fg1"_s)->cellWidget(fila, 2));
}

void Teclear(const QString& texto) { QTest::keyClicks(QApplication::focusWidget(), texto); }
void Tecla(Qt::Key tecla) { QTest::keyClick(QApplication::focusWidget(), tecla); }

}  // namespace

class TestMdiInicioFiltrar : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Totals from 200 to 1000 in 2014: invoices 2 and 3. The hidden column has no line, and
  // the texts come back one per column given.
  void RangoYAno() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Facturas(session));
    MDIInicioFiltrar dialogo(session, Columnas(), {});
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    QCOMPARE(dialogo.windowTitle(), u"Filtrar"_s);
    auto* grid = dialogo.findChild<QTableWidget*>(u"Fg1"_s);
    QCOMPARE(grid->rowCount(), 5);
    QCOMPARE(grid->item(2, 0)->text(), u"total"_s);
    QCOMPARE(grid->item(2, 1)->text(), u"Número"_s);
    QCOMPARE(grid->item(3, 1)->text(), u"Fecha"_s);
    QCOMPARE(QApplication::focusWidget(), Linea(dialogo, 0));

    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), Linea(dialogo, 2));
    Teclear(u"200-1000"_s);
    Tecla(Qt::Key_Down);
    Teclear(u"2014"_s);
    Tecla(Qt::Key_Up);
    Tecla(Qt::Key_Up);
    Tecla(Qt::Key_Up);
    Tecla(Qt::Key_Up);  // stays on the first line
    QCOMPARE(QApplication::focusWidget(), Linea(dialogo, 0));
    testing::SaveShot(&dialogo, u"mdi_inicio_filtrar"_s);
    Tecla(Qt::Key_Return);

    QCOMPARE(dialogo.result(), int(QDialog::Accepted));
    QCOMPARE(dialogo.textos(), QStringList({u""_s, u""_s, u""_s, u"200-1000"_s, u"2014"_s, u""_s}));
    QCOMPARE(Folios(session, dialogo.condicion()), QList<int>({2, 3}));
  }

  // 31 February is refused with the column's message, the cursor back on its line with the
  // text selected; the month typed over it is taken with F9.
  void FechaQueNoExiste() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Facturas(session));
    MDIInicioFiltrar dialogo(session, Columnas(), {});
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    Teclear(u"31/2/2014"_s);
    Tecla(Qt::Key_Up);
    ModalCatcher catcher;
    Tecla(Qt::Key_Return);
    QCOMPARE(catcher.texts, QStringList{u"El filtro de fecha no es válido: escriba una fecha "
                                        u"(31/12/2014), un mes (12/2014), un año (2014) o un "
                                        u"rango (1/1/2014-31/1/2014)"_s});
    QCOMPARE(catcher.icons.value(0), QMessageBox::Warning);
    QVERIFY(dialogo.isVisible());
    QCOMPARE(dialogo.focusWidget(), Linea(dialogo, 3));
    QCOMPARE(Linea(dialogo, 3)->selectedText(), u"31/2/2014"_s);

    QTest::keyClicks(Linea(dialogo, 3), u"1/2014"_s);  // over the selection
    QTest::keyClick(Linea(dialogo, 3), Qt::Key_F9);
    QCOMPARE(dialogo.result(), int(QDialog::Accepted));
    QCOMPARE(Folios(session, dialogo.condicion()), QList<int>({1, 2}));
  }

  // An earlier filter reopens on its lines; Esc leaves it as it was, with no condition.
  void FiltroPrevioYEsc() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    const QStringList previos{u"A-1,A-3"_s, u""_s, u"x"_s, u""_s, u""_s, u""_s};
    MDIInicioFiltrar dialogo(session, Columnas(), previos);
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    QCOMPARE(Linea(dialogo, 0)->text(), u"A-1,A-3"_s);
    QCOMPARE(dialogo.textos(), QStringList({u"A-1,A-3"_s, u""_s, u""_s, u""_s, u""_s, u""_s}));
    Tecla(Qt::Key_Escape);
    QCOMPARE(dialogo.result(), int(QDialog::Rejected));
    QVERIFY(dialogo.condicion().vacia());
  }

  // The Aplicar button does what Enter does: the list of keys picks invoices 1 and 3.
  void BotonAplicar() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(Facturas(session));
    MDIInicioFiltrar dialogo(session, Columnas(), {u"a-1, A-3"_s});
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    QTest::mouseClick(dialogo.findChild<QPushButton*>(u"Aplicar"_s), Qt::LeftButton);
    QCOMPARE(dialogo.result(), int(QDialog::Accepted));
    QCOMPARE(Folios(session, dialogo.condicion()), QList<int>({1, 3}));
  }
};

QTEST_MAIN(TestMdiInicioFiltrar)
#include "tst_mdi_inicio_filtrar.moc"
