// Texts, their natural width, and the rule that fits a text to a width.
// A text first narrows down to a width factor of 0.6, then loses height down to 70 %, and beyond that it
// overflows.
#pragma once
#include <string>

#include "hote/dbents.h"

namespace plv {

inline constexpr double kSansLimite = 1e36;  // a width that fits nothing

struct parametresTexte {
  double facteur = 1.0;             // width factor before fitting
  AcDbObjectId idStyle = {};        // null takes the drawing's current style, and is filled in with it
  double largeurMax = kSansLimite;  // width to fit in, drawing units
};

// The width of the text's extents at that height and a width factor of 1, in drawing units: 0 for a text
// without any.
double largeurTexte(const std::wstring& texte, double hauteur, AcDbObjectId style);
// Fits the text in the width available. False, with nothing changed, when that is greater than the natural
// width. Otherwise sets the width factor, and lowers the height when narrowing alone doesn't do.
bool ajusterTexte(double largeurDispo, const std::wstring& texte, AcDbObjectId style, double& hauteur, double& facteur);

// Makers in model space, colour by layer; the rotation is in radians. They differ in what stands at the
// position.
Acad::ErrorStatus texteGauche(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              double facteur,
                              AcDbObjectId* id = nullptr);  // the left end of the base line; no fitting
Acad::ErrorStatus texteCentre(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres,
                              AcDbObjectId* id = nullptr);  // the middle of the base line
Acad::ErrorStatus texteMilieu(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres,
                              AcDbObjectId* id = nullptr);  // the middle of the text
Acad::ErrorStatus texteDroite(const std::wstring& texte, const AcGePoint3d& position, double hauteur, double rotation,
                              parametresTexte& parametres,
                              AcDbObjectId* id = nullptr);  // the base line's right end
Acad::ErrorStatus texteAligneDroit(const std::wstring& texte, const AcGePoint3d& position, double hauteur,
                                   double rotation, parametresTexte& parametres,
                                   AcDbObjectId* id = nullptr);  // the base line's left end, fitted

}  // namespace plv
