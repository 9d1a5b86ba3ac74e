// rtos, angtos, distof, angtof, cvunit and plane geometry.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Units = LispTest;

TEST_F(Units, Distances) {
  check({{"(rtos 17.5 1 4)", "\"1.7500E+01\""},
         {"(rtos 17.5 2 2)", "\"17.50\""},
         {"(rtos 17.5 3 2)", "\"1'-5.50\\\"\""},
         {"(rtos 17.5 4 2)", "\"1'-5 1/2\\\"\""},
         {"(rtos 17.5 5 2)", "\"17 1/2\""},
         {"(rtos 17.5)", "\"17.5000\""},
         {"(rtos -0.001 2 2)", "\"0.00\""},
         {"(rtos 0.125 2 2)", "\"0.13\""},
         {"(rtos -2.5 2 0)", "\"-3\""},
         {"(rtos 9.9999 2 2)", "\"10.00\""},
         {"(rtos 123456789.123456789 2 3)", "\"123456789.123\""},
         {"(rtos -6.5 4 2)", "\"-6 1/2\\\"\""},
         {"(rtos 12 4 2)", "\"1'\""},
         {"(rtos 11.99 4 2)", "\"1'\""},
         {"(rtos 0 4 2)", "\"0\\\"\""},
         {"(rtos 12.5 4 2)", "\"1'-0 1/2\\\"\""},
         {"(rtos 11.999 3 2)", "\"1'\""},
         {"(rtos 0.25 5 3)", "\"1/4\""},
         {"(rtos 1 9)", "! bad argument value: unit mode: 9"},
         {"(rtos \"1\")", "! bad argument type: numberp: \"1\""}});
}

TEST_F(Units, ZeroSuppression) {
  variables.settings["DIMZIN"] = 8;
  check({{"(rtos 12.5 2 4)", "\"12.5\""},
         {"(rtos 12.0 2 4)", "\"12\""},
         {"(rtos 0.0 2 2)", "\"0\""},
         {"(rtos 100 2 0)", "\"100\""},
         {"(rtos 17.5 1 4)", "\"1.75E+01\""},
         {"(angtos 0.785398163397448 0 4)", "\"45\""}});
  variables.settings["DIMZIN"] = 4;
  check({{"(rtos 0.5 2 2)", "\".50\""}, {"(rtos -0.5 2 2)", "\"-.50\""}, {"(rtos 10.5 2 1)", "\"10.5\""}});
  variables.settings["DIMZIN"] = 1;
  check({{"(rtos 6.5 4 2)", "\"0'-6 1/2\\\"\""}, {"(rtos 12 4 2)", "\"1'-0\\\"\""}});
  variables.settings["DIMZIN"] = 0;
  variables.settings["UNITMODE"] = 1;
  check({{"(rtos 17.5 4 2)", "\"1'5-1/2\\\"\""}, {"(rtos 17.5 5 2)", "\"17-1/2\""}});
}

TEST_F(Units, DefaultsComeFromTheDrawing) {
  variables.settings["LUNITS"] = 5;
  variables.settings["LUPREC"] = 3;
  variables.settings["AUNITS"] = 1;
  variables.settings["AUPREC"] = 4;
  check({{"(rtos 1.375)", "\"1 3/8\""}, {"(angtos 0.5)", "\"28d38'52\\\"\""}});
  variables.settings["ANGBASE"] = 1.5707963267948966;
  variables.settings["ANGDIR"] = 1;
  check({{"(angtos 0.0 0 0)", "\"90\""}, {"(angtof \"90\" 0)", "0.0"}});
}

TEST_F(Units, Angles) {
  check({{"(angtos 0.785398163397448 0 4)", "\"45.0000\""},
         {"(angtos 0.785398163397448 1 4)", "\"45d0'0\\\"\""},
         {"(angtos 0.785398163397448 2 4)", "\"50.0000g\""},
         {"(angtos 0.785398163397448 3 4)", "\"0.7854r\""},
         {"(angtos 0.785398163397448 4 4)", "\"N 45d0'0\\\" E\""},
         {"(angtos -0.785398163397448 0 0)", "\"315\""},
         {"(angtos 6.28318530717 0 0)", "\"0\""},
         {"(angtos 1.8622 0 0)", "\"107\""},
         {"(angtos 1.8622 1 2)", "\"106d42'\""},
         {"(angtos 1.0 1 6)", "\"57d17'44.81\\\"\""},
         {"(angtos 0 4 2)", "\"E\""},
         {"(angtos 2.0 4 2)", "\"N 24d35' W\""},
         {"(angtos 4.0 4 2)", "\"S 40d49' W\""},
         {"(angtos 6.0 4 2)", "\"S 73d46' E\""}});
}

