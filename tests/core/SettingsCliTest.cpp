// "ortelix settings" against a settings file of its own: the first start
// shows the reset values, "reset" stores them, stored values are read back,
// and --set overrides them without storing.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Result {
    int code = -1;
    std::string out;
};

Result RunOrtelix(const fs::path& config, const std::string& args) {
    const std::string cmd = "XDG_CONFIG_HOME='" + config.string() + "' QT_QPA_PLATFORM=offscreen '" +
                            std::string(ORTELIX_BINARY) + "' " + args + " 2>&1";
    Result r;
    FILE* f = popen(cmd.c_str(), "r");
    if (!f) return r;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, f)) > 0) r.out.append(buf, n);
    const int status = pclose(f);
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}

bool HasLine(const std::string& text, const std::string& line) {
    std::istringstream in(text);
    std::string l;
    while (std::getline(in, l))
        if (l == line) return true;
    return false;
}

TEST(SettingsCli, ShowsResetsStoresAndOverrides) {
    const fs::path config = fs::path(ORTELIX_BUILD_DIR) / "test-settings-cli";
    fs::remove_all(config);
    fs::create_directories(config);
    const fs::path ini = config / "Ortelix" / "Ortelix.ini";

    // First start: nothing stored, the reset values are shown.
    Result r = RunOrtelix(config, "settings");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(HasLine(r.out, "Check0=1")) << r.out;
    EXPECT_TRUE(HasLine(r.out, "List7=1"));
    EXPECT_TRUE(HasLine(r.out, "KarteKoordInput1=15000"));
    EXPECT_TRUE(HasLine(r.out, "ZahlInput0=3.5"));
    EXPECT_FALSE(HasLine(r.out, "KarteKoordInput7=")) << "field 7 does not exist";
    EXPECT_FALSE(fs::exists(ini)) << "showing stores nothing";

    r = RunOrtelix(config, "settings --set Check12=1 --set ZahlInput4=0.5 --set TextZeit0=10:00:00 --set List7=0");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(HasLine(r.out, "Check12=1"));
    EXPECT_TRUE(HasLine(r.out, "ZahlInput4=0.5"));
    EXPECT_TRUE(HasLine(r.out, "TextZeit0=10:00:00"));
    EXPECT_TRUE(HasLine(r.out, "List7=0"));
    r = RunOrtelix(config, "settings --set Check12=7");
    EXPECT_EQ(r.code, 2);

    r = RunOrtelix(config, "settings reset");
    ASSERT_EQ(r.code, 0) << r.out;
    ASSERT_TRUE(fs::exists(ini));
    std::stringstream text;
    text << std::ifstream(ini).rdbuf();
    std::string file = text.str();
    EXPECT_NE(file.find("[Setup]"), std::string::npos);
    EXPECT_NE(file.find("[Kartenexport]"), std::string::npos);
    // FormMapExp has a CheckBox12 of its own in its section.
    const size_t at = file.find("\nCheckBox12=0", file.find("[Setup]")) + 1;
    ASSERT_NE(at, 0u) << file;

    // A value in the file is what the command line starts from.
    file.replace(at, 12, "CheckBox12=1");
    std::ofstream(ini, std::ios::trunc) << file;
    r = RunOrtelix(config, "settings");
    EXPECT_TRUE(HasLine(r.out, "Check12=1")) << r.out;
    r = RunOrtelix(config, "settings --set Check12=0");
    EXPECT_TRUE(HasLine(r.out, "Check12=0"));
    r = RunOrtelix(config, "settings");
    EXPECT_TRUE(HasLine(r.out, "Check12=1"));
}

// A settings file written by someone else (or left by an abnormal end):
// values out of range are named on stderr and take their reset values,
// missing keys are the reset values, and --set refuses what lies out of range.
TEST(SettingsCli, HostileAndPartialSettingsFiles) {
    const fs::path config = fs::path(ORTELIX_BUILD_DIR) / "test-settings-cli-hostile";
    fs::remove_all(config);
    fs::create_directories(config / "Ortelix");
    const fs::path ini = config / "Ortelix" / "Ortelix.ini";
    std::ofstream(ini) << "[Ordner]\nOziExplorer%20Tracks%20ausw%E4hlen=/tmp\n";
    Result r = RunOrtelix(config, "settings");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(HasLine(r.out, "List7=1")) << r.out;  // not 0, "Optimal"
    EXPECT_TRUE(HasLine(r.out, "KarteKoordInput0=15"));
    EXPECT_TRUE(HasLine(r.out, "Text0=Bitmap"));
    EXPECT_EQ(r.out.find("Ungültige"), std::string::npos) << r.out;

    std::ofstream(ini) << "[Setup]\nListBoxListIndex44=2147483647\nKoordinatenFeld0=1e300\nListBoxTopIndex7=12\n"
                          "CheckBox12=1\n";
    r = RunOrtelix(config, "settings");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(HasLine(r.out, "Ungültige Einstellung Setup/ListBoxTopIndex7=12: es gilt die Grundeinstellung 1"))
        << r.out;
    EXPECT_TRUE(HasLine(r.out, "Ungültige Einstellung Setup/KoordinatenFeld0=1e300: es gilt die Grundeinstellung 15"));
    EXPECT_TRUE(HasLine(r.out, "Ungültige Einstellung Setup/ListBoxListIndex44=2147483647: es gilt die Grundeinstellung 0"));
    EXPECT_TRUE(HasLine(r.out, "List7=1"));
    EXPECT_TRUE(HasLine(r.out, "List44=0"));
    EXPECT_TRUE(HasLine(r.out, "KarteKoordInput0=15"));
    EXPECT_TRUE(HasLine(r.out, "Check12=1"));  // the good value beside them is taken

    r = RunOrtelix(config, "settings --set List7=10");
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("Wert außerhalb des Bereichs: List7=10"), std::string::npos) << r.out;
    r = RunOrtelix(config, "settings --set KarteKoordInput0=1e300");
    EXPECT_EQ(r.code, 2);
    r = RunOrtelix(config, "settings --set List99=1");
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("Unbekannte Einstellung: List99=1"), std::string::npos) << r.out;
    r = RunOrtelix(config, "settings --set List44=5 --set KarteKoordInput0=2,5");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(HasLine(r.out, "List44=5"));
    EXPECT_TRUE(HasLine(r.out, "KarteKoordInput0=2,5"));
}

}  // namespace
