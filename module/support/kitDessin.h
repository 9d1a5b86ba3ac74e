// The drawing kit: everything through which the module writes to the drawing and reads from it.
// Each operation is one complete transaction on the working database: nothing stays open across a return.
#pragma once
#include "module/support/kitBlocs.h"
#include "module/support/kitDivers.h"
#include "module/support/kitEntites.h"
#include "module/support/kitGroupes.h"
#include "module/support/kitSelections.h"
#include "module/support/kitTextes.h"
#include "module/support/kitXrecords.h"
