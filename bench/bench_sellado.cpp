// Sealing speed on SQLite: invoices of 1, 10 and 100 rows sealed whole (checks, XML, cadena,
// seal, file), then the pieces timed on their own over the same documents: the XML built, the
// SAT style sheet run, the cadena signed and the file written; and, beside them, what opening
// the key would cost if it were not kept opened for the session. Prints a table.
// bench_sellado_velocidad puts the sealing beside the command-line pipeline.
#include <cstdio>
#include <functional>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include "core/company_database.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "edocs/cadena_original.h"
#include "edocs/cfdi_xml.h"
#include "edocs/empresa_sellado.h"
#include "edocs/llave_privada.h"
#include "edocs/mDigital.h"

using namespace ventarix;
using namespace ventarix::edocs;

namespace {

double Milisegundos(int veces, const std::function<void(int)>& trabajo) {
  QElapsedTimer reloj;
  reloj.start();
  for (int i = 0; i < veces; ++i) trabajo(i);
  return reloj.nsecsElapsed() / 1e6;
}

DocumentoCaptura Factura(int filas) {
  DocumentoCaptura forma = testing::Documento(testing::kFacturaCFDi, QStringLiteral("A"), false);
  forma.Fg1.clear();
  for (int i = 0; i < filas; ++i) {
    forma.Fg1.append(testing::FilaFactura(QStringLiteral("ART-%1").arg(i),
                                          QStringLiteral("ARTICULO DE FERRETERIA NUMERO %1").arg(i),
                                          QStringLiteral("PZA"), 1 + i % 7, 12.5 + i));
  }
  return forma;
}

struct Fila {
  int filas = 0;
  double total = 0, abrir = 0, construir = 0, xslt = 0, llave = 0, firma = 0, escribir = 0;
  int veces = 0;
};

Fila Medir(const Session& session, int filas, int veces) {
  Fila f{filas};
  f.veces = veces;
  Comprobante comprobante;
  f.total = Milisegundos(veces, [&](int i) {
    DocumentoCaptura forma = Factura(filas);
    forma.Datos.insert(0, QString::number(i + 1));
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    if (!r.ok() || r.archivo.isEmpty()) qFatal("no sealed file: %s", qPrintable(r.Msg1));
    comprobante = r.comprobante;
  });
  // Every driver opens its own connection: SQLite reads the company's schema on the first
  // statement.
  f.abrir = Milisegundos(veces, [&](int) {
    Connection c(session.Cadena, Connection::Acceso::kLectura);
    c.Scalar(QStringLiteral("select nombre from clientes where numero = ?"), {testing::kCliente});
  });
  const QString hoja = session.CarpetaEsquemasCFDi + QStringLiteral("/cadenaoriginal_3_2.xslt");
  const QString key =
      QDir(session.CarpetaCer).filePath(testing::BaseCsd() + QStringLiteral(".key"));
  QByteArray xml;
  f.construir =
      Milisegundos(veces, [&](int) { xml = ConstruirXml(comprobante, FormatoXml::kCfdi32); });
  QString cadena;
  f.xslt = Milisegundos(veces, [&](int) { cadena = GenerarCadenaOriginal(hoja, xml).cadena; });
  f.llave = Milisegundos(veces, [&](int) {
    if (!LlavePrivada::AbrirArchivo(key, QStringLiteral("12345678a")).ok()) qFatal("key");
  });
  const LlavePrivada llave = LlavePrivada::AbrirArchivo(key, QStringLiteral("12345678a"));
  f.firma = Milisegundos(veces, [&](int) { llave.FirmarSha1(cadena.toUtf8()); });
  const QString ruta = QDir(session.CarpetaTmp).filePath(QStringLiteral("bench.xml"));
  f.escribir = Milisegundos(veces, [&](int) {
    QFile file(ruta);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(xml) != xml.size()) {
      qFatal("write");
    }
  });
  return f;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QTemporaryDir dir;
  const QString path = dir.filePath(QStringLiteral("empresa.mdb"));
  if (!CrearEmpresa(path)) qFatal("company");
  Session session;
  session.Motor = QStringLiteral("Access");
  session.BaseDatos = path;
  session.BaseCarpeta = dir.path();
  session.Access = true;
  mFunciones::ConstruirCadenas(session);
  testing::CompletarSesionSellado(session);
  QString error;
  if (!testing::PrepararEmpresaSellado(session.Cadena, &error)) qFatal("%s", qPrintable(error));
  {
    Connection c(session.Cadena);
    if (!RunInTransaction(c,
                          QStringLiteral("update \"folios facturas\" set foliofinal = 100000"))) {
      qFatal("range");
    }
  }
  std::printf("Sealing CFDi 3.2 invoices on SQLite (SAT test CSD, RSA 1024, SHA-1)\n\n");
  std::printf("%5s %6s %9s %8s | %7s %7s %7s %7s %7s %7s %7s\n", "rows", "docs", "docs/s", "ms/doc",
              "open", "build", "xslt", "key", "sign", "write", "checks");
  Medir(session, 1, 20);  // warm-up: caches, first files of the folder
  for (const auto& [filas, veces] : {std::pair{1, 300}, {10, 200}, {100, 60}}) {
    const Fila f = Medir(session, filas, veces);
    const double piezas = f.abrir + f.construir + f.xslt + f.firma + f.escribir;
    const auto pct = [&f](double ms) { return 100.0 * ms / f.total; };
    std::printf("%5d %6d %9.1f %8.2f | %6.1f%% %6.1f%% %6.1f%% %6.1f%% %6.1f%% %6.1f%% %6.1f%%\n",
                filas, f.veces, f.veces * 1000.0 / f.total, f.total / f.veces, pct(f.abrir),
                pct(f.construir), pct(f.xslt), pct(f.llave), pct(f.firma), pct(f.escribir),
                pct(f.total - piezas));
  }
  std::printf(
      "\nbuild: the document's XML; xslt: the SAT's cadena sheet; sign: SHA-1 RSA;\n"
      "key: opening the encrypted PKCS#8 key with its password, against a seal's time: done\n"
      "once per session and range, so not part of a seal (nor of checks);\n"
      "write: the file; checks: the rest (queries, certificate, files, grid).\n");
  return 0;
}
