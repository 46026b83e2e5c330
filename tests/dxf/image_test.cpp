// Images and wipeouts: what they cover, what they show, their form in a file.
#include "brindle/dxf/acad_image.h"

#include <cmath>
#include <initializer_list>
#include <limits>

#include "brindle/dxf/acad_wipeout.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/graphics/raster_device.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr std::uint32_t kBlack = 0xff000000, kRed = 0xffff0000, kGreen = 0xff00ff00,
                        kBlue = 0xff0000ff;

// A letter for each pixel.
std::string shown(const RasterBitmap& picture) {
  std::string text;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const std::uint32_t pixel = picture.at(x, y) | 0xff000000;
      text += pixel == kRed         ? 'r'
              : pixel == kGreen     ? 'g'
              : pixel == kBlue      ? 'b'
              : pixel == kBlack     ? '.'
              : pixel == 0xffffffff ? 'w'
                                    : '?';
    }
    text += '/';
  }
  return text;
}

// What an image leaves on 6 by 4 black pixels; world (0, 0) is the lower left corner of the device.
std::string painted(ACAD_IMAGE& image, double dx = 0, std::uint32_t ground = kBlack) {
  RasterBitmap bitmap(6, 4, ground);
  RasterDevice device(bitmap);
  CDC dc(device);
  dc.SetBkColor(0);
  CFCoor coor(CFPoint(0, 4, 0), 1, 1);
  image.Draw(&dc, &coor, dx, 0);
  return shown(bitmap);
}

std::shared_ptr<RasterBitmap> picture_of(std::initializer_list<std::uint32_t> pixels, int width) {
  auto picture = std::make_shared<RasterBitmap>(width, static_cast<int>(pixels.size()) / width);
  std::copy(pixels.begin(), pixels.end(), picture->data());
  return picture;
}

// An image without its frame, which is drawn as lines.
struct BareImage : ACAD_IMAGE {
  bool has_frame() const override { return false; }
};

TEST(Image, PixelsLieAsTheVectorsSay) {
  BareImage image;
  image.set_picture(picture_of({kRed, kGreen, kBlue, 0xffffffff}, 2));
  image.x = 1;
  EXPECT_EQ(painted(image), "....../....../.rg.../.bw.../");
  image.ux = image.vy = 2;
  EXPECT_EQ(painted(image), ".rrgg./.rrgg./.bbww./.bbww./");
  EXPECT_EQ(painted(image, 3), "....rr/....rr/....bb/....bb/");
  image.m_nDisplay = 0;
  EXPECT_EQ(painted(image), "....../....../....../....../");
  image.m_nDisplay = 7;
  image.ux = -2, image.x = 5;  // mirrored
  EXPECT_EQ(painted(image), ".ggrr./.ggrr./.wwbb./.wwbb./");
  // A quarter of a turn to the left: columns lead up, rows to the right.
  image.ux = 0, image.uy = 2, image.vx = -2, image.vy = 0;
  EXPECT_EQ(painted(image), ".ggww./.ggww./.rrbb./.rrbb./");
  image.m_nDisplay = 5;  // not when turned
  EXPECT_EQ(painted(image), "....../....../....../....../");
  image.m_nDisplay = 7, image.vx = 0;  // no area
  EXPECT_EQ(painted(image), "....../....../....../....../");
}

