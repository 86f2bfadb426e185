#include "ui/options/frmForecast.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <utility>

#include "settings/ForecastFile.h"
#include "settings/ForecastReader.h"
#include "system/MsgLib.h"
#include "ui/common/FileDialog.h"
#include "ui/common/Words.h"

namespace {

constexpr int kLettersWide = 72;  // a quoted line of an e-mail

}  // namespace

frmForecast::frmForecast(std::string sProfileFile, QWidget* pParent)
    : QDialog(pParent),
      txtForecast(new QPlainTextEdit(this)),
      lblForecast(new QLabel(this)),
      cmdOpen(new QPushButton(tr("O&pen..."), this)),
      cmdRequest(new QPushButton(tr("Copy &Request"), this)),
      cmdOk(new QPushButton(tr("OK"), this)),
      cmdCancel(new QPushButton(tr("Cancel"), this)),
      m_sProfileFile(std::move(sProfileFile))
{
    setObjectName(QStringLiteral("frmForecast"));
    setWindowTitle(tr("Hopcast - Forecast of the Sunspot Number"));
    setAttribute(Qt::WA_DeleteOnClose);
    Layout();
    connect(txtForecast, &QPlainTextEdit::textChanged, this, &frmForecast::txtForecastChange);
    connect(cmdOpen, &QPushButton::clicked, this, &frmForecast::cmdOpenClick);
    connect(cmdRequest, &QPushButton::clicked, this,
            [] { QGuiApplication::clipboard()->setText(RequestGet()); });
    connect(cmdOk, &QPushButton::clicked, this, &frmForecast::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &frmForecast::reject);
    KeptShow();
}

void frmForecast::Layout()
{
    auto* pColumn = new QVBoxLayout(this);
    auto* pCaption = new QLabel(
        tr("Paste a &text with NOAA's predicted solar cycle, SILSO's forecast KFprediCM or a WWV "
           "bulletin. Other text around it does no harm."));
    pCaption->setWordWrap(true);
    pCaption->setBuddy(txtForecast);
    txtForecast->setObjectName(QStringLiteral("txtForecast"));
    txtForecast->setAccessibleName(tr("Text of the forecast"));
    txtForecast->setTabChangesFocus(true);
    txtForecast->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtForecast->setMinimumWidth(kLettersWide * txtForecast->fontMetrics().averageCharWidth());
    lblForecast->setObjectName(QStringLiteral("lblForecast"));
    lblForecast->setTextFormat(Qt::PlainText);
    lblForecast->setWordWrap(true);
    cmdRequest->setToolTip(tr("E-mail this; the answer can be pasted into this box"));
    cmdOk->setDefault(true);
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(cmdOpen);
    pRow->addWidget(cmdRequest);
    pRow->addStretch();
    pRow->addWidget(cmdOk);
    pRow->addWidget(cmdCancel);
    pColumn->addWidget(pCaption);
    pColumn->addWidget(txtForecast, 1);
    pColumn->addWidget(lblForecast);
    pColumn->addLayout(pRow);
}

QString frmForecast::RequestGet()
{
    return QStringLiteral(
        "To: query@saildocs.com\n\n"
        "send https://services.swpc.noaa.gov/json/solar-cycle/predicted-solar-cycle.json\n");
}

/// Shown before anything is read: the forecast already kept.
void frmForecast::KeptShow()
{
    cmdOk->setEnabled(false);
    const auto res = ForecastLoad(m_sProfileFile);
    const std::string sText =
        !res ? res.TextGet()
        : res.ValueGet()
            ? WordsPut(tr("Kept: %1"), ForecastText(*res.ValueGet(), UtcNow()))
            : tr("No forecast is kept: the mean cycle gives the number.").toStdString();
    lblForecast->setText(QString::fromStdString(sText));
}

void frmForecast::Show(const Result<SunSpotForecast>& res)
{
    m_forecast = res ? std::optional(res.ValueGet()) : std::nullopt;
    cmdOk->setEnabled(m_forecast.has_value());
    const std::string sText =
        m_forecast ? WordsPut(tr("Read: %1"), ForecastText(*m_forecast, UtcNow())) : res.TextGet();
    lblForecast->setText(QString::fromStdString(sText));
}

void frmForecast::txtForecastChange()
{
    const QString sText = txtForecast->toPlainText();
    if (sText.trimmed().isEmpty()) {
        m_forecast.reset();
        KeptShow();
    } else {
        Show(ForecastFromText(sText.toStdString(), UtcNow()));
    }
}

void frmForecast::cmdOpenClick()
{
    const QString sFile =
        FileDialogShow(this, {FileDialogKind::Open, {}, tr("Text (*)") + QStringLiteral("|*")});
    if (sFile.isEmpty())
        return;
    const QSignalBlocker blocker(txtForecast);
    txtForecast->clear();  // the text belongs to the file now
    Show(ForecastOpen(sFile.toStdString(), UtcNow()));
}

void frmForecast::accept()
{
    if (!m_forecast)
        return;
    if (const auto res = ForecastSave(m_sProfileFile, *m_forecast); !res)
        MsgBox(MsgIcon::Exclamation, res.TextGet());
    else
        QDialog::accept();
}
