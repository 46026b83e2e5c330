// The program behind `main`.
#pragma once

#include <string>
#include <vector>

namespace brindle::cli {

// Runs the command that the words (without the program's name) tell; returns the exit status.
int run_program(const std::vector<std::string>& words);

}  // namespace brindle::cli
