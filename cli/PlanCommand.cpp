// ortelix plan [--type N] [--meridian M|latlong|utm] [--set NAME=VALUE]...
// [--csv OUT.csv] [--check BASE] AREAFILE...: the export plan of the areas,
// one line a part, as the map export's form makes it.
#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/FixedDecimals.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

constexpr const char* kUsage =
    "Aufruf: ortelix plan [--type N] [--meridian M|latlong|utm] [--set NAME=WERT]... [--csv AUSGABE.csv] "
    "[--check NAME] FLAECHENDATEI...";

// The form's controls by their own names: CheckN and ListN are the map
// export's switches and lists, not those of the main form.
std::string FormName(const std::string& kv) {
    for (const char* prefix : {"Check", "List"}) {
        const std::string p(prefix);
        if (kv.compare(0, p.size(), p) == 0 && kv.size() > p.size() && kv[p.size()] >= '0' && kv[p.size()] <= '9')
            return "MapExp" + kv;
    }
    return kv;
}

bool Whole(const std::string& text, int& value) {
    size_t used = 0;
    const double v = LeadingNumber(text, &used);
    if (used == 0 || used != text.size() || v != static_cast<int>(v)) return false;
    value = static_cast<int>(v);
    return true;
}

bool MeridianArg(const std::string& text, double& meridian) {
    const std::string t = LowerAscii(text);
    if (t == "latlong" || t == "lat/long") {
        meridian = 1000;
        return true;
    }
    if (t == "utm") {
        meridian = 2000;
        return true;
    }
    std::string dot = t;
    for (char& c : dot)
        if (c == ',') c = '.';
    size_t used = 0;
    meridian = LeadingNumber(dot, &used);
    return used > 0 && used == dot.size();
}

// One area file: the area text file, a .map (its meridian noted), or any
// file the batch reading takes, whose tracks, routes and waypoints become
// areas afterwards.
bool ReadArea(CliContext& ctx, const std::string& path, double& mapMeridian, bool& batchRead) {
    Session& s = *ctx.session;
    const std::string ext = LowerExtension(path);
    if (ext == "csv") {
        size_t skipped = 0;
        const bool ok = RunReader(s, "Flächen Textdatei", [&] { skipped = FlaechenTextdateiLesen(s, path); });
        if (skipped > 0) std::fprintf(stderr, "%s: %s\n", path.c_str(), UebersprungenText(skipped).c_str());
        return ok;
    }
    if (ext == "map") {
        return RunReader(s, "OziExplorer Map-Datei auswählen", [&] {
            const double m = MapFlaechenEinlesen(s, path);
            if (mapMeridian == 0) mapMeridian = m;
        });
    }
    batchRead = true;
    return ReadInput(ctx, path, ctx.inputFormat);
}

}  // namespace

int PlanCommand(const std::vector<std::string>& args) {
    int typ = 0;
    std::string meridianText, csvOut, checkBase;
    std::vector<std::string> rest;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const bool ours = a == "--type" || a == "--meridian" || a == "--csv" || a == "--check" || a == "--set";
        if (!ours) {
            rest.push_back(a);
            continue;
        }
        if (i + 1 >= args.size()) {
            std::fprintf(stderr, "Dem Schalter %s fehlt ein Wert\n%s\n", a.c_str(), kUsage);
            return 2;
        }
        const std::string& v = args[++i];
        if (a == "--type") {
            if (!Whole(v, typ) || typ < 1 || typ > 9) {
                std::fprintf(stderr, "--type erwartet 1 bis 9: %s\n", v.c_str());
                return 2;
            }
        } else if (a == "--meridian") {
            meridianText = v;
        } else if (a == "--csv") {
            csvOut = v;
        } else if (a == "--check") {
            checkBase = v;
        } else {
            rest.push_back(a);
            rest.push_back(FormName(v));
        }
    }
    CliContext ctx;
    if (!PrepareCli(ctx, rest)) {
        std::fprintf(stderr, "%s\n%s\n", ctx.error.c_str(), kUsage);
        return 2;
    }
    if (ctx.positional.empty()) {
        std::fprintf(stderr, "%s\n", kUsage);
        return 2;
    }
    Session& s = *ctx.session;
    double mapMeridian = 0;
    bool batchRead = false;
    for (const std::string& path : ctx.positional)
        if (!ReadArea(ctx, path, mapMeridian, batchRead)) return 1;
    if (batchRead) {
        FlaechenAusTracks(s, "");
        FlaechenAusRouten(s, "");
        FlaechenAusWegepunkten(s, "");
    }

    // --meridian, else the type's own, else the .map's, else latitude/longitude.
    const double typMeridian = typ == 0 ? 0 : MeridianFuerTyp(s.options, typ);
    if (!meridianText.empty()) {
        if (!MeridianArg(meridianText, s.plan.KartenMeridian)) {
            std::fprintf(stderr, "--meridian erwartet eine Zahl, latlong oder utm: %s\n", meridianText.c_str());
            return 2;
        }
    } else if (typMeridian != 0) {
        s.plan.KartenMeridian = typMeridian;
    } else {
        s.plan.KartenMeridian = mapMeridian != 0 ? mapMeridian : 1000;
    }
    const size_t n = KartePlanen(s, typ == 0 ? 8 : typ, true);
    if (n == 0) {
        std::fprintf(stderr, "Keine Kartenteile: die Dateien bringen keine Flächen\n");
        return 1;
    }
    std::string out;
    for (size_t i = 1; i <= n; ++i) {
        const KartenTeilAnzeige a = ZeigeKartenTeil(s, i);
        out += std::to_string(i);
        for (size_t k : {0, 1, 2, 3}) out += " " + a.Grenzen[k];
        out += " ";
        out += Trim(a.Info);
        out += "\n";
    }
    std::fwrite(out.data(), 1, out.size(), stdout);

    bool ok = true;
    if (!csvOut.empty())
        ok &= RunWriter(s, "Flächen Textdatei schreiben", [&] {
            SafeWriter w(csvOut);
            w.write(FlaechenTextdateiText(s, csvOut));
            w.commit();
        });
    if (!checkBase.empty())
        ok &= RunWriter(s, "Ordner für Karten Check Dateien", [&] { MapCheckSchreiben(s, checkBase); });
    return ok ? 0 : 1;
}

}  // namespace ortelix
