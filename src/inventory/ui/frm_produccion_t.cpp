#include "inventory/ui/frm_produccion_t.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "inventory/familias_inventario.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kFormato = "dd/MM/yyyy";

}  // namespace

FrmProduccionT::FrmProduccionT(Session& session, const QString& llave, QWidget* parent)
    : QDialog(parent), session_(session), llave_(llave) {
  setObjectName(u"FrmProduccionT"_s);
  setWindowTitle(u"PRODUCCION - TERMINAR "_s + llave);
  fecha_ = new QLineEdit(this);
  fecha_->setObjectName(u"Fecha"_s);
  fecha_->setPlaceholderText(u"dd/mm/aaaa"_s);
  operador_ = new QLineEdit(this);
  operador_->setObjectName(u"OperadorTermina"_s);
  if (const std::optional<QDate> termino = inventario::TerminoDe(session, llave)) {
    fecha_->setText(termino->toString(QLatin1String(kFormato)));
  }
  auto* campos = new QFormLayout;
  campos->addRow(u"Producción"_s, new QLabel(llave, this));
  campos->addRow(u"Fecha de término"_s, fecha_);
  campos->addRow(u"Operador"_s, operador_);
  auto [aceptar, salir] = BotonesGuardarSalir(this, [this] { Aceptar(); });
  aceptar->setText(u"&Aceptar"_s);
  aceptar->setObjectName(u"Aceptar"_s);
  auto* caja = new QVBoxLayout(this);
  caja->addLayout(campos);
  caja->addLayout(FilaDeBotones(aceptar, salir));
  EncadenarFoco({fecha_, operador_, aceptar, salir});
  fecha_->setFocus();
}

void FrmProduccionT::Aceptar() {
  std::optional<QDate> termino;
  if (!fecha_->text().trimmed().isEmpty()) {
    const QDate fecha = QDate::fromString(fecha_->text().trimmed(), QLatin1String(kFormato));
    if (!fecha.isValid()) {
      return ui::ShowOutcome(this, session_, Outcome::Warning(u"Fecha no válida"_s, u"Fecha"_s));
    }
    termino = fecha;
  }
  const Outcome o = inventario::CerrarProduccion(session_, llave_, termino,
                                                 operador_->text().trimmed().toUpper());
  if (!o) return ui::ShowOutcome(this, session_, o);
  guardada_ = llave_;
  accept();
}

void FrmProduccionT::keyPressEvent(QKeyEvent* event) {
  if (TeclaDeCaptura(this, event)) return;
  QDialog::keyPressEvent(event);
}

}  // namespace ventarix
