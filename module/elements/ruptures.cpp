// pl_chg_pc: what the elements of a profile do when a section is added, changed or removed.
// They are moved by a translation in Y only, never rebuilt. The chain that is read is already the new one.
#include <cmath>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/coupes.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr double kMeme = 1e-6;            // ends, groups and changes; a shift that is none
constexpr double kMemeFin = 1e-8;         // a group or a cut end that stands at the change
constexpr distanceProfil kSansFin(1e36);  // the end of the last section
constexpr double kNombreMax = 1e28;       // of an argument

// The section of the profile that moves, and by how much in the drawing.
struct decalage {
  const profilLong& profil;
  distanceProfil debut, fin;
  double dy;

  xDessin xDebut() const { return profil.xDe(debut); }
  xDessin xFin() const { return profil.xDe(fin); }
  AcGeMatrix3d matrice() const { return AcGeMatrix3d::translation({0.0, dy, 0.0}); }
  void deplacer(AcDbEntity& entite) const { entite.transformBy(matrice()); }
  void deplacerTous(const AcDbObjectIdArray& ids) const {
    for (const AcDbObjectId& id : ids) {
      AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
      if (entite.openStatus() == Acad::eOk) deplacer(*entite);
    }
  }
};

// The ends of a curve in the drawing, and how they stand to a limit.
struct etendueX {
  double gauche, droite;

  bool aDroite(xDessin limite) const { return gauche >= limite.valeur - kMeme && droite >= limite.valeur - kMeme; }
  bool aGauche(xDessin limite) const { return gauche <= limite.valeur + kMeme && droite <= limite.valeur + kMeme; }
  // One end beyond the limit, and the other within the tolerance of it: outside altogether.
  bool dehorsADroite(xDessin limite) const { return gauche >= limite.valeur - kMeme && droite > limite.valeur + kMeme; }
  bool dehorsAGauche(xDessin limite) const { return droite <= limite.valeur + kMeme && gauche < limite.valeur - kMeme; }
};
etendueX etendueDe(const AcDbCurve& courbe) {
  AcGePoint2d gauche, droite;
  extremitesCourbe(courbe, gauche, droite);
  return {gauche.x, droite.x};
}

distanceProfil debutSection(const profilLong& profil, std::size_t i) {
  return i < profil.distPc.size() ? distanceProfil(profil.distPc[i]) : kSansFin;
}
std::size_t indexRupture(const profilLong& profil, distanceProfil d) {
  std::size_t i = 0;
  while (i < profil.distPc.size() && !(std::abs(profil.distPc[i] - d.valeur) < kMeme)) ++i;
  return i;
}

AcDbObjectIdArray supports(const profilLong& profil) {
  AcDbObjectIdArray tous, presents;
  profil.idsElements(tous, true, true);
  for (const AcDbObjectId& id : tous)
    if (!id.isNull()) presents.append(id);
  return presents;
}

template <class DEDANS>
void deplacerCourbes(const AcDbObjectIdArray& ids, const decalage& d, DEDANS dedans) {
  for (const AcDbObjectId& id : ids) {
    AcDbObjectPointer<AcDbCurve> courbe(id, AcDb::kForWrite);
    if (courbe.openStatus() == Acad::eOk && dedans(etendueDe(*courbe))) d.deplacer(*courbe);
  }
}

std::vector<elemsFixesKavel> lireGroupes(AcDbObjectId support) {
  const listeRb chaine(lireXrecord(support, kRecordStatiques));
  const resbuf* curseur = chaine.tete();
  std::vector<elemsFixesKavel> groupes;
  lireGroupesValeur(groupes, curseur);
  return groupes;
}

// Positions and changes of section are sums of distances, and part by their rounding.
bool auMoins(distanceProfil d, distanceProfil limite) { return d - limite > -kMeme; }

bool dansEtendue(const elemsFixesKavel& groupe, const decalage& d) {
  return auMoins(groupe.position, d.debut) && auMoins(d.fin, groupe.position);
}

