// The byte code of shapes, run for its strokes or for its width.
#pragma once

#include <cstring>

#include "brindle/dxf/shx_font.h"

namespace brindle {

// Runs shapes of a font into a sink:
//   void move(float dx, float dy, bool down)   in font units times the running scale, y up
//   void save(); void restore();               one slot for all shapes
// One object runs one character with its sub-shapes, which share its budget of steps.
template <class Sink>
class ShxInterpreter {
 public:
  ShxInterpreter(const CShx& font, Sink& sink) : font_(font), sink_(sink) {}

  void run_small(int offset) { run(font_.m_pTxtData, offset, false, 0); }
  void run_big(int offset) { run(font_.m_pHzData, offset, true, 0); }

 private:
  struct Cursor {
    const BYTE *at, *end;
    int next() { return at != end ? *at++ : 0; }
    float next_signed() { return static_cast<signed char>(next()); }
  };

  // Each shape starts anew, a sub-shape too: with scale 1 and the pen up.
  void run(const std::vector<BYTE>& data, int offset, bool big, int depth) {
    if (offset < 0 || static_cast<std::size_t>(offset) >= data.size()) return;
    Cursor cursor{data.data() + offset, data.data() + data.size()};
    const void* name_end = std::memchr(cursor.at, 0, cursor.end - cursor.at);
    if (name_end == nullptr) return;
    cursor.at = static_cast<const BYTE*>(name_end) + 1;

    float scale = 1;
    bool down = false;
    for (int code; (code = cursor.next()) != 0 && --steps_ >= 0;) {
      switch (code) {
        case 1:
        case 2:
          down = code == 1;
          break;
        case 3:
          // A division by 0 can only be damage.
          if (const int by = cursor.next(); by != 0) scale /= static_cast<float>(by);
          break;
        case 4:
          scale *= static_cast<float>(cursor.next());
          break;
        case 5:
          sink_.save();
          break;
        case 6:
          sink_.restore();
          break;
        case 7:
          run_sub_shape(cursor.next(), big, depth + 1);
          break;
        case 8: {
          const float dx = cursor.next_signed();
          sink_.move(dx * scale, cursor.next_signed() * scale, down);
          break;
        }
        case 9:
          run_list(cursor, scale, down);
          break;
        case 14:
          skip_vertical(cursor);
          break;
        default: {
          const float length = static_cast<float>(code >> 4) * scale;
          const Direction& way = kDirections[code & 15];
          sink_.move(way.dx * length, way.dy * length, down);
        }
      }
    }
  }

  void run_list(Cursor& cursor, float scale, bool down) {
    while (--steps_ >= 0) {
      const float dx = cursor.next_signed(), dy = cursor.next_signed();
      if (dx == 0 && dy == 0) return;
      sink_.move(dx * scale, dy * scale, down);
    }
  }

  void run_sub_shape(int number, bool big, int depth) {
    if (depth > CShx::kMaxDepth) return;
    if (!big) {
      if (!font_.m_pTxtIndex.empty()) {
        run(font_.m_pTxtData, font_.m_pTxtIndex[number], false, depth);
      }
    } else if (const int offset = font_.m_pHzSingleIndex[number]; offset >= 0) {
      run(font_.m_pHzHead, offset, true, depth);
    } else {
      for (int i = 0; i < 2; ++i) run(font_.m_pTxtData, font_.m_nTxtDefault, false, depth);
    }
  }

  // The code behind the prefix is meant for vertical text only: it goes with its operands.
  void skip_vertical(Cursor& cursor) {
    switch (cursor.next()) {
      case 3:
      case 4:
      case 7:
        cursor.next();
        break;
      case 8:
        cursor.next();
        cursor.next();
        break;
      case 9:
        while (--steps_ >= 0) {
          const int dx = cursor.next(), dy = cursor.next();
          if (dx == 0 && dy == 0) return;
        }
    }
  }

  struct Direction {
    float dx, dy;
  };
  static constexpr Direction kDirections[16] = {
      {1, 0},  {1, 0.5f},   {1, 1},   {0.5f, 1},   {0, 1},  {-0.5f, 1}, {-1, 1}, {-1, 0.5f},
      {-1, 0}, {-1, -0.5f}, {-1, -1}, {-0.5f, -1}, {0, -1}, {0.5f, -1}, {1, -1}, {1, -0.5f}};

  const CShx& font_;
  Sink& sink_;
  int steps_ = CShx::kMaxSteps;
};

}  // namespace brindle
