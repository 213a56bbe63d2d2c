#pragma once
// A platform for tests: scripted answers, recorded messages, keys, clipboard
// and serial bytes, in-memory settings, and a clock that moves only when
// the program waits.
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace ortelix {

struct RecordedMessage {
    std::string text, title;
    Buttons buttons;
    Icon icon;
};

class FakePlatform : public Platform {
public:
    // Settings, keyed by lower-case section (the store ignores its case) and key.
    std::map<std::pair<std::string, std::string>, std::string> settings;
    std::vector<RecordedMessage> messages;
    std::deque<Answer> answers;               // next message box answers; Ok/Yes when empty
    std::deque<FileChoice> fileChoices;       // next file dialog results
    std::vector<std::string> fileDialogTitles;
    std::string lastDialogFolder;
    int lastDialogFilterIndex = 0;
    std::deque<std::string> inputs;
    std::vector<bool> dateAnswer;             // empty: tick every date
    std::vector<std::string> datesAsked;
    std::string clipboard;
    std::optional<Picture> clipboardPic;      // the picture on the clipboard, if any
    // Image libraries: whether they load, the pictures some file bytes decode
    // to, every picture encoded (format, quality), and file sizes by path.
    bool imageCodecs = true;
    std::map<std::string, Picture> decodable;
    struct Encoded {
        std::string format;
        int quality = 0;
        Picture picture;
    };
    std::vector<Encoded> encoded;
    std::map<std::string, std::pair<int, int>> imageSizes;
    std::vector<std::string> keys;
    std::vector<std::pair<int, int>> clicks;
    std::vector<std::string> started;
    std::vector<std::string> opened;
    std::string serialBytes;
    bool serialIsOpen = false;
    double clock = 0;
    double yieldAdvance = 0.001;  // seconds that pass on each yield
    bool rightButtonDown = false;
    int yields = 0;
    bool busy = false;
    std::string dataFolder = ORTELIX_DATA_DIR;
    std::string temp = "/tmp/ortelix-test-temp";

    std::optional<std::string> readSetting(const std::string& section, const std::string& key) override;
    void writeSetting(const std::string& section, const std::string& key, const std::string& value) override;
    bool hasSettings() override { return !settings.empty(); }
    void syncSettings() override {}
    std::string settingsFailure;  // what settingsProblem() says; empty: the store was written
    std::string settingsProblem() override { return settingsFailure; }
    FileChoice fileDialog(const std::string& title, const std::string& filter, int filterIndex, bool save,
                          const std::string& folder, const std::string& defaultName) override;
    Answer messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon icon) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    std::vector<bool> chooseDates(const std::vector<std::string>& dates) override;
    void setBusy(bool b) override { busy = b; }
    std::function<void()> onYield;  // runs on each yield: lets a test act while a command runs
    bool yield() override {
        ++yields;
        clock += yieldAdvance;
        if (onYield) onYield();
        return rightButtonDown;
    }
    double now() override { return clock; }
    double localStart = 45444.5;  // 2024-06-01 12:00:00 when the clock reads 0
    double localNow() override { return localStart + clock / 86400; }
    std::string clipboardText() override { return clipboard; }
    void setClipboardText(const std::string& text) override { clipboard = text; }
    std::optional<Picture> clipboardPicture() override { return clipboardPic; }
    void setClipboardPicture(const Picture& picture) override { clipboardPic = picture; }
    bool imageCodecsReady() override { return imageCodecs; }
    std::optional<Picture> decodeImage(const std::string& bytes, std::string& error) override {
        const auto it = decodable.find(bytes);
        if (it == decodable.end()) {
            error = "Unbekanntes Bildformat";
            return std::nullopt;
        }
        return it->second;
    }
    // Encodes as the format's name and the size, e.g. "PNG 3x2".
    std::optional<std::string> encodeImage(const Picture& picture, const std::string& format, int quality,
                                           std::string& error) override {
        if (!imageCodecs) {
            error = "Keine Bildbibliothek";
            return std::nullopt;
        }
        encoded.push_back({format, quality, picture});
        return format + " " + std::to_string(picture.width) + "x" + std::to_string(picture.height);
    }
    std::optional<std::pair<int, int>> imageFileSize(const std::string& path) override {
        const auto it = imageSizes.find(path);
        if (it == imageSizes.end()) return std::nullopt;
        return it->second;
    }
    void sendKeys(const std::string& k) override { keys.push_back(k); }
    void mousePosition(int& x, int& y) override { x = y = 0; }
    void mouseClick(int x, int y) override { clicks.emplace_back(x, y); }
    bool startProgram(const std::string& program, const std::vector<std::string>&, bool) override {
        started.push_back(program);
        return true;
    }
    bool openWithSystem(const std::string& p) override {
        opened.push_back(p);
        return true;
    }
    void sleep(double seconds) override {
        if (seconds > 0) clock += seconds;
        ++sleeps;
    }
    int sleeps = 0;
    // The serial port: what was opened with which settings; a port that fails.
    std::string serialDevice, serialSettings;
    bool serialOpenFails = false;
    bool serialOpen(const std::string& device, const std::string& settings) override {
        serialDevice = device;
        serialSettings = settings;
        return serialIsOpen = !serialOpenFails;
    }
    bool serialWrite(const std::string& bytes) override {
        serialBytes += bytes;
        return serialIsOpen;
    }
    void serialClose() override { serialIsOpen = false; }
    bool serialCloseFails = false;
    bool serialCloseFailed() override { return serialCloseFails; }
    std::vector<std::string> serialPorts() override { return {"/dev/pts/fake"}; }
    // A joystick at rest in the middle until a test moves it; none unless present.
    bool joystickPresent = false;
    int joyX = 32768, joyY = 32768, joyButtons = 0;
    bool joystick(int& x, int& y, int& b) override {
        if (!joystickPresent) return false;
        x = joyX;
        y = joyY;
        b = joyButtons;
        return true;
    }
    std::string programFolder() override { return dataFolder; }
    std::string tempFolder() override { return temp; }
};

}  // namespace ortelix
