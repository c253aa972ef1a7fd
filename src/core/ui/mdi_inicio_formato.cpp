#include "core/ui/mdi_inicio_formato.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/ui/message_box.h"

namespace ventarix {

namespace {

using namespace Qt::StringLiterals;

QCheckBox* Opcion(const QString& nombre, const QString& texto, QWidget* campo, QWidget* parent) {
  auto* caja = new QCheckBox(texto, parent);
  caja->setObjectName(nombre);
  campo->setEnabled(false);
  QObject::connect(caja, &QCheckBox::toggled, campo, &QWidget::setEnabled);
  return caja;
}

}  // namespace

MDIInicioFormato::MDIInicioFormato(Session& session, const QString& tabla,
                                   std::vector<mBrowse::ColumnaRequerida> requeridas,
                                   QWidget* parent)
    : QDialog(parent), session_(session), tabla_(tabla), requeridas_(std::move(requeridas)) {
  setObjectName(u"MDIInicioFormato"_s);
  setWindowTitle(u"Formato de "_s + tabla);
  setModal(true);
  const mBrowse::Vista vista = mBrowse::VistaDeFormato(session_, tabla_);
  auto* guardar = new QPushButton(u"Guardar"_s, this);
  guardar->setObjectName(u"Guardar"_s);
  auto* salir = new QPushButton(u"Salir"_s, this);
  salir->setObjectName(u"Salir"_s);
  connect(guardar, &QPushButton::clicked, this, &MDIInicioFormato::Guardar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  auto* botones = new QHBoxLayout;
  botones->addStretch(1);
  botones->addWidget(guardar);
  botones->addWidget(salir);
  auto* cuerpo = new QHBoxLayout;
  cuerpo->addWidget(CrearUsuarios(), 2);
  cuerpo->addWidget(CrearOpciones(vista), 5);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(cuerpo, 1);
  layout->addLayout(botones);
  resize(860, 520);
}

QWidget* MDIInicioFormato::CrearUsuarios() {
  auto* grupo = new QGroupBox(u"Usuarios"_s, this);
  auto* todos = new QCheckBox(u"Todos"_s, grupo);
  todos->setObjectName(u"Todos"_s);
  connect(todos, &QCheckBox::toggled, this, &MDIInicioFormato::MarcarTodos);
  usuarios_ = new QTableWidget(0, 2, grupo);
  usuarios_->setObjectName(u"Usuarios"_s);
  usuarios_->setHorizontalHeaderLabels({u"Usuario"_s, u"Gerente"_s});
  usuarios_->verticalHeader()->hide();
  usuarios_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  usuarios_->setColumnWidth(1, 64);
  usuarios_->setSelectionBehavior(QAbstractItemView::SelectRows);
  usuarios_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (const mBrowse::UsuarioDeFormato& u : mBrowse::UsuariosDeFormato(session_)) {
    const int fila = usuarios_->rowCount();
    usuarios_->insertRow(fila);
    auto* usuario = new QTableWidgetItem(u.usuario);
    usuario->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
    usuario->setCheckState(Qt::Unchecked);
    auto* gerente = new QTableWidgetItem(u.gerente ? u"S"_s : u"N"_s);
    gerente->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    gerente->setTextAlignment(Qt::AlignCenter);
    usuarios_->setItem(fila, 0, usuario);
    usuarios_->setItem(fila, 1, gerente);
  }
  auto* layout = new QVBoxLayout(grupo);
  layout->addWidget(todos);
  layout->addWidget(usuarios_);
  return grupo;
}

QWidget* MDIInicioFormato::CrearOpciones(const mBrowse::Vista& vista) {
  auto* grupo = new QGroupBox(u"Opciones"_s, this);
  permisos_ = new QLineEdit(vista.Permisos, grupo);
  permisos_->setObjectName(u"Permisos"_s);
  permisos_->setValidator(
      new QRegularExpressionValidator(QRegularExpression(u"[01]*"_s), permisos_));
  seguridad_ = new QPlainTextEdit(vista.Seguridad, grupo);
  seguridad_->setObjectName(u"Seguridad"_s);
  ordenar_ = new QLineEdit(vista.Ordenar, grupo);
  ordenar_->setObjectName(u"Ordenar"_s);
  sentencia_ = new QPlainTextEdit(vista.Sentencia, grupo);
  sentencia_->setObjectName(u"Sentencia"_s);
  const QFont fija = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (QWidget* campo : std::initializer_list<QWidget*>{permisos_, seguridad_, sentencia_}) {
    campo->setFont(fija);
  }
  aplicar_permisos_ = Opcion(u"AplicarPermisos"_s, u"Aplicar Permisos"_s, permisos_, grupo);
  aplicar_seguridad_ = Opcion(u"AplicarSeguridad"_s, u"Aplicar Seguridad"_s, seguridad_, grupo);
  aplicar_ordenar_ = Opcion(u"AplicarOrdenar"_s, u"Aplicar Ordenar"_s, ordenar_, grupo);
  aplicar_sql_ = Opcion(u"AplicarSql"_s, u"Aplicar Sql"_s, sentencia_, grupo);
  auto* layout = new QGridLayout(grupo);
  layout->addWidget(aplicar_permisos_, 0, 0);
  layout->addWidget(permisos_, 0, 1);
  layout->addWidget(aplicar_seguridad_, 1, 0, Qt::AlignTop);
  layout->addWidget(seguridad_, 1, 1);
  layout->addWidget(aplicar_ordenar_, 2, 0);
  layout->addWidget(ordenar_, 2, 1);
  layout->addWidget(aplicar_sql_, 3, 0, Qt::AlignTop);
  layout->addWidget(sentencia_, 3, 1);
  layout->setRowStretch(1, 1);
  layout->setRowStretch(3, 2);
  return grupo;
}

void MDIInicioFormato::MarcarTodos(bool marcar) {
  for (int fila = 0; fila < usuarios_->rowCount(); ++fila) {
    usuarios_->item(fila, 0)->setCheckState(marcar ? Qt::Checked : Qt::Unchecked);
  }
}

void MDIInicioFormato::Guardar() {
  QStringList marcados;
  for (int fila = 0; fila < usuarios_->rowCount(); ++fila) {
    const QTableWidgetItem* usuario = usuarios_->item(fila, 0);
    if (usuario->checkState() == Qt::Checked) marcados << usuario->text();
  }
  mBrowse::Formato formato;
  formato.AplicarPermisos = aplicar_permisos_->isChecked();
  formato.AplicarSeguridad = aplicar_seguridad_->isChecked();
  formato.AplicarOrdenar = aplicar_ordenar_->isChecked();
  formato.AplicarSql = aplicar_sql_->isChecked();
  formato.Permisos = permisos_->text();
  formato.Seguridad = seguridad_->toPlainText();
  formato.Ordenar = ordenar_->text();
  formato.Sentencia = sentencia_->toPlainText();
  const Outcome outcome = mBrowse::GuardarFormato(session_, tabla_, marcados, formato, requeridas_);
  ui::ShowOutcome(this, session_, outcome);
  if (outcome) accept();
}

}  // namespace ventarix
