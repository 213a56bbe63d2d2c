// The options table in the settings store: reset values, the exact key set of
// a saved store, the round trip and the special keys.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/Session.h"
#include "core/Settings.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

std::string Idx(const char* prefix, int i) { return prefix + std::to_string(i); }

TEST(Settings, ResetSetsTheTableValuesAndLeavesTheRest) {
    FakePlatform p;
    Session s(p);
    Options& o = s.options;
    o.List[9] = 17;   // the map list is not reset
    o.List[44] = 5;   // nor the datum list
    o.KarteKoordInput[8] = "7";  // nor the waypoint filter corners
    o.Check[13] = 1;
    ResetSettings(o, true);

    const int checksOn[] = {0, 10, 15, 16, 17, 21, 22};
    for (int i = 0; i < 30; ++i) {
        const bool on = std::find(std::begin(checksOn), std::end(checksOn), i) != std::end(checksOn);
        EXPECT_EQ(o.Check[i], on ? 1 : 0) << "Check" << i;
    }
    EXPECT_EQ(o.KarteKoordInput[0], "15");
    EXPECT_EQ(o.KarteKoordInput[1], "15000");
    EXPECT_EQ(o.KarteKoordInput[2], "5");
    EXPECT_EQ(o.KarteKoordInput[3], "300");
    EXPECT_EQ(o.KarteKoordInput[4], "3");
    EXPECT_EQ(o.KarteKoordInput[20], "1");
    EXPECT_EQ(o.KarteKoordInput[22], "100");
    EXPECT_EQ(o.KarteKoordInput[23], "1");
    EXPECT_EQ(o.KarteKoordInput[24], "1");
    EXPECT_EQ(o.KarteKoordInput[25], "0");
    EXPECT_EQ(o.KarteKoordInput[8], "7");
    EXPECT_EQ(o.TextZeit[2], "00:00:00");
    EXPECT_EQ(o.Text[0], "Bitmap");
    EXPECT_EQ(o.Text[3], "Dreieck");
    EXPECT_EQ(o.CommandSwissWPFarbe[1], 16711680);
    EXPECT_EQ(o.CommandSwissWPFarbe[2], 65280);
    EXPECT_EQ(o.ListFeld[0], 1);
    EXPECT_EQ(o.ListFeld[1], 2);
    EXPECT_EQ(o.ListFeld[2], 0);
    EXPECT_EQ(o.ListFeld[3], 3);
    EXPECT_EQ(o.ListFeld[13], 0);
    EXPECT_EQ(o.List[0], 2);
    EXPECT_EQ(o.List[1], 0);
    EXPECT_EQ(o.List[7], 1);  // "Alle Punkte": no reduction notice on a first start
    EXPECT_EQ(o.List[8], 0);
    EXPECT_EQ(o.List[22], 8);
    EXPECT_EQ(o.List[47], 4);
    EXPECT_EQ(o.List[49], 7);
    EXPECT_EQ(o.List[9], 17);
    EXPECT_EQ(o.List[44], 5);

    EXPECT_EQ(o.ZahlInput[0], "3.5");
    EXPECT_EQ(o.ZahlInput[1], "30");
    EXPECT_EQ(o.ZahlInput[2], "2");
    EXPECT_EQ(o.ZahlInput[4], "1");
    EXPECT_EQ(o.ZahlInput[5], "100");
    EXPECT_EQ(o.MapExpCheck[3], 1);
    EXPECT_EQ(o.MapExpCheck[13], 1);
    EXPECT_EQ(o.MapExpCheck[16], 1);
    EXPECT_EQ(o.MapExpCheck[5], 0);
    EXPECT_EQ(o.MapExpList[0], 1);
    EXPECT_EQ(o.MapExpList[2], 0);
    EXPECT_EQ(o.MapExpKoordInput[6], "51");
    EXPECT_EQ(o.MapExpKoordInput[0], "8");
    EXPECT_EQ(o.MapExpKoordInput[2], "50");
    EXPECT_EQ(o.MapExpKoordInput[5], "0");
    EXPECT_EQ(o.OptionNMEA[1], 0);
    EXPECT_EQ(o.OptionNMEA[2], 1);
    EXPECT_EQ(o.OptionNMEA[3], 1);
    EXPECT_EQ(o.NMEASimList[0], 4);

    // Without MapStitcher its check box stays off.
    ResetSettings(o, false);
    EXPECT_EQ(o.MapExpCheck[13], 0);
}

