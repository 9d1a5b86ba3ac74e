// Runs the program as a user does and keeps what it printed, its exit status and its folder.
// The folder is new for each Program and removed with it.
#pragma once
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace kaveltest {

class Program {
 public:
  Program()
      : folder_(std::filesystem::temp_directory_path() /
                ("kavel-test-" + std::to_string(getpid()) + "-" + std::to_string(++count()))) {
    std::filesystem::create_directories(folder_);
  }
  ~Program() {
    std::error_code error;
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, error);
    std::filesystem::remove_all(folder_, error);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Arguments as typed in a shell, run in the folder; stderr comes with stdout unless it is sent elsewhere.
  Program& run(const std::string& arguments, const std::string& redirections = "2>&1 < /dev/null") {
    const std::string command = "cd '" + folder_.string() + "' && " + prefix +
                                " env KAVEL_FRONTAL='" KAVEL_SOURCE "/frontal' '" + std::string(KAVEL_BIN) + "/" +
                                called + "' " + arguments + " " + redirections;
    output.clear();
    FILE* pipe = popen(command.c_str(), "r");
    char buffer[4096];
    while (const std::size_t n = fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
    const int result = pclose(pipe);
    status = WIFEXITED(result) ? WEXITSTATUS(result) : 128 + WTERMSIG(result);
    return *this;
  }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  std::string read(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(folder_ / name, std::ios::binary).rdbuf();
    return text.str();
  }
  bool has(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
  // The names in the folder, sorted, each followed by a blank.
  std::string names() const {
    std::set<std::string> sorted;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) sorted.insert(entry.path().filename());
    std::string text;
    for (const std::string& name : sorted) text += name + " ";
    return text;
  }
  const std::filesystem::path& folder() const { return folder_; }

  std::string called = "kavel";
  std::string prefix;  // put before the program's name, such as a limit
  std::string output;
  int status = -1;

 private:
  static int& count() {
    static int n = 0;
    return n;
  }
  std::filesystem::path folder_;
};

}  // namespace kaveltest
