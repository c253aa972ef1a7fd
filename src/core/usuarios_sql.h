#pragma once

#include <optional>

#include <QString>
#include <QVariantList>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// The save of a users screen: its own connection and one transaction that rolls back unless
// the save ends well. A failing statement becomes the stop message to show (and to log).
namespace ventarix::usuarios::sql {

class Guardado {
 public:
  explicit Guardado(const Session& session);
  Guardado(const Guardado&) = delete;
  Guardado& operator=(const Guardado&) = delete;

  bool ok() const { return ok_; }
  // The stop message of the step that failed.
  const Outcome& falla() const { return falla_; }

  // The count a "select count(*) ..." gives.
  std::optional<qint64> Contar(const QString& statement, const QVariantList& values = {});
  bool Ejecutar(const QString& statement, const QVariantList& values);
  // Rows an update or delete touched.
  std::optional<int> Actualizar(const QString& statement, const QVariantList& values);
  // Commits; the outcome of the whole save.
  Outcome Terminar();

 private:
  bool Fallar(const QString& descripcion);

  Connection connection_;
  std::optional<Transaction> transaction_;
  bool ok_ = false;
  Outcome falla_;
};

}  // namespace ventarix::usuarios::sql
