// Stands in for the painting of CChang until a translation unit defines it: nothing is drawn.
#include "brindle/mesh/chang.h"

#define BRINDLE_REPLACEABLE __attribute__((weak))

namespace brindle {

BRINDLE_REPLACEABLE int CChang::DrawNet(CBase_SGT*, float, float, float, int) {
  return 0;
}
BRINDLE_REPLACEABLE int CChang::DrawNet3D(CDXF_3D*, float, float, float, float, int) {
  return 0;
}
BRINDLE_REPLACEABLE int CChang::Draw_CaiSeTu(CDC*, CRect*, CFCoor*, int, float) {
  return 0;
}
BRINDLE_REPLACEABLE int CChang::Draw_TuLi(CDC*, CRect*, CFCoor*) {
  return 0;
}

}  // namespace brindle
