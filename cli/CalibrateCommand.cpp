#include <cstdio>
#include <string>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/ModulShared.h"
#include "mapexport/Kalibrierung.h"

namespace ortelix {

namespace {

constexpr const char* kUsage =
    "Aufruf: ortelix calibrate BILD BREITE HOEHE LON_W LAT_N LON_O LAT_S [--meridian M|latlong|utm] "
    "[--set NAME=WERT]...";

bool Number(const std::string& text, double& value) {
    size_t used = 0;
    value = LeadingNumber(text, &used);
    return used > 0 && used == text.size();
}

// The export form's own controls: "List2" is its image type list, "Check5"
// its switch, as the form names them; the settings file keeps them as
// MapExpList and MapExpCheck.
std::string FormName(const std::string& kv) {
    for (const char* prefix : {"List", "Check"}) {
        const std::string p = prefix;
        if (kv.rfind(p, 0) == 0 && kv.size() > p.size() && kv[p.size()] >= '0' && kv[p.size()] <= '9')
            return "MapExp" + kv;
    }
    return kv;
}

}  // namespace

int CalibrateCommand(const std::vector<std::string>& args) {
    std::string meridian = "latlong";
    std::vector<std::string> rest;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--meridian" || args[i] == "--set") {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "Dem Schalter %s fehlt ein Wert\n", args[i].c_str());
                return 2;
            }
            if (args[i] == "--meridian") {
                meridian = args[++i];
            } else {
                rest.push_back(args[i]);
                rest.push_back(FormName(args[++i]));
            }
        } else {
            rest.push_back(args[i]);
        }
    }
    CliContext ctx;
    if (!PrepareCli(ctx, rest)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    if (ctx.positional.size() != 7) {
        std::fprintf(stderr, "%s\n", kUsage);
        return 2;
    }
    double n[6];
    for (size_t i = 0; i < 6; ++i) {
        if (!Number(ctx.positional[i + 1], n[i])) {
            std::fprintf(stderr, "Keine Zahl: %s\n", ctx.positional[i + 1].c_str());
            return 2;
        }
    }
    Kalibrierung k;
    k.BildDatei = ctx.positional[0];
    k.BildBreite = n[0];
    k.BildHoehe = n[1];
    k.LaengeWest = n[2];
    k.BreiteNord = n[3];
    k.LaengeOst = n[4];
    k.BreiteSued = n[5];
    if (k.BildBreite < 1 || k.BildHoehe < 1 || k.BildBreite > 1e9 || k.BildHoehe > 1e9) {
        std::fprintf(stderr, "Breite und Höhe sind Pixelzahlen ab 1\n");
        return 2;
    }
    if (meridian == "latlong") {
        k.KartenMeridian = 1000;
    } else if (meridian == "utm") {
        k.KartenMeridian = 2000;
    } else if (!Number(meridian, k.KartenMeridian) || k.KartenMeridian < -180 || k.KartenMeridian > 180) {
        std::fprintf(stderr, "Kein Meridian: %s\n", meridian.c_str());
        return 2;
    }
    const Options& o = ctx.session->options;
    KalibrierungsLauf lauf;
    lauf.margin = o.ZahlInput[8];
    lauf.bildTyp = o.MapExpList[2];
    std::vector<std::string> written;
    const bool ok = SchreibeKalibrierung(*ctx.session, k, lauf, written);
    for (const std::string& p : written) std::printf("%s\n", p.c_str());
    return ok ? 0 : 1;
}

}  // namespace ortelix
