#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <exception>

#include "appformats/ModOziNumbers.h"
#include "appformats/ModuleTop50Ovl.h"
#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// One symbol section as read: its kind, its coordinates in file order and
// its text. Keys come in any order (GPSBabel writes Art before Zoom), so
// every line is looked at by its key.
struct OvlSymbol {
    int typ = 0;
    std::vector<double> x, y;
    std::string text;
    size_t points() const { return std::min(x.size(), y.size()); }
};

bool StartsWith(std::string_view line, std::string_view head) {
    if (line.size() < head.size()) return false;
    for (size_t i = 0; i < head.size(); ++i)
        if (static_cast<char>(std::tolower(static_cast<unsigned char>(line[i]))) != head[i]) return false;
    return true;
}

// The kinds that become something: lines, areas, symbols and texts.
int KindOf(std::string_view line) {
    if (line.size() < 5 || !StartsWith(line, "typ=")) return 0;
    switch (line[4]) {
        case '1': return 1;
        case '2': return 2;
        case '3': return 3;
        case '4': return 4;
        case '5': return 5;
        case '6': return 6;
        case '7': return 7;
        default: return 0;
    }
}

// A coordinate value: the tolerant parser (a decimal comma is read), but a
// value with no number at all is a broken file, not a point at 0.
double Koordinate(std::string_view value, int64_t lineNumber) {
    const std::string_view v = Trim(value);
    std::string text(v);
    if (const size_t c = text.find(','); c != std::string::npos) text[c] = '.';
    size_t used = 0;
    const double d = LeadingNumber(text, &used);
    if (used == 0 || !std::isfinite(d))
        throw FileError("Zeile " + std::to_string(lineNumber) + ": keine Koordinate in \"" +
                        DecodeToUtf8(v.substr(0, 40), Charset::Windows1252) + "\"");
    return d;
}

class OvlParser {
public:
    explicit OvlParser(std::string_view bytes) : lines_(bytes), size_(bytes.size()) {}

    // Reads every section into `out`; throws on a broken number with what
    // was read so far left in `out`.
    void run(Session& s, std::vector<OvlSymbol>& out) {
        std::string_view line;
        bool pending = false;  // a "[Symbol" line was just read
        OvlSymbol* cur = nullptr;
        while (!s.UserAbort && next(line)) {
            if (!line.empty() && line[0] == '[') {
                cur = nullptr;
                pending = StartsWith(line, "[symbol");
                sawSection_ = true;
                continue;
            }
            if (pending) {
                pending = false;
                if (const int k = KindOf(line)) {
                    out.emplace_back();
                    cur = &out.back();
                    cur->typ = k;
                    s.store.StatusText.set("Lese Top50-OVL Datensätze: ", static_cast<int64_t>(pos()));
                    s.progress();
                }
                continue;
            }
            if (!cur) continue;
            const size_t eq = line.find('=');
            if (eq == std::string_view::npos) continue;
            const std::string_view key = Trim(line.substr(0, eq));
            const std::string_view value = line.substr(eq + 1);
            if (StartsWith(key, "xkoord")) {
                cur->x.push_back(Koordinate(value, number_));
            } else if (StartsWith(key, "ykoord")) {
                cur->y.push_back(Koordinate(value, number_));
            } else if (key.size() == 4 && StartsWith(key, "text")) {
                cur->text = DecodeToUtf8(Trim(value), Charset::Windows1252);
            }
            if ((cur->x.size() & 0xFFF) == 0xFFF) s.progress();
        }
    }
    bool sawSection() const { return sawSection_; }

private:
    bool next(std::string_view& line) {
        if (!lines_.next(line)) return false;
        ++number_;
        consumed_ += line.size() + 1;
        return true;
    }
    size_t pos() const { return std::min(consumed_, size_); }

    OziLines lines_;
    size_t size_;
    size_t consumed_ = 0;
    int64_t number_ = 0;
    bool sawSection_ = false;
};

// The read lists into the store, in their order: routes, areas, waypoints.
void Transfer(Session& s, const std::vector<OvlSymbol>& symbols, std::string_view baseName) {
    s.store.StatusText.set("Übertrage Strecken");
    int route = 0;
    for (const OvlSymbol& sym : symbols) {
        if (sym.typ != 3 || sym.points() == 0) continue;
        std::string name = "R" + std::to_string(++route) + "-";
        name += baseName;
        NewRoute(s.store, name);
        s.store.Routes.back().Points.reserve(sym.points());
        for (size_t i = 0; i < sym.points(); ++i) {
            GeoPointIn p;
            p.lon = sym.x[i];
            p.lat = sym.y[i];
            AddRoutePoint(s.store, p);
        }
        s.progress();
    }
    s.store.StatusText.set("Übertrage Punkte");
    for (const OvlSymbol& sym : symbols) {
        if (sym.points() == 0) continue;
        GeoPointIn p;
        switch (sym.typ) {
            case 1: p.desc = s.options.Text[0]; break;
            case 6: p.desc = s.options.Text[1]; break;
            case 5: p.desc = s.options.Text[2]; break;
            case 7: p.desc = s.options.Text[3]; break;
            case 2: p.name = sym.text; break;
            default: continue;
        }
        p.lon = sym.x[0];
        p.lat = sym.y[0];
        AddWayPoint(s, std::move(p));
        s.progress();
    }
    s.store.StatusText.set("Übertrage Flächen");
    for (const OvlSymbol& sym : symbols) {
        // The first and third corners as they stand: west/north and east/south
        // in the overlays this program and the viewer write.
        if (sym.typ != 4 || sym.points() < 3) continue;
        Flaeche& f = NewFlaeche(s.store);
        f.Name = std::string(baseName);
        f.West = sym.x[0];
        f.North = sym.y[0];
        f.East = sym.x[2];
        f.South = sym.y[2];
    }
}

}  // namespace

void Top50LesenText(Session& s, std::string_view bytes, std::string_view baseName) {
    // The viewer's own binary overlays share the extension; their bytes are
    // no text of keys and values.
    if (bytes.find('\0') != std::string_view::npos)
        throw FileError("Die Datei ist kein Top50 ASCII-Overlay (binäre Daten)");
    std::vector<OvlSymbol> symbols;
    OvlParser parser(bytes);
    try {
        parser.run(s, symbols);
    } catch (...) {
        // What was read before the break reaches the store all the same.
        Transfer(s, symbols, baseName);
        throw;
    }
    Transfer(s, symbols, baseName);
    if (!parser.sawSection()) throw FileError("Die Datei enthält keine Top50-Overlay-Abschnitte");
}

void Top50Lesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    Top50LesenText(s, bytes, SplitPath(file, 1));
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
