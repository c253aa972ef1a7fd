// The widget tests speak as the desktop does: every ui test links this file.
#include <QCoreApplication>

#include "core/ui/traducciones.h"

static void PrepararAplicacion() { ventarix::CargarTraducciones(*QCoreApplication::instance()); }
Q_COREAPP_STARTUP_FUNCTION(PrepararAplicacion)
