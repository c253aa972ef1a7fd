// The stamp read from the PAC's reply: the six tags of the result, by plain text search.
#include <QDateTime>

#include "edocs/mTimbrar_familias.h"

namespace ventarix::edocs::timbrado {
namespace {

using namespace Qt::StringLiterals;

QString Etiqueta(const QString& respuesta, const QString& nombre) {
  return ExtraerEtiqueta(respuesta, u"<"_s + nombre, u"</"_s + nombre + u">"_s);
}

bool EsFechaLocal(const QString& texto) {
  return texto.size() == 19 && QDateTime::fromString(texto, u"yyyy-MM-ddTHH:mm:ss"_s).isValid();
}

// The TFD carries FechaTimbrado as the PAC's local time, "yyyy-MM-ddTHH:mm:ss". The provider's
// service gives fechaTimbrado in GMT, possibly with a fraction or a zone, and advises against
// building the TFD from it; the stamp's own cadena original (||1.0|UUID|FechaTimbrado|...)
// holds the date the PAC signed, so that one is taken when present; otherwise the reply's text
// is cut to its first 19 characters.
QString FechaDelTimbre(const QString& fecha, const QString& cadena) {
  if (fecha.isEmpty() || EsFechaLocal(fecha)) return fecha;
  const QString firmada = cadena.section(u'|', 4, 4);
  if (cadena.startsWith(u"||"_s) && EsFechaLocal(firmada)) return firmada;
  return fecha.left(19);
}

}  // namespace

bool TimbreRecibido::completo() const {
  // The cadena original is not part of the test.
  return !timbre.uuid.isEmpty() && !timbre.fecha_timbrado.isEmpty() &&
         !timbre.no_certificado_sat.isEmpty() && !timbre.sello_sat.isEmpty() && !qr_code.isEmpty();
}

TimbreRecibido LeerTimbre(const QString& respuesta) {
  TimbreRecibido r;
  r.timbre.uuid = Etiqueta(respuesta, u"uuid"_s);
  r.timbre.no_certificado_sat = Etiqueta(respuesta, u"certificadoSAT"_s);
  r.timbre.sello_sat = Etiqueta(respuesta, u"selloSAT"_s);
  r.cadena_original = Etiqueta(respuesta, u"cadenaOriginal"_s);
  r.qr_code = Etiqueta(respuesta, u"qrCode"_s);
  r.timbre.fecha_timbrado =
      FechaDelTimbre(Etiqueta(respuesta, u"fechaTimbrado"_s), r.cadena_original);
  return r;
}

}  // namespace ventarix::edocs::timbrado
