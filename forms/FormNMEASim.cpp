#include "forms/FormNMEASim.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

#include "core/Session.h"
#include "platform/Platform.h"
#include "simulator/ModulNMEASim.h"

namespace ortelix {

namespace {

QString Q(const char* utf8) { return QString::fromUtf8(utf8); }
QString Q(const std::string& s) { return QString::fromStdString(s); }

// Sets a text only when it differs, so that a box being typed in keeps its cursor.
void Show(QLineEdit* e, const std::string& text) {
    const QString t = Q(text);
    if (e->text() != t) e->setText(t);
}
void Show(QLabel* l, const std::string& text) {
    const QString t = Q(text);
    if (l->text() != t) l->setText(t);
}

// The boxes: caption above, hint as tool tip.
struct BoxText {
    const char* caption;
    const char* tip;
};
constexpr BoxText kBoxes[8] = {
    {"Ost Grad", "Dezimale Eingabe der Koordinaten"},
    {"Ost Minuten", "Dezimale Eingabe der Koordinaten-Minutenwerte"},
    {"Nord Grad", "Dezimale Eingabe der Koordinaten"},
    {"Nord Minuten", "Dezimale Eingabe der Koordinaten-Minutenwerte"},
    {"Höhe (m)", "Höhe über WGS84 Ellipsoid"},
    {"Speed (km/h)", "Geschwindigkeit in km/h"},
    {"Richtung (Grad)", "Richtungswinkel"},
    {"Geoid Diff (m)", "Unterschied zwischen WGS84 Ellipsoid und Meeresspiegel"},
};
constexpr const char* kParTip = "Tatsächlich gesendeter Parameterwert";

// The arrow keys as the simulator counts them.
int KeyCode(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Left: return 37;
        case Qt::Key_Up: return 38;
        case Qt::Key_Right: return 39;
        case Qt::Key_Down: return 40;
        default: return 0;
    }
}

}  // namespace

FormNMEASim::FormNMEASim(Session& session, QWidget* owner)
    : QMainWindow(owner, Qt::Window), session_(session), engine_(std::make_unique<SimEngine>(session)) {
    setObjectName("FormNMEASim");
    setWindowTitle(kSimTitle);
    setAttribute(Qt::WA_DeleteOnClose, false);
    auto* top = new QWidget(this);
    auto* layout = new QVBoxLayout(top);
    layout->addWidget(buildSource());
    layout->addWidget(buildBoxes());
    layout->addWidget(buildButtons());
    setCentralWidget(top);
    buildMenus();
    // The device and its settings while sending; messages of the moment
    // (MenSimSetup) stand over it for a while.
    status_ = new QLabel(this);
    status_->setObjectName("StatusText");
    statusBar()->addWidget(status_, 1);

    timer_ = new QTimer(this);
    timer_->setObjectName("TimerTakt");
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, &FormNMEASim::tick);

    // The form sees the arrow keys first, as with the key preview of a window.
    installEventFilter(this);
    for (QWidget* w : findChildren<QWidget*>()) w->installEventFilter(this);

    showLists();
    engine_->SimPunkt();
    refresh();
    schedule();
}

FormNMEASim::~FormNMEASim() { engine_->SimStop(); }

QWidget* FormNMEASim::open(Session& session, QWidget* owner) {
    if (owner)
        if (auto* form = owner->findChild<FormNMEASim*>(QString(), Qt::FindDirectChildrenOnly)) {
            form->showLists();
            form->refresh();
            form->raise();
            form->activateWindow();
            return form;
        }
    return new FormNMEASim(session, owner);
}

