// pl_chg_pc: what the elements of a profile do when a section is added, changed or removed.
// They are moved by a translation in Y only, never rebuilt. The chain that is read is already the new one.
#include <cmath>

#include "hote/acdb.h"
#include "module/commande/argsLisp.h"
#include "module/elements/coupes.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/profil/profilLong.h"
#include "module/support/kitXrecords.h"

namespace plv {

namespace {

constexpr double kMeme = 1e-6;       // ends, breaks, and a shift that is none
constexpr double kMemeFin = 1e-8;    // a group or a cut end that stands at the break
constexpr double kSansFin = 1e36;    // the end of the last section
constexpr double kNombreMax = 1e28;  // of an argument

// The stretch of the profile that moves, and by how much. Abscissas from the profile's origin.
struct decalage {
  const profilLong& profil;
  double x;
  double suivant;
  double dy;

  double xd() const { return x + profil.position.x; }
  double nd() const { return suivant + profil.position.x; }
  AcGeMatrix3d matrice() const { return AcGeMatrix3d::translation({0.0, dy, 0.0}); }
  void deplacer(AcDbEntity& entite) const { entite.transformBy(matrice()); }
  void deplacerTous(const AcDbObjectIdArray& ids) const {
    for (const AcDbObjectId& id : ids) {
      AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
      if (entite.openStatus() == Acad::eOk) deplacer(*entite);
    }
  }
};

struct cotes {
  double gauche, droite;
};
cotes cotesDe(const AcDbCurve& courbe) {
  AcGePoint2d gauche, droite;
  extremitesCourbe(courbe, gauche, droite);
  return {gauche.x, droite.x};
}

bool aDroite(const cotes& c, double limite) { return c.gauche >= limite - kMeme && c.droite >= limite - kMeme; }
bool aGauche(const cotes& c, double limite) { return c.gauche <= limite + kMeme && c.droite <= limite + kMeme; }
// One end beyond the bound, and the other within the tolerance of it: outside altogether.
bool dehorsADroite(const cotes& c, double limite) { return c.gauche >= limite - kMeme && c.droite > limite + kMeme; }
bool dehorsAGauche(const cotes& c, double limite) { return c.droite <= limite + kMeme && c.gauche < limite - kMeme; }

double altitude(const profilLong& profil, std::size_t i) { return i < profil.altPc.size() ? profil.altPc[i] : 0.0; }
double abscisse(const profilLong& profil, std::size_t i) {
  return i < profil.distPc.size() ? profil.distPc[i] : kSansFin;
}
std::size_t indexRupture(const profilLong& profil, double x) {
  std::size_t i = 0;
  while (i < profil.distPc.size() && !(std::abs(profil.distPc[i] - x) < kMeme)) ++i;
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
    if (courbe.openStatus() == Acad::eOk && dedans(cotesDe(*courbe))) d.deplacer(*courbe);
  }
}

std::vector<elemsFixesKavel> lireGroupes(AcDbObjectId support) {
  const listeRb chaine(lireXrecord(support, kRecordStatiques));
  const resbuf* curseur = chaine.tete();
  std::vector<elemsFixesKavel> groupes;
  lireGroupesValeur(groupes, curseur);
  return groupes;
}

bool dansEtendue(const elemsFixesKavel& groupe, const decalage& d) {
  return groupe.position >= d.x && groupe.position <= d.suivant;
}

void supprimerRupture(const profilLong& profil, double x, double z) {
  if (profil.distPc.empty()) return;
  std::size_t i = 0;
  if (x > profil.distPc.front())
    while (i < profil.distPc.size() && x > profil.distPc[i]) ++i;
  if (i == 0) return;
  const decalage d{profil, x, abscisse(profil, i), (z - altitude(profil, i - 1)) * profil.echelleV};
  if (std::abs(d.dy) < kMeme) return;
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids;
    lireListeBrute(support, ids);
    deplacerCourbes(ids, d, [&](const cotes& c) {
      return aDroite(c, d.xd()) && aGauche(c, d.nd()) && !dehorsADroite(c, d.nd()) && !dehorsAGauche(c, d.xd());
    });
    joindreCourbes(ids);
    ecrireListeProjet(support, ids);
    for (const elemsFixesKavel& groupe : lireGroupes(support)) {
      if (!dansEtendue(groupe, d)) continue;
      if (std::abs(groupe.position - x) < kMemeFin) {
        AcDbObjectIdArray effaces = groupe.doublons;
        effacerTout(effaces);
      } else {
        d.deplacerTous(groupe.elements);
      }
    }
  }
}

