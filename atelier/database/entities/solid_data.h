// The solid-model data of an entity as a table of records: the text form that drawings carry up to R2010, and the
// binary form of later ones. Only what is needed to walk from a face to its edges is told apart.
// References: "SAT format" of the geometric modelling kernel as its files show it; DXF reference, REGION.
#pragma once
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace atelier::solid {

struct Pointer {
  long target = -1;  // index of a record, -1 for none
};
using Token = std::variant<Pointer, double, std::string>;

struct Record {
  std::string type;  // "face", "coedge", "ellipse-curve" ...
  std::vector<Token> tokens;

  std::vector<double> reals() const;
  std::size_t count(std::string_view word) const;
};
using Table = std::vector<Record>;

// The characters of a line as drawings hide them: each stands for 159 less its code, blanks for themselves.
std::string revealed(std::string_view hidden);
// Records of the plain text; empty when it is no such text.
Table readText(std::string_view text);
// Records of the binary form; as far as they can be read.
Table readBinary(std::string_view bytes);

// The numbers in a text of them; it ends at the first word that is none.
std::vector<double> numbersIn(std::string_view text);
// The n-th record of that type (or, with '*' in front, with that ending) that a record points to; null when there is none.
const Record* pointed(const Table& table, const Record& from, std::string_view type, std::size_t n = 0);

}  // namespace atelier::solid
