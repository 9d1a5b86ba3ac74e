// Every class of entity and object, made by entmake, read by entget, changed by entmod, saved and opened again: all
// groups are kept, even those of a class that the host doesn't know.
#include <filesystem>

#include "tests/support/bare_host.h"

namespace kaveltest {

namespace {

struct Made {
  const char* groups;  // as given to entmake, subclass marks where the format wants them
  const char* change;  // a group that entmod puts in the place of the one with its code
};

const Made kEntities[] = {
    {"(0 . \"LINE\") (10 1.0 2.0 3.0) (11 4.0 5.0 6.0)", "(11 7.0 8.0 9.0)"},
    {"(0 . \"POINT\") (10 1.0 2.0 3.0) (50 . 0.5)", "(10 0.0 0.0 1.0)"},
    {"(0 . \"CIRCLE\") (62 . 5) (10 1.0 2.0 0.0) (40 . 2.5)", "(40 . 3.5)"},
    {"(0 . \"ARC\") (10 1.0 2.0 0.0) (40 . 2.5) (50 . 0.25) (51 . 3.0)", "(51 . 4.0)"},
    {"(0 . \"ELLIPSE\") (100 . \"AcDbEntity\") (100 . \"AcDbEllipse\") (10 1.0 1.0 0.0) (11 3.0 0.0 0.0) (210 0.0 0.0 "
     "1.0) (40 . 0.5) (41 . 0.0) (42 . 3.0)",
     "(40 . 0.25)"},
    {"(0 . \"TEXT\") (10 1.0 2.0 0.0) (40 . 2.5) (1 . \"r\xC3\xA9seau %%d\") (50 . 0.5) (41 . 0.8)",
     "(1 . \"\xC3\xA9"
     "gout\")"},
    {"(0 . \"MTEXT\") (100 . \"AcDbEntity\") (100 . \"AcDbMText\") (10 1.0 2.0 0.0) (40 . 2.5) (41 . 30.0) (71 . 5) (1 "
     ". \"{\\\\C1;a}\\\\Pb\")",
     "(71 . 7)"},
    {"(0 . \"INSERT\") (2 . \"B\") (10 1.0 2.0 0.0) (41 . 2.0) (42 . 3.0) (43 . 1.0) (50 . 0.5)", "(41 . 4.0)"},
    {"(0 . \"ATTDEF\") (10 1.0 2.0 0.0) (40 . 2.5) (1 . \"v\") (3 . \"question\") (2 . \"ETIQUETTE\") (70 . 0)",
     "(3 . \"autre\")"},
    {"(0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 3) (70 . 1) (43 . 0.0) (38 . 2.0) (10 "
     "0.0 0.0) (10 5.0 0.0) (42 . 0.5) (10 5.0 5.0)",
     "(70 . 0)"},
    {"(0 . \"SPLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbSpline\") (70 . 8) (71 . 2) (72 . 6) (73 . 3) (74 . 0) (40 "
     ". 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0)"
     " (40 . 1.0) (10 0.0 0.0 0.0) (10 5.0 8.0 0.0) (10 10.0 0.0 0.0)",
     "(62 . 2)"},
    {"(0 . \"SOLID\") (10 0.0 0.0 0.0) (11 3.0 0.0 0.0) (12 0.0 3.0 0.0) (13 3.0 3.0 0.0)", "(13 4.0 4.0 0.0)"},
    {"(0 . \"TRACE\") (10 0.0 0.0 0.0) (11 3.0 0.0 0.0) (12 0.0 3.0 0.0) (13 3.0 3.0 0.0)", "(13 4.0 4.0 0.0)"},
    {"(0 . \"3DFACE\") (10 0.0 0.0 0.0) (11 3.0 0.0 1.0) (12 3.0 3.0 2.0) (13 0.0 3.0 1.0) (70 . 2)", "(70 . 0)"},
    {"(0 . \"RAY\") (100 . \"AcDbEntity\") (100 . \"AcDbRay\") (10 1.0 2.0 0.0) (11 0.0 1.0 0.0)", "(11 1.0 0.0 0.0)"},
    {"(0 . \"XLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbXline\") (10 1.0 2.0 0.0) (11 0.0 1.0 0.0)",
     "(11 1.0 0.0 0.0)"},
    {"(0 . \"HATCH\") (100 . \"AcDbEntity\") (100 . \"AcDbHatch\") (10 0.0 0.0 0.0) (210 0.0 0.0 1.0) (2 . \"SOLID\") "
     "(70 . 1) (71 . 0) (91 . 1) (92 . 3) (72 . 0) (73 . 1)"
     " (93 . 3) (10 0.0 0.0) (10 5.0 0.0) (10 5.0 5.0) (97 . 0) (75 . 0) (76 . 1) (98 . 0)",
     "(62 . 3)"},
    {"(0 . \"LEADER\") (100 . \"AcDbEntity\") (100 . \"AcDbLeader\") (3 . \"Standard\") (71 . 1) (72 . 0) (73 . 3) (74 "
     ". 0) (75 . 0) (40 . 0.0) (41 . 0.0) (76 . 2)"
     " (10 0.0 0.0 0.0) (10 5.0 5.0 0.0)",
     "(71 . 0)"},
    {"(0 . \"TOLERANCE\") (100 . \"AcDbEntity\") (100 . \"AcDbFcf\") (3 . \"Standard\") (10 1.0 2.0 0.0) (1 . \"x\") "
     "(11 1.0 0.0 0.0)",
     "(1 . \"y\")"},
    {"(0 . \"MLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbMline\") (2 . \"STANDARD\") (40 . 1.0) (70 . 0) (71 . 1) (72 "
     ". 0) (73 . 0) (10 0.0 0.0 0.0)",
     "(40 . 2.0)"},
    {"(0 . \"WIPEOUT\") (100 . \"AcDbEntity\") (100 . \"AcDbWipeout\") (90 . 0) (10 0.0 0.0 0.0) (11 1.0 0.0 0.0) (12 "
     "0.0 1.0 0.0) (13 1.0 1.0 0.0) (70 . 7) (71 . 1) (91 . 2)"
     " (14 -0.5 -0.5) (14 0.5 0.5)",
     "(71 . 2)"},
    {"(0 . \"PLV_INCONNU\") (100 . \"AcDbEntity\") (100 . \"ClasseDAilleurs\") (10 1.0 2.0 3.0) (290 . 1) (160 . 5) (1 "
     ". \"a\")",
     "(1 . \"b\")"}};

const Made kObjects[] = {
    {"(0 . \"XRECORD\") (100 . \"AcDbXrecord\") (280 . 1) (1 . \"texte\") (10 1.0 2.0 3.0) (40 . 2.5) (70 . 7) (90 . "
     "70000) (290 . 1)",
     "(40 . 3.5)"},
    {"(0 . \"DICTIONARY\") (100 . \"AcDbDictionary\") (280 . 1) (281 . 1)", "(280 . 0)"},
    {"(0 . \"DICTIONARYVAR\") (100 . \"DictionaryVariables\") (280 . 0) (1 . \"2\")", "(1 . \"3\")"},
    {"(0 . \"LAYER_FILTER\") (100 . \"AcDbFilter\") (100 . \"AcDbLayerFilter\") (8 . \"0\")", "(8 . \"AXE\")"},
    {"(0 . \"OBJET_D_AILLEURS\") (100 . \"ClasseDAilleurs\") (90 . 3) (1 . \"a\")", "(1 . \"b\")"}};

// (contient e groupes): the groups stand in that order in the entity, others between them.
constexpr const char* kContains = R"((progn
  (defun contient (liste groupes / g)
    (while (and groupes liste)
      (setq g (car liste) liste (cdr liste))
      (if (equal g (car groupes) 1e-12) (setq groupes (cdr groupes))))
    (null groupes))
  (defun manque (e groupes) (if (contient (entget e) groupes) nil (entget e))))
  )";

