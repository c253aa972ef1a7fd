// The demo shop's last months: delivery notes at the counter, quotations, and orders delivered
// by notes in full or in part, each saved through the capture engine's own routine (the same
// checks, prices, totals, stock and order statuses as at a capture screen), some cancelled
// through the cancellation engine. The same documents every time, on the working days before
// the day the demo is made.
#include <cmath>
#include <map>

#include <QSqlQuery>

#include "core/session_load.h"
#include "demo/demo_tables.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "sales/familias_ventas.h"

namespace ventarix::demo {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

constexpr const char* kObservaciones[] = {"MOSTRADOR", "ENTREGA A DOMICILIO", "CLIENTE RECOGE",
                                          "ENTREGA EN OBRA", "PAGO CONTRA ENTREGA"};
constexpr const char* kTiposNota[] = {"DIRECTA", "DIRECTA", "DIRECTA", "ESPERA", "FACTURA"};
constexpr const char* kTiposPedido[] = {"PEDIDO", "DIRECTA", "FACTURA"};
constexpr const char* kMotivos[] = {"ERROR DE CAPTURA", "EL CLIENTE CANCELÓ LA COMPRA",
                                    "PRECIO EQUIVOCADO", "SE CAPTURÓ DOS VECES",
                                    "MERCANCÍA DEVUELTA EL MISMO DÍA"};

// How an order is delivered, decided when it is taken.
enum class Entrega { kCompleta, kParcial, kParcialYResto, kNinguna };

struct Pendiente {
  QString pedido;
  qint32 cliente;
  Entrega entrega;
};

class Historia {
 public:
  Historia(Connection& c, Dice& dice, const QString& carpeta)
      : c_(c), dice_(dice), carpeta_(carpeta), sesion_(SesionDeDemo(c)) {
    sesion_.SerieRemisiones = SerieDe("remisiones");
    sesion_.SerieCotizaciones = SerieDe("cotizaciones");
    sesion_.SeriePedidos = SerieDe("pedidos");
  }

  bool Escribir(QString* error);

 private:
  bool Leer(QString* error);
  bool Dia(int dia, const QDate& fecha, QString* error);
  std::vector<QVariantMap> Partidas(int hasta);
  Documento Nuevo(const QDate& fecha, qint32 cliente);
  // The document saved, or an empty key when its checks refuse it (a client over the limit);
  // false only for a failure.
  bool Guardar(const captura::FamiliaCaptura& f, const Documento& d, QString* llave,
               QString* error);
  bool Cancelar(const char* clase, const QString& llave, QString* error);
  bool Surtir(const Pendiente& p, const QDate& fecha, bool completo, QString* error);

