#pragma once

// The month the report tests share, written as the capture screens leave the rows.
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

#include "core/database.h"
#include "support/document_rows.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline QDateTime Momento(int mes, int dia, int h, int m, int s, int ano = 2024) {
  return QDateTime(QDate(ano, mes, dia), QTime(h, m, s));
}

struct Documento {
  QString tabla, serie;
  int folio;
  QString esquema, status;
  QDateTime hora;
  QDate fecha;
  double total, iva;
  QString moneda;
  double tipo_cambio;
};

inline bool Insertar(Connection& c, const Documento& d, QString* error) {
  const bool factura = d.tabla == u"facturas";
  const QString clave = d.serie + u'-' + QString::number(d.folio);
  return InsertarFila(c, d.tabla,
                      {{factura ? u"factura"_s : u"nota"_s, clave},
                       {u"serie"_s, d.serie},
                       {u"folio"_s, d.folio},
                       {u"esquema"_s, d.esquema},
                       {u"status"_s, d.status},
                       {u"hora"_s, d.hora},
                       {u"fecha"_s, d.fecha},
                       {u"cliente"_s, factura ? 1 : 2},
                       {u"noaprobacion"_s, factura ? u"12345"_s : u"54321"_s},
                       {u"total"_s, d.total},
                       {u"iva"_s, d.iva},
                       {u"moneda"_s, d.moneda},
                       {u"tipocambio"_s, d.tipo_cambio}},
                      error);
}

// March 2024 of a shop that reports CFD documents: a cancelled invoice of series "0", a dollar
// invoice, a note in dollars, the month's last second; and documents the report must leave
// out: another scheme, the first second of April, a note dated in February but saved in March.
inline bool PrepararMes(const QString& cadena, QString* error) {
  Connection c(cadena);
  const QList<Documento> documentos = {
      {u"facturas"_s, u"A"_s, 1, u"CFD"_s, u"POR COBRAR"_s, Momento(3, 5, 10, 15, 30),
       QDate(2024, 3, 5), 1160.5, 160.07, u"USD"_s, 17.25},
      {u"facturas"_s, u"0"_s, 7, u"CFD"_s, u"BAJA"_s, Momento(3, 2, 9, 0, 0), QDate(2024, 3, 2),
       580, 80, u"MXN"_s, 1},
      {u"notas cliente"_s, u"B"_s, 3, u"CFD"_s, u"ALTA"_s, Momento(3, 20, 17, 45, 0),
       QDate(2024, 3, 20), 232, 32, u"USD"_s, 18},
      {u"facturas"_s, u"A"_s, 9, u"CFD"_s, u"LIQUIDADO"_s, Momento(3, 31, 23, 59, 59),
       QDate(2024, 3, 31), 100, 16, u"MXN"_s, 1},
      {u"facturas"_s, u"C"_s, 2, u"CFDI"_s, u"POR COBRAR"_s, Momento(3, 10, 12, 0, 0),
       QDate(2024, 3, 10), 999, 99, u"MXN"_s, 1},
      {u"facturas"_s, u"A"_s, 10, u"CFD"_s, u"POR COBRAR"_s, Momento(4, 1, 0, 0, 0),
       QDate(2024, 4, 1), 50, 8, u"MXN"_s, 1},
      {u"notas cliente"_s, u"B"_s, 4, u"CFD"_s, u"ALTA"_s, Momento(3, 1, 8, 0, 0),
       QDate(2024, 2, 29), 10, 1.6, u"MXN"_s, 1},
  };
  if (!InsertarFila(c, u"clientes"_s,
                    {{u"numero"_s, 1}, {u"rfc"_s, u"MOPR7503125H1"_s}, {u"nombre"_s, u"UNO"_s}},
                    error) ||
      !InsertarFila(c, u"clientes"_s,
                    {{u"numero"_s, 2}, {u"rfc"_s, u"GAHE6908107T2"_s}, {u"nombre"_s, u"DOS"_s}},
                    error)) {
    return false;
  }
  for (const Documento& d : documentos) {
    if (!Insertar(c, d, error)) return false;
  }
  return true;
}

}  // namespace ventarix::testing
