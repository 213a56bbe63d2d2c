#include "gpsformats/NmeaLogReader.h"

#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "core/FileIO.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "core/TrackWayPoints.h"
#include "gpsformats/NmeaDecode.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// Pages behind the walk go back every 16 MB, so a large log is never
// resident as a whole.
constexpr size_t kReleaseStep = size_t{1} << 24;

// The next CR or LF, sixteen bytes a step; `end` when there is none.
const char* FindLineEnd(const char* p, const char* end) {
#if defined(__SSE2__)
    const __m128i lf = _mm_set1_epi8('\n'), cr = _mm_set1_epi8('\r');
    while (end - p >= 16) {
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const int mask = _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(b, lf), _mm_cmpeq_epi8(b, cr)));
        if (mask != 0) return p + __builtin_ctz(static_cast<unsigned>(mask));
        p += 16;
    }
#endif
    for (; p < end; ++p)
        if (*p == '\n' || *p == '\r') return p;
    return end;
}

// Every line of the text, ended by LF, CR LF or a CR alone (old Macintosh
// logs), without its end. Empty lines are passed over. Stops early when
// `line` returns false.
template <typename Line>
void EachLine(std::string_view text, const MappedFile* map, Line line) {
    const char* const begin = text.data();
    const char* p = begin;
    const char* const end = p + text.size();
    size_t releasedTo = 0;
    while (p < end) {
        const char* stop = FindLineEnd(p, end);
        if (stop > p && !line(std::string_view(p, static_cast<size_t>(stop - p)))) return;
        p = stop + 1;
        if (p < end && *stop == '\r' && *p == '\n') ++p;
        const size_t at = static_cast<size_t>(p - begin);
        if (map && at - releasedTo >= kReleaseStep) {
            map->release(releasedTo, at);
            releasedTo = at;
        }
    }
    if (map) map->release(releasedTo, text.size());
}

TrackPointIn PointOf(const NmeaFix& f) {
    TrackPointIn p;
    p.lon = f.lon;
    p.lat = f.lat;
    p.alt = f.alt;
    p.speed = f.speed;
    p.course = f.course;
    p.date = f.date;
    p.time = f.time;
    p.sat = f.sat;
    p.fix = f.fix;
    return p;
}

// First pass: the dates of the fixes; returns how many lines gave a position.
size_t NoteDates(Session& s, std::string_view text, NmeaDecodeOptions o, const MappedFile* map) {
    o.wholeFix = false;
    NmeaDecodeState state;
    NmeaFix fix;
    size_t positions = 0;
    EachLine(text, map, [&](std::string_view line) {
        if (DecodeNmeaLine(line, o, state, fix)) {
            ++positions;
            NoteDate(s, fix.date);
        }
        s.progress();
        return !s.UserAbort;
    });
    return positions;
}

void AddFixes(Session& s, std::string_view text, const NmeaDecodeOptions& o, const MappedFile* map) {
    NmeaDecodeState state;
    NmeaFix fix;
    EachLine(text, map, [&](std::string_view line) {
        if (DecodeNmeaLine(line, o, state, fix)) AddTrackPoint(s, PointOf(fix));
        s.progress();
        return !s.UserAbort;
    });
}

}  // namespace

void ReadNmeaLogText(Session& s, std::string_view bytes, bool dateChoice, const MappedFile* map) {
    DataStore& st = s.store;
    const NmeaDecodeOptions o = NmeaOptionsOf(s);
    const size_t tracksBefore = st.Tracks.size();
    if (s.options.Check[12] == 0) NewTrack(st);
    if (dateChoice) {
        const size_t positions = NoteDates(s, bytes, o, map);
        AskDates(s);
        // No more points than lines with a position: one reservation instead
        // of the vector's doublings, which would hold twice the track at the end.
        if (!st.Tracks.empty()) {
            std::vector<TrackPoint>& points = st.Tracks.back().Points;
            points.reserve(points.size() + positions);
        }
    }
    if (!s.UserAbort) AddFixes(s, bytes, o, map);
    ClearDates(s);
    if (st.Tracks.empty() || st.Tracks.back().Points.empty()) {
        st.StatusText.set("Fertig");
        return;
    }
    const Track& last = st.Tracks.back();
    if (s.options.Check[18] != 0) AddWayPoint(s, EndWayPoint(last.Name, last.Points.back()));
    // A log that stayed one track (no gap split it) ends with its length and
    // duration, as the end waypoint describes them.
    if (st.Tracks.size() <= tracksBefore + 1) {
        st.StatusText.set(EndWayPoint(last.Name, last.Points.back()).desc);
        s.pollEvents();
    }
    st.StatusText.set("Fertig");
}

void ReadNmeaLog(Session& s, const std::string& path, bool dateChoice) {
    s.store.StatusText.set("Lese Datei");
    s.platform.setBusy(true);
    const MappedFile file(path);
    ReadNmeaLogText(s, file.view(), dateChoice, &file);
    file.checkIntact();
    s.platform.setBusy(false);
}

}  // namespace ortelix
