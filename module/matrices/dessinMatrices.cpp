// The drawing of matrices beneath a profile.
// Everything is built in memory first, then added: the block, its reference, the rules, the group.
#include "module/matrices/dessinMatrices.h"

#include <cmath>
#include <memory>
#include <vector>

#include "hote/dbsymtb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/matrices/stockageMatrices.h"
#include "module/support/dessin/kitDessin.h"

namespace plv {

namespace {

constexpr double kLongueurTraitProvisoire = 10.0;  // text heights, until the front-end knows the profile's length
constexpr double kEcartMatrices = 2.0;             // text heights between two matrices
constexpr double kLargeurNulle = 1e-6;

using entites = std::vector<std::unique_ptr<AcDbEntity>>;

// What all matrices of a drawing have in common, in drawing units.
struct miseEnPage {
  double hauteurTexte, ecart, largeurTitres;
};

// One matrix in the making. `bordTitres` is the right edge of the titles, relative to the reference.
struct chantier {
  matriceProfil& matrice;
  AcGePoint3d coin;
  miseEnPage page;
  double bordTitres;
  entites titres, traits;

  void trait(double d) {
    const double debut = coin.x + page.ecart + bordTitres, y = coin.y + d;
    traits.push_back(std::make_unique<AcDbLine>(
        AcGePoint3d(debut, y, 0.0), AcGePoint3d(debut + kLongueurTraitProvisoire * page.hauteurTexte, y, 0.0)));
  }

  void titre(const ligneMatrice& ligne, double d) {
    const double t = page.hauteurTexte, H = ligne.hauteurLigne * t;
    const double droite = bordTitres, gauche = droite - page.largeurTitres;
    auto cadre = std::make_unique<AcDbPolyline>(4);
    cadre->addVertexAt(0, {droite, d});
    cadre->addVertexAt(1, {gauche, d});
    cadre->addVertexAt(2, {gauche, d - H});
    cadre->addVertexAt(3, {droite, d - H});
    cadre->setClosed(true);
    titres.push_back(std::move(cadre));
    titres.push_back(std::make_unique<AcDbText>(AcGePoint3d(gauche + t, d - H * 0.5 - t * 0.5, 0.0),
                                                ligne.libelle.c_str(), matrice.styleTexte, t));
  }
};

void parBloc(AcDbEntity& entite) {
  entite.setColorIndex(kCouleurDuBloc);
  entite.setLayer(L"0");
}

// A new anonymous block of these entities.
AcDbObjectId creerBlocTitres(entites& titres) {
  AcDbDatabase* base = baseCourante();
  if (!base) return AcDbObjectId::kNull;
  AcDbObjectPointer<AcDbBlockTable> table(base->blockTableId(), AcDb::kForWrite);
  if (table.openStatus() != Acad::eOk) return AcDbObjectId::kNull;
  auto nouveau = std::make_unique<AcDbBlockTableRecord>();
  nouveau->setName(L"*U");
  nouveau->setOrigin(AcGePoint3d::kOrigin);
  AcDbObjectId id;
  if (table->add(id, nouveau.get()) != Acad::eOk) return AcDbObjectId::kNull;
  AcDbBlockTableRecord* record = nouveau.release();  // the drawing owns it from here
  for (auto& entite : titres) {
    parBloc(*entite);
    if (record->appendAcDbEntity(entite.get()) == Acad::eOk) entite.release()->close();
  }
  record->close();
  return id;
}

AcDbObjectId poserReference(const chantier& c, AcDbObjectId bloc) {
  auto reference = std::make_unique<AcDbBlockReference>(c.coin, bloc);
  reference->setColorIndex(kCouleurDuCalque);
  AcDbObjectId id;
  ajouterEspaceObjet(std::move(reference), &id);
  return id;
}

// Titles and rules of every row, from the top down, and one last rule.
void preparer(chantier& c) {
  double d = 0.0;
  for (std::ptrdiff_t i = 0; i < c.matrice.lignes.GetCount(); ++i) {
    c.trait(d);
    c.titre(*c.matrice.lignes[i], d);
    d -= c.matrice.lignes[i]->hauteurLigne * c.page.hauteurTexte;
  }
  c.trait(d);
}

void dessinerMatrice(matriceProfil& matrice, const AcGePoint3d& coin, const miseEnPage& page) {
  // Kept as it is: the gap is multiplied by the text height that the matrix had before this drawing, which is 1 for a
  // fresh matrix.
  chantier c{matrice, coin, page, -page.ecart * matrice.echelle, {}, {}};
  matrice.echelle = page.hauteurTexte;
  preparer(c);
  matrice.idBloc = poserReference(c, creerBlocTitres(c.titres));
  AcDbObjectIdArray membres;
  membres.append(matrice.idBloc);
  matrice.idTraits.removeAll();
  for (auto& trait : c.traits) {
    parBloc(*trait);
    AcDbObjectId id;
    ajouterEspaceObjet(std::move(trait), &id);
    matrice.idTraits.append(id);
    membres.append(id);
  }
  matrice.idGroupe = creerGroupe(membres, L"*");
  ecrireInfosMatrice(matrice);
}

// The left end stays, whichever end of the line it is.
void redimensionner(AcDbObjectId id, double largeur) {
  AcDbObjectPointer<AcDbLine> trait(id, AcDb::kForWrite);
  if (trait.openStatus() != Acad::eOk) return;
  const AcGePoint3d debut = trait->startPoint(), fin = trait->endPoint();
  const AcGePoint3d gauche = fin.x < debut.x ? fin : debut;
  trait->setStartPoint({gauche.x, gauche.y, 0.0});
  trait->setEndPoint({gauche.x + largeur, gauche.y, 0.0});
}

}  // namespace

void dessinerMatrices(gestionMatrices& collection, AcDbObjectId profil, const AcGePoint3d& point, double hauteur,
                      double ecart) {
  collection.idProfil = profil;
  // Kept as it is: the sum of the two terms, where pl_LargeurMatrices gives the greater one. The titles keep a margin.
  const miseEnPage page{hauteur, ecart, collection.largeurTitres(hauteur) + 2.0 * hauteur};
  double y = point.y;
  for (std::ptrdiff_t i = 0; i < collection.matrices.GetCount(); ++i) {
    matriceProfil& matrice = *collection.matrices[i];
    dessinerMatrice(matrice, {point.x, y, 0.0}, page);
    y -= matrice.hauteurTotale(hauteur) + kEcartMatrices * hauteur;
  }
  ecrireListeMatrices(collection);
}

void redimensionnerTraits(const gestionMatrices& collection, double largeur) {
  const double voulue = std::abs(largeur) < kLargeurNulle ? 1.0 : std::abs(largeur);
  for (std::ptrdiff_t i = 0; i < collection.matrices.GetCount(); ++i)
    for (const AcDbObjectId& trait : collection.matrices[i]->idTraits) redimensionner(trait, voulue);
}

void pl_DessinerMatrices() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "NPRR")) return;
  const AcDbObjectId profil = valeurId(args.nieme(0));
  if (profil.isNull()) return;
  dessinerMatrices(collectionMatrices(), profil, valeurPoint(args.nieme(1)), valeurReelle(args.nieme(2)),
                   valeurReelle(args.nieme(3)));
  acedRetT();
}

void pl_updLargeurLignes() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "R")) return;
  redimensionnerTraits(collectionMatrices(), valeurReelle(args.tete()));
  acedRetT();
}

}  // namespace plv
