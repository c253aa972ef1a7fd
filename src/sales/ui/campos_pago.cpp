#include "sales/ui/campos_pago.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

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

CamposPago::CamposPago(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
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
  cliente_ = CampoDe(Catalogo::kClientes, "CLIENTES", 1);
  metodo_ = CampoDe(Catalogo::kMetodos, "METODOS", 2);
  banco_ = CampoDe(Catalogo::kBancos, "BANCOS", 3);
  anotacion_ = new CampoCaptura(session_, this);
  anotacion_->setObjectName(u"Datos4"_s);
  anotacion_->setMayusculas();
  rejilla_->addWidget(new QLabel(u"Anotación"_s, this), 4, 0);
  rejilla_->addWidget(anotacion_, 4, 1);
  rejilla_->setColumnStretch(1, 1);
}

CampoCatalogo* CamposPago::CampoDe(Catalogo catalogo, const char* palabra, int indice) {
  static const char* const kTitulos[] = {"", "Cliente", "Método de pago", "Banco"};
  auto* campo = new CampoCatalogo(session_, catalogo, this);
  campo->setObjectName(u"Datos%1"_s.arg(indice));
  connect(campo, &CampoCatalogo::Ayuda, this, [this, campo, palabra] {
    const QString elegido = AbrirAyuda(session_, QLatin1String(palabra), window());
    if (!elegido.isEmpty()) campo->setNumero(elegido.toInt());
  });
  rejilla_->addWidget(new QLabel(QString::fromUtf8(kTitulos[indice]), this), indice, 0);
  rejilla_->addWidget(campo, indice, 1);
  return campo;
}

QList<QWidget*> CamposPago::Orden() const {
  return {cliente_->campo(), metodo_->campo(), banco_->campo(), anotacion_};
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
  cliente_->setNumero(e.value(u"cliente"_s).toInt());
  metodo_->setNumero(e.value(u"metodo"_s).toInt());
  banco_->setNumero(e.value(u"banco"_s).toInt());
  anotacion_->setText(e.value(u"anotacion"_s).toString().trimmed());
}

void CamposPago::Poner(captura::Documento* d) const {
  d->folio_previsto = folio_->text().toInt();
  d->encabezado.insert(u"cliente"_s, cliente_->Numero());
  d->encabezado.insert(u"metodo"_s, metodo_->Numero());
  d->encabezado.insert(u"banco"_s, banco_->Numero());
  d->encabezado.insert(u"anotacion"_s, anotacion_->text().trimmed());
}

void CamposPago::setSoloLectura(bool solo_lectura) {
  for (QWidget* campo : Orden()) static_cast<QLineEdit*>(campo)->setReadOnly(solo_lectura);
}

}  // namespace ventarix
