// ACAD_PROXY_ENTITY: what an application has drawn of its own object, kept for programs without the application.
// The picture is a row of pieces, each with its length, its kind and its numbers, little-endian.
#include <bit>
#include <cstring>
#include <optional>

#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

enum Piece : std::uint32_t {
  kExtents = 1,
  kCircle = 2,
  kArc = 4,
  kPolyline = 6,
  kPolygon = 7,
  kColour = 14,
  kFirstSetting = 15,
  kTrueColour = 22,
  kLastSetting = 26,
  kPushMatrix = 29,
  kPushMatrixToo = 30,
  kPopMatrix = 31,
  kPolylineWithNormal = 32,
  kMaterial = 34,
  kMapper = 35
};

// Numbers of one piece; those beyond its end are 0.
class Numbers {
 public:
  explicit Numbers(std::string_view bytes) : bytes_(bytes) {}
  std::uint32_t whole() { return take<std::uint32_t>(); }
  double real() { return take<double>(); }
  AcGePoint3d point() {
    const double x = real(), y = real();
    return {x, y, real()};
  }
  std::size_t left() const { return bytes_.size(); }

 private:
  template <class NUMBER>
  NUMBER take() {
    NUMBER value{};
    if (bytes_.size() < sizeof value) bytes_ = {};
    else std::memcpy(&value, bytes_.data(), sizeof value), bytes_.remove_prefix(sizeof value);
    return value;
  }
  static_assert(std::endian::native == std::endian::little);
  std::string_view bytes_;
};

class Picture {
 public:
  explicit Picture(PartMaker& make) : make_(make) {}

  // False for a piece that can't be shown here.
  bool show(std::uint32_t kind, Numbers numbers) {
    switch (kind) {
      case kExtents: return true;
      case kCircle: return circle(numbers);
      case kArc: return arc(numbers);
      case kPolyline: return path(numbers, false);
      case kPolylineWithNormal: return path(numbers, false);
      case kPolygon: return path(numbers, true);
      case kColour: return colour(static_cast<std::int64_t>(numbers.whole()), -1);
      case kTrueColour: return trueColour(numbers.whole());
      case kPushMatrix:
      case kPushMatrixToo: return push(numbers);
      case kPopMatrix:
        if (!matrices_.empty()) matrices_.pop_back();
        return true;
      // Layers, line types, widths: those of the entity.
      default: return (kind >= kFirstSetting && kind <= kLastSetting) || kind == kMaterial || kind == kMapper;
    }
  }

 private:
  AcGePoint3d placed(const AcGePoint3d& p) const { return matrices_.empty() ? p : matrices_.back() * p; }
  AcGeVector3d placed(const AcGeVector3d& v) const { return matrices_.empty() ? v : matrices_.back() * v; }

  bool path(Numbers& numbers, bool closed) {
    constexpr std::size_t kPoint = 24;
    const std::uint32_t count = numbers.whole();
    if (count > numbers.left() / kPoint) return false;
    std::vector<AcGePoint3d> points;
    for (std::uint32_t i = 0; i < count; ++i) points.push_back(placed(numbers.point()));
    if (points.size() > 1) make_.path(points, closed);
    return true;
  }

  bool round(const AcGePoint3d& centre, double radius, const AcGeVector3d& normal, const AcGeVector3d& start,
             double sweep) {
    if (!(radius > 0) || start.isZeroLength() || normal.isZeroLength()) return false;
    constexpr double kTurn = 6.283185307179586;
    const AcGeVector3d major = placed(start.normal() * radius);
    make_.ellipse(placed(centre), major, placed(normal).normal(), 1, 0, sweep > 0 && sweep < kTurn ? sweep : kTurn);
    return true;
  }
  bool circle(Numbers& numbers) {
    const AcGePoint3d centre = numbers.point();
    const double radius = numbers.real();
    const AcGeVector3d normal = numbers.point().asVector();
    if (normal.isZeroLength()) return false;
    return round(centre, radius, normal, AcGeMatrix3d().setToPlaneToWorld(normal) * AcGeVector3d(1, 0, 0), 0);
  }
  bool arc(Numbers& numbers) {
    const AcGePoint3d centre = numbers.point();
    const double radius = numbers.real();
    const AcGeVector3d normal = numbers.point().asVector(), start = numbers.point().asVector();
    return round(centre, radius, normal, start, numbers.real());
  }

  bool colour(std::int64_t index, std::int64_t rgb) {
    constexpr std::int64_t kByLayer = 256;
    PartLook look;
    // What follows the layer follows the entity's.
    look.colour = index >= kByLayer ? 0 : index;
    look.trueColour = rgb;
    make_.look(look);
    return true;
  }
  // The highest byte says what the others are.
  bool trueColour(std::uint32_t raw) {
    constexpr std::uint32_t kRgb = 0xC2, kIndex = 0xC3;
    if (raw >> 24 == kRgb) return colour(0, raw & 0xFFFFFF);
    return colour(raw >> 24 == kIndex ? raw & 0xFF : 0, -1);
  }

  bool push(Numbers& numbers) {
    AcGeMatrix3d matrix;
    for (int row = 0; row < 4; ++row)
      for (int column = 0; column < 4; ++column) matrix(row, column) = numbers.real();
    matrices_.push_back(matrix);
    return true;
  }

  PartMaker& make_;
  std::vector<AcGeMatrix3d> matrices_;
};

// The bytes behind their length (92, or 160 in later versions), up to those of the object itself.
std::string graphicsOf(const Record& record) {
  std::string bytes;
  bool inside = false;
  const auto [begin, end] = record.section("AcDbProxyEntity");
  for (std::size_t i = begin; begin != Record::npos && i < end; ++i) {
    const Group& group = record.groups[i];
    if (inside && group.code() != 310) break;
    if (group.code() == 92 || group.code() == 160) inside = true;
    else if (inside) bytes += group.text();
  }
  return bytes;
}

}  // namespace

void proxyParts(PartMaker& make, const Record& record) {
  constexpr std::size_t kHead = 8;
  const std::string bytes = graphicsOf(record);
  std::string_view rest = bytes;
  if (rest.size() <= kHead) return make.missing("sans image");
  rest.remove_prefix(kHead);
  Picture picture(make);
  while (rest.size() >= kHead) {
    Numbers head(rest);
    const std::uint32_t size = head.whole(), kind = head.whole();
    if (size < kHead || size > rest.size()) return make.missing();
    if (!picture.show(kind, Numbers(rest.substr(kHead, size - kHead)))) make.missing("en partie");
    rest.remove_prefix(size);
  }
}

}  // namespace atelier
