#include "forms/FormTrackAuswahl.h"

#include <QDate>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace ortelix {

namespace {
// The reader names each date as "2024-06-01"; the user reads "01.06.2024".
QString GermanDate(const std::string& iso) {
    const QString text = QString::fromStdString(iso);
    const QDate d = QDate::fromString(text, Qt::ISODate);
    return d.isValid() ? d.toString("dd.MM.yyyy") : text;
}
}  // namespace

FormTrackAuswahl::FormTrackAuswahl(const std::vector<std::string>& dates, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)) {
    setObjectName("FormTrackAuswahl");
    setWindowTitle(QString::fromUtf8("Tage auswählen"));
    list_->setObjectName("List1");
    for (const std::string& d : dates) {
        auto* item = new QListWidgetItem(GermanDate(d), list_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
    auto* all = new QPushButton("Alle", this);
    all->setObjectName("Command1");
    auto* none = new QPushButton("Keine", this);
    none->setObjectName("Command2");
    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("CommandOK");
    ok->setDefault(true);
    connect(all, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(all);
    buttons->addWidget(none);
    buttons->addStretch();
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(buttons);
}

std::vector<bool> FormTrackAuswahl::ticked() const {
    std::vector<bool> t;
    t.reserve(static_cast<size_t>(list_->count()));
    for (int i = 0; i < list_->count(); ++i) t.push_back(list_->item(i)->checkState() == Qt::Checked);
    return t;
}

void FormTrackAuswahl::tickAll(bool on) {
    for (int i = 0; i < list_->count(); ++i) list_->item(i)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
}

std::vector<bool> FormTrackAuswahl::choose(const std::vector<std::string>& dates, QWidget* parent) {
    FormTrackAuswahl form(dates, parent);
    form.exec();  // closing the form by any means answers with the ticks as they stand
    return form.ticked();
}

}  // namespace ortelix
