// Entities in the binary drawing file: the head that all share, then the fields of the kind.
#pragma once

#include "brindle/dxf/binary_stream_internal.h"
#include "brindle/dxf/dxf.h"

namespace brindle {

// Names of layers and line types as the file has them: 16-bit indexes of the tables. A name that
// isn't in its table is stored as index 0; the highest index stands for "BYLAYER", which no table
// holds.
class BinaryNames {
 public:
  BinaryNames(const DXF& drawing, bool extended_words)
      : drawing_(drawing), extended_words_(extended_words) {}

  template <class Stream, class Record>
  void layer(Stream& stream, Record& record) {
    std::uint16_t index = 0;
    if (!Stream::kReading) {
      index = find(drawing_.m_pLayer, drawing_.m_nNumLayer, record.m_szLayer, last_layer_);
    }
    if (!stream.plain(index) || !Stream::kReading) return;
    if (index < drawing_.m_nNumLayer) record.m_szLayer = drawing_.m_pLayer[index].m_szName;
  }

  template <class Stream, class Record>
  void line_type(Stream& stream, Record& record) {
    std::uint16_t index = kByLayer;
    if (!Stream::kReading && !(record.m_szLType == by_layer_)) {
      index = find(drawing_.m_pLType, drawing_.m_nNumLType, record.m_szLType, last_line_type_);
    }
    if (!stream.plain(index) || !Stream::kReading) return;
    if (index == kByLayer) {
      record.m_szLType = by_layer_;
    } else if (index < drawing_.m_nNumLType) {
      record.m_szLType = drawing_.m_pLType[index].m_szName;
    }
  }

  // A new entity of a kind with its defaults, null for no kind; owned by the caller.
  Varnholt::ACAD_ENTITY* create(int kind);

  // Whether entities have their three extended words.
  bool extended_words() const { return extended_words_; }

 private:
  static constexpr std::uint16_t kByLayer = 0xffff;

  template <class Record>
  static std::uint16_t find(const Record* records, int count, const WText<100>& name, int& last) {
    if (last < count && records[last].m_szName == name) return static_cast<std::uint16_t>(last);
    for (int i = 0; i < count; ++i) {
      if (!(records[i].m_szName == name)) continue;
      last = i;
      return static_cast<std::uint16_t>(i);
    }
    return 0;
  }

  const DXF& drawing_;
  const bool extended_words_;
  const WText<100> by_layer_{L"BYLAYER"};
  int last_layer_ = 0, last_line_type_ = 0;
  std::unique_ptr<Varnholt::ACAD_ENTITY> patterns_[Varnholt::kEntityNone];
};

// Null for a kind that isn't known: nothing but the kind is taken from the file then. Owned by the
// caller.
Varnholt::ACAD_ENTITY* read_binary_entity(BinaryReader& stream, BinaryNames& names);
void write_binary_entity(BinaryWriter& stream, BinaryNames& names, Varnholt::ACAD_ENTITY& entity);

}  // namespace brindle
