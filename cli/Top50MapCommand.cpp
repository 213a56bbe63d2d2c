#include <cstdio>
#include <string>

#include "appformats/ModuleTop50Karte.h"
#include "cli/CliCommands.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/console/ConsolePlatform.h"

namespace ortelix {

namespace {
bool Number(const std::string& text, double& value) {
    size_t used = 0;
    value = LeadingNumber(text, &used);
    return used > 0 && used == text.size();
}
}  // namespace

// The map that the automatic choice takes for a point: its code, and the
// row of names.dat as it stands. A code without a row prints alone, exit 1.
int Top50MapCommand(const std::vector<std::string>& args) {
    double lon = 0, lat = 0;
    if (args.size() != 2 || !Number(args[0], lon) || !Number(args[1], lat)) {
        std::fprintf(stderr, "Aufruf: ortelix top50-map LON LAT\n");
        return 2;
    }
    ConsolePlatform platform;
    Session s(platform);
    TopKartenEinlesen(s);  // a table that cannot be read says so on stderr
    const std::string_view code = TopLand(lon, lat);
    const int row = TopKarteFinden(s.options.Top50.Karten, code);
    if (row < 0) {
        std::printf("%.*s\n", static_cast<int>(code.size()), code.data());
        return 1;
    }
    std::printf("%.*s\t%s\n", static_cast<int>(code.size()), code.data(),
                s.options.Top50.Karten[static_cast<size_t>(row)].Zeile.c_str());
    return 0;
}

}  // namespace ortelix
