#pragma once
// The command line's platform: no display. Dialogs are answered from the
// command's flags or their defaults, messages go to stderr.
#include <map>
#include <string>

#include "platform/Platform.h"
#include "platform/QtCommon.h"
#include "platform/QtImages.h"
#include "platform/JoystickDevice.h"
#include "platform/SerialSettings.h"

namespace ortelix {

class ConsolePlatform : public Platform {
public:
    // Answers for the questions a command may meet (flags of the command line).
    // A question is printed with the answer given, so the user sees what was
    // decided for them: the files named on the command line are their choice,
    // and overwriting the numbered files made from such a name is answered yes.
    Answer defaultAnswer = Answer::Yes;
    std::vector<bool> dateAnswer;  // empty: all dates
    std::vector<std::string> dateTexts;  // dates to tick by text ("2006-02-16"); wins over dateAnswer
    bool quiet = false;

    std::optional<std::string> readSetting(const std::string& section, const std::string& key) override;
    void writeSetting(const std::string& section, const std::string& key, const std::string& value) override;
    bool hasSettings() override;
    void syncSettings() override;
    std::string settingsProblem() override;
    FileChoice fileDialog(const std::string& title, const std::string& filter, int filterIndex, bool save,
                          const std::string& folder, const std::string& defaultName) override;
    Answer messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon icon) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    std::vector<bool> chooseDates(const std::vector<std::string>& dates) override;
    void setBusy(bool) override {}
    bool yield() override { return false; }
    double now() override;
    double localNow() override { return qtcommon::LocalNow(); }
    void sleep(double seconds) override;
    std::string clipboardText() override { return {}; }
    void setClipboardText(const std::string&) override {}
    std::optional<Picture> clipboardPicture() override { return std::nullopt; }
    bool imageCodecsReady() override { return QtImageCodecsReady(); }
    std::optional<Picture> decodeImage(const std::string& bytes, std::string& error) override {
        return QtDecodeImage(bytes, error);
    }
    std::optional<std::string> encodeImage(const Picture& picture, const std::string& format, int quality,
                                           std::string& error) override {
        return QtEncodeImage(picture, format, quality, error);
    }
    std::optional<std::pair<int, int>> imageFileSize(const std::string& path) override { return QtImageFileSize(path); }
    void sendKeys(const std::string&) override {}
    void mousePosition(int& x, int& y) override { x = y = 0; }
    void mouseClick(int, int) override {}
    bool startProgram(const std::string& program, const std::vector<std::string>& args, bool wait) override;
    bool openWithSystem(const std::string& pathOrLink) override;
    bool serialOpen(const std::string& device, const std::string& settings) override;
    bool serialWrite(const std::string& bytes) override;
    void serialClose() override;
    bool serialCloseFailed() override { return serialCloseFailed_; }
    std::vector<std::string> serialPorts() override;
    bool joystick(int& x, int& y, int& buttons) override { return joystick_.read(x, y, buttons); }
    std::string programFolder() override;
    std::string tempFolder() override;

private:
    SerialDevice serial_;
    JoystickDevice joystick_;
    bool serialCloseFailed_ = false;
};

}  // namespace ortelix
