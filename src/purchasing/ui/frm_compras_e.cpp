#include "purchasing/ui/frm_compras_e.h"

#include <cmath>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/dialect.h"
#include "documents/captura.h"
#include "purchasing/familia_compras.h"
#include "purchasing/ui/etiqueta_compra.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FrmComprasE::FrmComprasE(Session& session, const QString& compra, QWidget* parent)
    : QDialog(parent), fg1_(new QTableWidget(0, 3, this)) {
  setObjectName(u"FrmComprasE"_s);
  setWindowTitle(u"COMPRAS - ETIQUETAS "_s + compra);
  fg1_->setObjectName(u"Fg1"_s);
  fg1_->setHorizontalHeaderLabels({u"Código"_s, u"Producto"_s, u"Cantidad"_s});
  fg1_->verticalHeader()->hide();
  fg1_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  const captura::Leido leido = captura::LeerDocumento(session, compras::Compras(), compra);
  fecha_ = dialect::ReadDate(leido.documento.encabezado.value(u"fecha"_s)).date();
  for (const QVariantMap& p : leido.documento.partidas) {
    const int fila = fg1_->rowCount();
    fg1_->insertRow(fila);
    auto* codigo = new QTableWidgetItem(p.value(u"codigo"_s).toString());
    auto* producto = new QTableWidgetItem(p.value(u"descripcion"_s).toString());
    codigo->setFlags(codigo->flags() & ~Qt::ItemIsEditable);
    producto->setFlags(producto->flags() & ~Qt::ItemIsEditable);
    auto* cantidad =
        new QTableWidgetItem(QString::number(p.value(u"cantidad"_s).toDouble(), 'f', 2));
    cantidad->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fg1_->setItem(fila, 0, codigo);
    fg1_->setItem(fila, 1, producto);
    fg1_->setItem(fila, 2, cantidad);
  }
  auto* imprimir = new QPushButton(u"&Imprimir"_s, this);
  imprimir->setObjectName(u"Imprimir"_s);
  auto* salir = new QPushButton(u"&Salir"_s, this);
  salir->setObjectName(u"Salir"_s);
  connect(imprimir, &QPushButton::clicked, this, &FrmComprasE::ElegirImpresora);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(imprimir);
  botones->addWidget(salir);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fg1_);
  layout->addLayout(botones);
  resize(640, 360);
}

void FrmComprasE::ElegirImpresora() {
  QPrinter impresora;
  QPrintDialog dialogo(&impresora, this);
  if (dialogo.exec() != QDialog::Accepted) return;
  Imprimir(impresora);
}

void FrmComprasE::Imprimir(QPagedPaintDevice& dispositivo) const {
  QPainter painter(&dispositivo);
  const QRectF pagina(0, 0, dispositivo.width(), dispositivo.height());
  // Labels of about 6 x 3 cm in rows across the page.
  const double ancho = 6.0 / 2.54 * dispositivo.logicalDpiX();
  const double alto = 3.0 / 2.54 * dispositivo.logicalDpiY();
  const int columnas = std::max(1, static_cast<int>(pagina.width() / ancho));
  const int renglones = std::max(1, static_cast<int>(pagina.height() / alto));
  int lugar = 0;
  for (int fila = 0; fila < fg1_->rowCount(); ++fila) {
    const int copias = static_cast<int>(std::lround(fg1_->item(fila, 2)->text().toDouble()));
    for (int i = 0; i < copias; ++i) {
      if (lugar == columnas * renglones) {
        dispositivo.newPage();
        lugar = 0;
      }
      const QRectF caja((lugar % columnas) * ancho, (lugar / columnas) * alto, ancho, alto);
      compras_ui::PintarEtiqueta(
          painter, caja.adjusted(ancho * 0.06, alto * 0.08, -ancho * 0.06, -alto * 0.08),
          fg1_->item(fila, 0)->text(), fg1_->item(fila, 1)->text(), fecha_);
      ++lugar;
    }
  }
}

}  // namespace ventarix
