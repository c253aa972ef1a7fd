#pragma once

#include <QString>

#include "core/session.h"

// The session load of the splash screen: company, folders, rights, terminal settings,
// schema file lists, default series, active folios, pending code change, product count,
// logo, scratch files, warehouse names; in that order.
namespace ventarix {

void CargarSesion(Session& session);

// Pieces, for the reload and for tests.
void CargarEmpresa(Session& session);
void CargarPermisos(Session& session);
void CargarConfiguracion(Session& session);
void CargarSeries(Session& session);
void CargarFolios(Session& session);

}  // namespace ventarix
