// The sheet of manholes: levels, pit, body, and how much of each fill and layer the body takes the place of.
#include <algorithm>

#include "etudes/tranchees/lot.h"

namespace etu {

namespace {

using C = colonnesRegards;

class ecrivain {
 public:
  explicit ecrivain(lotFeuilles& f)
      : m_f(f), m_t(f.lot().t), m_noms(f.lot().q.noms), m_s(*f.regards), m_fin(m_s.styles().fin) {}

  void ecrire() {
    entetes();
    for (std::size_t i = 0; i < m_t.reseau.regards.size(); ++i) rangee(i);
  }

 private:
  std::string ici(int colonne) const { return cellule(m_r, colonne); }
  void formule(int colonne, const std::string& f, double v) { m_s.formule(m_r, colonne, f, v, m_fin); }
  void nombre(int colonne, double v) { m_s.nombre(m_r, colonne, v, m_fin); }

  void entetes() {
    constexpr const wchar_t* kTitres[] = {L"profil",
                                          L"regard",
                                          L"type",
                                          L"station",
                                          L"diamètre intérieur",
                                          L"diamètre extérieur",
                                          L"terrain",
                                          L"tampon",
                                          L"arrivée",
                                          L"départ",
                                          L"fond",
                                          L"profondeur",
                                          L"chute",
                                          L"débord",
                                          L"fosse",
                                          L"fond de fouille",
                                          L"aire du corps",
                                          L"bas du corps",
                                          L"sol sur l'axe",
                                          L"haut du corps",
                                          L"hauteur dans le sol",
                                          L"volume du corps",
                                          L"tuyaux dans la fosse",
                                          L"surface du couvercle"};
    m_s.largeur(0, 60, 12);
    m_s.figer(kPremiereRangee, 2);
    m_s.texte(0, 0, L"Regards (m, m3); hauteurs au-dessus du fond de fouille", m_s.styles().titre);
    for (int k = 0; k < C::kPremiereMatiere; ++k) m_s.texte(kEntetes, k, kTitres[k], m_s.styles().entete);
    for (std::size_t k = 0; k < m_noms.remblais.size(); ++k)
      m_s.texte(kEntetes, C::remblai(k), L"corps dans remblai " + m_noms.remblais[k].nom, m_s.styles().entete);
    for (std::size_t k = 0; k < m_noms.structures.size(); ++k)
      m_s.texte(kEntetes, C::structure(m_noms, k), L"corps dans " + m_noms.structures[k], m_s.styles().entete);
  }

  void rangee(std::size_t i) {
    m_r = m_f.rangeeRegard(i);
    m_i = i;
    const regard& n = m_t.reseau.r.regards[i];
    const regardPose& p = m_t.reseau.regards[i];
    m_s.texte(m_r, C::kProfil, m_f.lot().nom, m_s.styles().texte);
    m_s.texte(m_r, C::kNom, n.nom, m_s.styles().texte);
    m_s.texte(m_r, C::kType, n.type, m_s.styles().texte);
    nombre(C::kStation, n.station);
    nombre(C::kInterieur, n.diametre.interieur);
    nombre(C::kExterieur, n.diametre.exterieur);
    nombre(C::kTerrain, p.terrain);
    if (n.tampon) nombre(C::kTampon, p.tampon);
    else formule(C::kTampon, ici(C::kTerrain), p.tampon);
    const double arrivee = p.arrivee ? *p.arrivee : *p.depart, depart = p.depart ? *p.depart : *p.arrivee;
    if (p.arrivee) nombre(C::kArrivee, arrivee);
    else formule(C::kArrivee, ici(C::kDepart), arrivee);
    if (p.depart) nombre(C::kDepart, depart);
    else formule(C::kDepart, ici(C::kArrivee), depart);
    if (n.fond) nombre(C::kFond, p.fond);
    else formule(C::kFond, "MIN(" + ici(C::kArrivee) + "," + ici(C::kDepart) + ")", p.fond);
    formule(C::kProfondeur, ici(C::kTampon) + "-" + ici(C::kFond), p.tampon - p.fond);
    formule(C::kChute, "ABS(" + ici(C::kArrivee) + "-" + ici(C::kDepart) + ")", std::abs(arrivee - depart));
    if (!(n.diametre.exterieur > 0)) return;
    const std::size_t rang = m_t.regles.en(n.station).type;
    formule(C::kDebord, m_f.cellules.types[rang].debord, m_t.regles.types[rang].regard.debord);
    formule(C::kLongueur, ici(C::kExterieur) + "+2*" + ici(C::kDebord),
            n.diametre.exterieur + 2 * m_t.regles.types[rang].regard.debord);
    if (const auto ouvrage = ouvrageDe(i)) fosse(p, *ouvrage);
  }

  std::optional<std::size_t> ouvrageDe(std::size_t i) const {
    const auto trouve =
        std::ranges::find_if(m_f.lignes(), [&](const ligneTroncon& l) { return !l.estTuyau && l.rang == i; });
    return trouve->ouvrage;
  }

