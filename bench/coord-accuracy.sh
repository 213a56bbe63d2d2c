#!/bin/sh
# Compares the coordinate routines of `ortelix coord` with PROJ over a grid
# of points across Germany and Switzerland and prints the largest
# differences in metres: Gauss-Krueger and UTM against cs2cs, the Swiss grid
# against cs2cs EPSG:21781, the geoid against cct +proj=vgridshift.
# Usage: bench/coord-accuracy.sh [BUILD_DIR]   (needs proj-bin, proj-data)
set -eu
BUILD=${1:-build}
ORTELIX=$(cd "$BUILD" && pwd)/ortelix
command -v cs2cs >/dev/null || { echo "cs2cs fehlt (proj-bin)"; exit 1; }
export ORTELIX ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen
exec python3 - <<'PY'
import math, os, subprocess

ORTELIX = os.environ["ORTELIX"]

def run(cmd, lines):
    out = subprocess.run(cmd, input="".join(l + "\n" for l in lines), capture_output=True, text=True, check=True)
    return [l.split() for l in out.stdout.splitlines() if l.strip()]

def coord(op, lines, *flags):
    return run([ORTELIX, "coord", op, *flags], lines)

def cs2cs(src, dst, lines):
    return run(["cs2cs", "-f", "%.6f", src, dst], lines)

def metres(lon1, lat1, lon2, lat2):
    dy = (lat2 - lat1) * 111195
    dx = (lon2 - lon1) * 111195 * math.cos(math.radians(lat1))
    return math.hypot(dx, dy)

def frange(a, b, step):
    v = a
    while v <= b + 1e-9:
        yield round(v, 6)
        v += step

germany = [(lon, lat) for lon in frange(6.0, 15.0, 0.5) for lat in frange(47.5, 55.0, 0.5)]
swiss = [(lon, lat) for lon in frange(6.0, 10.4, 0.2) for lat in frange(45.9, 47.7, 0.1)]
report = []

