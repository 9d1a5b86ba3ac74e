// listeRb: the chains of result lists and Xrecords.
// Group codes in use: 10, 40, 70, 90, 91, 92 then 310, 280, 300, 330.
#include "module/commande/listeRb.h"

#include <algorithm>
#include <vector>

#include "hote/acdb.h"
#include "module/commande/argsLisp.h"

namespace plv {

namespace {

constexpr int kTexte = 300, kEntier = 90, kEntier91 = 91, kReel = 40, kPointeur = 330, kTaille = 92, kMorceau = 310;
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

bool listeRb::ajouterTexte(const std::wstring& texte) { return ajouter(acutBuildList(kTexte, texte.c_str(), RTNONE)); }

bool listeRb::ajouterEntier(Adesk::Int32 valeur) { return ajouter(acutBuildList(kEntier, valeur, RTNONE)); }
bool listeRb::ajouterEntier91(Adesk::Int32 valeur) { return ajouter(acutBuildList(kEntier91, valeur, RTNONE)); }
bool listeRb::ajouterReel(double valeur) { return ajouter(acutBuildList(kReel, valeur, RTNONE)); }

bool listeRb::ajouterId(AcDbObjectId id) {
  ads_name nom;
  if (!id.isNull() && acdbGetAdsName(nom, id) == Acad::eOk) return ajouter(acutBuildList(kPointeur, nom, RTNONE));
  return ajouterEntier(kObjetNul);
}

bool listeRb::ajouterBloc(std::span<const char> donnees) {
  bool ajoute = ajouter(acutBuildList(kTaille, static_cast<int>(donnees.size()), RTNONE));
  std::vector<char> copie(donnees.begin(), donnees.end());
  for (std::size_t i = 0; i < copie.size(); i += kOctetsParMorceau) {
    const std::size_t taille = std::min(kOctetsParMorceau, copie.size() - i);
    const ads_binary morceau{static_cast<short>(taille), copie.data() + i};
    ajoute = ajouter(acutBuildList(kMorceau, &morceau, RTNONE)) && ajoute;
  }
  return ajoute;
}

bool listeRb::avance(int code) const { return m_courant && m_courant->restype == code; }

bool listeRb::lireTexte(std::wstring& texte) {
  if (!avance(kTexte)) return false;
  texte = m_courant->resval.rstring ? m_courant->resval.rstring : L"";
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireEntier(Adesk::Int32& valeur) {
  if (!avance(kEntier)) return false;
  valeur = m_courant->resval.rlong;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireEntier91(Adesk::Int32& valeur) {
  if (!avance(kEntier91)) return false;
  valeur = m_courant->resval.rlong;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireReel(double& valeur) {
  if (!avance(kReel)) return false;
  valeur = m_courant->resval.rreal;
  m_courant = m_courant->rbnext;
  return true;
}

bool listeRb::lireId(AcDbObjectId& id) {
  const bool nul = avance(kEntier) && m_courant->resval.rlong == kObjetNul;
  if (!nul && !avance(kPointeur)) return false;
  id.setNull();
  if (!nul && acdbGetObjectId(id, m_courant->resval.rlname) != Acad::eOk) id.setNull();
  m_courant = m_courant->rbnext;
  return true;
}

}  // namespace plv
