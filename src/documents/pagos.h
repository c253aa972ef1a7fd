#pragma once

#include <vector>

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// Payments against open documents: receipts from clients on their invoices (`cxc`) and
// payments to suppliers on their purchases (`cxp`) are mirror images. One engine serves both;
// each side is a table of its differences (Lado). A payment is a row of the capture engine:
// the header is the payment, each row a document and its `abono`; the balances of the
// documents paid and of their parties are derived again on saving. The settle payment closes
// many small balances, of one party or of all, at once.
namespace ventarix::pagos {

// A header column the side asks for before the annotation, in order.
struct Requisito {
  const char* columna;  // "metodo"
  const char* mensaje;  // "Se requiere la entrada de un método de pago"
  const char* campo;    // "Datos2"
  bool numero = true;   // a catalogue number above 0; otherwise a text not empty
};

// What sets one side of the payments apart from the other.
struct Lado {
  const char* tabla;        // "cxc"
  const char* derechos;     // "CxC"
  QString Session::*serie;  // &Session::SerieCxC
  const char* socio;        // "cliente"
  const char* socios;       // "clientes"
  const char* documentos;   // "facturas"
  const char* documento;    // "factura"
  const char* abierto;      // status of a document still owed: "POR COBRAR"
  // What the grids show beside the document's key, as an expression over its table `f`;
  // nullptr: nothing (the receipt's grid of invoices).
  const char* referencia = nullptr;
  const char* referencia_saldar = nullptr;  // the settle grid's: "f.depto"
  const char* falta_socio;                  // "Se requiere un número de cliente"
  const char* falta_abono;                  // "Se requiere la entrada de un abono de cliente"
  const char* no_abierto;                   // "La factura %1 no está por cobrar"
  const char* del_socio;                    // " al cliente %1"
  std::vector<Requisito> medios;            // the means of payment
  const char* campo_anotacion = "Datos4";
  const char* campo_periodo = "Datos5";
  QStringList columnas;  // header columns of the payment besides the shared ones
  // The balances of the documents paid, then of the parties who own them and of no other.
  Outcome (*saldos)(Connection& c, const QStringList& documentos);
};

// The screen's rule for an amount typed against a balance: an amount above 0 and not above
// the balance stands; anything else is thrown away (0), never trimmed to the balance.
double AbonoAdmitido(double abono, double saldo);

// An open document as a payment's grid shows it.
struct DocumentoAbierto {
  QString documento;   // "A-12"
  QString referencia;  // the supplier's invoice and delivery note, "F-88/R-3"
  QDateTime fecha;
  int plazo = 0;
  QDateTime vence;
  double total = 0;
  double abonos = 0;
  double descuentos = 0;
  double abono = 0;  // this payment
  double saldo = 0;  // the balance before this payment
};

// The party's documents still owed, oldest first.
std::vector<DocumentoAbierto> Abiertos(const Session& session, const Lado& lado, qint32 socio,
                                       QString* error = nullptr);
// The rows of a stored payment, in their order, with the documents' figures of today.
std::vector<DocumentoAbierto> DelPago(const Session& session, const Lado& lado, const QString& pago,
                                      QString* error = nullptr);

// What the settle screen searches: an optional party, the documents' year and month, and a
// range of balance ("Ejemplo:  -2.00    y    2.00").
struct FiltroSaldar {
  qint32 socio = 0;  // 0: every party
  int anio = 0;
  int mes = 0;
  double desde = 0;
  double hasta = 0;
};

struct PorSaldar {
  qint32 socio = 0;
  QString nombre;
  QString documento;
  QString referencia;
  QDateTime fecha;
  double total = 0;
  double saldo = 0;
};

// Documents still owed of the period whose balance lies in the range, by party and date.
std::vector<PorSaldar> Saldables(const Session& session, const Lado& lado,
                                 const FiltroSaldar& filtro, QString* error = nullptr);
// "Saldo Final": what the settle payment will hold.
double SaldoFinal(const std::vector<PorSaldar>& documentos);

// The engine's steps, each told with the side it works for.
namespace motor {
Outcome RevisarPago(const Lado& l, Connection& c, const captura::Documento& d, bool alta);
Outcome RevisarSaldar(const Lado& l, Connection& c, const captura::Documento& d, bool alta);
Outcome AbonoAdmitidoDe(const Lado& l, Connection& c, QVariantMap* partida);
Outcome SaldoCompleto(const Lado& l, Connection& c, QVariantMap* partida);
Outcome SocioDelPrimerRenglon(const Lado& l, Connection& c, captura::Documento* d);
Outcome Totalizar(const Lado& l, Connection& c, const QString& pago);
Outcome Saldos(const Lado& l, Connection& c, const captura::Hechos& h);
bool PagaDocumento(const Lado& l, const QVariantMap& partida);
bool NombraDocumento(const Lado& l, const QVariantMap& partida);
QStringList ColumnasPartida(const Lado& l);
}  // namespace motor

// The capture engine calls plain functions: each side's are these, bound to its Lado.
template <const Lado& L>
struct Pasos {
  static bool Paga(const QVariantMap& p) { return motor::PagaDocumento(L, p); }
  static bool Nombra(const QVariantMap& p) { return motor::NombraDocumento(L, p); }
  static Outcome Pago(const Session&, Connection& c, const captura::Documento& d, bool alta) {
    return motor::RevisarPago(L, c, d, alta);
  }
  static Outcome Saldar(const Session&, Connection& c, const captura::Documento& d, bool alta) {
    return motor::RevisarSaldar(L, c, d, alta);
  }
  static Outcome Abono(const Session&, Connection& c, const captura::Documento&, QVariantMap* p) {
    return motor::AbonoAdmitidoDe(L, c, p);
  }
  static Outcome Completo(const Session&, Connection& c, const captura::Documento&,
                          QVariantMap* p) {
    return motor::SaldoCompleto(L, c, p);
  }
  static Outcome Socio(const Session&, Connection& c, captura::Documento* d) {
    return motor::SocioDelPrimerRenglon(L, c, d);
  }
  static Outcome Total(const Session&, Connection& c, const captura::Documento&,
                       const QString& pago) {
    return motor::Totalizar(L, c, pago);
  }
  static Outcome Saldos(const Session&, Connection& c, const captura::Documento&,
                        const captura::Hechos& h) {
    return motor::Saldos(L, c, h);
  }

  // A payment of one party (FrmCxCa, FrmCxPa and their change screens): rows with an amount
  // against the party's open documents; a change rewrites the header only.
  static captura::FamiliaCaptura Familia(QString Session::*actual, bool saldar) {
    return {
        .tabla = L.tabla,
        .llave = "pago",
        .derechos = L.derechos,
        .actual = actual,
        .serie = L.serie,
        .status_inicial = "ALTA",
        .socio = L.socio,
        .productos = false,
        .presente = saldar ? Nombra : Paga,
        .cambio_con_partidas = false,
        .checar_suspendido = false,
        .mensaje_folio = "Se requiere un número de pago mayor a cero",
        .columnas = L.columnas,
        .columnas_partida = motor::ColumnasPartida(L),
        .fuente_partida = L.documento,
        .con_costo = false,
        .revisar_campos = saldar ? Saldar : Pago,
        .completar_encabezado = saldar ? Socio : nullptr,
        .completar = saldar ? Completo : Abono,
        .totalizar = Total,
        .recalcular = Saldos,
    };
  }
};

}  // namespace ventarix::pagos
