// Blocks: import of a drawing as a block, insertion with attributes, and the information that a block
// carries. Block information is the Xrecord "BLOCKINFO_VARDANE" of a block record and of its first entity: 90
// with the number 12744721, then 300 with the text.
#pragma once
#include <string>

#include "hote/dbents.h"

namespace plv {

// The block's name for a file: the path in lower case, after its last / or \, without a final ".dwg";
// "invalid" when nothing is left. In a name that no table takes, what is no letter or digit becomes "_".
std::wstring nomDeBloc(const std::wstring& chemin);
// The block of that file in the database, read from the file when the database hasn't it. A file that isn't
// found where it is named is looked for in the installation folder. False when it can't be read.
bool importerBloc(AcDbObjectId& id, const std::wstring& chemin, AcDbDatabase* base);
// The extents of a reference to the block at scale 1. False for a block without any.
bool tailleBloc(AcDbObjectId idRecord, double& largeur, double& hauteur);
// Inserts a block of the drawing in model space, with its variable attributes; the point is in the user's
// coordinate system, the angle in radians. Null when there is no such block.
AcDbObjectId insererBloc(const std::wstring& nom, const AcGePoint3d& point, double echelle, double angle);

// Sets the block's comment and its information. Nothing happens for anything but a block record.
void ecrireInfosBloc(AcDbObjectId idRecord, const std::wstring& texte);
// Empties both texts first. False only for what isn't a block record or doesn't open.
bool lireInfosBloc(AcDbObjectId idRecord, std::wstring& commentaire, std::wstring& info);

}  // namespace plv
