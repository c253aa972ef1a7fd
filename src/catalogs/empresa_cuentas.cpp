#include "catalogs/empresa_cuentas.h"

#include "core/session_load.h"

namespace ventarix::empresa {

using namespace Qt::StringLiterals;

const std::vector<CorreoPredefinido>& CorreosPredefinidos() {
  static const std::vector<CorreoPredefinido> correos = {
      {u"Hotmail"_s, u"smtp.live.com"_s, u"25"_s},
      {u"Yahoo"_s, u"smtp.mail.yahoo.com"_s, u"465"_s},
      {u"Gmail"_s, u"smtp.gmail.com"_s, u"465"_s},
      {u"Ventarix"_s, QString::fromLatin1(kServidorSMTPPredeterminado),
       QString::fromLatin1(kPuertoSMTPPredeterminado), true, QString::fromLatin1(kDePredeterminado),
       QString::fromLatin1(kPasswordSMTPPredeterminado)},
  };
  return correos;
}

int CorreoDeServidor(const QString& servidor) {
  const QString nombre = servidor.trimmed().toLower();
  if (nombre.isEmpty()) return -1;
  // Each provider's word, in the list's order; the relay by its own host.
  const QString palabras[] = {u"live"_s, u"yahoo"_s, u"gmail"_s,
                              QString::fromLatin1(kServidorSMTPPredeterminado)};
  for (int i = 0; i < static_cast<int>(std::size(palabras)); ++i) {
    if (nombre.contains(palabras[i])) return i;
  }
  return -1;
}

void AplicarCorreo(int indice, RowValues& empresa) {
  const std::vector<CorreoPredefinido>& correos = CorreosPredefinidos();
  if (indice < 0 || indice >= static_cast<int>(correos.size())) return;
  const CorreoPredefinido& correo = correos[static_cast<size_t>(indice)];
  empresa.Set(u"servidorsmtp"_s, correo.servidor);
  empresa.Set(u"puertosmtp"_s, correo.puerto);
  if (correo.con_cuenta) {
    empresa.Set(u"de"_s, correo.de);
    empresa.Set(u"password"_s, correo.password);
  }
}

void CuentaDePruebaPac(RowValues& empresa) {
  empresa.Set(u"pacusuario"_s, QString::fromLatin1(kPacUsuarioDePrueba));
  empresa.Set(u"pacpassword"_s, QString::fromLatin1(kPacPasswordDePrueba));
  empresa.Set(u"pacproduccion"_s, u"N"_s);
}

}  // namespace ventarix::empresa