class EveryClass : public testing::Test {
 protected:
  EveryClass()
      : path_(std::filesystem::temp_directory_path() / ("kavel-classes-" + std::to_string(getpid()) + ".dxf")) {
    prepare(session_.emplace(false));
  }
  ~EveryClass() override { std::filesystem::remove(path_); }
  static void prepare(Session& session) {
    session.eval(kContains);
    session.eval(
        "(progn (entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0.0 0.0 0.0))) (entmake '((0 . \"POINT\") (10 0.0 "
        "0.0 0.0))) (entmake '((0 . \"ENDBLK\"))))");
  }
  std::string eval(const std::string& lisp) { return session_->eval(lisp); }
  // Makes one, changes it, and checks both times that it has all the groups given; gives its handle.
  std::string makeAndChange(const Made& made, bool entity) {
    SCOPED_TRACE(made.groups);
    const std::string groups = std::string("'(") + made.groups + ")";
    if (entity) eval("(progn (entmake " + groups + ") (setq e (entlast)))");
    else
      eval("(progn (setq e (entmakex " + groups +
           ")) (dictadd (namedobjdict) (strcat \"ESSAI\" (cdr (assoc 5 (entget e)))) e))");
    EXPECT_EQ(eval("(manque e " + groups + ")"), "nil");
    const std::string change = std::string("'") + made.change;
    EXPECT_NE(eval("(entmod (if (assoc (car " + change + ") (entget e)) (subst " + change + " (assoc (car " + change +
                   ") (entget e)) (entget e))"
                   " (append (entget e) (list " +
                   change + "))))"),
              "nil");
    EXPECT_EQ(eval("(manque e (list " + change + "))"), "nil");
    return eval("(cdr (assoc 5 (entget e)))");
  }
  void reopen() {
    session_->document().save(path_.string());
    session_.emplace(false, path_.string());
    session_->eval(kContains);
  }

