#pragma once
// The Top50 map of an overlay: the table of maps (names.dat), the map code
// of a point (TopLand), the row of a code (TopKarteFinden), and the choice
// of the map, automatic (Check(0)) or fixed (List(9)). The colours of the
// Top50 settings lists become Col= numbers here too.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/TopKarte.h"

namespace ortelix {

class Session;

inline constexpr const char* kKartendatenFehler = "Die Kartendaten können nicht eingelesen werden.";
inline constexpr const char* kKarteKeine = "KEINE";

// The rows of a names.dat text: "#" lines and empty lines skipped, fields
// split at "|" and trimmed, a line of fewer than 7 fields gives no row.
std::vector<TopKarte> ParseNamesDat(std::string_view text);
// Reads names.dat of the program folder into the map list. When the file
// cannot be read the message says so and the list stays empty.
bool TopKartenEinlesen(Session& s);

// The list line of a row: Name, the map code (or Lat/Long, UTM by the
// meridian) and the scale.
std::string TopKarteBeschreibung(const TopKarte& k);
// The extent label: "N/S = " north " - " south "O/W = " east " - " west,
// each number cut to seven characters.
std::string TopKarteAusdehnung(const TopKarte& k);

// The map code of a point: a German state's code, AUW, AUO or KEINE.
std::string_view TopLand(double lon, double lat);
// The first row whose lower-cased name fits the code; -1 when none does.
int TopKarteFinden(const std::vector<TopKarte>& karten, std::string_view code);
// The row of the map for a point, as the automatic choice takes it; -1 when
// the point's code has no row. Pure: the export plan asks it per part.
int TopKarteFuerPunkt(const std::vector<TopKarte>& karten, double lon, double lat);

struct KartenPunkt {
    double Lon = 0, Lat = 0;
};
// The point that chooses the map: by List(2) ("Anfang", "Mitte", "Ende")
// the first, middle (point ceil(n/2)) or last point of the first track,
// else of the first route; else the middle of the waypoint box. None
// without data.
std::optional<KartenPunkt> AutomatischerPunkt(const Session& s);
// With Check(0) set, moves List(9) and the text box to the map of the
// automatic point; a point whose code has no row leaves both as they stand.
// Runs after each read and before each write.
void KarteAutomatisch(Session& s);

// The chosen row (List(9)); null when the list is empty or the index is off it.
const TopKarte* GewaehlteKarte(const Session& s);
// Selects row i as a click in the list does: List(9) and the text box.
void KarteWaehlen(Session& s, int row);
// The map name for MapName=: the text box "Karte".
std::string Top50MapName(const Session& s);
// The chosen map's name with " (auto)" or " (fix)", as LabelInfo(10) and
// the map export show it; empty without a chosen map.
std::string KartenAnzeige(const Session& s);

// Col= of an entry of the shared Top50 colour list (0-based list index).
int TopFarbe(int listIndex);
// Col= of an entry of the waypoint colour list: positions 1 to 8 as they
// stand, anything beyond ("Türkis") gives 2.
int TopWegpunktFarbe(int listIndex);

}  // namespace ortelix
