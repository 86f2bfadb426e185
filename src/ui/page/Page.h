/// @file Page.h
/// A page for paper, picture or preview: a title, blocks one below another, and a foot line. One
/// painter serves the screen, PNG, PDF and printers.
///
/// Units:   the painter's; the page is laid out in the rectangle that it is given.
/// Tests:   tests/ui/page/PageTest.cpp
#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <functional>
#include <variant>
#include <vector>

#include "ui/page/PageGrid.h"

enum class PageLook {
    Colour,
    BlackWhite,  ///< black on white without greys; hatching goes round numbers, never behind them
};

/// Something that paints itself, such as curves. It gets the room that the other blocks leave.
struct PagePicture {
    std::function<void(QPainter& painter, const QRectF& rct, PageLook eLook)> fnPaint;
    PageGrid gridValues =
        {};  ///< the values that it shows, for formats without pictures; no rows: nothing
};

using PageBody = std::variant<QStringList, PageGrid, PagePicture>;

struct PageBlock {
    QString sHeading;  ///< empty: none
    PageBody body;     ///< lines of text, a table or a picture
};

struct Page {
    QString sTitle;
    std::vector<PageBlock> aBlock;
    QString sFoot;
};

/// Paints a page with the largest letters with which all of it fits; nothing is cut. Only if even
/// the smallest legible letters do not fit is the whole page made smaller.
void PagePaint(QPainter& painter, const QRectF& rct, const Page& page, PageLook eLook);
