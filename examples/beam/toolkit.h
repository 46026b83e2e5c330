// What the program needs of the toolkit; without it the batch run works all the same.
#pragma once

namespace brindle::beam {

// Runs `work` with real windows and returns its result; -1, told on standard error, without the
// toolkit or without a display.
int run_with_windows(int argc, char** argv, int (*work)());

}  // namespace brindle::beam
