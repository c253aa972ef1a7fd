#include "catalogs/ui/forma_numero_nombre.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/ui/etiqueta_status.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaNumeroNombre::FormaNumeroNombre(Session& session, bool alta, QWidget* parent)
    : QDialog(parent), session_(session), alta_(alta) {
  numero_ = new QLabel(this);
  numero_->setObjectName(u"Numero"_s);
  status_ = new EtiquetaStatus(!alta, this);
  nombre_ = new CampoCaptura(session, this);
  nombre_->setObjectName(u"Nombre"_s);
  nombre_->setMaxLength(60);
  nombre_->setMayusculas();
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });
}

void FormaNumeroNombre::Armar(const std::function<void(QFormLayout*)>& filas_propias, int ancho) {
  auto* campos = new QFormLayout;
  campos->addRow(u"Número:"_s, numero_);
  campos->addRow(u"&Nombre:"_s, nombre_);
  if (filas_propias) filas_propias(campos);
  campos->addRow(u"Status:"_s, status_);
  QWidget* ultimo = nombre_;
  for (CampoCaptura* campo : findChildren<CampoCaptura*>()) {
    connect(campo, &CampoCaptura::Salir, this, &QDialog::reject);
    ultimo = campo;
  }
  // The buttons were made before the catalogue's own fields: Enter walks the fields first.
  setTabOrder(ultimo, guardar_);
  setTabOrder(guardar_, salir_);
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(ancho);
  nombre_->setFocus();
}

bool FormaNumeroNombre::Leido(const Outcome& lectura) {
  if (lectura) return true;
  QTimer::singleShot(0, this, [this, lectura] {
    ui::ShowOutcome(this, session_, lectura);
    reject();
  });
  return false;
}

void FormaNumeroNombre::Guardado(const Outcome& guardado, qint32 numero) {
  if (!guardado) {
    ui::ShowOutcome(this, session_, guardado);
    return;
  }
  guardada_ = QString::number(numero);
  accept();
}

void FormaNumeroNombre::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
