#pragma once
// The main form of the workbench.
#include <QMainWindow>

namespace ortelix {

class Session;

class FormMain : public QMainWindow {
    Q_OBJECT
public:
    explicit FormMain(Session& session, QWidget* parent = nullptr);

private:
    Session& session_;
};

}  // namespace ortelix
