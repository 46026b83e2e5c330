// Reading the TABLES section: the records are counted first, then read in place.
#include <algorithm>
#include <new>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_reading_internal.h"
#include "brindle/frame/utility/tell_error.h"

namespace brindle {

using namespace Varnholt;

struct DxfTableMessages {
  const wchar_t* wrong_count;
  const wchar_t* out_of_memory;
  const wchar_t* no_array;  // null: nothing is told
};

namespace {

constexpr int kMostRecords = 1000;

constexpr DxfTableMessages kLTypeMessages = {L"Num_LType Error !",
                                             L"Out of Memery When Read LType!", nullptr};
constexpr DxfTableMessages kLayerMessages = {L"Num_Layer Error !",
                                             L"Out of Memery When Read Layer!", nullptr};
// Styles tell a failed allocation in the line types' words; that is meant.
constexpr DxfTableMessages kStyleMessages = {
    L"Num_Style Error !", L"Out of Memery When Read LType!", L"Out of Memery When Read Style!"};
constexpr DxfTableMessages kDimStyleMessages = {L"Num_DimStyle Error !",
                                                L"Out of Memery When Read DimStyle!",
                                                L"Out of Memery When Read Style!"};

}  // namespace

// Counts the records of the section, which the reader stands at the start of.
void DXF::count_table_records() {
  m_nNumLType = m_nNumLayer = m_nNumStyle = m_nNumDimStyle = 0;
  DxfPair pair;
  while (reader()->read(pair) && !pair.is(0, "ENDSEC")) {
    if (pair.code != 0) continue;
    if (pair.value.is("LTYPE")) ++m_nNumLType;
    if (pair.value.is("LAYER")) ++m_nNumLayer;
    if (pair.value.is("STYLE")) ++m_nNumStyle;
    if (pair.value.is("DIMSTYLE")) ++m_nNumDimStyle;
  }
}

int DXF::Read_Tables() {
  if (Find_Start_Tables() == 0) return 0;
  DxfPairReader& pairs = *reader();
  const long long start = pairs.position();
  count_table_records();
  pairs.seek(start);
  DxfPair pair;
  int result = 0;
  while (pairs.read(pair)) {
    if (pair.is(0, "ENDSEC")) {
      result = 1;
      break;
    }
    if (pair.is(0, "TABLE")) Read_One_Table();
  }
  // Whatever the section lacked or repeated, no count exceeds its array.
  m_nNumLType = std::min(m_nNumLType, m_nMaxLType);
  m_nNumLayer = std::min(m_nNumLayer, m_nMaxLayer);
  m_nNumStyle = std::min(m_nNumStyle, m_nMaxStyle);
  m_nNumDimStyle = std::min(m_nNumDimStyle, m_nMaxDimStyle);
  return result;
}

// Checks the count and makes room. False when the table can't be read: the count is reported, and
// one default record stays.
template <class Record>
bool DXF::prepare_table(const DxfTableMessages& messages, Record*& records, int& count,
                        int& capacity) {
  if (count < 1 || count > kMostRecords) {
    tell_error(301, messages.wrong_count);
    if (count > kMostRecords) count = 1;
    return false;
  }
  if (count > capacity) {
    Record* larger = new (std::nothrow) Record[static_cast<std::size_t>(count)];
    if (larger == nullptr) {
      tell_error(301, messages.out_of_memory);
      count = 1;
      return false;
    }
    delete[] records;
    records = larger;
    capacity = count;
  }
  if (records == nullptr) {
    if (messages.no_array != nullptr) tell_error(301, messages.no_array);
    count = 0;
    return false;
  }
  for (int i = 0; i < count; ++i) records[i].m_pDxf = this;
  return true;
}

// Line types and layers: each record is looked for where the one before it ended; a pair of code 0
// with another word leaves its record at its defaults.
template <class Record>
void DXF::read_adjacent_records(Record* records, int count, const char* keyword) {
  DxfPairReader& pairs = *reader();
  DxfPair pair;
  for (int i = 0; i < count; ++i) {
    while (pairs.read(pair) && pair.code != 0) {
    }
    if (pair.code != 0) return;  // end of the file
    if (!pair.value.is(keyword)) {
      if (pair.value.is("ENDSEC")) {
        pairs.unread();  // the section's end isn't a record's to take
        return;
      }
      continue;
    }
    pairs.unread();
    records[i].read_from(pairs);
  }
}

// Text and dimension styles: the records up to the table's end.
template <class Record>
void DXF::read_listed_records(Record* records, int count, const char* keyword) {
  DxfPairReader& pairs = *reader();
  DxfPair pair;
  int next = 0;
  while (pairs.read(pair)) {
    if (pair.is(0, "ENDTAB")) return;
    if (pair.is(0, "ENDSEC")) {
      pairs.unread();
      return;
    }
    if (next < count && pair.is(0, keyword)) {
      pairs.unread();
      records[next++].read_from(pairs);
    }
  }
}

int DXF::Read_One_Table() {
  DxfPairReader* pairs = reader();
  if (pairs == nullptr) return 0;
  DxfPair pair;
  while (pairs->read(pair)) {
    if (pair.is(0, "ENDTAB")) return 0;
    if (pair.is(0, "ENDSEC")) {
      pairs->unread();
      return 0;
    }
    if (pair.code != 2) continue;
    if (pair.value.is("LTYPE")) {
      if (!prepare_table(kLTypeMessages, m_pLType, m_nNumLType, m_nMaxLType)) continue;
      read_adjacent_records(m_pLType, m_nNumLType, "LTYPE");
      return 1;
    }
    if (pair.value.is("LAYER")) {
      if (!prepare_table(kLayerMessages, m_pLayer, m_nNumLayer, m_nMaxLayer)) continue;
      read_adjacent_records(m_pLayer, m_nNumLayer, "LAYER");
      return 1;
    }
    if (pair.value.is("STYLE")) {
      if (!prepare_table(kStyleMessages, m_pStyle, m_nNumStyle, m_nMaxStyle)) continue;
      read_listed_records(m_pStyle, m_nNumStyle, "STYLE");
      return 1;
    }
    if (pair.value.is("DIMSTYLE")) {
      if (!prepare_table(kDimStyleMessages, m_pDimStyle, m_nNumDimStyle, m_nMaxDimStyle)) continue;
      read_listed_records(m_pDimStyle, m_nNumDimStyle, "DIMSTYLE");
      return 1;
    }
  }
  return 0;
}

}  // namespace brindle
