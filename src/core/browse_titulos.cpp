#include "core/browse_titulos.h"

#include <QHash>
#include <QRegularExpression>

namespace ventarix::mBrowse {

namespace {

// Column names written as one word, and words that lose their accent or their capitals in a
// column's name.
const QHash<QString, QString>& Palabras() {
  static const QHash<QString, QString> kPalabras = {
      // Names of one piece.
      {QStringLiteral("numctapago"), QStringLiteral("núm. cuenta de pago")},
      {QStringLiteral("codigopostal"), QStringLiteral("código postal")},
      {QStringLiteral("noexterior"), QStringLiteral("no. exterior")},
      {QStringLiteral("nointerior"), QStringLiteral("no. interior")},
      {QStringLiteral("anoaprobacion"), QStringLiteral("año aprobación")},
      {QStringLiteral("noaprobacion"), QStringLiteral("no. aprobación")},
      {QStringLiteral("folioinicial"), QStringLiteral("folio inicial")},
      {QStringLiteral("foliofinal"), QStringLiteral("folio final")},
      {QStringLiteral("nocertificado"), QStringLiteral("no. certificado")},
      {QStringLiteral("nocertificadosat"), QStringLiteral("no. certificado SAT")},
      {QStringLiteral("validodesde"), QStringLiteral("válido desde")},
      {QStringLiteral("validohasta"), QStringLiteral("válido hasta")},
      {QStringLiteral("archivocertificado"), QStringLiteral("archivo certificado")},
      {QStringLiteral("archivollave"), QStringLiteral("archivo llave")},
      {QStringLiteral("algoritmosellodigital"), QStringLiteral("algoritmo sello digital")},
      {QStringLiteral("regimenfiscal"), QStringLiteral("régimen fiscal")},
      {QStringLiteral("imprimirlogotipo"), QStringLiteral("imprimir logotipo")},
      {QStringLiteral("alinearlogotipo"), QStringLiteral("alinear logotipo")},
      {QStringLiteral("ubicarlogotipo"), QStringLiteral("ubicar logotipo")},
      {QStringLiteral("alinearempresa"), QStringLiteral("alinear empresa")},
      {QStringLiteral("fechaapagar"), QStringLiteral("fecha a pagar")},
      {QStringLiteral("fechatimbrado"), QStringLiteral("fecha timbrado")},
      {QStringLiteral("fechafactura"), QStringLiteral("fecha factura")},
      {QStringLiteral("fechapedido"), QStringLiteral("fecha pedido")},
      {QStringLiteral("tipocambio"), QStringLiteral("tipo de cambio")},
      {QStringLiteral("metododepago"), QStringLiteral("método de pago")},
      {QStringLiteral("formadepago"), QStringLiteral("forma de pago")},
      {QStringLiteral("condicionesdepago"), QStringLiteral("condiciones de pago")},
      {QStringLiteral("lugarexpedicion"), QStringLiteral("lugar de expedición")},
      {QStringLiteral("numautorizacion"), QStringLiteral("núm. autorización")},
      {QStringLiteral("tipocomprobante"), QStringLiteral("tipo de comprobante")},
      {QStringLiteral("tipodecomprobante"), QStringLiteral("tipo de comprobante")},
      {QStringLiteral("costototal"), QStringLiteral("costo total")},
      {QStringLiteral("plazodias"), QStringLiteral("plazo días")},
      {QStringLiteral("referenciapedido"), QStringLiteral("referencia pedido")},
      {QStringLiteral("porcentajedescuento"), QStringLiteral("descuento %")},
      {QStringLiteral("preciocondescuento"), QStringLiteral("precio con descuento")},
      {QStringLiteral("tipoproveedor"), QStringLiteral("tipo proveedor")},
      {QStringLiteral("sellosat"), QStringLiteral("sello SAT")},
      {QStringLiteral("cadenaoriginal"), QStringLiteral("cadena original")},
      {QStringLiteral("seriefacturacion"), QStringLiteral("serie facturación")},
      {QStringLiteral("contrarecibo"), QStringLiteral("contrarrecibo")},
      {QStringLiteral("qrcode"), QStringLiteral("código QR")},
      {QStringLiteral("pt"), QStringLiteral("producto terminado")},
      {QStringLiteral("min"), QStringLiteral("mínimo")},
      {QStringLiteral("max"), QStringLiteral("máximo")},
      {QStringLiteral("dcto"), QStringLiteral("descuento %")},
      {QStringLiteral("obs"), QStringLiteral("observaciones")},
      {QStringLiteral("cp"), QStringLiteral("C.P.")},
      // Words.
      {QStringLiteral("numero"), QStringLiteral("número")},
      {QStringLiteral("linea"), QStringLiteral("línea")},
      {QStringLiteral("lineas"), QStringLiteral("líneas")},
      {QStringLiteral("ubicacion"), QStringLiteral("ubicación")},
      {QStringLiteral("descripcion"), QStringLiteral("descripción")},
      {QStringLiteral("ultimo"), QStringLiteral("último")},
      {QStringLiteral("ultima"), QStringLiteral("última")},
      {QStringLiteral("codigo"), QStringLiteral("código")},
      {QStringLiteral("comision"), QStringLiteral("comisión")},
      {QStringLiteral("direccion"), QStringLiteral("dirección")},
      {QStringLiteral("telefonos"), QStringLiteral("teléfonos")},
      {QStringLiteral("metodo"), QStringLiteral("método")},
      {QStringLiteral("almacen"), QStringLiteral("almacén")},
      {QStringLiteral("remision"), QStringLiteral("remisión")},
      {QStringLiteral("cotizacion"), QStringLiteral("cotización")},
      {QStringLiteral("produccion"), QStringLiteral("producción")},
      {QStringLiteral("licitacion"), QStringLiteral("licitación")},
      {QStringLiteral("anotacion"), QStringLiteral("anotación")},
      {QStringLiteral("pais"), QStringLiteral("país")},
      {QStringLiteral("credito"), QStringLiteral("crédito")},
      {QStringLiteral("pagare"), QStringLiteral("pagaré")},
      {QStringLiteral("dias"), QStringLiteral("días")},
      {QStringLiteral("categoria"), QStringLiteral("categoría")},
      {QStringLiteral("version"), QStringLiteral("versión")},
      {QStringLiteral("revision"), QStringLiteral("revisión")},
      {QStringLiteral("ano"), QStringLiteral("año")},
      {QStringLiteral("email"), QStringLiteral("correo")},
      {QStringLiteral("rfc"), QStringLiteral("RFC")},
      {QStringLiteral("iva"), QStringLiteral("IVA")},
      {QStringLiteral("isr"), QStringLiteral("ISR")},
      {QStringLiteral("uuid"), QStringLiteral("UUID")},
      {QStringLiteral("cbb"), QStringLiteral("CBB")},
      {QStringLiteral("sat"), QStringLiteral("SAT")},
  };
  return kPalabras;
}

}  // namespace

QString TituloDeColumna(const QString& nombre) {
  QString base = nombre.trimmed().toLower();
  // "precio1": the level's number stands apart, after the words.
  qsizetype fin = base.size();
  while (fin > 0 && base.at(fin - 1).isDigit()) --fin;
  const QString numero = fin > 0 ? base.mid(fin) : QString();
  if (fin > 0) base.truncate(fin);
  static const QRegularExpression kSeparador(QStringLiteral("[ _]+"));
  QStringList palabras;
  for (const QString& palabra : base.split(kSeparador, Qt::SkipEmptyParts)) {
    palabras << Palabras().value(palabra, palabra);
  }
  QString titulo = palabras.join(u' ');
  if (!numero.isEmpty()) titulo += u' ' + numero;
  if (titulo.isEmpty()) return nombre;
  titulo[0] = titulo.at(0).toUpper();
  return titulo;
}

QString TituloDe(const ColumnaVista& columna) {
  const QString propio = columna.opciones.value(0).trimmed();
  return propio.isEmpty() ? TituloDeColumna(columna.nombre) : propio;
}

}  // namespace ventarix::mBrowse
