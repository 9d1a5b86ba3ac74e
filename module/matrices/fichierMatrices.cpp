// Matrix definition files: the analysis of a line, and the reading of a file.
// A number is tested by a small state machine before it is converted.
#include "module/matrices/fichierMatrices.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <limits>
#include <sstream>
#include <vector>

#include "module/commande/arguments/argsLisp.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/profil/numeroteur.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

constexpr std::wstring_view kBlancs = L" \t";
constexpr std::size_t kMots = 4;
enum place { kMatrice, kBourrage, kHauteur, kType };

bool estBlanc(wchar_t c) { return c == L' ' || c == L'\t'; }
bool estChiffre(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool finitNombre(wchar_t c) { return estBlanc(c) || c == L'\r' || c == L'\n'; }

enum class etat {
  debut,
  signe,
  chiffres,
  unChiffre,
  point,
  fraction,
  exposant,
  signeExposant,
  chiffresExposant,
  pointInitial,
  refus
};

etat apresChiffre(etat e) {
  switch (e) {
    case etat::debut: return etat::unChiffre;
    case etat::signe:
    case etat::unChiffre:
    case etat::chiffres: return etat::chiffres;
    case etat::point:
    case etat::fraction: return etat::fraction;
    case etat::exposant:
    case etat::signeExposant:
    case etat::chiffresExposant: return etat::chiffresExposant;
    default: return e;
  }
}

etat apresSigne(etat e) {
  if (e == etat::debut) return etat::signe;
  return e == etat::exposant ? etat::signeExposant : etat::refus;
}

etat apresPoint(etat e) {
  if (e == etat::debut) return etat::pointInitial;
  return e == etat::chiffres || e == etat::unChiffre ? etat::point : etat::refus;
}

etat apres(etat e, wchar_t c) {
  if (estChiffre(c)) return apresChiffre(e);
  if (c == L'+' || c == L'-') return apresSigne(e);
  if (c == L'.') return apresPoint(e);
  if (c == L'E' && (e == etat::point || e == etat::fraction)) return etat::exposant;
  return etat::refus;
}

bool estNombreValide(std::wstring_view texte) {
  texte.remove_prefix(std::min(texte.find_first_not_of(kBlancs), texte.size()));
  etat e = etat::debut;
  while (!texte.empty() && !finitNombre(texte.front()) && e != etat::refus) {
    e = apres(e, texte.front());
    texte.remove_prefix(1);
  }
  const bool bon = e == etat::chiffres || e == etat::unChiffre || e == etat::fraction || e == etat::chiffresExposant;
  return bon && std::all_of(texte.begin(), texte.end(), finitNombre);
}

// The text of a valid number, without the plus that std::from_chars refuses.
std::string chiffresDe(std::wstring_view texte) {
  texte.remove_prefix(std::min(texte.find_first_not_of(L" \t+"), texte.size()));
  return std::string(texte.begin(), texte.end());
}

double versReel(std::wstring_view texte) {
  const std::string chiffres = chiffresDe(texte);
  double valeur = 0.0;
  const auto lu = std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur);
  if (lu.ec == std::errc::result_out_of_range && chiffres.find("E-") == std::string::npos)
    valeur = std::copysign(HUGE_VAL, chiffres.front() == '-' ? -1.0 : 1.0);
  return valeur;
}

Adesk::Int32 versEntier(std::wstring_view texte) {
  const std::string chiffres = chiffresDe(texte);
  Adesk::Int32 valeur = 0;
  const auto lu = std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur);
  using bornes = std::numeric_limits<Adesk::Int32>;
  if (lu.ec == std::errc::result_out_of_range) valeur = chiffres.front() == '-' ? bornes::min() : bornes::max();
  return valeur;
}

// What is left of a line, and the fields taken from it.
struct lecteurLigne {
  std::wstring_view reste;

  void sauterBlancs() { reste.remove_prefix(std::min(reste.find_first_not_of(kBlancs), reste.size())); }
  bool accolade() const { return !reste.empty() && reste.front() == L'{'; }

  std::wstring jusque(std::wstring_view fins) {
    const std::size_t fin = std::min(reste.find_first_of(fins), reste.size());
    const std::wstring texte(reste.substr(0, fin));
    reste.remove_prefix(std::min(fin + 1, reste.size()));
    return texte;
  }
  // Not closed, it runs to the end of the line.
  std::wstring texteLibre() {
    reste.remove_prefix(1);
    return jusque(L"}");
  }
};

std::wstring lireTout(const std::wstring& chemin, bool& ouvert) {
  std::ifstream fichier(nomDeFichier(chemin), std::ios::binary);
  ouvert = fichier.is_open();
  std::ostringstream octets;
  if (ouvert) octets << fichier.rdbuf();
  std::wstring texte = depuisAnsi(octets.str());
  constexpr wchar_t kMarqueUtf8 = 0xFEFF;
  if (!texte.empty() && texte.front() == kMarqueUtf8) texte.erase(0, 1);
  return texte;
}

// The next line, without its end in either form; the text is cut by it.
std::wstring_view ligneSuivante(std::wstring_view& texte) {
  const std::size_t fin = std::min(texte.find(L'\n'), texte.size());
  std::wstring_view ligne = texte.substr(0, fin);
  texte.remove_prefix(std::min(fin + 1, texte.size()));
  if (ligne.ends_with(L'\r')) ligne.remove_suffix(1);
  return ligne;
}

}  // namespace

std::optional<definitionLigne> analyserLigne(std::wstring_view ligne) {
  definitionLigne lue;
  std::vector<std::wstring> mots;
  lecteurLigne lecteur{ligne};
  while (!lecteur.reste.empty()) {
    lecteur.sauterBlancs();
    if (lecteur.accolade()) {
      lue.infos = lecteur.texteLibre();
      if (mots.size() < kMots) continue;
      lecteur.sauterBlancs();
    } else if (mots.size() < kMots) {
      // Empty when only blanks were left: it counts as a word, and fails the line as a number.
      mots.push_back(lecteur.jusque(kBlancs));
      continue;
    }
    lue.libelle = lecteur.reste;
    break;
  }
  if (mots.size() != kMots || !estNombreValide(mots[kHauteur]) || !estNombreValide(mots[kType])) return std::nullopt;
  lue.matrice = mots[kMatrice];
  lue.hauteur = versReel(mots[kHauteur]);
  lue.type = versEntier(mots[kType]);
  return lue;
}

bool lireFichierMatrices(const std::wstring& chemin, gestionMatrices& collection) {
  collection.vider();
  bool ouvert = false;
  const std::wstring texte = lireTout(chemin, ouvert);
  if (!ouvert) return false;
  numeroteurEntier numeros;
  std::wstring_view reste = texte;
  while (!reste.empty())
    if (const auto ligne = analyserLigne(ligneSuivante(reste)))
      collection.ajouterLigne(ligne->matrice, numeros.suivant(), ligne->libelle, ligne->hauteur, ligne->type,
                              ligne->infos);
  return collection.matrices.GetCount() > 0;
}

void pl_LireMatriceKavel() {
  ArgsLisp args;
  commencerAppel(args);
  collectionMatrices().vider();
  if (args.nombre() != 1 || !conforme(args, "C")) return;
  if (lireFichierMatrices(valeurTexte(args.tete()), collectionMatrices())) acedRetT();
}

}  // namespace plv
