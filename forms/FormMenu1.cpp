#include "forms/FormMenu1.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "commands/CommandTable.h"
#include "forms/FormMain.h"

namespace ortelix {

FormMenu1::FormMenu1(QWidget* owner) : QWidget(owner, Qt::Tool), owner_(owner) {
    setObjectName("FormMenu1");
    setWindowTitle("Ortelix");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    struct Button {
        const char* name;
        const char* caption;
        const char* control;
    };
    const Button buttons[] = {{"MTEdi", "Editor", "MenEinEditor"},
                              {"MTExp", "Karten Export", "MenToolsMapExp"},
                              {"MTTTBit", "TomTom Bitmap", "MenToolsTTBitmap"},
                              {"MTSim", "NMEA-Simulator", "MenToolsNMEASim"},
                              {"MTFilt", "NMEA-Filter", "MenToolsNMEAFilter"}};
    for (const Button& b : buttons) {
        auto* button = new QPushButton(QString::fromUtf8(b.caption), this);
        button->setObjectName(b.name);
        const Command* c = FindCommand(b.control);
        if (!c || !FormMain::available(*c)) {
            button->setEnabled(false);
            button->setToolTip(QString::fromUtf8(kNotAvailable));
        }
        const QString control = b.control;
        connect(button, &QPushButton::clicked, this, [this, control] { emit command(control); });
        layout->addWidget(button);
    }
    auto* end = new QPushButton(QString::fromUtf8("Leiste schließen"), this);
    end->setObjectName("ToEnd");
    connect(end, &QPushButton::clicked, this, &QWidget::close);
    layout->addWidget(end);
    layout->addStretch();
}

void FormMenu1::follow() {
    const QRect frame = owner_->frameGeometry();
    move(frame.x() + frame.width() + kGap, frame.y());
}

}  // namespace ortelix
