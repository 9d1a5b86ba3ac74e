// Configuration variables: persistent settings of a type, each with a fixed key and a default.
// Reading a setting is reading its field. The table of all of them is in reglages.h.
#pragma once
#include <cstdint>
#include <string>

#include "hote/adesk.h"

namespace plv {

// T is Adesk::Int32, double, or std::uint8_t, which the file holds as a number.
template <class T>
class ConfigVariable_base {
 public:
  virtual ~ConfigVariable_base() = default;
  ConfigVariable_base(const ConfigVariable_base&) = delete;
  ConfigVariable_base& operator=(const ConfigVariable_base&) = delete;

  std::string cle;  // section, point, name
  T valeur;         // other code reads and assigns it; its range is checked where it is used

 protected:
  ConfigVariable_base(const char* cleVariable, T defaut) : cle(cleVariable), valeur(defaut) {}
};

template <class T>
class Static_ConfigVariable : public ConfigVariable_base<T> {
 public:
  // Takes the value of the settings file. A key that is absent, or whose text is no T, gives the default, which is
  // written to the file at once. A file that can't be written is no failure here: nothing catches what a
  // static initialiser throws, and the module works with the defaults.
  Static_ConfigVariable(const char* cleVariable, T defaut);

  // Writes the value under the key and saves the file. The field isn't changed: callers assign it first. Throws
  // boost::property_tree::ini_parser_error when the file can't be written.
  void enregistrer(T nouvelle);
  // The usual way: assigns and saves a value that differs from the present one, and says whether it did.
  bool changer(T nouvelle);
};

extern template class Static_ConfigVariable<Adesk::Int32>;
extern template class Static_ConfigVariable<double>;
extern template class Static_ConfigVariable<std::uint8_t>;

}  // namespace plv
