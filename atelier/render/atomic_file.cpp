// The temporary file stands in the target's folder, so that the rename stays within one file system.
#include "atelier/render/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "atelier/render/plot_error.h"

namespace atelier::render {

namespace {

[[noreturn]] void fail(const std::string& path) {
  throw PlotError(path + " : écriture impossible (" + std::strerror(errno) + ")");
}

}  // namespace

AtomicFile::AtomicFile(std::string path) : path_(std::move(path)) {
  if (std::error_code ignored; std::filesystem::is_directory(path_, ignored)) errno = EISDIR, fail(path_);
  temporary_ = path_ + ".XXXXXX";
  const int descriptor = mkostemp(temporary_.data(), O_CLOEXEC);
  if (descriptor < 0) fail(path_);
  // mkstemp makes private files: the rights are those of the file to be replaced, or of a new one.
  const mode_t mask = umask(0);
  umask(mask);
  struct stat old = {};
  if (fchmod(descriptor, stat(path_.c_str(), &old) == 0 ? old.st_mode & 0777 : 0666 & ~mask) != 0) errno = 0;
  file_.reset(fdopen(descriptor, "wb"));
  if (!file_) {
    close(descriptor);
    unlink(temporary_.c_str());
    fail(path_);
  }
}

AtomicFile::~AtomicFile() {
  if (!file_) return;
  file_.reset();
  unlink(temporary_.c_str());
}

bool AtomicFile::write(const void* bytes, std::size_t count) {
  return std::fwrite(bytes, 1, count, file_.get()) == count;
}

void AtomicFile::commit() {
  if (std::ferror(file_.get()) || std::fflush(file_.get()) != 0 || fsync(fileno(file_.get())) != 0)
    fail(path_);
  if (std::rename(temporary_.c_str(), path_.c_str()) != 0) fail(path_);
  file_.reset();
}

}  // namespace atelier::render
