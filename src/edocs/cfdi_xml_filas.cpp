// The comprobante block to and from its document row ([facturas] or [notas cliente]), so that
// a stored document rebuilds its XML with neither catalogues nor ranges.
#include <functional>
#include <vector>

#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariantMap>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "core/schema.h"
#include "edocs/cfdi_xml.h"

namespace ventarix::edocs {
namespace {

// How a text of the block is kept in its column.
enum class Guardado {
  kTexto,    // as it stands
  kEntero,   // an integer column (folio, anoaprobacion)
  kImporte,  // a double column, read back as the document writes numbers
  kCambio,   // a double column, read back as "0.0000"
};

struct CampoTexto {
  QString columna;
  Guardado guardado;
  std::function<QString&(Comprobante&)> campo;
  bool timbre = false;  // the PAC's stamp, not the sealing's
};

struct CampoNumero {
  QString columna;
  double Comprobante::*campo;
};

std::function<QString&(Comprobante&)> Miembro(QString Comprobante::*miembro) {
  return [miembro](Comprobante& c) -> QString& { return c.*miembro; };
}

// The ten address columns under a prefix ("emisor", "emisorexpedidoen", "receptor").
void AgregarDireccion(std::vector<CampoTexto>& campos, const QString& prefijo,
                      std::function<Domicilio&(Comprobante&)> domicilio) {
  const std::pair<const char*, QString Domicilio::*> partes[] = {
      {"calle", &Domicilio::calle},
      {"noexterior", &Domicilio::noExterior},
      {"nointerior", &Domicilio::noInterior},
      {"colonia", &Domicilio::colonia},
      {"localidad", &Domicilio::localidad},
      {"referencia", &Domicilio::referencia},
      {"municipio", &Domicilio::municipio},
      {"estado", &Domicilio::estado},
      {"pais", &Domicilio::pais},
      {"codigopostal", &Domicilio::codigoPostal}};
  for (const auto& [sufijo, miembro] : partes) {
    campos.push_back(
        {prefijo + QLatin1String(sufijo), Guardado::kTexto,
         [domicilio, miembro](Comprobante& c) -> QString& { return domicilio(c).*miembro; }});
  }
}

const std::vector<CampoTexto>& CamposTexto() {
  static const std::vector<CampoTexto> campos = [] {
    using G = Guardado;
    using C = Comprobante;
    std::vector<CampoTexto> t = {
        {QStringLiteral("version"), G::kTexto, Miembro(&C::Version)},
        {QStringLiteral("serie"), G::kTexto, Miembro(&C::Serie)},
        {QStringLiteral("folio"), G::kEntero, Miembro(&C::Folio)},
        {QStringLiteral("sello"), G::kTexto, Miembro(&C::Sello)},
        {QStringLiteral("noaprobacion"), G::kTexto, Miembro(&C::NoAprobacion)},
        {QStringLiteral("anoaprobacion"), G::kEntero, Miembro(&C::AnoAprobacion)},
        {QStringLiteral("formadepago"), G::kTexto, Miembro(&C::FormaDePago)},
        {QStringLiteral("nocertificado"), G::kTexto, Miembro(&C::NoCertificado)},
        {QStringLiteral("certificado"), G::kTexto, Miembro(&C::Certificado)},
        {QStringLiteral("condicionesdepago"), G::kTexto, Miembro(&C::CondicionesDePago)},
        {QStringLiteral("subtotal"), G::kImporte, Miembro(&C::SubTotal)},
        {QStringLiteral("descuento"), G::kImporte, Miembro(&C::Descuento)},
        {QStringLiteral("motivodescuento"), G::kTexto, Miembro(&C::MotivoDescuento)},
        {QStringLiteral("total"), G::kImporte, Miembro(&C::Total)},
        {QStringLiteral("metododepago"), G::kTexto, Miembro(&C::MetodoDePago)},
        {QStringLiteral("tipodecomprobante"), G::kTexto, Miembro(&C::TipoDeComprobante)},
        {QStringLiteral("regimenfiscal"), G::kTexto, Miembro(&C::RegimenFiscal)},
        {QStringLiteral("lugarexpedicion"), G::kTexto, Miembro(&C::LugarExpedicion)},
        {QStringLiteral("numctapago"), G::kTexto, Miembro(&C::NumCtaPago)},
        {QStringLiteral("tipocambio"), G::kCambio, Miembro(&C::TipoCambio)},
        {QStringLiteral("moneda"), G::kTexto, Miembro(&C::Moneda)},
        {QStringLiteral("cadenaoriginal"), G::kTexto, Miembro(&C::CadenaOriginal)},
        {QStringLiteral("algoritmosellodigital"), G::kTexto, Miembro(&C::Algoritmo)},
        {QStringLiteral("emisorrfc"), G::kTexto, [](C& c) -> QString& { return c.emisor.rfc; }},
        {QStringLiteral("emisornombre"), G::kTexto,
         [](C& c) -> QString& { return c.emisor.nombre; }},
        {QStringLiteral("receptorrfc"), G::kTexto, [](C& c) -> QString& { return c.receptor.rfc; }},
        {QStringLiteral("receptornombre"), G::kTexto,
         [](C& c) -> QString& { return c.receptor.nombre; }},
        {QStringLiteral("uuid"), G::kTexto, [](C& c) -> QString& { return c.timbre.uuid; }, true},
        {QStringLiteral("fechatimbrado"), G::kTexto,
         [](C& c) -> QString& { return c.timbre.fecha_timbrado; }, true},
        {QStringLiteral("nocertificadosat"), G::kTexto,
         [](C& c) -> QString& { return c.timbre.no_certificado_sat; }, true},
        {QStringLiteral("sellosat"), G::kTexto, [](C& c) -> QString& { return c.timbre.sello_sat; },
         true},
    };
    AgregarDireccion(t, QStringLiteral("emisor"),
                     [](C& c) -> Domicilio& { return c.emisor.fiscal; });
    AgregarDireccion(t, QStringLiteral("emisorexpedidoen"),
                     [](C& c) -> Domicilio& { return c.emisor.expedido_en; });
    AgregarDireccion(t, QStringLiteral("receptor"),
                     [](C& c) -> Domicilio& { return c.receptor.domicilio; });
    return t;
  }();
  return campos;
}

// Credit notes have no retention columns: what a table lacks is neither read nor written.
const std::vector<CampoNumero>& CamposNumero() {
  static const std::vector<CampoNumero> campos = {
      {QStringLiteral("impuesto"), &Comprobante::TasaIva},
      {QStringLiteral("iva"), &Comprobante::TotalIva},
      {QStringLiteral("retencion isr $"), &Comprobante::RetencionIsr},
      {QStringLiteral("retencion iva $"), &Comprobante::RetencionIva},
      {QStringLiteral("retencion ced $"), &Comprobante::RetencionCed}};
  return campos;
}

// Older rows may hold amounts as text: both forms read as the same number.
double Numero(const QVariant& valor) {
  if (valor.metaType().id() == QMetaType::QString) return mFunciones::ValorNumerico(valor);
  return valor.toDouble();
}

QString LeerTexto(const QVariant& valor, Guardado guardado) {
  if (valor.isNull()) return {};
  switch (guardado) {
    case Guardado::kTexto:
      return valor.toString();
    case Guardado::kEntero:
      return valor.metaType().id() == QMetaType::QString ? valor.toString().trimmed()
                                                         : QString::number(valor.toLongLong());
    case Guardado::kImporte:
      return TextoNumero(Numero(valor));
    case Guardado::kCambio:
      return QString::number(Numero(valor), 'f', 4);
  }
  return {};
}

QVariant ValorDeColumna(const QString& texto, Guardado guardado) {
  if (guardado == Guardado::kTexto) return texto;
  if (texto.trimmed().isEmpty()) {
    return QVariant(QMetaType(guardado == Guardado::kEntero ? QMetaType::Int : QMetaType::Double));
  }
  if (guardado != Guardado::kEntero) return mFunciones::ValorNumerico(texto);
  bool entero = false;
  const int valor = texto.trimmed().toInt(&entero);
  // A folio that is not a number is handed over as it stands: the engine refuses it rather
  // than the document losing it.
  return entero ? QVariant(valor) : QVariant(texto);
}

// The column of the current row, or null when the table has no such column.
QVariant Valor(const QSqlQuery& fila, const QString& columna) {
  const int i = fila.record().indexOf(columna);
  return i < 0 ? QVariant() : fila.value(i);
}

Concepto LeerConcepto(const QSqlQuery& fila) {
  Concepto concepto;
  concepto.codigo = Valor(fila, QStringLiteral("codigo")).toString();
  concepto.descripcion = Valor(fila, QStringLiteral("descripcion")).toString();
  concepto.unidad = Valor(fila, QStringLiteral("unidad")).toString();
  concepto.cantidad = Numero(Valor(fila, QStringLiteral("cantidad")));
  concepto.precio = Numero(Valor(fila, QStringLiteral("precio")));
  concepto.importe = Numero(Valor(fila, QStringLiteral("importe")));
  concepto.subtotal = Numero(Valor(fila, QStringLiteral("subtotal")));
  return concepto;
}

// The summary row when there is one (a "CORTE" document), else the detail rows by item.
bool LeerConceptos(Connection& connection, const QString& tabla, const QString& llave,
                   const QString& documento, QVector<Concepto>* conceptos) {
  const QString donde = QStringLiteral(" where ") + dialect::Name(llave) + QStringLiteral(" = ?");
  QSqlQuery resumen = connection.Exec(
      QStringLiteral("select * from ") + dialect::Name(tabla + QStringLiteral(" resumen")) + donde,
      {documento});
  if (!resumen.isActive()) return false;
  if (resumen.next()) {
    conceptos->append(LeerConcepto(resumen));
    return true;
  }
  QSqlQuery detalles = connection.Exec(QStringLiteral("select * from ") +
                                           dialect::Name(tabla + QStringLiteral(" detalles")) +
                                           donde + QStringLiteral(" order by item"),
                                       {documento});
  if (!detalles.isActive()) return false;
  while (detalles.next()) conceptos->append(LeerConcepto(detalles));
  return true;
}

}  // namespace

bool LeerComprobante(Connection& connection, const QString& tabla, const QString& llave,
                     const QString& documento, Comprobante* comprobante) {
  QSqlQuery fila =
      connection.Exec(QStringLiteral("select * from ") + dialect::Name(tabla) +
                          QStringLiteral(" where ") + dialect::Name(llave) + QStringLiteral(" = ?"),
                      {documento});
  if (!fila.next()) return false;
  Comprobante leido;
  for (const CampoTexto& campo : CamposTexto()) {
    campo.campo(leido) = LeerTexto(Valor(fila, campo.columna), campo.guardado);
  }
  for (const CampoNumero& campo : CamposNumero()) {
    leido.*campo.campo = Numero(Valor(fila, campo.columna));
  }
  leido.fecha = dialect::ReadDate(Valor(fila, QStringLiteral("hora")));
  leido.TipoCambioValor = mFunciones::ValorNumerico(leido.TipoCambio);
  leido.receptor.cliente = Valor(fila, QStringLiteral("receptorcliente")).toInt();
  if (!LeerConceptos(connection, tabla, llave, documento, &leido.conceptos)) return false;
  *comprobante = std::move(leido);
  return true;
}

QVariantMap ColumnasDeComprobante(const QString& tabla, const Comprobante& comprobante, bool sql,
                                  bool con_timbre) {
  const schema::Table* definicion = schema::FindTable(tabla);
  QSet<QString> columnas;
  if (definicion) {
    for (const schema::Column& c : definicion->columns) columnas.insert(QString::fromUtf8(c.name));
  }
  Comprobante bloque = comprobante;  // the field accessors of the table reach into a copy
  QVariantMap fila;
  const auto asignar = [&](const QString& columna, const QVariant& valor) {
    if (columnas.contains(columna)) fila.insert(columna, valor);
  };
  for (const CampoTexto& campo : CamposTexto()) {
    if (!con_timbre && campo.timbre) continue;
    asignar(campo.columna, ValorDeColumna(campo.campo(bloque), campo.guardado));
  }
  for (const CampoNumero& campo : CamposNumero()) asignar(campo.columna, bloque.*campo.campo);
  asignar(QStringLiteral("hora"), dialect::DateValue(bloque.fecha, sql));
  asignar(QStringLiteral("receptorcliente"), bloque.receptor.cliente);
  return fila;
}

bool EscribirComprobante(Connection& connection, const QString& tabla, const QString& llave,
                         const QString& documento, const Comprobante& comprobante, QString* error) {
  const QVariantMap fila = ColumnasDeComprobante(tabla, comprobante, connection.sql(), true);
  QStringList asignaciones;
  for (const QString& columna : fila.keys()) {
    asignaciones << dialect::Name(columna) + QStringLiteral(" = ?");
  }
  QVariantList valores = fila.values();
  valores << documento;
  // One statement: it joins the save of the screen that calls it, or makes its own.
  Transaction transaccion(connection);
  if (!transaccion.ok()) {
    if (error) *error = transaccion.error();
    return false;
  }
  QSqlQuery cambio =
      connection.Exec(QStringLiteral("update ") + dialect::Name(tabla) + QStringLiteral(" set ") +
                          asignaciones.join(QStringLiteral(", ")) + QStringLiteral(" where ") +
                          dialect::Name(llave) + QStringLiteral(" = ?"),
                      valores);
  if (!cambio.isActive()) {
    if (error) *error = QueryError(cambio);
    return false;
  }
  if (cambio.numRowsAffected() < 1) {
    if (error) *error = tabla + QStringLiteral(": no existe ") + documento;
    return false;
  }
  if (!transaccion.Commit()) {
    if (error) *error = transaccion.error();
    return false;
  }
  return true;
}

}  // namespace ventarix::edocs
