#include "coordinates/CoordCalculator.h"

#include <charconv>
#include <cmath>

#include "coordinates/ModulTransformation.h"
#include "core/ModulArray.h"
#include "core/Session.h"

namespace ortelix {
namespace {

constexpr int kListDatum = 44;

// What the values of a conversion are, for the range test before it runs.
enum class Input {
    Text,      // one text (UTM, o2): its numbers are tested in the result
    Geo,       // longitude, latitude (twice for the distance)
    Grid,      // easting, northing in metres
    Offset,    // longitude, latitude, azimuth in degrees, distance in metres
};

struct Operation {
    std::string_view name;
    int values;  // 0: one text
    Input input;
    bool geoResult;  // the result is a longitude and a latitude
};

constexpr Operation kOperations[] = {
    {"wgs84-gk", 2, Input::Geo, false},    {"gk-wgs84", 2, Input::Grid, true},
    {"wgs84-utm", 2, Input::Geo, false},   {"utm-wgs84", 0, Input::Text, true},
    {"wgs84-grid", 2, Input::Geo, false},  {"grid-wgs84", 2, Input::Grid, true},
    {"wgs84-o2", 2, Input::Geo, false},    {"o2-wgs84", 0, Input::Text, true},
    {"datum-wgs84", 2, Input::Geo, true},  {"wgs84-datum", 2, Input::Geo, true},
    {"distance", 4, Input::Geo, false},    {"offset", 4, Input::Offset, true},
    {"geoid", 2, Input::Geo, false},
};

// Grid values beyond a million kilometres and offsets beyond that or beyond
// a million degrees of azimuth are no coordinates: the series and integer
// texts of the grids are not made for them.
constexpr double kMaxGridMetres = 1.0e9;
constexpr double kMaxAzimuth = 1.0e6;

const Operation* FindOperation(std::string_view op) {
    for (const Operation& o : kOperations)
        if (o.name == op) return &o;
    return nullptr;
}

bool InputInRange(const Operation& o, const double* v) {
    switch (o.input) {
        case Input::Text: return true;
        case Input::Geo:
            for (int i = 0; i < o.values; i += 2)
                if (!PositionInRange(v[i], v[i + 1])) return false;
            return true;
        case Input::Grid: return std::fabs(v[0]) <= kMaxGridMetres && std::fabs(v[1]) <= kMaxGridMetres;
        case Input::Offset:
            return PositionInRange(v[0], v[1]) && std::fabs(v[2]) <= kMaxAzimuth && std::fabs(v[3]) <= kMaxGridMetres;
    }
    return false;
}

bool Number(std::string_view text, double& v) {
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    const auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    return r.ec == std::errc() && r.ptr == text.data() + text.size() && std::isfinite(v);
}

// The shortest digits that read back as the same double, always in fixed
// notation: 600000, not 6e+05.
void Append(std::string& out, double v) {
    if (v == 0) v = 0;  // no "-0"
    char buf[400];
    if (!out.empty()) out += ' ';
    out.append(buf, std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed).ptr);
}

std::string Join(const std::vector<std::string>& values) {
    std::string t;
    for (const std::string& v : values) {
        if (!t.empty()) t += ' ';
        t += v;
    }
    return t;
}

// Selects the named datum in the session and switches the transformation on.
bool SelectDatum(Session& s, const std::string& name, std::string& error) {
    if (name.empty()) {
        error = "--datum NAME fehlt";
        return false;
    }
    if (s.coords.DatumListe.empty() && !HelmertEinlesen(s)) {
        error = "Die Helmert-Parameter können nicht eingelesen werden.";
        return false;
    }
    const Datum* d = FindDatum(s.coords.DatumListe, name);
    if (!d) {
        error = "Unbekanntes Datum: " + name;
        return false;
    }
    s.options.List[kListDatum] = static_cast<int>(d - s.coords.DatumListe.data());
    s.options.Check[1] = 1;
    return true;
}

}  // namespace

const std::vector<std::string_view>& CoordOperations() {
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> v;
        for (const Operation& o : kOperations) v.push_back(o.name);
        return v;
    }();
    return names;
}

int CoordValueCount(std::string_view op) {
    const Operation* o = FindOperation(op);
    return o ? o->values : -1;
}

