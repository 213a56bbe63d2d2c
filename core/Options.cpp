#include "core/Options.h"

#include <charconv>

#include "core/ModulShared.h"

namespace ortelix {

double Options::Number(int i) const { return ParseCoordinate(KarteKoordInput.at(static_cast<size_t>(i))); }

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

template <size_t N>
bool SetInt(std::array<int, N>& a, size_t i, std::string_view v) {
    if (i >= N) return false;
    int x = 0;
    auto r = std::from_chars(v.data(), v.data() + v.size(), x);
    if (r.ec != std::errc() || r.ptr != v.data() + v.size()) return false;
    a[i] = x;
    return true;
}

template <size_t N>
bool SetText(std::array<std::string, N>& a, size_t i, std::string_view v) {
    if (i >= N) return false;
    a[i] = v;
    return true;
}
}  // namespace

bool SetOption(Options& o, std::string_view name, std::string_view value) {
    std::string_view array;
    size_t i = 0;
    if (!SplitName(name, array, i)) return false;
    if (array == "Check") return SetInt(o.Check, i, value);
    if (array == "List") return SetInt(o.List, i, value);
    if (array == "ListFeld") return SetInt(o.ListFeld, i, value);
    if (array == "CommandSwissWPFarbe") return SetInt(o.CommandSwissWPFarbe, i, value);
    if (array == "KarteKoordInput") return SetText(o.KarteKoordInput, i, value);
    if (array == "TextZeit") return SetText(o.TextZeit, i, value);
    if (array == "Text") return SetText(o.Text, i, value);
    return false;
}

}  // namespace ortelix
