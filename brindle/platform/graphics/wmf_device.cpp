#include "brindle/platform/graphics/wmf_device.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/graphics/byte_writer_internal.h"
#include "brindle/platform/graphics/dib_internal.h"
#include "brindle/platform/graphics/file_device_internal.h"
#include "brindle/platform/graphics/metafile_records_internal.h"

namespace brindle {

namespace {

// Record numbers. The high byte tells the number of parameters of the fixed ones.
enum Function : WORD {
  kEof = 0x0000,
  kSaveDc = 0x001E,
  kSetBkMode = 0x0102,
  kSetMapMode = 0x0103,
  kSetRop2 = 0x0104,
  kSetPolyFillMode = 0x0106,
  kSetStretchBltMode = 0x0107,
  kRestoreDc = 0x0127,
  kSelectObject = 0x012D,
  kSetTextAlign = 0x012E,
  kDibCreatePatternBrush = 0x0142,
  kDeleteObject = 0x01F0,
  kSetBkColor = 0x0201,
  kSetTextColor = 0x0209,
  kSetWindowOrg = 0x020B,
  kSetWindowExt = 0x020C,
  kLineTo = 0x0213,
  kMoveTo = 0x0214,
  kCreatePenIndirect = 0x02FA,
  kCreateFontIndirect = 0x02FB,
  kCreateBrushIndirect = 0x02FC,
  kPolygon = 0x0324,
  kExcludeClipRect = 0x0415,
  kIntersectClipRect = 0x0416,
  kEllipse = 0x0418,
  kRectangle = 0x041B,
  kSetPixel = 0x041F,
  kPolyPolygon = 0x0538,
  kRoundRect = 0x061C,
  kPatBlt = 0x061D,
  kArc = 0x0817,
  kPie = 0x081A,
  kChord = 0x0830,
  kExtTextOut = 0x0A32,
  kStretchDib = 0x0F43,
};

constexpr int kLimit = 32767;
constexpr unsigned kDibPattern = 5;  // the style of a brush whose pattern is a DIB

// The page that text is written in, with the charset that tells readers so.
struct TextPage {
  const CodePage* page;
  BYTE charset;
};

TextPage text_page() {
  constexpr struct {
    unsigned number;
    BYTE charset;
  } kCharsets[]{
      {936, GB2312_CHARSET},   {54936, GB2312_CHARSET}, {950, CHINESEBIG5_CHARSET},
      {932, SHIFTJIS_CHARSET}, {949, HANGUL_CHARSET},   {1250, 238},
      {1251, RUSSIAN_CHARSET}, {1252, ANSI_CHARSET},    {1253, GREEK_CHARSET},
  };
  const unsigned number = ansi_code_page().number();
  for (const auto& known : kCharsets) {
    // GB18030's four bytes are beyond what a font of the charset shows.
    if (known.number == number)
      return {CodePage::find(number == 54936 ? 936 : number), known.charset};
  }
  return {CodePage::find(936), GB2312_CHARSET};
}

class WmfRecords final : public MetafileRecords {
 public:
  int limit() const override { return kLimit; }
  int most_corners() const override { return 16000; }  // counts are signed words to some readers

  void set_mode(StateMode mode, DWORD value) override;
  void create(int slot, const DrawingObject& object) override;
  void select(int slot) override { record(kSelectObject, {slot}); }
  void remove(int slot) override { record(kDeleteObject, {slot}); }
  bool clip(const RegionData* region) override;

  void move_to(CPoint at) override { record(kMoveTo, {at.y, at.x}); }
  void line_to(CPoint to) override { record(kLineTo, {to.y, to.x}); }
  void poly_polygon(const CPoint* points, const int* counts, int rings) override;
  void rectangle(const CRect& box) override {
    record(kRectangle, {box.bottom, box.right, box.top, box.left});
  }
  void round_rectangle(const CRect& box, CSize corner) override {
    record(kRoundRect, {corner.cy, corner.cx, box.bottom, box.right, box.top, box.left});
  }
  void ellipse(const CRect& box) override {
    record(kEllipse, {box.bottom, box.right, box.top, box.left});
  }
  void arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) override;
  void pattern_blt(const CRect& box, DWORD rop) override;
  void set_pixel(CPoint at, COLORREF color) override {
    record(kSetPixel, {color & 0xffff, color >> 16, at.y, at.x});
  }
  void text(const TextRecord& record) override;
  void bitmap(const CRect& to, const RasterBitmap& picture, DWORD rop) override;
  void blend(const CRect& to, const RasterBitmap& picture, BYTE opacity, bool use_alpha) override;

  std::string file(const MetafilePicture& picture) override;

 private:
  void record(Function function, std::initializer_list<LONGLONG> parameters);
  void begin(Function function);
  void end();

