// Numberers: runs of codes made of a prefix, a number and a suffix.
// Prefix and suffix count like the columns of a spreadsheet: A, B ... Z, AA.
#pragma once
#include <string>

#include "hote/adesk.h"
#include "module/support/base/Uncopyable.h"

namespace plv {

// The next text of the letter rule: "" gives "A", "AZ" "BA", "ZZ" "AAA". Kept as it is: only Z carries over, any other
// character grows by one code, so that "9" gives ":".
void incrementerLettres(std::wstring& texte);

class numeroteur : private Uncopyable {
 public:
  // The next code, and moves on.
  virtual std::wstring suivant() = 0;
  virtual void incrementerSuffixe() { incrementerLettres(suffixe); }
  virtual void incrementerPrefixe() { incrementerLettres(prefixe); }
  virtual void incrementer() = 0;
  virtual ~numeroteur() = default;

 protected:
  std::wstring prefixe;
  std::wstring suffixe;
};

class numeroteurEntier : public numeroteur {
 public:
  ~numeroteurEntier() override { courant = pas = depart = 1; }
  // Leaves alone the number to which a change of prefix or suffix goes back.
  void initialiser(const std::wstring& nouveauPrefixe, Adesk::Int32 premier, const std::wstring& nouveauSuffixe,
                   Adesk::Int32 nouveauPas);

  std::wstring suivant() override;
  void incrementerSuffixe() override;
  void incrementerPrefixe() override;
  // Kept as it is: by 1, whatever the step is.
  void incrementer() override;
  // The present number; the next one is 1 further when asked to advance, whatever the step is.
  virtual Adesk::Int32 valeur(bool avancer);

 private:
  void avancer(Adesk::Int32 de);
  Adesk::Int32 courant = 1;
  Adesk::Int32 pas = 1;
  Adesk::Int32 depart = 1;
};

}  // namespace plv