// The keys that a saved store must hold, built from the key table by hand.
std::set<std::pair<std::string, std::string>> ExpectedKeys() {
    std::set<std::pair<std::string, std::string>> k;
    for (int i = 0; i <= 13; ++i) k.insert({"setup", Idx("ListFeldTopIndex", i)});
    for (int i = 0; i <= 49; ++i)
        k.insert({"setup", Idx(i == 9 || i == 44 ? "ListBoxListIndex" : "ListBoxTopIndex", i)});
    for (int i = 0; i <= 29; ++i) k.insert({"setup", Idx("CheckBox", i)});
    for (int i = 0; i <= 25; ++i)
        if (i != 7 && i != 21) k.insert({"setup", Idx("KoordinatenFeld", i)});
    for (int i = 8; i <= 19; ++i) k.insert({"setup", Idx("KartenExport", i)});
    for (int i = 0; i <= 3; ++i) k.insert({"setup", Idx("TextFeld", i)});
    for (int i = 0; i <= 5; ++i) k.insert({"setup", Idx("Farbe", i)});
    k.insert({"setup", "DigiZeitDiff"});
    k.insert({"setup", "NMEASimFaktor"});
    k.insert({"setup", "ComPort"});
    for (int i = 0; i <= 3; ++i) k.insert({"setup", Idx("OptionNMEA", i)});
    for (int i = 0; i <= 7; ++i) k.insert({"setup", Idx("NMEABox", i)});
    k.insert({"setup", "NMEASimCheckBox0"});
    k.insert({"setup", "NMEASimListTopIndex0"});
    for (int i = 0; i <= 20; ++i) k.insert({"kartenexport", Idx("CheckBox", i)});
    for (int i = 0; i <= 8; ++i) k.insert({"kartenexport", Idx("ZahlEingabe", i)});
    for (int i = 0; i <= 4; ++i) k.insert({"kartenexport", Idx("ListTopIndex", i)});
    return k;
}

TEST(Settings, SaveWritesExactlyTheKeysOfTheTable) {
    FakePlatform p;
    Session s(p);
    SaveSettings(s);
    std::set<std::pair<std::string, std::string>> written;
    for (const auto& [key, value] : p.settings) written.insert(key);
    EXPECT_EQ(written, ExpectedKeys());
    // PhotoshopExe9 is read only; nothing writes it.
    EXPECT_EQ((p.settings.count({"kartenexport", "PhotoshopExe9"})), 0u);
}

TEST(Settings, RoundTripKeepsEveryValueButThePort) {
    FakePlatform p;
    Session a(p);
    ResetSettings(a.options, true);
    Options& o = a.options;
    o.Check[12] = 1;
    o.List[7] = 4;
    o.List[9] = 23;
    o.List[44] = 11;
    o.ListFeld[5] = 6;
    o.KarteKoordInput[1] = "2000";
    o.KarteKoordInput[9] = "12.5";
    o.Text[2] = "Quadrat";
    o.TextZeit[2] = "01:02:03";
    o.CommandSwissWPFarbe[3] = 4242;
    o.ZahlInput[4] = "0.5";
    o.MapExpCheck[20] = 1;
    o.MapExpList[3] = 7;
    o.OptionNMEA = {0, 0, 0, 1};
    o.NMEABox[5] = "60";
    o.NMEASimCheckBox[0] = 1;
    o.NMEASimList[0] = 2;
    o.NMEASimFaktor = "10";
    o.ComPort = "/dev/ttyUSB0";
    SaveSettings(a);

    Session b(p);
    LoadSettings(b);
    const Options& r = b.options;
    EXPECT_EQ(r.Check, o.Check);
    EXPECT_EQ(r.List, o.List);
    EXPECT_EQ(r.ListFeld, o.ListFeld);
    EXPECT_EQ(r.KarteKoordInput, o.KarteKoordInput);
    EXPECT_EQ(r.Text, o.Text);
    EXPECT_EQ(r.TextZeit[2], "01:02:03");
    EXPECT_EQ(r.CommandSwissWPFarbe, o.CommandSwissWPFarbe);
    EXPECT_EQ(r.ZahlInput, o.ZahlInput);
    EXPECT_EQ(r.MapExpCheck, o.MapExpCheck);
    EXPECT_EQ(r.MapExpList, o.MapExpList);
    EXPECT_EQ(r.OptionNMEA, o.OptionNMEA);
    EXPECT_EQ(r.NMEABox, o.NMEABox);
    EXPECT_EQ(r.NMEASimCheckBox, o.NMEASimCheckBox);
    EXPECT_EQ(r.NMEASimList, o.NMEASimList);
    EXPECT_EQ(r.NMEASimFaktor, "10");
    // The port is written but never read back.
    EXPECT_EQ((p.settings[{"setup", "ComPort"}]), "/dev/ttyUSB0");
    EXPECT_EQ(r.ComPort, "");
    // The map and datum lists have their own keys.
    EXPECT_EQ((p.settings[{"setup", "ListBoxListIndex9"}]), "23");
    EXPECT_EQ((p.settings[{"setup", "ListBoxListIndex44"}]), "11");
    EXPECT_EQ((p.settings.count({"setup", "ListBoxTopIndex9"})), 0u);
}

