#include "forms/FormEditor.h"

#include <QButtonGroup>
#include <QEvent>
#include <QGuiApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <cmath>

#include "core/Session.h"
#include "editor/CellEditKeys.h"
#include "editor/ModuleEditor.h"
#include "editor/TrackProfil.h"
#include "forms/EditorTableModel.h"
#include "forms/FormEditorKeys.h"
#include "forms/FormMain.h"
#include "forms/FormTrackAnalyse.h"

namespace ortelix {

namespace {

QPushButton* Button(QWidget* in, const char* name, const char* caption) {
    auto* b = new QPushButton(QString::fromUtf8(caption), in);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

FormEditor::FormEditor(Session& session, QWidget* owner)
    : QMainWindow(owner, Qt::Window), session_(session), editor_(std::make_unique<ModuleEditor>(session)) {
    setObjectName("FormEditor");
    setWindowTitle("Editor");
    auto* central = new QWidget(this);
    central->setObjectName("EditorArea");
    setCentralWidget(central);
    top_ = new QWidget(central);
    top_->setObjectName("EditorControls");
    buildControls(top_);

    model_ = new EditorTableModel(*editor_, this);
    grid_ = new QTableView(central);
    grid_->setObjectName("MSFlexGridEditor");
    grid_->setModel(model_);
    grid_->verticalHeader()->hide();
    // Rows of one fixed height: a window of 15,000 rows costs no measuring.
    grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid_->verticalHeader()->setDefaultSectionSize(grid_->fontMetrics().height() + 6);
    grid_->horizontalHeader()->setHighlightSections(false);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    grid_->setSelectionBehavior(QAbstractItemView::SelectItems);
    grid_->setWordWrap(false);
    grid_->setContextMenuPolicy(Qt::CustomContextMenu);
    grid_->installEventFilter(this);

    txtCell_ = new QLineEdit(grid_->viewport());
    txtCell_->setObjectName("txtCell");
    txtCell_->setFrame(false);
    // A thin border in the selection colour tells the open editor from the cells.
    txtCell_->setStyleSheet("QLineEdit { border: 1px solid palette(highlight); padding: 0 1px; }");
    txtCell_->hide();
    txtCell_->installEventFilter(this);

    buildMenus();
    connect(grid_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { menEditBearbeiten_->popup(grid_->viewport()->mapToGlobal(at)); });
    connect(grid_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { commitPending(); });
    connect(grid_, &QAbstractItemView::doubleClicked, this, [this] { openCell(kKeyF2); });
    connect(grid_->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { placeCellEditor(); });
    connect(grid_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { placeCellEditor(); });
    central->installEventFilter(this);

    showLists();
    const EditorLists lists = editor_->ListsRefresh();
    // The first source that holds something.
    if (lists.trackCount == 0 && lists.routeCount > 0) chooseSource(EditorView::Route);
    else if (lists.trackCount == 0 && lists.routeCount == 0 && lists.wayPointCount > 0)
        chooseSource(EditorView::Waypoint);
    else chooseSource(EditorView::Track);
    resize(1150, 640);
}

FormEditor::~FormEditor() {
    // The grid outlives this body (the base class deletes it) and must not
    // ask the editor, which goes first, for any more cells.
    grid_->setModel(nullptr);
    delete model_;
}

QWidget* FormEditor::open(Session& session, QWidget* owner) {
    if (owner)
        if (auto* open = owner->findChild<FormEditor*>(QString(), Qt::FindDirectChildrenOnly)) {
            open->refreshFromStore();
            open->raise();
            open->activateWindow();
            return open;
        }
    return new FormEditor(session, owner);
}

int FormEditor::twips(int t) const { return static_cast<int>(std::lround(t * logicalDpiX() / 1440.0)); }

void FormEditor::buildControls(QWidget* top) {
    auto* row = new QHBoxLayout(top);
    row->setContentsMargins(0, 4, 0, 4);

    auto* choice = new QGridLayout;
    choice->setVerticalSpacing(0);
    auto* group = new QButtonGroup(top);
    group->setObjectName("OptionNMEA");
    const char* captions[] = {"Track", "Route", "Waypoint"};
    QLabel** counters[] = {&labelMaxTacks_, &labelMaxRoute_, &labelMaxWP_};
    const char* counterNames[] = {"LabelMaxTacks", "LabelMaxRoute", "LabelMaxWP"};
    for (int i = 0; i < 3; ++i) {
        option_[i] = new QRadioButton(captions[i], top);
        option_[i]->setObjectName(QString("OptionNMEA%1").arg(i));
        group->addButton(option_[i], i);
        *counters[i] = new QLabel("0", top);
        (*counters[i])->setObjectName(counterNames[i]);
        (*counters[i])->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        (*counters[i])->setToolTip(QString::fromUtf8("Anzahl"));
        choice->addWidget(option_[i], i, 0);
        choice->addWidget(*counters[i], i, 1);
    }
    connect(group, &QButtonGroup::idClicked, this, [this](int id) { chooseSource(static_cast<EditorView>(id)); });
    row->addLayout(choice);
    row->addSpacing(12);

    const int listHeight = 3 * fontMetrics().height() + 8;
    listTrack_ = new QListWidget(top);
    listTrack_->setObjectName("ListTrack");
    listRoute_ = new QListWidget(top);
    listRoute_->setObjectName("ListRoute");
    for (QListWidget* l : {listTrack_, listRoute_}) {
        l->setFixedSize(fontMetrics().horizontalAdvance("000000") + 24, listHeight);
        row->addWidget(l);
    }
    // A click on an entry, also the chosen one, or the arrow keys in a list
    // show that element from its first window. A click that changes the
    // entry fills once, when it is done.
    for (QListWidget* l : {listTrack_, listRoute_}) {
        auto show = [this, l](int r) {
            if (r < 0) return;
            if (l == listTrack_) fill([this, r] { editor_->showTrack(r); });
            else fill([this, r] { editor_->showRoute(r); });
        };
        connect(l, &QListWidget::currentRowChanged, this, [show](int r) {
            if (!(QGuiApplication::mouseButtons() & Qt::LeftButton)) show(r);
        });
        connect(l, &QListWidget::itemClicked, this, [l, show](QListWidgetItem* item) { show(l->row(item)); });
    }
    row->addSpacing(8);

    auto* nameBox = new QGridLayout;
    nameLabel_ = new QLabel("Name", top);
    nameBox->addWidget(nameLabel_, 0, 0);
    textTrackName_ = new QLineEdit(top);
    textTrackName_->setObjectName("TextTrackName");
    textRouteName_ = new QLineEdit(top);
    textRouteName_->setObjectName("TextRouteName");
    for (QLineEdit* e : {textTrackName_, textRouteName_}) {
        e->setMinimumWidth(fontMetrics().horizontalAdvance('x') * 28);
        nameBox->addWidget(e, 1, 0);
    }
    // A change of the name is stored at once.
    connect(textTrackName_, &QLineEdit::textEdited, this,
            [this](const QString& t) { editor_->setTrackName(listTrack_->currentRow(), t.toStdString()); });
    connect(textRouteName_, &QLineEdit::textEdited, this,
            [this](const QString& t) { editor_->setRouteName(listRoute_->currentRow(), t.toStdString()); });
    row->addLayout(nameBox);
    row->addSpacing(12);

    auto* shift = new QGridLayout;
    windowLabel_ = new QLabel(top);
    windowLabel_->setObjectName("LabelWindow");
    shift->addWidget(windowLabel_, 0, 0, 1, 2, Qt::AlignHCenter);
    QPushButton* previous = Button(top, "CommandWPShift0", "<<");
    previous->setToolTip(QString::fromUtf8("Zeigt die vorherigen 15.000 Koordinaten"));
    QPushButton* next = Button(top, "CommandWPShift1", ">>");
    next->setToolTip(QString::fromUtf8("Zeigt die nächsten 15.000 Koordinaten"));
    shift->addWidget(previous, 1, 0);
    shift->addWidget(next, 1, 1);
    connect(previous, &QPushButton::clicked, this, [this] { fill([this] { editor_->previousWindow(); }); });
    connect(next, &QPushButton::clicked, this, [this] { fill([this] { editor_->nextWindow(); }); });
    row->addLayout(shift);
    row->addSpacing(12);

    auto* buttons = new QGridLayout;
    QPushButton* analyse = Button(top, "CommandTrackAnalyse", "TEST");
    analyse->setToolTip(QString::fromUtf8("Höhenprofil des gewählten Tracks"));
    connect(analyse, &QPushButton::clicked, this, [this] { openAnalysis(); });
    QPushButton* google = Button(top, "CommandGE", "Google Earth");
    QPushButton* web = Button(top, "CommandInternetKarte", "Internet Karte zeigen");
    // Google Earth comes with the KML writer.
    google->setEnabled(false);
    google->setToolTip(QString::fromUtf8(kNotAvailable));
    // The keys count as they were when the mouse went down.
    connect(web, &QPushButton::pressed, this, [this] { webKeys_ = QGuiApplication::keyboardModifiers(); });
    connect(web, &QPushButton::clicked, this, [this] { showWebMap(webKeys_); });
    buttons->addWidget(google, 0, 0);
    buttons->addWidget(web, 1, 0);
    buttons->addWidget(analyse, 0, 1);
    row->addLayout(buttons);
    row->addStretch();
}

void FormEditor::chooseSource(EditorView view) {
    option_[static_cast<int>(view)]->setChecked(true);
    switch (view) {
        case EditorView::Track:
            fill([this] { editor_->showTrack(std::max(0, listTrack_->currentRow())); });
            break;
        case EditorView::Route:
            fill([this] { editor_->showRoute(std::max(0, listRoute_->currentRow())); });
            break;
        case EditorView::Waypoint: fill([this] { editor_->showWayPoints(); }); break;
    }
}

void FormEditor::showLists() {
    const EditorLists lists = editor_->ListsRefresh();
    labelMaxTacks_->setText(QString::number(lists.trackCount));
    labelMaxRoute_->setText(QString::number(lists.routeCount));
    labelMaxWP_->setText(QString::number(lists.wayPointCount));
    auto refill = [](QListWidget* list, const std::vector<std::string>& entries) {
        const QSignalBlocker quiet(list);
        const int chosen = list->currentRow();
        list->clear();
        for (const std::string& e : entries) list->addItem(QString::fromStdString(e));
        if (!entries.empty()) list->setCurrentRow(std::clamp(chosen, 0, static_cast<int>(entries.size()) - 1));
    };
    refill(listTrack_, lists.tracks);
    refill(listRoute_, lists.routes);
    showNames();
}

void FormEditor::showNames() {
    const QSignalBlocker quietTrack(textTrackName_), quietRoute(textRouteName_);
    textTrackName_->setText(QString::fromStdString(editor_->trackName(listTrack_->currentRow())));
    textRouteName_->setText(QString::fromStdString(editor_->routeName(listRoute_->currentRow())));
}

void FormEditor::fill(const std::function<void()>& fill) {
    commitPending();
    model_->refill(fill);
    afterFill();
}

void FormEditor::afterFill() {
    const EditorView view = editor_->view();
    option_[static_cast<int>(view)]->setChecked(true);
    listTrack_->setVisible(view == EditorView::Track);
    textTrackName_->setVisible(view == EditorView::Track);
    listRoute_->setVisible(view == EditorView::Route);
    textRouteName_->setVisible(view == EditorView::Route);
    nameLabel_->setVisible(view != EditorView::Waypoint);
    // Which points the window shows, numbered as in the index column.
    const QLocale german(QLocale::German);
    windowLabel_->setText(editor_->rowCount() == 0
                              ? QString()
                              : QString::fromUtf8("Zeilen %1 – %2")
                                    .arg(german.toString(editor_->erster() + 1),
                                         german.toString(editor_->erster() + editor_->rowCount())));
    QListWidget* list = view == EditorView::Track ? listTrack_ : view == EditorView::Route ? listRoute_ : nullptr;
    if (list && editor_->element() >= 0 && editor_->element() < list->count()) {
        const QSignalBlocker quiet(list);
        list->setCurrentRow(editor_->element());
    }
    showNames();
    sizeColumns();
    placeGrid();
}

void FormEditor::sizeColumns() {
    const QFontMetrics fm = grid_->fontMetrics();
    const QFontMetrics headFm = grid_->horizontalHeader()->fontMetrics();
    // The widths of the original grid were made for a font whose digits were
    // 6 pixels wide; they grow with this font's digits, and never cut a heading.
    const double scale = std::max(1.0, fm.horizontalAdvance(QString(10, '0')) / 60.0);
    for (int c = 0; c < model_->columnCount(); ++c) {
        const int given = static_cast<int>(twips(editor_->widthTwips(c)) * scale);
        const QString heading = QString::fromUtf8(editor_->heading(c));
        const int head = headFm.horizontalAdvance(heading) + 2 * headFm.averageCharWidth() + 6;
        grid_->setColumnWidth(c, std::max(given, head));
    }
}

QRect FormEditor::gridPlace(QSize inner, QRect current, int twip60, int top, int twip100) {
    QRect r = current;
    r.moveTopLeft(QPoint(twip60, top));
    const int w = inner.width() - 2 * twip60;
    const int h = inner.height() - twip60 - top;
    if (w > twip100) r.setWidth(w);
    if (h > twip100) r.setHeight(h);
    return r;
}

void FormEditor::placeGrid() {
    QWidget* area = centralWidget();
    const int margin = twips(60);
    const int controls = top_->sizeHint().height();
    top_->setGeometry(margin, 0, std::max(0, area->width() - 2 * margin), controls);
    // 1000 twips from the top, or below the controls where this font needs more.
    const int top = std::max(twips(1000), controls + margin);
    grid_->setGeometry(gridPlace(area->size(), grid_->geometry(), margin, top, twips(100)));
    placeCellEditor();
}

GridRect FormEditor::selection() const {
    const QModelIndex cur = grid_->currentIndex();
    if (!cur.isValid()) return {};
    for (const QItemSelectionRange& r : grid_->selectionModel()->selection())
        if (r.contains(cur)) return {r.top() + 1, r.left(), r.bottom() + 1, r.right()};
    return {cur.row() + 1, cur.column(), cur.row() + 1, cur.column()};
}

void FormEditor::openCell(int virtualKey) {
    const QModelIndex cur = grid_->currentIndex();
    // Every cell but the fixed index column takes text; a computed one keeps
    // it until the next fill, since it has no field in the store.
    if (!cur.isValid() || cur.column() < 1) return;
    editRow_ = cur.row() + 1;
    editCol_ = cur.column();
    grid_->scrollTo(cur);
    txtCell_->setGeometry(grid_->visualRect(cur));
    const EditStart start = EditStartFor(virtualKey, editor_->cellText(editRow_, editCol_));
    txtCell_->setText(QString::fromStdString(start.text));
    // The caret counts bytes of the UTF-8 text; the line edit counts characters.
    const std::string beforeCaret = start.text.substr(0, static_cast<size_t>(start.caret));
    txtCell_->setCursorPosition(static_cast<int>(QString::fromStdString(beforeCaret).size()));
    txtCell_->show();
    txtCell_->setFocus();
    cellEditDone_ = false;
}

void FormEditor::placeCellEditor() {
    if (!txtCell_->isVisible()) return;
    txtCell_->setGeometry(grid_->visualRect(model_->index(editRow_ - 1, editCol_)));
}

void FormEditor::commitReturn() {
    cellEditDone_ = true;
    const std::string text = txtCell_->text().toStdString();
    GridRect rows = selection();
    // The marked rows when the edited cell is among them, else the cell alone.
    if (editRow_ < std::min(rows.row1, rows.row2) || editRow_ > std::max(rows.row1, rows.row2))
        rows = {editRow_, editCol_, editRow_, editCol_};
    editor_->commitRange(text, rows.row1, rows.row2, editCol_);
    closeCellEditor();
    model_->cellsChanged({rows.row1, editCol_, rows.row2, editCol_});
}

void FormEditor::commitPending() {
    if (cellEditDone_) return;
    cellEditDone_ = true;
    editor_->WriteGridCell(txtCell_->text().toStdString(), editRow_, editCol_);
    closeCellEditor();
    model_->cellsChanged({editRow_, editCol_, editRow_, editCol_});
}

void FormEditor::cancelCell() {
    cellEditDone_ = true;
    closeCellEditor();
}

void FormEditor::closeCellEditor() {
    // The focus goes back to the grid before the editor hides: a hidden
    // focus widget hands the focus on as Tab would, and the view would take
    // that as Tab and move its current cell.
    if (txtCell_->hasFocus()) grid_->setFocus();
    txtCell_->hide();
}

void FormEditor::runClipboard(void (ModuleEditor::*command)(const GridRect&)) {
    commitPending();
    const GridRect sel = selection();
    if (sel.row1 == 0) return;
    (editor_.get()->*command)(sel);
    model_->allCellsChanged();
}

void FormEditor::paste() {
    commitPending();
    const GridRect sel = selection();
    if (sel.row1 == 0) return;
    editor_->einfuegen(std::min(sel.row1, sel.row2), std::min(sel.col1, sel.col2));
    model_->allCellsChanged();
}

void FormEditor::openAnalysis() {
    const int track = listTrack_->currentRow();
    if (track < 0) return;
    ProfilDrawing drawing;
    fill([&] { drawing = TrackProfil(session_, *editor_, track); });
    if (drawing.lines.empty()) return;
    if (!analysis_) analysis_ = new FormTrackAnalyse(this);
    analysis_->display(std::move(drawing), editor_->trackTotals(), QString::fromStdString(editor_->trackName(track)));
    analysis_->show();
    analysis_->raise();
}

void FormEditor::refreshFromStore() {
    showLists();
    fill([this] { editor_->refill(); });
}

bool FormEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == centralWidget() && event->type() == QEvent::Resize) {
        placeGrid();
        return false;
    }
    if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == txtCell_) {
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            commitReturn();
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            cancelCell();
            return true;
        }
        return false;
    }
    if (watched == grid_) {
        const int code = VirtualKeyOf(key->key(), key->modifiers());
        if (code == kKeyStaysWithGrid) return false;
        switch (GridKeyActionFor(code)) {
            case GridKeyAction::None: return false;
            case GridKeyAction::Delete: runClipboard(&ModuleEditor::loeschen); return true;
            case GridKeyAction::Edit: openCell(code); return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void FormEditor::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Back from the main form, which may have read or cleared the store.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        const EditorLists lists = editor_->ListsRefresh();
        if (lists.trackCount != labelMaxTacks_->text().toInt() || lists.routeCount != labelMaxRoute_->text().toInt() ||
            lists.wayPointCount != labelMaxWP_->text().toInt())
            refreshFromStore();
    }
}

}  // namespace ortelix
