// Times what sealing one document costs in its parts: reading the certificate, opening the
// encrypted key (PBKDF2 with its password), one SHA-1 signature, and the cadena original of a
// 10-concept CFDi 3.2 document through the SAT sheet, first with its compilation and then from
// the kept compiled sheet. "bench_sellos [sat folder] [runs]".
#include <cstdio>
#include <functional>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include "edocs/cadena_original.h"
#include "edocs/certificado.h"
#include "edocs/llave_privada.h"

using namespace ventarix::edocs;
using namespace Qt::StringLiterals;

namespace {

QByteArray Leer(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray Documento(int conceptos) {
  QString renglones;
  for (int i = 1; i <= conceptos; ++i)
    renglones +=
        u"<cfdi:Concepto cantidad=\"%1.00\" unidad=\"PIEZA\" noIdentificacion=\"P-%1\" "
        "descripcion=\"Producto de ferretería número %1\" valorUnitario=\"10.00\" "
        "importe=\"%10.00\"/>"_s.arg(i);
  return (u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><cfdi:Comprobante "
          "xmlns:cfdi=\"http://www.sat.gob.mx/cfd/3\" version=\"3.2\" serie=\"A\" folio=\"1\" "
          "fecha=\"2024-05-02T10:11:12\" sello=\"\" formaDePago=\"Pago en una sola exhibición\" "
          "noCertificado=\"\" certificado=\"\" subTotal=\"550.00\" total=\"638.00\" "
          "tipoDeComprobante=\"ingreso\" metodoDePago=\"NO IDENTIFICADO\" "
          "LugarExpedicion=\"Guadalajara\"><cfdi:Emisor rfc=\"EKU9003173C9\" nombre=\"Escuela\">"
          "<cfdi:RegimenFiscal Regimen=\"General\"/></cfdi:Emisor><cfdi:Receptor "
          "rfc=\"XAXX010101000\"/><cfdi:Conceptos>"_s +
          renglones +
          u"</cfdi:Conceptos><cfdi:Impuestos totalImpuestosTrasladados=\"88.00\"><cfdi:Traslados>"
          "<cfdi:Traslado impuesto=\"IVA\" tasa=\"16.00\" importe=\"88.00\"/></cfdi:Traslados>"
          "</cfdi:Impuestos></cfdi:Comprobante>"_s)
      .toUtf8();
}

// Runs the operation `veces` times and prints the time of one.
bool Medir(const char* que, int veces, const std::function<bool()>& operacion) {
  QElapsedTimer reloj;
  reloj.start();
  for (int i = 0; i < veces; ++i) {
    if (!operacion()) {
      std::fprintf(stderr, "%s: failed\n", que);
      return false;
    }
  }
  const double us = static_cast<double>(reloj.nsecsElapsed()) / 1000.0 / veces;
  std::printf("%-48s %6d runs %12.1f us each\n", que, veces, us);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList args = app.arguments();
  const QString sat = args.size() > 1 ? args[1]
                                      : QFileInfo(QString::fromUtf8(__FILE__)).absolutePath() +
                                            u"/../../shared/sat"_s;
  const int veces = args.size() > 2 ? args[2].toInt() : 1000;
  const QString par = sat + u"/csd/EKU9003173C9_30001000000500003416"_s;
  const QByteArray cer = Leer(par + u".cer"_s), key = Leer(par + u".key"_s);
  const QString password = u"12345678a"_s, hoja = sat + u"/cfdi32/cadenaoriginal_3_2.xslt"_s;
  const QByteArray xml = Documento(10);
  if (cer.isEmpty() || key.isEmpty() || !QFile::exists(hoja)) {
    std::fprintf(stderr, "no SAT files under %s\n", qPrintable(sat));
    return 1;
  }
  const LlavePrivada llave = LlavePrivada::Abrir(key, password);
  QByteArray cadena;
  bool ok = Medir("cadena original, sheet compiled (first)", 1, [&] {
    const CadenaOriginal resultado = GenerarCadenaOriginal(hoja, xml);
    cadena = resultado.cadena.toUtf8();
    return resultado.ok;
  });
  ok = ok && Medir("certificate read (DER, serial, dates, Base64)", veces,
                   [&] { return LeerCertificado(cer).ok; });
  ok = ok && Medir("key opened (PKCS#8, PBKDF2, 3DES)", qMax(1, veces / 50),
                   [&] { return LlavePrivada::Abrir(key, password).ok(); });
  ok = ok && Medir("SHA-1 RSA signature of the cadena", veces,
                   [&] { return !llave.FirmarSha1(cadena).isEmpty(); });
  ok = ok && Medir("cadena original, 10 concepts, kept sheet", veces,
                   [&] { return GenerarCadenaOriginal(hoja, xml).ok; });
  ok = ok && Medir("cadena original, 200 concepts, kept sheet", qMax(1, veces / 10),
                   [&, grande = Documento(200)] { return GenerarCadenaOriginal(hoja, grande).ok; });
  ok = ok && Medir("one document: key, cadena, seal", qMax(1, veces / 50), [&] {
         const LlavePrivada propia = LlavePrivada::Abrir(key, password);
         const CadenaOriginal resultado = GenerarCadenaOriginal(hoja, xml);
         return resultado.ok && !propia.FirmarSha1(resultado.cadena.toUtf8()).isEmpty();
       });
  return ok ? 0 : 1;
}
