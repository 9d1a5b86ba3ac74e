// Gives every test program a settings folder of its own, that goes with it: tests that run at once must not read each
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

// Ahead of every static initialiser, for the plug-in reads its settings in one. A program that a test starts keeps the
// folder that the test chose.
[[gnu::constructor(101)]] void chooseFolder() {
  if (std::getenv("KAVEL_TESTS")) return;
  setenv("KAVEL_TESTS", "1", 1);
  setenv("KAVEL_CHEMIN", folder().c_str(), 1);
  std::atexit([] { std::filesystem::remove_all(folder()); });
}

}  // namespace
