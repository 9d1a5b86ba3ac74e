// The rows that the dialog shows of a profile: texts, with the profile's index as item data.
// Kept as it is: what lies deeper than the last class has no width here, and that class's width in the workbook.
#pragma once
#include "hote/controles.h"
#include "module/metres/TranconProfilEnlong.h"
#include "module/metres/classeProfondeur.h"

namespace plv {

// Sorts `lignes` by the start of each one's first depth section. With more than one, a line without any raises
// std::out_of_range; one without project pieces is never less than another.
void ordonnerLignes(InfoProfilEnLong& profil);
// The profile's lines are sorted first.
std::vector<dialogues::Row> rangeesTroncons(InfoProfilEnLong& profil, int index);
std::vector<dialogues::Row> rangeesElements(const InfoProfilEnLong& profil, int index);
// The classes, with the colour of each as its item data.
std::vector<dialogues::Row> rangeesClasses(const classesProfondeur& liste);

}  // namespace plv
