// The front-end's tests that are written in AutoLISP: every situation of tests/frontal/rangees/ is a test.
// See tests/support/rows.h for the rows.
#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

class Rangees : public testing::TestWithParam<kaveltest::Situation> {};

TEST_P(Rangees, AreFulfilled) {
  kaveltest::FrontEnd session;
  kaveltest::run(session, GetParam(), session.path(""));
}

INSTANTIATE_TEST_SUITE_P(Frontal, Rangees,
                         testing::ValuesIn(kaveltest::situations(KAVEL_SOURCE "/tests/frontal/rangees")),
                         [](const auto& test) { return test.param.name; });

}  // namespace
