// The rows of a capture screen as a clerk enters them: codes found through their alternates,
// the stock warning, pasted rows, look-ups, and undo and redo of the change screen.
#include <QMessageBox>

#include "core/ayuda.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/message_box.h"
#include "documents/captura_partida.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

using R = RejillaCaptura;

// A first cell with one of these words is a heading row of a copied grid or sheet.
bool EsEncabezado(const QString& celda) {
  const QString texto = celda.trimmed().toUpper();
  return texto == u"CÓDIGO"_s || texto == u"CODIGO"_s || texto == u"<F1>"_s;
}

}  // namespace

void FormaCaptura::CeldaEscrita(int fila, int columna) {
  if (fila < 0 || fila >= fg1_->rowCount()) return;
  const R::Columna contenido = fg1_->Contenido(columna);
  if (contenido == R::kFactura) {
    if (pantalla_.factura_escrita != nullptr) pantalla_.factura_escrita(*this, fila);
  } else if (contenido == R::kCodigo) {
    CodigoEscrito(fila);
  } else if (fg1_->Codigo(fila).isEmpty()) {
    // Typed only on a row with a code.
    fg1_->VaciarFila(fila);
  } else if (contenido == R::kCantidad || contenido == R::kSurtir) {
    // What an order has to deliver starts as its quantity.
    if (contenido == R::kCantidad && !cambio_) {
      fg1_->PonerNumero(fila, R::kSurtir, fg1_->Numero(fila, R::kCantidad));
    }
    ChecarExistencia(fila);
  }
  RecalcularPantalla();
  Recordar();
}

// The code typed, trimmed and in upper case, found through codigo to codigo3; the row takes
// the product's description, unit, the client's price and discount, tax, cost, commission
// and stock.
void FormaCaptura::CodigoEscrito(int fila) {
  const QString codigo = fg1_->Codigo(fila).toUpper();
  if (codigo.isEmpty()) return fg1_->VaciarFila(fila);
  const double cantidad = fg1_->Numero(fila, R::kCantidad);
  const captura::PartidaHallada hallada = captura::BuscarPartida(
      session_, pantalla_.familia, Capturado(), codigo, cantidad > 0 ? cantidad : 1);
  if (!hallada.existe && pantalla_.codigos_libres) {
    // Kept as typed; a row with no unit yet takes "PIEZA".
    QVariantMap libre{{u"codigo"_s, codigo}};
    if (fg1_->Texto(fila, R::kUnidad).isEmpty()) libre.insert(u"unidad"_s, u"PIEZA"_s);
    if (cantidad <= 0) libre.insert(u"cantidad"_s, 1.0);
    fg1_->PonerPartida(fila, libre);
    return;
  }
  if (!hallada.existe) {
    fg1_->VaciarFila(fila);
    fg1_->setCurrentCell(fila, fg1_->Col(R::kCodigo));
    const QString nuevo = OfrecerProducto(codigo);
    fg1_->setFocus();
    if (nuevo.isEmpty()) return;
    fg1_->PonerPartida(fila, {{u"codigo"_s, nuevo}});
    return CodigoEscrito(fila);
  }
  if (!hallada.outcome) return Avisar(hallada.outcome);
  QVariantMap partida = hallada.partida;
  if (pantalla_.fuente != nullptr) {
    const QString fuente = QString::fromUtf8(pantalla_.fuente);
    partida.insert(fuente, fg1_->Partida(fila).value(fuente));
  }
  fg1_->PonerPartida(fila, partida);
  ChecarExistencia(fila);
}

