#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/ScanBytes.h"
#include "core/Session.h"
#include "gpsformats/BlockPipeline.h"
#include "gpsformats/ElementScan.h"
#include "gpsformats/GPX.h"

namespace ortelix {

namespace {

// The file's text and, when it is mapped, the mapping whose pages a pass may
// hand back behind itself.
// Closing-tag positions of the outer elements, found by the survey, so that
// an outer element's end costs no walk over all of its points.
struct Closings {
    std::vector<size_t> trk, trkseg, track, rte, route;
    // The trkpt start tags before each trkseg closing (since the one before):
    // what the track of that segment may reserve at once.
    std::vector<size_t> trksegPoints;
};

// Trim of the text routines, inline for the values of every point.
inline std::string_view TrimValue(std::string_view t) {
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!t.empty() && blank(t.front())) t.remove_prefix(1);
    while (!t.empty() && blank(t.back())) t.remove_suffix(1);
    return t;
}

bool AllAscii(std::string_view t) {
    unsigned char any = 0;
    for (char c : t) any |= static_cast<unsigned char>(c);
    return any < 0x80;
}

struct Doc {
    std::string_view text;
    const MappedFile* map = nullptr;
    Closings closings{};

    Element outer(std::string_view tag, const std::vector<size_t>& at, size_t from, size_t to) const {
        return GetElementIndexed(text, tag, from, to, at);
    }
    // The next point element and its children's values, trimmed and freed of CDATA.
    template <size_t N>
    Element point(std::string_view tag, size_t from, size_t to, const ChildNames& names,
                  std::string_view (&values)[N]) const {
        uint32_t withMarkup = 0;
        const Element e = GetElementWithChildren(text, tag, from, to, names, values, withMarkup);
        for (size_t i = 0; i < N; ++i) values[i] = TrimValue((withMarkup >> i & 1) ? StripCdata(values[i]) : values[i]);
        return e;
    }

    Element find(std::string_view tag, size_t from, size_t to) const { return GetElement(text, tag, from, to); }
    std::string_view child(const Element& e, std::string_view tag) const {
        return Trim(StripCdata(InnerText(text, find(tag, e.begin, e.end))));
    }
    std::string childText(const Element& e, std::string_view tag) const { return value(child(e, tag)); }

