#include "core/ui/frm_usuarios_p.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/menu_catalog.h"
#include "core/ui/mayusculas.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIndice = Qt::UserRole;
const bool kSiempreMayusculas = true;

// How each rights column reads on screen.
QString Titulo(const QString& columna) {
  static const QHash<QString, QString> kTitulos = {
      {u"OrdenesCompra"_s, u"Órdenes de compra"_s},
      {u"Compras"_s, u"Compras"_s},
      {u"ContraRecibos"_s, u"Contrarecibos"_s},
      {u"Cotizaciones"_s, u"Cotizaciones"_s},
      {u"Pedidos"_s, u"Pedidos"_s},
      {u"Remisiones"_s, u"Remisiones"_s},
      {u"Facturas"_s, u"Facturas"_s},
      {u"Produccion"_s, u"Producción"_s},
      {u"Traspasos"_s, u"Traspasos"_s},
      {u"CxC"_s, u"Cuentas por cobrar"_s},
      {u"CxP"_s, u"Cuentas por pagar"_s},
      {u"NotasCliente"_s, u"Notas de crédito a clientes"_s},
      {u"NotasProveedor"_s, u"Notas de crédito de proveedores"_s},
      {u"Licitaciones"_s, u"Licitaciones"_s},
      {u"Ajustes"_s, u"Ajustes de inventario"_s},
      {u"Clientes"_s, u"Clientes"_s},
      {u"Agentes"_s, u"Agentes"_s},
      {u"Proveedores"_s, u"Proveedores"_s},
      {u"Marcas"_s, u"Marcas"_s},
      {u"Lineas"_s, u"Líneas"_s},
      {u"Productos"_s, u"Productos"_s},
      {u"Bancos"_s, u"Bancos"_s},
      {u"FoliosFacturas"_s, u"Folios de facturas"_s},
      {u"FoliosNotas"_s, u"Folios de notas"_s}};
  return kTitulos.value(columna, columna);
}

// A menu caption without its keyboard mark.
QString Leyenda(const char* titulo) { return QString::fromUtf8(titulo).remove(u'&'); }

// The menu as the main window shows it: a separator where the index numbers jump. Only the
// top entries can be ticked, as the mask addresses them alone; a sub-menu's entries are
// listed under it to show what it covers.
QTreeWidget* Arbol(QWidget* padre, const QString& nombre,
                   const std::vector<menus::EntradaMenu>& entradas) {
  auto* arbol = new QTreeWidget(padre);
  arbol->setObjectName(nombre);
  arbol->setHeaderHidden(true);
  int anterior = 0;
  for (const menus::EntradaMenu& entrada : entradas) {
    if (anterior > 0 && entrada.indice > anterior + 1) {
      auto* separador = new QTreeWidgetItem(arbol, {QString(24, u'─')});
      separador->setFlags(Qt::NoItemFlags);
    }
    auto* item = new QTreeWidgetItem(arbol, {Leyenda(entrada.titulo)});
    item->setData(0, kIndice, entrada.indice);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    for (const menus::EntradaMenu& sub : entrada.sub) {
      auto* hijo = new QTreeWidgetItem(item, {Leyenda(sub.titulo)});
      hijo->setFlags(Qt::ItemIsEnabled);
    }
    anterior = entrada.indice;
  }
  arbol->expandAll();
  return arbol;
}

// The entries that can be ticked, the top ones.
QList<QTreeWidgetItem*> Entradas(QTreeWidget* arbol) {
  QList<QTreeWidgetItem*> entradas;
  for (int i = 0; i < arbol->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = arbol->topLevelItem(i);
    if (item->flags().testFlag(Qt::ItemIsUserCheckable)) entradas << item;
  }
  return entradas;
}

}  // namespace

