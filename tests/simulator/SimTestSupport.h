#pragma once
// A simulator on the fake platform: a session, its engine, the boxes set in
// one call, and the sentences that reached the port.
#include <string>
#include <string_view>
#include <vector>

#include "core/ModulArray.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "simulator/ModulNMEASim.h"

namespace ortelix::simtest {

struct Sim {
    FakePlatform platform;
    Session session{platform};
    SimEngine engine{session};

    Sim() { session.options.NMEABox = {"10", "0", "50", "0", "100", "0", "0", ""}; }

    void quelle(SimQuelle q) { WaehleQuelle(session.options, q); }
    std::string& box(size_t i) { return session.options.NMEABox[i]; }
    double lon() { return GradMinutenLesen(box(0), box(1)); }
    double lat() { return GradMinutenLesen(box(2), box(3)); }

    // Runs the timers in virtual time until the clock reaches `seconds`.
    void runUntil(double seconds) {
        while (engine.timers.nextDue() <= seconds + 1e-9) engine.Warte();
    }

    // The sentences that start with `head` ("$GPGGA"), in the order sent.
    std::vector<std::string> sentences(std::string_view head) const {
        std::vector<std::string> out;
        size_t pos = 0;
        const std::string& b = platform.serialBytes;
        while ((pos = b.find(head, pos)) != std::string::npos) {
            const size_t end = b.find("\r\n", pos);
            out.push_back(b.substr(pos, end - pos));
            pos = end;
        }
        return out;
    }
    // Field `i` (0 = the sentence name) of a sentence.
    static std::string field(const std::string& sentence, size_t i) {
        size_t start = 0;
        for (size_t k = 0; k < i; ++k) start = sentence.find(',', start) + 1;
        const size_t end = sentence.find_first_of(",*", start);
        return sentence.substr(start, end - start);
    }
};

// A track of points at the given positions, with a speed of `kmh` each.
inline void AddTrack(DataStore& s, const std::vector<std::pair<double, double>>& lonLat, double kmh) {
    NewTrack(s, "Probe");
    for (const auto& [lon, lat] : lonLat) {
        TrackPointIn p;
        p.lon = lon;
        p.lat = lat;
        p.speed = kmh;
        StoreTrackPoint(s, p);
    }
}

// A route through the given positions, without speeds.
inline void AddRoute(DataStore& s, const std::vector<std::pair<double, double>>& lonLat) {
    NewRoute(s, "Runde");
    int n = 0;
    for (const auto& [lon, lat] : lonLat) {
        GeoPointIn p;
        p.lon = lon;
        p.lat = lat;
        p.name = "P" + std::to_string(++n);
        p.desc = "Punkt " + std::to_string(n);
        AddRoutePoint(s, p);
    }
}

}  // namespace ortelix::simtest
