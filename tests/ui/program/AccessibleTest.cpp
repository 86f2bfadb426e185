/// What a screen reader finds: every control has a role and a name, as listed in
/// data/accessible.txt. With HOPCAST_RENEW=1 in the environment the list is rewritten instead.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QStackedWidget>
#include <cstdlib>
#include <fstream>
#include <set>

#include "system/FileLib.h"
#include "ui/program/ProgramRig.h"

namespace {

constexpr const char* kListFile = TEST_DATA "/accessible.txt";

std::string RoleName(QAccessible::Role eRole)
{
    const char* sName = QMetaEnum::fromType<QAccessible::Role>().valueToKey(eRole);
    return sName != nullptr ? sName : "Role" + std::to_string(eRole);
}

/// Parts of other controls, which keyboard users never meet.
bool PartIs(QAccessible::Role eRole)
{
    static const std::set<int> kParts{QAccessible::ScrollBar, QAccessible::Grip,
                                      QAccessible::Separator, QAccessible::TitleBar};
    return kParts.contains(eRole);
}

/// Containers of controls. Without a name they say nothing.
bool RoomIs(QAccessible::Role eRole)
{
    static const std::set<int> kRooms{QAccessible::Border,      QAccessible::StaticText,
                                      QAccessible::Client,      QAccessible::Pane,
                                      QAccessible::LayeredPane, QAccessible::Grouping};
    return kRooms.contains(eRole);
}

/// What is inside these is a value, or the toolkit's own business.
bool WholeIs(QAccessible::Role eRole)
{
    static const std::set<int> kWhole{QAccessible::Table,      QAccessible::Tree,
                                      QAccessible::List,       QAccessible::ComboBox,
                                      QAccessible::SpinBox,    QAccessible::EditableText,
                                      QAccessible::WebDocument};
    return kWhole.contains(eRole);
}

/// True for a hidden control. A page hidden behind another one of its stack is listed all the same.
bool HiddenIs(QAccessibleInterface& control)
{
    const auto* pWidget = qobject_cast<const QWidget*>(control.object());
    return pWidget != nullptr && pWidget->isHidden()
           && qobject_cast<const QStackedWidget*>(pWidget->parentWidget()) == nullptr;
}

/// A list's text is its current entry, so its name is its own accessible name or its label's.
QString NameOf(QAccessibleInterface& control)
{
    if (control.role() != QAccessible::ComboBox)
        return control.text(QAccessible::Name);
    const auto* pWidget = qobject_cast<const QWidget*>(control.object());
    if (pWidget != nullptr && !pWidget->accessibleName().isEmpty())
        return pWidget->accessibleName();
    for (const auto& [pOther, eRelation] : control.relations(QAccessible::Label))
        return pOther->text(QAccessible::Name);
    return {};
}

/// The kind of value that is read out after the name.
std::string ValueKind(QAccessibleInterface& control)
{
    if (QAccessibleTableInterface* pTable = control.tableInterface())
        return std::to_string(pTable->rowCount()) + " x " + std::to_string(pTable->columnCount());
    if (control.state().checkable)
        return "on or off";
    if (control.valueInterface() != nullptr)
        return "number";
    if (control.role() != QAccessible::StaticText && control.textInterface() != nullptr)
        return "text";
    return control.role() == QAccessible::ComboBox ? "entry" : "";
}

struct Control {
    std::string sWindow;
    std::string sRole;
    QString sName;
    std::string sValue;
    bool bFocusable;
};

void ControlsTake(const std::string& sWindow, QAccessibleInterface* pControl,
                  std::vector<Control>& aControl)
{
    if (pControl == nullptr || !pControl->isValid() || PartIs(pControl->role()))
        return;
    const QAccessible::Role eRole = pControl->role();
    const QString sName = NameOf(*pControl);
    if (!sName.isEmpty() || !RoomIs(eRole))
        aControl.push_back({sWindow, RoleName(eRole), sName, ValueKind(*pControl),
                            pControl->state().focusable != 0});
    if (WholeIs(eRole))
        return;
    for (int i = 0; i < pControl->childCount(); ++i) {
        QAccessibleInterface* pChild = pControl->child(i);
        // A window's dialogs have their own entries in the list.
        const bool bDialog = pChild != nullptr && pChild->role() == QAccessible::Dialog;
        if (!bDialog && pChild != nullptr && !HiddenIs(*pChild))
            ControlsTake(sWindow, pChild, aControl);
    }
}

class Accessible : public testing::Test {
protected:
    Accessible()
    {
        for (const ProgramWindow& window : m_rig.WindowsOpen())
            ControlsTake(window.sName, QAccessible::queryAccessibleInterface(window.pWidget),
                         m_aControl);
    }
    /// The name without figures and folders, which differ between runs and machines.
    [[nodiscard]] std::string Steady(QString sName) const
    {
        static const QRegularExpression kFigures(QStringLiteral("[+-]?[0-9]+([.,:][0-9]+)*"));
        sName.replace(QString::fromStdString(m_rig.m_folder.Path("")), QStringLiteral("(folder)/"));
        sName.replace(kFigures, QStringLiteral("#"));
        return sName.simplified().toStdString();
    }

    ProgramRig m_rig;
    std::vector<Control> m_aControl;
};

TEST_F(Accessible, TreeIsTheOneOfTheList)
{
    std::string sList;
    for (const Control& control : m_aControl)
        sList += control.sWindow + " | " + control.sRole + " | " + Steady(control.sName) + " | "
                 + control.sValue + "\n";
    if (std::getenv("HOPCAST_RENEW") != nullptr)
        std::ofstream(kListFile, std::ios::binary) << sList;
    else
        EXPECT_EQ(sList, BytesRead(kListFile)) << "run UiProgramTest once with HOPCAST_RENEW=1";
}

TEST_F(Accessible, EveryControlThatTakesTheFocusHasAName)
{
    std::size_t nFocusable = 0;
    for (const Control& control : m_aControl) {
        nFocusable += control.bFocusable ? 1U : 0U;
        EXPECT_FALSE(control.bFocusable && control.sName.isEmpty())
            << control.sWindow << " " << control.sRole;
    }
    EXPECT_GT(nFocusable, 140U);
}

TEST_F(Accessible, NoTwoControlsOfAWindowShareRoleAndName)
{
    std::set<std::string> aSeen;
    for (const Control& control : m_aControl)
        if (control.bFocusable) {
            const std::string sKey =
                control.sWindow + " " + control.sRole + " " + control.sName.toStdString();
            EXPECT_TRUE(aSeen.insert(sKey).second) << sKey;
        }
}

}  // namespace
