#!/usr/bin/env python3
"""A profile of 10 km across a grid of 10,000 x 10,000 altitudes: whole processes, beside gdallocationinfo and GRASS.

    bancs/surfaces/compare.py KAVEL

gdallocationinfo (gdal-bin) is asked for the altitude at every metre, then at as many places as the program gives: those where the axis
passes from one cell to the next, with the altitude between four.
r.profile of GRASS (grass-core), where it is there, reads the same file at every metre, within a session that is open already.
Needs python3-gdal. Prints the median time of five runs and the greatest memory of each.
"""
import math
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import numpy
from osgeo import gdal

SIDE, A, B = 10000, (150.3, 220.7), (8900.1, 5000.9)


def grid(path):
    file = gdal.GetDriverByName("GTiff").Create(path, SIDE, SIDE, 1, gdal.GDT_Float32, options=["TILED=YES", "COMPRESS=DEFLATE", "PREDICTOR=3"])
    file.SetGeoTransform((0, 1, 0, SIDE, 0, -1))
    columns = numpy.arange(SIDE)
    for row in range(0, SIDE, 250):
        rows = numpy.arange(row, row + 250)[:, None]
        file.GetRasterBand(1).WriteArray((200 + 20 * numpy.sin(columns / 300) + 15 * numpy.cos(rows / 450)).astype("float32"), 0, row)


def measure(command, text=None):
    times, output = [], ""
    for _ in range(5):
        start = time.perf_counter()
        run = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        output = run.communicate(text)[0]
        times.append(time.perf_counter() - start)
    timed = subprocess.run(["/usr/bin/time", "-f", "%M", *command], input=text, capture_output=True, text=True, check=False)
    memory = int(timed.stderr.split()[-1]) // 1024
    return statistics.median(times), memory, output


def grass(path):
    """The median time of r.profile alone, and its number of points."""
    text = (f"r.external -o input={path} output=g --quiet; g.region raster=g; for i in 1 2 3 4 5; do /usr/bin/time -f %e "
            f"r.profile -g input=g coordinates={A[0]},{A[1]},{B[0]},{B[1]} output={path}.txt --overwrite --quiet; done")
    done = subprocess.run(["grass", "--tmp-location", "XY", "--exec", "bash", "-c", text], capture_output=True, text=True, check=False)
    times = [float(line) for line in done.stderr.splitlines() if line.replace(".", "", 1).isdigit()]
    with open(path + ".txt", encoding="ascii") as file:
        return statistics.median(times), len(file.readlines())


def main():
    kavel = os.path.abspath(sys.argv[1])
    length = math.dist(A, B)
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "g.tif")
        grid(path)
        def places(number):
            return "".join(f"{A[0] + (B[0] - A[0]) * i / (number - 1)} {A[1] + (B[1] - A[1]) * i / (number - 1)}\n" for i in range(number))
        program = os.path.join(folder, "p.lsp")
        with open(program, "w", encoding="utf-8") as file:
            file.write(f'(setq r (et_terrain (list (list (list {A[0]} {A[1]} 0.0 0.0) (list {B[0]} {B[1]} 0.0 0.0))) (list (list "fichier" "{path}"))'
                       ' (list (list "tolerance" 0))))(princ (length (cadr (caar r))))(princ)')
        peer = ["gdallocationinfo", "-valonly", "-geoloc", path]
        for name, command, text in (("kavel", [kavel, "--no-frontal", "--quiet", "-l", program], None),
                                    ("gdallocationinfo", peer, places(int(length) + 1)), ("gdallocationinfo", peer, places(13532))):
            seconds, megabytes, output = measure(command, text)
            print(f"{name:18} {seconds:7.3f} s {megabytes:6} MB  {output.split()[-1] if name == 'kavel' else len(output.split())} points")
        if shutil.which("grass"):
            seconds, points = grass(path)
            print(f"{'r.profile':18} {seconds:7.3f} s            {points} points")


if __name__ == "__main__":
    sys.exit(main())
