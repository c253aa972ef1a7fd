// Stamps per second through the PAC client against the stand-in PAC (ventarix-pac, started
// here on a free port with its records in a scratch folder): one client after another, then
// four clients at once. Documents are sealed beforehand with the SAT test CSD valid today, so
// the figures are the exchange and the PAC's own checks and stamp.
// "bench_timbrado [documents per client]".
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include "edocs/cadena_original.h"
#include "edocs/certificado.h"
#include "edocs/cfdi_xml.h"
#include "edocs/comprobante_prueba.h"
#include "edocs/llave_privada.h"
#include "edocs/pac_cliente.h"

using namespace ventarix::edocs;
using namespace Qt::StringLiterals;

namespace {

const QString kCsd = u"" VENTARIX_SHARED_DIR "/sat/csd/EKU9003173C9_30001000000500003416"_s;

// `cuantos` invoices, each sealed a second apart (so each a new stamp for the PAC).
std::vector<QByteArray> Sellados(int desde, int cuantos) {
  const Certificado cer = LeerCertificadoDeArchivo(kCsd + u".cer"_s);
  const LlavePrivada llave = LlavePrivada::AbrirArchivo(kCsd + u".key"_s, u"12345678a"_s);
  static const QDateTime kInicio = QDateTime::currentDateTime().addSecs(-60);
  std::vector<QByteArray> documentos;
  for (int folio = desde; folio < desde + cuantos; ++folio) {
    Comprobante c = ventarix::testing::Factura();
    c.Folio = QString::number(folio);
    c.fecha = kInicio.addSecs(-folio);  // the cadena has no folio: the date tells them apart
    c.NoCertificado = cer.NoCertificado;
    c.Certificado = cer.base64;
    c.emisor.rfc = u"EKU9003173C9"_s;
    const CadenaOriginal cadena = GenerarCadenaOriginal(
        u"" VENTARIX_SHARED_DIR "/sat/cfdi32/cadenaoriginal_3_2.xslt"_s, ConstruirXml(c));
    c.Sello = llave.FirmarSha1(cadena.cadena.toUtf8());
    documentos.push_back(ConstruirXml(c));
  }
  return documentos;
}

// Stamps every document with `clientes` threads; the seconds taken, or -1 when one failed.
double Timbrar(const CuentaPac& cuenta, const std::vector<QByteArray>& documentos, int clientes) {
  std::atomic<size_t> siguiente{0};
  std::atomic<int> fallas{0};
  QElapsedTimer reloj;
  reloj.start();
  std::vector<std::thread> hilos;
  for (int i = 0; i < clientes; ++i) {
    hilos.emplace_back([&] {
      for (size_t n = siguiente++; n < documentos.size(); n = siguiente++) {
        const RespuestaPac r = PacTimbrar(cuenta, documentos[n]);
        if (ExtraerEtiqueta(r.texto, u"<status"_s, u"</status>"_s) != u"200"_s) {
          if (fallas++ == 0)
            std::fprintf(stderr, "%s%s\n", qPrintable(r.falla), qPrintable(r.texto));
        }
      }
    });
  }
  for (std::thread& hilo : hilos) hilo.join();
  return fallas == 0 ? reloj.nsecsElapsed() / 1e9 : -1;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const int por_cliente = argc > 1 ? QByteArray(argv[1]).toInt() : 50;
  QTemporaryDir carpeta;
  QProcess pac;
  pac.start(QStringLiteral(VENTARIX_PAC_PROGRAM),
            {u"--puerto"_s, u"0"_s, u"--datos"_s, carpeta.filePath(u"timbres.sqlite"_s)});
  while (pac.waitForReadyRead(15000) && !pac.canReadLine()) {
  }
  CuentaPac cuenta{u"testing@solucionfactible.com"_s, u"timbrado.SF.16672"_s};
  cuenta.url_pruebas = QString::fromUtf8(pac.readLine()).trimmed();
  if (cuenta.url_pruebas.isEmpty()) {
    std::fprintf(stderr, "ventarix-pac did not start: %s\n",
                 pac.readAllStandardError().constData());
    return 1;
  }
  std::printf("%-22s %8s %9s %10s\n", "clients", "stamps", "seconds", "stamps/s");
  int folio = 1;
  bool ok = true;
  for (const int clientes : {1, 4}) {
    const std::vector<QByteArray> documentos = Sellados(folio, por_cliente * clientes);
    folio += por_cliente * clientes;
    const double segundos = Timbrar(cuenta, documentos, clientes);
    ok = segundos >= 0;
    if (!ok) break;
    std::printf("%-22d %8zu %9.2f %10.1f\n", clientes, documentos.size(), segundos,
                documentos.size() / segundos);
  }
  pac.terminate();
  pac.waitForFinished(5000);
  return ok ? 0 : 1;
}
