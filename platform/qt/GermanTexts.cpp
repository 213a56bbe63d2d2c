#include "platform/qt/GermanTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace ortelix {

bool InstallGermanTexts(QCoreApplication& app) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* qt = new QTranslator(&app);
    if (!qt->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete qt;
        return false;
    }
    return QCoreApplication::installTranslator(qt);
}

}  // namespace ortelix
