// System variables: types, limits, and what they follow from.
#include "tests/support/bare_host.h"

namespace kaveltest {

using Variables = DrawingTest;

TEST_F(Variables, AreReadAndSet) {
  check({{"(getvar \"osmode\")", "4133"},
         {"(setvar 'OSMODE 0)", "0"},
         {"(getvar 'osmode)", "0"},
         {"(getvar \"ABSENTE\")", "nil"},
         {"(setvar \"ABSENTE\" 1)", "! variable setting rejected: \"ABSENTE\" 1"},
         {"(setvar \"ORTHOMODE\" 2)", "! variable setting rejected: \"ORTHOMODE\" 2"},
         {"(setvar \"OSMODE\" \"x\")", "! variable setting rejected: \"OSMODE\" \"x\""},
         {"(setvar \"ACADVER\" \"9\")", "! variable setting rejected: \"ACADVER\" \"9\""},
         {"(getvar 3)", "! bad argument type: (or stringp symbolp): 3"},
         {"(progn (setvar \"TEXTSIZE\" 3) (getvar \"TEXTSIZE\"))", "3.0"},
         {"(progn (setvar \"USERR3\" 1.25) (getvar \"USERR3\"))", "1.25"},
         {"(progn (setvar \"USERS2\" \"été\") (getvar \"USERS2\"))", "\"été\""},
         {"(getvar \"DIMSCALE\")", "1.0"},
         {"(progn (setvar \"DIMTXT\" 2) (getvar \"DIMTXT\"))", "2.0"},
         {"(substr (getvar \"ACADVER\") 1 2)", "\"22\""},
         {"(list (getvar \"INSUNITS\") (getvar \"TILEMODE\") (getvar \"CVPORT\") (getvar \"CTAB\"))",
          "(6 1 2 \"Model\")"},
         {"(progn (setvar \"LASTPOINT\" '(1 2)) (getvar \"LASTPOINT\"))", "(1.0 2.0 0.0)"},
         {"(type (getvar \"MILLISECS\"))", "INT"},
         {"(< 20200101.0 (getvar \"CDATE\") 21000101.0)", "T"},
         {"(< 2458849.0 (getvar \"DATE\") 2488070.0)", "T"}});
}

TEST_F(Variables, FollowFromTheDrawing) {
  run(kTools);
  check({{"(setvar \"CLAYER\" \"absent\")", "! variable setting rejected: \"CLAYER\" \"absent\""},
         {"(progn (line '(-1. -2. 0.) '(3. 4. 0.)) (list (getvar \"EXTMIN\") (getvar \"EXTMAX\")))",
          "((-1.0 -2.0 0.0) (3.0 4.0 0.0))"},
         {"(getvar \"CECOLOR\")", "\"BYLAYER\""},
         {"(progn (setvar \"CECOLOR\" \"rouge\") (getvar \"CECOLOR\"))", "\"1\""},
         {"(progn (command \"LINE\" '(0 0) '(1 0) \"\") (last-g 62))", "1"},
         {"(setvar \"CELTYPE\" \"absent\")", "! variable setting rejected: \"CELTYPE\" \"absent\""},
         {"(getvar \"DWGNAME\")", "\"Dessin1.dxf\""},
         {"(getvar \"DWGTITLED\")", "0"},
         {"(progn (setvar \"ANGBASE\" 1.0) (rtos (getvar \"ANGBASE\") 2 4))", "\"1.0000\""},
         {"(trans '(1. 2. 3.) 0 1)", "(1.0 2.0 3.0)"},
         {"(trans '(1. 2. 3.) '(0. 0. -1.) 0)", "(-1.0 2.0 -3.0)"},
         {"(trans '(1. 2. 3.) 0 7)", "! bad argument value: 7"},
         {"(startapp \"rm\")", "! SECURELOAD refuse de charger rm"}});
}

// Every row states what it is for, and its default lies within its own limits.
TEST_F(Variables, EveryOneCanBeRead) {
  for (const char* name :
       {"PICKBOX",  "VIEWSIZE", "VIEWCTR", "SCREENSIZE", "PLATFORM",    "LOCALE",    "TEMPPREFIX", "UNDOCTL",
        "WORLDUCS", "UCSNAME",  "PDMODE",  "LTSCALE",    "FILLMODE",    "MIRRTEXT",  "DBMOD",      "SPLINESEGS",
        "PLINEWID", "DELOBJ",   "DIMZIN",  "DIMSTYLE",   "MEASUREMENT", "DWGPREFIX", "SAVENAME"})
    EXPECT_NE(run(std::string("(getvar \"") + name + "\")"), "nil") << name;
}

}  // namespace kaveltest
