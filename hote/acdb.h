// Access to the drawing through entity names and result chains, as AutoLISP uses it.
// Functions answer RTNORM, or RTERROR when the operation fails.
#pragma once
#include "hote/dbid.h"

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
// The object of a handle in the current drawing, erased or not.
int acdbHandEnt(const ACHAR* handle, ads_name entity);
// The entity's groups; after them a node -3 and the XDATA of the listed applications (group 1001 nodes; "*" for all).
resbuf* acdbEntGetX(const ads_name entity, const resbuf* applications);
resbuf* acdbEntGet(const ads_name entity);
// Replaces the groups of the entity named by the node -1. Angles are in radians in all chains.
int acdbEntMod(const resbuf* entity);
int acdbEntDel(const ads_name entity);  // brings an erased one back
// The next entity in drawing order, attributes and vertices included; the first one for null.
int acdbEntNext(const ads_name entity, ads_name result);
int acdbEntLast(ads_name result);
int acdbRegApp(const ACHAR* application);  // RTERROR when it is registered already
// RTNORM for a name that a symbol table accepts, 1 for one that it refuses.
int acdbSNValid(const ACHAR* name, int pipeTest);
// The crossing of two lines in plan, each given by two points. With onSegments other than 0 it must lie on both
// segments. RTERROR when there is none; the result is then unchanged.
int acdbInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2, int onSegments,
               ads_point result);
// unit: -1 current, 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional.
int acdbDisToF(const ACHAR* text, int unit, ads_real* value);
// precision: decimals, or the power of two of the denominator; -1 current. The buffer holds 133 characters.
int acdbRToS(ads_real value, int unit, int precision, ACHAR* text);
