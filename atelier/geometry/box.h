// Boxes, and a tree over a row of boxes with which a search leaves out what is far away.
// World coordinates; a box may be endless in some of its directions.
#pragma once
#include <algorithm>
#include <limits>
#include <vector>

#include "hote/ge.h"

namespace atelier {

struct Box {
  static constexpr double kEnd = std::numeric_limits<double>::infinity();
  double low[3] = {kEnd, kEnd, kEnd}, high[3] = {-kEnd, -kEnd, -kEnd};  // empty

  void add(const AcGePoint3d& p) {
    const double c[3] = {p.x, p.y, p.z};
    for (int i = 0; i < 3; ++i) low[i] = std::min(low[i], c[i]), high[i] = std::max(high[i], c[i]);
  }
  void add(const Box& b) {
    for (int i = 0; i < 3; ++i) low[i] = std::min(low[i], b.low[i]), high[i] = std::max(high[i], b.high[i]);
  }
  bool near(const Box& b, double gap) const {
    for (int i = 0; i < 3; ++i)
      if (low[i] > b.high[i] + gap || b.low[i] > high[i] + gap) return false;
    return true;
  }
  double squareDistance(const AcGePoint3d& p) const {
    const double c[3] = {p.x, p.y, p.z};
    double sum = 0;
    for (int i = 0; i < 3; ++i) {
      const double d = std::max({low[i] - c[i], c[i] - high[i], 0.0});
      sum += d * d;
    }
    return sum;
  }
};

// Boxes in their order, and above them boxes of eight each, up to one.
class BoxTree {
 public:
  BoxTree() = default;
  explicit BoxTree(std::vector<Box> leaves) {
    levels_.push_back(std::move(leaves));
    while (levels_.back().size() > 1) {
      const std::vector<Box>& below = levels_.back();
      std::vector<Box> above((below.size() + kFan - 1) / kFan);
      for (std::size_t i = 0; i < below.size(); ++i) above[i / kFan].add(below[i]);
      levels_.push_back(std::move(above));
    }
  }
  bool empty() const { return levels_.empty(); }
  const Box& root() const { return levels_.back().front(); }

  // Visits, in order, the leaves below boxes that pass the test.
  template <class TEST, class VISIT>
  void visit(const TEST& test, const VISIT& see) const {
    if (!levels_.empty() && !levels_[0].empty()) descend(levels_.size() - 1, 0, test, see);
  }
  // Visits leaves, near ones first, while their distance can be below what bound() says.
  template <class BOUND, class VISIT>
  void visitNearest(const AcGePoint3d& p, const BOUND& bound, const VISIT& see) const {
    if (!levels_.empty() && !levels_[0].empty()) approach(levels_.size() - 1, 0, p, bound, see);
  }

 private:
  static constexpr std::size_t kFan = 8;
  std::vector<std::vector<Box>> levels_;  // the leaves first

  template <class TEST, class VISIT>
  void descend(std::size_t level, std::size_t i, const TEST& test, const VISIT& see) const {
    if (!test(levels_[level][i])) return;
    if (level == 0) return see(i);
    const std::size_t end = std::min((i + 1) * kFan, levels_[level - 1].size());
    for (std::size_t k = i * kFan; k < end; ++k) descend(level - 1, k, test, see);
  }
  template <class BOUND, class VISIT>
  void approach(std::size_t level, std::size_t i, const AcGePoint3d& p, const BOUND& bound, const VISIT& see) const {
    if (level == 0) return see(i);
    std::pair<double, std::size_t> children[kFan];
    std::size_t count = 0;
    const std::size_t end = std::min((i + 1) * kFan, levels_[level - 1].size());
    for (std::size_t k = i * kFan; k < end; ++k) children[count++] = {levels_[level - 1][k].squareDistance(p), k};
    std::sort(children, children + count);
    for (std::size_t k = 0; k < count; ++k)
      if (children[k].first < bound() * bound()) approach(level - 1, children[k].second, p, bound, see);
  }
};

}  // namespace atelier
