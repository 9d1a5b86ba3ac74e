// PipeNetworks of LandXML 1.2: structures with their inverts by reference to pipes, pipes with their ends by reference to structures. Units
// are those that the file gives, for diameters their own. Reference: LandXML-1.2.xsd.
#include <algorithm>
#include <cmath>
#include <map>
#include <pugixml.hpp>
#include <sstream>

#include "etudes/fichiers/geometrieLandXml.h"
#include "etudes/fichiers/nombres.h"
#include "etudes/reseaux/ecoulement.h"
#include "etudes/reseaux/graphe.h"
#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

using pugi::xml_node;

std::wstring attribut(const xml_node& n, const char* nom) { return plv::depuisAnsi(n.attribute(nom).value()); }

xml_node enfant(const xml_node& parent, std::string_view nom) {
  for (const xml_node& n : parent.children())
    if (nomLocal(n) == nom) return n;
  return {};
}

class lecteur {
 public:
  explicit lecteur(const std::wstring& chemin) : m_chemin(chemin) { chargerXml(chemin, m_document); }

  grapheReseau lire() {
    const xml_node racine = m_document.document_element();
    pourChaque(racine, "Units", [&](const xml_node& u) {
      for (const xml_node& n : u.children()) unites(n);
    });
    pourChaque(racine, "PipeNetworks", [&](const xml_node& liste) {
      pourChaque(liste, "PipeNetwork", [&](const xml_node& n) { reseauDe(n); });
    });
    if (m_g.liens.empty()) throw refus{m_chemin + L": aucun tuyau (élément PipeNetworks)"};
    return std::move(m_g);
  }

 private:
  void unites(const xml_node& n) {
    const auto metres = [&](const char* nom, double sinon) {
      if (!n.attribute(nom)) return sinon;
      const auto valeur = metresParUnite(n.attribute(nom).value());
      if (!valeur) throw refus{m_chemin + L": unité de longueur inconnue: \"" + attribut(n, nom) + L"\""};
      return *valeur;
    };
    m_longueur = metres("linearUnit", m_longueur);
    m_altitude = metres("elevationUnit", m_longueur);
    m_diametre = metres("diameterUnit", m_longueur);
  }

  std::optional<double> nombre(const xml_node& n, const char* nom, double echelle) const {
    if (!n.attribute(nom)) return {};
    const auto valeur = nombreDe(std::string_view(n.attribute(nom).value()));
    if (!valeur)
      throw refus{m_ou + L": " + plv::depuisAnsi(nom) + L": un nombre est attendu, et non \"" + attribut(n, nom) +
                  L"\""};
    return *valeur * echelle;
  }

  void reseauDe(const xml_node& n) {
    m_radiers.clear();
    m_lieux.clear();
    const std::size_t premier = m_g.noeuds.size();
    pourChaque(enfant(n, "Structs"), "Struct", [&](const xml_node& s) { ouvrage(s); });
    pourChaque(enfant(n, "Pipes"), "Pipe", [&](const xml_node& t) { tuyauDe(t); });
    for (std::size_t i = premier; i < m_g.noeuds.size(); ++i)
      if (std::isnan(m_g.noeuds[i].radier))
        throw refus{m_chemin + L", ouvrage " + m_g.noeuds[i].nom + L": ni fond (elevSump) ni radier (Invert)"};
  }

  void ouvrage(const xml_node& s) {
    noeudGraphe n;
    n.nom = attribut(s, "name");
    m_ou = m_chemin + L", ouvrage " + n.nom;
    n.type = attribut(s, "desc");
    n.tampon = nombre(s, "elevRim", m_altitude);
    if (const xml_node rond = enfant(s, "CircStruct")) {
      n.diametre.interieur = nombre(rond, "diameter", m_diametre).value_or(0);
      n.diametre.exterieur = n.diametre.interieur + 2 * nombre(rond, "thickness", m_diametre).value_or(0);
    }
    double bas = std::nan("");
    pourChaque(s, "Invert", [&](const xml_node& i) {
      const auto z = nombre(i, "elev", m_altitude);
      if (!z) return;
      m_radiers[{attribut(i, "refPipe"), n.nom}] = *z;
      bas = std::fmin(bas, *z);
    });
    n.radier = nombre(s, "elevSump", m_altitude).value_or(bas);
    if (std::isnan(n.radier) == false) n.radier = std::fmin(n.radier, bas);
    const std::vector<double> centre = nombresDe(enfant(s, "Center").child_value());
    if (centre.size() >= 2) m_lieux[n.nom] = {centre[1] * m_longueur, centre[0] * m_longueur};
    m_g.noeuds.push_back(std::move(n));
  }