    // The file's charset. The text is scanned as it stands (every charset read
    // here keeps markup and numbers in ASCII); only the values that the store
    // keeps are decoded, so a large file is never copied.
    Charset charset = Charset::Utf8;
    // A value's bytes in UTF-8: as they stand when they are UTF-8 already
    // (nearly always), else decoded into `buffer`.
    std::string_view utf8(std::string_view raw, std::string& buffer) const {
        if (AllAscii(raw) || (charset == Charset::Utf8 && IsValidUtf8(raw))) return raw;
        buffer = DecodeToUtf8(raw, charset);
        return buffer;
    }
    // A text value in UTF-8 with its entities and character references decoded.
    std::string value(std::string_view raw) const {
        std::string buffer;
        return DecodeEntities(utf8(raw, buffer));
    }
    // Hands the pages behind a walk back, every 16 MB, so that a large file
    // is never resident as a whole.
    // A walk that starts again below the last release point counts from there.
    void passed(size_t pos) const {
        if (pos >= releasedUpTo && pos - releasedUpTo < kReleaseStep) return;
        if (map && pos > releasedUpTo) map->release(pos);
        releasedUpTo = pos;
    }
    static constexpr size_t kReleaseStep = size_t{1} << 24;
    mutable size_t releasedUpTo = 0;
    // From this size on, the track points are read on a second thread.
    size_t pipelineFrom = kPipelineFrom;
    static constexpr size_t kPipelineFrom = size_t{1} << 22;
};

// Does the text (blanks and a sign aside) begin with `word`, without regard to case?
bool BeginsWithWord(std::string_view text, std::string_view word) {
    text = Trim(text);
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    if (text.size() < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if ((text[i] | 0x20) != word[i]) return false;
    return true;
}

// A coordinate by the leading-number rule (with a decimal comma for the short
// vocabulary). "nan" and "inf" stay what they say instead of reading as 0, so
// that the store refuses the point rather than placing it on the equator.
double CoordinateValue(std::string_view text, bool decimalComma) {
    if (!decimalComma) {  // the usual case: a number, with nothing else to look at
        size_t consumed = 0;
        const double v = LeadingNumber(text, &consumed);
        if (consumed > 0) return v;
    }
    if (BeginsWithWord(text, "nan")) return std::numeric_limits<double>::quiet_NaN();
    if (BeginsWithWord(text, "inf")) {
        const double inf = std::numeric_limits<double>::infinity();
        return Trim(text)[0] == '-' ? -inf : inf;
    }
    return decimalComma ? ParseCoordinate(text) : LeadingNumber(text);
}

// The texts of lat and lon in a point's start tag; false when one of them is missing or empty.
bool PositionTexts(const Doc& d, const Element& e, std::string_view& latText, std::string_view& lonText) {
    const std::string_view tag = StartTag(d.text, e);
    static constexpr std::string_view kNames[2] = {"lat", "lon"};
    std::string_view text[2];
    bool has[2];
    AttributeValues(tag, kNames, text, has, 2);
    if (!has[0] || !has[1] || TrimValue(text[0]).empty() || TrimValue(text[1]).empty()) return false;
    latText = text[0];
    lonText = text[1];
    return true;
}

// lat and lon of a point's start tag; false when one of them is missing or empty.
bool Position(const Doc& d, const Element& e, double& lon, double& lat) {
    std::string_view latText, lonText;
    if (!PositionTexts(d, e, latText, lonText)) return false;
    lat = CoordinateValue(latText, false);
    lon = CoordinateValue(lonText, false);
    return true;
}

// The same for the short vocabulary, whose lon and lat are child elements: a
// point without either has no position and is not taken (rather than at 0).
bool ShortPosition(std::string_view lonText, std::string_view latText, double& lon, double& lat) {
    if (lonText.empty() || latText.empty()) return false;  // the values come trimmed
    lon = CoordinateValue(lonText, true);
    lat = CoordinateValue(latText, true);
    return true;
}

// A GPX time element: the date, and the time of day. A text that holds only
// a time ("12:34:56Z", "T12:34:56") keeps that time without a date; a text
// whose date part cannot be read gives neither.
DateAndTime GpxTime(std::string_view text) {
    DateAndTime m = NormaliseDateTime(text);
    if (m.date.empty()) {
        size_t mark = 0;
        while (mark < text.size() && (text[mark] | 0x20) != 't') ++mark;
        if (mark != 0 && mark != text.size()) m.time = {};  // something before the time mark that is no date
    }
    return m;
}

// The date of the last full time text, for the runs of one day that logs are
// made of.
struct LastDay {
    char text[10] = {};
    Date date;
    bool known = false;
};

// "YYYY-MM-DDThh:mm:ss", the form of nearly every GPX time, digits where digits belong.
bool FullTimeForm(std::string_view t) {
    if (t.size() < 19 || t[4] != '-' || t[7] != '-' || (t[10] | 0x20) != 't' || t[13] != ':' || t[16] != ':') return false;
    for (size_t i : {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18})
        if (t[i] < '0' || t[i] > '9') return false;
    return true;
}

// GpxTime, with the date of the full form taken from the last point when the
// day is the same: the same answers, one date parse per day.
DateAndTime GpxTime(std::string_view text, LastDay& last) {
    if (!FullTimeForm(text)) return GpxTime(text);
    if (!last.known || std::memcmp(last.text, text.data(), 10) != 0) {
        std::memcpy(last.text, text.data(), 10);
        last.date = ParseDate(text.substr(0, 10));
        last.known = true;
    }
    if (last.date.empty()) return {};  // a date that cannot be read takes its time with it
    auto two = [&](size_t i) { return (text[i] - '0') * 10 + (text[i + 1] - '0'); };
    const int h = two(11), mi = two(14), sec = two(17);
    if (h > 23 || mi > 59 || sec > 59) return {last.date, Time()};
    return {last.date, h * 3600 + mi * 60 + sec};
}

// The XML declaration's encoding, if the file has one.
Charset DeclaredCharset(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, std::min<size_t>(bytes.size(), 200));
    if (head.substr(0, 5) != "<?xml" && head.substr(0, 8) != "\xEF\xBB\xBF<?xml") return Charset::Utf8;
    bool found = false;
    const std::string_view name = AttributeValue(head.substr(0, head.find("?>")), "encoding", found);
    return found ? CharsetFromName(name) : Charset::Utf8;
}


// Which outer elements the file has at all, found in one walk, so that the
// passes for the others cost nothing.
struct Present {
    bool trk = false, track = false, rte = false, route = false, wpt = false, wp = false;
};
// A tag name that the survey looks for, ready for an eight-byte comparison.
struct SurveyName {
    std::string_view name;
    Spelling spelling;
    constexpr explicit SurveyName(std::string_view n) : name(n), spelling(n) {}
};

// Is the tag name at t[from] `n`, followed by a blank, ">" or "/"? Without regard to case.
inline bool NameAt(std::string_view t, size_t from, const SurveyName& n) {
    const size_t end = from + n.name.size();
    if (end >= t.size()) return false;
    const char c = t[end];
    if (c != ' ' && c != '>' && c != '/' && c != '\t' && c != '\r' && c != '\n') return false;
    if (from + 8 <= t.size()) {
        uint64_t x;
        std::memcpy(&x, t.data() + from, 8);
        return ((x | n.spelling.fold) & n.spelling.used) == n.spelling.bytes;
    }
    for (size_t i = 0; i < n.name.size(); ++i)
        if ((t[from + i] >= 'A' && t[from + i] <= 'Z' ? t[from + i] + 32 : t[from + i]) != n.name[i]) return false;
    return true;
}

constexpr SurveyName kTrkpt{"trkpt"}, kTrkseg{"trkseg"}, kTrk{"trk"}, kTrack{"track"}, kTrp{"trp"}, kRte{"rte"},
    kRoute{"route"}, kWpt{"wpt"}, kWp{"wp"}, kTime{"time"}, kDate{"date"};

// The first ">" at or after a position, remembered: the survey asks for it
// at tag after tag, and a ">" far ahead must not be searched for again from
// each tag before it.
class NextGreater {
public:
    explicit NextGreater(std::string_view t) : t_(t) {}
    const char* from(size_t p) {
        if (p < from_ || p > at_) {
            const char* g = FindByte(t_.data() + p, t_.data() + t_.size(), '>');
            from_ = p;
            at_ = g ? static_cast<size_t>(g - t_.data()) : t_.size();
        }
        return at_ < t_.size() ? t_.data() + at_ : nullptr;
    }

private:
    std::string_view t_;
    size_t from_ = 1, at_ = 0;  // no ">" between from_ and at_ (the first at or after from_)
};

// The text of a child element whose start-tag name ends at `nameEnd`, when
// plain text follows its start tag (itself free of "<") up to the matching
// closing tag.
std::string_view PlainChild(std::string_view t, size_t nameEnd, const SurveyName& name, NextGreater& greater) {
    const char* const base = t.data();
    const char* gt = base[nameEnd] == '>' ? base + nameEnd : greater.from(nameEnd);
    if (!gt || gt[-1] == '/' || FindByte(base + nameEnd, gt, '<')) return {};
    const size_t from = static_cast<size_t>(gt - base) + 1;
    const char* lt = FindByte(base + from, base + t.size(), '<');
    if (!lt) return {};
    const size_t to = static_cast<size_t>(lt - base);
    if (to + 2 >= t.size() || t[to + 1] != '/' || !NameAt(t, to + 2, name) || t[to + 2 + name.name.size()] != '>')
        return {};
    return t.substr(from, to - from);
}

// The first time (of a trkpt) or date (of a trp) of the point whose start
// tag opens at `open`, as the reading pass will find it. The full scan, for
// a time that is not plain text, walks to the point's end; `reach` keeps
// where the last one ended, and a point that starts before it lies inside
// that point (or no later point closes): the reading pass will not take it
// as a point of its own, and it is not scanned again.
std::string_view FirstChildText(std::string_view t, size_t open, const SurveyName& point, const SurveyName& name,
                                size_t nameEnd, NextGreater& greater, size_t& reach) {
    if (const std::string_view plain = PlainChild(t, nameEnd, name, greater); plain.data()) return TrimValue(plain);
    if (open < reach) return {};
    const std::string_view names[1] = {name.name};
    std::string_view value;
    uint32_t withMarkup = 0;
    const Element e = GetElementWithChildren(t, point.name, open, t.size(), ChildNames(names), &value, withMarkup);
    reach = e.found ? e.end : t.size();
    return TrimValue(StripCdata(value));
}

// Where the survey stands between two tags: all that a later tag's meaning depends on.
struct SurveyState {
    Present present;
    Closings closings;
    bool inTrkpt = false, inTrp = false;
    size_t pointOpen = 0, pointsSinceSegment = 0, fullScanReach = 0;
    std::string_view lastDay;  // the day of the time text noted last
};

// The day part of a time text, as the survey compares it with the next.
std::string_view DayOf(std::string_view when) {
    return when.substr(0, when.size() >= 11 && (when[10] == 'T' || when[10] == 't') ? 10 : when.size());
}

// The survey's walk over the tags that open in [from, to): which outer
// elements exist, where they close, and, with `withDates`, the first time
// of each trkpt and the first date of each trp, handed to `note` unless it
// is of the day noted just before. `passed` gets the walk's position.
template <typename Note, typename Passed>
void SurveyTags(std::string_view t, size_t from, size_t to, SurveyState& st, bool withDates, Note note,
                Passed passed) {
    static constexpr char kFirstLetters[4] = {'t', 'r', 'w', 'd'};  // of every name looked for
    Present& p = st.present;
    Closings& c = st.closings;
    NextGreater greater(t);
    const char* const begin = t.data();
    const char* const stop = begin + t.size();
    for (const char* at = FindTagStart(begin + from, stop, kFirstLetters); at && at < begin + to;
         at = FindTagStart(at + 1, stop, kFirstLetters)) {
        const size_t open = static_cast<size_t>(at - begin);
        passed(open);
        if (t[open + 1] == '/') {
            const size_t name = open + 2;
            // Every closing tag of interest begins "tr", "rt" or "ro": "</time>" ends here.
            if (name + 1 >= t.size()) break;
            const char second = static_cast<char>(t[name + 1] | 0x20);
            if (second != 'r' && second != 't' && second != 'o') continue;
            auto closes = [&](const SurveyName& n) { return NameAt(t, name, n) && t[name + n.name.size()] == '>'; };
            if (closes(kTrkpt)) st.inTrkpt = false;  // the common case first
            else if (closes(kTrp)) st.inTrp = false;
            else if (closes(kTrkseg)) {
                c.trkseg.push_back(open);
                c.trksegPoints.push_back(st.pointsSinceSegment);
                st.pointsSinceSegment = 0;
            }
            else if (closes(kTrk)) c.trk.push_back(open);
            else if (closes(kTrack)) c.track.push_back(open);
            else if (closes(kRte)) c.rte.push_back(open);
            else if (closes(kRoute)) c.route.push_back(open);
            continue;
        }
        const size_t name = open + 1;
        if (withDates && (st.inTrkpt || st.inTrp)) {
            const SurveyName& child = st.inTrkpt ? kTime : kDate;
            if (NameAt(t, name, child)) {
                const size_t nameEnd = name + child.name.size();
                const std::string_view when = FirstChildText(t, st.pointOpen, st.inTrkpt ? kTrkpt : kTrp, child,
                                                             nameEnd, greater, st.fullScanReach);
                // Points come in runs of one day: a text seen just before is noted already.
                if (when.empty() || when.substr(0, 10) != st.lastDay) {
                    st.lastDay = DayOf(when);
                    note(when);
                }
                st.inTrkpt = st.inTrp = false;  // the first one counts
                continue;
            }
        }
        if (NameAt(t, name, kTrkpt)) {
            ++st.pointsSinceSegment;
            const char* gt = greater.from(open + 6);
            st.inTrkpt = gt && gt[-1] != '/';
            st.pointOpen = open;
        } else if (NameAt(t, name, kTrp)) {
            st.inTrp = true;
            st.pointOpen = open;
        } else if (NameAt(t, name, kTrk)) p.trk = true;
        else if (NameAt(t, name, kRte)) p.rte = true;
        else if (NameAt(t, name, kWpt)) p.wpt = true;
        else if (NameAt(t, name, kTrack)) p.track = true;
        else if (NameAt(t, name, kRoute)) p.route = true;
        else if (NameAt(t, name, kWp)) p.wp = true;
    }
}

// A trkpt start tag near the middle of a large text, where a second walk
// may begin; npos when there is none.
size_t SurveySplit(std::string_view t) {
    for (size_t at = t.find("<trkpt", t.size() / 2); at != std::string_view::npos; at = t.find("<trkpt", at + 1))
        if (NameAt(t, at + 1, kTrkpt)) return at;
    return std::string_view::npos;
}

// One walk over the tags of interest (SurveyTags), the dates noted in the
// session. A large text's second half is walked on a second thread at the
// same time, from a trkpt start tag, which sets the state of a point anew.
// That walk supposes that no trp is open there, that no full scan of a point
// reached past it, and nothing of the last day noted before it; when the
// first half ends otherwise, the second half is walked again after it.
Present Survey(const Doc& d, Closings& c, Session* dates = nullptr) {
    const std::string_view t = d.text;
    const bool withDates = dates != nullptr;
    auto noteNow = [&](std::string_view when) { NoteDate(*dates, ParseDate(when)); };
    auto passedNow = [&](size_t pos) { d.passed(pos); };
    SurveyState first;
    const size_t split = t.size() >= d.pipelineFrom ? SurveySplit(t) : std::string_view::npos;
    if (split == std::string_view::npos) {
        SurveyTags(t, 0, t.size(), first, withDates, noteNow, passedNow);
        c = std::move(first.closings);
        return first.present;
    }

    SurveyState second;
    std::string_view firstWhen;  // the second half's first time text, as the one thread would judge it
    bool anyWhen = false;
    std::vector<Date> laterDates;  // the dates it noted after that, in order
    std::exception_ptr error;
    size_t releasedTo = split;
    std::thread helper([&] {
        try {
            SurveyTags(
                t, split, t.size(), second, withDates,
                [&](std::string_view when) {
                    if (anyWhen) laterDates.push_back(ParseDate(when));
                    else firstWhen = when;
                    anyWhen = true;
                },
                [&](size_t pos) {
                    if (d.map && pos - releasedTo >= Doc::kReleaseStep) {
                        d.map->release(releasedTo, pos);
                        releasedTo = pos;
                    }
                });
            // The rest too: the reading walk comes here last.
            if (d.map) d.map->release(releasedTo, t.size());
        } catch (...) {
            error = std::current_exception();
        }
    });
    try {
        SurveyTags(t, 0, split, first, withDates, noteNow, passedNow);
    } catch (...) {
        helper.join();
        throw;
    }
    helper.join();
    if (error) std::rethrow_exception(error);

    const bool firstNoted = anyWhen && (firstWhen.empty() || firstWhen.substr(0, 10) != first.lastDay);
    // Once the first text is judged, both walks remember the same day when
    // the one thread would have noted it, or when it is of that day anyway.
    const bool sameDay = !anyWhen || firstNoted || DayOf(firstWhen) == first.lastDay;
    if (first.inTrp || first.fullScanReach > split || !sameDay) {
        SurveyTags(t, split, t.size(), first, withDates, noteNow, passedNow);
        c = std::move(first.closings);
        return first.present;
    }
    if (withDates) {
        if (firstNoted) noteNow(firstWhen);
        for (const Date day : laterDates) NoteDate(*dates, day);
    }
    // The points before the second half's first segment end belong to it.
    Closings& b = second.closings;
    if (!b.trksegPoints.empty()) b.trksegPoints.front() += first.pointsSinceSegment;
    c = std::move(first.closings);
    auto append = [](std::vector<size_t>& to, const std::vector<size_t>& from) {
        to.insert(to.end(), from.begin(), from.end());
    };
    append(c.trk, b.trk);
    append(c.trkseg, b.trkseg);
    append(c.track, b.track);
    append(c.rte, b.rte);
    append(c.route, b.route);
    append(c.trksegPoints, b.trksegPoints);
    const Present& x = first.present;
    const Present& y = second.present;
    return {x.trk || y.trk, x.track || y.track, x.rte || y.rte, x.route || y.route, x.wpt || y.wpt, x.wp || y.wp};
}

OptDouble SpeedFromMetresPerSecond(std::string_view text) {
    const OptDouble ms = ParseSpeed(text);  // whole metres per second, by design
    if (ms.empty()) return {};
    return *ms * 3600.0 / 1000.0;
}

// Room for the points of a segment at once, instead of growing step by step
// (each step a copy, and fresh pages): the survey counted them. A point that
// can be kept takes at least 24 bytes ("<trkpt lat="1" lon="1"/>"), so a
// count of empty tags reserves no more than the segment's size allows; and
// segments appended to one track grow it by half at least, as pushing would.
void ReserveForSegment(Track& track, const Closings& c, const Element& seg) {
    constexpr size_t kSmallestPoint = 24;
    const auto at = std::lower_bound(c.trkseg.begin(), c.trkseg.end(), seg.end);
    if (at == c.trkseg.end() || *at != seg.end) return;
    const size_t counted = c.trksegPoints[static_cast<size_t>(at - c.trkseg.begin())];
    const size_t points = std::min(counted, (seg.end - seg.begin) / kSmallestPoint);
    std::vector<TrackPoint>& v = track.Points;
    const size_t need = v.size() + points;
    if (need > v.capacity()) v.reserve(std::max(need, v.capacity() + v.capacity() / 2));
}

constexpr std::string_view kTrkptChildren[] = {"ele", "speed", "course", "time", "sat", "fix"};
constexpr ChildNames kTrkptChildrenNames{kTrkptChildren};

// What the walk over the GPX tracks meets, in file order: a track (its
// name), a segment with points, a point (its position and time read, the
// texts of its other children), or a point without a position, which only
// counts for the progress. The other numbers are read where the record is
// taken: that shares the work about evenly between two threads.
struct TrackRead {
    enum Kind : uint8_t { Track, Segment, Point, Unplaced };
    Kind kind = Point;
    double lat = 0, lon = 0;
    Date date;
    Time time;
    std::string_view child[6];  // ele, speed, course, time, sat, fix: trimmed, free of CDATA
    size_t next = 0;            // behind the point: the pages before it may go
    Element seg;
    std::string text;           // a track's name; a point's fix when decoded from the file's charset
    bool fixDecoded = false;    // the fix is then `text` (records move, so no view points at it)
};

// The walk over every trk, trkseg and trkpt. It reads the file's text and
// nothing else, so that it may run on a thread of its own.
class GpxTrackWalk {
public:
    explicit GpxTrackWalk(const Doc& d) : d_(d) {}

