// Parts of the benchmarks of the module: the module in a document, a profile, the main program.
#pragma once
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "atelier/application/open_drawing.h"
#include "programs/applications.h"

namespace bancs {

inline void evaluate(atelier::Document& document, const std::string& text) {
  if (!document.evaluate(text)) std::abort();
}

// A profile with so many ground points, `step` metres apart at an altitude of 100 m, written in one go; p holds it.
inline void makeProfile(atelier::Document& document, int points, double step, double verticalScale) {
  evaluate(document, R"((progn
    (regapp "PLV2_DATA") (regapp "KELMONT_PLV2")
    (entmake '((0 . "BLOCK") (2 . "P") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
    (entmake '((0 . "INSERT") (2 . "P") (66 . 1) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ATTRIB") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "1") (2 . "NUMPL") (70 . 0)))
    (entmake '((0 . "SEQEND"))) (setq p (entlast))
    (plsxd p "TTXT" 2.5) (plsxd p "LONGUEUR" 1.0) (plsxd p "ECHV" )" +
                         std::to_string(verticalScale) + "))");
  evaluate(document, "(progn (setq l nil) (repeat " + std::to_string(points) + " (setq l (cons '(1040 . " +
                         std::to_string(step) +
                         ") (cons '(1040 . 100.0) l))))"
                         " (entmod (append (entget p) (list (list -3 (cons \"KELMONT_PLV2\" l))))))");
}

inline int run(int argc, char** argv) {
  kavel::registerApplications();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace bancs
