// Texts, their natural width, and the rule that fits a text to a width.
// The natural width is what the host measures on a text in memory.
#include "module/support/dessin/kitTextes.h"

#include <algorithm>

#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr double kFacteurMin = 0.6;
constexpr double kPartHauteurMin = 0.7;

struct alignement {
  AcDb::TextHorzMode horizontal;
  AcDb::TextVertMode vertical;
};

Acad::ErrorStatus creerTexte(alignement cale, const std::wstring& texte, const AcGePoint3d& position, double hauteur,
                             double rotation, parametresTexte& parametres, AcDbObjectId* id) {
  if (parametres.idStyle.isNull()) parametres.idStyle = styleCourant();
  double facteur = parametres.facteur;
  if (parametres.largeurMax < kSansLimite)
    ajusterTexte(parametres.largeurMax, texte, parametres.idStyle, hauteur, facteur);
  auto entite = std::make_unique<AcDbText>();
  entite->setTextString(texte.c_str());
  entite->setWidthFactor(facteur);
  entite->setColorIndex(kCouleurDuCalque);
  entite->setTextStyle(parametres.idStyle);
  entite->setNormal(kNormale);
  entite->setHeight(hauteur);
  entite->setHorizontalMode(cale.horizontal);
  entite->setVerticalMode(cale.vertical);
  entite->setRotation(rotation);
  entite->setPosition(position);
  entite->setAlignmentPoint(position);
  return ajouterEspaceObjet(std::move(entite), id);
}

}  // namespace

double largeurTexte(const std::wstring& texte, double hauteur, AcDbObjectId style) {
  const AcDbText mesure(AcGePoint3d::kOrigin, texte.c_str(), style, hauteur);
  AcDbExtents etendue;
  if (mesure.getGeomExtents(etendue) != Acad::eOk) return 0.0;
  return etendue.maxPoint().x - etendue.minPoint().x;
}

bool ajusterTexte(double largeurDispo, const std::wstring& texte, AcDbObjectId style, double& hauteur,
                  double& facteur) {
  const double largeur = largeurTexte(texte, hauteur, style);
  if (largeurDispo > largeur) return false;
  facteur = largeurDispo / largeur;
  if (facteur >= kFacteurMin) return true;
  facteur = kFacteurMin;
  hauteur *= std::max(kPartHauteurMin, largeurDispo / (largeur * kFacteurMin));
  return true;
}

Acad::ErrorStatus texteGauche(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              double facteur, AcDbObjectId* id) {
  parametresTexte parametres{.facteur = facteur};
  return creerTexte({AcDb::kTextLeft, AcDb::kTextBase}, texte, position, hauteur, rotation, parametres, id);
}

Acad::ErrorStatus texteCentre(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres, AcDbObjectId* id) {
  return creerTexte({AcDb::kTextCenter, AcDb::kTextBase}, texte, position, hauteur, rotation, parametres, id);
}

Acad::ErrorStatus texteMilieu(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres, AcDbObjectId* id) {
  return creerTexte({AcDb::kTextMid, AcDb::kTextVertMid}, texte, position, hauteur, rotation, parametres, id);
}

Acad::ErrorStatus texteDroite(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres, AcDbObjectId* id) {
  return creerTexte({AcDb::kTextRight, AcDb::kTextBase}, texte, position, hauteur, rotation, parametres, id);
}

Acad::ErrorStatus texteAligneDroit(const std::wstring& texte, const AcGePoint3d& position, double hauteur,
                                   double rotation, parametresTexte& parametres, AcDbObjectId* id) {
  return creerTexte({AcDb::kTextLeft, AcDb::kTextBase}, texte, position, hauteur, rotation, parametres, id);
}

}  // namespace plv
