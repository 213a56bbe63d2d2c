// The plan page of the export form: the export frames (one shown at a time)
// with their buttons, the part lists and labels, and the corner entry.
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "appformats/ModuleTop50Karte.h"
#include "forms/FormMapExp.h"
#include "forms/FormMapExpCorners.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

QString Q(const char* utf8) { return QString::fromUtf8(utf8); }
QString Q(const std::string& s) { return QString::fromStdString(s); }

QPushButton* Button(QWidget* parent, const char* name, const char* caption, bool enabled = true) {
    auto* b = new QPushButton(Q(caption), parent);
    b->setObjectName(name);
    b->setEnabled(enabled);
    return b;
}

QLabel* Label(QWidget* parent, const char* name, const QString& text = {}) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    return l;
}

}  // namespace

QWidget* FormMapExp::buildPlanPage() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(buildFrames());
    layout->addWidget(buildPartBox());
    layout->addWidget(buildCornerEntry());
    layout->addStretch(1);
    return page;
}

// The export buttons lead into the viewer exports, which this program does
// not drive yet: they stand in their frames, disabled.
QWidget* FormMapExp::buildFrames() {
    auto* holder = new QWidget(this);
    auto* layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    auto frame = [&](KartenFrame k, const char* name, const char* caption) {
        auto* f = new QGroupBox(Q(caption), holder);
        f->setObjectName(name);
        new QHBoxLayout(f);
        f->hide();
        frames_[k] = f;
        layout->addWidget(f);
        return f;
    };
    QGroupBox* top50 = frame(KartenFrame::Top50, "FrameTop50Kartenexport", "Top50 Kartenexport");
    top50->layout()->addWidget(Button(top50, "CommandKarteTop50", "Weiter Top50", false));
    QPushButton* kartew = Button(top50, "CommandKartew", "Karte");
    top50->layout()->addWidget(kartew);
    top50Karte_ = Label(top50, "LabelTop50Karte");
    top50->layout()->addWidget(top50Karte_);
    // The user picks the map himself: automatic choice off, back to the
    // main form's list of maps.
    connect(kartew, &QPushButton::clicked, this, [this] {
        session_.options.Check[0] = 0;
        close();
        if (QWidget* main = parentWidget())
            QMetaObject::invokeMethod(main, "runCommand", Q_ARG(QString, QStringLiteral("MenSetUpTop50Karte")));
    });

    QGroupBox* tk25 = frame(KartenFrame::Tk25, "FrameTk25HeKartenexport", "Tk25 Hessen Kartenexport");
    tk25->layout()->addWidget(Button(tk25, "CommandKarteTK25", "Weiter Tk25", false));

    QGroupBox* mm = frame(KartenFrame::MagicMaps, "FrameMMKartenexport", "MagicMaps Kartenexport");
    mm->layout()->addWidget(Button(mm, "CommandKarteMM", "Weiter MagicMaps", false));
    // The speed buttons: the wait for MagicMaps and the delay factor.
    struct Speed {
        const char* name;
        const char* caption;
        const char* wait;
        const char* factor;
    };
    for (const Speed& sp : {Speed{"CmdExGesch1", "schnell", "0", "0.5"}, Speed{"CmdExGesch2", "normal", "1", "1"},
                            Speed{"CmdExGesch3", "langam", "2", "3"}}) {
        QPushButton* b = Button(mm, sp.name, sp.caption);
        mm->layout()->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, sp] {
            session_.options.ZahlInput[3] = sp.wait;
            session_.options.ZahlInput[4] = sp.factor;
            refresh();
        });
    }

    QGroupBox* swiss = frame(KartenFrame::Swiss, "FrameSwissKartenexport", "Swiss Map Kartenexport");
    swissV1_ = Button(swiss, "CommandWeiterSW", "Weiter Swiss Map Version 1", false);
    swissV3_ = Button(swiss, "CommandWeiterSWV3", "Weiter Swiss Map Version 3", false);
    swiss->layout()->addWidget(swissV1_);
    swiss->layout()->addWidget(swissV3_);

    QGroupBox* ge = frame(KartenFrame::GoogleEarth, "FrameGEKartenexp", "Google Earth Kartenexport");
    ge->layout()->addWidget(Button(ge, "CmdGEWeiter", "Weiter Google Earth", false));
    ge->layout()->addWidget(Button(ge, "CmdGEMapCheck", "GE-Check", false));

    QGroupBox* ozi = frame(KartenFrame::OziMap, "FrameOziMapKartenexport", "OziMap Kartenexport");
    ozi->layout()->addWidget(Button(ozi, "CommandKarteOziMap", "Weiter OziMap", false));
    return holder;
}

