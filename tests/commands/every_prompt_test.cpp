// Every prompt of every command that draws or changes objects: what isn't an answer changes nothing.
// A command is answered up to each of its prompts; then the input ends, or Enter, a word or half a point come first. The
// drawing must be the same each time. Enter is an answer where the prompt shows a default.
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "atelier/commands/command_table.h"
#include "atelier/commands/commands.h"
#include "tests/support/bare_host.h"

namespace {

using kaveltest::Session;
using Answers = std::vector<std::string>;

struct Course {
  const char* command;
  Answers answers;
};

const Course kCourses[] = {
    {"LINE", {"0,0", "5,5", "9,0", "C"}},
    {"PLINE", {"0,0",  "W", "1",  "2",    "5,5", "A", "9,0",  "S", "11,3", "15,0", "CE", "17,2",
               "19,0", "D", "90", "25,5", "R",   "4", "28,3", "L", "L",    "3",    "C"}},
    {"3DPOLY", {"0,0,0", "5,5,1", "9,0,2", "C"}},
    {"RECTANGLE", {"0,0", "5,3"}},
    {"POINT", {"1,2"}},
    {"CIRCLE", {"3,3", "2"}},
    {"CIRCLE", {"3,3", "D", "2"}},
    {"CIRCLE", {"2P", "0,0", "4,0"}},
    {"CIRCLE", {"3P", "0,0", "4,0", "2,3"}},
    {"CIRCLE", {"T", "1,10", "8,20", "2"}},
    {"LEADER", {"0,0", "5,5", "9,5", "A", "essai", "deux", ""}},
    {"QLEADER", {"0,0", "5,5", "9,5", "0", "essai", ""}},
    {"ARC", {"0,0", "2,1", "4,0"}},
    {"ARC", {"C", "0,0", "3,0", "A", "60"}},
    {"ARC", {"0,0", "C", "2,0", "C", "1"}},
    {"ARC", {"0,0", "E", "4,0", "R", "5"}},
    {"ARC", {"0,0", "E", "4,0", "D", "60"}},
    {"ELLIPSE", {"0,0", "10,0", "2"}},
    {"ELLIPSE", {"C", "0,0", "10,0", "2"}},
    {"POLYGON", {"5", "0,0", "I", "3"}},
    {"DONUT", {"1", "2", "5,5", "9,9"}},
    {"SOLID", {"0,0", "4,0", "0,4", "4,4"}},
    {"RAY", {"0,0", "4,0"}},
    {"XLINE", {"H", "4,0"}},
    {"DIMLINEAR", {"0,0", "9,2", "T", "<> m", "A", "10", "R", "20", "5,5"}},
    {"DIMALIGNED", {"", "1,10", "5,12"}},
    {"DIMRADIUS", {"60,43", "65,45"}},
    {"DIMDIAMETER", {"60,43", "T", "DN <>", "65,45"}},
    {"DIMANGULAR", {"", "0,0", "5,0", "0,5", "4,4"}},
    {"DIMORDINATE", {"7,3", "Y", "12,3"}},
    {"LAYDEL", {"N", "AXE", "", "Y"}},
    {"LAYMRG", {"N", "AXE", "", "N", "0", "Y"}},
    {"JOIN", {"ALL", ""}},
    {"REVERSE", {"ALL", ""}},
    {"SCALETEXT", {"ALL", "", "", "S", "2"}},
    {"MINSERT", {"B", "5,5", "2", "2", "30", "2", "3", "5", "6"}},
    {"COPYTOLAYER", {"ALL", "", "N", "0", "0,0", "5,5"}},
    {"ATTDEF", {"I", "", "NUM", "Numero", "12", "0,0", "2", "30"}},
    {"HATCH", {"P", "ANSI31", "2", "30", "60,40", ""}},
    {"HATCH", {"P", "U", "45", "2", "Y", "60,40", ""}},
    {"STRETCH", {"C", "9,4", "30,28", "", "0,0", "2,1"}},
    {"LENGTHEN", {"DE", "3", "1,10", ""}},
    {"MATCHPROP", {"60,43", "8,20", ""}},
    {"DIVIDE", {"1,10", "B", "B", "Y", "3"}},
    {"MEASURE", {"1,10", "3"}},
    {"SPLINE", {"0,0", "5,5", "9,0", "", "", ""}},
    {"TEXT", {"J", "F", "0,0", "9,0", "2", "essai"}},
    {"TEXT", {"0,0", "2", "30", "essai"}},
    {"MTEXT", {"0,0", "H", "2", "R", "30", "9,9", "essai", ""}},
    {"MOVE", {"ALL", "", "0,0", "5,5"}},
    {"MOVE", {"ALL", "", "D", "5,5"}},
    {"COPY", {"ALL", "", "M", "0,0", "5,5", "9,9"}},
    {"ROTATE", {"ALL", "", "0,0", "R", "10", "30"}},
    {"SCALE", {"ALL", "", "0,0", "R", "2", "3"}},
    {"MIRROR", {"ALL", "", "0,0", "1,1", "Y"}},
    {"OFFSET", {"1", "0,10", "5,12"}},
    {"BREAK", {"3,10", "F", "2,10", "4,10"}},

    {"FILLET", {"R", "0", "1,10", "8,20"}},
    {"CHAMFER", {"D", "1", "2"}},
    {"TRIM", {"ALL", "", "1,10"}},
    {"EXTEND", {"ALL", "", "20.5,20"}},
    {"TRIM", {"ALL", "", "F", "5,9", "5,12", ""}},
    {"EXPLODE", {"ALL", ""}},
    {"ERASE", {"ALL", ""}},
    {"PEDIT", {"20,20", "W", "2", "E", "I", "21,23", "X", "X"}},
    {"-BLOCK", {"B2", "0,0", "ALL", ""}},
    {"-INSERT", {"B", "5,5", "2", "2", "30"}},
    {"-INSERT", {"B", "S", "2", "R", "30", "5,5"}},
    {"CHANGE", {"ALL", "", "P", "LA", "AXE", ""}},
    {"CHPROP", {"ALL", "", "C", "3", ""}},
    {"-ARRAY", {"ALL", "", "R", "2", "3", "40", "50"}},
    {"-ARRAY", {"ALL", "", "P", "0,0", "4", "360", "N"}},
    {"ALIGN", {"ALL", "", "0,0", "5,5", "10,0", "5,25", "", "N"}},
    {"3DFACE", {"0,0", "10,0", "10,10,5", "0,10", "0,20", "10,20", ""}},
    {"-BOUNDARY", {"60,40", ""}},
};

constexpr const char* kDrawing = R"((progn
  (entmake '((0 . "LAYER") (2 . "AXE") (70 . 0) (62 . 1) (6 . "Continuous")))
  (entmake '((0 . "LINE") (10 0. 10. 0.) (11 10. 10. 0.)))
  (entmake (quote ((0 . "CIRCLE") (8 . "AXE") (10 60. 40. 0.) (40 . 3.))))
  (entmake '((0 . "LINE") (10 8. 5. 0.) (11 8. 25. 0.)))
  (entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 20. 20.) (10 25. 20.) (10 25. 30.)))
  (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "POINT") (10 1. 1. 0.))) (entmake '((0 . "ENDBLK")))
  (entmake '((0 . "TEXT") (10 100. 99. 0.) (40 . 2.) (1 . "a")))
  (entmake '((0 . "LINE") (10 100. 90. 0.) (11 104. 90. 0.))) (entmake '((0 . "LINE") (10 106. 90. 0.) (11 109. 90. 0.)))
  (defun tout (/ e l) (while (setq e (if e (entnext e) (entnext))) (setq l (cons (cdr (entget e)) l))) l)))";