    bool next(TrackRead& r) {
        for (;;) {
            switch (state_) {
                case State::Tracks: {
                    const Element trk = d_.outer("trk", d_.closings.trk, trkPos_, d_.text.size());
                    if (!trk.found) return false;
                    trkPos_ = trk.next;
                    trk_ = trk;
                    segPos_ = trk.begin;
                    state_ = State::Segments;
                    r.kind = TrackRead::Track;
                    r.text = d_.childText(trk, "name");
                    return true;
                }
                case State::Segments: {
                    const Element seg = d_.outer("trkseg", d_.closings.trkseg, segPos_, trk_.end);
                    if (!seg.found) {
                        state_ = State::Tracks;
                        continue;
                    }
                    segPos_ = seg.next;
                    if (InnerText(d_.text, seg).empty()) continue;
                    ptPos_ = seg.begin;
                    segEnd_ = seg.end;
                    day_ = {};
                    state_ = State::Points;
                    r.kind = TrackRead::Segment;
                    r.seg = seg;
                    return true;
                }
                case State::Points: {
                    const Element pt = d_.point("trkpt", ptPos_, segEnd_, kTrkptChildrenNames, r.child);
                    if (!pt.found) {
                        state_ = State::Segments;
                        continue;
                    }
                    ptPos_ = pt.next;
                    r.next = pt.next;
                    if (!Position(d_, pt, r.lon, r.lat)) {
                        r.kind = TrackRead::Unplaced;
                        return true;
                    }
                    r.kind = TrackRead::Point;
                    const DateAndTime when = GpxTime(r.child[3], day_);
                    r.date = when.date;
                    r.time = when.time;
                    const std::string_view fix = d_.utf8(r.child[5], r.text);
                    r.fixDecoded = fix.data() != r.child[5].data();
                    return true;
                }
            }
        }
    }

private:
    enum class State { Tracks, Segments, Points };
    const Doc& d_;
    State state_ = State::Tracks;
    size_t trkPos_ = 0, segPos_ = 0, ptPos_ = 0, segEnd_ = 0;
    Element trk_;
    LastDay day_;
};

// Hands one record of the walk to the session: a new track per segment
// (or one for all when segments are joined), the points through the filters.
class GpxTrackTake {
public:
    GpxTrackTake(Session& s, const Doc& d) : s_(s), d_(d) {}
    bool operator()(TrackRead& r) {
        if (s_.UserAbort) return false;
        switch (r.kind) {
            case TrackRead::Track: name_ = std::move(r.text); break;
            case TrackRead::Segment:
                if (s_.store.Tracks.empty() || s_.options.Check[12] == 0) NewTrack(s_.store, name_);
                ReserveForSegment(s_.store.Tracks.back(), d_.closings, r.seg);
                break;
            case TrackRead::Unplaced:
                s_.progress();
                d_.passed(r.next);
                break;
            case TrackRead::Point: {
                s_.progress();
                d_.passed(r.next);
                TrackPointIn p;
                p.lat = r.lat;
                p.lon = r.lon;
                p.alt = ParseAltitude(r.child[0]);
                p.speed = SpeedFromMetresPerSecond(r.child[1]);
                p.course = ParseCourse(r.child[2]);
                p.date = r.date;
                p.time = r.time;
                p.sat = r.child[4];
                p.fix = r.fixDecoded ? std::string_view(r.text) : r.child[5];
                AddTrackPoint(s_, p);
                break;
            }
        }
        return true;
    }

private:
    Session& s_;
    const Doc& d_;
    std::string name_;
};

// Every GPX track. A large file's walk runs on a second thread, a block of
// points ahead of the filters and the store: the same records in the same
// order, so the store is the same either way.
void ReadGpxTracks(Session& s, const Doc& d) {
    // Blocks large enough that handing one over (a thread that sleeps and
    // wakes) costs little beside reading its points, and small enough that
    // the blocks in flight stay in the cache.
    constexpr size_t kBlock = 2048;
    GpxTrackWalk walk(d);
    GpxTrackTake take(s, d);
    if (d.text.size() < d.pipelineFrom) {
        TrackRead r;
        while (walk.next(r) && take(r)) {}
    } else {
        RunBlockPipeline<TrackRead>(
            [&](std::vector<TrackRead>& block) {
                block.resize(kBlock);
                size_t n = 0;
                while (n < kBlock && walk.next(block[n])) ++n;
                block.resize(n);
                return n == kBlock;
            },
            take);
    }
    s.store.StatusText.set("Fertig");
}

constexpr std::string_view kTrpChildren[] = {"lon", "lat", "speed", "alt", "course", "sat", "fix", "date", "time"};
constexpr ChildNames kTrpChildrenNames{kTrpChildren};

void ReadShortTrackElement(Session& s, const Doc& d, const Element& trk) {
    if ((s.store.Tracks.empty() || s.options.Check[12] == 0)) NewTrack(s.store, d.childText(trk, "name"));
    size_t ptPos = trk.begin;
    std::string fix;
    while (!s.UserAbort) {
        std::string_view c[9];
        const Element pt = d.point("trp", ptPos, trk.end, kTrpChildrenNames, c);
        if (!pt.found) break;
        ptPos = pt.next;
        s.progress();
        d.passed(ptPos);
        TrackPointIn p;
        if (!ShortPosition(c[0], c[1], p.lon, p.lat)) continue;
        p.speed = ParseSpeed(c[2]);
        p.alt = ParseAltitude(c[3]);
        p.course = ParseCourse(c[4]);
        p.sat = c[5];
        p.fix = d.utf8(c[6], fix);
        p.date = ParseDate(c[7]);
        p.time = ParseTime(c[8]);
        AddTrackPoint(s, p);
    }
}

constexpr std::string_view kGpxPointChildren[] = {"name", "desc", "cmt", "ele", "course", "time"};

// A route point or waypoint of the GPX vocabulary; false when it has no position.
bool GpxGeoPoint(const Doc& d, const Element& pt, const std::string_view (&c)[6], GeoPointIn& g) {
    if (!Position(d, pt, g.lon, g.lat)) return false;
    g.name = d.value(c[0]);
    g.desc = d.value(c[1]);
    g.cmt = d.value(c[2]);
    g.alt = ParseAltitude(c[3]);
    g.course = ParseCourse(c[4]);
    const DateAndTime when = GpxTime(c[5]);
    g.date = when.date;
    g.time = when.time;
    return true;
}

constexpr std::string_view kShortPointChildren[] = {"lon", "lat", "name", "description", "info", "alt", "date", "time"};

// A route point or waypoint of the short vocabulary; false when it has no position.
bool ShortGeoPoint(const Doc& d, const std::string_view (&c)[8], GeoPointIn& g) {
    if (!ShortPosition(c[0], c[1], g.lon, g.lat)) return false;
    g.name = d.value(c[2]);
    g.desc = d.value(c[3]);
    g.cmt = d.value(c[4]);
    g.alt = ParseAltitude(c[5]);
    g.date = ParseDate(c[6]);
    g.time = ParseTime(c[7]);
    return true;
}

// Walks every `outer` element and every `point` in it, with the point's children.
template <size_t N, typename OnOuter, typename OnPoint>
void Walk(Session& s, const Doc& d, std::string_view outer, const std::vector<size_t>& closings,
          std::string_view point, const std::string_view (&names)[N], OnOuter onOuter, OnPoint onPoint) {
    const ChildNames childNames(names);
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element o = d.outer(outer, closings, pos, d.text.size());
        if (!o.found) break;
        pos = o.next;
        onOuter(o);
        size_t ptPos = o.begin;
        while (!s.UserAbort) {
            std::string_view c[N];
            const Element pt = d.point(point, ptPos, o.end, childNames, c);
            if (!pt.found) break;
            ptPos = pt.next;
            s.progress();
            d.passed(ptPos);
            onPoint(pt, c);
        }
    }
}

