// The kinds the engine knows, found by name or table, and the words their screens show.
#include "documents/bajas_clases.h"

namespace ventarix::bajas {

using namespace Qt::StringLiterals;

const std::vector<Clase>& Tabla() {
  static const std::vector<Clase> kTabla = [] {
    std::vector<Clase> tabla;
    for (auto* area : {&Compras, &Ventas, &Inventario, &Catalogos}) {
      for (Clase& clase : area()) tabla.push_back(std::move(clase));
    }
    return tabla;
  }();
  return kTabla;
}

const Clase* Buscar(const QString& clase) {
  for (const Clase& k : Tabla()) {
    if (clase.compare(QLatin1String(k.clase), Qt::CaseInsensitive) == 0) return &k;
  }
  return nullptr;
}

QStringList Clases() {
  QStringList clases;
  for (const Clase& k : Tabla()) clases << QString::fromLatin1(k.clase);
  return clases;
}

QString ClaseDe(const QString& nombre) {
  const QString buscado = nombre.trimmed();
  for (const Clase& k : Tabla()) {
    if (buscado.compare(k.tabla, Qt::CaseInsensitive) == 0 ||
        buscado.compare(QLatin1String(k.clase), Qt::CaseInsensitive) == 0) {
      return QString::fromLatin1(k.clase);
    }
  }
  return {};
}

QString TablaDe(const QString& clase) {
  const Clase* k = Buscar(clase);
  return k ? k->tabla : QString();
}

QString ColumnaLlave(const QString& clase) {
  const Clase* k = Buscar(clase);
  return k ? k->llave : QString();
}

std::optional<Avisos> AvisosDe(Accion accion, const QString& clase) {
  const Clase* k = Buscar(clase);
  if (!k) return std::nullopt;
  const QString nombre = QString::fromLatin1(k->clase);
  if (accion == Accion::kBaja) {
    return Avisos{.titulo = u"BAJAS Registros de "_s + nombre,
                  .pregunta = u"BAJAS Registros"_s,
                  .confirmaciones = {u"Dar de baja este registro ?"_s,
                                     u"Seguro dar de baja este registro ?"_s,
                                     u"Por dar de baja este registro ?"_s},
                  .pide_motivo = !k->catalogo};
  }
  return Avisos{.titulo = u"BORRAR Registros de "_s + nombre,
                .pregunta = u"BORRAR Registros"_s,
                .confirmaciones = {u"Borrar este registro ?"_s, u"Seguro borrar este registro ?"_s,
                                   u"Por borrar este registro ?"_s}};
}

}  // namespace ventarix::bajas
