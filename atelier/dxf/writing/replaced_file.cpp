// Atomic replacement of a file, POSIX.
// The signal of a limit on file sizes would end the program: it is blocked while writing.
#include "atelier/dxf/writing/replaced_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <utility>

#include "atelier/base/error.h"

namespace atelier::dxf {
namespace {

namespace fs = std::filesystem;
constexpr std::size_t kBlock = 1 << 20;

class SignalHeldOff {
 public:
  SignalHeldOff() : before_(std::signal(SIGXFSZ, SIG_IGN)) {}
  ~SignalHeldOff() { std::signal(SIGXFSZ, before_); }
  SignalHeldOff(const SignalHeldOff&) = delete;
  SignalHeldOff& operator=(const SignalHeldOff&) = delete;

 private:
  void (*before_)(int);
};

std::string resolved(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path, error)) return path;
  const fs::path real = fs::weakly_canonical(path, error);
  return error ? path : real.string();
}

// The link to the old file is first made under another name, so that there is a backup at every moment.
int backUp(const std::string& target) {
  fs::path backup(target);
  backup.replace_extension(".bak");
  if (backup == target) return 0;
  const std::string fresh = backup.string() + ".nouveau";
  unlink(fresh.c_str());
  if (link(target.c_str(), fresh.c_str()) != 0) {
    // File systems without hard links get a copy.
    std::error_code error;
    if (!fs::copy_file(target, fresh, fs::copy_options::overwrite_existing, error)) return error.value();
  }
  if (std::rename(fresh.c_str(), backup.c_str()) == 0) return 0;
  const int error = errno;
  unlink(fresh.c_str());
  return error;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::string& target, bool backup)
    : name_(target),
      target_(resolved(target)),
      path_(target_ + "." + std::to_string(getpid()) + ".nouveau"),
      backup_(backup) {
  struct stat info {};
  const bool exists = stat(target_.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) fail("écriture impossible", S_ISDIR(info.st_mode) ? EISDIR : EINVAL);
  file_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) fail("écriture impossible", errno);
  if (exists && fchmod(file_, info.st_mode & 07777) != 0) fail("écriture impossible", errno);
}

ReplacedFile::~ReplacedFile() {
  if (file_ >= 0) close(file_);
  if (!kept_) unlink(path_.c_str());
}

void ReplacedFile::write(std::string_view bytes) {
  if (buffer_.size() + bytes.size() < kBlock) {
    buffer_ += bytes;
    return;
  }
  put(std::exchange(buffer_, std::string()));
  if (bytes.size() >= kBlock) put(bytes);
  else buffer_ = bytes;
}

void ReplacedFile::put(std::string_view bytes) {
  const SignalHeldOff held;
  while (!bytes.empty()) {
    const ssize_t count = ::write(file_, bytes.data(), std::min(bytes.size(), 4 * kBlock));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) fail("écriture interrompue", errno);
    bytes.remove_prefix(static_cast<std::size_t>(count));
    written_ += static_cast<std::size_t>(count);
#ifdef __linux__
    // The system begins to write to the disk while the rest is being prepared.
    if (written_ - pushed_ >= 4 * kBlock) {
      sync_file_range(file_, static_cast<off_t>(pushed_), static_cast<off_t>(written_ - pushed_),
                      SYNC_FILE_RANGE_WRITE);
      pushed_ = written_;
    }
#endif
  }
}

void ReplacedFile::keep() {
  put(std::exchange(buffer_, std::string()));
  if (fsync(file_) != 0) fail("écriture interrompue", errno);
  if (close(std::exchange(file_, -1)) != 0) fail("écriture interrompue", errno);
  if (backup_ && access(target_.c_str(), F_OK) == 0)
    if (const int error = backUp(target_)) fail("copie de secours impossible", error);
  if (std::rename(path_.c_str(), target_.c_str()) != 0) fail("remplacement impossible", errno);
  kept_ = true;
}

void ReplacedFile::fail(const std::string& what, int error) const {
  if (!kept_) unlink(path_.c_str());
  throw FileError(name_, 0, what + ": " + systemReason(error) + "; le fichier sur le disque reste tel qu'il était");
}

}  // namespace atelier::dxf
