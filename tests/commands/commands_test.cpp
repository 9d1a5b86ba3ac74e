// What the host's commands count and save; what they do in the drawing stands in rangees/commands.lsp.
#include <filesystem>

#include "tests/support/bare_host.h"

namespace kaveltest {

class Commands : public DrawingTest {
 protected:
  void SetUp() override { run(kTools); }
};

// What is cancelled on purpose isn't a failure.
TEST_F(Commands, CountFailures) {
  for (const char* call :
       {"(progn (command \"_.LINE\" '(0 0) '(9 9)) (command))", "(vl-cmdf \"_.LINE\" '(0 0) '(1 1) \"\")",
        "(vl-cmdf \"_.NUAGE\")", "(vl-cmdf \"_.LINE\" nil)", "(command \"_.ORAGE\" 1)"})
    run(call);
  EXPECT_EQ(session.document().failures(), 2);
  session.feed("LIGNE 0,0 5,0\n5,5\n\nZOOM E\nNUAGE\n");
  EXPECT_EQ(session.document().failures(), 3);
}

TEST_F(Commands, Save) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "kavel_commandes";
  std::filesystem::create_directories(folder);
  const std::string file = (folder / "un deux.dxf").string();
  std::filesystem::remove(file);
  run("(progn (line '(0. 0. 0.) '(1. 0. 0.)) (command \"_.SAVEAS\" \"" + file + "\"))");
  EXPECT_EQ(run("(list (getvar \"DWGNAME\") (getvar \"DBMOD\"))"), "(\"un deux.dxf\" 0)");
  run("(progn (line '(0. 0. 0.) '(2. 0. 0.)) (command \"_.QSAVE\"))");
  Session again(false, file);
  again.eval(kTools);
  EXPECT_EQ(again.eval("(count)"), "2");
  // A new drawing, saved and opened again, shows all its contents.
  EXPECT_EQ(
      again.eval("(list (mapcar '(lambda (x) (rtos x 2 2)) (getvar \"VIEWCTR\")) (rtos (getvar \"VIEWSIZE\") 2 2))"),
      "((\"1.00\" \"0.00\" \"0.00\") \"1.64\")");
}

}  // namespace kaveltest
