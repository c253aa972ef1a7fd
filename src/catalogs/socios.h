#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "core/catalogo_nombre.h"
#include "core/outcome.h"
#include "core/session.h"

// The partner catalogues: clients, suppliers, agents and banks. The four share one add and one
// change screen; what sets them apart (their fields, the checks that apply, their table and
// rights) is the table FamiliaDe() gives.
namespace ventarix::socios {

enum class Socio { kClientes, kProveedores, kAgentes, kBancos };

// How a field is captured, and how its value is stored.
enum class Tipo {
  kTexto,     // text, upper case as typed
  kCorreo,    // e-mail address, lower case
  kRfc,       // cleaned and checked on leaving
  kEntero,    // whole number
  kNumero,    // amount or percent, two decimals
  kCatalogo,  // number of an agent, payment method or bank, with its name beside it
  kTipo,      // one of the words of table tipos, or a new one
  kAddenda,   // one of Addendas()
  kBandera,   // "S" or "N"
};

struct Campo {
  const char* columna;  // as the column is spelled: also the field's name on the screen
  const char* titulo;   // caption
  Tipo tipo = Tipo::kTexto;
  bool solo_cambio = false;                // only the change screen shows and writes it
  Catalogo catalogo = Catalogo::kAgentes;  // for kCatalogo
};

// Fields shown together under one caption; `columnas` fields side by side per line.
struct Grupo {
  const char* titulo;
  int lado;  // 0 left, 1 right
  int columnas;
  std::vector<Campo> campos;
};

struct Familia {
  Socio socio;
  const char* tabla;           // "clientes"
  const char* titulo;          // "Clientes": window captions
  const char* derechos;        // rights column of usuarios
  const char* singular;        // "cliente": in the RFC messages
  const char* alta;            // "FrmClientesA"
  const char* cambio;          // "FrmClientesC"
  const char* prefijo_cuenta;  // of the suggested ledger account; nullptr when none
  bool fiscal;                 // RFC and fiscal address checked (clients and suppliers)
  bool credito;                // credit limit, agent and payment method checked (clients)
  bool nombre_requerido;       // Guardar waits for a name (agents and banks)
  // In the order of the screen and of saving; Numero comes before them and Status after.
  std::vector<Grupo> grupos;
};

const Familia& FamiliaDe(Socio socio);

// The fields of the add (cambio false) or change screen, in order.
std::vector<const Campo*> Campos(const Familia& familia, bool cambio);

// The captured row: its number, the status label's word and the fields by column.
struct Registro {
  qint32 numero = 0;
  QString status = QStringLiteral("ALTA");
  RowValues valores;
};

// The row of that number for the change screen.
Outcome LeerSocio(const Session& session, Socio socio, qint32 numero, Registro* registro);

// The number a new row will most likely take; the save takes max + 1 again.
qint32 NumeroPropuesto(const Session& session, Socio socio);

// "100-003-000012" for client 12; suppliers "200-100-", banks "100-002-"; agents none.
QString CuentaSugerida(Socio socio, qint32 numero);

// A click on the status label of a change screen: "ALTA" becomes "BAJA" and back.
QString StatusAlternado(const QString& status);

// The words of table tipos, for the Tipo choice.
QStringList Tipos(const Session& session);

// The addendas a client's invoices may carry: the empty one first.
const QStringList& Addendas();

// Fields the user may not change: a client's credit term and limit without the rights
// ModificarPlazo and ModificarCredito (administrators always may).
QStringList CamposBloqueados(const Session& session, Socio socio, bool cambio);

// The percent an agent earns on an invoice collected at that age in days: the one of the
// first of the four ranges Dias1-Dias2 .. Dias7-Dias8 the age falls in, 0 outside them all.
double ComisionPorDias(const RowValues& agente, int dias);

}  // namespace ventarix::socios
