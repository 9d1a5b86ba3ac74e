// What of an entity counts: its points, numbers, flags and counts; with its look also texts, layers and colours.
#include "etudes/suivi/empreinte.h"

#include <cmath>
#include <memory>

#include "hote/acut.h"

namespace etu {

namespace {

constexpr double kMillioniemes = 1e6;
// Where a millionth ends: not at a half or a whole one, where surveyed numbers and their means lie, and where rounding would decide.
constexpr double kDecalage = 0.27;
constexpr double kPlusGrand = 9e12;  // whose millionths a whole number of 64 bits holds

struct liberer {
  void operator()(resbuf* chaine) const { acutRelRb(chaine); }
};
using groupes = std::unique_ptr<resbuf, liberer>;

// What stands on a copy of a layer, to be hidden on some sheets, is as it was (frontal/base/plv-copies-de-calques.lsp).
constexpr std::wstring_view kCopie = L"-HORS-";
std::wstring_view original(std::wstring_view calque) {
  const auto place = calque.rfind(kCopie);
  if (place == calque.npos) return calque;
  const bool numeros = calque.find_first_not_of(L"0123456789-", place + kCopie.size()) == calque.npos;
  return numeros ? calque.substr(0, place) : calque;
}

// The colour of the layer, which programs write or leave out.
bool parCalque(const resbuf& groupe) { return groupe.restype == 62 && groupe.resval.rint == 256; }

bool entre(int code, int premier, int dernier) { return premier <= code && code <= dernier; }

// Group 66: vertices or attributes follow, up to the end of the sequence.
bool aSuite(const resbuf* groupe) {
  for (; groupe; groupe = groupe->rbnext)
    if (groupe->restype == 66) return groupe->resval.rint != 0;
  return false;
}

bool estFin(const resbuf* groupe) {
  for (; groupe; groupe = groupe->rbnext)
    if (groupe->restype == 0) return groupe->resval.rstring && std::wstring_view(groupe->resval.rstring) == L"SEQEND";
  return true;
}

}  // namespace

void empreinte::octets(const void* debut, std::size_t nombre) {
  const auto* octet = static_cast<const unsigned char*>(debut);
  for (std::size_t i = 0; i < nombre; ++i) m_valeur = (m_valeur ^ octet[i]) * 1099511628211ULL;
}

void empreinte::ajouterEntier(std::int64_t valeur) { octets(&valeur, sizeof valeur); }

void empreinte::ajouterReel(double valeur) {
  if (std::isfinite(valeur) && std::abs(valeur) < kPlusGrand) {
    ajouterEntier(static_cast<std::int64_t>(std::floor(valeur * kMillioniemes + kDecalage)));
  } else {
    octets(&valeur, sizeof valeur);
  }
}

void empreinte::ajouterTexte(std::wstring_view texte) {
  ajouterEntier(static_cast<std::int64_t>(texte.size()));
  for (const wchar_t lettre : texte) ajouterEntier(lettre);
}

bool empreinte::compte(int code) const {
  if (entre(code, 10, 18) || entre(code, 40, 47) || entre(code, 49, 58) || entre(code, 70, 79) || code == 210)
    return true;
  if (entre(code, 91, 99)) return true;
  return m_aspect && (entre(code, 0, 4) || entre(code, 6, 8) || code == 48 || code == 62 || code == 370 ||
                      code == 420 || code == 440);
}

void empreinte::ajouterGroupe(const resbuf& groupe) {
  const int code = groupe.restype;
  if (!compte(code) || parCalque(groupe)) return;
  ajouterEntier(code);
  if (code < 10) {
    const std::wstring_view texte = groupe.resval.rstring ? groupe.resval.rstring : L"";
    ajouterTexte(code == 8 ? original(texte) : texte);
  } else if (entre(code, 10, 18) || code == 210) {
    const bool place = code != 210;
    ajouterReel(groupe.resval.rpoint[0] - (place ? m_origine.x : 0));
    ajouterReel(groupe.resval.rpoint[1] - (place ? m_origine.y : 0));
  } else if (code < 60) {
    ajouterReel(groupe.resval.rreal);
  } else if (entre(code, 90, 99) || code == 420 || code == 440) {
    ajouterEntier(groupe.resval.rlong);
  } else {
    ajouterEntier(groupe.resval.rint);
  }
}

void empreinte::ajouterEntite(const ads_name entite) {
  ads_name e{entite[0], entite[1]};
  groupes lus(acdbEntGet(e));
  const bool suite = aSuite(lus.get());
  for (; lus; lus.reset(suite && acdbEntNext(e, e) == RTNORM ? acdbEntGet(e) : nullptr)) {
    if (lus.get() != nullptr && estFin(lus.get())) break;
    for (const resbuf* groupe = lus.get(); groupe; groupe = groupe->rbnext) ajouterGroupe(*groupe);
  }
}

std::wstring empreinte::texte() const {
  std::wstring chiffres(16, L'0');
  for (std::size_t i = 0; i < 16; ++i) chiffres[15 - i] = L"0123456789abcdef"[(m_valeur >> (4 * i)) & 15];
  return chiffres;
}

}  // namespace etu
