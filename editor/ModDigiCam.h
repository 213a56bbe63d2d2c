#pragma once
// "Digicam": photos placed on the tracks of the store by the time in their
// EXIF block. Each hit adds a waypoint that links to the photo; the photo
// itself is only read.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/ModulArray.h"
#include "editor/clsEXIF.h"

namespace ortelix {

class Session;
struct Options;

inline constexpr const char* kDigiCamTitle = "Ein Digitalbild im Ordner auswählen";
inline constexpr const char* kDigiCamFilter = "Eine Datei (*.jpg)|*.jpg|Alle Dateien (*.jpg)|*.jpg";

// A moment as whole seconds since 1899-12-30 00:00:00; an empty date or time
// counts as 0, as the formats' arithmetic does.
int64_t MomentSeconds(Date d, Time t);

// The binary search over a track in time order: the index (0-based) where
// the search closes, which may lie a point before or after the moment. False
// when the moment lies before the first or after the last point's time.
bool FindPointByTime(const Track& track, int64_t moment, size_t& index);

// The time order of one track, found once per run. A track whose times do
// not ascend is searched through its points sorted by time (stable), so a
// track joined out of order still finds the point of a moment.
struct TrackTimeOrder {
    bool ascending = true;
    std::vector<uint32_t> order;  // point indices by time; only when not ascending
};
TrackTimeOrder TimeOrderOf(const Track& track);
bool FindPointByTime(const Track& track, const TrackTimeOrder& order, int64_t moment, size_t& index);

// What a run over many photos prepares once.
struct DigiCamRun {
    ExifNames names;
    int64_t versatz = 0;  // seconds subtracted from each photo's time
    std::vector<TrackTimeOrder> tracks;
};
DigiCamRun PrepareDigiCam(Session& s, int64_t versatzSeconds);

// The camera's offset of the main form (TextZeit(2), "hh:mm:ss"); a text that
// is no time counts as 0.
int64_t DigiCamOffset(const Options& o);

// A photo's EXIF "DateTime" (tag 306) "YYYY:MM:DD hh:mm:ss" as whole seconds;
// false when it is no valid date and time.
bool PhotoMoment(const std::string& dateTime, int64_t& seconds);

struct PhotoResult {
    int waypoints = 0;     // waypoints added, one per track that holds the moment
    int hits = 0;          // tracks that hold the moment (the waypoint filter may drop their waypoints)
    std::string skipped;   // why the photo was skipped (German); empty when it was searched
};
// One photo: its moment less the offset, looked up in every track.
PhotoResult FotoAufTrack(Session& s, const DigiCamRun& run, const std::string& path);

// The photos of a choice in the dialog: filter 1 the chosen file only, filter
// 2 every file of its folder ending in "jpg" in any case, by name in byte order.
std::vector<std::string> DigiCamFiles(const std::string& chosen, int filterIndex);

// The command "Digicam" (MenEdDigiCam): the dialog, then every photo. Returns
// the waypoints added. The caller refreshes the editor's lists (ListsRefresh).
int DigiCam(Session& s);

}  // namespace ortelix
