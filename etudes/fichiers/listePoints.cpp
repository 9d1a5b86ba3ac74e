// The separator and the columns are recognised on the first line; a million lines take about a tenth of a second.
#include "etudes/fichiers/listePoints.h"

#include <array>
#include <fstream>
#include <optional>
#include <string_view>

#include "etudes/fichiers/nombres.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

using champs = std::vector<std::string_view>;
enum class role { x, y, z, autre };

constexpr std::array<std::pair<std::string_view, role>, 24> kEntetes{{
    {"X", role::x},         {"EASTING", role::x},   {"EST", role::x},      {"E", role::x},       {"LON", role::x},
    {"LONGITUDE", role::x}, {"Y", role::y},         {"NORTHING", role::y}, {"NORD", role::y},    {"N", role::y},
    {"LAT", role::y},       {"LATITUDE", role::y},  {"Z", role::z},        {"ALT", role::z},     {"ALTITUDE", role::z},
    {"COTE", role::z},      {"ELEVATION", role::z}, {"ELEV", role::z},     {"H", role::z},       {"TN", role::z},
    {"ZTN", role::z},       {"HEIGHT", role::z},    {"GROUND_Z", role::z}, {"HAUTEUR", role::z},
}};

std::string_view sansBords(std::string_view texte) {
  const auto bord = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '"'; };
  while (!texte.empty() && bord(texte.front())) texte.remove_prefix(1);
  while (!texte.empty() && bord(texte.back())) texte.remove_suffix(1);
  return texte;
}

char separateurDe(std::string_view ligne) {
  if (ligne.find(';') != ligne.npos) return ';';
  if (ligne.find('\t') != ligne.npos) return '\t';
  // "1,5 2,5 3,5" has decimal commas between blanks, "1, 2, 3" and "1,2,3" have commas between fields.
  if (ligne.find(", ") != ligne.npos || (ligne.find(',') != ligne.npos && ligne.find(' ') == ligne.npos)) return ',';
  return ' ';
}

void couper(std::string_view ligne, char separateur, champs& resultat) {
  resultat.clear();
  while (true) {
    const std::size_t fin = ligne.find(separateur);
    const std::string_view champ = sansBords(ligne.substr(0, fin));
    if (separateur != ' ' || !champ.empty()) resultat.push_back(champ);
    if (fin == ligne.npos) return;
    ligne.remove_prefix(fin + 1);
  }
}

role roleDe(std::string_view champ) {
  std::string nom(champ);
  for (char& c : nom) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  for (const auto& [mot, r] : kEntetes)
    if (nom == mot) return r;
  return role::autre;
}

struct colonnes {
  std::size_t x, y, z;
};

std::optional<colonnes> colonnesDeLEntete(const champs& c) {
  std::array<std::size_t, 3> places;
  places.fill(c.size());
  for (std::size_t i = 0; i < c.size(); ++i)
    if (const role r = roleDe(c[i]); r != role::autre)
      if (std::size_t& place = places[static_cast<std::size_t>(r)]; place == c.size()) place = i;
  if (*std::max_element(places.begin(), places.end()) == c.size()) return {};
  return colonnes{places[0], places[1], places[2]};
}

// A name stands first when it is no number, or a whole one before three others of which the last has decimals.
std::optional<colonnes> colonnesDesNombres(const champs& c) {
  const auto nombre = [&](std::size_t i) { return i < c.size() && nombreDe(c[i]); };
  const auto decimal = [&](std::size_t i) { return c[i].find_first_of(".,") != std::string_view::npos; };
  if (nombre(1) && nombre(2) && nombre(3) && (!nombre(0) || (!decimal(0) && decimal(3)))) return colonnes{1, 2, 3};
  if (nombre(0) && nombre(1) && nombre(2)) return colonnes{0, 1, 2};
  return {};
}

std::string contenuDe(const std::wstring& chemin) {
  std::ifstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
  if (!fichier) throw refus{L"lecture impossible: " + chemin};
  std::string contenu{std::istreambuf_iterator<char>(fichier), std::istreambuf_iterator<char>()};
  if (contenu.starts_with("\xEF\xBB\xBF")) contenu.erase(0, 3);
  return contenu;
}

[[noreturn]] void refuserLigne(const std::wstring& chemin, std::size_t numeroLigne, std::string_view ligne) {
  std::wstring extrait = plv::depuisAnsi(ligne.substr(0, 80));
  for (wchar_t& c : extrait)
    if (c < L' ') c = L'?';
  throw refus{chemin + L", ligne " + std::to_wstring(numeroLigne) + L" illisible: \"" + extrait +
              L"\"; x, y et z attendus, ou un nom puis x, y et z"};
}

}  // namespace

void lirePoints(const std::wstring& chemin, releve& r) {
  const std::string contenu = contenuDe(chemin);
  std::string_view reste = contenu;
  std::optional<colonnes> places;
  char separateur = 0;
  champs c;
  const std::size_t avant = r.points.size();
  for (std::size_t numeroLigne = 1; !reste.empty(); ++numeroLigne) {
    const std::size_t fin = reste.find('\n');
    const std::string_view ligne = sansBords(reste.substr(0, fin));
    reste.remove_prefix(fin == reste.npos ? reste.size() : fin + 1);
    if (ligne.empty() || ligne.front() == '#' || ligne.front() == ';') continue;
    if (!separateur) separateur = separateurDe(ligne);
    couper(ligne, separateur, c);
    if (!places && (places = colonnesDeLEntete(c))) continue;
    if (!places && !(places = colonnesDesNombres(c))) {
      if (std::any_of(c.begin(), c.end(), [](std::string_view champ) { return nombreDe(champ).has_value(); }))
        refuserLigne(chemin, numeroLigne, ligne);
      separateur = 0;  // a header whose words say nothing
      continue;
    }
    const auto valeur = [&](std::size_t i) { return i < c.size() ? nombreDe(c[i]) : std::nullopt; };
    const auto x = valeur(places->x), y = valeur(places->y), z = valeur(places->z);
    if (!x || !y || !z) refuserLigne(chemin, numeroLigne, ligne);
    r.points.push_back({*x, *y, *z});
  }
  if (r.points.size() == avant) throw refus{chemin + L": aucun point; x, y et z sont attendus"};
}

}  // namespace etu
