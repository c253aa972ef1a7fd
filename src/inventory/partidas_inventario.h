#pragma once

#include <QString>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// What the three stock families share when they complete and check what was captured.
namespace ventarix::inventario {

double Numero(const QVariantMap& valores, const char* columna);
QString Texto(const QVariantMap& valores, const char* columna);
// A value the document left out or blank.
bool Falta(const QVariantMap& valores, const char* columna);
void PonerSiFalta(QVariantMap* valores, const char* columna, const QVariant& valor);

// The product of a code, exact first, then by its alternative codes; "Este código no existe
// en productos" with the code when none.
Outcome LeerProducto(Connection& c, const QString& codigo, RowValues* producto);

// The description and unit of the product of a row, where the row has none.
Outcome CompletarDescripcion(Connection& c, QVariantMap* partida, RowValues* producto);

// "Se requiere la entrada de una observación" on the field of Obs.
Outcome ObservacionRequerida(const QVariantMap& encabezado, const QString& campo);

// The stock of warehouse `almacen` moved by the stored rows of a document as an outcome the
// capture engine hands back.
Outcome MoverAlmacen(Connection& c, const QString& tabla, const QString& columna,
                     const QString& llave, int almacen, int signo);

// A warehouse number 1 to 5; 0 when the value names none.
int Almacen(const QVariant& valor);

}  // namespace ventarix::inventario
