// Quantities: the sweep beside a plain pass over the same pieces, the optimal line, and the workbook beside the library's
// own writing of the same cells. Growth at a doubling.
#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "bancs/session.h"
#include "module/metres/calculMetres.h"
#include "module/metres/exportClasseur.h"
#include "module/optimiseur/KavelOptimizer.h"
#include "module/support/dessin/kitEntites.h"

namespace {

using atelier::OpenDrawing;

// A ground that waves 30 m up and down, and a line 0.5 to 5.5 m below it.
double ground(double x) { return 100 + 30 * std::sin(x / 500); }
double project(double x) { return ground(x) - 3 - 2.5 * std::sin(x / 70); }

AcDbObjectId polyline(int pieces, double (*y)(double)) {
  auto p = std::make_unique<AcDbPolyline>(static_cast<unsigned>(pieces + 1));
  for (int i = 0; i <= pieces; ++i) p->addVertexAt(static_cast<unsigned>(i), AcGePoint2d(i, y(i)));
  AcDbObjectIdArray ids;
  plv::ajouterEtRetenir(ids, std::move(p));
  return ids[0];
}

plv::poigneeProfil emptyProfile(const std::wstring& number) {
  plv::poigneeProfil profile(new plv::InfoProfilEnLong);
  profile->numero = number.c_str();
  profile->echelleV = 1;
  profile->distPc = {0.0};
  profile->altPc = {0.0};
  return profile;
}

void BM_CalculerMetres(benchmark::State& state) {
  OpenDrawing document({});
  const int pieces = static_cast<int>(state.range(0));
  AcDbObjectIdArray terrain, projet;
  terrain.append(polyline(pieces, ground));
  projet.append(polyline(pieces, project));
  for (auto _ : state) {
    const auto profile = emptyProfile(L"1");
    const plv::gardeClassesExtremes garde(plv::listeClasses());
    plv::calculerMetres(profile, projet, terrain, {});
    if (profile->lignes[0].troncons.size() < 10) std::abort();
  }
}
BENCHMARK(BM_CalculerMetres)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

plv::LineSegArrayData pieces(int count, double (*y)(double)) {
  plv::LineSegArrayData line;
  for (int i = 0; i < count; ++i) line.Add({double(i), y(i), double(i + 1), y(i + 1)});
  return line;
}

// Only the sweep, from pieces to sections.
void BM_CouperEnTroncons(benchmark::State& state) {
  OpenDrawing document({});
  const auto terrain = pieces(static_cast<int>(state.range(0)), ground),
             projet = pieces(static_cast<int>(state.range(0)), project);
  const plv::gardeClassesExtremes garde(plv::listeClasses());
  for (auto _ : state) {
    plv::ligneTroncons line;
    plv::couperEnTroncons(projet, terrain, plv::listeClasses(), line);
    benchmark::DoNotOptimize(line.troncons.data());
  }
}
BENCHMARK(BM_CouperEnTroncons)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// The least work with both lines: the area between them, and a copy of both.
void BM_PlainPass(benchmark::State& state) {
  const auto terrain = pieces(static_cast<int>(state.range(0)), ground),
             projet = pieces(static_cast<int>(state.range(0)), project);
  for (auto _ : state) {
    plv::LineSegArrayData copies[2];
    double surface = 0;
    for (std::ptrdiff_t i = 0; i < terrain.GetSize(); ++i) {
      const plv::LineSeg &t = terrain.GetAt(i), &p = projet.GetAt(i);
      surface += 0.5 * (t.y1 - p.y1 + t.y2 - p.y2) * (t.x2 - t.x1);
      copies[0].Add(t);
      copies[1].Add(p);
    }
    benchmark::DoNotOptimize(surface);
  }
}
BENCHMARK(BM_PlainPass)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// A thousand kilometres of ground that waves so that the search breaks its line some 10,000 times. Without a drawing there are
// no trace graphics.
void BM_Optimizer(benchmark::State& state) {
  const int points = static_cast<int>(state.range(0));
  const double spacing = 1e6 / points;
  plv::pointsTerrain terrain;
  for (int i = 0; i < points; ++i) terrain.append(AcGePoint2d(i * spacing, 2.5 * std::sin(i * spacing / 5000)));
  std::size_t vertices = 0;
  for (auto _ : state) {
    plv::chaineTrace chain;
    const AcGePoint2d &first = terrain.first(), &last = terrain.last();
    plv::KavelOptimizer(1.0, 3.0).optimiser(terrain, {first.x, first.y - 2}, {last.x, last.y - 2}, chain);
    vertices = chain.size();
  }
  state.counters["vertices"] = static_cast<double>(vertices);
}
BENCHMARK(BM_Optimizer)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

std::string target() { return (std::filesystem::temp_directory_path() / "kavel-metres-bench.xlsx").string(); }

void BM_Export(benchmark::State& state) {
  OpenDrawing document({});
  std::vector<plv::poigneeProfil> profiles;
  for (int n = 0; n < 100; ++n) {
    profiles.push_back(emptyProfile(std::to_wstring(n)));
    profiles.back()->lignes.resize(1);
    for (int i = 0; i < static_cast<int>(state.range(0)); ++i) {
      plv::poigneeTroncon section(new plv::TranconProfilEnlong);
      section->projet->Add({double(i), 98.5, i + 1.0, 98.0, 1 + i % 6});
      section->surface = 1.75 + i;
      profiles.back()->lignes[0].troncons.push_back(section);
    }
  }
  for (auto _ : state)
    if (!plv::ecrireClasseur(profiles, target())) std::abort();
  std::filesystem::remove(target());
}
BENCHMARK(BM_Export)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

// The same cells and no more.
void BM_ExportByTheLibrary(benchmark::State& state) {
  for (auto _ : state) {
    lxw_workbook* book = workbook_new(target().c_str());
    lxw_format* number = workbook_add_format(book);
    format_set_num_format(number, "0.000");
    for (int n = 0; n < 100; ++n) {
      lxw_worksheet* sheet = workbook_add_worksheet(book, std::to_string(n).c_str());
      for (unsigned i = 0; i < static_cast<unsigned>(state.range(0)); ++i) {
        const std::string row = std::to_string(i + 6), difference = "=C" + row + "-B" + row;
        worksheet_write_number(sheet, 5 + i, 1, i, number);
        worksheet_write_number(sheet, 5 + i, 2, i + 1.0, number);
        worksheet_write_formula_num(sheet, 5 + i, 3, difference.c_str(), number, 1.0);
        worksheet_write_string(sheet, 5 + i, 4, "1.00 - 1.50 ", number);
        for (lxw_col_t column = 5; column <= 8; ++column)
          worksheet_write_number(sheet, 5 + i, column, 1.75 + i, number);
      }
    }
    if (workbook_close(book) != LXW_NO_ERROR) std::abort();
  }
  std::filesystem::remove(target());
}
BENCHMARK(BM_ExportByTheLibrary)->Arg(2000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return bancs::run(argc, argv); }
