#pragma once
// The calibration files beside a map image: the common input, the derived
// corners and measures, the text of every sidecar, and the run that writes
// them one after the other so that one export serves many map programs.
#include <string>
#include <vector>

namespace ortelix {

class Session;

// What every writer takes. Corners in WGS 84 degrees; KartenMeridian is a
// central meridian in degrees, or 1000 (latitude/longitude), or 2000 (UTM).
struct Kalibrierung {
    std::string BildDatei;  // full path of the image; every file name is formed from it
    double BildBreite = 0, BildHoehe = 0;  // pixels; writers take the integer part
    double LaengeWest = 0, BreiteNord = 0;  // top left
    double LaengeOst = 0, BreiteSued = 0;   // bottom right
    double KartenMeridian = 1000;
};

// The derived values of one image.
struct KartenAbmessung {
    double LaengeOR = 0, BreiteOR = 0;  // top right
    double LaengeUL = 0, BreiteUL = 0;  // bottom left
    double KmHoehe = 0, KmBreite = 0;
    double MeterProPixelNord = 0, MeterProPixelOst = 0;  // untouched for a width or height of 0
};

// 1000 and 2000: a rectangle in degrees, measured by great-circle distances
// along the north and west edges. Any other meridian: the two given corners
// are squared on the Transverse Mercator grid of that meridian (WGS 84
// degrees taken as they are, as the export plan does), and the other two
// corners come back from the grid.
KartenAbmessung BerechneKalibrierung(double KartenMeridian, const Kalibrierung& k);

// True for a central meridian, false for 1000 and 2000.
bool IstMeridian(double KartenMeridian);

// The texts, in UTF-8; the run encodes them to Windows-1252. Every line ends
// with CR LF, the last too.
std::string KalibrierungsBericht(const Kalibrierung& k);  // _Kalibrierung.txt
std::string KaliLocText(const Kalibrierung& k);           // _Kali.loc
std::string GmiText(const Kalibrierung& k);               // .gmi
std::string KalText(const Kalibrierung& k);               // .kal
std::string GeoText(const Kalibrierung& k);               // .geo
std::string CalKompassText(const Kalibrierung& k);        // .cal_Kompass
// `extension` is the image type the calibration names (without the point);
// empty for the image's own.
std::string McxText(const Kalibrierung& k, const std::string& extension);  // .mcx

// The Gauss-Krueger sidecars of a numeric meridian, from the corners through
// the WGS 84 to Gauss-Krueger conversion at that meridian.
struct WeltDatei {
    double PixelX = 0, PixelY = 0;  // metres a pixel; PixelY is negative
    double Ost = 0, Nord = 0;       // top left corner
};
WeltDatei BerechneWeltDatei(const Kalibrierung& k);
std::string PrjText(const Kalibrierung& k);  // .prj, Transverse Mercator on Potsdam
std::string JgwText(const Kalibrierung& k);  // .jgw world file
std::string ErsText(const Kalibrierung& k, const std::string& datum, const std::string& projection);  // .ers
// The .prj of the generic form; `units`: 0 INVALID, 1 and 2 DEGREES, 3 FEET, else METERS.
std::string PrjAllgemein(const std::string& projection, const std::string& datum, int units);
// "TMGER3" for meridian 9: the name ER Mapper gives a Gauss-Krueger strip.
std::string TmgerName(double KartenMeridian);

// The image types of the export's list: row 0 "unverändert" keeps the
// image's own extension, the others name "ozf2", "gif", "tif", "ecw", "jpg".
std::string BildTypText(int listRow);

// One export's calibration: the .map (margin in pixels as the number field
// has it), then every sidecar in the order of the calls. Each file goes
// through its own guarded write: a failure shows "Die Daten können nicht
// gespeichert werden." with its cause and the next file is still written.
// `written` gets each path that was written, in that order. False when any
// file failed. Nothing is written for an empty BildDatei.
struct KalibrierungsLauf {
    std::string margin = "0";  // ZahlInput(8)
    int bildTyp = 0;           // List(2)
};
bool SchreibeKalibrierung(Session& s, const Kalibrierung& k, const KalibrierungsLauf& lauf,
                          std::vector<std::string>& written);

}  // namespace ortelix
