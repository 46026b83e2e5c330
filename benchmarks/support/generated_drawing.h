// The drawing that the readers and writers of drawing files are measured with, as an R12 file.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace brindle::benchmarks {

// What a drawing holds. The sums tell two models of one drawing apart that differ in any number or
// text; they don't depend on the order of the entities, as far as rounding allows.
struct DrawingSummary {
  long lines = 0, texts = 0, circles = 0, arcs = 0;
  double coordinates = 0;  // sum of all coordinates, radii, heights and angles
  double characters = 0;   // of texts and layer names

  long entities() const { return lines + texts + circles + arcs; }
  bool agrees_with(const DrawingSummary& other) const {
    const double difference = coordinates - other.coordinates;
    return lines == other.lines && texts == other.texts && circles == other.circles &&
           arcs == other.arcs && characters == other.characters && difference * difference < 1e-4;
  }
};

// Writes drawings: half of the entities are lines, a fifth texts, the rest circles and arcs in
// equal parts, mixed; eight layers, each text once, coordinates of one to eight digits. The same
// bytes for the same count on every machine.
class DrawingGenerator {
 public:
  // Returns false when the file can't be written.
  bool write(const std::string& path, int count) {
    file_ = std::fopen(path.c_str(), "wb");
    if (file_ == nullptr) return false;
    std::fputs(kHead, file_);
    for (int i = 0; i < count; ++i) write_entity(i);
    std::fputs("  0\nENDSEC\n  0\nEOF\n", file_);
    const bool whole = std::ferror(file_) == 0;
    return std::fclose(file_) == 0 && whole;
  }

 private:
  static constexpr const char* kLayers[] = {"AXIS",  "WALL",  "BEAM",   "COLUMN",
                                            "STEEL", "NOTES", "HIDDEN", "DIM1"};
  static constexpr const char* kHead =
      "  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n1.0\n  0\nENDSEC\n"
      "  0\nSECTION\n  2\nTABLES\n"
      "  0\nTABLE\n  2\nLTYPE\n 70\n1\n"
      "  0\nLTYPE\n  2\nCONTINUOUS\n 70\n0\n  3\nSolid\n 72\n65\n 73\n0\n 40\n0.0\n"
      "  0\nENDTAB\n"
      "  0\nTABLE\n  2\nLAYER\n 70\n8\n"
      "  0\nLAYER\n  2\nAXIS\n 70\n0\n 62\n1\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nWALL\n 70\n0\n 62\n2\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nBEAM\n 70\n0\n 62\n3\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nCOLUMN\n 70\n0\n 62\n4\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nSTEEL\n 70\n0\n 62\n5\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nNOTES\n 70\n0\n 62\n6\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nHIDDEN\n 70\n0\n 62\n7\n  6\nCONTINUOUS\n"
      "  0\nLAYER\n  2\nDIM1\n 70\n0\n 62\n8\n  6\nCONTINUOUS\n"
      "  0\nENDTAB\n"
      "  0\nTABLE\n  2\nSTYLE\n 70\n1\n"
      "  0\nSTYLE\n  2\nSTANDARD\n 70\n0\n 40\n0.0\n 41\n1.0\n 50\n0.0\n 71\n0\n 42\n2.5\n"
      "  3\ntxt\n  4\n\n"
      "  0\nENDTAB\n  0\nENDSEC\n"
      "  0\nSECTION\n  2\nBLOCKS\n  0\nENDSEC\n"
      "  0\nSECTION\n  2\nENTITIES\n";

  std::uint32_t random(std::uint32_t limit) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>((state_ >> 33) % limit);
  }

  // A group with a number of up to `whole` - 1 and zero to four decimals.
  void number(int code, std::uint32_t whole) {
    static constexpr std::uint32_t kScale[] = {1, 10, 100, 1000, 10000};
    const int decimals = static_cast<int>(random(5));
    std::fprintf(file_, "%3d\n%u", code, random(whole));
    if (decimals > 0) std::fprintf(file_, ".%0*u", decimals, random(kScale[decimals]));
    std::fputc('\n', file_);
  }
  void point(int code) {
    number(code, 30000);
    number(code + 10, 20000);
    std::fprintf(file_, "%3d\n0.0\n", code + 20);
  }

  void write_entity(int index) {
    static constexpr const char* kKinds[] = {"LINE", "TEXT", "CIRCLE", "ARC"};
    const std::uint32_t share = random(20);
    const int kind = share < 10 ? 0 : share < 14 ? 1 : share < 17 ? 2 : 3;
    std::fprintf(file_, "  0\n%s\n  8\n%s\n", kKinds[kind], kLayers[random(8)]);
    point(10);
    switch (kind) {
      case 0:
        point(11);
        break;
      case 1:
        std::fprintf(file_, " 40\n2.5\n  1\nT%06d\n  7\nSTANDARD\n", index);
        number(50, 360);
        break;
      default:
        number(40, 1000);
        if (kind == 3) {
          number(50, 360);
          number(51, 360);
        }
    }
  }

  std::FILE* file_ = nullptr;
  std::uint64_t state_ = 20240607;
};

}  // namespace brindle::benchmarks
