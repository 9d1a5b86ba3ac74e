// Reading surfaces and plan geometry with pugixml. Points are "northing easting [elevation]".
#include "etudes/fichiers/landxml.h"

#include <charconv>
#include <pugixml.hpp>
#include <unordered_map>

#include "etudes/fichiers/geometrieLandXml.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

using pugi::xml_node;

std::wstring nomDe(const xml_node& noeud, std::size_t rang) {
  const std::wstring nom = plv::depuisAnsi(noeud.attribute("name").value());
  return nom.empty() ? std::to_wstring(rang + 1) : nom;
}

class lecture {
 public:
  explicit lecture(const std::wstring& chemin) : m_chemin(chemin) { chargerXml(chemin, m_document); }

  landXmlLu lire() {
    const xml_node racine = m_document.document_element();
    if (nomLocal(racine) != "LandXML") throw refus{m_chemin + L": ce n'est pas un fichier LandXML"};
    pourChaque(racine, "Units", [&](const xml_node& n) { lireUnites(n); });
    pourChaque(racine, "CoordinateSystem", [&](const xml_node& n) {
      if (const std::string code = n.attribute("epsgCode").value(); !code.empty()) m_lu.systeme = "EPSG:" + code;
    });
    pourChaque(racine, "CgPoints", [&](const xml_node& n) { lirePointsNommes(n); });
    pourChaque(racine, "Surfaces", [&](const xml_node& liste) {
      pourChaque(liste, "Surface", [&](const xml_node& n) { utilisable([&] { lireSurface(n); }); });
    });
    pourChaque(racine, "Alignments", [&](const xml_node& liste) {
      pourChaque(liste, "Alignment", [&](const xml_node& n) { utilisable([&] { lireAxe(n); }); });
    });
    if (m_lu.surfaces.empty() && m_lu.axes.empty())
      throw refus{m_lu.laisses.empty() ? m_chemin + L": ni surface ni tracé en plan dans ce fichier LandXML"
                                       : m_lu.laisses.front()};
    return std::move(m_lu);
  }

 private:
  // What is wrong in one surface or alignment costs that one only.
  template <class Travail>
  void utilisable(const Travail& travail) {
    try {
      travail();
    } catch (const refus& r) {
      m_lu.laisses.push_back(m_chemin + L": " + m_ou + L": " + r.texte);
    }
  }

  void lireUnites(const xml_node& unites) {
    const auto metres = [&](const xml_node& n, const char* attribut) {
      if (const auto unite = metresParUnite(n.attribute(attribut).value())) return *unite;
      throw refus{m_chemin + L": unité de longueur inconnue: \"" + plv::depuisAnsi(n.attribute(attribut).value()) +
                  L"\""};
    };
    for (const xml_node& n : unites.children()) {
      if (n.attribute("linearUnit")) m_echelles.longueur = m_echelles.altitude = metres(n, "linearUnit");
      if (n.attribute("elevationUnit")) m_echelles.altitude = metres(n, "elevationUnit");
    }
  }

  void lirePointsNommes(const xml_node& liste) {
    pourChaque(liste, "CgPoint", [&](const xml_node& n) {
      const std::vector<double> v = nombresDe(n.child_value());
      if (v.size() >= 2) m_nommes[n.attribute("name").value()] = pointDe(v, 0, v.size() > 2 ? 3 : 2, m_echelles);
    });
    pourChaque(liste, "CgPoints", [&](const xml_node& n) { lirePointsNommes(n); });
  }

  void lireAxe(const xml_node& n) {
    m_ou = L"axe \"" + nomDe(n, m_lu.axes.size()) + L"\"";
    pourChaque(n, "CoordGeom", [&](const xml_node& geometrie) {
      axePlan axe = axeDeGeometrie(geometrie, m_nommes, m_echelles);
      const std::vector<double> depart = nombresDe(n.attribute("staStart").value());
      m_lu.axes.push_back(
          {nomDe(n, m_lu.axes.size()), depart.empty() ? 0 : depart[0] * m_echelles.longueur, std::move(axe)});
    });
  }

