#pragma once

#include <vector>

#include <QString>
#include <QVariantMap>

#include "core/database.h"

namespace ventarix::compras {

// The rows of a purchase order still to receive, in their order, as a purchase takes them:
// the quantity is what is still to receive, and each row keeps the order's key in `orden`.
std::vector<QVariantMap> PartidasDeOrden(Connection& c, const QString& orden);

}  // namespace ventarix::compras
