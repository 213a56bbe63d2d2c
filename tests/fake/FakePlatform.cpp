#include "fake/FakePlatform.h"

#include "core/ModulShared.h"

#include <algorithm>
#include <cctype>

namespace ortelix {


std::optional<std::string> FakePlatform::readSetting(const std::string& section, const std::string& key) {
    auto it = settings.find({LowerAscii(section), key});
    if (it == settings.end()) return std::nullopt;
    return it->second;
}

void FakePlatform::writeSetting(const std::string& section, const std::string& key, const std::string& value) {
    settings[{LowerAscii(section), key}] = value;
}

FileChoice FakePlatform::fileDialog(const std::string& title, const std::string&, int filterIndex, bool,
                                    const std::string& folder, const std::string&) {
    fileDialogTitles.push_back(title);
    lastDialogFolder = folder;
    lastDialogFilterIndex = filterIndex;
    if (fileChoices.empty()) return {};
    FileChoice c = fileChoices.front();
    fileChoices.pop_front();
    return c;
}

Answer FakePlatform::messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon icon) {
    messages.push_back({text, title, buttons, icon});
    if (!answers.empty()) {
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
}

std::optional<std::string> FakePlatform::inputBox(const std::string&, const std::string&, const std::string& def) {
    if (inputs.empty()) return def;
    std::string v = inputs.front();
    inputs.pop_front();
    return v;
}

std::vector<bool> FakePlatform::chooseDates(const std::vector<std::string>& dates) {
    datesAsked = dates;
    if (dateAnswer.empty()) return std::vector<bool>(dates.size(), true);
    return dateAnswer;
}

}  // namespace ortelix
