// The sheet of pieces: what is read off the drawing (stations, altitudes), and from there on formulas only.
#include "etudes/tranchees/lot.h"

namespace etu {

namespace {

using C = colonnesDecoupe;

int nombreDe(std::size_t n) { return static_cast<int>(n); }

class ecrivain {
 public:
  explicit ecrivain(lotFeuilles& f)
      : m_f(f), m_t(f.lot().t), m_noms(f.lot().q.noms), m_c(m_t, m_noms), m_s(*f.decoupe), m_fin(m_s.styles().fin) {}

  void ecrire() {
    entetes();
    for (std::size_t i = 0; i < m_t.pieces.size(); ++i) rangee(m_t.pieces[i], kPremiereRangee + nombreDe(i));
  }

 private:
  std::string ici(int colonne) const { return cellule(m_r, colonne); }
  void formule(int colonne, const std::string& f, double v) { m_s.formule(m_r, colonne, f, v, m_fin); }
  void nombre(int colonne, double v) { m_s.nombre(m_r, colonne, v, m_fin); }

  void entetes() {
    m_s.largeur(0, 0, 18);
    m_s.largeur(1, m_c.nombre - 1, 11);
    m_s.figer(kPremiereRangee, 2);
    m_s.texte(0, 0, L"Découpe: ce qui est droit entre deux stations (m, m3)", m_s.styles().titre);
    const std::vector<std::wstring> titres = titresDecoupe(m_t, m_noms);
    for (std::size_t k = 0; k < titres.size(); ++k) m_s.texte(kEntetes, nombreDe(k), titres[k], m_s.styles().entete);
  }

  // --- a piece

  void rangee(const piece& p, int r) {
    m_r = r;
    m_p = &p;
    m_n = niveauxDe(p, m_t.regles);
    m_o = &m_t.ouvrages[p.ouvrage];
    m_type = &m_f.cellules.types[p.regle.type];
    place();
    section();
    niveaux();
    volumes();
  }

  std::string duTroncon(int colonne) const {
    const ligneTroncon& l = m_f.ligneTuyau(m_o->rang);
    return m_f.troncons[l.troncon].ailleurs(l.rangee, colonne);
  }
  std::string duRegard(int colonne) const { return m_f.regards->ailleurs(m_f.rangeeRegard(m_o->rang), colonne); }
  const tuyau& leTuyau() const { return m_t.reseau.r.tuyaux[m_o->rang]; }

  void place() {
    const bool estTuyau = !m_o->estRegard;
    m_s.texte(m_r, C::kOuvrage, nomOuvrage(m_t, m_p->ouvrage), m_s.styles().texte);
    m_s.texte(m_r, C::kDiametre, estTuyau ? L"Ø" + enTexte(leTuyau().diametre) : L"regard", m_s.styles().texte);
    nombre(C::kDebut, m_p->a);
    nombre(C::kFin, m_p->b);
    formule(C::kLongueur, ici(C::kFin) + "-" + ici(C::kDebut), m_p->longueur());
    nombre(C::kSolDebut, m_p->sol.a);
    nombre(C::kSolFin, m_p->sol.b);
    if (estTuyau) {
      bout(C::kDebut, C::kRadierDebut, m_p->a), bout(C::kFin, C::kRadierFin, m_p->b);
      const std::string dessous =
          "-(" + duTroncon(colonnesTroncon::kExterieur) + "-" + duTroncon(colonnesTroncon::kInterieur) + ")/2-" + lit();
      formule(C::kFondDebut, ici(C::kRadierDebut) + dessous, m_p->fond.a);
      formule(C::kFondFin, ici(C::kRadierFin) + dessous, m_p->fond.b);
    } else {
      formule(C::kFondDebut, duRegard(colonnesRegards::kFondFouille), m_p->fond.a);
      formule(C::kFondFin, duRegard(colonnesRegards::kFondFouille), m_p->fond.b);
    }
    formule(C::kProfDebut, ici(C::kSolDebut) + "-" + ici(C::kFondDebut), m_n.haut.a);
    formule(C::kProfFin, ici(C::kSolFin) + "-" + ici(C::kFondFin), m_n.haut.b);
    formule(C::kProfMoyenne, "ROUND((" + ici(C::kProfDebut) + "+" + ici(C::kProfFin) + ")/2,9)",
            arrondi(m_p->profondeurMoyenne()));
  }

