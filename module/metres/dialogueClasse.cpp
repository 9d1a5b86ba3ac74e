// The dialog of one depth class.
// A value out of its range is the framework's to report; the dialog then stays open.
#include "module/metres/dialogueClasse.h"

namespace plv {

namespace {

constexpr double kPlusGrand = 1e38;

}  // namespace

CDlgClasseProfondeur::CDlgClasseProfondeur() : Dialog(L"Classe de profondeur", 300, 240) {
  int rangee = 0;
  for (dialogues::Control* controle :
       {static_cast<dialogues::Control*>(&debut_), static_cast<dialogues::Control*>(&fin_),
        static_cast<dialogues::Control*>(&largeur_), static_cast<dialogues::Control*>(&profLit_),
        static_cast<dialogues::Control*>(&couleur_)})
    add(*controle, {rangee++, 0, 1, 2});
  add(ok_, {rangee, 0});
  add(annuler_, {rangee, 1});
  ok_.isDefault = true;
  ok_.onClick = [this] { valider(); };
  annuler_.onClick = [this] { end(dialogues::kCancel); };
}

void CDlgClasseProfondeur::valider() {
  classe.couleur = couleur_.index();
  if (readNumber(debut_, classe.debut, 0, kPlusGrand) && readNumber(fin_, classe.fin, 0, kPlusGrand) &&
      readNumber(largeur_, classe.largeur, 0, kPlusGrand) && readNumber(profLit_, classe.profLit))
    end(dialogues::kOk);
}

}  // namespace plv
