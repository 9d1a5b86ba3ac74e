// Parts stand on layer 0 and take their colour from the dimension, unless the style names one.
#include "atelier/database/dimensions/dimension_sketch.h"

#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/fonts/mtext.h"

namespace atelier {
namespace {

constexpr std::string_view kEntity = "AcDbEntity";

double degrees(double radians) { return radians * 180 / std::numbers::pi; }

}  // namespace

AcGePoint3d DimensionSketch::world(const AcGePoint2d& point) const {
  return toWorld({point.x, point.y, elevation_}, normal_);
}

Record& DimensionSketch::add(std::string_view type, std::string_view colour) {
  Record& record = parts.emplace_back(Record::fresh(type));
  record.setText(textField(kEntity, 8), "0");
  record.setInteger(integerField(kEntity, 62), static_cast<std::int64_t>(style_.value(colour)));
  return record;
}

void DimensionSketch::line(const AcGePoint2d& from, const AcGePoint2d& to, std::string_view colour) {
  if (from.distanceTo(to) <= 0) return;
  Record& record = add("LINE", colour);
  record.setPoint(pointField("AcDbLine", 10), world(from));
  record.setPoint(pointField("AcDbLine", 11), world(to));
}

void DimensionSketch::lineBesideText(const AcGePoint2d& from, const AcGePoint2d& to) {
  const AcGeVector2d along = (to - from).normal();
  const double length = from.distanceTo(to);
  const AcGeVector2d toText = textMiddle_ - from;
  const double aside = std::abs(toText.dotProduct(along.perpVector())), at = toText.dotProduct(along);
  // How far the text's box reaches along the line and across it.
  const double cosine = std::abs(textDirection_.dotProduct(along));
  const double sine = std::abs(textDirection_.dotProduct(along.perpVector()));
  const double reach = textHalfWidth_ * cosine + textHalfHeight_ * sine + style_.size("DIMGAP");
  const bool crosses = textHalfWidth_ > 0 && aside < textHalfWidth_ * sine + textHalfHeight_ * cosine &&
                       at + reach > 0 && at - reach < length;
  if (!crosses) return line(from, to);
  if (at - reach > 0) line(from, from + along * (at - reach));
  if (at + reach < length) line(from + along * (at + reach), to);
}

void DimensionSketch::arc(const AcGePoint2d& centre, double radius, double from, double to) {
  Record& record = add("ARC", "DIMCLRD");
  record.setPoint(pointField("AcDbCircle", 10), {centre.x, centre.y, elevation_});
  record.setReal(realField("AcDbCircle", 40), radius);
  record.setPoint(pointField("AcDbCircle", 210), {normal_.x, normal_.y, normal_.z});
  record.setReal(realField("AcDbArc", 50), degrees(from));
  record.setReal(realField("AcDbArc", 51), degrees(to));
}

void DimensionSketch::arrow(const AcGePoint2d& tip, const AcGeVector2d& along) {
  const double tick = style_.size("DIMTSZ");
  const double size = tick > 0 ? tick : style_.size("DIMASZ");
  const AcGeVector2d ahead = along.normal() * size, aside = ahead.perpVector();
  switch (style_.arrow) {
    case ArrowForm::none: return;
    case ArrowForm::tick: {
      const AcGeVector2d half = (ahead + aside) * 0.5;
      return line(tip - half, tip + half);
    }
    case ArrowForm::dot: return arc(tip, size * 0.25, 0, 2 * std::numbers::pi);
    case ArrowForm::filled: break;
  }
  // A third as wide as long.
  const AcGePoint2d corners[] = {tip - ahead + aside * (1.0 / 6), tip - ahead - aside * (1.0 / 6), tip, tip};
  Record& record = add("SOLID", "DIMCLRD");
  for (int i = 0; i < 4; ++i)
    record.setPoint(pointField("AcDbTrace", 10 + i), {corners[i].x, corners[i].y, elevation_});
  record.setPoint(pointField("AcDbTrace", 210), {normal_.x, normal_.y, normal_.z});
}

double DimensionSketch::textWidth(const std::string& contents) const {
  fonts::MTextStyle style;
  style.format.font = fontStyle(&database_, style_.textStyle, 1, 0);
  style.format.height = style_.size("DIMTXT");
  return fonts::layoutMText(contents, style).ink.width();
}

void DimensionSketch::text(const std::string& contents, const AcGePoint2d& middle, double angle, int attachment) {
  if (contents.empty()) return;
  constexpr std::string_view kMText = "AcDbMText";
  textMiddle_ = middle;
  textDirection_ = {std::cos(angle), std::sin(angle)};
  textHalfWidth_ = textWidth(contents) / 2;
  textHalfHeight_ = style_.size("DIMTXT") / 2;
  Record& record = add("MTEXT", "DIMCLRT");
  record.setPoint(pointField(kMText, 10), world(middle));
  record.setReal(realField(kMText, 40), style_.size("DIMTXT"));
  record.setInteger(integerField(kMText, 71), attachment);
  record.setText(textField(kMText, 1), contents);
  record.setText(textField(kMText, 7), style_.textStyle);
  record.setPoint(pointField(kMText, 210), {normal_.x, normal_.y, normal_.z});
  record.setPoint(pointField(kMText, 11), toWorld({textDirection_.x, textDirection_.y, 0}, normal_));
}

}  // namespace atelier
