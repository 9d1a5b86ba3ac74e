// listeRb: builds and reads the chains of result lists and Xrecords.
// It owns its chain; the host's calls that take one copy it.
#pragma once
#include <span>
#include <string>

#include "hote/acut.h"
#include "hote/dbid.h"

namespace plv {

// The group codes of the module's Xrecords.
inline constexpr int kGroupePoint = 10, kGroupeReel = 40, kGroupeEntier = 90, kGroupeEntier91 = 91, kGroupeTaille = 92,
                     kGroupeAccolade = 102, kGroupeTexte = 300, kGroupeMorceau = 310, kGroupePointeur = 330;

class listeRb {
 public:
  listeRb() = default;
  explicit listeRb(resbuf* chaine) { attacher(chaine); }
  ~listeRb();
  listeRb(const listeRb&) = delete;
  listeRb& operator=(const listeRb&) = delete;

  // Releases the present chain, takes this one and reads from its first node.
  void attacher(resbuf* chaine);
  // Links a node or chain after the last one, without a walk over what is there. False for a null chain.
  bool ajouter(resbuf* chaine);
  // Back to the first node, which it gives.
  resbuf* debut() { return m_courant = m_tete; }
  resbuf* tete() const { return m_tete; }
  // Gives the chain away, to a caller that releases it.
  resbuf* ceder();
  resbuf* courant() const { return m_courant; }

  // One group each; true when the chain grew.
  bool ajouterTexte(const std::wstring& texte);  // 300
  bool ajouterEntier(Adesk::Int32 valeur);       // 90
  bool ajouterEntier91(Adesk::Int32 valeur);     // 91
  bool ajouterReel(double valeur);               // 40
  // 330; nothing for an id without an entity name.
  bool ajouterPointeur(AcDbObjectId id);
  // The same, with 90 and kObjetNul in place of nothing.
  bool ajouterId(AcDbObjectId id);
  // 92 with the size in bytes, then groups 310 of at most 127 bytes.
  bool ajouterBloc(std::span<const char> donnees);

  // The value at the reading position, which then steps on. False, with nothing moved, for another group.
  bool lireTexte(std::wstring& texte);
  bool lireEntier(Adesk::Int32& valeur);
  bool lireEntier91(Adesk::Int32& valeur);
  bool lireReel(double& valeur);
  // A 90 with kObjetNul, or a 330 that names no object, is read as a null id.
  bool lireId(AcDbObjectId& id);

 private:
  bool avance(int code) const;
  resbuf* m_tete = nullptr;
  resbuf* m_queue = nullptr;
  resbuf* m_courant = nullptr;
};

}  // namespace plv
