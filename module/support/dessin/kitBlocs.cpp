// Blocks: import of a drawing as a block, insertion with attributes, and the information that a block carries.
// The text of this information stands in the block's comment too, where the host shows it.
#include "module/support/dessin/kitBlocs.h"

#include <algorithm>
#include <memory>

#include "hote/acdb.h"
#include "hote/aced.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"
#include "module/commande/arguments/listeRb.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitDivers.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr std::wstring_view kExtension = L".dwg";
constexpr const ACHAR* kCleInfos = L"BLOCKINFO_VARDANE";
constexpr Adesk::Int32 kMarqueInfos = 12744721;  // 0xC27811

AcDbObjectId blocDeNom(AcDbDatabase& base, const std::wstring& nom) {
  AcDbObjectPointer<AcDbBlockTable> table(base.blockTableId());
  AcDbObjectId id;
  if (table.openStatus() != Acad::eOk || table->getAt(nom.c_str(), id) != Acad::eOk) return AcDbObjectId::kNull;
  return id;
}

AcGePoint3d versMonde(const AcGePoint3d& point) {
  resbuf utilisateur{nullptr, RTSHORT, {}}, monde{nullptr, RTSHORT, {}};
  utilisateur.resval.rint = 1;
  monde.resval.rint = 0;
  AcGePoint3d resultat = point;
  acedTrans(asDblArray(point), &utilisateur, &monde, 0, asDblArray(resultat));
  return resultat;
}

void ajouterAttribut(AcDbBlockReference& bloc, const AcDbAttributeDefinition& definition) {
  auto attribut = std::make_unique<AcDbAttribute>();
  attribut->setPropertiesFrom(&definition);
  attribut->setAttributeFromBlock(&definition, bloc.blockTransform());
  attribut->setTag(definition.tag());
  attribut->setFieldLength(definition.fieldLength());
  attribut->setInvisible(definition.isInvisible());
  if (bloc.appendAttribute(attribut.get()) == Acad::eOk) attribut.release()->close();
}

void ajouterAttributs(AcDbObjectId idReference, AcDbObjectId idRecord) {
  AcDbObjectPointer<AcDbBlockReference> bloc(idReference, AcDb::kForWrite);
  AcDbObjectPointer<AcDbBlockTableRecord> record(idRecord);
  if (bloc.openStatus() != Acad::eOk || record.openStatus() != Acad::eOk) return;
  for (const AcDbObjectId& id : adaptation::entityIds(*record)) {
    AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
    if (definition.openStatus() == Acad::eOk && !definition->isConstant()) ajouterAttribut(*bloc, *definition);
  }
}

bool estRecord(const AcDbObjectPointer<AcDbBlockTableRecord>& record) {
  return record.openStatus() == Acad::eOk && record.object()->isA() == AcDbBlockTableRecord::desc();
}

}  // namespace

std::wstring nomDeBloc(const std::wstring& chemin) {
  std::wstring nom = enMinuscules(chemin);
  nom.erase(0, nom.find_last_of(L"/\\") + 1);
  if (nom.ends_with(kExtension)) nom.resize(nom.size() - kExtension.size());
  if (nom.empty()) return L"invalid";
  if (acdbSNValid(nom.c_str(), 0) == 1)
    std::replace_if(
        nom.begin(), nom.end(), [](wchar_t c) { return !estAlphanumerique(c); }, L'_');
  return nom;
}

bool importerBloc(AcDbObjectId& id, const std::wstring& chemin, AcDbDatabase* base) {
  id.setNull();
  if (!base) return false;
  const std::wstring nom = nomDeBloc(chemin);
  id = blocDeNom(*base, nom);
  if (!id.isNull()) return true;

  std::wstring fichier = chemin;
  if (!fichier.ends_with(kExtension)) fichier += kExtension;
  AcDbDatabase source(false);
  if (source.readDwgFile(fichier.c_str(), 32, false, nullptr) != Acad::eOk &&
      source.readDwgFile(cheminInstallation(fichier.c_str()), 32, false, nullptr) != Acad::eOk)
    return false;
  return base->insert(id, nom.c_str(), &source, true) == Acad::eOk;
}

bool tailleBloc(AcDbObjectId idRecord, double& largeur, double& hauteur) {
  const AcDbBlockReference reference(AcGePoint3d::kOrigin, idRecord);
  AcDbExtents etendue;
  if (reference.getGeomExtents(etendue) != Acad::eOk) return false;
  largeur = etendue.maxPoint().x - etendue.minPoint().x;
  hauteur = etendue.maxPoint().y - etendue.minPoint().y;
  return true;
}

AcDbObjectId insererBloc(const std::wstring& nom, const AcGePoint3d& point, double echelle, double angle) {
  AcDbDatabase* base = baseCourante();
  const AcDbObjectId idRecord = base ? blocDeNom(*base, nom) : AcDbObjectId::kNull;
  if (idRecord.isNull()) return idRecord;
  auto reference = std::make_unique<AcDbBlockReference>(versMonde(point), idRecord);
  reference->setScaleFactors(AcGeScale3d(echelle));
  reference->setRotation(angle);
  AcDbObjectId id;
  if (ajouterEspaceObjet(std::move(reference), &id) == Acad::eOk) ajouterAttributs(id, idRecord);
  return id;
}

void ecrireInfosBloc(AcDbObjectId idRecord, const std::wstring& texte) {
  AcDbObjectId premiere;
  {
    AcDbObjectPointer<AcDbBlockTableRecord> record(idRecord, AcDb::kForWrite);
    if (!estRecord(record)) return;
    record->setComments(texte.c_str());
    const AcDbObjectIdArray entites = adaptation::entityIds(*record);
    if (!entites.isEmpty()) premiere = entites.first();
  }
  listeRb infos;
  infos.ajouterEntier(kMarqueInfos);
  infos.ajouterTexte(texte);
  if (!premiere.isNull()) ecrireXrecord(premiere, kCleInfos, infos.tete());
  ecrireXrecord(idRecord, kCleInfos, infos.tete());
}

bool lireInfosBloc(AcDbObjectId idRecord, std::wstring& commentaire, std::wstring& info) {
  commentaire.clear();
  info.clear();
  {
    AcDbObjectPointer<AcDbBlockTableRecord> record(idRecord);
    if (!estRecord(record)) return false;
    AcString texte;
    if (record->comments(texte) == Acad::eOk) commentaire = texte.kACharPtr();
  }
  listeRb infos(lireXrecord(idRecord, kCleInfos));
  Adesk::Int32 marque = 0;
  if (infos.lireEntier(marque) && marque == kMarqueInfos) infos.lireTexte(info);
  return true;
}

}  // namespace plv
