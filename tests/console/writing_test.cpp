// Files that the program writes: whole or an error, the earlier result kept; backups, protected files, leftovers.
#include <gtest/gtest.h>

#include "tests/console/program.h"

namespace {

using kaveltest::Program;

constexpr const char* kGround = "(plv-nouveau \"t.csv\" nil nil nil nil nil nil)";
const std::string kProfile = "-e '" + std::string(kGround) + "' -e '(setq p (plv-profils))' ";

struct WithGround : Program {
  WithGround() { write("t.csv", "0,1\n10,2\n20,3\n"); }
};

TEST(Writing, AFullDiskIsAnError) {
  Program program;
  const char* const open = "--no-frontal -e '(setq f (open \"/dev/full\" \"w\"))' ";
  for (const char* last : {"-e '(progn (princ \"a\" f) (close f))'", "-e '(progn (write-char 65 f) (close f))'",
                           "-e '(repeat 100000 (write-line \"some text\" f))'"}) {
    program.run(std::string(open) + last);
    EXPECT_EQ(program.status, 1) << last << program.output;
    EXPECT_NE(program.output.find("/dev/full: écriture interrompue: plus de place"), std::string::npos)
        << program.output;
  }
  program.run("--no-frontal -e '(vl-file-copy \"" KAVEL_BIN "/kavel\" \"/dev/full\" T)'");
  EXPECT_EQ(program.output, "nil\n");
  program.prefix = "sh -c '\"$@\" > /dev/full' sh";
  for (const char* arguments : {"--no-frontal --list", "--no-frontal --quiet -e 1", "--help", "--version"}) {
    program.run(arguments);
    EXPECT_EQ(program.status, 3) << arguments << program.output;
    EXPECT_NE(program.output.find("sortie standard: écriture interrompue"), std::string::npos) << program.output;
  }
}

TEST(Writing, WhatADiskHasNoPlaceForLeavesTheEarlierResult) {
  WithGround program;
  const std::string writes[] = {"(plv-export-terrain (car p) \"a.csv\")", "(plv-export-landxml p \"a.xml\")"};
  for (const std::string& write : writes) ASSERT_EQ(program.run(kProfile + "-e '" + write + "'").status, 0);
  const std::string csv = program.read("a.csv"), xml = program.read("a.xml");
  program.prefix = "ulimit -f 0;";
  for (const std::string& write : writes) {
    program.run(kProfile + "-e '" + write + "'");
    EXPECT_EQ(program.status, 1) << program.output;
    EXPECT_NE(program.output.find("écriture interrompue: fichier trop grand"), std::string::npos) << program.output;
  }
  EXPECT_EQ(program.read("a.csv"), csv);
  EXPECT_EQ(program.read("a.xml"), xml);
  for (const char* backup : {"a.bak", "a.csv.bak", "a.xml.bak"}) EXPECT_FALSE(program.has(backup)) << backup;
  EXPECT_EQ(program.names(), "a.csv a.xml t.csv ");
}

TEST(Writing, APageThatCannotBeWrittenIsToldAsOtherPlotsAre) {
  WithGround program;
  for (const char* plot : {"--plot nulle/a.html", "--plot nulle/a.pdf"}) {
    program.run("--quiet " + kProfile + plot);
    EXPECT_EQ(program.status, 3) << program.output;
    const auto at = program.output.find("kavel: nulle/a.");
    ASSERT_NE(at, std::string::npos) << program.output;
    const std::string told = program.output.substr(at);
    EXPECT_NE(told.find(": écriture impossible: "), std::string::npos) << program.output;
    EXPECT_EQ(told.find('\n'), told.size() - 1) << "more than a line: " << program.output;
  }
  program.run("--plot a.html");
  EXPECT_EQ(program.status, 1) << program.output;
  EXPECT_EQ(program.names(), "t.csv ");
}

TEST(Writing, BackupsOfDifferentFilesDoNotMeet) {
  WithGround program;
  const std::string save = kProfile + "--save a.dxf -e '(plv-export-landxml p \"a.xml\")'";
  program.run(save);
  const std::string drawing = program.read("a.dxf");
  program.run(save);
  EXPECT_EQ(program.names(), "a.bak a.dxf a.xml a.xml.bak t.csv ");
  EXPECT_EQ(program.read("a.bak").substr(0, 40), drawing.substr(0, 40));
}

TEST(Writing, AProtectedFileIsNotReplaced) {
  WithGround program;
  const struct {
    const char *name, *arguments;
    int status;
  } rows[] = {{"a.dxf", "--save a.dxf", 3},
              {"a.pdf", "--plot a.pdf", 3},
              {"a.csv", "-e '(plv-export-terrain (car p) \"a.csv\")'", 1},
              {"a.xlsx", "-e '(fichier-remplacer \"t.csv\" \"a.xlsx\")'", 1}};
  for (const auto& row : rows) {
    program.write(row.name, "precious");
    std::filesystem::permissions(program.folder() / row.name, std::filesystem::perms::owner_read);
    program.run(kProfile + row.arguments);
    EXPECT_EQ(program.status, row.status) << program.output;
    EXPECT_NE(program.output.find("protégé en écriture"), std::string::npos) << program.output;
    EXPECT_EQ(program.read(row.name), "precious");
  }
  EXPECT_EQ(program.names(), "a.csv a.dxf a.pdf a.xlsx t.csv ");
}

// A file aside that another program still writes carries its lock.
TEST(Writing, WhatAKilledProgramLeftIsRemoved) {
  Program program;
  for (const char* name : {"a.dxf.4242.nouveau", "a.dxf.4243.nouveau", "b.dxf.4242.nouveau", "a.dxf.mien.nouveau"})
    program.write(name, "half");
  program.prefix = "flock a.dxf.4243.nouveau";
  EXPECT_EQ(program.run("--save a.dxf").status, 0) << program.output;
  EXPECT_EQ(program.names(), "a.dxf a.dxf.4243.nouveau a.dxf.mien.nouveau b.dxf.4242.nouveau ");
}

}  // namespace
