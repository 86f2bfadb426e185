#include "ui/places/frmPlaces.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"

namespace {

constexpr int kPosition = 1;
constexpr int kFrequencies = 2;
constexpr int kNote = 3;

QString Text(const std::string& sText) { return QString::fromStdString(TextForMessage(sText)); }

std::array<QString, 4> TextsOf(const OwnPlace& row)
{
    if (!row.sFault.empty())
        return {frmPlaces::tr("line %1").arg(row.nLine), {}, {}, Text(row.sFault)};
    return {Text(row.texts.sName), Text(row.texts.sPosition), Text(row.texts.sFrequencies),
            Text(row.texts.sNote)};
}

QPushButton* ButtonMake(const char* sName, const QString& sText, QWidget* pParent)
{
    auto* pButton = new QPushButton(sText, pParent);
    pButton->setObjectName(QString::fromLatin1(sName));
    pButton->setAutoDefault(false);
    return pButton;
}

}  // namespace

frmPlaces::frmPlaces(PlanHost& host)
    : PlanWindow(host, PlanName::Places, tr("My Places")),
      grdPlaces(new GridControl(this)),
      cmdAdd(ButtonMake("cmdAdd", tr("Add Ne&w"), this)),
      cmdChange(ButtonMake("cmdChange", tr("C&hange"), this)),
      cmdRemove(ButtonMake("cmdRemove", tr("&Remove"), this)),
      cmdPaste(ButtonMake("cmdPaste", tr("Paste &Table"), this)),
      cmdUndo(ButtonMake("cmdUndo", tr("&Undo"), this)),
      lblHint(new QLabel(this))
{
    setObjectName(QStringLiteral("frmPlaces"));
    GridMake();
    EditorMake();
    constexpr QSize kFirst(720, 480);
    resize(kFirst);
    Load();
    for (const auto signal : {&SettingsSignal::Changed, &SettingsSignal::PlacesChanged})
        connect(&host.SettingsSignalGet(), signal, this, [this] {
            if (HostGet().SettingsGet().m_sProfileFile != m_sProfileFile)
                Load();
        });
}

void frmPlaces::GridMake()
{
    grdPlaces->setObjectName(QStringLiteral("grdPlaces"));
    grdPlaces->setAccessibleName(tr("My places"));
    grdPlaces->installEventFilter(this);
    grdPlaces->ColsSet(kNote + 1);
    const std::array<QString, 4> asTitle{tr("name"), tr("position"), tr("frequencies, kHz"),
                                         tr("note")};
    const QFontMetrics metrics = grdPlaces->fontMetrics();
    const std::array<int, 4> anLetters{18, 24, 24, 28};
    for (int i = 0; i <= kNote; ++i) {
        const auto n = static_cast<std::size_t>(i);
        grdPlaces->TextSet(0, i, asTitle[n]);
        grdPlaces->AlignmentSet(0, i, Qt::AlignLeft | Qt::AlignVCenter);
        grdPlaces->ColWidthSet(i, metrics.averageCharWidth() * anLetters[n]);
    }
    grdPlaces->SpeechSet([this](int iRow, int) {
        const auto asText = TextsOf(m_list.aRows.at(static_cast<std::size_t>(iRow) - 1));
        return QStringList(asText.begin(), asText.end()).join(QStringLiteral(", "));
    });
    ContentGet().addWidget(grdPlaces, 1);
    connect(grdPlaces->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmPlaces::FieldsShow);
}

void frmPlaces::EditorMake()
{
    const std::array<QString, 4> asLabel{tr("&Name"), tr("P&osition"), tr("&Frequencies, kHz"),
                                         tr("No&te")};
    const std::array<const char*, 4> asName{"txtName", "txtPosition", "txtFrequencies", "txtNote"};
    auto* pGrid = new QGridLayout;
    for (std::size_t n = 0; n < atxtField.size(); ++n) {
        atxtField[n] = new QLineEdit(this);
        atxtField[n]->setObjectName(QString::fromLatin1(asName[n]));
        auto* pLabel = new QLabel(asLabel[n], this);
        pLabel->setBuddy(atxtField[n]);
        const int iRow = static_cast<int>(n / 2);
        const int iCol = static_cast<int>(n % 2) * 2;
        pGrid->addWidget(pLabel, iRow, iCol);
        pGrid->addWidget(atxtField[n], iRow, iCol + 1);
        connect(atxtField[n], &QLineEdit::returnPressed, this,
                [this] { SelectedGet() >= 0 ? Change() : Add(); });
    }
    atxtField[kPosition]->setPlaceholderText(QStringLiteral("47\u00B030'N 8\u00B030'E, JN47, ..."));
    atxtField[kFrequencies]->setPlaceholderText(QStringLiteral("7050 14100.5"));
    ContentGet().addLayout(pGrid);
    auto* pButtons = new QHBoxLayout;
    for (QPushButton* pButton : {cmdAdd, cmdChange, cmdRemove, cmdPaste, cmdUndo})
        pButtons->addWidget(pButton);
    pButtons->addStretch();
    cmdPaste->setToolTip(
        tr("Adds the rows of the clipboard: name, position, frequencies and note,\n"
           "separated by tabs, as in a copied table, or by commas"));
    ContentGet().addLayout(pButtons);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    lblHint->setWordWrap(true);
    lblHint->setTextFormat(Qt::PlainText);
    ContentGet().addWidget(lblHint);
    connect(cmdAdd, &QPushButton::clicked, this, &frmPlaces::Add);
    connect(cmdChange, &QPushButton::clicked, this, &frmPlaces::Change);
    connect(cmdRemove, &QPushButton::clicked, this, &frmPlaces::Remove);
    connect(cmdPaste, &QPushButton::clicked, this, &frmPlaces::Paste);
    connect(cmdUndo, &QPushButton::clicked, this, &frmPlaces::Undo);
}

