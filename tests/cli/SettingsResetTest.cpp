// `ortelix settings reset` says when the settings file cannot be written.
#include <gtest/gtest.h>

#include "CliTestSupport.h"
#include "core/FileIO.h"

namespace {

namespace fs = std::filesystem;
using Cli = ortelix::testing::CliTest;
using Result = ortelix::testing::CliResult;

TEST_F(Cli, SettingsResetThatCannotWriteFails) {
    Result r = Ortelix("settings reset");
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string written = ortelix::ReadFileBytes((dir / "cfg" / "Ortelix" / "Ortelix.ini").string());
    EXPECT_NE(written.find("CheckBox0=1"), std::string::npos);

    // The settings folder lies under a regular file: no one can make it, not even root.
    File("datei", "kein Ordner");
    r = Ortelix("settings reset", "", "XDG_CONFIG_HOME=" + Path("datei") + "/cfg");
    EXPECT_EQ(r.code, 1) << r.out;
    EXPECT_NE(r.out.find("Grundeinstellung: Die Daten können nicht gespeichert werden.\n\nUrsache: Die "
                         "Einstellungsdatei kann nicht geschrieben werden: " +
                         Path("datei") + "/cfg/Ortelix/Ortelix.ini"),
              std::string::npos)
        << r.out;
    EXPECT_EQ(r.out.find("Die Grundeinstellung ist gespeichert"), std::string::npos) << r.out;
}

}  // namespace
