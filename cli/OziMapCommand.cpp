#include <cstdio>
#include <string>

#include "appformats/ModOziMap.h"
#include "cli/CliCommands.h"
#include "core/Failure.h"
#include "core/ModulShared.h"
#include "core/WholeNumber.h"

namespace ortelix {

namespace {

void Usage() {
    std::fprintf(stderr,
                 "Aufruf: ortelix ozi-map BILD LON_W LAT_N LON_O LAT_S BREITE HOEHE [--meridian M] [--margin R]\n"
                 "  --meridian M  Mittelmeridian in Grad (Transverse Mercator), utm, oder geo (Vorgabe)\n"
                 "  --margin R    Rand in Pixeln für die Kalibrierungspunkte MMPXY/MMPLL\n");
}

// A whole number or a number with a point; false for anything else.
bool Number(const std::string& text, double& value) {
    size_t used = 0;
    value = LeadingNumber(text, &used);
    return used > 0 && used == text.size();
}

}  // namespace

int OziMapCommand(const std::vector<std::string>& args) {
    std::vector<std::string> positional;
    std::string meridian = "geo", margin = "0";
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        std::string* flag = a == "--meridian" ? &meridian : a == "--margin" ? &margin : nullptr;
        if (flag) {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "Dem Schalter %s fehlt ein Wert\n", a.c_str());
                return 2;
            }
            *flag = args[++i];
        } else if (a.size() > 2 && a[0] == '-' && a[1] == '-') {
            std::fprintf(stderr, "Unbekannter Schalter: %s\n", a.c_str());
            return 2;
        } else {
            positional.push_back(a);
        }
    }
    if (positional.size() != 7) {
        Usage();
        return 2;
    }
    double n[6];
    for (int i = 0; i < 6; ++i) {
        if (!Number(positional[static_cast<size_t>(i) + 1], n[i])) {
            std::fprintf(stderr, "Keine Zahl: %s\n", positional[static_cast<size_t>(i) + 1].c_str());
            return 2;
        }
    }
    OziMapDaten d;
    d.imageFile = positional[0];
    d.lonL = d.lonL2 = n[0];
    d.latO = d.latO2 = n[1];
    d.lonR = d.lonR2 = n[2];
    d.latU = d.latU2 = n[3];
    d.width = static_cast<int>(WholeWithin(n[4], 1 << 30));
    d.height = static_cast<int>(WholeWithin(n[5], 1 << 30));
    if (d.width <= 0 || d.height <= 0 || d.width != n[4] || d.height != n[5]) {
        std::fprintf(stderr, "Breite und Höhe sind ganze Pixelzahlen über 0\n");
        return 2;
    }
    if (meridian == "utm" || meridian == "UTM") {
        d.modus = kModusUTM;
    } else if (meridian == "geo") {
        d.modus = kModusGeo;
    } else if (!Number(meridian, d.modus)) {
        std::fprintf(stderr, "Kein Meridian: %s\n", meridian.c_str());
        return 2;
    }
    d.margin = margin;
    try {
        OziMapSchreiben(d);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", FailureText(kWriteFailed, e.what()).c_str());
        return 1;
    }
    std::printf("%s.map\n", SplitPath(d.imageFile, 4).c_str());
    return 0;
}

}  // namespace ortelix
