#include "appformats/ModuleTop50Karte.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "core/FileIO.h"
#include "core/InfoFrame.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr int kCheckAutomatisch = 0;
constexpr int kListPunkt = 2;  // "Anfang", "Mitte", "Ende"
constexpr int kListKarte = 9;

// Lower case for the map names: ASCII and the Latin-1 capitals (Ä Ö Ü and
// their neighbours) in their two-byte UTF-8 form.
std::string LowerName(std::string_view text) {
    std::string out(text);
    for (size_t i = 0; i < out.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(out[i]);
        if (c >= 'A' && c <= 'Z') {
            out[i] = static_cast<char>(c + 32);
        } else if (c == 0xC3 && i + 1 < out.size()) {
            const unsigned char d = static_cast<unsigned char>(out[i + 1]);
            if (d >= 0x80 && d <= 0x9E && d != 0x97) out[i + 1] = static_cast<char>(d + 0x20);  // 0x97 is ×
            ++i;
        }
    }
    return out;
}

bool Has(std::string_view text, std::string_view word) { return text.find(word) != std::string_view::npos; }

// A number as plain text, shortest form ("49.8", "50000").
std::string Plain(double v) {
    char buf[32];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

// The first seven characters of a number, as the extent label shows it.
std::string Seven(double v) { return Plain(v).substr(0, 7); }

struct LonRange {
    double west, east;
    const char* code;
    bool eastGap = false;  // Brandenburg's range leaves out 53.2 to 53.3
};
struct LatBand {
    double south, north;
    std::vector<LonRange> ranges;
};

constexpr double kOpen = -std::numeric_limits<double>::infinity();

// Latitude bands from south to north; within a band the ranges in order.
// Lower bounds belong to a range, upper bounds do not.
const std::vector<LatBand>& Bands() {
    static const std::vector<LatBand> bands = {
        {46.4, 47, {{9.8, 11.2, "AUW"}, {12.14, 14.32, "AUW"}, {14.32, 16.4, "AUO"}}},
        {47, 47.5, {{9.5, 14.32, "AUW"}, {14.32, 16.7, "AUO"}}},
        {47.5, 48, {{kOpen, 10.12, "BW"}, {10.12, 12.8, "BYS"}, {12.8, 14.32, "AUW"}, {14.32, 17.1, "AUO"}}},
        {48, 48.5, {{7.65, 10.15, "BW"}, {10.15, 13.4, "BYS"}, {13.4, 14.32, "AUW"}, {14.32, 17, "AUO"}}},
        {48.5, 49, {{7.85, 10.4, "BW"}, {10.4, 13.83, "BYS"}, {14.78, 17, "AUO"}}},
        {49, 49.5, {{6.176, 8.43, "RPS"}, {8.43, 10.18, "BW"}, {10.18, 13.41, "BYN"}}},
        {49.5, 50, {{6.2, 8.41, "RPS"}, {8.41, 9.15, "HE"}, {9.15, 12.6, "BYN"}}},
        {50, 50.5, {{6.14, 8.01, "RPS"}, {8.01, 9.77, "HE"}, {9.77, 12.2, "BYN"}, {12.2, 12.99, "SN"}}},
        {50.5, 51,
         {{5.84, 7.35, "NRW"}, {7.35, 8.05, "RPS"}, {8.05, 9.94, "HE"}, {9.94, 12.32, "TH"}, {12.32, 14.92, "SN"}}},
        {51, 51.5,
         {{5.8, 8.68, "NRW"}, {8.68, 10.05, "HE"}, {10.05, 11.4, "TH"}, {11.4, 12.2, "LSA"}, {12.2, 15.1, "SN"}}},
        {51.5, 52, {{5.8, 9.39, "NRW"}, {9.39, 10.61, "LGN"}, {10.61, 13.16, "LSA"}, {13.16, 14.7, "BB"}}},
        {52, 52.5,
         {{6.778, 8.04, "LGN"},
          {8.04, 8.45, "LGN"},
          {8.45, 9.061, "NRW"},
          {9.061, 11.02, "LGN"},
          {11.02, 12.23, "LSA"},
          {12.23, 14.73, "BB"}}},
        {52.5, 53, {{6.65, 11.01, "LGN"}, {11.01, 12.2, "LSA"}, {12.2, 14.4, "BB"}}},
        {53, 53.5, {{7.14, 10.02, "LGN"}, {10.02, 14.7, "BB", true}}},
        {53.5, 54, {{6.6, 9.63, "LGN"}, {9.63, 10.9, "SHH"}, {10.9, 14.7, "MVP"}}},
        {54, 55, {{8.2, 11.34, "SHH"}, {11.34, 14.05, "MVP"}}},
    };
    return bands;
}

// The keywords of a code in the lower-cased name, and whether the name must
// also name a Top50 map.
struct Keywords {
    const char* code;
    const char* first;
    const char* second;  // null when one word is enough
    bool top50;
};
constexpr Keywords kKeywords[] = {
    {"BW", "bw", nullptr, true},           {"BYN", "bayern", "nord", true},
    {"BYS", "bayern", "süd", true},        {"BB", "bb/b", nullptr, true},
    {"HE", "hessen", nullptr, true},       {"MVP", "mv", nullptr, true},
    {"LGN", "nieders", nullptr, true},     {"NRW", "nrw", nullptr, true},
    {"RPS", "rp/sl", nullptr, true},       {"SN", "sn", nullptr, true},
    {"LSA", "sa", nullptr, true},          {"SHH", "sh/hh", nullptr, true},
    {"TH", "thüringen", nullptr, true},    {"AUW", "ök50-west", nullptr, false},
    {"AUO", "ök50-ost", nullptr, false},   {"KEINE", "länderübersicht", nullptr, false},
};

}  // namespace

