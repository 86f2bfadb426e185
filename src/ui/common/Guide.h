/// @file Guide.h
/// The guide: pages with pictures that lie beside the programs, or below the share folder of an
/// installed Hopcast. F1 opens it from every window.
///
/// Tests:   tests/ui/common/GuideTest.cpp
#pragma once

#include <QString>
#include <QTextBrowser>
#include <functional>
#include <string>

class QApplication;
class QUrl;

/// Opens a page in the system's browser; false where there is none.
using GuideOpenFn = std::function<bool(const QUrl& url)>;

/// The guide's first page; empty where the pages are missing.
/// @param sProgramFolder  host path of the program's folder
[[nodiscard]] std::string GuideFileGet(const std::string& sProgramFolder);

/// Shows the guide in the system's browser, else and in Night in a window of its own. Missing pages
/// are told in a box.
/// @param sProgramFolder  host path of the program's folder
void GuideShow(const std::string& sProgramFolder);

/// Lets F1 show the guide from every window and box of the application, now and later ones.
void GuideKeyInstall(QApplication& app);

/// Replaces the system's browser (an empty function restores it) and returns what was in force.
GuideOpenFn GuideOpenSetHandler(GuideOpenFn fnOpen);

/// The guide without a browser. A closed window is destroyed; Escape closes it.
class frmGuide final : public QTextBrowser {
    Q_OBJECT
public:
    explicit frmGuide(const QString& sFile);

    /// Pictures by night are negatives in reds.
    QVariant loadResource(int nType, const QUrl& url) override;

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
};