TEST(Image, ClipAndLook) {
  BareImage image;
  image.set_picture(std::make_shared<RasterBitmap>(6, 4, kRed));
  const float xs[] = {-0.5f, 3.5f, -0.5f}, ys[] = {-0.5f, -0.5f, 3.5f};
  for (int i = 0; i < 3; ++i) image.m_ClipX.Add(xs[i]), image.m_ClipY.Add(ys[i]);
  EXPECT_EQ(painted(image), "rrrrrr/rrrrrr/rrrrrr/rrrrrr/");  // not in force
  image.m_nClip = 1;
  EXPECT_EQ(painted(image), "rrrr../rrr.../rr..../r...../");
  image.m_ClipX.SetSize(2), image.m_ClipY.SetSize(2);
  image.m_ClipY[1] = 1.5f;
  EXPECT_EQ(painted(image), "rrrr../rrrr../....../....../");
  image.m_nClip = 0;
  image.m_nFade = 100;  // to the background
  EXPECT_EQ(painted(image, 0, kBlue), "....../....../....../....../");
  image.m_nFade = 0, image.m_nBrightness = 100, image.m_nContrast = 0;
  EXPECT_EQ(painted(image).substr(0, 6), "wwwwww");
  image.m_nBrightness = image.m_nContrast = 50;
  image.set_picture(std::make_shared<RasterBitmap>(6, 4, kRed & 0xffffff));
  EXPECT_EQ(painted(image).substr(0, 6), "rrrrrr");  // alpha doesn't count
  image.m_nDisplay |= 8;
  EXPECT_EQ(painted(image).substr(0, 6), "......");
}

TEST(Image, OutlineMovesAndLoads) {
  DrawingScene scene;
  ACAD_IMAGE image;
  image.m_pDxf = &scene.dxf;
  image.m_nColor = 1;
  image.x = 10, image.y = 20, image.m_fWidth = 30, image.m_fHeight = 40;
  EXPECT_EQ(scene.drawn(image), "10,80-40,80 40,80-40,40 40,40-10,40 10,40-10,80");
  double quarter[] = {0, -1, 0, 1, 0, 0, 0, 0, 1}, twice[] = {2, 0, 0, 0, 2, 0, 0, 0, 1},
         move[] = {100, 5, 0};
  EXPECT_EQ(image.Transfer(quarter, move, twice), 1);
  EXPECT_EQ(box_of(image.GetFRect()), "-20,25,60,85");
  EXPECT_EQ(box_of(image.GetFRect3D(0, 1.57079637)), "-20,25,60,85");
  EXPECT_EQ(image.HitTest(CFRect(0, 30, 1, 31), 0, 0, 1.57079637), 1);
  EXPECT_EQ(image.HitTest(CFRect(0, 30, 1, 31), 1, 0, 1.57079637), 0);

  TemporaryFolder folder;
  const std::wstring path = folder.wide("p.png");
  EXPECT_FALSE(image.load_picture(path.c_str()));
  EXPECT_FALSE(image.load_picture(nullptr));
  ASSERT_TRUE(write_png(path.c_str(), RasterBitmap(3, 2, kGreen)));
  EXPECT_TRUE(image.load_picture(path.c_str()));
  EXPECT_EQ(image.m_fWidth, 3);
  const ImageLoader before = set_image_loader(
      [](const wchar_t*, RasterBitmap& picture) { return picture.create(7, 1, kRed); });
  EXPECT_TRUE(image.load_picture(L"anything"));
  EXPECT_EQ(image.picture()->width(), 7);
  EXPECT_EQ(set_image_loader(nullptr) == before, false);
  EXPECT_FALSE(image.load_picture(L"anything"));
}

struct Doubles : CArray<double> {
  Doubles(std::initializer_list<double> values) {
    for (double value : values) Add(value);
  }
};

