// The document XML of CFDi 3.2 and CFD 2.2, built from the comprobante block: one routine per
// element, both schemes through one table of their differences.
#include <cmath>

#include "core/mFunciones_valores.h"
#include "edocs/cfdi_xml.h"
#include "edocs/cfdi_xml_nodo.h"

namespace ventarix::edocs {
namespace {

using xml::Nodo;
using xml::Salto;

const QString kXsi = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");
const QString kTfd = QStringLiteral("http://www.sat.gob.mx/TimbreFiscalDigital");
const QString kTfdEsquema =
    QStringLiteral("http://www.sat.gob.mx/TimbreFiscalDigital/TimbreFiscalDigital.xsd");

// What sets the two schemes apart; everything else (element order, attribute rules, numbers,
// layout) is shared.
struct Esquema {
  QString prefijo;      // of every element
  QString declaracion;  // the attribute that declares the namespace
  QString espacio;      // namespace
  QString ubicacion;    // schema location
  bool aprobacion;      // noAprobacion / anoAprobacion after fecha
  bool complemento;     // the stamp goes in a Complemento
};

const Esquema& EsquemaDe(FormatoXml formato) {
  static const Esquema kCfdi{
      QStringLiteral("cfdi:"),
      QStringLiteral("xmlns:cfdi"),
      QStringLiteral("http://www.sat.gob.mx/cfd/3"),
      QStringLiteral("http://www.sat.gob.mx/sitio_internet/cfd/3/cfdv32.xsd"),
      false,
      true};
  static const Esquema kCfd{QString(),
                            QStringLiteral("xmlns"),
                            QStringLiteral("http://www.sat.gob.mx/cfd/2"),
                            QStringLiteral("http://www.sat.gob.mx/sitio_internet/cfd/2/cfdv22.xsd"),
                            true,
                            false};
  return formato == FormatoXml::kCfd22 ? kCfd : kCfdi;
}

// The CR LF + tabs of each container, as the saved files of the system have always carried
// them. Only the attributes reach the cadena original, so these never touch the seal.
const Salto kSaltoRaiz{-1, 1, 0};
const Salto kSaltoBloque{2, 2, 2};  // Emisor, Receptor, Conceptos
const Salto kSaltoImpuestos{2, 2, 1};
const Salto kSaltoLista{3, 2, 2};  // Retenciones, Traslados

class Constructor {
 public:
  Constructor(const Comprobante& c, const Esquema& e) : c_(c), e_(e) {}

  Nodo Nuevo(const QString& nombre) const { return Nodo(e_.prefijo + nombre); }

