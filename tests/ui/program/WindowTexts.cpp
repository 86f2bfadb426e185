#include "ui/program/WindowTexts.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTreeWidget>
#include <algorithm>

#include "ui/common/GridControl.h"

namespace {

class Collector {
public:
    explicit Collector(std::string sWindow) : m_sWindow(std::move(sWindow)) {}

    void WidgetTake(const QWidget& widget)
    {
        const std::string sName = NameOf(widget);
        if (widget.isWindow() || widget.parentWidget() == nullptr)
            Take(sName, "title", widget.windowTitle());
        Take(sName, "toolTip", widget.toolTip());
        Take(sName, "statusTip", widget.statusTip());
        Take(sName, "accessibleName", widget.accessibleName());
        Take(sName, "accessibleDescription", widget.accessibleDescription());
        TextTake(sName, widget);
        ListTake(sName, widget);
        for (const QAction* pAction : widget.actions()) ActionTake(sName, *pAction);
    }

    std::vector<WindowText> m_aText;

private:
    static std::string NameOf(const QWidget& widget)
    {
        return widget.objectName().isEmpty() ? widget.metaObject()->className()
                                             : widget.objectName().toStdString();
    }
    void Take(const std::string& sName, const char* sProperty, const QString& sText)
    {
        if (std::any_of(sText.begin(), sText.end(), [](QChar chr) { return chr.isLetter(); }))
            m_aText.push_back({m_sWindow + " " + sName + " " + sProperty, sText});
    }
    void TextTake(const std::string& sName, const QWidget& widget)
    {
        for (const char* sProperty : {"text", "title", "placeholderText", "prefix", "suffix",
                                      "specialValueText", "format", "informativeText"}) {
            // The text in an entry field is the user's.
            const bool bEntry = qobject_cast<const QLineEdit*>(&widget) != nullptr
                                && sProperty == std::string("text");
            if (!bEntry)
                Take(sName, sProperty, widget.property(sProperty).toString());
        }
    }
    void ListTake(const std::string& sName, const QWidget& widget)
    {
        if (const auto* pCombo = qobject_cast<const QComboBox*>(&widget))
            for (int i = 0; i < pCombo->count(); ++i) Take(sName, "entry", pCombo->itemText(i));
        if (const auto* pTabs = qobject_cast<const QTabBar*>(&widget))
            for (int i = 0; i < pTabs->count(); ++i) {
                Take(sName, "tab", pTabs->tabText(i));
                Take(sName, "toolTip", pTabs->tabToolTip(i));
            }
        if (const auto* pTree = qobject_cast<const QTreeWidget*>(&widget))
            for (int i = 0; i < pTree->columnCount(); ++i)
                Take(sName, "header", pTree->headerItem()->text(i));
        if (const auto* pGrid = qobject_cast<const GridControl*>(&widget))
            for (int i = 0; i <= pGrid->model()->columnCount(); ++i) {
                Take(sName, "header", pGrid->TextGet(0, i));
                const QModelIndex idx = pGrid->model()->index(0, i - 1);
                Take(sName, "speech", idx.data(Qt::AccessibleTextRole).toString());
            }
    }
    void ActionTake(const std::string& sName, const QAction& action)
    {
        const std::string sAction =
            action.objectName().isEmpty() ? sName : action.objectName().toStdString();
        Take(sAction, "action", action.text());
        Take(sAction, "toolTip", action.toolTip());
        Take(sAction, "statusTip", action.statusTip());
    }

    std::string m_sWindow;
};

/// True for a menu or dialog that belongs to this window but is listed separately.
bool OtherWindowIs(const QWidget& widget, const QWidget& window)
{
    return widget.window() != &window
           && (qobject_cast<const QDialog*>(widget.window()) != nullptr
               || widget.window()->parentWidget() == nullptr);
}

}  // namespace

std::vector<WindowText> WindowTextsGet(const ProgramWindow& window)
{
    Collector collector(window.sName);
    collector.WidgetTake(*window.pWidget);
    for (const QWidget* pWidget : window.pWidget->findChildren<QWidget*>())
        if (!OtherWindowIs(*pWidget, *window.pWidget)
            && !pWidget->objectName().startsWith(QStringLiteral("qt_")))
            collector.WidgetTake(*pWidget);
    return std::move(collector.m_aText);
}
