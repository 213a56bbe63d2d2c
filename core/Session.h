#pragma once
// One run of the program: the store, the options and every piece of state
// that the program keeps between commands. main() makes one, every test its own.
#include <cstdint>
#include <string>
#include <vector>

#include "core/CoordinateState.h"
#include "core/ModulArray.h"
#include "core/Options.h"
#include "core/ReadFilterState.h"

namespace ortelix {

class Platform;

// One part of the export plan: its edges in WGS 84 degrees and the Top50 map
// that covers its centre (empty where no map is chosen).
struct KartenTeil {
    double LaengeWest = 0;
    double LaengeOst = 0;
    double BreiteSued = 0;
    double BreiteNord = 0;
    std::string KartenName;
};

// The export frame that FormMapExp shows; it decides the sort, the pixel
// size and the MagicMaps test of the plan.
enum class KartenFrame { Keiner, Top50, Tk25, MagicMaps, Swiss, GoogleEarth, OziMap };

// The export plan: its parts (numbered from 1 by their position + 1) and the
// projection they are cut in.
struct ExportPlan {
    std::vector<KartenTeil> KartenTeilListe;
    double KartenMeridian = 1000;  // degrees; 1000 latitude/longitude, 2000 UTM
    KartenFrame Frame = KartenFrame::Keiner;
    int KartenMassstab = 0;        // Top50 scale; 0 reads as 50000
    double MeterProPixel = 0;      // Swiss Map resolution
    int TeilNummer = 0;            // the part shown now
};

class Session {
public:
    explicit Session(Platform& platform) : platform(platform) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Platform& platform;
    DataStore store;
    Options options;
    TrackFilterState trackFilter;
    TrackStatState trackStats;
    DateChoice dates;
    CoordinateState coords;  // datum table, geoid grid, area regions
    ExportPlan plan;

    // Set only by Wait (the right mouse button during a wait); every command
    // starts with it cleared.
    bool UserAbort = false;
    // Set by a writer that found nothing of its kind in the store and wrote
    // nothing ("Kein Datensatz vorhanden!"); the writer's command then failed.
    bool NothingWritten = false;
    // The filter entry chosen in the last file dialog of a command (1-based);
    // readers and writers whose entries mean different variants read it.
    int DialogFilterIndex = 1;

    // Called by readers once per record: gives the event loop time every few
    // milliseconds. A right button held meanwhile is no abort: a read is never
    // cut short without a word.
    void progress() {
        if (--progressCountdown_ > 0) return;
        progressCountdown_ = kProgressStride;
        pollEvents();
    }
    void pollEvents();

private:
    static constexpr int kProgressStride = 4096;
    int progressCountdown_ = kProgressStride;
    double lastYield_ = -1;
};

}  // namespace ortelix
