// Curves of a project against many ground points, cut and joined; growth at a doubling, and OCCT called directly.
// Each figure is compared with half the size, or with the library's own call.
#include <benchmark/benchmark.h>

#include <GeomAPI_ExtremaCurveCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <cmath>
#include <memory>
#include <numbers>
#include <string>

#include "atelier/document/input.h"
#include "bancs/session.h"
#include "module/support/courbes/kitCourbes.h"
#include "module/support/dessin/kitEntites.h"

namespace {

using atelier::OpenDrawing;
using bancs::evaluate;

std::unique_ptr<AcDbPolyline> wave(int vertices, double step, double height) {
  auto p = std::make_unique<AcDbPolyline>(static_cast<unsigned>(vertices));
  for (int i = 0; i < vertices; ++i) p->addVertexAt(static_cast<unsigned>(i), AcGePoint2d(step * i, height + i % 3));
  return p;
}

// A profile p of so many ground points over 2000 m, and fifty polylines of 2,000 vertices over it, in the sets s and tt.
void makeDrawing(atelier::Document& document, int points) {
  bancs::makeProfile(document, points, 1999.0 / points, 1.0);
  evaluate(document, R"((progn
    (setq pc (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 2000.0 0.0 0.0))))
    (plsxd pc "DISTANCE" 2000.0) (plsxd pc "PC" 0.0) (plsxd p "PRPC" pc) (setq s (ssadd) tt (ssadd))))");
  for (int k = 0; k < 50; ++k) {
    plv::ajouterEspaceObjet(wave(2000, 1.0, 10.0 * k));
    evaluate(document, "(progn (ssadd (entlast) s) (ssadd (entlast) tt))");
  }
}

void BM_PointsPrjRef(benchmark::State& state) {
  OpenDrawing document({});
  makeDrawing(document, static_cast<int>(state.range(0)));
  for (auto _ : state) evaluate(document, "(if (< (length (pl_PointsPrjRef p s tt)) 10) (exit))");
}
BENCHMARK(BM_PointsPrjRef)->Arg(2500)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_ListerAltitudes(benchmark::State& state) {
  OpenDrawing document({});
  makeDrawing(document, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    atelier::LinesSource answers("(setq r (pl_listerAltitudes p))\nALL\n\n");
    document.run(answers);
    evaluate(document, "(if (< (length r) 10) (exit))");
  }
}
BENCHMARK(BM_ListerAltitudes)->Arg(2500)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

// 100,000 vertices cut at 1,000 abscissas, and half of either.
void BM_Cut(benchmark::State& state) {
  OpenDrawing document({});
  const auto curve = wave(static_cast<int>(state.range(0)), 1.0, 0.0);
  std::vector<double> at;
  for (std::int64_t i = 0; i < state.range(1); ++i)
    at.push_back((static_cast<double>(i) + 0.5) * static_cast<double>(state.range(0)) /
                 static_cast<double>(state.range(1)));
  for (auto _ : state) {
    plv::piecesCourbe pieces;
    bool replace = false;
    plv::couperCourbe(*curve, at, pieces, replace);
    if (pieces.size() != static_cast<std::size_t>(state.range(1)) + 1) std::abort();
  }
}
BENCHMARK(BM_Cut)->Args({50'000, 1000})->Args({100'000, 500})->Args({100'000, 1000})->Unit(benchmark::kMillisecond);

void BM_Join(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    OpenDrawing document({});
    AcDbObjectIdArray ids;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      auto p = std::make_unique<AcDbPolyline>(2);
      const double x = static_cast<double>(i);
      p->addVertexAt(0, AcGePoint2d(x, std::sin(x)));
      p->addVertexAt(1, AcGePoint2d(x + 1.0, std::sin(x + 1.0)));
      plv::ajouterEtRetenir(ids, std::move(p));
    }
    state.ResumeTiming();
    plv::joindreCourbes(ids);
    if (ids.length() != 1) std::abort();
  }
}
BENCHMARK(BM_Join)->Arg(1000)->Arg(2000)->Arg(4000)->Unit(benchmark::kMillisecond);

// Two splines of so many control points that cross between each two.
std::unique_ptr<AcDbSpline> sine(int points, double phase) {
  AcGePoint3dArray controls;
  for (int i = 0; i < points; ++i) controls.append(AcGePoint3d(i, 5.0 * std::cos(std::numbers::pi * i + phase), 0.0));
  return plv::splineUniforme(3, controls);
}

void BM_IntersectSplines(benchmark::State& state) {
  const auto a = sine(static_cast<int>(state.range(0)), 0.0),
             b = sine(static_cast<int>(state.range(0)), std::numbers::pi);
  for (auto _ : state) {
    AcGePoint3dArray points;
    a->intersectWith(b.get(), AcDb::kOnBothOperands, points);
    if (points.length() < state.range(0) / 2) std::abort();
  }
}
BENCHMARK(BM_IntersectSplines)->Arg(25)->Arg(50)->Arg(100)->Unit(benchmark::kMillisecond);

Handle(Geom_BSplineCurve) occtSine(int points, double phase) {
  TColgp_Array1OfPnt poles(1, points);
  for (int i = 0; i < points; ++i) poles.SetValue(i + 1, gp_Pnt(i, 5.0 * std::cos(std::numbers::pi * i + phase), 0.0));
  const int spans = points - 3;
  TColStd_Array1OfReal knots(1, spans + 1);
  TColStd_Array1OfInteger multiplicities(1, spans + 1);
  for (int i = 0; i <= spans; ++i) {
    knots.SetValue(i + 1, i);
    multiplicities.SetValue(i + 1, i == 0 || i == spans ? 4 : 1);
  }
  return new Geom_BSplineCurve(poles, knots, multiplicities, 3);
}

void BM_IntersectSplinesByOcct(benchmark::State& state) {
  const auto a = occtSine(static_cast<int>(state.range(0)), 0.0),
             b = occtSine(static_cast<int>(state.range(0)), std::numbers::pi);
  for (auto _ : state) {
    GeomAPI_ExtremaCurveCurve extrema(a, b);
    benchmark::DoNotOptimize(extrema.NbExtrema());
  }
}
BENCHMARK(BM_IntersectSplinesByOcct)->Arg(25)->Arg(50)->Arg(100)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) { return bancs::run(argc, argv); }
