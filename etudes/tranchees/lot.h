// What a workbook tells of one network: its trenches, and where each pipe, manhole and piece has its row. Sheets refer to one another by it.
#pragma once
#include <deque>
#include <optional>
#include <vector>

#include "etudes/reseaux/controles.h"
#include "etudes/tranchees/feuilleParametres.h"
#include "etudes/tranchees/quantites.h"

namespace etu {

// A network with its quantities, as the workbook is given it.
struct lotMesure {
  std::wstring nom;  // number of the profile and kind of line
  tranchees t;
  quantites q;
  std::vector<avis> remarques;
};

inline constexpr int kEntetes = 2,
                     kPremiereRangee = 3;  // rows of headings and of the first figures, on every sheet of a lot

// A row of a run's sheet: a pipe or a manhole, with the work that is dug for it.
struct ligneTroncon {
  bool estTuyau;
  std::size_t rang;
  std::optional<std::size_t> ouvrage;
  std::size_t troncon;
  int rangee;
};

class lotFeuilles {
 public:
  lotFeuilles(lxw_workbook* classeur, const lotMesure& lot, const formats& f, const std::wstring& suffixe);

  const lotMesure& lot() const { return m_lot; }
  const std::vector<ligneTroncon>& lignes() const { return m_lignes; }
  const ligneTroncon& ligneTuyau(std::size_t i) const { return m_lignes[m_parTuyau[i]]; }
  // Rows of the last figures.
  int derniereLigne(std::size_t troncon) const { return m_dernieres[troncon]; }
  int dernierePiece() const { return kPremiereRangee + static_cast<int>(m_lot.t.pieces.size()) - 1; }
  int rangeeRegard(std::size_t i) const { return kPremiereRangee + static_cast<int>(i); }
  // Rows of the pieces of a work, from and to.
  std::pair<int, int> rangeesPieces(std::size_t ouvrage) const { return m_pieces[ouvrage]; }

  std::deque<feuille> troncons;
  std::optional<feuille> recapitulation, synthese, regards, decoupe, parametres;
  cellulesParametres cellules;

 private:
  const lotMesure& m_lot;
  std::vector<ligneTroncon> m_lignes;
  std::vector<std::size_t> m_parTuyau;
  std::vector<int> m_dernieres;
  std::vector<std::pair<int, int>> m_pieces;
};

// What a manhole or a pipe is called in the bill: "regard visite Ø1000/1240", "ventouse", "tuyau Ø300/376 béton 135A".
std::wstring designationRegard(const regard& n);
std::wstring designationTuyau(const tuyau& t);

// Columns of the sheet of pieces that the other sheets refer to.
struct colonnesDecoupe {
  explicit colonnesDecoupe(const tranchees& t, const matieres& noms);
  enum {
    kOuvrage,
    kDiametre,
    kDebut,
    kFin,
    kLongueur,
    kSolDebut,
    kSolFin,
    kRadierDebut,
    kRadierFin,
    kFondDebut,
    kFondFin,
    kProfDebut,
    kProfFin,
    kProfMoyenne,
    kBase,
    kLargeur,
    kFruit,
    kDroite,
    kClasse,
    kBlindee,
    kLit,
    kEnrobageDebut,
    kEnrobageFin,
    kNiveaux
  };
  // Each level has its heights at both ends and the volume below it; of further grounds the altitudes stand before.
  static constexpr int kParNiveau = 3, kParSol = 5;
  int niveauxStructure, niveauxRemblais, niveauxSols, niveauxClasses, sousHaut, sousEnrobage;  // first columns
  int fouille, sols, lit, enrobage, remblais, structures, surfaces, couches, blindage, nombre;
};

// A title for each of them.
std::vector<std::wstring> titresDecoupe(const tranchees& t, const matieres& noms);

void ecrireDecoupe(lotFeuilles& f);
void ecrireRegards(lotFeuilles& f);
void ecrireTroncon(lotFeuilles& f, std::size_t troncon);
void ecrireSynthese(lotFeuilles& f);

// Columns of the sheet of manholes that the other sheets refer to.
struct colonnesRegards {
  enum {
    kProfil,
    kNom,
    kType,
    kStation,
    kInterieur,
    kExterieur,
    kTerrain,
    kTampon,
    kArrivee,
    kDepart,
    kFond,
    kProfondeur,
    kChute,
    kDebord,
    kLongueur,
    kFondFouille,
    kAire,
    kBas,
    kSolAxe,
    kHaut,
    kHauteur,
    kVolume,
    kTuyaux,
    kCouvercle,
    kPremiereMatiere
  };
  static int remblai(std::size_t k) { return kPremiereMatiere + static_cast<int>(k); }
  static int structure(const matieres& noms, std::size_t k) {
    return kPremiereMatiere + static_cast<int>(noms.remblais.size() + k);
  }
};

// Columns of a run's sheet.
struct colonnesTroncon {
  enum {
    kOuvrage,
    kDesignation,
    kInterieur,
    kExterieur,
    kDebut,
    kFin,
    kRadierDebut,
    kRadierFin,
    kPente,
    kEnPlan,
    kEnPente,
    kPosee,
    kProfRegard,
    kChute,
    kProfMin,
    kProfMoyenne,
    kProfMax,
    kQuantites
  };
  static int quantite(std::size_t k) { return kQuantites + static_cast<int>(k); }
};

}  // namespace etu
