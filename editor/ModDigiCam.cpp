#include "editor/ModDigiCam.h"

#include <algorithm>
#include <filesystem>

#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Options.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "core/TrackWayPoints.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr int32_t kDateTimeTag = 306;

int64_t PointSeconds(const TrackPoint& p) { return MomentSeconds(p.Date_, p.Time_); }

// The search over the points in the order `at(k)` gives, k = 0..n-1: where it
// closes, as the editor's search always has (not the nearest point in time).
template <typename At>
bool ClosingSearch(size_t n, int64_t moment, At at, size_t& index) {
    if (n == 0) return false;
    if (moment < PointSeconds(at(0)) || moment > PointSeconds(at(n - 1))) return false;
    int64_t lo = 0, hi = static_cast<int64_t>(n) - 1;
    while (hi - lo > 0) {
        const int64_t mitte = lo + (hi - lo) / 2;
        const int64_t t = PointSeconds(at(static_cast<size_t>(mitte)));
        if (moment > t) lo = mitte + 1;
        else if (moment < t) hi = mitte - 1;
        else lo = hi = mitte;
    }
    // lo stays below n (mitte < hi while hi > lo); the bound guards unsorted input.
    index = static_cast<size_t>(std::min<int64_t>(lo, static_cast<int64_t>(n) - 1));
    return true;
}

bool ValidClock(int h, int m, int s) { return h >= 0 && h < 24 && m >= 0 && m < 60 && s >= 0 && s < 60; }

// Digits from pos up to a non-digit, at most `most` of them; false without one.
bool Digits(std::string_view t, size_t& pos, size_t most, int& value) {
    const size_t start = pos;
    value = 0;
    while (pos < t.size() && pos - start < most && t[pos] >= '0' && t[pos] <= '9') value = value * 10 + (t[pos++] - '0');
    return pos > start;
}

bool Expect(std::string_view t, size_t& pos, char c) {
    if (pos >= t.size() || t[pos] != c) return false;
    ++pos;
    return true;
}

std::string LinkPath(const std::string& path) {
    std::error_code ec;
    std::string abs = std::filesystem::absolute(path, ec).lexically_normal().string();
    if (ec) abs = path;
    std::string out;
    out.reserve(abs.size() + 16);
    for (char c : abs) {
        if (c == ' ') out += "%20";
        else if (c == '\\') out += '/';
        else out += c;
    }
    return out;
}

}  // namespace

int64_t MomentSeconds(Date d, Time t) {
    return int64_t(d.valueOr(0)) * kSecondsPerDay + int64_t(t.valueOr(0));
}

bool FindPointByTime(const Track& track, int64_t moment, size_t& index) {
    const auto& pts = track.Points;
    return ClosingSearch(pts.size(), moment, [&pts](size_t k) -> const TrackPoint& { return pts[k]; }, index);
}

TrackTimeOrder TimeOrderOf(const Track& track) {
    TrackTimeOrder o;
    const auto& pts = track.Points;
    for (size_t i = 1; i < pts.size() && o.ascending; ++i)
        if (PointSeconds(pts[i]) < PointSeconds(pts[i - 1])) o.ascending = false;
    if (o.ascending) return o;
    o.order.resize(pts.size());
    for (size_t i = 0; i < pts.size(); ++i) o.order[i] = static_cast<uint32_t>(i);
    std::stable_sort(o.order.begin(), o.order.end(),
                     [&pts](uint32_t a, uint32_t b) { return PointSeconds(pts[a]) < PointSeconds(pts[b]); });
    return o;
}

bool FindPointByTime(const Track& track, const TrackTimeOrder& order, int64_t moment, size_t& index) {
    if (order.ascending || order.order.size() != track.Points.size()) return FindPointByTime(track, moment, index);
    const auto& pts = track.Points;
    const auto& ord = order.order;
    size_t k = 0;
    if (!ClosingSearch(ord.size(), moment, [&](size_t j) -> const TrackPoint& { return pts[ord[j]]; }, k))
        return false;
    index = ord[k];
    return true;
}

DigiCamRun PrepareDigiCam(Session& s, int64_t versatzSeconds) {
    DigiCamRun run;
    run.names = LoadExifNames(s.platform.programFolder());
    run.versatz = versatzSeconds;
    run.tracks.reserve(s.store.Tracks.size());
    for (const Track& t : s.store.Tracks) run.tracks.push_back(TimeOrderOf(t));
    return run;
}

int64_t DigiCamOffset(const Options& o) {
    const Time t = ParseClock(o.TextZeit[2]);
    return t.valueOr(0);
}

