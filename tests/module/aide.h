// What the tests of the module share: LISP that builds a profile and a drawn matrix, and rows of calls with
// their value. Everything goes through the functions that a front-end calls.
#pragma once
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "atelier/base/error.h"
#include "atelier/base/interruption.h"
#include "hote/acdb.h"
#include "module/profil/chaines.h"
#include "tests/support/session.h"

namespace kaveltest {

// One call and what prin1 prints of its value.
struct Row {
  const char* lisp;
  const char* value;
};

inline void check(Session& session, std::initializer_list<Row> rows) {
  for (const Row& row : rows) EXPECT_EQ(session.eval(row.lisp), row.value) << row.lisp;
}

// Functions that describe entities in short texts: (vu) those made since the last (marque).
inline constexpr const char* kOutils = R"((progn
  (setvar "DIMZIN" 0)
  (defun n (x) (rtos x 2 2))
  (defun xy (c e / p) (setq p (cdr (assoc c e))) (strcat (n (car p)) "," (n (cadr p))))
  (defun g (c e / v) (if (setq v (assoc c e)) (cdr v) 0))
  (defun deg (a) (rtos (* 180 (/ a pi)) 2 0))
  (defun texte (e / cale)
    (setq cale (strcat (itoa (g 72 e)) "/" (itoa (g 73 e))))
    (strcat (g 1 e) " @" (xy (if (= cale "0/0") 10 11) e) " h" (n (g 40 e)) " r" (deg (g 50 e)) " " cale))
  (defun decrire (en / e type)
    (setq e (entget en) type (g 0 e))
    (cond ((= type "TEXT") (texte e))
          ((= type "LINE") (strcat "LINE " (xy 10 e) " " (xy 11 e)))
          ((= type "ARC") (strcat "ARC " (xy 10 e) " r" (n (g 40 e)) " " (deg (g 50 e)) " " (deg (g 51 e))))
          ((= type "INSERT") (strcat "INSERT " (xy 10 e)))
          (T type)))
  (defun marque () (setq repere (entlast)))
  (defun depuis (m / e l)
    (setq e (if m (entnext m) (entnext)))
    (while (and e (member (g 0 (entget e)) '("ATTRIB" "SEQEND"))) (setq e (entnext e)))
    (while e (setq l (cons e l) e (entnext e)))
    (reverse l))
  (defun vu () (mapcar 'decrire (depuis repere)))))";

// The profile `prf` at (100,50): number P1, vertical scale 10, two sections of 100 and 50 m whose planes are
// at 95 and 100 m, four points of natural ground at 0, 40, 100 and 150 m, and a key of the front-end's own.
inline constexpr const char* kProfil = R"((progn
  (regapp "PLV2_DATA")
  (defun handle (e) (cdr (assoc 5 (entget e))))
  (defun point () (entmake '((0 . "POINT") (10 0.0 0.0 0.0))) (entlast))
  (defun reference (nom tag texte x)
    (entmake (list '(0 . "INSERT") '(66 . 1) (cons 2 nom) (list 10 x 50.0 0.0)))
    (entmake (list '(0 . "ATTRIB") (list 10 x 50.0 0.0) '(40 . 2.5) (cons 1 texte) (cons 2 tag) '(70 . 0)))
    (entmake '((0 . "SEQEND")))
    (entlast))
  (entmake '((0 . "BLOCK") (2 . "PROFIL") (70 . 2) (10 0.0 0.0 0.0)))
  (entmake '((0 . "ATTDEF") (10 0.0 0.0 0.0) (40 . 2.5) (1 . "") (2 . "NUMPL") (3 . "Numero") (70 . 0)))
  (entmake '((0 . "ENDBLK")))
  (setq prf (reference "PROFIL" "NUMPL" "P1" 100.0) pc1 (point) pc2 (point))
  (plsxd pc1 "DISTANCE" 100.0) (plsxd pc1 "PC" 95.0) (plsxd pc1 "NEXT-PC" pc2)
  (plsxd pc2 "DISTANCE" 50.0) (plsxd pc2 "PC" 100.0)
  (plsxd prf "ECHV" 10.0) (plsxd prf "TTXT" 2.5) (plsxd prf "ID" 7) (plsxd prf "PRPC" pc1)
  (plsxd prf "FRONTAL" "complet")
  (mapcar '(lambda (c) (pl_add_xdata (car c) (cadr c) (handle prf)))
          '((0.0 100.0) (40.0 102.0) (60.0 101.0) (50.0 104.0)))))";

// The matrix M, drawn at (0,0) with text height 1: row "1" of height 1.5 and type 0, row "2" of height 2 and
// type 13, which lies between -1.5 and -3.5 and is selected, and row "3" of height 40, from -3.5 to -43.5.
inline constexpr const char* kMatrice = R"((progn
  (pl_ResetMatrices)
  (pl_DefinirLigneMatrice "M" "1" "Altitude" 1.5 0)
  (pl_DefinirLigneMatrice "M" "2" "Distances" 2.0 13)
  (pl_DefinirLigneMatrice "M" "3" "Observations" 40.0 9)
  (pl_DessinerMatrices prf '(0.0 0.0 0.0) 1.0 5.0)
  (pl_SelectLigne 0 1)))";

// While one lives, the user interrupts at the given look for it.
struct Interrupted {
  explicit Interrupted(int looks) {
    left = looks;
    atelier::setInterruptionQuestion([] { return --left <= 0; });
  }
  ~Interrupted() { atelier::setInterruptionQuestion(nullptr); }
  static inline int left = 0;
};

// A drawing with the profile and the matrix.
struct ProfilDessine : ::testing::Test {
  ProfilDessine() {
    session.eval(kOutils);
    session.eval(kProfil);
    session.eval(kMatrice);
  }
  // The entities that a call makes, described.
  std::string drawn(const std::string& call) { return session.eval("(progn (marque) " + call + " (vu))"); }
  // The same in the tall row.
  std::string drawnTall(const std::string& call) {
    session.eval("(pl_SelectLigne 0 2)");
    return drawn(call);
  }
  // The id of the entity that a symbol holds.
  AcDbObjectId id(const std::string& symbol) {
    const std::string quoted = session.eval("(cdr (assoc 5 (entget " + symbol + ")))");
    AcDbObjectId found;
    plv::handleVersId(std::wstring(quoted.begin() + 1, quoted.end() - 1), found);
    return found;
  }
  Session session;
};

}  // namespace kaveltest