TEST(Settings, LoadFallsBackOnTheResetValuesAndCorrects) {
    FakePlatform p;
    p.writeSetting("Setup", "CheckBox3", "1");
    p.writeSetting("Setup", "CheckBox4", "kaputt");     // unreadable: the reset value, with a notice
    p.writeSetting("Setup", "ListBoxTopIndex2", "x");    // likewise
    p.writeSetting("Setup", "KoordinatenFeld8", "9");    // loses against KartenExport8
    p.writeSetting("Setup", "KartenExport8", "11");
    p.writeSetting("Setup", "KoordinatenFeld9", "12.5");  // no KartenExport9: this one stays
    p.writeSetting("KARTENEXPORT", "ZahlEingabe0", "0,1");  // below 0.2: corrected
    p.writeSetting("Kartenexport", "ZahlEingabe1", "25");
    p.writeSetting("Kartenexport", "ListTopIndex2", "3");   // saved as "KartenExport": one section
    Session s(p);
    s.options.Check[4] = 1;
    s.options.List[2] = 5;
    s.options.List[45] = 6;                 // a list that a reset leaves alone keeps its control's value
    s.options.CommandSwissWPFarbe[0] = 99;  // no key: the reset value, not the control's
    const std::vector<std::string> notices = LoadSettings(s);
    const Options& o = s.options;
    EXPECT_EQ(o.Check[3], 1);
    EXPECT_EQ(o.Check[4], 0);
    EXPECT_EQ(o.List[2], 2);
    EXPECT_EQ(o.List[45], 6);
    EXPECT_EQ(o.KarteKoordInput[8], "11");
    EXPECT_EQ(o.KarteKoordInput[9], "12.5");
    EXPECT_EQ(o.KarteKoordInput[10], "51");  // the filter's design value, not 0
    EXPECT_EQ(o.KarteKoordInput[0], "15");
    EXPECT_EQ(o.Text[1], "Kreis");
    EXPECT_EQ(o.TextZeit[2], "00:00:00");
    EXPECT_EQ(o.CommandSwissWPFarbe[0], 255);
    EXPECT_EQ(o.NMEASimList[0], 4);
    EXPECT_EQ(o.NMEABox[4], "100");
    EXPECT_EQ(o.ZahlInput[0], "3.5");
    EXPECT_EQ(o.ZahlInput[1], "25");
    EXPECT_EQ(o.ZahlInput[2], "2");
    EXPECT_EQ(o.MapExpList[2], 3);
    EXPECT_EQ(o.PhotoshopExe9, "C:\\Programme\\Adobe\\Adobe Photoshop CS2\\Photoshop.exe");
    ASSERT_EQ(notices.size(), 2u);
    EXPECT_EQ(notices[0], "Ungültige Einstellung Setup/ListBoxTopIndex2=x: es gilt die Grundeinstellung 2");
    EXPECT_EQ(notices[1], "Ungültige Einstellung Setup/CheckBox4=kaputt: es gilt die Grundeinstellung 0");
}

// A start after an abnormal end: the store holds only the folders of the file
// dialogs. Every option must then be what a reset gives, above all the
// reduction: at 0 ("Optimal") it would thin every track without a word.
TEST(Settings, AStoreWithOnlyTheFoldersLoadsTheResetValues) {
    FakePlatform p;
    p.writeSetting("Ordner", "OziExplorer Tracks auswählen", "/home/u/touren");
    p.writeSetting("Ordner", "OziExplorer Tracks auswählenFilter", "1");
    ASSERT_TRUE(p.hasSettings());
    for (bool stitcher : {false, true}) {
        Session loaded(p);
        const std::vector<std::string> notices = RestoreSettings(loaded, stitcher);
        EXPECT_TRUE(notices.empty());
        Session reset(p);
        ResetSettings(reset.options, stitcher);
        EXPECT_EQ(loaded.options.List[7], 1);  // "Alle Punkte"
        const auto a = ListOptions(loaded.options), b = ListOptions(reset.options);
        ASSERT_EQ(a.size(), b.size());
        for (size_t i = 0; i < a.size(); ++i) EXPECT_EQ(a[i].value, b[i].value) << a[i].name;
    }
}

