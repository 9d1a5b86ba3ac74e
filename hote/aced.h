// The editor: functions published to AutoLISP, their arguments and results, prompts, selections, and transient
// graphics. Prompts answer RTNORM, RTCAN, RTNONE (Enter), RTKWORD (the keyword by acedGetInput) or RTERROR.
#pragma once
#include "hote/adesk.h"

// Publishes a function under the name, only while a drawing is being loaded (AcRx::kLoadDwgMsg); index, from 0, is what
// acedGetFunCode gives when it is called. RTERROR otherwise.
int acedDefun(const ACHAR* name, int index);
int acedUndef(const ACHAR* name, int index);
int acedGetFunCode();   // negative when LISP has called nothing
resbuf* acedGetArgs();  // the host's chain, valid for the call; null without arguments

// The result of the running call; the last one set counts. Texts and points are copied. RTERROR outside a call.
int acedRetNil();
int acedRetT();
int acedRetVoid();
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetStr(const ACHAR* text);
int acedRetName(const ads_name name, int type);  // RTENAME or RTPICKS
int acedRetPoint(const ads_point point);
int acedRetList(const resbuf* list);  // copied

// For the next prompt only: bits RSG_..., and keywords separated by blanks, their capitals being the short form.
int acedInitGet(int flags, const ACHAR* keywords);
int acedGetInput(ACHAR* text);  // the last keyword; the buffer holds 133 characters
int acedGetString(int withSpaces, const ACHAR* prompt, ACHAR* text);  // the buffer holds 133 characters
int acedGetInt(const ACHAR* prompt, int* value);
int acedGetReal(const ACHAR* prompt, ads_real* value);
// Points are in world coordinates, distances in drawing units, angles in radians. The base, or null, is where a rubber
// band, a corner, a distance or an angle begins. The result is unchanged unless the answer is RTNORM.
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetKword(const ACHAR* prompt, ACHAR* result);
// The entity picked and the point of the pick. RTERROR when there is none under it, or for Enter.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
int acedAlert(const ACHAR* message);

// Selection sets. mode: as AutoLISP's ssget ("X", "W", "C", "_:S" ...), null asks the user; first and second are the
// points that the mode needs, or a chain of points; filter is a chain of groups, or null. RTERROR when nothing is
// selected, and for an index outside the set (counted from 0) or a name that isn't a set's. A set must be freed with
// acedSSFree.
int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter, ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSFree(const ads_name set);

// System variables. A text in the result belongs to the caller. RTERROR for an unknown name, a read-only variable, or a
// value of another type or out of its range.
int acedGetVar(const ACHAR* variable, resbuf* result);
int acedSetVar(const ACHAR* variable, const resbuf* value);
// A point, or with displacement other than 0 a vector, in another coordinate system. A system is RTSHORT 0 world,
// 1 user, 2 display or 3 paper, RTENAME an entity's, or RT3DPOINT a plane's normal; RTERROR for anything else.
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement, ads_point result);

// 1 when the user wants what runs to stop: long computations that call nothing else ask it now and then. This host leaves the
// function by an exception instead, as its other calls do.
int acedUsrBrk();

// A vector on the screen only, in a palette colour; highlighted ones are dashed.
int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight);
void acgsRemoveAnonymousGraphics(int viewport);
