#pragma once

// What the sealing tests share: the fixture company on the current engine with its session,
// a statement run on it, and every driver of the capture screens with the fixture range it is
// given.
#include <QDebug>
#include <QTest>

#include "core/database.h"
#include "edocs/empresa_sellado.h"
#include "edocs/mDigital.h"
#include "support/escribir.h"
#include "support/test_company.h"

// The sealing company of the current global engine row and its session.
#define VENTARIX_SELLADO(company, session)                                           \
  VENTARIX_COMPANY(company);                                                         \
  {                                                                                  \
    QString error_;                                                                  \
    QVERIFY2(::ventarix::testing::PrepararEmpresaSellado(company.cadena(), &error_), \
             qPrintable(error_));                                                    \
  }                                                                                  \
  ::ventarix::Session session = company.MakeSession();                               \
  ::ventarix::testing::CompletarSesionSellado(session)

namespace ventarix::testing {

inline bool EjecutarSql(const Session& s, const QString& sentencia,
                        const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  QString error;
  if (!testing::Escribir(c, sentencia, valores, &error)) qWarning() << error;
  return error.isEmpty();
}

enum Driver {
  kIngresoCFDi,
  kIngresoCFD,
  kEgresoCFDi,
  kEgresoCFD,
  kIngresoCBB,
  kIngresoNOTA,
  kEgresoCBB,
  kEgresoNOTA,
  kRemision
};

using Sellador = edocs::ResultadoSellado (*)(const Session&, edocs::DocumentoCaptura&,
                                             const QString&);

struct DatosDriver {
  Sellador correr;  // the drivers without XML take no summary description
  int rango;
  const char* serie;
  bool nota;
};

// A preparing driver run where a sealing one would be: it takes no description.
template <auto kPreparar>
edocs::ResultadoSellado SinDescripcion(const Session& s, edocs::DocumentoCaptura& f,
                                       const QString&) {
  return kPreparar(s, f);
}

inline const DatosDriver& Datos(Driver d) {
  static const DatosDriver kDrivers[] = {
      {edocs::SellarIngresoCFDi, kFacturaCFDi, "A", false},
      {edocs::SellarIngresoCFD, kFacturaCFD, "B", false},
      {edocs::SellarEgresoCFDi, kNotaCFDi, "NC", true},
      {edocs::SellarEgresoCFD, kNotaCFD, "ND", true},
      {SinDescripcion<edocs::PrepararIngresoCBB>, kFacturaCBB, "C", false},
      {SinDescripcion<edocs::PrepararIngresoNOTA>, kFacturaNOTA, "N", false},
      {SinDescripcion<edocs::PrepararEgresoCBB>, kNotaCBB, "NB", true},
      {SinDescripcion<edocs::PrepararEgresoNOTA>, kNotaNOTA, "NN", true},
      {SinDescripcion<edocs::PrepararRemision>, 0, "", false}};
  return kDrivers[d];
}

// The capture screen's content on the driver's own range.
inline edocs::DocumentoCaptura DocumentoDe(Driver d) {
  return Documento(Datos(d).rango, QString::fromLatin1(Datos(d).serie), Datos(d).nota);
}

inline edocs::ResultadoSellado Correr(Driver d, const Session& s, edocs::DocumentoCaptura& forma,
                                      const QString& descripcion = {}) {
  return Datos(d).correr(s, forma, descripcion);
}

}  // namespace ventarix::testing
