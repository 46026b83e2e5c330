#include "brindle/platform/qt/backend.h"

#include "brindle/platform/qt/qt_user_interface_internal.h"

#include <gtest/gtest.h>

#include <functional>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

namespace brindle {
namespace {

// Calls `act` with the modal window of type T that opens next.
template <class T>
void when_open(std::function<void(T&)> act) {
  QTimer::singleShot(0, qApp, [act] {
    T* window = qobject_cast<T*>(QApplication::activeModalWidget());
    ASSERT_TRUE(window) << "no such window is open";
    act(*window);
  });
}

class QtBackend : public testing::Test {
 protected:
  // An application for these cases alone: the others need that there is none.
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    application = new QApplication(argc, argv);
  }
  static void TearDownTestSuite() { delete application; }
  void SetUp() override { ASSERT_TRUE(install_qt_backend()); }
  void TearDown() override { set_user_interface(nullptr); }

  static QApplication* application;
};

QApplication* QtBackend::application = nullptr;

TEST(QtBackendAlone, NeedsAGuiApplication) {
  EXPECT_FALSE(install_qt_backend());
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  QCoreApplication core(argc, argv);
  EXPECT_FALSE(install_qt_backend());
}

TEST(QtBackendAlone, SpeaksWithoutQtWhenTheApplicationIsGone) {
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  {
    QApplication application(argc, argv);
    EXPECT_TRUE(install_qt_backend());
  }
  testing::internal::CaptureStderr();
  user_interface().message_box(MessageGrade::kError, 301, L"late");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("[301] late"), std::string::npos);
  set_user_interface(nullptr);
}

TEST_F(QtBackend, MessageBoxShowsGradeAndText) {
  const struct {
    MessageGrade grade;
    QMessageBox::Icon icon;
  } kCases[] = {{MessageGrade::kInformation, QMessageBox::Information},
                {MessageGrade::kWarning, QMessageBox::Warning},
                {MessageGrade::kError, QMessageBox::Critical}};
  for (const auto& test : kCases) {
    QString shown;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    when_open<QMessageBox>([&](QMessageBox& box) {
      shown = box.text();
      icon = box.icon();
      box.accept();
    });
    user_interface().message_box(test.grade, 301, L"文件<b>打不开");
    EXPECT_EQ(shown, QString::fromUtf8("文件<b>打不开"));
    EXPECT_EQ(icon, test.icon);
  }
}

TEST_F(QtBackend, AnotherThreadSpeaksWithoutQt) {
  testing::internal::CaptureStderr();
  QThread* thread = QThread::create(
      [] { user_interface().message_box(MessageGrade::kError, 301, L"elsewhere"); });
  thread->start();
  thread->wait();
  delete thread;
  EXPECT_NE(testing::internal::GetCapturedStderr().find("[301] elsewhere"), std::string::npos);
}

TEST_F(QtBackend, FiltersBecomeNameFilters) {
  EXPECT_EQ(qt_name_filters(L"图形(*.DXF)|*.DXF;*.dxb|All files|*.*||"),
            QStringList({QString::fromUtf8("图形 (*.DXF *.dxb)"), "All files (*)"}));
  EXPECT_EQ(qt_name_filters(L""), QStringList());
  EXPECT_EQ(qt_name_filters(L"Drawing|*.dxf|left over"), QStringList("Drawing (*.dxf)"));
}

TEST_F(QtBackend, FileChoiceComesBackWithPathAndFilter) {
  FileChoice choice;
  choice.for_saving = true;
  choice.title = L"Save";
  choice.filter = L"Drawing|*.dxf|All files|*.*||";
  choice.filter_index = 2;
  choice.extension = L"dxf";
  QString selected;
  when_open<QFileDialog>([&](QFileDialog& dialog) {
    selected = dialog.selectedNameFilter();
    dialog.selectNameFilter("Drawing (*.dxf)");
    dialog.selectFile("plan");
    static_cast<QDialog&>(dialog).done(QDialog::Accepted);
  });
  EXPECT_TRUE(user_interface().choose_file(choice));
  EXPECT_EQ(selected, "All files (*)");
  EXPECT_EQ(choice.filter_index, 1);
  EXPECT_TRUE(QString::fromStdWString(choice.path).endsWith("/plan.dxf"));

  const std::wstring before = choice.path;
  when_open<QFileDialog>([&](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(user_interface().choose_file(choice));
  EXPECT_EQ(choice.path, before);
}

TEST_F(QtBackend, ClipboardAndQueueAreQts) {
  user_interface().set_clipboard_text(L"三 Φ20");
  EXPECT_EQ(user_interface().clipboard_text(), L"三 Φ20");
  bool ran = false;
  QTimer::singleShot(0, qApp, [&] { ran = true; });
  user_interface().dispatch_pending_messages();
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace brindle
