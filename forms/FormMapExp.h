#pragma once
// The map export form: its menu "Karte", the export frame of the chosen
// viewer (one at a time), the part lists and labels of the plan, the corner
// entry, and the settings page. The plan's rules live in
// mapexport/ModKarteFlaeche; this form binds its widgets to the options and
// shows what the plan holds.
#include <QMainWindow>
#include <array>
#include <functional>
#include <map>
#include <vector>

#include "core/Session.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QStackedWidget;

namespace ortelix {

class FormMapExp : public QMainWindow {
    Q_OBJECT
public:
    FormMapExp(Session& session, QWidget* owner);

    // The tool form "Kartenexport": the one export form of this owner.
    static QWidget* open(Session& session, QWidget* owner);

    // Runs a command of the menu by its control name ("MenMapExp4").
    void runCommand(const QString& control);
    // The planning command for KartenTyp 1 to 9 over the areas read in.
    void planen(int kartenTyp);
    // The page shown: 0 the plan, 1 the settings.
    int currentPage() const;

public slots:
    // The options and the plan shown again (after loading or resetting).
    void refresh();

private:
    void buildMenu();
    QWidget* buildPlanPage();
    QWidget* buildFrames();
    QWidget* buildPartBox();
    QWidget* buildCornerEntry();
    QScrollArea* buildSettingsPage();
    QWidget* buildNumbers();
    QWidget* buildChecks();
    QWidget* buildLists();

    // Settings widgets bound to the options.
    QCheckBox* addCheck(QWidget* parent, int index);
    QLineEdit* addZahl(QWidget* parent, int index);
    QComboBox* addList(QWidget* parent, int index, const QStringList& entries);
    void checkClicked(int index);
    void zahlEdited(int index);
    void applyRules();

    void showFrame(KartenFrame frame);
    void showPlan();
    void showPart(int nr);
    void openCornerEntry();
    void showSettings(bool on);
    void fitToContent();

    // Menu commands.
    void neu();
    void flaechenTextEinlesen();
    void flaechenTextSpeichern();
    void flaechenAusStore(void (*make)(Session&, const std::string&));
    void ozimapEinlesen();
    void mapCheck();
    void meridianWaehlen();
    void speichern();
    void grundeinstellung();
    void message(const std::string& text, const std::string& title);

    Session& session_;
    int kartenTyp_ = 0;
    QStackedWidget* pages_ = nullptr;
    QScrollArea* settings_ = nullptr;
    std::map<KartenFrame, QGroupBox*> frames_;
    QPushButton* swissV1_ = nullptr;
    QPushButton* swissV3_ = nullptr;
    QLabel* top50Karte_ = nullptr;
    QComboBox* listVon_ = nullptr;
    QComboBox* listBis_ = nullptr;
    QLabel* labelTeile_ = nullptr;
    QLabel* labelInfo_ = nullptr;
    QLabel* direktInfo_ = nullptr;
    std::array<QLabel*, 4> grenzen_{};
    QGroupBox* cornerEntry_ = nullptr;
    std::array<QLineEdit*, 8> koord_{};
    std::array<QCheckBox*, 21> checks_{};
    std::array<QLineEdit*, 9> zahlen_{};
    std::array<QLabel*, 9> zahlLabels_{};
    std::array<QComboBox*, 5> lists_{};
    std::vector<std::function<void()>> loaders_;
};

}  // namespace ortelix