void modifierRupture(const profilLong& profil, double x, double z1, double z2) {
  const std::size_t i = indexRupture(profil, x), n = profil.distPc.size();
  const bool derniere = n > 0 && std::abs(profil.distPc.back() - x) < kMeme;
  const double suivant = i == n || derniere ? kSansFin : abscisse(profil, i + 1);
  const decalage d{profil, x, suivant, (z1 - z2) * profil.echelleV};
  if (std::abs(d.dy) < kMeme) return;
  const bool aLOrigine = std::abs(x) < kMeme;  // nothing bounds the stretch on the left
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids;
    lireListeBrute(support, ids);
    deplacerCourbes(ids, d, [&](const cotes& c) { return aGauche(c, d.nd()) && (aLOrigine || aDroite(c, d.xd())); });
    ecrireListeProjet(support, ids);
    for (const elemsFixesKavel& groupe : lireGroupes(support)) {
      if (!dansEtendue(groupe, d)) continue;
      // At an inner break the base list belongs to the stretch on the left, which stays.
      const bool surRupture = std::abs(groupe.position - x) < kMeme;
      const bool premiere = n > 0 && std::abs(x - profil.distPc.front()) < kMeme;
      d.deplacerTous(surRupture && !premiere ? groupe.doublons : groupe.elements);
    }
  }
}

// Puts the pieces of a cut curve in the drawing, those beyond the break shifted. The ids of pieces that are new to it
// are appended.
void placerPieces(AcDbCurve* courbe, piecesCourbe& pieces, bool remplacer, const decalage& d,
                  AcDbObjectIdArray& nouveaux) {
  AcDbPoint proprietes;
  proprietes.setPropertiesFrom(courbe);
  identiteCourbe source(courbe);
  if (remplacer) source.effacer();
  for (pieceCourbe& piece : pieces) {
    piece->setPropertiesFrom(&proprietes);
    const cotes c = cotesDe(*piece);
    // The bound of the stretch is compared as it stands, without the profile's own abscissa: required.
    const bool auDela = c.gauche > d.xd() && c.droite > d.xd() && c.gauche <= d.suivant && c.droite <= d.suivant;
    if (std::abs(c.gauche - d.xd()) < kMemeFin || auDela) d.deplacer(*piece);
    source.placer(std::move(piece), nouveaux);
  }
  source.fermer();
}

void ajouterALaCourbe(AcDbObjectId id, double precedent, const decalage& d, AcDbObjectIdArray& nouveaux) {
  AcDbCurve* courbe = nullptr;
  if (acdbOpenObject(courbe, id, AcDb::kForWrite) != Acad::eOk) return;
  const cotes c = cotesDe(*courbe);
  const double xd = d.xd(), pd = precedent + d.profil.position.x;
  piecesCourbe pieces;
  bool remplacer = false;
  if (std::abs(c.gauche - xd) < kMeme) {
    d.deplacer(*courbe);
  } else if (!dehorsADroite(c, d.nd()) && !dehorsAGauche(c, pd)) {
    if (aGauche(c, d.nd()) && aDroite(c, xd)) d.deplacer(*courbe);
    else if (c.gauche < xd && xd < c.droite) couperCourbe(*courbe, {xd}, pieces, remplacer);
  }
  if (pieces.size() < 2) courbe->close();
  else placerPieces(courbe, pieces, remplacer, d, nouveaux);
}

void ajouterAuxGroupes(AcDbObjectId support, double precedent, const decalage& d) {
  listeRb rebatie;
  for (elemsFixesKavel& groupe : lireGroupes(support)) {
    const bool dedans = groupe.position <= d.suivant && groupe.position >= precedent;
    if (dedans && std::abs(groupe.position - d.x) < kMeme) {
      creerDoublons(groupe);
      d.deplacerTous(groupe.doublons);
    } else if (dedans && groupe.position >= d.x) {
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

// This shift is not tested against zero.
void ajouterRupture(const profilLong& profil, double x, double z) {
  const std::size_t i = indexRupture(profil, x);
  if (i == 0 || i == profil.distPc.size()) return;
  const double precedent = profil.distPc[i - 1];
  const decalage d{profil, x, abscisse(profil, i + 1), (altitude(profil, i - 1) - z) * profil.echelleV};
  for (const AcDbObjectId& support : supports(profil)) {
    AcDbObjectIdArray ids, nouveaux;
    lireListeBrute(support, ids);
    for (const AcDbObjectId& id : ids) ajouterALaCourbe(id, precedent, d, nouveaux);
    if (!nouveaux.isEmpty()) {
      listeRb chaine(lireXrecord(support, kRecordProjet));
      for (const AcDbObjectId& id : nouveaux) {
        ads_name nom;
        if (acdbGetAdsName(nom, id) == Acad::eOk) chaine.ajouter(acutBuildList(330, nom, RTNONE));
      }
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
  const double x = valeurReelle(args.nieme(2)), z1 = valeurReelle(args.nieme(3)), z2 = valeurReelle(args.nieme(4));
  if (x > kNombreMax || z1 > kNombreMax || z2 > kNombreMax || !profil.lireNom(args.tete()->resval.rlname)) return;
  const std::wstring operation = valeurTexte(args.nieme(1));
  const double distance = x - profil.position.x;
  switch (operation.empty() ? L'\0' : operation.front()) {
    case L'A': ajouterRupture(profil, distance, z1); break;
    case L'M': modifierRupture(profil, distance, z1, z2); break;
    case L'S': supprimerRupture(profil, distance, z2); break;
    default: break;
  }
}

}  // namespace plv
