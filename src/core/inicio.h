#pragma once

#include <optional>

#include <QString>
#include <QStringList>

#include "core/mBrowse.h"
#include "core/outcome.h"
#include "core/session.h"

// Rules of the start-up forms and the main window that hold no widget: the first values of a
// session, the menu mask, the point-of-sale screen of the user, the grid alignment button, the
// year panel and the password step before the users catalogue.
namespace ventarix::inicio {

// The session as the login form finds it: ADMINISTRADOR with every right, store 1, the
// computer's name cut to 20 characters, upper case on, and one pastel background colour
// drawn for this run.
void PrepararSesion(Session& session);
// The pastel colours a run may draw, in drawing order 1 to 8.
quint32 ColorDeFondo(int sorteo);

// The four blocks of the menu mask `Permisos`, 50 characters each.
enum class BloqueMenu { kRegistros = 0, kCatalogos = 1, kReportes = 2, kUtilerias = 3 };
inline constexpr int kLargoBloque = 50;
// Whether entry `indice` (1 to 50) of the block is enabled by the mask: its character is "1".
// A short mask denies the missing positions.
bool EntradaHabilitada(const QString& permisos, BloqueMenu bloque, int indice);
// The mask of the session's user.
QString Permisos(const Session& session);

// The sale screen of the user: FrmTpv1 for 1, FrmTpv3 for 3, FrmTpv2 for anything else.
QString FormaTpv(const Session& session);
// Whether the point of sale opens by itself once the main window shows.
bool EntrarDirectamenteATpv(const Session& session);

// The grid alignment button acts only on the browsers of documents and catalogues, known by
// their caption.
bool AdmiteAlineacion(const QString& titulo);

// The year panel's answer: its first four characters as a number, when at least 1.
std::optional<int> AnoDeRespuesta(const QString& respuesta);

// The password step before the users catalogue: the prompt to run when an administrator's
// password exists; none otherwise, and the catalogue opens at once.
std::optional<mBrowse::Prompt> AutorizacionUsuarios(const Session& session);
// The prompt's check of what was typed against the stored passwords it accepts (any one of
// them, compared as every password is: core/passwords.h). The message when none matches.
Outcome Autorizar(const QStringList& claves, const QString& tecleado);

}  // namespace ventarix::inicio
