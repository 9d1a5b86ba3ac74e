// Loading by name, with the version that the program was built for.
#include "etudes/fichiers/bibliotheque.h"

#include <dlfcn.h>

#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

// Without RTLD_DEEPBIND, which loads a library of a hundred others 12 ms faster: it would free with the system's allocator what was
// allocated with the program's.
constexpr int kLiaison = RTLD_LAZY | RTLD_LOCAL;

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
