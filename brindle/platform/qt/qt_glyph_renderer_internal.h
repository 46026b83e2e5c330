// Outline fonts by Qt: the system's faces, each glyph drawn once and kept.
#pragma once

#include "brindle/platform/graphics/glyph_renderer.h"
#include "brindle/platform/qt/qt_face_internal.h"

#include <map>
#include <memory>

namespace brindle {

// Works in the application's thread only, and as long as there is a QGuiApplication; otherwise all
// functions return false.
class QtGlyphRenderer : public GlyphRenderer {
 public:
  bool metrics(const GlyphFont& font, GlyphMetrics& out) override;
  bool advances(const GlyphFont& font, std::wstring_view words, std::vector<double>& out) override;
  bool render(const GlyphFont& font, std::wstring_view words, const double* advances,
              const GlyphMap& map, const CRect& bounds, GlyphMask& out) override;
  bool outline(const GlyphFont& font, std::wstring_view words, const double* advances,
               const GlyphMap& map, double tolerance, GlyphOutline& out) override;

  // Lets go of all faces, which must not outlive the application.
  void clear();

 private:
  QtFace& face(const GlyphFont& font, int pixel_size);
  // The run's outlines and lines before the map.
  QPainterPath run_path(const GlyphFont& font, std::wstring_view words, const double* advances);
  void render_path(const QPainterPath& path, const CRect& bounds, bool smooth, GlyphMask& out);
  void render_kept(const GlyphFont& font, std::wstring_view words, const double* advances,
                   const GlyphMap& map, const CRect& bounds, GlyphMask& out);

  std::map<QtFace::Key, std::unique_ptr<QtFace>> faces_;
  std::size_t image_bytes_ = 0;
};

// Lets the usual Chinese faces be shown with what the system has, where it lacks them.
void substitute_chinese_faces();

}  // namespace brindle
