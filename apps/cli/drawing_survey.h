// What a drawing file tells that the drawing model doesn't keep.
#pragma once

#include <map>
#include <string>

#include "brindle/dxf/drawing_encoding.h"

namespace brindle::cli {

struct DrawingSurvey {
  DrawingEncoding encoding;
  // Entities that the model has no kind for, by their word, in the sections BLOCKS and ENTITIES.
  std::map<std::string, int> skipped;
};

// Walks through the file once; an empty survey for one that can't be opened.
DrawingSurvey survey_drawing(const std::wstring& path);

// How the reader decodes a file of this kind: "UTF-8 (byte-order mark)".
std::wstring encoding_of(const DrawingEncoding& encoding);

}  // namespace brindle::cli
