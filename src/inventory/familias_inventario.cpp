#include "inventory/familias_inventario.h"

namespace ventarix::inventario {

const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla) {
  for (const captura::FamiliaCaptura* f : {&Ajustes(), &Traspasos(), &Produccion()}) {
    if (tabla.compare(QString::fromUtf8(f->tabla), Qt::CaseInsensitive) == 0) return f;
  }
  return nullptr;
}

}  // namespace ventarix::inventario
