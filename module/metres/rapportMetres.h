// The rows that the dialog shows of a profile: texts, with the profile's index as item data.
// Here the class behind the last one has no width, whereas the workbook gives it the last one's.
#pragma once
#include "hote/controles.h"
#include "module/metres/TranconProfilEnlong.h"
#include "module/metres/classeProfondeur.h"

namespace plv {

// The profile's lines are sorted first; see ordonnerLignes for what that raises.
std::vector<dialogues::Row> rangeesTroncons(InfoProfilEnLong& profil, int index);
std::vector<dialogues::Row> rangeesElements(const InfoProfilEnLong& profil, int index);
// The classes, with the colour of each as its item data.
std::vector<dialogues::Row> rangeesClasses(const classesProfondeur& liste);

}  // namespace plv