bool PhotoMoment(const std::string& dateTime, int64_t& seconds) {
    // The first two ":" become "." so the date part reads as a date.
    std::string text(Trim(dateTime));
    for (int n = 0, i = 0; n < 2 && i < static_cast<int>(text.size()); ++i)
        if (text[static_cast<size_t>(i)] == ':') {
            text[static_cast<size_t>(i)] = '.';
            ++n;
        }
    size_t pos = 0;
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, se = 0;
    if (!Digits(text, pos, 4, y) || !Expect(text, pos, '.') || !Digits(text, pos, 2, mo) ||
        !Expect(text, pos, '.') || !Digits(text, pos, 2, d) || !Expect(text, pos, ' '))
        return false;
    while (pos < text.size() && text[pos] == ' ') ++pos;
    if (!Digits(text, pos, 2, h) || !Expect(text, pos, ':') || !Digits(text, pos, 2, mi)) return false;
    if (pos < text.size() && !(Expect(text, pos, ':') && Digits(text, pos, 2, se))) return false;
    if (pos != text.size() || y < 100 || !ValidCivil(y, mo, d) || !ValidClock(h, mi, se)) return false;
    seconds = int64_t(SerialFromCivil(y, mo, d)) * kSecondsPerDay + h * 3600 + mi * 60 + se;
    return true;
}

PhotoResult FotoAufTrack(Session& s, const DigiCamRun& run, const std::string& path) {
    PhotoResult result;
    clsEXIF exif(run.names);
    if (!exif.ReadMetaInfo(path)) {
        result.skipped = exif.Problem();
        return result;
    }
    const bool hasTag = std::any_of(exif.Tags().begin(), exif.Tags().end(),
                                    [](const ExifTag& t) { return t.Tag == kDateTimeTag; });
    const std::string text(Trim(hasTag ? exif.TagValue(kDateTimeTag) : std::string()));
    if (text.empty()) {
        result.skipped = "keine Aufnahmezeit (EXIF-Tag 306 DateTime)";
        return result;
    }
    int64_t photo = 0;
    if (!PhotoMoment(text, photo)) {
        result.skipped = "Aufnahmezeit \"" + text + "\" ist kein gültiges Datum";
        return result;
    }
    const int64_t moment = photo - run.versatz;
    const std::string baseName = SplitPath(path, 1);
    const std::string cmt = "<a href='file://" + LinkPath(path) + "'>Bild</a>";
    s.platform.setBusy(true);
    auto& tracks = s.store.Tracks;
    for (size_t t = 0; t < tracks.size(); ++t) {
        s.store.StatusText.set("Prüfe Track ", static_cast<int64_t>(t + 1));
        s.pollEvents();
        size_t index = 0;
        const bool hit = t < run.tracks.size() ? FindPointByTime(tracks[t], run.tracks[t], moment, index)
                                               : FindPointByTime(tracks[t], moment, index);
        if (!hit) continue;
        ++result.hits;
        const TrackPoint& p = tracks[t].Points[index];
        GeoPointIn w = WayPointAt(p);
        if (p.Course.has()) w.course = double(*p.Course);
        w.name = baseName;
        w.desc = tracks[t].Name + " nach " + FormatPoint(p.DistKm, "0.0") + " km und " +
                 HourMinutes(p.Duration.valueOr(0), true) + " Std:Min";
        w.cmt = cmt;
        const size_t before = s.store.WayPoints.size();
        AddWayPoint(s, std::move(w));
        if (s.store.WayPoints.size() > before) ++result.waypoints;
    }
    s.store.StatusText.set("Fertig");
    s.platform.setBusy(false);
    return result;
}

std::vector<std::string> DigiCamFiles(const std::string& chosen, int filterIndex) {
    if (filterIndex != 2) return {chosen};
    // "jpg" in any case; FilesWithExtension compares without case and sorts by path.
    return FilesWithExtension(SplitPath(chosen, 3), "jpg");
}

int DigiCam(Session& s) {
    const FileChoice choice = FileDialog(s, kDigiCamTitle, kDigiCamFilter, 1, DialogMode::Open);
    if (choice.path.empty()) return 0;
    std::vector<std::string> files;
    try {
        files = DigiCamFiles(choice.path, choice.filterIndex);
    } catch (const FileError&) {
        return 0;  // a folder that cannot be listed holds no photo for us
    }
    const DigiCamRun run = PrepareDigiCam(s, DigiCamOffset(s.options));
    int added = 0;
    for (const std::string& f : files) added += FotoAufTrack(s, run, f).waypoints;
    s.store.StatusText.set("Fertig");
    return added;
}

}  // namespace ortelix
