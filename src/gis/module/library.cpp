#include "gis/gis.h"
#include "gis/module/geotiff.h"
#include "gis/module/importer.h"
#include "gis/module/readraster.h"
#include "gis/module/readvectors.h"
#include "gis/module/writevectors.h"
#include "gis/module/zip.h"

// The one name that the module hands out: `gisentry`.
extern "C" const GisLibrary* velmoragis()
{
    static const GisLibrary library{importrasters, opengisraster, geotiffbytes,
                                    readvectors,   vectorbytes,   zipbytes};
    return &library;
}
