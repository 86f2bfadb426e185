#include "ui/reach/ReachForm.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <limits>

#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

namespace {

constexpr double kNoMargin = -200.0;  // below any margin

template <class T>
T* Named(T* pWidget, const char* sName, const QString& sSpoken)
{
    pWidget->setObjectName(QString::fromLatin1(sName));
    if (!sSpoken.isEmpty())
        pWidget->setAccessibleName(sSpoken);
    return pWidget;
}

QHBoxLayout* RowMake(QWidget& form)
{
    auto* pRow = new QHBoxLayout;
    static_cast<QVBoxLayout*>(form.layout())->addLayout(pRow);
    return pRow;
}

/// A label whose mnemonic leads to the control after it.
void LabelledAdd(QHBoxLayout& row, const QString& sText, QWidget* pControl)
{
    auto* pLabel = new QLabel(sText, pControl->parentWidget());
    pLabel->setBuddy(pControl);
    row.addWidget(pLabel);
    row.addWidget(pControl);
}

}  // namespace

ReachForm::ReachForm(Settings& settings, QWidget* pParent) : QWidget(pParent)
{
    auto* pAll = new QVBoxLayout(this);
    pAll->setContentsMargins(0, 0, 0, 0);
    SearchRowMake(settings);
    KindsRowMake();
    ViewRowMake();
}

void ReachForm::SearchRowMake(Settings& settings)
{
    lblFrom = Named(new QLabel(this), "lblFrom", {});
    cmdNeed = new NeedChooser(settings, this);
    lblNeed = Named(new QLabel(this), "lblNeed", {});
    numPower = Named(new QDoubleSpinBox(this), "numPower", tr("My power"));
    numPower->setRange(kRangePower.dLeast, kRangePower.dMost);
    numPower->setDecimals(1);
    numPower->setSuffix(tr(" W"));
    numPower->setSpecialValueText(tr("as the antenna"));
    numPower->setKeyboardTracking(false);
    cmdFind = Named(new QPushButton(tr("&Search Again"), this), "cmdFind", {});
    cmdFind->setAutoDefault(false);
    QHBoxLayout* pRow = RowMake(*this);
    pRow->addWidget(lblFrom);
    pRow->addStretch();
    LabelledAdd(*pRow, tr("&For"), cmdNeed);
    pRow->addWidget(lblNeed);
    LabelledAdd(*pRow, tr("My po&wer"), numPower);
    pRow->addWidget(cmdFind);
    connect(cmdNeed, &NeedChooser::Chosen, this, &ReachForm::CriteriaChanged);
}

void ReachForm::KindsRowMake()
{
    QHBoxLayout* pRow = RowMake(*this);
    for (std::size_t n = 0; n < achkKind.size(); ++n) {
        achkKind[n] = Named(new QCheckBox(this), "chkKind", {});
        achkKind[n]->setObjectName(QStringLiteral("chkKind%1").arg(n));
        pRow->addWidget(achkKind[n]);
        connect(achkKind[n], &QCheckBox::clicked, this, &ReachForm::SearchChanged);
    }
    cmdFaults = Named(new QPushButton(this), "cmdFaults", {});
    cmdFaults->setAutoDefault(false);
    cmdFaults->hide();
    pRow->addWidget(cmdFaults);
    pRow->addStretch();
    chkOwnFrequencies =
        Named(new QCheckBox(tr("Stations' own fre&quencies"), this), "chkOwnFrequencies", {});
    chkOwnFrequencies->setToolTip(tr(
        "Use the frequencies in a station's line, if there are any, instead of those in Options"));
    pRow->addWidget(chkOwnFrequencies);
    connect(chkOwnFrequencies, &QCheckBox::clicked, this, &ReachForm::SearchChanged);
}

