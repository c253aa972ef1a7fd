#include "purchasing/ui/etiqueta_compra.h"

#include <QLocale>
#include <QPainter>

#include "purchasing/codigo39.h"

namespace ventarix::compras_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double kAncho = 2.5;  // a wide element is 2.5 narrow ones

// The bars fill the width; a narrow element never goes below one device pixel's width.
void PintarBarras(QPainter& painter, const QRectF& caja, const QString& elementos) {
  double unidades = 0;
  for (const QChar e : elementos) unidades += e == u'w' ? kAncho : 1;
  const double angosto = caja.width() / unidades;
  double x = caja.left();
  for (int i = 0; i < elementos.size(); ++i) {
    const double ancho = elementos[i] == u'w' ? angosto * kAncho : angosto;
    // Bars at the even positions of each character of ten (nine elements and the gap).
    if (i % 10 % 2 == 0 && i % 10 != 9) {
      painter.fillRect(QRectF(x, caja.top(), ancho, caja.height()), Qt::black);
    }
    x += ancho;
  }
}

}  // namespace

bool PintarEtiqueta(QPainter& painter, const QRectF& caja, const QString& codigo,
                    const QString& producto, const QDate& fecha) {
  const std::optional<QString> barras = compras::Codigo39(codigo);
  if (!barras) return false;
  const double alto = caja.height();
  const QRectF zona_barras(caja.left(), caja.top(), caja.width(), alto * 0.5);
  PintarBarras(painter, zona_barras, *barras);
  painter.setPen(Qt::black);
  const double renglon = alto * 0.5 / 3;
  QRectF texto(caja.left(), zona_barras.bottom(), caja.width(), renglon);
  painter.drawText(texto, Qt::AlignCenter, codigo.toUpper());
  texto.translate(0, renglon);
  painter.drawText(
      texto, Qt::AlignCenter | Qt::TextSingleLine,
      painter.fontMetrics().elidedText(producto, Qt::ElideRight, static_cast<int>(caja.width())));
  texto.translate(0, renglon);
  painter.drawText(texto, Qt::AlignCenter,
                   QLocale(QLocale::Spanish, QLocale::Mexico).toString(fecha, u"dd MMM yyyy"_s));
  return true;
}

}  // namespace ventarix::compras_ui
