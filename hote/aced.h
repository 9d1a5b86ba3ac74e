// The editor: functions published to AutoLISP, their arguments and results, prompts, selections, and transient
// graphics. Prompts answer RTNORM, RTCAN, RTNONE (Enter), RTKWORD (the keyword by acedGetInput) or RTERROR.
#pragma once
#include "hote/adesk.h"

int acedDefun(const ACHAR* name, int index);
int acedUndef(const ACHAR* name, int index);
int acedGetFunCode();   // negative when LISP has called nothing
resbuf* acedGetArgs();  // the host's chain, valid for the call; null without arguments

int acedRetNil();
int acedRetT();
int acedRetVoid();
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetStr(const ACHAR* text);
int acedRetName(const ads_name name, int type);  // RTENAME or RTPICKS
int acedRetPoint(const ads_point point);
int acedRetList(const resbuf* list);  // copied

int acedInitGet(int flags, const ACHAR* keywords);
int acedGetInput(ACHAR* text);  // the last keyword; the buffer holds 133 characters
int acedGetString(int withSpaces, const ACHAR* prompt, ACHAR* text);  // the buffer holds 133 characters
int acedGetInt(const ACHAR* prompt, int* value);
int acedGetReal(const ACHAR* prompt, ads_real* value);
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetKword(const ACHAR* prompt, ACHAR* result);
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
int acedAlert(const ACHAR* message);

int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter, ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSFree(const ads_name set);

int acedGetVar(const ACHAR* variable, resbuf* result);
int acedSetVar(const ACHAR* variable, const resbuf* value);
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement, ads_point result);

// A vector on the screen only, in a palette colour; highlighted ones are dashed.
int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight);
void acgsRemoveAnonymousGraphics(int viewport);
