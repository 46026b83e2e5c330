// Drawing and measuring texts in shape fonts.
#include "brindle/dxf/shx_font.h"

#include <cmath>
#include <limits>

#include "brindle/dxf/shx_double_bytes_internal.h"
#include "brindle/dxf/shx_interpreter_internal.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle {

CShx G_ShapeFont;

const float CShx::kUnknownWidth = std::numeric_limits<float>::quiet_NaN();

namespace {

constexpr char32_t kFirstDouble = 161;
constexpr int kCells = 94;
constexpr BYTE kDefaultShape = 255;  // a byte that always takes the default shape

// trunc(2v) - trunc(v), the pixel of a coordinate; huge ones stop far outside of any device.
int to_pixel(float v) {
  constexpr float kFar = 1e9f;
  if (!(v > -kFar)) return std::isnan(v) ? 0 : static_cast<int>(-kFar);
  if (v >= kFar) return static_cast<int>(kFar);
  return static_cast<int>(2 * v) - static_cast<int>(v);
}

// What a displacement does to the pen: x += a dx + b dy, y += c dx + d dy.
struct Axes {
  float a, b, c, d;
};

Axes axes_of(float sx, float sy, float angle, int mode) {
  const float cosine = std::cos(angle), sine = std::sin(angle);
  const float along_y = mode == 1 ? -sine * sx : sine * sx;
  if (mode == 1) sy = -sy;
  return {cosine * sx, sine * sy, along_y, cosine * sy};
}

float radians(float degrees) {
  return degrees * 3.1415927f / 180;
}

// The characters of a text as shapes: `sink.small(byte)`, `sink.standin(times)` (the default shape
// of the small font), `sink.big(trail, lead)`.
template <class Sink>
void walk_double_byte_text(const CShx& font, const wchar_t* text, Sink& sink) {
  for (; *text != 0; ++text) {
    const auto c = static_cast<char32_t>(*text);
    if (c < kFirstDouble) {
      sink.small(static_cast<BYTE>(c));
      continue;
    }
    const unsigned bytes = double_bytes(c);
    if (bytes == 0) continue;
    if (bytes < 256) {
      sink.small(static_cast<BYTE>(bytes));
      return;
    }
    const unsigned lead = (bytes >> 8) - kFirstDouble, trail = (bytes & 255) - kFirstDouble;
    if ((bytes & 255) < kFirstDouble) {
      sink.standin(1);
    } else if (trail < kCells && lead < kCells && font.m_pHzIndex[trail][lead] >= 0) {
      sink.big(trail, lead);
    } else {
      sink.standin(2);
    }
  }
}

int small_offset(const CShx& font, BYTE byte) {
  return byte < kFirstDouble ? font.m_pTxtIndex[byte] : font.m_nTxtDefault;
}

// Draws shapes on the shared canvas. The place that code 5 saves is one for the whole process.
class Pen {
 public:
  Pen(const CShx& font, CDC* dc, CPoint at, const Axes& small_axes, const Axes& big_axes)
      : font_(font),
        canvas_(shared_safe_dc()),
        small_(small_axes),
        big_(big_axes),
        axes_(&small_),
        x_(static_cast<float>(at.x)),
        y_(static_cast<float>(at.y)) {
    canvas_.m_pDC = dc;
    canvas_.MoveTo(to_pixel(x_), to_pixel(y_));
  }

  void small(BYTE byte) { draw_small(small_offset(font_, byte)); }
  void standin(int times) {
    while (times-- > 0) draw_small(font_.m_nTxtDefault);
  }
  void big(unsigned trail, unsigned lead) {
    axes_ = &big_;
    ShxInterpreter<Pen>(font_, *this).run_big(font_.m_pHzIndex[trail][lead]);
  }

  void move(float dx, float dy, bool down) {
    x_ += axes_->a * dx + axes_->b * dy;
    y_ += axes_->c * dx + axes_->d * dy;
    const int x = to_pixel(x_), y = to_pixel(y_);
    if (!down) {
      canvas_.MoveTo(x, y);
    } else if (x != canvas_.m_ptCur.x || y != canvas_.m_ptCur.y) {
      canvas_.LineTo(x, y);
    }
  }
  void save() { saved_x = x_, saved_y = y_; }
  void restore() {
    x_ = saved_x, y_ = saved_y;
    canvas_.MoveTo(to_pixel(x_), to_pixel(y_));
  }

