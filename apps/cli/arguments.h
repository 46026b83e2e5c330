// The words of a command line, split into operands and options by what a command takes.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace brindle::cli {

// The command line is wrong; the text says how.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Option {
  std::string_view name;     // "--to"
  std::string_view value;    // what stands for its value in the usage text; empty for a switch
  std::string_view summary;  // one line of the help text
};

struct Arguments {
  std::vector<std::string> operands;
  std::map<std::string, std::string, std::less<>> options;  // a switch has an empty value

  bool has(std::string_view name) const { return options.find(name) != options.end(); }
  // The option's value; a UsageError when it wasn't given.
  const std::string& value(std::string_view name) const;
};

// Options are "--name value", "--name=value" or, for a switch, "--name", at any place; what follows
// "--" is an operand whatever it looks like, and so is "-". Throws UsageError for an option that
// isn't known or comes twice, a missing or surplus value, and a wrong number of operands.
Arguments parse_arguments(const std::vector<std::string>& words, const std::vector<Option>& options,
                          const std::vector<std::string_view>& operands);

}  // namespace brindle::cli
