// A lock file is made in one step with its contents, by a link to a finished file, so that no half of it is ever read.
#include "atelier/document/files/drawing_lock.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>

namespace atelier {
namespace {

std::string lockOf(const std::string& drawing) { return drawing + ".verrou"; }

std::string machine() {
  char name[256] = "";
  gethostname(name, sizeof name - 1);
  return name;
}

// A process that has ended, and whose parent hasn't asked for its status yet, still has its number.
bool isGone(long process) {
  if (kill(static_cast<pid_t>(process), 0) != 0) return errno != EPERM;
  std::ifstream in("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  std::getline(in, text);
  const std::size_t name = text.rfind(") ");  // the program's name stands before it, in parentheses
  return name != text.npos && (text[name + 2] == 'Z' || text[name + 2] == 'X');
}

struct Holder {
  std::string machine;
  long process = 0;
  bool isAlive() const { return machine != atelier::machine() || !isGone(process); }
  bool isThis() const { return machine == atelier::machine() && process == getpid(); }
};

// Process 0 for an unreadable or foreign file.
Holder readLock(const std::string& file) {
  Holder holder;
  std::ifstream in(file);
  if (!(in >> holder.machine >> holder.process) || holder.process <= 0) holder.process = 0;
  return holder;
}

}  // namespace

std::string DrawingLock::holder(const std::string& drawing) {
  const Holder holder = readLock(lockOf(drawing));
  if (holder.process == 0 || holder.isThis() || !holder.isAlive()) return {};
  return "processus " + std::to_string(holder.process) + " de la machine " + holder.machine;
}

void DrawingLock::take(const std::string& drawing) {
  const std::string file = lockOf(drawing);
  if (file == file_) return;
  release();
  const Holder before = readLock(file);
  if (before.process != 0 && before.isAlive()) return;
  if (before.process != 0) unlink(file.c_str());
  const std::string own = file + "." + std::to_string(getpid());
  std::ofstream(own) << machine() << " " << getpid() << "\n";
  if (link(own.c_str(), file.c_str()) == 0) file_ = file;
  unlink(own.c_str());
}

void DrawingLock::release() {
  if (!file_.empty() && readLock(file_).isThis()) unlink(file_.c_str());
  file_.clear();
}

FileMark FileMark::of(const std::string& path) {
  struct stat info {};
  if (path.empty() || stat(path.c_str(), &info) != 0) return {};
  return {static_cast<std::int64_t>(info.st_dev), static_cast<std::int64_t>(info.st_ino),
          static_cast<std::int64_t>(info.st_size), static_cast<std::int64_t>(info.st_mtim.tv_sec),
          static_cast<std::int64_t>(info.st_mtim.tv_nsec)};
}

}  // namespace atelier
