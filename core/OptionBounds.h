#pragma once
// What each option may hold: the entries of the drop-down lists whose texts
// are fixed (the forms build those lists from here), the number of entries of
// every list, and the range of every number field. Loading the settings and
// `--set` refuse what lies outside, so that no later reader of an option meets
// an index past its list or a number that overflows what it is multiplied
// into.
#include <cstddef>
#include <string_view>
#include <vector>

namespace ortelix {

// The entries of List(i) of the main form when they are fixed texts; empty
// for the others (the datum list, the map list, and lists of writers whose
// entries stand with those writers).
const std::vector<std::string_view>& FixedListEntries(size_t list);

// How many entries List(i) may choose from. For a list without fixed texts
// this is a generous bound (kOpenListEntries); the datum list (44) is bounded
// by the datum table where that is known (see ListEntriesWithDatums).
int ListEntries(size_t list);
int ListEntriesWithDatums(size_t list, size_t datumCount);
inline constexpr int kOpenListEntries = 100;
// ListFeld(i): "kein" and the columns 1 to 30.
inline constexpr int kListFeldEntries = 31;
// How many entries List(i) of FormMapExp has: the Swiss scales, the PathAway
// colour depths, the image types, the MagicMaps maps (as many as
// magicmaps.dat holds: open) and the MapStitcher colour depths.
int MapExpListEntries(size_t list);
// The lists of FormNMEASim have no fixed texts here yet.
inline constexpr int kNMEASimListEntries = kOpenListEntries;
// CommandSwissWPFarbe: an RGB value.
inline constexpr int kLargestColour = 0xFFFFFF;

// A number field's range; its text is read with the leading-number rule and
// "," as the decimal point, so a text without a number reads as 0, which
// every range holds.
struct NumberRange {
    double min, max;
};
NumberRange KarteKoordRange(size_t i);
NumberRange ZahlRange(size_t i);
NumberRange NMEABoxRange(size_t i);
NumberRange MapExpKoordRange(size_t i);
NumberRange SimFactorRange();
bool NumberInRange(std::string_view text, NumberRange r);

}  // namespace ortelix
