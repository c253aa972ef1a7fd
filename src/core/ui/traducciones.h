#pragma once

class QCoreApplication;

namespace ventarix {

// Qt's own words in Spanish: the standard buttons of every message ("Sí", "No", "Aceptar",
// "Cancelar"), the prompts and the file dialogs. Called once the application exists, by the
// desktop program and by the widget tests alike. False when the translation file is missing
// (the words stay in English; nothing else changes).
bool CargarTraducciones(QCoreApplication& app);

}  // namespace ventarix
