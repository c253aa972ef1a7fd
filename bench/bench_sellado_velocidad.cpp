// Sealing speed side by side on one machine: ten-row CFDi 3.2 invoices sealed by
// SellarIngresoCFDi (its own read connection) and by SellarEnGuardado on the connection of a
// save in progress, then the same files through the command-line pipeline
//   xsltproc --nonet cadenaoriginal_3_2.xslt file.xml | openssl dgst -sha1 -sign key.pem | base64
// with the PEM key made once beforehand. Prints documents per second and the ratio.
// "bench_sellado_velocidad [documents] [--sin-tuberia]".
#include <cstdio>
#include <optional>

#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "core/company_database.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "edocs/empresa_sellado.h"
#include "edocs/mDigital.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFilas = 10;

DocumentoCaptura Factura(int folio) {
  DocumentoCaptura forma = testing::Documento(testing::kFacturaCFDi, u"A"_s, false);
  forma.Fg1.clear();
  for (int i = 0; i < kFilas; ++i) {
    forma.Fg1.append(testing::FilaFactura(u"ART-%1"_s.arg(i),
                                          u"ARTICULO DE FERRETERIA NUMERO %1"_s.arg(i), u"PZA"_s,
                                          1 + i % 7, 12.5 + i));
  }
  forma.Datos.insert(0, QString::number(folio));
  return forma;
}

void Revisar(const ResultadoSellado& r) {
  if (!r.ok() || r.archivo.isEmpty()) {
    qFatal("no sealed file: %s %s", qPrintable(r.Msg1), qPrintable(r.error_interno));
  }
}

// Wall time and processor time (this process and the tools it ran) of what runs between
// Seguir() and Parar(): on a machine shared with other work, the processor time tells the cost
// of a document and the wall time what a clerk would wait.
class Cronometro {
 public:
  void Seguir() {
    reloj_.start();
    cpu_inicio_ = Cpu();
  }
  void Parar() {
    pared_ns_ += reloj_.nsecsElapsed();
    cpu_ns_ += Cpu() - cpu_inicio_;
  }
  void Imprimir(const char* que, qsizetype documentos) const {
    std::printf("%-44s %5lld docs %8.1f docs/s %7.3f ms each | %8.1f docs/cpu-s %7.3f cpu-ms\n",
                que, static_cast<long long>(documentos), documentos * 1e9 / pared_ns_,
                pared_ns_ / 1e6 / documentos, documentos * 1e9 / cpu_ns_,
                cpu_ns_ / 1e6 / documentos);
  }
  double PorSegundo(qsizetype documentos) const { return documentos * 1e9 / pared_ns_; }
  double PorSegundoCpu(qsizetype documentos) const { return documentos * 1e9 / cpu_ns_; }

 private:
  static double Cpu() {
    double ns = 0;
    for (const int quien : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
      rusage uso{};
      getrusage(quien, &uso);
      for (const timeval& t : {uso.ru_utime, uso.ru_stime}) ns += t.tv_sec * 1e9 + t.tv_usec * 1e3;
    }
    return ns;
  }
  QElapsedTimer reloj_;
  double cpu_inicio_ = 0, pared_ns_ = 0, cpu_ns_ = 0;
};

// `veces` sealings from folio `desde` on, as the screen's driver runs them; the files written.
Cronometro EnPantalla(const Session& session, int desde, int veces, QStringList* archivos) {
  Cronometro cronometro;
  cronometro.Seguir();
  for (int i = 0; i < veces; ++i) {
    DocumentoCaptura forma = Factura(desde + i);
    const ResultadoSellado r = SellarIngresoCFDi(session, forma, {});
    Revisar(r);
    if (archivos) archivos->append(r.archivo);
  }
  cronometro.Parar();
  return cronometro;
}

// The sealing as a save runs it: on the save's connection, inside its transaction. Only the
// sealing is timed; the save's own connection and statements are not.
Cronometro EnGuardado(const Session& session, int desde, int veces) {
  Connection connection(session.Cadena);
  Cronometro cronometro;
  for (int i = 0; i < veces; ++i) {
    DocumentoCaptura forma = Factura(desde + i);
    Transaction guardado(connection);
    if (!guardado.ok()) qFatal("transaction: %s", qPrintable(guardado.error()));
    cronometro.Seguir();
    Revisar(SellarEnGuardado(session, connection, forma, false, u"CFDI"_s, {}));
    cronometro.Parar();
  }
  return cronometro;
}

// What creating a new file of a sealed document's size costs on the company's disk by itself:
// each seal writes one, and on a disk whose folders churn it is no small part.
Cronometro ArchivosNuevos(const QString& carpeta, const QByteArray& contenido, int veces) {
  QDir(carpeta).mkpath(u"nuevos"_s);
  Cronometro cronometro;
  cronometro.Seguir();
  for (int i = 0; i < veces; ++i) {
    QFile file(QDir(carpeta).filePath(u"nuevos/%1.xml"_s.arg(i)));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(contenido) < 0) {
      qFatal("new file");
    }
  }
  cronometro.Parar();
  return cronometro;
}

