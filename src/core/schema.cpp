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

}  // namespace ventarix::schema
