// The document's client: its fiscal snapshot for the receptor block, the checks of its RFC and
// address, the addenda mark a CFD looks at, and the credit limit of the income documents.
#include <QSqlQuery>

#include "core/database.h"
#include "core/mFunciones_valores.h"
#include "edocs/mDigital_pasos.h"

namespace ventarix::edocs::digital {
namespace {

void LeerReceptor(const QSqlQuery& query, Receptor& r) {
  const auto texto = [&query](const char* columna) {
    return query.value(QString::fromUtf8(columna)).toString();
  };
  r.rfc = texto("rfc");
  r.nombre = texto("nombre");
  Domicilio& d = r.domicilio;
  d.calle = texto("calle");
  d.noExterior = texto("noexterior");
  d.noInterior = texto("nointerior");
  d.colonia = texto("colonia");
  d.localidad = texto("localidad");
  d.referencia = texto("referencia");
  d.municipio = texto("municipio");
  d.estado = texto("estado");
  d.pais = texto("pais");
  d.codigoPostal = texto("codigopostal");
  r.contacto = texto("contacto");
  r.telefonos = texto("telefonos");
  r.celular = texto("celular");
  r.nextel = texto("nextel");
  r.email1 = texto("email1");
  r.email2 = texto("email2");
  r.email3 = texto("email3");
  r.saldo = query.value(QStringLiteral("saldo")).toDouble();
  r.credito = query.value(QStringLiteral("credito")).toDouble();
}

// Each empty part of the address stops with its own words, in this order.
bool DomicilioCompleto(Contexto& ctx, const Domicilio& d) {
  const std::pair<const QString*, const char*> partes[] = {
      {&d.calle, "Se requiere la entrada de una nombre de Calle"},
      {&d.noExterior, "Se requiere la entrada de un No. Exterior"},
      {&d.colonia, "Se requiere la entrada de una Colonia"},
      {&d.municipio, "Se requiere la entrada de un Municipio"},
      {&d.estado, "Se requiere la entrada de un Estado"},
      {&d.pais, "Se requiere la entrada de un País"},
  };
  for (const auto& [valor, mensaje] : partes) {
    if (valor->isEmpty()) return Falla(ctx, QString::fromUtf8(mensaje));
  }
  if (d.codigoPostal.size() != 5) {
    return Falla(ctx, QStringLiteral("Se requiere la entrada de un Código Postal"));
  }
  return true;
}

}  // namespace

bool PasoCliente(Contexto& ctx) {
  const auto cliente = static_cast<qint64>(mFunciones::ValorNumerico(ctx.forma.Dato(1)));
  QSqlQuery query = ctx.connection.Exec(
      QStringLiteral("select nombre, rfc, calle, noexterior, nointerior, colonia, localidad, "
                     "referencia, municipio, estado, pais, codigopostal, contacto, telefonos, "
                     "celular, nextel, email1, email2, email3, saldo, credito, addenda "
                     "from clientes where numero = ?"),
      {cliente});
  if (!query.next()) {
    // The screen clears the client it could not find.
    ctx.forma.Datos.insert(1, QStringLiteral("0"));
    ctx.forma.Nombre = QStringLiteral("F1");
    return Falla(ctx, QStringLiteral("Se requiere la entrada de un cliente"));
  }
  Receptor& receptor = ctx.resultado.comprobante.receptor;
  receptor.cliente = static_cast<int>(cliente);
  LeerReceptor(query, receptor);
  ctx.marca_addenda = query.value(QStringLiteral("addenda")).toString().trimmed().toUpper();
  if (!mFunciones::EsRfcValido(receptor.rfc)) {
    return Falla(ctx, QStringLiteral("El RFC de este cliente no es válido: ") +
                          (receptor.rfc.isEmpty() ? QStringLiteral("Sin RFC") : receptor.rfc));
  }
  return DomicilioCompleto(ctx, receptor.domicilio);
}

// QUALITAS and INBURSA documents keep their XML out of the sealing: the chain ends there
// without a file. AXXA goes on and is sealed with its addenda.
bool PasoMarca(Contexto& ctx) {
  return ctx.marca_addenda != QLatin1String("QUALITAS") &&
         ctx.marca_addenda != QLatin1String("INBURSA");
}

// A client without credit, a document without client or a cash sale (term 0) is never held.
bool PasoCredito(Contexto& ctx) {
  const Receptor& receptor = ctx.resultado.comprobante.receptor;
  const DocumentoCaptura& forma = ctx.forma;
  if (receptor.credito == 0 || mFunciones::ValorNumerico(forma.Dato(1)) == 0 ||
      mFunciones::ValorNumerico(forma.Dato(3)) == 0) {
    return true;
  }
  if (forma.Saldo <= receptor.credito) return true;
  return Falla(ctx, QStringLiteral("Límite de crédito excedido ! ! !"));
}

}  // namespace ventarix::edocs::digital