  void lireSurface(const xml_node& n) {
    surfaceLandXml s{nomDe(n, m_lu.surfaces.size()), {}};
    m_ou = L"surface \"" + s.nom + L"\"";
    std::unordered_map<std::string, point3> sommets;
    pourChaque(n, "Definition", [&](const xml_node& definition) {
      pourChaque(definition, "Pnts", [&](const xml_node& liste) {
        pourChaque(liste, "P", [&](const xml_node& p) {
          const std::vector<double> v = nombresDe(p.child_value());
          if (v.size() < 3)
            throw refus{L"le point " + plv::depuisAnsi(p.attribute("id").value()) + L" n'a pas trois coordonnées"};
          s.contenu.points.push_back(sommets[p.attribute("id").value()] = pointDe(v, 0, 3, m_echelles));
        });
      });
      pourChaque(definition, "Faces", [&](const xml_node& liste) {
        pourChaque(liste, "F", [&](const xml_node& f) { lireFace(f, sommets, s.contenu); });
      });
    });
    if (!s.contenu.faces.empty()) s.contenu.points.clear();
    else pourChaque(n, "SourceData", [&](const xml_node& donnees) { lireSources(donnees, s.contenu); });
    if (s.contenu.faces.empty() && s.contenu.points.size() < 3) throw refus{L"moins de trois points, et pas de face"};
    m_lu.surfaces.push_back(std::move(s));
  }

  static void lireFace(const xml_node& f, const std::unordered_map<std::string, point3>& sommets, releve& r) {
    if (f.attribute("i").as_int() == 1) return;  // the file says that it isn't seen
    std::vector<point3> coins;
    for (const std::string& id : motsDe(f.child_value())) {
      const auto trouve = sommets.find(id);
      if (trouve == sommets.end())
        throw refus{L"une face nomme le point " + plv::depuisAnsi(id) + L", qui n'existe pas"};
      coins.push_back(trouve->second);
    }
    for (std::size_t i = 2; i < coins.size(); ++i) r.faces.push_back({coins[0], coins[i - 1], coins[i]});
  }

  void lireSources(const xml_node& donnees, releve& r) {
    pourChaque(donnees, "DataPoints", [&](const xml_node& n) { lireListes(n, r, false); });
    pourChaque(donnees, "Breaklines", [&](const xml_node& liste) {
      pourChaque(liste, "Breakline", [&](const xml_node& n) { lireListes(n, r, true); });
    });
    pourChaque(donnees, "Contours", [&](const xml_node& liste) {
      pourChaque(liste, "Contour", [&](const xml_node& n) { lireListes(n, r, true); });
    });
  }

  // PntList3D, or PntList2D of a contour line with its altitude.
  void lireListes(const xml_node& n, releve& r, bool ligne) {
    for (const xml_node& liste : n.children()) {
      const bool plate = nomLocal(liste) == "PntList2D";
      if (!plate && nomLocal(liste) != "PntList3D") continue;
      const std::vector<double> v = nombresDe(liste.child_value());
      const std::size_t pas = plate ? 2 : 3, premier = r.points.size();
      if (v.size() % pas != 0)
        throw refus{L"une liste de points a un nombre de valeurs qui n'est pas multiple de " + std::to_wstring(pas)};
      const double altitude = n.attribute("elev").as_double() * m_echelles.altitude;
      for (std::size_t i = 0; i < v.size(); i += pas) {
        r.points.push_back(pointDe(v, i, pas, m_echelles));
        if (plate) r.points.back().z = altitude;
      }
      for (std::size_t i = premier; ligne && i + 1 < r.points.size(); ++i)
        r.segments.emplace_back(static_cast<numero>(i), static_cast<numero>(i + 1));
    }
  }

  std::wstring m_chemin, m_ou;
  pugi::xml_document m_document;
  echellesLandXml m_echelles;
  pointsNommes m_nommes;
  landXmlLu m_lu;
};

}  // namespace

landXmlLu lireLandXml(const std::wstring& chemin) { return lecture(chemin).lire(); }

}  // namespace etu