 private:
  std::optional<Session> session_;
  std::filesystem::path path_;
};

TEST_F(EveryClass, IsMadeReadChangedAndKept) {
  std::vector<std::pair<std::string, std::string>> before;
  const auto note = [&](const std::string& handle) {
    before.emplace_back(handle, eval("(cddr (entget (handent " + handle + ")))"));
  };
  for (const Made& made : kEntities) note(makeAndChange(made, true));
  for (const Made& made : kObjects) note(makeAndChange(made, false));
  reopen();
  // Names of entities are addresses; everything else is the same.
  const auto bare = [](std::string text) {
    for (std::size_t at; (at = text.find("<Entity name: ")) != text.npos;) text.erase(at, text.find('>', at) + 1 - at);
    return text;
  };
  for (const auto& [handle, groups] : before)
    EXPECT_EQ(bare(eval("(cddr (entget (handent " + handle + ")))")), bare(groups)) << handle;
}

// entmake of what entget gives is another one like it.
TEST_F(EveryClass, IsMadeAgainFromItsOwnGroups) {
  for (const Made& made : kEntities) {
    SCOPED_TRACE(made.groups);
    eval(std::string("(progn (entmake '(") + made.groups +
         ")) (setq e (entlast)) (entmake (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330))) (entget e))))");
    EXPECT_EQ(eval("(list (eq e (entlast)) (equal (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330))) (entget e))"
                   " (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330))) (entget (entlast)))))"),
              "(nil T)");
  }
}

// A group of the wrong type is refused by name, and nothing is made of it.
TEST_F(EveryClass, WrongGroupsMakeNothing) {
  const char* const rows[][2] = {
      {"(entmake '((0 . \"LINE\") (10 1.0 2.0 3.0) (11 . 4)))", "bad DXF group: (11 . 4)"},
      {"(entmake '((0 . \"CIRCLE\") (10 1.0 2.0 3.0) (40 . \"x\")))", "bad DXF group: (40 . \"x\")"},
      {"(entmake '((0 . \"TEXT\") (10 1.0 2.0 3.0) (40 . 2.5) (1 . 7)))", "bad DXF group: (1 . 7)"},
      {"(entmake '((0 . \"POINT\") (10 1.0 2.0 3.0) (62 . \"rouge\")))", "bad DXF group: (62 . \"rouge\")"},
      {"(entmake '(0 . 1))", "bad DXF group: 0"},
      {"(entmake 7)", "bad argument type: listp 7"}};
  for (const auto& row : rows) {
    try {
      const std::string value = eval(row[0]);
      EXPECT_EQ(value, "nil") << row[0];
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(row[1]), std::string::npos) << error.what();
    }
    EXPECT_EQ(eval("(entlast)"), "nil") << row[0];
  }
}

}  // namespace
}  // namespace kaveltest
