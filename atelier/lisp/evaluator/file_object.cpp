// Text files: encodings and line ends.
#include "atelier/lisp/evaluator/file_object.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>

#include "atelier/base/error.h"
#include "atelier/base/text.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {

std::string nativePath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::optional<std::string> readWholeFile(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size == 0) return std::string(std::istreambuf_iterator<char>(in), {});  // a pipe or a device
  std::string bytes(size, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

std::shared_ptr<FileObject> FileObject::open(const std::string& path, char mode, bool utf8) {
  auto file = std::make_shared<FileObject>();
  file->mode_ = mode;
  file->path_ = path;
  file->utf8_ = utf8;
  const auto before = mode == 'w' ? std::nullopt : readWholeFile(path);
  if (mode == 'r') {
    if (!before) return nullptr;
    file->text_ = decodeFile(*before);
    file->text_.resize(std::min(file->text_.find('\x1a'), file->text_.size()));
    return file;
  }
  if (before) {
    const bool ascii =
        std::all_of(before->begin(), before->end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    if (!ascii) file->utf8_ = isValidUtf8(*before);
  }
  file->out_.open(path, std::ios::binary | (mode == 'a' ? std::ios::app : std::ios::trunc));
  if (!file->out_) return nullptr;
  return file;
}

std::optional<std::string> FileObject::readLine() {
  if (at_ >= text_.size()) return std::nullopt;
  const std::size_t end = std::min(text_.find('\n', at_), text_.size());
  std::string line = text_.substr(at_, end - at_);
  at_ = end + 1;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::optional<std::uint32_t> FileObject::readCharacter() {
  if (at_ + 1 < text_.size() && text_[at_] == '\r' && text_[at_ + 1] == '\n') ++at_;
  if (at_ >= text_.size()) return std::nullopt;
  return nextCodePoint(text_, at_);
}

std::string FileObject::write(std::string_view utf8) {
  errno = 0;
  if (utf8_) out_ << utf8;
  else out_ << toWindows1252(utf8);
  return out_ ? std::string() : systemReason(errno ? errno : EIO);
}

std::string FileObject::close() {
  open_ = false;
  text_.clear();
  if (!out_.is_open()) return {};
  errno = 0;
  out_.close();
  return out_ ? std::string() : systemReason(errno ? errno : EIO);
}

void failWriting(Interpreter& in, const std::string& path, const std::string& reason) {
  if (!reason.empty()) in.fail(path + ": écriture interrompue: " + reason);
}

FileObject& fileArgument(Interpreter& in, Value value, bool reading) {
  if (!value.isFile()) in.failType("FILE", value);
  FileObject& file = *static_cast<FileObject*>(value.selection().get());
  if (!file.isOpen() || file.reads() != reading) in.failType("FILE", value);
  return file;
}

}  // namespace atelier::lisp
