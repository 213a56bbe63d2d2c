#pragma once
// The store: every list that the readers fill and the writers, the editor,
// the simulator and the map export read. Lists hold their real elements only;
// the 1-based counting of the file formats shows only in counts and names.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

// A short text kept inline, for the few-character fields of a track point
// ("3d", "dgps"); longer source texts are cut.
template <size_t N>
class InlineText {
public:
    InlineText() { data_.fill('\0'); }
    explicit InlineText(std::string_view s) {
        data_.fill('\0');
        s.copy(data_.data(), std::min(s.size(), N));
    }
    std::string_view view() const {
        size_t n = 0;
        while (n < N && data_[n] != '\0') ++n;
        return {data_.data(), n};
    }
    bool empty() const { return data_[0] == '\0'; }
    friend bool operator==(const InlineText&, const InlineText&) = default;

private:
    std::array<char, N> data_;
};

// One waypoint or route point.
struct GeoPoint {
    double Lon = 0;
    double Lat = 0;
    std::string Name;
    std::string Desc;
    std::string Cmt;
    OptInt Alt;       // metres, whole
    OptShort Course;  // degrees, whole
    Date Date_;
    Time Time_;
    OptInt ForeColor;  // RGB as OziExplorer stores it
    OptInt BackColor;
};

// One track point. Sized for large logs: at most 64 bytes.
struct TrackPoint {
    double Lon = 0;
    double Lat = 0;
    double DistKm = 0;  // track length up to and including this point
    OptDouble Speed;    // km/h
    OptInt Alt;         // metres, whole
    Date Date_;
    Time Time_;
    Span Duration;      // seconds since the first point of the track
    Span PauseTime;     // sum of pauses up to here, seconds
    OptShort Course;    // degrees, whole
    OptShort StepCourse;
    OptShort Sat;       // satellites as the source counted them
    InlineText<6> Fix;  // fix kind as the source named it ("3d", "dgps", "1")
};
static_assert(sizeof(TrackPoint) <= 64, "a track point must stay within 64 bytes");

struct Track {
    std::string Name;
    std::vector<TrackPoint> Points;
};

struct Route {
    std::string Name;
    std::vector<GeoPoint> Points;
};

// One read-in map area: name, limits in WGS 84 degrees, and its corners when
// it is a polygon.
struct Flaeche {
    std::string Name;
    double West = 0, North = 0, East = 0, South = 0;
    std::vector<std::array<double, 2>> Polygon;  // lon, lat
};

// West, south, east, north; 0 on a side means "not set yet".
struct Box {
    double West = 0, South = 0, East = 0, North = 0;
    friend bool operator==(const Box&, const Box&) = default;
};

// What a reader hands to the store for one track point, before rounding.
struct TrackPointIn {
    double lon = 0, lat = 0;
    OptDouble alt, speed, course;
    Date date;
    Time time;
    std::string_view sat, fix;
};

// What a reader hands to the store for one waypoint or route point.
struct GeoPointIn {
    double lon = 0, lat = 0;
    std::string name, desc, cmt;
    OptDouble alt, course;
    Date date;
    Time time;
    OptInt foreColor, backColor;
};

// The running progress text. Kept as a fixed prefix and a number so that a
// reader can report every record without building a string.
class StatusLine {
public:
    void set(std::string_view text) { text_ = text; number_ = -1; prefix_ = nullptr; }
    void set(const char* prefix, int64_t number) { prefix_ = prefix; number_ = number; }
    std::string text() const;
    void clear() { set(""); }

private:
    const char* prefix_ = nullptr;
    int64_t number_ = -1;
    std::string text_;
};

struct DataStore {
    std::vector<GeoPoint> WayPoints;
    std::string WayPointListName;
    std::vector<Route> Routes;
    std::vector<Track> Tracks;
    std::vector<Flaeche> Flaechen;

    int32_t TrackCount = 0;
    int32_t TrackPointsRead = 0;
    int32_t SkippedTrackPoints = 0;
    int32_t RouteCount = 0;
    int32_t RoutePointsRead = 0;
    int32_t WayPointCount = 0;
    int32_t SkippedWayPoints = 0;
    // Route points pass no filter; these are the ones whose numbers lay off
    // the earth (PositionInRange, AltitudeInRange).
    int32_t SkippedRoutePoints = 0;
    int32_t FlaecheCount = 0;

    StatusLine StatusText;
    std::string PendingName;

    Box WayPointBox;
    Box TrackRouteBox;

    // First and last moment of the read data, shown by the main form.
    OptDouble FirstMoment, LastMoment;

    // Sums over all lists, as the main form's timer shows them.
    int64_t TrackPointTotal() const;
    int64_t RoutePointTotal() const;
};

// Numbers that no receiver gives, checked once at the store's entry points
// (AddTrackPoint, AppendTrackPoint, AddWayPoint, AddRoutePoint) so that
// every reader gets the same rule. A position that is not finite or lies off
// the earth (|lat| > 90, |lon| > 360; longitudes up to 360 are the 0..360
// convention of some formats) refuses the point, and so does an altitude that
// is not finite or beyond 1000 km up or down: a record whose numbers are that
// far off is misread, not a reading. A speed below 0 or above 100 000 km/h
// and a course outside -360..720 only empty their field: formats write -1,
// 999 and the like for "unknown", and the position stays good.
bool PositionInRange(double lon, double lat);
bool AltitudeInRange(OptDouble alt);  // empty is in range
OptDouble SpeedInRange(OptDouble kmh);
OptDouble CourseInRange(OptDouble degrees);

// Store operations that need nothing but the store.
void NewTrack(DataStore& s, std::string_view name = {});
void NewRoute(DataStore& s, std::string_view name = {});
Flaeche& NewFlaeche(DataStore& s);  // appends an area and counts it
// Refuses (and counts in SkippedRoutePoints) a point out of range.
void AddRoutePoint(DataStore& s, const GeoPointIn& p);
void ReplaceLastTrackPoint(DataStore& s, const TrackPointIn& p, bool dropTimeData);
// Appends the point to the last track with rounding and counting, nothing else.
TrackPoint& StoreTrackPoint(DataStore& s, const TrackPointIn& p);
// Append `count` empty elements (for a writer that fills them in place) and
// return the index of the first.
size_t GrowWayPoints(DataStore& s, size_t count);
size_t GrowTrackPoints(Track& t, size_t count);
size_t GrowRoutePoints(Route& r, size_t count);
void UpdateBox(Box& box, double lon, double lat);
void ClearStore(DataStore& s);

// Whole-number rounding of the store: to nearest, halves to even. Values
// beyond the 32-bit range give its ends (±2147483647), not a number gives 0:
// never the undefined cast.
int32_t RoundWhole(double v);

}  // namespace ortelix
