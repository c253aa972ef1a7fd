#pragma once

#include <functional>

#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// The three repair sweeps an administrator runs after a busy day, with no other workstation
// active: stock and periods, balances and statuses, product pictures. Each checks first that
// the company's file is whole, and runs in one transaction, so a failure half-way leaves the
// company as it was.
namespace ventarix::mantenimiento {

struct Avance {
  // A step begins: its label, its number (from 1) and how many steps there are.
  std::function<void(const QString& paso, int numero, int pasos)> paso;
  // A step ended after `milisegundos`.
  std::function<void(const QString& paso, qint64 milisegundos)> terminado;
  // Asked between rows of a long walk: true ends the walk after the current row.
  std::function<bool()> detener;
};

// Periods of every document family from their dates, stock rebuilt from zero over all
// warehouses and production, and rounded to two places.
Outcome Manto1(const Session& session, const Avance& avance = {});

// Balances and statuses of every document, in the fixed order of their labels.
Outcome Manto2(const Session& session, const Avance& avance = {});

// Marks the products that have a picture "<codigo>.jpg" in CarpetaImagenes.
Outcome Barrido(const Session& session, const Avance& avance = {});

}  // namespace ventarix::mantenimiento
