#include "core/ModulArray.h"

#include <algorithm>
#include <cmath>

namespace ortelix {

std::string StatusLine::text() const {
    if (!prefix_) return text_;
    return std::string(prefix_) + std::to_string(number_);
}

int64_t DataStore::TrackPointTotal() const {
    int64_t n = 0;
    for (const Track& t : Tracks) n += static_cast<int64_t>(t.Points.size());
    return n;
}

int64_t DataStore::RoutePointTotal() const {
    int64_t n = 0;
    for (const Route& r : Routes) n += static_cast<int64_t>(r.Points.size());
    return n;
}

int32_t RoundWhole(double v) {
    if (std::isnan(v)) return 0;
    const double r = std::nearbyint(v);
    if (!(r > -2147483647.0 && r < 2147483647.0)) return r > 0 ? 2147483647 : -2147483647;
    return static_cast<int32_t>(r);
}

namespace {
constexpr double kMaxAltitudeMetres = 1.0e6;
constexpr double kMaxSpeedKmh = 1.0e5;
constexpr double kLowestCourse = -360, kHighestCourse = 720;
}  // namespace

// Every test is a comparison that NaN fails.
bool PositionInRange(double lon, double lat) { return lat >= -90 && lat <= 90 && lon >= -360 && lon <= 360; }

bool AltitudeInRange(OptDouble alt) { return alt.empty() || std::fabs(*alt) <= kMaxAltitudeMetres; }

OptDouble SpeedInRange(OptDouble kmh) {
    return kmh.has() && *kmh >= 0 && *kmh <= kMaxSpeedKmh ? kmh : OptDouble();
}

OptDouble CourseInRange(OptDouble degrees) {
    return degrees.has() && *degrees >= kLowestCourse && *degrees <= kHighestCourse ? degrees : OptDouble();
}

namespace {
OptInt RoundOpt(OptDouble v) { return v.empty() ? OptInt() : OptInt(RoundWhole(*v)); }
OptShort RoundShort(OptDouble v) {
    if (v.empty()) return {};
    const int32_t r = RoundWhole(*v);
    return static_cast<int16_t>(std::clamp<int32_t>(r, -32767, 32767));
}
OptShort SatCount(std::string_view sat) {
    if (sat.empty()) return {};
    int v = 0;
    size_t i = 0;
    while (i < sat.size() && sat[i] == ' ') ++i;
    const size_t first = i;
    while (i < sat.size() && sat[i] >= '0' && sat[i] <= '9' && v < 10000) v = v * 10 + (sat[i++] - '0');
    if (i == first) return {};
    return static_cast<int16_t>(v);
}

void FillTrackPoint(TrackPoint& t, const TrackPointIn& p) {
    t.Lon = p.lon;
    t.Lat = p.lat;
    t.Alt = RoundOpt(p.alt);
    t.Course = RoundShort(CourseInRange(p.course));
    t.Sat = SatCount(p.sat);
    t.Fix = InlineText<6>(p.fix);
    t.Date_ = p.date;
    t.Time_ = p.time;
    t.Speed = SpeedInRange(p.speed);
}

std::string Numbered(const char* prefix, size_t n) { return prefix + std::to_string(n); }
}  // namespace

void NewTrack(DataStore& s, std::string_view name) {
    if (!s.Tracks.empty() && s.Tracks.back().Points.empty()) return;  // reuse the empty last track
    s.Tracks.emplace_back();
    s.TrackCount = static_cast<int32_t>(s.Tracks.size());
    Track& t = s.Tracks.back();
    if (!name.empty()) t.Name = name;
    else if (!s.PendingName.empty()) t.Name = s.PendingName;
    else t.Name = Numbered("T", s.Tracks.size());
}

void NewRoute(DataStore& s, std::string_view name) {
    if (!s.Routes.empty() && s.Routes.back().Points.empty()) return;
    s.Routes.emplace_back();
    s.RouteCount = static_cast<int32_t>(s.Routes.size());
    Route& r = s.Routes.back();
    if (!name.empty()) r.Name = name;
    else if (!s.PendingName.empty()) r.Name = s.PendingName;
    else r.Name = Numbered("R_", s.Routes.size());
}

Flaeche& NewFlaeche(DataStore& s) {
    Flaeche& f = s.Flaechen.emplace_back();
    s.FlaecheCount = static_cast<int32_t>(s.Flaechen.size());
    return f;
}

void AddRoutePoint(DataStore& s, const GeoPointIn& p) {
    if (!PositionInRange(p.lon, p.lat) || !AltitudeInRange(p.alt)) {
        ++s.SkippedRoutePoints;
        return;
    }
    if (s.Routes.empty()) NewRoute(s);
    Route& r = s.Routes.back();
    GeoPoint& g = r.Points.emplace_back();
    g.Lon = p.lon;
    g.Lat = p.lat;
    g.Name = p.name;
    g.Desc = p.desc;
    g.Cmt = p.cmt;
    g.Alt = RoundOpt(p.alt);
    g.Course = RoundShort(CourseInRange(p.course));
    g.Date_ = p.date;
    g.Time_ = p.time;
    s.StatusText.set("Lese Wegepunkte: ", static_cast<int64_t>(r.Points.size()));
    ++s.RoutePointsRead;
    UpdateBox(s.TrackRouteBox, p.lon, p.lat);
}

TrackPoint& StoreTrackPoint(DataStore& s, const TrackPointIn& p) {
    if (s.Tracks.empty()) NewTrack(s);
    Track& t = s.Tracks.back();
    TrackPoint& tp = t.Points.emplace_back();
    FillTrackPoint(tp, p);
    ++s.TrackPointsRead;
    s.StatusText.set("Lese Trackpunkte: ", static_cast<int64_t>(t.Points.size()));
    UpdateBox(s.TrackRouteBox, p.lon, p.lat);
    return tp;
}

void ReplaceLastTrackPoint(DataStore& s, const TrackPointIn& p, bool dropTimeData) {
    if (s.Tracks.empty() || s.Tracks.back().Points.empty()) return;
    TrackPoint& tp = s.Tracks.back().Points.back();
    FillTrackPoint(tp, p);
    if (dropTimeData) {
        tp.Date_.reset();
        tp.Time_.reset();
        tp.Speed.reset();
    }
}

size_t GrowWayPoints(DataStore& s, size_t count) {
    const size_t first = s.WayPoints.size();
    s.WayPoints.resize(first + count);
    return first;
}

size_t GrowTrackPoints(Track& t, size_t count) {
    const size_t first = t.Points.size();
    t.Points.resize(first + count);
    return first;
}

size_t GrowRoutePoints(Route& r, size_t count) {
    const size_t first = r.Points.size();
    r.Points.resize(first + count);
    return first;
}

void UpdateBox(Box& b, double lon, double lat) {
    if (lon == 0 && lat == 0) return;
    if (b.West == 0) b.West = lon;
    if (b.South == 0) b.South = lat;
    if (b.East == 0) b.East = lon;
    if (b.North == 0) b.North = lat;
    if (lon < b.West) b.West = lon;
    if (lat < b.South) b.South = lat;
    if (lon > b.East) b.East = lon;
    if (lat > b.North) b.North = lat;
}

void ClearStore(DataStore& s) {
    s.TrackCount = s.TrackPointsRead = s.SkippedTrackPoints = 0;
    s.RouteCount = s.RoutePointsRead = 0;
    s.WayPointCount = s.SkippedWayPoints = 0;
    s.SkippedRoutePoints = 0;
    s.FlaecheCount = 0;
    s.StatusText.clear();
    s.FirstMoment.reset();
    s.LastMoment.reset();
    s.WayPointBox = {};
    s.TrackRouteBox = {};
    s.WayPoints = {};
    s.Routes = {};
    s.Tracks = {};
    s.Flaechen = {};
}

}  // namespace ortelix
