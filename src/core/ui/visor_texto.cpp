#include "core/ui/visor_texto.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "core/ui/message_box.h"

namespace ventarix {

VisorTexto::VisorTexto(const QString& path, const QString& texto, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("VisorTexto"));
  setWindowTitle(QFileInfo(path).fileName() + QStringLiteral(" - Ventarix"));
  auto* contenido = new QPlainTextEdit(texto, this);
  contenido->setObjectName(QStringLiteral("Texto"));
  contenido->setReadOnly(true);
  contenido->setLineWrapMode(QPlainTextEdit::NoWrap);
  contenido->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* botones = new QDialogButtonBox(QDialogButtonBox::Close, this);
  botones->button(QDialogButtonBox::Close)->setDefault(true);
  connect(botones, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* ruta = new QLabel(QDir::toNativeSeparators(path), this);
  ruta->setObjectName(QStringLiteral("Ruta"));
  ruta->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(ruta);
  layout->addWidget(contenido, 1);
  layout->addWidget(botones);
  resize(900, 480);
}

VisorDePlataforma VisorDelSistema() {
  return [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
}

void MostrarArchivoDeTexto(QWidget* parent, const QString& path,
                           const VisorDePlataforma& plataforma) {
  if (plataforma && plataforma(path)) return;
  QFile archivo(path);
  if (!archivo.open(QIODevice::ReadOnly)) {
    ui::Inform(parent,
               QStringLiteral("No se pudo leer el archivo ") + QDir::toNativeSeparators(path) +
                   QStringLiteral("\n\n") + archivo.errorString(),
               MessageIcon::kStop);
    return;
  }
  auto* visor = new VisorTexto(path, QString::fromUtf8(archivo.readAll()), parent);
  visor->setAttribute(Qt::WA_DeleteOnClose);
  visor->show();
}

}  // namespace ventarix
