#include "core/Settings.h"

#include <charconv>
#include <string>

#include "core/ModulShared.h"
#include "core/OptionBounds.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {
constexpr const char* kSetup = "Setup";
constexpr const char* kMapExpLoad = "Kartenexport";
constexpr const char* kMapExpSave = "KartenExport";

std::string Num(int v) {
    char buf[16];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

std::string Key(const char* prefix, size_t i) { return prefix + Num(static_cast<int>(i)); }

// Reads the store over a table of values to fall back on. A key that is
// missing takes the table's value silently: a store left by an abnormal end
// may hold only some keys. A key whose text does not read, or reads out of
// range, takes it too and leaves a notice.
class Loader {
public:
    Loader(Platform& p, std::vector<std::string>& notices) : p_(p), notices_(notices) {}

    std::string text(const char* section, const std::string& key, const std::string& base) {
        auto v = p_.readSetting(section, key);
        return v ? *v : base;
    }
    // A list entry (or a check, or a colour) from 0 to count - 1.
    int index(const char* section, const std::string& key, int base, int count) {
        auto v = p_.readSetting(section, key);
        if (!v) return base;
        int x = 0;
        auto r = std::from_chars(v->data(), v->data() + v->size(), x);
        if (r.ec == std::errc() && r.ptr == v->data() + v->size() && x >= 0 && x < count) return x;
        refuse(section, key, *v, Num(base));
        return base;
    }
    int check(const char* section, const std::string& key, int base) { return index(section, key, base, 2); }
    // A number field: its text, when the number it reads as lies in range.
    std::string number(const char* section, const std::string& key, const std::string& base, NumberRange range) {
        auto v = p_.readSetting(section, key);
        if (!v) return base;
        if (NumberInRange(*v, range)) return *v;
        refuse(section, key, *v, base);
        return base;
    }

private:
    void refuse(const char* section, const std::string& key, const std::string& value, const std::string& base) {
        notices_.push_back("Ungültige Einstellung " + std::string(section) + "/" + key + "=" + value +
                           ": es gilt die Grundeinstellung " + base);
    }

    Platform& p_;
    std::vector<std::string>& notices_;
};
}  // namespace

void SaveSettings(Session& s) {
    Platform& p = s.platform;
    const Options& o = s.options;
    for (size_t i = 0; i < o.ListFeld.size(); ++i) p.writeSetting(kSetup, Key("ListFeldTopIndex", i), Num(o.ListFeld[i]));
    for (size_t i = 0; i < o.List.size(); ++i) {
        // The map and datum lists keep their entry under their own key.
        if (i == 9 || i == 44) p.writeSetting(kSetup, Key("ListBoxListIndex", i), Num(o.List[i]));
        else p.writeSetting(kSetup, Key("ListBoxTopIndex", i), Num(o.List[i]));
    }
    for (size_t i = 0; i < o.Check.size(); ++i) p.writeSetting(kSetup, Key("CheckBox", i), Num(o.Check[i]));
    for (size_t i = 0; i < o.KarteKoordInput.size(); ++i)
        if (KarteKoordInputExists(i)) p.writeSetting(kSetup, Key("KoordinatenFeld", i), o.KarteKoordInput[i]);
    for (size_t i = 8; i <= 19; ++i) p.writeSetting(kSetup, Key("KartenExport", i), o.KarteKoordInput[i]);
    for (size_t i = 0; i < o.Text.size(); ++i) p.writeSetting(kSetup, Key("TextFeld", i), o.Text[i]);
    for (size_t i = 0; i < o.CommandSwissWPFarbe.size(); ++i)
        p.writeSetting(kSetup, Key("Farbe", i), Num(o.CommandSwissWPFarbe[i]));
    p.writeSetting(kSetup, "DigiZeitDiff", o.TextZeit[2]);
    p.writeSetting(kSetup, "NMEASimFaktor", o.NMEASimFaktor);
    p.writeSetting(kSetup, "ComPort", o.ComPort);
    for (size_t i = 0; i < o.OptionNMEA.size(); ++i) p.writeSetting(kSetup, Key("OptionNMEA", i), Num(o.OptionNMEA[i]));
    for (size_t i = 0; i < o.NMEABox.size(); ++i) p.writeSetting(kSetup, Key("NMEABox", i), o.NMEABox[i]);
    for (size_t i = 0; i < o.NMEASimCheckBox.size(); ++i)
        p.writeSetting(kSetup, Key("NMEASimCheckBox", i), Num(o.NMEASimCheckBox[i]));
    for (size_t i = 0; i < o.NMEASimList.size(); ++i)
        p.writeSetting(kSetup, Key("NMEASimListTopIndex", i), Num(o.NMEASimList[i]));

    for (size_t i = 0; i < o.MapExpCheck.size(); ++i) p.writeSetting(kMapExpLoad, Key("CheckBox", i), Num(o.MapExpCheck[i]));
    for (size_t i = 0; i < o.ZahlInput.size(); ++i) p.writeSetting(kMapExpSave, Key("ZahlEingabe", i), o.ZahlInput[i]);
    for (size_t i = 0; i < o.MapExpList.size(); ++i)
        p.writeSetting(kMapExpSave, Key("ListTopIndex", i), Num(o.MapExpList[i]));
    p.syncSettings();
}

