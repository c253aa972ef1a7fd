// The tabs of the company screen, one builder each; every field is bound to its column.
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogs/empresa_cuentas.h"
#include "catalogs/ui/campos_ajustes.h"
#include "catalogs/ui/mdi_inicio_empresa.h"
#include "core/ui/campo_captura.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using Estilo = CamposAjustes::Estilo;

namespace {

// The ten lines of a fiscal address, under the prefix of its columns.
void Domicilio(CamposAjustes* campos, QFormLayout* forma, const QString& prefijo) {
  campos->Texto(forma, prefijo + u"Calle"_s, u"Calle"_s);
  campos->Texto(forma, prefijo + u"NoExterior"_s, u"No. Exterior"_s);
  campos->Texto(forma, prefijo + u"NoInterior"_s, u"No. Interior"_s);
  campos->Texto(forma, prefijo + u"Colonia"_s, u"Colonia"_s);
  campos->Texto(forma, prefijo + u"Localidad"_s, u"Localidad"_s);
  campos->Texto(forma, prefijo + u"Referencia"_s, u"Referencia"_s);
  campos->Texto(forma, prefijo + u"Municipio"_s, u"Municipio"_s);
  campos->Texto(forma, prefijo + u"Estado"_s, u"Estado"_s);
  campos->Texto(forma, prefijo + u"Pais"_s, u"País"_s);
  campos->Texto(forma, prefijo + u"CodigoPostal"_s, u"Código Postal"_s, Estilo::kMayusculas, 5);
}

}  // namespace

