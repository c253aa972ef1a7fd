// The checks over the capture screen's own content: status, payment form, the grid's concepts
// and taxes, and the SAT files the scheme's style sheet needs.
#include <QDir>
#include <QFile>

#include "core/mFunciones_valores.h"
#include "edocs/mDigital_pasos.h"

namespace ventarix::edocs::digital {
namespace {

using mFunciones::FiltrarCaracteres;
using mFunciones::ValorNumerico;

double Numero(const DocumentoCaptura& forma, int fila, int columna) {
  return ValorNumerico(forma.Celda(fila, columna));
}

double Suma(const DocumentoCaptura& forma, int columna) {
  double suma = 0;
  for (int fila = 0; fila < forma.Fg1.size(); ++fila) suma += Numero(forma, fila, columna);
  return suma;
}

bool Vacia(const DocumentoCaptura& forma, int fila, int columna) {
  return forma.Celda(fila, columna).trimmed().isEmpty();
}

// A row with a code needs its description and unit; one row at least must have a code. The
// note's grid is tested on the same columns 1 to 3 as the invoice's.
bool RevisarFilas(Contexto& ctx) {
  const DocumentoCaptura& forma = ctx.forma;
  bool alguna = false;
  for (int fila = 0; fila < forma.Fg1.size(); ++fila) {
    if (Vacia(forma, fila, 1)) continue;
    alguna = true;
    if (Vacia(forma, fila, 2) || Vacia(forma, fila, 3)) {
      return Falla(ctx, QStringLiteral("Se requiere una descripción para la fila: ") +
                            QString::number(fila + 1));
    }
  }
  if (!alguna)
    return Falla(ctx, QStringLiteral("Se requiere al menos la entrada de un código y descripción"));
  return true;
}

// A summary ("corte", or a credit note's "NOTA") is one concept over the grid's sums.
Concepto Resumen(const Contexto& ctx) {
  const ColumnasRejilla& c = ctx.familia.columnas;
  Concepto concepto;
  concepto.codigo = QString::fromUtf8(ctx.familia.resumen_codigo);
  concepto.descripcion = FiltrarCaracteres(*ctx.descripcion);
  concepto.unidad = QString::fromUtf8(ctx.familia.resumen_unidad);
  concepto.cantidad = 1;
  concepto.precio = concepto.importe = Suma(ctx.forma, c.importe);
  concepto.subtotal = Suma(ctx.forma, c.concepto_subtotal);
  return concepto;
}

QVector<Concepto> Partidas(const Contexto& ctx) {
  const ColumnasRejilla& c = ctx.familia.columnas;
  const DocumentoCaptura& forma = ctx.forma;
  QVector<Concepto> conceptos;
  for (int fila = 0; fila < forma.Fg1.size(); ++fila) {
    if (Vacia(forma, fila, 1) || Vacia(forma, fila, 2) || Vacia(forma, fila, 3)) continue;
    Concepto concepto;
    concepto.codigo = FiltrarCaracteres(forma.Celda(fila, c.codigo));
    concepto.descripcion = FiltrarCaracteres(forma.Celda(fila, c.descripcion));
    concepto.unidad = FiltrarCaracteres(forma.Celda(fila, c.unidad));
    concepto.cantidad = Numero(forma, fila, c.cantidad);
    concepto.precio = Numero(forma, fila, c.precio);
    concepto.importe = Numero(forma, fila, c.importe);
    concepto.subtotal = Numero(forma, fila, c.concepto_subtotal);
    conceptos.push_back(concepto);
  }
  return conceptos;
}

}  // namespace

bool PasoStatus(Contexto& ctx) {
  if (ctx.forma.Status != QLatin1String("BAJA")) return true;
  return Falla(ctx, QString::fromUtf8(ctx.familia.baja));
}

bool PasoFormaDePago(Contexto& ctx) {
  if (!ctx.forma.FormaDePago.isEmpty()) return true;
  return Falla(ctx, QStringLiteral("Se requiere la entrada de una forma de pago"));
}

bool PasoConceptos(Contexto& ctx) {
  if (!RevisarFilas(ctx)) return false;
  const ColumnasRejilla& c = ctx.familia.columnas;
  DocumentoCaptura& forma = ctx.forma;
  Comprobante& comprobante = ctx.resultado.comprobante;
  comprobante.TasaIva = 0;
  for (int fila = 0; fila < forma.Fg1.size() && comprobante.TasaIva == 0; ++fila) {
    comprobante.TasaIva = Numero(forma, fila, c.tasa);
  }
  comprobante.TotalIva = Suma(forma, c.iva);
  if (ctx.familia.retenciones) {
    comprobante.RetencionIsr = ValorNumerico(forma.Dato(10));
    comprobante.RetencionIva = ValorNumerico(forma.Dato(11));
    comprobante.RetencionCed = ValorNumerico(forma.Dato(12));
  }
  // The screen shows a peso document's rate as 1 whatever was typed.
  if (forma.Moneda == QLatin1String("MXN")) forma.Datos.insert(5, QStringLiteral("1.0000"));
  comprobante.conceptos = ctx.descripcion && !ctx.descripcion->isEmpty()
                              ? QVector<Concepto>{Resumen(ctx)}
                              : Partidas(ctx);
  return true;
}

bool PasoEsquemas(Contexto& ctx) {
  const bool cfd = ctx.familia.cfd;
  const QString& carpeta = cfd ? ctx.session.CarpetaEsquemasCFD : ctx.session.CarpetaEsquemasCFDi;
  const QStringList& archivos = cfd ? ctx.session.EsquemasCFD : ctx.session.EsquemasCFDi;
  for (const QString& archivo : archivos) {
    if (QFile::exists(QDir(carpeta).filePath(archivo))) continue;
    return Falla(ctx, QStringLiteral("Se requiere el archivo: ") + archivo +
                          QStringLiteral(" en: ") + carpeta);
  }
  return true;
}

void LlenarDelFormulario(Contexto& ctx) {
  const DocumentoCaptura& forma = ctx.forma;
  const ColumnasRejilla& c = ctx.familia.columnas;
  Comprobante& comprobante = ctx.resultado.comprobante;
  const QString no_identificado = QStringLiteral("NO IDENTIFICADO");
  comprobante.Serie = forma.Serie;
  comprobante.Folio = forma.Dato(0);
  comprobante.fecha = forma.Fecha;
  comprobante.FormaDePago = forma.FormaDePago;
  comprobante.CondicionesDePago = forma.Dato(32);
  comprobante.SubTotal = TextoNumero(Suma(forma, c.subtotal));
  comprobante.Descuento = TextoNumero(Suma(forma, c.descuento));
  comprobante.MotivoDescuento = forma.Dato(33);
  comprobante.Total = TextoNumero(Suma(forma, c.total));
  comprobante.MetodoDePago = forma.Dato(30).isEmpty() ? no_identificado : forma.MetodoNombre;
  comprobante.TipoDeComprobante = QString::fromUtf8(ctx.familia.tipo_de_comprobante);
  comprobante.LugarExpedicion = forma.Dato(34);
  comprobante.NumCtaPago = forma.Dato(31).isEmpty() ? no_identificado : forma.Dato(31);
  comprobante.TipoCambioValor = ValorNumerico(forma.Dato(5));
  comprobante.TipoCambio = QString::number(comprobante.TipoCambioValor, 'f', 4);
  comprobante.Moneda = forma.Moneda;
}

}  // namespace ventarix::edocs::digital
