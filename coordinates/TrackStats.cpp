#include "coordinates/TrackStats.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "coordinates/Entfernung.h"

namespace ortelix {

namespace {
constexpr double kStandStillMetres = 100;
constexpr int64_t kPauseSeconds = 5 * 60;
constexpr int64_t kCheckSeconds = 10 * 60;

Span SpanOf(int64_t seconds) {
    return static_cast<int32_t>(std::clamp<int64_t>(seconds, -2147483647, 2147483647));
}
}  // namespace

int64_t TrackStats(TrackStatState& st, TrackPoint& p, bool firstOfTrack, int64_t moment) {
    if (firstOfTrack) {
        st = TrackStatState{};
        st.LastLon = st.AnchorLon = p.Lon;
        st.LastLat = st.AnchorLat = p.Lat;
        st.StartMoment = st.AnchorMoment = st.LastMovement = st.CheckMoment = moment;
        p.DistKm = 0;
        return 0;
    }
    // One course variable serves both measures: the anchor's course wins, and
    // the step's course stays only when the anchor is too close to give one.
    // So the step's course is worked out only then.
    const double lastLon = st.LastLon, lastLat = st.LastLat;
    st.TotalMetres += Entfernung(lastLon, lastLat, p.Lon, p.Lat);
    st.LastLon = p.Lon;
    st.LastLat = p.Lat;

    double course = Azimut(st.AnchorLon, st.AnchorLat, p.Lon, p.Lat, std::numeric_limits<double>::quiet_NaN());
    if (std::isnan(course)) course = Azimut(lastLon, lastLat, p.Lon, p.Lat, 0);
    int64_t pause = 0;
    if (WeiterAls(st.AnchorLon, st.AnchorLat, p.Lon, p.Lat, kStandStillMetres)) {
        const int64_t stayed = moment - st.AnchorMoment;
        if (stayed > kPauseSeconds) {
            pause = stayed;
            st.PauseSum += stayed;
        }
        st.AnchorLon = p.Lon;
        st.AnchorLat = p.Lat;
        st.AnchorMoment = moment;
        st.LastMovement = moment;
    }

    const int64_t duration = moment - st.StartMoment;
    p.StepCourse = static_cast<int16_t>(std::clamp(course, -32767.0, 32767.0));
    p.Duration = SpanOf(duration);
    p.PauseTime = SpanOf(st.PauseSum);
    p.DistKm = st.TotalMetres / 1000;
    st.MovingTime = duration - st.PauseSum;

    if (moment - st.CheckMoment > kCheckSeconds) {
        const double hours = static_cast<double>(moment - st.CheckMoment) / 3600.0;
        st.CheckSpeedKmh = (st.TotalMetres - st.CheckMetres) / 1000.0 / hours;
        st.CheckMoment = moment;
        st.CheckMetres = st.TotalMetres;
    }
    return pause;
}

}  // namespace ortelix
