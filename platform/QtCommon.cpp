#include "platform/QtCommon.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>
#include <QSettings>
#include <QStandardPaths>

namespace ortelix::qtcommon {

namespace {
QSettings& Store() {
    // One store object per process; QSettings keeps its own cache and locks the file.
    static QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Ortelix", "Ortelix");
    return settings;
}

// Section names are compared without case: "Kartenexport" and "KartenExport" are one.
QString Section(const std::string& section) {
    const QString s = QString::fromStdString(section);
    if (s.compare("Kartenexport", Qt::CaseInsensitive) == 0) return "Kartenexport";
    if (s.compare("Setup", Qt::CaseInsensitive) == 0) return "Setup";
    if (s.compare("Ordner", Qt::CaseInsensitive) == 0) return "Ordner";
    return s;
}

QString Key(const std::string& section, const std::string& key) {
    return Section(section) + "/" + QString::fromStdString(key);
}
}  // namespace

std::optional<std::string> ReadSetting(const std::string& section, const std::string& key) {
    const QVariant v = Store().value(Key(section, key));
    if (!v.isValid()) return std::nullopt;
    return v.toString().toStdString();
}

void WriteSetting(const std::string& section, const std::string& key, const std::string& value) {
    Store().setValue(Key(section, key), QString::fromStdString(value));
}

bool HasSettings() { return !Store().allKeys().isEmpty(); }

void SyncSettings() { Store().sync(); }

std::string SettingsProblem() {
    // QSettings keeps the first error of its life and names no system cause.
    // A format error is about reading; only an access error means not written.
    if (Store().status() != QSettings::AccessError) return {};
    return "Die Einstellungsdatei kann nicht geschrieben werden: " + Store().fileName().toStdString();
}

std::string SettingsPath() { return Store().fileName().toStdString(); }

bool OpenWithSystem(const std::string& pathOrLink) {
    const QString s = QString::fromStdString(pathOrLink);
    return QDesktopServices::openUrl(s.contains("://") ? QUrl(s) : QUrl::fromLocalFile(s));
}

std::string ProgramFolder() {
    const QString app = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    for (const QString& candidate : {app + "/data", app + "/../share/ortelix"}) {
        if (QDir(candidate).exists()) return QDir(candidate).canonicalPath().toStdString();
    }
    return (app + "/data").toStdString();
}

double LocalNow() {
    // Days since 1899-12-30 and the fraction of the day, in local time.
    const QDate kDayZero(1899, 12, 30);
    const QDateTime now = QDateTime::currentDateTime();
    return static_cast<double>(kDayZero.daysTo(now.date())) + now.time().msecsSinceStartOfDay() / 86400000.0;
}

std::string TempFolder() {
    QString cache = qEnvironmentVariable("XDG_CACHE_HOME");
    if (cache.isEmpty()) cache = QDir::homePath() + "/.cache";
    const QString path = cache + "/ortelix/OXTemp";
    QDir().mkpath(path);
    return path.toStdString();
}

}  // namespace ortelix::qtcommon
