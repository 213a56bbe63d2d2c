#pragma once
// Picks the OziExplorer maps of a folder that meet a chosen area and copies
// them with their images.
#include <string>

namespace ortelix {

class Session;
struct Flaeche;
struct OziMapInfo;

// True when the map's rectangle (corners 1 and 3) meets the area; touching edges count.
bool OziKarteTrifft(const OziMapInfo& map, const Flaeche& bereich);
// Copies each .map of quelle that meets the area, with its image, into ziel;
// returns the number of maps copied.
size_t OziKartenKopieren(Session& s, const Flaeche& bereich, const std::string& quelle, const std::string& ziel);
// The command: the intro, the two folder dialogs, then the copy.
void OziKartenKopierenDialog(Session& s, const Flaeche& bereich);

}  // namespace ortelix
