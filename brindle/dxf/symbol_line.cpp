#include "brindle/dxf/symbol_line.h"

#include <algorithm>
#include <cmath>

#include "brindle/dxf/acad_entity.h"
#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/drawing_globals.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr double kShortest = 9.999999747378752e-06;  // pixels
constexpr double kNormalStep = 1.0, kSelectedStep = 2.5;
constexpr int kLeastText = 6;           // pixels
constexpr double kMostRepeats = 20000;  // of the pattern on one line
constexpr double kDegreesOfRadian = 180.0 / 3.14159265358979323846;

// Positions along the line, world units.
struct Stretch {
  double from, to;
};

}  // namespace

// A line on its way to a device.
class SymbolLineWalk {
 public:
  SymbolLineWalk(const CSymbolLineDrawer& line, CDC* dc, CSafeDC& canvas)
      : line_(line),
        dc_(dc),
        canvas_(canvas),
        scale_(double{line.m_fLtScale} * line.m_fDxfScale),
        length_(std::hypot(double{line.m_fX2} - line.m_fX1, double{line.m_fY2} - line.m_fY1)),
        cosine_((double{line.m_fX2} - line.m_fX1) / length_),
        sine_((double{line.m_fY2} - line.m_fY1) / length_) {
    for (float dash : line.m_Dash) {
      if (dash != CSymbolLineDrawer::kTextMark) period_ += std::fabs(dash * scale_);
    }
  }

  void draw() {
    // Written so that a length that is no number ends here, and such a pattern is solid.
    if (!(line_.m_pCoor->FPtoDP(length_) >= kShortest) || !std::isfinite(length_)) return;
    const double step = canvas_.m_nPenStyle == 0 ? kNormalStep : kSelectedStep;
    if (line_.m_bContinuous || !(line_.m_pCoor->FPtoDP(period_) >= 2 * step)) {
      stroke({0, length_});
      return;
    }
    const Stretch seen = visible();
    const double first = std::floor(seen.from / period_);
    if ((seen.to - seen.from) / period_ > kMostRepeats) {
      stroke({0, length_});
      return;
    }
    for (double start = first * period_; start < seen.to; start += period_) walk_once(start);
  }

 private:
  CPoint place(double along) const {
    return to_device(line_.m_pCoor, line_.m_fX1 + along * cosine_, line_.m_fY1 + along * sine_, 0,
                     0);
  }

  void stroke(Stretch stretch) {
    canvas_.PolyLine(place(stretch.from), place(stretch.to), line_.m_nColor, 0, nullptr, 0, 0);
  }

  // The part of the line near the canvas's limit; all of it on a metafile.
  Stretch visible() const {
    Stretch seen{0, length_};
    if (is_metafile(dc_)) return seen;
    canvas_.SetLimit(0);
    const float* const limit = canvas_.m_fLimit;
    const CFPoint a =
        line_.m_pCoor->DPtoFP(CPoint(length_to_pixels(limit[0]), length_to_pixels(limit[1])));
    const CFPoint b =
        line_.m_pCoor->DPtoFP(CPoint(length_to_pixels(limit[2]), length_to_pixels(limit[3])));
    // Texts reach beyond the point that they belong to.
    const double margin = period_ + reach();
    cut(seen, line_.m_fX1, cosine_, std::min(a.x, b.x) - margin, std::max(a.x, b.x) + margin);
    cut(seen, line_.m_fY1, sine_, std::min(a.y, b.y) - margin, std::max(a.y, b.y) + margin);
    return seen;
  }

  // Leaves the positions whose coordinate lies between two values.
  static void cut(Stretch& seen, double start, double direction, double low, double high) {
    if (std::fabs(direction) < 1e-12) {
      if (start < low || start > high) seen.to = seen.from;
      return;
    }
    const double a = (low - start) / direction, b = (high - start) / direction;
    seen.from = std::max(seen.from, std::min(a, b));
    seen.to = std::min(seen.to, std::max(a, b));
  }

  // How far a text may lie from its point, world units.
  double reach() const {
    constexpr int kMostCharacters = 100;
    double most = 0;
    for (const TextIns& text : line_.m_Texts) {
      const double height =
          std::max(std::fabs(double{text.S} * G_RatioText), line_.m_pCoor->DPtoFP(kLeastText));
      const double away = std::fabs(text.X * scale_) + std::fabs(text.Y * scale_);
      most = std::max(most, away + kMostCharacters * height);
    }
    return most;
  }