QWidget* MDIInicioEmpresa::PaginaEmpresa() {
  auto* pagina = new QWidget;
  auto* forma = new QFormLayout(pagina);
  campos_->Texto(forma, u"Rfc"_s, u"R.F.C."_s, Estilo::kMayusculas, 13);
  campos_->Texto(forma, u"Empresa"_s, u"Nombre comercial"_s);
  campos_->Texto(forma, u"Nombre"_s, u"Razón social"_s);
  Domicilio(campos_, forma, QString());
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaExpedidoEn() {
  auto* pagina = new QWidget;
  auto* forma = new QFormLayout(pagina);
  Domicilio(campos_, forma, u"ExpedidoEn"_s);
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaContacto() {
  auto* pagina = new QWidget;
  auto* forma = new QFormLayout(pagina);
  campos_->Texto(forma, u"Telefonos"_s, u"Teléfonos"_s);
  campos_->Texto(forma, u"Email"_s, u"E-mail"_s, Estilo::kMinusculas);
  campos_->Texto(forma, u"PaginaWeb"_s, u"Página web"_s, Estilo::kMinusculas);
  // The three lines a contra-receipt prints for the supplier.
  campos_->Texto(forma, u"Revision"_s, u"Días de revisión"_s);
  campos_->Texto(forma, u"Pagos"_s, u"Días de pago"_s);
  campos_->Texto(forma, u"RealizarPago"_s, u"Lugar de pago"_s);
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaReglas() {
  auto* pagina = new QWidget;
  auto* valores = new QFormLayout;
  campos_->Texto(valores, u"Impuesto"_s, u"Impuesto %"_s, Estilo::kDecimal);
  campos_->Texto(valores, u"Moneda"_s, u"Moneda"_s, Estilo::kMayusculas, 3);
  campos_->Texto(valores, u"Obsoletos"_s, u"Título de obsoletos"_s, Estilo::kLibre);
  campos_->Texto(valores, u"Respaldar"_s, u"Respaldar"_s, Estilo::kEntero);
  auto* marcas = new QFormLayout;
  const std::pair<const char*, const char*> reglas[] = {
      {"Aplicar_Retenciones", "Aplicar retenciones en facturas"},
      {"Aplicar_Utilidad_Financiera", "Aplicar utilidad financiera"},
      {"Aplicar_Utilidad_Aritmetica", "Aplicar utilidad aritmética"},
      {"Aplicar_Utilidades_De_Marcas_En_Productos", "Aplicar utilidades de marcas en productos"},
      {"EnCompras_Modificar_Costos_y_Precios", "En compras modificar costos y precios"},
      {"EnCompras_Modificar_Al_Ultimo_Costo", "En compras modificar al último costo"},
      {"EnCompras_Modificar_Al_Costo_Mas_Alto", "En compras modificar al costo más alto"},
      {"Utilizar_Consecutivo_En_Codigo", "Utilizar consecutivo en código"},
      {"Utilizar_Mayusculas", "Utilizar mayúsculas"},
      {"Guardar_Sin_Existencias", "Guardar sin existencias"},
      {"ImprimirEncabezados", "Imprimir encabezados en reportes"},
      {"Tallas", "Tallas en facturas"}};
  for (const auto& [columna, titulo] : reglas) {
    campos_->Marca(marcas, QString::fromLatin1(columna), QString::fromUtf8(titulo));
  }
  auto* layout = new QHBoxLayout(pagina);
  layout->addLayout(valores, 1);
  layout->addSpacing(16);
  layout->addLayout(marcas, 1);
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaCorreo() {
  auto* pagina = new QWidget;
  auto* forma = new QFormLayout(pagina);
  combo_ = new QComboBox;
  combo_->setObjectName(u"Combo"_s);
  combo_->addItem(u"Otro servidor"_s);
  for (const empresa::CorreoPredefinido& correo : empresa::CorreosPredefinidos()) {
    combo_->addItem(correo.nombre);
  }
  forma->addRow(u"Proveedor"_s, combo_);
  CampoCaptura* servidor =
      campos_->Texto(forma, u"ServidorSMTP"_s, u"Servidor SMTP"_s, Estilo::kMinusculas);
  campos_->Texto(forma, u"PuertoSMTP"_s, u"Puerto"_s, Estilo::kLibre, 5);
  campos_->Texto(forma, u"De"_s, u"Remitente"_s, Estilo::kMinusculas);
  campos_->Texto(forma, u"Password"_s, u"Contraseña"_s, Estilo::kClave);
  campos_->Marca(forma, u"Autenticacion"_s, u"El servidor requiere autenticación"_s);
  connect(combo_, &QComboBox::activated, this, &MDIInicioEmpresa::ComboActivated);
  connect(servidor, &CampoCaptura::Dejado, this, &MDIInicioEmpresa::ReconocerCorreo);
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaTimbrado() {
  auto* pagina = new QWidget;
  auto* forma = new QFormLayout(pagina);
  campos_->Texto(forma, u"PacUsuario"_s, u"Usuario del PAC"_s, Estilo::kLibre);
  campos_->Texto(forma, u"PacPassword"_s, u"Contraseña del PAC"_s, Estilo::kClave);
  campos_->Marca(forma, u"PacProduccion"_s, u"Timbrar en producción"_s);
  // Empty addresses are the provider's published ones; a training company may point its test
  // address at the stand-in PAC of this installation.
  for (const auto& [nombre, titulo] :
       {std::pair{u"PacUrlPruebas"_s, u"Dirección de pruebas"_s},
        std::pair{u"PacUrlProduccion"_s, u"Dirección de producción"_s}}) {
    campos_->Texto(forma, nombre, titulo, Estilo::kLibre)
        ->setPlaceholderText(u"La publicada por el PAC"_s);
  }
  prueba_ = BotonDeCaptura("Cuenta de &prueba", "Prueba", this);
  forma->addRow(QString(), prueba_);
  connect(prueba_, &QPushButton::clicked, this, &MDIInicioEmpresa::PruebaClicked);
  return pagina;
}

QWidget* MDIInicioEmpresa::PaginaLogotipo() {
  auto* pagina = new QWidget;
  image1_ = new QLabel;
  image1_->setObjectName(u"Image1"_s);
  image1_->setFixedSize(240, 160);
  image1_->setAlignment(Qt::AlignCenter);
  image1_->setFrameShape(QFrame::Panel);
  image1_->setFrameShadow(QFrame::Sunken);
  tamano_ = new QLabel;
  tamano_->setObjectName(u"Tamano"_s);
  agregar_ = BotonDeCaptura("&Agregar", "Agregar", this);
  connect(agregar_, &QPushButton::clicked, this, &MDIInicioEmpresa::AgregarClicked);
  auto* imagen = new QVBoxLayout;
  imagen->addWidget(image1_);
  imagen->addWidget(tamano_);
  imagen->addStretch();
  auto* lado = new QVBoxLayout;
  lado->addWidget(agregar_);
  lado->addStretch();
  auto* layout = new QHBoxLayout(pagina);
  layout->addLayout(imagen);
  layout->addLayout(lado);
  layout->addStretch();
  return pagina;
}

}  // namespace ventarix
