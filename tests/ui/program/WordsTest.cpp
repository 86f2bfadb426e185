/// Every text of Hopcast's own can be translated: with a translator that marks what passes through
/// it, no window has an unmarked word, apart from data and texts of the lower floors.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTranslator>

#include "ui/common/Words.h"
#include "ui/main/StatusText.h"
#include "ui/options/AntennaTip.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/frmAbout.h"
#include "ui/page/PageFile.h"
#include "ui/program/WindowTexts.h"

namespace {

constexpr QChar kOpen(0x27E6);
constexpr QChar kClose(0x27E7);

/// Puts marks around a text's own words, leaving the placeholders of its values outside.
class MarkTranslator final : public QTranslator {
public:
    MarkTranslator() { QCoreApplication::installTranslator(this); }
    ~MarkTranslator() override { QCoreApplication::removeTranslator(this); }
    MarkTranslator(const MarkTranslator&) = delete;
    MarkTranslator& operator=(const MarkTranslator&) = delete;

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* sContext, const char* sSource,
                                    const char* /*sMeaning*/, int /*nCount*/) const override
    {
        static const QRegularExpression kKeys(
            QStringLiteral("^((Ctrl|Alt|Shift|Meta)\\+)+\\S+$|^F[0-9]+$"));
        static const QRegularExpression kPlace(QStringLiteral("(%(?:[0-9]|[nvmp](?![a-z])))"));
        const QString sText = QString::fromUtf8(sSource);
        if (sText.isEmpty() || QLatin1String(sContext) == QLatin1String("QShortcut")
            || kKeys.match(sText).hasMatch())
            return {};
        QString sMarked = kOpen + sText + kClose;
        sMarked.replace(kPlace, kClose + QStringLiteral("\\1") + kOpen);
        return sMarked.remove(QString(kOpen) + kClose);
    }
};

/// The unmarked rest of a text, with its blanks and line ends simplified.
QString Unmarked(QString sText)
{
    static const QRegularExpression kMarked(QStringLiteral("%1[^%2]*%2").arg(kOpen).arg(kClose));
    static const QRegularExpression kPlace(QStringLiteral("%[vmp%]"));
    return sText.remove(kMarked).remove(kPlace).simplified();
}

bool LettersHas(const QString& sText)
{
    return std::any_of(sText.begin(), sText.end(), [](QChar chr) { return chr.isLetter(); });
}

/// Words that need no translation.
struct Exemption {
    const char* sWhere;  ///< regular expression for the whole of WindowText::sWhere
    const char* sWhat;   ///< regular expression for the unmarked rest
    const char* sReason;
    mutable bool bUsed = false;
};

// clang-format off
const std::vector<Exemption> kExemptions{
    {"(main|about) (frmMain|lblTitle) (title|text)", "Hopcast", "the program's name"},
    {"details frmDetails title", "Hopcast ?13:00", "the program's name, a time"},
    {"main lblInForce (text|toolTip)", "REC533 · .*", "a request in the words of the lower floors"},
    {"(reach|days|compare|curves|card) lblFoot text", "((?!compared with).)*",
     "a request in the words of the lower floors"},
    {"places lblFoot text", ".*hopcast[.]places[.]csv", "a file"},
    {"(main|needs) QMenu (action|toolTip)", "[A-Za-z][A-Za-z0-9, -]*", "names of the user's needs"},
    {"(reach|days|compare) cmdNeed text", "E-mail, normal", "the name of a need"},
    {"(main|stations) mnuTransmitter(Ham|SailMail)Station[0-9] (action|toolTip)",
     "[A-Z0-9]+ - .*", "stations of Airmail's files"},
    {"(main|stations) mnuTransmitter(Ham|SailMail)Station[0-9] statusTip", "[A-Z]{2}[0-9]{2,}",
     "a grid square, a number"},
    {"reach lblFrom text", "[0-9]+°.*[NSWE]", "a position"},
    {"card picPreview accessibleDescription",
     "[-0-9°.'NSEW ]+E-mail, normal, 40 dB[-0-9 ]*", "positions, numbers, a need's name"},
    {"map lbl(Rc|Tx) accessibleName", "[-0-9°.'NSEW ]+", "a position"},
    {"map mnuOverlayLayer[23] (action|toolTip)", "E-mail, normal", "the name of a need"},
    {"details grdData speech", "[-0-9.<> ]*1F2", "a layer"},
    {"places grdPlaces speech", "Home, JN47, 7050, by the lake", "what the user typed"},
    {"reach grdReach speech", "[A-Z0-9]{5,6} [A-Z][A-Za-z ]+[-+0-9: ,.]*", "a station, numbers, hours of the lower floors"},
    {"places txtPosition placeholderText", "47°30'N 8°30'E, JN47, ...", "a position"},
    {"reach chkKind[0-9] text", "(Ham|SailMail|Other|My places) [0-9]+", "kinds, of the lower floors"},
    {"reach cmbOrder entry", "[A-Za-z]+", "orders, of the lower floors"},
    {"compare (cmbEngine[01] entry|tabView tab|grdCompare (accessibleName|speech)|lblCell text)",
     "[0-9]*((REC533|VOACAP|ICEPAC)[ 0-9,+-]*)+", "engines' names, numbers"},
    {"options (txtStationPower accessibleDescription|lblStationPowerUnit text)", "5 kWREC533",
     "a power, an engine's name"},
    {"options cmbPropagationAntennaType toolTip", "REC533( ?, [0-9]+ k?W)+",
     "powers, an engine's name"},
    {"options lblAirMailOrigin text", "profile", "of the lower floors"},
    {"options lblAirMailVersion text", "Unable to get current version number[.]",
     "of the lower floors"},
};
// clang-format on

