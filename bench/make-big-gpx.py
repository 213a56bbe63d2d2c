#!/usr/bin/env python3
"""Writes a large GPX 1.0 track for the benchmarks: make-big-gpx.py OUT [POINTS] [SEED].

The track wanders through southern Germany at walking to cycling pace with a
fix every second, elevation, speed, course and satellites, so that every
field of the reader is exercised and "Optimal" reduction has real work."""
import math
import random
import sys


def main():
    out = sys.argv[1]
    points = int(sys.argv[2]) if len(sys.argv) > 2 else 1_000_000
    rng = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 7)
    lat, lon, heading, ele = 48.137, 11.575, 45.0, 520.0
    t0 = 1139926990  # 2006-02-14T14:23:10Z
    per_segment = 20_000
    with open(out, "w", encoding="ascii", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="UTF-8"?>\n')
        f.write('<gpx version="1.0" creator="make-big-gpx" xmlns="http://www.topografix.com/GPX/1/0">\n')
        f.write("<trk><name>Bench</name>\n<trkseg>\n")
        for i in range(points):
            if i and i % per_segment == 0:
                f.write("</trkseg>\n<trkseg>\n")
            speed = 2.0 + 4.0 * rng.random()  # m/s
            heading = (heading + rng.gauss(0, 4)) % 360
            d = speed / 111_320.0
            lat += d * math.cos(math.radians(heading))
            lon += d * math.sin(math.radians(heading)) / math.cos(math.radians(lat))
            ele += rng.gauss(0, 0.4)
            t = t0 + i
            days, secs = divmod(t, 86400)
            # civil date of days since 1970-01-01
            z = days + 719468
            era = z // 146097
            doe = z - era * 146097
            yoe = (doe - doe // 1460 + doe // 36524 - doe // 146096) // 365
            y = yoe + era * 400
            doy = doe - (365 * yoe + yoe // 4 - yoe // 100)
            mp = (5 * doy + 2) // 153
            day = doy - (153 * mp + 2) // 5 + 1
            month = mp + 3 if mp < 10 else mp - 9
            y += month <= 2
            f.write(
                f'<trkpt lat="{lat:.7f}" lon="{lon:.7f}"><ele>{ele:.1f}</ele>'
                f"<time>{y:04d}-{month:02d}-{day:02d}T{secs // 3600:02d}:{secs // 60 % 60:02d}:{secs % 60:02d}Z</time>"
                f"<course>{heading:.1f}</course><speed>{speed:.2f}</speed><sat>{rng.randint(4, 12)}</sat></trkpt>\n"
            )
        f.write("</trkseg>\n</trk>\n</gpx>\n")


if __name__ == "__main__":
    main()
