// An interrupt during one long call of a built-in function: the call notices it, and its data stay consistent. No clock
// is used: the interrupt comes at the n-th check for one.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

class Interruption : public LispTest {
 protected:
  void interruptAfter(int looks) {
    left_ = looks;
    in.onPoll([this] {
      if (--left_ > 0) in.requestPoll();
      else in.interrupt();
    });
    in.requestPoll();
  }
  void SetUp() override {
    run("(defun long (s n) (repeat n (setq s (strcat s s))) s)"
        "(defun row (n / l) (repeat n (setq l (cons n l) n (1- n))) l)"
        "(setq text (long \"abcdefgh\" 20) row1 (row 20000) row2 (append row1 (list 'end))"
        "      words (mapcar 'itoa row1) deep (long \"(\" 12) shut (long \")\" 12) wide (long \"(a) \" 12)"
        "      dag nil)"
        "(repeat 200 (setq dag (cons dag dag))) nil");
  }

 private:
  int left_ = 0;
};

TEST_F(Interruption, IsNoticedInsideOneCall) {
  for (const char* call : {"(strcat text text)",
                           "(strcat \"x\" text)",
                           "(strcase text)",
                           "(vl-string->list text)",
                           "(vl-list->string row1)",
                           "(vl-string-translate \"a\" \"b\" text)",
                           "(vl-string-mismatch text text)",
                           "(wcmatch text \"*b*c*x\")",
                           "(vl-string-search (strcat (substr text 1 300000) \"x\") text)",
                           "(vl-string-subst \"y\" (strcat (substr text 1 300000) \"x\") text)",
                           "(read (strcat deep shut))",
                           "(read (strcat \"(\" wide \")\"))",
                           "(read (strcat \"\\\"\" deep \"\\\"\"))",
                           "(read (strcase \"''''''''''a\"))",
                           "(equal row1 row2)",
                           "(member row1 (list row2 row2))",
                           "(equal dag (cons dag dag))",
                           "(vl-sort row1 '>)",
                           "(vl-sort words '<)",
                           "(vl-sort-i row1 '<)",
                           "(acad_strlsort words)",
                           "(vl-prin1-to-string row1)",
                           "(vl-princ-to-string dag)",
                           "(princ row1)",
                           "(prin1 row1)",
                           "(print row1)"})
    for (const int looks : {2, 7}) {
      interruptAfter(looks);
      EXPECT_EQ(run(call), "! Function cancelled") << call;
      in.clearInterrupt();
    }
  in.onPoll({});
  // All values are unchanged, even a string that was being appended to.
  check({{"(strlen text)", "8388608"},
         {"(strlen (setq text (strcat text \"x\")))", "8388609"},
         {"(substr text 8388607)", "\"ghx\""},
         {"(length row1)", "20000"},
         {"(last (vl-sort row1 '>))", "1"},
         {"(strlen (vl-prin1-to-string (read (strcat deep shut))))", "8193"}});
}

TEST_F(Interruption, AppendingInPlaceIsTakenBack) {
  run("(setq long1 (strcat text \"-\"))");
  interruptAfter(2);
  EXPECT_EQ(run("(strcat long1 text)"), "! Function cancelled");
  in.onPoll({});
  check({{"(strlen long1)", "8388609"}, {"(substr (strcat long1 \"yz\") 8388608)", "\"h-yz\""}});
}

TEST_F(Interruption, PrintingTheValueOfAnExpressionStopsToo) {
  const Value dag = in.get("dag");
  interruptAfter(100);
  try {
    in.printed(dag);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind, Error::Kind::Interrupt);
  }
}

// All stays as it is, and the next collection frees what nobody holds.
TEST_F(Interruption, LeavesACollection) {
  run("(setq held (row 200000) names (mapcar 'itoa held) lost (row 400000)) (setq lost nil)");
  in.heap().collect();
  const std::size_t least = in.heap().cells();
  run("(setq lost (row 400000)) (setq lost nil)");
  in.interrupt();
  in.heap().collect();
  in.clearInterrupt();
  EXPECT_GT(in.heap().cells(), least + 400000);
  check({{"(apply '+ held)", "-1474736480"}, {"(nth 199999 names)", "\"200000\""}, {"(length (row 1000))", "1000"}});
  in.heap().collect();
  EXPECT_LT(in.heap().cells(), least + 1000);
  check({{"(length held)", "200000"}, {"(strlen (apply 'strcat names))", "1088895"}});
}

// A value that prints without end is named by its beginning.
TEST_F(Interruption, MessagesNameLongValuesByTheirBeginning) {
  const std::string message = run("(+ 1 dag)");
  EXPECT_EQ(message.substr(0, 36), "! bad argument type: numberp: ((((((");
  EXPECT_TRUE(message.ends_with("...")) << message.substr(message.size() - 10);
}

}  // namespace
}  // namespace atelier::lisp
