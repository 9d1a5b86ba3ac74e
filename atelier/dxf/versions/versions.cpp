// The table of versions.
// A row gives the first version that knows something; all versions from R2000 on know what has no row.
#include "atelier/dxf/versions/versions.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {
namespace {

constexpr std::string_view k2000 = "AC1015", k2004 = "AC1018", k2007 = "AC1021", k2010 = "AC1024", k2013 = "AC1027";

struct NameSince {
  std::string_view name, since;
};

constexpr NameSince kReleases[] = {{"R12", "AC1009"}, {"R2000", k2000}, {"R2004", k2004},   {"R2007", k2007},
                                   {"R2010", k2010},  {"R2013", k2013}, {"R2018", "AC1032"}};

constexpr NameSince kTypes[] = {{"LARGE_RADIAL_DIMENSION", k2004},
                                {"ARC_DIMENSION", k2004},
                                {"TABLESTYLE", k2004},
                                {"ACAD_TABLE", k2004},
                                {"DIMASSOC", k2004},
                                {"FIELD", k2004},
                                {"FIELDLIST", k2004},
                                {"MATERIAL", k2007},
                                {"VISUALSTYLE", k2007},
                                {"SUN", k2007},
                                {"LIGHT", k2007},
                                {"HELIX", k2007},
                                {"SECTION", k2007},
                                {"SURFACE", k2007},
                                {"EXTRUDEDSURFACE", k2007},
                                {"LOFTEDSURFACE", k2007},
                                {"REVOLVEDSURFACE", k2007},
                                {"SWEPTSURFACE", k2007},
                                {"DGNUNDERLAY", k2007},
                                {"DWFUNDERLAY", k2007},
                                {"PDFUNDERLAY", k2007},
                                {"DGNDEFINITION", k2007},
                                {"DWFDEFINITION", k2007},
                                {"PDFDEFINITION", k2007},
                                {"MULTILEADER", k2007},
                                {"MLEADERSTYLE", k2007},
                                {"SCALE", k2007},
                                {"CELLSTYLEMAP", k2007},
                                {"MESH", k2010},
                                {"GEODATA", k2010},
                                {"ACDBDETAILVIEWSTYLE", k2013},
                                {"ACDBSECTIONVIEWSTYLE", k2013}};

constexpr std::string_view kR12Types[] = {"LINE",   "POINT",     "CIRCLE", "ARC",    "TRACE",    "SOLID",   "TEXT",
                                          "SHAPE",  "INSERT",    "ATTDEF", "ATTRIB", "POLYLINE", "VERTEX",  "SEQEND",
                                          "3DFACE", "DIMENSION", "BLOCK",  "ENDBLK", "TABLE",    "LTYPE",   "LAYER",
                                          "STYLE",  "VIEW",      "UCS",    "VPORT",  "APPID",    "DIMSTYLE"};

struct GroupSince {
  std::string_view type;     // empty: any
  std::string_view section;  // subclass mark; empty: any
  int first, last;
  std::string_view since;
};

constexpr GroupSince kGroups[] = {{"", "AcDbEntity", 284, 284, k2007},
                                  {"", "AcDbEntity", 347, 348, k2007},
                                  {"", "AcDbEntity", 380, 380, k2007},
                                  {"", "AcDbEntity", 420, 420, k2004},
                                  {"", "AcDbEntity", 430, 430, k2004},
                                  {"", "AcDbEntity", 440, 440, k2004},
                                  {"", "AcDbEntity", 160, 160, k2010},
                                  {"LAYER", "", 347, 348, k2007},
                                  {"LAYER", "", 420, 430, k2004},
                                  {"BLOCK_RECORD", "", 70, 70, k2007},
                                  {"BLOCK_RECORD", "", 280, 281, k2007},
                                  {"CLASS", "", 91, 91, k2004},
                                  {"DIMENSION", "AcDbDimension", 280, 280, k2010},
                                  {"ATTRIB", "AcDbAttribute", 280, 280, k2010},
                                  {"ATTDEF", "AcDbAttributeDefinition", 280, 280, k2010},
                                  {"DIMSTYLE", "", 49, 49, k2007},
                                  {"DIMSTYLE", "", 290, 290, k2007},
                                  {"DIMSTYLE", "", 345, 347, k2007},
                                  {"IMAGE", "", 290, 290, k2010},
                                  {"WIPEOUT", "", 290, 290, k2010},
                                  {"LWPOLYLINE", "AcDbPolyline", 91, 91, k2010},
                                  {"MTEXT", "AcDbMText", 45, 45, k2007},
                                  {"MTEXT", "AcDbMText", 63, 63, k2007},
                                  {"MTEXT", "AcDbMText", 90, 90, k2007},
                                  {"MTEXT", "AcDbMText", 420, 441, k2007},
                                  {"HATCH", "AcDbHatch", 450, 470, k2004},
                                  {"VIEW", "", 73, 73, k2007},
                                  {"VIEW", "", 332, 361, k2007},
                                  {"VPORT", "", 1, 1, k2007},
                                  {"VPORT", "", 61, 61, k2007},
                                  {"VPORT", "", 170, 170, k2007},
                                  {"VPORT", "", 282, 292, k2007},
                                  {"VPORT", "", 332, 361, k2007},
                                  {"VIEWPORT", "AcDbViewport", 170, 170, k2004},
                                  {"VIEWPORT", "AcDbViewport", 61, 63, k2007},
                                  {"VIEWPORT", "AcDbViewport", 141, 142, k2007},
                                  {"VIEWPORT", "AcDbViewport", 282, 292, k2007},
                                  {"VIEWPORT", "AcDbViewport", 332, 335, k2007},
                                  {"VIEWPORT", "AcDbViewport", 348, 361, k2007},
                                  {"VIEWPORT", "AcDbViewport", 421, 431, k2007}};

struct VariablesSince {
  std::string_view since;
  std::string_view names;  // between blanks
};
constexpr VariablesSince kVariables[] = {{k2000,
                                          " $ACADMAINTVER $CELTSCALE $CELWEIGHT $CEPSNTYPE $CHAMFERC $CHAMFERD "
                                          "$CMLJUST $CMLSCALE $CMLSTYLE $DIMADEC $DIMALTRND $DIMALTTD"
                                          " $DIMALTTZ $DIMALTU $DIMALTZ $DIMATFIT $DIMAUNIT $DIMAZIN $DIMDEC $DIMDSEP "
                                          "$DIMFRAC $DIMJUST $DIMLDRBLK $DIMLUNIT $DIMLWD"
                                          " $DIMLWE $DIMSD1 $DIMSD2 $DIMTDEC $DIMTMOVE $DIMTOLJ $DIMTXSTY $DIMTZIN "
                                          "$DIMUPT $DISPSILH $ENDCAPS $EXTNAMES $FINGERPRINTGUID"
                                          " $HYPERLINKBASE $INSUNITS $JOINSTYLE $LWDISPLAY $MEASUREMENT $OLESTARTUP "
                                          "$PINSBASE $PROXYGRAPHICS $PSTYLEMODE $PSVPSCALE"
                                          " $PUCSBASE $PUCSORGBACK $PUCSORGBOTTOM $PUCSORGFRONT $PUCSORGLEFT "
                                          "$PUCSORGRIGHT $PUCSORGTOP $PUCSORTHOREF $PUCSORTHOVIEW"
                                          " $STYLESHEET $TDUCREATE $TDUUPDATE $TREEDEPTH $UCSBASE $UCSORGBACK "
                                          "$UCSORGBOTTOM $UCSORGFRONT $UCSORGLEFT $UCSORGRIGHT"
                                          " $UCSORGTOP $UCSORTHOREF $UCSORTHOVIEW $VERSIONGUID $XEDIT "},
                                         {k2004,
                                          " $DIMASSOC $HALOGAP $HIDETEXT $INDEXCTL $INTERSECTIONCOLOR "
                                          "$INTERSECTIONDISPLAY $LASTSAVEDBY $OBSCOLOR $OBSLTYPE $PROJECTNAME"
                                          " $SORTENTS $XCLIPFRAME "},
                                         {k2007,
                                          " $3DDWFPREC $CAMERADISPLAY $CAMERAHEIGHT $CMATERIAL $CSHADOW $DGNFRAME "
                                          "$DIMARCSYM $DIMFXL $DIMFXLON $DIMJOGANG $DIMLTEX1"
                                          " $DIMLTEX2 $DIMLTYPE $DIMTFILL $DIMTFILLCLR $DWFFRAME $INTERFERECOLOR "
                                          "$INTERFEREOBJVS $INTERFEREVPVS $LATITUDE $LENSLENGTH"
                                          " $LIGHTGLYPHDISPLAY $LOFTANG1 $LOFTANG2 $LOFTMAG1 $LOFTMAG2 $LOFTNORMALS "
                                          "$LOFTPARAM $LONGITUDE $NORTHDIRECTION $PSOLHEIGHT"
                                          " $PSOLWIDTH $REALWORLDSCALE $SHADOWPLANELOCATION $SHOWHIST $SOLIDHIST "
                                          "$STEPSIZE $STEPSPERSEC $TILEMODELIGHTSYNCH $TIMEZONE "},
                                         {k2010, " $DIMTXTDIRECTION "},
                                         {k2013, " $REQUIREDVERSIONS "}};

constexpr std::string_view kUntilR12 = " $ATTDIA $ATTREQ $COORDS $DRAGMODE $HANDLING $OSMODE ";

bool among(std::string_view names, std::string_view name) {
  return names.find(" " + std::string(name) + " ") != names.npos;
}

// R12 entities and definitions have groups below 80, an extrusion, and extended data; no visibility, no line type scale.
bool knownToR12(std::string_view type, int code) {
  if (code >= 1000) return true;
  if (type == "DIMSTYLE") return code < 180 && code != 100 && code != 102;
  if (code >= 80) return code == 210 || code == 220 || code == 230;
  return code != 48 && code != 60;
}

}  // namespace

