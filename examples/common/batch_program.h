// The command line of the examples: `NAME --batch FILE --out FOLDER`.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"

namespace brindle::examples {

enum ExitStatus { kDone = 0, kBadInput = 1, kBadUsage = 2 };

struct Options {
  std::wstring input;
  std::wstring folder;
  bool help = false;
};

inline void print(std::FILE* stream, const std::wstring& text) {
  const std::string bytes = CodePage::find(65001)->encode(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

inline bool read_options(int argc, char** argv, Options* out) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--help" || word == "-h") {
      out->help = true;
      return true;
    }
    std::wstring* value = word == "--batch" ? &out->input
                          : word == "--out" ? &out->folder
                                            : nullptr;
    if (!value || !value->empty() || i + 1 == argc) return false;
    *value = from_path(argv[++i]);
  }
  return !out->input.empty() && !out->folder.empty();
}

// File name without its folders and its last extension.
inline std::wstring stem(const std::wstring& path) {
  const std::size_t slash = path.find_last_of(L"/\\");
  std::wstring name = slash == std::wstring::npos ? path : path.substr(slash + 1);
  const std::size_t dot = name.find_last_of(L'.');
  if (dot != std::wstring::npos && dot > 0) name.resize(dot);
  return name;
}

// The whole of main: `run` gets the options and gives the exit status.
inline int run_batch(int argc, char** argv, const wchar_t* usage, int (*run)(const Options&)) {
  Options options;
  const bool usable = read_options(argc, argv, &options);
  if (usable && !options.help) return run(options);
  print(usable ? stdout : stderr, usage);
  return usable ? kDone : kBadUsage;
}

}  // namespace brindle::examples
