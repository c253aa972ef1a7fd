#include "catalogs/ui/productos_campos.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "catalogs/productos_codigos.h"
#include "catalogs/ui/etiqueta_status.h"
#include "catalogs/ui/grid_lista.h"
#include "catalogs/ui/grid_niveles.h"
#include "core/catalogo_nombre.h"
#include "core/mFunciones_valores.h"
#include "core/round_half_even.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

struct Definicion {
  const char* nombre;
  const char* titulo;
  int decimales;
  int largo;
};

// Datos 0 to 18 in save order. Marca and Linea are catalogue fields of their own.
constexpr std::array<Definicion, CamposDeProducto::kDatos> kDefiniciones = {{
    {"Codigo", "&Código:", 0, 20},
    {"Producto", "&Producto:", 0, 60},
    {"Unidad", "&Unidad:", 0, 10},
    {"Marca", "&Marca:", 0, 6},
    {"Linea", "&Línea:", 0, 6},
    {"Ubicacion", "U&bicación:", 0, 20},
    {"Precio", "P&recio neto:", 4, 16},
    {"Impuesto", "&Impuesto %:", 2, 8},
    {"Costo", "C&osto:", 4, 16},
    {"Venta", "&Venta:", 4, 16},
    {"Comision", "Comi&sión %:", 2, 8},
    {"Descuento", "&Descuento %:", 2, 8},
    {"Min", "Mí&nimo:", 2, 12},
    {"Max", "Má&ximo:", 2, 12},
    {"Zona", "&Zona:", 0, 6},
    {"Descripcion", "Descripció&n:", 0, 250},
    {"Codigo1", "Código alterno &1:", 0, 20},
    {"Codigo2", "Código alterno &2:", 0, 20},
    {"Codigo3", "Código alterno &3:", 0, 20},
}};

QString Texto(const char* texto) { return QString::fromUtf8(texto); }

QLabel* Resultado(QDialog* forma, const QString& nombre) {
  auto* etiqueta = new QLabel(forma);
  etiqueta->setObjectName(nombre);
  etiqueta->setFrameShape(QFrame::Panel);
  etiqueta->setFrameShadow(QFrame::Sunken);
  etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return etiqueta;
}

}  // namespace

CamposDeProducto::CamposDeProducto(QDialog* forma, const Session& session, bool alta) {
  marca = new CampoCatalogo(session, Catalogo::kMarcas, forma);
  linea = new CampoCatalogo(session, Catalogo::kLineas, forma);
  for (int i = 0; i < kDatos; ++i) {
    const Definicion& d = kDefiniciones[i];
    CampoCaptura* campo = i == kMarca   ? marca->campo()
                          : i == kLinea ? linea->campo()
                                        : new CampoCaptura(session, forma);
    campo->setObjectName(QString::fromLatin1(d.nombre));
    campo->setMaxLength(d.largo);
    if (d.decimales > 0) {
      campo->setDecimales(d.decimales);
      campo->setMinimumWidth(campo->fontMetrics().horizontalAdvance(u"0,000,000.0000"_s) + 12);
    } else if (i != kMarca && i != kLinea) {
      campo->setMayusculas();
    }
    Datos[i] = campo;
  }
  marca->nombre()->setObjectName(u"NombreMarca"_s);
  linea->nombre()->setObjectName(u"NombreLinea"_s);
  moneda = new QComboBox(forma);
  moneda->setObjectName(u"Moneda"_s);
  moneda->addItems({u"MXN"_s, u"USD"_s, u"EUR"_s});
  pt = new QCheckBox(u"Producto &terminado"_s, forma);
  pt->setObjectName(u"pt"_s);
  utilidad = Resultado(forma, u"Utilidad"_s);
  impuesto = Resultado(forma, u"ImpuestoDinero"_s);
  status = new EtiquetaStatus(!alta, forma);

  fg1 = new GridNiveles(forma);
  fg2 = new GridLista(
      {u"Cliente"_s, u"Nombre"_s, u"Precio $"_s},
      [&session](const QString& clave) {
        const auto fila = LeerCatalogo(session, Catalogo::kClientes,
                                       static_cast<qint32>(mFunciones::ValorNumerico(clave)));
        return fila ? fila->Text(u"nombre"_s) : QString();
      },
      4, forma);
  fg2->setObjectName(u"Fg2"_s);
  fg2->setMinimumHeight(140);
  fg3 = new GridLista(
      {u"Código"_s, u"Material"_s, u"Cantidad"_s},
      [&session](const QString& clave) { return productos::NombreDeProducto(session, clave); }, 4,
      forma);
  fg3->setObjectName(u"Fg3"_s);
  fg3->setMinimumHeight(140);
  lbl_precios = new QLabel(forma);
  lbl_precios->setObjectName(u"LblPrecios"_s);
  lbl_consumos = new QLabel(forma);
  lbl_consumos->setObjectName(u"LblConsumos"_s);

  // The screen reads down the general column, then down the prices column to the levels,
  // then across the two lists; Enter walks the fields in that same order.
  QList<QWidget*> orden;
  auto fila = [this, &orden](QFormLayout* columna, int i) {
    QWidget* contenido = Datos[i];
    if (i == kMarca) contenido = marca;
    if (i == kLinea) contenido = linea;
    columna->addRow(Texto(kDefiniciones[i].titulo), contenido);
    orden << Datos[i];
  };
  auto* generales = new QFormLayout;
  for (int i : {kCodigo, kProducto, kDescripcion, kUnidad, kMarca, kLinea, kUbicacion, kZona,
                kCodigo1, kCodigo2, kCodigo3}) {
    fila(generales, i);
  }
  generales->addRow(u"Mone&da:"_s, moneda);
  generales->addRow(QString(), pt);
  generales->addRow(u"Status:"_s, status);
  orden << moneda << pt;

  auto* precios = new QFormLayout;
  for (int i : {kPrecio, kImpuesto, kCosto, kVenta}) fila(precios, i);
  precios->addRow(u"Utilidad $:"_s, utilidad);
  precios->addRow(u"Impuesto $:"_s, impuesto);
  for (int i : {kComision, kDescuento, kMin, kMax}) fila(precios, i);
  auto* columna_precios = new QVBoxLayout;
  columna_precios->addLayout(precios);
  columna_precios->addWidget(fg1);

  auto* listas = new QGridLayout;
  listas->addWidget(new QLabel(u"Precios por cliente"_s, forma), 0, 0);
  listas->addWidget(lbl_precios, 0, 1, Qt::AlignRight);
  listas->addWidget(fg2, 1, 0, 1, 2);
  listas->addWidget(new QLabel(u"Materiales"_s, forma), 0, 2);
  listas->addWidget(lbl_consumos, 0, 3, Qt::AlignRight);
  listas->addWidget(fg3, 1, 2, 1, 2);
  orden << fg1 << fg2 << fg3;

  layout = new QGridLayout;
  layout->addLayout(generales, 0, 0);
  layout->addLayout(columna_precios, 0, 1);
  layout->addLayout(listas, 1, 0, 1, 2);
  EncadenarFoco(orden);
}

