#include "brindle/platform/qt/qt_user_interface_internal.h"

#include "brindle/platform/window/message_ids.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>

namespace brindle {
namespace {

QString to_qt(std::wstring_view text) {
  return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

bool qt_can_act() {
  return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
         QThread::currentThread() == qApp->thread();
}

QMessageBox::Icon icon_of(MessageGrade grade) {
  switch (grade) {
    case MessageGrade::kInformation:
      return QMessageBox::Information;
    case MessageGrade::kWarning:
      return QMessageBox::Warning;
    case MessageGrade::kError:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::Icon question_icon(unsigned type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONQUESTION:
      return QMessageBox::Question;
    case 0:
      return QMessageBox::NoIcon;
  }
  return icon_of(message_box_grade(type));
}

QMessageBox::StandardButton standard_button(int id) {
  switch (id) {
    case IDCANCEL:
      return QMessageBox::Cancel;
    case IDABORT:
      return QMessageBox::Abort;
    case IDRETRY:
    case IDTRYAGAIN:
      return QMessageBox::Retry;
    case IDIGNORE:
    case IDCONTINUE:
      return QMessageBox::Ignore;
    case IDYES:
      return QMessageBox::Yes;
    case IDNO:
      return QMessageBox::No;
  }
  return QMessageBox::Ok;
}

}  // namespace

QStringList qt_name_filters(const std::wstring& filter) {
  const QStringList parts = to_qt(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
    QString label = parts[i];
    // Qt shows the patterns itself, and takes what stands in the last brackets for them.
    if (label.endsWith(')')) label.truncate(label.lastIndexOf('('));
    QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
    patterns.replaceInStrings("*.*", "*");
    filters << label.trimmed() + " (" + patterns.join(' ') + ')';
  }
  return filters;
}

void QtUserInterface::message_box(MessageGrade grade, int code, const wchar_t* text) {
  if (!qt_can_act()) return HeadlessUserInterface::message_box(grade, code, text);
  QMessageBox box(icon_of(grade), QGuiApplication::applicationDisplayName(),
                  to_qt(text ? text : L""), QMessageBox::Ok, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

int QtUserInterface::question(const wchar_t* text, const wchar_t* caption, unsigned type) {
  if (!qt_can_act()) return HeadlessUserInterface::question(text, caption, type);
  QMessageBox box(QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setText(to_qt(text ? text : L""));
  box.setWindowTitle(caption ? to_qt(caption) : QGuiApplication::applicationDisplayName());
  box.setIcon(question_icon(type));
  for (const int id : message_box_buttons(type)) {
    QPushButton* button = box.addButton(standard_button(id));
    if (id == default_answer(type)) box.setDefaultButton(button);
    button->setProperty("answer", id);
  }
  box.exec();
  const QAbstractButton* pressed = box.clickedButton();
  return pressed ? pressed->property("answer").toInt() : default_answer(type);
}

void QtUserInterface::dispatch_pending_messages() {
  if (qt_can_act()) QCoreApplication::processEvents();
}

bool QtUserInterface::choose_file(FileChoice& choice) {
  if (!qt_can_act()) return HeadlessUserInterface::choose_file(choice);
  QFileDialog dialog(QApplication::activeWindow(), to_qt(choice.title));
  const QStringList filters = qt_name_filters(choice.filter);
  dialog.setAcceptMode(choice.for_saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(choice.for_saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(choice.filter_index - 1));
  dialog.setDefaultSuffix(to_qt(choice.extension));
  if (!choice.path.empty()) dialog.selectFile(to_qt(choice.path));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  choice.path = dialog.selectedFiles().constFirst().toStdWString();
  const qsizetype chosen = filters.indexOf(dialog.selectedNameFilter());
  if (chosen >= 0) choice.filter_index = static_cast<int>(chosen) + 1;
  return true;
}

void QtUserInterface::set_clipboard_text(std::wstring_view text) {
  if (!qt_can_act()) return HeadlessUserInterface::set_clipboard_text(text);
  QGuiApplication::clipboard()->setText(to_qt(text));
}

std::wstring QtUserInterface::clipboard_text() {
  if (!qt_can_act()) return HeadlessUserInterface::clipboard_text();
  return QGuiApplication::clipboard()->text().toStdWString();
}

}  // namespace brindle
