#include "coordinates/Datum.h"

#include <charconv>
#include <cmath>

#include "coordinates/Constants.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {
namespace {

// The option that switches the transformation on, and the datum list.
constexpr int kCheckTransform = 1;
constexpr int kListDatum = 44;

// A field without its double quotes and the blanks around it.
std::string Clean(std::string_view field) { return std::string(Trim(StripQuotes(field))); }
double Field(std::string_view line, size_t& pos) { return LeadingNumber(Clean(NextField(line, pos, '|'))); }

std::string NumberText(double v) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z') x = char(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z') y = char(y - 'A' + 'a');
        if (x != y) return false;
    }
    return true;
}

std::string Entry(const Datum& d) { return d.Name + " (" + d.Region + ")"; }

}  // namespace

std::vector<Datum> ParseHelmert(std::string_view text) {
    std::vector<Datum> rows;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        std::string_view line = text.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.empty() || line.front() == '#') continue;
        Datum d;
        size_t pos = 0;
        d.Name = Clean(NextField(line, pos, '|'));
        d.Region = Clean(NextField(line, pos, '|'));
        d.HalbachseX = Field(line, pos);
        d.HalbachseY = Field(line, pos);
        d.dx = Field(line, pos);
        d.dy = Field(line, pos);
        d.dz = Field(line, pos);
        d.rx = Field(line, pos);
        d.ry = Field(line, pos);
        d.rz = Field(line, pos);
        d.Massstab = Field(line, pos);
        rows.push_back(std::move(d));
    }
    return rows;
}

bool HelmertEinlesen(Session& s) {
    s.coords.DatumListe.clear();
    try {
        s.coords.DatumListe = ParseHelmert(ReadFileBytes(s.platform.programFolder() + "/helmert.dat"));
        return true;
    } catch (const std::exception& e) {
        s.platform.messageBox(
            "Die Helmert-Parameter können nicht eingelesen werden.\r\nÜberprüfen Sie die Datei helmert.dat\r\n\r\n"
            "Ursache: " + std::string(e.what()),
            "Karten Projektion einlesen", Buttons::Ok, Icon::Critical);
        return false;
    }
}

std::vector<std::string> DatumEintraege(const CoordinateState& c) {
    std::vector<std::string> list;
    list.reserve(c.DatumListe.size());
    for (const Datum& d : c.DatumListe) list.push_back(Entry(d));
    return list;
}

const Datum* SelectedDatum(const Session& s) {
    const int entry = s.options.List[kListDatum];
    // An entry past the table (the list is empty or shorter) counts as none;
    // compared as it stands, since any int can come from a settings file.
    if (entry < 0 || static_cast<size_t>(entry) >= s.coords.DatumListe.size()) return nullptr;
    return &s.coords.DatumListe[static_cast<size_t>(entry)];
}

HelmertAnzeige HelmertAnzeigen(const Session& s) {
    static const Datum kNone{};
    const Datum* p = SelectedDatum(s);
    const Datum& d = p ? *p : kNone;
    HelmertAnzeige a;
    a.detail = {"Helmert-Parameter",
                "Name: " + d.Name,
                "Region: " + d.Region,
                "Halbachse X: " + NumberText(d.HalbachseX),
                "Halbachse Y: " + NumberText(d.HalbachseY),
                "dx: " + NumberText(d.dx),
                "dy: " + NumberText(d.dy),
                "dz: " + NumberText(d.dz),
                "rx: " + NumberText(d.rx),
                "ry: " + NumberText(d.ry),
                "rz: " + NumberText(d.rz),
                "Massstab: " + NumberText(d.Massstab)};
    a.caption = s.options.Check[kCheckTransform] ? Entry(d) : "WGS 84";
    return a;
}

const Datum* FindDatum(const std::vector<Datum>& liste, std::string_view name) {
    for (const Datum& d : liste)
        if (EqualNoCase(d.Name, name) || EqualNoCase(Entry(d), name)) return &d;
    int n = 0;
    auto r = std::from_chars(name.data(), name.data() + name.size(), n);
    if (r.ec == std::errc() && r.ptr == name.data() + name.size() && n >= 1 &&
        n <= static_cast<int>(liste.size()))
        return &liste[static_cast<size_t>(n - 1)];
    return nullptr;
}

void DatumToWGS84(const Datum& d, double lon, double lat, double& lonW, double& latW) {
    double X, Y, Z, X2, Y2, Z2;
    GeoNachKartesisch(lon, lat, X, Y, Z, d.HalbachseX, d.HalbachseY, kHeightOnDatum);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, d.dx, d.dy, d.dz, d.rx, d.ry, d.rz, d.Massstab);
    KartesischNachGeo(X2, Y2, Z2, lonW, latW, kWgs84A, kWgs84B);
}

void WGS84ToDatum(const Datum& d, double lonW, double latW, double& lon, double& lat) {
    double X, Y, Z, X2, Y2, Z2;
    GeoNachKartesisch(lonW, latW, X, Y, Z, kWgs84A, kWgs84B, kHeightOnWgs84);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, d.dx * -1.0, d.dy * -1.0, d.dz * -1.0, d.rx * -1.0, d.ry * -1.0,
                          d.rz * -1.0, 1 / d.Massstab);
    KartesischNachGeo(X2, Y2, Z2, lon, lat, d.HalbachseX, d.HalbachseY);
}

