// The pen's state: tables, sizes under a scale, the environment and its stack, the transform.
#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "brindle/dxf/default_line_types.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {

namespace {

constexpr float kFirstBaseWidth_mm = 0.65f;
constexpr float kFirstScale = 100.0f;
constexpr float kDimOffset = 100.0f;  // drawing units at any scale, meant so

// The environment: what Push_ENV saves and Pop_ENV brings back.
constexpr auto kEnvironment = std::tuple(
    &CBase_SGT::m_fBiLiChi, &CBase_SGT::m_szCurColor, &CBase_SGT::m_szCurLayer,
    &CBase_SGT::m_szCurStyle, &CBase_SGT::m_szCurLType, &CBase_SGT::m_fOrgX, &CBase_SGT::m_fOrgY,
    &CBase_SGT::m_fScaleXY, &CBase_SGT::m_fRotate, &CBase_SGT::m_fScaleText,
    &CBase_SGT::m_fScaleWidth, &CBase_SGT::m_nDimTextFlag, &CBase_SGT::m_nDimMark1,
    &CBase_SGT::m_nDimMark2, &CBase_SGT::m_fDimOffset, &CBase_SGT::m_fDimExt1,
    &CBase_SGT::m_fDimExt2, &CBase_SGT::m_fDimTick, &CBase_SGT::m_fDimPen, &CBase_SGT::m_fDimTextH,
    &CBase_SGT::m_fDimOver, &CBase_SGT::m_fDimTextGap, &CBase_SGT::m_nDimDec, &CBase_SGT::m_fCutExt,
    &CBase_SGT::m_fCutH, &CBase_SGT::m_fCutW, &CBase_SGT::m_fPouLen, &CBase_SGT::m_fPouPen,
    &CBase_SGT::m_fPouTextH, &CBase_SGT::m_fGJDot, &CBase_SGT::m_fGJPen, &CBase_SGT::m_fTuMingH,
    &CBase_SGT::m_fTuMingPen, &CBase_SGT::m_bRectSide, &CBase_SGT::m_bCutLow,
    &CBase_SGT::m_bCutHigh, &CBase_SGT::m_szGJColor, &CBase_SGT::m_szBZColor,
    &CBase_SGT::m_fPraLine, &CBase_SGT::m_fPraGap, &CBase_SGT::m_fArrowLen,
    &CBase_SGT::m_fArrowHalf, &CBase_SGT::m_fCurX, &CBase_SGT::m_fCurY);

template <class T>
struct Saved {
  T value;
};

template <class T>
void assign(T& to, const T& from) {
  if constexpr (std::is_array_v<T>) {
    std::copy(std::begin(from), std::end(from), std::begin(to));
  } else {
    to = from;
  }
}

template <class T>
struct MemberOf;
template <class T>
struct MemberOf<T CBase_SGT::*> {
  using Type = T;
};

// A record of the stack: a value for each field of the list.
class Environment {
 public:
  explicit Environment(const CBase_SGT& pen) {
    each([&pen](auto& saved, auto field) { assign(saved.value, pen.*field); });
  }
  void restore(CBase_SGT& pen) {
    each([&pen](auto& saved, auto field) { assign(pen.*field, saved.value); });
  }

 private:
  template <class... Fields>
  static std::tuple<Saved<typename MemberOf<Fields>::Type>...> values_of(std::tuple<Fields...>);

  template <class Operation>
  void each(Operation operation) {
    std::apply(
        [&](auto&... saved) {
          std::apply([&](auto... field) { (operation(saved, field), ...); }, kEnvironment);
        },
        values_);
  }

  decltype(values_of(kEnvironment)) values_;
};

// Takes a text of fewer than 99 characters.
int set_field(WText<100>& field, const wchar_t* text) {
  if (text == nullptr || std::wstring_view(text).size() >= 99) return 0;
  field = text;
  return 1;
}

}  // namespace

float CBase_SGT::m_fGF_BiKuan[6] = {0.35f, 0.5f, 0.7f, 1.0f, 1.4f, 2.0f};
float CBase_SGT::m_fGF_ZiGao[7] = {2.5f, 3.5f, 5.0f, 7.0f, 10.0f, 14.0f, 20.0f};
float CBase_SGT::m_fGF_ZiKuan[7] = {1.8f, 2.5f, 3.5f, 5.0f, 7.0f, 10.0f, 14.0f};

CBase_SGT::CBase_SGT()
    : m_fBaseBiKuan(kFirstBaseWidth_mm),
      m_szDimText{},
      m_szDimFormat{},
      m_fPraLine{},
      m_fPraGap(0) {
  Set_Default_ENV();
  SetBiLiChi(kFirstScale);
}

CBase_SGT::~CBase_SGT() {
  while (!m_EnvStack.IsEmpty()) delete static_cast<Environment*>(m_EnvStack.RemoveHead());
}