productos::Producto CamposDeProducto::Leer() const {
  productos::Producto p;
  auto texto = [this](int i) { return Datos[i]->text(); };
  auto numero = [this](int i, int decimales) {
    return RoundHalfEven(Datos[i]->Numero(), decimales);
  };
  p.codigo = texto(kCodigo);
  p.producto = texto(kProducto);
  p.unidad = texto(kUnidad);
  p.marca = marca->Numero();
  p.linea = linea->Numero();
  p.ubicacion = texto(kUbicacion);
  p.precio = numero(kPrecio, 4);
  p.impuesto = numero(kImpuesto, 2);
  p.costo = numero(kCosto, 4);
  p.venta = numero(kVenta, 4);
  p.comision = numero(kComision, 2);
  p.descuento = numero(kDescuento, 2);
  p.min = numero(kMin, 2);
  p.max = numero(kMax, 2);
  p.zona = productos::FormatoZona(texto(kZona));
  p.descripcion = texto(kDescripcion);
  p.codigo1 = texto(kCodigo1);
  p.codigo2 = texto(kCodigo2);
  p.codigo3 = texto(kCodigo3);
  p.utilidades = fg1->Utilidades();
  p.precios = fg1->PreciosGuardados();
  p.moneda = moneda->currentText();
  p.pt = pt->isChecked();
  p.status = status->text() == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s;
  for (const auto& [clave, precio] : fg2->Lineas()) {
    p.precios_clientes.push_back({static_cast<qint32>(mFunciones::ValorNumerico(clave)), precio});
  }
  for (const auto& [clave, cantidad] : fg3->Lineas()) p.consumos.push_back({clave, cantidad});
  p.precios_clientes_cambiados = fg2->cambiado();
  p.consumos_cambiados = fg3->cambiado();
  return p;
}

void CamposDeProducto::Mostrar(const productos::Producto& p,
                               const std::vector<QString>& nombres_clientes,
                               const std::vector<QString>& nombres_consumos) {
  Datos[kCodigo]->setText(p.codigo);
  Datos[kProducto]->setText(p.producto);
  Datos[kUnidad]->setText(p.unidad);
  marca->setNumero(p.marca);
  linea->setNumero(p.linea);
  Datos[kUbicacion]->setText(p.ubicacion);
  Datos[kPrecio]->setNumero(p.precio);
  Datos[kImpuesto]->setNumero(p.impuesto);
  Datos[kCosto]->setNumero(p.costo);
  Datos[kVenta]->setNumero(p.venta);
  Datos[kComision]->setNumero(p.comision);
  Datos[kDescuento]->setNumero(p.descuento);
  Datos[kMin]->setNumero(p.min);
  Datos[kMax]->setNumero(p.max);
  Datos[kZona]->setText(p.zona);
  Datos[kDescripcion]->setText(p.descripcion);
  Datos[kCodigo1]->setText(p.codigo1);
  Datos[kCodigo2]->setText(p.codigo2);
  Datos[kCodigo3]->setText(p.codigo3);
  fg1->setUtilidades(p.utilidades);
  fg1->setGuardado({.costo = p.costo, .utilidades = p.utilidades, .precios = p.precios});
  moneda->setCurrentText(p.moneda);
  pt->setChecked(p.pt);
  status->Mostrar(p.status);
  QList<QStringList> clientes;
  for (std::size_t i = 0; i < p.precios_clientes.size(); ++i) {
    clientes.append({QString::number(p.precios_clientes[i].cliente),
                     i < nombres_clientes.size() ? nombres_clientes[i] : QString(),
                     mFunciones::FormatoNumero(p.precios_clientes[i].precio, 4)});
  }
  fg2->Llenar(clientes);
  QList<QStringList> consumos;
  for (std::size_t i = 0; i < p.consumos.size(); ++i) {
    consumos.append({p.consumos[i].equivale,
                     i < nombres_consumos.size() ? nombres_consumos[i] : QString(),
                     mFunciones::FormatoNumero(p.consumos[i].cantidad, 4)});
  }
  fg3->Llenar(consumos);
}

}  // namespace ventarix
