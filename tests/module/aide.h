// What the module's tests in C++ share: a drawing prepared by AutoLISP, and calls with their value.
// What can be told in AutoLISP alone stands in rangees/.
#pragma once
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "atelier/base/error.h"
#include "atelier/base/interruption.h"
#include "hote/acdb.h"
#include "module/profil/chaines.h"
#include "tests/support/session.h"

namespace kaveltest {

// A drawing on which programs of tests/module/preparation/ have run.
struct Prepared : Session {
  explicit Prepared(std::initializer_list<const char*> programs) {
    document().addSupport(KAVEL_SOURCE "/tests/module/preparation");
    for (const std::string program : programs) load(program);
  }
  void load(const std::string& program) { eval("(load \"" + program + ".lsp\")"); }
};

// One call and what prin1 prints of its value.
struct Appel {
  const char* lisp;
  const char* value;
};

inline void check(Session& session, std::initializer_list<Appel> appels) {
  for (const Appel& appel : appels) EXPECT_EQ(session.eval(appel.lisp), appel.value) << appel.lisp;
}

// While one lives, the user interrupts at the given look for it.
struct Interrupted {
  explicit Interrupted(int looks) {
    left = looks;
    atelier::setInterruptionQuestion([] { return --left <= 0; });
  }
  ~Interrupted() { atelier::setInterruptionQuestion(nullptr); }
  static inline int left = 0;
};

// A drawing with the profile and the matrix.
struct ProfilDessine : ::testing::Test {
  // The entities that a call makes, described.
  std::string drawn(const std::string& call) { return session.eval("(progn (marque) " + call + " (vu))"); }
  // The id of the entity that a symbol holds.
  AcDbObjectId id(const std::string& symbol) {
    const std::string quoted = session.eval("(cdr (assoc 5 (entget " + symbol + ")))");
    AcDbObjectId found;
    plv::handleVersId(std::wstring(quoted.begin() + 1, quoted.end() - 1), found);
    return found;
  }
  Prepared session{"outils", "profil", "matrice"};
};

}  // namespace kaveltest
