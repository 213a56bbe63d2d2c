// ortelix: the workbench without arguments, a command-line tool with them.
#include <QApplication>
#include <QCoreApplication>
#include <memory>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "core/Session.h"
#include "forms/FormMain.h"
#include "platform/qt/QtPlatform.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (!args.empty()) {
        QCoreApplication app(argc, argv);
        QCoreApplication::setApplicationName("Ortelix");
        bool handled = false;
        const int code = ortelix::RunCommandLine(args, handled);
        if (handled) return code;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName("Ortelix");
    ortelix::QtPlatform platform;
    ortelix::Session session(platform);
    ortelix::FormMain form(session);
    platform.setParent(&form);
    form.show();
    return QApplication::exec();
}
