#pragma once

#include <array>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include "core/inicio.h"
#include "core/outcome.h"
#include "core/session.h"

// The users of a company: adding, changing and deleting them, and their rights (the menu mask,
// the three-letter rights per document family and catalogue, the field locks and the invoice
// series they may use). Passwords are kept hashed and count in upper case (core/passwords.h).
namespace ventarix::usuarios {

// What the add and change screens capture. `tienda` is the text as typed.
struct DatosUsuario {
  QString usuario;
  QString contrasena;
  QString tienda;
  bool administrador = false;
  bool gerente = false;
};

// The whole mask: one block of 50 per masked menu.
inline constexpr int kLargoPermisos = 4 * inicio::kLargoBloque;

// Adds the user. The first user of a company always becomes an administrator, so that
// someone can always enter; an administrator or manager starts with every menu entry, anyone
// else with none. The store must be 1 to 3 here.
Outcome AltaUsuario(Session& session, const DatosUsuario& datos);

// Changes password, store (1 to 5) and manager flag; the administrator flag never changes
// here, nor anywhere after the add, so that only BorrarUsuario could leave a company without
// administrator. An empty password keeps the stored one, since the stored hash cannot be shown
// back. A user who is no administrator may change only their own row, and not their manager flag.
Outcome CambioUsuario(Session& session, const DatosUsuario& datos);

// Only an administrator deletes users, and never the company's only administrator: without
// one the next start would empty the users table and let anyone in.
Outcome BorrarUsuario(const Session& session, const QString& usuario);

// Whether the session may open the change screen on this user's row.
bool PuedeCambiar(const Session& session, const QString& usuario);

// The row for the change screen; the password comes back empty.
Outcome LeerUsuario(const Session& session, const QString& usuario, DatosUsuario* datos);

// The rights of one user as the rights screen shows and saves them.
struct Derechos {
  QString permisos;
  QHash<QString, QString> textos;  // by the names of ColumnasDeDerechos()
  bool modificar_costo = false;
  bool modificar_plazo = false;
  bool modificar_credito = false;
  bool aplicar_series = false;
  std::array<QString, 9> series;
};

// The rights texts of the document families and of the catalogues; together they are the
// columns of ColumnasDeDerechos() of the session load.
const QStringList& ColumnasDeDocumentos();
const QStringList& ColumnasDeCatalogos();

Outcome LeerDerechos(const Session& session, const QString& usuario, Derechos* derechos);
// Writes the mask, the 24 rights texts, the field locks and the series in one statement.
Outcome GuardarDerechos(const Session& session, const QString& usuario, const Derechos& derechos);

// A rights text: up to three letters S or N (add, cancel, change).
bool TextoDeDerechosValido(const QString& texto);

// One block of the mask from the states of a menu's entries, the entry with index i at
// position i - 1 (separators unticked): "1" or "0" each, padded with "0" to 50, cut to 50.
QString BloqueDePermisos(const QList<bool>& estados);
// The four blocks joined, in the order registros, catálogos, reportes, utilerías.
QString MascaraDePermisos(const std::array<QList<bool>, 4>& bloques);

// The field locks of the client and product screens: whether the session's user may edit
// cost ("ModificarCosto"), credit term ("ModificarPlazo") or credit limit
// ("ModificarCredito"). An administrator always may.
bool PuedeModificar(const Session& session, const QString& columna);

}  // namespace ventarix::usuarios
