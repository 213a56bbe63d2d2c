#pragma once
// The OziExplorer calibration file (.map) beside a map image: writing it for
// an exported part, and reading its corners back as areas.
#include <array>
#include <string>
#include <string_view>

namespace ortelix {

class Session;

// The projection modes of a map part: UTM, latitude/longitude, or else a
// central meridian in degrees (Transverse Mercator on a Gauss-Krueger strip).
inline constexpr double kModusUTM = 2000;
inline constexpr double kModusGeo = 1000;

// One image with its four corners in WGS 84.
struct OziMapDaten {
    std::string imageFile;
    double lonL = 0, latO = 0;    // top left
    double lonR = 0, latU = 0;    // bottom right
    double lonL2 = 0, latU2 = 0;  // bottom left
    double lonR2 = 0, latO2 = 0;  // top right
    double modus = kModusGeo;
    int width = 0, height = 0;    // pixels
    std::string margin;           // the margin text box, in pixels
    std::string imageType;        // selected entry of the image type list ("jpg"); empty for none
};

// The .map file's bytes.
std::string OziMapText(const OziMapDaten& d);
// Writes the image's path without extension + ".map".
void OziMapSchreiben(const OziMapDaten& d);

// The pieces of the calibration point lines.
std::string OziGrad(double x);     // whole degrees of |x|, right-aligned to four columns
std::string OziMinuten(double x);  // minutes of |x|: three columns, a point, six decimals

// What is read of a .map: title, image file and the MMPLL corners (lon, lat)
// 1 top left, 2 top right, 3 bottom right, 4 bottom left.
struct OziMapInfo {
    std::string title;
    std::string imageFile;
    std::array<std::array<double, 2>, 4> corners{};
};
OziMapInfo OziMapLesen(const std::string& file);
OziMapInfo OziMapLesenText(std::string_view bytes);

// Adds the area of one .map file; a folder adds one area per .map in it.
void OziMapEinlesen(Session& s, const std::string& fileOrFolder);
// The menu command: the chosen file, or with the dialog's second filter
// ("Alle Kalibrierungsdateien im Ordner") every .map of its folder.
void OziMapEinlesenAuswahl(Session& s, const std::string& file);

}  // namespace ortelix