  void tuyauDe(const xml_node& t) {
    lienGraphe l;
    l.nom = attribut(t, "name");
    m_ou = m_chemin + L", tuyau " + l.nom;
    l.de = m_g.noeud(attribut(t, "refStart"), m_ou);
    l.a = m_g.noeud(attribut(t, "refEnd"), m_ou);
    const xml_node rond = enfant(t, "CircPipe");
    if (!rond) throw refus{m_ou + L": seuls les tuyaux ronds se prennent (élément CircPipe)"};
    l.diametre.interieur = nombre(rond, "diameter", m_diametre).value_or(0);
    if (!(l.diametre.interieur > 0)) throw refus{m_ou + L": le diamètre manque"};
    l.diametre.exterieur = l.diametre.interieur + 2 * nombre(rond, "thickness", m_diametre).value_or(0);
    l.materiau = attribut(rond, "material");
    if (const auto manning = nombre(rond, "mannings", 1); manning && *manning > 0) l.strickler = 1 / *manning;
    l.zDe = radier(l, l.de), l.zA = radier(l, l.a);
    l.longueur = longueurDe(t, l);
    m_g.liens.push_back(std::move(l));
  }

  double radier(const lienGraphe& l, std::size_t noeud) const {
    const auto trouve = m_radiers.find({l.nom, m_g.noeuds[noeud].nom});
    if (trouve != m_radiers.end()) return trouve->second;
    if (!std::isnan(m_g.noeuds[noeud].radier)) return m_g.noeuds[noeud].radier;
    throw refus{m_ou + L": l'ouvrage " + m_g.noeuds[noeud].nom + L" n'a pas de radier pour lui (Invert refPipe)"};
  }

  // As it is written, else between the centres of its structures.
  double longueurDe(const xml_node& t, const lienGraphe& l) const {
    if (const auto ecrite = nombre(t, "length", m_longueur); ecrite && *ecrite > 0) return *ecrite;
    const auto a = m_lieux.find(m_g.noeuds[l.de].nom), b = m_lieux.find(m_g.noeuds[l.a].nom);
    if (a == m_lieux.end() || b == m_lieux.end())
      throw refus{m_ou + L": sa longueur manque, et le lieu d'un de ses ouvrages"};
    return std::hypot(a->second.x - b->second.x, a->second.z - b->second.z);
  }

  const std::wstring& m_chemin;
  pugi::xml_document m_document;
  double m_longueur = 1, m_altitude = 1, m_diametre = 1;
  std::wstring m_ou;
  std::map<std::pair<std::wstring, std::wstring>, double> m_radiers;  // by pipe and structure
  std::map<std::wstring, pointLigne> m_lieux;
  grapheReseau m_g;
};

// --- writing

std::string octets(const std::wstring& texte) { return plv::nomDeFichier(texte); }
std::string chiffres(double v) { return octets(enTexte(v, 6)); }

void mettre(xml_node n, const char* nom, const std::string& valeur) { n.append_attribute(nom) = valeur.c_str(); }

std::string nomTuyauXml(std::size_t i) { return "T" + std::to_string(i + 1); }

void ecrireInvert(xml_node ouvrage, double z, bool entre, std::size_t tuyau) {
  xml_node n = ouvrage.append_child("Invert");
  mettre(n, "elev", chiffres(z));
  mettre(n, "flowDir", entre ? "in" : "out");
  mettre(n, "refPipe", nomTuyauXml(tuyau));
}

