// Rows in AutoLISP in a drawing of the bare host: the fixture that each room's runner uses.
// Programs of tests/support/preparation/ are loaded by their names.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "tests/support/rows.h"

namespace kaveltest {

struct BareRows : testing::TestWithParam<Situation> {
  BareRows() { std::filesystem::create_directories(folder); }
  ~BareRows() override { std::filesystem::remove_all(folder); }
  void fulfil() {
    Session session{false};
    session.document().addSupport(KAVEL_SOURCE "/tests/support/preparation");
    run(session, GetParam(), folder);
  }
  const std::string folder = testing::TempDir() + "kavel-rows-" + std::to_string(getpid()) + "/";
};

}  // namespace kaveltest
