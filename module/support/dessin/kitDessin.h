// The drawing kit: everything through which the module writes to the drawing and reads from it.
// Each operation is one complete transaction on the working database: nothing stays open across a return.
#pragma once
#include "module/support/dessin/kitBlocs.h"
#include "module/support/dessin/kitDivers.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitGroupes.h"
#include "module/support/dessin/kitSelections.h"
#include "module/support/dessin/kitTextes.h"
#include "module/support/dessin/kitXrecords.h"
