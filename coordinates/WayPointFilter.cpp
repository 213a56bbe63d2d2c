// The waypoint filter behind AddWayPoint: List(8) chooses the test. It lives
// beside the distance routine and the area regions that it uses; its
// interface is core/ReadFilter.h.
#include <algorithm>
#include <string>

#include "coordinates/Entfernung.h"
#include "coordinates/ModPointInPolygon.h"
#include "core/FilterSettings.h"
#include "core/ReadFilter.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// The extent of the chosen Top50 map, List(9) of the map list. Without a
// chosen map the box is empty and "Innerhalb der Karte " refuses every waypoint.
Box Top50MapBox(const Session& s) {
    const std::vector<TopKarte>& maps = s.options.Top50.Karten;
    const int row = s.options.List[9];
    if (row < 0 || static_cast<size_t>(row) >= maps.size()) return {};
    const TopKarte& k = maps[static_cast<size_t>(row)];
    return {k.W, k.S, k.O, k.N};
}

// The regions are built once for the areas read so far, and again when the
// number of areas has changed.
bool InAnyArea(Session& s, double lon, double lat) {
    if (s.coords.areaRegions.size() != s.store.Flaechen.size()) AlleRegionenBauen(s);
    return PunktInEinerFlaeche(s, lon, lat);
}

bool NearAnyTrack(Session& s, double lon, double lat) {
    const double radius = WayPointFilterRadiusMetres(s.options);
    s.platform.setBusy(true);
    bool near = false;
    size_t number = 0;
    for (const Track& t : s.store.Tracks) {
        ++number;
        s.store.StatusText.set("Prüfe WayPoint: " + std::to_string(number) + "-");
        for (const TrackPoint& p : t.Points) {
            if (Entfernung(p.Lon, p.Lat, lon, lat) < radius) {
                near = true;
                break;
            }
        }
        if (near) break;
    }
    s.platform.setBusy(false);
    return near;
}

}  // namespace

bool WayPointWanted(Session& s, double lon, double lat) {
    const Options& o = s.options;
    switch (o.List[8]) {
        case 1:  // "Nur im Bereich der bereits eingelesenen Flächen"
            return InAnyArea(s, lon, lat);
        case 2:  // "Innerhalb der Koordinaten"
            return InBox(WayPointFilterCorners(o), lon, lat);
        case 3: {  // "Um einen Punkt"; the very centre is refused, by design
            double cLon = 0, cLat = 0;
            WayPointFilterCentre(o, cLon, cLat);
            const double d = Entfernung(cLon, cLat, lon, lat);
            return d < WayPointFilterRadiusMetres(o) && d != 0;
        }
        case 4:  // "Innerhalb der Karte "
            return InBox(Top50MapBox(s), lon, lat);
        case 5:  // "Im Flächenqudrat der LOG-Strecke"
            return InBox(WidenedTrackBox(s.store.TrackRouteBox), lon, lat);
        case 6:  // "An der Strecke"
            return NearAnyTrack(s, lon, lat);
        default:  // "Alle eintragen"
            return true;
    }
}

void AddWayPoint(Session& s, GeoPointIn p) {
    // Numbers no receiver gives refuse the point before the filter measures
    // with them; a course out of range is only emptied (core/ModulArray.h).
    if (!PositionInRange(p.lon, p.lat) || !AltitudeInRange(p.alt)) {
        ++s.store.SkippedWayPoints;
        return;
    }
    p.course = CourseInRange(p.course);
    if (p.foreColor == p.backColor) {  // equal colours count as not given
        p.foreColor = 0;
        p.backColor = 65535;
    }
    if (!WayPointWanted(s, p.lon, p.lat)) {
        ++s.store.SkippedWayPoints;
        return;
    }
    DataStore& st = s.store;
    GeoPoint& g = st.WayPoints.emplace_back();
    g.Lon = p.lon;
    g.Lat = p.lat;
    g.Name = std::move(p.name);
    g.Desc = std::move(p.desc);
    g.Cmt = std::move(p.cmt);
    g.Alt = p.alt.empty() ? OptInt() : OptInt(RoundWhole(*p.alt));
    g.Course = p.course.empty() ? OptShort()
                                : OptShort(static_cast<int16_t>(std::clamp(RoundWhole(*p.course), -32767, 32767)));
    g.Date_ = p.date;
    g.Time_ = p.time;
    g.ForeColor = p.foreColor;
    g.BackColor = p.backColor;
    st.StatusText.set("Lese Wegepunkte: ", static_cast<int64_t>(st.WayPoints.size()));
    ++st.WayPointCount;
    UpdateBox(st.WayPointBox, p.lon, p.lat);
    if (!st.PendingName.empty()) st.WayPointListName = st.PendingName;
}

}  // namespace ortelix
