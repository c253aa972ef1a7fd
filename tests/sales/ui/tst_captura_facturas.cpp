// The invoice and credit-note screens as a clerk uses them from the keyboard, on the demo
// company and both engines: two delivery notes invoiced through MDIInicioFacturar, a free
// invoice with a retention asked by F1, and credit notes by a return of goods and by the
// prompt-payment discount, seen afterwards in the invoice browser's movements; an invoice
// stamped and its UUID cancelled from the browser's button 6.
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/session_load.h"
#include "core/ui/campo_captura.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/captura.h"
#include "sales/familias_ventas.h"
#include "sales/ui/captura_prueba.h"
#include "sales/ui/frm_facturas.h"
#include "support/empresa_demo.h"
#include "support/escribir.h"
#include "support/modal_catcher.h"
#include "support/pac_local.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Capturar;
using ventarix::testing::EnCelda;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;
using ventarix::testing::Valor;
using R = RejillaCaptura;

namespace {

constexpr int kCliente = 2;
const QLocale kDinero(QLocale::English, QLocale::UnitedStates);

QString Etiqueta(const QWidget& forma, const QString& nombre) {
  return forma.findChild<QLabel*>(nombre)->text();
}

void Pulsar(QWidget& forma, const QString& boton) {
  auto* b = forma.findChild<QPushButton*>(boton);
  QVERIFY(b != nullptr);
  b->setFocus();
  QTest::keyClick(b, Qt::Key_Return);
}

// A cash delivery note of client 2, saved as the note screen saves it.
QString Remision(Session& s, const QString& codigo, double cantidad) {
  captura::Documento d;
  d.encabezado = {{u"cliente"_s, kCliente},
                  {u"plazo"_s, 0},
                  {u"obs"_s, u"MOSTRADOR"_s},
                  {u"tipo"_s, u"DIRECTA"_s},
                  {u"metodo"_s, 1}};
  d.partidas = {{{u"codigo"_s, codigo}, {u"cantidad"_s, cantidad}}};
  return captura::GuardarDocumento(s, ventas::Remisiones(), d).llave;
}

// A free invoice of client 2 for one unit of the code.
QString Factura(Session& s, const QString& codigo) {
  captura::Documento d;
  d.encabezado = {{u"cliente"_s, kCliente}};
  d.partidas = {{{u"codigo"_s, codigo}, {u"cantidad"_s, 1}}};
  return captura::GuardarDocumento(s, ventas::Facturas(), d).llave;
}

// The client, then Enter over the other header fields down to the grid.
// Guardar, with no message in the way; the screen closes.
void GuardarSinAvisos(FormaCaptura& forma) {
  ModalCatcher catcher;
  testing::Guardar(forma);
  QTRY_VERIFY(!forma.isVisible() || !catcher.texts.isEmpty());
  QCOMPARE(catcher.texts.join(u'|'), QString());
}

void HastaLaRejilla(FormaCaptura& forma, int campos) {
  QStringList valores{QString::number(kCliente)};
  for (int i = 1; i < campos; ++i) valores << QString();
  Capturar(valores);
  QTRY_COMPARE(testing::Foco(), forma.rejilla());
}

}  // namespace

