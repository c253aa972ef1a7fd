#include "catalogs/ui/frm_marcas.h"

#include <QFormLayout>
#include <QLabel>

#include "catalogs/marcas.h"
#include "catalogs/ui/etiqueta_status.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaMarca::FormaMarca(Session& session, bool alta, QWidget* parent)
    : FormaNumeroNombre(session, alta, parent) {
  Armar(
      [this, &session](QFormLayout* campos) {
        for (int k = 0; k < catalogs::kNiveles; ++k) {
          auto* campo = new CampoCaptura(session, this);
          const QString numero = QString::number(k + 1);
          campo->setObjectName(u"Utilidad"_s + numero);
          campo->setDecimales(2);
          campo->setMaxLength(10);
          campo->setNumero(0);
          campos->addRow(u"Utilidad &"_s + numero + u" %:"_s, campo);
          utilidades_[k] = campo;
        }
      },
      380);
}

void FormaMarca::Guardar() {
  marcas::Marca marca;
  marca.numero = numero_->text().toInt();
  marca.nombre = nombre_->text();
  for (int k = 0; k < catalogs::kNiveles; ++k) marca.utilidades[k] = utilidades_[k]->Numero();
  marca.status = status_->text();
  qint32 numero = marca.numero;
  const Outcome guardado =
      alta_ ? marcas::AltaMarca(session_, marca, &numero) : marcas::CambioMarca(session_, marca);
  Guardado(guardado, numero);
}

FrmMarcasA::FrmMarcasA(Session& session, QWidget* parent) : FormaMarca(session, true, parent) {
  setObjectName(u"FrmMarcasA"_s);
  setWindowTitle(u"Marcas - Alta"_s);
}

FrmMarcasC::FrmMarcasC(Session& session, const QString& llave, QWidget* parent)
    : FormaMarca(session, false, parent) {
  setObjectName(u"FrmMarcasC"_s);
  setWindowTitle(u"Marcas - Cambios"_s);
  marcas::Marca marca;
  const qint32 numero = static_cast<qint32>(mFunciones::ValorNumerico(llave));
  if (!Leido(marcas::LeerMarca(session, numero, &marca))) return;
  numero_->setText(QString::number(marca.numero));
  nombre_->setText(marca.nombre);
  for (int k = 0; k < catalogs::kNiveles; ++k) utilidades_[k]->setNumero(marca.utilidades[k]);
  status_->Mostrar(marca.status);
}

}  // namespace ventarix
