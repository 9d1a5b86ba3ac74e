// TOLERANCE: rows of framed cells.
// Cells are separated by %%v, rows by line feeds; the first cell stands on the insertion point by the middle of its left side.
// Reference: DXF reference, "TOLERANCE".
#include <algorithm>

#include "atelier/base/text.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

std::vector<std::string> split(std::string_view text, std::string_view mark) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t end = text.find(mark);
    pieces.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + mark.size());
  }
}

class Frame {
 public:
  Frame(PartMaker& make, const Groups& groups, const DimensionStyle& style)
      : make_(make), style_(style), normal_(groups.normal()), at_(groups.point(10)) {
    along_ = groups.has(11) ? groups.point(11).asVector() : AcGeVector3d(1, 0, 0);
    along_ = along_.length() > 0 ? along_.normal() : AcGeVector3d(1, 0, 0);
    up_ = normal_.crossProduct(along_);
    height_ = style.size("DIMTXT");
  }

  void row(const std::string& contents) {
    double x = 0;
    std::vector<std::string> cells = split(contents, "%%v");
    while (!cells.empty() && cells.back().empty()) cells.pop_back();
    for (const std::string& cell : cells) {
      if (cell.empty()) continue;
      const double width = widthOf(cell) + 2 * style_.size("DIMGAP");
      box(x, width);
      text(cell, x + width / 2);
      x += width;
    }
    y_ -= 2 * height_;
  }

 private:
  AcGePoint3d place(double x, double y) const { return at_ + along_ * x + up_ * (y_ + y); }

  double widthOf(const std::string& cell) const {
    fonts::MTextStyle text;
    text.format.font = fontStyle(&make_.database(), style_.textStyle, 1, 0);
    text.format.height = height_;
    return std::max(fonts::layoutMText(cell, text).ink.width(), height_);
  }

  void box(double x, double width) {
    PartLook look;
    look.colour = static_cast<std::int64_t>(style_.value("DIMCLRD"));
    make_.look(look);
    const AcGePoint3d corners[] = {place(x, -height_), place(x + width, -height_), place(x + width, height_),
                                   place(x, height_)};
    make_.path(corners, true);
  }

  void text(const std::string& cell, double middle) {
    PartLook look;
    look.colour = static_cast<std::int64_t>(style_.value("DIMCLRT"));
    make_.look(look);
    constexpr std::string_view kMText = "AcDbMText";
    constexpr int kMiddleCentre = 5;
    Record& part = make_.add("MTEXT");
    part.setPoint(pointField(kMText, 10), place(middle, 0));
    part.setReal(realField(kMText, 40), height_);
    part.setInteger(integerField(kMText, 71), kMiddleCentre);
    part.setText(textField(kMText, 1), cell);
    part.setText(textField(kMText, 7), style_.textStyle);
    part.setPoint(normalField(kMText), AcGePoint3d() + normal_);
    part.setPoint(pointField(kMText, 11), AcGePoint3d() + along_);
  }

  PartMaker& make_;
  const DimensionStyle& style_;
  AcGeVector3d normal_, along_, up_;
  AcGePoint3d at_;
  double height_ = 0, y_ = 0;
};

}  // namespace

void toleranceParts(PartMaker& make, const Record& record) {
  const Groups groups(record);
  const DimensionStyle style(make.database(), record);
  Frame frame(make, groups, style);
  for (const std::string& row : split(groups.text(1), "\n"))
    if (!row.empty()) frame.row(row);
}

}  // namespace atelier
