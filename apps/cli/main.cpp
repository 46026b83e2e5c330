#include "apps/cli/program.h"

int main(int argc, char** argv) {
  return brindle::cli::run_program({argv + (argc > 0 ? 1 : 0), argv + argc});
}
