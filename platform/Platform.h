#pragma once
// Every operation outside the program's own logic: dialogs, settings store,
// clock, clipboard, keys and mouse, outside programs, serial port, folders.
// The desktop, the command line and the tests each supply an implementation.
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ortelix {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Warning, Critical };
enum class Answer { Ok, Cancel, Yes, No };

struct FileChoice {
    std::string path;     // empty when the user cancelled
    int filterIndex = 1;  // 1-based, as the dialogs count filters
};

struct Picture {  // 32-bit BGRA rows, top row first
    int width = 0, height = 0;
    std::vector<uint32_t> pixels;
};

class Platform {
public:
    virtual ~Platform() = default;

    // Per-user settings store: application "Ortelix", section, key -> text.
    virtual std::optional<std::string> readSetting(const std::string& section, const std::string& key) = 0;
    virtual void writeSetting(const std::string& section, const std::string& key, const std::string& value) = 0;
    virtual bool hasSettings() = 0;
    virtual void syncSettings() = 0;
    // Why the last syncSettings() could not write the store (a read-only or
    // missing folder), in German; empty when it was written.
    virtual std::string settingsProblem() { return {}; }

    // Dialogs. The filter is in the "Text (*.ext)|*.ext|..." form.
    virtual FileChoice fileDialog(const std::string& title, const std::string& filter, int filterIndex,
                                  bool save, const std::string& folder, const std::string& defaultName) = 0;
    virtual Answer messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon icon) = 0;
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultText) = 0;
    // The date choice of a log with several dates: returns the ticked entries.
    virtual std::vector<bool> chooseDates(const std::vector<std::string>& dates) = 0;

    virtual void setBusy(bool busy) = 0;
    // Gives the event loop time; returns true while the right mouse button is down.
    virtual bool yield() = 0;
    // Seconds on a steady clock; the fake advances it when waited on.
    virtual double now() = 0;
    // The wall clock: local date and time as a moment, days since 1899-12-30
    // (the fake starts at a fixed day and moves with its clock).
    virtual double localNow() = 0;
    // Waits for the seconds on the clock of now(): the command line sleeps,
    // the fake moves its clock. Here: giving the event loop time until then.
    virtual void sleep(double seconds) {
        const double end = now() + seconds;
        while (now() < end) yield();
    }

    virtual std::string clipboardText() = 0;
    virtual void setClipboardText(const std::string& text) = 0;
    virtual std::optional<Picture> clipboardPicture() = 0;
    // Puts a picture on the clipboard; where there is none, nothing happens.
    virtual void setClipboardPicture(const Picture&) {}

    // Picture files through the system's image libraries: decoding BMP, GIF,
    // PNG and JPEG bytes, encoding PNG and JPEG ("PNG", "JPG"; quality 0 to
    // 100), a file's pixel size from its header. The cause of a failure in
    // `error`. A platform without image libraries fails every call.
    virtual bool imageCodecsReady() { return false; }
    virtual std::optional<Picture> decodeImage(const std::string& bytes, std::string& error) {
        (void)bytes;
        error = "Keine Bildbibliothek vorhanden";
        return std::nullopt;
    }
    virtual std::optional<std::string> encodeImage(const Picture& picture, const std::string& format, int quality,
                                                   std::string& error) {
        (void)picture, (void)format, (void)quality;
        error = "Keine Bildbibliothek vorhanden";
        return std::nullopt;
    }
    virtual std::optional<std::pair<int, int>> imageFileSize(const std::string& path) {
        (void)path;
        return std::nullopt;
    }

    virtual void sendKeys(const std::string& keys) = 0;  // SendKeys notation
    virtual void mousePosition(int& x, int& y) = 0;
    virtual void mouseClick(int x, int y) = 0;

    // Outside programs and associations. Returns false when it cannot start.
    virtual bool startProgram(const std::string& program, const std::vector<std::string>& args, bool wait) = 0;
    virtual bool openWithSystem(const std::string& pathOrLink) = 0;

    // Serial port: device path and settings such as "4800,n,8,1".
    virtual bool serialOpen(const std::string& device, const std::string& settings) = 0;
    virtual bool serialWrite(const std::string& bytes) = 0;
    virtual void serialClose() = 0;
    // Whether the last serialClose() met an error of the device.
    virtual bool serialCloseFailed() { return false; }
    virtual std::vector<std::string> serialPorts() = 0;

    virtual bool joystick(int& x, int& y, int& buttons) = 0;

    // The folder of the program's data files, and the temporary folder.
    virtual std::string programFolder() = 0;
    virtual std::string tempFolder() = 0;
};

}  // namespace ortelix
