// Commands, selections and files, interrupted at the n-th check for it: each stops, the drawing is consistent and
// nothing is left open, and one U restores the drawing as it was before.
#include <filesystem>

#include "atelier/base/interruption.h"
#include "atelier/dxf/audit/audit.h"
#include "tests/support/bare_host.h"

namespace kaveltest {
namespace {

int looksLeft = 0;
bool atLastLook() { return looksLeft > 0 && --looksLeft == 0; }

class Interruption : public DrawingTest {
 protected:
  void SetUp() override {
    run("(progn (setq i 0) (repeat 20 (setq i (1+ i))"
        " (entmake (list '(0 . \"LINE\") (list 10 i 0. 0.) (list 11 (1+ i) 0. 0.)))"
        " (entmake (list '(0 . \"LWPOLYLINE\") '(100 . \"AcDbEntity\") '(100 . \"AcDbPolyline\") '(90 . 2) '(70 . 0)"
        "                (list 10 i 5.) '(42 . 0.5) (list 10 (1+ i) 5.)))"
        " (entmake (list '(0 . \"INSERT\") '(2 . \"REGARD\") '(66 . 1) (list 10 i 9. 0.)))"
        " (entmake (list '(0 . \"ATTRIB\") '(2 . \"NUM\") '(40 . 1.) (cons 1 (itoa i)) (list 10 i 9. 0.)))"
        " (entmake '((0 . \"SEQEND\"))) (entmake (list '(0 . \"TEXT\") '(40 . 1.) '(1 . \"aaaa\") (list 10 i 12. 0.))))"
        " (setq all (ssget \"X\")))");
    EXPECT_EQ(run("(sslength all)"), "80");
    atelier::setInterruptionQuestion(atLastLook);
  }
  void TearDown() override { looksLeft = 0; }

