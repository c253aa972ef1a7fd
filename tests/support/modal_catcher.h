#pragma once

// Answers the modal windows a form opens, as a person at the keyboard would, and remembers
// what each one said. Header only: widget tests include it, the domain tests never do.

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace ventarix::testing {

// Where widget tests leave their screenshots.
inline QString ScreenshotPath(const QString& name) {
  const QString dir = QStringLiteral(VENTARIX_BUILD_DIR) + QStringLiteral("/screenshots");
  QDir().mkpath(dir);
  return dir + u'/' + name + QStringLiteral(".png");
}

inline void SaveShot(QWidget* widget, const QString& name) {
  widget->grab().save(ScreenshotPath(name));
}

class ModalCatcher : public QObject {
 public:
  // One answer per modal window, in order. Message boxes: Enter, or the given button (by its
  // kind, or by its caption `boton` without the "&"). Input dialogs: the text, then OK (or
  // Cancel when `accept` is false). File dialogs: the file named by the text, or Cancel when
  // there is none. Other dialogs: the text typed into the focused field, then Enter (or Esc).
  struct Reply {
    QString input;
    bool accept = true;
    QMessageBox::StandardButton button = QMessageBox::NoButton;
    QString boton;
  };

  explicit ModalCatcher(QList<Reply> replies = {}, QString shot_prefix = {})
      : replies_(std::move(replies)), prefix_(std::move(shot_prefix)) {
    connect(&poll_, &QTimer::timeout, this, &ModalCatcher::Poll);
    poll_.start(20);
  }

  void Add(Reply reply) { replies_.append(std::move(reply)); }

  QStringList texts;   // message text, input label, file dialog's folder, or object name
  QStringList titles;  // window titles
  QList<QMessageBox::Icon> icons;
  QList<QStringList> buttons;  // the captions of each window's buttons, without the "&"

  int pending() const { return replies_.size(); }

 private:
  void Poll() {
    if (busy_) return;
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    // A notice of work under way closes by itself: nobody answers it.
    if (modal->inherits("QProgressDialog")) return;
    busy_ = true;
    QPointer<QWidget> target(modal);
    QTimer::singleShot(0, this, [this, target] {
      if (target) Answer(target);
      busy_ = false;
    });
  }

  void Answer(QWidget* modal) {
    const Reply reply = replies_.isEmpty() ? Reply{} : replies_.takeFirst();
    titles << modal->windowTitle();
    QList<QAbstractButton*> visible;
    QStringList captions;
    for (QAbstractButton* button : modal->findChildren<QAbstractButton*>()) {
      const QString caption = QString(button->text()).remove(u'&');
      if (!button->isVisible() || caption.isEmpty()) continue;
      visible << button;
      captions << caption;
    }
    buttons << captions;
    if (!prefix_.isEmpty()) SaveShot(modal->window(), prefix_ + QString::number(++shots_));
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      texts << box->text();
      icons << box->icon();
      busy_ = false;
      if (reply.button != QMessageBox::NoButton) {
        box->button(reply.button)->click();
      } else if (!reply.boton.isEmpty()) {
        visible.value(captions.indexOf(reply.boton))->click();
      } else {
        QTest::keyClick(box, Qt::Key_Return);
      }
      return;
    }
    icons << QMessageBox::NoIcon;
    if (auto* input = qobject_cast<QInputDialog*>(modal)) {
      texts << input->labelText();
      input->setTextValue(reply.input);
      busy_ = false;
      reply.accept ? input->accept() : input->reject();
      return;
    }
    if (auto* files = qobject_cast<QFileDialog*>(modal)) {
      texts << files->directory().absolutePath();
      busy_ = false;
      if (reply.input.isEmpty()) return files->reject();
      // Typed into the name field, as a person does (a whole path is taken too).
      files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(reply.input);
      static_cast<QDialog*>(files)->accept();  // QFileDialog::accept, which checks the name
      return;
    }
    texts << modal->objectName();
    QWidget* field = modal->focusWidget();
    if (field == nullptr) field = modal->findChild<QLineEdit*>();
    if (field != nullptr) QTest::keyClicks(field, reply.input);
    busy_ = false;
    QTest::keyClick(field != nullptr ? field : modal,
                    reply.accept ? Qt::Key_Return : Qt::Key_Escape);
  }

  QList<Reply> replies_;
  QString prefix_;
  QTimer poll_;
  bool busy_ = false;
  int shots_ = 0;
};

}  // namespace ventarix::testing
