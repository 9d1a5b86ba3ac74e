// GDAL's functions as they are used here, found in the library when it is loaded. Only raster.cpp and vecteur.cpp include this.
#pragma once
#include <cpl_conv.h>
#include <cpl_error.h>
#include <gdal.h>
#include <gdal_utils.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>

#include <memory>
#include <string>

// clang-format off
#define KAVEL_FONCTIONS_GDAL(F)                                                                              \
  F(GDALAllRegister) F(GDALOpenEx) F(GDALClose) F(GDALGetRasterXSize) F(GDALGetRasterYSize)                  \
  F(GDALGetRasterCount) F(GDALGetRasterBand) F(GDALGetGeoTransform) F(GDALGetProjectionRef)                  \
  F(GDALGetRasterNoDataValue) F(GDALGetRasterScale) F(GDALGetRasterOffset) F(GDALRasterIO)                   \
  F(GDALSetCacheMax64) F(GDALBuildVRT) F(GDALDatasetGetLayerCount) F(GDALDatasetGetLayer)                    \
  F(CPLSetErrorHandler) F(CPLQuietErrorHandler) F(CPLGetLastErrorMsg) F(CPLErrorReset) F(CPLSetConfigOption) \
  F(VSIFree) F(OGR_L_GetName) F(OGR_L_GetNextFeature) F(OGR_L_ResetReading) F(OGR_L_GetSpatialRef)           \
  F(OGR_F_Destroy) F(OGR_F_GetGeometryRef) F(OGR_F_GetFieldCount) F(OGR_F_GetFieldDefnRef)                   \
  F(OGR_F_IsFieldSetAndNotNull) F(OGR_F_GetFieldAsString) F(OGR_F_GetFieldAsDouble) F(OGR_F_GetFID)          \
  F(OGR_Fld_GetNameRef) F(OGR_Fld_GetType) F(OGR_G_GetGeometryType) F(OGR_GT_HasZ) F(OGR_G_GetGeometryCount) \
  F(OGR_G_GetGeometryRef) F(OGR_G_GetPointCount) F(OGR_G_GetX) F(OGR_G_GetY) F(OGR_G_GetZ)                   \
  F(OGR_G_HasCurveGeometry) F(OGR_G_GetLinearGeometry) F(OGR_G_DestroyGeometry) F(OSRExportToWkt)
// clang-format on

namespace etu {

struct gdalChargee {
#define F(nom) decltype(&::nom) nom = nullptr;
  KAVEL_FONCTIONS_GDAL(F)
#undef F
};

// Loads the library once. Throws `refus` without it.
const gdalChargee& gdal();

// A file that GDAL has opened, closed with this; null when it can't be opened.
using donneesGdal = std::unique_ptr<void, void (*)(void*)>;
donneesGdal ouvrirGdal(const std::wstring& chemin, unsigned int quoi, const char* const* pilotes);

// The last message of GDAL, to be put behind a sentence.
std::wstring messageGdal();

}  // namespace etu
