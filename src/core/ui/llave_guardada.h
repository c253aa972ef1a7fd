#pragma once

#include <QString>

namespace ventarix {

// A screen that saves a record tells whoever opened it which one it saved.
class LlaveGuardada {
 public:
  virtual ~LlaveGuardada() = default;
  // The key of the record saved; empty while nothing was saved.
  virtual QString Guardada() const = 0;
};

}  // namespace ventarix
