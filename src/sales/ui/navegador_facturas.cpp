#include "sales/ui/navegador_facturas.h"

#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableView>
#include <QTableWidget>

#include "core/ui/browse_model.h"
#include "core/ui/message_box.h"
#include "core/ui/navegador.h"
#include "sales/movimientos_factura.h"
#include "sales/ui/acciones_timbrado.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;

namespace {

const QString kPendiente = u"Esta función aún no está disponible."_s;

// Fg2: the receipts and credit notes of the invoice on the current row.
class Movimientos : public QTableWidget {
 public:
  explicit Movimientos(Navegador& navegador)
      : QTableWidget(0, 5, &navegador), navegador_(navegador) {
    setObjectName(u"Fg2"_s);
    setHorizontalHeaderLabels({u"Movimiento"_s, u"Pago"_s, u"Fecha"_s, u"Abono"_s, u"Status"_s});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    connect(navegador.grid()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &Movimientos::Mostrar);
    connect(navegador.modelo(), &QAbstractItemModel::modelReset, this, &Movimientos::Mostrar);
  }

  void Mostrar() {
    setRowCount(0);
    const QString factura = navegador_.LlaveActual();
    if (factura.isEmpty()) return;
    std::vector<ventas::MovimientoDeFactura> movimientos;
    {
      Connection c(navegador_.session().Cadena, Connection::Acceso::kLectura);
      if (!c.ok()) return;
      movimientos = ventas::MovimientosDeFactura(c, factura);
    }
    static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
    setRowCount(static_cast<int>(movimientos.size()));
    for (int i = 0; i < rowCount(); ++i) {
      const ventas::MovimientoDeFactura& m = movimientos[i];
      const QStringList textos = {m.movimiento, m.pago, m.fecha.toString(u"dd/MM/yyyy"_s),
                                  kLocale.toString(m.abono, 'f', 2), m.status};
      for (int col = 0; col < textos.size(); ++col) {
        auto* celda = new QTableWidgetItem(textos[col]);
        if (col == 3) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(i, col, celda);
      }
    }
    resizeColumnsToContents();
  }

 private:
  Navegador& navegador_;
};

// The invoice's stored XML file copied where the user says; the PDF is made by the printed
// representation.
void Exportar(Navegador& navegador) {
  const QString factura = navegador.LlaveActual();
  if (factura.isEmpty()) return;
  const QString destino =
      QFileDialog::getSaveFileName(&navegador, u"Exportar factura"_s, factura + u".xml"_s,
                                   u"Facturas en PDF / XML (*.pdf *.xml)"_s);
  if (destino.isEmpty()) return;
  if (destino.endsWith(u".pdf"_s, Qt::CaseInsensitive)) return ui::Inform(&navegador, kPendiente);
  const QString origen = ventas::ArchivoXml(navegador.session(), factura);
  if (!QFile::exists(origen)) {
    return ui::ShowOutcome(&navegador, navegador.session(),
                           Outcome::Warning(u"No existe el archivo "_s + origen));
  }
  QFile::remove(destino);
  if (!QFile::copy(origen, destino)) {
    ui::ShowOutcome(&navegador, navegador.session(),
                    Outcome::Stop(u"No se pudo escribir el archivo "_s + destino));
  }
}

void Pendiente(Navegador& navegador) { ui::Inform(&navegador, kPendiente); }

// Button 6 stamps the selected row; its menu cancels a UUID at the PAC.
AccionExtra BotonDeTimbrado(void (*timbrar)(Navegador&)) {
  return {.boton = 6,
          .texto = u"Timbrar"_s,
          .icono = QStyle::SP_DialogApplyButton,
          .accion = timbrar,
          .menu = {{.texto = u"Cancelar Folio Fiscal / UUID"_s, .accion = CancelarUUID}}};
}

}  // namespace

ExtrasNavegador NavegadorDeFacturas() {
  return {.acciones = {BotonDeTimbrado(TimbrarFactura),
                       {.boton = 11,
                        .texto = u"Original / Copia"_s,
                        .icono = QStyle::SP_FileDialogListView,
                        .accion = Pendiente},
                       {.boton = 12,
                        .texto = u"PDF / XML"_s,
                        .icono = QStyle::SP_DialogSaveButton,
                        .accion = Exportar},
                       {.boton = 14,
                        .texto = u"Correo"_s,
                        .icono = QStyle::SP_ArrowForward,
                        .accion = Pendiente},
                       {.boton = 15,
                        .texto = u"Addenda"_s,
                        .icono = QStyle::SP_FileDialogInfoView,
                        .accion = Pendiente}},
          .panel = [](Navegador& navegador) -> QWidget* { return new Movimientos(navegador); }};
}

ExtrasNavegador NavegadorDeNotasCliente() { return {.acciones = {BotonDeTimbrado(TimbrarNota)}}; }

}  // namespace ventarix::ventas_ui
