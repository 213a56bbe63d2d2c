#include <cstdio>

#include "cli/CliCommands.h"

namespace ortelix {

int HelpCommand(const std::vector<std::string>&) {
    std::printf("Ortelix – GPS-Daten zwischen Formaten umsetzen\n\n"
                "Ohne Befehl öffnet ortelix die Arbeitsoberfläche.\n\nBefehle:\n");
    for (const CliCommand& c : CliCommands()) std::printf("  %-10s %s\n      %s\n", c.name, c.summary, c.usage);
    std::printf("\n--set NAME=WERT setzt eine Einstellung für diesen Aufruf, z. B. --set Check12=1.\n");
    std::printf("--dates all|first|JJJJ-MM-TT,... wählt die Tage eines Logs mit mehreren Tagen (Vorgabe: all).\n");
    return 0;
}

}  // namespace ortelix
