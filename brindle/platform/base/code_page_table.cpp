// Code pages of one- and two-byte characters, by tables that iconv fills once.
#include <array>
#include <cerrno>
#include <mutex>
#include <vector>

#include "brindle/platform/base/code_page_internal.h"

namespace brindle {

namespace {

constexpr char16_t kNone = 0xFFFF;  // no character: never one of a page

// What a page holds in the direction of reading.
struct DecodeTable {
  std::array<char16_t, 256> single;  // kNone for invalid bytes and lead bytes
  std::array<bool, 256> is_lead{};
  std::array<bool, 256> is_trail{};
  std::vector<char16_t> pairs;  // by lead * 256 + trail; empty in a single-byte page
};

enum class Probe { kCharacter, kInvalid, kIncomplete, kUnfit };

Probe probe(Iconv& iconv, std::string_view bytes, char16_t& character) {
  iconv.reset();
  char32_t wide[4] = {};
  const char* in = bytes.data();
  char* out = reinterpret_cast<char*>(wide);
  const int error = iconv.run(in, bytes.data() + bytes.size(), out, out + sizeof wide);
  // Of some pages iconv holds a letter back, to join it with an accent behind it. In files each
  // byte is a character by itself.
  if (error == 0) iconv.flush(out, reinterpret_cast<char*>(wide) + sizeof wide);
  if (error == EILSEQ) return Probe::kInvalid;
  if (error == EINVAL) return Probe::kIncomplete;
  const bool is_one = out == reinterpret_cast<char*>(wide + 1);
  if (error != 0 || !is_one || wide[0] >= kNone) return Probe::kUnfit;
  character = static_cast<char16_t>(wide[0]);
  return Probe::kCharacter;
}

// The user's own characters of GBK stand in the private use area, in three blocks; iconv leaves
// them out. Drawings hold the marks of bar diameters and grades there.
void add_private_characters_of_gbk(DecodeTable& table) {
  struct Block {
    int first_lead, last_lead, first_trail, last_trail;
  };
  constexpr Block kBlocks[] = {
      {0xAA, 0xAF, 0xA1, 0xFE}, {0xF8, 0xFE, 0xA1, 0xFE}, {0xA1, 0xA7, 0x40, 0xA0}};
  char16_t character = 0xE000;
  for (const Block& block : kBlocks) {
    for (int lead = block.first_lead; lead <= block.last_lead; ++lead) {
      for (int trail = block.first_trail; trail <= block.last_trail; ++trail) {
        if (trail == 0x7F) continue;
        char16_t& entry = table.pairs[static_cast<std::size_t>(lead * 256 + trail)];
        if (entry == kNone) entry = character;
        ++character;
      }
    }
  }
}

// False when the page doesn't fit such a table.
bool fill(DecodeTable& table, Iconv& from_page) {
  table.single.fill(kNone);
  for (int byte = 0; byte < 256; ++byte) {
    const auto i = static_cast<std::size_t>(byte);
    const char text[] = {static_cast<char>(byte)};
    const Probe result = probe(from_page, {text, 1}, table.single[i]);
    if (result == Probe::kUnfit) return false;
    table.is_lead[i] = result == Probe::kIncomplete;
  }
  for (int lead = 0; lead < 256; ++lead) {
    if (!table.is_lead[static_cast<std::size_t>(lead)]) continue;
    if (lead < 0x80) return false;  // an escape of some other kind of encoding
    table.pairs.resize(65536, kNone);
    for (int trail = 0; trail < 256; ++trail) {
      const char text[] = {static_cast<char>(lead), static_cast<char>(trail)};
      const Probe result =
          probe(from_page, {text, 2}, table.pairs[static_cast<std::size_t>(lead * 256 + trail)]);
      if (result == Probe::kUnfit || result == Probe::kIncomplete) return false;
      if (result == Probe::kCharacter) table.is_trail[static_cast<std::size_t>(trail)] = true;
    }
  }
  if (!table.pairs.empty()) {
    // Some national standards have a currency sign or an overline in the places of these two; in
    // files they are what they are in ASCII.
    table.single['\\'] = u'\\';
    table.single['~'] = u'~';
  }
  return true;
}

bool is_ascii(const DecodeTable& table) {
  for (char16_t c = 0; c < 0x80; ++c) {
    if (table.single[c] != c) return false;
  }
  return true;
}

class TablePage final : public CodePage {
 public:
  TablePage(const std::string& page_name, unsigned page_number, DecodeTable table)
      : CodePage(page_name, page_number, is_ascii(table)), table_(std::move(table)) {}

  using CodePage::decode;
  using CodePage::encode;

