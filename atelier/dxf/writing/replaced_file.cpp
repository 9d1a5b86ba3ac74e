// Atomic replacement of a file, POSIX.
// The signal of a limit on file sizes would end the program: it is blocked while writing.
#include "atelier/dxf/writing/replaced_file.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/file.h>
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
constexpr std::string_view kFresh = ".nouveau";

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

// "rue.bak" of the drawing rue.dxf, "rue.xml.bak" of any other file: backups of different files never meet.
fs::path backupOf(const fs::path& target) {
  const std::string extension = target.extension().string();
  if (strcasecmp(extension.c_str(), ".dxf") != 0) return target.string() + ".bak";
  return fs::path(target).replace_extension(".bak");
}

// The link to the old file is first made under another name, so that there is a backup at every moment.
int backUp(const std::string& target) {
  const fs::path backup = backupOf(target);
  const std::string fresh = backup.string() + std::string(kFresh);
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

// Whether the name is target.NUMBER.nouveau, as the constructor makes it.
bool isAside(const std::string& name, const std::string& target) {
  if (!name.starts_with(target + ".") || !name.ends_with(kFresh)) return false;
  if (name.size() <= target.size() + 1 + kFresh.size()) return false;
  const std::string number = name.substr(target.size() + 1, name.size() - target.size() - 1 - kFresh.size());
  return number.find_first_not_of("0123456789") == number.npos;
}

// What programs that were killed left beside the target. A program that still writes holds a lock on its file.
void removeLeftovers(const fs::path& target) {
  std::error_code error;
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (!isAside(entry->path().filename().string(), target.filename().string())) continue;
    const int file = open(entry->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (file < 0) continue;
    if (flock(file, LOCK_EX | LOCK_NB) == 0) unlink(entry->path().c_str());
    close(file);
  }
}

}  // namespace

bool isWriteProtected(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return false;
  return (info.st_mode & 0222) == 0 || access(path.c_str(), W_OK) != 0;
}

ReplacedFile::ReplacedFile(const std::string& target, bool backup)
    : name_(target),
      target_(resolved(target)),
      path_(target_ + "." + std::to_string(getpid()) + std::string(kFresh)),
      backup_(backup) {
  struct stat info {};
  const bool exists = stat(target_.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) fail("écriture impossible", S_ISDIR(info.st_mode) ? EISDIR : EINVAL);
  // Who may write the folder could replace the file all the same; the one who protected it did not mean that.
  if (isWriteProtected(target_)) throw FileError(name_, 0, kWriteProtected);
  removeLeftovers(target_);
  file_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) fail("écriture impossible", errno);
  flock(file_, LOCK_EX | LOCK_NB);  // only to be recognised; some file systems have no locks
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

void ReplacedFile::keep(bool flushed) {
  put(std::exchange(buffer_, std::string()));
  if (flushed && fsync(file_) != 0) fail("écriture interrompue", errno);
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
