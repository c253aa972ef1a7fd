#include <thread>

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "edocs/cadena_original.h"
#include "edocs/herramientas.h"

using namespace ventarix::edocs;
using namespace ventarix::testing;

namespace {

const QString kSat = QStringLiteral(VENTARIX_SHARED_DIR "/sat/");
const QString kArbol = kSat + QStringLiteral("www.sat.gob.mx/sitio_internet/cfd/");

// What sets a CFD 2.2 document apart from a CFDi 3.2 one, for the document builder.
struct Esquema {
  const char* prefijo;
  const char* espacio;
  const char* version;
  const char* aprobacion;  // CFD's own attributes of the root
};
const Esquema kCfdi{"cfdi", "http://www.sat.gob.mx/cfd/3", "3.2", ""};
const Esquema kCfd{"cfd", "http://www.sat.gob.mx/cfd/2", "2.2",
                   " noAprobacion=\"12345\" anoAprobacion=\"2012\""};

// A hand-written invoice: blanks to collapse, accents, escaped characters, an empty optional
// attribute, customs data on the first concept, withholdings and transfers.
QByteArray Documento(const Esquema& e, int conceptos) {
  QString conceptos_xml;
  for (int i = 1; i <= conceptos; ++i) {
    conceptos_xml +=
        QStringLiteral(
            "<p:Concepto cantidad=\"%1.00\" unidad=\"PIEZA\" noIdentificacion=\"TOR-%1\" "
            "descripcion=\"  Tornillo   cabeza hexagonal  %1&quot; &amp; tuerca \" "
            "valorUnitario=\"12.50\" importe=\"%2\">%3</p:Concepto>")
            .arg(i)
            .arg(12.5 * i, 0, 'f', 2)
            .arg(i == 1 ? QStringLiteral("<p:InformacionAduanera numero=\"1234\" "
                                         "fecha=\"2015-01-02\" aduana=\"Nuevo Laredo\"/>")
                        : QString());
  }
  QString xml = QStringLiteral(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<p:Comprobante xmlns:p=\"%1\" version=\"%2\" serie=\"A\" folio=\"501\"%3 "
      "fecha=\"2015-06-01T10:20:30\" sello=\"\" formaDePago=\"Pago en una sola exhibición\" "
      "noCertificado=\"\" certificado=\"\" condicionesDePago=\"\" subTotal=\"1000.00\" "
      "descuento=\"0.00\" TipoCambio=\"1.0000\" Moneda=\"MXN\" total=\"1160.00\" "
      "tipoDeComprobante=\"ingreso\" metodoDePago=\"NO IDENTIFICADO\" "
      "LugarExpedicion=\"Guadalajara, Jalisco\" NumCtaPago=\"NO IDENTIFICADO\">\n"
      " <p:Emisor rfc=\"AAA010101AAA\" nombre=\"Ferretería  Ñandú, S.A. de C.V.\">\n"
      "  <p:DomicilioFiscal calle=\"Av. Juárez\" noExterior=\"100\" colonia=\"Centro\" "
      "municipio=\"Guadalajara\" estado=\"Jalisco\" pais=\"México\" codigoPostal=\"44100\"/>\n"
      "  <p:ExpedidoEn calle=\"Calle 2\" noExterior=\"5\" noInterior=\"B\" pais=\"México\"/>\n"
      "  <p:RegimenFiscal Regimen=\"Régimen general de ley\"/>\n"
      " </p:Emisor>\n"
      " <p:Receptor rfc=\"XAXX010101000\" nombre=\"Pérez &lt;Hermanos&gt;\">\n"
      "  <p:Domicilio calle=\"Hidalgo\" noExterior=\"7\" colonia=\"Las Águilas\" "
      "municipio=\"Zapopan\" estado=\"Jalisco\" pais=\"México\" codigoPostal=\"45080\"/>\n"
      " </p:Receptor>\n"
      " <p:Conceptos>%4</p:Conceptos>\n"
      " <p:Impuestos totalImpuestosRetenidos=\"10.00\" totalImpuestosTrasladados=\"160.00\">\n"
      "  <p:Retenciones><p:Retencion impuesto=\"ISR\" importe=\"10.00\"/></p:Retenciones>\n"
      "  <p:Traslados><p:Traslado impuesto=\"IVA\" tasa=\"16.00\" importe=\"160.00\"/>"
      "</p:Traslados>\n"
      " </p:Impuestos>\n"
      "</p:Comprobante>\n");
  xml = xml.arg(QLatin1String(e.espacio), QLatin1String(e.version), QLatin1String(e.aprobacion),
                conceptos_xml);
  const QString prefijo = QLatin1String(e.prefijo);
  xml.replace(QStringLiteral("<p:"), QLatin1Char('<') + prefijo + QLatin1Char(':'))
      .replace(QStringLiteral("</p:"), QStringLiteral("</") + prefijo + QLatin1Char(':'))
      .replace(QStringLiteral("xmlns:p="), QStringLiteral("xmlns:") + prefijo + QLatin1Char('='));
  return xml.toUtf8();
}

// xsltproc, the libxslt command line, is the witness: what it prints for the same sheet and
// document is the cadena.
QByteArray Xsltproc(const QString& hoja, const QByteArray& xml) {
  QTemporaryDir dir;
  const QString documento = dir.filePath(QStringLiteral("documento.xml"));
  if (!Escribir(documento, xml)) return "(no se escribió el documento)";
  const Salida s =
      Ejecutar(QStringLiteral("xsltproc"), {QStringLiteral("--nonet"), hoja, documento});
  return s.codigo == 0 ? s.out : "(xsltproc falló)";
}

bool CopiarCarpeta(const QString& origen, const QString& destino) {
  if (!QDir().mkpath(destino)) return false;
  for (const QString& nombre : QDir(origen).entryList(QDir::Files))
    if (!QFile::copy(origen + QLatin1Char('/') + nombre, destino + QLatin1Char('/') + nombre))
      return false;
  return true;
}

void CompararConXsltproc(const QString& hoja, const QByteArray& xml) {
  const CadenaOriginal cadena = GenerarCadenaOriginal(hoja, xml);
  QVERIFY2(cadena.ok, qPrintable(cadena.error));
  QVERIFY(cadena.cadena.startsWith(QLatin1String("||")) &&
          cadena.cadena.endsWith(QLatin1String("||")));
  // The sheet did match the document, not only print its bounds.
  QVERIFY2(cadena.cadena.contains(QLatin1String("|AAA010101AAA|")), qPrintable(cadena.cadena));
  QCOMPARE(cadena.cadena.toUtf8(), Xsltproc(hoja, xml));
}

// Replaces one text of a sheet file (its size changes with it).
bool Editar(const QString& path, const QByteArray& antes, const QByteArray& despues) {
  QByteArray texto = Leer(path);
  if (!texto.contains(antes)) return false;
  return Escribir(path, texto.replace(antes, despues));
}

}  // namespace

