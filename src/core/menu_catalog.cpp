#include "core/menu_catalog.h"

#include <algorithm>
#include <cstring>

namespace ventarix::menus {

const std::vector<EntradaMenu>& Registros() {
  static const std::vector<EntradaMenu> kEntradas = {
      {1, "Órdenes de &compra", "FrmOrdenesCompra"},
      {2, "Co&mpras", "FrmCompras"},
      {3, "Contra&recibos", "FrmContraRecibos"},
      {5, "Co&tizaciones", "FrmCotizaciones"},
      {6, "&Pedidos", "FrmPedidos"},
      {7, "R&emisiones", "FrmRemisiones"},
      {8, "&Facturas", "FrmFacturas"},
      {10, "Pro&ducción", "FrmProduccion"},
      {12, "Tr&aspasos", "FrmTraspasos"},
      {14, "Cuentas por cobrar", "FrmCxC"},
      {15, "Cuentas por pagar", "FrmCxP"},
      {17, "Notas de crédito a clientes", "FrmNotasCliente"},
      {18, "Notas de crédito de proveedores", "FrmNotasProveedor"},
      {20, "&Licitaciones", "FrmLicitaciones"},
      {22, "A&justes de inventario", "FrmAjustes"},
      {24, "Punto de &venta", ""},
  };
  return kEntradas;
}

const std::vector<EntradaMenu>& Catalogos() {
  static const std::vector<EntradaMenu> kEntradas = {
      {1, "&Clientes", "FrmClientes"},
      {2, "&Agentes", "FrmAgentes"},
      {3, "&Proveedores", "FrmProveedores"},
      {5, "&Marcas", "FrmMarcas"},
      {6, "&Líneas", "FrmLineas"},
      {8, "P&roductos", "FrmProductos"},
      {10, "&Bancos", "FrmBancos"},
      {12, "&Folios de facturas", "FrmFoliosFacturas"},
      {13, "Folios de &notas", "FrmFoliosNotas"},
      {15, "&Diseñar", "FrmReporte"},
      {17, "&Usuarios", ""},
  };
  return kEntradas;
}

const std::vector<EntradaMenu>& Reportes() {
  static const std::vector<EntradaMenu> kEntradas = {
      {1, "Órdenes de compra", "rptOrdenesCompra"},
      {2,
       "Compras",
       "",
       {{1, "Compras", "rptCompras"},
        {3, "Proyección de pagos", "rptProyeccionPagos"},
        {4, "Vencimiento de pagos", "rptVencimientoPagos"},
        {6, "Productos comprados", "rptProductosComprados"}}},
      {3, "Contrarecibos", "rptContraRecibos"},
      {6, "Pedidos", "rptPedidos"},
      {7,
       "Remisiones",
       "",
       {{1, "Remisiones por cliente", "rptRemisionesClientes"},
        {2, "Remisiones por agente", "rptRemisionesAgentes"}}},
      {8,
       "Ventas",
       "",
       {{1, "Ventas por cliente", "rptVentasClientes"},
        {2, "Ventas por agente", "rptVentasAgentes"},
        {3, "Ventas por marca", "rptVentasMarcas"},
        {5, "Proyección de cobranza", "rptProyeccionCobranza"},
        {6, "Vencimiento de cobranza", "rptVencimientoCobranza"},
        {8, "Productos vendidos", "rptProductosVendidos"},
        {10, "Antigüedad de saldos", "rptAntiguedadSaldos"},
        {12, "Informe SAT", "rptInforme"}}},
      {14,
       "Cuentas por cobrar",
       "",
       {{1, "Cuentas por cobrar", "rptCxC"}, {2, "Facturas entregadas", "rptFacturasEntregadas"}}},
      {15, "Cuentas por pagar", "rptCxP"},
      {17, "Notas de crédito a clientes", "rptNotasClientes"},
      {18, "Notas de crédito de proveedores", "rptNotasProveedores"},
      {20,
       "Inventario",
       "",
       {{1, "Costo del inventario", "rptCostoInventario"},
        {3, "Movimientos de inventario", "rptMvtosInventario"},
        {5, "Productos obsoletos", "rptObsoletosProductos"},
        {6, "Obsoletos LPA", "rptObsoletosLpa"}}},
      {22, "Documentos", "RteDocumentos2"},
  };
  return kEntradas;
}

const std::vector<EntradaMenu>& Utilerias() {
  static const std::vector<EntradaMenu> kEntradas = {
      {1, "&Respaldar la base de datos", "MDIInicioGuardar"},
      {2, "&Compactar la base de datos", "MDIInicioCompactar"},
      {4,
       "&Mantenimiento",
       "",
       {{1, "Recalcular existencias y periodos", "MDIInicioManto1"},
        {2, "Recalcular saldos y status", "MDIInicioManto2"},
        {4, "Actualizar costos", "MDIInicioCostos"},
        {5, "Actualizar precios netos", "MDIInicioNetos"},
        {7, "Imágenes de productos", "MDIInicioBarrido"}}},
      {6, "Archivo &LPA", "MDIInicioLpa"},
      {7, "Productos &obsoletos", "MDIInicioObsoletos"},
      {9, "Con&figuración", "MDIInicioConfigurar"},
      {11, "&Empresa", "MDIInicioEmpresa"},
  };
  return kEntradas;
}

const std::vector<EntradaMenu>& Bloque(inicio::BloqueMenu bloque) {
  switch (bloque) {
    case inicio::BloqueMenu::kRegistros:
      return Registros();
    case inicio::BloqueMenu::kCatalogos:
      return Catalogos();
    case inicio::BloqueMenu::kReportes:
      return Reportes();
    case inicio::BloqueMenu::kUtilerias:
      break;
  }
  return Utilerias();
}

bool FormaPermitida(const Session& session, const char* forma) {
  const auto abre = [forma](const EntradaMenu& entrada) {
    if (std::strcmp(entrada.forma, forma) == 0) return true;
    return std::any_of(entrada.sub.begin(), entrada.sub.end(), [forma](const EntradaMenu& sub) {
      return std::strcmp(sub.forma, forma) == 0;
    });
  };
  for (const inicio::BloqueMenu bloque :
       {inicio::BloqueMenu::kRegistros, inicio::BloqueMenu::kCatalogos,
        inicio::BloqueMenu::kReportes, inicio::BloqueMenu::kUtilerias}) {
    for (const EntradaMenu& entrada : Bloque(bloque)) {
      if (abre(entrada)) {
        return inicio::EntradaHabilitada(inicio::Permisos(session), bloque, entrada.indice);
      }
    }
  }
  return false;
}

}  // namespace ventarix::menus
