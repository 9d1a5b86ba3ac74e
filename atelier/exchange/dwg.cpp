// Runs the converter: finds it, gives it its arguments, and reports its message when it fails.
#include "atelier/exchange/dwg.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "atelier/base/error.h"
#include "atelier/base/text.h"

extern char** environ;

namespace atelier::exchange {
namespace {

namespace fs = std::filesystem;

// Node's simple compiler: the library is run once, and making it fast takes seconds and most of a gigabyte.
constexpr const char* kFastStart = "--liftoff-only";
constexpr const char* kInstall =
    "pour ouvrir les dessins DWG, installez le convertisseur par kavel-installer-dwg, ou outils/installer-dwg des "
    "sources (Node.js 18 et npm)";

std::string environmentOr(const char* name, const std::string& otherwise) {
  const char* value = std::getenv(name);
  return value && *value ? value : otherwise;
}

// The first folder with an installed converter: KAVEL_DWG, the user's data folder, beside the installed program, or in
// the source tree.
fs::path converterFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
  const std::string data = environmentOr("XDG_DATA_HOME", environmentOr("HOME", "") + "/.local/share");
  for (const fs::path& place : {fs::path(environmentOr("KAVEL_DWG", "")), fs::path(data) / "kavel-dwg",
                                program / "../share/kavel/dwg", program / "../../../outils/dwg"})
    if (!place.empty() && fs::exists(place / "convertir.mjs", error) && fs::exists(place / "node_modules", error))
      return place;
  return {};
}

// A folder that is removed with all its contents.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "kavel-dwg-XXXXXX").string();
    if (!mkdtemp(name.data())) throw FileError(name, 0, "dossier temporaire impossible");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  fs::path operator/(const char* name) const { return path_ / name; }

 private:
  fs::path path_;
};

std::string contents(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

// The exit status; -1 when the program can't be started. Its output goes to the log.
int runProgram(std::vector<std::string> words, const fs::path& log) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_adddup2(&actions, 1, 2);
  pid_t child = 0;
  const int failed = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) return -1;
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string firstLine(const std::string& text) {
  return std::string(trimmed(std::string_view(text).substr(0, text.find('\n'))));
}

}  // namespace

std::string convertDrawing(const std::string& path) {
  if (upperCase(fs::path(path).extension().string()) != ".DWG") return {};
  if (!fs::is_regular_file(path)) throw FileError(path, 0, "fichier introuvable ou illisible");
  const fs::path folder = converterFolder();
  if (folder.empty()) throw FileError(path, 0, kInstall);
  const TemporaryFolder temporary;
  const fs::path raw = temporary / "brut.dxf", log = temporary / "journal";
  const int status = runProgram(
      {"node", kFastStart, (folder / "convertir.mjs").string(), fs::absolute(path).string(), raw.string()}, log);
  if (status < 0 || status == 127) throw FileError(path, 0, std::string(kInstall) + ": node n'est pas là");
  if (status != 0) {
    const std::string said = firstLine(contents(log));
    throw FileError(path, 0,
                    "le convertisseur DWG a échoué: " + (said.empty() ? "statut " + std::to_string(status) : said));
  }
  std::string name = (fs::temp_directory_path() / "kavel-dwg-XXXXXX.dxf").string();
  const int file = mkstemps(name.data(), 4);
  const std::string text = mended(contents(raw));
  const bool written = file >= 0 && ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  if (file >= 0) ::close(file);
  if (!written) {
    std::error_code error;
    fs::remove(name, error);
    throw FileError(name, 0, "écriture impossible");
  }
  return name;
}

}  // namespace atelier::exchange
