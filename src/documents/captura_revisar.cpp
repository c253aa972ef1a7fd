// The checks every capture passes before it is saved, in the order the clerk meets them.
#include <QSqlQuery>

#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "documents/captura.h"
#include "documents/captura_filas.h"
#include "documents/mChecarExistencias.h"
#include "documents/row_arithmetic.h"

namespace ventarix::captura {

namespace {

using namespace Qt::StringLiterals;

Outcome FolioMayorACero(const FamiliaCaptura& f, const Documento& d) {
  if (d.llave.isEmpty() && d.folio_previsto <= 0) {
    return Outcome::Warning(QString::fromUtf8(f.mensaje_folio), u"Datos0"_s);
  }
  return Outcome::Ok();
}

Outcome ClienteActivo(const Session& session, Connection& c, const FamiliaCaptura& f,
                      const Documento& d) {
  if (!f.socio || QLatin1String(f.socio) != "cliente"_L1 || !f.checar_suspendido)
    return Outcome::Ok();
  const QVariant suspendido =
      c.Scalar(u"select numero from clientes where juridico = 'S' and numero = ?"_s,
               {static_cast<qint32>(Numero(d.encabezado, "cliente"))});
  Q_UNUSED(session);
  if (suspendido.isValid()) {
    return Outcome::Warning(u"Este cliente se encuentra suspendido"_s, u"Datos1"_s);
  }
  return Outcome::Ok();
}

// Documents of another month are changed only by an administrator or a manager.
Outcome DentroDeFecha(const Session& session, Connection& c, const Documento& d, bool alta) {
  if (alta || session.Administrador || session.Gerente) return Outcome::Ok();
  const QDate fecha = FechaDe(d).date();
  const QDate hoy = mFunciones::FechaServidor(c, session, true).date();
  if (fecha.year() != hoy.year() || fecha.month() != hoy.month()) {
    return Outcome::Warning(u"Este movimiento se encuentra fuera de fecha"_s, u"Fecha"_s);
  }
  return Outcome::Ok();
}

Outcome HayExistencias(const Session& session, Connection& c, const FamiliaCaptura& f,
                       const Documento& d, bool alta) {
  const bool entrada = f.existencias == Existencias::kEntrada && f.checar_entrada;
  if ((f.existencias != Existencias::kSalida && !entrada) || !f.productos) return Outcome::Ok();
  QList<mChecarExistencias::Partida> malla;
  for (const QVariantMap& p : d.partidas) {
    if (TieneCodigo(p)) malla.append({Texto(p, "codigo"), Numero(p, "cantidad")});
  }
  const QString columna = u"ALMACEN%1"_s.arg(AlmacenDe(session, c, f, d));
  const QString tabla = QString::fromUtf8(f.tabla);
  const QString llave = QString::fromUtf8(f.llave);
  return entrada ? mChecarExistencias::ChecarExistenciasEntrada(session, c, tabla, llave, d.llave,
                                                                columna, !alta, &malla)
                 : mChecarExistencias::ChecarExistenciasSalida(session, c, tabla, llave, d.llave,
                                                               columna, !alta, &malla);
}

// An expense names no warehouse: neither its rows nor the stock are checked.
bool MueveExistencias(const FamiliaCaptura& f, const Documento& d) {
  return !f.almacen || f.almacen(d) > 0;
}

}  // namespace

Outcome ChecarPartidas(const std::vector<QVariantMap>& partidas, bool checar_utilidad,
                       bool tolerante, int* fila) {
  bool alguna = false;
  for (size_t i = 0; i < partidas.size(); ++i) {
    const QVariantMap& p = partidas[i];
    if (!TieneCodigo(p)) continue;
    const QString numero = QString::number(i + 1);
    if (fila) *fila = static_cast<int>(i + 1);
    if (Texto(p, "descripcion").isEmpty() || Texto(p, "unidad").isEmpty()) {
      return Outcome::Warning(u"Se requiere una descripción ó unidad para la fila: "_s + numero,
                              u"Fg1"_s);
    }
    const RowAmounts r = ComputeRow(EntradaDe(p), true);
    if (checar_utilidad && r.cantidad > 0 && r.utilidad <= 0) {
      return Outcome::Warning(
          (tolerante ? u"Es importante verificar la utilidad para la fila: "_s
                     : u"Se requiere una utilidad mayor a cero para la fila: "_s) +
              numero,
          u"Fg1"_s);
    }
    alguna = true;
  }
  if (fila) *fila = 0;
  if (!alguna && !tolerante) {
    return Outcome::Warning(u"Se requiere al menos el registro de una partida"_s, u"Fg1"_s);
  }
  return Outcome::Ok();
}

Outcome Revisar(const Session& session, Connection& c, const FamiliaCaptura& f,
                const Documento& d) {
  const bool alta = d.llave.isEmpty();
  if (Outcome o =
          mFunciones::TienePermiso(session, QString::fromUtf8(f.derechos), alta ? u"A"_s : u"C"_s);
      !o) {
    return o;
  }
  if (f.revisar_credito) {
    if (Outcome o = f.revisar_credito(session, c, d, alta); !o) return o;
  }
  if (Outcome o = FolioMayorACero(f, d); !o) return o;
  if (Outcome o = ClienteActivo(session, c, f, d); !o) return o;
  if (f.revisar_campos) {
    if (Outcome o = f.revisar_campos(session, c, d, alta); !o) return o;
  }
  if (Outcome o = DentroDeFecha(session, c, d, alta); !o) return o;
  if (!MueveExistencias(f, d)) return Outcome::Ok();
  if (f.productos && f.checar_partidas) {
    if (Outcome o = ChecarPartidas(d.partidas, f.checar_utilidad, false); !o) return o;
  }
  if (f.revisar_existencias) return f.revisar_existencias(session, c, d, alta);
  return HayExistencias(session, c, f, d, alta);
}

Outcome RevisarDocumento(const Session& session, const FamiliaCaptura& familia,
                         const Documento& documento) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  return Revisar(session, c, familia, documento);
}

}  // namespace ventarix::captura
