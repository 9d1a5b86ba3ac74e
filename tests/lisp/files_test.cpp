// Files: reading and writing with encodings, names, folders, loading.
#include <filesystem>
#include <fstream>

#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

namespace fs = std::filesystem;

class Files : public LispTest {
 protected:
  fs::path folder = fs::temp_directory_path() / ("lisp_files_" + std::to_string(::getpid()));

  void SetUp() override {
    fs::create_directories(folder);
    in.set("DIR", in.string(folder.string() + "/"));
  }
  void TearDown() override { fs::remove_all(folder); }
  void put(const char* name, std::string_view bytes) { std::ofstream(folder / name, std::ios::binary) << bytes; }
  std::string get(const char* name) {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string loaded(const char* name) { return run("(load (strcat dir \"" + std::string(name) + "\"))"); }
};

TEST_F(Files, WritingAndReadingBack) {
  check({{"(setq f (open (strcat dir \"a.txt\") \"w\")) (write-line \"été\" f) (princ 1.5 f) (write-char 10 "
          "f) (close f)",
          "nil"},
         {"(setq f (open (strcat dir \"a.txt\") \"a\")) (prin1 \"fin\" f) (close f)", "nil"},
         {"(setq f (open (strcat dir \"a.txt\") \"r\")) (list (read-line f) (read-char f) (read-line f) "
          "(read-line f) (read-line f))",
          "(\"été\" 49 \".5\" \"\\\"fin\\\"\" nil)"},
         {"(close f)", "nil"},
         {"(open (strcat dir \"missing.txt\") \"r\")", "nil"},
         {"(open dir \"r\")", "nil"},
         {"(type (setq f (open (strcat dir \"a.txt\") \"r\")))", "FILE"},
         {"(vl-file-size (strcat dir \"a.txt\"))", "13"}});
  EXPECT_EQ(get("a.txt"), "\xe9t\xe9\n1.5\n\"fin\"");
  EXPECT_EQ(run("(write-line \"x\" f)").substr(0, 30), "! bad argument type: FILE #<fi");
  EXPECT_EQ(run("(open \"x\" \"z\")"), "! bad argument value: open mode: \"z\"");
  run("(setq f (open (strcat dir \"u.txt\") \"w\" \"utf8\")) (princ \"é\" f) (close f)");
  EXPECT_EQ(get("u.txt"), "é");
}

TEST_F(Files, LinesOfOtherSystems) {
  put("dos.txt", "a\r\n\xe9\r\n\x1agarbage");
  check(
      {{"(setq f (open (strcat dir \"dos.txt\") \"r\")) (list (read-line f) (read-char f) (read-char f) "
        "(read-line f))",
        "(\"a\" 233 10 nil)"}});
}

TEST_F(Files, Loading) {
  put("utf8.lsp", "(setq r \"été\")");
  put("bom.lsp", "\xef\xbb\xbf(setq r \"bom é\")");
  put("ansi.lsp", "(setq r \"\xe9t\xe9 \x80\")\r\n\x1a");
  put("broken.lsp", "(setq ok 1)\n(defun f ()\n (car 1)\n");
  put("fails.lsp", "(setq n 1)\n\n(car n)\n");
  EXPECT_EQ(loaded("utf8"), "\"été\"");
  EXPECT_EQ(loaded("bom.lsp"), "\"bom é\"");
  EXPECT_EQ(loaded("ansi.lsp"), "\"été €\"");
  EXPECT_EQ(loaded("broken"), "! malformed list on input");
  EXPECT_EQ(run("ok"), "1");
  EXPECT_EQ(loaded("missing"), "! LOAD failed: \"" + folder.string() + "/missing\"");
  check({{"(load \"missing\" \"absent\")", "\"absent\""},
         {"(load \"missing\" '(+ 1 2))", "3"},
         {"(load \"missing\" '(lambda () 'called))", "CALLED"},
         {"(load 5)", "! bad argument type: stringp 5"}});
  try {
    in.loadFile((folder / "fails.lsp").string());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(error.file, (folder / "fails.lsp").string());
  }
}

TEST_F(Files, SearchPath) {
  put("found.lsp", "'here");
  EXPECT_EQ(run("(findfile \"found.lsp\")"), "nil");
  search.folders.push_back(folder.string());
  EXPECT_EQ(run("(load \"found\")"), "HERE");
  EXPECT_EQ(run("(= (findfile \"found.lsp\") (strcat dir \"found.lsp\"))"), "T");
  EXPECT_EQ(run("(findfile \"\")"), "nil");
}

TEST_F(Files, NamesAndFolders) {
  put("b.txt", "12345");
  put("A.TXT", "1");
  check({{"(vl-mkdir (strcat dir \"sub\"))", "T"},
         {"(vl-mkdir (strcat dir \"sub\"))", "nil"},
         {"(vl-directory-files dir \"*.txt\" 1)", "(\"A.TXT\" \"b.txt\")"},
         {"(vl-directory-files dir nil -1)", "(\".\" \"..\" \"sub\")"},
         {"(vl-directory-files dir \"*.dwg\" 1)", "nil"},
         {"(vl-directory-files (strcat dir \"nowhere\"))", "nil"},
         {"(vl-file-directory-p (strcat dir \"sub\"))", "T"},
         {"(vl-file-directory-p (strcat dir \"b.txt\"))", "nil"},
         {"(vl-file-size (strcat dir \"b.txt\"))", "5"},
         {"(vl-file-size (strcat dir \"none\"))", "nil"},
         {"(vl-file-copy (strcat dir \"b.txt\") (strcat dir \"c.txt\"))", "5"},
         {"(vl-file-rename (strcat dir \"b.txt\") (strcat dir \"c.txt\"))", "nil"},
         {"(vl-file-rename (strcat dir \"b.txt\") (strcat dir \"d.txt\"))", "T"},
         {"(vl-file-delete (strcat dir \"d.txt\"))", "T"},
         {"(vl-file-delete (strcat dir \"d.txt\"))", "nil"},
         {"(length (vl-file-systime (strcat dir \"c.txt\")))", "8"},
         {"(vl-filename-base \"c:\\\\acad\\\\dessin.dwg\")", "\"dessin\""},
         {"(vl-filename-directory \"c:\\\\acad\\\\dessin.dwg\")", "\"c:\\\\acad\""},
         {"(vl-filename-directory \"/dessin.dwg\")", "\"/\""},
         {"(vl-filename-extension \"/a.b/dessin.dwg\")", "\".dwg\""},
         {"(vl-filename-extension \"/a.b/dessin\")", "nil"},
         {"(= (vl-filename-mktemp \"tmp.txt\" dir) (strcat dir \"tmp001.txt\"))", "T"}});
}

TEST_F(Files, EnvironmentAndConsoleInput) {
  console.answers = {"ligne", "ab"};
  check({{"(setenv \"KavelEssai\" \"v\")", "\"v\""},
         {"(getenv \"kavelessai\")", "\"v\""},
         {"(getenv \"NOT_SET_ANYWHERE\")", "nil"},
         {"(read-line)", "\"ligne\""},
         {"(list (read-char) (read-char) (read-char) (read-char))", "(97 98 10 nil)"}});
}

}  // namespace
}  // namespace atelier::lisp
