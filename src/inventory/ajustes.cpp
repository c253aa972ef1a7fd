// Stock adjustments: a count or a correction of one warehouse, row by row.
#include "core/round_half_even.h"
#include "documents/mSaldos.h"
#include "inventory/familias_inventario.h"
#include "inventory/partidas_inventario.h"

namespace ventarix::inventario {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

double Cantidad(double valor) { return RoundHalfEven(valor, 8); }

// The warehouse chosen in the list; a document that names none adjusts the user's store.
Outcome AlmacenDelAjuste(const Session& session, Connection&, Documento* d) {
  int almacen = Almacen(d->encabezado.value(u"almacen"_s));
  if (almacen == 0) almacen = qBound(1, static_cast<int>(session.Tienda), 5);
  d->encabezado.insert(u"almacen"_s, almacen);
  return Outcome::Ok();
}

// A row takes the product's description, unit and cost, and the stock of the warehouse at this
// moment; a stored row keeps the stock it was saved with. A row that gives only the count
// (`real`) gets the entries or exits that bring the stock to it; otherwise the count follows
// from the entries and exits.
Outcome CompletarAjuste(const Session&, Connection& c, const Documento& d, QVariantMap* p) {
  RowValues producto;
  if (Outcome o = CompletarDescripcion(c, p, &producto); !o) return o;
  const int almacen = static_cast<int>(Numero(d.encabezado, "almacen"));
  p->insert(u"almacen"_s, almacen);
  PonerSiFalta(p, "costo", producto.Number(u"costo"_s));
  PonerSiFalta(p, "existencias", producto.Number(u"almacen%1"_s.arg(almacen)));
  const double existencias = Numero(*p, "existencias");
  if (Falta(*p, "entradas") && Falta(*p, "salidas") && !Falta(*p, "real")) {
    const double diferencia = Cantidad(Numero(*p, "real") - existencias);
    p->insert(u"entradas"_s, diferencia > 0 ? diferencia : 0.0);
    p->insert(u"salidas"_s, diferencia < 0 ? -diferencia : 0.0);
  }
  const double entradas = Cantidad(Numero(*p, "entradas"));
  const double salidas = Cantidad(Numero(*p, "salidas"));
  p->insert(u"entradas"_s, entradas);
  p->insert(u"salidas"_s, salidas);
  p->insert(u"real"_s, Cantidad(existencias + entradas - salidas));
  return Outcome::Ok();
}

Outcome CamposAjuste(const Session&, Connection&, const Documento& d, bool) {
  return ObservacionRequerida(d.encabezado, u"Obs"_s);
}

Outcome TotalizarAjuste(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarAjuste(c, llave);
}

// The warehouse is read from the stored rows: a change has already rewritten the header when
// it undoes the old rows.
Outcome MoverAjuste(const Session&, Connection& c, const QString& llave, int signo) {
  const int almacen =
      c.Scalar(u"select almacen from \"ajustes de inventario detalles\" where ajuste = ?"_s,
               {llave})
          .toInt();
  if (almacen == 0) return Outcome::Ok();  // no rows
  return MoverAlmacen(c, u"ajustes de inventario"_s, u"ajuste"_s, llave, almacen, signo);
}

}  // namespace

const captura::FamiliaCaptura& Ajustes() {
  static const captura::FamiliaCaptura f{
      .tabla = "ajustes de inventario",
      .llave = "ajuste",
      .derechos = "Ajustes",
      .actual = &Session::AjusteActual,
      .serie = &Session::SerieAjustes,
      // The word the company's database allows for a live adjustment.
      .status_inicial = "ALTA",
      .socio = nullptr,
      .columnas = {u"obs"_s, u"almacen"_s, u"tipo"_s},
      .columnas_partida = {u"almacen"_s, u"existencias"_s, u"entradas"_s, u"salidas"_s, u"real"_s,
                           u"costo"_s},
      .almacen_partida = "tienda",
      .con_costo = false,
      .mover = MoverAjuste,
      .revisar_campos = CamposAjuste,
      .completar_encabezado = AlmacenDelAjuste,
      .completar = CompletarAjuste,
      .totalizar = TotalizarAjuste,
  };
  return f;
}

}  // namespace ventarix::inventario
