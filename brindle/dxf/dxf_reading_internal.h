// What a document remembers while it reads a file. Not for use outside this folder.
#pragma once

#include <array>
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/pair_reader.h"

namespace brindle {

struct DXF::ReadingState {
  explicit ReadingState(FILE* file) : stream(file), pairs(file, ansi_code_page()) {}

  // A section that was found: the position behind its name.
  struct Section {
    std::string_view name;
    long long position = -1;
  };

  FILE* stream;
  DxfPairReader pairs;
  // The finders look from the start of the file for the first line with a section's name behind a
  // "  2" line. What one search passed is remembered, so that all of them cost one walk.
  std::array<Section, 4> sections{{{"HEADER"}, {"TABLES"}, {"BLOCKS"}, {"ENTITIES"}}};
  long long searched = 0;           // lines before this position were looked at
  bool previous_names_one = false;  // the line before it was "  2"
};

}  // namespace brindle