  void decode(std::string_view bytes, std::wstring& out) const override {
    if (out.size() < bytes.size()) out.resize(bytes.size());
    const char* in = bytes.data();
    const char* const end = in + bytes.size();
    wchar_t* to = out.data();
    while (in != end) {
      if (is_ascii_compatible()) {
        const std::size_t count = widen_ascii(in, static_cast<std::size_t>(end - in), to);
        in += count;
        to += count;
        if (in == end) break;
      }
      do {
        const auto byte = static_cast<unsigned char>(*in);
        if (table_.is_lead[byte] && end - in > 1) {
          const char16_t pair = table_.pairs[byte * 256u + static_cast<unsigned char>(in[1])];
          if (pair != kNone) {
            *to++ = static_cast<wchar_t>(pair);
            in += 2;
            continue;
          }
        }
        in = decode_rare(in, end, to);
      } while (in != end && static_cast<unsigned char>(*in) >= 0x80);
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
  }

  int decode_one(const char* bytes, int count, char32_t& character) const override {
    const auto byte = static_cast<unsigned char>(bytes[0]);
    character = table_.single[byte];
    if (character != kNone) return 1;
    if (!table_.is_lead[byte]) return -1;
    if (count < 2) return 0;
    const auto trail = static_cast<unsigned char>(bytes[1]);
    character = table_.pairs[byte * 256u + trail];
    if (character != kNone) return 2;
    // A pair of the page's form that it doesn't define goes as a whole: taking its second byte for
    // a lead byte would spoil all that follows. ASCII always stays.
    return trail >= 0x80 && table_.is_trail[trail] ? -2 : -1;
  }

  void encode(std::wstring_view text, std::string& out) const override {
    std::call_once(encode_once_, [this] { fill_encode_table(); });
    const std::size_t start = out.size();
    out.resize(start + text.size() * 2);
    char* to = out.data() + start;
    const wchar_t* in = text.data();
    const wchar_t* const end = in + text.size();
    while (in != end) {
      if (is_ascii_compatible()) {
        const std::size_t count = narrow_ascii(in, static_cast<std::size_t>(end - in), to);
        in += count;
        to += count;
        if (in == end) break;
      }
      const char32_t character = next_character(in, end);
      const std::uint16_t code = character < encode_.size() ? encode_[character] : 0;
      if (code == 0 && character != 0) {
        *to++ = '?';
      } else {
        if (code > 0xFF) *to++ = static_cast<char>(code >> 8);
        *to++ = static_cast<char>(code);
      }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
  }

 private:
  // What isn't a defined pair; writes one character a byte and returns what follows.
  const char* decode_rare(const char* in, const char* end, wchar_t*& to) const {
    char32_t character = 0;
    const int count = decode_one(in, end - in > 1 ? 2 : 1, character);
    if (count > 0) {
      *to++ = static_cast<wchar_t>(character);
      return in + count;
    }
    const int invalid = count == 0 ? 1 : -count;
    for (int i = 0; i < invalid; ++i) *to++ = static_cast<wchar_t>(kInvalidCharacter);
    return in + invalid;
  }

  // iconv's own choice where several codes mean one character; what it lacks, from the table.
  void fill_encode_table() const {
    encode_.assign(65536, 0);
    const auto add = [this](char16_t character, unsigned code) {
      if (character != kNone && encode_[character] == 0) {
        encode_[character] = static_cast<std::uint16_t>(code);
      }
    };
    Iconv to_page(name(), utf32_name());
    for (char32_t c = 0x80; to_page.is_open() && c < kNone; ++c) {
      if (c >= 0xD800 && c < 0xF900) continue;  // surrogates and private characters
      char bytes[8];
      char* to = bytes;
      const char* in = reinterpret_cast<const char*>(&c);
      to_page.reset();
      if (to_page.run(in, in + sizeof c, to, to + sizeof bytes) != 0) continue;
      const auto first = static_cast<unsigned char>(bytes[0]);
      if (to - bytes == 1 && first >= 0x80) add(static_cast<char16_t>(c), first);
      if (to - bytes == 2) {
        add(static_cast<char16_t>(c), first * 256u + static_cast<unsigned char>(bytes[1]));
      }
    }
    for (unsigned i = 0; i < 256; ++i) add(table_.single[i], i);
    for (unsigned i = 0; i < table_.pairs.size(); ++i) add(table_.pairs[i], i);
  }

  DecodeTable table_;
  mutable std::once_flag encode_once_;
  mutable std::vector<std::uint16_t> encode_;  // by character; 0: the page lacks it
};

}  // namespace

std::unique_ptr<CodePage> make_table_page(const std::string& name, unsigned number) {
  Iconv from_page(utf32_name(), name.c_str());
  DecodeTable table;
  if (!from_page.is_open() || !fill(table, from_page)) return nullptr;
  if (number == 936) add_private_characters_of_gbk(table);
  return std::make_unique<TablePage>(name, number, std::move(table));
}

}  // namespace brindle
