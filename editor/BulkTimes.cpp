#include "editor/BulkTimes.h"

#include <cmath>

#include "coordinates/Entfernung.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/TrackWayPoints.h"
#include "editor/BulkTarget.h"
#include "editor/CellFormats.h"
#include "editor/ModDigiCam.h"
#include "editor/RouteWalk.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

template <typename P>
int64_t SecondsOf(const P& p) {
    return static_cast<int64_t>(p.Date_.valueOr(0)) * kSecondsPerDay + p.Time_.valueOr(0);
}

template <typename P>
void SetSeconds(P& p, int64_t seconds) {
    const int64_t day = seconds >= 0 ? seconds / kSecondsPerDay : -((-seconds + kSecondsPerDay - 1) / kSecondsPerDay);
    p.Date_ = static_cast<int32_t>(day);
    p.Time_ = static_cast<int32_t>(seconds - day * kSecondsPerDay);
}

int64_t DaysToSeconds(double days) { return std::llround(days * kSecondsPerDay); }

}  // namespace

bool GpsZeitNachOrtszeit(Session& s, ModuleEditor& ed) {
    const OptDouble h = AskNumber(s,
                                  "Geben Sie an, um wieviel Stunden die Zeiten geändert werden sollen. Zur "
                                  "Sommerzeit sollten in Deutschland 2 Stunden addiert werden, sonst eine Stunde",
                                  "Korrektur der GPS-Zeit", "");
    const int64_t hours = h ? static_cast<int64_t>(std::trunc(*h)) : 0;
    if (hours == 0) return false;
    ForEachShown(s, ed, [&](auto& p) {
        if (p.Date_.empty() || p.Time_.empty()) return;  // nothing to shift
        SetSeconds(p, SecondsOf(p) + hours * 3600);
    });
    ed.refill();
    return true;
}

bool ZeitenNeuBerechnen(Session& s, ModuleEditor& ed) {
    if (ed.view() == EditorView::Waypoint) {
        s.platform.messageBox("Diese Funktion steht für Waypoints nicht zur Verfügung.", "Editor", Buttons::Ok,
                              Icon::Information);
        return false;
    }
    const OptDouble speed = AskNumber(s, "Geben Sie die durchschnittliche Gescwindigkeit in km/h an.", "Neuberechnung", "");
    if (!speed || *speed == 0) return false;
    const auto startText = s.platform.inputBox("Geben Sie die Startzeit im Format HH:MM:SS an.", "Neuberechnung", "00:00:00");
    const Time startTime = ParseClock(startText.value_or(""));
    const int64_t today = static_cast<int64_t>(std::floor(s.platform.localNow()));
    const int64_t start = today * kSecondsPerDay + startTime.valueOr(0);
    auto at = [&](double km) { return start + DaysToSeconds(km / *speed / 24); };
    if (Track* t = ShownTrack(s, ed)) {
        TrackRun run;
        TrackStep step;
        for (size_t i = 0; i < t->Points.size(); ++i) {
            const double km = TrackPointStat(run, t->Points[i], static_cast<int64_t>(i) + 1, step);
            SetSeconds(t->Points[i], at(km));
            s.progress();
        }
    } else if (Route* r = ShownRoute(s, ed)) {
        RouteRun run;
        double section = 0, course = 0;
        for (size_t i = 0; i < r->Points.size(); ++i) {
            const double km = RoutePointStat(run, r->Points[i], static_cast<int64_t>(i) + 1, section, course);
            SetSeconds(r->Points[i], at(km));
            s.progress();
        }
    }
    ed.refill();
    return true;
}

bool ParseGermanMoment(std::string_view text, int64_t& seconds) {
    text = Trim(text);
    const size_t blank = text.find(' ');
    const Date d = ParseDate(text.substr(0, blank));
    if (d.empty()) return false;
    Time t = 0;
    if (blank != std::string_view::npos) {
        t = ParseClock(text.substr(blank + 1));
        if (t.empty()) return false;
    }
    seconds = static_cast<int64_t>(*d) * kSecondsPerDay + *t;
    return true;
}

int WaypointBeiZeitpunkt(Session& s, ModuleEditor& ed) {
    const std::string proposal = ed.view() == EditorView::Track ? ed.trackSum().Moment : std::string();
    const auto text = s.platform.inputBox(
        "Geben Sie Datum und Zeit in folgender Form ein:\n16.02.2006 16:23:10\nTag.Monat.Jahr Stunde:Minute:Sekunde",
        "Wo war ich zu diesem Zeitpunkt?", proposal);
    int64_t moment = 0;
    if (!text || !ParseGermanMoment(*text, moment)) {
        s.platform.messageBox("Ungültige Eingabe", "Wo war ich zu diesem Zeitpunkt?", Buttons::Ok, Icon::Warning);
        return 0;
    }
    int added = 0;
    for (size_t t = 0; t < s.store.Tracks.size(); ++t) {
        s.store.StatusText.set("Prüfe Track ", static_cast<int64_t>(t) + 1);
        const Track& track = s.store.Tracks[t];
        // The photo placing's search: where a binary search for the moment closes.
        size_t index = 0;
        if (!FindPointByTime(track, moment, index)) continue;
        const TrackPoint& p = track.Points[index];
        GeoPointIn w = WayPointAt(p);
        if (p.Course) w.course = *p.Course;
        w.name = TrackPointName(t, index);
        w.desc = track.Name + " nach " + FormatPoint(p.DistKm, "0.00") + " km und " +
                 HourMinutes(p.Duration.valueOr(0), true) + " Std:Min";
        const size_t before = s.store.WayPoints.size();
        AddWayPoint(s, std::move(w));
        added += s.store.WayPoints.size() > before ? 1 : 0;
    }
    s.store.StatusText.set("Fertig");
    ed.refill();
    return added;
}

bool NeueTrackzeiten(Session& s, int track, const TrackZeitWahl& wahl) {
    if (track < 0 || static_cast<size_t>(track) >= s.store.Tracks.size()) return false;
    auto& pts = s.store.Tracks[static_cast<size_t>(track)].Points;
    const size_t n = pts.size();
    if (n < 2) return false;
    const double speed = std::max(0.1, wahl.speedKmh);
    const double sekunden = std::max(1.0, wahl.seconds);
    const int64_t start = SecondsOf(pts[0]);
    int64_t moment = start;
    double legSpeed = 0, course = 0;
    for (size_t i = 0; i + 1 < n; ++i) {
        s.store.StatusText.set(TrackPointName(static_cast<size_t>(track), i));
        const double dist = Entfernung(pts[i].Lon, pts[i].Lat, pts[i + 1].Lon, pts[i + 1].Lat, course);
        SetSeconds(pts[i], moment);
        int64_t next = 0;
        if (wahl.bySpeed) {
            next = moment + DaysToSeconds(dist / 1000 / speed / 24);
            legSpeed = speed;
        } else {
            next = start + DaysToSeconds(static_cast<double>(i + 1) * sekunden / 60 / 60 / 24);
            legSpeed = (dist / 1000) / (sekunden / 60 / 60);
        }
        if (wahl.overwrite) {
            pts[i].Speed = std::trunc(legSpeed);
            pts[i].Course = static_cast<int16_t>(std::trunc(course));
        }
        moment = next;
        s.progress();
    }
    SetSeconds(pts[n - 1], moment);
    if (wahl.overwrite) {
        pts[n - 1].Speed = std::trunc(legSpeed);
        pts[n - 1].Course = static_cast<int16_t>(0);
    }
    return true;
}

}  // namespace ortelix
