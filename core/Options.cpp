#include "core/Options.h"

#include <charconv>

#include "core/ModulShared.h"
#include "core/OptionBounds.h"

namespace ortelix {

double Options::Number(int i) const { return ParseCoordinate(KarteKoordInput.at(static_cast<size_t>(i))); }

double Options::Zahl(int i) const { return ParseCoordinate(ZahlInput.at(static_cast<size_t>(i))); }

bool KarteKoordInputExists(size_t i) { return i < 26 && i != 7 && i != 21; }

namespace {
// Splits "Check12" into "Check" and 12.
bool SplitName(std::string_view name, std::string_view& array, size_t& index) {
    size_t digits = name.size();
    while (digits > 0 && name[digits - 1] >= '0' && name[digits - 1] <= '9') --digits;
    if (digits == name.size() || digits == 0) return false;
    array = name.substr(0, digits);
    auto r = std::from_chars(name.data() + digits, name.data() + name.size(), index);
    return r.ec == std::errc();
}

bool ParseInt(std::string_view v, int& x) {
    auto r = std::from_chars(v.data(), v.data() + v.size(), x);
    return r.ec == std::errc() && r.ptr == v.data() + v.size();
}

// A list index (or a colour) within [0, count); anything else is refused.
template <size_t N>
bool SetIndex(std::array<int, N>& a, size_t i, std::string_view v, int count) {
    int x = 0;
    if (i >= N || !ParseInt(v, x) || x < 0 || x >= count) return false;
    a[i] = x;
    return true;
}

// Check boxes hold 0 or 1 and nothing else.
template <size_t N>
bool SetCheck(std::array<int, N>& a, size_t i, std::string_view v) {
    if (v != "0" && v != "1") return false;
    return SetIndex(a, i, v, 2);
}

template <size_t N>
bool SetText(std::array<std::string, N>& a, size_t i, std::string_view v) {
    if (i >= N) return false;
    a[i] = v;
    return true;
}

// A number field: its text as given, when the number it reads as lies in range.
template <size_t N>
bool SetNumber(std::array<std::string, N>& a, size_t i, std::string_view v, NumberRange r) {
    return i < N && NumberInRange(v, r) && SetText(a, i, v);
}

std::string IntText(int v) {
    char buf[16];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

template <size_t N>
void AddInts(std::vector<OptionEntry>& out, const char* array, const std::array<int, N>& a) {
    for (size_t i = 0; i < N; ++i) out.push_back({array + IntText(static_cast<int>(i)), IntText(a[i])});
}

template <size_t N>
void AddTexts(std::vector<OptionEntry>& out, const char* array, const std::array<std::string, N>& a) {
    for (size_t i = 0; i < N; ++i) out.push_back({array + IntText(static_cast<int>(i)), a[i]});
}
}  // namespace

std::vector<OptionEntry> ListOptions(const Options& o) {
    std::vector<OptionEntry> out;
    out.reserve(260);
    AddInts(out, "Check", o.Check);
    for (size_t i = 0; i < o.KarteKoordInput.size(); ++i)
        if (KarteKoordInputExists(i))
            out.push_back({"KarteKoordInput" + IntText(static_cast<int>(i)), o.KarteKoordInput[i]});
    AddInts(out, "List", o.List);
    AddInts(out, "ListFeld", o.ListFeld);
    AddTexts(out, "TextZeit", o.TextZeit);
    AddTexts(out, "Text", o.Text);
    AddInts(out, "CommandSwissWPFarbe", o.CommandSwissWPFarbe);
    AddInts(out, "MapExpCheck", o.MapExpCheck);
    AddTexts(out, "ZahlInput", o.ZahlInput);
    AddInts(out, "MapExpList", o.MapExpList);
    AddTexts(out, "MapExpKoordInput", o.MapExpKoordInput);
    out.push_back({"PhotoshopExe9", o.PhotoshopExe9});
    AddInts(out, "OptionNMEA", o.OptionNMEA);
    AddTexts(out, "NMEABox", o.NMEABox);
    AddInts(out, "NMEASimCheckBox", o.NMEASimCheckBox);
    AddInts(out, "NMEASimList", o.NMEASimList);
    out.push_back({"NMEASimFaktor", o.NMEASimFaktor});
    out.push_back({"ComPort", o.ComPort});
    return out;
}

bool SetOption(Options& o, std::string_view name, std::string_view value) {
    if (name == "PhotoshopExe9") return o.PhotoshopExe9 = value, true;
    if (name == "NMEASimFaktor") return NumberInRange(value, SimFactorRange()) && (o.NMEASimFaktor = value, true);
    if (name == "ComPort") return o.ComPort = value, true;
    std::string_view array;
    size_t i = 0;
    if (!SplitName(name, array, i)) return false;
    if (array == "Check") return SetCheck(o.Check, i, value);
    if (array == "List") return SetIndex(o.List, i, value, ListEntries(i));
    if (array == "ListFeld") return SetIndex(o.ListFeld, i, value, kListFeldEntries);
    if (array == "CommandSwissWPFarbe") return SetIndex(o.CommandSwissWPFarbe, i, value, kLargestColour + 1);
    if (array == "KarteKoordInput")
        return KarteKoordInputExists(i) && SetNumber(o.KarteKoordInput, i, value, KarteKoordRange(i));
    if (array == "TextZeit") return SetText(o.TextZeit, i, value);
    if (array == "Text") return SetText(o.Text, i, value);
    if (array == "MapExpCheck") return SetCheck(o.MapExpCheck, i, value);
    if (array == "ZahlInput") return SetNumber(o.ZahlInput, i, value, ZahlRange(i));
    if (array == "MapExpList") return SetIndex(o.MapExpList, i, value, MapExpListEntries(i));
    if (array == "MapExpKoordInput") return SetNumber(o.MapExpKoordInput, i, value, MapExpKoordRange(i));
    if (array == "OptionNMEA") return SetCheck(o.OptionNMEA, i, value);
    if (array == "NMEABox") return SetNumber(o.NMEABox, i, value, NMEABoxRange(i));
    if (array == "NMEASimCheckBox") return SetCheck(o.NMEASimCheckBox, i, value);
    if (array == "NMEASimList") return SetIndex(o.NMEASimList, i, value, kNMEASimListEntries);
    return false;
}

bool OptionNameKnown(std::string_view name) {
    for (const OptionEntry& e : ListOptions(Options{}))
        if (e.name == name) return true;
    return false;
}

}  // namespace ortelix
