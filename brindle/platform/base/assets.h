// Where the library's own data files are: fonts, line types, hatch patterns.
#pragma once

#include <string>

namespace brindle {

// The full path of a file or folder of the assets, such as L"fonts/TXT.SHX"; a folder's path ends
// with '/' when the given one does. Looked for in the folder that the environment's BRINDLE_ASSETS
// names, then beside the installed library (../share/brindle/assets), then in the source tree that
// the library was built from. Empty when none has it.
std::wstring find_asset(const wchar_t* name);

}  // namespace brindle
