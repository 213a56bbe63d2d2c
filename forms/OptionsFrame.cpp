#include "forms/OptionsFrame.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "core/Session.h"

namespace ortelix {

namespace {
// Colours are stored as the system's RGB number: red in the low byte.
QColor ToColor(int v) { return QColor(v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF); }
int FromColor(const QColor& c) { return c.red() | (c.green() << 8) | (c.blue() << 16); }

void ShowColour(QPushButton* b, int v) {
    b->setStyleSheet(QString("background-color: %1").arg(ToColor(v).name()));
}
}  // namespace

OptionsFrame::OptionsFrame(Session& session, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent), session_(session), layout_(new QFormLayout(this)) {}

void OptionsFrame::addCheck(int index, const QString& caption, const QString& tip) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(QString("Check%1").arg(index));
    box->setToolTip(tip);
    int& option = session_.options.Check.at(static_cast<size_t>(index));
    connect(box, &QCheckBox::toggled, this, [&option](bool on) { option = on ? 1 : 0; });
    loaders_.push_back([box, &option] { box->setChecked(option != 0); });
    layout_->addRow(box);
}

void OptionsFrame::addNumber(int index, const QString& caption, const QString& tip) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString("KarteKoordInput%1").arg(index));
    edit->setToolTip(tip);
    std::string& option = session_.options.KarteKoordInput.at(static_cast<size_t>(index));
    connect(edit, &QLineEdit::textEdited, this, [&option](const QString& t) { option = t.toStdString(); });
    loaders_.push_back([edit, &option] { edit->setText(QString::fromStdString(option)); });
    layout_->addRow(caption, edit);
}

void OptionsFrame::addText(int index, const QString& caption) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString("Text%1").arg(index));
    std::string& option = session_.options.Text.at(static_cast<size_t>(index));
    connect(edit, &QLineEdit::textEdited, this, [&option](const QString& t) { option = t.toStdString(); });
    loaders_.push_back([edit, &option] { edit->setText(QString::fromStdString(option)); });
    layout_->addRow(caption, edit);
}

void OptionsFrame::addTime(int index, const QString& caption, const QString& tip) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString("TextZeit%1").arg(index));
    edit->setToolTip(tip);
    std::string& option = session_.options.TextZeit.at(static_cast<size_t>(index));
    connect(edit, &QLineEdit::textEdited, this, [&option](const QString& t) { option = t.toStdString(); });
    loaders_.push_back([edit, &option] { edit->setText(QString::fromStdString(option)); });
    layout_->addRow(caption, edit);
}

void OptionsFrame::addList(int index, const QString& caption, const QStringList& entries, const QString& tip) {
    auto* list = new QComboBox(this);
    list->setObjectName(QString("List%1").arg(index));
    list->addItems(entries);
    list->setToolTip(tip);
    int& option = session_.options.List.at(static_cast<size_t>(index));
    connect(list, &QComboBox::activated, this, [&option](int i) { option = i; });
    loaders_.push_back([list, &option] { list->setCurrentIndex(option < list->count() ? option : -1); });
    layout_->addRow(caption, list);
}

void OptionsFrame::addListBox(int index, const QString& caption, const QStringList& entries) {
    auto* list = new QListWidget(this);
    list->setObjectName(QString("List%1").arg(index));
    list->addItems(entries);
    for (int i = 0; i < list->count(); ++i) list->item(i)->setToolTip(entries[i]);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setUniformItemSizes(true);
    int& option = session_.options.List.at(static_cast<size_t>(index));
    connect(list, &QListWidget::currentRowChanged, this, [&option](int row) { option = row; });
    loaders_.push_back([list, &option] { list->setCurrentRow(option < list->count() ? option : -1); });
    layout_->addRow(new QLabel(caption, this));
    layout_->addRow(list);
}

void OptionsFrame::addListFeld(int index, const QString& caption) {
    auto* list = new QComboBox(this);
    list->setObjectName(QString("ListFeld%1").arg(index));
    list->addItem("kein");
    for (int i = 1; i <= 30; ++i) list->addItem(QString::number(i));
    int& option = session_.options.ListFeld.at(static_cast<size_t>(index));
    connect(list, &QComboBox::activated, this, [&option](int i) { option = i; });
    loaders_.push_back([list, &option] { list->setCurrentIndex(option < list->count() ? option : -1); });
    layout_->addRow(caption, list);
}

void OptionsFrame::addColour(int index, const QString& caption) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString("CommandSwissWPFarbe%1").arg(index));
    button->setFixedWidth(60);
    int& option = session_.options.CommandSwissWPFarbe.at(static_cast<size_t>(index));
    connect(button, &QPushButton::clicked, this, [this, button, &option] {
        const QColor c = QColorDialog::getColor(ToColor(option), this);
        if (!c.isValid()) return;
        option = FromColor(c);
        ShowColour(button, option);
    });
    loaders_.push_back([button, &option] { ShowColour(button, option); });
    layout_->addRow(caption, button);
}

void OptionsFrame::addNote(const QString& text) {
    auto* label = new QLabel(text, this);
    label->setWordWrap(true);
    layout_->addRow(label);
}

void OptionsFrame::refresh() {
    for (auto& load : loaders_) load();
}

}  // namespace ortelix
