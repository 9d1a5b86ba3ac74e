// Chains of result nodes, printing, and small tools of the host.
// Whoever gets a chain releases it with acutRelRb, unless a function says otherwise.
#pragma once
#include <cstdarg>

#include "hote/adesk.h"

resbuf* acutNewRb(int restype);
// Pairs of a code and its value, ended by RTNONE or 0. A string is copied; a point is an ads_point, an entity name an
// ads_name, a real a double, integers int (32-bit for RTLONG, 90-99, 1071), a binary block (310, 1004) an
// ads_binary* whose bytes are copied. RTLB, RTLE, RTNIL and RTT have no value.
resbuf* acutBuildList(int restype, ...);
int acutRelRb(resbuf* chain);  // the whole chain; null is accepted
Acad::ErrorStatus acutNewString(const ACHAR* source, ACHAR*& copy);
void acutDelString(ACHAR*& text);
// Prints on the command line; the format is that of wprintf.
int acutPrintf(const ACHAR* format, ...);
void acdbFail(const ACHAR* message);                        // tells the user
double acutDistance(const ads_point a, const ads_point b);  // in space, drawing units
double acutAngle(const ads_point a, const ads_point b);     // of the line from a to b in plan, 0 to 2 pi
void acutPolar(const ads_point from, double angle, double distance, ads_point result);  // radians; keeps the height
