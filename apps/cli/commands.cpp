#include "apps/cli/command.h"

namespace brindle::cli {

const std::vector<const Command*>& all_commands() {
  static const std::vector<const Command*> commands = {
      &kInfoCommand, &kConvertCommand, &kRenderCommand, &kMeshCommand, &kFieldCommand};
  return commands;
}

}  // namespace brindle::cli
