#pragma once

// Small builders shared by the two halves of the table definition.
#include <initializer_list>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/schema.h"

namespace ventarix::schema {

// A column name made at run time, kept alive for the whole run like the literal ones.
inline const char* Interned(const std::string& name) {
  static std::mutex mutex;
  static std::set<std::string> names;
  std::lock_guard<std::mutex> lock(mutex);
  return names.insert(name).first->c_str();
}

// PREFIX followed by each of NAMES: Cols(kText, "emisor", {"rfc"}) is "emisorrfc".
inline std::vector<Column> Cols(Type type, const std::string& prefix,
                                std::initializer_list<const char*> names) {
  std::vector<Column> columns;
  for (const char* name : names) columns.push_back({Interned(prefix + name), type});
  return columns;
}

inline std::vector<Column> Cols(Type type, std::initializer_list<const char*> names) {
  std::vector<Column> columns;
  for (const char* name : names) columns.push_back({name, type});
  return columns;
}

// PREFIX followed by FIRST..LAST: "precio1".."precio5".
inline std::vector<Column> Numbered(Type type, const std::string& prefix, int first, int last) {
  std::vector<Column> columns;
  for (int n = first; n <= last; ++n) {
    columns.push_back({Interned(prefix + std::to_string(n)), type});
  }
  return columns;
}

// A fiscal address as the SAT documents lay it out, under PREFIX.
inline std::vector<Column> Address(const std::string& prefix = {}) {
  return Cols(Type::kText, prefix,
              {"calle", "noexterior", "nointerior", "colonia", "localidad", "referencia",
               "municipio", "estado", "pais", "codigopostal"});
}

// Joins column groups; a name already present keeps its first type, so a table's own list may
// repeat a common column without doubling it.
inline std::vector<Column> Join(std::initializer_list<std::vector<Column>> groups) {
  std::vector<Column> columns;
  for (const std::vector<Column>& group : groups) {
    for (const Column& column : group) {
      bool present = false;
      for (const Column& c : columns) present = present || std::string_view(c.name) == column.name;
      if (!present) columns.push_back(column);
    }
  }
  return columns;
}

inline Table Make(const char* name, std::initializer_list<std::vector<Column>> groups) {
  return Table{name, Join(groups)};
}

}  // namespace ventarix::schema
