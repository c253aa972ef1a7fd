#pragma once

// A company ready to seal: its fiscal block, a client with a complete address, invoice and
// credit-note ranges of every scheme with the SAT test certificate AAA010101AAA (valid
// 27/jul/2012 to 27/jul/2016, so documents are dated inside that window), and the capture
// screens' content of an invoice and a credit note. Shared by the sealing tests and the bench.
#include <QDir>
#include <QFile>
#include <QTimeZone>

#include "core/database.h"
#include "core/mFunciones.h"
#include "core/session_load.h"
#include "edocs/captura.h"
#include "support/document_rows.h"

namespace ventarix::testing {

inline QString CarpetaSat() { return QStringLiteral(VENTARIX_SHARED_DIR "/sat"); }
inline QString BaseCsd() { return QStringLiteral("AAA010101AAA_20001000000100005867"); }

inline QByteArray LeerBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The range numbers of the fixture, by table.
enum RangoFactura {
  kFacturaCFDi = 1,
  kFacturaCFD,
  kFacturaSinSerie,
  kFacturaCBB,
  kFacturaCBBSinImagen,
  kFacturaNOTA,
  kFactura501,
  kFacturaCBBSinRegimen
};
enum RangoNota { kNotaCFDi = 1, kNotaCFD, kNotaCBB, kNotaNOTA };
inline constexpr int kCliente = 7;
inline constexpr int kClienteSinCredito = 8;

struct RangoDePrueba {
  const char* tabla;
  int numero;
  const char* serie;
  const char* esquema;
  int inicial, final;
  const char* regimen;
};

inline bool InsertarRangos(Connection& c, QString* error) {
  const char* ff = "folios facturas";
  const char* fn = "folios notas";
  const char* regimen = "REGIMEN GENERAL DE LEY PERSONAS MORALES";
  const RangoDePrueba rangos[] = {
      {ff, kFacturaCFDi, "A", "CFDI", 1, 100, regimen},
      {ff, kFacturaCFD, "B", "CFD", 1, 100, regimen},
      {ff, kFacturaSinSerie, "", "CFDI", 1, 100, regimen},
      {ff, kFacturaCBB, "C", "CBB", 1, 100, regimen},
      {ff, kFacturaCBBSinImagen, "D", "CBB", 1, 100, regimen},
      {ff, kFacturaNOTA, "N", "NOTA", 1, 100, ""},
      {ff, kFactura501, "E", "CFDI", 501, 600, regimen},
      {ff, kFacturaCBBSinRegimen, "F", "CBB", 1, 100, ""},
      {fn, kNotaCFDi, "NC", "CFDI", 1, 100, regimen},
      {fn, kNotaCFD, "ND", "CFD", 1, 100, regimen},
      {fn, kNotaCBB, "NB", "CBB", 1, 100, regimen},
      {fn, kNotaNOTA, "NN", "NOTA", 1, 100, ""},
  };
  const QString base = BaseCsd();
  for (const RangoDePrueba& r : rangos) {
    const QString esquema = QString::fromUtf8(r.esquema);
    const bool cfd = esquema == u"CFD";
    const bool sellado = cfd || esquema == u"CFDI";
    const bool aprobacion = cfd || esquema == u"CBB";
    const QVariantMap fila{
        {QStringLiteral("numero"), r.numero},
        {QStringLiteral("serie"), QString::fromUtf8(r.serie)},
        {QStringLiteral("esquema"), esquema},
        {QStringLiteral("version"), cfd       ? QStringLiteral("2.2")
                                    : sellado ? QStringLiteral("3.2")
                                              : QString()},
        {QStringLiteral("folioinicial"), r.inicial},
        {QStringLiteral("foliofinal"), r.final},
        {QStringLiteral("cantidad"), r.final - r.inicial + 1},
        {QStringLiteral("noaprobacion"), aprobacion ? QStringLiteral("98765") : QString()},
        {QStringLiteral("anoaprobacion"), aprobacion ? 2012 : 0},
        {QStringLiteral("regimenfiscal"), QString::fromUtf8(r.regimen)},
        {QStringLiteral("archivocertificado"), sellado ? base + QStringLiteral(".cer") : QString()},
        {QStringLiteral("archivollave"), sellado ? base + QStringLiteral(".key") : QString()},
        {QStringLiteral("algoritmosellodigital"), sellado ? QStringLiteral("sha-1") : QString()},
        {QStringLiteral("status"), QStringLiteral("ALTA")},
    };
    if (!InsertarFila(c, QString::fromUtf8(r.tabla), fila, error)) return false;
    const int documento = QString::fromUtf8(r.tabla) == u"folios notas" ? 1 : 0;
    if (sellado) {
      const QString csd = CarpetaSat() + QStringLiteral("/csd/") + base;
      const QVariantMap material{
          {QStringLiteral("numero"), r.numero},
          {QStringLiteral("documento"), documento},
          {QStringLiteral("certificado"), LeerBytes(csd + QStringLiteral(".cer"))},
          {QStringLiteral("llave"), LeerBytes(csd + QStringLiteral(".key"))},
          {QStringLiteral("password"), QStringLiteral("12345678a")}};
      if (!InsertarFila(c, QStringLiteral("certificados"), material, error)) return false;
    }
    const bool con_imagen = esquema == u"CBB" && r.numero != kFacturaCBBSinImagen;
    if (con_imagen) {
      const QVariantMap imagen{{QStringLiteral("numero"), r.numero},
                               {QStringLiteral("documento"), documento},
                               {QStringLiteral("cbb"), QByteArray("BM\x00\x01", 4)}};
      if (!InsertarFila(c, QStringLiteral("cbb"), imagen, error)) return false;
    }
  }
  return true;
}

inline bool InsertarClientes(Connection& c, QString* error) {
  QVariantMap cliente{{QStringLiteral("numero"), kCliente},
                      {QStringLiteral("nombre"), QStringLiteral("FERRETERIA EL CLAVO SA DE CV")},
                      {QStringLiteral("rfc"), QStringLiteral("FCL850923QA7")},
                      {QStringLiteral("calle"), QStringLiteral("AV. JUAREZ")},
                      {QStringLiteral("noexterior"), QStringLiteral("120")},
                      {QStringLiteral("nointerior"), QStringLiteral("B")},
                      {QStringLiteral("colonia"), QStringLiteral("CENTRO")},
                      {QStringLiteral("municipio"), QStringLiteral("MONTERREY")},
                      {QStringLiteral("estado"), QStringLiteral("NUEVO LEON")},
                      {QStringLiteral("pais"), QStringLiteral("MEXICO")},
                      {QStringLiteral("codigopostal"), QStringLiteral("64000")},
                      {QStringLiteral("plazo"), 30},
                      {QStringLiteral("credito"), 1000.0},
                      {QStringLiteral("status"), QStringLiteral("ALTA")}};
  if (!InsertarFila(c, QStringLiteral("clientes"), cliente, error)) return false;
  cliente[QStringLiteral("numero")] = kClienteSinCredito;
  cliente[QStringLiteral("credito")] = 0.0;
  return InsertarFila(c, QStringLiteral("clientes"), cliente, error);
}

// The company block as the session loads it, folders under the session's tree and the SAT
// folders of the shared tree.
inline void CompletarSesionSellado(Session& s) {
  const auto set = [&s](const char* columna, const char* valor) {
    s.empresa.Set(QString::fromUtf8(columna), QString::fromUtf8(valor));
  };
  set("numero", "1");
  set("rfc", "AAA010101AAA");
  set("nombre", "ACCEM SERVICIOS EMPRESARIALES SC");
  set("calle", "AV. HIDALGO");
  set("noexterior", "77");
  set("colonia", "GUERRERO");
  set("municipio", "CUAUHTEMOC");
  set("estado", "DISTRITO FEDERAL");
  set("pais", "MEXICO");
  set("codigopostal", "06300");
  mFunciones::CrearCarpetas(s);
  CargarEsquemas(s);
  s.CarpetaEsquemasCFDi = CarpetaSat() + QStringLiteral("/cfdi32");
  s.CarpetaEsquemasCFD = CarpetaSat() + QStringLiteral("/cfd22");
}

inline bool PrepararEmpresaSellado(const QString& cadena, QString* error) {
  Connection c(cadena);
  return c.ok() && InsertarRangos(c, error) && InsertarClientes(c, error);
}

// 15 March 2014, 10:30: inside the certificate's validity.
inline QDateTime FechaDeSellado() { return QDateTime(QDate(2014, 3, 15), QTime(10, 30, 0)); }

// One invoice row: code, description, unit, quantity, price; the rest computed at 16 %.
inline QStringList FilaFactura(const QString& codigo, const QString& descripcion,
                               const QString& unidad, double cantidad, double precio) {
  const double importe = cantidad * precio, iva = importe * 0.16;
  const auto n = [](double valor) { return QString::number(valor); };
  return {QString(),           codigo,     descripcion,          unidad,
          n(cantidad),         n(precio),  n(importe),           QString(),
          QStringLiteral("0"), n(importe), QStringLiteral("16"), n(iva),
          n(importe + iva)};
}

// The credit note's grid has two columns in front (the invoice it credits).
inline QStringList FilaNota(const QString& codigo, const QString& descripcion,
                            const QString& unidad, double cantidad, double precio) {
  QStringList fila = FilaFactura(codigo, descripcion, unidad, cantidad, precio);
  fila.insert(1, QStringLiteral("A"));
  fila.insert(2, QStringLiteral("15"));
  return fila;
}

inline edocs::DocumentoCaptura Documento(int rango, const QString& serie, bool nota) {
  edocs::DocumentoCaptura d;
  d.Status = QStringLiteral("ALTA");
  d.Serie = serie;
  d.FormaDePago = QStringLiteral("PAGO EN UNA SOLA EXHIBICION");
  d.Moneda = QStringLiteral("MXN");
  d.Fecha = FechaDeSellado();
  d.Ingreso = rango;
  d.Datos = {{0, QStringLiteral("15")},
             {1, QString::number(kCliente)},
             {3, QStringLiteral("30")},
             {5, QStringLiteral("1")},
             {34, QStringLiteral("MEXICO, DISTRITO FEDERAL")}};
  const auto fila = nota ? FilaNota : FilaFactura;
  d.Fg1 = {fila(QStringLiteral("TOR-14"), QStringLiteral("TORNILLO 1/4 X 2"), QStringLiteral("PZA"),
                10, 2.5),
           fila(QStringLiteral("PIN-V"), QStringLiteral("PINTURA VINILICA BLANCA 19 L"),
                QStringLiteral("CUB"), 2, 845.5)};
  return d;
}

}  // namespace ventarix::testing
