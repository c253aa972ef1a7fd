// The supplier's families by their table, for the command line and the demo.
#include "purchasing/familias_proveedor.h"

#include "purchasing/cuentas_por_pagar.h"

namespace ventarix::compras {

const captura::FamiliaCaptura* FamiliaDeProveedor(const QString& tabla) {
  for (const captura::FamiliaCaptura* f : {&CxP()}) {
    if (tabla.compare(QString::fromUtf8(f->tabla), Qt::CaseInsensitive) == 0) return f;
  }
  return nullptr;
}

}  // namespace ventarix::compras
