#include "brindle/dxf/drawing_picture.h"

#include <algorithm>
#include <cmath>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {

CFCoor picture_transform(DXF& drawing, const PictureView& view) {
  const CFRect box =
      view.axonometric ? drawing.GetFRect3D(view.angle1, view.angle2) : drawing.GetFRect();
  const double width = static_cast<double>(box.right) - box.left;
  const double height = static_cast<double>(box.top) - box.bottom;
  const double room_x = view.size.cx * (1 - 2 * view.margin);
  const double room_y = view.size.cy * (1 - 2 * view.margin);
  double scale = 1;
  if (width > 0 && height > 0) {
    scale = std::min(room_x / width, room_y / height);
  } else if (width > 0) {
    scale = room_x / width;
  } else if (height > 0) {
    scale = room_y / height;
  }
  if (!(scale > 0) || !std::isfinite(scale)) scale = 1;
  const double middle_x = (static_cast<double>(box.left) + box.right) / 2;
  const double middle_y = (static_cast<double>(box.bottom) + box.top) / 2;
  const CFPoint origin(static_cast<float>(middle_x - view.size.cx / 2.0 / scale),
                       static_cast<float>(middle_y + view.size.cy / 2.0 / scale), 0);
  CFCoor coor;
  coor.Init(origin, static_cast<float>(scale), 1);
  return coor;
}

namespace {

// The canvas clips at the screen, which is the picture meanwhile.
class PictureScreen {
 public:
  explicit PictureScreen(CSize size)
      : width_(GetSystemMetrics(SM_CXSCREEN)), height_(GetSystemMetrics(SM_CYSCREEN)) {
    set_screen_size(size.cx, size.cy);
  }
  ~PictureScreen() { set_screen_size(width_, height_); }
  PictureScreen(const PictureScreen&) = delete;
  PictureScreen& operator=(const PictureScreen&) = delete;

 private:
  int width_, height_;
};

}  // namespace

int draw_picture(DXF& drawing, CDC& dc, const PictureView& view) {
  if (drawing.m_bMemMode == 0) return 0;
  const PictureScreen screen(view.size);
  const CRect page(0, 0, view.size.cx, view.size.cy);
  if (view.fills_background) dc.FillSolidRect(page, view.background);
  dc.SetBkColor(view.background);
  CFCoor coor = picture_transform(drawing, view);
  CFCoor* before = drawing.m_pCoor;
  if (view.axonometric) {
    drawing.Draw3D(&dc, &coor, view.angle1, view.angle2);
  } else {
    drawing.Draw(&dc, &coor, CRect(0, 0, 0, 0));
  }
  drawing.m_pCoor = before;
  return 1;
}

}  // namespace brindle