void frmPlaces::Load()
{
    m_sProfileFile = HostGet().SettingsGet().m_sProfileFile;
    auto resList = OwnPlacesLoad(m_sProfileFile);
    m_bReadable = static_cast<bool>(resList);
    m_before.reset();
    m_list = resList ? std::move(resList.ValueGet()) : OwnPlaceList();
    FootSet(OwnPlacesPath(m_sProfileFile));
    Show(0);
    if (!m_bReadable)
        HintSet(resList.TextGet());
}

void frmPlaces::Show(int iRow)
{
    grdPlaces->RedrawSet(false);
    grdPlaces->RowsSet(static_cast<int>(m_list.aRows.size()) + 1);
    for (int i = 1; i <= static_cast<int>(m_list.aRows.size()); ++i) RowShow(i);
    grdPlaces->RedrawSet(true);
    for (QPushButton* pButton : {cmdAdd, cmdPaste}) pButton->setEnabled(m_bReadable);
    cmdUndo->setEnabled(m_before.has_value());
    RowSelect(iRow);
}

void frmPlaces::RowShow(int iRow)
{
    const OwnPlace& row = m_list.aRows[static_cast<std::size_t>(iRow) - 1];
    const auto asText = TextsOf(row);
    for (int i = 0; i <= kNote; ++i) {
        grdPlaces->TextSet(iRow, i, asText.at(static_cast<std::size_t>(i)));
        grdPlaces->AlignmentSet(iRow, i, Qt::AlignLeft | Qt::AlignVCenter);
        grdPlaces->HatchSet(iRow, i, i > 0 && i < kNote && !row.sFault.empty());
    }
}

void frmPlaces::RowSelect(int iRow)
{
    const int nRows = static_cast<int>(m_list.aRows.size());
    grdPlaces->CurrentSet(nRows == 0 ? -1 : std::clamp(iRow, 0, nRows - 1) + 1, 1);
    FieldsShow();
}

int frmPlaces::SelectedGet() const
{
    const int iRow = grdPlaces->CurrentGet().iRow - 1;
    return iRow < static_cast<int>(m_list.aRows.size()) ? iRow : -1;
}

void frmPlaces::FieldsShow()
{
    const int iRow = SelectedGet();
    cmdChange->setEnabled(m_bReadable && iRow >= 0);
    cmdRemove->setEnabled(m_bReadable && iRow >= 0);
    HintSet({});
    if (iRow < 0)
        return;
    const OwnPlace& row = m_list.aRows[static_cast<std::size_t>(iRow)];
    const std::array<const std::string*, 4> apText{&row.texts.sName, &row.texts.sPosition,
                                                   &row.texts.sFrequencies, &row.texts.sNote};
    for (std::size_t n = 0; n < apText.size(); ++n) atxtField[n]->setText(Text(*apText[n]));
    if (!row.sFault.empty())
        HintSet(WordsPut(tr("Line %1 cannot be used, %2. It stays in the file unchanged: %3"),
                         NumberToText(row.nLine), row.sFault, TextForMessage(row.sRaw)));
}

void frmPlaces::HintSet(const std::string& sHint)
{
    lblHint->setText(QString::fromStdString(sHint));
}

std::optional<OwnPlace> frmPlaces::Typed()
{
    auto res = OwnPlaceMake(
        {atxtField[0]->text().toStdString(), atxtField[kPosition]->text().toStdString(),
         atxtField[kFrequencies]->text().toStdString(), atxtField[kNote]->text().toStdString()});
    if (res)
        return std::move(res.ValueGet());
    HintSet(WordsPut(tr("The place cannot be used: %1."), res.TextGet()));
    return {};
}

