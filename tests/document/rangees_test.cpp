// The tests of this room that are written in AutoLISP: every situation of tests/document/rangees/ is a test.
// See tests/support/rows.h for the rows.
#include "tests/support/bare_rows.h"

namespace {

using Rangees = kaveltest::BareRows;

TEST_P(Rangees, AreFulfilled) { fulfil(); }

INSTANTIATE_TEST_SUITE_P(Document, Rangees,
                         testing::ValuesIn(kaveltest::situations(KAVEL_SOURCE "/tests/document/rangees")),
                         [](const auto& test) { return test.param.name; });

}  // namespace