void ReachForm::ViewRowMake()
{
    cmbFrom = Named(new QComboBox(this), "cmbFrom", tr("From hour"));
    numHours = Named(new QSpinBox(this), "numHours", tr("Hours that count"));
    numHours->setRange(1, kReachHours);
    constexpr int kHoursFirst = 6;
    numHours->setValue(kHoursFirst);
    numHours->setSuffix(tr(" h"));
    txtFind = Named(new QLineEdit(this), "txtFind", tr("Part of a name"));
    txtFind->setPlaceholderText(tr("Part of a name"));
    txtFind->setClearButtonEnabled(true);
    numMargin = Named(new QDoubleSpinBox(this), "numMargin", tr("Least margin"));
    constexpr double kMarginMost = 100.0;
    constexpr double kMarginLeast = -51.0;  // stands for none
    numMargin->setRange(kMarginLeast, kMarginMost);
    numMargin->setDecimals(0);
    numMargin->setSuffix(tr(" dB"));
    numMargin->setSpecialValueText(tr("any"));
    numMargin->setValue(kNoMargin);
    cmbOrder = Named(new QComboBox(this), "cmbOrder", tr("Order"));
    for (const std::string_view sOrder : kReachOrders)
        cmbOrder->addItem(QString::fromUtf8(sOrder.data(), static_cast<int>(sOrder.size())));
    prgDone = Named(new QProgressBar(this), "prgDone", tr("Stations done"));
    prgDone->setTextVisible(false);
    prgDone->hide();
    lblCount = Named(new QLabel(this), "lblCount", {});
    QHBoxLayout* pRow = RowMake(*this);
    LabelledAdd(*pRow, tr("Fr&om"), cmbFrom);
    LabelledAdd(*pRow, tr("fo&r"), numHours);
    LabelledAdd(*pRow, tr("F&ind"), txtFind);
    LabelledAdd(*pRow, tr("Least &margin"), numMargin);
    LabelledAdd(*pRow, tr("Or&der by"), cmbOrder);
    pRow->addStretch();
    pRow->addWidget(prgDone);
    pRow->addWidget(lblCount);
    connect(cmbFrom, &QComboBox::currentIndexChanged, this, &ReachForm::CriteriaChanged);
    connect(numHours, &QSpinBox::valueChanged, this, &ReachForm::CriteriaChanged);
    connect(txtFind, &QLineEdit::textChanged, this, &ReachForm::ViewChanged);
    connect(numMargin, &QDoubleSpinBox::valueChanged, this, &ReachForm::ViewChanged);
    connect(cmbOrder, &QComboBox::currentIndexChanged, this, &ReachForm::ViewChanged);
}

void ReachForm::PlacesShow(const std::array<int, 4>& anPlaces, bool bOwnFrequencies)
{
    bool bOthers = false;
    for (std::size_t n = 0; n < achkKind.size(); ++n) {
        const auto eKind = static_cast<PlaceKind>(n);
        const std::string_view sKind = PlaceKindName(eKind);
        achkKind[n]->setText(
            QStringLiteral("%1 %2")
                .arg(QString::fromUtf8(sKind.data(), static_cast<int>(sKind.size())))
                .arg(anPlaces[n]));
        achkKind[n]->setEnabled(anPlaces[n] > 0);
        bOthers = bOthers || (eKind != PlaceKind::Other && anPlaces[n] > 0);
    }
    chkOwnFrequencies->setEnabled(bOwnFrequencies);
    if (m_bTicked)
        return;
    m_bTicked = true;
    for (std::size_t n = 0; n < achkKind.size(); ++n)
        achkKind[n]->setChecked(static_cast<PlaceKind>(n) != PlaceKind::Other || !bOthers);
    chkOwnFrequencies->setChecked(bOwnFrequencies);
}

std::set<PlaceKind> ReachForm::KindsGet() const
{
    std::set<PlaceKind> aKinds;
    for (std::size_t n = 0; n < achkKind.size(); ++n)
        if (achkKind[n]->isChecked())
            aKinds.insert(static_cast<PlaceKind>(n));
    return aKinds;
}

void ReachForm::HoursShow(const HourLabels& asHour, int iNow)
{
    m_iNow = iNow;
    const QSignalBlocker blocker(cmbFrom);
    const int iChosen = cmbFrom->currentIndex();
    cmbFrom->clear();
    cmbFrom->addItem(tr("now %1").arg(asHour.at(static_cast<std::size_t>(iNow))));
    for (const QString& sHour : asHour) cmbFrom->addItem(sHour);
    cmbFrom->setCurrentIndex(std::max(0, iChosen));
}

int ReachForm::FromGet() const
{
    return cmbFrom->currentIndex() <= 0 ? m_iNow : cmbFrom->currentIndex() - 1;
}

ReachView ReachForm::ViewGet() const
{
    ReachView view;
    view.eOrder = static_cast<ReachOrder>(cmbOrder->currentIndex());
    view.sText = txtFind->text().trimmed().toStdString();
    if (numMargin->value() > numMargin->minimum())
        view.fLeastMargin = static_cast<float>(numMargin->value());
    return view;
}

void ReachForm::OrderSet(ReachOrder eOrder) { cmbOrder->setCurrentIndex(static_cast<int>(eOrder)); }

void ReachForm::NeedShow(const Need& need, float fPower)
{
    cmdNeed->ShowInForce();
    lblNeed->setText(tr("needs %1 dB").arg(QString::fromStdString(NumberToText(need.fSnr))));
    const QSignalBlocker blocker(numPower);
    numPower->setValue(static_cast<double>(fPower));
}

void ReachForm::CountShow(std::size_t nListed, std::size_t nDone, std::size_t nAll)
{
    prgDone->setMaximum(static_cast<int>(nAll));
    prgDone->setValue(static_cast<int>(nDone));
    lblCount->setText(nDone < nAll ? tr("%1 of %2 done").arg(nDone).arg(nAll)
                                   : tr("%1 of %2").arg(nListed).arg(nAll));
}
