#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include "core/outcome.h"

namespace ventarix {
class Connection;
struct Session;
}  // namespace ventarix

// The monthly report of self-sealed (CFD) and CBB documents the SAT receives as a text file:
// every invoice and client credit note of one month and one scheme.
namespace ventarix::edocs {

// One listed document, as the screen's grid shows it.
struct RenglonInforme {
  QString rfc;    // the client's
  QString serie;  // "0" is listed empty
  qint64 folio = 0;
  QString aprobacion;  // year of the document's date followed by its approval number
  QDateTime fecha;     // when it was saved (hora)
  double total = 0;
  double iva = 0;
  int status = 1;       // 0 for a cancelled document
  QString comprobante;  // "I" invoice, "E" credit note
  QString moneda;       // credit notes always "MXN"
  double tipo_cambio = 1;
};

struct ListadoInforme {
  bool ok = true;
  QString error;  // the engine's words when the listing failed
  QList<RenglonInforme> renglones;
};

// The schemes the report is made for.
QStringList EsquemasInforme();

// Invoices and credit notes of the month of `mes` under the scheme, ordered by the time they
// were saved. Invoices are taken by their saving time, notes by their date.
ListadoInforme ListarInforme(Connection& connection, const QString& esquema, const QDate& mes);

// A month listed without documents: a warning, said after the listing and before the
// confirmations of what would be an empty file. Ok for a month with documents.
Outcome RevisarListado(const ListadoInforme& listado, const QString& esquema, const QDate& mes);

// <CarpetaBak>/1<company RFC><mmyyyy>.txt
QString ArchivoInforme(const Session& session, const QDate& mes);

// "INFORME MENSUAL SAT AL MES DE marzo 2014"
QString TituloInforme(const QDate& mes);

// "dd/mm/yyyy hh:mm:ss", 24-hour clock.
QString FechaInforme(const QDateTime& fecha);

// The captions of the grid's columns after its fixed first one; the file takes the columns
// from kPrimeraColumnaArchivo on (the fixed column counts as 0).
QStringList ColumnasInforme();
inline constexpr int kPrimeraColumnaArchivo = 3;

// The text of grid column `columna` (1-based, as in ColumnasInforme) for the file: amounts
// "0.00", the rest as listed.
QString ValorArchivo(const RenglonInforme& renglon, int columna);

// One line: "|" + every column from kPrimeraColumnaArchivo on followed by "|", closed by "||||".
QString LineaInforme(const RenglonInforme& renglon);

// The lines joined by CR LF, none after the last; nothing at all for an empty month.
QByteArray TextoInforme(const QList<RenglonInforme>& renglones);

// Writes the file, replacing an older one; a failure comes back as a stop (a run-time error).
Outcome EscribirInforme(const QString& path, const QList<RenglonInforme>& renglones);

}  // namespace ventarix::edocs