// Hostile values in the settings file: each out-of-range value takes its
// reset value with a notice, and nothing that reads the options afterwards
// overflows (the test build halts on any undefined behaviour).
TEST(Settings, ValuesOutOfRangeTakeTheResetValueWithANotice) {
    FakePlatform p;
    const std::pair<const char*, const char*> hostile[] = {
        {"ListBoxListIndex44", "2147483647"}, {"KoordinatenFeld0", "1e300"}, {"ListBoxTopIndex7", "10"},
        {"ListBoxTopIndex8", "-1"},           {"CheckBox18", "2"},           {"Farbe1", "16777216"},
        {"KoordinatenFeld1", "-5"},           {"KoordinatenFeld25", "1e309"}, {"KartenExport10", "91"},
        {"ListFeldTopIndex0", "31"},          {"NMEABox2", "-90.5"},         {"NMEASimFaktor", "1e7"},
        {"ListBoxTopIndex0", "99999999999"},  {"KoordinatenFeld20", "nan"},   {"ListBoxListIndex9", "100"}};
    for (const auto& [key, value] : hostile) p.writeSetting("Setup", key, value);
    p.writeSetting("Kartenexport", "ZahlEingabe4", "1e400");
    p.writeSetting("Setup", "CheckBox14", "1");   // in range: taken
    p.writeSetting("Setup", "ListBoxTopIndex8", "-1");
    Session s(p);
    const std::vector<std::string> notices = LoadSettings(s);
    const Options& o = s.options;
    EXPECT_EQ(o.List[44], 0);   // no datum table loaded: the list keeps its entry
    EXPECT_EQ(o.KarteKoordInput[0], "15");
    EXPECT_EQ(o.List[7], 1);
    EXPECT_EQ(o.List[8], 0);
    EXPECT_EQ(o.Check[18], 0);
    EXPECT_EQ(o.Check[14], 1);
    EXPECT_EQ(o.CommandSwissWPFarbe[1], 16711680);
    EXPECT_EQ(o.KarteKoordInput[1], "15000");
    EXPECT_EQ(o.KarteKoordInput[25], "0");
    EXPECT_EQ(o.KarteKoordInput[10], "51");
    EXPECT_EQ(o.KarteKoordInput[20], "nan");  // reads as no number, so as 0, which is in range
    EXPECT_EQ(o.ListFeld[0], 1);
    EXPECT_EQ(o.NMEABox[2], "0");
    EXPECT_EQ(o.NMEASimFaktor, "1");
    EXPECT_EQ(o.List[0], 2);
    EXPECT_EQ(o.List[9], 0);
    EXPECT_EQ(o.ZahlInput[4], "1");
    EXPECT_EQ(notices.size(), 15u);
    for (const std::string& n : notices) EXPECT_EQ(n.rfind("Ungültige Einstellung ", 0), 0u) << n;

    // With the datum table known, its length bounds List(44).
    Session withDatums(p);
    withDatums.coords.DatumListe.resize(3);
    p.writeSetting("Setup", "ListBoxListIndex44", "2");
    EXPECT_EQ(LoadSettings(withDatums).size(), 14u);
    EXPECT_EQ(withDatums.options.List[44], 2);
    p.writeSetting("Setup", "ListBoxListIndex44", "3");
    Session pastTheTable(p);
    pastTheTable.coords.DatumListe.resize(3);
    LoadSettings(pastTheTable);
    EXPECT_EQ(pastTheTable.options.List[44], 0);
}

TEST(Settings, FirstStartResetsAndAResetWithoutSavingIsForgotten) {
    FakePlatform p;
    {
        Session s(p);
        RestoreSettings(s, false);  // empty store: the reset values
        EXPECT_EQ(s.options.List[7], 1);
        EXPECT_EQ(s.options.Check[0], 1);
        s.options.Check[12] = 1;
        SaveSettings(s);
        ResetSettings(s.options, false);  // not saved
        EXPECT_EQ(s.options.Check[12], 0);
    }
    Session again(p);
    RestoreSettings(again, false);
    EXPECT_EQ(again.options.Check[12], 1);
}

