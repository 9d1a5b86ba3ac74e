// The tests of the second plug-in that are written in AutoLISP: every situation of tests/etudes/rangees/ is a test.
// See tests/support/rows.h for the rows.
#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class Rangees : public testing::TestWithParam<kaveltest::Situation> {};

TEST_P(Rangees, AreFulfilled) {
  kaveltest::Session session;
  const std::string folder = testing::TempDir() + "kavel-" + GetParam().name + "/";
  std::filesystem::create_directories(folder);
  kaveltest::run(session, GetParam(), folder);
  std::filesystem::remove_all(folder);
}

INSTANTIATE_TEST_SUITE_P(Etudes, Rangees,
                         testing::ValuesIn(kaveltest::situations(KAVEL_SOURCE "/tests/etudes/rangees")),
                         [](const auto& test) { return test.param.name; });

}  // namespace
