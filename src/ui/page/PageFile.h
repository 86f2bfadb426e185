/// @file PageFile.h
/// Where a page goes: the clipboard, a file by its suffix, a printer.
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

/// Paper of a page and how it is painted.
struct PageForm {
    QPageSize::PageSizeId ePaper = QPageSize::A4;
    QPageLayout::Orientation eOrientation = QPageLayout::Portrait;
    PageLook eLook = PageLook::Colour;
};

/// Text between tabs and a coloured table of HTML, both in one. The caller owns it.
[[nodiscard]] QMimeData* PageGridMime(const PageGrid& grid);
void PageGridCopy(const PageGrid& grid);

/// The first table of a page, or the values of its first picture; with a picture the page on a
/// white ground as an image, too. Nothing is copied from a page that has neither.
void PageCopy(const Page& page);

/// The whole sheet with its white margins.
/// @param nDotsPerInch  > 0
[[nodiscard]] QImage PageImage(const Page& page, const PageForm& form, int nDotsPerInch);

/// Asks for the file of a page.
/// @param sFile  shown first; a name without a suffix gets this one's
/// @return the full path; empty when the user cancels
[[nodiscard]] QString PageFileAsk(QWidget* pParent, const QString& sFile);

/// Whether PageExport knows the suffix of a file. @return what is wrong with it, with its name
[[nodiscard]] Result<void> PageFileCheck(const QString& sFile);

/// Writes by the suffix: .csv (the first table of the page, or a picture's values), .png, .pdf. The
/// file is replaced whole or left as it was.
/// @return what went wrong, with the file's name: another suffix, no table for .csv, no room ...
[[nodiscard]] Result<void> PageExport(const Page& page, const PageForm& form, const QString& sFile);

/// Writes an image as .png; the file is replaced whole or left as it was.
[[nodiscard]] Result<void> ImageSave(const QImage& image, const QString& sFile);

/// Asks for a printer where Qt can print here; else writes a PDF and opens it.
[[nodiscard]] Result<void> PagePrint(const Page& page, const PageForm& form, QWidget* pParent);
