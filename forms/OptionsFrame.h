#pragma once
// A settings frame of the main form: a titled page whose widgets are bound
// to the options table. Widgets write the option on every change; refresh()
// reads all of them again (after loading or resetting the settings).
#include <QGroupBox>
#include <QStringList>
#include <functional>
#include <vector>

class QFormLayout;

namespace ortelix {

class Session;

class OptionsFrame : public QGroupBox {
    Q_OBJECT
public:
    OptionsFrame(Session& session, const QString& caption, QWidget* parent = nullptr);

    // Check(i) of the main form, or of FormMapExp with mapExp.
    void addCheck(int index, const QString& caption, const QString& tip = {});
    // KarteKoordInput(i), a text field holding a number.
    void addNumber(int index, const QString& caption, const QString& tip = {});
    // Text(i).
    void addText(int index, const QString& caption);
    // TextZeit(i), a time of day "hh:mm:ss".
    void addTime(int index, const QString& caption, const QString& tip = {});
    // List(i) with its entries.
    void addList(int index, const QString& caption, const QStringList& entries, const QString& tip = {});
    // List(i) as a list box under its caption, one click choosing an entry.
    // Entries too long for the frame are elided and shown whole as tooltips.
    void addListBox(int index, const QString& caption, const QStringList& entries);
    // ListFeld(i): "kein", then the columns 1 to 30.
    void addListFeld(int index, const QString& caption);
    // CommandSwissWPFarbe(i): a button showing the colour.
    void addColour(int index, const QString& caption);
    // A line of text without an option.
    void addNote(const QString& text);

public slots:
    void refresh();

private:
    Session& session_;
    QFormLayout* layout_;
    std::vector<std::function<void()>> loaders_;
};

}  // namespace ortelix
