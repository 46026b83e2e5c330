#include "brindle/platform/graphics/emf_device.h"

#include <map>
#include <set>
#include <vector>

#include "tests/platform/graphics/file_device_scene.h"

namespace brindle {
namespace {

struct Record {
  DWORD type;
  std::string bytes;  // with type and size
  LONG at(std::size_t offset) const { return number_at<LONG>(bytes, offset); }
};

constexpr DWORD kSelect = 37, kDelete = 40, kText = 84, kFont = 82, kClip = 75, kAlphaBlend = 114;
const std::set<DWORD> kCreating{38, 39, 82, 94, 95};

// Takes the file apart and checks its counts, its end, and that objects are there while they are
// selected.
std::vector<Record> records_of(const std::string& file) {
  std::vector<Record> records;
  std::set<LONG> live;
  for (std::size_t at = 0; at < file.size();) {
    const std::size_t bytes = number_at<DWORD>(file, at + 4);
    if (bytes < 8 || bytes % 4 != 0 || at + bytes > file.size()) {
      ADD_FAILURE() << "a record of " << bytes << " bytes at " << at;
      break;
    }
    records.push_back({number_at<DWORD>(file, at), file.substr(at, bytes)});
    at += bytes;
    const Record& record = records.back();
    if (kCreating.count(record.type)) {
      EXPECT_LT(record.at(8), number_at<WORD>(file, 56));
      EXPECT_GT(record.at(8), 0);
      EXPECT_TRUE(live.insert(record.at(8)).second) << "handle " << record.at(8) << " is in use";
    } else if (record.type == kSelect) {
      EXPECT_TRUE(live.count(record.at(8)));
    } else if (record.type == kDelete) {
      EXPECT_TRUE(live.erase(record.at(8)));
    }
  }
  EXPECT_EQ(records.front().type, 1u);
  EXPECT_EQ(number_at<DWORD>(file, 40), 0x464D4520u);
  EXPECT_EQ(number_at<DWORD>(file, 48), file.size());
  EXPECT_EQ(number_at<DWORD>(file, 52), records.size());
  EXPECT_EQ(records.back().type, 14u);
  EXPECT_EQ(records.back().at(16), 20);
  return records;
}

std::vector<Record> of_type(const std::vector<Record>& records, DWORD type) {
  std::vector<Record> found;
  for (const Record& record : records) {
    if (record.type == type) found.push_back(record);
  }
  return found;
}

class Emf : public testing::Test {
 protected:
  std::vector<Record> finished(EmfDevice& device) {
    EXPECT_TRUE(device.finish());
    return records_of(bytes_of(folder / "a.emf"));
  }
  TemporaryFolder folder;
  std::wstring path = folder.wide("a.emf");
};

TEST_F(Emf, HoldsEveryFigureInWholeRecords) {
  EmfDevice device(path.c_str(), {800, 600}, 100);
  draw_everything(device);
  const std::vector<Record> records = finished(device);
  const Record& header = records.front();
  // The frame in hundredths of a millimetre, and the same by the reference device's two sizes.
  EXPECT_EQ(header.at(32), 800 * 2540 / 100);
  EXPECT_EQ(header.at(36), 600 * 2540 / 100);
  EXPECT_EQ(header.at(72) * 254, header.at(80) * 1000) << "100 units an inch";
  std::map<DWORD, int> counts;
  for (const Record& record : records) ++counts[record.type];
  for (const DWORD type : {4u,  8u,  15u, 27u, 38u, 39u, 42u, 43u, 44u, 45u, 46u, 47u,
                           54u, 75u, 76u, 81u, 82u, 84u, 86u, 91u, 94u, 95u, 114u}) {
    EXPECT_GT(counts[type], 0) << type;
  }
  EXPECT_EQ(counts[kText], 11) << "the one far away is left out";
}

TEST_F(Emf, TellsTheBoundsOfWhatIsDrawn) {
  EmfDevice device(path.c_str(), {0, 0}, 254);
  device.rectangle(plain_state(), CRect(10, 20, 110, 70));
  const Record header = finished(device).front();
  const LONG expected[]{10, 20, 109, 69, 100, 200, 1100, 700};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(header.at(8 + 4 * i), expected[i]) << i;
}

TEST_F(Emf, TakesSixteenBitsOnlyWhereTheyDo) {
  for (const int far : {100, 40000}) {
    EmfDevice device(path.c_str(), {800, 600});
    const CPoint points[]{{0, 0}, {far, 5}, {7, -8}};
    device.polyline(plain_state(), points, 3);
    const std::vector<Record> records = finished(device);
    const bool small = far == 100;
    ASSERT_EQ(of_type(records, small ? 87 : 4).size(), 1u);
    const Record line = of_type(records, small ? 87 : 4)[0];
    EXPECT_EQ(line.at(24), 3);
    EXPECT_EQ(small ? number_at<SHORT>(line.bytes, 32) : line.at(36), far);
  }
}

TEST_F(Emf, GivesEachUnitOfTextItsAdvance) {
  EmfDevice device(path.c_str(), {800, 600});
  const int advances[]{30, 40, 12};
  device.text(plain_state(), {10, 20}, 0, nullptr, std::wstring(L"梁\U00020BB7A"), advances);
  const std::vector<Record> records = finished(device);
  const Record text = of_type(records, kText).at(0);
  EXPECT_EQ(text.at(44), 4);
  const std::size_t words = std::size_t(text.at(48)), places = std::size_t(text.at(72));
  EXPECT_EQ(text.bytes.substr(words, 8), std::string("\x81\x68\x42\xD8\xB7\xDF\x41\0", 8));
  EXPECT_EQ(places, words + 8);
  const LONG expected[]{30, 40, 0, 12};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(text.at(places + 4 * i), expected[i]);
  const Record font = of_type(records, kFont).at(0);
  EXPECT_EQ(font.bytes.size(), 332u);
  EXPECT_EQ(font.at(12), -20);
  EXPECT_EQ(font.bytes.substr(40, 6), std::string("\x8b\x5b\x53\x4f\0\0", 6));
}

TEST_F(Emf, CutsToARegionAndOpensTheClipAgain) {
  EmfDevice device(path.c_str(), {800, 600});
  PaintState state = plain_state();
  const RegionData ring = RegionData(CRect(0, 0, 30, 30)) - RegionData(CRect(10, 10, 20, 20));
  state.clip = &ring;
  device.line(state, {0, 0}, {90, 90});
  state.clip = nullptr;
  device.line(state, {0, 0}, {90, 90});
  const auto clips = of_type(finished(device), kClip);
  ASSERT_EQ(clips.size(), 3u);
  EXPECT_EQ(clips[0].at(8), 0);
  EXPECT_EQ(clips[1].at(8), 32 + 4 * 16);
  EXPECT_EQ(clips[1].at(12), RGN_AND);
  EXPECT_EQ(clips[1].at(24), 4);
  EXPECT_EQ(clips[2].at(12), RGN_COPY);
}

TEST_F(Emf, MultipliesColoursByTheirAlpha) {
  EmfDevice device(path.c_str(), {800, 600});
  const RasterBitmap picture(1, 1, 0x80ff4000);
  device.blend(plain_state(), CRect(0, 0, 9, 9), picture, CRect(0, 0, 1, 1), 255, true);
  const Record blend = of_type(finished(device), kAlphaBlend).at(0);
  EXPECT_EQ(blend.at(40), 0x01ff0000);
  EXPECT_EQ(blend.at(std::size_t(blend.at(92))), LONG(0x80802000));
}

}  // namespace
}  // namespace brindle
