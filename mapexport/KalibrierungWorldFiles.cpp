// The world file and ECW sidecars of a Gauss-Krueger map image: .prj, .jgw, .ers.
#include <cmath>

#include "mapexport/Kalibrierung.h"

#include "coordinates/GaussKrueger.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {

void Line(std::string& out, std::string_view text) {
    out += text;
    out += "\r\n";
}

std::string Fix17(double v) { return FormatFixed(v, 17); }

// The strip number: the integer part of the meridian divided by 3.
long Streifen(double meridian) { return static_cast<long>(std::trunc(meridian / 3)); }

// Degrees as "D M S.sss": 9 gives "9 0 0.000", 7.5 "7 30 0.000".
std::string GradMinSekText(double deg) {
    const double a = std::fabs(deg);
    // Whole thousandths of a second, so that the carry goes into the minutes.
    const double milli = std::round(a * 3600000);
    const double d = std::floor(milli / 3600000);
    const double m = std::floor((milli - d * 3600000) / 60000);
    const double sec = (milli - d * 3600000 - m * 60000) / 1000;
    std::string out = deg < 0 && milli > 0 ? "-" : "";
    out += FormatFixed(d, 0) + " " + FormatFixed(m, 0) + " " + FormatFixed(sec, 3);
    return out;
}

}  // namespace

std::string TmgerName(double KartenMeridian) { return "TMGER" + std::to_string(Streifen(KartenMeridian)); }

WeltDatei BerechneWeltDatei(const Kalibrierung& k) {
    double R1, H1, R2, H2;
    WGS84NachGKMeridian(k.LaengeWest, k.BreiteNord, k.KartenMeridian, R1, H1);
    WGS84NachGKMeridian(k.LaengeOst, k.BreiteSued, k.KartenMeridian, R2, H2);
    const double w = std::trunc(k.BildBreite), h = std::trunc(k.BildHoehe);
    WeltDatei d;
    d.PixelX = w != 0 ? (R2 - R1) / w : 0;
    d.PixelY = h != 0 ? (H2 - H1) / h : 0;
    d.Ost = R1;
    d.Nord = H1;
    return d;
}

std::string PrjAllgemein(const std::string& projection, const std::string& datum, int units) {
    const char* u = units == 0 ? "INVALID" : units == 1 || units == 2 ? "DEGREES" : units == 3 ? "FEET" : "METERS";
    std::string out;
    Line(out, "Projection     " + projection);
    Line(out, "Datum          " + datum);
    Line(out, std::string("Units          ") + u);
    return out;
}

std::string PrjText(const Kalibrierung& k) {
    std::string out;
    Line(out, "Projection     TRANSVERSE");
    Line(out, "Datum          POTSDAM");
    Line(out, "Zunits         NO");
    Line(out, "Units          METERS");
    Line(out, "Xshift         0.000000");
    Line(out, "Yshift         0.000000");
    Line(out, "Parameters     ");
    Line(out, "1.000000000 /* scale factor at central meridian");
    Line(out, GradMinSekText(k.KartenMeridian) + " /* central meridian");
    Line(out, "0 0 0.000 /* latitude of the origin");
    Line(out, FormatFixed(500000.0 + 1000000.0 * static_cast<double>(Streifen(k.KartenMeridian)), 3) +
                  " /* false easting (meters)");
    Line(out, "0.000 /* false northing (meters)");
    return out;
}

std::string JgwText(const Kalibrierung& k) {
    const WeltDatei d = BerechneWeltDatei(k);
    std::string out;
    Line(out, Fix17(d.PixelX));
    Line(out, "0");
    Line(out, "0");
    Line(out, Fix17(d.PixelY));
    Line(out, Fix17(d.Ost));
    Line(out, Fix17(d.Nord));
    return out;
}

std::string ErsText(const Kalibrierung& k, const std::string& datum, const std::string& projection) {
    const WeltDatei d = BerechneWeltDatei(k);
    const std::string name = SplitPath(k.BildDatei, 2);
    const std::string w = std::to_string(static_cast<long>(k.BildBreite));
    const std::string h = std::to_string(static_cast<long>(k.BildHoehe));
    std::string out;
    Line(out, "DatasetHeader Begin");
    Line(out, "    Version     = \"7.0\" ");
    Line(out, "    Name        = \"" + name + "\"");
    Line(out, "    SourceDataset   = \"" + name + "\"");
    Line(out, "    DataFile    = \"" + name + "\"");
    Line(out, "    DataSetType = Translated");
    Line(out, "    DataType    = Raster");
    Line(out, "    ByteOrder   = LSBFirst");
    Line(out, "    CoordinateSpace Begin");
    Line(out, "        Datum       = \"" + datum + "\"");
    Line(out, "        Projection  = \"" + projection + "\"");
    Line(out, "        CoordinateType  = EN");
    Line(out, "        Rotation    = 0:0:0.0");
    Line(out, "    CoordinateSpace End");
    Line(out, "    RasterInfo Begin");
    Line(out, "        CellType    = Unsigned8BitInteger");
    Line(out, "        CellInfo Begin");
    Line(out, "            Xdimension  = " + Fix17(std::fabs(d.PixelX)));
    Line(out, "            Ydimension  = " + Fix17(std::fabs(d.PixelY)));
    Line(out, "        CellInfo End");
    Line(out, "        NrOfLines   = " + h);
    Line(out, "        NrOfCellsPerLine    = " + w);
    Line(out, "        RegistrationCoord Begin");
    Line(out, "            Eastings    = " + Fix17(d.Ost));
    Line(out, "            Northings   = " + Fix17(d.Nord));
    Line(out, "        RegistrationCoord End");
    Line(out, "        RegistrationCellX   = 0.5");
    Line(out, "        RegistrationCellY   = 0.5");
    Line(out, "        NrOfBands   = 3");
    for (const char* band : {"Red", "Green", "Blue"}) {
        Line(out, "        BandId Begin");
        Line(out, std::string("            Value       = \"") + band + "\" ");
        Line(out, "        BandId End");
    }
    Line(out, "        RegionInfo Begin");
    Line(out, "            Type        = Polygon");
    Line(out, "            RegionName  = \"All\" ");
    Line(out, "            SubRegion   = {");
    Line(out, "                0   0");
    Line(out, "                0   " + h);
    Line(out, "                " + w + "    " + h);
    Line(out, "                " + w + "    0");
    Line(out, "            }");
    Line(out, "        RegionInfo End");
    Line(out, "    RasterInfo End");
    Line(out, "DatasetHeader End");
    return out;
}

}  // namespace ortelix
