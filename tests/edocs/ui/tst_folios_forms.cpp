// The folio range screens as a clerk uses them from the keyboard, on both engines: a CFDi
// range registered with the SAT test pair (a wrong password first), made the default from
// its browser, and opened again with its files gone from the certificates folder; a
// credit-note CBB range with its image, size label and the question before taking it away.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/browse_families.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/ui/browse_model.h"
#include "core/ui/campo_captura.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "edocs/folios_prueba.h"
#include "edocs/ui/frm_folios.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;
using ventarix::testing::SesionFolios;
using ventarix::testing::Valor;

namespace {

const QString kPar =
    QStringLiteral(VENTARIX_SHARED_DIR "/sat/csd/AAA010101AAA_20001000000100005867");

QWidget* Foco() { return QApplication::focusWidget(); }

// Types each value into the field that has the focus and presses Enter, as a clerk does.
void Capturar(const QStringList& valores) {
  for (const QString& valor : valores) {
    QWidget* campo = Foco();
    QVERIFY(campo != nullptr);
    QTest::keyClicks(campo, valor);
    QTest::keyClick(campo, Qt::Key_Return);
  }
}

// Lets the checks that run once the focus has left a field show their messages, and gives
// the screen back the keyboard after a message, as the desktop does.
void Asentar(QWidget& forma) {
  for (int i = 0; i < 5; ++i) QTest::qWait(30);
  if (!forma.isActiveWindow()) {
    forma.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&forma));
  }
}

// The file dialogs of a screen answered from a list of paths, with what each one asked.
struct Dialogos {
  QStringList respuestas;
  QStringList preguntas;  // caption | folder | filter
  void Conectar(FormaFolios& forma) {
    forma.setAbrirArchivo(
        [this](QWidget*, const QString& titulo, const QString& carpeta, const QString& filtro) {
          preguntas << titulo + u'|' + carpeta + u'|' + filtro;
          return respuestas.isEmpty() ? QString() : respuestas.takeFirst();
        });
  }
};

QString Etiqueta(const QWidget& forma, const QString& nombre) {
  return forma.findChild<QLabel*>(nombre)->text();
}

}  // namespace

class TestFoliosForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // The whole life of an invoice range: typed in, the default, and changed on a workstation
  // whose certificates folder lost the files.
  void RangoCfdiPorTeclado() {
    VENTARIX_COMPANY(company);
    Session session = SesionFolios(company);
    FrmFoliosFacturasA alta(session);
    Dialogos dialogos{{kPar + u".cer"_s, kPar + u".key"_s}, {}};
    dialogos.Conectar(alta);
    QVERIFY(Mostrar(alta));
    auto* esquema = alta.findChild<QComboBox*>(u"Esquema"_s);
    auto* tabs = alta.findChild<QTabWidget*>(u"TabStrip1"_s);
    QCOMPARE(Foco(), esquema);
    QCOMPARE(esquema->currentText(), u"CFDI"_s);
    QCOMPARE(Etiqueta(alta, u"Version"_s), u"Versión: 3.2"_s);
    QTest::keyClick(esquema, Qt::Key_Up);
    QCOMPARE(Etiqueta(alta, u"Version"_s), u"Versión: 2.2"_s);
    QVERIFY(alta.findChild<QWidget*>(u"NoAprobacion"_s)->isVisible());
    testing::SaveShot(&alta, u"frm_folios_facturas_a_cfd"_s);
    QTest::keyClick(esquema, Qt::Key_Down);
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"CFDi"_s);
    QVERIFY(!alta.findChild<QWidget*>(u"NoAprobacion"_s)->isVisible());

    // The series as typed is refused, and stays as typed until the clerk fixes it.
    QTest::keyClick(esquema, Qt::Key_Return);
    auto* serie = alta.findChild<CampoCaptura*>(u"Serie"_s);
    QCOMPARE(Foco(), serie);
    {
      ModalCatcher catcher;
      Capturar({u"fa"_s});
      Asentar(alta);
      QCOMPARE(catcher.texts,
               QStringList{u"Se requiere que la serie sea únicamente texto [A-Z]"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QCOMPARE(Foco(), serie);
    QCOMPARE(serie->text(), u"fa"_s);
    Capturar({u"FA"_s, u"1"_s, u"250"_s});
    Asentar(alta);
    QCOMPARE(Etiqueta(alta, u"Cantidad"_s), u"250"_s);
    QCOMPARE(Foco(), alta.findChild<CampoCaptura*>(u"RegimenFiscal"_s));
    Capturar({u"REGIMEN GENERAL DE LEY PERSONAS MORALES"_s});

    // F1 on each file field: the certificate fills the Informe labels.
    QCOMPARE(Foco(), alta.findChild<CampoCaptura*>(u"ArchivoCertificado"_s));
    QTest::keyClick(Foco(), Qt::Key_F1);
    QTest::keyClick(Foco(), Qt::Key_Return);
    QTest::keyClick(Foco(), Qt::Key_F1);
    QTest::keyClick(Foco(), Qt::Key_Return);
    QCOMPARE(
        dialogos.preguntas,
        (QStringList{
            u"Abrir certificado|"_s + session.CarpetaCer + u"|Archivos de certificado (*.cer)"_s,
            u"Abrir llave|"_s + session.CarpetaCer + u"|Archivos de llave (*.key)"_s}));
    QCOMPARE(alta.findChild<CampoCaptura*>(u"ArchivoCertificado"_s)->text(),
             u"AAA010101AAA_20001000000100005867.cer"_s);
    QCOMPARE(Etiqueta(alta, u"Informe0"_s), u"20001000000100005867"_s);
    QVERIFY(!Etiqueta(alta, u"Informe2"_s).isEmpty());

    auto* password = alta.findChild<CampoCaptura*>(u"Password"_s);
    QCOMPARE(Foco(), password);
    {
      ModalCatcher catcher;
      Capturar({u"12345678b"_s});
      Asentar(alta);
      QCOMPARE(catcher.texts,
               QStringList{u"Esta contraseña no corresponde al archivo llave privada"_s});
    }
    QCOMPARE(Foco(), password);
    QVERIFY(password->text().isEmpty());
    Capturar({u"12345678a"_s});
    Asentar(alta);
    QCOMPARE(password->text(), u"12345678a"_s);
    QCOMPARE(Foco(), alta.findChild<QPushButton*>(u"Guardar"_s));
    testing::SaveShot(&alta, u"frm_folios_facturas_a_cfdi"_s);

    // The other pages, by their keys: the logo's placement and the legends with a tag.
    QTest::keyClick(&alta, Qt::Key_T, Qt::AltModifier);
    QCOMPARE(tabs->tabText(tabs->currentIndex()), u"Logo&tipo"_s);
    alta.findChild<QCheckBox*>(u"ImprimirLogotipo"_s)->setFocus();
    QTest::keyClick(Foco(), Qt::Key_Space);
    QTest::keyClick(Foco(), Qt::Key_Return);
    QTest::keyClick(Foco(), Qt::Key_Down);  // UbicarLogoTipo: Derecha
    testing::SaveShot(&alta, u"frm_folios_facturas_a_logotipo"_s);
    QTest::keyClick(&alta, Qt::Key_Y, Qt::AltModifier);
    auto* domicilio = alta.findChild<QPlainTextEdit*>(u"Domicilio"_s);
    domicilio->setFocus();
    QTest::keyClicks(domicilio, u"Calle 1"_s);
    QTest::keyClick(domicilio, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(domicilio, u"Tel. "_s);
    QTest::keyClick(&alta, Qt::Key_U, Qt::AltModifier);
    auto* menu = alta.findChild<QMenu*>(u"mnuEtiquetas"_s);
    QTRY_VERIFY(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(domicilio->toPlainText(), u"Calle 1\nTel. <EmisorDireccion>"_s);
    QCOMPARE(Foco(), domicilio);
    QTest::keyClick(domicilio, Qt::Key_Return);
    QCOMPARE(Foco(), alta.findChild<QPlainTextEdit*>(u"Leyenda1"_s));
    testing::SaveShot(&alta, u"frm_folios_facturas_a_leyendas"_s);
    QTest::keyClick(Foco(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"Pagaré"_s);
    testing::SaveShot(&alta, u"frm_folios_facturas_a_pagare"_s);

    Guardar(alta);
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(alta.Guardada(), u"1"_s);
    QCOMPARE(Valor(session,
                   u"select serie || esquema || cantidad || ubicarlogotipo || "
                   u"imprimirlogotipo from \"folios facturas\""_s)
                 .toString(),
             u"FACFDI2501S"_s);
    QCOMPARE(Valor(session, u"select password from certificados where documento = 0"_s).toString(),
             u"12345678a"_s);

    // The browser: Ctrl+D makes it the default range.
    FormRegistry registry;
    RegistrarFormularios(registry);
    // The browser deletes itself on closing.
    auto* navegador =
        new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmFoliosFacturas"_s), registry);
    QVERIFY(Mostrar(*navegador));
    // No invoice uses the range yet: 0 used, the 250 folios left.
    const auto* modelo = navegador->modelo();
    QCOMPARE(modelo->Valor(0, modelo->ColumnaDe(u"ocupados"_s)).toInt(), 0);
    QCOMPARE(modelo->Valor(0, modelo->ColumnaDe(u"quedan"_s)).toInt(), 250);
    testing::SaveShot(navegador, u"navegador_folios_facturas"_s);
    QTest::keyClick(navegador->grid(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Valor(session, u"select predeterminar from \"folios facturas\""_s).toString(), u"+"_s);
    QCOMPARE(session.FolioFacturas, 1);
    // Enter on the row opens the change screen by name; Esc leaves it.
    {
      ModalCatcher catcher({{QString(), false}});
      QTest::keyClick(navegador->grid(), Qt::Key_Return);
      QCOMPARE(catcher.texts, QStringList{u"FrmFoliosFacturasC"_s});
    }
    navegador->close();

    // The certificates folder lost the pair: the change screen writes it back from the
    // database; saving empties the temporary folder.
    QFile::remove(session.CarpetaCer + u"/AAA010101AAA_20001000000100005867.cer"_s);
    QFile::remove(session.CarpetaCer + u"/AAA010101AAA_20001000000100005867.key"_s);
    QFile basura(session.CarpetaTmp + u"/temp"_s);
    QVERIFY(basura.open(QIODevice::WriteOnly));
    basura.close();
    FrmFoliosFacturasC cambio(session, u"1"_s);
    QVERIFY(Mostrar(cambio));
    QVERIFY(QFile::exists(session.CarpetaCer + u"/AAA010101AAA_20001000000100005867.cer"_s));
    QVERIFY(QFile::exists(session.CarpetaCer + u"/AAA010101AAA_20001000000100005867.key"_s));
    QVERIFY(!cambio.findChild<QComboBox*>(u"Esquema"_s)->isEnabled());
    QCOMPARE(cambio.findChild<CampoCaptura*>(u"Password"_s)->text(), u"12345678a"_s);
    QCOMPARE(Etiqueta(cambio, u"Informe0"_s), u"20001000000100005867"_s);
    QCOMPARE(cambio.findChild<QComboBox*>(u"UbicarLogoTipo"_s)->currentText(), u"Derecha"_s);
    testing::SaveShot(&cambio, u"frm_folios_facturas_c"_s);
    QCOMPARE(Foco(), cambio.findChild<CampoCaptura*>(u"FolioInicial"_s));
    Capturar({QString(), u"300"_s});
    Guardar(cambio);
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select cantidad from \"folios facturas\""_s).toInt(), 300);
    QVERIFY(QDir(session.CarpetaTmp).entryList(QDir::Files).isEmpty());
  }

  // A credit-note CBB range: its image from a .bmp (the notes side allows it), the size label,
  // Cancel on the question keeps the image, Yes takes it away and the save deletes its row.
  void RangoCbbDeNotas() {
    VENTARIX_COMPANY(company);
    Session session = SesionFolios(company);
    const QString bmp = company.folder() + u"/cbb.bmp"_s;
    QImage imagen(200, 200, QImage::Format_RGB32);
    imagen.fill(Qt::white);
    for (int i = 0; i < 200; i += 20) imagen.setPixel(i, i, qRgb(0, 0, 0));
    QVERIFY(imagen.save(bmp, "BMP"));
    FrmFoliosNotasA alta(session);
    Dialogos dialogos{{bmp}, {}};
    dialogos.Conectar(alta);
    QVERIFY(Mostrar(alta));
    auto* tabs = alta.findChild<QTabWidget*>(u"TabStrip1"_s);
    QCOMPARE(tabs->count(), 6);  // no promissory note on this side
    QTest::keyClick(Foco(), Qt::Key_Down);
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"CBB"_s);
    QTest::keyClick(Foco(), Qt::Key_Return);
    Capturar({u"NC"_s, u"7"_s, u"7"_s, u"REGIMEN DE PERSONAS FISICAS"_s, u"998877"_s, u"2011"_s});
    Asentar(alta);
    QCOMPARE(Etiqueta(alta, u"Cantidad"_s), u"1"_s);
    QTest::keyClick(&alta, Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(dialogos.preguntas.size(), 1);
    QVERIFY(dialogos.preguntas[0].startsWith(u"Abrir código bidimensional|"_s));
    QVERIFY(dialogos.preguntas[0].endsWith(u"|Archivos de imagen (*.jpg *.bmp)"_s));
    QCOMPARE(Etiqueta(alta, u"TamanoCbb"_s),
             QString::number(qRound(QFileInfo(bmp).size() / 1024.0)) + u" Kb"_s);
    testing::SaveShot(&alta, u"frm_folios_notas_a_cbb"_s);
    alta.findChild<QPushButton*>(u"Guardar"_s)->click();
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select count(*) from cbb where documento = 1"_s).toInt(), 1);

    FrmFoliosNotasC cambio(session, alta.Guardada());
    QVERIFY(Mostrar(cambio));
    QVERIFY(cambio.findChild<QLabel*>(u"Image1"_s)->pixmap().width() > 0);
    {
      ModalCatcher catcher(
          {{QString(), true, QMessageBox::Cancel}, {QString(), true, QMessageBox::Yes}},
          u"frm_folios_notas_c_quitar_"_s);
      QTest::keyClick(&cambio, Qt::Key_Q, Qt::AltModifier);
      QTRY_COMPARE(catcher.texts.size(), 1);
      QVERIFY(!Etiqueta(cambio, u"TamanoCbb"_s).isEmpty());
      Asentar(cambio);
      QTest::keyClick(&cambio, Qt::Key_Q, Qt::AltModifier);
      QTRY_COMPARE(catcher.texts.size(), 2);
      QCOMPARE(catcher.texts, (QStringList{u"Quitar el código bidimensional"_s,
                                           u"Quitar el código bidimensional"_s}));
    }
    QVERIFY(Etiqueta(cambio, u"TamanoCbb"_s).isEmpty());
    testing::SaveShot(&cambio, u"frm_folios_notas_c"_s);
    cambio.findChild<QPushButton*>(u"Guardar"_s)->click();
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select count(*) from cbb"_s).toInt(), 0);
  }
};

QTEST_MAIN(TestFoliosForms)
#include "tst_folios_forms.moc"
