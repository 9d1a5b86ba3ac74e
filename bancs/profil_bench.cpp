// Reading a profile record, filling a table, and calls through AutoLISP; ratios beside the times.
// Each figure is compared with a plain piece of the same work, or with half the size.
#include <benchmark/benchmark.h>

#include <string>

#include "bancs/session.h"
#include "hote/acut.h"
#include "module/profil/profilLong.h"

namespace {

using atelier::OpenDrawing;
using bancs::evaluate;
using bancs::makeProfile;

AcDbObjectId profileId(atelier::Document& document) {
  return AcDbObjectId(reinterpret_cast<AcDbStub*>(document.interpreter().get("P").entity()));
}

// The least that any reader has to do: get the chain and walk it.
void BM_WalkGroundChain(benchmark::State& state) {
  OpenDrawing document({});
  makeProfile(document, static_cast<int>(state.range(0)), 1.0, 10.0);
  const AcDbObjectId id = profileId(document);
  for (auto _ : state) {
    const AcDbObjectPointer<AcDbObject> object(id);
    resbuf* chain = object->xData(L"KELMONT_PLV2");
    double sum = 0;
    for (const resbuf* node = chain; node; node = node->rbnext) sum += node->resval.rreal;
    benchmark::DoNotOptimize(sum);
    acutRelRb(chain);
  }
}
BENCHMARK(BM_WalkGroundChain)->Arg(100'000)->Unit(benchmark::kMillisecond);

void BM_ReadProfile(benchmark::State& state) {
  OpenDrawing document({});
  makeProfile(document, static_cast<int>(state.range(0)), 1.0, 10.0);
  const AcDbObjectId id = profileId(document);
  for (auto _ : state) {
    plv::profilLong profil;
    if (!profil.lireId(id) || profil.distTn.size() != static_cast<std::size_t>(state.range(0))) std::abort();
    benchmark::DoNotOptimize(profil);
  }
}
BENCHMARK(BM_ReadProfile)->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// 20 rows of vertical numbers, `columns` cells each.
void BM_FillTable(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    OpenDrawing document({});
    makeProfile(document, 10, 1.0, 10.0);
    std::string rows = "(progn (pl_ResetMatrices)";
    for (int i = 0; i < 20; ++i)
      rows += " (pl_DefinirLigneMatrice \"M\" \"" + std::to_string(i) + "\" \"ligne\" 6.0 4)";
    evaluate(document, rows + " (pl_DessinerMatrices p '(0.0 0.0 0.0) 2.5 2.5) (pl_updLargeurLignes 1000.0))");
    state.ResumeTiming();
    evaluate(document, "(progn (setq i 0) (repeat 20 (pl_SelectLigne 0 i) (setq x 0.0) (repeat " +
                           std::to_string(state.range(0)) +
                           " (pl_NbreVertical 0 x 123.45) (setq x (+ x 3.0))) (setq i (1+ i))))");
    state.PauseTiming();
    state.counters["cells/s"] =
        benchmark::Counter(20.0 * static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FillTable)->RangeMultiplier(2)->Range(500, 4000)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_CallThroughLisp(benchmark::State& state, const char* expression) {
  OpenDrawing document({});
  const std::string loop = std::string("(repeat 10000 ") + expression + ")";
  for (auto _ : state) evaluate(document, loop);
  state.counters["calls/s"] = benchmark::Counter(10000, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK_CAPTURE(BM_CallThroughLisp, rtos, "(rtos 1250.5 2 2)");
BENCHMARK_CAPTURE(BM_CallThroughLisp, pl_distToPk, "(pl_distToPk 1250.5)");

}  // namespace

int main(int argc, char** argv) { return bancs::run(argc, argv); }