void DatumNachWGS84(const Session& s, double lon, double lat, double& lonW, double& latW, bool erzwingen) {
    const Datum* d = SelectedDatum(s);
    if (!d || (!s.options.Check[kCheckTransform] && !erzwingen)) {
        lonW = lon;
        latW = lat;
        return;
    }
    DatumToWGS84(*d, lon, lat, lonW, latW);
}

void WGS84NachDatum(const Session& s, double& lonW, double& latW, double& lon, double& lat, bool erzwingen) {
    const Datum* d = SelectedDatum(s);
    if (!d || (!s.options.Check[kCheckTransform] && !erzwingen)) {
        lonW = lon;
        latW = lat;
        return;
    }
    WGS84ToDatum(*d, lonW, latW, lon, lat);
}

// With the DHDN row of helmert.dat, against cs2cs +towgs84 with the same
// values (exact rotations, height 0): at most 0.043 m to WGS 84 and 0.041 m
// back over Germany (bench/coord-accuracy.sh); the fixed heights and the
// small angles cost only centimetres.
void WGS84NachPotsdam(double lonW, double latW, double& lon, double& lat) {
    double X, Y, Z, X2, Y2, Z2;
    GeoNachKartesisch(lonW, latW, X, Y, Z, kWgs84A, kWgs84B, kHeightOnWgs84);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, -591.28, -81.35, -396.39, 1.477, -0.0736, -1.458, 0.999990181);
    KartesischNachGeo(X2, Y2, Z2, lon, lat, kBesselA, kBesselB);
}

void PotsdamNachWGS84(double lon, double lat, double& lonW, double& latW) {
    double X, Y, Z, X2, Y2, Z2;
    GeoNachKartesisch(lon, lat, X, Y, Z, kBesselA, kBesselB, kHeightOnDatum);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, 591.28, 81.35, 396.39, -1.477, 0.0736, 1.458, 1.00000982);
    KartesischNachGeo(X2, Y2, Z2, lonW, latW, kWgs84A, kWgs84B);
}

void GeoNachKartesisch(double lon, double lat, double& X, double& Y, double& Z, double a, double b, double h) {
    const double l = kPi * lon / 180;
    const double p = kPi * lat / 180;
    const double e2 = (a * a - b * b) / (a * a);
    const double N = a / std::sqrt(1 - e2 * std::sin(p) * std::sin(p));
    X = (h + N) * std::cos(p) * std::cos(l);
    Y = (h + N) * std::cos(p) * std::sin(l);
    Z = (h + N * (1 - e2)) * std::sin(p);
}

namespace {
// The six fixed rounds shared by KartesischNachGeo and EcefNachGeo; C and N
// of the last round are handed out for the height.
double SixRounds(double X, double Y, double Z, double a, double b, double& C, double& N) {
    const double e2 = (a * a - b * b) / (a * a);
    double p = 141.37166941154055 / 180;
    for (int round = 0; round < 6; ++round) {
        const double P = std::sqrt(Y * Y + X * X);
        const double T = Z / P;
        C = P / std::cos(p);
        N = a / std::sqrt(1 - e2 * std::sin(p) * std::sin(p));
        p = std::atan(T * (1 / (1 - e2 * N / C)));
    }
    return p;
}
}  // namespace

void KartesischNachGeo(double X, double Y, double Z, double& lon, double& lat, double a, double b) {
    double C, N;
    const double p = SixRounds(X, Y, Z, a, b, C, N);
    double l = std::atan(Y / X);
    if (X < 0 && Y < 0) l -= kPi;
    else if (X < 0 && Y > 0) l += kPi;
    lon = l * 180 / kPi;
    lat = p * 180 / kPi;
}

void HelmertTransformation(double X, double Y, double Z, double& X2, double& Y2, double& Z2, double dx, double dy,
                           double dz, double rx, double ry, double rz, double m) {
    rx = kPi * (rx / 3600) / 180;
    ry = kPi * (ry / 3600) / 180;
    rz = kPi * (rz / 3600) / 180;
    X2 = dx + m * (X + rz * Y - ry * Z);
    Y2 = dy + m * (Y - rz * X + rx * Z);
    Z2 = dz + m * (Z + ry * X - rx * Y);
}

void EcefNachGeo(double X, double Y, double Z, double Vx, double Vy, double Vz, double& lat, double& lon,
                 double& hoehe, double& speed, double& kurs) {
    double C, N;
    const double p = SixRounds(X, Y, Z, kWgs84A, kWgs84B, C, N);
    const double l = std::atan(Y / X);
    lat = p * 180 / kPi;
    lon = l * 180 / kPi;
    hoehe = C - N;
    const double vN = -Vx * std::sin(p) * std::cos(l) - Vy * std::sin(p) * std::sin(l) + Vz * std::cos(p);
    const double vE = -Vx * std::sin(l) + Vy * std::cos(l);
    speed = std::sqrt(vN * vN + vE * vE) * 3.6;
    double k;
    if (vN == 0) k = vE == 0 ? 0 : vE > 0 ? 1.570796326794895 : 4.712388980384685;
    else if (vN > 0 && vE >= 0) k = std::atan(vE / vN);
    // Clockwise from the east: each quadrant starts at its axis.
    else if (vN < 0 && vE >= 0) k = std::atan(std::fabs(vN / vE)) + 1.570796326794895;
    else if (vN < 0) k = std::atan(std::fabs(vE / vN)) + 3.14159265358979;
    else k = std::atan(std::fabs(vN / vE)) + 4.712388980384685;
    kurs = k * 180 / kPi;
}

}  // namespace ortelix
