// The table of functions, its registration and its dispatch.
// The order is fixed: front-ends know functions by name, but a row keeps its place for good.
#include "module/commande/porte/tableFonctions.h"

#include "hote/acdb.h"
#include "hote/aced.h"
#include "module/elements/fonctionsElements.h"
#include "module/matrices/fonctionsMatrices.h"
#include "module/matrices/gestionMatrices.h"
#include "module/metres/fonctionsMetres.h"
#include "module/optimiseur/fonctionsOptimiseur.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/menus/menus.h"

namespace plv {

namespace {

constexpr ligneFonction kTable[] = {
    {L"pl_text", pl_text},
    {L"pl_li", pl_li},
    {L"pl_add_xdata", pl_add_xdata},
    {L"pl_curvelength", pl_curvelength},
    {L"pl_areacalc", pl_areacalc},
    {L"pl_fleche", pl_fleche},
    {L"pl_analyse", pl_analyse},
    {L"pl_cotauto", pl_cotauto},
    {L"pl_repspc", pl_repspc},
    {L"pl_assoc_prj", pl_assoc_prj},
    {L"pl_elem_ponct", pl_elem_ponct},
    {L"pl_chg_pc", pl_chg_pc},
    {L"pl_elem_prj", pl_elem_prj},
    {L"pl_fprmprb", pl_fprmprb},
    {L"pl_dumpdata", pl_dumpdata},
    {L"plsxd", plsxd},
    {L"plgxd", plgxd},
    {L"pl_efix", pl_efix},
    {L"pl_strequal", pl_strequal},
    {L"pl_strdiff", pl_strdiff},
    {L"pl_TracerLignes", pl_TracerLignes},
    {L"pl_CreeMatrice", pl_CreeMatrice},
    {L"pl_DefinirLigneMatrice", pl_DefinirLigneMatrice},
    {L"pl_ResetMatrices", pl_ResetMatrices},
    {L"pl_LargeurMatrices", pl_LargeurMatrices},
    {L"pl_ParamLigneProfil", pl_ParamLigneProfil},
    {L"pl_DessinerMatrices", pl_DessinerMatrices},
    {L"pl_updLargeurLignes", pl_updLargeurLignes},
    {L"pl_distToPk", pl_distToPk},
    {L"pl_ChoixProfil", pl_ChoixProfil},
    {L"pl_SelectLigne", pl_SelectLigne},
    {L"pl_SelectMatrice", pl_SelectMatrice},
    {L"pl_CotDcumH", pl_CotDcumH},
    {L"pl_CotDParH", pl_CotDParH},
    {L"pl_TexteMultipleCentre", pl_TexteMultipleCentre},
    {L"pl_TexteVertical", pl_TexteVertical},
    {L"pl_TexteHorizontalCentre", pl_TexteHorizontalCentre},
    {L"pl_TexteHorizontalGauche", pl_TexteHorizontalGauche},
    {L"pl_TexteHorizontalDroite", pl_TexteHorizontalDroite},
    {L"pl_Quadrant", pl_Quadrant},
    {L"pl_ArcCell", pl_ArcCell},
    {L"pl_ptPkEtObs", pl_ptPkEtObs},
    {L"pl_BlockVertical", pl_BlockVertical},
    {L"pl_InfosTn", pl_InfosTn},
    {L"pl_PointTn", pl_PointTn},
    {L"pl_NbreVertical", pl_NbreVertical},
    {L"pl_yat", pl_yat},
    {L"pl_modifpente", pl_modifpente},
    {L"pl_PointsPrjRef", pl_PointsPrjRef},
    {L"pl_glp", pl_glp},
    {L"pl_listerAltitudes", pl_listerAltitudes},
    {L"pl_typelignemat", pl_typelignemat},
    {L"pl_nblignesmat", pl_nblignesmat},
    {L"pl_nbmatrices", pl_nbmatrices},
    {L"pl_textlignemat", pl_textlignemat},
    {L"pl_ligneMatrice", pl_ligneMatrice},
    {L"pl_rayraccpt", pl_rayraccpt},
    {L"pl_CreeMenu", pl_CreeMenu},
    {L"pl_AddSep", pl_AddSep},
    {L"pl_RemoveMenu", pl_RemoveMenu},
    {L"pl_AddOptionMenu", pl_AddOptionMenu},
    {L"pl_modifLongueur", pl_modifLongueur},
    {L"pl_LireMatriceKavel", pl_LireMatriceKavel},
    {L"pl_PlacerMenusKavel", pl_PlacerMenusKavel},
    {L"pl_CotAttribsAuto", pl_CotAttribsAuto},
    {L"pl_RemoveDynMnus", pl_RemoveDynMnus},
    {L"pl_NotifInsertBlock", pl_NotifInsertBlock},
    {L"pl_TraceOptimal", pl_TraceOptimal},
    {L"C:CUBPL", C_CUBPL},
};
static_assert(std::size(kTable) == 69);

}  // namespace

std::span<const ligneFonction> tableFonctions() { return kTable; }

// Only what the host calls a success goes on: its error codes are negative.
void publierFonctions() {
  for (std::size_t i = 0; i < std::size(kTable); ++i)
    if (acedDefun(kTable[i].name, static_cast<int>(i)) <= 0) return;
  acdbRegApp(kApplicationTn);
}

void retirerFonctions() {
  for (std::size_t i = 0; i < std::size(kTable); ++i) acedUndef(kTable[i].name, static_cast<int>(i));
  retirerMenusDynamiques();
  collectionMatrices().oublierDessin(baseCourante());  // ids don't outlive their drawing
}

void appelerFonction() {
  const int code = acedGetFunCode();
  if (code < 0 || static_cast<std::size_t>(code) >= std::size(kTable)) return;
  kTable[code].handler();
}

}  // namespace plv
