// Curves as rows of pieces: finds the piece for a parameter or a length and asks it. The lengths up to each piece and a
// tree of boxes are worked out when they are first needed.
#include "atelier/geometry/curve.h"

#include <cmath>

#include "atelier/geometry/shape.h"

namespace atelier {

namespace {

constexpr double kHair = 1e-9;  // of the range of the parameter

double own(const Piece& p, double param) {
  const double a = shapeStart(p.shape), b = shapeEnd(p.shape);
  if (param == p.to) return b;
  return a + (param - p.from) / (p.to - p.from) * (b - a);
}

double rate(const Piece& p) { return (shapeEnd(p.shape) - shapeStart(p.shape)) / (p.to - p.from); }

}  // namespace

std::shared_ptr<const Curve> Curve::of(std::vector<Piece> pieces, bool closed) {
  if (pieces.empty()) return nullptr;
  for (const Piece& p : pieces)
    if (!(p.from < p.to) || !shapeIsFinite(p.shape)) return nullptr;
  std::shared_ptr<Curve> curve(new Curve);
  curve->pieces_ = std::move(pieces);
  curve->closed_ = closed;
  return curve;
}

bool Curve::isEndless() const { return shapeIsEndless(pieces_.front().shape) || shapeIsEndless(pieces_.back().shape); }

std::size_t Curve::pieceAt(double param) const {
  const auto it =
      std::upper_bound(pieces_.begin(), pieces_.end(), param, [](double t, const Piece& p) { return t < p.to; });
  return it == pieces_.end() ? pieces_.size() - 1 : static_cast<std::size_t>(it - pieces_.begin());
}

std::optional<std::pair<std::size_t, double>> Curve::locate(double param) const {
  if (!std::isfinite(param)) return std::nullopt;
  const double hair = kHair * std::max(1.0, endParam() - startParam());
  const auto* first = std::get_if<Straight>(&pieces_.front().shape);
  const auto* last = std::get_if<Straight>(&pieces_.back().shape);
  if (param < startParam() && !(first && first->endlessBefore)) {
    if (param < startParam() - hair) return std::nullopt;
    param = startParam();
  }
  if (param > endParam() && !(last && last->endlessAfter)) {
    if (param > endParam() + hair) return std::nullopt;
    param = endParam();
  }
  const std::size_t i = pieceAt(param);
  return std::pair(i, own(pieces_[i], param));
}

double Curve::outer(std::size_t piece, double ownParam) const {
  const Piece& p = pieces_[piece];
  if (ownParam == shapeEnd(p.shape)) return p.to;
  return p.from + (ownParam - shapeStart(p.shape)) / rate(p);
}

std::optional<AcGePoint3d> Curve::pointAt(double param) const {
  const auto place = locate(param);
  if (!place) return std::nullopt;
  return shapePoint(pieces_[place->first].shape, place->second);
}

std::optional<AcGeVector3d> Curve::derivativeAt(double param) const {
  const auto place = locate(param);
  if (!place) return std::nullopt;
  const Piece& p = pieces_[place->first];
  return shapeDerivative(p.shape, place->second) * rate(p);
}

std::optional<AcGeVector3d> Curve::secondDerivativeAt(double param) const {
  const auto place = locate(param);
  if (!place) return std::nullopt;
  const Piece& p = pieces_[place->first];
  return shapeSecondDerivative(p.shape, place->second) * (rate(p) * rate(p));
}

const std::vector<double>& Curve::lengths() const {
  if (lengths_.empty()) {
    double sum = 0;
    lengths_.reserve(pieces_.size());
    for (const Piece& p : pieces_)
      lengths_.push_back(sum += shapeLength(p.shape, shapeStart(p.shape), shapeEnd(p.shape)));
  }
  return lengths_;
}

std::optional<double> Curve::distanceAt(double param) const {
  const auto place = locate(param);
  if (!place) return std::nullopt;
  const auto [i, t] = *place;
  const Shape& shape = pieces_[i].shape;
  if (t == shapeEnd(shape)) return lengths()[i];
  return (i == 0 ? 0 : lengths()[i - 1]) + shapeLength(shape, shapeStart(shape), t);
}

std::optional<double> Curve::paramAtDistance(double distance) const {
  if (!std::isfinite(distance)) return std::nullopt;
  const double whole = length(), hair = kHair * std::max(1.0, whole);
  if (!isEndless()) {
    if (distance < -hair || distance > whole + hair) return std::nullopt;
    distance = std::clamp(distance, 0.0, whole);
    if (distance == whole) return endParam();
  }
  const auto it = std::upper_bound(lengths().begin(), lengths().end(), distance);
  const std::size_t i = it == lengths().end() ? pieces_.size() - 1 : static_cast<std::size_t>(it - lengths().begin());
  return outer(i, shapeParamAtLength(pieces_[i].shape, distance - (i == 0 ? 0 : lengths()[i - 1])));
}

const BoxTree& Curve::tree() const {
  if (tree_.empty()) {
    std::vector<Box> boxes;
    boxes.reserve(pieces_.size());
    for (const Piece& p : pieces_) boxes.push_back(shapeBox(p.shape));
    tree_ = BoxTree(std::move(boxes));
  }
  return tree_;
}

Foot Curve::closest(const AcGePoint3d& point, bool extend) const {
  if (extend && !closed_)
    if (const auto longer = extended()) {
      Foot foot = longer->closest(point);
      return foot;
    }
  Foot foot{startParam(), *pointAt(isEndless() ? pieces_.front().from : startParam()), 0};
  foot.distance = std::nextafter(foot.point.distanceTo(point), Box::kEnd);
  tree().visitNearest(
      point, [&] { return foot.distance; },
      [&](std::size_t i) {
        double t = 0;
        if (!shapeNearest(pieces_[i].shape, point, foot.distance, t)) return;
        foot.param = outer(i, t);
        foot.point = shapePoint(pieces_[i].shape, t);
      });
  foot.distance = foot.point.distanceTo(point);
  return foot;
}

std::optional<double> Curve::paramAt(const AcGePoint3d& point, double tolerance) const {
  if (!std::isfinite(point.x + point.y + point.z)) return std::nullopt;
  const Foot foot = closest(point);
  if (!(foot.distance <= tolerance)) return std::nullopt;
  return foot.param;
}

std::shared_ptr<const Curve> Curve::extended() const {
  std::vector<Piece> pieces = pieces_;
  const auto stretch = [](Piece& p, bool before, bool after) {
    if (auto* s = std::get_if<Straight>(&p.shape)) {
      s->endlessBefore |= before;
      s->endlessAfter |= after;
    } else if (auto* e = std::get_if<Elliptic>(&p.shape)) {
      // An arc extended to a full turn: the missing part is divided equally between its two ends. The parameter stays in
      // proportion to the angle.
      constexpr double kTurn = 6.283185307179586;
      const double missing = std::max(0.0, kTurn - (e->to - e->from)), scale = 1 / rate(p);
      const double back = before ? (after ? missing / 2 : missing) : 0, on = after ? missing - back : 0;
      e->from -= back, e->to += on;
      p.from -= back * scale, p.to += on * scale;
    }
  };
  if (pieces.size() == 1) {
    stretch(pieces.front(), true, true);
  } else {
    stretch(pieces.front(), true, false);
    stretch(pieces.back(), false, true);
  }
  return of(std::move(pieces), false);
}

std::shared_ptr<const Curve> Curve::transformed(const AcGeMatrix3d& matrix) const {
  std::vector<Piece> pieces = pieces_;
  for (Piece& p : pieces) p.shape = shapeTransformed(p.shape, matrix);
  return of(std::move(pieces), closed_);
}

const Curve& Curve::inPlan() const {
  if (plan_) return *plan_;
  const Box whole = tree().root();
  if (whole.low[2] == 0 && whole.high[2] == 0) return *this;
  AcGeMatrix3d flat;
  flat(2, 2) = 0;
  plan_ = transformed(flat);
  return plan_ ? *plan_ : *this;
}

}  // namespace atelier