void CBase_SGT::SetBiLiChi(float scale) {
  m_fBiLiChi = scale;
  m_fBiKuan = m_fBaseBiKuan * scale;
  m_fBiKuan05 = m_fBaseBiKuan * 0.5f * scale;
  m_fBiKuan035 = m_fBaseBiKuan * 0.35f * scale;
  for (int i = 0; i < 6; ++i) {
    m_fZiGao[i] = m_fGF_ZiGao[i] * scale;
    m_fZiKuan[i] = m_fGF_ZiKuan[i] * scale;
  }
  m_nAxisDecX = m_nAxisDecY = 2;
  m_nDimTextFlag = 0;
  m_nDimMark1 = m_nDimMark2 = 1;
  m_fDimOffset = kDimOffset;
  m_fDimExt1 = m_fDimExt2 = 20.0f * scale;
  m_fDimTick = 2.0f * scale;
  m_fDimPen = m_fBiKuan;
  m_fDimTextH = m_fZiGao[0];
  m_fDimOver = 2.5f * scale;
  m_fDimTextGap = 0.5f * scale;
  m_nDimDec = 0;
  m_fCutExt = 2.5f * scale;
  m_fCutH = 4.0f * scale;
  m_fCutW = 0.75f * scale;
  m_fPouLen = 10.0f * scale;
  m_fPouPen = m_fBiKuan;
  m_fPouTextH = m_fZiGao[2];
  m_fGJDot = m_fBiKuan * 1.5f;
  m_fGJPen = m_fBiKuan;
  m_fTuMingH = m_fZiGao[3];
  m_fTuMingPen = m_fBiKuan;
  m_fArrowLen = 2.5f * scale;
  m_fArrowHalf = 0.8f * scale;
  MoveTo(0, 0);
}

int CBase_SGT::SetCurColor(int index) {
  return SetCurColor(wformat(L"%d", index).c_str());
}
int CBase_SGT::SetCurColor(const wchar_t* colour) {
  return set_field(m_szCurColor, colour);
}
int CBase_SGT::SetCurLayer(const wchar_t* layer) {
  return set_field(m_szCurLayer, layer);
}
int CBase_SGT::SetCurStyle(const wchar_t* style) {
  return set_field(m_szCurStyle, style);
}
int CBase_SGT::SetCurLType(const wchar_t* ltype) {
  return set_field(m_szCurLType, ltype);
}

void CBase_SGT::Add_Default_LineType() {
  add_default_line_types(*this);
}

void CBase_SGT::Set_Default_ENV() {
  m_fBiLiChi = 1;
  m_szCurColor = L"7";
  m_szCurLayer = L"0";
  m_szCurStyle = L"STANDARD";
  m_szCurLType = L"BYLAYER";
  m_fOrgX = m_fOrgY = 0;
  m_fScaleXY = 1;
  m_fRotate = 0;
  m_fScaleText = m_fScaleWidth = 1;
  m_nDimTextFlag = 0;
  m_nDimMark1 = 1;
  m_nDimMark2 = 0;
  m_fDimOffset = 0;
  m_fDimExt1 = m_fDimExt2 = 200;
  m_fDimTick = 100;
  m_fDimPen = 30;
  m_fDimTextH = 150;
  m_fDimOver = 0;
  m_fDimTextGap = 20;
  m_nDimDec = 0;
  std::fill(std::begin(m_bRectSide), std::end(m_bRectSide), 1);
  m_bCutLow = m_bCutHigh = 1;
  m_szGJColor = L"1";
  m_szBZColor = L"4";
}

int CBase_SGT::Push_ENV() {
  auto* saved = new (std::nothrow) Environment(*this);
  if (saved == nullptr) return 0;
  m_EnvStack.AddHead(saved);
  return 1;
}

int CBase_SGT::Pop_ENV() {
  if (m_EnvStack.IsEmpty()) return 0;
  const std::unique_ptr<Environment> saved(static_cast<Environment*>(m_EnvStack.RemoveHead()));
  saved->restore(*this);
  return 1;
}

int CBase_SGT::Set_ENV(CBase_SGT* other) {
  if (other == nullptr) return 1;
  if (other->Push_ENV() == 0) return 0;
  const auto& top = *static_cast<const Environment*>(other->m_EnvStack.GetHead());
  auto* copy = new (std::nothrow) Environment(top);
  if (copy != nullptr) {
    m_EnvStack.AddHead(copy);
    Pop_ENV();
  }
  other->Pop_ENV();
  return copy != nullptr ? 1 : 0;
}

void CBase_SGT::Convert_XY(float& x, float& y) const {
  rotate_coordinate(-radians_of(m_fRotate), &x, &y);
  x = x * m_fScaleXY + m_fOrgX;
  y = y * m_fScaleXY + m_fOrgY;
}

void CBase_SGT::Convert_XY(double& x, double& y) const {
  rotate_coordinate(-m_fRotate * kRadiansOfDegree, &x, &y);
  x = x * m_fScaleXY + m_fOrgX;
  y = y * m_fScaleXY + m_fOrgY;
}

}  // namespace brindle
