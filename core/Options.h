#pragma once
// The options table: every option control of the three forms, under the
// indices by which the rest of the program names them ("Check(12)").
// The forms bind their widgets to these arrays; the settings store saves them.
#include <array>
#include <string>
#include <string_view>

namespace ortelix {

struct Options {
    // FormMain
    std::array<int, 30> Check{};
    std::array<std::string, 26> KarteKoordInput{};  // 7 and 21 are unused
    std::array<int, 50> List{};
    std::array<int, 14> ListFeld{};
    std::array<std::string, 3> TextZeit{};
    std::array<std::string, 4> Text{};
    std::array<int, 6> CommandSwissWPFarbe{};

    // A number field read with the leading-number rule, as the readers do.
    double Number(int karteKoordIndex) const;
};

}  // namespace ortelix

namespace ortelix {
// Sets one option by its array and index ("Check12", "KarteKoordInput25");
// false when no option has that name or the value does not fit.
bool SetOption(Options& o, std::string_view name, std::string_view value);
}  // namespace ortelix
