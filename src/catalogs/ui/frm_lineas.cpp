#include "catalogs/ui/frm_lineas.h"

#include <QLabel>

#include "catalogs/lineas.h"
#include "catalogs/ui/etiqueta_status.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaLinea::FormaLinea(Session& session, bool alta, QWidget* parent)
    : FormaNumeroNombre(session, alta, parent) {
  Armar({}, 360);
}

void FormaLinea::Guardar() {
  lineas::Linea linea{numero_->text().toInt(), nombre_->text(), status_->text()};
  qint32 numero = linea.numero;
  const Outcome guardado =
      alta_ ? lineas::AltaLinea(session_, linea, &numero) : lineas::CambioLinea(session_, linea);
  Guardado(guardado, numero);
}

FrmLineasA::FrmLineasA(Session& session, QWidget* parent) : FormaLinea(session, true, parent) {
  setObjectName(u"FrmLineasA"_s);
  setWindowTitle(u"Líneas - Alta"_s);
}

FrmLineasC::FrmLineasC(Session& session, const QString& llave, QWidget* parent)
    : FormaLinea(session, false, parent) {
  setObjectName(u"FrmLineasC"_s);
  setWindowTitle(u"Líneas - Cambios"_s);
  lineas::Linea linea;
  const qint32 numero = static_cast<qint32>(mFunciones::ValorNumerico(llave));
  if (!Leido(lineas::LeerLinea(session, numero, &linea))) return;
  numero_->setText(QString::number(linea.numero));
  nombre_->setText(linea.nombre);
  status_->Mostrar(linea.status);
}

}  // namespace ventarix
