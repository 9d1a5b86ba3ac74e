// One drawing and two programs: locks, files that changed meanwhile, and work that is not thrown away by Enter.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/console/program.h"

namespace {

using kaveltest::Program;

constexpr const char* kLine = "-e '(command \"_LINE\" \"0,0\" \"1,1\" \"\")'";

void expectPart(const Program& program, const char* part) {
  EXPECT_NE(program.output.find(part), std::string::npos) << part << " in\n" << program.output;
}

struct WithDrawing : Program {
  WithDrawing() {
    run(std::string(kLine) + " --save a.dxf");
    run("-e '(command \"_CIRCLE\" \"0,0\" \"1\")' --save b.dxf");
  }
  bool isTheOthers() const { return read("a.dxf").find("\nCIRCLE\n") != std::string::npos; }
};

// Another program puts a drawing of its own in the place of the one that was opened.
const std::string kChange = " -e '(progn (vl-file-delete \"a.dxf\") (vl-file-copy \"b.dxf\" \"a.dxf\"))' ";

TEST(TwoPrograms, AFileThatChangedIsNotOverwritten) {
  const struct {
    const char *options, *script, *last;
    int status;
    const char* part;
    bool kept;
  } rows[] = {{"", "", "--save a.dxf", 3, "a.dxf: ce fichier a changé depuis qu'il a été ouvert", true},
              {"", "QSAVE\n\n", "-s a.scr", 1, "Le remplacer? [Oui/Non] <N>", true},
              {"", "QSAVE\nO\n", "-s a.scr", 0, "Le remplacer? [Oui/Non] <N>", false},
              {"", "SAVEAS\na.dxf\nO\n", "-s a.scr", 0, "ce fichier a changé", false},
              {"--force ", "", "--save a.dxf --save a.dxf", 0, "", false},
              {"", "", "--save c.dxf", 0, "", true}};
  for (const auto& row : rows) {
    WithDrawing program;
    program.write("a.scr", row.script);
    program.run("a.dxf " + std::string(row.options) + kChange + kLine + " " + row.last);
    EXPECT_EQ(program.status, row.status) << row.last << program.output;
    expectPart(program, row.part);
    EXPECT_EQ(program.isTheOthers(), row.kept) << row.options << row.script << row.last;
  }
}

TEST(TwoPrograms, ADrawingThatAnotherOneWorksOnIsLocked) {
  WithDrawing program;
  char machine[256] = "";
  gethostname(machine, sizeof machine - 1);
  const pid_t ended = fork();  // has ended, and nobody has asked how
  if (ended == 0) _exit(0);
  siginfo_t how{};
  waitid(P_PID, static_cast<id_t>(ended), &how, WEXITED | WNOWAIT);
  const struct {
    std::string lock;
    int status;
  } rows[] = {{std::string(machine) + " " + std::to_string(getpid()), 3},  // this test, which is alive
              {"another-machine 4242", 3},
              {std::string(machine) + " 999999999", 0},  // no such process: stale
              {std::string(machine) + " " + std::to_string(ended), 0},
              {"", 0},
              {"nonsense", 0}};
  for (const auto& row : rows) {
    program.write("a.dxf.verrou", row.lock);
    program.run("a.dxf " + std::string(kLine) + " --save a.dxf");
    EXPECT_EQ(program.status, row.status) << row.lock << program.output;
    if (row.status != 0) expectPart(program, "un autre programme travaille sur ce dessin (processus ");
    EXPECT_EQ(program.run("a.dxf --list").status, 0) << "reading is never refused";
    EXPECT_EQ(program.run("a.dxf --force --save a.dxf").status, 0) << program.output;
  }
  waitpid(ended, nullptr, 0);
  // While it runs the program has a lock of its own, and takes it away.
  std::filesystem::remove(program.folder() / "a.dxf.verrou");
  program.run("a.dxf -e '(findfile \"a.dxf.verrou\")' --save a.dxf");
  expectPart(program, "a.dxf.verrou\"");
  EXPECT_EQ(program.names(), "a.bak a.dxf b.dxf ");
}

TEST(TwoPrograms, EnterKeepsTheWork) {
  for (const char* leaving : {"QUIT", "NEW", "OPEN"}) {
    Program program;
    program.write("a.scr", std::string("LINE 0,0 1,1\n\n") + leaving + "\n\n(setq stayed (entlast))\n");
    program.run("-s a.scr -e '(if (and stayed (entget stayed)) \"kept\")'");
    expectPart(program, "\"kept\"");
  }
}

}  // namespace