QWidget* FormNMEASim::buildSource() {
    auto* frame = new QGroupBox(Q("Quelle"), this);
    auto* grid = new QGridLayout(frame);
    const char* captions[4] = {"Track", "Route", "Waypoint", "Direkt"};
    for (int i = 0; i < 4; ++i) {
        auto* b = new QRadioButton(Q(captions[i]), frame);
        b->setObjectName(QString("OptionNMEA%1").arg(i));
        connect(b, &QRadioButton::clicked, this, [this, i] { choose(i); });
        options_[static_cast<size_t>(i)] = b;
        grid->addWidget(b, 0, i);
    }
    options_[3]->setToolTip(Q("Manuell eingegebene Werte werden gesendet"));
    listTrack_ = new QComboBox(frame);
    listTrack_->setObjectName("ListTrack");
    listRoute_ = new QComboBox(frame);
    listRoute_->setObjectName("ListRoute");
    connect(listTrack_, &QComboBox::activated, this, [this](int i) {
        engine_->auswahl.track = i;
        engine_->HScrollNMEA = 1;
        engine_->SimPunkt();
        refresh();
    });
    connect(listRoute_, &QComboBox::activated, this, [this](int i) {
        engine_->auswahl.route = i;
        engine_->HScrollNMEA = 1;
        engine_->SimPunkt();
        refresh();
    });
    grid->addWidget(listTrack_, 1, 0, 1, 2);
    grid->addWidget(listRoute_, 1, 2, 1, 2);

    bar_ = new QScrollBar(Qt::Horizontal, frame);
    bar_->setObjectName("HScrollNMEA");
    connect(bar_, &QScrollBar::valueChanged, this, [this](int v) {
        engine_->HScrollNMEA = v;
        engine_->SimPunkt();
        refresh();
    });
    minPoints_ = new QLabel(frame);
    minPoints_->setObjectName("LabelMinPoints");
    maxPoints_ = new QLabel(frame);
    maxPoints_->setObjectName("LabelMaxPoints");
    countPoints_ = new QLabel(frame);
    countPoints_->setObjectName("LabelCountPoints");
    countPoints_->setAlignment(Qt::AlignCenter);
    grid->addWidget(minPoints_, 2, 0);
    grid->addWidget(countPoints_, 2, 1, 1, 2);
    grid->addWidget(maxPoints_, 2, 3, Qt::AlignRight);
    grid->addWidget(bar_, 3, 0, 1, 4);
    dist_ = new QLabel(frame);
    dist_->setObjectName("LabelDist");
    dist_->setToolTip(Q("Entfernung zum nächsten Punkt"));
    winkel_ = new QLabel(frame);
    winkel_->setObjectName("LabelWinkel");
    winkel_->setToolTip(Q("Richtung zum nächsten Punkt"));
    name_ = new QLabel(frame);
    name_->setObjectName("LabelName");
    desc_ = new QLabel(frame);
    desc_->setObjectName("LabelDesc");
    grid->addWidget(dist_, 4, 0);
    grid->addWidget(winkel_, 4, 1);
    grid->addWidget(name_, 4, 2);
    grid->addWidget(desc_, 4, 3);
    return frame;
}

QWidget* FormNMEASim::buildBoxes() {
    auto* frame = new QGroupBox(Q("Werte"), this);
    auto* grid = new QGridLayout(frame);
    auto& o = session_.options;
    // The labels of the last cycle, in the engine's order: longitude,
    // latitude, speed, direction, height, geoid, date, time.
    for (size_t i = 0; i < par_.size(); ++i) {
        par_[i] = new QLabel(frame);
        par_[i]->setObjectName(QString("LabelNMEAPar%1").arg(i));
        par_[i]->setToolTip(Q(kParTip));
        par_[i]->setMinimumWidth(90);
    }
    // Which label stands beside which box: the degrees boxes show the
    // position in decimal degrees; the minutes boxes have none.
    constexpr int kParOfBox[8] = {0, -1, 1, -1, 4, 2, 3, 5};
    auto addRow = [&](int row, const QString& caption, QLineEdit* edit, int par) {
        grid->addWidget(new QLabel(caption, frame), row, 0);
        grid->addWidget(edit, row, 1);
        if (par >= 0) grid->addWidget(par_[static_cast<size_t>(par)], row, 2);
    };
    for (size_t i = 0; i < 8; ++i) {
        auto* edit = new QLineEdit(frame);
        edit->setObjectName(QString("NMEABox%1").arg(i));
        edit->setToolTip(Q(kBoxes[i].tip));
        std::string& option = o.NMEABox[i];
        connect(edit, &QLineEdit::textEdited, this, [&option](const QString& t) { option = t.toStdString(); });
        boxes_[i] = edit;
        addRow(static_cast<int>(i), Q(kBoxes[i].caption), edit, kParOfBox[i]);
    }
    boxDate_ = new QLineEdit(frame);
    boxDate_->setObjectName("NMEABoxDate");
    boxTime_ = new QLineEdit(frame);
    boxTime_->setObjectName("NMEABoxTime");
    connect(boxDate_, &QLineEdit::textEdited, this, [&o](const QString& t) { o.NMEABoxDate = t.toStdString(); });
    connect(boxTime_, &QLineEdit::textEdited, this, [&o](const QString& t) { o.NMEABoxTime = t.toStdString(); });
    addRow(8, Q("Datum"), boxDate_, 6);
    addRow(9, Q("Zeit"), boxTime_, 7);

    geoid_ = new QCheckBox(Q("Geoid-Korrekturwert wird automatisch eingetragen"), frame);
    geoid_->setObjectName("NMEASimCheckBox0");
    connect(geoid_, &QCheckBox::toggled, this, [&o](bool on) { o.NMEASimCheckBox[0] = on ? 1 : 0; });
    grid->addWidget(geoid_, 10, 0, 1, 3);
    fach_ = new QLineEdit(frame);
    fach_->setObjectName("NMEASimFaktor");
    connect(fach_, &QLineEdit::textEdited, this, [&o](const QString& t) { o.NMEASimFaktor = t.toStdString(); });
    addRow(11, Q("fach schneller simulieren"), fach_, -1);
    return frame;
}

