// The area text file: a part a line, "west ; north ; east ; south ; name",
// six decimals, Windows-1252 as the program's other text files.
#include <array>
#include <charconv>

#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/FixedDecimals.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// A whole field as one number, with "," taken as the decimal mark.
bool FeldZahl(std::string_view field, double& v) {
    std::string t(Trim(field));
    if (t.empty()) return false;
    for (char& c : t)
        if (c == ',') c = '.';
    if (t.front() == '+') t.erase(0, 1);
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    return r.ec == std::errc() && r.ptr == t.data() + t.size();
}

std::string Nummer3(size_t n) {
    std::string s = std::to_string(n);
    return s.size() < 3 ? std::string(3 - s.size(), '0') + s : s;
}

}  // namespace

std::string FlaechenTextdateiText(const Session& s, const std::string& file) {
    const std::string basis = SplitPath(file, 1);
    std::string out;
    size_t nr = 0;
    for (const KartenTeil& t : s.plan.KartenTeilListe) {
        for (double v : {t.LaengeWest, t.BreiteNord, t.LaengeOst, t.BreiteSued}) {
            AppendFixed(out, v, 6);
            out += " ; ";
        }
        out += EncodeFromUtf8(basis + Nummer3(++nr), Charset::Windows1252);
        out += "\r\n";
    }
    return out;
}

void FlaechenTextdateiSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    KartenprojektionFragen(s);
    SafeWriter w(file);
    w.write(FlaechenTextdateiText(s, file));
    w.commit();
    s.store.StatusText.set("Fertig");
}

size_t FlaechenTextdateiLesenText(Session& s, std::string_view bytes) {
    size_t skipped = 0;
    size_t pos = 0;
    while (pos < bytes.size()) {
        size_t end = bytes.find('\n', pos);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = Trim(bytes.substr(pos, end - pos));
        pos = end + 1;
        if (line.empty() || line.front() == '#' || line.front() == 'e' || line.front() == 'E') continue;
        std::array<double, 4> z{};
        size_t at = 0;
        bool gut = true;
        for (double& v : z) {
            if (at > line.size()) { gut = false; break; }
            size_t semi = line.find(';', at);
            if (semi == std::string_view::npos) semi = line.size();
            if (!FeldZahl(line.substr(at, semi - at), v)) { gut = false; break; }
            at = semi + 1;
        }
        if (!gut) {
            ++skipped;
            continue;
        }
        std::string_view name = at < line.size() ? line.substr(at) : std::string_view{};
        name = Trim(name.substr(0, name.find('|')));
        Flaeche& f = NewFlaeche(s.store);
        f.Name = DecodeToUtf8(name, Charset::Windows1252);
        f.West = z[0];
        f.North = z[1];
        f.East = z[2];
        f.South = z[3];
        s.progress();
    }
    return skipped;
}

size_t FlaechenTextdateiLesen(Session& s, const std::string& file) {
    return FlaechenTextdateiLesenText(s, ReadWholeFile(s, file));
}

std::string UebersprungenText(size_t lines) { return std::to_string(lines) + " fehlerhafte Zeilen übersprungen"; }

double KartenprojektionWert(std::string_view answer) {
    const std::string t = LowerAscii(Trim(answer));
    if (t.empty() || t == "lat/long") return 1000;
    if (t == "utm") return 2000;
    return ParseCoordinate(t);
}

std::string KartenprojektionVorgabe(double meridian) {
    if (meridian == 1000) return "Lat/Long";
    if (meridian == 2000) return "UTM";
    return FormatPoint(meridian, "0.######");
}

void KartenprojektionFragen(Session& s) {
    if (s.options.MapExpCheck[11] == 0) return;
    static constexpr const char* kText =
        "Um die Kartenflächen korrekt teilen zu können muss bekannt sein, wie die Karten gezeichnet und "
        "ausgerichtet sind. Alle topografischen Karten sind so gezeichnet, dass sowohl in Nord- als auch in "
        "Ostrichtung 1 Pixel überall auf der Karte einem Meter multipliziert mit einem Faktor (z.B. 5 "
        "Meter/Pixel) entspricht.\r\n\r\n"
        "Ausgerichtet - also gedreht - sind die Karten nach einem bestimmten (meist 9) Meridianwert. Diese Zahl "
        "müssen Sie eingeben. Wenige Karten sind nach Längen und Breitengrad gezeichnet. In diesem Fall, und "
        "wenn Sie den Meridianwert nicht wissen, klicken Sie auf ABBRECHEN.\r\n\r\n"
        "Wenn Sie bereits einen Kartentyp für den Kartenexport ausgewählt hatten, dann steht der korrekte Wert "
        "bereits als Vorgabe in dem Eingabefeld. Sollen aus dieser Karte später Teile exportiert werden, klicken "
        "Sie nur auf OK.";
    const auto answer =
        s.platform.inputBox(kText, "Kartenprojektion", KartenprojektionVorgabe(s.plan.KartenMeridian));
    s.plan.KartenMeridian = KartenprojektionWert(answer ? *answer : std::string());
}

}  // namespace ortelix
