#include "forms/FormMain.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMap>
#include <QMenuBar>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include "appformats/ModuleTop50Karte.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/InfoFrame.h"
#include "core/ModulMain.h"
#include "core/Session.h"
#include "forms/FormMenu1.h"
#include "forms/FrameInfo.h"
#include "forms/FrameTable.h"
#include "forms/Mnemonics.h"
#include "forms/ToolForms.h"
#include "forms/WheelGuard.h"

namespace ortelix {

namespace {
// The caption of a menu item as the command table gives it; its text gets
// the mnemonic once the whole level is known.
constexpr const char* kCaption = "caption";

// One menu level: every item gets its mnemonic, and a submenu whose commands
// are all disabled is disabled too. The menus of the menu bar stay open to
// look into even then. Returns whether any command can run.
bool FinishMenuLevel(const QList<QAction*>& actions, bool menuBar) {
    bool any = false;
    QList<QAction*> items;
    QStringList captions;
    for (QAction* a : actions) {
        if (a->isSeparator()) continue;
        if (QMenu* sub = a->menu()) {
            const bool on = FinishMenuLevel(sub->actions(), false);
            if (!menuBar) {
                a->setEnabled(on);
                a->setToolTip(on ? QString() : QString::fromUtf8(kNotAvailable));
            }
        }
        any = any || a->isEnabled();
        items << a;
        captions << a->property(kCaption).toString();
    }
    const QStringList texts = WithMnemonics(captions);
    for (qsizetype i = 0; i < items.size(); ++i) items[i]->setText(texts[i]);
    return any;
}

QWidget* Placeholder(const FramePage& p, QWidget* parent) {
    auto* box = new QGroupBox(QString::fromUtf8(p.caption), parent);
    box->setObjectName(QString("Frame%1").arg(p.index));
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(new QLabel(QString::fromUtf8(kNotAvailable), box));
    layout->addStretch();
    return box;
}
}  // namespace

FormMain::FormMain(Session& session, QWidget* parent) : QMainWindow(parent), session_(session) {
    setObjectName("FormMain");
    setWindowTitle("Ortelix");
    // 8000 by 6000 twips.
    resize(560, 440);

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    frames_ = new QStackedWidget(central);
    layout->addWidget(frames_, 1);
    LabelVersion = new QLabel(QString::fromUtf8(kVersion), central);
    LabelVersion->setObjectName("LabelVersion");
    LabelVersion->setAlignment(Qt::AlignRight);
    layout->addWidget(LabelVersion);
    setCentralWidget(central);

    statusText_ = new QLabel(this);
    statusText_->setObjectName("StatusText");
    gridText_ = new QLabel(this);
    gridText_->setObjectName("StatusGrid");
    statusBar()->addWidget(statusText_, 1);
    statusBar()->addPermanentWidget(gridText_);

    buildMenus();
    buildFrames();
    ShowFrame(kFrameInfo);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(500);
    connect(timer1_, &QTimer::timeout, this, &FormMain::refresh);
    timer1_->start();

    menu1_ = new FormMenu1(this);
    connect(menu1_, &FormMenu1::command, this, &FormMain::runCommand);
    refresh();
}

bool FormMain::available(const Command& c) {
    switch (c.kind) {
        case CommandKind::Read:
        case CommandKind::Write:
        case CommandKind::Action:
        case CommandKind::Help: return c.run != nullptr;
        case CommandKind::Tool: return ToolFormOf(c.control) != nullptr;
        case CommandKind::Setup:
        case CommandKind::End: return true;
    }
    return false;
}

void FormMain::buildMenus() {
    QMap<QString, QMenu*> menus;
    for (const char* top : {"MenEingang", "MenAusgang", "MenTools", "MenSetUp"}) {
        QMenu* m = menuBar()->addMenu(QString::fromUtf8(MenuCaption(top)));
        m->setObjectName(top);
        m->menuAction()->setProperty(kCaption, QString::fromUtf8(MenuCaption(top)));
        m->setToolTipsVisible(true);
        menus[top] = m;
    }
    for (const Command& c : CommandTable()) {
        if (!c.menu) continue;  // batch-only readers
        auto* action = new QAction(this);
        action->setObjectName(c.control);
        action->setProperty(kCaption, QString::fromUtf8(c.caption));
        if (!available(c)) {
            action->setEnabled(false);
            action->setToolTip(QString::fromUtf8(kNotAvailable));
        }
        const QString control = c.control;
        connect(action, &QAction::triggered, this, [this, control] { runCommand(control); });
        const QString path = QString::fromUtf8(c.menu);
        if (path.isEmpty()) {
            menuBar()->addAction(action);
            continue;
        }
        // Submenus are made in the order of their first command.
        QMenu* menu = nullptr;
        QString sofar;
        for (const QString& part : path.split('/')) {
            QMenu* parentMenu = menu;
            sofar = sofar.isEmpty() ? part : sofar + "/" + part;
            if (!menus.contains(sofar)) {
                QMenu* sub = parentMenu->addMenu(part);
                sub->setObjectName(sofar);
                sub->menuAction()->setProperty(kCaption, part);
                sub->setToolTipsVisible(true);
                menus[sofar] = sub;
            }
            menu = menus[sofar];
        }
        menu->addAction(action);
    }
    FinishMenuLevel(menuBar()->actions(), true);
}

void FormMain::buildFrames() {
    pages_.assign(kFrameCount, nullptr);
    for (const FramePage& p : FramePages()) {
        QWidget* page = nullptr;
        if (p.index == kFrameInfo) page = info_ = new FrameInfo(frames_);
        else if (p.make) page = p.make(session_, frames_);
        else page = Placeholder(p, frames_);
        auto* scroll = new QScrollArea(frames_);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setWidget(page);
        GuardWheel(scroll);
        frames_->addWidget(scroll);
        pages_[static_cast<size_t>(p.index)] = page;
    }
    refreshFrames();
}

void FormMain::ShowFrame(int index) {
    if (index < 0 || index >= static_cast<int>(pages_.size()) || !pages_[static_cast<size_t>(index)]) return;
    frames_->setCurrentIndex(index);
}

int FormMain::currentFrame() const { return frames_->currentIndex(); }

QWidget* FormMain::frame(int index) const {
    return index >= 0 && index < static_cast<int>(pages_.size()) ? pages_[static_cast<size_t>(index)] : nullptr;
}

void FormMain::runCommand(const QString& control) {
    const Command* c = FindCommand(control.toStdString());
    if (c && available(*c)) run(*c);
}

void FormMain::run(const Command& c) {
    BeginCommand(session_);
    switch (c.kind) {
        case CommandKind::Read: {
            const std::string path = ChooseInput(session_, c);
            if (path.empty()) return;
            ShowFrame(kFrameInfo);
            ReadWith(session_, c, path);
            break;
        }
        case CommandKind::Write: WriteWith(session_, c); break;
        case CommandKind::Action:
            if (std::string_view(c.control) == "MenEinBatch") ShowFrame(kFrameInfo);
            c.run(session_, {});
            refreshFrames();
            break;
        case CommandKind::Help: c.run(session_, {}); break;
        case CommandKind::Tool:
            if (QWidget* form = ToolFormOf(c.control)(session_, this)) form->show();
            break;
        case CommandKind::Setup:
            if (const FramePage* p = FrameOfCommand(c.control)) ShowFrame(p->index);
            break;
        case CommandKind::End: close(); break;
    }
    refresh();
}

void FormMain::refresh() {
    // The chosen Top50 map; without a map list the line stays empty.
    const TopKarte* karte = GewaehlteKarte(session_);
    const InfoFrame values = InfoValues(session_, karte ? karte->Name : std::string());
    info_->display(values);
    statusText_->setText(QString::fromStdString(values.StatusText));
}

void FormMain::refreshFrames() {
    for (QWidget* page : pages_)
        if (page && page->metaObject()->indexOfSlot("refresh()") >= 0)
            QMetaObject::invokeMethod(page, "refresh", Qt::DirectConnection);
}

void FormMain::showEvent(QShowEvent* e) {
    QMainWindow::showEvent(e);
    // The tool bar comes with the first showing; once closed it stays closed.
    if (menu1_ && !menu1Shown_) {
        menu1Shown_ = true;
        menu1_->follow();
        menu1_->show();
    }
}

void FormMain::moveEvent(QMoveEvent* e) {
    QMainWindow::moveEvent(e);
    if (menu1_) menu1_->follow();
}

void FormMain::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);
    if (menu1_) menu1_->follow();
}

void FormMain::closeEvent(QCloseEvent* e) {
    // The other forms go with the main form.
    for (QWidget* w : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (w->isWindow()) w->close();
    QMainWindow::closeEvent(e);
}

}  // namespace ortelix
