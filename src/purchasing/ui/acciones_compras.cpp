#include "purchasing/ui/acciones_compras.h"

#include <QFileDialog>

#include "core/ayuda.h"
#include "core/ui/abrir_ayuda.h"
#include "documents/captura_partida.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "purchasing/importar_cfdi.h"
#include "purchasing/partidas_orden.h"

namespace ventarix::compras_ui {

using namespace Qt::StringLiterals;

namespace {

// The first empty row, where what comes in starts.
int PrimeraLibre(const RejillaCaptura& rejilla) {
  for (int fila = 0; fila < rejilla.rowCount(); ++fila) {
    if (rejilla.Codigo(fila).isEmpty()) return fila;
  }
  return rejilla.rowCount();
}

}  // namespace

void AplicarOrden(FormaCaptura& forma) {
  if (forma.Cliente() == 0) {
    return forma.Avisar(Outcome::Warning(
        u"Se requiere un proveedor para mostrar ordenes de compra"_s, u"Datos1"_s));
  }
  ayuda::ParametrosAyuda parametros;
  parametros.proveedor = forma.Cliente();
  const QString orden = AbrirAyuda(forma.session(), u"ORDENESCOMPRA"_s, &forma, parametros);
  forma.activateWindow();
  if (orden.isEmpty()) return;
  Connection c(forma.session().Cadena, Connection::Acceso::kLectura);
  if (!c.ok()) return forma.Avisar(Outcome::Stop(c.error()));
  forma.TraerPartidas(compras::PartidasDeOrden(c, orden), PrimeraLibre(*forma.rejilla()));
}

void ImportarFactura(FormaCaptura& forma) {
  const QString archivo = QFileDialog::getOpenFileName(&forma, u"Importar Productos"_s, {},
                                                       u"Archivos XML (*.xml)"_s);
  if (archivo.isEmpty()) return;
  const compras::FacturaDeProveedor leida = compras::LeerFacturaDeProveedor(archivo);
  if (!leida.outcome) return forma.Avisar(leida.outcome);
  // Every row is found (or added) before any reaches the grid, after the rows already there.
  std::vector<QVariantMap> partidas;
  for (const QVariantMap& p : forma.rejilla()->Partidas()) {
    if (!p.value(u"codigo"_s).toString().isEmpty()) partidas.push_back(p);
  }
  for (const QVariantMap& renglon : leida.partidas) {
    QString codigo = renglon.value(u"codigo"_s).toString();
    const double cantidad = renglon.value(u"cantidad"_s).toDouble();
    captura::PartidaHallada hallada = captura::BuscarPartida(
        forma.session(), forma.pantalla().familia, forma.Capturado(), codigo, cantidad);
    if (!hallada.existe) {
      codigo = forma.OfrecerProducto(codigo);
      if (codigo.isEmpty()) return;
      hallada = captura::BuscarPartida(forma.session(), forma.pantalla().familia,
                                       forma.Capturado(), codigo, cantidad);
      if (!hallada.existe) return;
    }
    if (!hallada.outcome) return forma.Avisar(hallada.outcome);
    hallada.partida.insert(u"precio"_s, renglon.value(u"precio"_s));
    partidas.push_back(hallada.partida);
  }
  forma.PonerDocumento({.encabezado = {{u"factura"_s, leida.Factura()}}, .partidas = partidas});
}

}  // namespace ventarix::compras_ui
