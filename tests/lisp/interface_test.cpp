// The interface for C++: external functions, values that must survive, several interpreters, memory.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Interface = LispTest;

struct Application {
  int calls = 0;
};

Value sum(void* context, int index, Interpreter& in, Arguments arguments) {
  ++static_cast<Application*>(context)->calls;
  double total = index;
  for (Value value : arguments) total += numberArgument(in, value);
  return Value::real(total);
}

Value fails(void*, int, Interpreter&, Arguments) { throw std::out_of_range("map::at"); }

Value callsBack(void*, int, Interpreter& in, Arguments arguments) {
  try {
    return in.call(arguments[0], arguments.subspan(1));
  } catch (const Error& error) {
    return in.string(error.message());
  }
}

TEST_F(Interface, ExternalFunctions) {
  Application application;
  std::vector<std::string> after;
  in.onExternalCall([&after](const std::string& name) { after.push_back(name); });
  in.addExternal("app:sum", sum, &application, 10);
  in.addExternal("app:fails", fails, &application, 0);
  in.addExternal("app:back", callsBack, &application, 0);
  check({{"(app:sum 1 2.5)", "13.5"},
         {"(type app:sum)", "EXRXSUBR"},
         {"(apply 'app:sum '(1))", "11.0"},
         {"(mapcar 'app:sum '(1 2))", "(11.0 12.0)"},
         {"(app:sum nil)", "! bad argument type: numberp: nil"},
         {"(app:fails)", "! map::at"},
         {"(vl-catch-all-error-message (vl-catch-all-apply 'app:fails))", "\"map::at\""},
         {"(app:back 'car '(1 2))", "1"},
         {"(app:back 'car 5)", "\"bad argument type: listp: 5\""},
         {"(list 1 (app:back '(lambda (x) (car x)) 5) 2)", "(1 \"bad argument type: listp: 5\" 2)"}});
  EXPECT_EQ(application.calls, 5);
  EXPECT_EQ(after.size(), 10u);
  int other = 0;
  EXPECT_FALSE(in.removeExternal("APP:SUM", &other));
  run("(setq kept app:sum)");
  EXPECT_TRUE(in.removeExternal("APP:SUM", &application));
  check({{"(app:sum 1)", "! no function definition: APP:SUM"}, {"(kept 1)", "! no function definition: APP:SUM"}});
  // The same function comes back: also to those who kept it, but not over another one that has its name by now.
  in.addExternal("app:sum", sum, &application, 10);
  check({{"(app:sum 1)", "11.0"}, {"(kept 1)", "11.0"}, {"(eq kept app:sum)", "T"}});
  run("(defun app:sum (x) (list (kept x)))");
  EXPECT_TRUE(in.removeExternal("APP:SUM", &application));
  in.addExternal("app:sum", sum, &application, 10);
  check({{"(app:sum 1)", "(11.0)"}});
}

TEST_F(Interface, TablesOfOtherRooms) {
  static constexpr Builtin kTable[] = {{"room-double",
                                        [](Interpreter& host, Arguments arguments) -> Value {
                                          return Value::real(2 * numberArgument(host, arguments[0]));
                                        },
                                        1, 1, "(room-double x)", "Le double."}};
  in.add(kTable);
  check({{"(room-double 4)", "8.0"}, {"(room-double)", "! too few arguments"}});
  EXPECT_EQ(in.primitive("Room-Double")->signature, "(room-double x)");
}

TEST_F(Interface, EntitiesAndSelections) {
  in.set("e1", in.entity(0x7fff00000010u));
  in.set("e2", in.entity(0x7fff00000010u));
  check({{"e1", "<Entity name: 7fff00000010>"},
         {"(type e1)", "ENAME"},
         {"(eq e1 e2)", "T"},
         {"(equal (cons -1 e1) (cons -1 e2))", "T"},
         {"(car e1)", "! bad argument type: listp: <Entity name: 7fff00000010>"}});
}

Value picks(void* context, int, Interpreter& in, Arguments) {
  return in.selection(*static_cast<std::shared_ptr<int>*>(context), sizeof(int));
}

TEST_F(Interface, DroppedSelectionsLetTheirObjectsGo) {
  auto picked = std::make_shared<int>(7);
  in.addExternal("app:picks", picks, &picked, 0);
  check({{"(type (setq ss (app:picks)))", "PICKSET"}, {"(repeat 100 (setq ss (app:picks)))(type ss)", "PICKSET"}});
  run("(setq ss nil) (mapcar 'list '(1 2 3) '(4 5 6)) (gc)");
  // A word of the machine stack may still look like a pointer to one of them.
  EXPECT_LT(picked.use_count(), 10);
}

