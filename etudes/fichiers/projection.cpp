// Coordinate systems by PROJ, which is loaded when it is first needed.
#include "etudes/fichiers/projection.h"

#include <proj.h>

#include <array>

#include "etudes/fichiers/bibliotheque.h"
#include "module/support/base/lettres.h"

// clang-format off
#define KAVEL_FONCTIONS_PROJ(F)                                                                               \
  F(proj_context_create) F(proj_context_set_enable_network) F(proj_log_level) F(proj_create) F(proj_destroy)  \
  F(proj_get_type) F(proj_get_name) F(proj_get_id_auth_name) F(proj_get_id_code) F(proj_crs_get_sub_crs)      \
  F(proj_identify) F(proj_list_get) F(proj_list_get_count) F(proj_list_destroy) F(proj_int_list_destroy)      \
  F(proj_create_crs_to_crs_from_pj) F(proj_normalize_for_visualization) F(proj_trans) F(proj_get_area_of_use) \
  F(proj_is_equivalent_to) F(proj_is_crs)
// clang-format on

namespace etu {

namespace {

// The systems of French-speaking countries, the most usual ones first.
constexpr std::array kUsuels = {2154,  3942,  3943,  3944,  3945,  3946,  3947,  3948,  3949,  3950,  31370, 3812,
                                2056,  21781, 2169,  27572, 27561, 27562, 27563, 27564, 25831, 25832, 25830, 25833,
                                25829, 32631, 32632, 32630, 5490,  2972,  2975,  4471,  32628, 32629};

struct projChargee {
#define F(nom) decltype(&::nom) nom = nullptr;
  KAVEL_FONCTIONS_PROJ(F)
#undef F
  PJ_CONTEXT* contexte = nullptr;
};

projChargee charger() {
  const bibliotheque lib(KAVEL_PROJ, L"PROJ");
  projChargee p;
#define F(nom) p.nom = reinterpret_cast<decltype(p.nom)>(lib.fonction(#nom));
  KAVEL_FONCTIONS_PROJ(F)
#undef F
  p.contexte = p.proj_context_create();
  p.proj_context_set_enable_network(p.contexte, 0);
  p.proj_log_level(p.contexte, PJ_LOG_NONE);
  return p;
}

const projChargee& proj() {
  static const projChargee chargee = charger();
  return chargee;
}

struct liberer {
  void operator()(PJ* p) const { proj().proj_destroy(p); }
};
using objetProj = std::unique_ptr<PJ, liberer>;

bool geographique(const PJ* p) {
  const PJ_TYPE type = proj().proj_get_type(p);
  return type == PJ_TYPE_GEOGRAPHIC_2D_CRS || type == PJ_TYPE_GEOGRAPHIC_3D_CRS;
}

// A system, without the vertical part that goes to `vertical`; null for a text that names none.
objetProj horizontal(const std::string& texte, std::wstring* vertical = nullptr) {
  const projChargee& p = proj();
  objetProj systeme(p.proj_create(p.contexte, texte.c_str()));
  if (!systeme || !p.proj_is_crs(systeme.get())) return nullptr;
  if (p.proj_get_type(systeme.get()) != PJ_TYPE_COMPOUND_CRS) return systeme;
  if (const objetProj haut{p.proj_crs_get_sub_crs(p.contexte, systeme.get(), 1)}; haut && vertical)
    *vertical = plv::depuisAnsi(p.proj_get_name(haut.get()));
  return objetProj(p.proj_crs_get_sub_crs(p.contexte, systeme.get(), 0));
}

// The code of a system that doesn't carry one, found among those of the register.
std::string codeDe(const PJ* systeme) {
  const projChargee& p = proj();
  const auto code = [&](const PJ* s) {
    const char *autorite = p.proj_get_id_auth_name(s, 0), *numero = p.proj_get_id_code(s, 0);
    return autorite && numero ? std::string(autorite) + ":" + numero : std::string();
  };
  if (const std::string connu = code(systeme); !connu.empty()) return connu;
  int* confiances = nullptr;
  PJ_OBJ_LIST* liste = p.proj_identify(p.contexte, systeme, "EPSG", nullptr, &confiances);
  std::string trouve;
  if (liste && p.proj_list_get_count(liste) > 0 && confiances[0] >= 70) {
    const objetProj premier(p.proj_list_get(p.contexte, liste, 0));
    trouve = code(premier.get());
  }
  p.proj_list_destroy(liste);
  p.proj_int_list_destroy(confiances);
  return trouve;
}

systemeConnu decrire(const PJ* systeme) {
  return {codeDe(systeme), plv::depuisAnsi(proj().proj_get_name(systeme)), geographique(systeme), {}};
}

std::shared_ptr<PJ> operation(const PJ* de, const PJ* a) {
  const projChargee& p = proj();
  const objetProj brute(
      p.proj_create_crs_to_crs_from_pj(p.contexte, const_cast<PJ*>(de), const_cast<PJ*>(a), nullptr, nullptr));
  if (!brute) return nullptr;
  return {p.proj_normalize_for_visualization(p.contexte, brute.get()), liberer()};
}

changement changementPar(std::shared_ptr<PJ> op, PJ_DIRECTION sens) {
  return [op = std::move(op), sens](double& x, double& y) {
    PJ_COORD c{};
    c.xyzt.x = x, c.xyzt.y = y, c.xyzt.t = HUGE_VAL;
    c = proj().proj_trans(op.get(), sens, c);
    x = c.xy.x, y = c.xy.y;
    return std::isfinite(x) && std::isfinite(y);
  };
}

bool utilisable(const PJ* systeme, const changement& versDegres, const etendue& e) {
  double ouest = 0, sud = 0, est = 0, nord = 0;
  if (!proj().proj_get_area_of_use(proj().contexte, systeme, &ouest, &sud, &est, &nord, nullptr)) return false;
  for (const double cx : {e.xMin, e.xMax})
    for (const double cy : {e.yMin, e.yMax}) {
      double x = cx, y = cy;
      if (!versDegres(x, y) || x < ouest || x > est || y < sud || y > nord) return false;
    }
  return true;
}

}  // namespace

bool projPresente() { return true; }

std::optional<systemeConnu> systemeDe(const std::string& texte) {
  std::wstring vertical;
  const objetProj systeme = horizontal(texte, &vertical);
  if (!systeme) return {};
  systemeConnu connu = decrire(systeme.get());
  connu.vertical = std::move(vertical);
  return connu;
}

passage passageEntre(const std::string& de, const std::string& a) {
  const objetProj depart = horizontal(de), arrivee = horizontal(a);
  if (!depart || !arrivee)
    throw refus{L"système de coordonnées inconnu: " + plv::depuisAnsi(depart ? a : de).substr(0, 60)};
  if (proj().proj_is_equivalent_to(depart.get(), arrivee.get(), PJ_COMP_EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS))
    return {};
  const std::shared_ptr<PJ> op = operation(depart.get(), arrivee.get());
  if (!op)
    throw refus{L"pas de passage connu entre les systèmes de coordonnées " + decrire(depart.get()).nom + L" et " +
                decrire(arrivee.get()).nom};
  return {changementPar(op, PJ_FWD), changementPar(op, PJ_INV)};
}

std::vector<systemeConnu> systemesPossibles(const etendue& e) {
  std::vector<systemeConnu> possibles;
  const objetProj degres = horizontal("EPSG:4326");
  for (const int code : kUsuels) {
    const objetProj systeme = horizontal("EPSG:" + std::to_string(code));
    if (!systeme) continue;
    if (const auto op = operation(systeme.get(), degres.get());
        op && utilisable(systeme.get(), changementPar(op, PJ_FWD), e))
      possibles.push_back(decrire(systeme.get()));
  }
  return possibles;
}

}  // namespace etu
