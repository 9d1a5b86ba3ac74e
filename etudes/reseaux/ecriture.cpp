// The rows of a network, as files and the drawing have them.
#include "etudes/reseaux/reseau.h"

namespace etu {

namespace {

std::wstring ou(const std::optional<double>& valeur) { return valeur ? enTexte(*valeur) : std::wstring(); }

// The fields, without the empty ones at the end.
std::wstring joindre(std::initializer_list<std::wstring> champs) {
  std::wstring texte;
  for (const std::wstring& champ : champs) texte += champ + L";";
  texte.erase(texte.find_last_not_of(L';') + 1);
  return texte;
}

}  // namespace

std::wstring enTexte(const diametres& d) {
  if (!(d.exterieur > 0)) return {};
  const std::wstring interieur = enTexte(d.interieur * 1000);
  return d.connu() ? interieur + L"/" + enTexte(d.exterieur * 1000) : interieur;
}

rangees rangeesDe(const reseau& r) {
  rangees textes{L"# regard;nom;station;type;diamètre;tampon;arrivée;départ;fond;profil"};
  for (const regard& n : r.regards)
    textes.push_back(joindre({L"regard", n.nom, enTexte(n.station), n.type, enTexte(n.diametre), ou(n.tampon),
                              ou(n.arrivee), ou(n.depart), ou(n.fond), n.profil}));
  textes.emplace_back(L"# tuyau;de;à;diamètre;matériau;classe;lit;Strickler");
  for (const tuyau& t : r.tuyaux)
    textes.push_back(joindre({L"tuyau", r.regards[t.de].nom, r.regards[t.de + 1].nom, enTexte(t.diametre), t.materiau,
                              t.classe, ou(t.lit), t.strickler > 0 ? enTexte(t.strickler) : L""}));
  if (!r.croisements.empty()) textes.emplace_back(L"# croisement;nom;station;altitude de l'axe;diamètre;angle");
  for (const croisement& c : r.croisements)
    textes.push_back(joindre({L"croisement", c.nom, enTexte(c.station), enTexte(c.altitude), enTexte(c.diametre * 1000),
                              c.angle == 90 ? L"" : enTexte(c.angle)}));
  for (int i = 0; i < kNombreLimites; ++i) {
    const auto l = static_cast<limite>(i);
    const std::optional<bornes>& b = r.limites[static_cast<std::size_t>(i)];
    if (!b) continue;
    const auto mesure = [&](const std::optional<double>& v) {
      return v ? enTexte(*v / uniteLimite(l)) : std::wstring();
    };
    textes.push_back(joindre({L"limite", nomLimite(l), mesure(b->moindre), mesure(b->plusGrande)}));
  }
  return textes;
}

}  // namespace etu
