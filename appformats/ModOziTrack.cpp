#include "appformats/ModOziTrack.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "appformats/ModOziNumbers.h"
#include "coordinates/Datum.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr size_t kSlice = 1 << 16;

// The file in slices, so that a large track never sits twice in memory.
template <typename Emit>
void Produce(const Track& t, std::string_view name, Emit emit) {
    std::string out;
    out.reserve(kSlice + 256);
    out += "OziExplorer Track Point File Version 2.1\r\n"
           "WGS 84\r\n"
           "Altitude is in Feet\r\n"
           "Reserved 3\r\n"
           "0,2,16711935,";
    AppendCp1252(out, name);
    out += ",1,1,0,8421376\r\n";
    AppendInt(out, static_cast<long long>(t.Points.size()));
    out += "\r\n";
    char line[1200];  // two coordinates of any size and the short fields
    // Points come in runs of one day: the date text is made once a run.
    Date lastDate;
    char dateText[32];
    size_t dateLength = 0;
    for (const TrackPoint& p : t.Points) {
        if (!(p.Date_ == lastDate) || dateLength == 0) {
            lastDate = p.Date_;
            dateLength = static_cast<size_t>(PutDateText(dateText, p.Date_) - dateText);
        }
        char* e = line;
        *e++ = ' ';
        e = PutKoordinate(e, p.Lat);
        *e++ = ',';
        *e++ = ' ';
        e = PutKoordinate(e, p.Lon);
        std::memcpy(e, ", 0, ", 5);
        e = PutHoeheFuss(e + 5, p.Alt);
        *e++ = ',';
        *e++ = ' ';
        e = PutTageswert(e, p.Date_, p.Time_);
        *e++ = ',';
        *e++ = ' ';
        std::memcpy(e, dateText, dateLength);
        e += dateLength;
        *e++ = ',';
        *e++ = ' ';
        e = PutTimeText(e, p.Time_);
        *e++ = '\r';
        *e++ = '\n';
        out.append(line, e);
        if (out.size() >= kSlice) {
            emit(out);
            out.clear();
        }
    }
    emit(out);
}

}  // namespace

std::string OziTrackText(const Track& t, std::string_view name) {
    std::string all;
    Produce(t, name, [&](const std::string& part) { all += part; });
    return all;
}

void OziTrackSchreiben(Session& s, const std::string& file, int trackIndex) {
    if (file.empty() || trackIndex < 1 || static_cast<size_t>(trackIndex) > s.store.Tracks.size()) return;
    s.platform.setBusy(true);
    SafeWriter w(file);
    Produce(s.store.Tracks[static_cast<size_t>(trackIndex) - 1], SplitPath(file, 1),
            [&](const std::string& part) { w.write(part); });
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

void OziTrackDateienSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    const size_t n = s.store.Tracks.size();
    if (n == 0) {
        ReportNothingToWrite(s);
        return;
    }
    if (n == 1) {
        OziTrackSchreiben(s, file, 1);
        return;
    }
    std::vector<std::string> files;
    for (size_t i = 1; i <= n; ++i) files.push_back(OziNumberedFile(file, i, ".plt"));
    if (!ConfirmOverwriteFiles(s, files)) return;
    for (size_t i = 1; i <= n; ++i) OziTrackSchreiben(s, files[i - 1], static_cast<int>(i));
    ReportFilesWritten(s, files);
}

void OziTrackLesenText(Session& s, std::string_view bytes, std::string_view name) {
    OziLines lines(bytes);
    // Line 5 holds OziExplorer's own track settings and name, which are not
    // taken: the track is named after the file, as with every file reader.
    lines.skip(5);
    std::string_view line;
    int64_t expected = 0;
    if (lines.next(line)) {
        const double n = LeadingNumber(line);
        if (n > 0 && n < 1e12) expected = static_cast<int64_t>(n);
    }
    if (s.store.Tracks.empty() || s.options.Check[12] == 0) NewTrack(s.store, name);
    if (expected > 0) {
        s.store.StatusText.set("Lese Datensätze: ", expected);
        // The count is a hint only; a file cannot hold more points than lines.
        const size_t hint = static_cast<size_t>(std::min<int64_t>(expected, static_cast<int64_t>(bytes.size() / 16 + 1)));
        std::vector<TrackPoint>& points = s.store.Tracks.back().Points;
        points.reserve(points.size() + hint);
    }
    int64_t count = 0;
    while (!s.UserAbort && lines.next(line)) {
        if (IsBlankLine(line)) continue;
        const OziFields<7> f(line);
        TrackPointIn p;
        // A line without a position is no point (not one at 0/0 or on the
        // equator). A position off the earth is a point, which the store
        // refuses and counts.
        if (!ParseOziPosition(f[1], f[2], p.lat, p.lon)) {
            s.progress();
            continue;
        }
        // An empty altitude field means a short line: nothing optional follows it.
        if (!Trim(f[4]).empty()) {
            p.alt = ParseHoeheFuss(f[4]);
            const OziMoment m = ParseTageswert(f[5]);
            p.date = m.date;
            p.time = m.time;
        }
        DatumNachWGS84(s, p.lon, p.lat, p.lon, p.lat, false);
        AddTrackPoint(s, p);
        s.store.StatusText.set("Lese Datensätze: ", ++count);
        s.progress();
    }
}

void OziTrackLesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    OziTrackLesenText(s, bytes, SplitPath(file, 1));
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
