#include "brindle/table/rebar_strings.h"

namespace brindle {
namespace {

CGangJinBase* g_object = nullptr;

}  // namespace

int CGangJinBase::FindZhiJin(int, int) {
  return 0;
}
int CGangJinBase::FromString_KnowReinID(CString&) {
  return 0;
}
CString CGangJinBase::ToString(int) {
  return CString();
}
int CGangJinBase::FromString(CString&) {
  return 0;
}

void SetGangJinObj(CGangJinBase* object) {
  g_object = object;
}
CGangJinBase* GetGangJinObj() {
  return g_object;
}

}  // namespace brindle
