// The table of known blocks, and the reading of one.
// Stations are the block's distance along the profile, from the cumulated distance of its start.
#include "module/metres/elementsMesures.h"

#include <algorithm>
#include <memory>

#include "hote/dbsymtb.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

typeElementFixe robinetterie(Adesk::Int32 id, const wchar_t* libelle, const wchar_t* nomBloc) {
  return {id,
          nomBloc,
          libelle,
          L"Robinetterie",
          {{champElementFixe::kStation, L"Abscisse", L""}, {champElementFixe::kAttribut, L"Obs", L"OBS"}}};
}

bool nomDuBloc(const AcDbBlockReference& bloc, std::wstring& nom) {
  AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc.blockTableRecord());
  AcString texte;
  if (definition.openStatus() != Acad::eOk || definition->getName(texte) != Acad::eOk) return false;
  nom = texte.kACharPtr();
  return true;
}

// Tags compare exactly, unlike the profile's own attribute.
bool lireParEtiquette(const AcDbBlockReference& bloc, const std::wstring& etiquette, std::wstring& texte) {
  const std::unique_ptr<AcDbObjectIterator> attributs(bloc.attributeIterator());
  for (; attributs && !attributs->done(); attributs->step()) {
    AcDbObjectPointer<AcDbAttribute> attribut(attributs->objectId());
    if (attribut.openStatus() != Acad::eOk || attribut->tag().kACharPtr() != etiquette) continue;
    texte = attribut->textString().kACharPtr();
    return true;
  }
  return false;
}

// Appends nothing for an attribute that the block lacks.
void lireChamp(const profilLong& profil, const AcDbBlockReference& bloc, const champElementFixe& champ,
               std::vector<valeurElement>& valeurs) {
  std::wstring texte;
  if (champ.nature == champElementFixe::kStation)
    valeurs.push_back({1, profil.stationDe(profil.distanceDe(xDessin(bloc.position().x))).valeur, {}, champ.libelle});
  else if (champ.nature == champElementFixe::kAttribut && lireParEtiquette(bloc, champ.etiquette, texte))
    valeurs.push_back({0, 0.0, texte, champ.libelle});
}

}  // namespace

const std::vector<typeElementFixe>& typesElementsFixes() {
  static const std::vector<typeElementFixe> types = {robinetterie(1, L"Vanne de sectionnement", L"VardanePLVSECT"),
                                                     robinetterie(2, L"Vanne + Soupape", L"VardanePLVSSPPE"),
                                                     robinetterie(3, L"Vanne + Vidange", L"VardanePLVSVDGE"),
                                                     robinetterie(4, L"Soupape", L"VardanePLSPPE"),
                                                     robinetterie(5, L"Vidange", L"VardanePLVDGE"),
                                                     {6,
                                                      L"VardaneTampon",
                                                      L"Regard",
                                                      L"Assainissement",
                                                      {{champElementFixe::kStation, L"Abscisse", L""},
                                                       {champElementFixe::kAttribut, L"Regard", L"R"},
                                                       {champElementFixe::kAttribut, L"Cote Tampon", L"CT"},
                                                       {champElementFixe::kAttribut, L"Hauteur", L"HAUTEUR"},
                                                       {champElementFixe::kAttribut, L"Largeur", L"LARGEUR"}}}};
  return types;
}

bool mesurerElement(const profilLong& profil, AcDbObjectId id, elementFixeMesure& element) {
  AcDbObjectPointer<AcDbBlockReference> bloc(id);
  std::wstring nom;
  if (bloc.openStatus() != Acad::eOk || !nomDuBloc(*bloc, nom)) return false;
  element.valeurs.clear();
  const auto& types = typesElementsFixes();
  const auto type =
      std::find_if(types.begin(), types.end(), [&](const typeElementFixe& t) { return egalSansCasse(t.nomBloc, nom); });
  if (type == types.end()) return false;
  element.id = type->id;
  element.libelle = type->libelle;
  for (const champElementFixe& champ : type->champs) lireChamp(profil, *bloc, champ, element.valeurs);
  return element.valeurs.size() == type->champs.size();
}

}  // namespace plv
