#pragma once
// The ASCII overlay of the Top50 map viewer (Geogrid Viewer), ".ovl": tracks
// and routes as line symbols, waypoints as picture or shape symbols with
// texts beside them, areas as area symbols. Plain text, CR LF, Windows-1252.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;

inline constexpr const char* kOvlNoSymbols = "Es sind keine Symbole vorhanden.";
inline constexpr const char* kOvlNoSymbolsTitle = "Top50 OVL Speichern";
inline constexpr const char* kOvlPictureTitle = "Bild-Datei auswählen";
inline constexpr const char* kOvlPictureFilter =
    "Bitmap-Dateien (*.bmp)|*.bmp|GIF-Dateien (*.gif)|*.gif|JPEG-Dateien(*.jpg)|*.jpg|Metafile-Format (*.wmf)|*.wmf";

// Where the overlay stands on the map and what the bitmap symbols show.
struct OvlPlace {
    std::string mapName;       // MapName=, the internal map code
    bool hasCentre = false;    // false: the middle of the data's box
    double centreLon = 0, centreLat = 0;
    std::string picturePath;   // Path= of bitmap symbols, as TopBilderSichern left it
};

// The whole overlay of the store as bytes, handed out in slices to `emit`.
// Returns the count of symbol sections; 0 means nothing was emitted.
struct OvlCounts {
    int lines = 0, points = 0, texts = 0, areas = 0, symbols = 0;
};
OvlCounts Top50OvlProduce(Session& s, const OvlPlace& place, const std::function<void(std::string&)>& emit);
// The same into one string (tests, small overlays).
std::string Top50OvlText(Session& s, const OvlPlace& place, OvlCounts* counts = nullptr);

// The writer of the command: the map and centre from the map choice, the
// bitmap copied beside the target, "Fertig: LOG=..." at the end. With no
// symbol at all an empty file stays and "Es sind keine Symbole vorhanden." is shown.
void Top50OvlSchreiben(Session& s, const std::string& file);

// The picture of the bitmap symbols as the overlay names it: a picture
// outside the viewer's bitmap folder is copied into "bitmap/" beside the
// target (with ".bmp" when it has no extension) and named by that path.
// An empty picture gives the empty text.
std::string TopBilderSichern(const std::string& picture, const std::string& bitmapFolder, const std::string& target);

// Reads an overlay: lines become routes "R<n>-<base name>", areas their
// first and third corners, symbols and texts waypoints in file order.
void Top50Lesen(Session& s, const std::string& file);
void Top50LesenText(Session& s, std::string_view bytes, std::string_view baseName);

// One rectangle of the export plan, in WGS 84 degrees.
struct OvlRechteck {
    double west = 0, north = 0, east = 0, south = 0;
};
// The check overlay of the export plan: baseName + "_Check.ovl", one area
// and one number text per part ("<base name>_01", ...), then the closing
// sections for the map.
std::string KartenCheckOvlText(const std::string& baseName, const std::vector<OvlRechteck>& teile,
                               const std::string& mapName);
void KartenCheckOvl(const std::string& baseName, const std::vector<OvlRechteck>& teile, const std::string& mapName);

}  // namespace ortelix
