#include "gpsformats/NmeaLogReader.h"

#include <cstring>

#include "core/FileIO.h"
#include "core/ReadFilter.h"
#include "core/ScanBytes.h"
#include "core/Session.h"
#include "core/TrackWayPoints.h"
#include "gpsformats/NmeaDecode.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// Pages behind the walk go back every 16 MB, so a large log is never
// resident as a whole.
constexpr size_t kReleaseStep = size_t{1} << 24;

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
        const char* nl = FindByte(p, end, '\n');
        const char* stop = nl ? nl : end;
        // A CR inside the piece ends a line too; nearly always it stands last.
        for (const char* q = p; q < stop;) {
            const char* cr = static_cast<const char*>(std::memchr(q, '\r', static_cast<size_t>(stop - q)));
            const char* lineEnd = cr ? cr : stop;
            if (lineEnd > q && !line(std::string_view(q, static_cast<size_t>(lineEnd - q)))) return;
            q = lineEnd + 1;
        }
        p = stop + 1;
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
size_t NoteDates(Session& s, std::string_view text, const NmeaDecodeOptions& o, const MappedFile* map) {
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