QString FormaCaptura::OfrecerProducto(const QString& codigo) {
  const auto respuesta =
      ui::Ask(this, u"Este código no existe en productos\n\nAgregar código ? "_s,
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (respuesta != QMessageBox::Yes) return {};
  // The product screen opens on the code, which the clerk sees there.
  auto* mdi =
      qobject_cast<MDIInicio*>(parentWidget() != nullptr ? parentWidget()->window() : nullptr);
  if (mdi == nullptr) return {};
  const QString nuevo = mdi->Abrir(u"FrmProductosA"_s, codigo);
  activateWindow();
  return nuevo;
}

// Column 18 below the quantity: the row's quantity becomes 0, unless the company saves
// without stock. The full check at saving stays.
bool FormaCaptura::ChecarExistencia(int fila) {
  if (!pantalla_.avisar_existencias || session_.empresa.Flag(u"guardar_sin_existencias"_s) ||
      fg1_->Codigo(fila).isEmpty()) {
    return true;
  }
  if (fg1_->Numero(fila, R::kExistencia) >= fg1_->Numero(fila, R::kCantidad)) return true;
  ui::Inform(this, u"Existencias insuficientes para el código\n\n"_s + fg1_->Codigo(fila),
             MessageIcon::kStop);
  fg1_->PonerNumero(fila, R::kCantidad, 0);
  return false;
}

// From the current row down: a heading row is dropped, a code of up to 20 characters is
// looked up with the quantity of its column, anything else is dropped.
void FormaCaptura::Pegar(const QList<QStringList>& filas, int desde) {
  if (pantalla_.con_depto && Depto() != u"LIBRE"_s) return;
  const int cantidad_en = fg1_->Col(R::kCantidad) - 1;
  std::vector<QVariantMap> partidas;
  const captura::Documento documento = Capturado();
  for (const QStringList& celdas : filas) {
    const QString codigo = celdas.value(0).trimmed().toUpper();
    if (codigo.isEmpty() || codigo.size() > 20 || EsEncabezado(codigo)) continue;
    const double cantidad = ayuda::Numero(celdas.value(cantidad_en));
    const captura::PartidaHallada hallada =
        captura::BuscarPartida(session_, pantalla_.familia, documento, codigo, cantidad);
    if (hallada.existe && hallada.outcome) partidas.push_back(hallada.partida);
  }
  TraerPartidas(partidas, desde);
}

void FormaCaptura::TraerPartidas(const std::vector<QVariantMap>& partidas, int desde) {
  int fila = qMax(0, desde);
  for (const QVariantMap& partida : partidas) {
    fg1_->VaciarFila(qMin(fila, fg1_->rowCount() - 1));
    fg1_->PonerPartida(fila, partida);
    ChecarExistencia(fila);
    ++fila;
  }
  if (!fg1_->Codigo(fg1_->rowCount() - 1).isEmpty()) fg1_->setRowCount(fg1_->rowCount() + 1);
  fg1_->PonerPartida(fg1_->rowCount() - 1, {});
  RecalcularPantalla();
  Recordar();
  // The clerk goes on with the quantities of what came in.
  fg1_->setFocus();
  fg1_->setCurrentCell(qMax(0, desde), fg1_->Col(R::kCantidad));
}

void FormaCaptura::CambiarPartidas(const std::vector<QVariantMap>& partidas) {
  const int fila = fg1_->currentRow();
  const int columna = fg1_->currentColumn();
  fg1_->PonerPartidas(partidas);
  fg1_->setCurrentCell(qMax(0, qMin(fila, fg1_->rowCount() - 1)), qMax(1, columna));
  RecalcularPantalla();
  Recordar();
}

// F1: the price list on the price, the product look-up anywhere else.
void FormaCaptura::AyudaDeRejilla(int fila, int columna) {
  if (pantalla_.ayuda_de_fila != nullptr && pantalla_.ayuda_de_fila(*this, fila, columna)) return;
  if (fg1_->Contenido(columna) == R::kPrecio) {
    if (pantalla_.lista_de_precios != nullptr && !fg1_->Codigo(fila).isEmpty()) {
      pantalla_.lista_de_precios(*this, fila);
    }
    return;
  }
  if (fg1_->Contenido(columna) != R::kCodigo) return;
  ayuda::ParametrosAyuda parametros;
  parametros.cliente = Cliente();
  parametros.codigo = fg1_->Codigo(fila);
  const QString codigo = AbrirAyuda(session_, u"PRODUCTOS"_s, this, parametros);
  if (codigo.isEmpty()) return;
  fg1_->PonerPartida(fila, {{u"codigo"_s, codigo}});
  CeldaEscrita(fila, columna);
  fg1_->Avanzar(fila, columna);
}

// Each change keeps the grid as it was, for the change screen's undo.
void FormaCaptura::Recordar() {
  std::vector<QVariantMap> ahora = fg1_->Partidas();
  if (ahora == vigente_) return;
  antes_.push_back(std::move(vigente_));
  despues_.clear();
  vigente_ = std::move(ahora);
}

void FormaCaptura::Deshacer() {
  if (antes_.empty()) return;
  despues_.push_back(std::move(vigente_));
  vigente_ = std::move(antes_.back());
  antes_.pop_back();
  fg1_->PonerPartidas(vigente_);
  RecalcularPantalla();
}

void FormaCaptura::Rehacer() {
  if (despues_.empty()) return;
  antes_.push_back(std::move(vigente_));
  vigente_ = std::move(despues_.back());
  despues_.pop_back();
  fg1_->PonerPartidas(vigente_);
  RecalcularPantalla();
}

}  // namespace ventarix
