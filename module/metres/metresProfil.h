// The quantities of one profile for the dialog: which project, which terrain, which fixed elements.
// The project type is asked for once and then holds for all profiles of a run of the dialog.
#pragma once
#include "module/metres/TranconProfilEnlong.h"

namespace plv {

inline constexpr int kProjetNonChoisi = -1;

// Computes the profile with the project of the index `projetChoisi` (Assainissement, Voirie, A.E.P, Generique,
// Terrassement, Projet), which is settled here when it is not yet. Says so to the user when the profile has no project.
// Raises what calculerMetres raises.
void calculerProfil(const poigneeProfil& profil, int& projetChoisi);

}  // namespace plv
