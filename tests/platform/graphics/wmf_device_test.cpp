#include "brindle/platform/graphics/wmf_device.h"

#include <set>
#include <vector>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/graphics/metafile_dc.h"
#include "tests/platform/graphics/file_device_scene.h"

namespace brindle {
namespace {

struct Record {
  unsigned function;
  std::string data;  // its parameters
  int word(std::size_t index) const { return number_at<SHORT>(data, index * 2); }
};

constexpr std::size_t kPlaceableBytes = 22, kHeaderBytes = 18;

// Takes the file apart and checks what every one must keep: checksum, lengths, the longest record,
// and that objects are made in the lowest free slot, selected and deleted only while they are
// there.
std::vector<Record> records_of(const std::string& file) {
  EXPECT_EQ(number_at<DWORD>(file, 0), 0x9AC6CDD7u);
  unsigned checksum = 0;
  for (std::size_t i = 0; i < kPlaceableBytes; i += 2) checksum ^= number_at<WORD>(file, i);
  EXPECT_EQ(checksum, 0u);
  const std::size_t header = kPlaceableBytes;
  EXPECT_EQ(number_at<WORD>(file, header), 1);
  EXPECT_EQ(number_at<WORD>(file, header + 2), 9);
  EXPECT_EQ(number_at<DWORD>(file, header + 6) * 2, file.size() - kPlaceableBytes);
  const unsigned slots = number_at<WORD>(file, header + 10);
  std::vector<Record> records;
  std::set<unsigned> live;
  std::size_t longest = 0;
  for (std::size_t at = header + kHeaderBytes; at < file.size();) {
    const std::size_t bytes = std::size_t{number_at<DWORD>(file, at)} * 2;
    if (bytes < 6 || at + bytes > file.size()) {
      ADD_FAILURE() << "a record of " << bytes << " bytes at " << at;
      break;
    }
    records.push_back({number_at<WORD>(file, at + 4), file.substr(at + 6, bytes - 6)});
    longest = std::max(longest, bytes / 2);
    at += bytes;
    const Record& record = records.back();
    const unsigned low = record.function & 0xff;
    if ((low >= 0xFA && low <= 0xFC) || record.function == 0x0142) {
      unsigned slot = 0;
      while (live.count(slot)) ++slot;
      EXPECT_LT(slot, slots);
      live.insert(slot);
    } else if (record.function == 0x012D) {
      EXPECT_TRUE(live.count(unsigned(record.word(0))));
    } else if (record.function == 0x01F0) {
      EXPECT_TRUE(live.erase(unsigned(record.word(0))));
    }
  }
  EXPECT_EQ(number_at<DWORD>(file, header + 12), longest);
  EXPECT_EQ(records.back().function, 0u);
  return records;
}

std::vector<Record> of_function(const std::vector<Record>& records, unsigned function) {
  std::vector<Record> found;
  for (const Record& record : records) {
    if (record.function == function) found.push_back(record);
  }
  return found;
}

class Wmf : public testing::Test {
 protected:
  std::vector<Record> finished(WmfDevice& device) {
    EXPECT_TRUE(device.finish());
    return records_of(bytes_of(folder / "a.wmf"));
  }
  TemporaryFolder folder;
  std::wstring path = folder.wide("a.wmf");
};

TEST_F(Wmf, HoldsEveryFigureInWholeRecords) {
  WmfDevice device(path.c_str(), {800, 600}, 300);
  draw_everything(device);
  const std::vector<Record> records = finished(device);
  const std::string file = bytes_of(folder / "a.wmf");
  EXPECT_EQ(number_at<SHORT>(file, 10), 800);
  EXPECT_EQ(number_at<SHORT>(file, 12), 600);
  EXPECT_EQ(number_at<WORD>(file, 14), 300);
  int saved = 0;
  for (const Record& record : records) {
    saved += record.function == 0x001E ? 1 : record.function == 0x0127 ? -1 : 0;
    EXPECT_GE(saved, 0);
  }
  EXPECT_EQ(saved, 0);
  for (const unsigned function : {0x0213, 0x0324, 0x0418, 0x041B, 0x0538, 0x061C, 0x061D, 0x0817,
                                  0x081A, 0x0830, 0x041F, 0x0A32, 0x0F43}) {
    EXPECT_FALSE(of_function(records, function).empty()) << std::hex << function;
  }
  EXPECT_FALSE(device.finish()) << "twice";
}

TEST_F(Wmf, CutsFarLinesWithoutTurningThem) {
  WmfDevice device(path.c_str(), {800, 600});
  device.line(plain_state(), {-100000, -50000}, {100000, 50000});
  device.line(plain_state(), {40000, 0}, {40000, 600});
  const std::vector<Record> records = finished(device);
  const auto lines = of_function(records, 0x0213);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].word(1), 32767);
  EXPECT_NEAR(lines[0].word(0), 32767 / 2, 1);
  const auto moves = of_function(records, 0x0214);
  ASSERT_EQ(moves.size(), 1u);
  EXPECT_EQ(moves[0].word(1), -32767);
}

