// A session with the front-end loaded, and files of its own to read.
#pragma once
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/session.h"

namespace kaveltest {

class FrontEnd : public Session {
 public:
  FrontEnd() : folder_(std::filesystem::temp_directory_path() / ("kavel-frontal-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(folder_);
    document().addSupport(KAVEL_SOURCE "/frontal");
    document().addSupport(KAVEL_SOURCE "/exemples");
    eval("(load \"kavel.lsp\")");
    transcript();
  }
  ~FrontEnd() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
  }
  FrontEnd(const FrontEnd&) = delete;
  FrontEnd& operator=(const FrontEnd&) = delete;

  void file(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path folder_;
};

}  // namespace kaveltest