  Connection& c_;
  Dice& dice_;
  // The invoices draw on their own numbers, so that the notes and orders stay as they were.
  Dice dice_facturas_{20261125};
  QString carpeta_;  // the company's folder tree, for the sealed files
  Session sesion_;
  QStringList codigos_;                     // products with stock enough for a few months of sales
  QList<qint32> clientes_;                  // clients not suspended
  std::multimap<int, Pendiente> entregas_;  // by the working day they are delivered
};

bool Falla(QString* error, const QString& texto) {
  *error = texto;
  return false;
}

bool Historia::Leer(QString* error) {
  QSqlQuery q = c_.Exec(
      u"select codigo from productos where status = 'ALTA' and almacen1 >= 30 order by codigo"_s);
  while (q.next()) codigos_ << q.value(0).toString();
  q = c_.Exec(u"select numero from clientes where juridico <> 'S' order by numero"_s);
  while (q.next()) clientes_ << q.value(0).toInt();
  if (codigos_.isEmpty() || clientes_.isEmpty()) {
    return Falla(error, u"La empresa de demostración no tiene productos o clientes"_s);
  }
  return true;
}

std::vector<QVariantMap> Historia::Partidas(int hasta) {
  std::vector<QVariantMap> partidas;
  QStringList tomados;
  for (int i = dice_.Between(1, hasta); i > 0; --i) {
    const QString codigo = codigos_[dice_.Between(0, static_cast<int>(codigos_.size()) - 1)];
    if (tomados.contains(codigo)) continue;
    tomados << codigo;
    partidas.push_back({{u"codigo"_s, codigo}, {u"cantidad"_s, dice_.Between(1, 4)}});
  }
  return partidas;
}

Documento Historia::Nuevo(const QDate& fecha, qint32 cliente) {
  Documento d;
  d.encabezado = {
      {u"fecha"_s, fecha}, {u"cliente"_s, cliente}, {u"obs"_s, Texto(dice_.Pick(kObservaciones))}};
  return d;
}

bool Historia::Guardar(const captura::FamiliaCaptura& f, const Documento& d, QString* llave,
                       QString* error) {
  const captura::Guardado g = captura::GuardarDocumento(sesion_, c_, f, d);
  if (g.outcome.IsRunTimeError()) return Falla(error, g.outcome.message);
  *llave = g.outcome ? g.llave : QString();
  return true;
}

bool Historia::Cancelar(const char* clase, const QString& llave, QString* error) {
  const Outcome o =
      bajas::DarDeBaja(sesion_, c_, QString::fromLatin1(clase), llave, Texto(dice_.Pick(kMotivos)));
  return o ? true : Falla(error, o.message);
}

// A note for what the order still waits for: all of it, or about half of each row.
bool Historia::Surtir(const Pendiente& p, const QDate& fecha, bool completo, QString* error) {
  Documento d = Nuevo(fecha, p.cliente);
  d.encabezado.insert(u"obs"_s, u"ENTREGA DEL PEDIDO "_s + p.pedido);
  d.encabezado.insert(u"tipo"_s, u"PEDIDO"_s);
  d.encabezado.insert(u"pedido"_s, p.pedido);
  QSqlQuery q = c_.Exec(
      u"select codigo, surtir, precio, dcto from \"pedidos detalles\" where pedido = ? and "
      u"surtir > 0 order by item"_s,
      {p.pedido});
  while (q.next()) {
    const double surtir = q.value(1).toDouble();
    const double cantidad = completo ? surtir : std::floor(surtir / 2);
    if (cantidad <= 0) continue;
    d.partidas.push_back({{u"codigo"_s, q.value(0)},
                          {u"cantidad"_s, cantidad},
                          {u"precio"_s, q.value(2)},
                          {u"dcto"_s, q.value(3)},
                          {u"pedido"_s, p.pedido}});
  }
  q.finish();
  if (d.partidas.empty()) return true;
  QString llave;
  return Guardar(ventas::Remisiones(), d, &llave, error);
}

bool Historia::Dia(int dia, const QDate& fecha, QString* error) {
  auto cliente = [this] {
    return clientes_[dice_.Between(0, static_cast<int>(clientes_.size()) - 1)];
  };
  // The orders due today go out first, in the morning.
  const auto [desde, hasta] = entregas_.equal_range(dia);
  std::vector<Pendiente> hoy;
  for (auto it = desde; it != hasta; ++it) hoy.push_back(it->second);
  entregas_.erase(dia);
  for (const Pendiente& p : hoy) {
    const bool completo = p.entrega == Entrega::kCompleta;
    if (!Surtir(p, fecha, completo, error)) return false;
    if (p.entrega == Entrega::kParcialYResto) {
      entregas_.insert({dia + dice_.Between(3, 8), {p.pedido, p.cliente, Entrega::kCompleta}});
    }
  }
  for (int i = dice_.Between(1, 4); i > 0; --i) {
    Documento d = Nuevo(fecha, cliente());
    d.encabezado.insert(u"tipo"_s, Texto(dice_.Pick(kTiposNota)));
    d.encabezado.insert(u"metodo"_s, dice_.Between(1, kMetodos));
    // Most sales are cash; the others take the client's credit term.
    if (dice_.Between(1, 10) <= 7) d.encabezado.insert(u"plazo"_s, 0);
    d.partidas = Partidas(4);
    QString llave;
    if (!Guardar(ventas::Remisiones(), d, &llave, error)) return false;
    if (!llave.isEmpty() && dice_.Between(1, 25) == 1 && !Cancelar("REMISIONES", llave, error)) {
      return false;
    }
  }
  if (dice_.Between(1, 2) == 1) {
    Documento d = Nuevo(fecha, cliente());
    d.encabezado.insert(u"tipo"_s, u"DIRECTA"_s);
    d.partidas = Partidas(6);
    QString llave;
    if (!Guardar(ventas::Cotizaciones(), d, &llave, error)) return false;
    if (!llave.isEmpty() && dice_.Between(1, 10) == 1 && !Cancelar("COTIZACIONES", llave, error)) {
      return false;
    }
  }
  if (dice_.Between(1, 3) == 1) {
    const qint32 numero = cliente();
    Documento d = Nuevo(fecha, numero);
    d.encabezado.insert(u"tipo"_s, Texto(dice_.Pick(kTiposPedido)));
    d.encabezado.insert(u"referencia"_s, u"OC-%1"_s.arg(dice_.Between(1000, 9999)));
    d.partidas = Partidas(5);
    for (QVariantMap& p : d.partidas) p.insert(u"cantidad"_s, dice_.Between(2, 8));
    QString llave;
    if (!Guardar(ventas::Pedidos(), d, &llave, error)) return false;
    if (llave.isEmpty()) return true;
    const int suerte = dice_.Between(1, 10);
    if (suerte == 1) return Cancelar("PEDIDOS", llave, error);
    const Entrega entrega = suerte <= 5   ? Entrega::kCompleta
                            : suerte <= 7 ? Entrega::kParcial
                            : suerte <= 9 ? Entrega::kParcialYResto
                                          : Entrega::kNinguna;
    if (entrega != Entrega::kNinguna) {
      entregas_.insert({dia + dice_.Between(1, 6), {llave, numero, entrega}});
    }
  }
  return true;
}

bool Historia::Escribir(QString* error) {
  if (!Leer(error)) return false;
  QDate fecha = PrimerDiaDeHistoria();
  for (int dia = 0; dia < kDiasDeHistoria; ++dia, fecha = fecha.addDays(1)) {
    if (fecha.dayOfWeek() == Qt::Sunday) fecha = fecha.addDays(1);
    if (!Dia(dia, fecha, error)) return false;
  }
  // The invoices come once the notes are there, each on the day it was made: the notes and
  // orders are those of a shop that had not invoiced yet.
  Session fiscal = sesion_;
  PrepararSesionFiscal(c_, carpeta_, &fiscal);
  fecha = PrimerDiaDeHistoria();
  for (int dia = 0; dia < kDiasDeHistoria; ++dia, fecha = fecha.addDays(1)) {
    if (fecha.dayOfWeek() == Qt::Sunday) fecha = fecha.addDays(1);
    if (!Facturar(c_, fiscal, dice_facturas_, dia, fecha, error)) return false;
  }
  return true;
}

}  // namespace

QDate PrimerDiaDeHistoria() {
  QDate fecha = QDate::currentDate();
  if (fecha.dayOfWeek() == Qt::Sunday) fecha = fecha.addDays(-1);
  for (int dias = 1; dias < kDiasDeHistoria;) {
    fecha = fecha.addDays(-1);
    if (fecha.dayOfWeek() != Qt::Sunday) ++dias;
  }
  return fecha;
}

bool EscribirHistoria(Connection& c, Dice& dice, const QString& carpeta, QString* error) {
  Historia historia(c, dice, carpeta);
  return historia.Escribir(error);
}

}  // namespace ventarix::demo
