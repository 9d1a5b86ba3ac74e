// The program's interface: options in their order, results, exit status, and messages for bad input.
#include <gtest/gtest.h>

#include "tests/console/program.h"

namespace {

using kaveltest::Program;

struct Row {
  const char* arguments;
  int status;
  const char* output;  // must be part of what is printed
};

TEST(Kavel, AnswersItsOptions) {
  const Row rows[] = {
      {"-e '(pl_distToPk 1250.5)'", 0, "\"PK 1+250.50\"\n"},
      {"--no-frontal -e '(+ 1 2)' -e '(list \"a\" 2.5)'", 0, "3\n(\"a\" 2.5)\n"},
      {"--help", 0, "--plot"},
      {"--version", 0, "kavel "},
      {"--no-such-option", 2, "--no-such-option"},
      {"-e '(car 1)'", 1, "bad argument type"},
      {"-e '(foo 1)' -e '(+ 1 1)'", 1, "2\n"},
      {"-e '(+ 1 2'", 1, "malformed list on input"},
      {"missing.dxf -e 1", 3, "missing.dxf"},
      {"-l missing.lsp", 3, "missing.lsp"},
      {"-s missing.scr", 3, "missing.scr"},
      {"--save drawing.txt", 3, "drawing.txt"},
      {"--save no/such/folder/a.dxf", 3, "no/such/folder/a.dxf"},
      {"--scale 1:x --plot a.pdf", 2, "1:x"},
      {"--plot a.xyz", 3, "a.xyz"},
  };
  for (const Row& row : rows) {
    Program program;
    program.run(row.arguments);
    EXPECT_EQ(program.status, row.status) << row.arguments << "\n" << program.output;
    EXPECT_NE(program.output.find(row.output), std::string::npos) << row.arguments << "\n" << program.output;
  }
}

TEST(Kavel, CarriesOutActionsInOrder) {
  Program program;
  program.run(
      "-e '(command \"_LINE\" \"0,0\" \"10,5\" \"\")' --save a.dxf -e '(entdel (entlast))' --save b.dxf --list");
  ASSERT_EQ(program.status, 0) << program.output;
  EXPECT_NE(program.read("a.dxf").find("\nLINE\n"), std::string::npos);
  EXPECT_EQ(program.read("b.dxf").find("\nLINE\n"), std::string::npos);
  program.run("a.dxf --list");
  EXPECT_NE(program.output.find("LINE"), std::string::npos) << program.output;
}

TEST(Kavel, TellsWhatItDoesntDraw) {
  Program program;
  const std::string foreign = "0\nMETIER_TROTTOIR\n8\n0\n", solid = "0\n3DSOLID\n8\n0\n",
                    line = "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n9\n21\n9\n";
  const auto drawing = [](const std::string& entities) {
    return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
  };
  const auto tells = [&](const std::string& what) { return program.output.find(what) != std::string::npos; };
  program.write("mixte.dxf", drawing(foreign + foreign + solid + line));
  EXPECT_EQ(program.run("mixte.dxf --no-frontal --plot a.pdf").status, 0);
  EXPECT_TRUE(tells("objets non représentés, ou en partie : 1 3DSOLID (données illisibles), 2 METIER_TROTTOIR\n"))
      << program.output;
  EXPECT_FALSE(tells("ne montre rien")) << program.output;
  program.run("mixte.dxf --no-frontal --list");
  EXPECT_TRUE(tells(
      "Objets non représentés, ou en partie\n  3DSOLID (données illisibles)   1\n  METIER_TROTTOIR                2\n"))
      << program.output;
  program.write("metier.dxf", drawing(foreign + foreign));
  EXPECT_EQ(program.run("metier.dxf --no-frontal -e 1").status, 0);
  EXPECT_TRUE(tells("Ce dessin ne montre rien: ses objets (2 METIER_TROTTOIR) sont ceux d'une application métier"))
      << program.output;
  program.write("ligne.dxf", drawing(line));
  program.run("ligne.dxf --no-frontal --list");
  EXPECT_FALSE(tells("représenté")) << program.output;
}

TEST(Kavel, FeedsScriptsToTheCommandLine) {
  Program program;
  program.write("a.scr", "LINE 0,0 10,0\n\n; a comment\n(setq x\n  (+ 40 2))\nNO-SUCH-COMMAND\n");
  program.run("-s a.scr -e x --list");
  EXPECT_EQ(program.status, 1) << "an unknown command is a failed one";
  EXPECT_NE(program.output.find("Commande inconnue \"NO-SUCH-COMMAND\""), std::string::npos) << program.output;
  EXPECT_NE(program.output.find("42\n"), std::string::npos) << program.output;
}

TEST(Kavel, CountsACommandThatCouldNotDoItsWork) {
  Program program;
  program.write("bad.csv", "0,1\nx,2\n");
  program.write("a.scr", "PLV-NOUVEAU\nbad.csv\n1\n\n\n\n\n\n");
  program.run("-s a.scr --save a.dxf");
  EXPECT_EQ(program.status, 1) << program.output;
  EXPECT_NE(program.output.find("ligne 2 illisible: \"x,2\""), std::string::npos) << program.output;
}

TEST(Kavel, LeavesTheDrawingAsItWasWhenSavingFails) {
  Program program;
  program.run("-e '(entmake (list (cons 0 \"LINE\") (list 10 0.0 0.0 0.0) (list 11 1.0 1.0 0.0)))' --save a.dxf");
  ASSERT_EQ(program.status, 0) << program.output;
  const std::string before = program.read("a.dxf");
  program.prefix = "ulimit -f 4;";  // a disk that is full after 4 blocks
  program.run("a.dxf -e '(repeat 200 (entmake (entget (entlast))))' --save a.dxf");
  EXPECT_EQ(program.status, 3) << program.output;
  EXPECT_NE(program.output.find("reste tel qu'il était"), std::string::npos) << program.output;
  EXPECT_EQ(program.read("a.dxf"), before);
  program.prefix.clear();
  program.run("a.dxf --save a.dxf");
  EXPECT_EQ(program.status, 0) << program.output;
  EXPECT_TRUE(program.has("a.bak"));
}

TEST(Kavel, RefusesWhatIsNoDrawing) {
  const Row rows[] = {
      {"", 3, "DXF"},
      {"hello\nworld\n", 3, ":1:"},
      {"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n", 3, "coupé"},
      {"  0\nSECTION\n  2\nENTITIES\nabc\nLINE\n  0\nENDSEC\n  0\nEOF\n", 3, ":5:"},
  };
  for (const Row& row : rows) {
    Program program;
    program.write("bad.dxf", row.arguments);
    program.run("bad.dxf -e 1");
    EXPECT_EQ(program.status, row.status) << program.output;
    EXPECT_NE(program.output.find(row.output), std::string::npos) << program.output;
    EXPECT_EQ(program.read("bad.dxf"), row.arguments);
  }
}

TEST(Kavel, SavesInTheVersionAskedFor) {
  const char* const line = "-e '(entmake (list (cons 0 \"LINE\") (list 10 0.0 0.0 0.0) (list 11 1.0 1.0 0.0)))'";
  const struct {
    const char* options;
    const char* version;
  } rows[] = {
      {"", "AC1032"}, {"--release R2000", "AC1015"}, {"--release=r12", "AC1009"}, {"--release R2007", "AC1021"}};
  for (const auto& row : rows) {
    Program program;
    program.run(std::string(line) + " " + row.options + " --save a.dxf");
    EXPECT_EQ(program.status, 0) << program.output;
    EXPECT_NE(program.read("a.dxf").find(row.version), std::string::npos) << row.options;
    program.run("a.dxf -e '(cdr (assoc 11 (entget (entlast))))'");
    EXPECT_NE(program.output.find("(1.0 1.0 0.0)"), std::string::npos) << row.options << program.output;
  }
  Program program;
  EXPECT_EQ(program.run("--release R99 --save a.dxf").status, 2);
  EXPECT_EQ(program.run("--binary --save a.dxf").status, 0);
  EXPECT_EQ(program.read("a.dxf").substr(0, 18), "AutoCAD Binary DXF");
}

TEST(Kavel, RecoversADamagedDrawingAndKeepsOffItsFile) {
  Program program;
  program.run("-e '(command \"_LINE\" \"0,0\" \"1,1\" \"2,0\" \"\")' --save a.dxf");
  std::string bytes = program.read("a.dxf");
  bytes.resize(bytes.rfind("LINE") + 20);
  program.write("bad.dxf", bytes);
  program.run("bad.dxf -e 1");
  EXPECT_EQ(program.status, 3);
  EXPECT_NE(program.output.find("--recover"), std::string::npos) << program.output;
  program.run("bad.dxf --recover -e '(sslength (ssget \"X\"))'");
  EXPECT_EQ(program.status, 0) << program.output;
  EXPECT_NE(program.output.find("ligne "), std::string::npos) << program.output;
  EXPECT_EQ(program.run("bad.dxf --recover --save bad.dxf").status, 3);
  EXPECT_EQ(program.read("bad.dxf"), bytes);
  EXPECT_EQ(program.run("bad.dxf --recover --save good.dxf").status, 0) << program.output;
  EXPECT_EQ(program.run("good.dxf --audit --fix").status, 0) << program.output;
  EXPECT_EQ(program.run("bad.dxf --recover --overwrite --save bad.dxf").status, 0) << program.output;
  EXPECT_EQ(program.run("bad.dxf -e 1").status, 0) << program.output;
}

TEST(Kavel, OpensAndSavesByCommands) {
  Program program;
  program.write("a.scr",
                "LINE 0,0 1,1\n\nSAVEAS R2004\nun\nNEW\nCIRCLE 0,0 3\nSAVEAS deux.dxf\nOPEN un.dxf\n"
                "(setq kinds (cdr (assoc 0 (entget (entlast)))))\nAUDIT Non\nOPEN absent.dxf\n");
  program.run("-s a.scr -e kinds -e '(getvar \"DWGNAME\")'");
  EXPECT_EQ(program.status, 1) << "the missing file is a failed command";
  EXPECT_NE(program.read("un.dxf").find("AC1018"), std::string::npos);
  EXPECT_NE(program.output.find("0 erreurs, 0 réparées"), std::string::npos) << program.output;
  EXPECT_NE(program.output.find("\"LINE\"\n\"un.dxf\""), std::string::npos) << program.output;
}

// A program gives the name in the same call; what follows it is no answer, but the next command.
TEST(Kavel, SavesByTheNamesThatProgramsGive) {
  Program program;
  program.run(
      "-e '(command \"_LINE\" \"0,0\" \"1,1\" \"\")' -e '(command \"_SAVE\" \"un\")' -e '(getvar \"DWGNAME\")' -e "
      "'(command \"_DXFOUT\" \"deux\" "
      "\"_V\" \"R12\" 16)'"
      " -e '(command \"_DXFOUT\" \"trois.dxf\" \"\")' -e '(getvar \"CMDACTIVE\")' -e '(getvar \"DWGNAME\")'");
  EXPECT_EQ(program.status, 0) << program.output;
  EXPECT_NE(program.output.find("\n0\n\"trois.dxf\""), std::string::npos) << program.output;
  EXPECT_NE(program.output.find("\"un.dxf\"\n"), std::string::npos) << program.output;
  for (const auto& [file, version] : {std::pair{"un.dxf", "AC1032"}, {"deux.dxf", "AC1009"}, {"trois.dxf", "AC1032"}})
    EXPECT_NE(program.read(file).find(version), std::string::npos) << file;
}

TEST(Kavel, LoadsNothingThatLiesBesideADrawing) {
  Program program;
  std::filesystem::create_directory(program.folder() / "base");
  program.write("base/plv-outils.lsp", "(princ \"DETOURNE\")");
  program.write("kavel.lsp", "(princ \"DETOURNE\")");
  program.write("mien.lsp", "(setq x 7)");
  program.run("-e 1");
  EXPECT_EQ(program.output.find("DETOURNE"), std::string::npos) << program.output;
  const Row rows[] = {
      {"-e '(load \"mien\")'", 0, "hors des dossiers"},
      {"-e '(setvar \"SECURELOAD\" 2)' -e '(load \"mien\")'", 1, "SECURELOAD refuse de charger"},
      {"-e '(setvar \"SECURELOAD\" 2)' -e '(setvar \"TRUSTEDPATHS\" \"/nulle;.\")' -e '(load \"mien\")'", 0, "7\n"},
      {"-e '(setvar \"SECURELOAD\" 2)' -l mien.lsp -e x", 0, "7\n"},
      {"-e '(setvar \"SECURELOAD\" 0)' -e '(load \"mien\")'", 0, "7\n"},
      {"-e '(startapp \"touch\" \"a\")'", 1, "SECURELOAD refuse"}};
  for (const Row& row : rows) {
    program.run(row.arguments);
    EXPECT_EQ(program.status, row.status) << row.arguments << "\n" << program.output;
    EXPECT_NE(program.output.find(row.output), std::string::npos) << row.arguments << "\n" << program.output;
  }
}

TEST(Kavel, TellsItsProgressToProgramsOnly) {
  Program program;
  program.run("--no-frontal --progress=json -e '(+ 1 2)' --save \"a'b.dxf\"");
  for (const char* part : {"{\"step\":1,\"of\":3,\"action\":\"open\",\"argument\":\"\",\"seconds\":",
                           "{\"step\":2,\"of\":3,\"action\":\"eval\",\"argument\":\"(+ 1 2)\"",
                           "{\"step\":3,\"of\":3,\"action\":\"save\",\"argument\":\"a'b.dxf\""})
    EXPECT_NE(program.output.find(part), std::string::npos) << program.output;
  EXPECT_EQ(program.run("--no-frontal -e 1").output, "1\n");
}

// The loop would never end; after two seconds `timeout` interrupts it, as a user would with Ctrl-C.
TEST(Kavel, IsStoppedByAnInterrupt) {
  for (const char* loop : {"(while T)", "(progn (defun f (n) (f n)) (while T (vl-catch-all-apply (quote f) (list 1))))",
                           "(while T (mapcar (quote 1+) (list 1 2 3)))"}) {
    Program program;
    program.prefix = "timeout -s INT -k 20 2";
    program.run(std::string("--no-frontal -e '") + loop + "' -e '(+ 40 2)' --save d.dxf");
    EXPECT_EQ(program.status, 124) << program.output;  // that of timeout, when the program ended by itself after it
    EXPECT_NE(program.output.find("interruption"), std::string::npos) << loop << program.output;
    EXPECT_EQ(program.output.find("42\n"), std::string::npos) << "what follows isn't carried out";
    EXPECT_FALSE(program.has("d.dxf"));
  }
}

TEST(Kavel, QuietRunsStillSayWhatFailed) {
  Program program;
  EXPECT_EQ(program.run("--quiet -e '(progn (princ 1) (car 2))'").status, 1);
  EXPECT_NE(program.output.find("bad argument type"), std::string::npos) << program.output;
  EXPECT_EQ(program.run("--quiet -e '(plv-nouveau \"absent.csv\" nil nil nil nil nil nil)'").status, 1);
  EXPECT_NE(program.output.find("Erreur: fichier introuvable: absent.csv"), std::string::npos) << program.output;
}

}  // namespace
