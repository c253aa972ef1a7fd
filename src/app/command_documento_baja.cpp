// "ventarix documento cancelar|borrar KEY": a record cancelled or deleted from the command
// line, with the rules of the browsers' <Del> and <Ctrl+Del>. Running the command is the
// user's confirmation.
#include <QHash>
#include <QString>
#include <QStringList>

#include "app/commands.h"
#include "app/empresa_abierta.h"
#include "core/mFunciones.h"
#include "core/session.h"
#include "documents/bajas.h"

namespace ventarix::app {

namespace {

using namespace Qt::StringLiterals;

// What was asked: the action, the key and the options given, by name.
struct Orden {
  QString accion;
  QString llave;
  QHash<QString, QString> opciones;
  QString Valor(const char* nombre) const { return opciones.value(QString::fromLatin1(nombre)); }
};

int Uso(const QString& motivo = {}) {
  if (!motivo.isEmpty()) PrintError(motivo);
  PrintError(
      u"Uso: ventarix documento cancelar LLAVE --empresa RUTA --motivo TEXTO [--familia TABLA] "
      u"[--usuario NOMBRE]\n"
      u"     ventarix documento borrar LLAVE --empresa RUTA [--familia TABLA] [--usuario NOMBRE]"_s);
  return kExitUsage;
}

// The words after "documento"; *error says what is wrong with them.
bool Leer(const QStringList& args, Orden* orden, QString* error) {
  orden->accion = args.value(0);
  QStringList validas = {u"--empresa"_s, u"--familia"_s, u"--usuario"_s};
  if (orden->accion == u"cancelar") validas << u"--motivo"_s;
  for (qsizetype i = 1; i < args.size(); ++i) {
    const QString& palabra = args[i];
    if (!palabra.startsWith(u"--"_s)) {
      if (!orden->llave.isEmpty()) return (*error = u"Sobra: "_s + palabra, false);
      orden->llave = palabra;
      continue;
    }
    const QString nombre = palabra.section(u'=', 0, 0);
    if (!validas.contains(nombre)) return (*error = u"Opción desconocida: "_s + palabra, false);
    if (palabra.contains(u'=')) {
      orden->opciones.insert(nombre, palabra.section(u'=', 1));
    } else if (i + 1 < args.size()) {
      orden->opciones.insert(nombre, args[++i]);
    } else {
      return (*error = u"Falta el valor de "_s + nombre, false);
    }
  }
  if (orden->llave.trimmed().isEmpty()) return (*error = u"Falta la llave del registro"_s, false);
  if (orden->Valor("--empresa").isEmpty()) return (*error = u"Falta --empresa RUTA"_s, false);
  return true;
}

// The kind acted on: the one --familia names, or else the document family whose header holds
// the key, when exactly one does. Catalogues are named with --familia only.
int ClaseDe(const Session& session, const Orden& orden, QString* clase) {
  const QString familia = orden.Valor("--familia");
  if (!familia.isEmpty()) {
    *clase = bajas::ClaseDe(familia);
    return clase->isEmpty() ? Uso(u"Familia desconocida: "_s + familia) : kExitOk;
  }
  QStringList clases;
  if (const Outcome leido = bajas::ClasesConLlave(session, orden.llave, &clases); !leido) {
    PrintError(leido.message);
    return kExitFailed;
  }
  QStringList tablas;
  for (const QString& c : clases) tablas << bajas::TablaDe(c);
  if (tablas.isEmpty()) {
    PrintError(u"No existe el documento "_s + orden.llave +
               u"; un catálogo se indica con --familia TABLA"_s);
    return kExitFailed;
  }
  if (tablas.size() > 1) {
    return Uso(u"La llave "_s + orden.llave + u" está en "_s + tablas.join(u", "_s) +
               u": indique cuál con --familia TABLA"_s);
  }
  *clase = clases.first();
  return kExitOk;
}

int Actuar(const Session& session, const Orden& orden, const QString& clase) {
  const bool baja = orden.accion == u"cancelar";
  if (baja && !orden.opciones.contains(u"--motivo"_s) &&
      bajas::AvisosDe(bajas::Accion::kBaja, clase)->pide_motivo) {
    return Uso(u"Falta --motivo TEXTO: un documento se cancela con un motivo"_s);
  }
  const Outcome hecho = baja
                            ? bajas::DarDeBaja(session, clase, orden.llave, orden.Valor("--motivo"))
                            : bajas::Borrar(session, clase, orden.llave);
  if (!hecho) {
    PrintError(hecho.message);
    if (hecho.IsRunTimeError()) mFunciones::RegistrarError(session, hecho.message);
    return kExitFailed;
  }
  Print(u"Registro "_s + orden.llave + u" de '"_s + bajas::TablaDe(clase) + u"' "_s +
        (baja ? u"dado de baja"_s : u"borrado"_s));
  return kExitOk;
}

}  // namespace

bool EsAccionDeBaja(const QString& accion) { return accion == u"cancelar" || accion == u"borrar"; }

int RunDocumentoBaja(const QStringList& args) {
  Orden orden;
  QString error;
  if (!EsAccionDeBaja(args.value(0)) || !Leer(args, &orden, &error)) return Uso(error);
  Session session;
  const QString usuario = orden.Valor("--usuario");
  if (!AbrirEmpresa(orden.Valor("--empresa"), usuario.isEmpty() ? u"ADMINISTRADOR"_s : usuario,
                    session, &error)) {
    PrintError(error);
    return kExitFailed;
  }
  QString clase;
  if (const int resuelto = ClaseDe(session, orden, &clase); resuelto != kExitOk) return resuelto;
  return Actuar(session, orden, clase);
}

}  // namespace ventarix::app
