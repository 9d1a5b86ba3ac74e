#!/usr/bin/env python3
"""Makes the files of the example valley: one ground as points and breaklines, as rasters, as LandXML, and a track along its axis.

    exemples/vallon.py [FOLDER]

The ground is a formula: a valley that bends, a stream whose bed is an edge, and a plain that rises to the east. Coordinates are
those of Lambert 93 (EPSG 2154). Needs python3-ezdxf, python3-gdal and python3-scipy.
"""
import math
import os
import random
import sys

import ezdxf
from osgeo import gdal, osr
from scipy.spatial import Delaunay

X0, Y0, WIDTH, HEIGHT = 652000.0, 6862000.0, 400.0, 300.0
AXIS = [(30.0, 60.0, 0.0), (150.0, 90.0, 0.0), (180.0, 120.0, math.tan(math.pi / 16)), (240.0, 260.0, 0.0), (370.0, 270.0, 0.0)]


def stream(x):
    return 150 + 40 * math.sin(x / 80)


def ground(x, y):
    away = abs(y - stream(x))
    return 115 + 0.015 * x + 9 * (1 - math.exp(-((away / 70) ** 2))) + 0.04 * away


def points(count=900):
    rng = random.Random(19)
    rows = [(x, y) for x in (0.0, WIDTH) for y in (0.0, HEIGHT)]
    rows += [(rng.uniform(0, WIDTH), rng.uniform(0, HEIGHT)) for _ in range(count - 4)]
    return [(round(x, 2), round(y, 2), round(ground(x, y), 3)) for x, y in rows]


def bed():
    return [(float(x), round(stream(x), 2), round(115 + 0.015 * x, 3)) for x in range(0, int(WIDTH) + 1, 8)]


def write_points(path):
    with open(path, "w", encoding="utf-8") as file:
        file.write("nom;x;y;z\n")
        for number, (x, y, z) in enumerate(points(), 1):
            file.write(f"P{number};{X0 + x:.2f};{Y0 + y:.2f};{z:.3f}\n")


def write_rock(path):
    """Rock along the axis, by stations: probes every 25 m."""
    with open(path, "w", encoding="utf-8") as file:
        file.write("distance;altitude;nom\n")
        station = 0.0
        for (x0, y0, _), (x1, y1, _) in zip(AXIS, AXIS[1:]):
            length = math.hypot(x1 - x0, y1 - y0)
            for step in range(0, int(length), 25):
                x, y = x0 + (x1 - x0) * step / length, y0 + (y1 - y0) * step / length
                file.write(f"{station + step:.2f};{ground(x, y) - 1.8 - 0.7 * math.sin((station + step) / 40):.2f};S\n")
            station += length
        file.write(f"{station:.2f};{ground(AXIS[-1][0], AXIS[-1][1]) - 2:.2f};S\n")


def write_drawing(path):
    drawing = ezdxf.new("R2000")
    drawing.header["$INSUNITS"] = 6
    space = drawing.modelspace()
    for name, colour in (("AXE", 1), ("RUISSEAU", 5)):
        drawing.layers.add(name, color=colour)
    space.add_lwpolyline([(X0 + x, Y0 + y, bulge) for x, y, bulge in AXIS], format="xyb", dxfattribs={"layer": "AXE"})
    space.add_polyline3d([(X0 + x, Y0 + y, z) for x, y, z in bed()], dxfattribs={"layer": "RUISSEAU"})
    drawing.saveas(path)


def write_raster(path, driver, cell=5.0):
    columns, rows = int(WIDTH / cell) + 1, int(HEIGHT / cell) + 1
    memory = gdal.GetDriverByName("MEM").Create("", columns, rows, 1, gdal.GDT_Float32)
    memory.SetGeoTransform((X0 - cell / 2, cell, 0, Y0 + HEIGHT + cell / 2, 0, -cell))
    system = osr.SpatialReference()
    system.ImportFromEPSG(2154)
    memory.SetProjection(system.ExportToWkt())
    import numpy
    memory.GetRasterBand(1).WriteArray(numpy.array(
        [[round(ground(column * cell, HEIGHT - row * cell), 3) for column in range(columns)] for row in range(rows)], dtype="float32"))
    memory.GetRasterBand(1).SetNoDataValue(-9999)
    gdal.GetDriverByName(driver).CreateCopy(path, memory, options=["COMPRESS=DEFLATE", "PREDICTOR=3"] if driver == "GTiff" else ["DECIMAL_PRECISION=3"])
    for extra in (path + ".aux.xml", path.replace(".asc", ".prj")):
        if driver != "GTiff" and os.path.exists(extra):
            os.remove(extra)


def write_landxml(path):
    rows = points()
    mesh = Delaunay([(x, y) for x, y, _ in rows])
    with open(path, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0" encoding="UTF-8"?>\n<LandXML version="1.2" xmlns="http://www.landxml.org/schema/LandXML-1.2">\n'
                   '<Units><Metric linearUnit="meter" areaUnit="squareMeter" volumeUnit="cubicMeter" temperatureUnit="celsius" pressureUnit="milliBars"/></Units>\n'
                   '<CoordinateSystem epsgCode="2154"/>\n<Surfaces><Surface name="Vallon"><Definition surfType="TIN"><Pnts>\n')
        for number, (x, y, z) in enumerate(rows, 1):
            file.write(f'<P id="{number}">{Y0 + y:.2f} {X0 + x:.2f} {z:.3f}</P>\n')
        file.write("</Pnts><Faces>\n")
        for a, b, c in mesh.simplices:
            file.write(f"<F>{a + 1} {b + 1} {c + 1}</F>\n")
        file.write("</Faces></Definition></Surface></Surfaces>\n</LandXML>\n")


def write_track(path):
    source, target = osr.SpatialReference(), osr.SpatialReference()
    source.ImportFromEPSG(2154)
    target.ImportFromEPSG(4326)
    target.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    change = osr.CoordinateTransformation(source, target)
    with open(path, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0" encoding="UTF-8"?>\n<gpx version="1.1" creator="vallon.py" xmlns="http://www.topografix.com/GPX/1/1">\n<trk><name>Vallon</name><trkseg>\n')
        for (x0, y0, _), (x1, y1, _) in zip(AXIS, AXIS[1:]):
            for step in range(20):
                x, y = x0 + (x1 - x0) * step / 20, y0 + (y1 - y0) * step / 20
                lon, lat, _ = change.TransformPoint(X0 + x, Y0 + y)
                file.write(f'<trkpt lat="{lat:.8f}" lon="{lon:.8f}"><ele>{ground(x, y):.2f}</ele></trkpt>\n')
        file.write("</trkseg></trk>\n</gpx>\n")


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    place = lambda name: os.path.join(folder, name)
    write_points(place("vallon.csv"))
    write_rock(place("vallon-roc.csv"))
    write_drawing(place("vallon.dxf"))
    write_raster(place("vallon.tif"), "GTiff")
    write_raster(place("vallon.asc"), "AAIGrid")
    write_landxml(place("vallon.xml"))
    write_track(place("vallon.gpx"))


if __name__ == "__main__":
    main()
