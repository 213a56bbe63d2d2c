#include "editor/BulkProjection.h"

#include "coordinates/Datum.h"

namespace ortelix {

namespace {

template <typename Transform>
bool Convert(Session& s, ModuleEditor& ed, bool toWgs, Transform&& transform) {
    const Datum* d = SelectedDatum(s);
    if (!d) return false;
    const std::string name = d->Name + " (" + d->Region + ")";
    if (!AskYes(s, "Sollen wirklich alle Koordinaten geändert werden?",
                toWgs ? name + " nach WGS84" : "WGS84 nach " + name))
        return false;
    ForEachShown(s, ed, [&](auto& p) {
        double lon = 0, lat = 0;
        transform(*d, p.Lon, p.Lat, lon, lat);
        p.Lon = lon;
        p.Lat = lat;
    });
    ed.refill();
    return true;
}

}  // namespace

bool DatumNachWgs84(Session& s, ModuleEditor& ed) { return Convert(s, ed, true, DatumToWGS84); }
bool Wgs84NachDatum(Session& s, ModuleEditor& ed) { return Convert(s, ed, false, WGS84ToDatum); }

}  // namespace ortelix
