// Loading by name, with the version that the program was built for.
#include "etudes/fichiers/bibliotheque.h"

#include <dlfcn.h>

#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

// A library that brings a hundred others binds to them first: to look through those of the program before doubles its loading. Checkers of
// addresses put themselves before all others and refuse that.
#ifdef __SANITIZE_ADDRESS__
constexpr int kLiaison = RTLD_LAZY | RTLD_LOCAL;
#else
constexpr int kLiaison = RTLD_LAZY | RTLD_LOCAL | RTLD_DEEPBIND;
#endif

}  // namespace

bibliotheque::bibliotheque(const char* fichier, const wchar_t* nom) : m_chargee(dlopen(fichier, kLiaison)), m_nom(nom) {
  if (!m_chargee)
    throw refus{L"la bibliothèque " + m_nom + L" (" + plv::depuisAnsi(fichier) +
                L") n'est pas installée sur cette machine"};
}

void* bibliotheque::fonction(const char* symbole) const {
  void* adresse = dlsym(m_chargee, symbole);
  if (!adresse) throw refus{L"la bibliothèque " + m_nom + L" n'a pas la fonction " + plv::depuisAnsi(symbole)};
  return adresse;
}

}  // namespace etu
