// Client credit notes: rows on the invoices they reduce, a return of goods into the user's
// warehouse or a discount such as the prompt-payment one; sealed as the egreso document of a
// credit-note range.
#include <QSqlQuery>
#include <QSqlRecord>

#include "documents/captura_filas.h"
#include "documents/mSaldos.h"
#include "sales/completar_ventas.h"
#include "sales/familias_ventas.h"
#include "sales/sellar_documento.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;
using captura::Numero;
using captura::Texto;

const QString kNoExiste = u"NO EXISTE"_s;
const QString kSinCobranza = u"Esta factura no existe o no está en cobranza"_s;

struct FacturaLeida {
  bool existe = false;
  QString depto;
  qint32 cliente = 0;
  double saldo = 0;
};

FacturaLeida LeerFactura(Connection& c, const QString& factura) {
  QSqlQuery q =
      c.Exec(u"select depto, cliente, saldo from facturas where factura = ?"_s, {factura});
  if (!q.next()) return {};
  return {true, q.value(0).toString(), q.value(1).toInt(), q.value(2).toDouble()};
}

// What the note's row takes of an invoice row.
const QStringList kDeLaFactura = {u"codigo"_s, u"descripcion"_s, u"unidad"_s,   u"cantidad"_s,
                                  u"precio"_s, u"dcto"_s,        u"impuesto"_s, u"item"_s};

QVariantMap PartidaDevuelta(const QSqlQuery& q, const QString& factura, const QString& depto) {
  QVariantMap p{{u"factura"_s, factura}, {u"depto"_s, depto}};
  for (const QString& columna : kDeLaFactura) {
    p.insert(columna == u"item"_s ? u"partida"_s : columna, q.value(q.record().indexOf(columna)));
  }
  return p;
}

// The prompt-payment discount cancels the whole balance once the tax is added back; the user
// may give a lower price for part of it.
Outcome Descuento(const Session& session, const Documento& d, const FacturaLeida& f,
                  QVariantMap* p) {
  if (f.cliente != static_cast<qint32>(Numero(d.encabezado, "cliente"))) {
    return Outcome::Warning(kSinCobranza + u": "_s + Texto(*p, "factura"), u"Fg1"_s);
  }
  const double impuesto = session.empresa.Number(u"impuesto"_s);
  p->insert(u"codigo"_s, u"DPPP"_s);
  p->insert(u"descripcion"_s, u"DESCUENTO POR PRONTO PAGO"_s);
  p->insert(u"unidad"_s, u"NA"_s);
  p->insert(u"cantidad"_s, 1);
  if (!p->contains(u"precio"_s)) p->insert(u"precio"_s, f.saldo / (1 + impuesto / 100));
  p->insert(u"impuesto"_s, impuesto);
  p->insert(u"dcto"_s, 0);
  p->remove(u"dppp"_s);
  return Outcome::Ok();
}

// The invoice's rows, every one (no code given) or those of the code given; what the row
// already says stays.
Outcome Devolucion(Connection& c, const FacturaLeida& f, const QVariantMap& p,
                   std::vector<QVariantMap>* filas) {
  const QString factura = Texto(p, "factura");
  const QString codigo = Texto(p, "codigo").toUpper();
  QSqlQuery q = c.Exec(
      u"select codigo, descripcion, unidad, cantidad, precio, dcto, impuesto, item from "
      "\"facturas detalles\" where factura = ? and (? = '' or codigo = ?) order by item"_s,
      {factura, codigo, codigo});
  const size_t antes = filas->size();
  while (q.next()) {
    QVariantMap devuelta = PartidaDevuelta(q, factura, f.depto);
    if (!codigo.isEmpty()) {
      for (auto it = p.begin(); it != p.end(); ++it) devuelta.insert(it.key(), it.value());
      devuelta.insert(u"codigo"_s, codigo);
      filas->push_back(devuelta);
      return Outcome::Ok();
    }
    filas->push_back(devuelta);
  }
  if (filas->size() > antes) return Outcome::Ok();
  if (codigo.isEmpty()) return Outcome::Warning(kSinCobranza, u"Fg1"_s);
  filas->push_back(p);  // a code the invoice does not have is kept as typed
  return Outcome::Ok();
}

