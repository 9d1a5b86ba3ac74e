// Values of groups between their bytes in a file and memory.
// Texts: code page, \U+XXXX, and the caret forms of control characters.
#pragma once
#include <string>

#include "atelier/base/text.h"
#include "atelier/database/records/group.h"
#include "atelier/dxf/groups/scanner.h"

namespace atelier::dxf {

// A number or handle that can't be read is kept as text, with its bytes, so that nothing is lost.
Group decode(const RawGroup& raw, Encoding encoding, const CodePage& codePage);

struct Style {
  Encoding encoding = Encoding::ascii;
  std::string_view lineEnd = "\n";
  CodePage codePage = CodePage::utf8();
};

// Appends the group: its original bytes when it has them, else its value.
void append(std::string& out, const Group& group, const Style& style);

// Text of a drawing to UTF-8: \U+XXXX and ^ forms resolved.
std::string textFromFile(std::string decodedUtf8);
std::string textToFile(std::string_view utf8);

}  // namespace atelier::dxf
