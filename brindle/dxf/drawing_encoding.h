// What a drawing file tells of its version and of the encoding of its texts.
#pragma once

#include <string>

namespace brindle {

class CodePage;
class DxfPairReader;

struct DrawingEncoding {
  bool byte_order_mark = false;  // of UTF-8
  std::string version;           // $ACADVER; empty when the file has none
  std::string code_page;         // $DWGCODEPAGE; empty when the file has none

  // From AC1021 on, texts are UTF-8 whatever code page is named.
  bool is_utf8_by_version() const;
  // The page that the mark, the version or the name of a code page asks for, in this order; null
  // when the file tells none that is known, and the process's page holds.
  const CodePage* page() const;
};

// Puts the reader at the start of its file, behind the mark of UTF-8 when there is one; tells
// whether there is.
bool skip_byte_order_mark(DxfPairReader& pairs);

// Reads version and code page from the variables of the header, from where the reader stands to the
// end of the section; it may stop before, when the rest can't change the page.
void read_encoding_variables(DxfPairReader& pairs, DrawingEncoding& encoding);

}  // namespace brindle