QWidget* FormNMEASim::buildButtons() {
    auto* frame = new QWidget(this);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    port_ = new QComboBox(frame);
    port_->setObjectName("ComPort");
    port_->setEditable(true);  // any path, such as a pseudo-terminal
    port_->setToolTip(Q("Serielle Schnittstelle: Gerät aus der Liste oder ein Pfad wie /dev/pts/3"));
    for (const std::string& p : session_.platform.serialPorts()) port_->addItem(Q(p));
    connect(port_, &QComboBox::currentTextChanged, this,
            [this](const QString& t) { session_.options.ComPort = t.toStdString(); });
    grid->addWidget(new QLabel(Q("Schnittstelle"), frame), 0, 0);
    grid->addWidget(port_, 0, 1, 1, 3);
    sending_ = new QLabel(frame);
    sending_->setObjectName("ShapeSenden");
    sending_->setFixedSize(18, 18);
    sending_->setToolTip(Q("Leuchtet, wenn gesendet wird"));
    grid->addWidget(sending_, 0, 4);

    auto button = [&](const char* name, const char* caption, const char* tip, int row, int col) {
        auto* b = new QPushButton(Q(caption), frame);
        b->setObjectName(name);
        if (tip) b->setToolTip(Q(tip));
        grid->addWidget(b, row, col);
        return b;
    };
    auto* startButton = button("CommandSimStart", "START", nullptr, 1, 0);
    auto* stopButton = button("CommandSimStop", "STOP", nullptr, 1, 1);
    auto* runButton = button("CommandSimRun", "RUN", nullptr, 1, 2);
    auto* runStopButton = button("CommandSimRunStop", "STOP", "Beendet die automatische Fahrtsimmulation", 1, 3);
    auto* cutVon = button("CommandCutVon", "Cut von", "Die Zeit wird in den Track-Filter übernommen.", 2, 0);
    auto* cutBis = button("CommandCutBis", "Cut bis", "Die Zeit wird in den Track-Filter übernommen.", 2, 1);
    connect(startButton, &QPushButton::clicked, this, [this] { start(false); });
    connect(runButton, &QPushButton::clicked, this, [this] { start(true); });
    connect(stopButton, &QPushButton::clicked, this, [this] {
        engine_->SimStop();
        refresh();
        schedule();
    });
    connect(runStopButton, &QPushButton::clicked, this, [this] {
        engine_->SimRunOff();
        refresh();
    });
    connect(cutVon, &QPushButton::clicked, this, [this] { engine_->CutVon(); });
    connect(cutBis, &QPushButton::clicked, this, [this] { engine_->CutBis(); });
    return frame;
}

void FormNMEASim::buildMenus() {
    auto* setup = menuBar()->addAction(Q("Setup"));
    setup->setObjectName("MenSimSetup");
    // The device's settings are fixed; what can be set up is which device:
    // the list is looked at again.
    connect(setup, &QAction::triggered, this, [this] {
        const QString current = port_->currentText();
        port_->clear();
        for (const std::string& p : session_.platform.serialPorts()) port_->addItem(Q(p));
        port_->setCurrentText(current);
        statusBar()->showMessage(Q(std::string("Schnittstellen: ") + std::to_string(port_->count()) + ", " +
                                   kSimSettings),
                                 3000);
    });
    auto* end = menuBar()->addAction(Q("Ende"));
    end->setObjectName("MenSimEnd");
    connect(end, &QAction::triggered, this, &QWidget::close);
}

