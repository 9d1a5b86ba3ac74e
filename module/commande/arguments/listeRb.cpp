// listeRb: the chains of result lists and Xrecords.
// A value of each kind is one group, but for a block of bytes.
#include "module/commande/arguments/listeRb.h"

#include <algorithm>
#include <vector>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"

namespace plv {

namespace {

constexpr std::size_t kOctetsParMorceau = 127;  // what a group 310 holds at most

}  // namespace

listeRb::~listeRb() { attacher(nullptr); }

void listeRb::attacher(resbuf* chaine) {
  if (m_tete) acutRelRb(m_tete);
  m_tete = m_queue = nullptr;
  ajouter(chaine);
  m_courant = m_tete;
}

bool listeRb::ajouter(resbuf* chaine) {
  if (!chaine) return false;
  if (m_queue) m_queue->rbnext = chaine;
  else m_tete = chaine;
  for (m_queue = chaine; m_queue->rbnext; m_queue = m_queue->rbnext) {}
  return true;
}

resbuf* listeRb::ceder() {
  resbuf* chaine = m_tete;
  m_tete = m_queue = m_courant = nullptr;
  return chaine;
}

bool listeRb::ajouterTexte(const std::wstring& texte) {
  return ajouter(acutBuildList(kGroupeTexte, texte.c_str(), RTNONE));
}

bool listeRb::ajouterEntier(Adesk::Int32 valeur) { return ajouter(acutBuildList(kGroupeEntier, valeur, RTNONE)); }
bool listeRb::ajouterEntier91(Adesk::Int32 valeur) { return ajouter(acutBuildList(kGroupeEntier91, valeur, RTNONE)); }
bool listeRb::ajouterReel(double valeur) { return ajouter(acutBuildList(kGroupeReel, valeur, RTNONE)); }

bool listeRb::ajouterPointeur(AcDbObjectId id) {
  ads_name nom;
  return acdbGetAdsName(nom, id) == Acad::eOk && ajouter(acutBuildList(kGroupePointeur, nom, RTNONE));
}

bool listeRb::ajouterId(AcDbObjectId id) { return (!id.isNull() && ajouterPointeur(id)) || ajouterEntier(kObjetNul); }

bool listeRb::ajouterBloc(std::span<const char> donnees) {
  bool ajoute = ajouter(acutBuildList(kGroupeTaille, static_cast<int>(donnees.size()), RTNONE));
  std::vector<char> copie(donnees.begin(), donnees.end());
  for (std::size_t i = 0; i < copie.size(); i += kOctetsParMorceau) {
    const std::size_t taille = std::min(kOctetsParMorceau, copie.size() - i);
    const ads_binary morceau{static_cast<short>(taille), copie.data() + i};
    ajoute = ajouter(acutBuildList(kGroupeMorceau, &morceau, RTNONE)) && ajoute;
  }
  return ajoute;
}

bool listeRb::avance(int code) const { return m_courant && m_courant->restype == code; }

bool listeRb::lireTexte(std::wstring& texte) {
  if (!avance(kGroupeTexte)) return false;
  texte = m_courant->resval.rstring ? m_courant->resval.rstring : L"";
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireEntier(Adesk::Int32& valeur) {
  if (!avance(kGroupeEntier)) return false;
  valeur = m_courant->resval.rlong;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireEntier91(Adesk::Int32& valeur) {
  if (!avance(kGroupeEntier91)) return false;
  valeur = m_courant->resval.rlong;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireReel(double& valeur) {
  if (!avance(kGroupeReel)) return false;
  valeur = m_courant->resval.rreal;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireId(AcDbObjectId& id) {
  const bool nul = avance(kGroupeEntier) && m_courant->resval.rlong == kObjetNul;
  if (!nul && !avance(kGroupePointeur)) return false;
  id.setNull();
  if (!nul && acdbGetObjectId(id, m_courant->resval.rlname) != Acad::eOk) id.setNull();
  m_courant = m_courant->rbnext;
  return true;
}

}  // namespace plv
