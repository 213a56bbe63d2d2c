#!/usr/bin/env python3
"""Writes a GPX file shaped to cost a careless reader: make-hostile-gpx.py OUT SHAPE [COUNT].

Shapes (COUNT defaults to the size at which each once took tens of seconds):
  ampersands    one waypoint name of COUNT times "&x": "&" that never ends in ";"  (2,000,000: 4 MB)
  unclosed-ele  COUNT track points whose <ele> is never closed                     (80,000)
  distinct-days COUNT track points, each on a day of its own from 1900 on          (400,000)
  mixed         all three at a tenth of their size, with a trk of many segments
                and no name, waypoints and routes: a seed for the fuzzers"""
import datetime
import sys

DEFAULTS = {"ampersands": 2_000_000, "unclosed-ele": 80_000, "distinct-days": 400_000, "mixed": 0}


def ampersands(f, n):
    f.write('<wpt lat="48.5" lon="11.5"><name>')
    f.write("&x" * n)
    f.write("</name></wpt>\n")


def unclosed_ele(f, n):
    f.write("<trk><name>offen</name><trkseg>\n")
    for i in range(n):
        f.write(f'<trkpt lat="{48 + i * 1e-5:.6f}" lon="11.500000"><ele>{500 + i % 100}</trkpt>\n')
    f.write("</trkseg></trk>\n")


def distinct_days(f, n):
    day0 = datetime.date(1900, 1, 1)
    f.write("<trk><name>Tage</name><trkseg>\n")
    for i in range(n):
        d = day0 + datetime.timedelta(days=i)
        f.write(f'<trkpt lat="{47 + i * 1e-6:.6f}" lon="9.000000"><time>{d.isoformat()}T12:00:00Z</time></trkpt>\n')
    f.write("</trkseg></trk>\n")


def many_segments(f, n):
    # A track without a name whose segments each hold one point.
    f.write("<trk>\n")
    for i in range(n):
        f.write(f'<trkseg><trkpt lat="50.{i:06d}" lon="8.5"><speed>{i % 40}</speed></trkpt></trkseg>\n')
    f.write("</trk>\n")


def routes_and_short(f, n):
    f.write("<rte><name>R &amp; S</name>\n")
    for i in range(n):
        f.write(f'<rtept lat="49.{i:06d}" lon="7.5"><name>P{i} &lt;{i}&gt;</name><cmt><![CDATA[a<b>]]></cmt></rtept>\n')
    f.write("</rte>\n<route><name>kurz</name>\n")
    for i in range(n):
        f.write(f"<rwp><lon>7,{i:06d}</lon><lat>49.5</lat><name>K{i}</name><date>16.02.2006</date></rwp>\n")
    f.write("</route>\n")
    for i in range(n):
        f.write(f'<wpt lat="46.{i:06d}" lon="6.5"><name>W{i}</name><time>12:00:{i % 60:02d}Z</time></wpt>\n')


def main():
    out, shape = sys.argv[1], sys.argv[2]
    if shape not in DEFAULTS:
        sys.exit(f"unknown shape {shape}; known: {', '.join(DEFAULTS)}")
    n = int(sys.argv[3]) if len(sys.argv) > 3 else DEFAULTS[shape]
    with open(out, "w", encoding="ascii", newline="\n") as f:
        f.write('<?xml version="1.0" encoding="UTF-8"?>\n<gpx version="1.0" creator="make-hostile-gpx">\n')
        if shape == "ampersands":
            ampersands(f, n)
        elif shape == "unclosed-ele":
            unclosed_ele(f, n)
        elif shape == "distinct-days":
            distinct_days(f, n)
        else:
            ampersands(f, DEFAULTS["ampersands"] // 10)
            unclosed_ele(f, DEFAULTS["unclosed-ele"] // 10)
            distinct_days(f, DEFAULTS["distinct-days"] // 10)
            many_segments(f, 5000)
            routes_and_short(f, 2000)
        f.write("</gpx>\n")


if __name__ == "__main__":
    main()
