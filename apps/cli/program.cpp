#include "apps/cli/program.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "brindle/platform/base/code_page.h"

namespace brindle::cli {
namespace {

void write(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

std::string usage_line(const Command& command) {
  std::string line = "usage: brindle " + std::string(command.name);
  for (std::string_view operand : command.operands) line += " " + std::string(operand);
  if (!command.required_options.empty()) line += " " + std::string(command.required_options);
  for (const Option& option : command.options) {
    if (command.required_options.find(option.name) != std::string_view::npos) continue;
    line += " [" + std::string(option.name);
    if (!option.value.empty()) line += " " + std::string(option.value);
    line += "]";
  }
  return line + "\n";
}

// Two columns, the first one `width` wide.
std::string row(std::string_view left, std::string_view right, std::size_t width) {
  std::string line = "  " + std::string(left);
  line.resize(std::max(line.size() + 2, width + 4), ' ');
  return line + std::string(right) + "\n";
}

std::string command_help(const Command& command) {
  std::string text = usage_line(command) + "\n" + std::string(command.summary) + "\n";
  if (!command.details.empty()) text += "\n" + std::string(command.details) + "\n";
  if (!command.options.empty()) text += "\n";
  for (const Option& option : command.options) {
    text += row(std::string(option.name) + " " + std::string(option.value), option.summary, 14);
  }
  return text;
}

std::string program_help() {
  std::string text = "usage: brindle COMMAND [ARGUMENTS]\n\ncommands:\n";
  for (const Command* command : all_commands()) text += row(command->name, command->summary, 14);
  return text +
         "\n`brindle COMMAND --help` tells a command's arguments.\n"
         "Exit status: 0 done, 1 bad input or unwritable output, 2 bad usage.\n";
}

bool asks_for_help(const std::string& word) {
  return word == "--help" || word == "-h";
}

const Command* find_command(std::string_view name) {
  for (const Command* command : all_commands()) {
    if (command->name == name) return command;
  }
  return nullptr;
}

int bad_usage(std::string_view message, const std::string& usage) {
  complain(CodePage::find(65001u)->decode(message));
  write(stderr, usage);
  return kBadUsage;
}

int run_command(const Command& command, const std::vector<std::string>& words) {
  // Behind "--" stand operands, "--help" among them.
  const auto end_of_options = std::find(words.begin(), words.end(), "--");
  if (std::any_of(words.begin(), end_of_options, asks_for_help)) {
    write(stdout, command_help(command));
    return kDone;
  }
  try {
    return command.run(parse_arguments(words, command.options, command.operands));
  } catch (const UsageError& error) {
    return bad_usage(error.what(), usage_line(command));
  }
}

int run(const std::vector<std::string>& words) {
  if (words.empty()) {
    write(stderr, program_help());
    return kBadUsage;
  }
  if (asks_for_help(words[0]) || words[0] == "help") {
    write(stdout, program_help());
    return kDone;
  }
  const Command* command = find_command(words[0]);
  if (command == nullptr) return bad_usage("unknown command " + words[0], program_help());
  return run_command(*command, {words.begin() + 1, words.end()});
}

}  // namespace

int run_program(const std::vector<std::string>& words) {
  int status = kBadInput;
  try {
    status = run(words);
  } catch (const std::exception& error) {  // out of memory, as a rule
    complain(CodePage::find(65001u)->decode(error.what()));
  }
  const bool failed = std::ferror(stdout) != 0;
  if (std::fflush(stdout) != 0 || failed) {
    complain(L"can't write to standard output");
    if (status == kDone) status = kBadInput;
  }
  return status;
}

}  // namespace brindle::cli
