// Hatch patterns: families of parallel lines, and the text files that define them by name.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "brindle/dxf/pair_reader.h"
#include "brindle/dxf/pair_writer.h"
#include "brindle/platform/base/string.h"

namespace brindle::Varnholt {

// One family of lines of a pattern. The offsets lead from a line to the next in the frame of the
// lines: X along them, which shifts the dashes, and Y across them. In a drawing file (groups 45 and
// 46) the same step stands in the axes of the drawing, so that other programs find it right.
class HATCH_PATTERN_DATA {
 public:
  // Reads from the stream's position, the start of the family's pair of code 53, up to the first
  // pair that isn't the family's. 1; 0 when that pair isn't there.
  int Read(FILE* stream);
  // Writes the family, alike in both forms; 1.
  int Write(FILE* stream) const;
  int Write2000(FILE* stream) const;

  // Takes a pair; false when it isn't the family's.
  bool take(const DxfPair& pair);
  // To be called behind the last pair: turns the offsets into the frame of the lines.
  void finish_reading();
  void write_to(DxfPairWriter& writer) const;
  // Turns the family about its origin and scales it.
  void transform(double degrees, double factor);

  double m_dAngle = 0;  // degrees
  double m_dBaseX = 0, m_dBaseY = 0;
  double m_dOffsetX = 0, m_dOffsetY = 0;
  std::vector<double> m_Dashes;  // drawing units: positive a dash, negative a gap, 0 a dot
};

// A definition in a pattern file takes this many families, and a family this many dashes; what is
// more is left out.
inline constexpr std::size_t kMostPatternLines = 1000;
inline constexpr std::size_t kMostPatternDashes = 1000;

struct HatchPatternDefinition {
  std::wstring description;
  std::vector<HATCH_PATTERN_DATA> lines;
};

// Looks for the definition of a name, compared exactly, from the stream's position on. False when
// it isn't there. Lines that hold no definition are passed over.
bool read_hatch_pattern(FILE* file, const wchar_t* name, HatchPatternDefinition& definition);

// The pattern file that hatches without lines of their own take them from when they are drawn: the
// one set last, at first hatches/brindle.pat of the library's assets (empty when there are none).
const CString& hatch_pattern_file();
void set_hatch_pattern_file(const wchar_t* path);
// The definition of a name in that file, null when it isn't there, which is told once for a name.
// Definitions are kept until another file is set.
const HatchPatternDefinition* find_hatch_pattern(const wchar_t* name);

}  // namespace brindle::Varnholt
