#pragma once
// One row of names.dat, the table of Top50 maps, and the map list List(9)
// that shows them. Plain data; reading the table and choosing a map live in
// appformats/ModuleTop50Karte.h, and the waypoint filter reads the chosen
// row's extent from here.
#include <string>
#include <vector>

namespace ortelix {

struct TopKarte {
    std::string Name;     // display name; carries the keywords of TopKarteFinden
    std::string MapCode;  // internal map name written as MapName=
    double Massstab = 0;  // scale denominator
    double N = 0, S = 0, O = 0, W = 0;  // north, south, east, west limits, degrees
    std::string Feld8;    // kept as it stands; its meaning is not known
    double Meridian = 0;  // of the map grid; 1000 means Lat/Long, 2000 UTM
    std::string Zeile;    // the row as it stands in the file, trimmed
};

struct TopKartenListe {
    std::vector<TopKarte> Karten;  // file order; List(9) indexes it
    // The text box "Karte": the internal map name of the overlay. Choosing a
    // row fills it with the row's MapCode; the user may write another.
    std::string KarteText;
};

}  // namespace ortelix