// The pipeline over each file; nullopt when a tool failed.
std::optional<Cronometro> Tuberia(const QString& hoja, const QString& pem,
                                  const QStringList& archivos, QByteArray* ultimo_sello) {
  Cronometro cronometro;
  cronometro.Seguir();
  for (const QString& archivo : archivos) {
    QProcess xslt, dgst, base64;
    xslt.setStandardOutputProcess(&dgst);
    dgst.setStandardOutputProcess(&base64);
    xslt.start(u"xsltproc"_s, {u"--nonet"_s, hoja, archivo});
    dgst.start(u"openssl"_s, {u"dgst"_s, u"-sha1"_s, u"-sign"_s, pem});
    base64.start(u"base64"_s, {u"-w0"_s});
    if (!xslt.waitForFinished() || !dgst.waitForFinished() || !base64.waitForFinished() ||
        xslt.exitCode() != 0 || dgst.exitCode() != 0 || base64.exitCode() != 0) {
      return std::nullopt;
    }
    *ultimo_sello = base64.readAllStandardOutput();
  }
  cronometro.Parar();
  return cronometro;
}

// The seal the system wrote in the file.
QByteArray SelloDelArchivo(const QString& archivo) {
  const QByteArray xml = testing::LeerBytes(archivo);
  const qsizetype inicio = xml.indexOf(" sello=\"") + 8;
  return xml.mid(inicio, xml.indexOf('"', inicio) - inicio);
}

bool HayHerramientas() {
  for (const QString& programa : {u"xsltproc"_s, u"openssl"_s, u"base64"_s})
    if (QStandardPaths::findExecutable(programa).isEmpty()) return false;
  return true;
}

QString LlavePem(const QString& carpeta) {
  const QString pem = QDir(carpeta).filePath(u"bench.pem"_s);
  QProcess pkcs8;
  pkcs8.start(u"openssl"_s, {u"pkcs8"_s, u"-inform"_s, u"DER"_s, u"-in"_s,
                             testing::CarpetaSat() + u"/csd/"_s + testing::BaseCsd() + u".key"_s,
                             u"-passin"_s, u"pass:12345678a"_s, u"-out"_s, pem});
  return pkcs8.waitForFinished() && pkcs8.exitCode() == 0 ? pem : QString();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList args = app.arguments();
  const bool sin_tuberia = args.contains(u"--sin-tuberia"_s);
  const int documentos = args.size() > 1 && args[1].toInt() > 0 ? args[1].toInt() : 1000;
  QTemporaryDir dir;
  const QString path = dir.filePath(u"empresa.mdb"_s);
  if (!CrearEmpresa(path)) qFatal("company");
  Session session;
  session.Motor = u"Access"_s;
  session.BaseDatos = path;
  session.BaseCarpeta = dir.path();
  session.Access = true;
  mFunciones::ConstruirCadenas(session);
  testing::CompletarSesionSellado(session);
  QString error;
  if (!testing::PrepararEmpresaSellado(session.Cadena, &error)) qFatal("%s", qPrintable(error));
  Connection c(session.Cadena);
  if (!RunInTransaction(c, u"update \"folios facturas\" set foliofinal = 1000000"_s)) {
    qFatal("range");
  }
  std::printf("Ten-row CFDi 3.2 invoices sealed on SQLite (SAT test CSD, RSA 1024, SHA-1)\n\n");
  EnPantalla(session, 1, 20, nullptr);  // warm-up: the sheet compiled, the key opened
  QStringList archivos;
  const Cronometro pantalla = EnPantalla(session, 100, documentos, &archivos);
  pantalla.Imprimir("SellarIngresoCFDi", documentos);
  const Cronometro guardado = EnGuardado(session, 100 + documentos, documentos);
  guardado.Imprimir("SellarEnGuardado (inside a save)", documentos);
  ArchivosNuevos(dir.path(), testing::LeerBytes(archivos.constFirst()), 200)
      .Imprimir("  of which, alone: a new file of that size", 200);
  if (sin_tuberia) return 0;
  if (!HayHerramientas()) {
    std::printf(
        "\nxsltproc, openssl or base64 missing (tools/packages.sh test packages): "
        "no pipeline figure\n");
    return 0;
  }
  const QString pem = LlavePem(dir.path());
  if (pem.isEmpty()) qFatal("openssl pkcs8 failed");
  const QStringList muestra = archivos.mid(0, 200);
  QByteArray sello;
  const QString hoja = session.CarpetaEsquemasCFDi + u"/cadenaoriginal_3_2.xslt"_s;
  const std::optional<Cronometro> tuberia = Tuberia(hoja, pem, muestra, &sello);
  if (!tuberia) qFatal("the pipeline failed");
  tuberia->Imprimir("xsltproc | openssl dgst -sha1 -sign | base64", muestra.size());
  const auto razon = [&](const Cronometro& nuestro, qsizetype n) {
    std::printf("  %.1f x by the clock, %.1f x by processor time\n",
                nuestro.PorSegundo(n) / tuberia->PorSegundo(muestra.size()),
                nuestro.PorSegundoCpu(n) / tuberia->PorSegundoCpu(muestra.size()));
  };
  std::printf("\nratio to the pipeline, SellarIngresoCFDi:\n");
  razon(pantalla, documentos);
  std::printf("ratio to the pipeline, SellarEnGuardado:\n");
  razon(guardado, documentos);
  std::printf("the pipeline's seal of the last file %s the system's\n",
              sello.trimmed() == SelloDelArchivo(muestra.last()) ? "equals" : "DIFFERS FROM");
  return 0;
}
