// Cancelling and deleting from the browsers as a clerk does, by keys on the demo shop: <Del>
// on a delivery note asks three times and for the reason, and the row shows 'BAJA' with its
// stock back; <Ctrl+Del> takes only the last folio of the serie; a catalogue row is cancelled
// without a reason and its highest number deleted.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>

#include "core/mBrowse.h"
#include "core/session_load.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/captura.h"
#include "documents/ui/bajas_registro.h"
#include "documents/ui/mdi_inicio_bajas.h"
#include "documents/ui/mdi_inicio_motivo.h"
#include "sales/familias_ventas.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ModalCatcher;

namespace {

constexpr char kCodigo[] = "1-00001";

Session SesionDe(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  CargarSesion(s);
  return s;
}

QString Nota(Session& s, double cantidad) {
  captura::Documento d;
  d.encabezado = {{u"cliente"_s, 2},
                  {u"plazo"_s, 0},
                  {u"obs"_s, u"MOSTRADOR"_s},
                  {u"tipo"_s, u"DIRECTA"_s},
                  {u"metodo"_s, 1}};
  d.partidas = {{{u"codigo"_s, QString::fromLatin1(kCodigo)}, {u"cantidad"_s, cantidad}}};
  const captura::Guardado g = captura::GuardarDocumento(s, ventas::Remisiones(), d);
  if (!g.outcome) qWarning() << g.outcome.message;
  return g.llave;
}

double Existencia(const testing::TestCompany& company) {
  Connection c(company.cadena());
  return c
      .Scalar(u"select almacen1 from productos where codigo = ?"_s, {QString::fromLatin1(kCodigo)})
      .toDouble();
}

QString Valor(Navegador& n, const QString& columna) {
  return n.modelo()
      ->Valor(n.grid()->currentIndex().row(), n.modelo()->ColumnaDe(columna))
      .toString();
}

// Three Yes, then what the rest of the replies say.
QList<ModalCatcher::Reply> Confirmando(QList<ModalCatcher::Reply> resto = {}) {
  QList<ModalCatcher::Reply> r(3, ModalCatcher::Reply{.button = QMessageBox::Yes});
  return r + resto;
}

void Pulsar(Navegador& n, Qt::KeyboardModifiers teclas, QList<ModalCatcher::Reply> respuestas,
            ModalCatcher* catcher) {
  for (ModalCatcher::Reply& r : respuestas) catcher->Add(std::move(r));
  QTest::keyClick(n.grid(), Qt::Key_Delete, teclas);
  QTRY_COMPARE(catcher->pending(), 0);
}

// F2 with the note's folio: the grid shows that note alone.
void BuscarFolio(Navegador& n, const QString& llave) {
  ModalCatcher catcher({{llave.section(u'-', -1)}});
  QTest::keyClick(n.grid(), Qt::Key_F2);
  QTRY_COMPARE(catcher.pending(), 0);
  QCOMPARE(n.modelo()->rowCount(), 1);
  QCOMPARE(Valor(n, u"remision"_s), llave);
}

struct Pantalla {
  std::unique_ptr<Navegador> navegador;
  FormRegistry registry;
};

std::unique_ptr<Pantalla> Abrir(Session& s, const char* forma) {
  auto p = std::make_unique<Pantalla>();
  RegistrarBajas(p->registry);
  p->navegador = std::make_unique<Navegador>(
      s, *mBrowse::FamiliaDeForma(QString::fromLatin1(forma)), p->registry);
  p->navegador->show();
  return p;
}

}  // namespace

class TestBajasForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void CancelarYBorrarRemisiones() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    const double inicial = Existencia(*company);
    const QString primera = Nota(s, 3), ultima = Nota(s, 2);
    QVERIFY(!ultima.isEmpty());
    QCOMPARE(Existencia(*company), inicial - 5);
    auto pantalla = Abrir(s, "FrmRemisiones");
    Navegador& n = *pantalla->navegador;

    // <Del>: three questions under their title, the reason, and the note shows 'BAJA'.
    BuscarFolio(n, primera);
    {
      ModalCatcher catcher({}, u"bajas_remision_"_s);
      Pulsar(n, Qt::NoModifier, Confirmando({{u"cliente no lo quiso"_s}}), &catcher);
      QCOMPARE(catcher.titles.mid(0, 4), (QStringList{u"BAJAS Registros"_s, u"BAJAS Registros"_s,
                                                      u"BAJAS Registros"_s, u"Motivo de baja"_s}));
      QCOMPARE(catcher.texts.mid(0, 3), (QStringList{u"Dar de baja este registro ?"_s,
                                                     u"Seguro dar de baja este registro ?"_s,
                                                     u"Por dar de baja este registro ?"_s}));
      QCOMPARE(catcher.texts.size(), 4);
    }
    QCOMPARE(Valor(n, u"remision"_s), primera);
    QCOMPARE(Valor(n, u"status"_s), u"BAJA"_s);
    QCOMPARE(Valor(n, u"motivo de baja"_s), u"CLIENTE NO LO QUISO"_s);
    QCOMPARE(Existencia(*company), inicial - 2);

    // Again: the domain's warning, and nothing asked after it.
    {
      ModalCatcher catcher;
      Pulsar(n, Qt::NoModifier, Confirmando({{u"otra vez"_s}, {}}), &catcher);
      QCOMPARE(catcher.texts.last(), u"Este registro de 'remisiones' ya esta dado de baja"_s);
    }

    // <Ctrl+Del> on the note before the last: refused with its words, the row stays.
    {
      ModalCatcher catcher;
      Pulsar(n, Qt::ControlModifier, Confirmando({{}}), &catcher);
      QCOMPARE(catcher.titles.first(), u"BORRAR Registros"_s);
      QCOMPARE(catcher.texts.mid(0, 3),
               (QStringList{u"Borrar este registro ?"_s, u"Seguro borrar este registro ?"_s,
                            u"Por borrar este registro ?"_s}));
      QCOMPARE(catcher.texts.last(), u"Existe un folio mayor a esta remisión"_s);
    }
    QCOMPARE(Valor(n, u"remision"_s), primera);

    // The last one goes, with its stock, and the browser no longer shows it.
    BuscarFolio(n, ultima);
    {
      ModalCatcher catcher({}, u"borrar_remision_"_s);
      Pulsar(n, Qt::ControlModifier, Confirmando(), &catcher);
      QVERIFY2(catcher.texts.size() == 3, qPrintable(catcher.texts.join(u'|')));
    }
    QCOMPARE(n.modelo()->rowCount(), 0);
    QCOMPARE(Existencia(*company), inicial);
    Connection c(company->cadena());
    QCOMPARE(c.Scalar(u"select count(*) from remisiones where remision = ?"_s, {ultima}).toInt(),
             0);
  }

  // A brand is cancelled with no reason asked; while products carry it, it cannot be deleted.
  void CancelarYBorrarMarca() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    auto pantalla = Abrir(s, "FrmMarcas");
    Navegador& n = *pantalla->navegador;
    QVERIFY(n.BuscarEnFila(u"numero"_s, 1));
    {
      ModalCatcher catcher;
      Pulsar(n, Qt::NoModifier, Confirmando(), &catcher);
      QCOMPARE(catcher.titles, QStringList(3, u"BAJAS Registros"_s));
    }
    QCOMPARE(Valor(n, u"status"_s), u"BAJA"_s);
    const int filas = n.modelo()->rowCount();
    {
      ModalCatcher catcher;
      Pulsar(n, Qt::ControlModifier, Confirmando({{}}), &catcher);
      Connection c(company->cadena());
      const QString codigo = c.Scalar(u"select codigo from productos where marca = 1"_s).toString();
      QCOMPARE(catcher.texts.last(),
               u"Existe un número de marca en productos con el código "_s + codigo);
    }
    QCOMPARE(n.modelo()->rowCount(), filas);
  }

  // The screens as they show: the records to act on, and the reason's line.
  void Pantallas() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    MDIInicioBajas bajas(s, u"REMISIONES"_s, {u"A-1"_s, u"A-2"_s});
    bajas.show();
    QCOMPARE(bajas.windowTitle(), u"BAJAS Registros de REMISIONES"_s);
    QCOMPARE(bajas.findChild<QListWidget*>(u"Registros"_s)->count(), 2);
    testing::SaveShot(&bajas, u"mdi_inicio_bajas"_s);
    MDIInicioBorrar borrar(s, u"CLIENTES"_s, {u"60"_s});
    borrar.show();
    QCOMPARE(borrar.windowTitle(), u"BORRAR Registros de CLIENTES"_s);
    testing::SaveShot(&borrar, u"mdi_inicio_borrar"_s);
    MDIInicioMotivo motivo(s);
    motivo.show();
    QTest::keyClicks(motivo.findChild<QLineEdit*>(u"Motivo"_s), u"precio equivocado"_s);
    QCOMPARE(motivo.motivo(), u"PRECIO EQUIVOCADO"_s);
    testing::SaveShot(&motivo, u"mdi_inicio_motivo"_s);
  }
};

QTEST_MAIN(TestBajasForms)
#include "tst_bajas_forms.moc"
