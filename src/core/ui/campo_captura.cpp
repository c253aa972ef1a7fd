#include "core/ui/campo_captura.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLocale>
#include <QTimer>

#include "core/mFunciones_valores.h"
#include "core/ui/mayusculas.h"
#include "core/ui/minusculas.h"

namespace ventarix {

CampoCaptura::CampoCaptura(const Session& session, QWidget* parent)
    : QLineEdit(parent), session_(session) {}

void CampoCaptura::setDecimales(int decimales) {
  decimales_ = decimales;
  setAlignment(decimales_ > 0 ? Qt::AlignRight : Qt::AlignLeft);
}

void CampoCaptura::setMayusculas() { MantenerMayusculas(this, session_.UtilizarMayusculas); }

void CampoCaptura::setMinusculas() { MantenerMinusculas(this); }

double CampoCaptura::Numero() const { return mFunciones::ValorNumerico(text()); }

void CampoCaptura::setNumero(double value) {
  setText(decimales_ > 0 ? mFunciones::FormatoNumero(value, decimales_)
                         : QLocale::c().toString(value, 'f', QLocale::FloatingPointShortest));
}

void CampoCaptura::focusInEvent(QFocusEvent* event) {
  // A dialog that opens gives the focus twice (on show and on activation) with no leaving in
  // between: only the first time holds the field's own colours.
  if (!pintado_) paleta_ = palette();
  pintado_ = true;
  QPalette fondo = paleta_;
  fondo.setColor(QPalette::Base, QColor::fromRgb(session_.ColorFondo));
  setPalette(fondo);
  QLineEdit::focusInEvent(event);
  // A mouse click places the cursor after this handler; the selection must come later.
  QTimer::singleShot(0, this, [this] {
    if (hasFocus()) selectAll();
  });
  selectAll();
}

void CampoCaptura::focusOutEvent(QFocusEvent* event) {
  setPalette(paleta_);
  pintado_ = false;
  if (decimales_ > 0) setText(mFunciones::FormatoNumero(Numero(), decimales_));
  QLineEdit::focusOutEvent(event);
  // A long text left behind reads from its start again, not from where typing ended.
  setCursorPosition(0);
  emit Dejado();
}

void CampoCaptura::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      focusNextChild();
      return;
    case Qt::Key_Up:
      focusPreviousChild();
      return;
    case Qt::Key_Escape:
      emit Salir();
      return;
    case Qt::Key_F1:
      emit Ayuda();
      return;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

namespace {

// Paints one field with the session's colour while it has the focus; a child of the field.
class PintorDeFoco : public QObject {
 public:
  PintorDeFoco(QWidget* campo, QRgb color) : QObject(campo), campo_(campo), color_(color) {
    campo->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == campo_ && event->type() == QEvent::FocusIn && !pintado_) {
      paleta_ = campo_->palette();
      relleno_ = campo_->autoFillBackground();
      QPalette fondo = paleta_;
      for (QPalette::ColorRole papel : {QPalette::Base, QPalette::Button, QPalette::Window}) {
        fondo.setColor(papel, QColor::fromRgb(color_));
      }
      campo_->setPalette(fondo);
      campo_->setAutoFillBackground(true);
      pintado_ = true;
    } else if (watched == campo_ && event->type() == QEvent::FocusOut && pintado_) {
      campo_->setPalette(paleta_);
      campo_->setAutoFillBackground(relleno_);
      pintado_ = false;
    }
    return false;
  }

 private:
  QWidget* campo_;
  QRgb color_;
  QPalette paleta_;
  bool relleno_ = false;
  bool pintado_ = false;
};

}  // namespace

void PintarCamposAlEnfocar(QWidget* forma, const Session& session) {
  for (QWidget* campo : forma->findChildren<QWidget*>()) {
    if (qobject_cast<QComboBox*>(campo) != nullptr || qobject_cast<QCheckBox*>(campo) != nullptr ||
        qobject_cast<QAbstractSpinBox*>(campo) != nullptr) {
      new PintorDeFoco(campo, session.ColorFondo);
    }
  }
}

void CampoCaptura::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  emit Ayuda();
}

}  // namespace ventarix
