#include "sales/ui/acciones_facturas.h"

#include <QMessageBox>
#include <QTimer>

#include "core/ayuda.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/message_box.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "sales/completar_ventas.h"
#include "sales/partidas_nota_cliente.h"
#include "sales/ui/mdi_inicio_facturar.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;
using R = RejillaCaptura;

namespace {

const QString kNoExiste = u"NO EXISTE"_s;

// The rows the invoice gives, from the row `fila` down.
void TraerDeFactura(FormaCaptura& forma, int fila, const QString& factura, bool descuento,
                    const QString& codigo) {
  std::vector<QVariantMap> partidas;
  Outcome traidas;
  {
    Connection c(forma.session().Cadena);
    if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
    traidas = ventas::PartidasDeFactura(forma.session(), c, forma.Capturado(), factura, descuento,
                                        codigo, &partidas);
  }
  if (!traidas) return forma.Avisar(traidas);
  forma.TraerPartidas(partidas, fila);
}

}  // namespace

void DatosFiscales(FormaCaptura& forma) {
  captura::Documento d = forma.Capturado();
  Connection c(forma.session().Cadena, Connection::Acceso::kLectura);
  if (c.ok() && ventas::DatosFiscales(forma.session(), c, &d)) forma.Completar(d.encabezado);
}

void DatosDeNota(FormaCaptura& forma) {
  DatosFiscales(forma);
  const qint32 rango = forma.Capturado().encabezado.value(u"egreso"_s).toInt();
  Connection c(forma.session().Cadena, Connection::Acceso::kLectura);
  if (c.ok() && !ventas::RangoDeNotasConFolios(c, rango)) {
    QTimer::singleShot(0, &forma, [&forma] {
      forma.Avisar(
          Outcome::Warning(u"Se requiere el registro de folios notas de crédito"_s, u"Ingreso"_s));
    });
  }
}

void FacturarRemisiones(FormaCaptura& forma) {
  const std::optional<captura::Documento> factura =
      MDIInicioFacturar::Facturar(forma.session(), &forma);
  forma.activateWindow();
  if (factura) forma.PonerDocumento(*factura);
}

void Addenda(FormaCaptura& forma) {
  const QVariantMap& e = forma.Leido();
  if (e.value(u"esquema"_s).toString().trimmed().toUpper() == u"CFDI"_s &&
      e.value(u"uuid"_s).toString().trimmed().isEmpty()) {
    return forma.Avisar(Outcome::Warning(u"Se requiere timbrar esta factura"_s));
  }
  ui::Inform(&forma, u"Esta función aún no está disponible."_s);
}

void FacturaEscrita(FormaCaptura& forma, int fila) {
  R* grid = forma.rejilla();
  const QString factura = grid->Texto(fila, R::kFactura).toUpper();
  if (factura.isEmpty()) return grid->VaciarFila(fila);
  std::optional<QString> depto;
  {
    Connection c(forma.session().Cadena);
    if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
    depto = ventas::DeptoDeFactura(c, factura);
  }
  if (!depto) {
    grid->PonerPartida(fila, {{u"factura"_s, factura}, {u"depto"_s, kNoExiste}});
    return;
  }
  const bool devolver =
      ui::Ask(&forma, u"Dar entrada al almacén todos los productos de la factura: "_s + factura,
              QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
  forma.activateWindow();
  TraerDeFactura(forma, fila, factura, !devolver, {});
}

bool AyudaDeNota(FormaCaptura& forma, int fila, int columna) {
  R* grid = forma.rejilla();
  ayuda::ParametrosAyuda parametros;
  parametros.cliente = forma.Cliente();
  if (grid->Contenido(columna) == R::kFactura) {
    const QString factura = AbrirAyuda(forma.session(), u"FACTURAS CLIENTE"_s, &forma, parametros);
    forma.activateWindow();
    if (factura.isEmpty()) return true;
    grid->PonerPartida(fila, {{u"factura"_s, factura}});
    FacturaEscrita(forma, fila);
    return true;
  }
  const QString factura = grid->Texto(fila, R::kFactura);
  if (grid->Contenido(columna) != R::kCodigo || factura.isEmpty() ||
      grid->Texto(fila, R::kDepto) == kNoExiste) {
    return false;
  }
  parametros.factura = factura;
  const QString codigo =
      AbrirAyuda(forma.session(), u"FACTURAS CLIENTE PRODUCTOS"_s, &forma, parametros);
  forma.activateWindow();
  if (!codigo.isEmpty()) TraerDeFactura(forma, fila, factura, false, codigo);
  return true;
}

}  // namespace ventarix::ventas_ui
