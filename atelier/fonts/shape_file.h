// Compiled shape files (.shx of the kind "shapes"): symbols drawn with a pen.
// Reference: "Shape descriptions" of the CAD reference.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/fonts/path.h"

namespace atelier::fonts {

// What the pen draws without being lifted; arcs are chords close enough to look round.
using PenStroke = std::vector<Pt>;

class ShapeFile {
 public:
  // The file, read again once it has changed; null when it can't be read or is of another kind.
  static std::shared_ptr<const ShapeFile> of(const std::string& path);

  // In units of the shape, its start at the origin. None when the file hasn't got it.
  std::optional<std::vector<PenStroke>> shape(int number) const;
  std::optional<std::vector<PenStroke>> shape(std::string_view name) const;  // letter case ignored

 private:
  friend class ShapePen;
  explicit ShapeFile(std::string bytes);
  struct Entry {
    std::string name, code;
  };
  std::map<int, Entry> shapes_;
};

}  // namespace atelier::fonts
