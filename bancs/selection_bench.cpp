// Selecting by place in drawings of 50,000, 100,000 and 200,000 entities: the time for a window or fence depends on the
// entities found, not on the drawing's size. Each drawing is a square grid of short lines, one metre apart.
#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <memory>

#include "atelier/application/open_drawing.h"
#include "atelier/selecting/pick.h"
#include "atelier/selecting/selections.h"
#include "hote/dbents.h"
#include "hote/dbsymtb.h"

namespace {

using atelier::OpenDrawing;

struct Grid {
  explicit Grid(int count) : document(nullptr), side(static_cast<int>(std::sqrt(count))) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(document.database().currentSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
      const double x = i % side, y = i / side;
      auto line = std::make_unique<AcDbLine>(AcGePoint3d(x, y, 0), AcGePoint3d(x + 0.5, y + 0.5, 0));
      if (space->appendAcDbEntity(line.get()) != Acad::eOk) std::abort();
      line.release()->close();
    }
  }
  AcGePoint3d at(double x, double y) const { return {side / 2 + x, side / 2 + y, 0}; }
  OpenDrawing document;
  int side;
};

// Drawings are made once; the first selection in each builds its index.
Grid& grid(benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Grid>> made;
  auto& one = made[state.range(0)];
  if (!one) one = std::make_unique<Grid>(static_cast<int>(state.range(0)));
  one->document.makeCurrent();
  atelier::selectBox(one->document, one->at(0, 0), one->at(1, 1), true, {});
  return *one;
}

void expect(std::size_t found, std::size_t least) {
  if (found < least) std::abort();
}

// Ten metres by ten: a hundred lines.
void BM_window(benchmark::State& state) {
  Grid& g = grid(state);
  for (auto _ : state)
    expect(atelier::selectBox(g.document, g.at(-0.2, -0.2), g.at(9.8, 9.8), true, {})->list().size(), 100);
}

// Three pieces over forty metres.
void BM_fence(benchmark::State& state) {
  Grid& g = grid(state);
  const AcGePoint3d points[] = {g.at(0, 0.25), g.at(20, 0.25), g.at(20, 10), g.at(30, 10.25)};
  for (auto _ : state)
    expect(atelier::selectPolygon(g.document, points, atelier::PolygonMode::fence, {})->list().size(), 20);
}

void BM_pick(benchmark::State& state) {
  Grid& g = grid(state);
  for (auto _ : state) expect(atelier::pickAt(g.document, g.at(0.25, 0.25)).isNull() ? 0 : 1, 1);
}

// One line moves before each selection: the index is updated, not built again.
void BM_windowAfterChange(benchmark::State& state) {
  Grid& g = grid(state);
  const AcDbObjectId id(g.document.database().currentSpaceId());
  const AcDbStub* space = id;
  double step = 0.001;
  for (auto _ : state) {
    const AcDbEntityPointer line(AcDbObjectId(space->children->front()), AcDb::kForWrite);
    line->transformBy(AcGeMatrix3d::translation({step = -step, 0, 0}));
    expect(atelier::selectBox(g.document, g.at(-0.2, -0.2), g.at(9.8, 9.8), true, {})->list().size(), 100);
  }
}

// For comparison, every entity of the drawing by a filter that none passes.
void BM_everyEntity(benchmark::State& state) {
  Grid& g = grid(state);
  const atelier::SelectionFilter circles({{0, atelier::Group::text(0, "CIRCLE"), {}}});
  for (auto _ : state) benchmark::DoNotOptimize(atelier::selectAll(g.document.imp(), circles));
}

#define SIZES ->Arg(50'000)->Arg(100'000)->Arg(200'000)->Unit(benchmark::kMicrosecond)
BENCHMARK(BM_window) SIZES;
BENCHMARK(BM_fence) SIZES;
BENCHMARK(BM_pick) SIZES;
BENCHMARK(BM_windowAfterChange) SIZES;
BENCHMARK(BM_everyEntity) SIZES;

}  // namespace

BENCHMARK_MAIN();
