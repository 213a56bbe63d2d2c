#pragma once
// The NMEA simulator's form: the source, the point bar, the input boxes with
// what the last cycle sent beside them, the port, and the buttons of sending
// and of the automatic run. The engine (simulator/SimEngine) holds every
// rule; this form binds its widgets to the options' boxes, ticks the
// engine's timers from one Qt timer and shows what the engine says.
#include <QMainWindow>
#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QScrollBar;
class QTimer;

namespace ortelix {

class Session;
class SimEngine;

class FormNMEASim : public QMainWindow {
    Q_OBJECT
public:
    FormNMEASim(Session& session, QWidget* owner);
    ~FormNMEASim() override;

    // The tool form of "NMEA Simulator": the one simulator of this owner.
    static QWidget* open(Session& session, QWidget* owner);

    SimEngine& engine() { return *engine_; }
    // Shows the options, the lists of the store and the engine's state again.
    void refresh();
    // Runs the engine's timers that are due and waits for the next one.
    void tick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* buildSource();
    QWidget* buildBoxes();
    QWidget* buildButtons();
    void buildMenus();
    void showLists();
    void choose(int source);
    void start(bool run);
    void schedule();

    Session& session_;
    std::unique_ptr<SimEngine> engine_;
    std::array<QRadioButton*, 4> options_{};
    QComboBox* listTrack_ = nullptr;
    QComboBox* listRoute_ = nullptr;
    QScrollBar* bar_ = nullptr;
    QLabel *minPoints_ = nullptr, *maxPoints_ = nullptr, *countPoints_ = nullptr;
    QLabel *dist_ = nullptr, *winkel_ = nullptr, *name_ = nullptr, *desc_ = nullptr;
    std::array<QLineEdit*, 8> boxes_{};
    QLineEdit* boxDate_ = nullptr;
    QLineEdit* boxTime_ = nullptr;
    std::array<QLabel*, 8> par_{};
    QCheckBox* geoid_ = nullptr;
    QLineEdit* fach_ = nullptr;
    QComboBox* port_ = nullptr;
    QLabel* sending_ = nullptr;
    QLabel* status_ = nullptr;
    QTimer* timer_ = nullptr;
};

}  // namespace ortelix
