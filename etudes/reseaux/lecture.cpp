// A network of its rows. Each kind of row has a function; pipes are placed when all manholes are known.
#include <algorithm>

#include "etudes/fichiers/nombres.h"
#include "etudes/reseaux/reseau.h"
#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

struct nomUnite {
  const wchar_t* nom;
  double unite;
};
constexpr std::array<nomUnite, kNombreLimites> kLimites{
    {{L"pente", 0.01}, {L"couverture", 1}, {L"chute", 1}, {L"espacement", 1}, {L"vitesse", 1}, {L"croisement", 1}}};

constexpr double kMillimetre = 0.001;

// "300", "300/335", "300+17".
diametres diametreDe(const rangee& r, std::size_t i) {
  const std::wstring& texte = r.champ(i);
  diametres d;
  if (texte.empty()) return d;
  const auto signe = texte.find_first_of(L"/+");
  const auto premier = nombreDe(texte.substr(0, signe));
  const auto second = signe == std::wstring::npos ? premier : nombreDe(texte.substr(signe + 1));
  if (!premier || !second)
    r.refuser(L"diamètre illisible: \"" + texte +
              L"\"; attendu en millimètres: 300, 300/335 (intérieur/extérieur) ou "
              L"300+17 (intérieur+paroi)");
  const bool paroi = signe != std::wstring::npos && texte[signe] == L'+';
  d.interieur = *premier * kMillimetre;
  d.exterieur = paroi ? d.interieur + 2 * *second * kMillimetre : *second * kMillimetre;
  if (d.interieur < 0 || d.exterieur < d.interieur)
    r.refuser(L"diamètre " + texte + L": l'extérieur est plus petit que l'intérieur");
  return d;
}

struct tuyauEcrit {
  rangee texte;
  tuyau modele;
};

class lecteur {
 public:
  explicit lecteur(const rangees& textes) {
    for (const rangee& r : lues(textes)) lire(r);
    ranger();
    for (const tuyauEcrit& t : m_tuyaux) poser(t);
    std::ranges::sort(m_reseau.tuyaux, {}, &tuyau::de);
  }
  reseau ceder() { return std::move(m_reseau); }

 private:
  void lire(const rangee& r) {
    if (r.mot() == L"regard") lireRegard(r);
    else if (r.mot() == L"tuyau") lireTuyau(r);
    else if (r.mot() == L"croisement") lireCroisement(r);
    else if (r.mot() == L"limite") lireLimite(r);
    else r.refuser(L"regard, tuyau, croisement ou limite est attendu");
  }

  void lireRegard(const rangee& r) {
    r.auPlus(10, L"regard;nom;station;type;diamètre;tampon;arrivée;départ;fond;profil");
    regard n;
    n.nom = r.texteVoulu(1, L"le nom");
    n.station = r.station(2, L"la station");
    n.type = r.champ(3);
    n.diametre = diametreDe(r, 4);
    n.tampon = r.nombre(5, L"le tampon");
    n.arrivee = r.nombre(6, L"l'arrivée");
    n.depart = r.nombre(7, L"le départ");
    n.fond = r.nombre(8, L"le fond");
    n.profil = r.champ(9);
    if (rangDe(n.nom) != m_reseau.regards.size()) r.refuser(L"le nom " + n.nom + L" est déjà celui d'un autre regard");
    m_reseau.regards.push_back(std::move(n));
  }

  void lireTuyau(const rangee& r) {
    r.auPlus(8, L"tuyau;de;à;diamètre;matériau;classe;lit;Strickler");
    r.texteVoulu(1, L"le regard de départ");
    r.texteVoulu(2, L"le regard d'arrivée");
    tuyau t;
    t.diametre = diametreDe(r, 3);
    if (!(t.diametre.interieur > 0))
      r.refuser(L"le diamètre du tuyau " + r.champ(1) + L" - " + r.champ(2) + L" manque");
    t.materiau = r.champ(4);
    t.classe = r.champ(5);
    if (r.nombre(6, L"le lit de pose")) t.lit = r.positif(6, L"le lit de pose", 0);
    t.strickler = r.positif(7, L"le coefficient de Strickler", 0);
    m_tuyaux.push_back({r, std::move(t)});
  }

