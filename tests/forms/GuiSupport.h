#pragma once
// What the offscreen GUI tests share: one QApplication per test, and QString
// printed as text when an expectation fails.
#include <QApplication>
#include <QString>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace ortelix::testgui {

struct Gui {
    int argc = 1;
    char name[8] = "ortelix";
    char* argv[1] = {name};
    QApplication app{argc, argv};
};

inline QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

}  // namespace ortelix::testgui
