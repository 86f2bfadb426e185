/// @file Page.h
/// A page for paper, picture or preview: a title, blocks one below the other, and a foot line. One
/// painter serves the screen, PNG, PDF and printers.
///
/// Units:   of the painter; the page is laid out to the rectangle that it is given.
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
    BlackWhite,  ///< black on white without greys; hatching stands round numbers, never behind them
};

/// What paints itself, as curves do. It gets what room the other blocks leave.
struct PagePicture {
    std::function<void(QPainter& painter, const QRectF& rct, PageLook eLook)> fnPaint;
    PageGrid gridValues =
        {};  ///< what it shows, for where no picture can go; without rows: nothing
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

/// Paints a page with the largest letters with which all of it fits; nothing is cut. Only where
/// even the smallest legible letters do not fit is the whole made smaller.
void PagePaint(QPainter& painter, const QRectF& rct, const Page& page, PageLook eLook);
