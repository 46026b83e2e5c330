// What the commands that make pictures share.
#pragma once

#include <string>

#include "apps/cli/arguments.h"

namespace brindle::cli {

constexpr double kPictureDpi = 96;

// The extension of a file name in small letters, without its dot; empty when there is none.
std::wstring extension_of(const std::wstring& path);

// Two numbers with a mark between them, "1600x1000"; false for anything else.
bool two_numbers(const std::string& text, char between, double& first, double& second);

// The shape fonts, from the folder of --fonts if given; complains about what is missing.
void load_fonts(const Arguments& arguments);

}  // namespace brindle::cli
