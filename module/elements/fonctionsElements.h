// The functions of this room that LISP calls.
// Each reads its arguments from the host and hands its result back through it.
#pragma once

namespace plv {

// Project lists: (support); (profile word ename...) or (profile word selection).
void pl_assoc_prj();
void pl_elem_prj();
// Static elements: (profile word); (profile word point ename...). A profile's lists on the command line: (profile).
void pl_efix();
void pl_elem_ponct();
void pl_dumpdata();
// Station change: (profile operation x altitude altitude). Transfer across sections: (profile).
void pl_chg_pc();
void pl_repspc();
// Dimensions: (profile word offset rotation [altitudes [heights]]).
void pl_cotauto();
// Listings: (curve x); (profile selection selection); (profile selection); (profile).
void pl_yat();
void pl_PointsPrjRef();
void pl_glp();
void pl_listerAltitudes();
// Edits of slope and length: (scale). Radius of a fillet: (p0 p1 p2 p3 p4 scale).
void pl_modifpente();
void pl_modifLongueur();
void pl_rayraccpt();

}  // namespace plv
