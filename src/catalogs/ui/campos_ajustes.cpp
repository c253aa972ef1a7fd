#include "catalogs/ui/campos_ajustes.h"

#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QIntValidator>
#include <QTabWidget>

#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"

namespace ventarix {

using namespace Qt::StringLiterals;

CamposAjustes::CamposAjustes(Session& session, QDialog* forma)
    : QObject(forma), session_(session), forma_(forma) {}

CampoCaptura* CamposAjustes::Texto(QFormLayout* layout, const QString& nombre,
                                   const QString& titulo, Estilo estilo, int largo) {
  auto* campo = new CampoCaptura(session_);
  campo->setObjectName(nombre);
  switch (estilo) {
    case Estilo::kMayusculas:
      campo->setMayusculas();
      break;
    case Estilo::kMinusculas:
      campo->setMinusculas();
      break;
    case Estilo::kClave:
      campo->setEchoMode(QLineEdit::Password);
      break;
    case Estilo::kEntero:
      campo->setValidator(new QIntValidator(0, 32767, campo));
      campo->setAlignment(Qt::AlignRight);
      campo->setMaximumWidth(campo->fontMetrics().horizontalAdvance(u"0000000"_s) + 16);
      break;
    case Estilo::kDecimal:
      campo->setDecimales(2);
      campo->setMaximumWidth(campo->fontMetrics().horizontalAdvance(u"000,000.00"_s) + 16);
      break;
    case Estilo::kLibre:
      break;
  }
  if (largo > 0) campo->setMaxLength(largo);
  connect(campo, &CampoCaptura::Salir, forma_, &QDialog::reject);
  layout->addRow(titulo, campo);
  enlaces_.push_back({nombre.toLower(), campo, estilo});
  return campo;
}

QCheckBox* CamposAjustes::Marca(QFormLayout* layout, const QString& nombre, const QString& titulo) {
  auto* marca = new QCheckBox(titulo);
  marca->setObjectName(nombre);
  layout->addRow(marca);
  enlaces_.push_back({nombre.toLower(), marca, Estilo::kLibre});
  return marca;
}

CampoCatalogo* CamposAjustes::Catalogo(QFormLayout* layout, const QString& nombre,
                                       const QString& titulo, ventarix::Catalogo catalogo,
                                       const QString& palabra) {
  auto* campo = new CampoCatalogo(session_, catalogo);
  campo->setObjectName(nombre);
  connect(campo, &CampoCatalogo::Salir, forma_, &QDialog::reject);
  connect(campo, &CampoCatalogo::Ayuda, this, [this, campo, palabra] {
    const QString elegido = AbrirAyuda(session_, palabra, forma_);
    if (!elegido.isEmpty()) campo->setNumero(elegido.toInt());
  });
  layout->addRow(titulo, campo);
  enlaces_.push_back({nombre.toLower(), campo, Estilo::kEntero});
  return campo;
}

void CamposAjustes::Mostrar(const RowValues& fila) {
  for (const Enlace& enlace : enlaces_) {
    if (auto* marca = qobject_cast<QCheckBox*>(enlace.campo)) {
      marca->setChecked(fila.Flag(enlace.columna));
    } else if (auto* catalogo = qobject_cast<CampoCatalogo*>(enlace.campo)) {
      catalogo->setNumero(fila.Integer(enlace.columna));
    } else if (auto* campo = qobject_cast<CampoCaptura*>(enlace.campo)) {
      if (enlace.estilo == Estilo::kDecimal) {
        campo->setNumero(fila.Number(enlace.columna));
      } else if (enlace.estilo == Estilo::kEntero) {
        campo->setText(QString::number(fila.Integer(enlace.columna)));
      } else {
        campo->setText(fila.Text(enlace.columna));
      }
    }
  }
}

void CamposAjustes::Leer(RowValues& fila) const {
  for (const Enlace& enlace : enlaces_) {
    if (auto* marca = qobject_cast<QCheckBox*>(enlace.campo)) {
      fila.Set(enlace.columna, marca->isChecked() ? u"S"_s : u"N"_s);
    } else if (auto* catalogo = qobject_cast<CampoCatalogo*>(enlace.campo)) {
      fila.Set(enlace.columna, catalogo->Numero());
    } else if (auto* campo = qobject_cast<CampoCaptura*>(enlace.campo)) {
      fila.Set(enlace.columna, campo->text());
    }
  }
}

QWidget* CamposAjustes::Campo(const QString& nombre) const {
  const QString columna = nombre.toLower();
  for (const Enlace& enlace : enlaces_) {
    if (enlace.columna == columna) return enlace.campo;
  }
  return nullptr;
}

void CamposAjustes::Avisar(const Outcome& outcome) const {
  Outcome aviso = outcome;
  if (QWidget* campo = Campo(outcome.field)) {
    aviso.field = campo->objectName();
    // Every tab between the screen and the field comes to the front.
    for (QWidget* w = campo->parentWidget(); w != nullptr && w != forma_; w = w->parentWidget()) {
      auto* tabs = qobject_cast<QTabWidget*>(w);
      if (tabs == nullptr) continue;
      for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->isAncestorOf(campo)) tabs->setCurrentIndex(i);
      }
    }
  }
  ui::ShowOutcome(forma_, session_, aviso);
}

}  // namespace ventarix
