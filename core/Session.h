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
