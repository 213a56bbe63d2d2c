#include "platform/console/ConsolePlatform.h"

#include <QDir>
#include <QProcess>
#include <QStringList>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <thread>

#include "platform/QtCommon.h"
#include "platform/SerialSettings.h"

namespace ortelix {

std::optional<std::string> ConsolePlatform::readSetting(const std::string& section, const std::string& key) {
    return qtcommon::ReadSetting(section, key);
}
void ConsolePlatform::writeSetting(const std::string& section, const std::string& key, const std::string& value) {
    qtcommon::WriteSetting(section, key, value);
}
bool ConsolePlatform::hasSettings() { return qtcommon::HasSettings(); }
void ConsolePlatform::syncSettings() { qtcommon::SyncSettings(); }
std::string ConsolePlatform::settingsProblem() { return qtcommon::SettingsProblem(); }

FileChoice ConsolePlatform::fileDialog(const std::string&, const std::string&, int filterIndex, bool, const std::string&,
                                       const std::string& defaultName) {
    // The command line names its files itself; a dialog takes the proposed name.
    return {defaultName, filterIndex};
}

namespace {
const char* AnswerText(Answer a) {
    switch (a) {
        case Answer::Ok: return "OK";
        case Answer::Cancel: return "Abbrechen";
        case Answer::Yes: return "Ja";
        case Answer::No: return "Nein";
    }
    return "";
}
}  // namespace

Answer ConsolePlatform::messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon) {
    Answer answer = defaultAnswer;
    if (buttons == Buttons::Ok) answer = Answer::Ok;
    else if (buttons == Buttons::OkCancel) answer = defaultAnswer == Answer::Yes ? Answer::Ok : Answer::Cancel;
    if (!quiet) {
        std::string shown = text;
        for (size_t p; (p = shown.find("\r\n")) != std::string::npos;) shown.replace(p, 2, "\n");
        if (buttons != Buttons::Ok) shown += std::string(" ") + AnswerText(answer);
        std::fprintf(stderr, "%s%s%s\n", title.empty() ? "" : title.c_str(), title.empty() ? "" : ": ", shown.c_str());
    }
    return answer;
}

std::optional<std::string> ConsolePlatform::inputBox(const std::string&, const std::string&, const std::string& def) {
    return def;
}

std::vector<bool> ConsolePlatform::chooseDates(const std::vector<std::string>& dates) {
    if (!dateTexts.empty()) {
        std::vector<bool> a(dates.size(), false);
        for (size_t i = 0; i < dates.size(); ++i)
            for (const std::string& t : dateTexts) a[i] = a[i] || t == dates[i];
        return a;
    }
    if (dateAnswer.empty()) return std::vector<bool>(dates.size(), true);
    std::vector<bool> a = dateAnswer;
    a.resize(dates.size(), false);
    return a;
}

double ConsolePlatform::now() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void ConsolePlatform::sleep(double seconds) {
    if (seconds > 0) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

bool ConsolePlatform::startProgram(const std::string& program, const std::vector<std::string>& args, bool wait) {
    QStringList list;
    for (const auto& a : args) list << QString::fromStdString(a);
    if (!wait) return QProcess::startDetached(QString::fromStdString(program), list);
    QProcess p;
    p.start(QString::fromStdString(program), list);
    if (!p.waitForStarted()) return false;
    p.waitForFinished(-1);
    return true;
}

bool ConsolePlatform::openWithSystem(const std::string& pathOrLink) { return qtcommon::OpenWithSystem(pathOrLink); }

bool ConsolePlatform::serialOpen(const std::string& device, const std::string& settings) {
    return serial_.open(device, settings);
}
bool ConsolePlatform::serialWrite(const std::string& bytes) { return serial_.write(bytes); }
void ConsolePlatform::serialClose() { serialCloseFailed_ = !serial_.close(); }

std::vector<std::string> ConsolePlatform::serialPorts() { return ListSerialDevices(); }

std::string ConsolePlatform::programFolder() { return qtcommon::ProgramFolder(); }
std::string ConsolePlatform::tempFolder() { return qtcommon::TempFolder(); }

}  // namespace ortelix
