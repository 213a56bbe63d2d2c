#include "core/ReadFilter.h"

#include <algorithm>

namespace ortelix {

void AddTrackPoint(Session& s, const TrackPointIn& p) {
    // The reduction, time window and region filters plug in here.
    AppendTrackPoint(s, p);
}

void AppendTrackPoint(Session& s, const TrackPointIn& p) {
    if (p.lon == 0 && p.lat == 0) return;
    if (!DateChosen(s, p.date)) {
        ++s.store.SkippedTrackPoints;
        return;
    }
    StoreTrackPoint(s.store, p);
}

bool WayPointWanted(Session&, double, double) { return true; }

void AddWayPoint(Session& s, GeoPointIn p) {
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

void NoteDate(Session& s, Date date) {
    if (date.empty()) return;
    auto& d = s.dates.Dates;
    if (std::find(d.begin(), d.end(), *date) != d.end()) return;
    d.push_back(*date);
    s.store.StatusText.set("Suche Datum ", static_cast<int64_t>(d.size()));
}

bool DateChosen(const Session& s, Date date) {
    const auto& d = s.dates.Dates;
    // A point without a date cannot be judged by its date, and is kept.
    if (d.empty() || date.empty()) return true;
    return std::find(d.begin(), d.end(), *date) != d.end();
}

void AskDates(Session&) {
    // The choice dialog comes with the read filters; until then every date passes.
}

void ClearDates(Session& s) { s.dates.Dates.clear(); }

}  // namespace ortelix
