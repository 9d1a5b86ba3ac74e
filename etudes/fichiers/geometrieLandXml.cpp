// Elements of plan geometry. A clothoid is laid between its two ends: its length and radii give its form, the chord its direction.
#include "etudes/fichiers/geometrieLandXml.h"

#include <charconv>
#include <fstream>
#include <numbers>

#include "module/support/base/lettres.h"
#include "module/support/base/nombres.h"

namespace etu {

namespace {

using pugi::xml_node;

constexpr double kSuite = 0.01;      // metres between an element's end and the next one's start
constexpr double kClothoide = 0.02;  // by how much the form of a clothoid may miss its end, in metres

class geometrie {
 public:
  geometrie(const pointsNommes& nommes, const echellesLandXml& echelles) : m_nommes(nommes), m_echelles(echelles) {}

  axePlan lire(const xml_node& coordGeom) {
    for (const xml_node& n : coordGeom.children()) {
      const std::string_view nom = nomLocal(n);
      if (nom != "Line" && nom != "Curve" && nom != "Spiral" && nom != "IrregularLine") continue;
      m_element = L"élément " + std::to_wstring(++m_rang) + L" (" + plv::depuisAnsi(nom) + L")";
      const point3 debut = extremite(n, "Start"), fin = extremite(n, "End");
      commencer(debut);
      if (nom == "Curve") m_axe.back().bulbe = bulbeDe(n, debut, fin);
      else if (nom == "Spiral") clothoide(n, debut, fin);
      else if (nom == "IrregularLine") ligneBrisee(n);
      m_axe.push_back({fin.x, fin.y, fin.z, 0});
    }
    if (m_axe.size() < 2 || longueur(m_axe) <= 0) throw refus{L"pas de tracé en plan"};
    return std::move(m_axe);
  }

 private:
  [[noreturn]] void refuser(const std::wstring& pourquoi) const { throw refus{m_element + L": " + pourquoi}; }

  void commencer(const point3& debut) {
    if (m_axe.empty()) {
      m_axe.push_back({debut.x, debut.y, debut.z, 0});
    } else if (const double ecart = std::hypot(debut.x - m_axe.back().x, debut.y - m_axe.back().y); ecart > kSuite) {
      refuser(L"il commence à " + plv::texteFixe(ecart, 3) + L" m de la fin du précédent");
    }
  }

  point3 extremite(const xml_node& n, std::string_view nom) const {
    for (const xml_node& enfant : n.children()) {
      if (nomLocal(enfant) != nom) continue;
      if (const std::string reference = enfant.attribute("pntRef").value(); !reference.empty()) {
        const auto trouve = m_nommes.find(reference);
        if (trouve == m_nommes.end()) refuser(L"le point " + plv::depuisAnsi(reference) + L" n'existe pas");
        return trouve->second;
      }
      const std::vector<double> v = nombresDe(enfant.child_value());
      if (v.size() < 2) refuser(plv::depuisAnsi(nom) + L" n'a pas deux coordonnées");
      return pointDe(v, 0, std::min<std::size_t>(v.size(), 3), m_echelles);
    }
    refuser(plv::depuisAnsi(nom) + L" manque");
  }

  static double sensDe(const xml_node& n) { return std::string_view(n.attribute("rot").value()) == "cw" ? -1 : 1; }

  double bulbeDe(const xml_node& n, const point3& debut, const point3& fin) const {
    const point3 centre = extremite(n, "Center");
    const double r1 = std::hypot(debut.x - centre.x, debut.y - centre.y),
                 r2 = std::hypot(fin.x - centre.x, fin.y - centre.y);
    if (std::abs(r1 - r2) > kSuite || r1 == 0)
      refuser(L"les extrémités sont à " + plv::texteFixe(r1, 3) + L" et " + plv::texteFixe(r2, 3) + L" m du centre");
    const double sens = sensDe(n);
    double angle =
        sens * (std::atan2(fin.y - centre.y, fin.x - centre.x) - std::atan2(debut.y - centre.y, debut.x - centre.x));
    if (angle <= 0) angle += 2 * std::numbers::pi;
    return sens * std::tan(0.25 * angle);
  }