TEST_F(Units, Parsing) {
  check({{"(distof \"17.5\" 2)", "17.5"},
         {"(distof \"1.75E+01\" 1)", "17.5"},
         {"(distof \"1'-5.50\\\"\" 3)", "17.5"},
         {"(distof \"1'-5 1/2\\\"\" 4)", "17.5"},
         {"(distof \"1'5-1/2\\\"\" 4)", "17.5"},
         {"(distof \"2'\" 4)", "24.0"},
         {"(distof \"17 1/2\" 5)", "17.5"},
         {"(distof \"-1/2\" 5)", "-0.5"},
         {"(distof \"abc\")", "nil"},
         {"(distof \"12x\" 2)", "nil"},
         {"(distof \"\")", "nil"},
         {"(angtof \"45.0000\")", "0.785398"},
         {"(angtof \"45d30'\" 1)", "0.794125"},
         {"(angtof \"50g\")", "0.785398"},
         {"(angtof \"1.5r\")", "1.5"},
         {"(angtof \"1.5\" 3)", "1.5"},
         {"(angtof \"N 45d E\" 4)", "0.785398"},
         {"(angtof \"W\" 4)", "3.14159"},
         {"(angtof \"north\" 4)", "nil"},
         {"(angtof \"-90\")", "4.71239"}});
}

TEST_F(Units, Conversion) {
  check({{"(cvunit 1 \"minute\" \"second\")", "60.0"},
         {"(cvunit 1.0 \"inch\" \"cm\")", "2.54"},
         {"(cvunit '(1.0 2.5) \"ft\" \"in\")", "(12.0 30.0)"},
         {"(cvunit 1 \"acre\" \"sq yard\")", "4840.0"},
         {"(cvunit 1 \"m^3\" \"litre\")", "1000.0"},
         {"(cvunit 100 \"celsius\" \"fahrenheit\")", "212.0"},
         {"(cvunit 180 \"degree\" \"radian\")", "3.14159"},
         {"(cvunit 1 \"meter\" \"gallon\")", "nil"},
         {"(cvunit 1 \"foo\" \"m\")", "nil"}});
}

TEST_F(Units, Geometry) {
  check({{"(distance '(1.0 2.5 3.0) '(7.7 2.5 3.0))", "6.7"},
         {"(distance '(0 0) '(3 4 12))", "5.0"},
         {"(distance '(0 0 0) '(3 4 12))", "13.0"},
         {"(angle '(1 1) '(1 4))", "1.5708"},
         {"(angle '(5.0 1.33) '(2.4 1.33))", "3.14159"},
         {"(angle '(0 0) '(1 -1))", "5.49779"},
         {"(polar '(1.0 1.0 3.5) 0.785398163397448 1.414213562373095)", "(2.0 2.0 3.5)"},
         {"(polar '(0 0) pi 2)", "(-2.0 2.44929e-16)"},
         {"(inters '(1 1) '(9 9) '(4 1) '(4 2))", "nil"},
         {"(inters '(1 1) '(9 9) '(4 1) '(4 2) nil)", "(4.0 4.0)"},
         {"(inters '(0 0 0) '(2 2 2) '(0 2 1) '(2 0 1))", "(1.0 1.0 1.0)"},
         {"(inters '(0 0 0) '(2 2 2) '(0 2 5) '(2 0 5))", "nil"},
         {"(inters '(0 0) '(1 1) '(1 0) '(2 1))", "nil"},
         {"(distance '(1) '(2 3))", "! bad argument type: 2D/3D point: (1)"},
         {"(polar nil 0 1)", "! bad argument type: 2D/3D point: nil"}});
}

}  // namespace
}  // namespace atelier::lisp
