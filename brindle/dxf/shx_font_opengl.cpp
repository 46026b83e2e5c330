// Text of filled outlines in OpenGL.
#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <list>
#include <memory>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/graphics/glyph_renderer.h"

namespace brindle {

namespace {

constexpr int kLists = 256;
constexpr int kFirstPrintable = 32;
// The tessellator works on this many units an em, so that chords and its own tolerance are fine.
constexpr double kEm = 1000;
constexpr double kTolerance = 2;

// Polygons of an outline, straight into the display list under construction.
class OutlineFiller {
 public:
  OutlineFiller() : tess_(gluNewTess()) {
    if (tess_ == nullptr) return;
    set(GLU_TESS_BEGIN_DATA, [](GLenum kind, void*) { glBegin(kind); });
    set(GLU_TESS_END_DATA, [](void*) { glEnd(); });
    set(GLU_TESS_VERTEX_DATA, [](void* corner, void*) {
      const double* p = static_cast<const double*>(corner);
      glVertex2d(p[0] / kEm, p[1] / kEm);
    });
    set(GLU_TESS_COMBINE_DATA,
        [](const GLdouble at[3], void* [4], const GLfloat[4], void** corner, void* filler) {
          *corner = static_cast<OutlineFiller*>(filler)->keep(at[0], at[1]);
        });
    gluTessProperty(tess_, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessNormal(tess_, 0, 0, 1);
  }
  ~OutlineFiller() {
    if (tess_ != nullptr) gluDeleteTess(tess_);
  }
  OutlineFiller(const OutlineFiller&) = delete;
  OutlineFiller& operator=(const OutlineFiller&) = delete;

  void fill(const GlyphOutline& outline) {
    if (tess_ == nullptr) return;
    corners_.clear();
    gluTessBeginPolygon(tess_, this);
    for (const auto& ring : outline.rings) {
      gluTessBeginContour(tess_);
      for (const auto& point : ring) {
        double* corner = keep(point.x, -point.y);
        gluTessVertex(tess_, corner, corner);
      }
      gluTessEndContour(tess_);
    }
    gluTessEndPolygon(tess_);
  }

 private:
  template <class Callback>
  void set(GLenum which, Callback callback) {
    // +callback is a plain function; the tessellator knows its arguments by `which`.
    gluTessCallback(tess_, which, reinterpret_cast<void (*)()>(+callback));
  }
  double* keep(double x, double y) {
    return corners_.emplace_back(std::array<double, 3>{x, y, 0}).data();
  }

  GLUtesselator* tess_;
  std::list<std::array<double, 3>> corners_;  // stay where they are until the polygon is done
};

GLYPHMETRICSFLOAT metrics_of_outline(const GlyphOutline& outline, double advance) {
  GLYPHMETRICSFLOAT metrics;
  metrics.gmfCellIncX = static_cast<float>(advance / kEm);
  double left = HUGE_VAL, right = -HUGE_VAL, top = HUGE_VAL, bottom = -HUGE_VAL;
  for (const auto& ring : outline.rings) {
    for (const auto& point : ring) {
      left = std::min(left, point.x);
      right = std::max(right, point.x);
      top = std::min(top, point.y);
      bottom = std::max(bottom, point.y);
    }
  }
  if (left > right) return metrics;
  metrics.gmfBlackBoxX = static_cast<float>((right - left) / kEm);
  metrics.gmfBlackBoxY = static_cast<float>((bottom - top) / kEm);
  metrics.gmfptGlyphOrigin.x = static_cast<float>(left / kEm);
  metrics.gmfptGlyphOrigin.y = static_cast<float>(-top / kEm);
  return metrics;
}

}  // namespace

void CShx::FormTxtList(CDC*) {
  if (m_bListMade) glDeleteLists(static_cast<GLuint>(m_nListBase), kLists);
  m_bListMade = 0;
  GlyphRenderer* renderer = glyph_renderer();
  if (renderer == nullptr) return;
  const GLuint base = glGenLists(kLists);
  if (base == 0) return;

  GlyphFont font;
  font.face = L"Arial";
  font.em_size = kEm;
  font.weight = FW_SEMIBOLD;
  OutlineFiller filler;
  for (int i = 0; i < kLists; ++i) {
    const auto character = static_cast<wchar_t>(i);
    GlyphOutline outline;
    std::vector<double> advances;
    if (i >= kFirstPrintable) {
      renderer->outline(font, {&character, 1}, nullptr, {}, kTolerance, outline);
      renderer->advances(font, {&character, 1}, advances);
    }
    m_glyphMetrics[i] = metrics_of_outline(outline, advances.empty() ? 0 : advances[0]);
    glNewList(base + static_cast<GLuint>(i), GL_COMPILE);
    filler.fill(outline);
    glTranslatef(m_glyphMetrics[i].gmfCellIncX, m_glyphMetrics[i].gmfCellIncY, 0);
    glEndList();
  }
  m_nListBase = static_cast<int>(base);
  m_bListMade = 1;
}

void CShx::DrawTxtTrueType_OpenGL(double x, double y, double z, const wchar_t* text, double h,
                                  double angle, double widthFactor, double rotX, double rotY) {
  constexpr double kMillimetre = 0.001, kNoTurn = 1e-5;
  if (text == nullptr || !m_bTxtLoaded || !m_bListMade) return;
  std::vector<GLubyte> bytes;
  for (const wchar_t* c = text; *c != 0; ++c) {
    bytes.push_back(static_cast<GLubyte>(*c & 0xFF));
    bytes.push_back(static_cast<GLubyte>(*c >> 8 & 0xFF));
  }
  const auto count = static_cast<GLsizei>(bytes.size() / 2);

  glPushMatrix();
  glPushAttrib(GL_LIST_BIT);
  glTranslated(x, y, z);
  glRotated(angle, 0, 0, 1);
  if (std::fabs(rotX) > kNoTurn) glRotated(rotX, 1, 0, 0);
  if (std::fabs(rotY) > kNoTurn) glRotated(rotY, 0, 1, 0);
  glScaled(h * widthFactor * kMillimetre, h * kMillimetre, 1);
  glListBase(static_cast<GLuint>(m_nListBase));
  glCallLists(count, GL_UNSIGNED_BYTE, bytes.data());
  glPopAttrib();
  glPopMatrix();
}

}  // namespace brindle
