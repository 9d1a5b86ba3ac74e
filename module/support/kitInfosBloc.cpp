// The information that a block carries, written and read.
// The text stands in the block's comment too, where the host shows it.
#include "hote/dbsymtb.h"
#include "module/commande/listeRb.h"
#include "module/support/kitBlocs.h"
#include "module/support/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR* kCleInfos = L"BLOCKINFO_VARDANE";
constexpr Adesk::Int32 kMarqueInfos = 12744721;  // 0xC27811

bool estRecord(const AcDbObjectPointer<AcDbBlockTableRecord>& record) {
  return record.openStatus() == Acad::eOk && record.object()->isA() == AcDbBlockTableRecord::desc();
}

}  // namespace

void ecrireInfosBloc(AcDbObjectId idRecord, const std::wstring& texte) {
  AcDbObjectId premiere;
  {
    AcDbObjectPointer<AcDbBlockTableRecord> record(idRecord, AcDb::kForWrite);
    if (!estRecord(record)) return;
    record->setComments(texte.c_str());
    const AcDbObjectIdArray entites = record->entityIds();
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
