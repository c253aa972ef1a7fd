#pragma once

#include <functional>

#include <QString>

class QWidget;

namespace ventarix::ui {

// Runs a long job (an exchange with a service outside, bounded by its own time-outs) on a
// thread of its own while the screen stays painted under a modal notice with the hourglass;
// returns when the job has ended. The user cannot start anything else meanwhile.
void EsperarTrabajo(QWidget* parent, const QString& aviso, const std::function<void()>& trabajo);

}  // namespace ventarix::ui
