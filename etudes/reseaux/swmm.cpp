// Input files of storm water models (.inp): sections of rows of words. Lengths are metres or feet after FLOW_UNITS; those of conduits go along
// their slope, offsets count from the node's invert or are levels after LINK_OFFSETS. Only round conduits can be taken.
#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>

#include "etudes/fichiers/nombres.h"
#include "etudes/reseaux/ecoulement.h"
#include "etudes/reseaux/graphe.h"
#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr double kPied = 0.3048;

struct ligneInp {
  std::size_t numero;
  std::wstring section;
  std::vector<std::wstring> mots;
};

std::vector<std::wstring> motsDeLaLigne(const std::wstring& texte) {
  std::vector<std::wstring> mots;
  for (std::size_t i = 0; i < texte.size() && texte[i] != L';';) {
    if (texte[i] == L' ' || texte[i] == L'\t' || texte[i] == L'\r') {
      ++i;
      continue;
    }
    const bool guillemets = texte[i] == L'"';
    const std::size_t debut = guillemets ? i + 1 : i,
                      fin = std::min(texte.find_first_of(guillemets ? L"\"" : L" \t\r;", debut), texte.size());
    mots.push_back(texte.substr(debut, fin - debut));
    i = guillemets ? fin + 1 : fin;
  }
  return mots;
}

class lecteur {
 public:
  explicit lecteur(const std::wstring& chemin) : m_chemin(chemin) {
    std::ifstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
    if (!fichier) throw refus{L"lecture impossible: " + chemin};
    std::wstring section;
    std::size_t numero = 0;
    for (std::string octets; std::getline(fichier, octets);) {
      ++numero;
      std::vector<std::wstring> mots = motsDeLaLigne(plv::depuisAnsi(octets));
      if (mots.empty()) continue;
      if (mots.front().starts_with(L'[')) section = plv::enMajuscules(mots.front());
      else m_lignes.push_back({numero, section, std::move(mots)});
    }
  }

  grapheReseau lire() {
    pour(L"[OPTIONS]", [&] { option(); });
    for (const wchar_t* section : {L"[JUNCTIONS]", L"[DIVIDERS]", L"[STORAGE]"}) pour(section, [&] { noeud(true); });
    pour(L"[OUTFALLS]", [&] { noeud(false); });
    pour(L"[CONDUITS]", [&] { conduite(); });
    pour(L"[XSECTIONS]", [&] { section(); });
    if (m_g.liens.empty()) throw refus{m_chemin + L": aucune conduite ([CONDUITS])"};
    for (const lienGraphe& l : m_g.liens)
      if (!(l.diametre.interieur > 0))
        throw refus{m_chemin + L": la conduite " + l.nom + L" n'a pas de section ([XSECTIONS])"};
    return std::move(m_g);
  }

 private:
  template <class Action>
  void pour(const wchar_t* section, const Action& action) {
    for (const ligneInp& l : m_lignes)
      if (l.section == section) {
        m_l = &l;
        action();
      }
  }

  std::wstring ou() const {
    return m_chemin + L", ligne " + std::to_wstring(m_l->numero) + L", " + m_l->section + L" " + m_l->mots.front();
  }
  const std::wstring& mot(std::size_t i, const wchar_t* quoi) const {
    if (i >= m_l->mots.size()) throw refus{ou() + L": " + quoi + L" manque"};
    return m_l->mots[i];
  }
  double nombre(std::size_t i, const wchar_t* quoi) const {
    const auto valeur = nombreDe(mot(i, quoi));
    if (!valeur) throw refus{ou() + L": " + quoi + L": un nombre est attendu, et non \"" + m_l->mots[i] + L"\""};
    return *valeur;
  }

  void option() {
    const std::wstring nom = plv::enMajuscules(m_l->mots.front());
    const std::wstring valeur = m_l->mots.size() > 1 ? plv::enMajuscules(m_l->mots[1]) : L"";
    if (nom == L"FLOW_UNITS")
      m_metres = parmi(valeur, {L"CFS", L"GPM", L"MGD", L"CMS", L"LPS", L"MLD"}) < 3 ? kPied : 1;
    if (nom == L"LINK_OFFSETS") m_niveaux = parmi(valeur, {L"DEPTH", L"ELEVATION"}) == 1;
  }

  // The place of a value among those that there are.
  std::size_t parmi(const std::wstring& valeur, std::initializer_list<const wchar_t*> valeurs) const {
    std::wstring attendues;
    std::size_t place = 0;
    for (const wchar_t* v : valeurs) {
      if (valeur == v) return place;
      attendues += (place++ ? L", " : L"") + std::wstring(v);
    }
    throw refus{ou() + L": " + attendues + L" est attendu, et non \"" + valeur + L"\""};
  }

  void noeud(bool profondeur) {
    noeudGraphe n;
    n.nom = m_l->mots.front();
    n.radier = nombre(1, L"l'altitude du radier") * m_metres;
    if (profondeur && m_l->mots.size() > 2)
      if (const double h = nombre(2, L"la profondeur"); h > 0) n.tampon = n.radier + h * m_metres;
    if (!profondeur) n.type = L"exutoire";
    for (const noeudGraphe& autre : m_g.noeuds)
      if (plv::egalSansCasse(autre.nom, n.nom)) throw refus{ou() + L": il y a déjà un nœud de ce nom"};
    m_g.noeuds.push_back(std::move(n));
  }

