// Arguments and results that the functions of this room share: selection sets, axes as lists.
#pragma once
#include <string>
#include <vector>

#include "etudes/reponses/listes.h"
#include "etudes/reponses/repondre.h"
#include "etudes/surfaces/axe.h"
#include "hote/dbid.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

// The entities of a selection set, or of an entity name; none for another node.
AcDbObjectIdArray entitesDe(const resbuf* noeud);

// The node after the list that opens here.
const resbuf* apresListe(const resbuf* noeud);

// An axis ((x y z bulge) ...) that begins at this node, which then stands after it. False for another form.
bool lireAxe(const resbuf*& noeud, axePlan& axe);
void ajouterAxe(plv::listeRb& liste, const axePlan& axe);

}  // namespace etu
