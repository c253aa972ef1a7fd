// The browser's two dialogs over its view: the filter of the grid's columns and, for
// administrators, the view editor.
#include <QTableView>

#include "core/browse_format.h"
#include "core/mBrowse.h"
#include "core/ui/browse_model.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/mdi_inicio_filtrar.h"
#include "core/ui/mdi_inicio_formato.h"
#include "core/ui/navegador.h"

namespace ventarix {

void Navegador::Filtrar() {
  // The dialog opens with the texts of the filter in force.
  const std::vector<mBrowse::ColumnaVista>& columnas = modelo_->columnas();
  QStringList previos;
  for (const mBrowse::ColumnaVista& columna : columnas) {
    QString texto;
    for (const auto& [nombre, escrito] : busqueda_.filtro) {
      if (nombre.compare(columna.nombre, Qt::CaseInsensitive) == 0) texto = escrito;
    }
    previos << texto;
  }
  MDIInicioFiltrar filtro(session_, columnas, previos, this);
  if (filtro.exec() != QDialog::Accepted) return;
  mBrowse::Busqueda nueva;
  const QStringList textos = filtro.textos();
  for (qsizetype i = 0; i < textos.size() && i < static_cast<qsizetype>(columnas.size()); ++i) {
    if (!textos.at(i).isEmpty()) {
      nueva.filtro.append({columnas[static_cast<size_t>(i)].nombre, textos.at(i)});
    }
  }
  AplicarBusqueda(nueva, true);
}

// The view editor is for administrators, after their password: the administrator's of the
// start-up (the last one read) or, where a company has several, the user's own.
void Navegador::Formato() {
  if (!session_.Administrador) return;
  if (!session_.ContrasenaAdministrador.isEmpty()) {
    QStringList claves{session_.ContrasenaAdministrador};
    if (!session_.Contrasena.isEmpty()) claves << session_.Contrasena;
    if (!MDIInicioAutorizacion::Autorizar(session_, QStringLiteral("Contraseña para seguridad"),
                                          claves, this)) {
      return;
    }
  }
  // The columns the browser itself works with must stay in any statement an administrator
  // writes.
  std::vector<mBrowse::ColumnaRequerida> requeridas;
  for (const char* llave : familia_.llave) {
    const int c = modelo_->ColumnaDe(QString::fromUtf8(llave));
    if (c >= 0) requeridas.push_back({modelo_->columnas()[c].nombre, modelo_->columnas()[c].tipo});
  }
  MDIInicioFormato formato(session_, vista_.Tabla, requeridas, this);
  if (formato.exec() == QDialog::Accepted) CargarVista();
}

}  // namespace ventarix