void supprimerRupture(const profilLong& profil, distanceProfil rupture, altitudeVraie z) {
  if (profil.distPc.empty()) return;
  std::size_t i = 0;
  if (rupture.valeur > profil.distPc.front())
    while (i < profil.distPc.size() && rupture.valeur > profil.distPc[i]) ++i;
  if (i == 0) return;
  const decalage d{profil, rupture, debutSection(profil, i), (z - profil.altitudeSection(i - 1)) * profil.echelleV};
  if (std::abs(d.dy) < kMeme) return;
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids;
    lireListeBrute(support, ids);
    deplacerCourbes(ids, d, [&](const etendueX& e) {
      return e.aDroite(d.xDebut()) && e.aGauche(d.xFin()) && !e.dehorsADroite(d.xFin()) && !e.dehorsAGauche(d.xDebut());
    });
    joindreCourbes(ids);
    ecrireListeProjet(support, ids);
    for (const elemsFixesKavel& groupe : lireGroupes(support)) {
      if (!dansEtendue(groupe, d)) continue;
      if (std::abs(groupe.position - rupture) < kMemeFin) {
        AcDbObjectIdArray effaces = groupe.doublons;
        effacerTout(effaces);
      } else {
        d.deplacerTous(groupe.elements);
      }
    }
  }
}

void modifierRupture(const profilLong& profil, distanceProfil rupture, altitudeVraie z1, altitudeVraie z2) {
  const std::size_t i = indexRupture(profil, rupture), n = profil.distPc.size();
  const bool derniere = n > 0 && std::abs(profil.distPc.back() - rupture.valeur) < kMeme;
  const distanceProfil fin = i == n || derniere ? kSansFin : debutSection(profil, i + 1);
  const decalage d{profil, rupture, fin, (z1 - z2) * profil.echelleV};
  if (std::abs(d.dy) < kMeme) return;
  const bool aLOrigine = std::abs(rupture.valeur) < kMeme;  // nothing bounds the first section on the left
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids;
    lireListeBrute(support, ids);
    deplacerCourbes(ids, d,
                    [&](const etendueX& e) { return e.aGauche(d.xFin()) && (aLOrigine || e.aDroite(d.xDebut())); });
    ecrireListeProjet(support, ids);
    for (const elemsFixesKavel& groupe : lireGroupes(support)) {
      if (!dansEtendue(groupe, d)) continue;
      // At an inner change the base list belongs to the section on the left, which stays.
      const bool surRupture = std::abs(groupe.position - rupture) < kMeme;
      const bool premiere = n > 0 && std::abs(rupture.valeur - profil.distPc.front()) < kMeme;
      d.deplacerTous(surRupture && !premiere ? groupe.doublons : groupe.elements);
    }
  }
}

// Puts the pieces of a cut curve in the drawing, those beyond the change shifted. The ids of pieces that are new to it
// are appended.
void placerPieces(courbeOuverte& source, piecesCourbe& pieces, bool remplacer, const decalage& d,
                  AcDbObjectIdArray& nouveaux) {
  AcDbPoint proprietes;
  proprietes.setPropertiesFrom(&*source);
  if (remplacer) source.effacer();
  for (pieceCourbe& piece : pieces) {
    piece->setPropertiesFrom(&proprietes);
    const etendueX e = etendueDe(*piece);
    const double debut = d.xDebut().valeur;
    // Kept as it is: the end of the section is compared as a distance, without the X of the profile's block, although
    // the piece stands in the drawing. Stored drawings were made so.
    const bool avantLaFin = e.gauche <= d.fin.valeur && e.droite <= d.fin.valeur;
    const bool auDela = e.gauche > debut && e.droite > debut && avantLaFin;
    if (std::abs(e.gauche - debut) < kMemeFin || auDela) d.deplacer(*piece);
    placerPiece(source, std::move(piece), nouveaux);
  }
}

