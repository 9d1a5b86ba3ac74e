// Gives every test program its own settings folder, removed at its end: tests that run at once must not read each
// other's settings, nor the user's.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

const std::string& folder() {
  static const std::string path =
      std::filesystem::temp_directory_path() / ("kavel-settings-" + std::to_string(getpid()));
  return path;
}

// Runs before all static initialisers, because the plug-in reads its settings in one. A program started by a test keeps
// the folder that the test has chosen.
[[gnu::constructor(101)]] void chooseFolder() {
  if (std::getenv("KAVEL_TESTS")) return;
  setenv("KAVEL_TESTS", "1", 1);
  setenv("KAVEL_CHEMIN", folder().c_str(), 1);
  std::atexit([] { std::filesystem::remove_all(folder()); });
}

}  // namespace
