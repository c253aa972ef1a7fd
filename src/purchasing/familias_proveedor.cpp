// Purchase orders and supplier credit notes: what each adds to the capture engine; and the
// supplier's families by their table, for the command line and the demo.
#include "purchasing/familias_proveedor.h"

#include <QSqlQuery>

#include "documents/captura_filas.h"
#include "documents/mInventario.h"
#include "documents/mSaldos.h"
#include "documents/set_statements.h"
#include "purchasing/cuentas_por_pagar.h"
#include "purchasing/familia_compras.h"

namespace ventarix::compras {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;
using captura::Numero;
using captura::Texto;

qint32 Proveedor(const Documento& d) {
  return static_cast<qint32>(Numero(d.encabezado, "proveedor"));
}

Outcome ConProveedor(const Session&, Connection&, const Documento& d, bool) {
  if (Proveedor(d) <= 0) {
    return Outcome::Warning(u"Se requiere un número de proveedor"_s, u"Datos1"_s);
  }
  return Outcome::Ok();
}

Outcome TotalizarOrden(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarOrdenCompra(c, llave);
}

// A new or changed order's own pending quantities, against the purchases already made on it.
Outcome SurtirOrden(const Session&, Connection& c, const Documento&, const captura::Hechos& h) {
  return mSaldos::RecalcularSurtirOrdenes(c, {h.llave});
}

// Every row of a product names a live purchase of the note's supplier.
Outcome CamposNota(const Session& session, Connection& c, const Documento& d, bool alta) {
  if (Outcome o = ConProveedor(session, c, d, alta); !o) return o;
  for (const QVariantMap& p : d.partidas) {
    if (!captura::TieneCodigo(p)) continue;
    const QString compra = Texto(p, "compra");
    QSqlQuery& q = c.ExecRepetida(
        u"select proveedor from compras where compra = ? and status <> 'BAJA'"_s, {compra});
    if (!q.next() || q.value(0).toInt() != Proveedor(d)) {
      return Outcome::Warning(
          u"La compra "_s + compra + u" no es del proveedor "_s + QString::number(Proveedor(d)),
          u"Fg1"_s);
    }
  }
  return Outcome::Ok();
}

Outcome TotalizarNota(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarNotaProveedor(c, llave, 0);
}

// The products the note's rows name now and those of the purchases it named before or
// names now: their stock is derived again, as the sweep derives it.
QStringList CodigosDeLaNota(Connection& c, const QString& nota, const QStringList& compras,
                            QString* error) {
  QStringList codigos =
      mInventario::ListaCodigosDocumento(c, u"notas proveedor"_s, u"nota"_s, nota, error);
  QVariantList valores;
  QSqlQuery q = c.Exec(u"select distinct codigo from \"compras detalles\""_s +
                           InClause(u" where "_s, u"compra"_s, compras, &valores),
                       valores);
  while (q.next()) {
    if (!codigos.contains(q.value(0).toString())) codigos << q.value(0).toString();
  }
  return codigos;
}

Outcome SaldosDeLaNota(const Session&, Connection& c, const Documento&, const captura::Hechos& h) {
  if (h.fuentes.isEmpty()) return Outcome::Ok();  // an empty scope would mean every purchase
  if (Outcome o = mSaldos::RecalcularSaldosCompras(c, h.fuentes, {}); !o) return o;
  if (Outcome o = mSaldos::RecalcularSaldoProveedoresDeCompras(c, h.fuentes); !o) return o;
  QString error;
  const QStringList codigos = CodigosDeLaNota(c, h.llave, h.fuentes, &error);
  if (!error.isEmpty() || !mInventario::RecalcularExistencias(c, 0, codigos, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

const QStringList kColumnasPartida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"tienda"_s};

}  // namespace

const captura::FamiliaCaptura& OrdenesCompra() {
  static const captura::FamiliaCaptura f{
      .tabla = "ordenes de compra",
      .llave = "orden",
      .derechos = "OrdenesCompra",
      .actual = &Session::OrdenActual,
      .serie = &Session::SerieOrdenesCompra,
      .status_inicial = "POR SURTIR",
      .socio = "proveedor",
      .columnas = {u"plazo"_s, u"obs"_s, u"tipo"_s, u"referencia"_s},
      .columnas_partida = kColumnasPartida,
      .con_costo = false,
      .revisar_campos = ConProveedor,
      .completar = CompletarPartidaDeCompra,
      .totalizar = TotalizarOrden,
      .recalcular = SurtirOrden,
  };
  return f;
}

const captura::FamiliaCaptura& NotasProveedor() {
  static const captura::FamiliaCaptura f{
      .tabla = "notas proveedor",
      .llave = "nota",
      .derechos = "NotasProveedor",
      .actual = &Session::NotaActual,
      .serie = &Session::SerieNcp,
      .status_inicial = "ALTA",
      .socio = "proveedor",
      .columnas = {u"nota proveedor"_s, u"obs"_s, u"tipo"_s},
      .columnas_partida = kColumnasPartida + QStringList{u"factura"_s},
      .fuente_partida = "compra",
      .con_costo = false,
      .revisar_campos = CamposNota,
      .completar = CompletarPartidaDeCompra,
      .totalizar = TotalizarNota,
      .recalcular = SaldosDeLaNota,
  };
  return f;
}

const captura::FamiliaCaptura* FamiliaDeProveedor(const QString& tabla) {
  for (const captura::FamiliaCaptura* f : {&CxP(), &OrdenesCompra(), &NotasProveedor()}) {
    if (tabla.compare(QString::fromUtf8(f->tabla), Qt::CaseInsensitive) == 0) return f;
  }
  return nullptr;
}

}  // namespace ventarix::compras
