// No arguments and no text may crash the interpreter.
#include <array>
#include <filesystem>

#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

namespace fs = std::filesystem;

// Runs in a folder of its own, because some of the calls make files.
class Robustness : public LispTest {
 protected:
  fs::path before = fs::current_path();
  fs::path folder = fs::temp_directory_path() / ("lisp_robust_" + std::to_string(::getpid()));
  void SetUp() override {
    fs::create_directories(folder);
    fs::current_path(folder);
  }
  void TearDown() override {
    fs::current_path(before);
    fs::remove_all(folder);
  }
};

TEST_F(Robustness, TooFewArgumentsAreRefusedEverywhere) {
  for (const Primitive* primitive : in.primitives())
    if (primitive->subr && primitive->least > 0) {
      EXPECT_EQ(run("(" + primitive->name + ")"), "! too few arguments") << primitive->name;
    }
}

TEST_F(Robustness, TooManyArgumentsAreRefusedEverywhere) {
  for (const Primitive* primitive : in.primitives())
    if (primitive->subr && primitive->most != kAnyNumber) {
      EXPECT_EQ(run("(" + primitive->name + " 1 1 1 1 1 1)"), "! too many arguments") << primitive->name;
    }
}

// Every function with every combination of up to three odd arguments: a value or an error, and nothing on the
// interpreter's stacks afterwards (the last expression would see it).
TEST_F(Robustness, OddArgumentsGiveAValueOrAnError) {
  in.set("ent", in.entity(42));
  const std::array<std::string, 9> odd = {"nil",    "-1",       "2.5", "\"é\"",     "'car",
                                          "'(1 2)", "'(1 . 2)", "ent", "'((a . b))"};
  const Value car = in.get("car");
  long calls = 0;
  for (const Primitive* primitive : in.primitives()) {
    const auto call = [&](const std::string& arguments) {
      run("(" + primitive->name + arguments + ")");
      in.set("car", car);
      ++calls;
    };
    if (primitive->name == "WHILE") continue;  // a true test would rightly loop for ever
    call("");
    for (const auto& a : odd) {
      call(" " + a);
      for (const auto& b : odd) {
        call(" " + a + " " + b);
        for (const auto& c : odd) call(" " + a + " " + b + " " + c);
      }
    }
  }
  EXPECT_GT(calls, 100000);
  EXPECT_EQ(run("(mapcar '+ '(1 2) '(3 4))"), "(4 6)");
}

TEST_F(Robustness, BrokenTextsGiveAValueOrASyntaxError) {
  const std::string program =
      "(defun f (x / y) \"doc\\n\" ;| c |; (setq y '(1 . 2.5e3)) ; end\n (list \"\\U+00e9\" \\101 'x .5 "
      "y))\n";
  std::uint32_t seed = 12345;
  const auto random = [&seed](std::size_t below) { return (seed = seed * 1664525u + 1013904223u) / 256u % below; };
  for (int round = 0; round < 3000; ++round) {
    std::string text = program.substr(random(program.size()));
    for (int change = 0; change < 3 && !text.empty(); ++change)
      text[random(text.size())] =
          "()'\".;|\\ \n\x1a\x80"
          "1e"[random(14)];
    try {
      in.evaluate("(quote (" + text + "))", "broken.lsp");
    } catch (const Error& error) {
      EXPECT_FALSE(error.message().empty());
      EXPECT_GE(error.line, 1) << text;
    }
  }
}

TEST_F(Robustness, ListsOfMillionsGoThroughEveryFunction) {
  run("(setq l nil i 0) (repeat 3000000 (setq l (cons (rem i 100003) l) i (1+ i)))");
  check({{"(length (append l l))", "6000000"},
         {"(length (apply 'append (list l l)))", "6000000"},
         {"(car (vl-sort l '<))", "0"},
         {"(length (vl-sort-i l '<))", "3000000"},
         {"(apply 'max l)", "100002"},
         {"(strlen (setq s (vl-list->string (mapcar '(lambda (n) 65) l))))", "3000000"},
         {"(length (vl-string->list s))", "3000000"},
         {"(equal l (reverse (reverse l)))", "T"}});
}

TEST_F(Robustness, ErrorsLeaveNoBindings) {
  run("(setq a 'out b 'out) (defun f (a / b) (setq b 1) (foreach a '(1 2) (car b)))");
  for (int i = 0; i < 100; ++i) run("(mapcar '(lambda (b) (f b)) '(1 2))");
  for (int i = 0; i < 100; ++i) run("(vl-catch-all-apply 'f '(1))");
  EXPECT_EQ(run("(list a b)"), "(OUT OUT)");
}

TEST_F(Robustness, AFailingErrorFunctionChangesNothing) {
  run("(defun *error* (m) (setq seen m) (exit))");
  EXPECT_EQ(run("(car 1)"), "! bad argument type: listp: 1");
  EXPECT_EQ(run("seen"), "\"bad argument type: listp: 1\"");
  run("(defun *error* (m) (*error* m))");
  EXPECT_EQ(run("(car 1)"), "! bad argument type: listp: 1");
  run("(setq *error* 5)");
  EXPECT_EQ(run("(car 1)"), "! bad argument type: listp: 1");
}

}  // namespace
}  // namespace atelier::lisp