// What stands in the drawing after the command with these answers, and what was printed last.
struct Outcome {
  std::string drawing, prompt;
};

Outcome after(const Course& course, std::size_t count, const char* instead) {
  Session session(false);
  session.eval(kDrawing);
  std::string lines = std::string(course.command) + "\n";
  for (std::size_t i = 0; i < count; ++i) lines += course.answers[i] + "\n";
  if (instead) lines += std::string(instead) + "\n";
  session.transcript();
  const std::string said = session.feed(lines);
  return {session.eval("(tout)"), said};
}

// The last prompt of a transcript in which the answers have run out.
std::string lastPrompt(const std::string& said) {
  const std::size_t end = said.rfind(": ");
  const std::size_t begin = end == std::string::npos ? 0 : said.rfind('\n', end) + 1;
  return end == std::string::npos ? std::string() : said.substr(begin, end - begin);
}

// Entity names are addresses, new in each session.
std::string withoutNames(std::string text) {
  constexpr std::string_view kName = "<Entity name: ";
  for (std::size_t at = 0; (at = text.find(kName, at)) != std::string::npos;)
    text.erase(at, text.find('>', at) + 1 - at);
  return text;
}

TEST(EveryPrompt, WhatIsNoAnswerChangesNothing) {
  for (const Course& course : kCourses)
    for (std::size_t i = 0; i <= course.answers.size(); ++i) {
      const Outcome bare = after(course, i, nullptr);
      const std::string prompt = lastPrompt(bare.prompt);
      for (const char* instead : {"", "mot", "1,2,x"}) {
        const std::string_view given = instead;
        const bool isAnswer = (given.empty() && prompt.find('<') != std::string::npos) || prompt.find("Texte") == 0 ||
                              prompt.find("Nom") == 0 || prompt.find("Choix des objets") == 0 ||
                              prompt.find("Commande") == 0;
        if (isAnswer) continue;
        EXPECT_EQ(withoutNames(after(course, i, instead).drawing), withoutNames(bare.drawing))
            << course.command << " after " << i << " answers: \"" << instead << "\" at \"" << prompt << '"';
      }
    }
}

