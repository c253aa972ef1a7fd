#include "catalogs/empresa_datos.h"

#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>

#include "catalogs/fila_configuracion.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/menu_catalog.h"
#include "core/usuarios_sql.h"

namespace ventarix::empresa {

using namespace Qt::StringLiterals;

namespace {

struct Requerido {
  const char* columna;
  const char* campo;
  const char* mensaje;
};

// The fiscal address a CFDi needs, checked after the RFC in this order.
constexpr Requerido kDomicilio[] = {
    {"calle", "Calle", "Se requiere la entrada de una nombre de Calle"},
    {"noexterior", "NoExterior", "Se requiere la entrada de un No. Exterior"},
    {"colonia", "Colonia", "Se requiere la entrada de una Colonia"},
    {"localidad", "Localidad", "Se requiere la entrada de una Localidad"},
    {"municipio", "Municipio", "Se requiere la entrada de un Municipio"},
    {"estado", "Estado", "Se requiere la entrada de un Estado"},
    {"pais", "Pais", "Se requiere la entrada de un País"},
};

// The RFC as the SAT writes it: upper case, without blanks, hyphens or points.
QString RfcLimpio(const QString& rfc) {
  QString limpio = rfc.toUpper();
  limpio.remove(u'-').remove(u'.').remove(u' ');
  return limpio.trimmed();
}

// Until the row exists the company runs on the session's defaults (tax 16, "MXN", the
// default mail relay...); its RFC is left to be typed, not the generic one.
RowValues EmpresaNueva(const Session& session) {
  RowValues fila = session.empresa;
  fila.Set(u"numero"_s, 1);
  fila.Set(u"rfc"_s, QString());
  fila.Set(u"logotipo"_s, QVariant());
  return fila;
}

}  // namespace

RowValues LeerEmpresa(const Session& session, Outcome* error) {
  if (error) *error = Outcome::Ok();
  Connection connection(session.Cadena);
  QSqlQuery query;
  if (connection.ok()) query = connection.Exec(u"select * from empresa where numero = 1"_s);
  const QString falla = !connection.ok()    ? connection.error()
                        : !query.isActive() ? QueryError(query)
                                            : QString();
  if (!falla.isEmpty()) {
    const Outcome stop = Outcome::Stop(falla);
    if (error) *error = stop;
    return EmpresaNueva(session);
  }
  if (!query.next()) return EmpresaNueva(session);
  RowValues fila;
  const QSqlRecord record = query.record();
  for (int i = 0; i < record.count(); ++i) fila.Set(record.fieldName(i), query.value(i));
  return fila;
}

Outcome RevisarEmpresa(const RowValues& datos, Outcome* aviso_rfc) {
  if (aviso_rfc) *aviso_rfc = Outcome::Ok();
  const Outcome rfc = mFunciones::RfcValido(RfcLimpio(datos.Text(u"rfc"_s)));
  if (!rfc) {
    if (aviso_rfc && !rfc.message.isEmpty()) *aviso_rfc = rfc;
    return Outcome::Warning(u"El RFC de éste cliente no es válido"_s, u"Rfc"_s);
  }
  for (const Requerido& requerido : kDomicilio) {
    if (datos.Text(QString::fromLatin1(requerido.columna)).trimmed().isEmpty()) {
      return Outcome::Warning(QString::fromUtf8(requerido.mensaje),
                              QString::fromLatin1(requerido.campo));
    }
  }
  if (datos.Text(u"codigopostal"_s).trimmed().size() != 5) {
    return Outcome::Warning(u"Se requiere la entrada de un Código Postal"_s, u"CodigoPostal"_s);
  }
  return Outcome::Ok();
}

Outcome GuardarEmpresa(const Session& session, const RowValues& datos, Outcome* aviso_rfc) {
  // No rights text covers the company's row: its menu entry is the right.
  if (!menus::FormaPermitida(session, "MDIInicioEmpresa")) {
    return Outcome::Warning(u"Este usuario no tiene permisos para cambios de registros"_s);
  }
  if (Outcome revision = RevisarEmpresa(datos, aviso_rfc); !revision) return revision;
  RowValues limpios = datos;
  limpios.Set(u"rfc"_s, RfcLimpio(datos.Text(u"rfc"_s)));
  // The mail and stamping passwords travel to their servers as typed.
  static const QSet<QString> kLiterales = {u"password"_s, u"pacpassword"_s};
  static const QSet<QString> kFuera = {u"numero"_s, u"codigo actual"_s, u"codigo nuevo"_s};
  ajustes::FilaParaGuardar fila;
  if (Outcome armada = ajustes::ArmarFila(u"empresa"_s, limpios, kFuera, kLiterales, &fila);
      !armada) {
    return armada;
  }

  usuarios::sql::Guardado guardado(session);
  if (!guardado.ok()) return guardado.falla();
  const std::optional<qint64> filas =
      guardado.Contar(u"select count(*) from empresa where numero = 1"_s);
  if (!filas) return guardado.falla();
  if (*filas > 0) {
    if (!guardado.Ejecutar(ajustes::SentenciaActualizar(u"empresa"_s, fila, u"where numero = 1"_s),
                           fila.valores)) {
      return guardado.falla();
    }
  } else {
    fila.columnas.prepend(u"numero"_s);
    fila.valores.prepend(1);
    if (!guardado.Ejecutar(ajustes::SentenciaAgregar(u"empresa"_s, fila), fila.valores)) {
      return guardado.falla();
    }
  }
  return guardado.Terminar();
}

void DescartarLogoExtraido(const Session& session) {
  if (session.CarpetaTmp.isEmpty()) return;
  QFile::remove(session.CarpetaTmp + u"/logo.tmp"_s);
}

}  // namespace ventarix::empresa
