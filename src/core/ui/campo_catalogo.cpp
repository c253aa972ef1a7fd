#include "core/ui/campo_catalogo.h"

#include <QHBoxLayout>
#include <QLabel>

#include "core/ui/campo_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

CampoCatalogo::CampoCatalogo(const Session& session, Catalogo catalogo, QWidget* parent)
    : QWidget(parent),
      session_(session),
      catalogo_(catalogo),
      campo_(new CampoCaptura(session, this)),
      nombre_(new QLabel(this)) {
  campo_->setObjectName(u"Numero"_s);
  campo_->setMaxLength(10);
  campo_->setMaximumWidth(campo_->fontMetrics().horizontalAdvance(u"0000000000"_s) + 12);
  nombre_->setObjectName(u"Nombre"_s);
  nombre_->setFrameShape(QFrame::Panel);
  nombre_->setFrameShadow(QFrame::Sunken);
  nombre_->setMinimumWidth(nombre_->fontMetrics().horizontalAdvance(u'M') * 24);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(campo_);
  layout->addWidget(nombre_, 1);
  setFocusProxy(campo_);
  connect(campo_, &CampoCaptura::Dejado, this, &CampoCatalogo::AlDejar);
  connect(campo_, &CampoCaptura::Salir, this, &CampoCatalogo::Salir);
  connect(campo_, &CampoCaptura::Ayuda, this, &CampoCatalogo::Ayuda);
}

qint32 CampoCatalogo::Numero() const { return static_cast<qint32>(campo_->Numero()); }

void CampoCatalogo::setNumero(qint32 numero) {
  campo_->setText(numero > 0 ? QString::number(numero) : QString());
  Leer();
}

void CampoCatalogo::AlDejar() {
  if (Numero() != leido_) Leer();
}

void CampoCatalogo::Leer() {
  leido_ = Numero();
  const std::optional<RowValues> fila =
      leido_ > 0 ? LeerCatalogo(session_, catalogo_, leido_) : std::nullopt;
  nombre_->setText(fila ? fila->Text(u"nombre"_s) : QString());
  if (fila && catalogo_ == Catalogo::kClientes) emit ClienteLeido(*fila);
}

}  // namespace ventarix