void ReadGpxRoutes(Session& s, const Doc& d) {
    Walk(s, d, "rte", d.closings.rte, "rtept", kGpxPointChildren,
         [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element& pt, const std::string_view (&c)[6]) {
             GeoPointIn g;
             if (GpxGeoPoint(d, pt, c, g)) AddRoutePoint(s.store, g);
         });
}

void ReadShortRoutes(Session& s, const Doc& d) {
    Walk(s, d, "route", d.closings.route, "rwp", kShortPointChildren,
         [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element&, const std::string_view (&c)[8]) {
             GeoPointIn g;
             if (ShortGeoPoint(d, c, g)) AddRoutePoint(s.store, g);
         });
}

template <size_t N>
void ReadPoints(Session& s, const Doc& d, std::string_view tag, const std::string_view (&names)[N]) {
    const ChildNames childNames(names);
    size_t pos = 0;
    while (!s.UserAbort) {
        std::string_view c[N];
        const Element pt = d.point(tag, pos, d.text.size(), childNames, c);
        if (!pt.found) break;
        pos = pt.next;
        s.progress();
        d.passed(pos);
        GeoPointIn g;
        if constexpr (N == 6) {
            if (!GpxGeoPoint(d, pt, c, g)) continue;
        } else {
            if (!ShortGeoPoint(d, c, g)) continue;
        }
        AddWayPoint(s, std::move(g));
    }
}