void FormNMEASim::showLists() {
    auto fill = [](QComboBox* list, const auto& items, int chosen) {
        list->clear();
        for (const auto& item : items) list->addItem(Q(item.Name));
        list->setCurrentIndex(chosen < list->count() ? chosen : -1);
    };
    fill(listTrack_, session_.store.Tracks, engine_->auswahl.track);
    fill(listRoute_, session_.store.Routes, engine_->auswahl.route);
}

void FormNMEASim::choose(int source) {
    WaehleQuelle(session_.options, static_cast<SimQuelle>(source));
    engine_->HScrollNMEA = 1;
    engine_->SimPunkt();
    refresh();
}

void FormNMEASim::start(bool run) {
    const std::string port = port_->currentText().toStdString();
    if (run) engine_->SimRunOn(port);
    else engine_->SimStart(port);
    refresh();
    schedule();
}

void FormNMEASim::refresh() {
    const auto& o = session_.options;
    // A file read or a store cleared while the form is open.
    if (listTrack_->count() != static_cast<int>(session_.store.Tracks.size()) ||
        listRoute_->count() != static_cast<int>(session_.store.Routes.size()))
        showLists();
    const SimQuelle q = GewaehlteQuelle(o);
    for (size_t i = 0; i < 4; ++i) options_[i]->setChecked(static_cast<size_t>(q) == i);
    listTrack_->setEnabled(q == SimQuelle::Track);
    listRoute_->setEnabled(q == SimQuelle::Route);
    for (size_t i = 0; i < 8; ++i) Show(boxes_[i], o.NMEABox[i]);
    Show(boxDate_, o.NMEABoxDate);
    Show(boxTime_, o.NMEABoxTime);
    Show(fach_, o.NMEASimFaktor);
    geoid_->setChecked(o.NMEASimCheckBox[0] == 1);
    const SimEngine& e = *engine_;
    for (size_t i = 0; i < 8; ++i) Show(par_[i], e.anzeige.LabelNMEAPar[i]);
    {
        const QSignalBlocker block(bar_);
        bar_->setRange(e.HScrollMin, e.HScrollMaxValue);
        bar_->setValue(e.HScrollNMEA);
        bar_->setEnabled(q != SimQuelle::Direkt);
    }
    Show(minPoints_, e.anzeige.LabelMinPoints);
    Show(maxPoints_, e.anzeige.LabelMaxPoints);
    Show(countPoints_, e.anzeige.LabelCountPoints);
    Show(dist_, e.anzeige.LabelDist);
    Show(winkel_, e.anzeige.LabelWinkel);
    Show(name_, e.anzeige.LabelName);
    Show(desc_, e.anzeige.LabelDesc);
    sending_->setStyleSheet(e.anzeige.Sendet ? "background-color: #20c020; border-radius: 9px;"
                                             : "background-color: #404040; border-radius: 9px;");
    Show(status_, e.anzeige.Status);
}

void FormNMEASim::tick() {
    engine_->Tick();
    refresh();
    schedule();
}

void FormNMEASim::schedule() {
    const double due = engine_->timers.nextDue();
    if (!std::isfinite(due)) {
        timer_->stop();
        return;
    }
    const double wait = due - session_.platform.now();
    timer_->start(wait > 0 ? static_cast<int>(std::ceil(wait * 1000)) : 0);
}

bool FormNMEASim::eventFilter(QObject* watched, QEvent* event) {
    // The port's path is typed in its box: there the arrows move the cursor.
    const bool inPort = watched == port_ || watched == port_->lineEdit();
    if (event->type() == QEvent::KeyPress && !inPort && GewaehlteQuelle(session_.options) == SimQuelle::Direkt) {
        const int code = KeyCode(static_cast<QKeyEvent*>(event)->key());
        if (code != 0) {
            engine_->Taste(code);
            refresh();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void FormNMEASim::closeEvent(QCloseEvent* event) {
    engine_->SimStop();
    refresh();
    schedule();
    QMainWindow::closeEvent(event);
}

}  // namespace ortelix