TEST_F(Wmf, ContinuesAChainOfLinesWithoutMoving) {
  WmfDevice device(path.c_str(), {800, 600});
  const PaintState state = plain_state();
  for (int i = 0; i < 10; ++i) device.line(state, {i, i}, {i + 1, i + 1});
  const std::vector<Record> records = finished(device);
  EXPECT_EQ(of_function(records, 0x0213).size(), 10u);
  EXPECT_EQ(of_function(records, 0x0214).size(), 1u);
  EXPECT_EQ(of_function(records, 0x02FA).size(), 1u);
}

TEST_F(Wmf, UsesSlotsAgainWhenObjectsAreMany) {
  WmfDevice device(path.c_str(), {800, 600});
  PaintState state = plain_state();
  for (int i = 0; i < 500; ++i) {
    state.pen.color = RGB(i % 200, i / 200, 0);
    device.rectangle(state, CRect(0, 0, 9, 9));
  }
  const std::vector<Record> records = finished(device);
  EXPECT_EQ(of_function(records, 0x02FC).size(), 1u) << "the brush in use stays";
  EXPECT_LE(number_at<WORD>(bytes_of(folder / "a.wmf"), kPlaceableBytes + 10), 64);
}

TEST_F(Wmf, WritesTextInTheCodePageOfTheProcess) {
  const struct {
    unsigned page;
    int charset;
    std::string bytes;
  } cases[]{
      {936, 134,
       "\xC1\xBA"
       "A"},
      {950, 136,
       "\xB1\xE7"
       "A"},
      {65001, 134,
       "\xC1\xBA"
       "A"},
      {1252, 0, "?A"},
  };
  const unsigned before = ansi_code_page().number();
  for (const auto& expected : cases) {
    ASSERT_TRUE(set_ansi_code_page(expected.page));
    WmfDevice device(path.c_str(), {800, 600});
    const int advances[]{30, 12};
    device.text(plain_state(), {10, 20}, 0, nullptr, L"梁A", advances);
    const std::vector<Record> records = finished(device);
    const auto fonts = of_function(records, 0x02FB), texts = of_function(records, 0x0A32);
    ASSERT_EQ(fonts.size(), 1u);
    EXPECT_EQ(BYTE(fonts[0].data[13]), expected.charset) << expected.page;
    EXPECT_EQ(fonts[0].word(0), -20);
    ASSERT_EQ(texts.size(), 1u);
    const std::size_t count = expected.bytes.size();
    EXPECT_EQ(texts[0].word(0), 20);
    EXPECT_EQ(texts[0].word(1), 10);
    EXPECT_EQ(texts[0].word(2), int(count));
    EXPECT_EQ(texts[0].data.substr(8, count), expected.bytes) << expected.page;
    // One advance a byte; the second byte of a character has none of its own.
    int length = 0;
    for (std::size_t i = 0; i < count; ++i) length += texts[0].word(4 + (count + 1) / 2 + i);
    EXPECT_EQ(length, 42);
    EXPECT_EQ(texts[0].data.size(), 8 + (count + 1) / 2 * 2 + count * 2);
  }
  set_ansi_code_page(before);
}