  ByteWriter body_;
  std::size_t record_start_ = 0;
  std::size_t longest_ = 0;  // bytes
  bool clips_ = false, too_long_ = false;
};

void WmfRecords::begin(Function function) {
  record_start_ = body_.size();
  body_.u32(0);
  body_.u16(function);
}

// Sets the record's length, which is told in words.
void WmfRecords::end() {
  body_.pad_to(2);
  const std::size_t bytes = body_.size() - record_start_;
  body_.set_u32(record_start_, static_cast<DWORD>(bytes / 2));
  longest_ = std::max(longest_, bytes);
}

void WmfRecords::record(Function function, std::initializer_list<LONGLONG> parameters) {
  begin(function);
  for (const LONGLONG parameter : parameters) body_.i16(static_cast<int>(parameter));
  end();
}

void WmfRecords::set_mode(StateMode mode, DWORD value) {
  constexpr Function kFunctions[kStateModes]{kSetRop2,          kSetPolyFillMode, kSetBkMode,
                                             kSetBkColor,       kSetTextColor,    kSetTextAlign,
                                             kSetStretchBltMode};
  const Function function = kFunctions[std::size_t(mode)];
  if (mode == StateMode::kBkColor || mode == StateMode::kTextColor) {
    record(function, {value & 0xffff, value >> 16});
  } else {
    record(function, {value});
  }
}

void WmfRecords::create(int, const DrawingObject& object) {
  if (const auto* pen = std::get_if<PenData>(&object)) {
    return record(kCreatePenIndirect, {pen->style & 0xffff, std::clamp(pen->width, 0, kLimit), 0,
                                       pen->color & 0xffff, pen->color >> 16});
  }
  if (const auto* brush = std::get_if<BrushData>(&object)) {
    if (brush->style == BS_PATTERN && brush->pattern != nullptr && !brush->pattern->empty()) {
      const std::string dib = packed_dib(*brush->pattern, 24);
      if (!dib.empty()) {
        begin(kDibCreatePatternBrush);
        body_.u16(kDibPattern);
        body_.u16(0);  // true colours
        body_.text(dib);
        return end();
      }
    }
    const int style = brush->style == BS_PATTERN ? BS_SOLID : brush->style;
    return record(kCreateBrushIndirect,
                  {style, brush->color & 0xffff, brush->color >> 16, brush->hatch});
  }
  const LOGFONT& font = std::get<LOGFONT>(object);
  const TextPage page = text_page();
  const BYTE charset = font.lfCharSet == SYMBOL_CHARSET ? SYMBOL_CHARSET : page.charset;
  begin(kCreateFontIndirect);
  for (const LONG value :
       {font.lfHeight, font.lfWidth, font.lfEscapement, font.lfOrientation, font.lfWeight}) {
    body_.i16(held_in(value, kLimit));
  }
  for (const BYTE value :
       {font.lfItalic, font.lfUnderline, font.lfStrikeOut, charset, font.lfOutPrecision,
        font.lfClipPrecision, font.lfQuality, font.lfPitchAndFamily}) {
    body_.u8(value);
  }
  // Characters of two bytes aren't halved: the face is cut where one starts.
  std::string face;
  for (const wchar_t character : std::wstring_view(font.lfFaceName)) {
    const std::string bytes = page.page->encode({&character, 1});
    if (face.size() + bytes.size() >= LF_FACESIZE) break;
    face += bytes;
  }
  face.resize(LF_FACESIZE);
  body_.text(face);
  end();
}

// A region record would stand in the reader's pixels; rectangles scale. Each clip starts from the
// state that the file saves at its start.
bool WmfRecords::clip(const RegionData* region) {
  clips_ = true;
  record(kRestoreDc, {-1});
  record(kSaveDc, {});
  if (region == nullptr) return true;
  const RegionData seen = *region & RegionData(CRect(-kLimit, -kLimit, kLimit, kLimit));
  const CRect& box = seen.box();
  record(kIntersectClipRect, {box.bottom, box.right, box.top, box.left});
  // Each gap reaches up or down to the box's edge where it can: some readers pass over thin ones.
  const RegionData gaps = RegionData(box) - seen;
  for (CRect gap : gaps) {
    if (gaps.contains(CRect(gap.left, box.top, gap.right, gap.bottom))) gap.top = box.top;
    if (gaps.contains(CRect(gap.left, gap.top, gap.right, box.bottom))) gap.bottom = box.bottom;
    record(kExcludeClipRect, {gap.bottom, gap.right, gap.top, gap.left});
  }
  return true;
}

void WmfRecords::poly_polygon(const CPoint* points, const int* counts, int rings) {
  int corners = 0;
  begin(rings == 1 ? kPolygon : kPolyPolygon);
  if (rings > 1) body_.i16(rings);
  for (int i = 0; i < rings; ++i) body_.i16(counts[i]), corners += counts[i];
  for (int i = 0; i < corners; ++i) body_.i16(points[i].x), body_.i16(points[i].y);
  end();
}

void WmfRecords::arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) {
  const Function function = form == PaintDevice::ArcForm::kArc   ? kArc
                            : form == PaintDevice::ArcForm::kPie ? kPie
                                                                 : kChord;
  record(function, {end.y, end.x, start.y, start.x, box.bottom, box.right, box.top, box.left});
}