bool ExemptIs(const WindowText& text, const QString& sLeft)
{
    const auto Fits = [](const char* sPattern, const QString& sText) {
        return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf8(sPattern)),
                                  QRegularExpression::DotMatchesEverythingOption)
            .match(sText)
            .hasMatch();
    };
    bool bExempt = false;
    for (const Exemption& row : kExemptions)
        if (Fits(row.sWhere, QString::fromStdString(text.sWhere)) && Fits(row.sWhat, sLeft))
            bExempt = row.bUsed = true;
    return bExempt;
}

TEST(Words, OfEveryWindowPassThroughTheTranslator)
{
    const MarkTranslator translator;
    ProgramRig rig;
    std::size_t nTexts = 0;
    for (const ProgramWindow& window : rig.WindowsOpen()) {
        ASSERT_NE(window.pWidget, nullptr) << window.sName;
        for (const WindowText& text : WindowTextsGet(window)) {
            ++nTexts;
            const QString sLeft = Unmarked(text.sText);
            EXPECT_TRUE(!LettersHas(sLeft) || ExemptIs(text, sLeft))
                << text.sWhere << ": " << sLeft.toStdString() << "\n  of "
                << text.sText.toStdString();
        }
    }
    EXPECT_GT(nTexts, 400U);
    for (const Exemption& row : kExemptions)
        EXPECT_TRUE(row.bUsed) << row.sWhere << " " << row.sWhat << " is exempt for nothing";
}

/// Expects only the values of a text outside the marks.
void OnlyValuesAreLeft(const std::string& sText, const std::string& sValues = "")
{
    EXPECT_NE(sText.find(QString(kOpen).toStdString()), std::string::npos) << sText;
    EXPECT_EQ(Unmarked(QString::fromStdString(sText)).toStdString(), sValues) << sText;
}

struct FailureCase {
    FailureKind eKind;
    const char* sValues;
};

constexpr FailureCase kFailures[] = {
    {FailureKind::NotInstalled, "VOACAP77"}, {FailureKind::NotStarted, "VOACAP77"},
    {FailureKind::Timeout, "VOACAP77"},      {FailureKind::BadInput, "77"},
    {FailureKind::BadOutput, "VOACAP77"},    {FailureKind::Busy, "77"},
    {FailureKind::Cancelled, "77"},          {FailureKind::File, "77"},
};

TEST(Words, OfEveryTroubleOfTheStatusLinePassThroughTheTranslator)
{
    const MarkTranslator translator;
    for (const RunTrouble eTrouble :
         {RunTrouble::SunSpot, RunTrouble::Frequencies, RunTrouble::Engine})
        OnlyValuesAreLeft(StatusTrouble(eTrouble, kEngineVoacap));
    for (const FailureCase& c : kFailures) {
        const Failure failure{c.eKind, "77"};
        OnlyValuesAreLeft(StatusTrouble(RunTrouble::Engine, kEngineVoacap, failure), c.sValues);
        OnlyValuesAreLeft(StatusTrouble(RunTrouble::Overlay, kEngineVoacap, failure), c.sValues);
    }
    OnlyValuesAreLeft(StatusProfile(RunError{"77"}), "77");
    OnlyValuesAreLeft(StatusProfile(std::vector<std::string>{"77", "88"}), "771");
    Request request;
    request.dRcLat = 99.0;
    OnlyValuesAreLeft(StatusInputFault(request), "99");
    const DateTime dtNow{2026, 11, 21, 13, 5, 0};
    OnlyValuesAreLeft(StatusPosition({}, dtNow));
    OnlyValuesAreLeft(StatusPosition({2026, 11, 21, 11, 0, 0}, dtNow), "11:00");
    OnlyValuesAreLeft(StatusPosition({2026, 11, 21, 1, 5, 0}, dtNow), "12");
    OnlyValuesAreLeft(StatusPosition({2026, 11, 11, 13, 5, 0}, dtNow), "10");
}

TEST(Words, OfBoxesAndHintsPassThroughTheTranslator)
{
    const MarkTranslator translator;
    const MsgRecorder msg;
    int nCount = 0;
    const auto HintOf = [&nCount](const std::string& sList) {
        FrequencyRefused refused;
        EXPECT_FALSE(FrequencyListFromText(
            sList, [](int, float) {}, nCount, &refused))
            << sList;
        return refused.sHint;
    };
    for (const char* sLine : {"1,5", "1 5", "1x", "="}) {
        OnlyValuesAreLeft(HintOf(sLine), sLine);
        OnlyValuesAreLeft(msg.m_aShown.back().sText, sLine);
    }
    OnlyValuesAreLeft(HintOf(""), "1");
    std::string sLong = "1";
    for (int i = 2; i <= 16; ++i) sLong += "\r\n" + std::to_string(i);
    OnlyValuesAreLeft(HintOf(sLong));
    OnlyValuesAreLeft(msg.m_aShown.back().sText);
    OnlyValuesAreLeft(AboutDescriptionGet("0.1.0"), "0.1");
    OnlyValuesAreLeft(PageFileCheck(QStringLiteral("77")).TextGet(), "77");
}

TEST(Words, ArePutInAtOnce)
{
    EXPECT_EQ(WordsPut(QStringLiteral("%2, %1"), std::string("%2"), QStringLiteral("b")), "b, %2");
}

}  // namespace
