// Tests written in AutoLISP: files of situations, each a new drawing with preparations and rows that it must fulfil.
// A failure names the file and line of the row, the expression, its value and the expected one.
//
//   (commun ROW...)                   every situation of the file starts with these rows
//   (situation "Name")                a new drawing; what follows belongs to it
//   (tableau (VAR...) (VALUE...)...)  the situation is run for each list of values, which replace the variables in its rows
//   (fichier "NAME" "TEXT")           a file in the folder of the test
//   (preparer FORM...)                evaluated
//   (EXPRESSION EXPECTED)             the value, as it is printed, is EXPECTED, which is not evaluated
//   (dit EXPRESSION "PART"...)        what is printed holds every part
//   (ecrit EXPRESSION "TEXT")         what is printed is TEXT and nothing else
//   (refuse EXPRESSION "PART"...)     the value is nil and what is printed holds every part
//   (passe EXPRESSION...)             no error
//   (erreur EXPRESSION "MESSAGE")     the error with this message and no other
//   (demande EXPRESSION ("LINE"...) EXPECTED)  the value of the expression when these lines are typed after it
//   (tape ("LINE"...) "PART"...)      the lines are typed; the transcript contains every part
//
// Among the parts, (sauf "PART"...) are parts that don't appear.
//
// <dossier> in a text is a folder of the test's own, <source> the root of the sources.
#pragma once
#include <iosfwd>
#include <string>
#include <vector>

#include "tests/support/session.h"

namespace kaveltest {

struct Row {
  int line = 0;
  std::vector<std::string> parts;  // the forms of the list
};

struct Situation {
  std::string file, name;  // the name begins with the file's
  std::vector<Row> rows;
};

std::ostream& operator<<(std::ostream& out, const Situation& situation);

// The situations of every .lsp file of a folder; throws std::runtime_error with file and line for one that can't be read.
std::vector<Situation> situations(const std::string& folder);

// Runs the rows; their faults are failures of the test. The folder's path ends with a slash.
void run(Session& session, const Situation& situation, const std::string& folder);

}  // namespace kaveltest