void WmfRecords::pattern_blt(const CRect& box, DWORD rop) {
  record(kPatBlt, {rop & 0xffff, rop >> 16, std::min(box.Height(), kLimit),
                   std::min(box.Width(), kLimit), box.top, box.left});
}

void WmfRecords::text(const TextRecord& text) {
  const CodePage& page = *text_page().page;
  std::string bytes;
  std::vector<int> advances;  // one for each byte; the second of a pair has none of its own
  for (std::size_t i = 0; i < text.words.size(); ++i) {
    const std::size_t before = bytes.size();
    page.encode(text.words.substr(i, 1), bytes);
    if (bytes.size() > kLimit) {
      bytes.resize(before);
      break;
    }
    advances.resize(bytes.size());
    if (bytes.size() > before) advances[before] = held_in(text.advances[i], kLimit);
  }
  begin(kExtTextOut);
  body_.i16(text.at.y);
  body_.i16(text.at.x);
  body_.u16(unsigned(bytes.size()));
  body_.u16(text.options);
  if (text.options != 0) {
    for (const LONG edge : {text.box.left, text.box.top, text.box.right, text.box.bottom}) {
      body_.i16(edge);
    }
  }
  body_.text(bytes);
  body_.pad_to(2);
  if (!text.advances_natural) {
    for (const int advance : advances) body_.i16(advance);
  }
  end();
}

void WmfRecords::bitmap(const CRect& to, const RasterBitmap& picture, DWORD rop) {
  const std::string dib = packed_dib(picture, 24);
  if (dib.empty()) {
    too_long_ = true;
    return;
  }
  begin(kStretchDib);
  body_.u32(rop);
  body_.u16(0);  // true colours
  for (const int value : {picture.height(), picture.width(), 0, 0, std::min(to.Height(), kLimit),
                          std::min(to.Width(), kLimit), int(to.top), int(to.left)}) {
    body_.i16(value);
  }
  body_.text(dib);
  end();
}

void WmfRecords::blend(const CRect& to, const RasterBitmap& picture, BYTE opacity, bool use_alpha) {
  RasterBitmap mixed = picture;
  apply_opacity(mixed, opacity, use_alpha);
  std::uint32_t* pixels = mixed.data();
  const std::size_t count = std::size_t(mixed.width()) * std::size_t(mixed.height());
  std::transform(pixels, pixels + count, pixels,
                 [](std::uint32_t pixel) { return mixed_with(pixel, 0xffffff); });
  bitmap(to, mixed, SRCCOPY);
}

std::string WmfRecords::file(const MetafilePicture& picture) {
  constexpr DWORD kPlaceableKey = 0x9AC6CDD7;
  constexpr unsigned kHeaderWords = 9, kVersion = 0x300, kMemoryMetafile = 1;
  if (clips_) record(kRestoreDc, {-1});
  const std::string drawn = body_.bytes();
  body_ = {};
  const CRect& frame = picture.frame;
  const int width = std::min(frame.Width(), kLimit), height = std::min(frame.Height(), kLimit);
  record(kSetMapMode, {MM_ANISOTROPIC});
  record(kSetWindowOrg, {frame.top, frame.left});
  record(kSetWindowExt, {height, width});
  if (clips_) record(kSaveDc, {});
  body_.text(drawn);
  record(kEof, {});
  if (too_long_ || body_.size() > std::numeric_limits<DWORD>::max()) return {};

  ByteWriter file;
  file.u32(kPlaceableKey);
  file.u16(0);
  for (const int edge : {int(frame.left), int(frame.top), frame.left + width, frame.top + height}) {
    file.i16(held_in(edge, kLimit));
  }
  file.u16(unsigned(std::clamp(std::lround(picture.dpi), 1L, 65535L)));
  file.u32(0);
  unsigned checksum = 0;
  for (std::size_t i = 0; i < file.size(); i += 2) {
    checksum ^= BYTE(file.bytes()[i]) | unsigned(BYTE(file.bytes()[i + 1])) << 8;
  }
  file.u16(checksum);

  file.u16(kMemoryMetafile);
  file.u16(kHeaderWords);
  file.u16(kVersion);
  file.u32(static_cast<DWORD>(kHeaderWords + body_.size() / 2));
  file.u16(unsigned(picture.object_slots));
  file.u32(static_cast<DWORD>(longest_ / 2));
  file.u16(0);
  file.text(body_.bytes());
  return file.bytes();
}

}  // namespace

WmfDevice::WmfDevice(const wchar_t* path, CSize size, double dpi)
    : MetafileDevice(path, size, dpi, std::make_unique<WmfRecords>()) {}

}  // namespace brindle