  void lireCroisement(const rangee& r) {
    r.auPlus(6, L"croisement;nom;station;altitude de l'axe;diamètre;angle");
    croisement c;
    c.nom = r.texteVoulu(1, L"le nom");
    c.station = r.station(2, L"la station");
    c.altitude = r.nombreVoulu(3, L"l'altitude");
    c.diametre = diametreDe(r, 4).exterieur;
    c.angle = r.nombreOu(5, L"l'angle", 90);
    if (!(c.diametre > 0)) r.refuser(L"le diamètre du croisement " + c.nom + L" manque");
    if (!(c.angle > 0 && c.angle <= 90)) r.refuser(L"un angle entre 0 et 90 degrés est attendu");
    m_reseau.croisements.push_back(std::move(c));
  }

  void lireLimite(const rangee& r) {
    r.auPlus(4, L"limite;nom;moindre;plus grande");
    const std::wstring nom = plv::enMinuscules(r.texteVoulu(1, L"le nom"));
    const auto trouve = std::ranges::find_if(kLimites, [&](const nomUnite& l) { return nom == l.nom; });
    if (trouve == kLimites.end()) {
      std::wstring noms;
      for (const nomUnite& l : kLimites) noms += (noms.empty() ? L"" : L", ") + std::wstring(l.nom);
      r.refuser(L"limite inconnue; connues: " + noms);
    }
    bornes b{r.nombre(2, L"la moindre valeur"), r.nombre(3, L"la plus grande valeur")};
    if (b.moindre && b.plusGrande && *b.moindre > *b.plusGrande) r.refuser(L"la moindre valeur dépasse la plus grande");
    if (b.moindre) *b.moindre *= trouve->unite;
    if (b.plusGrande) *b.plusGrande *= trouve->unite;
    m_reseau.limites[static_cast<std::size_t>(trouve - kLimites.begin())] = b;
  }

  std::size_t rangDe(const std::wstring& nom) const {
    const auto trouve =
        std::ranges::find_if(m_reseau.regards, [&](const regard& n) { return plv::egalSansCasse(n.nom, nom); });
    return static_cast<std::size_t>(trouve - m_reseau.regards.begin());
  }

  void ranger() {
    std::ranges::stable_sort(m_reseau.regards, {}, &regard::station);
    std::ranges::stable_sort(m_reseau.croisements, {}, &croisement::station);
    for (std::size_t i = 1; i < m_reseau.regards.size(); ++i)
      if (const regard& a = m_reseau.regards[i - 1], &b = m_reseau.regards[i]; b.station - a.station < 1e-6)
        throw refus{L"les regards " + a.nom + L" et " + b.nom + L" ont la même station " + enTexte(a.station, 3)};
  }

  // A row may stand for all pipes between two manholes.
  void poser(const tuyauEcrit& t) {
    const std::size_t a = regardVoulu(t.texte, 1), b = regardVoulu(t.texte, 2);
    if (a == b) t.texte.refuser(L"un tuyau va d'un regard à un autre");
    for (std::size_t i = std::min(a, b); i < std::max(a, b); ++i) {
      if (std::ranges::any_of(m_reseau.tuyaux, [&](const tuyau& autre) { return autre.de == i; }))
        t.texte.refuser(L"il y a déjà un tuyau entre " + m_reseau.regards[i].nom + L" et " +
                        m_reseau.regards[i + 1].nom);
      m_reseau.tuyaux.push_back(t.modele);
      m_reseau.tuyaux.back().de = i;
    }
  }

  std::size_t regardVoulu(const rangee& r, std::size_t i) const {
    const std::size_t rang = rangDe(r.champ(i));
    if (rang == m_reseau.regards.size()) r.refuser(L"il n'y a pas de regard " + r.champ(i));
    return rang;
  }

  reseau m_reseau;
  std::vector<tuyauEcrit> m_tuyaux;
};

}  // namespace

reseau lireReseau(const rangees& textes) { return lecteur(textes).ceder(); }

const wchar_t* nomLimite(limite l) { return kLimites[l].nom; }
double uniteLimite(limite l) { return kLimites[l].unite; }

}  // namespace etu
