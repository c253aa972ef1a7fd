// "compra importar": a supplier's CFD or CFDi saved as a purchase.
#include "app/commands.h"
#include "app/empresa_abierta.h"
#include "purchasing/importar_cfdi.h"

namespace ventarix::app {

namespace {

using namespace Qt::StringLiterals;

int Uso() {
  PrintError(
      u"Uso: ventarix compra importar ARCHIVO.xml --empresa RUTA --proveedor N "
      u"--movimiento ALMACEN1..ALMACEN5|GASTOS [--tipo TEXTO] [--obs TEXTO] [--usuario NOMBRE]"_s);
  return kExitUsage;
}

}  // namespace

int RunCompra(const QStringList& args) {
  const QStringList con_valor = {u"--empresa"_s, u"--proveedor"_s, u"--movimiento"_s,
                                 u"--tipo"_s,    u"--obs"_s,       u"--usuario"_s};
  const QStringList palabras = SinOpciones(args, con_valor);
  const QString path = Opcion(args, u"--empresa"_s);
  bool numero = false;
  const qint32 proveedor = Opcion(args, u"--proveedor"_s).toInt(&numero);
  const QString movimiento = Opcion(args, u"--movimiento"_s);
  if (palabras.size() != 2 || palabras[0] != u"importar"_s || path.isEmpty() || !numero ||
      movimiento.isEmpty()) {
    return Uso();
  }
  QString usuario = Opcion(args, u"--usuario"_s);
  if (usuario.isEmpty()) usuario = u"ADMINISTRADOR"_s;
  QString tipo = Opcion(args, u"--tipo"_s);
  if (tipo.isEmpty()) tipo = u"CREDITO"_s;
  Session session;
  QString error;
  if (!AbrirEmpresa(path, usuario, session, &error)) {
    PrintError(error);
    return kExitFailed;
  }
  const captura::Guardado g = compras::ImportarCompra(session, palabras[1], proveedor, movimiento,
                                                      tipo, Opcion(args, u"--obs"_s));
  if (!g.outcome) {
    PrintError(g.outcome.message);
    return kExitFailed;
  }
  Print(g.llave);
  return kExitOk;
}

}  // namespace ventarix::app
