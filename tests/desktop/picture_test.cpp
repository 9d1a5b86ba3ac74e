// The picture of a view doesn't depend on how its entities are cut into parts, which differs with the way that they were edited.
#include <gtest/gtest.h>

#include <atomic>
#include <random>

#include "atelier/desktop/picture/scene_painter.h"

using namespace atelier;
using desktop::PlacedPart;

namespace {

// Strokes, often alike and in the same places, with some areas between them.
std::vector<render::Shape> randomShapes(std::mt19937& random, std::size_t count) {
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  render::Pen pen;
  std::vector<render::Shape> shapes;
  while (shapes.size() < count) {
    fonts::Path path;
    path.moveTo({below(4) * 22.6, below(4) * 15.4});
    path.lineTo({below(4) * 22.6, below(4) * 15.4});
    if (below(8) == 0) pen = {{255, static_cast<std::uint8_t>(below(2) * 255), 255}, below(2) * 1.0, nullptr};
    if (below(60) == 0) {
      path.lineTo({below(4) * 22.6, below(4) * 15.4});
      shapes.push_back(render::Fill{path, pen.colour});
      continue;
    }
    // each entity may have a pattern of its own, which says the same
    if (below(60) == 0) pen.dashes = pen.dashes ? nullptr : std::make_shared<std::vector<double>>(2, 3.0);
    else if (pen.dashes) pen.dashes = std::make_shared<std::vector<double>>(*pen.dashes);
    shapes.push_back(render::Stroke{path, pen});
  }
  return shapes;
}

QImage painted(const std::vector<render::Shape>& shapes, std::mt19937& random, std::size_t longest) {
  desktop::PaintRequest request{{}, {40, 27, 0.25, {400, 300}}, 1, Qt::black};
  for (std::size_t next = 0; next < shapes.size();) {
    render::DisplayList list;
    for (std::size_t end = std::min(shapes.size(), next + 1 + random() % longest); next < end; ++next)
      list.add(next, shapes[next]);
    request.parts.push_back({std::make_shared<const render::DisplayList>(std::move(list))});
  }
  return desktop::paintScene(request, std::atomic<bool>(false));
}

TEST(Picture, IsTheSameHoweverItsPartsAreCut) {
  for (const auto& [count, runs] : {std::pair<std::size_t, unsigned>{300, 20}, {21'000, 2}})  // the latter as a crowd
    for (unsigned seed = 1; seed <= runs; ++seed) {
      std::mt19937 random(seed);
      const std::vector<render::Shape> shapes = randomShapes(random, count);
      const QImage whole = painted(shapes, random, count * count);
      EXPECT_EQ(painted(shapes, random, 9), whole) << count << " shapes, seed " << seed;
    }
}

// Of a crowd thin lines are drawn at once, others when their like have been gathered.
TEST(Picture, OfACrowdWhatIsAboveHidesWhatIsBelow) {
  const auto across = [](double x1, double y1, double x2, double y2, const render::Pen& pen) {
    fonts::Path path;
    path.moveTo({x1, y1});
    path.lineTo({x2, y2});
    return render::Stroke{path, pen};
  };
  const render::Pen above{{255, 0, 0}, 10, nullptr}, below{{0, 255, 0}, 0, nullptr};
  std::vector<render::Shape> shapes(21'000, across(40, 0, 40, 54, below));
  shapes.emplace_back(across(0, 27, 80, 27, above));
  std::mt19937 random(1);
  const QColor crossing = painted(shapes, random, 512).pixelColor(200, 150);
  EXPECT_GT(crossing.red(), 200);
  EXPECT_LT(crossing.green(), 60);
}

}  // namespace
