// A fingerprint of numbers, texts and entities: equal sources have equal ones, and a few digits stand for thousands of values.
// FNV-1a of 64 bits, http://www.isthe.com/chongo/tech/comp/fnv/; reals count to a millionth of a unit.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "hote/acdb.h"
#include "hote/dbid.h"
#include "hote/ge.h"

namespace etu {

class empreinte {
 public:
  // Points of entities count from here, so that a drawing that is moved as a whole keeps its fingerprints. With the look, layers,
  // colours and texts count too, else only what gives an entity its form.
  empreinte(const AcGePoint3d& origine, bool aspect) : m_origine(origine), m_aspect(aspect) {}

  void ajouterEntier(std::int64_t valeur);
  // What isn't finite, and what is too great for a whole number of millionths, counts by its bits.
  void ajouterReel(double valeur);
  void ajouterTexte(std::wstring_view texte);
  // The groups of an entity, those of its vertices and attributes too. Handles and what refers to others don't count.
  void ajouterEntite(const ads_name entite);

  // Sixteen hexadecimal digits.
  std::wstring texte() const;

 private:
  void octets(const void* debut, std::size_t nombre);
  void ajouterGroupe(const resbuf& groupe);
  bool compte(int code) const;

  AcGePoint3d m_origine;
  bool m_aspect;
  std::uint64_t m_valeur = 14695981039346656037ULL;
};

}  // namespace etu