class TestCapturaFacturas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Remisiones lists the store's notes newest first; Enter ticks the two just made and the
  // total follows. Aceptar brings them as 'PRODUCTOS' with the client locked; the saved
  // invoice is what both notes' status now holds.
  void FacturarDosRemisiones() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QStringList notas = {Remision(session, u"1-00001"_s, 2),
                               Remision(session, u"1-00002"_s, 1)};
    QVERIFY(!notas[0].isEmpty() && !notas[1].isEmpty());
    double suma = 0;
    for (const QString& nota : notas) {
      suma +=
          Valor(session, u"select total from remisiones where remision = ?"_s, {nota}).toDouble();
    }
    FrmFacturasA alta(session, QString());
    QVERIFY(Mostrar(alta));
    QCOMPARE(alta.windowTitle(), u"FACTURAS - ALTAS"_s);
    QCOMPARE(Etiqueta(alta, u"Depto"_s), u"LIBRE"_s);
    QCOMPARE(Etiqueta(alta, u"Esquema"_s), u"CFDI"_s);
    QVERIFY(!alta.findChild<QWidget*>(u"TipoCambio"_s)->isVisible());
    testing::SaveShot(&alta, u"frm_facturas_a"_s);
    testing::AlAbrirse([&](QWidget* dialogo) {
      QCOMPARE(dialogo->windowTitle(), u"Facturar REMISIONES"_s);
      auto* lista = dialogo->findChild<QTableWidget*>(u"Fg1"_s);
      for (const QString& nota : notas) {
        const QList<QTableWidgetItem*> hallada = lista->findItems(nota, Qt::MatchExactly);
        QCOMPARE(hallada.size(), 1);
        lista->setCurrentCell(hallada[0]->row(), 7);
        QTest::keyClick(lista, Qt::Key_Return);
      }
      QCOMPARE(Etiqueta(*dialogo, u"Total"_s), kDinero.toString(suma, 'f', 2));
      testing::SaveShot(dialogo, u"mdi_inicio_facturar"_s);
      Pulsar(*dialogo, u"Aceptar"_s);
    });
    Pulsar(alta, u"Remisiones"_s);
    QCOMPARE(Etiqueta(alta, u"Depto"_s), u"PRODUCTOS"_s);
    QVERIFY(alta.findChild<QWidget*>(u"Datos1"_s)->findChild<CampoCaptura*>()->isReadOnly());
    const QStringList traidas = {alta.rejilla()->Texto(0, R::kPedido),
                                 alta.rejilla()->Texto(1, R::kPedido)};
    QVERIFY(traidas.contains(notas[0]) && traidas.contains(notas[1]));
    QCOMPARE(alta.rejilla()->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(Etiqueta(alta, u"Total"_s), kDinero.toString(suma, 'f', 2));
    testing::SaveShot(&alta, u"frm_facturas_a_remisiones"_s);
    GuardarSinAvisos(alta);
    const QString factura = alta.Guardada();
    QVERIFY(!factura.isEmpty());
    for (const QString& nota : notas) {
      QCOMPARE(
          Valor(session, u"select status from remisiones where remision = ?"_s, {nota}).toString(),
          factura);
    }
    QCOMPARE(
        Valor(session, u"select total from facturas where factura = ?"_s, {factura}).toDouble(),
        suma);
  }

  // A free invoice of one product at price 100: F1 on the ISR retention answers 10 %, the
  // screen's total drops by a tenth of the subtotal, and that is what is stored.
  void FacturaLibreConRetencion() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    FrmFacturasA alta(session, QString());
    QVERIFY(Mostrar(alta));
    // Client, agent, term, order, observations, summary and the three retentions.
    HastaLaRejilla(alta, 9);
    {
      // Without rows the sealing refuses: its message, with a warning, flashes in Msg1.
      ModalCatcher catcher;
      testing::Guardar(alta);
      QTRY_COMPARE(catcher.icons.size(), 1);
      QCOMPARE(catcher.icons[0], QMessageBox::Warning);
      QCOMPARE(Etiqueta(alta, u"Msg1"_s), catcher.texts[0]);
      QVERIFY(alta.findChild<QTimer*>(u"Timer"_s)->isActive());
      testing::SaveShot(&alta, u"frm_facturas_a_msg1"_s);
    }
    QVERIFY(Mostrar(alta));
    R* grid = alta.rejilla();
    grid->setFocus();
    EnCelda(grid, u"1-00001"_s);
    EnCelda(grid, u"1"_s);
    EnCelda(grid, u"100"_s);
    const DocumentSums sumas = alta.Sumas();
    QVERIFY(sumas.subtotal > 0 && sumas.iva > 0);
    auto* isr = alta.findChild<CampoCaptura*>(u"Datos10"_s);
    isr->setFocus();
    {
      ModalCatcher catcher({{.input = u"10"_s}});
      QTest::keyClick(isr, Qt::Key_F1);
      QTRY_COMPARE(catcher.texts, QStringList{u"Aplicar al subtotal una retención del  %"_s});
    }
    const double retencion = std::round(sumas.subtotal * 10) / 100;
    QCOMPARE(isr->text().toDouble(), retencion);
    QCOMPARE(Etiqueta(alta, u"Total"_s), kDinero.toString(sumas.total - retencion, 'f', 2));
    testing::SaveShot(&alta, u"frm_facturas_a_retencion"_s);
    GuardarSinAvisos(alta);
    const QString factura = alta.Guardada();
    Connection c(session.Cadena);
    QSqlQuery q = c.Exec(
        u"select total, \"retencion isr $\", depto from facturas where factura = ?"_s, {factura});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toDouble(), sumas.total - retencion);
    QCOMPARE(q.value(1).toDouble(), retencion);
    QCOMPARE(q.value(2).toString(), u"LIBRE"_s);

    // Opened again it may still change; its addenda waits for the stamp.
    FrmFacturasC cambio(session, factura);
    QVERIFY(Mostrar(cambio));
    QVERIFY(cambio.findChild<QPushButton*>(u"Guardar"_s)->isEnabled());
    QCOMPARE(cambio.findChild<CampoCaptura*>(u"Datos10"_s)->text().toDouble(), retencion);
    testing::SaveShot(&cambio, u"frm_facturas_c"_s);
    ModalCatcher catcher;
    Pulsar(cambio, u"Addenda"_s);
    QTRY_COMPARE(catcher.texts, QStringList{u"Se requiere timbrar esta factura"_s});
  }

  // Two invoices of client 2: the first comes back whole (Yes to the question: its rows, and
  // its goods into the store), the second gets the prompt-payment discount (No: one "DPPP"
  // row of its balance without tax). Both end 'LIQUIDADO', and the browser's Fg2 shows the
  // credit note on the invoice.
  void NotasPorDevolucionYDescuento() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QString devuelta = Factura(session, u"1-00003"_s);
    const QString descontada = Factura(session, u"1-00002"_s);
    QVERIFY(!devuelta.isEmpty() && !descontada.isEmpty());
    const double existencia =
        Valor(session, u"select almacen1 from productos where codigo = '1-00003'"_s).toDouble();

    for (const auto& [factura, respuesta] :
         {std::pair{devuelta, QMessageBox::Yes}, std::pair{descontada, QMessageBox::No}}) {
      FrmNotasClienteA alta(session, QString());
      QVERIFY(Mostrar(alta));
      // Client, observations and summary.
      HastaLaRejilla(alta, 3);
      R* grid = alta.rejilla();
      QCOMPARE(grid->currentColumn(), grid->Col(R::kFactura));
      {
        ModalCatcher catcher(QList<ModalCatcher::Reply>{{.button = respuesta}});
        EnCelda(grid, factura);
        QTRY_COMPARE(
            catcher.texts,
            QStringList{u"Dar entrada al almacén todos los productos de la factura: "_s + factura});
      }
      QTRY_COMPARE(grid->Texto(0, R::kFactura), factura);
      if (respuesta == QMessageBox::No) {
        QCOMPARE(grid->Codigo(0), u"DPPP"_s);
        QCOMPARE(grid->Texto(0, R::kDescripcion), u"DESCUENTO POR PRONTO PAGO"_s);
      } else {
        QCOMPARE(grid->Codigo(0), u"1-00003"_s);
      }
      const double saldo =
          Valor(session, u"select saldo from facturas where factura = ?"_s, {factura}).toDouble();
      QCOMPARE(std::round(alta.Sumas().total * 100) / 100, saldo);
      testing::SaveShot(&alta, respuesta == QMessageBox::Yes ? u"frm_notas_cliente_a_devolucion"_s
                                                             : u"frm_notas_cliente_a_descuento"_s);
      GuardarSinAvisos(alta);
      QCOMPARE(
          Valor(session, u"select status from facturas where factura = ?"_s, {factura}).toString(),
          u"LIQUIDADO"_s);
    }
    QCOMPARE(
        Valor(session, u"select almacen1 from productos where codigo = '1-00003'"_s).toDouble(),
        existencia + 1);
    FrmNotasClienteC nota(session, session.NotaActual);
    QVERIFY(Mostrar(nota));
    QCOMPARE(nota.rejilla()->Texto(0, R::kFactura), descontada);
    testing::SaveShot(&nota, u"frm_notas_cliente_c"_s);
    nota.reject();

    {
      // A range without its folios is told as the screen opens.
      Connection c(session.Cadena);
      QVERIFY(testing::Escribir(
          c, u"update \"folios notas\" set folioinicial = 0, foliofinal = 0 where numero = ?"_s,
          {session.FolioNotas}));
      ModalCatcher catcher;
      FrmNotasClienteA sin_folios(session, QString());
      QVERIFY(Mostrar(sin_folios));
      QTRY_COMPARE(catcher.texts,
                   QStringList{u"Se requiere el registro de folios notas de crédito"_s});
    }

    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador = new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmFacturas"_s), registry);
    QVERIFY(Mostrar(*navegador));
    QVERIFY(navegador->BuscarEnFila(u"factura"_s, devuelta));
    auto* fg2 = navegador->findChild<QTableWidget*>(u"Fg2"_s);
    QTRY_COMPARE(fg2->rowCount(), 1);
    QCOMPARE(fg2->item(0, 0)->text(), u"NC CLIENTE"_s);
    testing::SaveShot(navegador, u"navegador_facturas"_s);
    navegador->close();
  }

  // A new user's first stamp: an invoice saved, then toolbar button 6 of the browser against
  // the stand-in PAC. The PAC's reply is shown, the row gets its UUID; the button's menu then
  // cancels that UUID with the range's certificate and key after three confirmations.
  void TimbrarYCancelarDesdeElNavegador() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    Session session = company->MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(testing::Escribir(
          c, u"update empresa set pacurlpruebas = ?, pacurlproduccion = ? where numero = 1"_s,
          {pac.url(), pac.url()}));
    }
    CargarSesion(session);
    const QString factura = Factura(session, u"1-00001"_s);
    QVERIFY(!factura.isEmpty());

    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador = new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmFacturas"_s), registry);
    QVERIFY(Mostrar(*navegador));
    QVERIFY(navegador->BuscarEnFila(u"factura"_s, factura));
    auto* boton = navegador->findChild<QAction*>(u"Toolbar_6"_s);
    QCOMPARE(boton->text(), u"Timbrar"_s);
    const auto uuid = [&] {
      Connection c(session.Cadena);
      QSqlQuery q = c.Exec(u"select uuid from facturas where factura = ?"_s, {factura});
      return q.next() ? q.value(0).toString() : QString();
    };
    {
      ModalCatcher catcher;
      boton->trigger();
      QTRY_COMPARE(catcher.texts.size(), 1);
      QVERIFY2(catcher.texts[0].contains(u"<status>200</status>"_s), qPrintable(catcher.texts[0]));
      QCOMPARE(catcher.icons[0], QMessageBox::Warning);
    }
    const QString timbre = uuid();
    QCOMPARE(timbre.size(), 36);
    QCOMPARE(pac.Timbres(), 1);
    testing::SaveShot(navegador, u"navegador_facturas_timbrada"_s);

    const QString carpeta = QStringLiteral(VENTARIX_SOURCE_DIR) + u"/data/sat/demo/"_s;
    ModalCatcher catcher({{timbre},
                          {carpeta + u"EKU9003173C9_30001000000500003416.cer"_s},
                          {carpeta + u"EKU9003173C9_30001000000500003416.key"_s},
                          {.button = QMessageBox::Yes},
                          {.button = QMessageBox::Yes},
                          {.button = QMessageBox::Yes},
                          {u"12345678a"_s}},
                         u"cancelar_uuid"_s);
    boton->menu()->actions().first()->trigger();
    QTRY_COMPARE(catcher.texts.size(), 8);
    QVERIFY(catcher.texts[3].endsWith(u"\n\n"_s + timbre));
    QCOMPARE(catcher.icons[3], QMessageBox::Critical);
    QVERIFY2(catcher.texts[7].contains(u"<statusUUID>201</statusUUID>"_s),
             qPrintable(catcher.texts[7]));
    QCOMPARE(pac.Cancelados(), 1);
    QCOMPARE(uuid(), timbre);  // the record keeps its stamp: cancelling is the PAC's
    navegador->close();
  }
};

QTEST_MAIN(TestCapturaFacturas)
#include "tst_captura_facturas.moc"
