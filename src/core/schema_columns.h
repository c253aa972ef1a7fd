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

inline std::vector<Column> Cols(Type type, std::initializer_list<const char*> names) {
  std::vector<Column> columns;
  for (const char* name : names) columns.push_back({name, type});
  return columns;
}

// A column name made at run time, kept alive for the whole run like the literal ones.
inline const char* Interned(const std::string& name) {
  static std::mutex mutex;
  static std::set<std::string> names;
  std::lock_guard<std::mutex> lock(mutex);
  return names.insert(name).first->c_str();
}

// PREFIX followed by FIRST..LAST: "precio1".."precio5".
inline std::vector<Column> Numbered(Type type, const std::string& prefix, int first, int last) {
  std::vector<Column> columns;
  for (int n = first; n <= last; ++n)
    columns.push_back({Interned(prefix + std::to_string(n)), type});
  return columns;
}

// Joins column groups; a name already present keeps its first type, so a table's own list may
// repeat a common column without doubling it.
inline Table Make(const char* name, std::initializer_list<std::vector<Column>> groups) {
  Table table{name, {}};
  for (const std::vector<Column>& group : groups) {
    for (const Column& column : group) {
      bool present = false;
      for (const Column& c : table.columns)
        present = present || std::string_view(c.name) == column.name;
      if (!present) table.columns.push_back(column);
    }
  }
  return table;
}

}  // namespace ventarix::schema