bool CoordLine(Session& s, std::string_view op, const std::vector<std::string>& values, const CoordFlags& flags,
               std::string& out, std::string& error) {
    out.clear();
    const Operation* operation = FindOperation(op);
    if (!operation) {
        error = "Unbekannte Umrechnung: " + std::string(op);
        return false;
    }
    const int count = operation->values;
    double v[4] = {};
    if (count > 0) {
        if (static_cast<int>(values.size()) != count) {
            error = std::string(op) + " erwartet " + std::to_string(count) + " Zahlen";
            return false;
        }
        for (int i = 0; i < count; ++i)
            if (!Number(values[static_cast<size_t>(i)], v[i])) {
                error = "Keine Zahl: " + values[static_cast<size_t>(i)];
                return false;
            }
    } else if (values.empty()) {
        error = std::string(op) + " erwartet einen Text";
        return false;
    }
    const std::string outOfRange = "Koordinate außerhalb des Bereichs: " + Join(values);
    if (!InputInRange(*operation, v)) {
        error = outOfRange;
        return false;
    }
    double meridian = 0;
    const bool hasMeridian = !flags.meridian.empty();
    if (hasMeridian && (!Number(flags.meridian, meridian) || std::fabs(meridian) > 360)) {
        error = "Kein Meridian: " + flags.meridian;
        return false;
    }
    double a = 0, b = 0;
    if (op == "wgs84-gk") {
        if (hasMeridian) WGS84NachGKMeridian(v[0], v[1], meridian, a, b);
        else WGS84NachGK(v[0], v[1], a, b);
    } else if (op == "gk-wgs84") {
        if (hasMeridian) GKNachWGS84Meridian(v[0], v[1], meridian, a, b);
        else GKNachWGS84(v[0], v[1], a, b);
    } else if (op == "wgs84-utm") {
        std::string zone;
        GeoNachUTM(v[0], v[1], false, zone, a, b, out);
        // At the poles the series has no easting: no text of digits to give.
        if (!std::isfinite(a) || !std::isfinite(b)) {
            out.clear();
            error = outOfRange;
            return false;
        }
        return true;
    } else if (op == "utm-wgs84") {
        UTMNachGeo(Join(values), a, b, false);
    } else if (op == "wgs84-grid" || op == "grid-wgs84") {
        double system = 0;
        if (!Number(flags.system, system) || (system != 1 && system != 2 && system != 3)) {
            error = "--system erwartet 1, 2 oder 3";
            return false;
        }
        if (op == "wgs84-grid") WGS84NachGrid(v[0], v[1], a, b, static_cast<int>(system));
        else GridNachWGS84(v[0], v[1], a, b, static_cast<int>(system));
    } else if (op == "wgs84-o2") {
        double r = 0, h = 0;
        WGS84NachGK(v[0], v[1], r, h);
        if (!std::isfinite(r) || !std::isfinite(h)) {
            error = outOfRange;
            return false;
        }
        out = WGS84NachO2(v[0], v[1]);
        return true;
    } else if (op == "o2-wgs84") {
        O2NachWGS84(Join(values), a, b);
    } else if (op == "datum-wgs84") {
        if (!SelectDatum(s, flags.datum, error)) return false;
        DatumNachWGS84(s, v[0], v[1], a, b, true);
    } else if (op == "wgs84-datum") {
        if (!SelectDatum(s, flags.datum, error)) return false;
        double lon = v[0], lat = v[1];
        WGS84NachDatum(s, lon, lat, lon, lat, true);
        a = lon, b = lat;
    } else if (op == "distance") {
        double azimut = 0;
        a = Entfernung(v[0], v[1], v[2], v[3], azimut);
        b = azimut;
    } else if (op == "offset") {
        PunktVersetzen(v[0], v[1], a, b, v[2], v[3]);
    } else if (op == "geoid") {
        Append(out, GeoidHoehe(s, v[0], v[1]));
        return true;
    }
    // A grid text or grid values far off the earth give no place on it.
    if (!std::isfinite(a) || !std::isfinite(b) || (operation->geoResult && !PositionInRange(a, b))) {
        error = outOfRange;
        return false;
    }
    Append(out, a);
    Append(out, b);
    return true;
}

}  // namespace ortelix