  // All entities, attributes and vertices included, in drawing order.
  std::string drawing() {
    looksLeft = 0;
    return run("(progn (setq e (entnext) l nil) (while e (setq l (cons (cdr (entget e)) l) e (entnext e))) l)");
  }
  // True when the run was cut short.
  bool interrupted(const std::string& lisp, int looks) {
    looksLeft = looks;
    const std::string result = run(lisp);
    EXPECT_EQ(atelier::OpenObjects::count(), 0u) << lisp << looks;
    return result == "! Function cancelled";
  }
};

struct BlockTest : Interruption {
  void SetUp() override {
    run("(progn (entmake '((0 . \"BLOCK\") (2 . \"REGARD\") (70 . 2) (10 0. 0. 0.)))"
        " (entmake '((0 . \"CIRCLE\") (10 0. 0. 0.) (40 . 1.)))"
        " (entmake '((0 . \"ATTDEF\") (2 . \"NUM\") (3 . \"n\") (1 . \"\") (40 . 1.) (10 0. 0. 0.)))"
        " (entmake '((0 . \"ENDBLK\"))))");
    Interruption::SetUp();
  }
};

TEST_F(BlockTest, CommandsStopAndAreTakenBack) {
  const std::string before = drawing();
  for (const char* command :
       {"(command \"_.MOVE\" all \"\" \"1,1\" \"3,4\")", "(command \"_.COPY\" all \"\" \"1,1\" \"3,4\")",
        "(command \"_.ERASE\" all \"\")", "(command \"_.EXPLODE\" all)",
        "(command \"_.CHPROP\" all \"\" \"_Color\" \"3\" \"\")", "(command \"_.ROTATE\" all \"\" \"0,0\" \"30\")",
        "(command \"_.ROTATE\" all \"\" \"0,0\" \"_Copy\" \"30\")",
        "(command \"_.MIRROR\" all \"\" \"0,0\" \"0,1\" \"_N\")", "(command \"_.SCALE\" all \"\" \"0,0\" \"2\")",
        "(command \"_.PEDIT\" \"_M\" all \"\" \"_Y\" \"_J\" \"0.1\" \"\")",
        "(command \"_.-BLOCK\" \"TOUT\" \"0,0\" all \"\")"}) {
    int stops = 0;
    for (const int looks : {1, 2, 60, 85, 97, 121, 149, 166, 171, 187, 200, 211, 241, 261, 331}) {
      stops += interrupted(command, looks);
      looksLeft = 0;
      for (const atelier::dxf::Finding& found : atelier::dxf::audit(session.document().database(), false))
        ADD_FAILURE() << command << looks << atelier::dxf::line(found);
      run("(command \"_.U\")");
      ASSERT_EQ(drawing(), before) << command << looks;
    }
    EXPECT_GE(stops, 5) << command;
  }
}

// A copy that has not been moved yet would lie unnoticed on its original.
TEST_F(BlockTest, CopiesThatDidNotArriveAreNotThere) {
  const std::string count = "(sslength (ssget \"X\"))",
                    left = "(if (setq s (ssget \"X\" '((-4 . \"<,*,*\") (10 50. 0. 0.)))) (sslength s))";
  int stops = 0, arrived = 0;
  for (int looks = 1; looks < 700; looks += 9) {
    stops += interrupted("(command \"_.COPY\" all \"\" \"0,0\" \"100,0\")", looks);
    looksLeft = 0;
    EXPECT_EQ(run(left), "80") << looks;
    arrived += run(count) != "80";
    run("(command \"_.U\")");
    EXPECT_EQ(run(count), "80") << looks;
  }
  EXPECT_GT(stops, 10);
  EXPECT_GT(arrived, 0);
}

TEST_F(BlockTest, SelectionsAndViewsStop) {
  const std::string before = drawing();
  for (const char* call :
       {"(ssget \"X\")", "(ssget \"A\")", "(ssget \"X\" '((1 . \"*a*b\")))",
        "(ssget \"X\" '((-4 . \">,*,*\") (10 1. 1. 0.)))", "(progn (command \"_.SELECT\" all \"\") (ssget \"P\"))",
        "(ssget \"_C\" '(-9. -9.) '(99. 99.))", "(command \"_.ZOOM\" \"_Object\" all \"\")",
        "(command \"_.ZOOM\" \"_Extents\")", "(command \"_.SELECT\" \"_ALL\" \"_R\" \"_ALL\" \"\")",
        "(command \"_.AUDIT\" \"_N\")", "(command \"_.-PURGE\" \"_All\" \"*\" \"_N\")"}) {
    EXPECT_TRUE(interrupted(call, 30)) << call;
    EXPECT_EQ(drawing(), before) << call;
  }
}

// The file on the disk is unchanged, and no partial file remains.
TEST_F(BlockTest, AFileThatIsBeingWrittenStaysAsItWas) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / ("kavel-arret-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const std::string file = (folder / "a.dxf").string();
  for (const char* version : {"DXF", "R12", "R2000"}) {
    session.document().save(file);
    const auto size = fs::file_size(file);
    const std::string call = std::string("(command \"_.SAVEAS\" \"") + version + "\" \"" + file + "\" \"_Yes\")";
    EXPECT_TRUE(interrupted(call, 40)) << call;
    EXPECT_EQ(fs::file_size(file), size) << call;
    for (const auto& entry : fs::directory_iterator(folder))
      EXPECT_TRUE(entry.path() == file || entry.path() == file.substr(0, file.size() - 4) + ".bak") << entry.path();
  }
  fs::remove_all(folder);
}

// Undoing many steps stops between two of them; redo restores those that were undone.
TEST_F(BlockTest, UndoStopsBetweenSteps) {
  run("(repeat 10 (command \"_.MOVE\" all \"\" \"0,0\" \"1,0\"))");
  const std::string moved = drawing();
  EXPECT_TRUE(interrupted("(command \"_.UNDO\" \"6\")", 4));
  const std::string partly = drawing();
  EXPECT_NE(partly, moved);
  run("(command \"_.REDO\")");
  EXPECT_EQ(drawing(), moved);
  int steps = 0;
  for (; steps < 6 && drawing() != partly; ++steps) run("(command \"_.U\")");
  EXPECT_LT(steps, 6);
}

// The lines after an interrupted one don't run: neither those of its script nor those of the calling one.
TEST_F(BlockTest, TheRestOfAScriptIsDropped) {
  static atelier::Document* document;
  document = &session.document();
  atelier::setInterruptionQuestion([] {
    if (atLastLook()) document->interrupt();
    return document->interpreter().interrupted();
  });
  for (const char* line : {"(while T (ssget \"X\"))", "ZOOM _O _ALL\n"}) {
    looksLeft = 90;
    const int failures = document->failures();
    session.feed(std::string("(setq ran 0)\n") + line + "\n(setq ran 1)\n");
    EXPECT_EQ(run("ran"), "0") << line;
    EXPECT_GT(document->failures(), failures) << line;
    session.feed("(setq ran 2)\n");
    EXPECT_EQ(run("ran"), "2") << line;
  }
}

// Ctrl-C ends the program, even when a host call has noticed it.
TEST_F(BlockTest, NoProgramCatchesCtrlC) {
  static atelier::Document* document;
  document = &session.document();
  atelier::setInterruptionQuestion([] {
    if (atLastLook()) document->interrupt();
    return document->interpreter().interrupted();
  });
  EXPECT_TRUE(interrupted("(while T (vl-catch-all-apply 'ssget '(\"X\")))", 50));
  EXPECT_TRUE(interrupted("(while T (vl-catch-all-apply 'command (list \"_.MOVE\" all \"\" \"0,0\" \"1,0\")))", 50));
}

}  // namespace
}  // namespace kaveltest
