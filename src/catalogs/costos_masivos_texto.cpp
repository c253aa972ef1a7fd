#include "catalogs/costos_masivos.h"

namespace ventarix::costos_masivos {

namespace {

// Reads the text a spreadsheet puts on the clipboard, cell by cell.
class Lector {
 public:
  explicit Lector(const QString& texto) : texto_(texto) {}

  QList<Fila> Filas() {
    for (i_ = 0; i_ < texto_.size(); ++i_) {
      const QChar c = texto_.at(i_);
      if (entre_comillas_) {
        Comillas(c);
      } else if (c == u'"' && celda_.isEmpty()) {
        entre_comillas_ = true;
      } else if (c == u'\t') {
        TerminarCelda();
      } else if (c == u'\r' || c == u'\n') {
        if (c == u'\r' && Siguiente() == u'\n') ++i_;
        TerminarFila();
      } else {
        celda_ += c;
      }
    }
    // A copy ends with a line break; text after the last one is a row of its own.
    if (!celda_.isEmpty() || !fila_.isEmpty()) TerminarFila();
    return filas_;
  }

 private:
  QChar Siguiente() const { return i_ + 1 < texto_.size() ? texto_.at(i_ + 1) : QChar(); }

  // Inside quotes a doubled quote is one quote, and a single one closes the cell's text.
  void Comillas(QChar c) {
    if (c != u'"') {
      celda_ += c;
    } else if (Siguiente() == u'"') {
      celda_ += c;
      ++i_;
    } else {
      entre_comillas_ = false;
    }
  }

  void TerminarCelda() {
    fila_ << celda_;
    celda_.clear();
  }

  void TerminarFila() {
    TerminarCelda();
    filas_ << fila_;
    fila_.clear();
  }

  const QString& texto_;
  qsizetype i_ = 0;
  bool entre_comillas_ = false;
  QString celda_;
  Fila fila_;
  QList<Fila> filas_;
};

}  // namespace

QList<Fila> LeerTextoPegado(const QString& texto) { return Lector(texto).Filas(); }

}  // namespace ventarix::costos_masivos
