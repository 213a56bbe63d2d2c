// ortelix: the workbench without arguments, a command-line tool with them.
#include <QApplication>
#include <QCoreApplication>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "commands/StartUp.h"
#include "core/Session.h"
#include "forms/FormMain.h"
#include "forms/FormTrackAuswahl.h"
#include "platform/qt/GermanTexts.h"
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
    ortelix::InstallGermanTexts(app);
    ortelix::QtPlatform platform;
    ortelix::Session session(platform);
    // Start-up: tables, an empty store, the options, the temporary folder.
    ortelix::StartUp(session);
    int code = 0;
    {
        ortelix::FormMain form(session);
        platform.setParent(&form);
        platform.dateForm = [&form](const std::vector<std::string>& dates) {
            return ortelix::FormTrackAuswahl::choose(dates, &form);
        };
        form.show();
        code = QApplication::exec();
        platform.setParent(nullptr);
        platform.dateForm = nullptr;
    }
    // Ending: the options are saved once more.
    ortelix::EndProgram(session);
    return code;
}
