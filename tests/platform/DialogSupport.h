#pragma once
// Modal dialogs in offscreen tests: the test looks at the dialog the code
// under test opens, then closes it, from a timer of the dialog's own loop.
#include <QApplication>
#include <QTimer>
#include <functional>

#include "forms/GuiSupport.h"

namespace ortelix::testgui {

// Calls act with the modal dialog once it is open; act must close it.
inline void WhenModal(std::function<void(QWidget*)> act) {
    auto* poll = new QTimer;
    poll->setInterval(20);
    QObject::connect(poll, &QTimer::timeout, [poll, act] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible()) return;
        poll->stop();
        poll->deleteLater();
        act(dialog);
    });
    poll->start();
}

}  // namespace ortelix::testgui
