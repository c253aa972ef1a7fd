#include "documents/ui/campos_pago.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "core/mFunciones.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"

namespace ventarix {

using namespace Qt::StringLiterals;

QString Importe(double valor) {
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
  return kLocale.toString(valor, 'f', 2);
}

QDateEdit* CampoFecha(QWidget* forma) {
  auto* fecha = new QDateEdit(QDate::currentDate(), forma);
  fecha->setObjectName(u"Fecha"_s);
  fecha->setCalendarPopup(true);
  fecha->setDisplayFormat(u"dd/MM/yyyy"_s);
  return fecha;
}

QLabel* CampoTotal(QWidget* forma, const QString& ancho) {
  auto* total = new QLabel(u"0.00"_s, forma);
  total->setObjectName(u"Total"_s);
  total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  total->setFrameShape(QFrame::Panel);
  total->setFrameShadow(QFrame::Sunken);
  total->setMinimumWidth(total->fontMetrics().horizontalAdvance(ancho));
  return total;
}

QHBoxLayout* PieDePago(QWidget* forma, const QString& titulo, QLabel* total, QPushButton* guardar,
                       QPushButton* salir) {
  auto* abajo = new QHBoxLayout;
  abajo->addStretch();
  abajo->addWidget(new QLabel(titulo, forma));
  abajo->addWidget(total);
  abajo->addSpacing(16);
  abajo->addWidget(guardar);
  abajo->addWidget(salir);
  return abajo;
}

CamposPago::CamposPago(Session& session, const PantallaPagos& pantalla, QWidget* parent)
    : QWidget(parent), session_(session), pantalla_(pantalla) {
  rejilla_ = new QGridLayout(this);
  rejilla_->setContentsMargins(0, 0, 0, 0);
  serie_ = new QLabel(this);
  serie_->setObjectName(u"Serie"_s);
  QFont negrita = serie_->font();
  negrita.setBold(true);
  serie_->setFont(negrita);
  folio_ = new CampoCaptura(session_, this);
  folio_->setObjectName(u"Datos0"_s);
  folio_->setReadOnly(true);
  folio_->setFocusPolicy(Qt::NoFocus);
  folio_->setAlignment(Qt::AlignRight);
  folio_->setMaximumWidth(folio_->fontMetrics().horizontalAdvance(u"000000000000"_s));
  auto* numero = new QHBoxLayout;
  numero->addWidget(serie_);
  numero->addWidget(folio_);
  numero->addStretch();
  rejilla_->addWidget(new QLabel(u"Pago"_s, this), 0, 0);
  rejilla_->addLayout(numero, 0, 1);
  socio_ =
      Catalogo(QString::fromUtf8(pantalla.titulo_socio), pantalla.socio, pantalla.ayuda_socio, 1);
  int indice = 2;
  const auto anotacion = CampoDePago{.columna = "anotacion", .titulo = "Anotación"};
  std::vector<CampoDePago> campos = pantalla.campos;
  campos.push_back(anotacion);
  for (const CampoDePago& c : campos) {
    const QString columna = QString::fromUtf8(c.columna);
    if (c.catalogo) {
      catalogos_.insert(columna, Catalogo(QString::fromUtf8(c.titulo), c.cual, c.ayuda, indice));
      connect(catalogos_[columna]->campo(), &CampoCaptura::Dejado, this,
              [this, columna] { Elegido(columna, catalogos_[columna]->Numero()); });
    } else {
      auto* campo = new CampoCaptura(session_, this);
      campo->setObjectName(u"Datos%1"_s.arg(indice));
      if (c.mayusculas) campo->setMayusculas();
      rejilla_->addWidget(new QLabel(QString::fromUtf8(c.titulo), this), indice, 0);
      rejilla_->addWidget(campo, indice, 1);
      textos_.insert(columna, campo);
      orden_ << campo;
    }
    ++indice;
  }
  rejilla_->setColumnStretch(1, 1);
}

CampoCatalogo* CamposPago::Catalogo(const QString& titulo, ventarix::Catalogo cual,
                                    const char* ayuda, int indice) {
  auto* campo = new CampoCatalogo(session_, cual, this);
  campo->setObjectName(u"Datos%1"_s.arg(indice));
  connect(campo, &CampoCatalogo::Ayuda, this, [this, campo, ayuda] {
    const QString elegido = AbrirAyuda(session_, QLatin1String(ayuda), window());
    if (!elegido.isEmpty()) campo->setNumero(elegido.toInt());
  });
  rejilla_->addWidget(new QLabel(titulo, this), indice, 0);
  rejilla_->addWidget(campo, indice, 1);
  orden_ << campo->campo();
  return campo;
}

// A number chosen may fill other fields (a bank's next transfer and cheque).
void CamposPago::Elegido(const QString& columna, qint32 numero) {
  if (!pantalla_.al_elegir || numero <= 0) return;
  const QVariantMap valores = pantalla_.al_elegir(session_, columna, numero);
  for (auto it = valores.begin(); it != valores.end(); ++it) {
    if (CampoCaptura* campo = textos_.value(it.key())) campo->setText(it.value().toString());
  }
}

void CamposPago::Nuevo(const captura::FamiliaCaptura& familia) {
  const QString serie = (session_.*familia.serie).trimmed().toUpper();
  serie_->setText(serie.isEmpty() ? u"A"_s : serie);
  folio_->setText(QString::number(
      mFunciones::NumeroSiguiente(session_, u"folio"_s, QString::fromUtf8(familia.tabla),
                                  u"where serie = ?"_s, {serie_->text()})));
}

void CamposPago::Mostrar(const QVariantMap& e) {
  serie_->setText(e.value(u"serie"_s).toString());
  folio_->setText(e.value(u"folio"_s).toString());
  socio_->setNumero(e.value(QString::fromUtf8(pantalla_.lado.socio)).toInt());
  for (auto it = catalogos_.begin(); it != catalogos_.end(); ++it) {
    (*it)->setNumero(e.value(it.key()).toInt());
  }
  for (auto it = textos_.begin(); it != textos_.end(); ++it) {
    (*it)->setText(e.value(it.key()).toString().trimmed());
  }
}

void CamposPago::Poner(captura::Documento* d) const {
  d->folio_previsto = folio_->text().toInt();
  d->encabezado.insert(QString::fromUtf8(pantalla_.lado.socio), socio_->Numero());
  for (auto it = catalogos_.begin(); it != catalogos_.end(); ++it) {
    d->encabezado.insert(it.key(), (*it)->Numero());
  }
  for (auto it = textos_.begin(); it != textos_.end(); ++it) {
    d->encabezado.insert(it.key(), (*it)->text().trimmed());
  }
}

}  // namespace ventarix
