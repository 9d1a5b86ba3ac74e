// profilLong: the reading of a profile from its block reference.
// Its lists are in listesProfil.cpp, the mapping in correspondance.cpp, the PC chain in chaines.cpp.
#include "module/profil/profilLong.h"

#include <algorithm>

#include "hote/acdb.h"
#include "hote/aced.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/profil/chaines.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitSelections.h"

namespace plv {

namespace {

constexpr const ACHAR* kTagNumero = L"NUMPL";
constexpr std::array<std::wstring_view, kNombreGenres> kClesHandle = {L"HTN",  L"HASS",   L"HVOIRIE", L"HAEP",
                                                                      L"HGEN", L"HTERRA", L"HPROJ"};

std::size_t longueurChaine(const resbuf* rb) {
  std::size_t n = 0;
  for (; rb; rb = rb->rbnext) ++n;
  return n;
}

const resbuf* suivant(const resbuf* rb) { return rb ? rb->rbnext : nullptr; }

}  // namespace

void profilLong::reinitialiser() {
  echelleV = 10.0;
  hauteurTexte = 2.5;
  dcumDeb = 0.0;
  for (std::vector<double>* suite : {&distPc, &altPc, &distTn, &altTn}) suite->clear();
  idsPc.removeAll();
  clesInconnues = false;
  id = -1;
  handles.fill(AcDbHandle());
  idBloc.setNull();
  ids.fill(AcDbObjectId::kNull);
}

bool profilLong::lireBloc(const AcDbBlockReference& bloc) {
  position = bloc.position();
  numero = L"* inconnu *";
  AcString texte;
  if (!lireAttribut(bloc, kTagNumero, texte)) return false;
  numero = texte;
  idBloc = bloc.objectId();
  ArgsLisp donnees;
  if (!donnees.lireXData(bloc, kApplicationCles)) return false;
  lireCles(donnees.tete()->rbnext);
  ArgsLisp terrain;
  if (terrain.lireXData(bloc, kApplicationTn)) lireTn(terrain.tete()->rbnext);
  return true;
}

bool profilLong::lireId(AcDbObjectId idLu) {
  AcDbObjectPointer<AcDbBlockReference> bloc(idLu);
  return bloc.openStatus() == Acad::eOk && lireBloc(*bloc);
}

bool profilLong::lireNom(const ads_name nom) {
  AcDbObjectId idLu;
  return acdbGetObjectId(idLu, nom) == Acad::eOk && lireId(idLu);
}

// Pairs of a key and its value. The front-end's own keys are passed over with their values, and remembered as
// such.
void profilLong::lireCles(const resbuf* rb) {
  while (rb) {
    const resbuf* valeur = rb->rbnext;
    if (rb->restype != kXTexte || !valeur) {
      clesInconnues = true;
      rb = valeur;
      continue;
    }
    if (!lireCle(rb->resval.rstring, valeur)) clesInconnues = true;
    rb = valeur->rbnext;
  }
}

bool profilLong::lireCle(const std::wstring& cle, const resbuf* valeur) {
  const auto est = [&cle](std::wstring_view nom) { return egalSansCasse(cle, nom); };
  if (est(L"ECHV") && estReelXData(valeur)) {
    echelleV = reelXData(valeur);
  } else if (est(L"TTXT") && estReelXData(valeur)) {
    hauteurTexte = reelXData(valeur);
  } else if (est(L"ID") && estEntierXData(valeur)) {
    id = entierXData(valeur);
  } else if (est(L"DCUMDEB") && estReelXData(valeur)) {
    dcumDeb = reelXData(valeur);
  } else if (est(L"PRPC") && estHandleXData(valeur)) {
    lirePc(*this, valeur->resval.rstring);
  } else {
    return estHandleXData(valeur) && lireHandle(cle, valeur);
  }
  return true;
}

// Kept as it is: these keys compare over the shorter of the two lengths, so "H" and "HTNX" are both taken for "HTN".
bool profilLong::lireHandle(const std::wstring& cle, const resbuf* valeur) {
  for (std::size_t genre = 0; genre < kNombreGenres; ++genre) {
    const std::wstring_view nom = kClesHandle[genre];
    if (!egalSansCasse(cle, nom, std::min(cle.size(), nom.size()))) continue;
    handles[genre] = AcDbHandle(valeur->resval.rstring);
    AcDbDatabase* base = baseCourante();
    AcDbObjectId trouve;
    if (base && base->getAcDbObjectId(trouve, false, handles[genre]) == Acad::eOk) ids[genre] = trouve;
    return true;
  }
  return false;
}

// Two nodes for each point; an odd last one is dropped.
void profilLong::lireTn(const resbuf* rb) {
  distTn.clear();
  altTn.clear();
  const std::size_t points = longueurChaine(rb) / 2;
  distTn.reserve(points);
  altTn.reserve(points);
  double distance = 0.0;
  for (const resbuf* altitude = suivant(rb); rb && altitude; altitude = suivant(rb)) {
    distance += reelXData(rb);
    distTn.push_back(distance);
    altTn.push_back(reelXData(altitude));
    rb = altitude->rbnext;
  }
}

bool lireAttribut(const AcDbBlockReference& bloc, const ACHAR* tag, AcString& texte) {
  const std::unique_ptr<AcDbObjectIterator> attributs(bloc.attributeIterator());
  for (; attributs && !attributs->done(); attributs->step()) {
    AcDbObjectPointer<AcDbAttribute> attribut(attributs->objectId());
    if (attribut.openStatus() != Acad::eOk || !egalSansCasse(attribut->tag().kACharPtr(), tag)) continue;
    texte = attribut->textString();
    return true;
  }
  return false;
}

bool lireAttributParNom(const ads_name nom, const ACHAR* tag, AcString& texte) {
  AcDbObjectId id;
  if (acdbGetObjectId(id, nom) != Acad::eOk) return false;
  AcDbObjectPointer<AcDbBlockReference> bloc(id);
  return bloc.openStatus() == Acad::eOk && bloc.object()->isA() == AcDbBlockReference::desc() &&
         lireAttribut(*bloc, tag, texte);
}

void profilsParId(Adesk::Int32 id, AcDbObjectIdArray& liste) {
  ads_name ss;
  if (!selectionParClasse(L"AcDbBlockReference", 100, ss)) return;
  AcDbObjectIdArray blocs;
  idsDeSelection(ss, blocs);
  for (const AcDbObjectId& bloc : blocs) {
    profilLong profil;
    if (profil.lireId(bloc) && profil.id == id) liste.append(bloc);
  }
}

}  // namespace plv
