// A face of Qt at one pixel size, and the pictures of its glyphs.
#pragma once

#include <cstdint>
#include <map>
#include <QFont>
#include <QPainterPath>
#include <QRawFont>
#include <QTransform>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "brindle/platform/graphics/glyph_renderer.h"

namespace brindle {

// Outlines, advances and metrics are taken at this many pixels for an em square, without hints.
inline constexpr int kReferenceSize = 1024;

struct QtGlyph {
  QRawFont font;  // invalid when nothing stands for the character
  quint32 index = 0;
  double advance = 0;  // pixels of the face
};

// Of one glyph about its origin, as GlyphMask.
struct QtGlyphImage {
  int left = 0, top = 0, width = 0, height = 0;
  std::vector<std::uint8_t> coverage;
};

class QtFace {
 public:
  // Family, weight, italic, pixel size, smooth.
  using Key = std::tuple<std::wstring, int, bool, int, bool>;
  static Key key_of(const GlyphFont& font, int pixel_size);

  explicit QtFace(const Key& key);

  // Of the face itself; other faces stand in for the characters that it lacks.
  const QRawFont& primary() const { return primary_; }
  const QtGlyph& glyph(char32_t character);
  // Bold is made by striking twice where the face has no bold form.
  QPainterPath path(char32_t character);

  // Drawn glyphs under one linear map, by character and place within the pixel.
  class Images {
   public:
    Images(QtFace& face, const QTransform& linear, bool smooth)
        : face_(face), linear_(linear), smooth_(smooth) {}
    // The place is told in quarters of a pixel. Adds to `bytes` what it keeps.
    const QtGlyphImage& image(char32_t character, int quarters_x, int quarters_y,
                              std::size_t& bytes);

   private:
    QtGlyphImage draw(char32_t character, int quarters_x, int quarters_y) const;

    QtFace& face_;
    QTransform linear_;
    bool smooth_;
    std::unordered_map<std::uint64_t, QtGlyphImage> kept_;
  };
  Images& images(const QTransform& linear, bool smooth);
  void forget_images() { images_.clear(); }

 private:
  QFont font_;
  QRawFont primary_;
  bool strikes_twice_ = false;
  int size_;
  std::unordered_map<char32_t, QtGlyph> glyphs_;
  std::map<std::tuple<double, double, double, double, bool>, Images> images_;
};

}  // namespace brindle
