// A raster picture placed in a drawing.
#pragma once

#include <memory>
#include <vector>

#include "brindle/dxf/acad_entity.h"
#include "brindle/platform/base/array.h"

namespace brindle {
class RasterBitmap;
}

namespace brindle::Varnholt {

// The position is the lower left corner; u and v lead along one pixel to the right and up. Pixel
// coordinates, as the clip vertices have them, run right and down from the middle of the upper left
// pixel, so that the picture reaches from (-0.5, -0.5) to (width - 0.5, height - 0.5).
//
// An image has no form in R12 files, and isn't read from any.
class ACAD_IMAGE : public ACAD_ENTITY {
 public:
  ACAD_IMAGE() { ACAD_IMAGE::Ini(); }
  ACAD_IMAGE(const ACAD_IMAGE& other);
  ACAD_IMAGE& operator=(const ACAD_IMAGE& other);
  ~ACAD_IMAGE() override;

  int GetType() override { return kEntityImage; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  // The picture, when there is one, within its clip boundary, and its outline.
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  // The outline.
  void Draw3D_Opengl() override;
  // u and v are turned and scaled without the shift.
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_IMAGE(*this); }
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;

  void Ini() override;
  virtual const char* GetObjectName() const { return "IMAGE"; }
  virtual const char* GetSubClassName() const { return "AcDbRasterImage"; }

  // Shows a picture file by the image loader; the image then has the picture's size in pixels.
  // False, and no change, when it can't be read.
  bool load_picture(const wchar_t* path);
  // Copies of the image share the picture. Null takes it away.
  void set_picture(std::shared_ptr<const RasterBitmap> picture);
  const std::shared_ptr<const RasterBitmap>& picture() const { return picture_; }

  // A point of the picture in world units.
  void pixel_to_world(double column, double row, double& wx, double& wy, double& wz) const;

  float x, y, z;
  float ux, uy, uz;
  float vx, vy, vz;
  float m_fWidth, m_fHeight;       // pixels
  int m_nDisplay;                  // bits: 1 shown, 2 also when turned, 4 clipped, 8 transparent
  int m_nBrightness;               // 0 to 100, 50 as it is
  int m_nContrast;                 // the same
  int m_nFade;                     // 0 to 100: towards the background
  int m_nClip;                     // not 0: the clip boundary is in force
  int m_nClipType;                 // 1 a rectangle by two corners, 2 a polygon
  CArray<float> m_ClipX, m_ClipY;  // pixel coordinates, as many of the one as of the other

 protected:
  // The corners of what is shown, in world units: the clip boundary or the whole picture.
  std::vector<CFPoint> outline() const;
  // Draws what lies within the outline.
  virtual void paint(CDC* dc, CFCoor* coor, double dx, double dy) const;
  virtual bool has_frame() const { return true; }

 private:
  bool is_clipped() const;
  void project(double angle1, double angle2);
  template <class T>
  void transfer(const T* rot, const T* move, const T* scale);

  std::shared_ptr<const RasterBitmap> picture_;
};

// Reads a picture file; false when it can't. Without another one, PNG files are read.
using ImageLoader = bool (*)(const wchar_t* path, RasterBitmap& picture);
// Null brings the first loader back. Returns the one before.
ImageLoader set_image_loader(ImageLoader loader);

}  // namespace brindle::Varnholt
