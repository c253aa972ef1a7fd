#include "core/inicio.h"

#include <algorithm>
#include <array>

#include <QRandomGenerator>

#include "core/mFunciones.h"
#include "core/passwords.h"

namespace ventarix::inicio {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<quint32, 8> kColores = {0xC0C0FF, 0xC0E0FF, 0xC0FFFF, 0xC0FFC0,
                                             0xFFFFC0, 0xFFC0C0, 0x80FFFF, 0x80FF80};

// Captions of the browsers whose grid the alignment button may act on.
const QStringList& TitulosAlineables() {
  static const QStringList kTitulos = {u"ordenes de compra"_s,
                                       u"compras"_s,
                                       u"contrarecibos"_s,
                                       u"cotizaciones"_s,
                                       u"pedidos"_s,
                                       u"remisiones"_s,
                                       u"facturas"_s,
                                       u"produccion"_s,
                                       u"traspasos"_s,
                                       u"cxc"_s,
                                       u"cxp"_s,
                                       u"notas cliente"_s,
                                       u"notas proveedor"_s,
                                       u"licitaciones"_s,
                                       u"ajustes de inventario"_s,
                                       u"clientes"_s,
                                       u"agentes"_s,
                                       u"proveedores"_s,
                                       u"marcas"_s,
                                       u"lineas"_s,
                                       u"productos"_s,
                                       u"bancos"_s,
                                       u"folios facturas"_s,
                                       u"folios notas"_s};
  return kTitulos;
}

}  // namespace

quint32 ColorDeFondo(int sorteo) {
  if (sorteo < 1 || sorteo > static_cast<int>(kColores.size())) return kColores[0];
  return kColores[sorteo - 1];
}

void PrepararSesion(Session& session) {
  session.Administrador = true;
  session.Usuario = u"ADMINISTRADOR"_s;
  session.ColorFondo = ColorDeFondo(QRandomGenerator::global()->bounded(1, 9));
  session.Tienda = 1;
  session.Equipo = mFunciones::NombreEquipo().left(20);
  session.UtilizarMayusculas = true;
}

bool EntradaHabilitada(const QString& permisos, BloqueMenu bloque, int indice) {
  if (indice < 1 || indice > kLargoBloque) return false;
  const int posicion = static_cast<int>(bloque) * kLargoBloque + indice - 1;
  return posicion < permisos.size() && permisos.at(posicion) == u'1';
}

QString Permisos(const Session& session) { return session.usuario.Text(u"permisos"_s); }

QString FormaTpv(const Session& session) {
  switch (session.configurar.Integer(u"pantallapordefaultentpv"_s)) {
    case 1:
      return u"FrmTpv1"_s;
    case 3:
      return u"FrmTpv3"_s;
    default:
      return u"FrmTpv2"_s;
  }
}

bool EntrarDirectamenteATpv(const Session& session) {
  return session.configurar.Flag(u"entrardirectamenteatpv"_s);
}

bool AdmiteAlineacion(const QString& titulo) {
  return TitulosAlineables().contains(titulo.toLower());
}

std::optional<int> AnoDeRespuesta(const QString& respuesta) {
  bool ok = false;
  const int ano = respuesta.left(4).trimmed().toInt(&ok);
  if (!ok || ano < 1) return std::nullopt;
  return ano;
}

std::optional<mBrowse::Prompt> AutorizacionUsuarios(const Session& session) {
  if (session.ContrasenaAdministrador.isEmpty()) return std::nullopt;
  return mBrowse::Prompt{.titulo = u"Contraseña de seguridad"_s, .claves = {session.Contrasena}};
}

Outcome Autorizar(const QStringList& claves, const QString& tecleado) {
  const bool autorizado =
      std::any_of(claves.cbegin(), claves.cend(),
                  [&tecleado](const QString& clave) { return passwords::Verify(tecleado, clave); });
  if (autorizado) return Outcome::Ok();
  return Outcome::Warning(u"Esta contraseña no corresponde para una autorización"_s,
                          u"Autorizar"_s);
}

}  // namespace ventarix::inicio
