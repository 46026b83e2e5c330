// The private characters of steel grades in the text of a drawing file.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// "%%" and exactly three digits of a value from 130 to 143 become the single character of that
// code, as far as at least five characters are left; all else is copied.
void unescape_steel_grades(std::wstring_view file_text, std::wstring& text);

// The reverse: each character of code 130 to 143 becomes "%%" and its three digits.
void escape_steel_grades(std::wstring_view text, std::wstring& file_text);

// What is shown: "%%" becomes "%", over and over until none remains.
void reduce_percents(std::wstring& text);

}  // namespace brindle
