#include "core/ui/formato_moneda.h"

#include <QLineEdit>

#include "core/mFunciones_valores.h"

namespace ventarix {

void FormatoMoneda(QLineEdit* box) {
  box->setText(mFunciones::FormatoMoneda(mFunciones::ValorNumerico(box->text())));
}

}  // namespace ventarix