TEST(Wipeout, CoversInTheBackgroundColour) {
  DrawingScene scene;
  DXF& dxf = scene.dxf;
  scene.dc.SetBkColor(0x123456);
  CArray<float> xs, ys;
  for (float x : {10, 30, 30, 20}) xs.Add(x);
  for (float y : {0, 0, 20, 10, 99}) ys.Add(y);  // the shorter array counts
  ACAD_WIPEOUT* const wipeouts[] = {
      dxf.Write_Wipeout(30.0, 5.0, 10.0, 25.0, L"0", L"1", L"BYLAYER"),
      dxf.Write_Wipeout(30.0f, 5.0f, 10.0f, 25.0f, L"0", L"BYLAYER", L"BYLAYER"),
      dxf.Write_Wipeout(xs, ys, L"0", L"1", L"BYLAYER"),
      dxf.Write_Wipeout(Doubles({10, 30, 20}), Doubles({0, 0, 10}), L"0", L"1", L"BYLAYER"),
      dxf.Write_Wipeout(-1e9, -1e9, 1e9, 1e9, L"0", L"1", L"BYLAYER"),
      dxf.Write_Wipeout(5.0, 5.0, 5.0, 5.0, L"0", L"1", L"BYLAYER"),
      dxf.Write_Wipeout(Doubles({}), Doubles({}), L"0", L"1", L"BYLAYER"),
  };
  const struct {
    const char *box, *calls;
  } expected[] = {{"10,5,30,25", "#10,75,30,95"},
                  {"10,5,30,25", "#10,75,30,95"},
                  {"10,0,30,20", "#11,81,30,100"},
                  {"10,0,30,10", "#11,91,29,100"},
                  {"-1000000000,-1000000000,1000000000,1000000000", "#-14000,-14000,14000,14000"},
                  {"5,5,5,5", ""},
                  {"0,0,1,1", "#0,99,1,100"}};
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    SCOPED_TRACE(i);
    ASSERT_NE(wipeouts[i], nullptr);
    EXPECT_EQ(box_of(wipeouts[i]->GetFRect()), expected[i].box);
    EXPECT_EQ(scene.drawn(*wipeouts[i]), expected[i].calls);
    for (const RecordedCall& call : scene.device.calls()) {
      EXPECT_EQ(call.state.brush.color, 0x123456u);
    }
  }
  EXPECT_EQ(wipeouts[2]->HitTest(CFRect(11, 5, 12, 6), 0, 0, 1.57079637), 0);  // in the hollow
  RecordedMessages user;
  EXPECT_EQ(dxf.Write_Wipeout(0.0, 0.0, 1.0, 1.0, L"gone", L"1", L"BYLAYER"), nullptr);
  EXPECT_EQ(take(user), std::vector<std::wstring>{L"301 Layer Name Error !"});
}

TEST(Wipeout, FormInFiles) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Write_Wipeout(10.0, 5.0, 30.0, 25.0, L"0", L"1", L"BYLAYER");
  dxf.Write_Wipeout(Doubles({10, 30, 30}), Doubles({0, 0, 10}), L"0", L"BYLAYER", L"BYLAYER");
  ASSERT_EQ(save(dxf, false, folder / "w.dxf"), 1);
  EXPECT_EQ(text_of(folder / "w.dxf").find("WIPEOUT\n"), std::string::npos);
  ASSERT_EQ(save(dxf, true, folder / "w.dxf"), 1);
  const std::string text = text_of(folder / "w.dxf");
  const auto form = [&](std::size_t from) {
    const std::size_t start = text.find("  8\n", text.find("  0\nWIPEOUT\n", from));
    return text.substr(start, text.find("  0\n", start) - start);
  };
  const std::string zero = "0.0000000000", middle =
                                               "340\n0\n 70\n7\n 280\n1\n 281\n50\n 282\n50\n"
                                               " 283\n0\n360\n0\n";
  expect_text(form(0),
              "  8\n0\n 62\n1\n100\nAcDbWipeout\n90\n0\n 10\n10.0000000000\n"
              " 20\n5.0000000000\n 30\n" +
                  zero + "\n 11\n20.0000000000\n 21\n" + zero + "\n 31\n" + zero + "\n 12\n" +
                  zero + "\n 22\n20.0000000000\n 32\n" + zero + "\n 13\n1.000000\n 23\n1.000000\n" +
                  middle +
                  " 71\n1\n 91\n2\n 14\n-0.500000\n 24\n-0.500000\n 14\n0.500000\n 24\n0.500000\n");
  const std::string second = form(text.find("AcDbWipeout"));
  expect_text(second.substr(second.find(" 71")),
              " 71\n2\n 91\n4\n 14\n-0.500000\n 24\n0.500000\n 14\n0.500000\n 24\n0.500000\n"
              " 14\n0.500000\n 24\n-0.500000\n 14\n-0.500000\n 24\n0.500000\n");
}

}  // namespace
}  // namespace brindle
