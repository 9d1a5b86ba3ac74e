// The command line as a user uses it: a terminal of its own, keys, Ctrl-C.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>

#include "tests/console/program.h"

namespace {

constexpr const char* kPrompt = "Commande: ";

class Terminal : public testing::Test {
 protected:
  void SetUp() override {
    process_ = forkpty(&keys_, nullptr, nullptr, nullptr);
    ASSERT_GE(process_, 0);
    if (process_ == 0) {
      setenv("TERM", "dumb", 1);
      setenv("XDG_STATE_HOME", program_.folder().c_str(), 1);
      execl(KAVEL_BIN "/kavel", "kavel", "--no-frontal", nullptr);
      _exit(127);
    }
    ASSERT_TRUE(shows(kPrompt));
  }
  void TearDown() override {
    close(keys_);
    waitpid(process_, nullptr, 0);
  }

  void type(const std::string& keys) { EXPECT_EQ(write(keys_, keys.data(), keys.size()), ssize_t(keys.size())); }
  // Waits for the text and reads up to its end. False after ten seconds without it.
  bool shows(const std::string& text) {
    for (std::size_t at; (at = seen_.find(text)) == seen_.npos;) {
      pollfd waiting{keys_, POLLIN, 0};
      char buffer[4096];
      const ssize_t got = poll(&waiting, 1, 10'000) > 0 ? read(keys_, buffer, sizeof buffer) : -1;
      if (got <= 0) return false;
      seen_.append(buffer, static_cast<std::size_t>(got));
    }
    seen_.erase(0, seen_.find(text) + text.size());
    return true;
  }
  // Types a line and waits for its output and the next prompt.
  bool answers(const std::string& line, const std::string& answer) {
    type(line + "\n");
    return shows(line) && shows(answer) && shows(kPrompt);
  }

  kaveltest::Program program_;
  std::string seen_;

 private:
  int keys_ = -1;
  pid_t process_ = -1;
};

constexpr const char* kCtrlC = "\x03";

TEST_F(Terminal, KeepsWhatWasTyped) {
  EXPECT_TRUE(answers("(+ 1 2)", "3"));
  type("\x10");  // Ctrl-P: the line before
  EXPECT_TRUE(shows("(+ 1 2)"));
  type("\n");
  EXPECT_TRUE(shows("3") && shows(kPrompt));
  type("(vl-string-tra\t");
  EXPECT_TRUE(shows("vl-string-translate"));
}

TEST_F(Terminal, CtrlCDropsTheLineAndNoKeyMore) {
  type("(+ 1 2");
  EXPECT_TRUE(shows("(+ 1 2"));
  for (int i = 0; i < 3; ++i) {
    type(kCtrlC);
    EXPECT_TRUE(shows(kPrompt)) << i;
  }
  EXPECT_TRUE(answers("(* 6 7)", "42"));
}

TEST_F(Terminal, CtrlCStopsWhatRuns) {
  type("(progn (princ (strcat \"ru\" \"ns\")) (while t))\n");
  EXPECT_TRUE(shows("runs"));
  type(kCtrlC);
  EXPECT_TRUE(shows("*Annuler*") && shows(kPrompt));
  type("LINE\n");
  EXPECT_TRUE(shows("point"));
  type("0,0\n");
  EXPECT_TRUE(shows("point"));
  type(kCtrlC);
  EXPECT_TRUE(shows(kPrompt));
  EXPECT_TRUE(answers("(* 6 7)", "42"));
}

// Ctrl-D ends the program as QUIT does: with unsaved work only when the user says so.
TEST_F(Terminal, CtrlDKeepsUnsavedWork) {
  EXPECT_TRUE(answers("(command \"_LINE\" \"0,0\" \"1,1\" \"\")", "nil"));
  type("\x04");
  EXPECT_TRUE(shows("Abandonner les modifications? [Oui/Non] <N>:"));
  type("\n");
  EXPECT_TRUE(shows(kPrompt));
  EXPECT_TRUE(answers("(+ 40 2)", "42"));
}

}  // namespace
