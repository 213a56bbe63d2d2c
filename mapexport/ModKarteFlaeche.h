#pragma once
// The export plan: areas cut into map parts of bounded size with an overlap,
// in the map's own projection, sorted for the viewer and summarised.
#include <array>
#include <string>

#include "core/Session.h"

namespace ortelix {

// The planning command for KartenTyp 1 to 9 over the areas the store holds:
// settles the frame and the meridian of the type, cuts, sorts and returns the
// number of parts. The areas are read by the caller (the viewers' own area
// sources come with their exports); meridianGiven keeps KartenMeridian.
size_t KartePlanen(Session& s, int kartenTyp, bool meridianGiven = false);

// Removes the files that an earlier export left in the temporary folder
// (its folders stay).
void OXTempLeeren(Session& s);

// The frame and the meridian that a type sets; 0 for a type that sets none
// (8 and 9 keep the frame; 1 takes the Top50 map's meridian).
KartenFrame FrameFuerTyp(int kartenTyp, KartenFrame current);
double MeridianFuerTyp(const Options& o, int kartenTyp);
// Metres per pixel of a Swiss Map scale, by the row of List(0).
double SwissMeterProPixel(int listRow);

// Empties the plan and cuts every area at `meridian` (1000 and 2000: at the
// longitude of each area's first point).
void TeileAlleFlaechen(Session& s, double meridian);
// Cuts area `index` (from 1) given by its extremes in projected metres.
void TeileFlaeche(Session& s, size_t index, double West, double Ost, double Sued, double Nord, double meridian);

// Plan order: by Top50 map name, then north to south; or north to south
// alone for the frames of one viewer map. Stable.
void SortiereKarten(Session& s);
int ZeilenSort(const Session& s);

// The four corners of a part as (lon, lat): top left, top right, bottom
// right, bottom left, as a viewer drawing at `meridian` draws them.
std::array<std::array<double, 2>, 4> KartenEcken(const KartenTeil& t, double meridian);

// What the form shows of part `nr` (from 1): the edges west, north, east,
// south with six decimals, and "2222x2222 Pixel (Ost x Nord) 20x20 km 400 km2 Fläche ".
struct KartenTeilAnzeige {
    std::array<std::string, 4> Grenzen;
    std::string Info;
};
KartenTeilAnzeige ZeigeKartenTeil(Session& s, size_t nr);

// The area text file (.csv): "west ; north ; east ; south ; name" a part.
std::string FlaechenTextdateiText(const Session& s, const std::string& file);
void FlaechenTextdateiSchreiben(Session& s, const std::string& file);
// Adds an area per good line; returns the lines skipped for want of four numbers.
size_t FlaechenTextdateiLesenText(Session& s, std::string_view bytes);
size_t FlaechenTextdateiLesen(Session& s, const std::string& file);
// "3 fehlerhafte Zeilen übersprungen"
std::string UebersprungenText(size_t lines);

// The answer of the "Kartenprojektion" box: empty or "Lat/Long" 1000, "UTM"
// 2000, else a number with "." or ",".
double KartenprojektionWert(std::string_view answer);
std::string KartenprojektionVorgabe(double meridian);
// Asks for KartenMeridian while Check(11) is set; otherwise keeps it.
void KartenprojektionFragen(Session& s);

// The meridian of a .map file's projection: 1000 latitude/longitude, 2000
// UTM, the setup line's central meridian for Transverse Mercator; 0 unknown.
double OziMapMeridian(std::string_view bytes);
// The areas of a .map file, or of every .map in a folder, and KartenMeridian
// from the (first) file's projection; returns that meridian, 0 when no file
// named a known projection (KartenMeridian then stays).
double MapFlaechenEinlesen(Session& s, const std::string& fileOrFolder);

// An area per track, per route, one for all waypoints.
void FlaechenAusTracks(Session& s, const std::string& unused);
void FlaechenAusRouten(Session& s, const std::string& unused);
void FlaechenAusWegepunkten(Session& s, const std::string& unused);

// Map-Check: <base>_Check.plt, .wpt and .csv with each part's outline at
// KartenMeridian. Returns the files written.
std::vector<std::string> MapCheckSchreiben(Session& s, const std::string& name);

}  // namespace ortelix
