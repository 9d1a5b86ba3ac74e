// The settings file "config.ini" of the installation folder: the one store of its contents, and paths there.
// A plain INI file as Boost.PropertyTree reads and writes it; the part of a key before the point is the section.
// https://www.boost.org/doc/libs/1_74_0/doc/html/property_tree/parsers.html
#pragma once
#include <boost/property_tree/ptree.hpp>
#include <set>
#include <string>

#include "hote/adesk.h"

namespace plv {

// The full path of a file in the installation folder, or in a folder below it when one is given. Of an absent
// installation folder, the root. In the encoding of file names (UTF-8 here).
std::string cheminFichier(const ACHAR* nom, const ACHAR* sousDossier = nullptr);
// The settings file.
std::string cheminConfig();
// A second name, which front-ends may know; nothing in the module reads or writes through it.
std::string cheminConfigVardane();

class fichierConfig {
 public:
  // Made at first use and kept for the life of the module; it isn't written at the end. A file that is absent or
  // damaged is no failure: the tree then holds what comes before the damage.
  static fichierConfig& unique();
  fichierConfig(const fichierConfig&) = delete;
  fichierConfig& operator=(const fichierConfig&) = delete;

  boost::property_tree::ptree& arbre() { return m_arbre; }
  // Puts a value under its key; it is written by the next sauver().
  template <class T>
  void poser(const std::string& cle, T valeur) {
    m_arbre.put(cle, valeur);
    m_changees.insert(cle);
  }
  // Writes the keys that were put since the last writing, and those that the file hasn't; what another program has written under
  // other keys meanwhile stays. Makes the installation folder when there is none. Throws
  // boost::property_tree::ini_parser_error when the file can't be written; the keys are then written by the next call.
  void sauver();

 private:
  friend class ecritureGroupee;
  fichierConfig();
  ~fichierConfig() = default;
  boost::property_tree::ptree m_arbre;
  std::set<std::string> m_changees;
  int m_groupes = 0;
};

// While one lives sauver() waits; conclure() ends it with one writing of all.
class ecritureGroupee {
 public:
  ecritureGroupee() { ++fichierConfig::unique().m_groupes; }
  ~ecritureGroupee() { terminer(); }
  ecritureGroupee(const ecritureGroupee&) = delete;
  ecritureGroupee& operator=(const ecritureGroupee&) = delete;
  // Throws as sauver() does.
  void conclure() {
    terminer();
    fichierConfig::unique().sauver();
  }

 private:
  void terminer() {
    if (m_vit) --fichierConfig::unique().m_groupes;
    m_vit = false;
  }
  bool m_vit = true;
};

}  // namespace plv
