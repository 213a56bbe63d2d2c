// Map-Check: the plan's parts as outlines for other programs, each part a
// closed rectangle through the corners the viewer draws.
#include "appformats/ModOziTrack.h"
#include "appformats/ModOziWaypoint.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

void Schreiben(const std::string& file, const std::string& bytes) {
    SafeWriter w(file);
    w.write(bytes);
    w.commit();
}

// OziExplorer starts a new track segment at a point whose third field is 1:
// each part's first corner.
void SegmentAnfaenge(std::string& plt, size_t punkteJeTeil) {
    size_t pos = 0;
    for (int header = 0; header < 6 && pos != std::string::npos; ++header) {
        pos = plt.find('\n', pos);
        if (pos != std::string::npos) ++pos;
    }
    for (size_t i = 0; pos != std::string::npos && pos < plt.size(); ++i) {
        if (i % punkteJeTeil == 0) {
            const size_t c1 = plt.find(',', pos);
            const size_t c2 = c1 == std::string::npos ? c1 : plt.find(',', c1 + 1);
            if (c2 != std::string::npos && c2 + 2 < plt.size() && plt[c2 + 2] == '0') plt[c2 + 2] = '1';
        }
        pos = plt.find('\n', pos);
        if (pos != std::string::npos) ++pos;
    }
}

}  // namespace

std::vector<std::string> MapCheckSchreiben(Session& s, const std::string& name) {
    if (name.empty()) return {};
    std::string basis = name;
    const size_t slash = basis.rfind('/');
    const size_t dot = basis.rfind('.');
    if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) basis.erase(dot);
    const std::string stamm = basis + "_Check";

    Track track;
    track.Name = SplitPath(stamm, 1);
    std::vector<GeoPoint> mitten;
    size_t nr = 0;
    for (const KartenTeil& t : s.plan.KartenTeilListe) {
        const auto ecken = KartenEcken(t, s.plan.KartenMeridian);
        for (size_t i = 0; i <= 4; ++i) {
            TrackPoint p;
            p.Lon = ecken[i % 4][0];
            p.Lat = ecken[i % 4][1];
            track.Points.push_back(p);
        }
        GeoPoint w;
        w.Lon = (t.LaengeOst - t.LaengeWest) / 2 + t.LaengeWest;
        w.Lat = (t.BreiteNord - t.BreiteSued) / 2 + t.BreiteSued;
        ++nr;
        w.Name = "_" + std::string(nr < 10 ? "0" : "") + std::to_string(nr);
        mitten.push_back(std::move(w));
    }
    std::string plt = OziTrackText(track, track.Name);
    SegmentAnfaenge(plt, 5);
    std::vector<const GeoPoint*> zeiger;
    for (const GeoPoint& w : mitten) zeiger.push_back(&w);

    const std::vector<std::string> files{stamm + ".plt", stamm + ".wpt", stamm + ".csv"};
    Schreiben(files[0], plt);
    Schreiben(files[1], OziWegepunkteText(zeiger, false));
    Schreiben(files[2], FlaechenTextdateiText(s, files[2]));
    return files;
}

}  // namespace ortelix
