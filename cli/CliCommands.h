#pragma once
// The table of command-line commands; each command lives in its own file.
#include <string>
#include <vector>

namespace ortelix {

struct CliCommand {
    const char* name;
    const char* usage;
    const char* summary;
    int (*run)(const std::vector<std::string>& args);
};

const std::vector<CliCommand>& CliCommands();

int HelpCommand(const std::vector<std::string>& args);
int ConvertCommand(const std::vector<std::string>& args);
int InfoCommand(const std::vector<std::string>& args);
int FormatsCommand(const std::vector<std::string>& args);
int CoordCommand(const std::vector<std::string>& args);
int SettingsCommand(const std::vector<std::string>& args);
int OziMapCommand(const std::vector<std::string>& args);
int NmeaFilterCliCommand(const std::vector<std::string>& args);
int CrLfCliCommand(const std::vector<std::string>& args);
int LfCliCommand(const std::vector<std::string>& args);
int SimulateCommand(const std::vector<std::string>& args);
int Top50MapCommand(const std::vector<std::string>& args);
int ExifCommand(const std::vector<std::string>& args);
int GeotagCommand(const std::vector<std::string>& args);
int CalibrateCommand(const std::vector<std::string>& args);
int PlanCommand(const std::vector<std::string>& args);
int ImageCommand(const std::vector<std::string>& args);

}  // namespace ortelix