void ajouterALaCourbe(AcDbObjectId id, distanceProfil precedent, const decalage& d, AcDbObjectIdArray& nouveaux) {
  courbeOuverte courbe(id);
  if (!courbe.presente()) return;
  const etendueX e = etendueDe(*courbe);
  const double debut = d.xDebut().valeur;
  piecesCourbe pieces;
  bool remplacer = false;
  if (std::abs(e.gauche - debut) < kMeme) {
    d.deplacer(*courbe);
  } else if (!e.dehorsADroite(d.xFin()) && !e.dehorsAGauche(d.profil.xDe(precedent))) {
    if (e.aGauche(d.xFin()) && e.aDroite(d.xDebut())) d.deplacer(*courbe);
    else if (e.gauche < debut && debut < e.droite) couperCourbe(*courbe, {debut}, pieces, remplacer);
  }
  if (pieces.size() >= 2) placerPieces(courbe, pieces, remplacer, d, nouveaux);
}

void ajouterAuxGroupes(AcDbObjectId support, distanceProfil precedent, const decalage& d) {
  listeRb rebatie;
  for (elemsFixesKavel& groupe : lireGroupes(support)) {
    const bool dedans = auMoins(d.fin, groupe.position) && auMoins(groupe.position, precedent);
    if (dedans && std::abs(groupe.position - d.debut) < kMeme) {
      creerDoublons(groupe);
      d.deplacerTous(groupe.doublons);
    } else if (dedans && groupe.position >= d.debut) {
      d.deplacerTous(groupe.elements);
    }
    rebatie.ajouter(enChaine(groupe));
  }
  ecrireXrecord(support, kRecordStatiques, rebatie.tete());
}

bool aUnRecord(AcDbObjectId support, const ACHAR* cle) {
  const listeRb chaine(lireXrecord(support, cle));
  return chaine.tete() != nullptr;
}

// Kept as it is: a shift of nothing still cuts the curves here, whereas the two above end.
void ajouterRupture(const profilLong& profil, distanceProfil rupture, altitudeVraie z) {
  const std::size_t i = indexRupture(profil, rupture);
  if (i == 0 || i == profil.distPc.size()) return;
  const distanceProfil precedent(profil.distPc[i - 1]);
  const decalage d{profil, rupture, debutSection(profil, i + 1), (profil.altitudeSection(i - 1) - z) * profil.echelleV};
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids, nouveaux;
    lireListeBrute(support, ids);
    for (const AcDbObjectId& id : ids) ajouterALaCourbe(id, precedent, d, nouveaux);
    if (!nouveaux.isEmpty()) {
      listeRb chaine(lireXrecord(support, kRecordProjet));
      for (const AcDbObjectId& id : nouveaux) chaine.ajouterPointeur(id);
      ecrireXrecord(support, kRecordProjet, chaine.tete());
    }
    if (aUnRecord(support, kRecordStatiques)) ajouterAuxGroupes(support, precedent, d);
  }
}

}  // namespace

void pl_chg_pc() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "NCRRR")) return;
  const xDessin x(valeurReelle(args.nieme(2)));
  const altitudeVraie z1(valeurReelle(args.nieme(3))), z2(valeurReelle(args.nieme(4)));
  if (x.valeur > kNombreMax || z1.valeur > kNombreMax || z2.valeur > kNombreMax ||
      !profil.lireNom(args.tete()->resval.rlname))
    return;
  const std::wstring operation = valeurTexte(args.nieme(1));
  const distanceProfil distance = profil.distanceDe(x);
  switch (operation.empty() ? L'\0' : operation.front()) {
    case L'A': ajouterRupture(profil, distance, z1); break;
    case L'M': modifierRupture(profil, distance, z1, z2); break;
    case L'S': supprimerRupture(profil, distance, z2); break;
    default: break;
  }
}

}  // namespace plv