class TstCadenaOriginal : public QObject {
  Q_OBJECT

 private slots:
  void igualQueXsltproc_data() {
    QTest::addColumn<QString>("hoja");
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("CFDi carpeta plana, 40 conceptos")
        << kSat + QStringLiteral("cfdi32/cadenaoriginal_3_2.xslt") << Documento(kCfdi, 40);
    QTest::newRow("CFDi árbol del SAT")
        << kArbol + QStringLiteral("3/cadenaoriginal_3_2/cadenaoriginal_3_2.xslt")
        << Documento(kCfdi, 2);
    QTest::newRow("CFD carpeta plana")
        << kSat + QStringLiteral("cfd22/cadenaoriginal_2_2.xslt") << Documento(kCfd, 2);
    QTest::newRow("CFD árbol del SAT")
        << kArbol + QStringLiteral("2/cadenaoriginal_2_0/cadenaoriginal_2_2.xslt")
        << Documento(kCfd, 2);
  }
  void igualQueXsltproc() {
    QFETCH(QString, hoja);
    QFETCH(QByteArray, xml);
    CompararConXsltproc(hoja, xml);
  }

  // A company folder may hold blanks and accents; the includes are still found beside the
  // sheet, and a sheet that failed, an edited sheet or include count from the next document on.
  void hojaEnOtraCarpetaYEditada() {
    QTemporaryDir dir;
    const QString carpeta = dir.filePath(QStringLiteral("Esquemas del SAT ñ"));
    QVERIFY(CopiarCarpeta(kSat + QStringLiteral("cfdi32"), carpeta));
    const QString hoja = carpeta + QStringLiteral("/cadenaoriginal_3_2.xslt");
    const QByteArray xml = Documento(kCfdi, 3);
    const QByteArray original = Leer(hoja);
    QVERIFY(Escribir(hoja, "<xsl:stylesheet"));
    QVERIFY(!GenerarCadenaOriginal(hoja, xml).ok);
    QVERIFY(Escribir(hoja, original));
    CompararConXsltproc(hoja, xml);
    const QString antes = GenerarCadenaOriginal(hoja, xml).cadena;

    QVERIFY(Editar(carpeta + QStringLiteral("/utilerias.xslt"), "normalize-space(string($s))",
                   "translate(normalize-space(string($s)), 'aeiou', 'AEIOU')"));
    CompararConXsltproc(hoja, xml);
    QVERIFY(GenerarCadenaOriginal(hoja, xml).cadena != antes);

    QVERIFY(Editar(hoja, "select=\"./@LugarExpedicion\"", "select=\"./@serie\""));
    CompararConXsltproc(hoja, xml);
    QVERIFY(GenerarCadenaOriginal(hoja, xml).cadena.contains(QLatin1String("|A|")));
  }

