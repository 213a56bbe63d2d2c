#include "forms/FormMain.h"

#include <QLabel>

#include "core/Session.h"

namespace ortelix {

FormMain::FormMain(Session& session, QWidget* parent) : QMainWindow(parent), session_(session) {
    setWindowTitle("Ortelix");
    setCentralWidget(new QLabel("Ortelix", this));
    resize(800, 600);
}

}  // namespace ortelix
