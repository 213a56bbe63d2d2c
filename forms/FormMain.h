#pragma once
// The main form of the workbench: the menus of the command table, the
// settings frames with the information frame, the status bar, Timer1.
#include <QMainWindow>
#include <vector>

class QLabel;
class QStackedWidget;
class QTimer;

namespace ortelix {

class Session;
struct Command;
class FrameInfo;
class FormMenu1;

inline constexpr const char* kNotAvailable = "Noch nicht verfügbar";

class FormMain : public QMainWindow {
    Q_OBJECT
public:
    explicit FormMain(Session& session, QWidget* parent = nullptr);

    // Hides all frames and shows the one of this index.
    void ShowFrame(int index);
    int currentFrame() const;
    QWidget* frame(int index) const;
    FormMenu1* menu1() const { return menu1_; }
    QTimer* timer1() const { return timer1_; }

    // Whether a command can run now: its reader, writer, form or frame exists.
    static bool available(const Command& c);

public slots:
    // Runs a command of the table by its control name, as its menu item does.
    void runCommand(const QString& control);
    // Timer1: the counters, the notices and StatusText.
    void refresh();
    // After the options were loaded or reset: every frame reads them again.
    void refreshFrames();

protected:
    void showEvent(QShowEvent* e) override;
    void moveEvent(QMoveEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void buildMenus();
    void buildFrames();
    void run(const Command& c);

    Session& session_;
    QStackedWidget* frames_;
    std::vector<QWidget*> pages_;
    FrameInfo* info_ = nullptr;
    QLabel* statusText_;
    QLabel* gridText_;
    QLabel* LabelVersion;
    QTimer* timer1_ = nullptr;
    FormMenu1* menu1_ = nullptr;
    bool menu1Shown_ = false;
};

}  // namespace ortelix
