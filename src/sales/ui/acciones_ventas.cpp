#include "sales/ui/acciones_ventas.h"

#include <optional>

#include <QDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/ayuda.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/message_box.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "sales/aplicar_ventas.h"
#include "sales/familias_ventas.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;

namespace {

// An input box titled as every message; nothing when the clerk leaves it empty or with Esc.
std::optional<double> PedirNumero(FormaCaptura& forma, const QString& texto) {
  bool ok = false;
  const QString respuesta =
      QInputDialog::getText(&forma, QLatin1String(ui::kTitulo), texto, QLineEdit::Normal, {}, &ok);
  if (!ok || respuesta.trimmed().isEmpty()) return std::nullopt;
  return ayuda::Numero(respuesta);
}

bool Confirmar(FormaCaptura& forma, const QString& texto) {
  return ui::Ask(&forma, texto, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel) ==
         QMessageBox::Yes;
}

// The rows a look-up's document brings, from the current row down.
void TraerDocumento(FormaCaptura& forma, const char* palabra, const QString& sin_cliente,
                    ventas::Partidas (*leer)(FormaCaptura&, Connection&, const QString&)) {
  if (forma.Cliente() == 0) return forma.Avisar(Outcome::Warning(sin_cliente, u"Datos1"_s));
  ayuda::ParametrosAyuda parametros;
  parametros.cliente = forma.Cliente();
  const QString llave = AbrirAyuda(forma.session(), QLatin1String(palabra), &forma, parametros);
  forma.activateWindow();
  if (llave.isEmpty()) return;
  Connection c(forma.session().Cadena);
  if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
  forma.TraerPartidas(leer(forma, c, llave), qMax(0, forma.rejilla()->currentRow()));
}

// The price list: Enter or a double click takes the price of the line, Esc leaves.
class DialogoPrecios : public QDialog {
 public:
  DialogoPrecios(const std::vector<ventas::PrecioDeLista>& lista, const QString& codigo,
                 QWidget* parent)
      : QDialog(parent), tabla_(new QTableWidget(static_cast<int>(lista.size()), 2, this)) {
    setObjectName(u"ListaDePrecios"_s);
    setWindowTitle(u"Lista de precios: "_s + codigo);
    tabla_->setObjectName(u"Precios"_s);
    tabla_->setHorizontalHeaderLabels({u"Precio"_s, u"Importe sin impuesto"_s});
    tabla_->verticalHeader()->hide();
    tabla_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabla_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabla_->setSelectionMode(QAbstractItemView::SingleSelection);
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    for (int i = 0; i < static_cast<int>(lista.size()); ++i) {
      tabla_->setItem(i, 0, new QTableWidgetItem(lista[i].nombre));
      auto* importe = new QTableWidgetItem(locale.toString(lista[i].precio, 'f', 2));
      importe->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      tabla_->setItem(i, 1, importe);
      precios_.push_back(lista[i].precio);
    }
    tabla_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    tabla_->setColumnWidth(1, fontMetrics().horizontalAdvance(u"Importe sin impuesto"_s) + 24);
    tabla_->setCurrentCell(0, 0);
    connect(tabla_, &QTableWidget::activated, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabla_);
    resize(420, 260);
    tabla_->setFocus();
  }

  double Elegido() const { return precios_.at(qMax(0, tabla_->currentRow())); }

 private:
  QTableWidget* tabla_;
  std::vector<double> precios_;
};

}  // namespace

void AplicarDescuento(FormaCaptura& forma) {
  const std::optional<double> dcto = PedirNumero(forma, u"Aplicar descuento %"_s);
  if (!dcto) return;
  ventas::Partidas partidas = forma.rejilla()->Partidas();
  ventas::AplicarDescuento(partidas, *dcto);
  forma.CambiarPartidas(partidas);
}

void AplicarDescuentoEnPrecio(FormaCaptura& forma) {
  if (!Confirmar(forma, u"Aplicar descuento en precios de venta de la columna Dcto %"_s) ||
      !Confirmar(forma, u"Seguro aplicar descuento en precios de venta de la columna Dcto %"_s)) {
    return;
  }
  Connection c(forma.session().Cadena);
  if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
  ventas::Partidas partidas = forma.rejilla()->Partidas();
  if (Outcome o = ventas::AplicarDescuentoEnPrecio(c, partidas); !o) return forma.Avisar(o);
  forma.CambiarPartidas(partidas);
}

void AplicarUtilidadxPartida(FormaCaptura& forma) {
  const int fila = forma.rejilla()->currentRow();
  if (fila < 0 || forma.rejilla()->Codigo(fila).isEmpty()) return;
  const std::optional<double> utilidad =
      PedirNumero(forma, u"Aplicar al Código: "_s + forma.rejilla()->Codigo(fila) +
                             u"\n\nUna utilidad (%) del "_s);
  if (!utilidad) return;
  ventas::Partidas partidas = forma.rejilla()->Partidas();
  const Outcome aplicada =
      ventas::AplicarUtilidadxPartida(forma.session().empresa, partidas[fila], *utilidad);
  if (!aplicada) return forma.Avisar(aplicada);
  forma.CambiarPartidas(partidas);
}

void AplicarPedido(FormaCaptura& forma) {
  TraerDocumento(forma, "PEDIDOS", u"Se requiere un cliente para mostrar pedidos"_s,
                 [](FormaCaptura& f, Connection& c, const QString& llave) {
                   return ventas::PartidasDePedido(c, f.session().Tienda, llave);
                 });
}

void AplicarCotizacion(FormaCaptura& forma) {
  TraerDocumento(forma, "COTIZACIONES", u"Se requiere un cliente para mostrar cotizaciones"_s,
                 [](FormaCaptura&, Connection& c, const QString& llave) {
                   return ventas::PartidasDeCotizacion(c, llave);
                 });
}

void MostrarCredito(FormaCaptura& forma) {
  const ventas::Credito credito =
      ventas::CreditoDe(forma.SaldoDelCliente(), forma.CreditoDelCliente(), forma.Cliente(),
                        forma.Plazo(), forma.Sumas().total);
  forma.MostrarCredito(credito.saldo, credito.credito,
                       credito.excedido ? u"Límite de crédito excedido ! ! !"_s : QString());
}

void ListaDePrecios(FormaCaptura& forma, int fila) {
  const QString codigo = forma.rejilla()->Codigo(fila);
  std::vector<ventas::PrecioDeLista> lista;
  {
    Connection c(forma.session().Cadena);
    if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
    lista = ventas::ListaDePrecios(c, forma.Cliente(), codigo);
  }
  if (lista.empty()) return;
  DialogoPrecios dialogo(lista, codigo, &forma);
  const int respuesta = dialogo.exec();
  // Back on the row's price, whatever was chosen.
  forma.activateWindow();
  forma.rejilla()->setFocus();
  if (respuesta != QDialog::Accepted) return;
  ventas::Partidas partidas = forma.rejilla()->Partidas();
  partidas[fila].insert(u"precio"_s, dialogo.Elegido());
  forma.CambiarPartidas(partidas);
}

}  // namespace ventarix::ventas_ui