QWidget* FormMapExp::buildPartBox() {
    auto* box = new QGroupBox(Q("Kartenteile"), this);
    box->setObjectName("FrameKartenteile");
    auto* grid = new QGridLayout(box);
    listVon_ = new QComboBox(box);
    listVon_->setObjectName("ListKartenTeil");
    listVon_->setToolTip(Q("Ab diesem Kartenteil wird exportiert"));
    listBis_ = new QComboBox(box);
    listBis_->setObjectName("ListKartenTeilBis");
    listBis_->setToolTip(Q("Bis zu einschließlich diesem Kartenteil wird exportiert"));
    labelTeile_ = Label(box, "LabelKartenteile");
    grid->addWidget(new QLabel(Q("von"), box), 0, 0);
    grid->addWidget(listVon_, 0, 1);
    grid->addWidget(new QLabel(Q("bis"), box), 0, 2);
    grid->addWidget(listBis_, 0, 3);
    grid->addWidget(labelTeile_, 0, 4);
    connect(listVon_, &QComboBox::activated, this, [this](int row) { showPart(row + 1); });

    const char* kanten[4] = {"West", "Nord", "Ost", "Süd"};
    for (int i = 0; i < 4; ++i) {
        grid->addWidget(new QLabel(Q(kanten[i]), box), 1 + i / 2, (i % 2) * 2);
        grenzen_[static_cast<size_t>(i)] = Label(box, QString("LabelKoordKartenGrenze%1").arg(i).toUtf8());
        grid->addWidget(grenzen_[static_cast<size_t>(i)], 1 + i / 2, (i % 2) * 2 + 1);
    }
    labelInfo_ = Label(box, "LabelInfo");
    grid->addWidget(labelInfo_, 3, 0, 1, 5);
    direktInfo_ = Label(box, "LabelKarteDirektInfo");
    grid->addWidget(direktInfo_, 4, 0, 1, 5);

    auto* buttons = new QHBoxLayout;
    QPushButton* check = Button(box, "CommandMapPath", "Map-Check");
    QPushButton* koord = Button(box, "CommandKoordEingabe", "Koodinaten");
    koord->setToolTip(Q("Die Eckkoordinaten können eingegeben oder geändert werden"));
    buttons->addWidget(check);
    buttons->addWidget(koord);
    buttons->addStretch(1);
    grid->addLayout(buttons, 5, 0, 1, 5);
    connect(check, &QPushButton::clicked, this, [this] { mapCheck(); });
    connect(koord, &QPushButton::clicked, this, [this] { openCornerEntry(); });
    return box;
}

