#pragma once

#include <vector>

#include "core/ui/accion_extra.h"
#include "documents/ui/pantalla_pagos.h"

namespace ventarix {

class FormRegistry;

// A side's payment screens (add, change, settle) and its browser `navegador` with the settle
// button (8, Ctrl+S) and the side's own `extras`.
void RegistrarPantallasPagos(FormRegistry& registry, const PantallaPagos& pantalla,
                             const QString& navegador, std::vector<AccionExtra> extras = {});

}  // namespace ventarix