// Memory that values use elsewhere counts, too: a selection set of a large drawing takes megabytes.
TEST_F(Interface, GarbageIsWeighedByWhatItHolds) {
  run("(setq s \"abcdefgh\") (repeat 15 (setq s (strcat s s)))");
  std::size_t before = in.heap().collections();
  run("(repeat 500 (substr s 2))");
  EXPECT_GT(in.heap().collections(), before + 1);
  auto picked = std::make_shared<int>(7);
  in.addExternal(
      "app:heavy",
      [](void* object, int, Interpreter& host, Arguments) {
        return host.selection(*static_cast<std::shared_ptr<int>*>(object), std::size_t{10} << 20);
      },
      &picked, 0);
  before = in.heap().collections();
  run("(repeat 30 (app:heavy))");
  EXPECT_GT(in.heap().collections(), before + 2);
  // Living values don't cause a collection for every few new strings.
  run("(repeat 1000 (setq kept (cons (substr s 2) kept)))");
  before = in.heap().collections();
  run("(repeat 100 (substr s 2))");
  EXPECT_LT(in.heap().collections(), before + 2);
}

TEST_F(Interface, ValuesSurviveCollections) {
  Root list(in, in.evaluate("(list \"kept\" 1.5 (list 'a 'b))"));
  auto onHeap = std::make_unique<Root>(in, in.string("also kept"));
  run("(repeat 300000 (list (strcat \"a\" \"b\") 2 3))");
  in.heap().collect();
  EXPECT_GT(in.heap().collections(), 1u);
  EXPECT_EQ(prin1(list), "(\"kept\" 1.5 (A B))");
  EXPECT_EQ(onHeap->get().text(), "also kept");
}

// Collects at nearly every step of programs whose results are known.
TEST_F(Interface, CollectionUnderStress) {
  static constexpr Builtin kTable[] = {{"squeeze",
                                        [](Interpreter& host, Arguments arguments) -> Value {
                                          host.heap().collect();
                                          return arguments[0];
                                        },
                                        1, 1, "(squeeze x)", "Récupère la mémoire."}};
  in.add(kTable);
  check({{"(mapcar '(lambda (x) (squeeze (strcat \"n\" (itoa (squeeze x))))) '(1 2 3))", "(\"n1\" \"n2\" \"n3\")"},
         {"(vl-sort (list (list 3) (list 1) (list 2)) '(lambda (a b) (< (car (squeeze a)) (car b))))", "((1) (2) (3))"},
         {"(progn (setq s \"\") (repeat 50 (setq s (squeeze (strcat s \"é\")))) (strlen s))", "50"},
         {"(foreach x (list (list 1) (list 2)) (squeeze (list x)))", "((2))"},
         {"(apply 'append (mapcar '(lambda (x) (squeeze (list x (list x)))) (list 1 2)))", "(1 (1) 2 (2))"},
         {"(read (squeeze \"(a (b \\\"c\\\") . d)\"))", "(A (B \"c\") . D)"},
         {"(defun build (n) (if (> n 0) (squeeze (cons (list n) (build (1- n))))))", "BUILD"},
         {"(build 5)", "((5) (4) (3) (2) (1))"},
         {"(vl-remove-if '(lambda (x) (squeeze (< x 2))) (list 1 2 3))", "(2 3)"},
         {"((lambda (x) (squeeze nil) (list x)) (list 1 2))", "((1 2))"}});
  run("(setq big nil) (repeat 1000000 (setq big (cons (list 1) big))) (setq big nil) (repeat 100000 (list "
      "1))");
  in.heap().collect();
  EXPECT_LT(in.heap().cells(), 200000u);
}

TEST_F(Interface, InterpretersAreSeparate) {
  Interpreter other;
  addBuiltins(other);
  run("(setq x 1) (defun f () x)");
  EXPECT_TRUE(other.get("x").isNil());
  other.evaluate("(setq x 2)");
  EXPECT_EQ(run("(f)"), "1");
  EXPECT_THROW(other.call("f", {}), Error);
  EXPECT_EQ(prin1(in.call("f", {})), "1");
}

TEST_F(Interface, ListsFromCpp) {
  const Value list = in.list({Value::integer(1), in.string("deux"), in.point(1, 2, 3)});
  EXPECT_EQ(prin1(list), "(1 \"deux\" (1.0 2.0 3.0))");
  int count = 0;
  for (Value value : Items(list)) count += value.isInteger() || value.isString() || value.isPair();
  EXPECT_EQ(count, 3);
  EXPECT_EQ(Value::real(std::numeric_limits<double>::quiet_NaN()).type(), Type::Real);
  EXPECT_EQ(Value::real(-std::numeric_limits<double>::infinity()).real(), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(Value::integer(-1).integer(), -1);
}

}  // namespace
}  // namespace atelier::lisp