  void bout(int station, int colonne, double x) {
    const tuyauPose& pose = m_t.reseau.tuyaux[m_o->rang];
    formule(colonne,
            duTroncon(colonnesTroncon::kRadierDebut) + "+" + duTroncon(colonnesTroncon::kPente) + "*(" + ici(station) +
                "-" + duTroncon(colonnesTroncon::kDebut) + ")",
            pose.zDebut + pose.pente() * (x - pose.debut));
  }

  // The thickness of the bedding with what is dug below it.
  std::string lit() const {
    if (leTuyau().lit) return nombreDeFormule(*leTuyau().lit) + "-" + m_type->surprofondeur;
    return m_type->lit + "-" + m_type->surprofondeur;
  }

  void section() {
    const typeTranchee& type = m_t.regles.types[m_p->regle.type];
    base(type);
    formule(C::kLargeur,
            m_type->profondeurs.empty() ? ici(C::kBase)
                                        : "MAX(" + ici(C::kBase) + ",INDEX(" + m_type->largeurs + ",1+SUMPRODUCT(--(" +
                                              m_type->profondeurs + "<" + ici(C::kProfMoyenne) + "))))",
            m_p->largeur);
    if (type.pente) {
      const std::string penche = "IF(" + ici(C::kProfMoyenne) + ">" + m_type->talusProfondeur + ",";
      formule(C::kFruit, penche + m_type->talusFruit + ",0)", m_p->cotes.fruit);
      formule(C::kDroite, penche + m_type->talusDroite + ",0)", m_p->cotes.hauteurDroite);
    } else {
      nombre(C::kFruit, 0), nombre(C::kDroite, 0);
    }
    if (m_t.regles.classes.empty()) nombre(C::kClasse, 1);
    else
      formule(C::kClasse, "1+SUMPRODUCT(--(" + m_f.cellules.plageClasses + "<" + ici(C::kProfMoyenne) + "))",
              static_cast<double>(m_p->classe) + 1);
    if (type.soutien)
      formule(C::kBlindee,
              "IF(AND(" + ici(C::kProfMoyenne) + ">" + m_type->soutienProfondeur + ",ROUND(" + ici(C::kLargeur) +
                  ",9)<=ROUND(" + m_type->soutienRapport + "*" + ici(C::kProfMoyenne) + ",9)," + ici(C::kFruit) + "<" +
                  m_type->soutienFruit + "),1,0)",
              m_p->blindee ? 1 : 0);
    else nombre(C::kBlindee, 0);
  }

  void base(const typeTranchee& type) {
    if (m_o->estRegard) {
      formule(C::kBase, duRegard(colonnesRegards::kLongueur), m_o->fin - m_o->debut);
    } else if (type.parDiametre.empty()) {
      nombre(C::kBase, 0);
    } else {
      std::size_t k = 0;
      while (!type.parDiametre[k].contient(leTuyau().diametre.interieur - 1e-9)) ++k;
      formule(C::kBase, duTroncon(colonnesTroncon::kExterieur) + "+" + m_type->parDiametre[k].valeur,
              leTuyau().diametre.exterieur + type.parDiametre[k].valeur);
    }
  }

  // --- levels

