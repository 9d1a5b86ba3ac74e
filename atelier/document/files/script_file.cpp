// Scripts in any of the encodings of text files, with or without a byte order mark.
#include "atelier/document/files/script_file.h"

#include <sys/stat.h>

#include <cerrno>

#include "atelier/base/error.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier {

std::string decodeScript(std::string_view bytes) { return lisp::decodeFile(bytes); }

std::string readScript(const std::string& path) {
  const auto refuse = [&](int error) { throw FileError(path, 0, "script illisible: " + systemReason(error)); };
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) refuse(errno);
  if (S_ISDIR(info.st_mode)) refuse(EISDIR);
  errno = 0;
  const auto bytes = lisp::readWholeFile(path);
  if (!bytes) refuse(errno ? errno : EIO);
  return decodeScript(*bytes);
}

}  // namespace atelier