std::string_view acadVersion(std::string_view release) {
  for (const NameSince& row : kReleases)
    if (equalNoCase(row.name, release)) return row.since;
  return {};
}

std::string_view releaseNamed(std::string_view version) {
  for (const NameSince& row : kReleases)
    if (row.since >= version) return row.name;
  return "R2018";
}

bool knowsType(std::string_view version, std::string_view type) {
  if (version <= kR12) return std::find(std::begin(kR12Types), std::end(kR12Types), type) != std::end(kR12Types);
  for (const NameSince& row : kTypes)
    if (row.name == type) return version >= row.since;
  return true;
}

bool knowsGroup(std::string_view version, std::string_view type, std::string_view section, int code) {
  if (version <= kR12) return knownToR12(type, code);
  for (const GroupSince& row : kGroups)
    if (code >= row.first && code <= row.last && version < row.since && (row.type.empty() || row.type == type) &&
        (row.section.empty() || row.section == section))
      return false;
  return true;
}

bool knowsVariable(std::string_view version, std::string_view name) {
  if (among(kUntilR12, name)) return version <= kR12;
  return std::none_of(std::begin(kVariables), std::end(kVariables),
                      [&](const VariablesSince& row) { return version < row.since && among(row.names, name); });
}

}  // namespace atelier::dxf