std::vector<std::string> LoadSettings(Session& s, bool mapStitcherFound) {
    std::vector<std::string> notices;
    Loader r(s.platform, notices);
    // Every key falls back on the value a reset gives; what a reset leaves
    // alone falls back on the control's value as it stands.
    Options base = s.options;
    ResetSettings(base, mapStitcherFound);
    Options& o = s.options;
    o = base;
    for (size_t i = 0; i < o.ListFeld.size(); ++i)
        o.ListFeld[i] = r.index(kSetup, Key("ListFeldTopIndex", i), base.ListFeld[i], kListFeldEntries);
    const size_t datums = s.coords.DatumListe.size();
    for (size_t i = 0; i < o.List.size(); ++i)
        o.List[i] = r.index(kSetup, Key(i == 9 || i == 44 ? "ListBoxListIndex" : "ListBoxTopIndex", i), base.List[i],
                            ListEntriesWithDatums(i, datums));
    for (size_t i = 0; i < o.Check.size(); ++i) o.Check[i] = r.check(kSetup, Key("CheckBox", i), base.Check[i]);
    for (size_t i = 0; i < o.KarteKoordInput.size(); ++i)
        if (KarteKoordInputExists(i))
            o.KarteKoordInput[i] =
                r.number(kSetup, Key("KoordinatenFeld", i), base.KarteKoordInput[i], KarteKoordRange(i));
    // The waypoint filter's corners are stored twice; the second key wins.
    for (size_t i = 8; i <= 19; ++i)
        o.KarteKoordInput[i] = r.number(kSetup, Key("KartenExport", i), o.KarteKoordInput[i], KarteKoordRange(i));
    for (size_t i = 0; i < o.Text.size(); ++i) o.Text[i] = r.text(kSetup, Key("TextFeld", i), base.Text[i]);
    for (size_t i = 0; i < o.CommandSwissWPFarbe.size(); ++i)
        o.CommandSwissWPFarbe[i] =
            r.index(kSetup, Key("Farbe", i), base.CommandSwissWPFarbe[i], kLargestColour + 1);
    o.TextZeit[2] = r.text(kSetup, "DigiZeitDiff", base.TextZeit[2]);
    o.NMEASimFaktor = r.number(kSetup, "NMEASimFaktor", base.NMEASimFaktor, SimFactorRange());
    // "ComPort" is not read back: the simulator offers the ports it finds.
    for (size_t i = 0; i < o.OptionNMEA.size(); ++i)
        o.OptionNMEA[i] = r.check(kSetup, Key("OptionNMEA", i), base.OptionNMEA[i]);
    for (size_t i = 0; i < o.NMEABox.size(); ++i)
        o.NMEABox[i] = r.number(kSetup, Key("NMEABox", i), base.NMEABox[i], NMEABoxRange(i));
    for (size_t i = 0; i < o.NMEASimCheckBox.size(); ++i)
        o.NMEASimCheckBox[i] = r.check(kSetup, Key("NMEASimCheckBox", i), base.NMEASimCheckBox[i]);
    for (size_t i = 0; i < o.NMEASimList.size(); ++i)
        o.NMEASimList[i] = r.index(kSetup, Key("NMEASimListTopIndex", i), base.NMEASimList[i], kNMEASimListEntries);

    for (size_t i = 0; i < o.MapExpCheck.size(); ++i)
        o.MapExpCheck[i] = r.check(kMapExpLoad, Key("CheckBox", i), base.MapExpCheck[i]);
    for (size_t i = 0; i < o.ZahlInput.size(); ++i)
        o.ZahlInput[i] = r.number(kMapExpLoad, Key("ZahlEingabe", i), base.ZahlInput[i], ZahlRange(i));
    o.PhotoshopExe9 = r.text(kMapExpLoad, "PhotoshopExe9", base.PhotoshopExe9);
    for (size_t i = 0; i < o.MapExpList.size(); ++i)
        o.MapExpList[i] = r.index(kMapExpSave, Key("ListTopIndex", i), base.MapExpList[i], MapExpListEntries(i));
    // A scale below 0.2 metres per pixel is no usable map.
    if (o.Zahl(0) < 0.2) o.ZahlInput[0] = "3.5";
    return notices;
}