// The courses reach their ends: the drawing is another one, but for settings.
TEST(EveryPrompt, AllAnswersTogetherChangeTheDrawing) {
  const std::string before = withoutNames(after({"REGEN", {}}, 0, nullptr).drawing);
  for (const Course& course : kCourses) {
    const bool isSetting = course.answers[0] == "D" && course.answers.size() == 3;
    if (isSetting) continue;
    EXPECT_NE(withoutNames(after(course, course.answers.size(), nullptr).drawing), before) << course.command;
  }
}

// Of the commands that draw or change, those without a course: other names' commands, settings, and what needs objects that the
// drawing doesn't have.
const std::set<std::string_view> kWithout{"BLOCK", "INSERT",  "RECTANG", "COLOR",    "SELECT",
                                          "OOPS",  "ATTSYNC", "DDEDIT",  "DRAWORDER"};

TEST(EveryPrompt, EveryCommandThatDrawsOrChangesHasACourse) {
  std::set<std::string_view> played;
  for (const Course& course : kCourses) played.insert(course.command);
  using namespace atelier;
  for (const auto& table :
       {drawingCommands(),   shapeCommands(), divideCommands(),  dimensionCommands(), leaderCommands(),
        attributeCommands(), plineCommands(), arcCommands(),     blockCommands(),     propertyCommands(),
        textCommands(),      hatchCommands(), editingCommands(), curveCommands(),     cornerCommands(),
        offsetCommands(),    trimCommands(),  stretchCommands(), explodeCommands(),   polylineCommands(),
        insertCommands(),    arrayCommands(), orderCommands()})
    for (const CommandRow& row : table)
      EXPECT_TRUE(played.contains(row.name) || kWithout.contains(row.name)) << row.name << " has no course";
}

// Answers to a prompt for a file name one: those that are written then go with the folder.
class OwnFolder {
 public:
  OwnFolder() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directories(own_);
    std::filesystem::current_path(own_);
  }
  ~OwnFolder() {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(own_);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

 private:
  const std::filesystem::path before_;
  const std::filesystem::path own_ =
      std::filesystem::temp_directory_path() / ("kavel-questions-" + std::to_string(getpid()));
};

// The same at the first prompt of every command that there is, also of those that change views, settings and files.
TEST(EveryPrompt, NoCommandChangesTheDrawingBeforeItIsAnswered) {
  const OwnFolder folder;
  const std::string before = withoutNames(after({"REGEN", {}}, 0, nullptr).drawing);
  std::set<std::string> names;
  for (const std::string& name : atelier::commandNames()) names.insert(name);
  EXPECT_GT(names.size(), 100u);
  for (const std::string& name : names) {
    for (const char* instead : std::initializer_list<const char*>{nullptr, "", "mot", "1,2,x", "-1e400"})
      EXPECT_EQ(withoutNames(after({name.c_str(), {}}, 0, instead).drawing), before)
          << name << ": \"" << (instead ? instead : "end of input") << '"';
  }
}

}  // namespace
