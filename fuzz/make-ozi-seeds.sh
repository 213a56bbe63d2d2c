#!/usr/bin/env bash
# Writes large OziExplorer seeds (a few MB each) into DIR/ozi_plt, DIR/ozi_wpt,
# DIR/ozi_rte, DIR/ozi_rt2 and DIR/ozi_map, so that the fuzzers reach the
# costs that grow with the size of a file: long tracks, many waypoints and
# routes, and files of empty records. They are made at fuzz time rather than
# kept in git. Give the fuzzer -max_len of at least 8 MB.
# Usage: fuzz/make-ozi-seeds.sh DIR
set -euo pipefail
out=${1:?usage: make-ozi-seeds.sh DIR}
mkdir -p "$out"/ozi_plt "$out"/ozi_wpt "$out"/ozi_rte "$out"/ozi_rt2 "$out"/ozi_map
python3 - "$out" <<'EOF'
import os, sys

out = sys.argv[1]

def seed(folder, name, make):
    path = os.path.join(out, folder, name)
    if os.path.exists(path) and os.path.getsize(path) > 0:
        return
    with open(path + ".tmp", "wb") as f:
        f.write(make().encode("cp1252"))
    os.replace(path + ".tmp", path)

def place(i):
    # A walk over Hesse: distinct positions, a few metres apart.
    return 50.0 + (i % 5000) * 0.0001, 8.0 + i * 0.00003

def track(n):
    lines = ["OziExplorer Track Point File Version 2.1", "WGS 84", "Altitude is in Feet", "Reserved 3",
             "0,2,16711935,gross,1,1,0,8421376", str(n)]
    for i in range(n):
        lat, lon = place(i)
        lines.append(" %.6f, %.6f, 0, %d, %.7f, 16.02.2006, 16:23:10" % (lat, lon, 300 + i % 700, 38764 + i / 86400.0))
    return "\r\n".join(lines) + "\r\n"

def waypoints(n):
    lines = ["OziExplorer Waypoint File Version 1.1", "WGS 84", "Reserved 2", "garmin"]
    for i in range(n):
        lat, lon = place(i)
        lines.append("%d,P%d Hütte\xd1 Weg,%.6f,%.6f,%.5f,0,1,2,0,65535,Beschreibung %d,0,0,0,%d," %
                     (i + 1, i, lat, lon, 38764 + i / 1000.0, i, i % 3000 - 777))
    return "\r\n".join(lines) + "\r\n"

def empty_records(header, line, n):
    return "\r\n".join(header) + "\r\n" + (line + "\r\n") * n

def routes(n_routes, per_route):
    lines = ["OziExplorer Route File Version 1.0", "WGS 84", "Reserved 1", "Reserved 2",
             "R,  0,R0              ,,255"]
    k = 0
    for r in range(1, n_routes + 1):
        lines.append("R,%d,R%d,16.02.2006,255" % (r, r))
        for _ in range(per_route):
            k += 1
            lat, lon = place(k)
            lines.append("W,%d,%d,%d,W%d,%.6f,%.6f,38764.5,0,1,2,0,65535,Punkt %d,0,0" % (r, r, k, k, lat, lon, k))
    return "\r\n".join(lines) + "\r\n"

def ce_route(n):
    lines = ["H1,OziExplorer CE Route2 File Version 1.0", "H2,WGS 84", "H3,gross,,0"]
    for i in range(n):
        lat, lon = place(i)
        lines.append("W,P%d,%.6f  ,%.6f  ,%d" % (i, lat, lon, i % 2))
    return "\r\n".join(lines) + "\r\n"

def map_comments(n):
    lines = ["OziExplorer Map Data File Version 2.2", "Gross", "gross.bmp", "1 ,Map Code,"]
    for i in range(n):
        lat, lon = place(i)
        if i % 2:
            lines += ["MC,%d,%.6f,%.6f" % (i, lat, lon), "\"Kommentar %d\"" % i]
        else:
            lines += ["MF,%d,Burg %d,%.6f,%.6f,a,b,c,Ruine" % (i, i, lat, lon), "eins", "Text %d" % i]
    for c in range(1, 5):
        lines.append("MMPLL,%d, 8.000000, 50.000000" % c)
    return "\r\n".join(lines) + "\r\n"

seed("ozi_plt", "large-track.plt", lambda: track(80000))
seed("ozi_plt", "large-empty-lines.plt", lambda: empty_records(
    ["OziExplorer Track Point File Version 2.1", "WGS 84", "Altitude is in Feet", "Reserved 3",
     "0,2,16711935,leer,1,1,0,8421376", "999999999"], "1", 1500000))
seed("ozi_wpt", "large-waypoints.wpt", lambda: waypoints(50000))
seed("ozi_wpt", "large-empty-records.wpt", lambda: empty_records(
    ["OziExplorer Waypoint File Version 1.1", "WGS 84", "Reserved 2", "garmin"], "1", 2000000))
seed("ozi_rte", "large-routes.rte", lambda: routes(500, 100))
seed("ozi_rte", "large-empty-points.rte", lambda: routes(1, 1) + "W\r\n" * 2000000)
seed("ozi_rt2", "large-route.rt2", lambda: ce_route(80000))
seed("ozi_rt2", "large-empty-points.rt2", lambda: "W\r\n" * 2000000)
seed("ozi_map", "large-comments.map", lambda: map_comments(60000))
EOF
