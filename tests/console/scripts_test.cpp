// Scripts: what follows a failed command, where messages go and what they name, encodings, scripts that are none.
#include <gtest/gtest.h>

#include "tests/console/program.h"

namespace {

using kaveltest::Program;

// The second command fails at its first answer; the others would draw a circle and a line.
constexpr const char* kFailing =
    "LINE 0,0 1,1\n\nPLV-NOUVEAU\nabsent.csv\nC\n5,5\n\nCIRCLE 0,0 3\n(setq last 1)\nQSAVE a.dxf\n";
constexpr const char* kKinds =
    "-e '(mapcar (function (lambda (e) (cdr (assoc 0 (entget e))))) (list (entnext) (entlast)))'";

void expectPart(const Program& program, const char* part) {
  EXPECT_NE(program.output.find(part), std::string::npos) << part << " in\n" << program.output;
}

TEST(Scripts, TheAnswersOfAFailedCommandAreNotCommands) {
  Program program;
  program.write("a.scr", kFailing);
  program.run("--quiet -s a.scr -e last --save b.dxf " + std::string(kKinds));
  EXPECT_EQ(program.status, 1);
  expectPart(program, "a.scr, ligne 3: échec; 3 lignes laissées avant la commande suivante");
  expectPart(program, "(\"LINE\" \"CIRCLE\")");
  expectPart(program, "rien n'est enregistré");
  EXPECT_EQ(program.names(), "a.scr ");
  EXPECT_EQ(program.run("--keep-going -s a.scr --save b.dxf").status, 1) << program.output;
  EXPECT_EQ(program.names(), "a.dxf a.scr b.dxf ");
}

TEST(Scripts, StrictRunsStopAtTheFirstFailure) {
  Program program;
  program.write("a.scr", kFailing);
  program.write("outer.scr", "SCRIPT a.scr\n(setq after 2)\n");
  program.write("a.lsp", "(echec \"trouvé faux\")\n");
  for (const char* first : {"-s a.scr", "-s outer.scr", "-l a.lsp", "-e '(car 1)'"}) {
    program.run(std::string("--strict ") + first + " -e '(princ \"APRES\")' --plot a.pdf --save b.dxf");
    EXPECT_EQ(program.status, 1) << program.output;
    for (const char* later : {"APRES", "CIRCLE", "setq after"})
      EXPECT_EQ(program.output.find(later), std::string::npos) << first << program.output;
    EXPECT_EQ(program.names(), "a.lsp a.scr outer.scr ") << first;
  }
}

// Under CMDECHO 0 the commands that programs give print nothing but their failures.
TEST(Scripts, ErrorsGoToTheOtherStream) {
  Program program;
  program.write("a.scr", "NO-SUCH-COMMAND\n(car 1)\n(plv-erreur \"trouvé faux\")\n(command \"-INSERT\" \"absent\")\n");
  for (const char* quiet : {"", "--quiet "}) {
    program.run(std::string(quiet) + "-s a.scr -e '(+ 40 2)'", "2> errors < /dev/null");
    const std::string errors = program.read("errors");
    for (const char* part : {"Commande inconnue", "bad argument type", "Erreur: trouvé faux", "introuvable: absent"}) {
      EXPECT_EQ(program.output.find(part), std::string::npos) << quiet << program.output;
      EXPECT_NE(errors.find(part), std::string::npos) << quiet << part << errors;
    }
    expectPart(program, "42\n");
  }
}

TEST(Scripts, AreReadInEveryEncoding) {
  const std::string wide("\xff\xfe(\0p\0r\0i\0n\0c\0 \0\"\0\xe9\0\xac\x20\"\0)\0\r\0\n\0", 30);
  for (const std::string& text :
       {std::string("\xef\xbb\xbf(princ \"é€\")\r\n"), std::string("(princ \"\xe9\x80\")\n"), wide}) {
    Program program;
    program.write("a.scr", text);
    EXPECT_EQ(program.run("--no-frontal -s a.scr").status, 0) << program.output;
    expectPart(program, "é€");
  }
}

TEST(Scripts, WhatIsNoneIsTold) {
  Program program;
  program.write("a.scr", "(princ \"RUN\")\n");
  std::filesystem::create_directory(program.folder() / "folder");
  const struct {
    const char *arguments, *redirections;
    int status;
    const char* part;
  } rows[] = {{"-s folder", "2>&1", 3, "folder: script illisible: c'est un dossier"},
              {"-s absent.scr", "2>&1", 3, "absent.scr: script illisible: fichier ou dossier introuvable"},
              {"", "2>&1 < a.scr", 2, "-s -"},
              {"-s -", "2>&1 < a.scr", 0, "RUN"},
              {"", "2>&1 < /dev/null", 0, ""},
              {"--scale 1:200", "2>&1", 2, "demandent --plot"},
              {"--binary", "2>&1", 2, "demandent --save"},
              {"--fix --list", "2>&1", 2, "--fix demande --audit"},
              {"--strict --keep-going", "2>&1", 2, "s'excluent"}};
  for (const auto& row : rows) {
    program.run(row.arguments, row.redirections);
    EXPECT_EQ(program.status, row.status) << row.arguments << program.output;
    expectPart(program, row.part);
  }
}

}  // namespace