  void ligneBrisee(const xml_node& n) {
    for (const xml_node& liste : n.children()) {
      const std::size_t pas = nomLocal(liste) == "PntList2D" ? 2 : nomLocal(liste) == "PntList3D" ? 3 : 0;
      if (pas == 0) continue;
      const std::vector<double> v = nombresDe(liste.child_value());
      for (std::size_t i = pas; i + pas < v.size(); i += pas) {
        const point3 p = pointDe(v, i, pas, m_echelles);
        m_axe.push_back({p.x, p.y, p.z, 0});
      }
    }
  }

  // 1/radius with its sign; straight where the radius is infinite.
  double courbure(const xml_node& n, const char* attribut) const {
    const std::string texte = n.attribute(attribut).value();
    if (texte.empty() || texte.find("INF") == 0 || texte.find("inf") == 0) return 0;
    const double rayon = nombresDe(texte).front() * m_echelles.longueur;
    return rayon == 0 ? 0 : sensDe(n) / rayon;
  }

  void clothoide(const xml_node& n, const point3& debut, const point3& fin) {
    if (const std::string type = n.attribute("spiType").value(); !type.empty() && type != "clothoid")
      refuser(L"courbe de raccordement \"" + plv::depuisAnsi(type) + L"\"; seules les clothoïdes sont prises");
    const std::vector<double> lue = nombresDe(n.attribute("length").value());
    const double l = lue.empty() ? 0 : lue[0] * m_echelles.longueur;
    if (!(l > 0)) refuser(L"sa longueur manque");
    const double k0 = courbure(n, "radiusStart"), k1 = courbure(n, "radiusEnd"), variation = (k1 - k0) / l;
    // An arc leaves a clothoid of the same ends by variation * step^3 / (36 * sqrt 3).
    const double pas = std::cbrt(kFlecheAxe * 36 * std::numbers::sqrt3 / std::max(std::abs(variation), 1e-12));
    const int nombre = static_cast<int>(std::clamp(std::ceil(l / pas), 2.0, 10000.0));
    std::vector<point3> places{{}};
    for (int i = 0; i < nombre; ++i)
      places.push_back(avancer(places.back(), k0, variation, l * i / nombre, l * (i + 1) / nombre));
    poser(places, debut, fin);
    const auto cap = [&](double s) { return k0 * s + 0.5 * variation * s * s; };
    for (int i = 0; i < nombre; ++i) {
      m_axe.back().bulbe = std::tan(0.25 * (cap(l * (i + 1) / nombre) - cap(l * i / nombre)));
      const auto k = static_cast<std::size_t>(i) + 1;
      if (i + 1 < nombre) m_axe.push_back({places[k].x, places[k].y, 0, 0});
    }
  }

