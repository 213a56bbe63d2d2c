#include "forms/FrameInfo.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "core/InfoFrame.h"

namespace ortelix {

FrameInfo::FrameInfo(QWidget* parent) : QGroupBox("Information", parent) {
    setObjectName("FrameInfo");
    auto* outer = new QVBoxLayout(this);
    auto* counts = new QFormLayout;
    outer->addLayout(counts);
    for (int i : {0, 1, 2, 3, 4, 5, 6, 13}) {
        auto* value = new QLabel("0", this);
        value->setObjectName(QString("LabelInfo%1").arg(i));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(80);
        counts->addRow(QString::fromUtf8(InfoCaption(i).data(), static_cast<qsizetype>(InfoCaption(i).size())), value);
        LabelInfo[static_cast<size_t>(i)] = value;
    }
    for (int i : {7, 8, 9, 10}) {
        auto* notice = new QLabel(this);
        notice->setObjectName(QString("LabelInfo%1").arg(i));
        if (i != 10) notice->setStyleSheet("color: #b00000");
        outer->addWidget(notice);
        LabelInfo[static_cast<size_t>(i)] = notice;
    }
    outer->addStretch();
}

void FrameInfo::display(const InfoFrame& v) {
    for (size_t i = 0; i < LabelInfo.size(); ++i)
        if (LabelInfo[i]) LabelInfo[i]->setText(QString::fromStdString(v.LabelInfo[i]));
}

}  // namespace ortelix
