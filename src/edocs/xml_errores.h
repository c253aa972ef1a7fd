#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix::edocs {

// While it lives, what libxml2 and libxslt would print on stderr from this thread is kept here
// instead. Nested captures stack; without one, the libraries' output goes to stderr as usual.
class ErroresXml {
 public:
  ErroresXml();
  ~ErroresXml();
  ErroresXml(const ErroresXml&) = delete;
  ErroresXml& operator=(const ErroresXml&) = delete;

  // What was kept, on one line. The notices of sheets declaring XSLT 2.0 (run in
  // forwards-compatible mode, which is what the SAT sheets need) are left out.
  QString Texto() const;

  // Called by the libraries' handlers.
  void Agregar(const QByteArray& texto) { texto_ += texto; }

 private:
  QByteArray texto_;
  ErroresXml* anterior_;
};

// A library message as a person reads it: line breaks out, runs of blanks in one.
QString UnaLinea(const QString& texto);

}  // namespace ventarix::edocs