  // Along the curve by Gauss's rule of five places, exact to the last digits for the small steps here.
  static point3 avancer(const point3& p, double k0, double variation, double s0, double s1) {
    constexpr double kPlaces[] = {0, 0.5384693101056831, 0.9061798459386640};
    constexpr double kPoids[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    const double milieu = 0.5 * (s0 + s1), demi = 0.5 * (s1 - s0);
    point3 q = p;
    for (int i = 0; i < 3; ++i)
      for (const double signe : {-1.0, 1.0}) {
        if (i == 0 && signe > 0) continue;
        const double s = milieu + signe * demi * kPlaces[i], cap = k0 * s + 0.5 * variation * s * s;
        q.x += demi * kPoids[i] * std::cos(cap), q.y += demi * kPoids[i] * std::sin(cap);
      }
    return q;
  }

  // Turns the places, which begin at the origin, so that they end in the direction of the end.
  void poser(std::vector<point3>& places, const point3& debut, const point3& fin) const {
    const point3 e = places.back();
    const double corde = std::hypot(e.x, e.y), voulue = std::hypot(fin.x - debut.x, fin.y - debut.y);
    if (std::abs(corde - voulue) > kClothoide)
      refuser(L"sa longueur et ses rayons donnent une corde de " + plv::texteFixe(corde, 3) + L" m au lieu de " +
              plv::texteFixe(voulue, 3));
    const double angle = std::atan2(fin.y - debut.y, fin.x - debut.x) - std::atan2(e.y, e.x), echelle = voulue / corde;
    const double c = std::cos(angle) * echelle, s = std::sin(angle) * echelle;
    for (point3& p : places) p = {debut.x + c * p.x - s * p.y, debut.y + s * p.x + c * p.y, 0};
  }

  const pointsNommes& m_nommes;
  const echellesLandXml& m_echelles;
  axePlan m_axe;
  int m_rang = 0;
  std::wstring m_element;
};

struct unite {
  const wchar_t* nom;
  double metres;
};
constexpr unite kUnites[] = {{L"meter", 1},
                             {L"millimeter", 0.001},
                             {L"centimeter", 0.01},
                             {L"kilometer", 1000},
                             {L"foot", 0.3048},
                             {L"feet", 0.3048},
                             {L"USSurveyFoot", 1200.0 / 3937.0},
                             {L"inch", 0.0254},
                             {L"mile", 1609.344}};

}  // namespace

std::optional<double> metresParUnite(std::string_view nom) {
  for (const unite& u : kUnites)
    if (plv::egalSansCasse(plv::depuisAnsi(nom), u.nom)) return u.metres;
  return {};
}

void chargerXml(const std::wstring& chemin, pugi::xml_document& document) {
  std::ifstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
  if (!fichier) throw refus{L"lecture impossible: " + chemin};
  if (const auto lu = document.load(fichier); !lu)
    throw refus{chemin + L": XML mal formé, à " + std::to_wstring(lu.offset) + L" octets du début"};
}

std::string_view nomLocal(const xml_node& noeud) {
  const std::string_view nom = noeud.name();
  const auto deuxPoints = nom.rfind(':');
  return deuxPoints == nom.npos ? nom : nom.substr(deuxPoints + 1);
}

std::vector<std::string> motsDe(std::string_view texte) {
  std::vector<std::string> mots;
  constexpr const char* kBlancs = " \t\r\n";
  for (std::size_t debut = 0; (debut = texte.find_first_not_of(kBlancs, debut)) != texte.npos;) {
    const std::size_t fin = std::min(texte.find_first_of(kBlancs, debut), texte.size());
    mots.emplace_back(texte.substr(debut, fin - debut));
    debut = fin;
  }
  return mots;
}

std::vector<double> nombresDe(std::string_view texte) {
  std::vector<double> nombres;
  for (const std::string& mot : motsDe(texte)) {
    double valeur = 0;
    const auto [fin, erreur] = std::from_chars(mot.data(), mot.data() + mot.size(), valeur);
    if (erreur != std::errc() || fin != mot.data() + mot.size() || !std::isfinite(valeur))
      throw refus{L"nombre illisible \"" + plv::depuisAnsi(mot).substr(0, 40) + L"\""};
    nombres.push_back(valeur);
  }
  return nombres;
}

point3 pointDe(const std::vector<double>& v, std::size_t place, std::size_t nombre, const echellesLandXml& echelles) {
  return {v[place + 1] * echelles.longueur, v[place] * echelles.longueur,
          nombre > 2 ? v[place + 2] * echelles.altitude : 0};
}

axePlan axeDeGeometrie(const xml_node& coordGeom, const pointsNommes& nommes, const echellesLandXml& echelles) {
  return geometrie(nommes, echelles).lire(coordGeom);
}

}  // namespace etu
