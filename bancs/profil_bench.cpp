// Reading a profile record, filling a table, and calls through AutoLISP; ratios beside the times.
// Each figure stands beside a plain piece of the same work, or beside itself at half the size.
#include <benchmark/benchmark.h>

#include <string>

#include "atelier/editor/document.h"
#include "atelier/editor/published.h"
#include "hote/acut.h"
#include "module/commande/entree.h"
#include "module/profil/profilLong.h"

namespace {

using atelier::Document;

int moduleEntry(int message, void* id) { return acrxEntryPoint(static_cast<AcRx::AppMsgCode>(message), id); }

void evaluate(Document& document, const std::string& text) {
  if (!document.evaluate(text)) std::abort();
}

// A profile with so many ground points, written in one go; the variable p holds it.
void makeProfile(Document& document, int points) {
  evaluate(document, R"((progn
    (regapp "PLV2_DATA") (regapp "KELMONT_PLV2")
    (entmake '((0 . "BLOCK") (2 . "P") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
    (entmake '((0 . "INSERT") (2 . "P") (66 . 1) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ATTRIB") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "1") (2 . "NUMPL") (70 . 0)))
    (entmake '((0 . "SEQEND"))) (setq p (entlast))
    (plsxd p "ECHV" 10.0) (plsxd p "TTXT" 2.5) (plsxd p "LONGUEUR" 1.0)))");
  evaluate(document, "(progn (setq l nil) (repeat " + std::to_string(points) +
                         " (setq l (cons '(1040 . 1.0) (cons '(1040 . 100.0) l))))"
                         " (entmod (append (entget p) (list (list -3 (cons \"KELMONT_PLV2\" l))))))");
}

AcDbObjectId profileId(Document& document) {
  return AcDbObjectId(reinterpret_cast<AcDbStub*>(document.interpreter().get("P").entity()));
}

// What any reader has to do: fetch the chain and walk it.
void BM_WalkGroundChain(benchmark::State& state) {
  Document document({});
  makeProfile(document, static_cast<int>(state.range(0)));
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
  Document document({});
  makeProfile(document, static_cast<int>(state.range(0)));
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
    Document document({});
    makeProfile(document, 10);
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
  Document document({});
  const std::string loop = std::string("(repeat 10000 ") + expression + ")";
  for (auto _ : state) evaluate(document, loop);
  state.counters["calls/s"] = benchmark::Counter(10000, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK_CAPTURE(BM_CallThroughLisp, rtos, "(rtos 1250.5 2 2)");
BENCHMARK_CAPTURE(BM_CallThroughLisp, pl_distToPk, "(pl_distToPk 1250.5)");

}  // namespace

int main(int argc, char** argv) {
  atelier::registerApplication(moduleEntry);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
