#include "brindle/table/rule_expression.h"

#include <algorithm>
#include <functional>

#include "brindle/frame/utility/scanner.h"
#include "brindle/platform/base/convert.h"

namespace brindle {
namespace {

int state_of_word(const CString& word) {
  static constexpr struct {
    const wchar_t* word;
    int state;
  } kWords[] = {
      {L"ETCS_NONE", ETCS_NONE}, {L"NONE", ETCS_NONE}, {L"NO", ETCS_NONE}, {L"N", ETCS_NONE},
      {L"ETCS_EDIT", ETCS_EDIT}, {L"EDIT", ETCS_EDIT}, {L"ED", ETCS_EDIT}, {L"E", ETCS_EDIT},
      {L"ETCS_GRAY", ETCS_GRAY}, {L"GRAY", ETCS_GRAY}, {L"GR", ETCS_GRAY}, {L"G", ETCS_GRAY},
  };
  for (const auto& entry : kWords) {
    if (word == entry.word) return entry.state;
  }
  return std::clamp(_wtoi(word), -1, 2);
}

StateRule::Operator operator_of_word(const CString& word) {
  using Operator = StateRule::Operator;
  static constexpr struct {
    const wchar_t* word;
    Operator operation;
  } kWords[] = {
      {L"==", Operator::kEqual}, {L"!=", Operator::kUnequal}, {L">", Operator::kGreater},
      {L"<", Operator::kLess},   {L">=", Operator::kAtLeast}, {L"<=", Operator::kAtMost},
  };
  for (const auto& entry : kWords) {
    if (word == entry.word) return entry.operation;
  }
  return Operator::kUnknown;
}

}  // namespace

StateRule StateRule::parse(const CString& text) {
  CString upper = text;
  upper.MakeUpper();
  CString variable, operation, question, if_true, colon, if_false;
  StateRule rule;
  rule.text = text;
  JSVsscanf::vsscanf(upper, L"%s,%s,%s,%s,%s,%s,%s", variable, operation, rule.value, question,
                     if_true, colon, if_false);
  rule.is_well_formed = variable == L"V" && question == L"?";
  if (!rule.is_well_formed) return rule;
  rule.operation = operator_of_word(operation);
  rule.whole = _wtoi(rule.value);
  rule.number = parse_double(rule.value);
  rule.true_state = state_of_word(if_true);
  if (colon == L":") rule.false_state = state_of_word(if_false);
  return rule;
}

std::shared_ptr<const StateRule> StateRule::shared(const CString& text) {
  constexpr std::size_t kKept = 64;
  thread_local std::shared_ptr<const StateRule> kept[kKept];
  auto& rule = kept[std::hash<std::wstring_view>()(text.view()) % kKept];
  if (!rule || rule->text != text) rule = std::make_shared<const StateRule>(parse(text));
  return rule;
}

int StateRule::chosen(bool is_true) const {
  if (operation == Operator::kUnknown) return -1;
  return is_true ? true_state : false_state;
}

int StateRule::state_for_order(int order) const {
  switch (operation) {
    case Operator::kEqual:
      return chosen(order == 0);
    case Operator::kUnequal:
      return chosen(order != 0);
    case Operator::kGreater:
      return chosen(order > 0);
    case Operator::kLess:
      return chosen(order < 0);
    case Operator::kAtLeast:
      return chosen(order >= 0);
    case Operator::kAtMost:
      return chosen(order <= 0);
    case Operator::kUnknown:
      break;
  }
  return -1;
}

}  // namespace brindle
