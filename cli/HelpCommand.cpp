#include <algorithm>
#include <cstdio>
#include <cstring>

#include "cli/CliCommands.h"

namespace ortelix {

int HelpCommand(const std::vector<std::string>&) {
    std::printf("Ortelix – GPS-Daten zwischen Formaten umsetzen\n\n"
                "Ohne Befehl öffnet ortelix die Arbeitsoberfläche.\n\nBefehle:\n");
    // The names in one column as wide as the longest.
    int width = 0;
    for (const CliCommand& c : CliCommands()) width = std::max(width, static_cast<int>(std::strlen(c.name)));
    for (const CliCommand& c : CliCommands()) std::printf("  %-*s  %s\n      %s\n", width, c.name, c.summary, c.usage);
    std::printf("\n--set NAME=WERT setzt eine Einstellung für diesen Aufruf, z. B. --set Check12=1.\n");
    std::printf("--dates all|first|JJJJ-MM-TT,... wählt die Tage eines Logs mit mehreren Tagen (Vorgabe: all).\n");
    return 0;
}

}  // namespace ortelix
