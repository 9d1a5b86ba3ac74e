// The walkers of the chain of PCs and of the chains of lines.
// They are what a damaged drawing meets first: how each of them stops is a part of its contract.
#include "module/profil/chaines.h"

#include <map>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

constexpr std::size_t kTailleHandle = 127;

// One PC. Gives the handle of the next one, empty on the last. Kept as it is: the value of an unknown key is itself
// looked at as a possible key, so that a string equal to a key's name is taken for that key.
std::wstring lireUnPc(profilLong& profil, const AcDbEntity& entite) {
  std::wstring prochain;
  ArgsLisp donnees;
  donnees.lireXData(entite, kApplicationCles);
  for (const resbuf* rb = donnees.tete(); rb && rb->rbnext; rb = rb->rbnext) {
    if (rb->restype != kXTexte) continue;
    const std::wstring_view cle = rb->resval.rstring;
    const resbuf* valeur = rb->rbnext;
    if (egalSansCasse(cle, L"DISTANCE")) {
      profil.distPc.push_back(profil.distPc.back() + reelXData(valeur));
    } else if (egalSansCasse(cle, L"PC")) {
      profil.altPc.push_back(reelXData(valeur));
      profil.idsPc.append(entite.objectId());
    } else if (egalSansCasse(cle, L"NEXT-PC") && estHandleXData(valeur)) {
      prochain = std::wstring(valeur->resval.rstring).substr(0, kTailleHandle);
    } else {
      continue;
    }
    rb = valeur;
  }
  return prochain;
}

struct sansCasse {
  bool operator()(const std::wstring& a, const std::wstring& b) const { return enMinuscules(a) < enMinuscules(b); }
};

// The text of the value of a key of "PLV2_DATA", whatever its group; a key that comes twice keeps the later
// value. False when the key isn't there.
bool texteDeCle(const AcDbEntity& entite, const wchar_t* cle, std::wstring& texte) {
  ArgsLisp donnees;
  std::map<std::wstring, const resbuf*, sansCasse> cles;
  const resbuf* rb = donnees.lireXData(entite, kApplicationCles);
  while (rb) {
    const bool paire = rb->restype == kXTexte && rb->rbnext;
    if (paire) cles[rb->resval.rstring] = rb->rbnext;
    rb = paire ? rb->rbnext->rbnext : rb->rbnext;
  }
  const auto trouve = cles.find(cle);
  if (trouve == cles.end()) return false;
  const short code = trouve->second->restype;
  const bool estTexte = code == kXTexte || code == kXHandle;
  texte = estTexte ? trouve->second->resval.rstring : L"";
  return true;
}

bool texteDeCle(AcDbObjectId id, const wchar_t* cle, std::wstring& texte) {
  AcDbEntityPointer entite(id);
  return entite.openStatus() == Acad::eOk && texteDeCle(*entite, cle, texte);
}

}  // namespace

bool handleVersId(const std::wstring& texte, AcDbObjectId& id) {
  ads_name nom;
  return acdbHandEnt(texte.c_str(), nom) == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk;
}

void lirePc(profilLong& profil, const std::wstring& handle) {
  std::wstring prochain = handle.substr(0, kTailleHandle);
  profil.idsPc.removeAll();
  profil.distPc.push_back(0.0);
  while (!prochain.empty()) {
    AcDbObjectId id;
    handleVersId(prochain, id);
    AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk) break;
    prochain = lireUnPc(profil, *entite);
  }
  // The end of the last section has no place in the record.
  profil.distPc.pop_back();
}

void lireLignes(const profilLong& profil, AcDbObjectIdArray& ids) {
  ids.removeAll();
  for (const AcDbObjectId& pc : profil.idsPc) {
    std::wstring prochain;
    bool suite = texteDeCle(pc, L"PRLI", prochain);
    while (suite) {
      AcDbObjectId id;
      // Kept as it is: a handle without an object is asked for again until the user interrupts. Writers keep
      // chains whole.
      if (!handleVersId(prochain, id)) continue;
      ids.append(id);
      suite = texteDeCle(id, L"NEXTLI", prochain);
    }
  }
}

}  // namespace plv