QWidget* FormMapExp::buildCornerEntry() {
    cornerEntry_ = new QGroupBox(Q("Koordinaten Eingabe"), this);
    cornerEntry_->setObjectName("FrameKoordEingabe");
    auto* grid = new QGridLayout(cornerEntry_);
    grid->addWidget(new QLabel(Q("Grad"), cornerEntry_), 0, 1);
    grid->addWidget(new QLabel(Q("Minuten"), cornerEntry_), 0, 2);
    const char* kanten[4] = {"Nord", "West", "Süd", "Ost"};
    for (size_t i = 0; i < 8; ++i) {
        auto* e = new QLineEdit(cornerEntry_);
        e->setObjectName(QString("KarteKoordInput%1").arg(i));
        std::string& option = session_.options.MapExpKoordInput[i];
        connect(e, &QLineEdit::textEdited, this, [&option](const QString& t) { option = t.toStdString(); });
        loaders_.push_back([e, &option] { e->setText(Q(option)); });
        koord_[i] = e;
        if (i % 2 == 0) grid->addWidget(new QLabel(Q(kanten[i / 2]), cornerEntry_), static_cast<int>(i / 2) + 1, 0);
        grid->addWidget(e, static_cast<int>(i / 2) + 1, static_cast<int>(i % 2) + 1);
    }
    auto* hilfe = new QLabel(Q("50 Grad 30 Minuten 30 Sekunden können eingegeben werden als: 50 in das Gradfeld und "
                               "30.5 in das Minutenfeld. Oder aber auch als 50.50833 Grad in das Gradfeld."),
                             cornerEntry_);
    hilfe->setWordWrap(true);
    grid->addWidget(hilfe, 5, 0, 1, 3);
    auto* buttons = new QHBoxLayout;
    QPushButton* ok = Button(cornerEntry_, "CommandKoord", "OK");
    QPushButton* del = Button(cornerEntry_, "CmdKoordDel", "Löschen");
    QPushButton* cancel = Button(cornerEntry_, "CommandKoordEinAbbrechen", "Abbrechen");
    buttons->addWidget(ok);
    buttons->addWidget(del);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 6, 0, 1, 3);
    connect(ok, &QPushButton::clicked, this, [this] {
        const size_t nr = EckenUebernehmen(session_, static_cast<size_t>(session_.plan.TeilNummer));
        cornerEntry_->hide();
        showPlan();
        showPart(static_cast<int>(nr));
        fitToContent();
    });
    connect(del, &QPushButton::clicked, this, [this] {
        if (!TeilLoeschen(session_, static_cast<size_t>(session_.plan.TeilNummer))) return;
        showPlan();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        cornerEntry_->hide();
        fitToContent();
    });
    cornerEntry_->hide();
    return cornerEntry_;
}

void FormMapExp::openCornerEntry() {
    const auto& teile = session_.plan.KartenTeilListe;
    const int nr = session_.plan.TeilNummer;
    if (nr >= 1 && nr <= static_cast<int>(teile.size()))
        session_.options.MapExpKoordInput = EckenFelder(teile[static_cast<size_t>(nr - 1)]);
    for (const auto& load : loaders_) load();
    showSettings(false);
    cornerEntry_->show();
    fitToContent();
}

void FormMapExp::showFrame(KartenFrame frame) {
    for (auto& [k, f] : frames_) f->setVisible(k == frame);
    swissV1_->setVisible(kartenTyp_ != 7);
    swissV3_->setVisible(kartenTyp_ == 7);
}

// The lists hold the numbers 1 to n; "von" stands on the part shown, "bis"
// on the last part.
void FormMapExp::showPlan() {
    const int n = static_cast<int>(session_.plan.KartenTeilListe.size());
    QStringList nummern;
    for (int i = 1; i <= n; ++i) nummern << QString::number(i);
    listVon_->clear();
    listBis_->clear();
    listVon_->addItems(nummern);
    listBis_->addItems(nummern);
    labelTeile_->setText(QString::number(n) + Q(" Teile"));
    if (n >= 2) listBis_->setCurrentIndex(n - 1);
    top50Karte_->setText(Q(KartenAnzeige(session_)));
    int nr = session_.plan.TeilNummer;
    if (nr < 1 || nr > n) nr = n > 0 ? 1 : 0;
    showPart(nr);
}

void FormMapExp::showPart(int nr) {
    const KartenTeilAnzeige a = ZeigeKartenTeil(session_, static_cast<size_t>(nr > 0 ? nr : 0));
    for (size_t i = 0; i < 4; ++i) grenzen_[i]->setText(Q(a.Grenzen[i]));
    labelInfo_->setText(Q(a.Info));
    if (nr >= 1 && nr <= listVon_->count()) {
        listVon_->setCurrentIndex(nr - 1);
        const KartenTeil& t = session_.plan.KartenTeilListe[static_cast<size_t>(nr - 1)];
        direktInfo_->setText(QString::number(nr) + " " + Q(t.KartenName));
    } else {
        direktInfo_->clear();
    }
}

}  // namespace ortelix
