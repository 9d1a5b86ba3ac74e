// The host's functions as handlers call them: selections, variables, coordinate systems; and the tables' own
// rules.
#include <set>

#include "atelier/commands/command_table.h"
#include "hote/acdb.h"
#include "hote/aced.h"
#include "hote/acut.h"
#include "tests/support/bare_host.h"

namespace kaveltest {

class Handlers : public DrawingTest {
 protected:
  void SetUp() override {
    run(kTools);
    run("(progn (line '(0. 0. 0.) '(10. 0. 0.)) (circle '(30. 0. 0.) 5.) (regapp \"RESEAU\")"
        " (entmod (append (entget (entlast)) '((-3 (\"RESEAU\" (1000 . \"x\")))))))");
  }
  static int selected(const ACHAR* mode, const void* a, const void* b, resbuf* filter) {
    ads_name set;
    Adesk::Int32 length = -1;
    const int status = acedSSGet(mode, a, b, filter, set);
    acutRelRb(filter);
    if (status != RTNORM) return status;
    acedSSLength(set, &length);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    return length;
  }
};

TEST_F(Handlers, SelectByChain) {
  const ads_point a = {-1, -1, 0}, b = {11, 1, 0}, empty = {500, 500, 0};
  EXPECT_EQ(selected(L"X", nullptr, nullptr, nullptr), 2);
  EXPECT_EQ(selected(L"X", nullptr, nullptr, acutBuildList(RTDXF0, L"LINE", RTNONE)), 1);
  EXPECT_EQ(selected(L"X", nullptr, nullptr, acutBuildList(100, L"AcDbCircle", RTNONE)), 1);
  EXPECT_EQ(selected(L"X", nullptr, nullptr,
                     acutBuildList(-4, L"<OR", RTDXF0, L"LINE", RTDXF0, L"CIRCLE", -4, L"OR>", RTNONE)),
            2);
  EXPECT_EQ(selected(L"X", nullptr, nullptr, acutBuildList(-4, L"<OR", RTDXF0, L"LINE", RTNONE)), RTERROR);
  EXPECT_EQ(selected(L"X", nullptr, nullptr, acutBuildList(RTDXF0, L"TEXT", RTNONE)), RTERROR);
  EXPECT_EQ(selected(L"W", a, b, nullptr), 1);
  EXPECT_EQ(selected(nullptr, a, b, nullptr), 1);
  EXPECT_EQ(selected(nullptr, empty, nullptr, nullptr), RTERROR);
  EXPECT_EQ(selected(nullptr, nullptr, nullptr, nullptr), RTCAN);  // nobody answers
  EXPECT_EQ(selected(L"Q", nullptr, nullptr, nullptr), RTERROR);
  resbuf* applications = acutNewRb(-3);
  applications->rbnext = acutBuildList(1001, L"RESEAU", RTNONE);
  EXPECT_EQ(selected(L"X", nullptr, nullptr, applications), 1);
}

TEST_F(Handlers, BuildSets) {
  ads_name line, made, grown;
  Adesk::Int32 length = 0;
  ASSERT_EQ(acdbEntNext(nullptr, line), RTNORM);
  ASSERT_EQ(acedSSAdd(nullptr, nullptr, made), RTNORM);
  ASSERT_EQ(acedSSAdd(line, made, grown), RTNORM);
  EXPECT_EQ(acedSSLength(made, &length), RTNORM);
  EXPECT_EQ(length, 1);
  ads_name member;
  EXPECT_EQ(acedSSName(made, 0, member), RTNORM);
  EXPECT_EQ(member[0], line[0]);
  EXPECT_EQ(acedSSName(made, 1, member), RTERROR);
  EXPECT_EQ(acedSSFree(made), RTNORM);
}

TEST_F(Handlers, ReadAndSetVariables) {
  resbuf value{};
  ASSERT_EQ(acedGetVar(L"CTAB", &value), RTNORM);
  ASSERT_EQ(value.restype, RTSTR);
  EXPECT_STREQ(value.resval.rstring, L"Model");
  acutDelString(value.resval.rstring);
  ASSERT_EQ(acedGetVar(L"cvport", &value), RTNORM);
  EXPECT_EQ(value.restype, RTSHORT);
  EXPECT_EQ(value.resval.rint, 2);
  ASSERT_EQ(acedGetVar(L"EXTMAX", &value), RTNORM);
  EXPECT_EQ(value.restype, RT3DPOINT);
  EXPECT_DOUBLE_EQ(value.resval.rpoint[0], 35);
  EXPECT_EQ(acedGetVar(L"ABSENTE", &value), RTERROR);
  resbuf* number = acutBuildList(RTREAL, 4.5, RTNONE);
  EXPECT_EQ(acedSetVar(L"TEXTSIZE", number), RTNORM);
  EXPECT_EQ(acedSetVar(L"OSMODE", number), RTERROR);
  acutRelRb(number);
  EXPECT_EQ(run("(getvar \"TEXTSIZE\")"), "4.5");
}

TEST_F(Handlers, TranslateCoordinates) {
  resbuf* from = acutBuildList(RTSHORT, 1, RTNONE);
  const ads_point below = {0, 0, -1};
  resbuf* to = acutBuildList(RT3DPOINT, below, RTNONE);
  const ads_point point = {1, 2, 3};
  ads_point result;
  EXPECT_EQ(acedTrans(point, from, from, 0, result), RTNORM);
  EXPECT_DOUBLE_EQ(result[2], 3);
  EXPECT_EQ(acedTrans(point, from, to, 0, result), RTNORM);
  EXPECT_DOUBLE_EQ(result[0], -1);
  EXPECT_EQ(acedTrans(point, from, nullptr, 0, result), RTERROR);
  acutRelRb(from);
  acutRelRb(to);
}

TEST_F(Handlers, CrossingsOfSegmentsThatLieOnOneAnother) {
  const struct {
    double a[4], b[4];  // x y x y
    bool meet;
    double low, high;  // of x, where they may meet
  } rows[] = {
      {{0, 0, 10, 0}, {4, 0, 20, 0}, true, 4, 10},
      {{0, 0, 10, 0}, {20, 0, 4, 0}, true, 4, 10},
      {{0, 0, 10, 10}, {2, 2, 3, 3}, true, 2, 3},
      {{2, 2, 3, 3}, {0, 0, 10, 10}, true, 2, 3},
      {{0, 0, 10, 0}, {10, 0, 20, 0}, true, 10, 10},
      {{652000.37, 6861234.5, 652100.37, 6861234.5},
       {652050.37, 6861234.5, 652200.37, 6861234.5},
       true,
       652050.37,
       652100.37},
      {{0, 0, 10, 0}, {11, 0, 20, 0}, false, 0, 0},
      {{0, 0, 10, 0}, {0, 1, 10, 1}, false, 0, 0},
      {{0, 0, 0, 0}, {0, 1, 10, 1}, false, 0, 0},
      {{0, 0, 10, 0}, {5, -5, 5, 5}, true, 5, 5},
      {{0, 0, 10, 0}, {15, -5, 15, 5}, false, 0, 0},
  };
  for (const auto& row : rows) {
    const ads_point a1 = {row.a[0], row.a[1], 0}, a2 = {row.a[2], row.a[3], 0}, b1 = {row.b[0], row.b[1], 0},
                    b2 = {row.b[2], row.b[3], 0};
    ads_point point;
    const int status = acdbInters(a1, a2, b1, b2, 1, point);
    EXPECT_EQ(status, row.meet ? RTNORM : RTERROR) << row.a[0] << ' ' << row.b[0];
    if (status != RTNORM) continue;
    EXPECT_GE(point[0], row.low - 1e-9);
    EXPECT_LE(point[0], row.high + 1e-9);
  }
}

// A function without help, or a command's name that two rows claim, is a mistake in a table.
TEST_F(Handlers, TablesAreWhole) {
  for (const auto* primitive : session.document().interpreter().primitives()) {
    EXPECT_FALSE(primitive->help.empty()) << primitive->name;
    EXPECT_TRUE(primitive->signature.starts_with('(')) << primitive->name;
  }
  using namespace atelier;
  std::set<std::string> names;
  for (const CommandRow* row : offeredCommands()) {
    std::string all = std::string(row->name) + " " + std::string(row->aliases);
    for (std::size_t blank; !all.empty(); all.erase(0, blank == all.npos ? all.size() : blank + 1)) {
      blank = all.find(' ');
      const std::string name = all.substr(0, blank);
      EXPECT_TRUE(name.empty() || names.insert(name).second) << name;
    }
    EXPECT_FALSE(row->help.empty()) << row->name;
  }
  EXPECT_EQ(commandRow("'_.zoom"), commandRow("Z"));
  EXPECT_EQ(commandRow("nuage"), nullptr);
}

TEST_F(Handlers, HelpTellsOfCommandsAndFunctions) {
  struct Question {
    const char *asked, *told;
  };
  for (const Question& row :
       {Question{"", "\nFILLET (F, RACCORD): Raccorde"}, Question{"", "\nCommandes de programmes AutoLISP:\nESSAI\n"},
        Question{"raccord", "\nFILLET (F, RACCORD): Raccorde"}, Question{"polar", "\n(polar point angle distance): Le"},
        Question{"essai", "\nESSAI: commande d'un programme"}, Question{"nuage", "\nNi commande ni fonction"}}) {
    run("(defun c:essai ())");
    session.document().takeTranscript();
    run(std::string("(command \"_.HELP\" \"") + row.asked + "\")");
    EXPECT_NE(session.document().takeTranscript().find(row.told), std::string::npos) << row.asked;
  }
}

}  // namespace kaveltest
