// The dialog of one depth class.
// Limits and width are from 0 to 1e38; the bedding depth is any number.
#pragma once
#include "hote/dialogues.h"
#include "module/metres/classeProfondeur.h"

namespace plv {

class CDlgClasseProfondeur : public dialogues::Dialog {
 public:
  CDlgClasseProfondeur();
  // What the user entered, once the dialog has ended with OK.
  classeProfondeur classe;

 private:
  void valider();
  dialogues::Edit debut_{L"De", L"0"}, fin_{L"A", L"0"}, largeur_{L"Largeur de la fouille", L"0"},
      profLit_{L"Heuteur lit de pose", L"0"};
  dialogues::Colour couleur_{L"Couleur"};
  dialogues::Button ok_{L"OK"}, annuler_{L"Cancel"};
};

}  // namespace plv
