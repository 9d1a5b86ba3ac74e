// Attribute annotation: rows of the types 402 and 403 collect attributes of the blocks that stand on the
// profile. The tags that a row wants are in its free text.
#include <memory>
#include <numbers>
#include <set>

#include "hote/acdb.h"
#include "module/commande/arguments/listeRb.h"
#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/profil/profilLong.h"

namespace plv {

namespace {

constexpr double kMargeGauche = -1.5;  // text heights left of the matrix that an attribute may stand

// The profile of the collection, read when it is first needed and once a call.
class profilCourant {
 public:
  const profilLong& lire() {
    if (!m_profil) m_profil.emplace().lireId(collectionMatrices().idProfil);
    return *m_profil;
  }

 private:
  std::optional<profilLong> m_profil;
};

std::set<std::wstring> tagsDe(const std::wstring& infos) {
  constexpr const wchar_t* kSeparateurs = L"| \t";
  std::set<std::wstring> tags;
  for (std::size_t i = infos.find_first_not_of(kSeparateurs); i != std::wstring::npos;) {
    const std::size_t fin = std::min(infos.find_first_of(kSeparateurs, i), infos.size());
    tags.insert(infos.substr(i, fin - i));
    i = infos.find_first_not_of(kSeparateurs, fin);
  }
  return tags;
}

// Aligned and fitted text is placed by both of its points; the first one counts.
AcGePoint3d pointDe(const AcDbAttribute& attribut) {
  const AcDb::TextHorzMode mode = attribut.horizontalMode();
  const bool parPosition = attribut.verticalMode() == AcDb::kTextBase &&
                           (mode == AcDb::kTextLeft || mode == AcDb::kTextAlign || mode == AcDb::kTextFit);
  return parPosition ? attribut.position() : attribut.alignmentPoint();
}

AcDbObjectId ecrireAttribut(const cellule& c, double x, const std::wstring& texte) {
  parametresTexte parametres;
  AcDbObjectId id;
  if (c.ligne.typeLigne == kTypeAttributs) {
    texteMilieu(texte, c.point(x, c.milieu()), c.e, 0.0, parametres, &id);
  } else {
    parametres.largeurMax = c.hauteur() - c.e;
    texteDroite(texte, c.point(x, c.hh - c.e * 0.8), c.e, std::numbers::pi / 2, parametres, &id);
  }
  return id;
}

// Writes the wanted attributes of a block in the row. False for a row of another type, and for what is no
// block with attributes; true also when no tag is wanted.
bool coterAttributs(const ads_name nom, matriceProfil& matrice, ligneMatrice& ligne, profilCourant& lecteur,
                    AcDbObjectIdArray& textes) {
  if (ligne.infosLigne.empty()) return false;
  if (ligne.typeLigne != kTypeAttributs && ligne.typeLigne != kTypeAttributsVerticaux) return false;
  AcDbObjectId id;
  if (acdbGetObjectId(id, nom) != Acad::eOk) return false;
  AcDbObjectPointer<AcDbBlockReference> bloc(id);
  if (bloc.openStatus() != Acad::eOk) return false;
  const std::unique_ptr<AcDbObjectIterator> attributs(bloc->attributeIterator());
  if (!attributs) return false;

  const profilLong& profil = lecteur.lire();
  const std::set<std::wstring> tags = tagsDe(ligne.infosLigne);
  const cellule c(matrice, ligne);
  for (; !attributs->done(); attributs->step()) {
    AcDbObjectPointer<AcDbAttribute> attribut(attributs->objectId());
    if (attribut.openStatus() != Acad::eOk || !tags.contains(attribut->tag().kACharPtr())) continue;
    const double px = pointDe(*attribut).x;
    // Kept as it is: the offset from the block's insertion point counts in the profile's text heights.
    const double x = px - profil.position.x + (px - bloc->position().x) * profil.hauteurTexte;
    if (x < c.e * kMargeGauche) continue;
    const std::wstring texte = attribut->textString().kACharPtr();
    const AcDbObjectId ecrit = ecrireAttribut(c, x, texte);
    if (!ecrit.isNull()) textes.append(ecrit);
  }
  return true;
}

bool coterSelection(const ads_name ss, const cellule& c, profilCourant& lecteur, AcDbObjectIdArray& textes) {
  Adesk::Int32 nombre = 0;
  if (acedSSLength(ss, &nombre) != RTNORM) return false;
  bool reussi = false;
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    ads_name nom;
    if (acedSSName(ss, i, nom) == RTNORM) reussi = coterAttributs(nom, c.matrice, c.ligne, lecteur, textes) || reussi;
  }
  return reussi;
}

// Every row of every matrix; the selection follows.
void coterPartout(const ads_name nom, gestionMatrices& collection, AcDbObjectIdArray& textes) {
  profilCourant lecteur;
  for (Adesk::Int32 m = 0; m < collection.matrices.GetCount(); ++m) {
    collection.selectionnerMatrice(m);
    matriceProfil& matrice = *collection.matrices[m];
    for (Adesk::Int32 l = 0; l < matrice.lignes.GetCount(); ++l) {
      matrice.selectionnerLigne(l);
      coterAttributs(nom, matrice, *matrice.lignes[l], lecteur, textes);
    }
  }
}

}  // namespace

// Kept as it is: the new texts join no group.
void pl_CotAttribsAuto() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  const resbuf* objet = args.tete();
  if (!c || !objet) return;
  profilCourant lecteur;
  AcDbObjectIdArray textes;
  bool reussi = false;
  if (estNom(objet)) reussi = coterAttributs(objet->resval.rlname, c->matrice, c->ligne, lecteur, textes);
  if (objet->restype == RTPICKS) reussi = coterSelection(objet->resval.rlname, *c, lecteur, textes);
  if (reussi) acedRetT();
}

void pl_NotifInsertBlock() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "N")) return;
  gestionMatrices& collection = collectionMatrices();
  const Adesk::Int32 matriceAvant = collection.matriceCourante;
  const matriceProfil* active = collection.matriceActive();
  const Adesk::Int32 ligneAvant = active ? active->ligneCourante : -1;
  AcDbObjectIdArray textes;
  coterPartout(args.tete()->resval.rlname, collection, textes);
  if (collection.selectionnerMatrice(matriceAvant)) collection.matriceActive()->selectionnerLigne(ligneAvant);
  listeRb resultat;
  for (const AcDbObjectId& texte : textes) resultat.ajouterId(texte);
  if (resultat.tete()) acedRetList(resultat.debut());
}

}  // namespace plv
