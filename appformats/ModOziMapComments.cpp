#include "appformats/ModOziMapComments.h"

#include "appformats/ModOziNumbers.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {
bool StartsWith(std::string_view line, char a, char b) {
    return line.size() >= 2 && UpperFirst(line) == a && UpperFirst(line.substr(1)) == b;
}
}  // namespace

void OziKommentareLesenText(Session& s, std::string_view bytes) {
    OziLines lines(bytes);
    std::string_view line, text;
    int64_t count = 0;
    while (!s.UserAbort && lines.next(line)) {
        GeoPointIn p;
        bool positioned = false;
        if (StartsWith(line, 'M', 'C')) {
            // A comment: its position, and its text on the next line.
            const OziFields<4> f(line);
            positioned = ParseOziPosition(f[3], f[4], p.lat, p.lon);
            if (lines.next(text)) p.cmt = OziFieldText(text);
        } else if (StartsWith(line, 'M', 'F')) {
            // A feature: name, position and description, then two lines of which the second is its text.
            const OziFields<9> f(line);
            p.name = OziFieldText(f[3]);
            p.desc = OziFieldText(f[9]);
            positioned = ParseOziPosition(f[4], f[5], p.lat, p.lon);
            lines.next(text);
            if (lines.next(text)) p.cmt = OziFieldText(text);
        } else {
            continue;
        }
        // A record without a position is no waypoint (its text lines are passed over all the same).
        if (positioned) AddWayPoint(s, std::move(p));
        s.store.StatusText.set("Lese Datensätze: ", ++count);
        s.progress();
    }
}

void OziKommentareLesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    OziKommentareLesenText(s, bytes);
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
