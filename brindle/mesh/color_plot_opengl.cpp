// The colour plot of a field in the scene view.
#include <GL/gl.h>

#include <vector>

#include "brindle/dxf/entity_opengl.h"
#include "brindle/mesh/color_map_internal.h"
#include "brindle/mesh/color_plot_internal.h"

namespace brindle {

void CChang::DrawYunTu_OpenGL() {
  const int slot = value_slot();
  const ValueRange range = value_range(*this, slot);
  // Before glBegin, which nothing may leave by an exception.
  std::vector<PlotCorners> triangles;
  triangles.reserve(static_cast<std::size_t>(m_arrayTri.GetSize()));
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i)
    triangles.emplace_back(*this, m_arrayTri.data()[i]);
  glDisable(GL_LIGHTING);
  glBegin(GL_TRIANGLES);
  for (const PlotCorners& corners : triangles) {
    for (const CChangNode* const node : corners.node) {
      const COLORREF color =
          palette_color(band_number(node->values[slot], range.min, range.max - range.min));
      glColor3f(static_cast<float>(GetRValue(color)) / 255,
                static_cast<float>(GetGValue(color)) / 255,
                static_cast<float>(GetBValue(color)) / 255);
      const Varnholt::ScenePoint at =
          Varnholt::to_scene({node->x, node->y, plot_height(*this, *node, slot, 1)});
      glVertex3f(static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(at.z));
    }
  }
  glEnd();
}

}  // namespace brindle
