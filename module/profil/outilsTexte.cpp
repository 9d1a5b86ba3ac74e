// pl_strequal, pl_strdiff and pl_analyse: strings, for the front-end.
// Case never counts here.
#include <optional>
#include <vector>

#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/fonctionsProfil.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

// Whether the two strings that LISP gave are equal; nothing, with a message for two values of one other type,
// when they aren't strings.
std::optional<bool> comparer(const ArgsLisp& args) {
  const resbuf* a = args.nieme(0);
  const resbuf* b = args.nieme(1);
  if (!a || !b || a->restype != b->restype) return std::nullopt;
  if (estChaine(a)) return egalSansCasse(valeurTexte(a), valeurTexte(b));
  acutPrintf(L"\nAppel de la mauvaise fonction pour effectuer la comparaison");
  return std::nullopt;
}

void rendreSi(bool voulu) {
  ArgsLisp args;
  commencerAppel(args);
  if (comparer(args) == voulu) acedRetT();
}

// Words between blanks, tabs and semicolons. A word that begins with a double quote runs to the next one, or
// to the end; a quote inside another word is an ordinary character.
std::vector<std::wstring> mots(const std::wstring& texte) {
  constexpr const wchar_t* kSeparateurs = L" \t;";
  std::vector<std::wstring> trouves;
  std::size_t i = texte.find_first_not_of(kSeparateurs);
  while (i != std::wstring::npos) {
    const bool cite = texte[i] == L'"';
    if (cite) ++i;
    const std::size_t fin = std::min(cite ? texte.find(L'"', i) : texte.find_first_of(kSeparateurs, i), texte.size());
    trouves.push_back(texte.substr(i, fin - i));
    i = texte.find_first_not_of(kSeparateurs, fin + (cite ? 1 : 0));
  }
  return trouves;
}

}  // namespace

void pl_strequal() { rendreSi(true); }
void pl_strdiff() { rendreSi(false); }

void pl_analyse() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "C")) return;
  listeRb liste;
  for (const std::wstring& mot : mots(enMajuscules(valeurTexte(args.tete()))))
    liste.ajouter(acutBuildList(RTSTR, mot.c_str(), RTNONE));
  if (liste.tete()) acedRetList(liste.debut());
}

}  // namespace plv
