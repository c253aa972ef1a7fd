#pragma once

#include <QString>

namespace ventarix {

// The icon a message box shows. A user's mistake is a warning; what stops an operation is a stop.
enum class MessageIcon { kNone, kInformation, kWarning, kStop, kQuestion };

// What a domain routine hands back to its form: nothing when all went well, otherwise the
// message to show (exact text), its icon, and the field that takes the focus.
struct Outcome {
  bool ok = true;
  QString message;
  MessageIcon icon = MessageIcon::kNone;
  QString field;

  static Outcome Ok() { return {}; }
  static Outcome Warning(QString text, QString field = {}) {
    return {false, std::move(text), MessageIcon::kWarning, std::move(field)};
  }
  static Outcome Stop(QString text, QString field = {}) {
    return {false, std::move(text), MessageIcon::kStop, std::move(field)};
  }
  explicit operator bool() const { return ok; }
};

}  // namespace ventarix
