#include "apps/cli/arguments.h"

namespace brindle::cli {
namespace {

const Option& find_option(std::string_view name, const std::vector<Option>& options) {
  for (const Option& option : options) {
    if (option.name == name) return option;
  }
  throw UsageError("unknown option " + std::string(name));
}

}  // namespace

const std::string& Arguments::value(std::string_view name) const {
  const auto found = options.find(name);
  if (found == options.end()) throw UsageError("option " + std::string(name) + " is missing");
  return found->second;
}

Arguments parse_arguments(const std::vector<std::string>& words, const std::vector<Option>& options,
                          const std::vector<std::string_view>& operands) {
  Arguments result;
  bool only_operands = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (only_operands || word.size() < 2 || word[0] != '-') {
      result.operands.push_back(word);
      continue;
    }
    if (word == "--") {
      only_operands = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const Option& option = find_option(name, options);
    std::string value;
    if (option.value.empty()) {
      if (equals != std::string::npos) throw UsageError("option " + name + " takes no value");
    } else if (equals != std::string::npos) {
      value = word.substr(equals + 1);
    } else if (++i < words.size()) {
      value = words[i];
    } else {
      throw UsageError("option " + name + " needs a value");
    }
    if (!result.options.emplace(name, value).second) {
      throw UsageError("option " + name + " is given twice");
    }
  }
  if (result.operands.size() < operands.size()) {
    throw UsageError(std::string(operands[result.operands.size()]) + " is missing");
  }
  if (result.operands.size() > operands.size()) {
    throw UsageError("surplus argument " + result.operands[operands.size()]);
  }
  return result;
}

}  // namespace brindle::cli