std::vector<TopKarte> ParseNamesDat(std::string_view text) {
    if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
    std::vector<TopKarte> rows;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view line = Trim(text.substr(start, end - start));
        start = end + 1;
        if (line.empty() || line.front() == '#') continue;
        std::vector<std::string_view> f;
        size_t pos = 0;
        while (pos <= line.size()) {
            const size_t bar = std::min(line.find('|', pos), line.size());
            f.push_back(Trim(line.substr(pos, bar - pos)));
            pos = bar + 1;
        }
        if (f.size() < 7) continue;
        TopKarte k;
        k.Name = std::string(f[0]);
        k.MapCode = std::string(f[1]);
        k.Massstab = LeadingNumber(f[2]);
        k.N = LeadingNumber(f[3]);
        k.S = LeadingNumber(f[4]);
        k.O = LeadingNumber(f[5]);
        k.W = LeadingNumber(f[6]);
        if (f.size() > 7) k.Feld8 = std::string(f[7]);
        if (f.size() > 8) k.Meridian = LeadingNumber(f[8]);
        k.Zeile = std::string(line);
        rows.push_back(std::move(k));
    }
    return rows;
}

bool TopKartenEinlesen(Session& s) {
    std::vector<TopKarte>& list = s.options.Top50.Karten;
    list.clear();
    try {
        list = ParseNamesDat(ReadFileBytes(s.platform.programFolder() + "/names.dat"));
        return true;
    } catch (const std::exception&) {
        s.platform.messageBox(kKartendatenFehler, "Top50 Karten", Buttons::Ok, Icon::Critical);
        return false;
    }
}

std::string TopKarteBeschreibung(const TopKarte& k) {
    std::string code;
    if (k.Meridian == 1000) code = " (MapCode: Lat/Long)";
    else if (k.Meridian == 2000) code = " (MapCode: UTM)";
    else code = " (MapCode: " + k.MapCode + ")";
    return k.Name + code + " 1:" + Plain(k.Massstab);
}

std::string TopKarteAusdehnung(const TopKarte& k) {
    return "N/S = " + Seven(k.N) + " - " + Seven(k.S) + "O/W = " + Seven(k.O) + " - " + Seven(k.W);
}