  Nodo Raiz() const {
    Nodo raiz = Nuevo(QStringLiteral("Comprobante"));
    raiz.Poner(e_.declaracion, e_.espacio);
    raiz.Poner(QStringLiteral("xmlns:xsi"), kXsi);
    raiz.Poner(QStringLiteral("xsi:schemaLocation"), e_.espacio + QLatin1Char(' ') + e_.ubicacion);
    raiz.Poner(QStringLiteral("version"), c_.Version);
    raiz.PonerSi(QStringLiteral("serie"), c_.Serie);
    raiz.Poner(QStringLiteral("folio"), c_.Folio);
    raiz.Poner(QStringLiteral("fecha"), c_.fecha.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
    if (e_.aprobacion) {
      raiz.Poner(QStringLiteral("noAprobacion"), c_.NoAprobacion);
      raiz.Poner(QStringLiteral("anoAprobacion"), c_.AnoAprobacion);
    }
    raiz.PonerSi(QStringLiteral("condicionesDePago"), c_.CondicionesDePago);
    raiz.Poner(QStringLiteral("formaDePago"), c_.FormaDePago);
    raiz.Poner(QStringLiteral("subTotal"), c_.SubTotal);
    raiz.Poner(QStringLiteral("LugarExpedicion"), c_.LugarExpedicion);
    raiz.Poner(QStringLiteral("NumCtaPago"), c_.NumCtaPago);
    raiz.Poner(QStringLiteral("metodoDePago"), c_.MetodoDePago);
    raiz.Poner(QStringLiteral("Moneda"), c_.Moneda);
    raiz.Poner(QStringLiteral("TipoCambio"), c_.TipoCambio);
    // A typed motive without a discount never reaches the document.
    if (mFunciones::ValorNumerico(c_.Descuento) > 0) {
      raiz.Poner(QStringLiteral("descuento"), c_.Descuento);
      raiz.PonerSi(QStringLiteral("motivoDescuento"), c_.MotivoDescuento);
    }
    raiz.Poner(QStringLiteral("total"), c_.Total);
    raiz.Poner(QStringLiteral("tipoDeComprobante"), c_.TipoDeComprobante);
    // Last, so that sealing fills them where they stand.
    raiz.Poner(QStringLiteral("noCertificado"), c_.NoCertificado);
    raiz.Poner(QStringLiteral("certificado"), c_.Certificado);
    raiz.Poner(QStringLiteral("sello"), c_.Sello);
    return raiz;
  }

  Nodo Direccion(const QString& nombre, const Domicilio& d) const {
    Nodo nodo = Nuevo(nombre);
    nodo.PonerSi(QStringLiteral("calle"), d.calle);
    nodo.PonerSi(QStringLiteral("noExterior"), d.noExterior);
    nodo.PonerSi(QStringLiteral("noInterior"), d.noInterior);
    nodo.PonerSi(QStringLiteral("colonia"), d.colonia);
    nodo.PonerSi(QStringLiteral("localidad"), d.localidad);
    nodo.PonerSi(QStringLiteral("referencia"), d.referencia);
    nodo.PonerSi(QStringLiteral("municipio"), d.municipio);
    nodo.PonerSi(QStringLiteral("estado"), d.estado);
    nodo.PonerSi(QStringLiteral("pais"), d.pais);
    nodo.PonerSi(QStringLiteral("codigoPostal"), d.codigoPostal);
    return nodo;
  }

  // Emisor and Receptor open alike: the party's RFC and name, each if set.
  Nodo Parte(const QString& elemento, const QString& rfc, const QString& nombre) const {
    Nodo parte = Nuevo(elemento);
    parte.PonerSi(QStringLiteral("rfc"), rfc);
    parte.PonerSi(QStringLiteral("nombre"), nombre);
    return parte;
  }

  Nodo Emisor() const {
    Nodo emisor = Parte(QStringLiteral("Emisor"), c_.emisor.rfc, c_.emisor.nombre);
    emisor.Agregar(Direccion(QStringLiteral("DomicilioFiscal"), c_.emisor.fiscal));
    const Domicilio& expedido = c_.emisor.expedido_en;
    if (!expedido.calle.isEmpty() && !expedido.noExterior.isEmpty()) {
      emisor.Agregar(Direccion(QStringLiteral("ExpedidoEn"), expedido));
    }
    emisor.Agregar(Nuevo(QStringLiteral("RegimenFiscal")))
        .Poner(QStringLiteral("Regimen"), c_.RegimenFiscal);
    xml::Espaciar(emisor, kSaltoBloque);
    return emisor;
  }

  Nodo Receptor() const {
    Nodo receptor = Parte(QStringLiteral("Receptor"), c_.receptor.rfc, c_.receptor.nombre);
    receptor.Agregar(Direccion(QStringLiteral("Domicilio"), c_.receptor.domicilio));
    xml::Espaciar(receptor, kSaltoBloque);
    return receptor;
  }

  Nodo Conceptos() const {
    Nodo conceptos = Nuevo(QStringLiteral("Conceptos"));
    for (const Concepto& concepto : c_.conceptos) {
      Nodo& nodo = conceptos.Agregar(Nuevo(QStringLiteral("Concepto")));
      nodo.Poner(QStringLiteral("noIdentificacion"), concepto.codigo);
      nodo.Poner(QStringLiteral("descripcion"), DescripcionConcepto(concepto.descripcion));
      nodo.Poner(QStringLiteral("unidad"), concepto.unidad);
      nodo.Poner(QStringLiteral("cantidad"), TextoNumero(concepto.cantidad));
      nodo.Poner(QStringLiteral("valorUnitario"), TextoNumero(concepto.precio));
      nodo.Poner(QStringLiteral("importe"), TextoNumero(concepto.importe));
    }
    xml::Espaciar(conceptos, kSaltoBloque);
    return conceptos;
  }

  Nodo Impuestos(edocs::Impuestos modo) const {
    Nodo impuestos = Nuevo(QStringLiteral("Impuestos"));
    if (modo == edocs::Impuestos::kCompletos) {
      impuestos.Poner(QStringLiteral("totalImpuestosTrasladados"), TextoNumero(c_.TotalIva));
      Retenciones(impuestos);
    }
    Nodo& traslados = impuestos.Agregar(Nuevo(QStringLiteral("Traslados")));
    Nodo& traslado = traslados.Agregar(Nuevo(QStringLiteral("Traslado")));
    traslado.Poner(QStringLiteral("impuesto"), QStringLiteral("IVA"));
    traslado.Poner(QStringLiteral("tasa"), TextoNumero(c_.TasaIva));
    traslado.Poner(QStringLiteral("importe"), TextoNumero(c_.TotalIva));
    xml::Espaciar(traslados, kSaltoLista);
    xml::Espaciar(impuestos, kSaltoImpuestos);
    return impuestos;
  }

  // The third retention, CED on the screen, is declared to the SAT as ISR.
  void Retenciones(Nodo& impuestos) const {
    const std::pair<const char*, double> retenciones[] = {
        {"ISR", c_.RetencionIsr}, {"IVA", c_.RetencionIva}, {"ISR", c_.RetencionCed}};
    double total = 0;
    for (const auto& r : retenciones) total += r.second > 0 ? r.second : 0;
    if (total <= 0) return;
    impuestos.Poner(QStringLiteral("totalImpuestosRetenidos"), TextoNumero(total));
    Nodo& lista = impuestos.Agregar(Nuevo(QStringLiteral("Retenciones")));
    for (const auto& [impuesto, importe] : retenciones) {
      if (importe <= 0) continue;
      Nodo& retencion = lista.Agregar(Nuevo(QStringLiteral("Retencion")));
      retencion.Poner(QStringLiteral("impuesto"), QString::fromLatin1(impuesto));
      retencion.Poner(QStringLiteral("importe"), TextoNumero(importe));
    }
    xml::Espaciar(lista, kSaltoLista);
  }

  Nodo Complemento() const {
    Nodo complemento = Nuevo(QStringLiteral("Complemento"));
    Nodo& timbre = complemento.Agregar(Nodo(QStringLiteral("tfd:TimbreFiscalDigital")));
    timbre.Poner(QStringLiteral("xmlns:tfd"), kTfd);
    timbre.Poner(QStringLiteral("xsi:schemaLocation"), kTfd + QLatin1Char(' ') + kTfdEsquema);
    timbre.Poner(QStringLiteral("selloCFD"), c_.Sello);
    timbre.Poner(QStringLiteral("FechaTimbrado"), c_.timbre.fecha_timbrado);
    timbre.Poner(QStringLiteral("UUID"), c_.timbre.uuid);
    timbre.Poner(QStringLiteral("noCertificadoSAT"), c_.timbre.no_certificado_sat);
    timbre.Poner(QStringLiteral("version"), QStringLiteral("1.0"));
    timbre.Poner(QStringLiteral("selloSAT"), c_.timbre.sello_sat);
    return complemento;
  }

  static QString DescripcionConcepto(QString descripcion) {
    descripcion.remove(QStringLiteral("\r\n"));
    if (descripcion.size() > 255) {
      // A character outside the BMP at the cut goes whole or not at all.
      descripcion.truncate(descripcion.at(254).isHighSurrogate() ? 254 : 255);
    }
    return descripcion;
  }

 private:
  const Comprobante& c_;
  const Esquema& e_;
};

}  // namespace

QByteArray ConstruirXml(const Comprobante& comprobante, FormatoXml formato, Impuestos impuestos,
                        const QByteArray& addenda) {
  const Esquema& esquema = EsquemaDe(formato);
  const Constructor constructor(comprobante, esquema);
  Nodo raiz = constructor.Raiz();
  raiz.Agregar(constructor.Emisor());
  raiz.Agregar(constructor.Receptor());
  raiz.Agregar(constructor.Conceptos());
  raiz.Agregar(constructor.Impuestos(impuestos));
  if (esquema.complemento && !comprobante.timbre.empty()) {
    raiz.Agregar(constructor.Complemento());
  }
  if (!addenda.isEmpty()) {
    std::optional<std::vector<Nodo>> contenido = xml::LeerFragmento(addenda);
    if (!contenido) return {};
    raiz.Agregar(constructor.Nuevo(QStringLiteral("Addenda"))).hijos = std::move(*contenido);
  }
  xml::Espaciar(raiz, kSaltoRaiz);
  return xml::Serializar(raiz);
}

QByteArray ConstruirXml(const Comprobante& comprobante, Impuestos impuestos,
                        const QByteArray& addenda) {
  return ConstruirXml(comprobante, comprobante.cfd() ? FormatoXml::kCfd22 : FormatoXml::kCfdi32,
                      impuestos, addenda);
}

QString TextoNumero(double valor) {
  if (!std::isfinite(valor) || valor == 0) return QStringLiteral("0");
  // Fifteen significant digits, as a double is shown in general form; the decimal schemes of
  // the SAT accept no exponent, so very large or small values are spelled out.
  QString texto = QString::number(valor, 'g', 15);
  const qsizetype e = texto.indexOf(QLatin1Char('e'));
  if (e < 0) return texto;
  const int exponente = texto.mid(e + 1).toInt();
  texto = QString::number(valor, 'f', std::max(0, 14 - exponente));
  if (texto.contains(QLatin1Char('.'))) {
    while (texto.endsWith(QLatin1Char('0'))) texto.chop(1);
    if (texto.endsWith(QLatin1Char('.'))) texto.chop(1);
  }
  return texto;
}

QString NombreArchivoXml(const QString& serie, const QString& folio) {
  return (serie.isEmpty() ? QString() : serie + QLatin1Char('-')) + folio + QStringLiteral(".xml");
}

}  // namespace ventarix::edocs
