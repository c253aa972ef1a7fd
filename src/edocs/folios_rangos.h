#pragma once

#include <array>
#include <vector>

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include "core/outcome.h"
#include "edocs/folios.h"

namespace ventarix {
struct Session;
}  // namespace ventarix

// A folio range: the company's authority to issue electronic invoices or credit notes under a
// series and a scheme, with its number block and, for the sealed schemes, the certificate, key
// and password kept in the database beside it.
namespace ventarix::edocs {

enum class Esquema { kCfd, kCfdi, kCbb, kNota };

// What tells the invoice ranges from the credit-note ranges.
struct DatosFamiliaFolios {
  FamiliaFolios familia;
  const char* tabla;       // "folios facturas"
  int documento;           // certificados.documento, cbb.documento
  const char* derechos;    // the rights column of usuarios
  bool pagare;             // the promissory-note text
  const char* filtro_cbb;  // the file dialog's filter for the SAT's two-dimensional code image
};
const DatosFamiliaFolios& DatosDe(FamiliaFolios familia);

// "CFD", "CFDI", "CBB", "NOTA" as stored; the combo offers them in this order.
QString TextoEsquema(Esquema esquema);
bool EsquemaDeTexto(const QString& texto, Esquema* esquema);
const std::array<Esquema, 4>& Esquemas();
// How a message names a stored scheme: "CFDI" reads "CFDi".
QString EsquemaEnMensaje(const QString& texto);
// "2.2" for CFD, "3.2" for CFDI, empty otherwise.
QString VersionDe(Esquema esquema);
// CFD and CFDI carry a certificate and a key.
bool EsSellado(Esquema esquema);

// The items of the three combos of the printed form's logo and heading, in index order, and
// the index a stored value loads as: anything outside the list is the first item.
const QStringList& ItemsUbicarLogoTipo();
const QStringList& ItemsAlinearEmpresa();
const QStringList& ItemsAlinearLogotipo();
int IndiceDeLista(const QString& guardado, const QStringList& items);

// The fields of a scheme's frame, in screen order ("RegimenFiscal", ... "Password").
QStringList CamposDelEsquema(Esquema esquema);

// The CBB image's size as its label shows it: kilobytes, rounded ("13 Kb").
QString TamanoCbb(qint64 bytes);

// The tags the legend boxes may hold, shown by the Etiquetas menu.
const QStringList& Etiquetas();

// FolioFinal - FolioInicial + 1.
qint64 Cantidad(qint64 folio_inicial, qint64 folio_final);

// A range as its capture screen holds it: numbers and texts as typed.
struct RangoFolios {
  qint32 numero = 0;
  QString serie;
  Esquema esquema = Esquema::kCfdi;
  QString folio_inicial, folio_final;
  QString regimen_fiscal, no_aprobacion, ano_aprobacion;
  QString archivo_certificado, archivo_llave;  // bare file names
  QString password;
  // What the certificate said (the Informe labels); empty until one is read.
  QString no_certificado;
  QDateTime valido_desde, valido_hasta;
  QString domicilio;
  std::array<QString, 3> leyendas;
  QString pagare;
  bool imprimir_logotipo = false;
  int ubicar_logotipo = 0, alinear_empresa = 0, alinear_logotipo = 0;
  QString status = QStringLiteral("ALTA");
};

// The files chosen in this visit of the screen (full paths) and the CBB image on screen.
struct MaterialNuevo {
  QString certificado, llave;
  QByteArray cbb;
};

// Each character of the series must be A to Z (lower case is refused, not changed); then no
// range of another scheme may hold the series. The field is "Serie".
Outcome RevisarSerie(const Session& session, FamiliaFolios familia, const QString& serie,
                     Esquema esquema);

// The checks before saving, in their order, those of the range's scheme only; each failure
// names the field that takes the focus.
Outcome RevisarRango(const RangoFolios& rango);

// The labels of a certificate file: number and validity; false when it is not a certificate.
bool LeerInforme(const QString& archivo, RangoFolios* rango);
// The validity as the Informe labels show it.
QString FechaDeInforme(const QDateTime& fecha);

// The password check of a key file: a warning on the field "Password" when the password does
// not open it, or when the file can't be read as a key at all.
Outcome RevisarContrasena(const QString& archivo_llave, const QString& password);

// The add (alta) draws a new numero and writes it back into rango->numero; the change rewrites
// the range of rango->numero. The scheme's own columns, the shared ones, the certificate and
// key when both new files were chosen (kept otherwise), and for CBB the image (its row deleted
// when there is none), all in one transaction.
Outcome GuardarRango(const Session& session, FamiliaFolios familia, bool alta, RangoFolios* rango,
                     const MaterialNuevo& nuevo);

// A stored range for its change screen, with its CBB image.
Outcome LeerRango(const Session& session, FamiliaFolios familia, qint32 numero, RangoFolios* rango,
                  QByteArray* cbb);

// On opening a sealed range's change screen: the stored certificate and key are written into
// CarpetaCer when missing there and the stored password goes into the range. Each lacking
// piece gives its stop message (none when all is there).
std::vector<Outcome> RestaurarMaterial(const Session& session, FamiliaFolios familia,
                                       RangoFolios* rango);

// The range becomes the one the capture screens start with (a change: right "C" on the
// family's ranges): every other range of the table loses the mark, whatever its scheme, and
// the session's FolioFacturas or FolioNotas takes it.
Outcome Predeterminar(Session& session, FamiliaFolios familia, qint32 numero);

// Empties CarpetaTmp, as a change screen leaves it after saving.
void VaciarTemporales(const Session& session);

}  // namespace ventarix::edocs
