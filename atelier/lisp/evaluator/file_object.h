// An open text file of a program: its characters are UTF-8 in memory, whatever the file's encoding.
#pragma once

#include <fstream>
#include <optional>
#include <string>

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

class FileObject {
 public:
  // Mode 'r', 'w' or 'a'. With `utf8` UTF-8 is written, else Windows-1252; a file in UTF-8 is always appended to in UTF-8.
  // Null when the file can't be opened.
  static std::shared_ptr<FileObject> open(const std::string& path, char mode, bool utf8);

  std::optional<std::string> readLine();         // without its end (LF or CR LF); Ctrl-Z ends the file
  std::optional<std::uint32_t> readCharacter();  // CR LF counts as one line feed
  // Gives the system's reason when not all could be written, else an empty text. Short texts are written when the file is
  // closed.
  [[nodiscard]] std::string write(std::string_view utf8);
  bool reads() const { return mode_ == 'r'; }
  bool isOpen() const { return open_; }
  [[nodiscard]] std::string close();
  const std::string& path() const { return path_; }

 private:
  char mode_ = 'r';
  bool open_ = true;
  bool utf8_ = false;
  std::string path_;
  std::string text_;  // of a file that is read: the whole file, decoded
  std::size_t at_ = 0;
  std::ofstream out_;
};

// An AutoLISP error that names the file, unless the reason is empty.
void failWriting(Interpreter& in, const std::string& path, const std::string& reason);
// The bytes of a file, nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);
// The path with the system's separators: programs use either slash.
std::string nativePath(std::string_view path);
// The open file of an argument; an AutoLISP error for any other value.
FileObject& fileArgument(Interpreter& in, Value value, bool reading);

}  // namespace atelier::lisp
