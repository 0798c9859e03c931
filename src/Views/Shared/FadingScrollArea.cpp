#include "Views/Shared/FadingScrollArea.h"

#include "Views/Shared/EdgeFades.h"

#include <QScrollBar>

#include <algorithm>

namespace tolvar {

namespace {

constexpr int step = 20;

} // namespace

FadingScrollArea::FadingScrollArea(QWidget* page, QWidget* parent)
    : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(step);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    new EdgeFades(*this);
}

bool FadingScrollArea::focusNextPrevChild(bool next) {
    const bool isFound = QScrollArea::focusNextPrevChild(next);
    if (const QWidget* control = widget()->focusWidget(); control && control->hasFocus())
        reveal(*control);
    return isFound;
}

void FadingScrollArea::reveal(const QWidget& control) {
    QScrollBar& bar = *verticalScrollBar();
    const int top = control.mapTo(widget(), QPoint(0, 0)).y();
    const int highest = top + control.height() + EdgeFades::lowerReach - viewport()->height();
    const int lowest = top - EdgeFades::upperReach;
    bar.setValue(std::min(std::max(bar.value(), highest), lowest));
}

} // namespace tolvar
