#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include "core/outcome.h"
#include "core/session.h"

// The settings tables (empresa, configurar) are saved whole: every column of the table takes
// its value from the screen's row, converted by the column's type.
namespace ventarix::ajustes {

struct FilaParaGuardar {
  QStringList columnas;  // lower case, as the table defines them
  QVariantList valores;
};

// Builds the values of every column of TABLA but those in FUERA (lower case): numbers through
// ValorNumerico, flags as "S" or "N", texts through ValorTexto except the columns in
// LITERALES, kept as typed (passwords). A column the row does not hold is left out, so that it
// keeps its stored value. A small integer out of 0..32767 is refused with the field named by
// its column.
Outcome ArmarFila(const QString& tabla, const RowValues& datos, const QSet<QString>& fuera,
                  const QSet<QString>& literales, FilaParaGuardar* fila);

// "update <tabla> set a = ?, b = ? <condicion>" and "insert into <tabla> (a, b) values (?, ?)".
QString SentenciaActualizar(const QString& tabla, const FilaParaGuardar& fila,
                            const QString& condicion);
QString SentenciaAgregar(const QString& tabla, const FilaParaGuardar& fila);

}  // namespace ventarix::ajustes
