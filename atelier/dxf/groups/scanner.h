// The groups of a drawing file one by one, as code and bytes of the value.
// References: DXF reference, "ASCII DXF files" and "Binary DXF files".
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "atelier/dxf/groups/line_finder.h"

namespace atelier::dxf {

enum class Encoding { ascii, binaryOld, binary };  // binaryOld: codes of one byte, before R13

inline constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);

// The form of a file; one of neither form gives ascii and fails at its first code.
Encoding encodingOf(std::string_view bytes);
// Where the first group starts.
std::size_t firstGroup(std::string_view bytes, Encoding encoding);
// The size in bytes of a value with this code in a binary file; 0 for texts, handles and chunks, whose size varies.
std::size_t binaryWidth(int code);

struct RawGroup {
  int code = 0;
  std::string_view value;  // ASCII: the line without its end; binary: the value's bytes
  std::size_t begin = 0;   // offset of the group
};

class Scanner {
 public:
  Scanner(std::string_view bytes, Encoding encoding, std::size_t at, std::size_t end)
      : bytes_(bytes.substr(0, end)), encoding_(encoding), at_(at), lines_(bytes_, at) {}

  // The next group; false at the end. Throws FormatError for a code that isn't a number or a value that is cut off.
  bool next(RawGroup& group) { return encoding_ == Encoding::ascii ? nextAscii(group) : nextBinary(group); }
  std::size_t offset() const { return at_; }
  // After a FormatError: moves to the next place after the fault where a record may begin (a group 0 with a name), or to
  // the end when there is none.
  void resume(std::size_t fault);

 private:
  bool nextAscii(RawGroup& group);
  bool refuseCode(const RawGroup& group, std::string_view codeLine) const;
  static bool refuseEnd(const RawGroup& group);
  bool nextBinary(RawGroup& group);
  bool recordAt(std::size_t at) const;
  [[gnu::always_inline]] std::string_view line() {
    const std::size_t start = at_;
    std::size_t end = lines_.next();
    at_ = end < bytes_.size() ? end + 1 : end;
    if (end > start && bytes_[end - 1] == '\r') --end;
    return bytes_.substr(start, end - start);
  }
  std::string_view bytes_;
  Encoding encoding_;
  std::size_t at_;
  LineFinder lines_;
};

// A fault in the layout of the file, with the offset where it was found.
struct FormatError {
  std::size_t offset;
  std::string message;
};

// 1-based number of the line that holds the offset; 0 for binary files.
std::int64_t lineOf(std::string_view bytes, Encoding encoding, std::size_t offset);

}  // namespace atelier::dxf