void ecrireOuvrage(xml_node liste, const reseauPose& p, std::size_t i, const pointLigne& lieu) {
  const regard& n = p.r.regards[i];
  xml_node s = liste.append_child("Struct");
  mettre(s, "name", octets(n.nom));
  if (!n.type.empty()) mettre(s, "desc", octets(n.type));
  mettre(s, "elevRim", chiffres(p.regards[i].tampon));
  mettre(s, "elevSump", chiffres(p.regards[i].fond));
  s.append_child("Center").text().set((chiffres(lieu.z) + " " + chiffres(lieu.x)).c_str());
  if (n.diametre.interieur > 0) {
    xml_node rond = s.append_child("CircStruct");
    mettre(rond, "diameter", chiffres(n.diametre.interieur * 1000));
    mettre(rond, "thickness", chiffres(n.diametre.paroi() * 1000));
  } else {
    s.append_child("Connection");
  }
  for (std::size_t k = 0; k < p.tuyaux.size(); ++k) {
    const bool versLaDroite = p.tuyaux[k].zDebut >= p.tuyaux[k].zFin;
    if (p.r.tuyaux[k].de == i) ecrireInvert(s, p.tuyaux[k].zDebut, !versLaDroite, k);
    if (p.r.tuyaux[k].de + 1 == i) ecrireInvert(s, p.tuyaux[k].zFin, versLaDroite, k);
  }
}

void ecrireTuyau(xml_node liste, const reseauPose& p, std::size_t i) {
  const tuyau& t = p.r.tuyaux[i];
  xml_node n = liste.append_child("Pipe");
  mettre(n, "name", nomTuyauXml(i));
  mettre(n, "refStart", octets(p.r.regards[t.de].nom));
  mettre(n, "refEnd", octets(p.r.regards[t.de + 1].nom));
  mettre(n, "length", chiffres(p.tuyaux[i].longueur()));
  mettre(n, "slope", chiffres(p.tuyaux[i].pente()));
  xml_node rond = n.append_child("CircPipe");
  mettre(rond, "diameter", chiffres(t.diametre.interieur * 1000));
  mettre(rond, "thickness", chiffres(t.diametre.paroi() * 1000));
  if (!t.materiau.empty()) mettre(rond, "material", octets(t.materiau));
  mettre(rond, "mannings", chiffres(1 / stricklerDe(t)));
}

}  // namespace

grapheReseau lirePipeNetworks(const std::wstring& chemin) { return lecteur(chemin).lire(); }

std::string textePipeNetworks(const reseauPose& p, const lieuxRegards& lieux, const std::wstring& titre) {
  pugi::xml_document document;
  xml_node declaration = document.append_child(pugi::node_declaration);
  mettre(declaration, "version", "1.0");
  mettre(declaration, "encoding", "UTF-8");
  xml_node racine = document.append_child("LandXML");
  mettre(racine, "xmlns", "http://www.landxml.org/schema/LandXML-1.2");
  mettre(racine, "version", "1.2");
  xml_node metrique = racine.append_child("Units").append_child("Metric");
  for (const auto& [nom, valeur] : {std::pair("areaUnit", "squareMeter"),
                                    {"linearUnit", "meter"},
                                    {"volumeUnit", "cubicMeter"},
                                    {"temperatureUnit", "celsius"},
                                    {"pressureUnit", "HPA"},
                                    {"diameterUnit", "millimeter"}})
    mettre(metrique, nom, valeur);
  xml_node reseau = racine.append_child("PipeNetworks").append_child("PipeNetwork");
  mettre(reseau, "name", octets(titre));
  mettre(reseau, "pipeNetType", "sanitary");
  xml_node ouvrages = reseau.append_child("Structs"), tuyaux = reseau.append_child("Pipes");
  for (std::size_t i = 0; i < p.regards.size(); ++i) ecrireOuvrage(ouvrages, p, i, lieux[i]);
  for (std::size_t i = 0; i < p.tuyaux.size(); ++i) ecrireTuyau(tuyaux, p, i);
  std::ostringstream texte;
  document.save(texte, "  ");
  return texte.str();
}

}  // namespace etu