  void fosse(const regardPose& p, std::size_t ouvrage) {
    const etu::ouvrage& o = m_t.ouvrages[ouvrage];
    const piece& axe = pieceDeLAxe(m_t, ouvrage);
    const cellulesType& type = m_f.cellules.types[axe.regle.type];
    const fosse_& f = m_t.regles.types[axe.regle.type].regard;
    const corpsRegard corps = corpsDe(m_t, o, axe);
    const niveaux niv = niveauxDe(axe, m_t.regles);
    const double sol = surLAxe(m_t, axe, axe.sol);
    formule(C::kFondFouille, ici(C::kFond) + "-" + type.radier + "-" + type.litRegard, p.fond - f.radier - f.lit);
    formule(C::kAire, "PI()*" + ici(C::kExterieur) + "^2/4", corps.aire);
    formule(C::kBas, type.litRegard, corps.bas);
    nombre(C::kSolAxe, sol);
    formule(
        C::kHaut,
        "MAX(" + ici(C::kBas) + ",MIN(" + ici(C::kTampon) + "," + ici(C::kSolAxe) + ")-" + ici(C::kFondFouille) + ")",
        corps.haut);
    formule(C::kHauteur, ici(C::kHaut) + "-" + ici(C::kBas), corps.haut - corps.bas);
    formule(C::kVolume, ici(C::kAire) + "*" + ici(C::kHauteur), corps.aire * (corps.haut - corps.bas));
    tuyaux(o);
    const double haut = surLAxe(m_t, axe, niv.haut);
    formule(C::kCouvercle,
            "IF(" + ici(C::kHaut) + ">" + ici(C::kSolAxe) + "-" + ici(C::kFondFouille) + "-0.000000001," +
                ici(C::kAire) + ",0)",
            corps.haut > haut - 1e-9 ? corps.aire : 0);
    matieres(axe, corps, niv, type);
  }

  void tuyaux(const etu::ouvrage& o) {
    std::string somme;
    for (std::size_t i = 0; i < m_t.reseau.tuyaux.size(); ++i) {
      const std::size_t de = m_t.reseau.r.tuyaux[i].de;
      if (de != m_i && de + 1 != m_i) continue;
      const ligneTroncon& l = m_f.ligneTuyau(i);
      const feuille& s = m_f.troncons[l.troncon];
      somme += (somme.empty() ? "" : "+") + ("PI()*" + s.ailleurs(l.rangee, colonnesTroncon::kExterieur)) + "^2/4*" +
               ici(C::kDebord) + "*" + s.ailleurs(l.rangee, colonnesTroncon::kEnPente) + "/" +
               s.ailleurs(l.rangee, colonnesTroncon::kEnPlan);
    }
    formule(C::kTuyaux, somme, tuyauxDansLaFosse(m_t, o));
  }

  // The body within each layer, from the ground down.
  void matieres(const piece& axe, const corpsRegard& corps, const niveaux& n, const cellulesType& type) {
    const std::string profondeur = "(" + ici(C::kSolAxe) + "-" + ici(C::kFondFouille) + ")";
    std::string dessus = profondeur, epaisseur;
    double haut = surLAxe(m_t, axe, n.haut);
    const auto prendre = [&](int colonne, const std::string& dessous, const bouts& niveau) {
      const double bas = surLAxe(m_t, axe, niveau);
      formule(
          colonne,
          ici(C::kAire) + "*MAX(0,MIN(" + dessus + "," + ici(C::kHaut) + ")-MAX(" + dessous + "," + ici(C::kBas) + "))",
          corps.entre(bas, haut));
      dessus = dessous;
      haut = bas;
    };
    const auto pendu = [&](int colonne, const std::string& plus, const bouts& niveau) {
      epaisseur += "-" + plus;
      prendre(colonne, "MAX(" + profondeur + epaisseur + "," + ici(C::kBas) + ")", niveau);
    };
    if (axe.regle.revetement) {
      const auto& couches = m_t.regles.revetements[*axe.regle.revetement].couches;
      for (std::size_t k = 0; k < couches.size(); ++k)
        pendu(C::structure(m_noms, m_noms.rangStructure(couches[k].nom)),
              m_f.cellules.structures[*axe.regle.revetement][k], n.structure[k]);
    }
    const auto& remblais = m_t.regles.types[axe.regle.type].remblais;
    for (std::size_t k = 0; k < remblais.size(); ++k) {
      const int colonne = C::remblai(m_noms.rangRemblai(remblais[k].nom));
      if (remblais[k].epaisseur) pendu(colonne, type.remblais[k], n.remblais[k]);
      else prendre(colonne, ici(C::kBas), n.remblais[k]);
    }
  }

  using fosse_ = etu::fosse;
  lotFeuilles& m_f;
  const tranchees& m_t;
  const etu::matieres& m_noms;
  feuille& m_s;
  lxw_format* m_fin;
  int m_r = 0;
  std::size_t m_i = 0;
};

}  // namespace

void ecrireRegards(lotFeuilles& f) { ecrivain(f).ecrire(); }

}  // namespace etu
