// Trenches of runs of fifty pipes: measuring, the whole workbook, and the library's own writing of the very cells of that workbook, which
// are noted as they are written. Benchmark arguments: number of runs.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>

#include "etudes/tranchees/classeur.h"

namespace {

// A cell as it was given to the library.
struct cellule {
  lxw_worksheet* feuille;
  lxw_row_t rangee;
  lxw_col_t colonne;
  enum { kNombre, kTexte, kFormule } genre;
  double valeur;
  std::string texte;
};
std::vector<cellule>* g_notees = nullptr;

}  // namespace

extern "C" {
lxw_error __real_worksheet_write_number(lxw_worksheet*, lxw_row_t, lxw_col_t, double, lxw_format*);
lxw_error __real_worksheet_write_string(lxw_worksheet*, lxw_row_t, lxw_col_t, const char*, lxw_format*);
lxw_error __real_worksheet_write_formula_num(lxw_worksheet*, lxw_row_t, lxw_col_t, const char*, lxw_format*, double);

lxw_error __wrap_worksheet_write_number(lxw_worksheet* f, lxw_row_t r, lxw_col_t c, double v, lxw_format* s) {
  if (g_notees) g_notees->push_back({f, r, c, cellule::kNombre, v, {}});
  return __real_worksheet_write_number(f, r, c, v, s);
}
lxw_error __wrap_worksheet_write_string(lxw_worksheet* f, lxw_row_t r, lxw_col_t c, const char* t, lxw_format* s) {
  if (g_notees) g_notees->push_back({f, r, c, cellule::kTexte, 0, t});
  return __real_worksheet_write_string(f, r, c, t, s);
}
lxw_error __wrap_worksheet_write_formula_num(lxw_worksheet* f, lxw_row_t r, lxw_col_t c, const char* t, lxw_format* s,
                                             double v) {
  if (g_notees) g_notees->push_back({f, r, c, cellule::kFormule, v, t});
  return __real_worksheet_write_formula_num(f, r, c, t, s, v);
}
}

namespace {

using namespace etu;

constexpr int kTuyaux = 50;
constexpr double kPas = 40;  // metres between manholes, and between runs

struct chantier {
  ligneDroites sol;
  reseauPose reseau;
  reglesTranchees regles;
};

chantier faire(int troncons) {
  morceauLigne terrain;
  rangees textes;
  const int regards = troncons * (kTuyaux + 1);
  for (int i = 0; i < regards; ++i) {
    const double x = i * kPas;
    terrain.push_back({x, 100 + std::sin(i * 0.7)});
    terrain.push_back({x + kPas / 3, 100.5 + std::cos(i * 1.3)});
    textes.push_back(L"regard;R" + std::to_wstring(i) + L";" + enTexte(x) + L";visite;1000/1240;;" +
                     enTexte(97 - std::sin(i * 0.3)) + L";" + enTexte(97 - std::sin(i * 0.3)));
    if (i % (kTuyaux + 1) != 0)
      textes.push_back(L"tuyau;R" + std::to_wstring(i - 1) + L";R" + std::to_wstring(i) + L";300/376;béton;135A");
  }
  terrain.push_back({regards * kPas, 100});
  chantier c{ligneDroites({terrain}),
             {},
             lireRegles({L"classes;1.3;2;3;4", L"type;A", L"largeur;;0.5", L"profondeur;1.75;0.8", L"profondeur;4;0.9",
                         L"profondeur;;1", L"lit;0.1", L"enrobage;0.15", L"blindage;1.3;2/3", L"remblai;grave;0.35",
                         L"remblai;déblais;;réemploi", L"regard;0.5;0.1;0.15", L"revêtement;route",
                         L"structure;enrobés;0.06", L"structure;grave;0.14"})};
  c.reseau = situer(lireReseau(textes), c.sol, {});
  return c;
}

lotMesure mesurerLot(const chantier& c) {
  tranchees t = decouper(c.reseau, c.regles, {c.sol, {}});
  quantites q = mesurer(t);
  return {L"essai", std::move(t), std::move(q), {}};
}

std::wstring chemin() { return (std::filesystem::temp_directory_path() / "kavel-tranchees.xlsx").wstring(); }

void Mesurer(benchmark::State& state) {
  const chantier c = faire(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(mesurerLot(c));
}

void MesurerEtEcrire(benchmark::State& state) {
  const chantier c = faire(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::vector<lotMesure> lots;
    lots.push_back(mesurerLot(c));
    ecrireClasseur(chemin(), lots, {}, {});
  }
}

// The same cells, in the order in which they were written.
void EcrireLesMemesCellules(benchmark::State& state) {
  const chantier c = faire(static_cast<int>(state.range(0)));
  std::vector<cellule> cellules;
  g_notees = &cellules;
  std::vector<lotMesure> lots;
  lots.push_back(mesurerLot(c));
  ecrireClasseur(chemin(), lots, {}, {});
  g_notees = nullptr;
  for (auto _ : state) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* classeur = workbook_new_opt(std::filesystem::path(chemin()).c_str(), &options);
    lxw_format* style = workbook_add_format(classeur);
    format_set_num_format(style, "0.000000");
    format_set_border(style, LXW_BORDER_THIN);
    lxw_worksheet *ancienne = nullptr, *f = nullptr;
    for (const cellule& n : cellules) {
      if (n.feuille != ancienne) ancienne = n.feuille, f = workbook_add_worksheet(classeur, nullptr);
      if (n.genre == cellule::kNombre) worksheet_write_number(f, n.rangee, n.colonne, n.valeur, style);
      else if (n.genre == cellule::kTexte) worksheet_write_string(f, n.rangee, n.colonne, n.texte.c_str(), style);
      else worksheet_write_formula_num(f, n.rangee, n.colonne, n.texte.c_str(), style, n.valeur);
    }
    workbook_close(classeur);
  }
  state.counters["cellules"] = static_cast<double>(cellules.size());
}

BENCHMARK(Mesurer)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(MesurerEtEcrire)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(EcrireLesMemesCellules)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
