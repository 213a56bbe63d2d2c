// Keyboard mnemonics of the menus, and submenus whose commands are all missing.
#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTest>
#include <functional>

#include "commands/CommandTable.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/FormMain.h"
#include "forms/GuiSupport.h"
#include "forms/Mnemonics.h"

namespace ortelix {
namespace {

using testgui::Gui;
using testgui::Text;

TEST(Mnemonics, EachCaptionGetsALetterNoEarlierSiblingUses) {
    EXPECT_EQ(WithMnemonics({"Eingang", "Ausgang", "Tools", "Einstellungen", "Hilfe", "Ende"}),
              (QStringList{"&Eingang", "&Ausgang", "&Tools", "E&instellungen", "&Hilfe", "E&nde"}));
    // First letters of words before the letters inside a word; case does not count.
    EXPECT_EQ(WithMnemonics({"Track", "track", "Route OziCE"}), (QStringList{"&Track", "t&rack", "Route &OziCE"}));
    EXPECT_EQ(WithMnemonics({"als Track", "als Route", "als Waypoint"}),
              (QStringList{"&als Track", "als &Route", "als &Waypoint"}));
    // The caption's own "&" shows as it stands; digits count as letters.
    EXPECT_EQ(WithMnemonics({"Map&Guide", "Motorrad Tourenplaner 2005/2006"}),
              (QStringList{"&Map&&Guide", "Motorrad &Tourenplaner 2005/2006"}));
    EXPECT_EQ(WithMnemonics({"ab", "ba", "AB", "12"}), (QStringList{"&ab", "&ba", "AB", "&12"}));
    // "Ende" finds no free letter until "Eingang" moves on to its "i".
    EXPECT_EQ(WithMnemonics({"Eingang", "Neu", "Daten", "Ende"}),
              (QStringList{"E&ingang", "&Neu", "&Daten", "&Ende"}));
    EXPECT_EQ(WithMnemonics({"ab", "a"}), (QStringList{"a&b", "&a"}));
    EXPECT_EQ(WithMnemonics({"ab", "a", "b"}), (QStringList{"&ab", "a", "&b"}));  // two letters, three items
    EXPECT_EQ(WithMnemonics({"Über", "über"}), (QStringList{Text("&Über"), Text("ü&ber")}));

    EXPECT_EQ(WithoutMnemonic("&Map&&Guide"), "Map&Guide");
    EXPECT_EQ(WithoutMnemonic("E&nde"), "Ende");
    EXPECT_EQ(WithoutMnemonic("AB"), "AB");
    EXPECT_EQ(MnemonicOf("Map&&&Guide"), QChar('g'));
    EXPECT_EQ(MnemonicOf("Map&&Guide"), QChar());
    EXPECT_EQ(MnemonicOf("E&nde"), QChar('n'));
}

// Calls visit for the menu bar and every menu below it, with the level's items.
void EachLevel(QWidget* level, const QString& name, const std::function<void(const QString&, QList<QAction*>)>& visit) {
    visit(name, level->actions());
    for (QAction* a : level->actions())
        if (QMenu* sub = a->menu()) EachLevel(sub, name + "/" + WithoutMnemonic(a->text()), visit);
}

TEST(Mnemonics, EveryMenuLevelHasUniqueMnemonicsAndKeepsItsCaptions) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);
    int levels = 0, items = 0;
    QStringList without;
    EachLevel(form.menuBar(), "", [&](const QString& name, const QList<QAction*>& actions) {
        ++levels;
        QSet<QChar> seen;
        QList<QAction*> none;
        for (QAction* a : actions) {
            if (a->isSeparator()) continue;
            ++items;
            const QChar m = MnemonicOf(a->text());
            if (m.isNull()) {
                none << a;
                continue;
            }
            EXPECT_FALSE(seen.contains(m)) << name.toStdString() << ": " << a->text().toStdString();
            seen.insert(m);
        }
        // An item goes without only when each of its letters is a sibling's ("TomTom" in a long menu).
        for (QAction* a : none) {
            without << name + ": " + a->text() + QString(" (%1 items)").arg(actions.size());
            for (QChar c : WithoutMnemonic(a->text())) {
                if (c.isLetterOrNumber()) {
                    EXPECT_TRUE(seen.contains(c.toLower())) << name.toStdString() << ": " << a->text().toStdString();
                }
            }
        }
    });
    EXPECT_GT(levels, 15);
    EXPECT_GT(items, 140);
    EXPECT_LT(without.size(), 5) << without.join("\n").toStdString();
    // The captions stay as the command table gives them.
    for (const Command& c : CommandTable()) {
        if (!c.menu) continue;
        EXPECT_EQ(WithoutMnemonic(form.findChild<QAction*>(c.control)->text()), Text(c.caption)) << c.control;
    }
    EXPECT_EQ(form.findChild<QMenu*>("MenEingang")->title(), "&Eingang");
    EXPECT_EQ(WithoutMnemonic(form.findChild<QMenu*>("MenEingang/Map&Guide")->title()), "Map&Guide");
    EXPECT_EQ(form.findChild<QMenu*>("MenAusgang")->title(), "&Ausgang");

    // Alt+E opens "Eingang".
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    auto* eingang = form.findChild<QMenu*>("MenEingang");
    EXPECT_FALSE(eingang->isVisible());
    QTest::keyClick(&form, Qt::Key_E, Qt::AltModifier);
    QTRY_VERIFY_WITH_TIMEOUT(eingang->isVisible(), 2000);
    eingang->close();
}

TEST(Menus, ASubmenuWhoseCommandsAreAllMissingIsDisabled) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);
    // Map&Guide has no reader yet; OziExplorer has.
    QMenu* mapAndGuide = form.findChild<QMenu*>("MenEingang/Map&Guide");
    ASSERT_NE(mapAndGuide, nullptr);
    EXPECT_FALSE(mapAndGuide->menuAction()->isEnabled());
    EXPECT_EQ(mapAndGuide->menuAction()->toolTip(), Text("Noch nicht verfügbar"));
    QMenu* ozi = form.findChild<QMenu*>("MenEingang/OziExplorer");
    ASSERT_NE(ozi, nullptr);
    EXPECT_TRUE(ozi->menuAction()->isEnabled());

    // For every submenu: enabled exactly when some command below it can run.
    std::function<bool(QMenu*)> anyRuns = [&](QMenu* m) {
        for (QAction* a : m->actions()) {
            if (QMenu* sub = a->menu()) {
                if (anyRuns(sub)) return true;
            } else if (const Command* c = FindCommand(a->objectName().toStdString()); c && FormMain::available(*c)) {
                return true;
            }
        }
        return false;
    };
    int disabled = 0, enabled = 0;
    for (QMenu* m : form.findChildren<QMenu*>()) {
        if (!m->objectName().contains('/')) continue;  // top-level menus
        const bool runs = anyRuns(m);
        EXPECT_EQ(m->menuAction()->isEnabled(), runs) << m->objectName().toStdString();
        ++(runs ? enabled : disabled);
    }
    EXPECT_GT(disabled, 5);
    EXPECT_GT(enabled, 0);
    // The menus of the menu bar stay open to look into, whatever they hold.
    for (QAction* a : form.menuBar()->actions()) EXPECT_TRUE(a->isEnabled()) << a->text().toStdString();
}

}  // namespace
}  // namespace ortelix