TEST(Settings, SetOptionReachesEveryArray) {
    Options o;
    EXPECT_TRUE(SetOption(o, "Check12", "1"));
    EXPECT_TRUE(SetOption(o, "List7", "0"));
    EXPECT_TRUE(SetOption(o, "KarteKoordInput25", "2"));
    EXPECT_TRUE(SetOption(o, "ZahlInput4", "0.5"));
    EXPECT_TRUE(SetOption(o, "TextZeit0", "10:00:00"));
    EXPECT_TRUE(SetOption(o, "MapExpCheck20", "1"));
    EXPECT_TRUE(SetOption(o, "NMEABox7", "-47.5"));
    EXPECT_TRUE(SetOption(o, "NMEASimFaktor", "4"));
    EXPECT_EQ(o.Check[12], 1);
    EXPECT_EQ(o.List[7], 0);
    EXPECT_EQ(o.KarteKoordInput[25], "2");
    EXPECT_DOUBLE_EQ(o.Zahl(4), 0.5);
    EXPECT_EQ(o.TextZeit[0], "10:00:00");
    EXPECT_EQ(o.MapExpCheck[20], 1);
    EXPECT_EQ(o.NMEABox[7], "-47.5");
    EXPECT_EQ(o.NMEASimFaktor, "4");
    EXPECT_FALSE(SetOption(o, "Check30", "1"));
    EXPECT_FALSE(SetOption(o, "Check1", "2"));
    EXPECT_FALSE(SetOption(o, "KarteKoordInput7", "1"));
    EXPECT_FALSE(SetOption(o, "KarteKoordInput21", "1"));
    EXPECT_FALSE(SetOption(o, "List3", "x"));
    EXPECT_FALSE(SetOption(o, "Unbekannt3", "1"));
    // Values out of range are refused and leave the option as it was.
    EXPECT_FALSE(SetOption(o, "List7", "10"));
    EXPECT_FALSE(SetOption(o, "List7", "-1"));
    EXPECT_TRUE(SetOption(o, "List7", "9"));
    EXPECT_FALSE(SetOption(o, "List44", "2147483647"));
    EXPECT_FALSE(SetOption(o, "List8", "7"));
    EXPECT_FALSE(SetOption(o, "ListFeld3", "31"));
    EXPECT_TRUE(SetOption(o, "ListFeld3", "30"));
    EXPECT_FALSE(SetOption(o, "KarteKoordInput0", "1e300"));
    EXPECT_FALSE(SetOption(o, "KarteKoordInput1", "-1"));
    EXPECT_FALSE(SetOption(o, "KarteKoordInput10", "90,5"));  // a decimal comma counts
    EXPECT_TRUE(SetOption(o, "KarteKoordInput10", "89,5"));
    EXPECT_FALSE(SetOption(o, "ZahlInput4", "1e400"));
    EXPECT_FALSE(SetOption(o, "NMEABox0", "-361"));
    EXPECT_FALSE(SetOption(o, "NMEASimFaktor", "-1"));
    EXPECT_FALSE(SetOption(o, "CommandSwissWPFarbe0", "16777216"));
    EXPECT_TRUE(SetOption(o, "CommandSwissWPFarbe0", "16777215"));
    EXPECT_FALSE(SetOption(o, "MapExpKoordInput0", "1e9"));
    EXPECT_EQ(o.List[7], 9);
    EXPECT_EQ(o.KarteKoordInput[10], "89,5");
    EXPECT_DOUBLE_EQ(o.Zahl(4), 0.5);
    EXPECT_EQ(o.NMEASimFaktor, "4");

    // The listing names every option once, and each name sets its own value.
    const auto all = ListOptions(o);
    std::set<std::string> names;
    for (const auto& e : all) {
        EXPECT_TRUE(names.insert(e.name).second) << e.name;
        Options copy;
        EXPECT_TRUE(SetOption(copy, e.name, e.value)) << e.name;
        EXPECT_EQ(ListOptions(copy)[&e - all.data()].value, e.value) << e.name;
    }
    EXPECT_EQ(names.size(), 30u + 24 + 50 + 14 + 3 + 4 + 6 + 21 + 9 + 5 + 8 + 1 + 4 + 8 + 1 + 1 + 1 + 1);
}

}  // namespace
}  // namespace ortelix
