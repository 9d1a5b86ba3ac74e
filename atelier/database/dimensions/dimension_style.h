// How one dimension looks: its style's settings, with the dimension's own in place of some.
#pragma once
#include <map>
#include <string>
#include <string_view>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// The style of new dimensions and leaders: the header's, or Standard when there is no such style.
std::string currentDimensionStyle(AcDbImpDatabase& database);

enum class ArrowForm : unsigned char { filled, tick, dot, none };

class DimensionStyle {
 public:
  // Of a DIMENSION or a LEADER. A drawing without the style gives the metric settings.
  DimensionStyle(AcDbImpDatabase& database, const Record& entity);

  // A variable by its name: DIMDEC and its like.
  double value(std::string_view name) const;
  bool flag(std::string_view name) const { return value(name) != 0; }
  // A size by its name, in units of the drawing.
  double size(std::string_view name) const { return value(name) * scale_; }

  // A measured length, or an angle in degrees, as the dimension shows it: factor, rounding, decimals, prefix and suffix.
  std::string lengthText(double length) const;
  std::string angleText(double degrees) const;

  ArrowForm arrow = ArrowForm::filled, leaderArrow = ArrowForm::filled;
  std::string leaderArrowBlock;  // empty: the filled arrow, which has no block
  std::string textStyle = "Standard";

 private:
  void take(AcDbImpDatabase& database, int code, const Group& group);

  std::map<int, double> given_;  // by code
  std::string around_;           // DIMPOST: prefix<>suffix, or a suffix
  double scale_ = 1;
};

}  // namespace atelier
