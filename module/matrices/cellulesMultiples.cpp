// Cell writer: text of several lines in the cell between two abscissas, parts separated by "|".
// With the rule flag the cell has a line through its mid-height.
#include <algorithm>
#include <vector>

#include "module/matrices/cellule.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitGroupes.h"

namespace plv {

namespace {

constexpr wchar_t kSeparateur = L'|';
constexpr double kMargePile = 0.4;  // rows that a stack needs beside its parts

// The cell: its left and right abscissa, and whether it has a rule.
struct caseMultiple {
  const cellule& c;
  double x1, xm;
  bool filet;
  double largeur() const { return xm - x1; }
  double centreX() const { return (x1 + xm) * 0.5; }
  void tracerFilet(double de, double a) const { tracer(c, de, c.milieu(), a, c.milieu()); }
};

// Parts of no length are dropped; a part of blanks stays as an empty one. Nothing follows a last separator.
std::vector<std::wstring> decouper(const std::wstring& texte) {
  std::vector<std::wstring> parts;
  std::size_t debut = 0;
  while (debut < texte.size()) {
    const std::size_t fin = std::min(texte.find(kSeparateur, debut), texte.size());
    if (fin > debut) parts.push_back(sansBlancs(std::wstring_view(texte).substr(debut, fin - debut)));
    debut = fin + 1;
  }
  return parts;
}

void ecrireSeule(const caseMultiple& k, const std::wstring& texte) {
  const cellule& c = k.c;
  parametresTexte parametres = parametresCellule(c, k.largeur());
  AcDbObjectId id;
  if (k.filet) {
    texteCentre(texte, c.point(k.centreX(), c.milieu() + c.e * 0.2), c.e, 0.0, parametres, &id);
    k.tracerFilet(k.x1, k.xm);
  } else {
    texteMilieu(texte, c.point(k.centreX(), c.milieu()), c.e, 0.0, parametres, &id);
  }
  grouper(c, id);
}

// Height and width factor of a stack. Kept as it is: the first part alone is measured; in these lists it is the
// longest.
void tailleDePile(const caseMultiple& k, const std::vector<std::wstring>& parts, double& th, double& f) {
  const cellule& c = k.c;
  const auto n = static_cast<double>(parts.size());
  th = c.e;
  f = 1.0;
  ajusterTexte(k.largeur(), parts.front(), c.matrice.styleTexte, th, f);
  if (n + kMargePile <= c.H) return;
  th = c.e * c.H / (n + kMargePile);
  f = 1.0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    double hauteur = th, facteur = f;
    ajusterTexte(k.largeur(), parts.front(), c.matrice.styleTexte, hauteur, facteur);
    th = std::min(th, hauteur);
    f = std::min(f, facteur);
  }
}

// An odd stack has a part at mid-height, beside which the rule stands in two pieces.
void tracerFiletDePile(const caseMultiple& k, const std::vector<std::wstring>& parts, double th, double f) {
  if (parts.size() % 2 == 0) {
    k.tracerFilet(k.x1, k.xm);
    return;
  }
  double plusLarge = 0.0;
  for (const std::wstring& part : parts)
    plusLarge = std::max(plusLarge, largeurTexte(part, k.c.e, k.c.matrice.styleTexte));
  const double z = plusLarge * f + th + th;
  if (k.largeur() <= z) return;
  k.tracerFilet(k.x1, k.x1 + z * 0.5);
  k.tracerFilet(k.xm, k.xm - z * 0.5);
}

void ecrirePile(const caseMultiple& k, const std::vector<std::wstring>& parts) {
  const cellule& c = k.c;
  const auto n = static_cast<double>(parts.size());
  double th = 0, f = 0;
  tailleDePile(k, parts, th, f);
  if (k.filet) tracerFiletDePile(k, parts, th, f);
  const double ecart = (c.H * c.e - n * th) / n;
  double y = c.hh + (ecart - th) * 0.5;
  AcDbObjectIdArray ecrits;
  for (const std::wstring& part : parts) {
    y -= th * 0.5 + ecart;
    parametresTexte parametres = parametresCellule(c);
    parametres.facteur = f;
    AcDbObjectId id;
    if (texteMilieu(part, c.point(k.centreX(), y), th, 0.0, parametres, &id) == Acad::eOk) ecrits.append(id);
  }
  ajouterAuGroupeListe(c.matrice.idGroupe, ecrits);
}

}  // namespace

// Kept as it is: a call with the greater abscissa first draws nothing and succeeds.
void pl_TexteMultipleCentre() {
  ArgsLisp args;
  const auto c = commencerCellule(args);
  if (!c || !conforme(args, "RRC")) return;
  const resbuf* drapeau = args.nieme(3);
  if (drapeau && !estEntier(drapeau)) return;
  const double x1 = valeurReelle(args.nieme(0));
  const caseMultiple k{*c, x1, std::max(x1, valeurReelle(args.nieme(1))), drapeau && valeurEntiere(drapeau) != 0};
  acedRetT();
  if (k.largeur() < kToleranceGeometrique) return;
  const std::vector<std::wstring> parts = decouper(valeurTexte(args.nieme(2)));
  tracerRepere(*c, k.x1);
  tracerRepere(*c, k.xm);
  if (parts.size() == 1) ecrireSeule(k, parts.front());
  else if (!parts.empty()) ecrirePile(k, parts);
}

}  // namespace plv