FrmUsuariosP::FrmUsuariosP(Session& session, const QString& usuario, QWidget* parent)
    : QDialog(parent), session_(session), usuario_(usuario) {
  setObjectName(u"FrmUsuariosP"_s);
  setWindowTitle(u"Usuarios - Permisos de "_s + usuario_);
  check1_ = new QCheckBox(u"Todas las opciones del &menú"_s, this);
  check1_->setObjectName(u"Check1"_s);
  check2_ = new QCheckBox(u"Todos los derechos de &documentos"_s, this);
  check2_->setObjectName(u"Check2"_s);
  check3_ = new QCheckBox(u"Todos los derechos de &catálogos"_s, this);
  check3_->setObjectName(u"Check3"_s);
  connect(check1_, &QCheckBox::toggled, this, &FrmUsuariosP::MarcarMenus);
  connect(check2_, &QCheckBox::toggled, this,
          [this](bool todos) { EscribirDerechos(usuarios::ColumnasDeDocumentos(), todos); });
  connect(check3_, &QCheckBox::toggled, this,
          [this](bool todos) { EscribirDerechos(usuarios::ColumnasDeCatalogos(), todos); });

  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });

  auto* cuerpo = new QHBoxLayout;
  cuerpo->addWidget(ConstruirMenus(), 3);
  cuerpo->addWidget(ConstruirDerechos(usuarios::ColumnasDeDocumentos(),
                                      "Documentos: altas, bajas, cambios", check2_),
                    2);
  auto* derecha = new QVBoxLayout;
  derecha->addWidget(ConstruirDerechos(usuarios::ColumnasDeCatalogos(),
                                       "Catálogos: altas, bajas, cambios", check3_));
  derecha->addWidget(ConstruirOtros());
  derecha->addStretch();
  cuerpo->addLayout(derecha, 2);
  auto* botones = FilaDeBotones(guardar_, salir_);
  botones->insertWidget(0, check1_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(cuerpo);
  layout->addLayout(botones);

  usuarios::Derechos derechos;
  problema_ = usuarios::LeerDerechos(session_, usuario_, &derechos);
  if (problema_) Mostrar(derechos);
  guardar_->setEnabled(problema_.ok);
}

QWidget* FrmUsuariosP::ConstruirMenus() {
  auto* pestanas = new Pestanas(this);
  pestanas->setObjectName(u"Menus"_s);
  const std::array<QString, 4> nombres = {u"mnuReg"_s, u"mnuCat"_s, u"mnuRte"_s, u"mnuUtil"_s};
  const std::array<QString, 4> titulos = {u"&Registros"_s, u"Ca&tálogos"_s, u"Re&portes"_s,
                                          u"&Utilerías"_s};
  for (int i = 0; i < 4; ++i) {
    menus_[i] = Arbol(this, nombres[i], menus::Bloque(static_cast<inicio::BloqueMenu>(i)));
    pestanas->addTab(menus_[i], titulos[i]);
  }
  // All four tabs in sight: the menus are what this screen is about.
  pestanas->setUsesScrollButtons(false);
  pestanas->setMinimumSize(pestanas->tabBar()->sizeHint().width() + 8, 420);
  return pestanas;
}

QWidget* FrmUsuariosP::ConstruirDerechos(const QStringList& columnas, const char* titulo,
                                         QCheckBox* todos) {
  auto* grupo = new QGroupBox(QString::fromUtf8(titulo), this);
  auto* campos = new QFormLayout(grupo);
  static const QRegularExpression kLetras(u"[SNsn]{0,3}"_s);
  for (const QString& columna : columnas) {
    auto* campo = new QLineEdit(grupo);
    campo->setObjectName(columna);
    campo->setMaxLength(3);
    campo->setFixedWidth(campo->fontMetrics().horizontalAdvance(u"WWWWW"_s));
    campo->setValidator(new QRegularExpressionValidator(kLetras, campo));
    MantenerMayusculas(campo, kSiempreMayusculas);
    campos->addRow(Titulo(columna) + u':', campo);
    datos_.insert(columna, campo);
  }
  campos->addRow(todos);
  return grupo;
}

