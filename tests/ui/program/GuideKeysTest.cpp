/// The table of keys in docs/guide.md matches the keys of the windows.
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

/// The keys by the places that the guide names, spelt as Qt does.
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

/// The keys of a window's actions and shortcuts: those that work in this window only, or those that
/// work everywhere.
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

/// Adds the mnemonic of a menu or button.
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

/// Some keys are events of the window and only named in its menu's texts.
TEST(GuideKeys, OfAnyWindowAreThoseOfTheWholeProgram)
{
    ProgramRig rig;
    frmMain& frm = rig.StartWithEngine();
    Keys asKey = ShortcutsOf(frm, true);
    for (const QAction* pAction : frm.findChildren<QAction*>())
        if (const qsizetype nTab = pAction->text().indexOf(u'\t'); nTab >= 0)
            asKey.insert(pAction->text().mid(nTab + 1).toStdString());
    asKey.merge(Keys{"Menu", "Shift+F10", "Ctrl+C"});  // these belong to tables and fields
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

/// Sends the keys of a place to its control, which must accept each.
void KeysTaken(const char* sPlace, QObject& control)
{
    const Keys asKey = GuideKeys()[sPlace];
    EXPECT_GT(asKey.size(), 3U) << sPlace;
    for (const std::string& sKey : asKey) {
        const QKeyCombination key = QKeySequence(QString::fromStdString(sKey))[0];
        // A key that a control ignores goes to its window.
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

/// Every window's key with Ctrl or Alt is in the guide, apart from mnemonics.
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
