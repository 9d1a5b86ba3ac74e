// The line of fewest vertices beside a plain pass over the same ground that measures the depth of a line. Growth at a doubling.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>

#include "etudes/cout/moindre.h"
#include "etudes/optimal/profondeurs.h"
#include "etudes/optimal/proposition.h"

namespace {

// A ground that waves in several lengths and has a small ripple, a point every two metres.
etu::listeSommets ground(std::size_t points) {
  etu::listeSommets made;
  for (std::size_t i = 0; i < points; ++i) {
    const double d = 2.0 * static_cast<double>(i);
    const double ripple = 0.01 * static_cast<double>((i * 7919) % 13);
    made.push_back(
        {plv::distanceProfil(d), plv::altitudeVraie(100 + 8 * std::sin(d / 900) + 1.5 * std::sin(d / 70) + ripple)});
  }
  return made;
}

etu::demande asked(const etu::listeSommets& terrain) {
  etu::demande d;
  d.fin = terrain.back().distance.valeur;
  d.profondeurs = {0.8, 1.6};
  return d;
}

// Reads the ground and measures the depth of a line of two vertices everywhere.
void BM_PlainPass(benchmark::State& state) {
  const auto terrain = ground(static_cast<std::size_t>(state.range(0)));
  const etu::listeSommets line = {terrain.front(), terrain.back()};
  for (auto _ : state) benchmark::DoNotOptimize(etu::profondeursExtremes(terrain, line));
}
BENCHMARK(BM_PlainPass)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// From the ground to the number of runs and a line that has it.
void BM_FewestRuns(benchmark::State& state) {
  const auto terrain = ground(static_cast<std::size_t>(state.range(0)));
  const etu::demande d = asked(terrain);
  std::size_t vertices = 0;
  for (auto _ : state) {
    const auto found = etu::moinsDeDroites(etu::couloirSous(terrain, d.debut, d.fin, d.profondeurs));
    if (!found) std::abort();
    vertices = found->ligne.size();
  }
  state.counters["vertices"] = static_cast<double>(vertices);
}
BENCHMARK(BM_FewestRuns)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// What PLV-OPTIMAL asks for: the number from both ends, and the line that is chosen. 6,000 points are 12 km.
void BM_Proposition(benchmark::State& state) {
  const auto terrain = ground(static_cast<std::size_t>(state.range(0)));
  etu::demande d = asked(terrain);
  if (state.range(1) != 0) d.pente = etu::pentes{-0.06, 0.06};
  for (auto _ : state)
    if (!etu::proposer(terrain, d)) std::abort();
}
BENCHMARK(BM_Proposition)
    ->Args({6'000, 0})
    ->Args({6'000, 1})
    ->Args({100'000, 0})
    ->Args({1'000'000, 0})
    ->Unit(benchmark::kMillisecond);

// Sewers with a manhole every 50 m, a ground point every 10 m, and 420 levels to choose from at each.
void BM_LeastCost(benchmark::State& state) {
  const auto manholes = static_cast<std::size_t>(state.range(0));
  etu::listeSommets terrain;
  for (std::size_t i = 0; i <= 5 * manholes; ++i) {
    const double d = 10.0 * static_cast<double>(i);
    terrain.push_back({plv::distanceProfil(d), plv::altitudeVraie(500 - 0.004 * d + 0.4 * std::sin(d / 70))});
  }
  etu::demande d = asked(terrain);
  d.profondeurs = {0.8, 5.0};
  d.pente = etu::pentes{-0.08, -0.003};
  etu::demandeRegards regards;
  for (std::size_t i = 1; i < manholes; ++i) regards.distances.push_back(50.0 * static_cast<double>(i));
  etu::tarif prix;
  prix.fouille = {{1.3, 0.9, 18}, {2.5, 1.1, 24}, {6.0, 1.5, 35}};
  prix.seuilBlindage = 1.3;
  prix.prixBlindage = 12;
  prix.prixRegard = 850;
  prix.prixMetreRegard = 120;
  prix.chutes = etu::tarif::chute{300, 1.5};
  for (auto _ : state) {
    const auto found = etu::moindreCout(terrain, d, regards, prix, 0.01);
    if (!found || !found->ligne) std::abort();
    state.counters["gap, per mille"] = 1000 * (1 - found->ligne->borne / found->ligne->cout);
  }
}
BENCHMARK(BM_LeastCost)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
