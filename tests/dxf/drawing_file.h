// Drawings as bytes for the tests, and the pieces that drawing files are made of.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/stream.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle {

inline std::wstring wide(const std::string& path) {
  return from_path(path);
}

// The text of a file with its line ends as "\n"; a line end other than CR LF shows as "<LF>".
inline std::string text_of(const std::string& path) {
  const std::string bytes = bytes_of(path);
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
    const bool bare = bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r');
    text += bare ? std::string("<LF>") : std::string(1, bytes[i]);
  }
  return text;
}

// A text of data/.
inline std::string golden(const std::string& name) {
  return bytes_of(std::string(BRINDLE_SOURCE_DIR) + "/tests/dxf/data/" + name);
}

// Compares line by line, so that a difference tells its place and no more.
inline void expect_text(const std::string& actual, const std::string& expected) {
  std::istringstream a(actual), e(expected);
  std::string line, wanted;
  for (int n = 1; std::getline(e, wanted); ++n) {
    ASSERT_TRUE(std::getline(a, line)) << "ends before line " << n << ": " << wanted;
    ASSERT_EQ(line, wanted) << "line " << n;
  }
  EXPECT_FALSE(std::getline(a, line)) << "surplus: " << line;
}

inline std::string with_cr(const std::string& text) {
  std::string bytes;
  for (char c : text) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return bytes;
}

// Saves in one of the two dialects; the same drawing gets the same handles, and so the same bytes.
inline int save(DXF& dxf, bool ac1015, const std::string& path) {
  std::srand(1);
  return ac1015 ? dxf.Write_MemDxf_To_File2000(wide(path).c_str())
                : dxf.Write_MemDxf_To_File(wide(path).c_str(), 1);
}

template <class Item>
std::vector<Item*> items_of(const CPtrList& list) {
  std::vector<Item*> items;
  for (POSITION at = list.GetHeadPosition(); at != nullptr;) {
    items.push_back(static_cast<Item*>(list.GetNext(at)));
  }
  return items;
}

// The entities of a list, in order, as one kind.
template <class Entity = Varnholt::ACAD_ENTITY>
std::vector<Entity*> all_of(const CPtrList& list) {
  std::vector<Entity*> entities;
  for (Varnholt::ACAD_ENTITY* item : items_of<Varnholt::ACAD_ENTITY>(list)) {
    if (auto* entity = dynamic_cast<Entity*>(item)) entities.push_back(entity);
  }
  return entities;
}

inline void expect_box(const CFRect& box, double left, double bottom, double right, double top) {
  expect_near({box.left, box.bottom, box.right, box.top}, {left, bottom, right, top}, 1e-4);
}

// "left,bottom,right,top" in whole units.
inline std::string box_of(const CFRect& box) {
  std::string text;
  for (float side : {box.left, box.bottom, box.right, box.top}) {
    text += (text.empty() ? "" : ",") + std::to_string(std::lround(side));
  }
  return text;
}

// The smallest tables that a drawing file can have.
inline const std::string kTables =
    "  0\nSECTION\n  2\nTABLES\n"
    "  0\nTABLE\n  2\nLTYPE\n 70\n1\n  0\nLTYPE\n  2\nCONTINUOUS\n 73\n0\n  0\nENDTAB\n"
    "  0\nTABLE\n  2\nLAYER\n 70\n1\n  0\nLAYER\n  2\n0\n 62\n7\n  6\nCONTINUOUS\n  0\nENDTAB\n"
    "  0\nTABLE\n  2\nSTYLE\n 70\n1\n  0\nSTYLE\n  2\nSTANDARD\n 41\n0.7\n  0\nENDTAB\n"
    "  0\nENDSEC\n";

inline std::string header(const std::string& variables) {
  return "  0\nSECTION\n  2\nHEADER\n" + variables + "  0\nENDSEC\n";
}
inline std::string blocks(const std::string& text) {
  return "  0\nSECTION\n  2\nBLOCKS\n" + text + "  0\nENDSEC\n";
}
inline std::string entities(const std::string& text) {
  return "  0\nSECTION\n  2\nENTITIES\n" + text + "  0\nENDSEC\n  0\nEOF\n";
}
inline std::string line_entity(const std::string& layer, const std::string& x1) {
  return "  0\nLINE\n  8\n" + layer + "\n 10\n" + x1 + "\n 20\n2\n 30\n3\n 11\n4\n 21\n5\n 31\n6\n";
}
inline std::string text_entity(const std::string& words) {
  return "  0\nTEXT\n  8\n0\n 10\n1\n 20\n2\n 40\n3\n  1\n" + words + "\n";
}

inline const std::string kLine = line_entity("0", "1");
inline const std::string kEnd = "  0\nENDSEC\n";

// A drawing read from bytes: the result of the reader and what it told.
struct ReadDrawing {
  explicit ReadDrawing(const std::string& bytes) {
    std::FILE* stream = std::tmpfile();
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    dxf.New_MemDxf();
    result = dxf.Read_FileDxf_To_Mem(stream);
    std::fclose(stream);
  }
  template <class Entity = Varnholt::ACAD_ENTITY>
  std::vector<Entity*> entities() const {
    return all_of<Entity>(dxf.m_Entities);
  }
  std::vector<std::wstring> texts() const {
    std::vector<std::wstring> words;
    for (const auto* text : entities<Varnholt::ACAD_TEXT>()) words.emplace_back(text->m_szText);
    return words;
  }
  std::vector<std::wstring> told() const { return lines_of(messages); }

  RecordedMessages messages;
  DXF dxf;
  int result = -1;
};

}  // namespace brindle
