#include "brindle/dxf/acad_image.h"

#include <algorithm>
#include <cstdio>

#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/image_painting_internal.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

enum DisplayBits { kShown = 1, kShownTurned = 2, kClipped = 4, kTransparent = 8 };

ImageLoader g_image_loader = read_png;

void write_fixed(DxfPairWriter& writer, const char* code, double value) {
  char digits[400];
  std::snprintf(digits, sizeof digits, "%.6f", value);
  writer.literal(code).literal(digits).end_line();
}

void project_vector(float& x, float& y, float& z, double angle1, double angle2) {
  float u = 0, v = 0;
  CFCoor::TouYing3Dto2D(x, y, z, static_cast<float>(angle1), static_cast<float>(angle2), u, v);
  x = u;
  y = v;
  z = 0;
}

}  // namespace

ImageLoader set_image_loader(ImageLoader loader) {
  return std::exchange(g_image_loader, loader != nullptr ? loader : read_png);
}

ACAD_IMAGE::ACAD_IMAGE(const ACAD_IMAGE& other) : ACAD_ENTITY(other) {
  *this = other;
}

ACAD_IMAGE::~ACAD_IMAGE() = default;

ACAD_IMAGE& ACAD_IMAGE::operator=(const ACAD_IMAGE& other) {
  if (this == &other) return *this;
  ACAD_ENTITY::operator=(other);
  x = other.x, y = other.y, z = other.z;
  ux = other.ux, uy = other.uy, uz = other.uz;
  vx = other.vx, vy = other.vy, vz = other.vz;
  m_fWidth = other.m_fWidth;
  m_fHeight = other.m_fHeight;
  m_nDisplay = other.m_nDisplay;
  m_nBrightness = other.m_nBrightness;
  m_nContrast = other.m_nContrast;
  m_nFade = other.m_nFade;
  m_nClip = other.m_nClip;
  m_nClipType = other.m_nClipType;
  m_ClipX.Copy(other.m_ClipX);
  m_ClipY.Copy(other.m_ClipY);
  picture_ = other.picture_;
  return *this;
}

void ACAD_IMAGE::Ini() {
  ACAD_ENTITY::Ini();
  x = y = z = 0;
  ux = 1, uy = uz = 0;
  vy = 1, vx = vz = 0;
  m_fWidth = m_fHeight = 1;
  m_nDisplay = kShown | kShownTurned | kClipped;
  m_nBrightness = m_nContrast = 50;
  m_nFade = 0;
  m_nClip = 0;
  m_nClipType = 2;
  m_ClipX.RemoveAll();
  m_ClipY.RemoveAll();
  picture_.reset();
}

bool ACAD_IMAGE::load_picture(const wchar_t* path) {
  auto picture = std::make_shared<RasterBitmap>();
  if (path == nullptr || !g_image_loader(path, *picture) || picture->empty()) return false;
  set_picture(std::move(picture));
  return true;
}

void ACAD_IMAGE::set_picture(std::shared_ptr<const RasterBitmap> picture) {
  picture_ = std::move(picture);
  if (picture_ == nullptr || picture_->empty()) return;
  m_fWidth = static_cast<float>(picture_->width());
  m_fHeight = static_cast<float>(picture_->height());
}

void ACAD_IMAGE::pixel_to_world(double column, double row, double& wx, double& wy,
                                double& wz) const {
  const double right = column + 0.5, up = m_fHeight - 0.5 - row;
  wx = x + right * ux + up * vx;
  wy = y + right * uy + up * vy;
  wz = z + right * uz + up * vz;
}

bool ACAD_IMAGE::is_clipped() const {
  return (m_nDisplay & kClipped) != 0 && m_nClip != 0 && m_ClipX.GetSize() >= 2 &&
         m_ClipX.GetSize() == m_ClipY.GetSize();
}

std::vector<CFPoint> ACAD_IMAGE::outline() const {
  std::vector<CFPoint> corners;
  const auto add = [&](double column, double row) {
    double wx = 0, wy = 0, wz = 0;
    pixel_to_world(column, row, wx, wy, wz);
    corners.emplace_back(static_cast<float>(wx), static_cast<float>(wy), static_cast<float>(wz));
  };
  const auto add_box = [&](double left, double top, double right, double bottom) {
    add(left, bottom);
    add(right, bottom);
    add(right, top);
    add(left, top);
  };
  if (!is_clipped()) {
    add_box(-0.5, -0.5, m_fWidth - 0.5, m_fHeight - 0.5);
  } else if (m_ClipX.GetSize() == 2) {
    add_box(m_ClipX[0], m_ClipY[0], m_ClipX[1], m_ClipY[1]);
  } else {
    for (INT_PTR i = 0; i < m_ClipX.GetSize(); ++i) add(m_ClipX[i], m_ClipY[i]);
    // In a file the last corner repeats the first.
    if (corners.front() == corners.back() && corners.size() > 3) corners.pop_back();
  }
  return corners;
}

CFRect ACAD_IMAGE::GetFRect() {
  CFRect box;
  bool first = true;
  for (const CFPoint& corner : outline()) {
    const CFRect point(corner, corner);
    box = first ? point : box.UnionFRect(point);
    first = false;
  }
  return box;
}

void ACAD_IMAGE::project(double angle1, double angle2) {
  project_vector(x, y, z, angle1, angle2);
  project_vector(ux, uy, uz, angle1, angle2);
  project_vector(vx, vy, vz, angle1, angle2);
}

CFRect ACAD_IMAGE::GetFRect3D(double angle1, double angle2) {
  ACAD_IMAGE seen(*this);
  seen.project(angle1, angle2);
  return seen.GetFRect();
}

