// et_fichier: what a file is. et_ordre: whether its points have x first. et_surfaces: the surfaces of LandXML. et_axes_fichier: its lines as axes. et_systemes: coordinate systems by name, or by the place of axes.
#include "etudes/fichiers/landxml.h"
#include "etudes/fichiers/listePoints.h"
#include "etudes/fichiers/nature.h"
#include "etudes/fichiers/projection.h"
#include "etudes/fichiers/vecteur.h"
#include "etudes/terrain/arguments.h"
#include "etudes/terrain/fonctions.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

struct axeNomme {
  std::wstring nom;
  axePlan axe;
  double depart = 0;
};

// From the system that a file tells to that of the drawing; made once for as many axes as have the same.
class versLeDessin {
 public:
  versLeDessin(const std::wstring& chemin, const std::string& dessin) : m_chemin(chemin), m_dessin(dessin) {}
  void passer(axePlan& axe, const std::string& de) {
    if (de != m_de) m_passage = passageDe(m_de = de);
    for (sommetAxe& s : axe)
      if (!m_passage.identique() && !m_passage.aller(s.x, s.y))
        throw refus{m_chemin + L": des coordonnées sont hors de leur système"};
  }

 private:
  passage passageDe(const std::string& de) const {
    if (de.empty()) return {};
    if (!m_dessin.empty()) return passageEntre(de, m_dessin);
    if (const auto connu = systemeDe(de); connu && connu->geographique)
      throw refus{m_chemin + L": ce fichier est en degrés (" + connu->nom +
                  L"); indiquez le système de coordonnées du dessin (PLV-TERRAIN Système)"};
    return {};
  }

  const std::wstring& m_chemin;
  const std::string& m_dessin;
  std::string m_de;
  passage m_passage;
};

std::vector<axeNomme> axesLandXml(const std::wstring& chemin, const std::string& systeme) {
  landXmlLu lu = lireLandXml(chemin);
  if (lu.axes.empty())
    throw refus{lu.laisses.empty() ? chemin + L": aucun tracé en plan (élément CoordGeom)" : lu.laisses.front()};
  std::vector<axeNomme> axes;
  versLeDessin vers(chemin, systeme);
  for (axeLandXml& a : lu.axes) {
    vers.passer(a.axe, lu.systeme);
    axes.push_back({std::move(a.nom), std::move(a.axe), a.depart});
  }
  return axes;
}

std::vector<axeNomme> axesDe(const std::wstring& chemin, const std::string& systeme) {
  const nature n = natureDe(chemin);
  if (n == nature::landXml) return axesLandXml(chemin, systeme);
  if (n != nature::vecteur)
    throw refus{chemin + L": ce fichier n'a pas de lignes; LandXML, GeoJSON, GPX, KML, Shapefile et GeoPackage en ont"};
  std::vector<axeNomme> axes;
  versLeDessin vers(chemin, systeme);
  for (const objetVecteur& objet : lireVecteur(chemin)) {
    axePlan axe;
    for (const point3& p : objet.sommets) axe.push_back({p.x, p.y, objet.altitudes ? p.z : 0, 0});
    vers.passer(axe, objet.systeme);
    if (longueur(axe) > 0) axes.push_back({objet.nom, std::move(axe)});
  }
  if (axes.empty()) throw refus{chemin + L": aucune ligne dans ce fichier"};
  return axes;
}

const wchar_t* nomDe(nature n) {
  switch (n) {
    case nature::listePoints: return L"points";
    case nature::raster: return L"grille";
    case nature::vecteur: return L"vecteur";
    case nature::landXml: return L"landxml";
  }
  return L"";
}

void ajouter(plv::listeRb& liste, const systemeConnu& s) {
  liste.ajouter(acutBuildList(RTLB, RTSTR, plv::depuisAnsi(s.code).c_str(), RTSTR, s.nom.c_str(), RTLE, 0));
}

}  // namespace

void et_fichier() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  if (!plv::estChaine(args.nieme(0))) return;
  const std::wstring chemin = plv::valeurTexte(args.nieme(0));
  repondre([&] {
    const nature n = natureDe(chemin);
    plv::listeRb liste(acutBuildList(RTLB, RTSTR, nomDe(n), 0));
    const std::string wkt = systemeDuFichier(chemin, n);
    if (const auto systeme = wkt.empty() ? std::nullopt : systemeDe(wkt)) {
      liste.ajouter(acutBuildList(systeme->geographique ? RTT : RTNIL, 0));
      ajouter(liste, *systeme);
    }
    liste.ajouter(acutBuildList(RTLE, 0));
    acedRetList(liste.tete());
  });
}

void et_surfaces() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  if (!plv::estChaine(args.nieme(0))) return;
  repondre([&] {
    plv::listeRb liste(acutBuildList(RTLB, 0));
    const landXmlLu lu = lireLandXml(plv::valeurTexte(args.nieme(0)));
    for (const surfaceLandXml& s : lu.surfaces) liste.ajouter(acutBuildList(RTSTR, s.nom.c_str(), 0));
    liste.ajouter(acutBuildList(RTLE, 0));
    if (!lu.surfaces.empty()) acedRetList(liste.tete());
  });
}

void et_ordre() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(1);
  axePlan lieu;
  if (!plv::estChaine(args.nieme(0)) || !lireAxe(noeud, lieu)) return;
  repondre([&] {
    releve points;
    lirePoints(plv::valeurTexte(args.nieme(0)), points);
    etendue droite, echangee;
    for (const point3& p : points.points) droite.prendre(p.x, p.y), echangee.prendre(p.y, p.x);
    const etendue la = etendueDe(lieu);
    acedRetStr(!la.touche(droite) && la.touche(echangee) ? L"YX" : L"XY");
  });
}

void et_axes_fichier() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  if (!plv::estChaine(args.nieme(0))) return;
  repondre([&] {
    plv::listeRb liste(acutBuildList(RTLB, 0));
    for (const axeNomme& a :
         axesDe(plv::valeurTexte(args.nieme(0)), plv::nomDeFichier(plv::valeurTexte(args.nieme(1))))) {
      liste.ajouter(acutBuildList(RTLB, RTSTR, a.nom.c_str(), 0));
      ajouterAxe(liste, a.axe);
      liste.ajouter(acutBuildList(RTREAL, a.depart, RTLE, 0));
    }
    liste.ajouter(acutBuildList(RTLE, 0));
    acedRetList(liste.tete());
  });
}

void et_systemes() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  repondre([&] {
    if (!projPresente())
      throw refus{L"ce programme a été construit sans PROJ, qui connaît les systèmes de coordonnées"};
    std::vector<systemeConnu> systemes;
    axePlan axe;
    if (plv::estChaine(noeud)) {
      if (const auto systeme = systemeDe(plv::nomDeFichier(plv::valeurTexte(noeud))); systeme && !systeme->geographique)
        systemes.push_back(*systeme);
    } else if (lireAxe(noeud, axe)) {
      systemes = systemesPossibles(etendueDe(axe));
    }
    plv::listeRb liste(acutBuildList(RTLB, 0));
    for (const systemeConnu& s : systemes) ajouter(liste, s);
    liste.ajouter(acutBuildList(RTLE, 0));
    if (!systemes.empty()) acedRetList(liste.tete());
  });
}

}  // namespace etu
