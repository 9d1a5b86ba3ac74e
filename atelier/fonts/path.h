// Plane outlines: points, affine maps, boxes and paths of lines and cubic Béziers.
// Glyphs consist of them, and so do the drawn lines and texts.
#pragma once

#include <limits>
#include <span>
#include <vector>

namespace atelier::fonts {

struct Pt {
  double x = 0, y = 0;
};

inline Pt operator+(Pt a, Pt b) { return {a.x + b.x, a.y + b.y}; }
inline Pt operator-(Pt a, Pt b) { return {a.x - b.x, a.y - b.y}; }
inline Pt operator*(double k, Pt a) { return {k * a.x, k * a.y}; }

// x' = xx·x + xy·y + x0, y' = yx·x + yy·y + y0.
struct Affine {
  double xx = 1, yx = 0, xy = 0, yy = 1, x0 = 0, y0 = 0;

  static Affine translation(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
  static Affine scaling(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
  static Affine rotation(double radians);

  Pt operator()(Pt p) const { return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0}; }
  // A direction: the translation is left out.
  Pt turn(Pt p) const { return {xx * p.x + xy * p.y, yx * p.x + yy * p.y}; }
  // (a * b)(p) = a(b(p)).
  Affine operator*(const Affine& inner) const;
  double determinant() const { return xx * yy - xy * yx; }
};

// Closed box; empty until a point is added.
struct Box {
  double xMin = std::numeric_limits<double>::infinity(), yMin = xMin;
  double xMax = -xMin, yMax = -xMin;

  bool empty() const { return !(xMin <= xMax && yMin <= yMax); }
  double width() const { return empty() ? 0 : xMax - xMin; }
  double height() const { return empty() ? 0 : yMax - yMin; }
  // A point with a coordinate that is not finite is passed over.
  void add(Pt p);
  void add(const Box& other);
  // The box of the mapped box.
  Box mapped(const Affine& map) const;
  bool meets(const Box& other) const {
    return xMin <= other.xMax && other.xMin <= xMax && yMin <= other.yMax && other.yMin <= yMax;
  }
};

// Subpaths of lines and cubic Béziers. move and line take one point, cubic three, close none.
class Path {
 public:
  enum class Verb : unsigned char { move, line, cubic, close };

  void moveTo(Pt p);
  void lineTo(Pt p);
  void cubicTo(Pt c1, Pt c2, Pt p);
  // Raised to a cubic, exactly.
  void quadTo(Pt c, Pt p);
  void close();

  void append(const Path& other, const Affine& map = {});
  Path mapped(const Affine& map) const;

  bool empty() const { return verbs_.empty(); }
  // The last point, the origin for an empty path.
  Pt current() const { return points_.empty() ? Pt{} : points_.back(); }
  std::span<const Verb> verbs() const& { return verbs_; }
  std::span<const Pt> points() const& { return points_; }
  void verbs() && = delete;
  void points() && = delete;

  // Exact box of the mapped path: the extremes of the Béziers, not their control points.
  Box bounds(const Affine& map = {}) const;

 private:
  std::vector<Verb> verbs_;
  std::vector<Pt> points_;
};

}  // namespace atelier::fonts