std::string_view TopLand(double lon, double lat) {
    for (const LatBand& b : Bands()) {
        if (!(lat >= b.south && lat < b.north)) continue;
        for (const LonRange& r : b.ranges) {
            if (r.eastGap && lat >= 53.2 && lat < 53.3) continue;
            if (lon >= r.west && lon < r.east) return r.code;
        }
    }
    return kKarteKeine;
}

int TopKarteFinden(const std::vector<TopKarte>& karten, std::string_view code) {
    const Keywords* kw = nullptr;
    for (const Keywords& k : kKeywords)
        if (code == k.code) kw = &k;
    if (!kw) return -1;
    for (size_t i = 0; i < karten.size(); ++i) {
        const std::string name = LowerName(karten[i].Name);
        if (!Has(name, kw->first)) continue;
        if (kw->second && !Has(name, kw->second)) continue;
        if (kw->top50 && !(Has(name, "top") && Has(name, "50"))) continue;
        return static_cast<int>(i);
    }
    return -1;
}

int TopKarteFuerPunkt(const std::vector<TopKarte>& karten, double lon, double lat) {
    return TopKarteFinden(karten, TopLand(lon, lat));
}

std::optional<KartenPunkt> AutomatischerPunkt(const Session& s) {
    const int which = s.options.List[kListPunkt];
    auto pick = [which](const auto& points) -> KartenPunkt {
        const size_t n = points.size();
        size_t i = 0;                    // "Anfang"
        if (which == 1) i = (n + 1) / 2 - 1;  // "Mitte": point ceil(n/2), counted from 1
        else if (which == 2) i = n - 1;  // "Ende"
        return {points[i].Lon, points[i].Lat};
    };
    const DataStore& st = s.store;
    // A track or route that took no point (all filtered out) is passed over.
    for (const Track& t : st.Tracks)
        if (!t.Points.empty()) return pick(t.Points);
    for (const Route& r : st.Routes)
        if (!r.Points.empty()) return pick(r.Points);
    if (!st.WayPoints.empty()) {
        const Box& b = st.WayPointBox;
        return KartenPunkt{(b.West + b.East) / 2, (b.South + b.North) / 2};
    }
    return std::nullopt;
}

void KarteAutomatisch(Session& s) {
    if (!s.options.Check[kCheckAutomatisch]) return;
    const std::optional<KartenPunkt> p = AutomatischerPunkt(s);
    if (!p) return;
    const int row = TopKarteFuerPunkt(s.options.Top50.Karten, p->Lon, p->Lat);
    if (row >= 0) KarteWaehlen(s, row);
}

const TopKarte* GewaehlteKarte(const Session& s) {
    const int row = s.options.List[kListKarte];
    const auto& list = s.options.Top50.Karten;
    if (row < 0 || static_cast<size_t>(row) >= list.size()) return nullptr;
    return &list[static_cast<size_t>(row)];
}

void KarteWaehlen(Session& s, int row) {
    const auto& list = s.options.Top50.Karten;
    if (row < 0 || static_cast<size_t>(row) >= list.size()) return;
    s.options.List[kListKarte] = row;
    s.options.Top50.KarteText = list[static_cast<size_t>(row)].MapCode;
}

std::string Top50MapName(const Session& s) {
    if (!s.options.Top50.KarteText.empty()) return s.options.Top50.KarteText;
    const TopKarte* k = GewaehlteKarte(s);
    return k ? k->MapCode : std::string();
}

std::string KartenAnzeige(const Session& s) {
    const TopKarte* k = GewaehlteKarte(s);
    return k ? MapNameWithChoice(k->Name, s.options.Check[kCheckAutomatisch] != 0) : std::string();
}

int TopFarbe(int listIndex) { return listIndex + 1; }

int TopWegpunktFarbe(int listIndex) { return listIndex >= 0 && listIndex < 8 ? listIndex + 1 : 2; }

}  // namespace ortelix
