#include "brindle/geometry/matrix/matrix.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "brindle/geometry/matrix/float_matrix.h"
#include "brindle/geometry/matrix/ite_exception.h"
#include "brindle/geometry/matrix/matrix_functions.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

using QxJGFunEx::CFMatrix;

struct CloseFile {
  void operator()(std::FILE* fp) const { std::fclose(fp); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File file_of(const std::string& bytes) {
  File file(std::tmpfile());
  std::fwrite(bytes.data(), 1, bytes.size(), file.get());
  std::rewind(file.get());
  return file;
}

std::string bytes_of(std::FILE* fp) {
  std::rewind(fp);
  std::string bytes;
  for (int c = std::fgetc(fp); c != EOF; c = std::fgetc(fp)) bytes += static_cast<char>(c);
  return bytes;
}

// Elements 11, 12 ... 21, 22 ...
CMatrix counted(int rows, int cols) {
  CMatrix m(rows, cols);
  for (int i = 1; i <= rows; ++i) {
    for (int j = 1; j <= cols; ++j) m(i, j) = 10 * i + j;
  }
  return m;
}

std::string text_of(const CMatrix& m, const char* format = "%g ") {
  const File file(std::tmpfile());
  m.Display(file.get(), format);
  return bytes_of(file.get());
}

// The text of what `action` throws, empty if nothing.
std::wstring thrown(const std::function<void()>& action) {
  try {
    action();
  } catch (const CITE_Exception& e) {
    EXPECT_NE(std::wstring(e.m_strPath).find(L"geometry/matrix/"), std::wstring::npos);
    EXPECT_GT(e.m_nLine, 0);
    return std::wstring(e.GetErrorMessage());
  }
  return {};
}

TEST(Matrix, ShapesChange) {
  CMatrix m = counted(3, 2);
  EXPECT_EQ(text_of(m), "11 12 \r\n21 22 \r\n31 32 \r\n");
  m.DeleteRow(2);
  EXPECT_EQ(text_of(m), "11 12 \r\n31 32 \r\n");
  m.RowExtend(1, 7);
  m.ColExtend(2, -1);
  EXPECT_EQ(text_of(m), "11 12 -1 -1 \r\n31 32 -1 -1 \r\n7 7 -1 -1 \r\n");
  for (int row : {1, 2, 1}) m.DeleteRow(row);
  expect_equal({m.GetRowCount(), m.GetColCount()}, {0, 4});
  m.RowExtend(1, 5);
  EXPECT_EQ(text_of(m), "5 5 5 5 \r\n");
  m.ReDimension(1, 2);
  EXPECT_EQ(text_of(m, nullptr), " 0.00 0.00\r\n");
  const CMatrix copy = m = counted(1, 1);
  m(1, 1) = 0;
  EXPECT_EQ(copy(1, 1), 11);
  m = static_cast<const CMatrix&>(m);
  EXPECT_EQ(m.GetRowCount(), 1);
  double* row = nullptr;
  counted(2, 2).GetRow(2, row);
  EXPECT_EQ(row[1], 22);
  delete[] row;
}

TEST(Matrix, BoundsThrowAndNothingChanges) {
  CMatrix m = counted(3, 3);
  CVector v(4, 2.0);
  double* row = nullptr;
  const std::wstring bounds = L"CMatrix error: 数组下标越界！", size = L"错误行列数";
  EXPECT_EQ(m(1, 1), 11);
  const struct {
    const char* what;
    std::function<void()> action;
    std::wstring text;
  } cases[] = {
      {"row 0", [&] { m(0, 1) = 1; }, bounds},
      {"column 0", [&] { m(1, 0) = 1; }, bounds},
      {"row 4", [&] { m(4, 1) = 1; }, bounds},
      {"column 4", [&] { m(1, 4) = 1; }, bounds},
      {"entry 5", [&] { v[5] = 1; }, bounds},
      {"entry 0", [&] { v[0] = 1; }, bounds},
      {"no row", [&] { m.DeleteRow(4); }, bounds},
      {"no row", [&] { m.GetRow(0, row); }, bounds},
      {"negative", [&] { m.ReDimension(-1, 2); }, size},
      {"negative", [&] { m.RowExtend(-1, 2); }, size},
      {"huge", [&] { m.ColExtend(std::numeric_limits<int>::max(), 2); }, size},
      {"negative", [&] { CVector w(-1); }, size},
      {"sum", [&] { m + v; }, size},
      {"difference", [&] { m - CMatrix(3, 2); }, size},
      {"product", [&] { m* v; }, size},
      {"row of", [&] { GetVectorByRow(m, 4); }, L"取向量时下裱越界"},
      {"row of", [&] { GetVectorByRow(m, 0); }, L"取向量时下裱越界"},
      {"set row", [&] { SetVector(m, CVector(3), 4); }, L"SetVector行号错误！"},
      {"set row", [&] { SetVector(m, v, 1); }, L"SetVector列数错误！"},
      {"append", [&] { MatrixAppendRow(m, v); }, size},
      {"append", [&] { MatrixAppendMatrix(m, CMatrix(2, 4)); }, size},
  };
  for (const auto& c : cases) EXPECT_EQ(thrown(c.action), c.text) << c.what;
  EXPECT_EQ(text_of(m), text_of(counted(3, 3)));
  EXPECT_EQ(row, nullptr);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__clang__)
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(thrown([] { CMatrix huge(kMost, kMost); }).substr(0, 23), L"CMatrix::CMatrix error:");
#endif
}

TEST(Matrix, Arithmetic) {
  const CMatrix a = counted(2, 3), b = counted(3, 2);
  EXPECT_EQ(text_of(a * b), "776 812 \r\n1406 1472 \r\n");
  EXPECT_EQ(text_of(a + a - a), text_of(a));
  CVector v(3, 2), w(3);
  w[2] = 5;
  const CVector sum = v + w, difference = v - w;
  EXPECT_EQ(text_of(sum), "2 7 2 \r\n");
  EXPECT_EQ(text_of(difference), "2 -3 2 \r\n");
  EXPECT_EQ(text_of(a * ToColVector(v)), "72 \r\n132 \r\n");
  EXPECT_EQ(text_of(ToVector(a)), "11 12 13 21 22 23 \r\n");
  EXPECT_EQ(text_of(GetVectorByRow(a, 2)), "21 22 23 \r\n");
  EXPECT_EQ((CMatrix(2, 0) * CMatrix(0, 2))(2, 2), 0);
}

TEST(Matrix, RowsGoIn) {
  CMatrix m;
  CArray<float, float> values;
  for (const float f : {1.5f, 2.5f}) values.Add(f);
  MatrixAppendRow(m, ConvertFromFloatArray(values));
  MatrixAppendMatrix(m, counted(1, 2));
  MatrixAppendMatrix(m, m);
  SetVector(m, values, 4);
  EXPECT_EQ(text_of(m), "1.5 2.5 \r\n11 12 \r\n1.5 2.5 \r\n1.5 2.5 \r\n");
  MatrixAppendMatrix(m, CMatrix());
  EXPECT_EQ(m.GetRowCount(), 4);
  EXPECT_TRUE(IsZeroVector(CVector(3)) && IsZeroVector(CVector()));
  EXPECT_FALSE(IsZeroVector(CVector(2, 1e-300)));
  CVector v(4, 2.0);
  EXPECT_EQ(v.GetLength(), 4);
  EXPECT_EQ(text_of(v), "2 2 2 2 \r\n");
  v.SetLength(2);
  EXPECT_EQ(text_of(v), "0 0 \r\n");
  RecordedMessages said;
  DisplayMatrixElement(counted(2, 2));
  ASSERT_EQ(said.messages.size(), 2u);
  EXPECT_EQ(said.messages[1].text, L"   21.0000    22.0000 ");
}

TEST(Matrix, DumpBytes) {
  CMatrix m(1, 2);
  m(1, 1) = 1;
  m(1, 2) = -2;
  const File file(std::tmpfile());
  EXPECT_EQ(m.Write_Binary(file.get()), 1);
  const std::string want("\1\0\0\0\2\0\0\0\0\0\0\0\0\0\xf0\x3f\0\0\0\0\0\0\0\xc0", 24);
  EXPECT_EQ(bytes_of(file.get()), want);
  std::rewind(file.get());
  CMatrix read(5, 5);
  EXPECT_EQ(read.Read_Binary(file.get()), 1);
  EXPECT_EQ(text_of(read), "1 -2 \r\n");
  expect_equal({m.Write_Binary(nullptr), m.Read_Binary(nullptr)}, {0, 0});
  // One behind the other, larger than a buffer, and an empty one.
  const File two(std::tmpfile());
  const CMatrix large = counted(97, 113);
  EXPECT_EQ(large.Write_Binary(two.get()) + CMatrix().Write_Binary(two.get()), 2);
  std::rewind(two.get());
  EXPECT_EQ(read.Read_Binary(two.get()), 1);
  EXPECT_EQ(text_of(read), text_of(large));
  EXPECT_EQ(read.Read_Binary(two.get()), 1);
  expect_equal({read.GetRowCount(), read.GetColCount()}, {0, 0});
  // A file cut at every byte, and counts that lie.
  for (std::size_t n = 0; n < want.size(); ++n) {
    EXPECT_EQ(thrown([&] { m.Read_Binary(file_of(want.substr(0, n)).get()); }), L"错误行列数") << n;
  }
  for (const char* counts :
       {"\xff\xff\xff\xff\1\0\0\0", "\1\0\0\0\0\0\0\x80", "\xff\xff\xff\x7f\xff\xff\xff\x7f"}) {
    const std::string bytes(counts, 8);
    EXPECT_EQ(thrown([&] { m.Read_Binary(file_of(bytes).get()); }), L"错误行列数");
  }
  EXPECT_EQ(text_of(m), "1 -2 \r\n");
}

std::string text_of(CFMatrix& m) {
  const File file(std::tmpfile());
  EXPECT_EQ(m.SaveData(file.get()), 1);
  return bytes_of(file.get());
}

CFMatrix table(int rows, int cols, const std::vector<float>& values) {
  CFMatrix m;
  EXPECT_EQ(m.Ini(rows, cols, values.data()), 1);
  return m;
}

TEST(FloatMatrix, TextForm) {
  CFMatrix m = table(2, 2, {1, -2.5f, 0.125f, 3.4028235e38f}), read;
  const std::string text =
      "2,2\r\n1.000000,-2.500000,\r\n0.125000,340282346638528859811704183484516925440.000000,\r\n";
  EXPECT_EQ(text_of(m), text);
  const File file = file_of(text + "next");
  EXPECT_EQ(read.LoadData(file.get()), 1);
  EXPECT_EQ(text_of(read), text);
  EXPECT_EQ(read(1, 1), read.m_fInvalid);
  EXPECT_EQ(std::fgetc(file.get()), 'n');
  const struct {
    const char* text;
    int result, size;
  } cases[] = {{"1,2\n3, 4 ,\n", 1, 2},
               {"1,2\n3,4", 1, 2},
               {"0,0\n", 1, 0},
               {"2,1\n1,\n2,\n", 1, 2},
               {"", 0, 4},
               {"x", 0, 4},
               {"2,\n", 0, 4},
               {"-1,2\n", 0, 4},
               {"2,2\n1,2,\n3,", 0, 4},
               {"1,1\nabc,", 0, 4},
               {"1,1\n1 2,", 0, 4},
               {"1,2\n1,,2,", 0, 4},
               {"1,1\n,", 0, 4},
               {"2147483647,2147483647\n1,", 0, 4},
               {"99999999999,1\n1,", 0, 4}};
  for (const auto& c : cases) {
    CFMatrix tested(m);
    EXPECT_EQ(tested.LoadData(file_of(c.text).get()), c.result) << c.text;
    EXPECT_EQ(tested.GetSize(), c.size) << c.text;
  }
  EXPECT_EQ(m.LoadData(file_of("1,1\n" + std::string(100000, '1')).get()), 0);
  EXPECT_EQ(m.LoadData(nullptr), 0);
  EXPECT_EQ(m.SaveData(nullptr), 0);
}

TEST(FloatMatrix, WrongAccessIsToldAndInvalid) {
  CFMatrix m = table(2, 2, {1, 2, 3, 4});
  const CFMatrix& fixed = m;
  CArray<float, float> values;
  values.Add(9);
  const std::function<void()> wrong[] = {
      [&] { EXPECT_EQ(m(2, 0), m.m_fInvalid); },
      [&] { EXPECT_EQ(m(0, -1) = 5, 5); },
      [&] { EXPECT_EQ(m(0, -1), m.m_fInvalid); },  // what was written there is forgotten
      [&] { EXPECT_EQ(fixed(0, 2), m.m_fInvalid); },
      [&] { EXPECT_EQ(m.GetRowData(2, values), 0); },
      [&] { EXPECT_EQ(m.GetColData(0, values, 0, 2), 0); },
      [&] { EXPECT_EQ(m.GetColData(0, values, -1), 0); },
      [&] { EXPECT_EQ(m.GetLineInsertRowData(2, 1, values), 0); },
      [&] { EXPECT_EQ(m.SwapRowData(0, 2), 0); },
      [&] { EXPECT_EQ(m.SwapColData(-1, 0), 0); },
      [&] { EXPECT_EQ(m.SortRowData(5), 0); },
      [&] { EXPECT_EQ(m.SortColData(0, 3), 0); },
      [&] { EXPECT_EQ(CFMatrix().GetLineInsertColData(0, 1, values), 0); },
  };
  for (const auto& action : wrong) {
    RecordedMessages said;
    action();
    ASSERT_EQ(said.messages.size(), 1u);
    EXPECT_EQ(said.messages[0].text, L"\n取数据有误！");
  }
  EXPECT_EQ(values.GetSize(), 1);
  EXPECT_EQ(text_of(m), "2,2\r\n1.000000,2.000000,\r\n3.000000,4.000000,\r\n");
  EXPECT_EQ(m.Ini(-1, 3, nullptr), 0);
  m.Ini();
  EXPECT_EQ(m.GetSize(), 0);
  EXPECT_EQ(m.m_fInvalid, 3.4028235e38f);
}

TEST(FloatMatrix, RowsAndColumnsBehaveAlike) {
  CFMatrix m = table(3, 3, {0, 5, 1, 10, 7, 2, 30, 3, 3}), turned;
  m.GetTransposeMatrix(turned);
  CArray<float, float> row, col;
  const struct {
    float key, second, third;
  } cases[] = {{0, 5, 1}, {5, 6, 1.5f}, {10, 7, 2}, {20, 5, 2.5f}, {40, 1, 3.5f}, {-10, 3, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(m.GetLineInsertRowData(0, c.key, row, 1), 1);
    EXPECT_EQ(turned.GetLineInsertColData(0, c.key, col, 1), 1);
    ASSERT_EQ(row.GetSize(), 2);
    expect_near({row[0], row[1]}, {c.second, c.third}, 1e-6);
    expect_equal({col[0], col[1]}, {row[0], row[1]});
  }
  CFMatrix sorted(m), sorted_turned(turned);
  EXPECT_EQ(sorted.SortRowData(1), 1);
  EXPECT_EQ(sorted_turned.SortColData(1), 1);
  EXPECT_EQ(text_of(sorted),
            "3,3\r\n30.000000,3.000000,3.000000,\r\n0.000000,5.000000,1.000000,\r\n"
            "10.000000,7.000000,2.000000,\r\n");
  sorted_turned.Transpose();
  EXPECT_EQ(text_of(sorted_turned), text_of(sorted));
  EXPECT_EQ(sorted.SortRowData(1, 0, 1), 1);  // in order already
  EXPECT_EQ(sorted.SwapRowData(0, 1), 1);
  EXPECT_EQ(sorted.SwapRowData(1, 2), 1);
  EXPECT_EQ(text_of(sorted), text_of(m));
  EXPECT_EQ(m.GetColData(2, col, 1, 1), 1);
  ASSERT_EQ(col.GetSize(), 1);
  EXPECT_EQ(col[0], 2);
  m(0, 0) = m.m_fInvalid;
  const CFMatrix twice = m * 2.0f;
  expect_equal({twice(0, 0), twice(1, 1)}, {m.m_fInvalid, 14});
  const float nan = std::numeric_limits<float>::quiet_NaN();
  CFMatrix with_nan = table(4, 1, {nan, 3, nan, 1});
  with_nan.SortRowData(0);
  expect_equal({with_nan(0, 0), with_nan(1, 0)}, {1, 3});
}

}  // namespace
}  // namespace brindle
