#pragma once

#include <vector>

#include <QString>

#include "core/session.h"

// The accounts the company screen can fill in by itself: the mail server of a known provider
// and the PAC's published test account.
namespace ventarix::empresa {

// A mail provider the screen offers. Only the maker's relay brings its sender and password.
struct CorreoPredefinido {
  QString nombre;  // as the list shows it
  QString servidor;
  QString puerto;
  bool con_cuenta = false;
  QString de;
  QString password;
};

// Hotmail, Yahoo, Gmail and the maker's relay, in the list's order.
const std::vector<CorreoPredefinido>& CorreosPredefinidos();

// The provider of a server already captured, told by its name ("live", "yahoo", "gmail", the
// relay's host), as an index of CorreosPredefinidos; -1 for any other server.
int CorreoDeServidor(const QString& servidor);

// Writes the provider's server and port (and, for the relay, sender and password) into the
// company row. An index out of the list changes nothing.
void AplicarCorreo(int indice, RowValues& empresa);

// The PAC's published test account; stamping with it goes to the test service.
inline constexpr char kPacUsuarioDePrueba[] = "testing@solucionfactible.com";
inline constexpr char kPacPasswordDePrueba[] = "timbrado.SF.16672";

// Puts the test account into the company row and turns PacProduccion off.
void CuentaDePruebaPac(RowValues& empresa);

}  // namespace ventarix::empresa
