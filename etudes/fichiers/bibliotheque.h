// Libraries that are loaded when they are first needed: starting the program doesn't wait for them, and it runs without them.
#pragma once
#include <string>

namespace etu {

class bibliotheque {
 public:
  // The library stays loaded; throws `refus`, which names it, when it isn't on this machine.
  bibliotheque(const char* fichier, const wchar_t* nom);
  // Throws `refus` when the library has no such function.
  void* fonction(const char* symbole) const;

 private:
  void* m_chargee;
  std::wstring m_nom;
};

}  // namespace etu