TEST_F(Wmf, TellsTheStateAnewInAClip) {
  WmfDevice device(path.c_str(), {800, 600});
  PaintState state = plain_state();
  device.line(state, {0, 0}, {10, 10});
  const RegionData corner = RegionData(CRect(0, 0, 20, 20)) - RegionData(CRect(10, 10, 20, 20));
  state.clip = &corner;
  device.line(state, {10, 10}, {30, 10});
  state.clip = nullptr;
  device.line(state, {30, 10}, {50, 10});
  const std::vector<Record> records = finished(device);
  EXPECT_EQ(of_function(records, 0x02FA).size(), 1u);
  EXPECT_EQ(of_function(records, 0x012D).size(), 3u);
  EXPECT_EQ(of_function(records, 0x0214).size(), 3u);
  const auto gaps = of_function(records, 0x0415);
  ASSERT_EQ(gaps.size(), 1u);
  EXPECT_EQ(gaps[0].data, std::string("\x14\0\x14\0\x0a\0\x0a\0", 8));
}

TEST_F(Wmf, TakesTheBoxOfWhatIsDrawnWithoutASize) {
  WmfDevice device(path.c_str(), {0, 0});
  PaintState state = plain_state();
  state.pen.width = 5;
  device.line(state, {-10, 20}, {90, 40});
  finished(device);
  const std::string file = bytes_of(folder / "a.wmf");
  const int expected[]{-12, 18, 93, 43};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(number_at<SHORT>(file, 6 + 2 * i), expected[i]);
}

TEST_F(Wmf, LeavesTheOldFileWhenItCantOrNeedntWrite) {
  put_bytes(folder / "a.wmf", "old");
  { WmfDevice unfinished(path.c_str(), {8, 8}); }
  EXPECT_EQ(bytes_of(folder / "a.wmf"), "old");
  EXPECT_EQ(folder.file_count(), 1u);
  EXPECT_FALSE(WmfDevice(folder.wide("missing/a.wmf").c_str(), {8, 8}).finish());
  EXPECT_FALSE(WmfDevice(L"/dev/full", {8, 8}).finish());
}

TEST_F(Wmf, OpensAsAContextOfItsOwnKind) {
  CMetaFileDC dc;
  CDC plain;
  EXPECT_TRUE(dc.IsKindOf(RUNTIME_CLASS(CMetaFileDC)));
  EXPECT_FALSE(plain.IsKindOf(RUNTIME_CLASS(CMetaFileDC)));
  EXPECT_FALSE(dc.Close());
  ASSERT_TRUE(dc.Create(path.c_str(), {400, 300}));
  EXPECT_FALSE(dc.Create(path.c_str())) << "one is open";
  EXPECT_EQ(dc.GetDeviceCaps(TECHNOLOGY), DT_METAFILE);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 400);
  dc.Rectangle(1, 2, 30, 40);
  EXPECT_TRUE(dc.Close());
  EXPECT_EQ(of_function(records_of(bytes_of(folder / "a.wmf")), 0x041B).size(), 1u);
  // Ten by five centimetres; the size of a unit is the reference's.
  const CRect bounds(0, 0, 10000, 5000);
  ASSERT_TRUE(dc.CreateEnhanced(nullptr, path.c_str(), &bounds, L"brindle\0beam\0"));
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 378);
  EXPECT_TRUE(dc.CloseEnhanced());
  const std::string file = bytes_of(folder / "a.wmf");
  EXPECT_EQ(number_at<DWORD>(file, 40), 0x464D4520u);
  EXPECT_EQ(number_at<DWORD>(file, 60), 14u) << "both texts with their ends";
}

}  // namespace
}  // namespace brindle
