#include "forms/FormTrackZeit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "core/ModulShared.h"

namespace ortelix {

namespace {
// A typed comma becomes a point as it is typed.
QLineEdit* NumberBox(QWidget* parent, const char* name, const char* text) {
    auto* e = new QLineEdit(QString::fromUtf8(text), parent);
    e->setObjectName(name);
    QObject::connect(e, &QLineEdit::textEdited, e, [e](const QString& t) {
        if (!t.contains(',')) return;
        const int pos = e->cursorPosition();
        e->setText(QString(t).replace(',', '.'));
        e->setCursorPosition(pos);
    });
    return e;
}
}  // namespace

FormTrackZeit::FormTrackZeit(QWidget* parent) : QDialog(parent) {
    setObjectName("FormTrackZeit");
    setWindowTitle("Track anpassen");
    auto* grid = new QGridLayout(this);
    opt_[0] = new QRadioButton(QString::fromUtf8("Die Zeit der Trackpunktet wird aus der Geschwindigkeit berechnet"), this);
    opt_[1] = new QRadioButton(QString::fromUtf8("Die Trackpunkte bekommen einen festen Zeitabstand"), this);
    opt_[0]->setObjectName("Opt0");
    opt_[1]->setObjectName("Opt1");
    opt_[0]->setChecked(true);
    txtSpeed_ = NumberBox(this, "TxtSpeed", "20");
    txtTime_ = NumberBox(this, "TxtTime", "");
    grid->addWidget(opt_[0], 0, 0, 1, 2);
    grid->addWidget(new QLabel(QString::fromUtf8("Geschwindigkeit [km/h]"), this), 1, 0);
    grid->addWidget(txtSpeed_, 1, 1);
    grid->addWidget(opt_[1], 2, 0, 1, 2);
    grid->addWidget(new QLabel(QString::fromUtf8("Zeit [Sekunden] "), this), 3, 0);
    grid->addWidget(txtTime_, 3, 1);
    chk_ = new QCheckBox(QString::fromUtf8(" überschreiben"), this);
    chk_->setObjectName("Chk");
    chk_->setToolTip(QString::fromUtf8("Original Geschwindigkeit und Richtung werden durch berechnete Werte ersetzt"));
    grid->addWidget(chk_, 4, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("CmdOK");
    auto* cancel = new QPushButton("Abbrechen", this);
    cancel->setObjectName("CmdAbbrechen");
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 5, 0, 1, 2);
}

TrackZeitWahl FormTrackZeit::wahl() const {
    TrackZeitWahl w;
    w.bySpeed = opt_[0]->isChecked();
    w.speedKmh = LeadingNumber(txtSpeed_->text().toStdString());
    w.seconds = LeadingNumber(txtTime_->text().toStdString());
    w.overwrite = chk_->isChecked();
    return w;
}

}  // namespace ortelix
