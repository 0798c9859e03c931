#include "Views/Shared/FadingScrollArea.h"

#include "Views/Shared/EdgeFades.h"

#include <QScrollBar>

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

} // namespace tolvar
