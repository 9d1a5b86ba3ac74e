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

// Decodes a line of the drawing: the character of code c stands for the one of code 159 - c, a blank for itself.
std::string revealed(std::string_view hidden);
// Records of the plain text; empty when it is no such text.
Table readText(std::string_view text);
// Records of the binary form; as far as they can be read.
Table readBinary(std::string_view bytes);

// The numbers at the start of a text, up to the first word that isn't a number.
std::vector<double> numbersIn(std::string_view text);
// The n-th record of that type that a record points to, counted from 0; null when there is none. A type "*abc" stands
// for every type that ends in abc.
const Record* pointed(const Table& table, const Record& from, std::string_view type, std::size_t n = 0);

}  // namespace atelier::solid
