#include "gpsformats/NmeaLogWriter.h"

#include <charconv>
#include <cmath>

#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {

namespace {

// TomTom Navigator's log header: samples of a real one, checksums and all,
// which TomTom does not check. The fourth names the file.
constexpr const char* kTomTomHeader =
    "PTOM101,PocketPC,Pocket LOOX,2577,3.0*3B\n"
    "$PTOM102,GPS Engine,364,TomTom Navigator GPS,Seriellkabel an COM1:*39\n"
    "$PTOM103,031004,093021.000,031004,113021.000*3D\n"
    "$PTOM104,";

constexpr size_t kSlice = SafeWriter::kBackgroundSlice;
// Points between two looks at the right mouse button.
constexpr size_t kAbortStride = 4096;

// The geoid field comes from the simulator's box "Geoid Diff (m)", with the
// simulator's sign: the box shows the difference as the user reads it, the
// sentence carries it times -1. An empty box leaves the field empty.
OptDouble GeoidOfBox(const Options& o) {
    const std::string box = PointText(Trim(o.NMEABox[7]));
    if (box.empty()) return {};
    const double v = LeadingNumber(box);
    return std::isfinite(v) ? -v : 0.0;
}

bool ValidTime(Time t) { return t.has() && *t >= 0 && *t < kSecondsPerDay; }
bool ValidDate(Date d) { return d.has() && *d >= -657434 && *d <= 2958465; }  // years 100 to 9999

// The file in slices, so that a large track never stands in memory as text.
// `more` is asked every few thousand points whether to go on.
template <typename Emit, typename More>
void Produce(const Track& t, const Options& o, int kind, const std::string& path, double localNow, Emit emit,
             More more) {
    const bool tomtom = kind == kNmeaTomTom;
    std::string out;
    out.reserve(kSlice + 1024);
    if (tomtom) {
        out += kTomTomHeader;
        out += path;
        out += "-busy.pgl*5A\n";
    }
    const double today = std::floor(localNow);
    SimFix fix;
    fix.SimGeoid = GeoidOfBox(o);
    // The running time of points without one: the wall clock at the start.
    int32_t clock = static_cast<int32_t>(std::floor((localNow - today) * kSecondsPerDay + 0.5)) % kSecondsPerDay;
    std::string cycle;
    cycle.reserve(512);
    size_t n = 0;
    for (const TrackPoint& p : t.Points) {
        if (++n % kAbortStride == 0 && !more()) break;
        fix.SimLon = p.Lon;
        fix.SimLat = p.Lat;
        fix.SimAlt = p.Alt.has() ? *p.Alt : 0;
        fix.SimSpeed = p.Speed.valueOr(0);
        fix.SimCourse = p.Course.has() ? *p.Course : 0;
        fix.SimDate = ValidDate(p.Date_) ? p.Date_ : Date(static_cast<int32_t>(today));
        // One second on from the last time written; past midnight the clock wraps.
        clock = ValidTime(p.Time_) ? *p.Time_ : (clock + 1) % kSecondsPerDay;
        fix.SimTime = clock;
        if (!tomtom) {
            AppendNmeaSatz(out, fix, localNow);
        } else {
            cycle.clear();
            AppendNmeaSatz(cycle, fix, localNow);
            for (char c : cycle)
                if (c != '\r') out += c;
        }
        if (out.size() >= kSlice) emit(out);
    }
    emit(out);
}

const char* Extension(int kind) {
    switch (kind) {
        case kNmeaTomTom: return ".pgl";
        case kNmeaMN4: return ".txt";
        default: return ".nmea";
    }
}

void PutTwo(std::string& out, int v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}

// The filter entry that the log dialog will open with (remembered per title).
int RememberedKind(Platform& p) {
    const auto v = p.readSetting("Ordner", std::string(kNmeaLogTitle) + "Filter");
    int x = 0;
    if (!v || std::from_chars(v->data(), v->data() + v->size(), x).ec != std::errc() || x < 1 || x > 3)
        return kNmeaPlain;
    return x;
}

}  // namespace