// Each row names the invoice it reduces: none that exists makes a free row ("NO EXISTE"), a
// "dppp" row the prompt-payment discount, any other the return of its goods.
Outcome EncabezadoNota(const Session& session, Connection& c, Documento* d) {
  if (Outcome o = DatosFiscales(session, c, d); !o) return o;
  std::vector<QVariantMap> filas;
  for (QVariantMap p : d->partidas) {
    const FacturaLeida f = LeerFactura(c, Texto(p, "factura"));
    if (!f.existe) {
      p.insert(u"depto"_s, kNoExiste);
      for (const char* columna : {"codigo", "descripcion", "unidad"}) {
        p.insert(QString::fromUtf8(columna), Texto(p, columna).toUpper());
      }
      filas.push_back(p);
      continue;
    }
    if (Numero(p, "dppp") != 0 || Texto(p, "dppp") == u"S"_s) {
      p.insert(u"depto"_s, f.depto);
      if (Outcome o = Descuento(session, *d, f, &p); !o) return o;
      filas.push_back(p);
      continue;
    }
    if (Outcome o = Devolucion(c, f, p, &filas); !o) return o;
  }
  d->partidas = std::move(filas);
  return Outcome::Ok();
}

Outcome TotalizarNota(const Session& session, Connection& c, const Documento& d,
                      const QString& llave) {
  const QString resumen = ResumenDe(d);
  if (Outcome o = QuitarResumen(c, "notas cliente resumen", "nota", llave, resumen); !o) return o;
  return mSaldos::TotalizarNotaCliente(c, session, llave, captura::FechaDe(d), resumen);
}

// The invoices the note reduces (before and after a change), and the balances of their
// clients and of the note's.
Outcome RecalcularNota(const Session&, Connection& c, const Documento& d,
                       const captura::Hechos& h) {
  QList<qint32> clientes{static_cast<qint32>(Numero(d.encabezado, "cliente")), h.socio_anterior};
  for (const QString& factura : h.fuentes) clientes << LeerFactura(c, factura).cliente;
  return mSaldos::RecalcularSaldosFacturas(
      c, h.fuentes.isEmpty() ? QStringList{QString()} : h.fuentes, clientes);
}

}  // namespace

const captura::FamiliaCaptura& NotasCliente() {
  static const captura::FamiliaCaptura f{
      .tabla = "notas cliente",
      .llave = "nota",
      .derechos = "NotasCliente",
      .actual = &Session::NotaActual,
      .serie = nullptr,
      .status_inicial = "ALTA",
      .columnas = {u"esquema"_s, u"egreso"_s, u"tipo"_s, u"referencia"_s, u"descripcion"_s,
                   u"obs"_s, u"moneda"_s, u"tipocambio"_s, u"formadepago"_s, u"metodo"_s,
                   u"metododepago"_s, u"numctapago"_s, u"condicionesdepago"_s, u"motivodescuento"_s,
                   u"lugarexpedicion"_s},
      .columnas_partida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"partida"_s},
      .almacen_partida = "tienda",
      .fuente_partida = "factura",
      .con_costo = false,
      .existencias = captura::Existencias::kEntrada,
      .rango = {.tabla = "folios notas",
                .columna = "egreso",
                .predeterminado = &Session::FolioNotas},
      .revisar_credito = EsquemaYTipoDeCambio,
      .revisar_campos = CamposFiscales,
      .completar_encabezado = EncabezadoNota,
      .totalizar = TotalizarNota,
      .recalcular = RecalcularNota,
      .sellar = SellarNotaCliente,
  };
  return f;
}

}  // namespace ventarix::ventas
