// The tabs of the terminal settings: the point of sale, then one per printed form.
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>

#include "catalogs/ui/campos_ajustes.h"
#include "catalogs/ui/mdi_inicio_configurar.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using Estilo = CamposAjustes::Estilo;

namespace {

// The printed lines are as wide as a ticket.
constexpr int kAnchoDeRenglon = 40;

// Ten lines of COLUMNA0..COLUMNA9 in a box of their own.
QGroupBox* Renglones(CamposAjustes* campos, const QString& titulo, const QString& columna) {
  auto* caja = new QGroupBox(titulo);
  auto* forma = new QFormLayout(caja);
  for (int i = 0; i < 10; ++i) {
    campos->Texto(forma, columna + QString::number(i), QString::number(i + 1), Estilo::kMayusculas,
                  kAnchoDeRenglon);
  }
  return caja;
}

}  // namespace

QWidget* MDIInicioConfigurar::PaginaTpv() {
  auto* pagina = new QWidget;
  auto* valores = new QFormLayout;
  campos_->Texto(valores, u"PantallaPorDefaultEnTpv"_s, u"Pantalla de venta (1, 2, 3)"_s,
                 Estilo::kEntero);
  campos_->Texto(valores, u"PantallaDeCobroEnTpv"_s, u"Pantalla de cobro (1, 2, 3)"_s,
                 Estilo::kEntero);
  campos_->Catalogo(valores, u"ClientePorDefaultEnTpv"_s, u"Cliente de mostrador"_s,
                    Catalogo::kClientes, u"CLIENTES"_s);
  campos_->Catalogo(valores, u"AgenteAUtilizarParaEsteUsuario"_s, u"Agente"_s, Catalogo::kAgentes,
                    u"AGENTES"_s);
  auto* marcas = new QFormLayout;
  const std::pair<const char*, const char*> permisos[] = {
      {"MostrarVentasDelDiaEnTpv", "Mostrar las ventas del día"},
      {"PermitirCorteDeCaja", "Permitir corte de caja"},
      {"PermitirModificarPrecioEnTpv", "Permitir modificar el precio"},
      {"PermitirModificarDescuentoEnTpv", "Permitir modificar el descuento"},
      {"GuardarPrecioModificadoEnProductos", "Guardar el precio modificado en productos"},
      {"EntrarDirectamenteATpv", "Entrar directamente al punto de venta"}};
  for (const auto& [columna, titulo] : permisos) {
    campos_->Marca(marcas, QString::fromLatin1(columna), QString::fromUtf8(titulo));
  }
  auto* layout = new QHBoxLayout(pagina);
  layout->addLayout(valores, 3);
  layout->addSpacing(16);
  layout->addLayout(marcas, 2);
  return pagina;
}

QWidget* MDIInicioConfigurar::PaginaFormulario(const QString& prefijo) {
  auto* pagina = new QWidget;
  auto* valores = new QFormLayout;
  campos_->Texto(valores, prefijo + u"Serie"_s, u"Serie"_s, Estilo::kMayusculas, 10);
  campos_->Texto(valores, prefijo + u"ImpresionesEnOriginal"_s, u"Impresiones en original"_s,
                 Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"ImpresionesEnCopia"_s, u"Impresiones en copia"_s,
                 Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"FormatoOriginal"_s, u"Formato del original (0 a 5)"_s,
                 Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"FormatoCopia"_s, u"Formato de la copia (0 a 5)"_s,
                 Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"RMS"_s, u"Renglones de margen superior"_s, Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"RMI"_s, u"Renglones de margen inferior"_s, Estilo::kEntero);
  campos_->Texto(valores, prefijo + u"ImpresoraOriginal"_s, u"Impresora del original"_s,
                 Estilo::kLibre);
  campos_->Texto(valores, prefijo + u"ImpresoraCopia"_s, u"Impresora de la copia"_s,
                 Estilo::kLibre);
  campos_->Marca(valores, prefijo + u"ImprimirEnZonas"_s, u"Imprimir por zonas"_s);
  campos_->Marca(valores, prefijo + u"PreguntarPorImprimir"_s, u"Preguntar antes de imprimir"_s);
  campos_->Marca(valores, prefijo + u"AbrirCajon"_s, u"Abrir el cajón"_s);
  const QString palabra = prefijo.toLower();
  auto* layout = new QHBoxLayout(pagina);
  layout->addLayout(valores);
  layout->addWidget(Renglones(campos_, u"Encabezado"_s, palabra + u"enc"_s));
  layout->addWidget(Renglones(campos_, u"Pie"_s, palabra + u"pie"_s));
  return pagina;
}

}  // namespace ventarix
