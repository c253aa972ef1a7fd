// The menus of the main window. Entries keep their fixed index numbers (object names such as
// "mnuReg_7", "mnuRte2_3") because the users' menu mask addresses them by number; a gap in the
// numbers is a separator.
#include <vector>

#include <QAction>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>

#include "core/inicio.h"
#include "core/ui/mdi_inicio.h"

namespace ventarix {

namespace {

struct Entrada {
  int indice;
  const char* titulo;
  const char* forma;  // empty for a sub-menu, or for an entry wired by hand
  std::vector<Entrada> sub = {};
};

const std::vector<Entrada> kRegistros = {
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

const std::vector<Entrada> kCatalogos = {
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

const std::vector<Entrada> kReportes = {
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

const std::vector<Entrada> kUtilerias = {
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

// Adds the entries to the menu, named prefix_index; sub-menus name their entries after the
// parent's prefix and index ("mnuRte" 2 -> "mnuRte2_1").
void Agregar(QMenu* menu, const QString& prefijo, const std::vector<Entrada>& entradas,
             MDIInicio* ventana) {
  int anterior = 0;
  for (const Entrada& e : entradas) {
    if (anterior > 0 && e.indice > anterior + 1) menu->addSeparator();
    anterior = e.indice;
    const QString nombre = prefijo + u'_' + QString::number(e.indice);
    const QString titulo = QString::fromUtf8(e.titulo);
    if (!e.sub.empty()) {
      QMenu* sub = menu->addMenu(titulo);
      sub->setObjectName(nombre + QStringLiteral("_menu"));
      sub->menuAction()->setObjectName(nombre);
      Agregar(sub, prefijo + QString::number(e.indice), e.sub, ventana);
      continue;
    }
    QAction* accion = menu->addAction(titulo);
    accion->setObjectName(nombre);
    const QString forma = QString::fromLatin1(e.forma);
    if (!forma.isEmpty()) {
      QObject::connect(accion, &QAction::triggered, ventana,
                       [ventana, forma] { ventana->Abrir(forma); });
    }
  }
}

}  // namespace

void MDIInicio::ConstruirMenus() {
  QMenu* registros = menuBar()->addMenu(QStringLiteral("&Registros"));
  registros->setObjectName(QStringLiteral("mnuReg"));
  Agregar(registros, QStringLiteral("mnuReg"), kRegistros, this);
  QMenu* catalogos = menuBar()->addMenu(QStringLiteral("&Catálogos"));
  catalogos->setObjectName(QStringLiteral("mnuCat"));
  Agregar(catalogos, QStringLiteral("mnuCat"), kCatalogos, this);
  QMenu* reportes = menuBar()->addMenu(QStringLiteral("R&eportes"));
  reportes->setObjectName(QStringLiteral("mnuRte"));
  Agregar(reportes, QStringLiteral("mnuRte"), kReportes, this);
  QMenu* utilerias = menuBar()->addMenu(QStringLiteral("&Utilerías"));
  utilerias->setObjectName(QStringLiteral("mnuUtil"));
  Agregar(utilerias, QStringLiteral("mnuUtil"), kUtilerias, this);

  connect(findChild<QAction*>(QStringLiteral("mnuReg_24")), &QAction::triggered, this,
          &MDIInicio::AbrirTpv);
  connect(findChild<QAction*>(QStringLiteral("mnuCat_17")), &QAction::triggered, this,
          &MDIInicio::AbrirUsuarios);

  QMenu* ventanas = menuBar()->addMenu(QStringLiteral("&Ventanas"));
  ventanas->setObjectName(QStringLiteral("mnuVentanas"));
  ventanas->addAction(QStringLiteral("En &cascada"), area_, &QMdiArea::cascadeSubWindows);
  ventanas->addAction(QStringLiteral("En &mosaico"), area_, &QMdiArea::tileSubWindows);
  ventanas->addAction(QStringLiteral("Cerrar &todas"), area_, &QMdiArea::closeAllSubWindows);

  QAction* presenta = menuBar()->addAction(QStringLiteral("&Presentación"));
  presenta->setObjectName(QStringLiteral("mnuPresenta"));
  connect(presenta, &QAction::triggered, this, &MDIInicio::Recargar);
}

// The menu mask: each entry of the four masked menus follows its character; the backup and
// compaction of SQLite files mean nothing on a PostgreSQL company.
void MDIInicio::AplicarPermisos() {
  const QString permisos = inicio::Permisos(session_);
  const std::array<std::pair<const char*, inicio::BloqueMenu>, 4> bloques = {{
      {"mnuReg_", inicio::BloqueMenu::kRegistros},
      {"mnuCat_", inicio::BloqueMenu::kCatalogos},
      {"mnuRte_", inicio::BloqueMenu::kReportes},
      {"mnuUtil_", inicio::BloqueMenu::kUtilerias},
  }};
  for (const auto& [prefijo, bloque] : bloques) {
    for (int i = 1; i <= inicio::kLargoBloque; ++i) {
      auto* accion = findChild<QAction*>(QString::fromLatin1(prefijo) + QString::number(i));
      if (accion != nullptr) accion->setEnabled(inicio::EntradaHabilitada(permisos, bloque, i));
    }
  }
  if (session_.Sql) {
    findChild<QAction*>(QStringLiteral("mnuUtil_1"))->setEnabled(false);
    findChild<QAction*>(QStringLiteral("mnuUtil_2"))->setEnabled(false);
  }
  tpv_->setEnabled(findChild<QAction*>(QStringLiteral("mnuReg_24"))->isEnabled());
}

}  // namespace ventarix
