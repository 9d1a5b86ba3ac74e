// A model of a million points with 50,000 breakline points: made beside CGAL alone, and cut by axes across it.
// The grid beside gdallocationinfo is measured by surfaces/compare.py.
#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <benchmark/benchmark.h>

#include <map>
#include <random>

#include "etudes/surfaces/coupeMaillage.h"
#include "etudes/surfaces/triangulation.h"

namespace {

constexpr double kSide = 10000;

double ground(double x, double y) { return 200 + 20 * std::sin(x / 300) + 15 * std::cos(y / 450) + 0.01 * x; }

struct Survey {
  std::vector<etu::point3> points;
  std::vector<std::pair<etu::numero, etu::numero>> segments;
};

// Random points, and breaklines of 100 vertices in rows that don't cross.
const Survey& survey(std::size_t count) {
  static std::map<std::size_t, Survey> known;
  Survey& s = known[count];
  if (!s.points.empty()) return s;
  std::mt19937 random(19);
  std::uniform_real_distribution<double> place(0, kSide);
  while (s.points.size() < count) {
    const double x = place(random), y = place(random);
    s.points.push_back({x, y, ground(x, y)});
  }
  const std::size_t lines = count / 2000;
  for (std::size_t line = 0; line < lines; ++line)
    for (int i = 0; i < 100; ++i) {
      const double x = kSide * (i + 0.5) / 100;
      const double y = kSide * (static_cast<double>(line) + 0.5) / static_cast<double>(lines) + 5 * std::sin(x / 200);
      if (i > 0) s.segments.emplace_back(s.points.size() - 1, s.points.size());
      s.points.push_back({x, y, ground(x, y)});
    }
  return s;
}

void CgalAlone(benchmark::State& state) {
  using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
  using Vertex = CGAL::Triangulation_vertex_base_with_info_2<std::size_t, Kernel>;
  using Face = CGAL::Constrained_triangulation_face_base_2<Kernel>;
  using Triangulation =
      CGAL::Constrained_Delaunay_triangulation_2<Kernel, CGAL::Triangulation_data_structure_2<Vertex, Face>,
                                                 CGAL::Exact_predicates_tag>;
  const Survey& s = survey(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::vector<std::pair<Kernel::Point_2, std::size_t>> points;
    for (std::size_t i = 0; i < s.points.size(); ++i)
      points.emplace_back(Kernel::Point_2(s.points[i].x, s.points[i].y), i);
    Triangulation t;
    t.insert(points.begin(), points.end());
    std::vector<Triangulation::Vertex_handle> vertices(points.size());
    for (auto v = t.finite_vertices_begin(); v != t.finite_vertices_end(); ++v) vertices[v->info()] = v;
    for (const auto& [a, b] : s.segments) t.insert_constraint(vertices[a], vertices[b]);
    benchmark::DoNotOptimize(t.number_of_faces());
  }
}
BENCHMARK(CgalAlone)->Arg(1000000)->Unit(benchmark::kMillisecond);

void Model(benchmark::State& state) {
  const Survey& s = survey(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    etu::listeContradictions contradictions;
    etu::coupeMaillage model(etu::trianguler(s.points, s.segments, contradictions).mesh);
    benchmark::DoNotOptimize(model.emprise());
  }
}
BENCHMARK(Model)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// Ten kilometres across, once and along a hundred axes.
void Profiles(benchmark::State& state) {
  const Survey& s = survey(static_cast<std::size_t>(state.range(0)));
  etu::listeContradictions contradictions;
  etu::coupeMaillage model(etu::trianguler(s.points, s.segments, contradictions).mesh);
  std::size_t vertices = 0;
  for (auto _ : state) {
    vertices = 0;
    for (int axis = 0; axis < state.range(1); ++axis) {
      const double y = kSide * (axis + 0.37) / static_cast<double>(state.range(1));
      const auto feet = etu::cordes({{0, y, 0, 0}, {kSide, kSide - y, 0, 0}});
      for (const etu::morceau& piece : etu::couper(model, feet, contradictions)) {
        vertices += piece.size();
        benchmark::DoNotOptimize(etu::alleger(piece, 0.01));
      }
    }
  }
  state.counters["vertices"] = static_cast<double>(vertices);
}
BENCHMARK(Profiles)->Args({250000, 1})->Args({1000000, 1})->Args({1000000, 100})->Unit(benchmark::kMillisecond);

void Thinning(benchmark::State& state) {
  etu::morceau line;
  for (int i = 0; i < state.range(0); ++i) line.push_back({0.5 * i, ground(0.5 * i, 0) + 0.02 * std::sin(i)});
  for (auto _ : state) benchmark::DoNotOptimize(etu::alleger(line, 0.01));
}
BENCHMARK(Thinning)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
