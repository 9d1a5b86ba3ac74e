// The functions of this room that LISP calls.
// Each reads its arguments from the host and hands its result back through it.
#pragma once

namespace plv {

// Profile record: (ename) -> (points, last distance, 0); (ename index) -> (distance, altitude, 0).
void pl_InfosTn();
void pl_PointTn();
// Stored keys: two numbers and a handle; (ename key value); (ename key).
void pl_add_xdata();
void plsxd();
void plgxd();
// Station text: (value [decimals [format]]).
void pl_distToPk();
// Lines drawn by the user on a profile: (ename).
void pl_TracerLignes();
// Drawing: (justification point height rotation text), (points...), (a b size text).
void pl_text();
void pl_li();
void pl_fleche();
// Measures: (ename factor), (ename factor), (p1 p2 p3).
void pl_curvelength();
void pl_areacalc();
void pl_fprmprb();
// Strings: (a b), (a b), (text).
void pl_strequal();
void pl_strdiff();
void pl_analyse();

}  // namespace plv
