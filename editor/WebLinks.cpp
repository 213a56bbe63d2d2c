#include "editor/WebLinks.h"

#include "core/ModulShared.h"
#include "platform/Platform.h"

namespace ortelix {

int WebService(WebKeys k) {
    if (k.ctrl && k.alt) return 4;
    if (k.ctrl) return 2;
    if (k.alt) return 3;
    return 1;  // with or without shift: the satellite view is the same service
}

std::string WebHostKey(int service) { return "KartenServer" + std::to_string(service); }

std::string WebHostDefault(int service) {
    // The first service is the one whose paths these are; the others have no
    // host that still answers them, so the user names one.
    return service == 1 ? "https://maps.google.de" : std::string();
}

std::string WebLink(const std::string& host, WebKeys keys, double lat, double lon) {
    const std::string la = FormatFixed(lat, 6), lo = FormatFixed(lon, 6);
    switch (WebService(keys)) {
        case 4:
            return host + "/maps/map.adp?" + "latlongtype=decimal&latitude=" + la + "&longitude=" + lo +
                   "&zoom=6&size=big&style=RARE";
        case 3: return host + "/map/browse.cgi?" + "lat=" + la + "&lon=" + lo + "&scale=5000&icon=x";
        case 2: return host + "/map?" + "lat=" + la + "&lon=" + lo + "&z=18&mt=1";
        default: break;
    }
    if (keys.shift)
        return host + "/maps?" + "f=q&hl=de&q=" + la + "," + lo + "&ie=UTF8&om=1&z=14&ll=" + la + "," + lo +
               "&spn=0.033458,0.10849&t=k&iwloc=A";
    return host + "/maps?" + "f=q&hl=de&q=" + la + "," + lo + "&ie=UTF8&z=14&ll=" + la + "," + lo +
           "&spn=0.033092,0.077076&om=1";
}

bool InternetKarteZeigen(Session& s, const ModuleEditor& ed, int rowSel, WebKeys keys) {
    const int64_t index = ed.erster() + rowSel - 1;
    if (rowSel < 1 || rowSel > ed.rowCount() || index < 0) return false;
    const GeoPoint* g = nullptr;
    const TrackPoint* t = nullptr;
    if (const Track* tr = ShownTrack(s, ed); tr && index < static_cast<int64_t>(tr->Points.size()))
        t = &tr->Points[static_cast<size_t>(index)];
    else if (const Route* r = ShownRoute(s, ed); r && index < static_cast<int64_t>(r->Points.size()))
        g = &r->Points[static_cast<size_t>(index)];
    else if (ed.view() == EditorView::Waypoint && index < static_cast<int64_t>(s.store.WayPoints.size()))
        g = &s.store.WayPoints[static_cast<size_t>(index)];
    if (!g && !t) return false;
    const int service = WebService(keys);
    const std::string host = s.platform.readSetting("Internet", WebHostKey(service)).value_or(WebHostDefault(service));
    if (host.empty()) return false;
    return s.platform.openWithSystem(g ? WebLink(host, keys, g->Lat, g->Lon) : WebLink(host, keys, t->Lat, t->Lon));
}

}  // namespace ortelix
