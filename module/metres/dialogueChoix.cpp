// Picking one text of a list.
// Rows carry their index, so that the list may show them in any order.
#include "module/metres/dialogueChoix.h"

#include "hote/dialogues.h"

namespace plv {

namespace {

class CDlgChoixDansListe : public dialogues::Dialog {
 public:
  CDlgChoixDansListe(const std::wstring& invite, const std::vector<std::wstring>& textes)
      : Dialog(L"Selection", 320, 260), invite_(invite) {
    add(invite_, {0, 0, 1, 2});
    add(liste_, {1, 0, 1, 2});
    add(ok_, {2, 0});
    add(annuler_, {2, 1});
    std::vector<dialogues::Row> lignes;
    for (const std::wstring& texte : textes) lignes.push_back({{texte}, static_cast<int>(lignes.size())});
    liste_.append(std::move(lignes));
    liste_.onSelect = [this] {
      if (!liste_.selection().empty()) choix = liste_.rows()[static_cast<std::size_t>(liste_.selection().front())].data;
    };
    ok_.isDefault = true;
    ok_.onClick = [this] { end(dialogues::kOk); };
    annuler_.onClick = [this] { end(dialogues::kCancel); };
  }
  int choix = -1;

 private:
  dialogues::Text invite_;
  dialogues::List liste_{{}, false};
  dialogues::Button ok_{L"OK"}, annuler_{L"Cancel"};
};

}  // namespace

int choisirDansListe(const std::wstring& invite, const std::vector<std::wstring>& textes) {
  if (textes.empty()) return -1;
  CDlgChoixDansListe dialogue(invite, textes);
  return runDialog(dialogue) == dialogues::kOk ? dialogue.choix : -1;
}

}  // namespace plv
