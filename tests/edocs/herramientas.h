#pragma once

// What the document tests share with the world outside the system: files written and read
// whole, a command line run as an independent witness (xmllint, xsltproc, openssl), and
// known-answer files compared byte for byte with their golden copy under tests/edocs/golden
// (a missing golden fails; VENTARIX_REWRITE_GOLDEN=1 writes it from the run).
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

#include "edocs/comprobante.h"

namespace ventarix::testing {

struct Salida {
  int codigo = -1;
  QByteArray out, err;
  QByteArray Todo() const { return out + err; }
};

inline Salida Ejecutar(const QString& programa, const QStringList& argumentos) {
  QProcess p;
  p.start(programa, argumentos);
  Salida s;
  if (!p.waitForFinished(60000)) {
    s.err = p.errorString().toUtf8();
    return s;
  }
  s.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
  s.out = p.readAllStandardOutput();
  s.err = p.readAllStandardError();
  return s;
}

// One element of a document as Qt's own parser reads it, outside the system's code.
struct Elemento {
  QString nombre;  // as written, prefix included
  QXmlStreamAttributes atributos;
  int nivel = 0;  // 0 is the root
  QString padre;
  QString Valor(const QString& atributo) const { return atributos.value(atributo).toString(); }
};

// The document's elements in order; an empty list when it is not well formed.
inline QList<Elemento> Analizar(const QByteArray& xml) {
  QList<Elemento> elementos;
  QXmlStreamReader lector(xml);
  lector.setNamespaceProcessing(false);
  QStringList abiertos;
  while (!lector.atEnd()) {
    lector.readNext();
    if (lector.isStartElement()) {
      elementos.append({lector.qualifiedName().toString(), lector.attributes(),
                        static_cast<int>(abiertos.size()), abiertos.value(abiertos.size() - 1)});
      abiertos << elementos.last().nombre;
    } else if (lector.isEndElement()) {
      abiertos.removeLast();
    }
  }
  return lector.hasError() ? QList<Elemento>() : elementos;
}

// The elements of a name, with or without its prefix.
inline QList<Elemento> Todos(const QList<Elemento>& elementos, const QString& nombre) {
  QList<Elemento> hallados;
  for (const Elemento& e : elementos) {
    if (e.nombre == nombre || e.nombre.section(QLatin1Char(':'), -1) == nombre) hallados << e;
  }
  return hallados;
}

inline bool Escribir(const QString& path, const QByteArray& bytes) {
  QFile f(path);
  return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

inline QByteArray Leer(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The seal checked as the SAT would: the cadena signed with SHA-1 under the public key of the
// certificate the document itself carries. `detalle` gets what openssl said.
inline bool SelloVerifica(const edocs::Comprobante& c, QByteArray* detalle) {
  using namespace Qt::StringLiterals;
  QTemporaryDir dir;
  const QString der = dir.filePath(u"cert.der"_s), pem = dir.filePath(u"pub.pem"_s);
  const QString firma = dir.filePath(u"firma.bin"_s), cadena = dir.filePath(u"cadena.txt"_s);
  if (!Escribir(der, QByteArray::fromBase64(c.Certificado.toLatin1())) ||
      !Escribir(firma, QByteArray::fromBase64(c.Sello.toLatin1())) ||
      !Escribir(cadena, c.CadenaOriginal.toUtf8())) {
    return false;
  }
  const Salida llave = Ejecutar(u"openssl"_s, {u"x509"_s, u"-inform"_s, u"DER"_s, u"-in"_s, der,
                                               u"-noout"_s, u"-pubkey"_s, u"-out"_s, pem});
  *detalle = llave.Todo();
  if (llave.codigo != 0) return false;
  const Salida v = Ejecutar(
      u"openssl"_s, {u"dgst"_s, u"-sha1"_s, u"-verify"_s, pem, u"-signature"_s, firma, cadena});
  *detalle = v.Todo();
  return v.codigo == 0 && v.out.contains("Verified OK");
}

inline void CompararConDorado(const QString& nombre, const QByteArray& contenido) {
  const QString path = QStringLiteral(VENTARIX_SOURCE_DIR "/tests/edocs/golden/") + nombre;
  if (qEnvironmentVariableIntValue("VENTARIX_REWRITE_GOLDEN") == 1) {
    QDir().mkpath(QFileInfo(path).path());
    QVERIFY(Escribir(path, contenido));
  }
  QFile golden(path);
  QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(QStringLiteral("golden missing: ") + path));
  QCOMPARE(contenido, golden.readAll());
}

}  // namespace ventarix::testing
