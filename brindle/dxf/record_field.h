// One row of a record's table of fields: group code, member, default, and how the member is read
// and written. Entities and table records state such a table once; reading, writing and resetting
// follow from it.
#pragma once

#include <string>
#include <type_traits>

#include "brindle/dxf/pair_reader.h"
#include "brindle/dxf/pair_writer.h"

namespace brindle {

// A record's values, one after the other, for forms that have no group codes. A reader replaces
// what it is given, a writer looks at it.
class FieldExchange {
 public:
  virtual ~FieldExchange() = default;
  virtual void number(double& value) = 0;
  virtual void integer(int& value) = 0;
  virtual void text(std::wstring& value) = 0;
};

// Base is the common base of the records that share a table's type: ACAD_ENTITY or ACAD_TABLE.
template <class Base>
struct RecordField {
  int code = 0;           // group code
  const char* name = "";  // the member's name, for documents and dumps
  double number = 0;      // default of a number
  WText<300> words;       // default of a text
  void (*reset)(Base&, const RecordField&) = nullptr;
  void (*read)(Base&, const DxfPair&, DxfPairReader&) = nullptr;
  void (*write)(const Base&, int code, DxfPairWriter&) = nullptr;
  void (*exchange)(Base&, FieldExchange&) = nullptr;
};

namespace record_field_detail {

template <class T>
struct MemberOf;
template <class Owner, class Value>
struct MemberOf<Value Owner::*> {
  using OwnerType = Owner;
  using ValueType = Value;
};

template <class Base, auto Member>
auto& member(Base& record) {
  return static_cast<typename MemberOf<decltype(Member)>::OwnerType&>(record).*Member;
}
template <class Base, auto Member>
const auto& member(const Base& record) {
  return static_cast<const typename MemberOf<decltype(Member)>::OwnerType&>(record).*Member;
}

template <class Base, auto Member>
void reset(Base& record, const RecordField<Base>& field) {
  auto& value = member<Base, Member>(record);
  using Value = std::remove_reference_t<decltype(value)>;
  if constexpr (std::is_arithmetic_v<Value>) {
    value = static_cast<Value>(field.number);
  } else {
    value = field.words;
  }
}

template <class Base, auto Member>
void read(Base& record, const DxfPair& pair, DxfPairReader& reader) {
  auto& value = member<Base, Member>(record);
  using Value = std::remove_reference_t<decltype(value)>;
  if constexpr (std::is_floating_point_v<Value>) {
    value = static_cast<Value>(DxfPairReader::real(pair));
  } else if constexpr (std::is_integral_v<Value>) {
    value = static_cast<Value>(DxfPairReader::integer(pair));
  } else {
    value = reader.name(pair);
  }
}

template <class Base, auto Member>
void write(const Base& record, int code, DxfPairWriter& writer) {
  const auto& value = member<Base, Member>(record);
  using Value = std::remove_cvref_t<decltype(value)>;
  if constexpr (std::is_floating_point_v<Value>) {
    writer.group(code, static_cast<double>(value));
  } else if constexpr (std::is_integral_v<Value>) {
    writer.group(code, static_cast<int>(value));
  } else {
    writer.group(code, value.c_str());
  }
}

template <class Base, auto Member>
void exchange(Base& record, FieldExchange& with) {
  auto& value = member<Base, Member>(record);
  using Value = std::remove_reference_t<decltype(value)>;
  if constexpr (std::is_floating_point_v<Value>) {
    double number = value;
    with.number(number);
    value = static_cast<Value>(number);
  } else if constexpr (std::is_integral_v<Value>) {
    int number = static_cast<int>(value);
    with.integer(number);
    value = static_cast<Value>(number);
  } else {
    std::wstring text(value.view());
    with.text(text);
    value = std::wstring_view(text);
  }
}

}  // namespace record_field_detail

// A row for a number, with its default.
template <class Base, auto Member>
RecordField<Base> number_field(int code, const char* name, double initial) {
  namespace detail = record_field_detail;
  return {code,
          name,
          initial,
          WText<300>(),
          detail::reset<Base, Member>,
          detail::read<Base, Member>,
          detail::write<Base, Member>,
          detail::exchange<Base, Member>};
}

// A row for a text, with its default.
template <class Base, auto Member>
RecordField<Base> text_field(int code, const char* name, const wchar_t* initial) {
  namespace detail = record_field_detail;
  return {code,
          name,
          0,
          WText<300>(initial),
          detail::reset<Base, Member>,
          detail::read<Base, Member>,
          detail::write<Base, Member>,
          detail::exchange<Base, Member>};
}

}  // namespace brindle
