#include "purchasing/ui/cuenta_proveedor_vista.h"

#include <QHeaderView>
#include <QLocale>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/catalogo_nombre.h"
#include "core/ui/navegador.h"
#include "purchasing/cuenta_proveedor.h"

namespace ventarix::compras_ui {

using namespace Qt::StringLiterals;

CuentaProveedor::CuentaProveedor(const Session& session, qint32 proveedor, QWidget* parent)
    : QDialog(parent), fg1_(new QTableWidget(0, 7, this)) {
  setObjectName(u"CuentaProveedor"_s);
  fg1_->setObjectName(u"Fg1"_s);
  fg1_->setHorizontalHeaderLabels({u"Compra"_s, u"Movimiento"_s, u"Documento"_s, u"Fecha"_s,
                                   u"Cargo $"_s, u"Abono $"_s, u"Saldo $"_s});
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->verticalHeader()->hide();
  std::vector<compras::MovimientoDeCuenta> cuenta;
  {
    Connection c(session.Cadena, Connection::Acceso::kLectura);
    if (c.ok()) cuenta = compras::CuentaDeProveedor(c, proveedor);
  }
  const std::optional<RowValues> socio = LeerCatalogo(session, Catalogo::kProveedores, proveedor);
  setWindowTitle(u"Estado de cuenta del proveedor %1 %2"_s.arg(proveedor).arg(
      socio ? socio->Text(u"nombre"_s) : QString()));
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
  auto importe = [](double valor) {
    return valor == 0 ? QString() : kLocale.toString(valor, 'f', 2);
  };
  fg1_->setRowCount(static_cast<int>(cuenta.size()));
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    const compras::MovimientoDeCuenta& m = cuenta[i];
    const QStringList textos = {m.movimiento == u"COMPRA"_s ? m.compra : QString(),
                                m.movimiento,
                                m.documento,
                                m.fecha.toString(u"dd/MM/yyyy"_s),
                                importe(m.cargo),
                                importe(m.abono),
                                kLocale.toString(m.saldo, 'f', 2)};
    for (int col = 0; col < textos.size(); ++col) {
      auto* celda = new QTableWidgetItem(textos[col]);
      if (col >= 4) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      fg1_->setItem(i, col, celda);
    }
  }
  fg1_->resizeColumnsToContents();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fg1_);
  resize(760, 420);
}

ExtrasNavegador NavegadorDeCompras() {
  return {.acciones = {{.boton = 11,
                        .texto = u"Estado de cuenta"_s,
                        .icono = QStyle::SP_FileDialogDetailedView,
                        .accion = [](Navegador& navegador) {
                          const QString compra = navegador.LlaveActual();
                          if (compra.isEmpty()) return;
                          qint32 proveedor = 0;
                          {
                            Connection c(navegador.session().Cadena, Connection::Acceso::kLectura);
                            proveedor = c.Scalar(u"select proveedor from compras where compra = ?"_s,
                                                 {compra})
                                            .toInt();
                          }
                          CuentaProveedor vista(navegador.session(), proveedor, &navegador);
                          vista.exec();
                        }}}};
}

}  // namespace ventarix::compras_ui
