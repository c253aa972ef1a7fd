// "ventarix timbrar KEY" stamps a saved CFDi document through the company's PAC, as the
// browse's button 6 does; "ventarix cancelar UUID" asks the PAC to cancel a stamp with the
// certificate and key given, the key's password read from standard input.
#include <QTextStream>

#include "app/commands.h"
#include "app/empresa_abierta.h"
#include "core/mFunciones.h"
#include "edocs/mTimbrar.h"
#include "edocs/pac_cliente.h"

namespace ventarix::app {
namespace {

using namespace Qt::StringLiterals;

int UsoTimbrar(const QString& motivo = {}) {
  if (!motivo.isEmpty()) PrintError(motivo);
  PrintError(
      u"Uso: ventarix timbrar LLAVE --empresa RUTA [--familia facturas|\"notas cliente\"] "
      u"[--usuario NOMBRE]"_s);
  return kExitUsage;
}

int UsoCancelar(const QString& motivo = {}) {
  if (!motivo.isEmpty()) PrintError(motivo);
  PrintError(
      u"Uso: ventarix cancelar UUID --empresa RUTA --cer ARCHIVO --key ARCHIVO "
      u"(la contraseña de la llave en la entrada estándar)"_s);
  return kExitUsage;
}

// The company of --empresa opened for --usuario (the administrator when not given).
bool Abrir(const QStringList& args, Session& session) {
  const QString usuario = Opcion(args, u"--usuario"_s);
  QString error;
  if (AbrirEmpresa(Opcion(args, u"--empresa"_s), usuario.isEmpty() ? u"ADMINISTRADOR"_s : usuario,
                   session, &error)) {
    return true;
  }
  PrintError(error);
  return false;
}

void Fallo(const Session& session, const Outcome& outcome) {
  PrintError(outcome.message);
  if (outcome.IsRunTimeError()) mFunciones::RegistrarError(session, outcome.message);
}

}  // namespace

int RunTimbrar(const QStringList& args) {
  const QStringList llaves = SinOpciones(args, {u"--empresa"_s, u"--familia"_s, u"--usuario"_s});
  if (llaves.size() != 1) return UsoTimbrar(u"Falta la llave del documento"_s);
  if (Opcion(args, u"--empresa"_s).isEmpty()) return UsoTimbrar(u"Falta --empresa RUTA"_s);
  const QString familia = Opcion(args, u"--familia"_s).toLower();
  const bool nota = familia == u"notas cliente"_s;
  if (!familia.isEmpty() && !nota && familia != u"facturas"_s) {
    return UsoTimbrar(u"Familia desconocida: "_s + familia);
  }
  Session session;
  if (!Abrir(args, session)) return kExitFailed;
  const edocs::ResultadoTimbrado r = nota ? edocs::TimbrarNota(session, llaves.first())
                                          : edocs::TimbrarFactura(session, llaves.first());
  if (r.outcome) {
    Print(r.uuid);
    return kExitOk;
  }
  if (!r.respuesta.isEmpty()) PrintError(r.respuesta);
  Fallo(session, r.outcome);
  return kExitFailed;
}

int RunCancelar(const QStringList& args) {
  const QStringList uuids = SinOpciones(args, {u"--empresa"_s, u"--cer"_s, u"--key"_s});
  if (uuids.size() != 1 || uuids.first().trimmed().isEmpty()) {
    return UsoCancelar(u"Falta el Folio Fiscal / UUID"_s);
  }
  const QString cer = Opcion(args, u"--cer"_s), key = Opcion(args, u"--key"_s);
  if (Opcion(args, u"--empresa"_s).isEmpty() || cer.isEmpty() || key.isEmpty()) {
    return UsoCancelar();
  }
  QTextStream entrada(stdin);
  const QString password = entrada.readLine().trimmed();
  if (password.isEmpty()) return UsoCancelar(u"Falta la contraseña de la llave privada"_s);
  Session session;
  if (!Abrir(args, session)) return kExitFailed;
  const edocs::ResultadoCancelacion r =
      edocs::CancelarUUID(session, uuids.first(), cer, key, password);
  if (!r.outcome) {
    Fallo(session, r.outcome);
    return kExitFailed;
  }
  Print(r.respuesta);
  // The SAT's 201 (cancelled) and 202 (cancelled before) both leave the stamp cancelled.
  const QString estado = edocs::ExtraerEtiqueta(r.respuesta, u"<statusUUID"_s, u"</statusUUID>"_s);
  return estado == u"201"_s || estado == u"202"_s ? kExitOk : kExitFailed;
}

}  // namespace ventarix::app
