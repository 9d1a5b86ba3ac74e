// Rows of an AutoLISP expression and what prin1 prints of its value, in a drawing of the bare host.
// An error is a row's value too: "! " and its message.
#pragma once
#include <gtest/gtest.h>

#include <initializer_list>

#include "tests/support/session.h"

namespace kaveltest {

struct Printed {
  const char* lisp;
  const char* printed;
};

class DrawingTest : public testing::Test {
 protected:
  Session session{false};

  std::string run(std::string_view lisp) {
    try {
      return session.eval(lisp);
    } catch (const std::runtime_error& error) {
      return std::string("! ") + error.what();
    }
  }
  void check(std::initializer_list<Printed> rows) {
    for (const Printed& row : rows) EXPECT_EQ(run(row.lisp), row.printed) << row.lisp;
  }
};

// Functions that draw, and that say what the last entity is in few characters.
inline constexpr const char* kTools = "(load \"" KAVEL_SOURCE "/tests/support/preparation/outils.lsp\")";

// Polylines and arcs, and where curves run.
inline constexpr const char* kCurveTools = "(load \"" KAVEL_SOURCE "/tests/support/preparation/courbes.lsp\")";

}  // namespace kaveltest
