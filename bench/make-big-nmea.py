#!/usr/bin/env python3
"""Writes a large NMEA log for the benchmarks: make-big-nmea.py OUT [FIXES] [SEED].

One fix a second as a receiver logs it: an RMC and a GGA sentence each, with
their checksums, CR LF, wandering through southern Germany at walking to
cycling pace and crossing midnight every day, so the log holds many dates."""
import math
import random
import sys


def sentence(body):
    x = 0
    for c in body.encode("ascii"):
        x ^= c
    return "$%s*%02X\r\n" % (body, x)


def dm(value, width):
    a = abs(value)
    g = int(a)
    return "%0*.4f" % (width + 7, g * 100 + (a - g) * 60)


def main():
    out = sys.argv[1]
    fixes = int(sys.argv[2]) if len(sys.argv) > 2 else 1_000_000
    rng = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 7)
    lat, lon, heading, ele = 48.137, 11.575, 45.0, 520.0
    t = 14 * 3600 + 23 * 60 + 10
    day, month, year = 14, 2, 2006
    with open(out, "w", encoding="ascii", newline="") as f:
        buf = []
        for i in range(fixes):
            speed = 2.0 + 4.0 * rng.random()  # m/s
            heading = (heading + rng.gauss(0, 4)) % 360
            d = speed / 111_320.0
            lat += d * math.cos(math.radians(heading))
            lon += d * math.sin(math.radians(heading)) / math.cos(math.radians(lat))
            ele += rng.gauss(0, 0.3)
            t += 1
            if t == 86400:
                t = 0
                day += 1
                if day > 28:
                    day, month = 1, month + 1
            hms = "%02d%02d%02d.00" % (t // 3600, t // 60 % 60, t % 60)
            date = "%02d%02d%02d" % (day, month, year % 100)
            pos = "%s,%s,%s,%s" % (dm(lat, 2), "N", dm(lon, 3), "E")
            buf.append(sentence("GPRMC,%s,A,%s,%05.1f,%05.1f,%s,," % (hms, pos, speed * 3.6 / 1.852, heading, date)))
            buf.append(sentence("GPGGA,%s,%s,1,%02d,1.2,%.1f,M,47.5,M,," % (hms, pos, 5 + i % 8, ele)))
            if len(buf) >= 20000:
                f.write("".join(buf))
                buf.clear()
        f.write("".join(buf))


if __name__ == "__main__":
    main()