  void errores_data() {
    QTest::addColumn<QString>("archivo");  // the sheet's name in a fresh folder
    QTest::addColumn<QByteArray>("hoja");  // its content; empty: no file
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<bool>("del_documento");
    const QByteArray buena =
        "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
        "<xsl:output method=\"text\"/><xsl:template match=\"/\">||<xsl:value-of "
        "select=\"name(*)\"/>||</xsl:template></xsl:stylesheet>";
    const QByteArray xml = Documento(kCfdi, 1);
    QTest::newRow("documento cortado") << "buena.xslt" << buena << xml.left(300) << true;
    QTest::newRow("documento vacío") << "buena.xslt" << buena << QByteArray() << true;
    QTest::newRow("etiquetas cruzadas")
        << "buena.xslt" << buena << QByteArray("<a><b></a></b>") << true;
    QTest::newRow("hoja que no existe") << "nohay.xslt" << QByteArray() << xml << false;
    QTest::newRow("hoja que no es XML")
        << "rota.xslt" << QByteArray("<xsl:stylesheet") << xml << false;
    QByteArray mala = buena;
    QTest::newRow("expresión que no compila")
        << "mala.xslt" << mala.replace("name(*)", "name((") << xml << false;
    QByteArray incompleta = buena;
    QTest::newRow("incluye lo que no hay")
        << "incompleta.xslt"
        << incompleta.replace("<xsl:output", "<xsl:include href=\"falta.xslt\"/><xsl:output") << xml
        << false;
  }
  void errores() {
    QFETCH(QString, archivo);
    QFETCH(QByteArray, hoja);
    QFETCH(QByteArray, xml);
    QFETCH(bool, del_documento);
    QTemporaryDir dir;
    const QString path = dir.filePath(archivo);
    if (!hoja.isEmpty()) QVERIFY(Escribir(path, hoja));
    const CadenaOriginal cadena = GenerarCadenaOriginal(path, xml);
    QVERIFY(!cadena.ok);
    QVERIFY(cadena.cadena.isEmpty());
    QVERIFY(!cadena.error.contains(QLatin1Char('\n')) && !cadena.error.contains(QLatin1Char('\r')));
    const QString sufijo = QStringLiteral(" Para el documento XML");
    if (del_documento) {
      QVERIFY2(cadena.error.endsWith(sufijo) && cadena.error.size() > sufijo.size() + 5,
               qPrintable(cadena.error));
    } else {
      QVERIFY2(cadena.error.startsWith(archivo + QLatin1Char(' ')) &&
                   cadena.error.size() > archivo.size() + 5,
               qPrintable(cadena.error));
    }
  }

  // The SAT sheets declare XSLT 2.0: libxslt's notices about it, and the reasons of failures,
  // stay off the terminal.
  void nadaEnStderr() {
    QTemporaryDir dir;
    QVERIFY(CopiarCarpeta(kSat + QStringLiteral("cfdi32"), dir.filePath(QStringLiteral("e"))));
    const QString hoja = dir.filePath(QStringLiteral("e/cadenaoriginal_3_2.xslt"));
    const QString salida = dir.filePath(QStringLiteral("stderr.txt"));
    fflush(stderr);
    const int original = dup(STDERR_FILENO);
    QFile archivo(salida);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    dup2(archivo.handle(), STDERR_FILENO);
    const bool buena = GenerarCadenaOriginal(hoja, Documento(kCfdi, 1)).ok;
    const bool rota = GenerarCadenaOriginal(hoja, "<a><b></a>").ok;
    const bool sin_include =
        GenerarCadenaOriginal(dir.filePath(QStringLiteral("x.xslt")), "<a/>").ok;
    fflush(stderr);
    dup2(original, STDERR_FILENO);
    close(original);
    archivo.close();
    QVERIFY(buena && !rota && !sin_include);
    QCOMPARE(Leer(salida), QByteArray());
  }

  // The sealing of several documents at once shares one compiled sheet.
  void variosHilos() {
    const QString hoja = kSat + QStringLiteral("cfdi32/cadenaoriginal_3_2.xslt");
    constexpr int kHilos = 6;
    QList<QByteArray> documentos, esperadas;
    for (int i = 0; i < kHilos; ++i) {
      documentos.append(Documento(kCfdi, i + 1));
      esperadas.append(Xsltproc(hoja, documentos.last()));
    }
    QList<QByteArray> obtenidas[kHilos];
    std::vector<std::thread> hilos;
    for (int h = 0; h < kHilos; ++h)
      hilos.emplace_back([&, h] {
        for (int vuelta = 0; vuelta < 20; ++vuelta)
          obtenidas[h].append(
              GenerarCadenaOriginal(hoja, documentos[(h + vuelta) % kHilos]).cadena.toUtf8());
      });
    for (std::thread& hilo : hilos) hilo.join();
    for (int h = 0; h < kHilos; ++h)
      for (int vuelta = 0; vuelta < 20; ++vuelta)
        QCOMPARE(obtenidas[h][vuelta], esperadas[(h + vuelta) % kHilos]);
  }
};

QTEST_GUILESS_MAIN(TstCadenaOriginal)
#include "tst_cadena_original.moc"
