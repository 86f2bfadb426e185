#include "ui/options/SettingControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QRegularExpression>
#include <algorithm>
#include <cassert>
#include <limits>

#include "system/NumberLib.h"
#include "system/RunErrorText.h"

namespace {

/// Makes the buttons "optName0", "optName1" ... one group.
QButtonGroup* GroupMake(QWidget& window, const QString& sName)
{
    auto* pGroup = new QButtonGroup(&window);
    const QRegularExpression rgx(u'^' + sName + QStringLiteral("([0-9]+)$"));
    for (QRadioButton* pButton : window.findChildren<QRadioButton*>(rgx))
        pGroup->addButton(pButton, rgx.match(pButton->objectName()).captured(1).toInt());
    return pGroup;
}

/// Selects the button of a number, or none if no button has it.
void GroupSelect(QButtonGroup& grp, int iButton)
{
    if (QAbstractButton* pButton = grp.button(iButton)) {
        pButton->setChecked(true);
        return;
    }
    grp.setExclusive(false);
    if (QAbstractButton* pButton = grp.checkedButton())
        pButton->setChecked(false);
    grp.setExclusive(true);
}

/// The value of a list's entry: its choice or the number of its position, otherwise its own text.
std::string EntryValue(const SettingRow& row, const QComboBox& combo, int iEntry)
{
    const auto nEntry = static_cast<std::size_t>(iEntry);
    if (!row.asChoice.empty())
        return nEntry < row.asChoice.size() ? std::string(row.asChoice[nEntry]) : "";
    if (row.eRule != RangeRule::Any)
        return NumberToText(row.range.dLeast + iEntry);
    return combo.itemText(iEntry).toStdString();
}

int EntryFind(const SettingRow& row, const QComboBox& combo, const std::string& sValue)
{
    for (int i = 0; i < combo.count(); ++i) {
        if (EntryValue(row, combo, i) == sValue)
            return i;
    }
    return -1;
}

void ControlLoad(const SettingRow& row, QObject* pObject, const Settings& settings)
{
    const std::string sValue = SettingToText(row, settings);
    if (auto* pBox = qobject_cast<QLineEdit*>(pObject))
        pBox->setText(QString::fromStdString(sValue));
    else if (auto* pList = qobject_cast<QComboBox*>(pObject))
        pList->setCurrentIndex(EntryFind(row, *pList, sValue));
    else if (auto* pCheck = qobject_cast<QCheckBox*>(pObject))
        pCheck->setChecked(settings.*std::get<bool Settings::*>(row.member));
    else if (auto* pGroup = qobject_cast<QButtonGroup*>(pObject))
        GroupSelect(*pGroup, settings.*std::get<int Settings::*>(row.member));
}

/// A whole number of 32 bits, rounded half to even.
Result<int> IntegerFromText(const std::string& sText)
{
    const auto resNumber = NumberFromText(sText);
    if (!resNumber)
        return resNumber.ErrorGet();
    constexpr double kMost = std::numeric_limits<int>::max() + 0.5;
    constexpr double kLeast = std::numeric_limits<int>::min() - 0.5;
    if (resNumber.ValueGet() >= kMost || resNumber.ValueGet() < kLeast)
        return RunError{kOverflow};
    return RoundHalfEven(resNumber.ValueGet());
}

Result<void> BoxRead(const SettingRow& row, const QLineEdit& box, Settings& settings)
{
    const std::string sText = box.text().toStdString();
    if (const auto* ppInteger = std::get_if<int Settings::*>(&row.member)) {
        const auto res = IntegerFromText(sText);
        if (!res)
            return res.ErrorGet();
        settings.*(*ppInteger) = res.ValueGet();
        return {};
    }
    const auto res = NumberFromTextSingle(sText);
    if (!res)
        return res.ErrorGet();
    if (row.eRule == RangeRule::Drop && !row.range.Holds(res.ValueGet()))
        return RunError{RangeFaultText(res.ValueGet(), row.range)};
    settings.*std::get<float Settings::*>(row.member) = res.ValueGet();
    return {};
}

/// Reads a control that cannot hold an invalid value.
void ChoiceRead(const SettingRow& row, const QObject* pObject, Settings& settings)
{
    if (const auto* pList = qobject_cast<const QComboBox*>(pObject)) {
        if (pList->currentIndex() >= 0)
            SettingFromText(row, EntryValue(row, *pList, pList->currentIndex()), settings);
    } else if (const auto* pCheck = qobject_cast<const QCheckBox*>(pObject)) {
        settings.*std::get<bool Settings::*>(row.member) = pCheck->isChecked();
    } else if (const auto* pGroup = qobject_cast<const QButtonGroup*>(pObject)) {
        if (pGroup->checkedButton() != nullptr)
            settings.*std::get<int Settings::*>(row.member) = pGroup->checkedId();
    }
}

}  // namespace

SettingControls::SettingControls(QWidget& window)
{
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.sControl == nullptr)
            continue;
        const QString sName = QString::fromLatin1(row.sControl);
        QObject* pObject = sName.startsWith(QStringLiteral("opt"))
                               ? static_cast<QObject*>(GroupMake(window, sName))
                               : window.findChild<QWidget*>(sName);
        if (pObject != nullptr)
            m_aControl.push_back({&row, pObject});
    }
}

void SettingControls::Load(const Settings& settings) const
{
    for (const Control& ctl : m_aControl) ControlLoad(*ctl.pRow, ctl.pObject, settings);
}

void SettingControls::Load(const QLineEdit& box, const Settings& settings) const
{
    for (const Control& ctl : m_aControl) {
        if (ctl.pObject == &box)
            ControlLoad(*ctl.pRow, ctl.pObject, settings);
    }
}

bool SettingControls::TextFits(const QLineEdit& box) const
{
    Settings settings;
    return std::all_of(m_aControl.begin(), m_aControl.end(), [&](const Control& ctl) {
        return ctl.pObject != &box || BoxRead(*ctl.pRow, box, settings);
    });
}

SettingControls::Refused SettingControls::Read(Settings& settings) const
{
    for (const Control& ctl : m_aControl) {
        auto* pBox = qobject_cast<QLineEdit*>(ctl.pObject);
        if (pBox == nullptr)
            ChoiceRead(*ctl.pRow, ctl.pObject, settings);
        else if (const auto res = BoxRead(*ctl.pRow, *pBox, settings); !res && pBox->isEnabled())
            return {pBox, res.TextGet()};
    }
    return {};
}

void SettingControls::Copy(const Settings& from, Settings& to) const
{
    for (const Control& ctl : m_aControl) SettingCopy(*ctl.pRow, from, to);
}

QButtonGroup& SettingControls::GroupGet(int Settings::*pMember) const
{
    for (const Control& ctl : m_aControl) {
        if (ctl.pRow->member == SettingMember(pMember))
            return *qobject_cast<QButtonGroup*>(ctl.pObject);
    }
    assert(false);
    std::abort();
}
