#pragma once
// The editor: the store as a table, one source at a time (a track, a route
// or all waypoints), edited cell by cell. The table model, the window of
// 15,000 rows, the checks of every column and the clipboard commands are the
// editor's table model (ModuleEditor); this form lays out the controls,
// passes the user's keys and clicks to it and shows what it answers.
#include <QMainWindow>
#include <functional>
#include <memory>
#include <vector>

#include "editor/EditorColumns.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QRadioButton;
class QTableView;

namespace ortelix {

class Session;
class ModuleEditor;
class EditorTableModel;
class FormTrackAnalyse;
class FrameWPColor;
struct GridRect;

class FormEditor : public QMainWindow {
    Q_OBJECT
public:
    FormEditor(Session& session, QWidget* owner);
    ~FormEditor() override;

    // The tool form of "Editor": the one editor of this owner, made on first use.
    static QWidget* open(Session& session, QWidget* owner);

    ModuleEditor& editor() { return *editor_; }
    QTableView* grid() const { return grid_; }
    QLineEdit* cellEditor() const { return txtCell_; }
    QMenu* editMenu() const { return menEditBearbeiten_; }
    EditorTableModel* model() const { return model_; }
    FormTrackAnalyse* analysis() const { return analysis_; }

    // The grid's place for an inner size: 60 twips from the left, 1000 from
    // the top (more when the controls above need it), filling the rest less
    // 60 twips; a width or height that would not exceed 100 twips is left
    // as it was.
    static QRect gridPlace(QSize inner, QRect current, int twip60, int top, int twip100);

    // Refills the lists and counters and shows the chosen source again, as
    // after a command that changed the store.
    void refreshFromStore();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildControls(QWidget* top);
    void buildMenus();
    void chooseSource(EditorView view);
    void showLists();
    void showNames();
    void fill(const std::function<void()>& fill);
    void afterFill();
    void placeGrid();
    void sizeColumns();
    // Opens the cell editor over the current cell for a key in the codes of
    // the editor's key rule.
    void openCell(int virtualKey);
    void placeCellEditor();
    void commitReturn();
    void commitPending();
    void cancelCell();
    void closeCellEditor();
    void runClipboard(void (ModuleEditor::*command)(const GridRect&));
    // A bulk command of the menus: its control name, caption and the core
    // call; without a call the entry stands disabled.
    struct BulkEntry {
        const char* control;
        const char* caption;
        std::function<void()> run;
    };
    QMenu* bulkMenu(const char* name, const char* caption, const std::vector<BulkEntry>& entries);
    QAction* addBulk(QWidget* in, const BulkEntry& e);
    // Runs a command of the editor's core, then shows the lists and the grid again.
    void runBulk(const std::function<void()>& command);
    void showColourPanel();
    void openTrackZeit();
    void showWebMap(Qt::KeyboardModifiers keys);
    void paste();
    void openAnalysis();
    int twips(int t) const;
    GridRect selection() const;

    Session& session_;
    std::unique_ptr<ModuleEditor> editor_;
    EditorTableModel* model_ = nullptr;
    QTableView* grid_ = nullptr;
    QLineEdit* txtCell_ = nullptr;
    QWidget* top_ = nullptr;
    QRadioButton* option_[3] = {};
    QListWidget* listTrack_ = nullptr;
    QListWidget* listRoute_ = nullptr;
    QLineEdit* textTrackName_ = nullptr;
    QLineEdit* textRouteName_ = nullptr;
    QLabel* labelMaxTacks_ = nullptr;
    QLabel* labelMaxRoute_ = nullptr;
    QLabel* labelMaxWP_ = nullptr;
    QLabel* nameLabel_ = nullptr;
    QLabel* windowLabel_ = nullptr;
    QMenu* menEditBearbeiten_ = nullptr;
    FormTrackAnalyse* analysis_ = nullptr;
    FrameWPColor* colourPanel_ = nullptr;
    // The modifier keys held when the web map button was pressed.
    Qt::KeyboardModifiers webKeys_;
    // The cell that the cell editor edits, as grid row and column.
    int editRow_ = 0, editCol_ = 0;
    // False from the moment the cell editor opens until its text is written.
    bool cellEditDone_ = true;
};

}  // namespace ortelix
