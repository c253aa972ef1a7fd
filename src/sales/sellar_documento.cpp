// An invoice or credit note handed to its scheme's driver as the capture screen hands it: the
// fields by their index, the grid with its computed columns; the driver's block becomes the
// header's electronic columns.
#include "sales/sellar_documento.h"

#include <QDir>
#include <QFile>

#include "core/mFunciones.h"
#include "documents/captura_filas.h"
#include "documents/row_arithmetic.h"
#include "edocs/cfdi_xml.h"
#include "edocs/mDigital.h"
#include "sales/completar_ventas.h"
#include "sales/familias_ventas.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;
using captura::Numero;
using captura::Texto;

struct Lado {
  const char* tabla;  // "facturas"
  const char* rango;  // the header's range column: "ingreso"
  bool nota;          // egreso: the grid has the invoice and its department in front
};

constexpr Lado kIngreso{"facturas", "ingreso", false};
constexpr Lado kEgreso{"notas cliente", "egreso", true};

QString N(double valor) { return QString::number(valor, 'g', 17); }

// The grid's cells of a row: code to total, as the screen draws them.
QStringList Fila(const Lado& lado, const QVariantMap& p) {
  const RowAmounts r = ComputeRow(captura::EntradaDe(p), false);
  QStringList fila{QString()};
  if (lado.nota) fila << Texto(p, "factura") << Texto(p, "depto");
  fila << Texto(p, "codigo") << Texto(p, "descripcion") << Texto(p, "unidad") << N(r.cantidad)
       << N(r.precio) << N(r.importe) << N(r.dcto) << N(r.descuento) << N(r.subtotal)
       << N(r.impuesto) << N(r.iva) << N(r.total);
  return fila;
}

edocs::DocumentoCaptura FormaDe(const Session& session, Connection& c, const Lado& lado,
                                const Documento& d, const QString& serie, qint32 folio) {
  const QVariantMap& e = d.encabezado;
  edocs::DocumentoCaptura forma;
  forma.Status = u"ALTA"_s;
  forma.Serie = serie;
  forma.FormaDePago = Texto(e, "formadepago");
  forma.Moneda = Texto(e, "moneda");
  // The date picker holds the document's day at the moment of saving.
  forma.Fecha = QDateTime(captura::FechaDe(d).date(), mFunciones::FechaServidor(c, session).time());
  forma.Ingreso = static_cast<int>(Numero(e, lado.rango));
  const qint32 cliente = static_cast<qint32>(Numero(e, "cliente"));
  forma.Datos = {{0, QString::number(folio)},
                 {1, QString::number(cliente)},
                 {3, Texto(e, "plazo")},
                 {5, Texto(e, "tipocambio")},
                 {6, ResumenDe(d)},
                 {10, Texto(e, "retencion isr $")},
                 {11, Texto(e, "retencion iva $")},
                 {12, Texto(e, "retencion ced $")},
                 {30, Numero(e, "metodo") > 0 ? Texto(e, "metodo") : QString()},
                 {31, Texto(e, "numctapago")},
                 {32, Texto(e, "condicionesdepago")},
                 {33, Texto(e, "motivodescuento")},
                 {34, Texto(e, "lugarexpedicion")}};
  forma.MetodoNombre = Texto(e, "metododepago");
  forma.Nombre = c.Scalar(u"select nombre from clientes where numero = ?"_s, {cliente}).toString();
  forma.Saldo =
      c.Scalar(u"select saldo from clientes where numero = ?"_s, {cliente}).toDouble() + TotalDe(d);
  for (const QVariantMap& p : d.partidas) {
    if (captura::TieneCodigo(p)) forma.Fg1.append(Fila(lado, p));
  }
  return forma;
}

// A change seals again under its own folio: its file steps aside for the new one and comes
// back if the driver refuses.
class ArchivoAnterior {
 public:
  ArchivoAnterior(const Session& session, const Documento& d) {
    if (d.llave.isEmpty()) return;
    ruta_ = QDir(session.CarpetaXml).filePath(d.llave + u".xml"_s);
    if (QFile::exists(ruta_)) {
      QFile::remove(ruta_ + u".anterior"_s);
      apartado_ = QFile::rename(ruta_, ruta_ + u".anterior"_s);
    }
  }
  ~ArchivoAnterior() {
    if (!apartado_) return;
    if (conservar_) {
      QFile::remove(ruta_ + u".anterior"_s);
    } else {
      QFile::remove(ruta_);
      QFile::rename(ruta_ + u".anterior"_s, ruta_);
    }
  }
  ArchivoAnterior(const ArchivoAnterior&) = delete;
  ArchivoAnterior& operator=(const ArchivoAnterior&) = delete;
  void Conservar() { conservar_ = true; }

 private:
  QString ruta_;
  bool apartado_ = false;
  bool conservar_ = false;
};

Outcome Sellar(const Lado& lado, const Session& session, Connection& c, const Documento& d,
               const QString& serie, qint32* folio, QVariantMap* columnas) {
  edocs::DocumentoCaptura forma = FormaDe(session, c, lado, d, serie, *folio);
  ArchivoAnterior anterior(session, d);
  const edocs::ResultadoSellado r = edocs::SellarEnGuardado(
      session, c, forma, lado.nota, Texto(d.encabezado, "esquema"), ResumenDe(d));
  if (!r.ok()) return Outcome::Warning(r.Msg1, u"Msg1"_s);
  if (!r.error_interno.isEmpty()) return Outcome::Stop(r.error_interno, u"Msg1"_s);
  anterior.Conservar();
  *folio = forma.Dato(0).toInt();
  columnas->insert(
      edocs::ColumnasDeComprobante(QString::fromUtf8(lado.tabla), r.comprobante, c.sql()));
  // The folio the range gave, as the key's.
  columnas->insert(u"folio"_s, *folio);
  return Outcome::Ok();
}

}  // namespace

Outcome SellarFactura(const Session& session, Connection& c, const Documento& d,
                      const QString& serie, qint32* folio, QVariantMap* columnas) {
  return Sellar(kIngreso, session, c, d, serie, folio, columnas);
}

Outcome SellarNotaCliente(const Session& session, Connection& c, const Documento& d,
                          const QString& serie, qint32* folio, QVariantMap* columnas) {
  return Sellar(kEgreso, session, c, d, serie, folio, columnas);
}

}  // namespace ventarix::ventas
