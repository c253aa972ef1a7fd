// The menus of the main window. Entries keep their fixed index numbers (object names such as
// "mnuReg_7", "mnuRte2_3") because the users' menu mask addresses them by number; a gap in the
// numbers is a separator.
#include <vector>

#include <QAction>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>

#include "core/inicio.h"
#include "core/menu_catalog.h"
#include "core/ui/mdi_inicio.h"

namespace ventarix {

namespace {

// Adds the entries to the menu, named prefix_index; sub-menus name their entries after the
// parent's prefix and index ("mnuRte" 2 -> "mnuRte2_1").
void Agregar(QMenu* menu, const QString& prefijo, const std::vector<menus::EntradaMenu>& entradas,
             MDIInicio* ventana) {
  int anterior = 0;
  for (const menus::EntradaMenu& e : entradas) {
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
  Agregar(registros, QStringLiteral("mnuReg"), menus::Registros(), this);
  QMenu* catalogos = menuBar()->addMenu(QStringLiteral("&Catálogos"));
  catalogos->setObjectName(QStringLiteral("mnuCat"));
  Agregar(catalogos, QStringLiteral("mnuCat"), menus::Catalogos(), this);
  QMenu* reportes = menuBar()->addMenu(QStringLiteral("R&eportes"));
  reportes->setObjectName(QStringLiteral("mnuRte"));
  Agregar(reportes, QStringLiteral("mnuRte"), menus::Reportes(), this);
  QMenu* utilerias = menuBar()->addMenu(QStringLiteral("&Utilerías"));
  utilerias->setObjectName(QStringLiteral("mnuUtil"));
  Agregar(utilerias, QStringLiteral("mnuUtil"), menus::Utilerias(), this);

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
