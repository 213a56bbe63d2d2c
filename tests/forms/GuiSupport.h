#pragma once
// What the offscreen GUI tests share: one QApplication per test, and QString
// printed as text when an expectation fails.
#include <QApplication>
#include <QScrollArea>
#include <QString>
#include <ostream>

#include "commands/StartUp.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/FormMain.h"

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace ortelix::testgui {

struct Gui {
    int argc = 1;
    char name[8] = "ortelix";
    char* argv[1] = {name};
    QApplication app{argc, argv};
};

// A started program: the tables and options of a start-up, its main form shown.
struct StartedMainForm {
    Gui gui;
    FakePlatform platform;
    Session session{platform};
    FormMain form{(StartUp(session), session)};
    StartedMainForm() {
        form.show();
        QApplication::processEvents();
    }
};

// The scroll area that holds a settings frame.
inline QScrollArea* AreaOf(QWidget* frame) {
    for (QWidget* w = frame; w; w = w->parentWidget())
        if (auto* a = qobject_cast<QScrollArea*>(w)) return a;
    return nullptr;
}

inline QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

}  // namespace ortelix::testgui
