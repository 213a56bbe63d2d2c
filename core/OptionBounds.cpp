#include "core/OptionBounds.h"

#include "core/ModulShared.h"

namespace ortelix {

namespace {
// The separators of the ASCII reader, List(1); its comment characters,
// List(0), are "Keiner" and the first six of them.
const std::vector<std::string_view> kSeparators = {"Komma", "Semikolon", "Doppelpunkt", "|",
                                                   "Space", "Raute",     "TAB"};
const std::vector<std::string_view> kComments = {"Keiner", "Komma", "Semikolon", "Doppelpunkt",
                                                 "|",      "Space", "Raute"};
const std::vector<std::string_view> kReduction = {"Optimal", "Alle Punkte", "1 m",   "5 m",   "10 m",
                                                  "25 m",    "50 m",        "100 m", "250 m", "500 m"};
const std::vector<std::string_view> kWayPointFilter = {"Alle eintragen",
                                                       "Nur im Bereich der bereits eingelesenen Flächen",
                                                       "Innerhalb der Koordinaten",
                                                       "Um einen Punkt",
                                                       "Innerhalb der Karte ",
                                                       "Im Flächenqudrat der LOG-Strecke",
                                                       "An der Strecke"};
// The Top50 overlay's lists. Its colours: Col= is the position from 1; the
// waypoint colours are a list of their own (appformats/ModuleTop50Karte.h).
const std::vector<std::string_view> kTopPunkt = {"Anfang", "Mitte", "Ende"};
const std::vector<std::string_view> kTopFarben = {"Rot",     "Grün",       "Blau",    "Gelb", "Schwarz",
                                                  "Weiß",    "Unsichtbar", "Magenta", "Cyan"};
const std::vector<std::string_view> kTopWegpunktFarben = {"Rot",  "Grün",       "Blau", "Gelb",  "Schwarz",
                                                          "Weiß", "Unsichtbar", "Cyan", "Türkis"};
const std::vector<std::string_view> kTopBreiten = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "keine Linie"};
const std::vector<std::string_view> kTopPfeile = {"Dreieck breit", "Kreis", "Dreieck schmal"};
const std::vector<std::string_view> kTopSymbole = {"Bitmap", "Rechteck", "Kreis", "Dreieck"};
const std::vector<std::string_view> kTopSymbolGroesse = {"120", "200", "400"};
const std::vector<std::string_view> kTopGruppe = {"1", "2"};
const std::vector<std::string_view> kTopTextGroesse = {"kein Text", "8", "10", "12", "14", "16", "20", "24", "30"};
const std::vector<std::string_view> kTopTextLage = {"am Punkt", "links", "rechts", "weit links", "weit rechts"};
const std::vector<std::string_view> kTopSchrift = {"1", "2", "3"};
const std::vector<std::string_view> kNone;

constexpr NumberRange kAny{-1.0e9, 1.0e9};  // fields whose use is not built: still far from any overflow
constexpr NumberRange kLongitude{-360, 360};
constexpr NumberRange kLatitude{-90, 90};
constexpr NumberRange kMinutes{-21600, 21600};  // 360 degrees as minutes
}  // namespace

const std::vector<std::string_view>& FixedListEntries(size_t list) {
    switch (list) {
        case 0: return kComments;
        case 1: return kSeparators;
        case 7: return kReduction;
        case 8: return kWayPointFilter;
        case 2: return kTopPunkt;
        case 10: case 11: case 12: case 13: case 14: case 21: case 22: return kTopFarben;
        case 15: case 16: case 17: case 18: case 19: case 20: case 23: return kTopBreiten;
        case 24: return kTopPfeile;
        case 25: return kTopSymbole;
        case 26: return kTopWegpunktFarben;
        case 27: return kTopSymbolGroesse;
        case 28: return kTopGruppe;
        case 29: case 30: case 31: case 32: case 33: return kTopTextGroesse;
        case 35: case 42: case 46: return kTopTextLage;
        case 36: return kTopSchrift;
        default: return kNone;
    }
}

int ListEntries(size_t list) {
    const auto& fixed = FixedListEntries(list);
    return fixed.empty() ? kOpenListEntries : static_cast<int>(fixed.size());
}

int ListEntriesWithDatums(size_t list, size_t datumCount) {
    if (list == 44 && datumCount > 0) return static_cast<int>(datumCount);
    return ListEntries(list);
}

NumberRange KarteKoordRange(size_t i) {
    switch (i) {
        case 0: return {0, 1.0e6};    // minutes of a pause
        case 1: return {0, 1.0e9};    // points per part
        case 2: return {0, 1.0e7};    // minutes of a gap
        case 3: return {0, 1.0e5};    // kilometres of a gap: more than twice round the earth
        case 4: return {0, 1000};     // Swiss Map line width
        case 8: case 12: case 16: return kLongitude;
        case 10: case 14: case 18: return kLatitude;
        case 9: case 11: case 13: case 15: case 17: case 19: return kMinutes;
        case 20: return {0, 1.0e5};   // radius in kilometres
        case 22: return {0, 255};     // Google Earth transparency
        case 23: return {0, 1000};    // line width
        case 24: return {0, 1.0e6};   // height amplification
        case 25: return {-1.0e5, 1.0e5};  // hours added to track times
        default: return kAny;
    }
}

NumberRange ZahlRange(size_t i) {
    switch (i) {
        case 0: case 7: return {0, 1.0e6};        // metres per pixel
        case 1: case 2: return {-1.0e7, 1.0e7};   // side and overlap, km or pixels; below the bound is corrected later
        case 3: case 6: return {0, 86400};        // seconds of waiting
        case 4: return {0, 1000};                 // delay factor
        case 5: return {0, 10000};                // percent
        case 8: return {-1.0e6, 1.0e6};           // margin in pixels; negative counts as 0
        default: return kAny;
    }
}

NumberRange NMEABoxRange(size_t i) {
    switch (i) {
        case 0: return kLongitude;
        case 2: return kLatitude;
        case 1: case 3: return kMinutes;
        case 4: return {-1.0e6, 1.0e6};  // altitude in metres
        case 5: return {-1.0e5, 1.0e5};  // km/h
        case 6: return {-3600, 3600};    // degrees
        case 7: return {-1000, 1000};    // geoid difference in metres
        default: return kAny;
    }
}

NumberRange MapExpKoordRange(size_t) { return kMinutes; }

int MapExpListEntries(size_t list) {
    static constexpr int kEntries[5] = {6, 5, 6, kOpenListEntries, 5};
    return list < 5 ? kEntries[list] : 0;
}

NumberRange SimFactorRange() { return {0, 1.0e6}; }

bool NumberInRange(std::string_view text, NumberRange r) {
    const double v = ParseCoordinate(text);
    return v >= r.min && v <= r.max;
}

}  // namespace ortelix
