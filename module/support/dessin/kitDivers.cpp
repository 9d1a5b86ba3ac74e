// The installation folder, the drawing's name, its current space, and a log for debugging.
// The folder's texts live in static buffers: the calls can't be re-entered.
#include "module/support/dessin/kitDivers.h"

#include <algorithm>
#include <array>
#include <fstream>

#include "hote/aced.h"
#include "hote/acut.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"
#include "hote/plateforme.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr const wchar_t* kCleInstallation = L"Software\\Kelmont-Etudes\\Vardane2018_Amaranth";
constexpr const wchar_t* kValeurChemin = L"chemin";

bool estSeparateur(wchar_t c) { return c == L'\\' || c == kSeparateurDossier; }

std::wstring lireDossier() {
  std::array<wchar_t, 2048> tampon{};
  unsigned long taille = sizeof tampon;
  if (adaptation::registryString(HKEY_LOCAL_MACHINE, kCleInstallation, kValeurChemin, tampon.data(), &taille) !=
      ERROR_SUCCESS)
    return {};
  std::wstring dossier = tampon.data();
  while (!dossier.empty() && estSeparateur(dossier.back())) dossier.pop_back();
  return dossier;
}

bool lireVariable(const ACHAR* nom, std::wstring& valeur) {
  resbuf rb{};
  if (acedGetVar(nom, &rb) != RTNORM || rb.restype != RTSTR) return false;
  valeur = rb.resval.rstring;
  acutDelString(rb.resval.rstring);
  return true;
}

}  // namespace

const ACHAR* cheminInstallation(const ACHAR* nomFichier) {
  static const std::wstring dossier = lireDossier();
  static std::array<ACHAR, 4096> chemin;
  std::wstring complet = dossier;
  if (nomFichier && *nomFichier) (complet += kSeparateurDossier) += nomFichier;
  complet.resize(std::min(complet.size(), chemin.size() - 1));
  *std::copy(complet.begin(), complet.end(), chemin.begin()) = L'\0';
  return chemin.data();
}

std::wstring nomDessinComplet() {
  std::wstring dossier, nom;
  if (!lireVariable(L"DWGPREFIX", dossier) || !lireVariable(L"DWGNAME", nom)) return {};
  return dossier + nom.substr(0, nom.find(L'.'));
}

const ACHAR* espaceCourant() {
  const AcDbDatabase* base = baseCourante();
  if (!base || base->tilemode()) return ACDB_MODEL_SPACE;
  resbuf rb{};
  const bool papier = acedGetVar(L"cvport", &rb) == RTNORM && rb.restype == RTSHORT && rb.resval.rint == 1;
  return papier ? ACDB_PAPER_SPACE : ACDB_MODEL_SPACE;
}

void journalDebug(int niveau, const std::wstring& texte) {
  std::ofstream journal("DEBUGINFO.MSG", std::ios::app);
  journal << std::string(static_cast<std::size_t>(std::max(niveau, 0)), ' ') << versAnsi(texte) << '\n';
}

}  // namespace plv
