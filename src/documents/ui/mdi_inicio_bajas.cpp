#include "documents/ui/mdi_inicio_bajas.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "core/ui/message_box.h"
#include "documents/ui/mdi_inicio_motivo.h"

namespace ventarix {

namespace {

QString Resultado(bajas::Accion accion, const Outcome& outcome) {
  if (!outcome) return outcome.message;
  return accion == bajas::Accion::kBaja ? QStringLiteral("BAJA") : QStringLiteral("BORRADO");
}

}  // namespace

PantallaBajas::PantallaBajas(Session& session, bajas::Accion accion, const QString& clase,
                             const QStringList& llaves, QWidget* parent)
    : QDialog(parent), session_(session), accion_(accion), clase_(clase), llaves_(llaves) {
  const std::optional<bajas::Avisos> avisos = bajas::AvisosDe(accion_, clase_);
  setWindowTitle(avisos ? avisos->titulo : clase_);
  auto* etiqueta = new QLabel(QStringLiteral("Registros"), this);
  registros_ = new QListWidget(this);
  registros_->setObjectName(QStringLiteral("Registros"));
  registros_->addItems(llaves_);
  msg1_ = new QLabel(this);
  msg1_->setObjectName(QStringLiteral("Msg1"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(etiqueta);
  layout->addWidget(registros_, 1);
  layout->addWidget(msg1_);
  resize(480, 260);
}

QStringList PantallaBajas::Ejecutar() {
  hechas_.clear();
  show();
  raise();
  const std::optional<bajas::Avisos> avisos = bajas::AvisosDe(accion_, clase_);
  if (!avisos) {
    ui::ShowOutcome(this, session_,
                    Outcome::Refuse(QStringLiteral("No se conoce la clase de registro ") + clase_));
  } else if (Confirmado(*avisos)) {
    Actuar();
  }
  close();
  return hechas_;
}

// Three questions in a row, anything but Yes stops; a document's cancellation also needs its
// reason, kept for every row.
bool PantallaBajas::Confirmado(const bajas::Avisos& avisos) {
  for (const QString& pregunta : avisos.confirmaciones) {
    if (!ui::Confirmar(this, avisos.pregunta, pregunta)) return false;
  }
  if (!avisos.pide_motivo) return true;
  const std::optional<QString> motivo = MDIInicioMotivo::Pedir(session_, this);
  if (!motivo) return false;
  motivo_ = *motivo;
  return true;
}

// Each refusal is the row's alone and the next row goes on; a run-time error ends the action,
// the rows before it done.
void PantallaBajas::Actuar() {
  for (int i = 0; i < llaves_.size(); ++i) {
    const QString& llave = llaves_[i];
    msg1_->setText(QStringLiteral("%1 de %2: %3").arg(i + 1).arg(llaves_.size()).arg(llave));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const Outcome hecho = accion_ == bajas::Accion::kBaja
                              ? bajas::DarDeBaja(session_, clase_, llave, motivo_)
                              : bajas::Borrar(session_, clase_, llave);
    QApplication::restoreOverrideCursor();
    registros_->item(i)->setText(llave + QStringLiteral("  ") + Resultado(accion_, hecho));
    if (hecho) {
      hechas_ << llave;
      continue;
    }
    ui::ShowOutcome(this, session_, hecho);
    if (hecho.IsRunTimeError()) break;
  }
}

MDIInicioBajas::MDIInicioBajas(Session& session, const QString& clase, const QStringList& llaves,
                               QWidget* parent)
    : PantallaBajas(session, bajas::Accion::kBaja, clase, llaves, parent) {
  setObjectName(QStringLiteral("MDIInicioBajas"));
}

MDIInicioBorrar::MDIInicioBorrar(Session& session, const QString& clase, const QStringList& llaves,
                                 QWidget* parent)
    : PantallaBajas(session, bajas::Accion::kBorrado, clase, llaves, parent) {
  setObjectName(QStringLiteral("MDIInicioBorrar"));
}

}  // namespace ventarix