  void niveaux() {
    if (m_o->estRegard) {
      formule(C::kLit, m_type->litRegard, m_p->lit);
      formule(C::kEnrobageDebut, "MIN(" + ici(C::kLit) + "," + ici(C::kProfDebut) + ")", m_n.enrobage.a);
      formule(C::kEnrobageFin, "MIN(" + ici(C::kLit) + "," + ici(C::kProfFin) + ")", m_n.enrobage.b);
    } else {
      const std::string epaisseur =
          (leTuyau().lit ? nombreDeFormule(*leTuyau().lit) : m_type->lit) + "+" + m_type->surprofondeur;
      formule(C::kLit, epaisseur, m_p->lit);
      const std::string haut =
          "MIN(" + ici(C::kLit) + "+" + duTroncon(colonnesTroncon::kExterieur) + "+" + m_type->enrobage + ",";
      formule(C::kEnrobageDebut, haut + ici(C::kProfDebut) + ")", m_n.enrobage.a);
      formule(C::kEnrobageFin, haut + ici(C::kProfFin) + ")", m_n.enrobage.b);
    }
    formule(m_c.sousHaut, sous(ici(C::kProfDebut), ici(C::kProfFin)), volumeSous(*m_p, m_n.haut));
    formule(m_c.sousEnrobage, sous(ici(C::kEnrobageDebut), ici(C::kEnrobageFin)), volumeSous(*m_p, m_n.enrobage));
    sousLeSol();
    for (std::size_t k = 0; k < m_n.sols.size(); ++k) solPlusBas(k);
    for (std::size_t k = 0; k < m_n.classes.size(); ++k) {
      const std::string epaisseur = m_f.cellules.classes[k];
      niveau(m_c.niveauxClasses + nombreDe(k) * C::kParNiveau, "MAX(" + ici(C::kProfDebut) + "-" + epaisseur + ",0)",
             "MAX(" + ici(C::kProfFin) + "-" + epaisseur + ",0)", m_n.classes[k]);
    }
  }

  // Layers of the surface and fills hang from the ground, and rest on the surround.
  void sousLeSol() {
    std::string epaisseur;
    const auto pendu = [&](int colonne, const std::string& plus, const bouts& hauteurs) {
      epaisseur += (epaisseur.empty() ? "" : "+") + plus;
      niveau(colonne, "MAX(" + ici(C::kProfDebut) + "-(" + epaisseur + ")," + ici(C::kEnrobageDebut) + ")",
             "MAX(" + ici(C::kProfFin) + "-(" + epaisseur + ")," + ici(C::kEnrobageFin) + ")", hauteurs);
    };
    for (std::size_t k = 0; k < m_n.structure.size(); ++k)
      pendu(m_c.niveauxStructure + nombreDe(k) * C::kParNiveau, m_f.cellules.structures[*m_p->regle.revetement][k],
            m_n.structure[k]);
    for (std::size_t k = 0; k + 1 < m_n.remblais.size(); ++k)
      pendu(m_c.niveauxRemblais + nombreDe(k) * C::kParNiveau, m_type->remblais[k], m_n.remblais[k]);
  }

  void solPlusBas(std::size_t k) {
    const int colonne = m_c.niveauxSols + nombreDe(k) * C::kParSol;
    nombre(colonne, m_p->altitudesSols[k].a);
    nombre(colonne + 1, m_p->altitudesSols[k].b);
    const int avant = colonne - C::kParSol + 2;
    const std::string hautDebut = k == 0 ? ici(C::kProfDebut) : ici(avant),
                      hautFin = k == 0 ? ici(C::kProfFin) : ici(avant + 1);
    niveau(colonne + 2, "MAX(0,MIN(" + ici(colonne) + "-" + ici(C::kFondDebut) + "," + hautDebut + "))",
           "MAX(0,MIN(" + ici(colonne + 1) + "-" + ici(C::kFondFin) + "," + hautFin + "))", m_n.sols[k]);
  }

  void niveau(int colonne, const std::string& debut, const std::string& fin, const bouts& hauteurs) {
    formule(colonne, debut, hauteurs.a);
    formule(colonne + 1, fin, hauteurs.b);
    formule(colonne + 2, sous(ici(colonne), ici(colonne + 1)), volumeSous(*m_p, hauteurs));
  }

  // The volume below a level, Simpson's rule worked out for straight lines.
  std::string sous(const std::string& a, const std::string& b) const {
    std::string f = ici(C::kLongueur) + "*(" + ici(C::kLargeur) + "*(" + a + "+" + b + ")/2";
    if (m_t.regles.types[m_p->regle.type].pente) {
      const std::string u = "MAX(0," + a + "-" + ici(C::kDroite) + ")", v = "MAX(0," + b + "-" + ici(C::kDroite) + ")";
      f += "+" + ici(C::kFruit) + "*(" + u + "^2+" + u + "*" + v + "+" + v + "^2)/3";
    }
    return f + ")";
  }

  // --- what is between levels

