#include "forms/FrameWPColor.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace ortelix {

namespace {
QColor FromStore(int32_t bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }
int32_t ToStore(const QColor& c) { return c.red() | (c.green() << 8) | (c.blue() << 16); }
}  // namespace

FrameWPColor::FrameWPColor(QWidget* parent, std::function<void(int32_t, int32_t)> apply)
    : QFrame(parent), apply_(std::move(apply)) {
    setObjectName("FrameWPColor");
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    auto* grid = new QGridLayout(this);
    const char* captions[2] = {"Textfarbe", "Hintergrundfarbe"};
    for (int i = 0; i < 2; ++i) {
        auto* b = new QPushButton(QString::fromUtf8(captions[i]), this);
        b->setObjectName(QString("CmdWPFaebe%1").arg(i));
        connect(b, &QPushButton::clicked, this, [this, i] { choose(i); });
        shape_[i] = new QLabel(this);
        shape_[i]->setObjectName(QString("Shape%1").arg(i));
        shape_[i]->setFixedSize(32, 20);
        shape_[i]->setAutoFillBackground(true);
        grid->addWidget(shape_[i], i, 0);
        grid->addWidget(b, i, 1);
    }
    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("Command1");
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("Command2");
    connect(ok, &QPushButton::clicked, this, [this] { apply_(fore_, back_); });
    connect(cancel, &QPushButton::clicked, this, &QWidget::hide);
    grid->addWidget(ok, 2, 0);
    grid->addWidget(cancel, 2, 1);
    showSwatches();
}

void FrameWPColor::setColours(int32_t fore, int32_t back) {
    fore_ = fore;
    back_ = back;
    showSwatches();
}

void FrameWPColor::showSwatches() {
    const int32_t colours[2] = {fore_, back_};
    for (int i = 0; i < 2; ++i) {
        QPalette pal = shape_[i]->palette();
        pal.setColor(QPalette::Window, FromStore(colours[i]));
        shape_[i]->setPalette(pal);
    }
}

void FrameWPColor::choose(int index) {
    int32_t& c = index == 0 ? fore_ : back_;
    const QColor picked = QColorDialog::getColor(FromStore(c), this, QString::fromUtf8("Farbe wählen"));
    if (!picked.isValid()) return;
    c = ToStore(picked);
    showSwatches();
}

}  // namespace ortelix
