// Copies of a profile with its tables: working on the copy leaves the original as it was, group by group.
// Every way that a user has to a copy: commands, a step back and forth, the saved drawing inserted.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

constexpr const char* kStates = R"((progn
  (defun entities (/ e r) (setq e (entnext)) (while e (setq r (cons e r) e (entnext e))) (reverse r))
  (defun records (e / x d r) (setq x (cdr (assoc 360 (member '(102 . "{ACAD_XDICTIONARY") (entget e)))))
    (if x (progn (setq d (dictnext x T)) (while d (setq r (cons d r) d (dictnext x)))))
    r)
  (defun state (l) (mapcar '(lambda (e) (list (entget e '("*")) (records e))) l))
  (defun pointers (e) (apply 'append (mapcar '(lambda (r) (mapcar 'cdr (vl-remove-if-not '(lambda (p)
    (and (= (car p) 330) (cdr p) (entget (cdr p)))) (member '(100 . "AcDbXrecord") r)))) (records e))))
  (defun copied (before) (vl-remove-if '(lambda (e) (member e before)) (plv-profils))))
)";

// A street with tables: PLV-MATRICES on its copy erases the tables of the copy, found by their groups.
TEST(ProfileCopies, TheirTablesAreTheirOwn) {
  const struct {
    const char *way, *typed;
  } rows[] = {
      {"COPY", "COPY\nALL\n\n0,-500\n\n"},
      {"MIRROR", "MIRROR\nALL\n\n0,-200\n10,-200\nNon\n"},
      {"SCALE", "SCALE\nALL\n\n0,-200\nCopier\n1\n"},
      {"undone and done again", "COPY\nALL\n\n0,-500\n\nUNDO\n1\nREDO\n"},
      {"exploded", "-INSERT\nstreet\n0,-900\n1\n1\n0\nEXPLODE\nLAST\n\n"},
      {"inserted as objects", "-INSERT\n*street\n0,-900\n1\n0\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.way);
    FrontEnd session;
    session.file("ground.csv", "0;52\n40;53\n100;51\n200;52\n");
    session.file("tables.txt", "ROUTE 1 2.0 0 Numero\nROUTE 2 6.0 4 Terrain\nAUTRE 1 6.0 3 Distances\n");
    session.document().addSupport(session.path(""));
    session.eval(kStates);
    session.eval(
        "(plv-matrices (plv-nouveau \"ground.csv\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 150.0 nil) \"tables.txt\" T)");
    session.feed("SAVEAS\n" + session.path("street.dxf") + "\n");
    session.eval("(setq before (entities) profiles (plv-profils) first (state before))");
    const std::string said = session.feed(row.typed);
    EXPECT_EQ(session.eval("(length (setq made (copied profiles)))"), "1") << said;
    EXPECT_EQ(session.eval("(equal first (state before))"), "T");
    // Its records name nothing of the original; the style, which a drawing has once, is no entity.
    EXPECT_EQ(session.eval("(vl-remove-if-not '(lambda (e) (member e before)) (apply 'append (mapcar 'pointers "
                           "(cons (car made) (plv-references-tables (car made))))))"),
              "nil");
    EXPECT_EQ(
        session.eval("(mapcar '(lambda (r) (length (plv-entites-table r))) (plv-references-tables (car made)))"),
        session.eval("(mapcar '(lambda (r) (length (plv-entites-table r))) (plv-references-tables (car profiles)))"));
    session.eval("(plv-matrices (car made) \"tables.txt\" T)");
    EXPECT_EQ(session.eval("(equal first (state before))"), "T");
  }
}

}  // namespace