  void volumes() {
    formule(m_c.fouille, ici(m_c.sousHaut), volumeSous(*m_p, m_n.haut));
    entre(m_n.haut, m_c.sousHaut, m_n.sols, m_c.niveauxSols + 2, C::kParSol,
          [&](std::size_t k) { return m_c.sols + nombreDe(k); });
    entre(m_n.haut, m_c.sousHaut, m_n.classes, m_c.niveauxClasses, C::kParNiveau,
          [&](std::size_t k) { return m_c.couches + nombreDe(k); });
    const std::string litSeul = sous(ici(C::kLit), ici(C::kLit));
    formule(m_c.lit, litSeul, volumeSous(*m_p, m_n.lit));
    formule(m_c.enrobage, ici(m_c.sousEnrobage) + "-" + ici(m_c.lit), volumeEntre(*m_p, m_n.enrobage, m_n.lit));
    remplir();
    formule(m_c.blindage,
            ici(C::kBlindee) + "*" + ici(C::kLongueur) + "*(" + ici(C::kProfDebut) + "+" + ici(C::kProfFin) + ")",
            m_p->blindee ? faces(*m_p) : 0);
  }

  // From the ground down, one column for each part, the last one below the last level.
  template <class ColonneDe>
  void entre(const bouts& haut, int sousDessus, const std::vector<bouts>& niveaux, int premier, int pas,
             const ColonneDe& colonneDe) {
    bouts dessus = haut;
    std::size_t k = 0;
    for (; k < niveaux.size(); ++k) {
      const int sousNiveau = premier + nombreDe(k) * pas + 2;
      formule(colonneDe(k), ici(sousDessus) + "-" + ici(sousNiveau), volumeEntre(*m_p, dessus, niveaux[k]));
      sousDessus = sousNiveau;
      dessus = niveaux[k];
    }
    formule(colonneDe(k), ici(sousDessus), volumeSous(*m_p, dessus));
  }

  void remplir() {
    int sousDessus = m_c.sousHaut;
    bouts dessus = m_n.haut;
    const auto prendre = [&](int colonne, int sousNiveau, const bouts& niveau) {
      formule(colonne, ici(sousDessus) + "-" + ici(sousNiveau), volumeEntre(*m_p, dessus, niveau));
      sousDessus = sousNiveau;
      dessus = niveau;
    };
    if (m_p->regle.revetement) {
      const revetement& r = m_t.regles.revetements[*m_p->regle.revetement];
      for (std::size_t k = 0; k < r.couches.size(); ++k)
        prendre(m_c.structures + nombreDe(m_noms.rangStructure(r.couches[k].nom)),
                m_c.niveauxStructure + nombreDe(k) * C::kParNiveau + 2, m_n.structure[k]);
      std::string largeur = ici(C::kLargeur);
      if (m_t.regles.types[m_p->regle.type].pente)
        largeur = "(" + largeur + "+" + ici(C::kFruit) + "*(MAX(0," + ici(C::kProfDebut) + "-" + ici(C::kDroite) +
                  ")+MAX(0," + ici(C::kProfFin) + "-" + ici(C::kDroite) + ")))";
      formule(m_c.surfaces + nombreDe(*m_p->regle.revetement), ici(C::kLongueur) + "*" + largeur, surfaceDuHaut(*m_p));
    }
    const std::vector<couche>& remblais = m_t.regles.types[m_p->regle.type].remblais;
    for (std::size_t k = 0; k < remblais.size(); ++k)
      prendre(m_c.remblais + nombreDe(m_noms.rangRemblai(remblais[k].nom)),
              k + 1 < remblais.size() ? m_c.niveauxRemblais + nombreDe(k) * C::kParNiveau + 2 : m_c.sousEnrobage,
              m_n.remblais[k]);
  }

  lotFeuilles& m_f;
  const tranchees& m_t;
  const matieres& m_noms;
  C m_c;
  feuille& m_s;
  lxw_format* m_fin;
  int m_r = 0;
  const piece* m_p = nullptr;
  const ouvrage* m_o = nullptr;
  const cellulesType* m_type = nullptr;
  etu::niveaux m_n;
};

}  // namespace

void ecrireDecoupe(lotFeuilles& f) { ecrivain(f).ecrire(); }

}  // namespace etu
