#include "mapexport/Kalibrierung.h"

#include <cmath>
#include <functional>

#include "appformats/ModOziMap.h"
#include "coordinates/Entfernung.h"
#include "coordinates/GaussKrueger.h"
#include "core/Charset.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"

namespace ortelix {

bool IstMeridian(double KartenMeridian) { return KartenMeridian != kModusGeo && KartenMeridian != kModusUTM; }

KartenAbmessung BerechneKalibrierung(double KartenMeridian, const Kalibrierung& k) {
    KartenAbmessung a;
    double ostM, nordM;
    if (!IstMeridian(KartenMeridian)) {
        a.LaengeOR = k.LaengeOst, a.BreiteOR = k.BreiteNord;
        a.LaengeUL = k.LaengeWest, a.BreiteUL = k.BreiteSued;
        ostM = Entfernung(k.LaengeWest, k.BreiteNord, k.LaengeOst, k.BreiteNord);
        nordM = Entfernung(k.LaengeWest, k.BreiteNord, k.LaengeWest, k.BreiteSued);
    } else {
        double R1, H1, R2, H2;
        GeoNachGKMeridian(k.LaengeWest, k.BreiteNord, KartenMeridian, R1, H1);
        GeoNachGKMeridian(k.LaengeOst, k.BreiteSued, KartenMeridian, R2, H2);
        GKNachGeoMeridian(R2, H1, KartenMeridian, a.LaengeOR, a.BreiteOR);
        GKNachGeoMeridian(R1, H2, KartenMeridian, a.LaengeUL, a.BreiteUL);
        ostM = R2 - R1;
        nordM = H1 - H2;
    }
    a.KmBreite = ostM / 1000;
    a.KmHoehe = nordM / 1000;
    if (k.BildBreite != 0 && k.BildHoehe != 0) {
        a.MeterProPixelOst = ostM / k.BildBreite;
        a.MeterProPixelNord = nordM / k.BildHoehe;
    }
    return a;
}

std::string BildTypText(int listRow) {
    static constexpr const char* kTypes[] = {"", "ozf2", "gif", "tif", "ecw", "jpg"};
    return listRow > 0 && listRow < 6 ? kTypes[listRow] : "";
}

namespace {

struct Datei {
    std::string suffix;                  // appended to the path without extension
    std::function<std::string()> bytes;  // in the code page
};

std::string Cp(const std::string& utf8) { return EncodeFromUtf8(utf8, Charset::Windows1252); }

}  // namespace

bool SchreibeKalibrierung(Session& s, const Kalibrierung& k, const KalibrierungsLauf& lauf,
                          std::vector<std::string>& written) {
    if (k.BildDatei.empty()) return true;
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    const std::string bildTyp = BildTypText(lauf.bildTyp);

    OziMapDaten map;
    map.imageFile = k.BildDatei;
    map.lonL = k.LaengeWest, map.latO = k.BreiteNord;
    map.lonR = k.LaengeOst, map.latU = k.BreiteSued;
    map.lonL2 = a.LaengeUL, map.latU2 = a.BreiteUL;
    map.lonR2 = a.LaengeOR, map.latO2 = a.BreiteOR;
    map.modus = k.KartenMeridian;
    map.width = static_cast<int>(k.BildBreite);
    map.height = static_cast<int>(k.BildHoehe);
    map.margin = lauf.margin;
    map.imageType = bildTyp;

    std::vector<Datei> dateien;
    dateien.push_back({".map", [&] { return OziMapText(map); }});
    dateien.push_back({"_Kalibrierung.txt", [&] { return Cp(KalibrierungsBericht(k)); }});
    if (IstMeridian(k.KartenMeridian)) {
        dateien.push_back({".prj", [&] { return Cp(PrjText(k)); }});
        dateien.push_back({".jgw", [&] { return Cp(JgwText(k)); }});
        dateien.push_back({".ers", [&] { return Cp(ErsText(k, "POTSDAM", TmgerName(k.KartenMeridian))); }});
    }
    dateien.push_back({"_Kali.loc", [&] { return Cp(KaliLocText(k)); }});
    dateien.push_back({".gmi", [&] { return Cp(GmiText(k)); }});
    dateien.push_back({".kal", [&] { return Cp(KalText(k)); }});
    dateien.push_back({".geo", [&] { return Cp(GeoText(k)); }});
    dateien.push_back({".cal_Kompass", [&] { return Cp(CalKompassText(k)); }});
    dateien.push_back({".mcx", [&] { return Cp(McxText(k, bildTyp)); }});

    const std::string base = SplitPath(k.BildDatei, 4);
    bool ok = true;
    for (const Datei& d : dateien) {
        const std::string path = base + d.suffix;
        const bool done = RunWriter(s, "Kalibrierung", [&] {
            SafeWriter w(path);
            w.write(d.bytes());
            w.commit();
        });
        if (done) written.push_back(path);
        ok = ok && done;
    }
    return ok;
}

}  // namespace ortelix
