// What a command of the program is.
#pragma once

#include <string_view>
#include <vector>

#include "apps/cli/arguments.h"

namespace brindle::cli {

enum ExitStatus { kDone = 0, kBadInput = 1, kBadUsage = 2 };

struct Command {
  std::string_view name;
  std::vector<std::string_view> operands;  // names for the usage text, all of them required
  std::string_view required_options;       // as they stand in the usage line
  std::string_view summary;                // one line
  std::string_view details;                // behind the summary in the command's help; may be empty
  std::vector<Option> options;
  // Does the work and complains itself. Throws UsageError for option values that make no sense.
  ExitStatus (*run)(const Arguments& arguments);
};

// All commands, in the order of the help text.
const std::vector<const Command*>& all_commands();

extern const Command kInfoCommand;
extern const Command kConvertCommand;
extern const Command kRenderCommand;
extern const Command kMeshCommand;
extern const Command kFieldCommand;

}  // namespace brindle::cli
