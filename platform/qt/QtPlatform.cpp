#include "platform/qt/QtPlatform.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QMessageBox>
#include <QProcess>

#include "platform/QtCommon.h"
#include "platform/SerialSettings.h"
#include "platform/qt/FileDialogSetup.h"
#include "platform/qt/PlainFileIcons.h"

namespace ortelix {

std::string QtFilter(const std::string& filter) {
    // Pairs of caption and pattern; Qt shows the caption, which already names the pattern.
    std::string out;
    size_t pos = 0;
    bool caption = true;
    while (pos <= filter.size()) {
        size_t end = filter.find('|', pos);
        if (end == std::string::npos) end = filter.size();
        if (caption) {
            if (!out.empty()) out += ";;";
            out += filter.substr(pos, end - pos);
        }
        caption = !caption;
        pos = end + 1;
    }
    return out;
}

std::optional<std::string> QtPlatform::readSetting(const std::string& section, const std::string& key) {
    return qtcommon::ReadSetting(section, key);
}
void QtPlatform::writeSetting(const std::string& section, const std::string& key, const std::string& value) {
    qtcommon::WriteSetting(section, key, value);
}
bool QtPlatform::hasSettings() { return qtcommon::HasSettings(); }
void QtPlatform::syncSettings() { qtcommon::SyncSettings(); }
std::string QtPlatform::settingsProblem() { return qtcommon::SettingsProblem(); }

QString DialogStartFolder(const QString& remembered) {
    if (!remembered.isEmpty()) {
        const QDir dir(remembered);
        // "." is the first entry of every folder that can be read at all.
        if (dir.exists() && dir.isReadable() &&
            QDirIterator(remembered, QDir::AllEntries | QDir::Hidden | QDir::System).hasNext())
            return dir.absolutePath();
    }
    return QDir::homePath();
}

FileChoice QtPlatform::fileDialog(const std::string& title, const std::string& filter, int filterIndex, bool save,
                                  const std::string& folder, const std::string& defaultName) {
    PlainFileIcons icons;
    QFileDialog dlg(parent_, QString::fromStdString(title));
    SetUpFileDialog(dlg, icons);
    dlg.setDirectory(DialogStartFolder(QString::fromStdString(folder)));
    const QStringList filters = QString::fromStdString(QtFilter(filter)).split(";;");
    dlg.setNameFilters(filters);
    if (filterIndex >= 1 && filterIndex <= filters.size()) dlg.selectNameFilter(filters[filterIndex - 1]);
    dlg.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dlg.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // The overwrite question is the program's own, with its own text.
    dlg.setOption(QFileDialog::DontConfirmOverwrite, true);
    if (!defaultName.empty()) dlg.selectFile(QString::fromStdString(defaultName));
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return {};
    return {dlg.selectedFiles().front().toStdString(), static_cast<int>(filters.indexOf(dlg.selectedNameFilter())) + 1};
}

Answer QtPlatform::messageBox(const std::string& text, const std::string& title, Buttons buttons, Icon icon) {
    QMessageBox box(parent_);
    box.setWindowTitle(QString::fromStdString(title));
    box.setText(QString::fromStdString(text).replace("\r\n", "\n"));
    switch (icon) {
        case Icon::Information: box.setIcon(QMessageBox::Information); break;
        case Icon::Question: box.setIcon(QMessageBox::Question); break;
        case Icon::Warning: box.setIcon(QMessageBox::Warning); break;
        case Icon::Critical: box.setIcon(QMessageBox::Critical); break;
        case Icon::None: break;
    }
    switch (buttons) {
        case Buttons::Ok: box.setStandardButtons(QMessageBox::Ok); break;
        case Buttons::OkCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
        case Buttons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
        case Buttons::YesNoCancel: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel); break;
    }
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    const int r = box.exec();
    QApplication::restoreOverrideCursor();
    switch (r) {
        case QMessageBox::Yes: return Answer::Yes;
        case QMessageBox::No: return Answer::No;
        case QMessageBox::Cancel: return Answer::Cancel;
        default: return Answer::Ok;
    }
}

