// Configuration variables: where a value comes from, and its way back to the file.
// Values become text and numbers by the library's own translator.
#include "module/support/reglages/configVariable.h"

#include <boost/property_tree/ini_parser.hpp>

#include "module/support/reglages/fichierConfig.h"

namespace plv {

template <class T>
Static_ConfigVariable<T>::Static_ConfigVariable(const char* cleVariable, T defaut)
    : ConfigVariable_base<T>(cleVariable, defaut) {
  if (const auto lue = fichierConfig::unique().arbre().template get_optional<T>(this->cle)) {
    this->valeur = *lue;
    return;
  }
  try {
    enregistrer(defaut);
  } catch (const boost::property_tree::ini_parser_error&) {}
}

template <class T>
void Static_ConfigVariable<T>::enregistrer(T nouvelle) {
  fichierConfig& fichier = fichierConfig::unique();
  fichier.poser(this->cle, nouvelle);
  fichier.sauver();
}

template <class T>
bool Static_ConfigVariable<T>::changer(T nouvelle) {
  if (this->valeur == nouvelle) return false;
  this->valeur = nouvelle;
  enregistrer(this->valeur);
  return true;
}

template class Static_ConfigVariable<Adesk::Int32>;
template class Static_ConfigVariable<double>;
template class Static_ConfigVariable<std::uint8_t>;

}  // namespace plv
