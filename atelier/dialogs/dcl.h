// Descriptions of dialogs in DCL: reading a file into a tree of tiles.
// Reference: the DCL chapter of the AutoLISP documentation (predefined tiles and attributes).
#pragma once
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace atelier::dcl {

// A tile with all that it has from its prototypes. Names and types are in lower case, values without their quotes.
struct Tile {
  std::string type;  // the predefined tile at the root of its prototypes: "edit_box", "row" ...
  std::map<std::string, std::string, std::less<>> attributes;
  std::vector<Tile> children;

  std::string attribute(std::string_view name, std::string_view otherwise = {}) const;
  bool isTrue(std::string_view name) const { return attribute(name) == "true"; }
};

using Definitions = std::map<std::string, Tile, std::less<>>;

// Throws Error with the line of the first fault.
Definitions read(const std::string& file, std::string_view text);

}  // namespace atelier::dcl
