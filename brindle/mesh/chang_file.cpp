// The field file: a line with the two counts, a line a node, a line a triangle.
#include <cstdio>
#include <memory>
#include <string>

#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/mesh/chang.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/save_file.h"
#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

constexpr int kLineSize = 290;  // with the terminating zero; a longer line counts as several
constexpr std::size_t kBlock = 1 << 16;
constexpr int kDecimals = 6;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void append_number(std::string& out, double value) {
  char digits[kFixedBufferSize];
  out.append(digits, format_fixed(digits, value, kDecimals));
}

void append_line(std::string& out, const CChangNode& node) {
  append_number(out, node.x);
  append_number(out += ',', node.y);
  for (const float value : node.values) append_number(out += ',', value);
  out += "\r\n";
}

void append_line(std::string& out, const CChangTri& triangle) {
  out += std::to_string(triangle.n1);
  out.append(1, ',') += std::to_string(triangle.n2);
  out.append(1, ',') += std::to_string(triangle.n3);
  out += "\r\n";
}

// False on an error.
bool write(std::string& text, std::FILE* stream) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
  text.clear();
  return written;
}

template <class Record>
int write_record(const Record& record, std::FILE* stream) {
  std::string line;
  append_line(line, record);
  return stream != nullptr && write(line, stream) ? 1 : 0;
}

// Reads up to `count` records to the end of the stream.
template <class Record>
void read_records(CChangArray<Record>& list, int count, std::FILE* stream) {
  for (int i = 0; i < count; ++i) {
    Record record;
    if (record.LoadData(stream) == 0) return;
    list.Add(record);
  }
}

// A device such as an endless one looks like an empty file.
bool is_empty(std::FILE* stream) {
  if (std::fseek(stream, 0, SEEK_END) != 0) return false;
  const long size = std::ftell(stream);
  std::rewind(stream);
  return size == 0;
}

}  // namespace

int CChangNode::LoadData(std::FILE* stream) {
  wchar_t line[kLineSize];
  if (brindle::fgetws(line, kLineSize, stream) == nullptr) return 0;
  float* const v = values;
  JSVsscanf::vsscanf(line, L"%f,%f,%f,%f,%f,%f,%f,%f,%f,%f,%f,%f\n", &x, &y, v, v + 1, v + 2, v + 3,
                     v + 4, v + 5, v + 6, v + 7, v + 8, v + 9);
  return 1;
}

int CChangNode::SaveData(std::FILE* stream) const {
  return write_record(*this, stream);
}

int CChangTri::LoadData(std::FILE* stream) {
  wchar_t line[kLineSize];
  if (brindle::fgetws(line, kLineSize, stream) == nullptr) return 0;
  JSVsscanf::vsscanf(line, L"%I64d,%I64d,%I64d\n", &n1, &n2, &n3);
  return 1;
}

int CChangTri::SaveData(std::FILE* stream) const {
  return write_record(*this, stream);
}

int CChang::LoadData(std::FILE* stream) {
  m_arrayNode.RemoveAll();
  m_arrayTri.RemoveAll();
  int nodes = 0, triangles = 0;
  wchar_t line[kLineSize];
  if (brindle::fgetws(line, kLineSize, stream) == nullptr) {
    tell_error(301, L"场文件错误: 文件为空!");
    return 1;
  }
  JSVsscanf::vsscanf(line, L"%d,%d\n", &nodes, &triangles);
  read_records(m_arrayNode, nodes, stream);
  read_records(m_arrayTri, triangles, stream);
  if (nodes != m_arrayNode.GetSize() || triangles != m_arrayTri.GetSize()) {
    tell_error1(301, L"场文件错误: 应有结点 %d 个, 三角形 %d 个, 实有 %d 个, %d 个!", nodes,
                triangles, static_cast<int>(m_arrayNode.GetSize()),
                static_cast<int>(m_arrayTri.GetSize()));
  }
  return 1;
}

int CChang::LoadData(const wchar_t* path) {
  const std::unique_ptr<std::FILE, CloseFile> file(_wfopen(path, L"rt"));
  if (file == nullptr) return 0;
  return LoadData(is_empty(file.get()) ? nullptr : file.get());
}

int CChang::SaveData(std::FILE* stream) {
  if (stream == nullptr) return 1;
  std::string text = std::to_string(m_arrayNode.GetSize());
  text.append(1, ',') += std::to_string(m_arrayTri.GetSize());
  text += "\r\n";
  const auto append = [&](const auto& list) {
    for (INT_PTR i = 0; i < list.GetSize(); ++i) {
      append_line(text, list.data()[i]);
      // A full disk leaves its mark on the stream.
      if (text.size() >= kBlock) write(text, stream);
    }
  };
  append(m_arrayNode);
  append(m_arrayTri);
  write(text, stream);
  return 1;
}

int CChang::SaveData(const wchar_t* path) {
  SaveFile file(path);
  if (file.stream() == nullptr) {
    if (!file.target_missing_or_unusable()) tell_error1(301, L"写文件失败: %s", path);
    return 0;
  }
  SaveData(file.stream());
  if (file.commit()) return 1;
  tell_error1(301, L"写文件失败: %s", path);
  return 0;
}

}  // namespace brindle