std::optional<std::string> QtPlatform::inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultText) {
    bool ok = false;
    const QString v = QInputDialog::getText(parent_, QString::fromStdString(title), QString::fromStdString(prompt),
                                            QLineEdit::Normal, QString::fromStdString(defaultText), &ok);
    if (!ok) return std::nullopt;
    return v.toStdString();
}

std::vector<bool> QtPlatform::chooseDates(const std::vector<std::string>& dates) {
    if (dateForm) return dateForm(dates);
    return std::vector<bool>(dates.size(), true);
}

void QtPlatform::setBusy(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy) QApplication::setOverrideCursor(Qt::WaitCursor);
    else QApplication::restoreOverrideCursor();
}

bool QtPlatform::yield() {
    QApplication::processEvents();
    return QApplication::mouseButtons() & Qt::RightButton;
}

double QtPlatform::now() { return static_cast<double>(clock_.nsecsElapsed()) / 1e9; }

std::string QtPlatform::clipboardText() { return QApplication::clipboard()->text().toStdString(); }
void QtPlatform::setClipboardText(const std::string& text) {
    QApplication::clipboard()->setText(QString::fromStdString(text));
}

void QtPlatform::setClipboardPicture(const Picture& picture) {
    if (picture.width <= 0 || picture.height <= 0) return;
    QImage img(picture.width, picture.height, QImage::Format_ARGB32);
    for (int y = 0; y < picture.height; ++y)
        std::copy_n(picture.pixels.begin() + static_cast<ptrdiff_t>(y) * picture.width, picture.width,
                    reinterpret_cast<uint32_t*>(img.scanLine(y)));
    QApplication::clipboard()->setImage(img);
}

std::optional<Picture> QtPlatform::clipboardPicture() {
    const QImage img = QApplication::clipboard()->image().convertToFormat(QImage::Format_ARGB32);
    if (img.isNull()) return std::nullopt;
    Picture p;
    p.width = img.width();
    p.height = img.height();
    p.pixels.resize(static_cast<size_t>(p.width) * static_cast<size_t>(p.height));
    for (int y = 0; y < p.height; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(img.constScanLine(y));
        std::copy(row, row + p.width, p.pixels.begin() + static_cast<ptrdiff_t>(y) * p.width);
    }
    return p;
}

void QtPlatform::sendKeys(const std::string&) {
    // Keystrokes to other programs come with the map export (X11 XTest).
}

void QtPlatform::mousePosition(int& x, int& y) {
    const QPoint p = QCursor::pos();
    x = p.x();
    y = p.y();
}

void QtPlatform::mouseClick(int x, int y) { QCursor::setPos(x, y); }

bool QtPlatform::startProgram(const std::string& program, const std::vector<std::string>& args, bool wait) {
    QStringList list;
    for (const auto& a : args) list << QString::fromStdString(a);
    if (!wait) return QProcess::startDetached(QString::fromStdString(program), list);
    QProcess p;
    p.start(QString::fromStdString(program), list);
    if (!p.waitForStarted()) return false;
    while (!p.waitForFinished(50)) QApplication::processEvents();
    return true;
}

bool QtPlatform::openWithSystem(const std::string& pathOrLink) { return qtcommon::OpenWithSystem(pathOrLink); }

bool QtPlatform::serialOpen(const std::string& device, const std::string& settings) {
    return serial_.open(device, settings);
}
bool QtPlatform::serialWrite(const std::string& bytes) { return serial_.write(bytes); }
void QtPlatform::serialClose() { serialCloseFailed_ = !serial_.close(); }

std::vector<std::string> QtPlatform::serialPorts() { return ListSerialDevices(); }

bool QtPlatform::joystick(int& x, int& y, int& buttons) { return joystick_.read(x, y, buttons); }

std::string QtPlatform::programFolder() { return qtcommon::ProgramFolder(); }
std::string QtPlatform::tempFolder() { return qtcommon::TempFolder(); }

}  // namespace ortelix