# Gauss-Krueger: PROJ's DHDN zones 2 to 5 (EPSG:31466-31469) with its own best datum shift.
gk = coord("wgs84-gk", [f"{lon} {lat}" for lon, lat in germany])
refs = [None] * len(germany)
for zone in sorted({int(float(R) // 1e6) for R, _ in gk}):
    idx = [i for i, (R, _) in enumerate(gk) if int(float(R) // 1e6) == zone]
    out = cs2cs("EPSG:4326", f"EPSG:{31464 + zone}", [f"{germany[i][1]} {germany[i][0]}" for i in idx])
    for i, r in zip(idx, out):
        refs[i] = (float(r[1]), float(r[0]))  # cs2cs writes northing, then easting here
worst = max(math.hypot(float(R) - rR, float(H) - rH) for (R, H), (rR, rH) in zip(gk, refs))
back = coord("gk-wgs84", [f"{rR} {rH}" for rR, rH in refs])
worst_back = max(metres(lon, lat, float(b[0]), float(b[1])) for (lon, lat), b in zip(germany, back))
report.append(("Gauss-Krueger WGS84 -> R/H  (cs2cs EPSG:3146x)", worst))
report.append(("Gauss-Krueger R/H -> WGS84  (cs2cs EPSG:3146x)", worst_back))
# UTM on WGS 84.
both = germany + swiss
utm = coord("wgs84-utm", [f"{lon} {lat}" for lon, lat in both])
refs = [None] * len(both)
for zone in sorted({int(f[0][:-1]) for f in utm}):
    idx = [i for i, f in enumerate(utm) if int(f[0][:-1]) == zone]
    out = run(["cs2cs", "-f", "%.6f", "+proj=longlat", "+datum=WGS84", "+to", "+proj=utm", f"+zone={zone}",
               "+datum=WGS84"], [f"{both[i][0]} {both[i][1]}" for i in idx])
    for i, r in zip(idx, out):
        refs[i] = (float(r[0]), float(r[1]))
worst = max(math.hypot(float(f[1]) - rE, float(f[2]) - rN) for f, (rE, rN) in zip(utm, refs))
back = coord("utm-wgs84", [" ".join(f) for f in utm])
worst_back = max(metres(lon, lat, float(b[0]), float(b[1])) for (lon, lat), b in zip(both, back))
report.append(("UTM WGS84 -> E/N, whole metres  (cs2cs +proj=utm)", worst))
report.append(("UTM E/N -> WGS84  (own text back)", worst_back))

# Swiss grid (system 3) against the oblique Swiss projection LV03.
grid = coord("wgs84-grid", [f"{lon} {lat}" for lon, lat in swiss], "--system", "3")
refs = cs2cs("EPSG:4326", "EPSG:21781", [f"{lat} {lon}" for lon, lat in swiss])
worst = worst_back = 0.0
for (lon, lat), (E, N), ref in zip(swiss, grid, refs):
    worst = max(worst, math.hypot(float(E) - float(ref[0]), float(N) - float(ref[1])))
back = coord("grid-wgs84", [f"{r[0]} {r[1]}" for r in refs], "--system", "3")
for (lon, lat), (blon, blat) in zip(swiss, back):
    worst_back = max(worst_back, metres(lon, lat, float(blon), float(blat)))
report.append(("Swiss grid WGS84 -> E/N  (cs2cs EPSG:21781)", worst))
report.append(("Swiss grid E/N -> WGS84  (cs2cs EPSG:21781)", worst_back))

# Geoid: nearest node against PROJ's bilinear interpolation, and at the nodes.
pts = germany + swiss
ours = coord("geoid", [f"{lon} {lat}" for lon, lat in pts])
ref = run(["cct", "-d", "4", "+proj=vgridshift", "+grids=egm96_15.gtx"], [f"{lon} {lat} 0" for lon, lat in pts])
worst = max(abs(float(o[0]) + float(r[2])) for o, r in zip(ours, ref))
nodes = [(lon, lat) for lon in frange(6.0, 15.0, 0.25) for lat in frange(45.75, 55.0, 0.25)]
ours = coord("geoid", [f"{lon} {lat}" for lon, lat in nodes])
ref = run(["cct", "-d", "4", "+proj=vgridshift", "+grids=egm96_15.gtx"], [f"{lon} {lat} 0" for lon, lat in nodes])
worst_nodes = max(abs(float(o[0]) + float(r[2])) for o, r in zip(ours, ref))
report.append(("Geoid, any point (nearest node vs. cct bilinear)", worst))
report.append(("Geoid at grid nodes (centimetre storage)", worst_nodes))

# Datum shift of helmert.dat's DHDN row against the same parameters in PROJ
# (exact rotations, the point's own height 0 instead of the fixed heights).
ours = coord("datum-wgs84", [f"{lon} {lat}" for lon, lat in germany], "--datum", "Potsdam (DHDN)")
ref = run(["cs2cs", "-f", "%.9f", "+proj=longlat", "+ellps=bessel", "+towgs84=598.1,73.7,418.2,0.202,0.045,-2.455,6.7",
           "+to", "+proj=longlat", "+datum=WGS84"], [f"{lon} {lat}" for lon, lat in germany])
worst = max(metres(float(o[0]), float(o[1]), float(r[0]), float(r[1])) for o, r in zip(ours, ref))
report.append(("Datum DHDN -> WGS84  (cs2cs +towgs84, same values)", worst))
ours = coord("wgs84-datum", [f"{lon} {lat}" for lon, lat in germany], "--datum", "Potsdam (DHDN)")
ref = run(["cs2cs", "-f", "%.9f", "+proj=longlat", "+datum=WGS84", "+to", "+proj=longlat", "+ellps=bessel",
           "+towgs84=598.1,73.7,418.2,0.202,0.045,-2.455,6.7"], [f"{lon} {lat}" for lon, lat in germany])
worst = max(metres(float(o[0]), float(o[1]), float(r[0]), float(r[1])) for o, r in zip(ours, ref))
report.append(("Datum WGS84 -> DHDN  (cs2cs +towgs84, same values)", worst))

# Entfernung against the geodesic of geod, far (to 10 E 51 N) and near (100 m north-east).
pairs = [(lon, lat, 10.0, 51.0) for lon, lat in germany if (lon, lat) != (10.0, 51.0)]
pairs += [(lon, lat, lon + 0.0009, lat + 0.0006) for lon, lat in germany]
ours = coord("distance", [" ".join(map(str, p)) for p in pairs])
ref = run(["geod", "+ellps=WGS84", "-I", "+units=m", "-f", "%.4f"], [f"{p[1]} {p[0]} {p[3]} {p[2]}" for p in pairs])
far = max(abs(float(o[0]) - float(r[2])) / float(r[2]) for o, r, p in zip(ours, ref, pairs) if p[2] == 10.0)
near = max(abs(float(o[0]) - float(r[2])) / float(r[2]) for o, r, p in zip(ours, ref, pairs) if p[2] != 10.0)
report.append(("Entfernung far, relative  (geod -I, up to 600 km)", far))
report.append(("Entfernung near, relative  (geod -I, about 100 m)", near))

print(f"{len(germany)} points in Germany, {len(swiss)} in Switzerland; largest differences:")
for name, value in report:
    unit = "" if "relative" in name else " m"
    print(f"  {name:52s} {value:10.3f}{unit}" if unit else f"  {name:52s} {value:10.2e}")
PY
