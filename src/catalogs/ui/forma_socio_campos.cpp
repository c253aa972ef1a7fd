// The fields of a partner screen, built from the family's table in the order of capture, so
// that Enter walks them in that order.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "catalogs/ui/forma_socio.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/mayusculas.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using socios::Tipo;

namespace {

QString PalabraDeAyuda(Catalogo catalogo) {
  switch (catalogo) {
    case Catalogo::kAgentes:
      return u"AGENTES"_s;
    case Catalogo::kMetodos:
      return u"METODOS"_s;
    case Catalogo::kBancos:
      return u"BANCOS"_s;
    default:
      return QString();
  }
}

}  // namespace

// Two columns of groups; Enter still follows the order of the fields.
QWidget* FormaSocio::Pagina() {
  auto* pagina = new QWidget(this);
  auto* columnas = new QHBoxLayout(pagina);
  QVBoxLayout* lados[2] = {new QVBoxLayout, new QVBoxLayout};
  for (const socios::Grupo& grupo : familia_.grupos) {
    if (QGroupBox* caja = Grupo(grupo, pagina)) lados[grupo.lado]->addWidget(caja);
  }
  for (QVBoxLayout* lado : lados) {
    lado->addStretch();
    columnas->addLayout(lado, lado == lados[0] ? 3 : 2);
  }
  return pagina;
}

QGroupBox* FormaSocio::Grupo(const socios::Grupo& grupo, QWidget* pagina) {
  auto* caja = new QGroupBox(QString::fromUtf8(grupo.titulo), pagina);
  auto* rejilla = new QGridLayout(caja);
  int fila = 0;
  int columna = 0;
  for (const socios::Campo& campo : grupo.campos) {
    if (campo.solo_cambio && !cambio_) continue;
    QWidget* widget = CrearCampo(campo, caja);
    auto* titulo = new QLabel(QString::fromUtf8(campo.titulo), caja);
    titulo->setBuddy(campos_.value(QLatin1String(campo.columna)));
    rejilla->addWidget(titulo, fila, 2 * columna);
    rejilla->addWidget(widget, fila, 2 * columna + 1);
    if (++columna == grupo.columnas) {
      columna = 0;
      ++fila;
    }
    // A client's RFC shows below it the date it encodes.
    if (campo.tipo == Tipo::kRfc && familia_.socio == socios::Socio::kClientes) {
      fecha_ = new QLabel(caja);
      fecha_->setObjectName(u"Fecha"_s);
      rejilla->addWidget(new QLabel(u"Fecha"_s, caja), fila, 0);
      rejilla->addWidget(fecha_, fila++, 1);
    }
  }
  if (fila == 0 && columna == 0) {
    delete caja;
    return nullptr;
  }
  for (int c = 1; c < 2 * grupo.columnas; c += 2) rejilla->setColumnStretch(c, 1);
  return caja;
}

// The widget of one field; the field itself (the text box inside a catalogue number or an
// account) is kept under its column's name.
QWidget* FormaSocio::CrearCampo(const socios::Campo& campo, QWidget* parent) {
  const QString columna = QLatin1String(campo.columna);
  QWidget* widget = nullptr;
  QWidget* contenedor = nullptr;
  switch (campo.tipo) {
    case Tipo::kCatalogo:
      widget = CampoDeCatalogo(campo, parent);
      break;
    case Tipo::kTipo:
    case Tipo::kAddenda: {
      auto* combo = new QComboBox(parent);
      combo->setEditable(campo.tipo == Tipo::kTipo);
      combo->addItems(campo.tipo == Tipo::kTipo ? socios::Tipos(session_) : socios::Addendas());
      combo->setCurrentIndex(campo.tipo == Tipo::kTipo ? -1 : 0);
      if (combo->lineEdit() != nullptr) {
        MantenerMayusculas(combo->lineEdit(), session_.UtilizarMayusculas);
        combo->lineEdit()->installEventFilter(this);
      }
      combo->installEventFilter(this);
      widget = combo;
      break;
    }
    case Tipo::kBandera: {
      auto* marca = new QCheckBox(parent);
      marca->installEventFilter(this);
      widget = marca;
      break;
    }
    default: {
      if (columna == u"Cuenta"_s && familia_.prefijo_cuenta != nullptr) {
        contenedor = new QWidget(parent);
      }
      auto* texto = new CampoCaptura(session_, contenedor != nullptr ? contenedor : parent);
      if (campo.tipo == Tipo::kCorreo) {
        texto->setMinusculas();
      } else {
        texto->setMayusculas();
      }
      if (campo.tipo == Tipo::kNumero) texto->setDecimales(2);
      if (campo.tipo == Tipo::kEntero) texto->setAlignment(Qt::AlignRight);
      const int letra = texto->fontMetrics().horizontalAdvance(u'X');
      if (campo.tipo == Tipo::kNumero || campo.tipo == Tipo::kEntero) {
        texto->setMaximumWidth(letra * 14);
      } else {
        texto->setMinimumWidth(letra * 26);
      }
      connect(texto, &CampoCaptura::Salir, this, &QDialog::reject);
      widget = texto;
      if (contenedor != nullptr) CampoDeCuenta(texto, contenedor);
    }
  }
  widget->setObjectName(columna);
  campos_.insert(columna, widget);
  return contenedor != nullptr ? contenedor : widget;
}

// The ledger account with the one proposed for this number beside it; F1 takes the proposal.
void FormaSocio::CampoDeCuenta(CampoCaptura* cuenta, QWidget* contenedor) {
  auto* fila = new QHBoxLayout(contenedor);
  fila->setContentsMargins(0, 0, 0, 0);
  cuenta_sugerida_ = new QLabel(contenedor);
  cuenta_sugerida_->setObjectName(u"CuentaSugerida"_s);
  fila->addWidget(cuenta, 1);
  fila->addWidget(cuenta_sugerida_);
  connect(cuenta, &CampoCaptura::Ayuda, this,
          [this, cuenta] { cuenta->setText(cuenta_sugerida_->text()); });
}

CampoCatalogo* FormaSocio::CampoDeCatalogo(const socios::Campo& campo, QWidget* parent) {
  auto* numero = new CampoCatalogo(session_, campo.catalogo, parent);
  connect(numero, &CampoCatalogo::Salir, this, &QDialog::reject);
  connect(numero, &CampoCatalogo::Ayuda, this, [this, numero] {
    const QString elegido = AbrirAyuda(session_, PalabraDeAyuda(numero->catalogo()), this);
    if (!elegido.isEmpty()) numero->setNumero(elegido.toInt());
    numero->campo()->setFocus();
  });
  return numero;
}

}  // namespace ventarix
