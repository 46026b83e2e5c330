#include "brindle/platform/qt/page_device.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QRegularExpression>

#include "tests/platform/graphics/file_device_scene.h"

namespace brindle {
namespace {

// The compressed parts of a PDF file, opened.
QByteArray inflated_streams(const std::string& file) {
  QByteArray out;
  const QByteArray bytes = QByteArray::fromStdString(file);
  for (qsizetype at = bytes.indexOf("stream\n"); at >= 0; at = bytes.indexOf("stream\n", at + 1)) {
    const qsizetype start = at + 7, end = bytes.indexOf("endstream", start);
    if (end < 0 || (at >= 3 && bytes.mid(at - 3, 3) == "end")) continue;
    // The function wants a guess of the length in front.
    out += qUncompress(QByteArray("\0\1\0\0", 4) + bytes.mid(start, end - start));
  }
  return out;
}

class Pdf : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    application = new QGuiApplication(argc, argv);
  }
  static void TearDownTestSuite() { delete application; }
  static QGuiApplication* application;
  TemporaryFolder folder;
};

QGuiApplication* Pdf::application = nullptr;

TEST(PdfAlone, NeedsAnApplication) {
  EXPECT_EQ(make_pdf_device(L"a.pdf", {10, 10}, 96), nullptr);
  EXPECT_EQ(make_printer_device({}), nullptr);
}

TEST_F(Pdf, HasPagesOfTheSizeAskedForWithTextAsText) {
  auto device = make_pdf_device(folder.wide("a.pdf").c_str(), {800, 600}, 96, L"梁");
  ASSERT_NE(device, nullptr);
  EXPECT_EQ(device->kind(), PaintDevice::Kind::kPrinter);
  EXPECT_EQ(device->caps(HORZRES), 800);
  EXPECT_TRUE(device->start_page());
  draw_everything(*device);
  EXPECT_TRUE(device->start_page());
  device->text(plain_state(), {10, 10}, 0, nullptr, L"钢筋", nullptr);
  ASSERT_TRUE(device->finish());
  EXPECT_FALSE(device->finish());
  const std::string file = bytes_of(folder / "a.pdf");
  EXPECT_NE(file.find("/Count 2"), std::string::npos);
  EXPECT_NE(file.find("600.000000 450.000000"), std::string::npos) << "points";
  EXPECT_EQ(file.find("JFIF"), std::string::npos) << "pictures lose nothing";
  for (const char* code : {"<94A2>", "<7B4B>", "<6881>"}) {
    EXPECT_TRUE(QByteArray::fromStdString(file).toUpper().contains(code))
        << code << " isn't to be found as text";
  }
}

TEST_F(Pdf, DrawsHatchesAsLinesAcrossTheBox) {
  auto device = make_pdf_device(folder.wide("a.pdf").c_str(), {800, 600}, 96);
  PaintState state = plain_state();
  state.pen.style = PS_NULL;
  state.brush = {BS_HATCHED, RGB(255, 0, 0), HS_HORIZONTAL, nullptr};
  device->rectangle(state, CRect(0, 0, 81, 81));
  ASSERT_TRUE(device->finish());
  const QString inside = QString::fromLatin1(inflated_streams(bytes_of(folder / "a.pdf")));
  EXPECT_FALSE(inside.contains("/Pattern"));
  // Ten lines along x: both ends of each have one y.
  static const QRegularExpression line(R"(\n[\d.]+ ([\d.]+) m\s+[\d.]+ \1 l\s+S)");
  EXPECT_EQ(inside.count(line), 10) << inside.toStdString();
}

TEST_F(Pdf, LeavesTheOldFileWhenItCantOrNeedntWrite) {
  put_bytes(folder / "a.pdf", "old");
  { auto unfinished = make_pdf_device(folder.wide("a.pdf").c_str(), {80, 60}, 96); }
  EXPECT_EQ(bytes_of(folder / "a.pdf"), "old");
  EXPECT_FALSE(make_pdf_device(L"/dev/full", {80, 60}, 96)->finish());
  EXPECT_FALSE(make_pdf_device(folder.wide("missing/a.pdf").c_str(), {80, 60}, 96)->finish());
  EXPECT_EQ(make_pdf_device(folder.wide("a.pdf").c_str(), {0, 60}, 96), nullptr);
  EXPECT_EQ(make_pdf_device(folder.wide("a.pdf").c_str(), {80, 60}, 0), nullptr);
  EXPECT_EQ(make_printer_device({L"no such printer", L"", false}), nullptr);
}

}  // namespace
}  // namespace brindle
