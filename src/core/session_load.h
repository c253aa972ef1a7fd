#pragma once

#include <QString>
#include <QStringList>

#include "core/session.h"

// The session load of the splash screen: company, folders, rights, terminal settings,
// schema file lists, default series, active folios, pending code change, product count,
// logo, scratch files, warehouse names; in that order.
namespace ventarix {

void CargarSesion(Session& session);

// The mail relay a company starts with until its own account is captured.
inline constexpr char kServidorSMTPPredeterminado[] = "smtp.ventarix.mx";
inline constexpr char kPuertoSMTPPredeterminado[] = "587";
inline constexpr char kDePredeterminado[] = "facturas@ventarix.mx";
inline constexpr char kPasswordSMTPPredeterminado[] = "";

// Above this many products the look-ups stop pre-loading the product list.
inline constexpr qint64 kMuchosProductos = 20000;

// The 24 columns of usuarios holding a three-letter rights text (add, cancel, change).
const QStringList& ColumnasDeDerechos();

// The rights of the ADMINISTRADOR of a company that has no users at all: every menu entry,
// every field, "SSS" everywhere.
void PermisosCompletos(RowValues& usuario, const QString& nombre);

// Pieces, for the reload and for tests.
void CargarEmpresa(Session& session);
void CargarPermisos(Session& session);
void CargarConfiguracion(Session& session);
void CargarSeries(Session& session);
void CargarFolios(Session& session);
// The SAT files each scheme needs beside its style sheet (EsquemasCFD, EsquemasCFDi).
void CargarEsquemas(Session& session);

}  // namespace ventarix
