#pragma once
// A platform that answers nothing and records nothing, for the fuzz targets.
#include "platform/Platform.h"

namespace ortelix {

class FuzzPlatform : public Platform {
public:
    std::optional<std::string> readSetting(const std::string&, const std::string&) override { return std::nullopt; }
    void writeSetting(const std::string&, const std::string&, const std::string&) override {}
    bool hasSettings() override { return false; }
    void syncSettings() override {}
    FileChoice fileDialog(const std::string&, const std::string&, int, bool, const std::string&,
                          const std::string&) override { return {}; }
    Answer messageBox(const std::string&, const std::string&, Buttons, Icon) override { return Answer::Ok; }
    std::optional<std::string> inputBox(const std::string&, const std::string&, const std::string& d) override {
        return d;
    }
    std::vector<bool> chooseDates(const std::vector<std::string>& d) override { return std::vector<bool>(d.size(), true); }
    void setBusy(bool) override {}
    bool yield() override { return false; }
    double now() override { return clock_ += 0.001; }
    double localNow() override { return 45444.5 + clock_ / 86400; }
    std::string clipboardText() override { return {}; }
    void setClipboardText(const std::string&) override {}
    std::optional<Picture> clipboardPicture() override { return std::nullopt; }
    void sendKeys(const std::string&) override {}
    void mousePosition(int& x, int& y) override { x = y = 0; }
    void mouseClick(int, int) override {}
    bool startProgram(const std::string&, const std::vector<std::string>&, bool) override { return false; }
    bool openWithSystem(const std::string&) override { return false; }
    bool serialOpen(const std::string&, const std::string&) override { return false; }
    bool serialWrite(const std::string&) override { return false; }
    void serialClose() override {}
    std::vector<std::string> serialPorts() override { return {}; }
    bool joystick(int&, int&, int&) override { return false; }
    std::string programFolder() override { return "."; }
    std::string tempFolder() override { return "/tmp"; }

private:
    double clock_ = 0;
};

}  // namespace ortelix
