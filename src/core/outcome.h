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
  // A stop the system's rules give on what was typed or chosen, not a run-time error.
  bool rule = false;

  static Outcome Ok() { return {}; }
  // A user's mistake.
  static Outcome Warning(QString text, QString field = {}) {
    return {false, std::move(text), MessageIcon::kWarning, std::move(field)};
  }
  // A run-time error: an engine's refusal, a file that can't be read or written. Shown with
  // the stop icon and written to the month's error log where it is shown.
  static Outcome Stop(QString text, QString field = {}) {
    return {false, std::move(text), MessageIcon::kStop, std::move(field)};
  }
  // What a rule refuses with the stop icon ("El mes no corresponde al RFC"): not logged.
  static Outcome Refuse(QString text, QString field = {}) {
    return {false, std::move(text), MessageIcon::kStop, std::move(field), true};
  }
  // True for a run-time error, which goes to the error log.
  bool IsRunTimeError() const { return !ok && icon == MessageIcon::kStop && !rule; }
  explicit operator bool() const { return ok; }
};

}  // namespace ventarix