void ACAD_IMAGE::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  const bool turned = uy != 0 || vx != 0;
  if ((m_nDisplay & kShown) != 0 && (!turned || (m_nDisplay & kShownTurned) != 0)) {
    paint(dc, coor, dx, dy);
  }
  const std::vector<CFPoint> corners = outline();
  const auto device_point = [&](std::size_t i) {
    const CFPoint& corner = corners[i % corners.size()];
    return to_device(coor, corner.x, corner.y, dx, dy);
  };
  if (has_frame()) {
    const PenStyleScope style(*this);
    const COLORREF color = drawing_color(*this);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      scope.canvas().PolyLine(device_point(i), device_point(i + 1), color, 0, nullptr, 0, 0);
    }
  }
  if (m_bSelected == 0) return;
  for (std::size_t i = 0; i < corners.size(); ++i) draw_grip(dc, device_point(i));
}

void ACAD_IMAGE::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  const std::unique_ptr<ACAD_IMAGE> seen(static_cast<ACAD_IMAGE*>(Clone()));
  seen->project(angle1, angle2);
  seen->Draw(dc, coor, 0, 0);
}

void ACAD_IMAGE::paint(CDC* dc, CFCoor* coor, double dx, double dy) const {
  if (picture_ == nullptr || picture_->empty()) return;
  PicturePlace place;
  double wz = 0;
  pixel_to_world(-0.5, -0.5, place.x, place.y, wz);
  place.x += dx;
  place.y += dy;
  // The image's pixels are the picture's, unless its size was changed afterwards.
  const double columns = m_fWidth / picture_->width(), rows = m_fHeight / picture_->height();
  place.column_x = ux * columns;
  place.column_y = uy * columns;
  place.row_x = -vx * rows;
  place.row_y = -vy * rows;
  PictureLook look;
  look.brightness = m_nBrightness;
  look.contrast = m_nContrast;
  look.fade = m_nFade;
  look.transparent = (m_nDisplay & kTransparent) != 0;
  paint_picture(dc, *coor, *picture_, place, look, outline(), dx, dy);
}

int ACAD_IMAGE::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  ACAD_IMAGE seen(*this);
  seen.project(angle1, angle2);
  const std::vector<CFPoint> corners = seen.outline();
  return hit_area(CFRegion(corners.data(), static_cast<int>(corners.size())), region, mode);
}

void ACAD_IMAGE::Draw3D_Opengl() {
  std::vector<ScenePoint> corners;
  for (const CFPoint& corner : outline()) corners.push_back({corner.x, corner.y, corner.z});
  scene_color(GetColorNew(m_nColor));
  scene_polyline(corners.data(), static_cast<int>(corners.size()), true);
}

template <class T>
void ACAD_IMAGE::transfer(const T* rot, const T* move, const T* scale) {
  double px = x, py = y, pz = z, px_u = ux, py_u = uy, pz_u = uz, px_v = vx, py_v = vy, pz_v = vz;
  TransOne(px, py, pz, rot, move, scale);
  const T* const none = nullptr;
  TransOne(px_u, py_u, pz_u, rot, none, scale);
  TransOne(px_v, py_v, pz_v, rot, none, scale);
  x = static_cast<float>(px), y = static_cast<float>(py), z = static_cast<float>(pz);
  ux = static_cast<float>(px_u), uy = static_cast<float>(py_u), uz = static_cast<float>(pz_u);
  vx = static_cast<float>(px_v), vy = static_cast<float>(py_v), vz = static_cast<float>(pz_v);
}

int ACAD_IMAGE::Transfer(double* rot, double* move, double* scale) {
  transfer(rot, move, scale);
  return 1;
}

int ACAD_IMAGE::Transfer(float* rot, float* move, float* scale) {
  transfer(rot, move, scale);
  return 1;
}

void ACAD_IMAGE::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  if (dialect == DxfDialect::kR12) return;
  writer.literal("  0\n").literal(GetObjectName()).end_line();
  writer.handle(m_nHandle);
  writer.literal("  330\n").hex(0).end_line();  // owned by no object of the file
  writer.literal("100\nAcDbEntity\n");
  writer.group(8, m_szLayer.c_str());
  writer.group(62, m_nColor >= 0 ? m_nColor : 256);
  writer.literal("100\n").literal(GetSubClassName()).end_line();
  writer.literal("90\n0\n");
  const float points[3][3] = {{x, y, z}, {ux, uy, uz}, {vx, vy, vz}};
  for (int point = 0; point < 3; ++point) {
    for (int axis = 0; axis < 3; ++axis) {
      writer.group((axis + 1) * 10 + point, static_cast<double>(points[point][axis]));
    }
  }
  write_fixed(writer, " 13\n", m_fWidth);
  write_fixed(writer, " 23\n", m_fHeight);
  writer.literal("340\n0\n");
  writer.group(70, m_nDisplay);
  writer.literal(" 280\n").integer(m_nClip).end_line();
  writer.literal(" 281\n").integer(m_nBrightness).end_line();
  writer.literal(" 282\n").integer(m_nContrast).end_line();
  writer.literal(" 283\n").integer(m_nFade).end_line();
  writer.literal("360\n0\n");
  writer.group(71, m_nClipType);
  const INT_PTR count = std::min(m_ClipX.GetSize(), m_ClipY.GetSize());
  writer.group(91, static_cast<int>(count));
  for (INT_PTR i = 0; i < count; ++i) {
    write_fixed(writer, " 14\n", m_ClipX[i]);
    write_fixed(writer, " 24\n", m_ClipY[i]);
  }
}

}  // namespace brindle::Varnholt
