#include "brindle/table/et_cell.h"

#include <algorithm>
#include <cwchar>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"

namespace brindle {
namespace {

thread_local unsigned g_reactions_added = 0;

}  // namespace

std::atomic<unsigned> CETNumber::changes_ = 0;

const StateRule& CETReact::rule() const {
  if (!m_pRule || m_pRule->text != m_strExpr) m_pRule = StateRule::shared(m_strExpr);
  return *m_pRule;
}

CETCell::CETCell() : m_strCheckOn(L"√"), m_strCheckOff(L"ㄨ") {}

CETCell::~CETCell() {
  CETNumber::tell_change();
  for (void* react : m_arReact) delete static_cast<CETReact*>(react);
}

void CETCell::SetButton(int button, int id) {
  m_bButton = button;
  m_nButtonID = id;
}

void CETCell::SetLimit(double min, double max) {
  m_dMin = min;
  m_dMax = max;
}

void CETCell::SetTiShi(const CString& text) {
  m_strTiShi = text;
  m_strTiShi2 = text;
}

void CETCell::AddReact(ETCELL_REACT type, int a, int b, int c) {
  CETReact* react = new CETReact;
  react->m_nType = type;
  react->m_nParam1 = a;
  react->m_nParam2 = b;
  react->m_nParam3 = c;
  m_arReact.Add(react);
  ++g_reactions_added;
}

void CETCell::AddReact(ETCELL_REACT type, int a, int b, const wchar_t* rule) {
  AddReact(type, a, b, 0);
  static_cast<CETReact*>(m_arReact[m_arReact.GetUpperBound()])->m_strExpr = rule;
}

// An array of known room may have lost its zero.
std::wstring_view CETCell::own_view() const {
  if (m_bCString) return static_cast<const CString*>(m_pValue)->view();
  const auto text = static_cast<const wchar_t*>(m_pValue);
  return {text, m_nTextSize > 0 ? wcsnlen(text, static_cast<std::size_t>(m_nTextSize))
                                : std::wcslen(text)};
}

CString CETCell::own_text() const {
  return CString(own_view());
}

void CETCell::store_text(const CString& text) {
  if (m_bCString) {
    *static_cast<CString*>(m_pValue) = text;
    return;
  }
  std::size_t length = text.view().size();
  if (m_nTextSize > 0) length = std::min<std::size_t>(length, m_nTextSize - 1);
  wchar_t* const buffer = static_cast<wchar_t*>(m_pValue);
  std::wmemmove(buffer, text.GetString(), length);
  buffer[length] = 0;
}

void CETCell::CopyValue(const CETCell& from) {
  if (&from == this || from.m_nType != m_nType || !m_pValue || !from.m_pValue) return;
  switch (m_nType) {
    case ETCK_INT:
    case ETCK_CHECK:
      *static_cast<int*>(m_pValue) = *static_cast<const int*>(from.m_pValue);
      break;
    case ETCK_SHORT:
      *static_cast<short*>(m_pValue) = *static_cast<const short*>(from.m_pValue);
      break;
    case ETCK_FLOAT:
      *static_cast<float*>(m_pValue) = *static_cast<const float*>(from.m_pValue);
      break;
    case ETCK_DOUBLE:
      *static_cast<double*>(m_pValue) = *static_cast<const double*>(from.m_pValue);
      break;
    case ETCK_STRING:
      store_text(from.own_text());
      break;
    default:
      return;
  }
  if (m_pModFlag) *m_pModFlag = 1;
}

int CETCell::rule_state(const StateRule& rule) const {
  if (!m_pValue) return -1;
  switch (m_nType) {
    case ETCK_INT:
      return rule.state_for(*static_cast<const int*>(m_pValue), rule.whole);
    case ETCK_SHORT:
      return rule.state_for<int>(*static_cast<const short*>(m_pValue), rule.whole);
    case ETCK_FLOAT:
      return rule.state_for(*static_cast<const float*>(m_pValue) * m_fScale,
                            static_cast<float>(rule.number));
    case ETCK_DOUBLE:
      return rule.state_for(*static_cast<const double*>(m_pValue) * m_fScale, rule.number);
    case ETCK_STRING:
      // The rule's value is in capitals, the variable as it is: small letters are never equal.
      return rule.state_for_order(own_text().Compare(rule.value));
    default:
      return -1;
  }
}

int CETCell::GetResponseReact(const StateRule& rule) const {
  if (rule.is_well_formed) return rule_state(rule);
  tell_error1(201, L"表达式错误 %s!\n", rule.text);
  return -1;
}

int CETCell::GetResponseReact(const CString& rule) const {
  return GetResponseReact(StateRule::parse(rule));
}

bool CETCell::has_state_rules() const {
  return std::any_of(m_arReact.begin(), m_arReact.end(),
                     [](void* react) { return static_cast<CETReact*>(react)->is_state_rule(); });
}

unsigned CETCell::reactions_added() {
  return g_reactions_added;
}

}  // namespace brindle
