#include "catalogs/ui/frm_productos_g.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogs/productos_cambio_codigo.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FrmProductosG::FrmProductosG(Session& session, const FormRegistry* registry, const QString& codigo,
                             QWidget* parent)
    : QDialog(parent), session_(session), registry_(registry) {
  setObjectName(u"FrmProductosG"_s);
  setWindowTitle(u"Productos - Cambio de código"_s);
  actual_ = new CampoCaptura(session, this);
  actual_->setObjectName(u"Actual"_s);
  nuevo_ = new CampoCaptura(session, this);
  nuevo_->setObjectName(u"Nuevo"_s);
  for (CampoCaptura* campo : {actual_, nuevo_}) {
    campo->setMaxLength(20);
    campo->setMayusculas();
    connect(campo, &CampoCaptura::Salir, this, &QDialog::reject);
  }
  actual_->setText(codigo);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });

  auto* campos = new QFormLayout;
  campos->addRow(u"&Actual:"_s, actual_);
  campos->addRow(u"&Nuevo:"_s, nuevo_);
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(360);
  (codigo.isEmpty() ? actual_ : nuevo_)->setFocus();
}

void FrmProductosG::Guardar() {
  const Outcome anotado =
      productos::AnotarCambioDeCodigo(session_, actual_->text(), nuevo_->text());
  if (!anotado) {
    ui::ShowOutcome(this, session_, anotado);
    return;
  }
  session_.CambioDeCodigoPendiente = true;
  Cambiar();
  if (session_.CambioDeCodigoPendiente) {
    // Stopped or failed: the change waits in the company row for the next start.
    reject();
    return;
  }
  guardada_ = mFunciones::ValorTexto(nuevo_->text());
  accept();
}

void FrmProductosG::Cambiar() {
  const QString forma = u"MDIInicioCambiar"_s;
  for (QWidget* w = parentWidget(); w != nullptr; w = w->parentWidget()) {
    if (auto* mdi = qobject_cast<MDIInicio*>(w)) {
      mdi->Abrir(forma);
      return;
    }
  }
  if (registry_ == nullptr) return;
  std::unique_ptr<QWidget> pantalla(registry_->Create(forma, session_));
  if (auto* dialogo = qobject_cast<QDialog*>(pantalla.get())) {
    dialogo->setParent(this, dialogo->windowFlags() | Qt::Dialog);
    dialogo->exec();
  }
}

void FrmProductosG::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
