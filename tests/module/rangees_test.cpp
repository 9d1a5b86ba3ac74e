// The module's tests that are written in AutoLISP: every situation of tests/module/rangees/ is a test.
// See tests/support/rows.h for the rows; programs of preparation/ are loaded by their names.
#include <unistd.h>

#include <filesystem>

#include "tests/module/aide.h"
#include "tests/support/rows.h"

namespace {

struct Rangees : testing::TestWithParam<kaveltest::Situation> {
  Rangees() { std::filesystem::create_directories(folder); }
  ~Rangees() override { std::filesystem::remove_all(folder); }
  const std::string folder = testing::TempDir() + "kavel-module-" + std::to_string(getpid()) + "/";
};

TEST_P(Rangees, AreFulfilled) {
  kaveltest::Prepared session{};
  kaveltest::run(session, GetParam(), folder);
}

INSTANTIATE_TEST_SUITE_P(Module, Rangees,
                         testing::ValuesIn(kaveltest::situations(KAVEL_SOURCE "/tests/module/rangees")),
                         [](const auto& test) { return test.param.name; });

}  // namespace