 private:
  void draw_small(int offset) {
    axes_ = &small_;
    ShxInterpreter<Pen>(font_, *this).run_small(offset);
  }

  inline static float saved_x = 0, saved_y = 0;

  const CShx& font_;
  CSafeDC& canvas_;
  const Axes small_, big_;
  const Axes* axes_;
  float x_, y_;
};

// The way of a shape along the text, in font units.
struct Ruler {
  float x = 0, saved = 0;
  void move(float dx, float, bool) { x += dx; }
  void save() { saved = x; }
  void restore() { x = saved; }
};

}  // namespace

CShx::CShx() = default;
CShx::~CShx() = default;

void CShx::DrawTxtShx(CDC* dc, int x, int y, const wchar_t* text, float h, float angle,
                      float widthFactor, int mode) {
  if (dc == nullptr || text == nullptr || !m_bTxtLoaded) return;
  const float sy = h / m_fTxtHeight;
  const Axes axes = axes_of(sy * widthFactor, sy, radians(angle), mode);
  Pen pen(*this, dc, CPoint(x, y), axes, axes);
  for (; *text != 0; ++text) pen.small(static_cast<BYTE>(*text));
}

void CShx::DrawTxtShx(CDC* dc, const CPoint& at, const wchar_t* text, float h, float angle,
                      float factor, int mode) {
  if (dc == nullptr || text == nullptr || !m_bTxtLoaded) return;
  const Axes axes = axes_of(factor / m_fTxtHeight, h / m_fTxtHeight, angle, mode);
  Pen pen(*this, dc, at, axes, axes);
  for (; *text != 0; ++text) pen.small(static_cast<BYTE>(*text));
}

void CShx::DrawHzShx(CDC* dc, int x, int y, const wchar_t* text, float h, float angle,
                     float widthFactor, int mode) {
  if (dc == nullptr || text == nullptr || !m_bTxtLoaded || !m_bHzLoaded) return;
  const float small = h / m_fTxtHeight, big = h / m_fHzHeight;
  const float turn = radians(angle);
  Pen pen(*this, dc, CPoint(x, y), axes_of(small * widthFactor, small, turn, mode),
          axes_of(big * widthFactor, big, turn, mode));
  walk_double_byte_text(*this, text, pen);
}

float CShx::small_width(int offset) {
  Ruler ruler;
  ShxInterpreter<Ruler>(*this, ruler).run_small(offset);
  return std::isfinite(ruler.x) ? ruler.x : 0;
}

float CShx::small_width(unsigned char byte) {
  float& width = small_widths_[byte];
  if (std::isnan(width)) width = small_width(small_offset(*this, byte));
  return width;
}

float CShx::big_width(unsigned trail, unsigned lead) {
  float& width = big_widths_[trail * kCells + lead];
  if (std::isnan(width)) {
    Ruler ruler;
    ShxInterpreter<Ruler>(*this, ruler).run_big(m_pHzIndex[trail][lead]);
    width = std::isfinite(ruler.x) ? ruler.x : 0;
  }
  return width;
}

float CShx::GetTxtWidth(const wchar_t* text, float h, float widthFactor) {
  if (text == nullptr || !m_bTxtLoaded) return 0;
  float width = 0;
  for (; *text != 0; ++text) width += small_width(static_cast<unsigned char>(*text));
  return width * h * widthFactor / m_fTxtHeight;
}

float CShx::GetHzWidth(const wchar_t* text, float h, float widthFactor) {
  if (text == nullptr || !m_bTxtLoaded || !m_bHzLoaded) return 0;
  struct Sum {
    CShx& font;
    float small_units = 0, big_units = 0;
    void small(BYTE byte) { small_units += font.small_width(byte); }
    void standin(int times) {
      small_units += static_cast<float>(times) * font.small_width(kDefaultShape);
    }
    void big(unsigned trail, unsigned lead) { big_units += font.big_width(trail, lead); }
  } sum{*this};
  walk_double_byte_text(*this, text, sum);
  return (sum.small_units / m_fTxtHeight + sum.big_units / m_fHzHeight) * h * widthFactor;
}

}  // namespace brindle
