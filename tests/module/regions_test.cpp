// Areas of regions whose outline is in solid-model data: lines and arcs, a hole, a scale; and the form of later
// drawings, written by an independent library.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/session.h"

namespace {

std::string hidden(std::string text) {
  for (char& c : text)
    if (c > ' ') c = static_cast<char>(159 - c);
  return text;
}

// The expression that makes a region of these lines; backslashes and quotes of the hidden text are protected.
std::string regionOf(std::initializer_list<const char*> lines) {
  std::string lisp = "(entmake '((0 . \"REGION\") (100 . \"AcDbEntity\") (100 . \"AcDbModelerGeometry\") (70 . 1)";
  for (const char* line : lines) {
    lisp += " (1 . \"";
    for (const char c : hidden(line)) {
      if (c == '\\' || c == '"') lisp += '\\';
      lisp += c;
    }
    lisp += "\")";
  }
  return lisp + "))";
}

TEST(Regions, HalfDiscWithARoundHoleAndAScale) {
  kaveltest::Session session;
  // A half disc of radius 2 below its diameter, run against its ellipse's sense, less a disc of radius 0.5; scale 3.
  ASSERT_NE(session.eval(regionOf({"400 0 1 0",
                                   "@5 Kavel @8 ACIS 4.0 @4 date",
                                   "1 9.9999999999999995e-007 1e-010",
                                   "body $-1 $1 $-1 $2 #",
                                   "lump $-1 $-1 $3 $0 #",
                                   "transform $-1 1 0 0 0 1 0 0 0 1 7 8 0 3 no_rotate no_reflect no_shear #",
                                   "shell $-1 $-1 $-1 $4 $-1 $1 #",
                                   "face $-1 $-1 $5 $3 $-1 $6 forward single #",
                                   "loop $-1 $7 $8 $4 #",
                                   "plane-surface $-1 0 0 0 0 0 1 1 0 0 forward_v I I I I #",
                                   "loop $-1 $-1 $10 $4 #",
                                   "coedge $-1 $9 $9 $-1 $11 forward $5 $-1 #",
                                   "coedge $-1 $8 $8 $-1 $12 reversed $5 $-1 #",
                                   "coedge $-1 $10 $10 $-1 $13 reversed $7 $-1 #",
                                   "edge $-1 $14 $15 $8 $17 forward #",
                                   "edge $-1 $14 $15 $9 $18 reversed #",
                                   "edge $-1 $16 $16 $10 $19 forward #",
                                   "vertex $-1 $11 $20 #",
                                   "vertex $-1 $11 $21 #",
                                   "vertex $-1 $13 $22 #",
                                   "straight-curve $-1 2 0 0 -1 0 0 I I #",
                                   "ellipse-curve $-1 0 0 0 0 0 1 2 0 0 1 I I #",
                                   "ellipse-curve $-1 0 -1 0 0 0 1 0.5 0 0 1 F 0 F 6.3 #",
                                   "point $-1 2 0 0 #",
                                   "point $-1 -2 0 0 #",
                                   "point $-1 0.5 -1 0 #",
                                   "End-of-ACIS-data"})),
            "nil");
  // 9 (2 pi - pi / 4)
  EXPECT_EQ(session.eval("(rtos (pl_areacalc (entlast) 1.0) 2 9)"), "\"49.480084294\"");
  EXPECT_EQ(session.eval(
                "(mapcar '(lambda (v) (mapcar 'rtos (reverse (cdr (reverse (getvar v)))))) '(\"EXTMIN\" \"EXTMAX\"))"),
            R"((("1" "2") ("13" "8")))")
      << "what is shown: the half below the diameter, placed and scaled";
  session.eval("(command \"_EXPLODE\" (entlast))");
  EXPECT_EQ(session.eval("(mapcar '(lambda (k) (sslength (ssget \"_X\" (list (cons 0 k))))) '(\"LINE\" \"ELLIPSE\"))"),
            "(1 2)");
  session.eval(
      regionOf({"400 0 1 0", "a", "b", "edge $-1 $0 $0 $0 $0 forward #", "coedge $-1 $1 $1 $-1 $0 forward $5 $-1 #"}));
  EXPECT_EQ(session.eval("(pl_areacalc (entlast) 1.0)"), "nil") << "an outline that can't be followed";
}

// A cubic from 0,0 to 4,0 that rises to 3, placed 10 to the right; the edge runs against it from 4,0 back.
TEST(Regions, EdgesAlongSplinesAreShown) {
  kaveltest::Session session;
  session.eval(
      regionOf({"400 0 1 0", "a", "b", "transform $-1 1 0 0 0 1 0 0 0 1 10 0 0 1 no_rotate no_reflect no_shear #",
                "edge $-1 $3 $2 $-1 $4 reversed #", "vertex $-1 $1 $5 #", "vertex $-1 $1 $6 #",
                "intcurve-curve $-1 forward { exactcur nubs 3 open 2 0 3 1 3 0 0 0 0 4 0 4 4 0 4 0 0 0 } I I #",
                "point $-1 0 0 0 #", "point $-1 4 0 0 #", "End-of-ACIS-data"}));
  EXPECT_EQ(session.eval("(list (rtos (car (getvar \"EXTMIN\")) 2 3) (rtos (car (getvar \"EXTMAX\")) 2 3) (rtos (cadr "
                         "(getvar \"EXTMAX\")) 2 3))"),
            R"(("10" "14" "3"))");
  EXPECT_EQ(session.eval("(pl_areacalc (entlast) 1.0)"), "nil") << "an area is of lines and arcs";
}

TEST(Regions, OfOtherProgramsInBothForms) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kavel-regions";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "regions.py") << R"(
import sys, ezdxf
from ezdxf.acis import api
from ezdxf.render import MeshBuilder
for version in ("R2000", "R2018"):
    doc = ezdxf.new(version)
    mesh = MeshBuilder()
    mesh.add_face([(0, 0, 0), (4, 0, 0), (4, 3, 0), (1, 5, 0)])
    api.export_dxf(doc.modelspace().add_region(), [api.body_from_mesh(mesh)])
    doc.saveas(f"{sys.argv[1]}/{version}.dxf")
)";
  const std::string command = "/usr/bin/python3 " + (folder / "regions.py").string() + " " + folder.string();
  ASSERT_EQ(std::system(command.c_str()), 0);
  for (const char* version : {"R2000", "R2018"}) {
    kaveltest::Session session(true, (folder / (std::string(version) + ".dxf")).string());
    EXPECT_EQ(session.eval("(pl_areacalc (ssname (ssget \"_X\" '((0 . \"REGION\"))) 0) 1.0)"), "14.5") << version;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