/// Shows the list of the file if it has become another one, by another program or another
/// profile. What is typed stays. @return false if it is the same
bool frmPlaces::ListRenew()
{
    if (HostGet().SettingsGet().m_sProfileFile == m_sProfileFile
        && !OwnPlacesChanged(m_sProfileFile, m_list))
        return false;
    std::array<QString, 4> asTyped;
    for (std::size_t n = 0; n < asTyped.size(); ++n) asTyped.at(n) = atxtField.at(n)->text();
    Load();
    for (std::size_t n = 0; n < asTyped.size(); ++n) atxtField.at(n)->setText(asTyped.at(n));
    if (m_bReadable)
        HintSet(tr("The list was changed elsewhere, and is shown as it is now. Nothing was saved: "
                   "make the change again.")
                    .toStdString());
    Q_EMIT HostGet().SettingsSignalGet().PlacesChanged();
    return true;
}

/// Saves a list and shows it. If it cannot be saved, nothing changes.
bool frmPlaces::ListPut(const OwnPlaceList& list, int iRow)
{
    if (ListRenew())
        return false;
    if (const auto res = OwnPlacesSave(m_sProfileFile, list); !res) {
        HintSet(res.TextGet());
        return false;
    }
    m_before = std::exchange(m_list, list);
    Show(iRow);
    Q_EMIT HostGet().SettingsSignalGet().PlacesChanged();
    return true;
}

void frmPlaces::Add()
{
    const auto row = m_bReadable ? Typed() : std::nullopt;
    if (!row)
        return;
    OwnPlaceList list = m_list;
    list.aRows.push_back(*row);
    ListPut(list, static_cast<int>(list.aRows.size()) - 1);
}

void frmPlaces::Change()
{
    const int iRow = SelectedGet();
    const auto row = m_bReadable && iRow >= 0 ? Typed() : std::nullopt;
    if (!row)
        return;
    OwnPlaceList list = m_list;
    list.aRows[static_cast<std::size_t>(iRow)] = *row;
    ListPut(list, iRow);
}

void frmPlaces::Remove()
{
    const int iRow = SelectedGet();
    if (!m_bReadable || iRow < 0)
        return;
    OwnPlaceList list = m_list;
    list.aRows.erase(list.aRows.begin() + iRow);
    ListPut(list, iRow);
}

void frmPlaces::Paste()
{
    const auto resPasted = OwnPlacesFromPaste(QGuiApplication::clipboard()->text().toStdString());
    if (!m_bReadable || !resPasted)
        return HintSet(WordsPut(tr("The clipboard cannot be pasted: %1."), resPasted.TextGet()));
    OwnPlaceList list = m_list;
    std::vector<PlaceFault> aFaults = OwnPlaceFaultsGet(resPasted.ValueGet());
    for (const OwnPlace& row : resPasted.ValueGet().aRows) {
        if (row.sFault.empty() && list.aRows.size() < kOwnPlacesMost)
            list.aRows.push_back(row);
        else if (row.sFault.empty())
            aFaults.push_back({WordsPut(tr("line %1"), NumberToText(row.nLine)),
                               tr("the list is full").toStdString()});
    }
    const std::size_t nPasted = list.aRows.size() - m_list.aRows.size();
    if (nPasted == 0)
        return HintSet(aFaults.empty() ? tr("The clipboard holds no rows.").toStdString()
                                       : PlaceFaultsText(aFaults));
    if (ListPut(list, static_cast<int>(m_list.aRows.size())))
        HintSet(tr("%n place(s) pasted. ", nullptr, static_cast<int>(nPasted)).toStdString()
                + PlaceFaultsText(aFaults));
}

void frmPlaces::Undo()
{
    if (!m_before)
        return;
    const OwnPlaceList list = *m_before;
    if (ListPut(list, std::max(0, SelectedGet())))
        HintSet(tr("The last change was undone.").toStdString());
}

bool frmPlaces::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == grdPlaces && pEvent->type() == QEvent::KeyPress) {
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->matches(QKeySequence::Paste)) {
            Paste();
            return true;
        }
        if (pKey->key() == Qt::Key_Delete) {
            Remove();
            return true;
        }
    }
    return PlanWindow::eventFilter(pObject, pEvent);
}

Page frmPlaces::PageGet() const
{
    std::vector<QStringList> aHead;
    for (const OwnPlace& row : m_list.aRows) aHead.push_back({TextsOf(row)[0]});
    PageGrid grid =
        PageGridMake({tr("name")}, {tr("position"), tr("frequencies"), tr("note")}, aHead);
    for (int i = 0; i < grid.RowsGet(); ++i) {
        const auto asText = TextsOf(m_list.aRows[static_cast<std::size_t>(i)]);
        for (int n = kPosition; n <= kNote; ++n)
            grid.CellGet(i, n - 1).sText = asText.at(static_cast<std::size_t>(n));
    }
    return {windowTitle(), {{{}, std::move(grid)}}, lblFoot->text()};
}
