#include "purchasing/ui/pantallas_proveedor.h"

#include <QInputDialog>

#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "purchasing/familias_proveedor.h"

namespace ventarix {

namespace compras_ui {

using namespace Qt::StringLiterals;
using captura_ui::Campo;

// The purchase the goods came with: asked once and written on every row of a product that
// names none yet. The save checks that it is the supplier's.
void CompraDeLaNota(FormaCaptura& forma) {
  bool aceptado = false;
  const QString compra =
      QInputDialog::getText(&forma, QString::fromLatin1(ui::kTitulo), u"Compra del proveedor"_s,
                            QLineEdit::Normal, QString(), &aceptado)
          .trimmed()
          .toUpper();
  if (!aceptado || compra.isEmpty()) return;
  RejillaCaptura* grid = forma.rejilla();
  for (int fila = 0; fila < grid->rowCount(); ++fila) {
    if (grid->Codigo(fila).isEmpty() ||
        !grid->Partida(fila).value(u"compra"_s).toString().isEmpty()) {
      continue;
    }
    grid->PonerPartida(fila, {{u"compra"_s, compra}});
  }
  grid->setFocus();
}

const captura_ui::Pantalla& OrdenesCompra() {
  static const captura_ui::Pantalla p{
      .familia = compras::OrdenesCompra(),
      .alta = "FrmOrdenesCompraA",
      .cambio = "FrmOrdenesCompraC",
      .titulo = "ORDENES DE COMPRA",
      .tipos = {u"DIRECTA"_s, u"PEDIDO"_s, u"CONSIGNACION"_s},
      .datos =
          {{.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
           {.indice = 1, .columna = "proveedor", .titulo = "Proveedor", .campo = Campo::kProveedor},
           {.indice = 3, .columna = "plazo", .titulo = "Plazo", .campo = Campo::kNumero},
           {.indice = 20, .columna = "referencia", .titulo = "Referencia"},
           {.indice = 5, .columna = "obs", .titulo = "Observaciones"}},
      .con_surtir = true,
      .fuente = nullptr,
  };
  return p;
}

// Each row names the purchase whose goods go back or whose price is lowered.
const captura_ui::Pantalla& NotasProveedor() {
  static const captura_ui::Pantalla p{
      .familia = compras::NotasProveedor(),
      .alta = "FrmNotasProveedorA",
      .cambio = "FrmNotasProveedorC",
      .titulo = "NOTAS DE CREDITO PROVEEDOR",
      .tipos = {u"DEVOLUCION"_s, u"DESCUENTO"_s},
      .datos =
          {{.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
           {.indice = 1, .columna = "proveedor", .titulo = "Proveedor", .campo = Campo::kProveedor},
           {.indice = 2,
            .columna = "nota proveedor",
            .titulo = "Nota del proveedor",
            .longitud = 20},
           {.indice = 5, .columna = "obs", .titulo = "Observaciones"}},
      .acciones = {{.nombre = "Compra", .texto = "C&ompra", .hacer = CompraDeLaNota}},
      .fuente = "compra",
      .titulo_fuente = "Compra",
  };
  return p;
}

}  // namespace compras_ui

void RegistrarDocumentosProveedor(FormRegistry& registry) {
  for (const captura_ui::Pantalla* p :
       {&compras_ui::OrdenesCompra(), &compras_ui::NotasProveedor()}) {
    for (const bool cambio : {false, true}) {
      registry.Add(QLatin1String(cambio ? p->cambio : p->alta),
                   [p, cambio](Session& session, const QString& llave) -> QWidget* {
                     return new FormaCaptura(session, *p, cambio, llave);
                   });
    }
  }
}

}  // namespace ventarix
