// Copies of groups: with all their members, with a part of them.
// The copy of a member knows the copy of its group.
#include "tests/support/bare_host.h"

namespace kaveltest {

class Groups : public DrawingTest {
 protected:
  void prepare(const std::string& lisp) { EXPECT_FALSE(run(lisp).starts_with('!')) << run(lisp); }

  void SetUp() override {
    run(kaveltest::kTools);
    prepare(R"((progn
      (setq groups (cdr (assoc -1 (dictsearch (namedobjdict) "ACAD_GROUP"))))
      (setq a (line '(0. 0. 0.) '(1. 0. 0.)) b (line '(0. 1. 0.) '(1. 1. 0.)) c (line '(0. 2. 0.) '(1. 2. 0.)))
      (dictadd groups "PAIRE" (setq pair (entmakex (list '(0 . "GROUP") '(100 . "AcDbGroup") '(300 . "deux") '(70 . 0) '(71 . 1)
        (cons 340 a) (cons 340 b)))))
      (foreach e (list a b) (entmod (append (list (assoc -1 (entget e)) '(102 . "{ACAD_REACTORS") (cons 330 pair) '(102 . "}")) (cdr (entget e)))))
      (defun members (d) (mapcar 'cdr (vl-remove-if-not '(lambda (p) (= (car p) 340)) d)))
      (defun all (/ d r) (setq d (dictnext groups T)) (while d (setq r (cons d r) d (dictnext groups))) (reverse r))
      (defun names () (mapcar 'cdr (vl-remove-if-not '(lambda (p) (= (car p) 3)) (entget groups)))))
    )");
  }
};

// A copy of a group has no name of its own; a group of which a part is copied isn't copied.
TEST_F(Groups, AreCopiedWithAllTheirMembers) {
  check({{"(mapcar 'length (mapcar 'members (all)))", "(2)"},
         {"(progn (command \"_COPY\" a c \"\" \"0,10\" \"\") (names))", "(\"PAIRE\")"},
         {"(progn (command \"_COPY\" a b \"\" \"0,20\" \"\") (names))", "(\"PAIRE\" \"*A1\")"},
         {"(cdr (assoc 300 (cadr (all))))", "\"deux\""},
         {"(cdr (assoc 70 (cadr (all))))", "1"},
         {"(mapcar '(lambda (e) (cadr (g 10 e))) (members (cadr (all))))", "(20.0 21.0)"},
         {"(equal (members (car (all))) (list a b))", "T"},
         {"(equal (cdr (assoc 330 (entget (entlast)))) (cdr (assoc -1 (cadr (all)))))", "T"},
         {"(progn (command \"_UNDO\" \"1\") (names))", "(\"PAIRE\")"}});
}

}  // namespace kaveltest
