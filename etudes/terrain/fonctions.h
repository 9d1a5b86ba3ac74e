// The published functions of this room. Where a source can't be used the result is the reason, a text; nil for arguments that
// aren't of the form.
#pragma once

namespace etu {

void et_axe();
void et_axe_depuis();
void et_rencontres();
void et_axes_fichier();
void et_fichier();
void et_surfaces();
void et_systemes();
void et_ordre();
void et_terrain();
void et_triangles();

}  // namespace etu
