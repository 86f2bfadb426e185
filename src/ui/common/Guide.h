/// @file Guide.h
/// The guide: HTML pages beside the programs, or in the share folder of an installed Hopcast. F1
/// opens it from every window.
///
/// Tests:   tests/ui/common/GuideTest.cpp
#pragma once

#include <QString>
#include <QTextBrowser>
#include <functional>
#include <string>

class QApplication;
class QUrl;

/// Opens a page in the system's browser; false when there is none.
using GuideOpenFn = std::function<bool(const QUrl& url)>;

/// The guide's first page; empty if the pages are missing.
/// @param sProgramFolder  host path of the program's folder
[[nodiscard]] std::string GuideFileGet(const std::string& sProgramFolder);

/// Shows the guide in the system's browser. In Night, or without a browser, it opens in a window of
/// the program. Missing pages are reported in a message box.
/// @param sProgramFolder  host path of the program's folder
void GuideShow(const std::string& sProgramFolder);

/// Lets F1 show the guide from every window and box, including those opened later.
void GuideKeyInstall(QApplication& app);

/// Replaces the system's browser (an empty function restores it) and returns the previous one.
GuideOpenFn GuideOpenSetHandler(GuideOpenFn fnOpen);

/// The guide's own window, for use without a browser. Closing destroys it; Escape closes it.
class frmGuide final : public QTextBrowser {
    Q_OBJECT
public:
    explicit frmGuide(const QString& sFile);

    /// In Night, pictures become negatives in red.
    QVariant loadResource(int nType, const QUrl& url) override;

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
};
