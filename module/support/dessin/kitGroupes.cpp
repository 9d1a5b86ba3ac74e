// Groups of entities.
// Appending costs the same however many entities the group has.
#include "module/support/dessin/kitGroupes.h"

#include <memory>

#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr const ACHAR* kAnonyme = L"*";

AcDbObjectId groupeExistant(const AcDbDictionary& groupes, const AcDbObjectIdArray& liste, const std::wstring& nom) {
  AcDbObjectId id;
  if (groupes.getAt(nom.c_str(), id) != Acad::eOk) return AcDbObjectId::kNull;
  AcDbObjectPointer<AcDbGroup> groupe(id, AcDb::kForWrite);
  if (groupe.openStatus() != Acad::eOk) return AcDbObjectId::kNull;
  groupe->append(liste);
  if (nom == kAnonyme) groupe->setAnonymous();
  return id;
}

AcDbObjectId nouveauGroupe(AcDbDictionary& groupes, const AcDbObjectIdArray& liste, const std::wstring& nom) {
  auto groupe = std::make_unique<AcDbGroup>(L"", true);
  AcDbObjectId id;
  if (groupes.setAt(nom.c_str(), groupe.get(), id) != Acad::eOk) return AcDbObjectId::kNull;
  groupe->append(liste);  // only a group that the drawing has may point at entities
  groupe.release()->close();
  return id;
}

}  // namespace

AcDbObjectId creerGroupe(const AcDbObjectIdArray& liste, const std::wstring& nom, bool vide) {
  if (liste.isEmpty() && !vide) return AcDbObjectId::kNull;
  AcDbDatabase* base = baseCourante();
  if (!base) return AcDbObjectId::kNull;
  AcDbObjectPointer<AcDbDictionary> groupes(base->groupDictionaryId(), AcDb::kForWrite);
  if (groupes.openStatus() != Acad::eOk) return AcDbObjectId::kNull;
  return groupes->has(nom.c_str()) ? groupeExistant(*groupes, liste, nom) : nouveauGroupe(*groupes, liste, nom);
}

void ajouterAuGroupe(AcDbObjectId groupe, AcDbObjectId id) {
  AcDbObjectPointer<AcDbGroup> ouvert(groupe, AcDb::kForWrite);
  if (ouvert.openStatus() == Acad::eOk) ouvert->append(id);
}

void ajouterAuGroupeListe(AcDbObjectId groupe, const AcDbObjectIdArray& liste) {
  AcDbObjectPointer<AcDbGroup> ouvert(groupe, AcDb::kForWrite);
  if (ouvert.openStatus() == Acad::eOk) ouvert->append(liste);
}

}  // namespace plv