  // One pass through the pattern.
  void walk_once(double at) {
    INT_PTR next_text = 0;
    for (float element : line_.m_Dash) {
      if (at >= length_) return;
      if (element == CSymbolLineDrawer::kTextMark) {
        if (next_text < line_.m_Texts.GetSize()) draw_text(line_.m_Texts[next_text++], at);
        continue;
      }
      const double dash = element * scale_;
      const double next = std::min(at + std::fabs(dash), length_);
      if (dash == 0) {
        canvas_.SetPixel(place(at), line_.m_nColor);
      } else if (dash > 0) {
        stroke({at, next});
      }
      at = next;
    }
  }

  void draw_text(const TextIns& text, double at) {
    double height = double{text.S} * G_RatioText;
    int pixels = length_to_pixels(line_.m_pCoor->FPtoDP(height));
    if (pixels < kLeastText) {
      pixels = kLeastText;
      height = line_.m_pCoor->DPtoFP(pixels);
    }
    const double up = height + text.Y * scale_, back = text.X * scale_;
    const CPoint anchor =
        to_device(line_.m_pCoor, line_.m_fX1 + at * cosine_ - up * sine_ - back * cosine_,
                  line_.m_fY1 + at * sine_ + up * cosine_ - back * sine_, 0, 0);
    const double turn = text.R + std::atan2(sine_, cosine_) * kDegreesOfRadian;

    LOGFONT logical{};
    logical.lfHeight = pixels;
    logical.lfWidth = length_to_pixels(pixels * 0.7 * 27 / 37);
    logical.lfEscapement = logical.lfOrientation = length_to_pixels(turn * 10);
    logical.lfWeight = FW_NORMAL;
    logical.lfCharSet = 0x86;
    logical.lfQuality = PROOF_QUALITY;
    lstrcpyn(logical.lfFaceName, L"宋体", LF_FACESIZE);
    CFont font;
    if (!font.CreateFontIndirect(&logical)) return;
    CFont* const old_font = dc_->SelectObject(&font);
    const COLORREF old_color = dc_->SetTextColor(line_.m_nColor);
    const UINT old_align = dc_->SetTextAlign(0);
    const int old_mode = dc_->SetBkMode(TRANSPARENT);
    dc_->TextOut(anchor.x, anchor.y, text.m_szText, text.m_szText.size());
    dc_->SetBkMode(old_mode);
    dc_->SetTextAlign(old_align);
    dc_->SetTextColor(old_color);
    dc_->SelectObject(old_font);
  }

  const CSymbolLineDrawer& line_;
  CDC* dc_;
  CSafeDC& canvas_;
  double scale_, length_, cosine_, sine_;
  double period_ = 0;  // length of the pattern, texts excepted
};

void CSymbolLineDrawer::Draw(CDC* dc) const {
  if (dc == nullptr || m_pCoor == nullptr) return;
  CanvasScope scope(dc);
  SymbolLineWalk(*this, dc, scope.canvas()).draw();
}

void draw_symbol_line(CDC* dc, const CFCoor* coor, const ACAD_ENTITY& entity,
                      const ACAD_LTYPE& ltype, double lt_scale, double x1, double y1, double x2,
                      double y2) {
  CanvasScope scope(dc);
  const PenStyleScope style(entity);
  CSymbolLineDrawer drawer;
  drawer.m_bContinuous = ltype.m_szName == L"CONTINUOUS";
  if (!drawer.m_bContinuous) drawer.Load(ltype.m_szName);
  drawer.m_fX1 = static_cast<float>(x1);
  drawer.m_fY1 = static_cast<float>(y1);
  drawer.m_fX2 = static_cast<float>(x2);
  drawer.m_fY2 = static_cast<float>(y2);
  drawer.m_fLtScale = static_cast<float>(lt_scale);
  drawer.m_fDxfScale = entity.m_pDxf != nullptr ? static_cast<float>(entity.m_pDxf->m_dLtScale) : 1;
  drawer.m_pCoor = coor;
  drawer.m_nColor = drawing_color(entity);
  drawer.Draw(dc);
}

}  // namespace brindle::Varnholt
