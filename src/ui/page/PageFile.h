/// @file PageFile.h
/// Sends a page to the clipboard, to a file of the type that its suffix names, or to a printer.
///
/// Tests:   tests/ui/page/PageFileTest.cpp
#pragma once

#include <QImage>
#include <QPageLayout>
#include <QString>
#include <string>

#include "system/Result.h"
#include "ui/page/Page.h"

class QMimeData;
class QWidget;

/// The paper of a page and how the page is painted.
struct PageForm {
    QPageSize::PageSizeId ePaper = QPageSize::A4;
    QPageLayout::Orientation eOrientation = QPageLayout::Portrait;
    PageLook eLook = PageLook::Colour;
};

/// The table as tab-separated text and as HTML with colours, both in one. The caller owns it.
[[nodiscard]] QMimeData* PageGridMime(const PageGrid& grid);
void PageGridCopy(const PageGrid& grid);

/// Copies the first table of a page, or the values of its first picture; from a page with a
/// picture, also an image of the page on white. A page with neither copies nothing.
void PageCopy(const Page& page);

/// The whole sheet, white margins included.
/// @param nDotsPerInch  > 0
[[nodiscard]] QImage PageImage(const Page& page, const PageForm& form, int nDotsPerInch);

/// Asks the user for a page's file.
/// @param sFile  proposed; a name without a suffix gets this one's
/// @return the full path; empty when the user cancels
[[nodiscard]] QString PageFileAsk(QWidget* pParent, const QString& sFile);

/// Checks that PageExport knows the suffix of a file.
/// @return otherwise the reason, with the file's name
[[nodiscard]] Result<void> PageFileCheck(const QString& sFile);

/// Writes a page in the format of the suffix: .csv (the first table of the page, or a picture's
/// values), .png or .pdf. The file is replaced as a whole or left unchanged.
/// @return the reason for a failure, with the file's name: an unknown suffix, no table for .csv, a
/// full disk ...
[[nodiscard]] Result<void> PageExport(const Page& page, const PageForm& form, const QString& sFile);

/// Writes an image as .png; the file is replaced as a whole or left unchanged.
[[nodiscard]] Result<void> ImageSave(const QImage& image, const QString& sFile);

/// Asks for a printer where Qt can print here; otherwise writes a PDF and opens it.
[[nodiscard]] Result<void> PagePrint(const Page& page, const PageForm& form, QWidget* pParent);
