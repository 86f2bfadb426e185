/// The table of keys in docs/guide.md has those of the windows.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <QMenuBar>
#include <QShortcut>
#include <map>
#include <set>
#include <string>

#include "house/DocumentTable.h"
#include "ui/curves/frmCurves.h"
#include "ui/map/HourBar.h"
#include "ui/map/frmMap.h"
#include "ui/program/ProgramRig.h"

namespace {

using Keys = std::set<std::string>;

void KeyAdd(const QKeySequence& key, Keys& asKey)
{
    if (!key.isEmpty())
        asKey.insert(key.toString(QKeySequence::PortableText).toStdString());
}

/// Keys by the place that the guide names; as Qt writes them.
std::map<std::string, Keys> GuideKeys()
{
    const std::map<std::string, Keys> words{{"arrows", {"Left", "Right", "Up", "Down"}},
                                            {"menu key", {"Menu"}},
                                            {"Enter", {"Enter", "Return"}}};
    std::map<std::string, Keys> keysOfPlace;
    std::string sPlace;
    for (const TableRow& asCell : TableRead("guide.md", "| where | key | what it does |")) {
        if (!asCell.at(0).empty())
            sPlace = asCell.at(0);
        std::istringstream stm(asCell.at(1));
        for (std::string sKey; std::getline(stm, sKey, ',');) {
            sKey.erase(0, sKey.find_first_not_of(' '));
            std::erase(sKey, '`');
            const auto it = words.find(sKey);
            const Keys asKey = it == words.end() ? Keys{sKey} : it->second;
            keysOfPlace[sPlace].insert(asKey.begin(), asKey.end());
        }
    }
    return keysOfPlace;
}

/// Keys of a window's actions and shortcuts in a context: those that work in it alone, or in all.
Keys ShortcutsOf(const QWidget& window, bool bEverywhere)
{
    Keys asKey;
    const auto Fits = [&](Qt::ShortcutContext eContext) {
        return (eContext == Qt::ApplicationShortcut) == bEverywhere;
    };
    for (const QAction* pAction : window.findChildren<QAction*>())
        if (Fits(pAction->shortcutContext()) && pAction->objectName().startsWith(u"mnu"))
            KeyAdd(pAction->shortcut(), asKey);
    for (const QShortcut* pShortcut : window.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly))
        if (Fits(pShortcut->context()))
            KeyAdd(pShortcut->key(), asKey);
    return asKey;
}

/// The letter of a menu or button.
void LetterAdd(const QString& sText, Keys& asKey) { KeyAdd(QKeySequence::mnemonic(sText), asKey); }

TEST(GuideKeys, OfTheMainWindowAreItsMenusAndButtons)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    Keys asKey = ShortcutsOf(frm, false);
    for (const QAction* pMenu : frm.menuBar()->actions()) LetterAdd(pMenu->text(), asKey);
    for (const QAbstractButton* pButton : frm.findChildren<QAbstractButton*>())
        KeyAdd(pButton->shortcut(), asKey);
    asKey.insert("Tab");
    EXPECT_EQ(GuideKeys()["main window"], asKey);
}

/// Some are the window's own events and stand behind the words of its menu.
TEST(GuideKeys, OfAnyWindowAreThoseOfTheWholeProgram)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    Keys asKey = ShortcutsOf(frm, true);
    for (const QAction* pAction : frm.findChildren<QAction*>())
        if (const qsizetype nTab = pAction->text().indexOf(u'\t'); nTab >= 0)
            asKey.insert(pAction->text().mid(nTab + 1).toStdString());
    asKey.merge(Keys{"Menu", "Shift+F10", "Ctrl+C"});  // of the tables and fields themselves
    EXPECT_EQ(GuideKeys()["any window"], asKey);
}

TEST(GuideKeys, OfTheTableHaveItsShortcuts)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    Keys asKey;
    for (const QShortcut* pShortcut : frm.grdData->findChildren<QShortcut*>())
        KeyAdd(pShortcut->key(), asKey);
    EXPECT_FALSE(asKey.empty());
    asKey.merge(Keys{"Left", "Right", "Up", "Down", "Enter", "Return", "Menu"});
    EXPECT_EQ(GuideKeys()["table"], asKey);
}

TEST(GuideKeys, OfTheMapAreItsShortcuts)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    frm.mnuViewWorldMap->trigger();
    Keys asKey = ShortcutsOf(*frm.m_pMap, false);
    asKey.insert("Tab");
    EXPECT_EQ(GuideKeys()["map"], asKey);
}

/// Presses the keys of a place, each of which the control has to take.
void KeysTaken(const char* sPlace, QObject& control)
{
    const Keys asKey = GuideKeys()[sPlace];
    EXPECT_GT(asKey.size(), 3U) << sPlace;
    for (const std::string& sKey : asKey) {
        const QKeyCombination key = QKeySequence(QString::fromStdString(sKey))[0];
        // A key that a control leaves to its window is that window's.
        QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers());
        control.event(&event);
        EXPECT_TRUE(event.isAccepted()) << sPlace << ": " << sKey;
    }
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    control.event(&event);
    EXPECT_FALSE(event.isAccepted()) << sPlace;
}

TEST(GuideKeys, OfControlsAreTakenByThem)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    KeysTaken("position", *frm.txtLat0);
    frm.mnuPlanCurves->trigger();
    KeysTaken("curves", *frm.m_pCurves->pctCurves);
    frm.mnuViewWorldMap->trigger();
    KeysTaken("map, bar of hours", *frm.m_pMap->findChild<HourBar*>()->hscHour);
}

/// No window has a key with Ctrl or Alt, save letters of its own words, that the guide leaves out.
TEST(GuideKeys, OfEveryWindowAreToldSomewhere)
{
    Keys asTold;
    for (const auto& [sPlace, asKey] : GuideKeys()) asTold.insert(asKey.begin(), asKey.end());
    ProgramRig rig;
    int nKeys = 0;
    for (const ProgramWindow& window : rig.WindowsOpen()) {
        for (const bool bEverywhere : {false, true}) {
            for (const std::string& sKey : ShortcutsOf(*window.pWidget, bEverywhere)) {
                EXPECT_TRUE(asTold.contains(sKey)) << window.sName << " " << sKey;
                ++nKeys;
            }
        }
    }
    EXPECT_GT(nKeys, 20);
}

}  // namespace