std::string NmeaLogText(const Track& t, const Options& o, int kind, const std::string& path, double localNow) {
    std::string all;
    Produce(t, o, kind, path, localNow, [&](std::string& part) {
        all += part;
        part.clear();
    }, [] { return true; });
    return all;
}

std::string NmeaLogDefaultName(const Track& t, int kind, double localNow) {
    int32_t day = static_cast<int32_t>(std::floor(localNow));
    int32_t second = static_cast<int32_t>(std::floor((localNow - day) * kSecondsPerDay + 0.5));
    if (!t.Points.empty() && ValidDate(t.Points.front().Date_) && ValidTime(t.Points.front().Time_)) {
        day = *t.Points.front().Date_;
        second = *t.Points.front().Time_;
    }
    day += second / kSecondsPerDay;
    second %= kSecondsPerDay;
    const CivilDate c = CivilFromSerial(day);
    std::string name = std::to_string(c.year);
    PutTwo(name, c.month);
    PutTwo(name, c.day);
    PutTwo(name, second / 3600);
    PutTwo(name, second / 60 % 60);
    PutTwo(name, second % 60);
    name += "GPS";
    if (kind == kNmeaTomTom) name += "-1";
    return name + Extension(kind);
}

void WriteNmeaLog(Session& s, const std::string& path, int kind, int trackIndex) {
    if (path.empty() || trackIndex < 1 || static_cast<size_t>(trackIndex) > s.store.Tracks.size()) return;
    s.platform.setBusy(true);
    const double start = s.platform.localNow();
    SafeWriter w(path);
    Produce(s.store.Tracks[static_cast<size_t>(trackIndex) - 1], s.options, kind, path, start,
            [&](std::string& part) { w.writeSlice(part); },
            [&] {
                // The event loop's turn, and the right mouse button ends the log
                // here: what is written so far stays a log of its own.
                if (!s.platform.yield()) return true;
                s.UserAbort = true;
                s.platform.messageBox(kAbortText, kAbortTitle, Buttons::Ok, Icon::Information);
                return false;
            });
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

int ChooseNmeaTrack(Session& s) {
    const size_t n = s.store.Tracks.size();
    if (n == 0) {
        ReportNothingToWrite(s);
        return 0;
    }
    int chosen = 1;
    if (n > 1) {
        const auto answer = s.platform.inputBox(
            "Welcher Track soll geschrieben werden? (1 bis " + std::to_string(n) + ")", kNothingToWriteTitle, "1");
        if (!answer || Trim(*answer).empty()) return 0;
        const double v = LeadingNumber(*answer);
        if (!(v >= 1 && v <= static_cast<double>(n))) {
            ReportNothingToWrite(s);
            return 0;
        }
        chosen = static_cast<int>(v);
    }
    if (s.store.Tracks[static_cast<size_t>(chosen) - 1].Points.empty()) {
        ReportNothingToWrite(s);
        return 0;
    }
    return chosen;
}

void NmeaLogSchreiben(Session& s, const std::string& path, int kind) {
    if (path.empty()) return;
    if (const int track = ChooseNmeaTrack(s)) WriteNmeaLog(s, path, kind, track);
}

void WriteNmeaLogPlain(Session& s, const std::string& path) { NmeaLogSchreiben(s, path, kNmeaPlain); }
void WriteNmeaLogTomTom(Session& s, const std::string& path) { NmeaLogSchreiben(s, path, kNmeaTomTom); }

void NmeaLogCommand(Session& s, const std::string&) {
    const int track = ChooseNmeaTrack(s);
    if (track == 0) return;
    const std::string proposal = NmeaLogDefaultName(s.store.Tracks[static_cast<size_t>(track) - 1],
                                                    RememberedKind(s.platform), s.platform.localNow());
    const FileChoice f = FileDialog(s, kNmeaLogTitle, kNmeaLogFilter, kNmeaPlain, DialogMode::Save, proposal);
    if (f.path.empty()) return;
    s.DialogFilterIndex = f.filterIndex;
    const int kind = f.filterIndex >= kNmeaPlain && f.filterIndex <= kNmeaMN4 ? f.filterIndex : kNmeaPlain;
    RunWriter(s, kNmeaLogTitle, [&] { WriteNmeaLog(s, f.path, kind, track); });
}

}  // namespace ortelix