QWidget* FrmUsuariosP::ConstruirOtros() {
  auto* grupo = new QGroupBox(u"Otros permisos"_s, this);
  auto* layout = new QVBoxLayout(grupo);
  const auto casilla = [grupo, layout](const QString& texto, const QString& nombre) {
    auto* check = new QCheckBox(texto, grupo);
    check->setObjectName(nombre);
    layout->addWidget(check);
    return check;
  };
  modificar_costo_ = casilla(u"Modificar el costo"_s, u"ModificarCosto"_s);
  modificar_plazo_ = casilla(u"Modificar el plazo de crédito"_s, u"ModificarPlazo"_s);
  modificar_credito_ = casilla(u"Modificar el límite de crédito"_s, u"ModificarCredito"_s);
  aplicar_series_ = casilla(u"Facturar sólo con estas series:"_s, u"AplicarSeriesEnFacturas"_s);
  auto* rejilla = new QGridLayout;
  for (int i = 0; i < 9; ++i) {
    series_[i] = new QLineEdit(grupo);
    series_[i]->setObjectName(u"SerieFacturacion"_s + QString::number(i + 1));
    series_[i]->setMaxLength(10);
    MantenerMayusculas(series_[i], session_.UtilizarMayusculas);
    rejilla->addWidget(series_[i], i / 3, i % 3);
  }
  layout->addLayout(rejilla);
  return grupo;
}

void FrmUsuariosP::Mostrar(const usuarios::Derechos& derechos) {
  for (int bloque = 0; bloque < 4; ++bloque) {
    for (QTreeWidgetItem* item : Entradas(menus_[bloque])) {
      const bool marcada =
          inicio::EntradaHabilitada(derechos.permisos, static_cast<inicio::BloqueMenu>(bloque),
                                    item->data(0, kIndice).toInt());
      item->setCheckState(0, marcada ? Qt::Checked : Qt::Unchecked);
    }
  }
  for (auto it = datos_.cbegin(); it != datos_.cend(); ++it) {
    it.value()->setText(derechos.textos.value(it.key()));
  }
  modificar_costo_->setChecked(derechos.modificar_costo);
  modificar_plazo_->setChecked(derechos.modificar_plazo);
  modificar_credito_->setChecked(derechos.modificar_credito);
  aplicar_series_->setChecked(derechos.aplicar_series);
  for (int i = 0; i < 9; ++i) series_[i]->setText(derechos.series[i]);
}

usuarios::Derechos FrmUsuariosP::Leer() const {
  usuarios::Derechos derechos;
  std::array<QList<bool>, 4> bloques;
  for (int bloque = 0; bloque < 4; ++bloque) {
    for (QTreeWidgetItem* item : Entradas(menus_[bloque])) {
      const int indice = item->data(0, kIndice).toInt();
      // Positions of separators and of missing indices stay unticked.
      if (bloques[bloque].size() < indice) bloques[bloque].resize(indice, false);
      bloques[bloque][indice - 1] = item->checkState(0) == Qt::Checked;
    }
  }
  derechos.permisos = usuarios::MascaraDePermisos(bloques);
  for (auto it = datos_.cbegin(); it != datos_.cend(); ++it) {
    derechos.textos.insert(it.key(), it.value()->text());
  }
  derechos.modificar_costo = modificar_costo_->isChecked();
  derechos.modificar_plazo = modificar_plazo_->isChecked();
  derechos.modificar_credito = modificar_credito_->isChecked();
  derechos.aplicar_series = aplicar_series_->isChecked();
  for (int i = 0; i < 9; ++i) derechos.series[i] = series_[i]->text();
  return derechos;
}

void FrmUsuariosP::MarcarMenus(bool marcar) {
  for (QTreeWidget* arbol : menus_) {
    for (QTreeWidgetItem* item : Entradas(arbol)) {
      item->setCheckState(0, marcar ? Qt::Checked : Qt::Unchecked);
    }
  }
}

void FrmUsuariosP::EscribirDerechos(const QStringList& columnas, bool todos) {
  for (const QString& columna : columnas)
    datos_.value(columna)->setText(todos ? u"SSS"_s : u"NNN"_s);
}

void FrmUsuariosP::GuardarClicked() {
  const Outcome outcome = usuarios::GuardarDerechos(session_, usuario_, Leer());
  if (!outcome) {
    ui::ShowOutcome(this, session_, outcome);
    return;
  }
  guardada_ = usuario_;
  accept();
}

void FrmUsuariosP::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!problema_) QTimer::singleShot(0, this, &FrmUsuariosP::Rechazar);
}

void FrmUsuariosP::Rechazar() {
  ui::ShowOutcome(this, session_, problema_);
  reject();
}

void FrmUsuariosP::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
