#pragma once
// The options table: every option control of the three forms, under the
// indices by which the rest of the program names them ("Check(12)").
// The forms bind their widgets to these arrays; the settings store saves them.
// Fresh values are those the controls carry before any settings are loaded.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/TopKarte.h"

namespace ortelix {

struct Options {
    // FormMain
    std::array<int, 30> Check{};
    // 7 and 21 are unused; 8 to 19 are the corners and centre of the
    // waypoint filter as degrees and decimal minutes.
    std::array<std::string, 26> KarteKoordInput{"", "", "", "", "", "", "", "", "0", "10", "51", "10", "0",
                                                "35", "50", "30.5", "0", "35", "50", "30.5", "", "", "", "", "", ""};
    // List(7) starts at "Alle Punkte": entry 0 would be the "Optimal" reduction,
    // and a fresh table must let every track point through.
    std::array<int, 50> List{0, 0, 0, 0, 0, 0, 0, 1};
    std::array<int, 14> ListFeld{};
    std::array<std::string, 3> TextZeit{"00:00:00", "00:00:00", "00:00:00"};
    std::array<std::string, 4> Text{};
    std::array<int, 6> CommandSwissWPFarbe{};
    // The entries of the Top50 map list List(9) (names.dat) and the text box
    // "Karte" beside it; not saved: List(9) is.
    TopKartenListe Top50;

    // FormMapExp: its check boxes, number fields, lists and the corner fields
    // of its "Koordinaten Eingabe" frame (north, west, south, east as degrees
    // and minutes).
    std::array<int, 21> MapExpCheck{};
    std::array<std::string, 9> ZahlInput{"9", "20", "1", "0", "1", "100", "10", "9", "0"};
    std::array<int, 5> MapExpList{};
    std::array<std::string, 8> MapExpKoordInput{"0", "0", "0", "0", "0", "0", "0", "0"};
    std::string PhotoshopExe9 = "C:\\Programme\\Adobe\\Adobe Photoshop CS2\\Photoshop.exe";

    // FormNMEASim: the source buttons ("Track", "Route", "Waypoint", "Direkt"),
    // the input boxes, the geoid check box, the baud list, the time factor
    // and the chosen port.
    std::array<int, 4> OptionNMEA{1, 0, 0, 0};
    std::array<std::string, 8> NMEABox{"0", "0", "0", "0", "100", "0", "0", "0"};
    std::array<int, 1> NMEASimCheckBox{};
    std::array<int, 1> NMEASimList{4};
    std::string NMEASimFaktor = "1";
    std::string ComPort;
    // Its "Datum" and "Zeit" boxes ("YYYY-mm-dd", "hh:mm:ss"); not saved.
    std::string NMEABoxDate, NMEABoxTime;

    // A number field read with the leading-number rule, as the readers do.
    double Number(int karteKoordIndex) const;
    // A number field of FormMapExp; "," counts as the decimal point.
    double Zahl(int zahlIndex) const;
};

// KarteKoordInput has no field 7 and no field 21.
bool KarteKoordInputExists(size_t i);

// One option by its name, its array and index run together ("Check12",
// "ZahlInput4") or a single name ("ComPort"), with its value as text.
struct OptionEntry {
    std::string name;
    std::string value;
};
// Every option of the table, in the order of the arrays.
std::vector<OptionEntry> ListOptions(const Options& o);

}  // namespace ortelix

namespace ortelix {
// Sets one option by its array and index ("Check12", "KarteKoordInput25");
// false when no option has that name or the value does not fit: a list index
// past its list, a check other than 0 or 1, a number field whose number lies
// outside its range (core/OptionBounds.h).
bool SetOption(Options& o, std::string_view name, std::string_view value);
// Whether an option of that name exists (whatever value it may take).
bool OptionNameKnown(std::string_view name);
}  // namespace ortelix
