#include <cstdio>
#include <map>
#include <string>

#include "cli/CliCommands.h"
#include "commands/CommandTable.h"

namespace ortelix {

int FormatsCommand(const std::vector<std::string>&) {
    struct Row {
        bool read = false, write = false;
        std::string extensions;
    };
    std::map<std::string, Row> rows;
    for (const Command& c : CommandTable()) {
        if (!c.format || !c.run) continue;
        Row& r = rows[c.format];
        if (c.kind == CommandKind::Read) r.read = true;
        if (c.kind == CommandKind::Write) r.write = true;
        if (r.extensions.empty()) r.extensions = c.extensions;
    }
    std::printf("%-12s %-6s %s\n", "Format", "L/S", "Endungen");
    for (const auto& [name, r] : rows)
        std::printf("%-12s %c%c     %s\n", name.c_str(), r.read ? 'L' : '-', r.write ? 'S' : '-', r.extensions.c_str());
    return 0;
}

}  // namespace ortelix
