#pragma once

#include <vector>

#include <QString>
#include <QStringList>

namespace ventarix::schema {

// Column types of a company database: T text, I 32-bit integer, i 16-bit integer, N double,
// D date-time, SN text "S"/"N", B binary.
enum class Type { kText, kInt32, kInt16, kDouble, kDateTime, kYesNo, kBinary };

struct Column {
  const char* name;  // lower case, blanks kept, UTF-8
  Type type;
};

struct Table {
  const char* name;  // lower case, blanks kept, UTF-8
  std::vector<Column> columns;
};

struct Index {
  const char* name;
  const char* table;
  std::vector<const char*> columns;
  bool unique = false;
};

// Every table of a company database, in creation order: documents, then catalogues,
// settings and the rest.
const std::vector<Table>& Tables();
const std::vector<Index>& Indexes();
const Table* FindTable(const QString& name);

// Passwords and private keys: the program reads them to log in and to seal, but no saved
// view, look-up or report ever shows them.
struct ColumnaSecreta {
  const char* tabla;
  const char* columna;
};
const std::vector<ColumnaSecreta>& ColumnasSecretas();
bool EsColumnaSecreta(const QString& tabla, const QString& columna);

// Pieces of the definition, one file each.
std::vector<Table> DocumentTables();
std::vector<Index> DocumentIndexes();
std::vector<Table> CatalogTables();
std::vector<Index> CatalogIndexes();

}  // namespace ventarix::schema