// Every outer element `tag`, each handed to `read`.
template <typename Read>
void EachOuter(Session& s, const Doc& d, std::string_view tag, const std::vector<size_t>& closings, Read read) {
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element e = d.outer(tag, closings, pos, d.text.size());
        if (!e.found) break;
        pos = e.next;
        read(e);
    }
    s.store.StatusText.set("Fertig");
}

void ReadTracks(Session& s, const Doc& d, const Present& p) {
    if (p.trk) {
        s.store.StatusText.set("Suche GPX TrackPoints");
        ReadGpxTracks(s, d);
    }
    if (p.track)
        EachOuter(s, d, "track", d.closings.track, [&](const Element& e) { ReadShortTrackElement(s, d, e); });
}

void ReadDoc(Session& s, Doc&& d) {
    if (d.text.empty()) return;
    // A file with points of several days lets the user choose the days: the
    // survey notes the dates on its way.
    const Present p = Survey(d, d.closings, &s);
    AskDates(s);
    ReadTracks(s, d, p);
    ClearDates(s);
    s.store.StatusText.set("Suche GPX RoutePoints");
    if (p.rte) ReadGpxRoutes(s, d);
    if (p.route) ReadShortRoutes(s, d);
    s.store.StatusText.set("Fertig");
    s.store.StatusText.set("Suche GPX WayPoints");
    if (p.wpt) ReadPoints(s, d, "wpt", kGpxPointChildren);
    if (p.wp) ReadPoints(s, d, "wp", kShortPointChildren);
    s.store.StatusText.set("Fertig");
}

