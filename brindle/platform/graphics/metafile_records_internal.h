// MetafileRecords: the form of a metafile's records. MetafileRecorder, before it, decides what is
// recorded: which object is selected when, which parts of the state have to be told again.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "brindle/platform/graphics/figure_geometry_internal.h"
#include "brindle/platform/graphics/paint_device.h"

namespace brindle {

// The parts of the state that are one number.
enum class StateMode { kRop2, kFillMode, kBkMode, kBkColor, kTextColor, kTextAlign, kStretch };
inline constexpr int kStateModes = 7;

using DrawingObject = std::variant<PenData, BrushData, LOGFONT>;

// What the picture is, told when the last record is there. Boxes are in device units.
struct MetafilePicture {
  CRect frame;  // the whole picture
  CRect drawn;  // what is drawn in it
  double dpi = 96;
  int object_slots = 0;  // slots used, counted from 0
};

struct TextRecord {
  CPoint at;
  UINT options = 0;
  CRect box;  // with ETO_OPAQUE or ETO_CLIPPED in `options`
  std::wstring_view words;
  std::vector<int> advances;      // one for each wchar_t
  bool advances_natural = false;  // they are the font's own
  CRect around;                   // what the text covers
};

class MetafileRecords {
 public:
  virtual ~MetafileRecords() = default;

  // The largest coordinate, either way.
  virtual int limit() const = 0;
  // Corners of a ring, and rings of a figure, that one record holds.
  virtual int most_corners() const = 0;

  virtual void set_mode(StateMode mode, DWORD value) = 0;
  virtual void create(int slot, const DrawingObject& object) = 0;
  virtual void select(int slot) = 0;
  virtual void remove(int slot) = 0;
  // Sets the clip, null for none. True when the selections and modes are those of the start again.
  virtual bool clip(const RegionData* region) = 0;

  virtual void move_to(CPoint at) = 0;
  virtual void line_to(CPoint to) = 0;
  // False when the form tells its lines one by one.
  virtual bool polyline(const CPoint*, int) { return false; }
  virtual void poly_polygon(const CPoint* points, const int* counts, int rings) = 0;
  virtual void rectangle(const CRect& box) = 0;
  virtual void round_rectangle(const CRect& box, CSize corner) = 0;
  virtual void ellipse(const CRect& box) = 0;
  virtual void arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) = 0;
  virtual void pattern_blt(const CRect& box, DWORD rop) = 0;
  virtual void set_pixel(CPoint at, COLORREF color) = 0;
  virtual void text(const TextRecord& record) = 0;
  // A whole picture, not empty, into a normalised box.
  virtual void bitmap(const CRect& to, const RasterBitmap& picture, DWORD rop) = 0;
  virtual void blend(const CRect& to, const RasterBitmap& picture, BYTE opacity,
                     bool use_alpha) = 0;

  // The file's bytes; empty when they are more than the form can hold.
  virtual std::string file(const MetafilePicture& picture) = 0;
};

// Objects by slot: the lowest free one is taken, as readers count them; when all are, the one that
// wasn't used for longest and isn't selected goes.
class ObjectTable {
 public:
  // The slot of an object equal to `object`, made and selected if need be.
  void use(const DrawingObject& object, MetafileRecords& records);
  // Nothing is selected any more.
  void forget_selection() { selected_.fill(-1); }
  int slots() const { return int(entries_.size()); }

 private:
  static constexpr int kMostSlots = 64;
  struct Entry {
    DrawingObject object;
    unsigned last_use;
  };
  int slot_for_new() const;

  std::vector<Entry> entries_;
  std::array<int, 3> selected_{-1, -1, -1};  // by kind
  unsigned clock_ = 0;
};

// Turns figures with their state into records.
class MetafileRecorder {
 public:
  explicit MetafileRecorder(std::unique_ptr<MetafileRecords> records)
      : records_(std::move(records)) {}

  MetafileRecords& records() { return *records_; }
  int limit() const { return records_->limit(); }

  // Before a record of each kind.
  void prepare_outline(const PaintState& state, const PenData& pen);
  void prepare_fill(const PaintState& state, const BrushData& brush);
  void prepare_figure(const PaintState& state, const PenData& pen, const BrushData& brush);
  void prepare_text(const PaintState& state);
  void prepare_bitmap(const PaintState& state);
  void prepare_clip(const PaintState& state);
  void mode(StateMode mode, DWORD value);

  void line(CPoint from, CPoint to, int pen_width);
  void polyline(const CPoint* points, int count, int pen_width);
  // A filled figure in ALTERNATE or WINDING mode as the state before says.
  void polygons(const CPoint* points, const int* counts, int rings, int pen_width);
  // The box is drawn in; `margin` on each side.
  void touch(const CRect& box, int margin = 0);

  std::string file(CSize size, double dpi);

 private:
  std::unique_ptr<MetafileRecords> records_;
  ObjectTable objects_;
  std::array<std::optional<DWORD>, kStateModes> modes_;
  std::optional<RegionData> clip_;
  std::optional<CPoint> position_;
  std::optional<CRect> drawn_;
};

// The box around points, with its last row and column inside.
CRect box_around(const CPoint* points, int count);

}  // namespace brindle