void ResetMapExpSettings(Options& o, bool mapStitcherFound) {
    for (int i : {0, 1, 2, 4, 5, 6, 7, 11, 12, 15, 18, 19, 20}) o.MapExpCheck[static_cast<size_t>(i)] = 0;
    for (int i : {3, 13, 14, 16}) o.MapExpCheck[static_cast<size_t>(i)] = 1;
    o.ZahlInput[0] = "3.5";
    o.ZahlInput[1] = "30";
    o.ZahlInput[2] = "2";
    o.ZahlInput[3] = "1";
    o.ZahlInput[4] = "1";
    o.ZahlInput[5] = "100";
    o.ZahlInput[8] = "0";
    o.MapExpList[0] = 1;
    o.MapExpList[1] = 1;
    o.MapExpList[2] = 0;
    o.MapExpList[4] = 0;
    o.MapExpKoordInput[6] = "51";
    o.MapExpKoordInput[0] = "8";
    o.MapExpKoordInput[2] = "50";
    for (int i : {1, 3, 5, 7}) o.MapExpKoordInput[static_cast<size_t>(i)] = "0";
    if (!mapStitcherFound) o.MapExpCheck[13] = 0;
}

void ResetSettings(Options& o, bool mapStitcherFound) {
    static constexpr int kChecks[30] = {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0,
                                        1, 1, 1, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0};
    for (size_t i = 0; i < o.Check.size(); ++i) o.Check[i] = kChecks[i];

    o.KarteKoordInput[0] = "15";
    o.KarteKoordInput[1] = "15000";
    o.KarteKoordInput[2] = "5";
    o.KarteKoordInput[3] = "300";
    o.KarteKoordInput[4] = "3";
    o.KarteKoordInput[20] = "1";
    o.KarteKoordInput[22] = "100";
    o.KarteKoordInput[23] = "1";
    o.KarteKoordInput[24] = "1";
    o.KarteKoordInput[25] = "0";

    o.TextZeit[2] = "00:00:00";
    o.Text = {"Bitmap", "Kreis", "Rechteck", "Dreieck"};
    o.CommandSwissWPFarbe = {255, 16711680, 65280, 0, 255, 16711680};
    o.ListFeld = {1, 2, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};

    // The map list (9), the datum list (44) and list 45 keep their entries.
    static constexpr std::pair<int, int> kLists[] = {
        {0, 2},  {1, 0},  {2, 2},  {3, 2},  {4, 0},  {5, 2},  {6, 4},  {7, 1},  {8, 0},  {10, 0}, {11, 3},
        {12, 7}, {13, 3}, {14, 1}, {15, 2}, {16, 1}, {17, 1}, {18, 0}, {19, 2}, {20, 1}, {21, 0}, {22, 8},
        {23, 0}, {24, 1}, {25, 3}, {26, 3}, {27, 1}, {28, 0}, {29, 7}, {30, 3}, {31, 6}, {32, 6}, {33, 3},
        {34, 7}, {35, 0}, {36, 1}, {37, 3}, {38, 3}, {39, 2}, {40, 1}, {41, 1}, {42, 0}, {43, 1}, {46, 0},
        {47, 4}, {48, 0}, {49, 7}};
    for (const auto& [i, v] : kLists) o.List[static_cast<size_t>(i)] = v;

    ResetMapExpSettings(o, mapStitcherFound);

    o.OptionNMEA[1] = 0;
    o.OptionNMEA[2] = 1;
    o.OptionNMEA[3] = 1;
    o.NMEASimList[0] = 4;
}

std::vector<std::string> RestoreSettings(Session& s, bool mapStitcherFound) {
    if (s.platform.hasSettings()) return LoadSettings(s, mapStitcherFound);
    ResetSettings(s.options, mapStitcherFound);
    return {};
}

}  // namespace ortelix
