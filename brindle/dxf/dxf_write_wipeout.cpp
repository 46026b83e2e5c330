// New wipeouts.
#include <algorithm>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_entity_store_internal.h"

namespace brindle {

using namespace Varnholt;

template <class T>
ACAD_WIPEOUT* DXF::write_wipeout(const T* xs, const T* ys, INT_PTR n, const wchar_t* layer,
                                 const wchar_t* colour, const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_WIPEOUT& wipeout = fresh_scratch<ACAD_WIPEOUT>(kEntityWipeout);
  if (!set_names(wipeout, layer, colour, ltype)) return nullptr;
  const std::vector<double> x(xs, xs + n), y(ys, ys + n);
  wipeout.set_polygon(x.data(), y.data(), static_cast<int>(n));
  return keep(wipeout);
}

ACAD_WIPEOUT* DXF::Write_Wipeout(float x1, float y1, float x2, float y2, const wchar_t* layer,
                                 const wchar_t* colour, const wchar_t* ltype) {
  const float xs[] = {x1, x2}, ys[] = {y1, y2};
  return write_wipeout(xs, ys, 2, layer, colour, ltype);
}

ACAD_WIPEOUT* DXF::Write_Wipeout(double x1, double y1, double x2, double y2, const wchar_t* layer,
                                 const wchar_t* colour, const wchar_t* ltype) {
  const double xs[] = {x1, x2}, ys[] = {y1, y2};
  return write_wipeout(xs, ys, 2, layer, colour, ltype);
}

// Of two arrays the shorter one counts.
ACAD_WIPEOUT* DXF::Write_Wipeout(const CArray<float>& xs, const CArray<float>& ys,
                                 const wchar_t* layer, const wchar_t* colour,
                                 const wchar_t* ltype) {
  return write_wipeout(xs.GetData(), ys.GetData(), std::min(xs.GetSize(), ys.GetSize()), layer,
                       colour, ltype);
}

ACAD_WIPEOUT* DXF::Write_Wipeout(const CArray<double>& xs, const CArray<double>& ys,
                                 const wchar_t* layer, const wchar_t* colour,
                                 const wchar_t* ltype) {
  return write_wipeout(xs.GetData(), ys.GetData(), std::min(xs.GetSize(), ys.GetSize()), layer,
                       colour, ltype);
}

}  // namespace brindle
