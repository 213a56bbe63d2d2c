#pragma once
// The desktop's platform: Qt dialogs, clipboard, processes and the settings file.
#include <functional>

#include <QElapsedTimer>

#include "platform/Platform.h"
#include "platform/QtCommon.h"
#include "platform/QtImages.h"
#include "platform/JoystickDevice.h"
#include "platform/SerialSettings.h"

class QString;
class QWidget;

namespace ortelix {

class QtPlatform : public Platform {
public:
    explicit QtPlatform(QWidget* parent = nullptr) : parent_(parent) { clock_.start(); }
    void setParent(QWidget* parent) { parent_ = parent; }
    // The form of the date choice; the desktop sets it (the forms sit above the
    // platform). Without it every date is ticked.
    std::function<std::vector<bool>(const std::vector<std::string>&)> dateForm;

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
    void setBusy(bool busy) override;
    bool yield() override;
    double now() override;
    double localNow() override { return qtcommon::LocalNow(); }
    std::string clipboardText() override;
    void setClipboardText(const std::string& text) override;
    std::optional<Picture> clipboardPicture() override;
    void setClipboardPicture(const Picture& picture) override;
    bool imageCodecsReady() override { return QtImageCodecsReady(); }
    std::optional<Picture> decodeImage(const std::string& bytes, std::string& error) override {
        return QtDecodeImage(bytes, error);
    }
    std::optional<std::string> encodeImage(const Picture& picture, const std::string& format, int quality,
                                           std::string& error) override {
        return QtEncodeImage(picture, format, quality, error);
    }
    std::optional<std::pair<int, int>> imageFileSize(const std::string& path) override { return QtImageFileSize(path); }
    void sendKeys(const std::string& keys) override;
    void mousePosition(int& x, int& y) override;
    void mouseClick(int x, int y) override;
    bool startProgram(const std::string& program, const std::vector<std::string>& args, bool wait) override;
    bool openWithSystem(const std::string& pathOrLink) override;
    bool serialOpen(const std::string& device, const std::string& settings) override;
    bool serialWrite(const std::string& bytes) override;
    void serialClose() override;
    bool serialCloseFailed() override { return serialCloseFailed_; }
    std::vector<std::string> serialPorts() override;
    bool joystick(int& x, int& y, int& buttons) override;
    std::string programFolder() override;
    std::string tempFolder() override;

private:
    QWidget* parent_;
    SerialDevice serial_{false};  // the event loop writes what the device did not take at once
    JoystickDevice joystick_;
    bool serialCloseFailed_ = false;
    bool busy_ = false;
    QElapsedTimer clock_;  // monotonic, from the start of the platform
};

// The folder a file dialog opens in: the remembered one when it can be listed,
// else (gone, no permission, a path below a file, none remembered) the home folder.
QString DialogStartFolder(const QString& remembered);

// Turns a "Text (*.x)|*.x|..." filter list into Qt's ";;" form.
std::string QtFilter(const std::string& filter);

}  // namespace ortelix
