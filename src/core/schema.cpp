#include "core/schema.h"

namespace ventarix::schema {

const std::vector<Table>& Tables() {
  static const std::vector<Table> tables = [] {
    std::vector<Table> all = DocumentTables();
    for (Table& t : CatalogTables()) all.push_back(std::move(t));
    return all;
  }();
  return tables;
}

const std::vector<Index>& Indexes() {
  static const std::vector<Index> indexes = [] {
    std::vector<Index> all = DocumentIndexes();
    for (Index& i : CatalogIndexes()) all.push_back(std::move(i));
    return all;
  }();
  return indexes;
}

const Table* FindTable(const QString& name) {
  const QString wanted = name.toLower();
  for (const Table& t : Tables()) {
    if (QString::fromUtf8(t.name) == wanted) return &t;
  }
  return nullptr;
}

const std::vector<ColumnaSecreta>& ColumnasSecretas() {
  static const std::vector<ColumnaSecreta> secretas = {
      {"usuarios", "contraseña"},      {"empresa", "password"},      {"empresa", "pacpassword"},
      {"folios facturas", "password"}, {"folios notas", "password"}, {"certificados", "llave"},
      {"certificados", "password"},
  };
  return secretas;
}

bool EsColumnaSecreta(const QString& tabla, const QString& columna) {
  for (const ColumnaSecreta& s : ColumnasSecretas()) {
    if (tabla.compare(QString::fromUtf8(s.tabla), Qt::CaseInsensitive) == 0 &&
        columna.compare(QString::fromUtf8(s.columna), Qt::CaseInsensitive) == 0) {
      return true;
    }
  }
  return false;
}

}  // namespace ventarix::schema
