#include "catalogs/socios_guardar.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QSqlError>
#include <QSqlQuery>

#include "catalogs/guardado.h"
#include "catalogs/socios_campos.h"
#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/round_half_even.h"

namespace ventarix::socios {

using namespace Qt::StringLiterals;

namespace {

QString Columna(const Campo& campo) { return QLatin1String(campo.columna).toString().toLower(); }

// Any text gives a number; one too large for the column gives the largest it holds.
qint32 Entero(const QVariant& valor) {
  const double numero = std::round(mFunciones::ValorNumerico(valor));
  return static_cast<qint32>(std::clamp(numero, -2147483647.0, 2147483647.0));
}

QVariant Valor(const Campo& campo, const QVariant& valor) {
  switch (campo.tipo) {
    case Tipo::kEntero:
    case Tipo::kCatalogo:
      return Entero(valor);
    case Tipo::kNumero:
      return RoundHalfEven(mFunciones::ValorNumerico(valor), 2);
    case Tipo::kBandera:
      return mFunciones::ValorTexto(valor).toUpper() == u"S"_s ? u"S"_s : u"N"_s;
    case Tipo::kCorreo:
      return mFunciones::ValorTexto(valor).toLower();
    case Tipo::kRfc:
      return LimpiarRfc(mFunciones::ValorTexto(valor));
    default:
      break;
  }
  const QString texto = mFunciones::ValorTexto(valor);
  return QLatin1String(campo.columna) == "NumCtaPago"_L1 ? NumCtaPagoAlDejar(texto) : texto;
}

// The values as they will be stored: cleaned texts, whole numbers, rounded amounts, and a
// credit term of 0 days as 1.
RowValues Limpiar(const Familia& familia, bool cambio, const Registro& registro) {
  RowValues limpio;
  for (const Campo* campo : Campos(familia, cambio)) {
    limpio.Set(Columna(*campo), Valor(*campo, registro.valores.Value(Columna(*campo))));
  }
  if (familia.fiscal && limpio.Integer(u"plazo"_s) == 0) limpio.Set(u"plazo"_s, 1);
  return limpio;
}

// The first other partner with the same RFC, as a warning that lets the save go on.
std::optional<Outcome> RfcDuplicado(Connection& c, const Familia& familia, qint32 numero,
                                    const QString& rfc) {
  QSqlQuery query = c.Exec(
      u"select numero from %1 where numero <> ? and rfc <> '' and rfc = ? "
      "order by numero limit 1"_s.arg(QLatin1String(familia.tabla)),
      {numero, rfc});
  if (!query.next()) return std::nullopt;
  return Outcome::Warning(u"Este RFC se encuentra registrado con el número de %1 "_s.arg(
                              QLatin1String(familia.singular)) +
                              query.value(0).toString(),
                          u"Rfc"_s);
}

// The fiscal address an electronic document needs, in the order it is checked.
Outcome RevisarDomicilio(const RowValues& v) {
  static const struct {
    const char* campo;
    const char* mensaje;
  } kRequeridos[] = {
      {"Calle", "Se requiere la entrada de una nombre de Calle"},
      {"NoExterior", "Se requiere la entrada de un No. Exterior"},
      {"Colonia", "Se requiere la entrada de una Colonia"},
      {"Localidad", "Se requiere la entrada de una Localidad"},
      {"Municipio", "Se requiere la entrada de un Municipio"},
      {"Estado", "Se requiere la entrada de un Estado"},
      {"Pais", "Se requiere la entrada de un País"},
  };
  for (const auto& requerido : kRequeridos) {
    const QString campo = QString::fromLatin1(requerido.campo);
    if (v.Text(campo).isEmpty())
      return Outcome::Warning(QString::fromUtf8(requerido.mensaje), campo);
  }
  if (v.Text(u"codigopostal"_s).size() != 5) {
    return Outcome::Warning(u"Se requiere la entrada de un Código Postal"_s, u"CodigoPostal"_s);
  }
  return Outcome::Ok();
}

Outcome RevisarCredito(const RowValues& v) {
  if (v.Number(u"credito"_s) < 0) {
    return Outcome::Warning(u"Se requiere la entrada de un Crédito Máximo"_s, u"Credito"_s);
  }
  if (v.Integer(u"agente"_s) <= 0) {
    return Outcome::Warning(u"Se requiere la entrada de un Agente"_s, u"Agente"_s);
  }
  if (v.Integer(u"metodo"_s) <= 0) {
    return Outcome::Warning(u"Se requiere la entrada de un Método de Pago"_s, u"Metodo"_s);
  }
  return Outcome::Ok();
}

// The checks after the duplicate warning; the RFC check's own message, when it has one,
// goes to `avisos` before the screen's.
Outcome Revisar(const Session& session, const Familia& familia, bool cambio, const RowValues& v,
                std::vector<Outcome>* avisos) {
  const Outcome permiso = mFunciones::TienePermiso(
      session, QLatin1String(familia.derechos).toString(), cambio ? u"C"_s : u"A"_s);
  if (!permiso) return permiso;
  if (familia.fiscal) {
    const Outcome rfc = mFunciones::RfcValido(v.Text(u"rfc"_s));
    if (!rfc) {
      if (!rfc.message.isEmpty()) avisos->push_back(rfc);
      return Outcome::Warning(
          u"El RFC de éste %1 no es válido"_s.arg(QLatin1String(familia.singular)), u"Rfc"_s);
    }
    const Outcome domicilio = RevisarDomicilio(v);
    if (!domicilio) return domicilio;
  }
  if (familia.credito) return RevisarCredito(v);
  if (familia.nombre_requerido && v.Text(u"nombre"_s).isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un Nombre"_s, u"Nombre"_s);
  }
  return Outcome::Ok();
}

// The row written: a new one under the next number with status ALTA, or the change of the
// row of its number with the status label's word.
Outcome Escribir(Connection& c, const Familia& familia, bool cambio, const RowValues& v,
                 const QString& status, qint32* numero) {
  QStringList columnas;
  QVariantList valores;
  for (const Campo* campo : Campos(familia, cambio)) {
    columnas << dialect::Name(Columna(*campo));
    valores << v.Value(Columna(*campo));
  }
  columnas << u"status"_s;
  const QString tabla = QLatin1String(familia.tabla).toString();
  QString error;
  if (!cambio) {
    QVariantMap fila;
    for (const Campo* campo : Campos(familia, cambio)) {
      fila.insert(Columna(*campo), v.Value(Columna(*campo)));
    }
    fila.insert(u"status"_s, u"ALTA"_s);
    if (!mFunciones::InsertarConNumero(c, tabla, u"numero"_s, fila, numero, &error)) {
      return Outcome::Stop(error);
    }
    return Outcome::Ok();
  }
  valores << status << *numero;
  QSqlQuery query = c.Exec(
      u"update %1 set %2 = ? where numero = ?"_s.arg(tabla, columnas.join(u" = ?, "_s)), valores);
  if (!query.isActive()) return Outcome::Stop(QueryError(query));
  if (query.numRowsAffected() != 1) {
    return Outcome::Stop(
        u"No existe el %1 número %2"_s.arg(QLatin1String(familia.singular)).arg(*numero));
  }
  return Outcome::Ok();
}

}  // namespace

Resultado GuardarSocio(const Session& session, Socio socio, bool cambio, const Registro& registro,
                       const PreciosCliente* precios) {
  const Familia& familia = FamiliaDe(socio);
  Resultado resultado;
  resultado.numero = registro.numero;
  Connection c(session.Cadena);
  if (!c.ok()) {
    resultado.outcome = Outcome::Stop(c.error());
    return resultado;
  }
  const RowValues v = Limpiar(familia, cambio, registro);
  if (familia.fiscal) {
    if (auto aviso = RfcDuplicado(c, familia, registro.numero, v.Text(u"rfc"_s))) {
      resultado.avisos.push_back(*aviso);
    }
  }
  resultado.outcome = Revisar(session, familia, cambio, v, &resultado.avisos);
  if (!resultado.outcome) return resultado;

  Transaction transaction(c);
  if (!transaction.ok()) {
    resultado.outcome = Outcome::Stop(transaction.error());
    return resultado;
  }
  Outcome escrito =
      cambio ? catalogs::RevisarBaja(session, c, QLatin1String(familia.derechos).toString(),
                                     QLatin1String(familia.tabla).toString(), u"numero"_s,
                                     registro.numero, registro.status)
             : Outcome::Ok();
  if (escrito) escrito = Escribir(c, familia, cambio, v, registro.status, &resultado.numero);
  if (escrito && precios != nullptr && socio == Socio::kClientes) {
    escrito = EscribirPreciosCliente(c, resultado.numero, *precios);
  }
  if (escrito && !transaction.Commit()) escrito = Outcome::Stop(transaction.error());
  resultado.outcome = escrito;
  return resultado;
}

}  // namespace ventarix::socios
