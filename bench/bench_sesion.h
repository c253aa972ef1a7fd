#pragma once

#include <QFileInfo>
#include <QString>

#include "core/mFunciones.h"
#include "core/session.h"

namespace ventarix::bench {

// The session a bench works with on the company at `path` (a SQLite file or a connection file).
inline Session SesionDeBanco(const QString& path, bool sql) {
  using namespace Qt::StringLiterals;
  Session s;
  s.Motor = sql ? u"Sql"_s : u"Access"_s;
  s.BaseDatos = path;
  s.BaseNombre = QFileInfo(path).fileName();
  s.Sql = sql;
  s.Access = !sql;
  mFunciones::ConstruirCadenas(s);
  s.Equipo = u"BENCH"_s;
  return s;
}

}  // namespace ventarix::bench
