#include "documents/ui/forma_saldar.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "documents/ui/autorizar_captura.h"
#include "documents/ui/campos_pago.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaSaldar::FormaSaldar(Session& session, const PantallaPagos& pantalla, QWidget* parent)
    : QDialog(parent), session_(session), pantalla_(pantalla) {
  setObjectName(QString::fromUtf8(pantalla.saldar));
  setWindowTitle(QString::fromUtf8(pantalla.titulo_saldar));
  campos_ = new CamposPago(session_, pantalla_, this);
  campos_->Nuevo(pantalla_.familia_saldar());
  fecha_ = CampoFecha(this);
  const QDate hoy = QDate::currentDate();
  // The period and the range follow the side's fields and its annotation.
  const int primero = static_cast<int>(pantalla.campos.size()) + 3;
  anio_ = Filtro(primero, 0);
  anio_->setText(QString::number(hoy.year()));
  mes_ = Filtro(primero + 1, 0);
  mes_->setText(QString::number(hoy.month()));
  desde_ = Filtro(primero + 2, 2);
  desde_->setNumero(-2);
  hasta_ = Filtro(primero + 3, 2);
  hasta_->setNumero(2);
  auto* consultar = BotonDeCaptura("&Consultar", "Consultar", this);
  connect(consultar, &QPushButton::clicked, this, &FormaSaldar::Consultar);

  fg1_ = new QTableWidget(0, 7, this);
  fg1_->setObjectName(u"Fg1"_s);
  fg1_->setHorizontalHeaderLabels(
      {QString::fromUtf8(pantalla.titulo_socio), u"Nombre"_s, QString::fromUtf8(pantalla.documento),
       QString::fromUtf8(pantalla.referencia_saldar), u"Fecha"_s, u"Total $"_s, u"Saldo $"_s});
  fg1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fg1_->setSelectionBehavior(QAbstractItemView::SelectRows);
  fg1_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  fg1_->installEventFilter(this);
  saldo_final_ = CampoTotal(this, u"000,000.00"_s);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });

  auto* filtro = new QGridLayout;
  filtro->addWidget(new QLabel(u"Fecha"_s, this), 0, 0);
  filtro->addWidget(fecha_, 0, 1, 1, 3);
  filtro->addWidget(new QLabel(u"Periodo (año, mes)"_s, this), 1, 0);
  filtro->addWidget(anio_, 1, 1);
  filtro->addWidget(mes_, 1, 2);
  filtro->addWidget(new QLabel(u"Saldo entre"_s, this), 2, 0);
  filtro->addWidget(desde_, 2, 1);
  filtro->addWidget(hasta_, 2, 2);
  filtro->addWidget(new QLabel(u"Ejemplo:  -2.00    y    2.00"_s, this), 3, 1, 1, 2);
  filtro->addWidget(consultar, 3, 3);
  filtro->setRowStretch(4, 1);
  auto* arriba = new QHBoxLayout;
  arriba->addWidget(campos_, 1);
  arriba->addLayout(filtro);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(arriba);
  layout->addWidget(fg1_, 1);
  layout->addLayout(PieDePago(this, u"Saldo Final"_s, saldo_final_, guardar_, salir_));
  EncadenarFoco(campos_->Orden() +
                QList<QWidget*>{fecha_, anio_, mes_, desde_, hasta_, fg1_, guardar_, salir_});
  connect(hasta_, &CampoCaptura::Dejado, this, &FormaSaldar::Consultar);
  resize(1000, 560);
  campos_->socio()->campo()->setFocus();
}

CampoCaptura* FormaSaldar::Filtro(int indice, int decimales) {
  auto* campo = new CampoCaptura(session_, this);
  campo->setObjectName(u"Datos%1"_s.arg(indice));
  if (decimales > 0) campo->setDecimales(decimales);
  campo->setAlignment(Qt::AlignRight);
  connect(campo, &CampoCaptura::Salir, this, [this] { salir_->setFocus(); });
  return campo;
}

