#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include "core/session.h"
#include "documents/bajas.h"

class QLabel;
class QListWidget;

namespace ventarix {

// The screen that cancels or deletes records of any kind (bajas::Clases()) a browser hands
// it: the three confirmations, the reason for a cancelled document, then each record in turn,
// its refusal shown with the key found. One design for both actions; the words are the
// domain's (bajas::AvisosDe).
class PantallaBajas : public QDialog {
  Q_OBJECT

 public:
  // Shows itself over the browser, asks, acts on every key and closes; returns the keys it
  // cancelled or deleted.
  QStringList Ejecutar();

 protected:
  PantallaBajas(Session& session, bajas::Accion accion, const QString& clase,
                const QStringList& llaves, QWidget* parent);

 private:
  bool Confirmado(const bajas::Avisos& avisos);
  void Actuar();

  Session& session_;
  const bajas::Accion accion_;
  const QString clase_;
  const QStringList llaves_;
  QString motivo_;
  QStringList hechas_;
  QListWidget* registros_;
  QLabel* msg1_;
};

// <Del> of a browser: cancels the records.
class MDIInicioBajas : public PantallaBajas {
  Q_OBJECT

 public:
  MDIInicioBajas(Session& session, const QString& clase, const QStringList& llaves,
                 QWidget* parent = nullptr);
};

// <Ctrl+Del> of a browser: deletes the records, the last folio of a serie only.
class MDIInicioBorrar : public PantallaBajas {
  Q_OBJECT

 public:
  MDIInicioBorrar(Session& session, const QString& clase, const QStringList& llaves,
                  QWidget* parent = nullptr);
};

}  // namespace ventarix