  void conduite() {
    lienGraphe l;
    l.nom = m_l->mots.front();
    l.de = m_g.noeud(mot(1, L"le nœud de départ"), ou());
    l.a = m_g.noeud(mot(2, L"le nœud d'arrivée"), ou());
    const double enPente = nombre(3, L"la longueur") * m_metres;
    const double manning = nombre(4, L"le coefficient de Manning");
    l.zDe = niveau(5, m_g.noeuds[l.de].radier);
    l.zA = niveau(6, m_g.noeuds[l.a].radier);
    const double chute = std::abs(l.zDe - l.zA);
    if (!(enPente > chute))
      throw refus{ou() + L": sa longueur " + enTexte(enPente, 3) + L" m ne dépasse pas sa dénivelée " +
                  enTexte(chute, 3) + L" m"};
    l.longueur = std::sqrt(enPente * enPente - chute * chute);
    if (manning > 0) l.strickler = 1 / manning;
    m_g.liens.push_back(std::move(l));
  }

  double niveau(std::size_t i, double radier) const {
    if (i >= m_l->mots.size() || m_l->mots[i] == L"*") return radier;
    const double valeur = nombre(i, L"le décalage") * m_metres;
    return m_niveaux ? valeur : radier + valeur;
  }

  void section() {
    const auto lien = std::ranges::find_if(
        m_g.liens, [&](const lienGraphe& l) { return plv::egalSansCasse(l.nom, m_l->mots.front()); });
    if (lien == m_g.liens.end()) return;  // of a weir or an orifice
    if (!plv::egalSansCasse(mot(1, L"la forme"), L"CIRCULAR"))
      throw refus{ou() + L": seules les sections circulaires se prennent, et non " + m_l->mots[1]};
    const double diametre = nombre(2, L"le diamètre");
    if (!(diametre > 0)) throw refus{ou() + L": un diamètre plus grand que 0 est attendu, et non " + m_l->mots[2]};
    lien->diametre.interieur = lien->diametre.exterieur = diametre * m_metres;
  }

  const std::wstring& m_chemin;
  std::vector<ligneInp> m_lignes;
  const ligneInp* m_l = nullptr;
  double m_metres = kPied;  // what the format takes where nothing is said
  bool m_niveaux = false;
  grapheReseau m_g;
};

// Names have no blanks there.
std::string nomInp(const std::wstring& nom) {
  std::wstring sans = nom;
  std::ranges::replace(sans, L' ', L'_');
  return plv::nomDeFichier(sans);
}

std::string mots(std::initializer_list<std::string> champs) {
  std::string ligne;
  for (const std::string& c : champs) ligne += (ligne.empty() ? "" : " ") + c;
  return ligne + "\n";
}

std::string chiffres(double v) {
  const std::wstring large = enTexte(v, 6);
  return {large.begin(), large.end()};
}

}  // namespace

grapheReseau lireSwmm(const std::wstring& chemin) { return lecteur(chemin).lire(); }

std::string texteSwmm(const reseauPose& p, const lieuxRegards& lieux, const std::wstring& titre) {
  std::string jonctions = "[JUNCTIONS]\n", exutoires = "[OUTFALLS]\n", conduites = "[CONDUITS]\n",
              sections = "[XSECTIONS]\n", lieu = "[COORDINATES]\n";
  std::vector<bool> sortie(p.regards.size());
  for (const troncon& t : p.troncons)
    sortie[p.r.tuyaux[p.versLaDroite(t) ? t.apres - 1 : t.premier].de + (p.versLaDroite(t) ? 1 : 0)] = true;
  for (std::size_t i = 0; i < p.regards.size(); ++i) {
    const std::string nom = nomInp(p.r.regards[i].nom);
    if (sortie[i]) exutoires += mots({nom, chiffres(p.regards[i].fond), "FREE", "NO"});
    else
      jonctions +=
          mots({nom, chiffres(p.regards[i].fond), chiffres(p.regards[i].tampon - p.regards[i].fond), "0", "0", "0"});
    lieu += mots({nom, chiffres(lieux[i].x), chiffres(lieux[i].z)});
  }
  for (std::size_t i = 0; i < p.tuyaux.size(); ++i) {
    const tuyau& t = p.r.tuyaux[i];
    const tuyauPose& pose = p.tuyaux[i];
    const bool droite = pose.zDebut >= pose.zFin;
    const std::size_t de = droite ? t.de : t.de + 1, a = droite ? t.de + 1 : t.de;
    const std::string nom = "T" + std::to_string(i + 1);
    conduites += mots({nom, nomInp(p.r.regards[de].nom), nomInp(p.r.regards[a].nom), chiffres(pose.enPente()),
                       chiffres(1 / stricklerDe(t)), chiffres((droite ? pose.zDebut : pose.zFin) - p.regards[de].fond),
                       chiffres((droite ? pose.zFin : pose.zDebut) - p.regards[a].fond), "0"});
    sections += mots({nom, "CIRCULAR", chiffres(t.diametre.interieur), "0", "0", "0", "1"});
  }
  return "[TITLE]\n" + nomInp(titre) + "\n\n[OPTIONS]\nFLOW_UNITS CMS\nLINK_OFFSETS DEPTH\n\n" + jonctions + "\n" +
         exutoires + "\n" + conduites + "\n" + sections + "\n" + lieu;
}

}  // namespace etu