void FormaSaldar::Consultar() {
  QString error;
  documentos_ = pagos::Saldables(session_, pantalla_.lado,
                                 {.socio = campos_->socio()->Numero(),
                                  .anio = anio_->text().toInt(),
                                  .mes = mes_->text().toInt(),
                                  .desde = desde_->Numero(),
                                  .hasta = hasta_->Numero()},
                                 &error);
  if (!error.isEmpty()) ui::ShowOutcome(this, session_, Outcome::Stop(error));
  MostrarDocumentos();
}

void FormaSaldar::MostrarDocumentos() {
  fg1_->setRowCount(0);
  fg1_->setRowCount(static_cast<int>(documentos_.size()));
  const QLocale c = QLocale::c();
  for (int i = 0; i < fg1_->rowCount(); ++i) {
    const pagos::PorSaldar& f = documentos_[i];
    const QStringList textos = {QString::number(f.socio),
                                f.nombre,
                                f.documento,
                                f.referencia,
                                c.toString(f.fecha.date(), u"dd MMM yyyy"_s),
                                Importe(f.total),
                                Importe(f.saldo)};
    for (int col = 0; col < textos.size(); ++col) {
      auto* celda = new QTableWidgetItem(textos[col]);
      if (col == 0 || col >= 5) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      fg1_->setItem(i, col, celda);
    }
  }
  saldo_final_->setText(Importe(pagos::SaldoFinal(documentos_)));
  if (fg1_->rowCount() > 0) fg1_->setCurrentCell(0, 2);
}

// Two questions, each naming the invoice, before a row leaves the settle receipt.
void FormaSaldar::Quitar(int fila) {
  if (fila < 0 || fila >= static_cast<int>(documentos_.size())) return;
  const QString documento = documentos_[fila].documento;
  for (const char* pregunta : {pantalla_.quitar, pantalla_.seguro_quitar}) {
    if (ui::Ask(this, QString::fromUtf8(pregunta) + u"\n\n"_s + documento) != QMessageBox::Yes) {
      return;
    }
  }
  documentos_.erase(documentos_.begin() + fila);
  MostrarDocumentos();
  fg1_->setCurrentCell(qMin(fila, fg1_->rowCount() - 1), 2);
}

void FormaSaldar::Guardar() {
  captura::Documento d;
  campos_->Poner(&d);
  d.encabezado.insert(u"fecha"_s, QDateTime(fecha_->date(), QTime(0, 0)));
  d.encabezado.insert(u"anio"_s, anio_->text().toInt());
  d.encabezado.insert(u"mes"_s, mes_->text().toInt());
  for (const pagos::PorSaldar& f : documentos_) {
    d.partidas.push_back({{u"documento"_s, f.documento},
                          {QString::fromUtf8(pantalla_.lado.socio), f.socio},
                          {u"abono"_s, f.saldo},
                          {u"saldo"_s, f.saldo}});
  }
  const captura::FamiliaCaptura& familia = pantalla_.familia_saldar();
  if (Outcome revisado = captura::RevisarDocumento(session_, familia, d); !revisado) {
    return ui::ShowOutcome(this, session_, revisado);
  }
  if (!AutorizarCaptura(session_, pantalla_.alta, false, this)) return;
  const captura::Guardado guardado = captura::GuardarDocumento(session_, familia, d);
  if (!guardado.outcome) return ui::ShowOutcome(this, session_, guardado.outcome);
  guardada_ = guardado.llave;
  accept();
}

bool FormaSaldar::eventFilter(QObject* objeto, QEvent* event) {
  if (objeto == fg1_ && event->type() == QEvent::KeyPress) {
    auto* tecla = static_cast<QKeyEvent*>(event);
    if (tecla->key() == Qt::Key_Delete) {
      Quitar(fg1_->currentRow());
      return true;
    }
    if (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) {
      guardar_->setFocus();
      return true;
    }
  }
  return QDialog::eventFilter(objeto, event);
}

void FormaSaldar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    salir_->setFocus();
    return;
  }
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
