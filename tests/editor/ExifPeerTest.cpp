// Our EXIF texts against exiftool's numbers, on photos that exiftool writes
// in both byte orders from a tiny JPEG of our own.
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>

#include "fake/Tools.h"
#include "editor/ExifTestSupport.h"
#include "editor/clsEXIF.h"

namespace ortelix::testing {
namespace {

using testtools::CommandOutput;
using testtools::HaveTool;

std::vector<double> Numbers(const std::string& text) {
    std::vector<double> v;
    std::istringstream in(text);
    std::string w;
    while (in >> w) v.push_back(w == "inf" ? INFINITY : std::strtod(w.c_str(), nullptr));
    return v;
}

// exiftool's "-n" value in our Text's form, where it converts: the APEX
// shutter and aperture values, the version digits, the component letters.
std::string ComponentLetters(const std::string& digits) {
    static const char* kLetters[] = {"", "Y", "Cb", "Cr", "R", "G", "B"};
    std::string out;
    for (double d : Numbers(digits))
        if (d >= 1 && d <= 6) out += kLetters[static_cast<int>(d)];
    return out;
}

constexpr const char* kTags =
    "-ImageDescription='Blick vom Turm' -Make=Canon -Model='PowerShot A80' -Orientation#=6 -XResolution=180 "
    "-YResolution=72 -ResolutionUnit#=2 -Software='Firmware 1.0' -ModifyDate='2006:02:16 16:23:10' "
    "-Copyright='Jan Muster' -WhitePoint='0.3127 0.329' -PrimaryChromaticities='0.64 0.33 0.3 0.6 0.15 0.06' "
    "-YCbCrCoefficients='0.299 0.587 0.114' -YCbCrPositioning#=2 -ReferenceBlackWhite='0 255 128 255 128 255' "
    "-ExposureTime=0.004 -FNumber=2.8 -ExposureProgram#=2 -ISO=100 -ExifVersion=0220 "
    "-DateTimeOriginal='2006:02:16 16:20:00' -CreateDate='2006:02:16 16:20:01' "
    "-ComponentsConfiguration#='1 2 3 0' -CompressedBitsPerPixel=3 -ShutterSpeedValue#=0.004 "
    "-ApertureValue#=2.8 -BrightnessValue=-1.25 -ExposureCompensation=-0.6666667 -MaxApertureValue#=2.97 "
    "-SubjectDistance=3.5 -MeteringMode#=5 -LightSource#=1 -FocalLength=7.8 -UserComment='Urlaub am See' "
    "-SubSecTime=12 -SubSecTimeOriginal=34 -SubSecTimeDigitized=56 -FlashpixVersion=0100 -ColorSpace#=1 "
    "-ExifImageWidth=8 -ExifImageHeight=8 -FocalPlaneXResolution=8114.2 -FocalPlaneYResolution=8114.2 "
    "-FocalPlaneResolutionUnit#=2 -ExposureIndex=100 -SensingMethod#=2 -FileSource#=3 -SceneType#=1 "
    "-InteropIndex=R98 -InteropVersion=0100";

TEST(ExifPeerTest, TextsAgreeWithExiftoolInBothByteOrders) {
    if (std::system("exiftool -ver >/dev/null 2>&1") != 0) GTEST_SKIP() << "exiftool is not installed";
    const auto dir = std::filesystem::temp_directory_path() / ("ortelix-exifpeer-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    for (const char* order : {"II", "MM"}) {
        SCOPED_TRACE(order);
        const auto photo = dir / (std::string(order) + ".jpg");
        std::filesystem::copy_file(std::filesystem::path(ORTELIX_SOURCE_DIR) / "tests/data/tiny.jpg", photo,
                                   std::filesystem::copy_options::overwrite_existing);
        ASSERT_EQ(std::system(("exiftool -q -overwrite_original -ExifByteOrder=" + std::string(order) + " " +
                               kTags + " '" + photo.string() + "'")
                                  .c_str()),
                  0);
        // "[IFD0] 306 ModifyDate: 2006:02:16 16:23:10", one a line.
        std::map<int, std::string> peer;
        std::istringstream lines(CommandOutput("exiftool -n -D -s -s -G1 -EXIF:all '" + photo.string() + "'"));
        for (std::string line; std::getline(lines, line);) {
            const size_t close = line.find("] "), colon = line.find(": ");
            if (close == std::string::npos || colon == std::string::npos) continue;
            peer[std::atoi(line.c_str() + close + 2)] = line.substr(colon + 2);
        }
        ASSERT_GE(peer.size(), 50u);

        const std::string bytes = ReadBytes(photo);
        clsEXIF e(LoadExifNames(ORTELIX_DATA_DIR));
        ASSERT_TRUE(e.ReadMetaInfo(photo.string())) << e.Problem();
        EXPECT_EQ(ReadBytes(photo), bytes);
        EXPECT_EQ(e.BigEndian(), std::string(order) == "MM");
        EXPECT_EQ(e.TagValue(306), "2006:02:16 16:23:10");
        EXPECT_EQ(e.TagValue(36867), "2006:02:16 16:20:00");
        EXPECT_EQ(e.TagName(1), "InteropIndex");

        size_t compared = 0;
        for (const ExifTag& t : e.Tags()) {
            const auto it = peer.find(t.Tag);
            if (it == peer.end()) continue;
            SCOPED_TRACE(t.Name + " = " + t.Text + ", exiftool " + it->second);
            ++compared;
            const std::string& theirs = it->second;
            if (t.Tag == 37377) {  // exiftool gives 2^-v
                EXPECT_EQ(t.Text, std::to_string(std::lround(-std::log2(std::stod(theirs)))));
            } else if (t.Tag == 37378) {  // exiftool gives 2^(v/2)
                EXPECT_NEAR(std::stod(t.Text), 2 * std::log2(std::stod(theirs)), 0.0006);
            } else if (t.Tag == 36864) {
                EXPECT_EQ(t.Text, theirs.substr(0, 2) + "." + theirs.substr(2));
            } else if (t.Tag == 37121) {
                EXPECT_EQ(t.Text, ComponentLetters(theirs));
            } else if (t.Format == 5 || t.Format == 10) {
                const double half = (t.Tag == 33437 || t.Tag == 37381 || t.Tag == 37382 || t.Tag == 37386) ? 0.05 : 0.0005;
                const std::vector<double> ours = Numbers(t.Text), ref = Numbers(theirs);
                ASSERT_EQ(ours.size(), ref.size());
                for (size_t k = 0; k < ours.size(); ++k) EXPECT_NEAR(ours[k], ref[k], half + 1e-9);
            } else {
                EXPECT_EQ(t.Text, theirs);
            }
        }
        EXPECT_EQ(compared, peer.size());
        // IFD0's pointer to the EXIF directory and that one's to the interoperability directory.
        EXPECT_NE(e.TagValue(34665), "Tag 34665 not found.");
        EXPECT_NE(e.TagValue(40965), "Tag 40965 not found.");
    }
    std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace ortelix::testing