// The document over the file's bytes. UTF-16 is the one charset that the
// scan cannot walk as it stands: such a file is decoded as a whole into
// `decoded` (its declaration then names UTF-16, which the scan need not know).
Doc OpenDoc(std::string_view bytes, std::string& decoded, const MappedFile* map) {
    Doc d;
    if (const Utf16Order order = DetectUtf16(bytes); order != Utf16Order::None) {
        decoded = DecodeUtf16(bytes, order);
        d.text = decoded;
        return d;
    }
    d.text = bytes;
    d.map = map;
    d.charset = DeclaredCharset(bytes);
    return d;
}

}  // namespace

void ReadGPXText(Session& s, std::string_view bytes) {
    std::string decoded;
    ReadDoc(s, OpenDoc(bytes, decoded, nullptr));
}

void ReadGPXText(Session& s, std::string_view bytes, size_t pipelineFrom) {
    std::string decoded;
    Doc d = OpenDoc(bytes, decoded, nullptr);
    d.pipelineFrom = pipelineFrom;
    ReadDoc(s, std::move(d));
}

void ReadGPXFile(Session& s, const std::string& path) {
    s.store.StatusText.set("Lese Datei");
    const MappedFile file(path);
    std::string decoded;
    ReadDoc(s, OpenDoc(file.view(), decoded, &file));
    file.checkIntact();
}

}  // namespace ortelix
