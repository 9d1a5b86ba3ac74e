// What the console shows of questions, to the letter; their values stand in rangees/prompts.lsp.
#include "tests/support/bare_host.h"

namespace kaveltest {

using Prompts = DrawingTest;

TEST_F(Prompts, EndOfTheInputIsAFailure) {
  session.feed("(getint \"\\nNombre: \")\n");
  EXPECT_EQ(session.document().failures(), 1);
}

TEST_F(Prompts, Transcript) {
  EXPECT_EQ(session.feed("(progn (setq n (getint \"\\nNombre: \")) (princ n) (princ))\nx\n3\n"),
            "\nCommande: (progn (setq n (getint \"\\nNombre: \")) (princ n) (princ))\n"
            "\nNombre: x\n\nUn entier est attendu.\nNombre: 3\n3");
}

}  // namespace kaveltest
