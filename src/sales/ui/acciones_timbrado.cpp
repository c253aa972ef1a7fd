#include "sales/ui/acciones_timbrado.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QRegularExpression>

#include "core/ui/message_box.h"
#include "core/ui/navegador.h"
#include "core/ui/trabajo_en_espera.h"
#include "edocs/mTimbrar.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;

namespace {

const QString kAviso = u"Comunicando con el PAC <Solución Factible>..."_s;

// The PAC's reply as the box shows it: one element per line, the long Base64 values (the
// stamped document, the QR picture) cut to their beginning.
QString ParaMostrar(QString respuesta) {
  static const QRegularExpression kLargo(u">([^<]{60})[^<]{60,}<"_s);
  respuesta.replace(kLargo, u">\\1…<"_s);
  respuesta.replace(u"><"_s, u">\n<"_s);
  return respuesta;
}

void Timbrar(Navegador& navegador,
             edocs::ResultadoTimbrado (*timbrar)(const Session&, const QString&)) {
  const QString llave = navegador.LlaveActual();
  if (llave.isEmpty()) return;
  edocs::ResultadoTimbrado resultado;
  const Session& session = navegador.session();
  ui::EsperarTrabajo(&navegador, kAviso, [&resultado, &session, &llave, timbrar] {
    resultado = timbrar(session, llave);
  });
  if (!resultado.respuesta.isEmpty()) {
    ui::Inform(&navegador, ParaMostrar(resultado.respuesta), MessageIcon::kWarning);
  }
  ui::ShowOutcome(&navegador, session, resultado.outcome);
  navegador.RefrescarFila(llave);
}

QString Pedir(Navegador& navegador, const QString& pregunta, QLineEdit::EchoMode modo) {
  return QInputDialog::getText(&navegador, QString::fromLatin1(ui::kTitulo), pregunta, modo)
      .trimmed();
}

}  // namespace

void TimbrarFactura(Navegador& navegador) { Timbrar(navegador, &edocs::TimbrarFactura); }
void TimbrarNota(Navegador& navegador) { Timbrar(navegador, &edocs::TimbrarNota); }

void CancelarUUID(Navegador& navegador) {
  const QString uuid = Pedir(navegador, u"Folio Fiscal / UUID por CANCELAR"_s, QLineEdit::Normal);
  if (uuid.isEmpty()) return;
  const Session& session = navegador.session();
  const QString cer = QFileDialog::getOpenFileName(
      &navegador, u"Archivo Certificado"_s, session.CarpetaCer, u"Archivos Certificado (*.cer)"_s);
  if (cer.isEmpty()) return;
  const QString key = QFileDialog::getOpenFileName(&navegador, u"Archivo Llave"_s,
                                                   session.CarpetaCer, u"Archivos Llave (*.key)"_s);
  if (key.isEmpty()) return;
  for (const QString& pregunta :
       {u"CANCELAR Folio Fiscal / UUID"_s, u"Seguro CANCELAR Folio Fiscal / UUID"_s,
        u"Por CANCELAR Folio Fiscal / UUID"_s}) {
    if (!ui::Confirmar(&navegador, QString::fromLatin1(ui::kTitulo), pregunta + u"\n\n"_s + uuid,
                       MessageIcon::kStop)) {
      return;
    }
  }
  const QString password =
      Pedir(navegador, u"Contraseña de la llave privada"_s, QLineEdit::Password);
  if (password.isEmpty()) return;
  edocs::ResultadoCancelacion resultado;
  ui::EsperarTrabajo(&navegador, kAviso,
                     [&] { resultado = edocs::CancelarUUID(session, uuid, cer, key, password); });
  if (!resultado.respuesta.isEmpty()) ui::Inform(&navegador, ParaMostrar(resultado.respuesta));
  ui::ShowOutcome(&navegador, session, resultado.outcome);
}

}  // namespace ventarix::ventas_ui
