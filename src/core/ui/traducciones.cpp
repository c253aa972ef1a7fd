#include "core/ui/traducciones.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace ventarix {

bool CargarTraducciones(QCoreApplication& app) {
  // The translator lives as long as the application that owns it.
  auto* qt = new QTranslator(&app);
  if (!qt->load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    delete qt;
    return false;
  }
  return QCoreApplication::installTranslator(qt);
}

}  // namespace ventarix
