#include "Views/Shared/FadingScrollArea.h"

#include "Views/Theme/Instrument.h"

#include <QLinearGradient>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace tolvar {

namespace {

struct Look {
    int lowerFade = 20;
    int upperFade = 12;
    int step = 20;
};
constexpr Look look;

/// From nothing to the panel, towards the edge of the page that it lies over.
class Fade final : public QWidget {
public:
    Fade(Qt::Edge edge, QWidget* parent)
        : QWidget(parent)
        , m_edge(edge) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QColor clear = Instrument::Palette::panel;
        clear.setAlpha(0);
        const bool isLower = m_edge == Qt::BottomEdge;
        QLinearGradient veil(0, 0, 0, height());
        veil.setColorAt(isLower ? 0 : 1, clear);
        veil.setColorAt(isLower ? 1 : 0, Instrument::Palette::panel);
        painter.fillRect(rect(), veil);
    }

private:
    const Qt::Edge m_edge;
};

} // namespace

FadingScrollArea::FadingScrollArea(QWidget* page, QWidget* parent)
    : QScrollArea(parent)
    , m_upperFade(new Fade(Qt::TopEdge, this))
    , m_lowerFade(new Fade(Qt::BottomEdge, this)) {
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(look.step);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FadingScrollArea::placeFades);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void FadingScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    placeFades();
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
    const int highest = top + control.height() + look.lowerFade - viewport()->height();
    const int lowest = top - look.upperFade;
    bar.setValue(std::min(std::max(bar.value(), highest), lowest));
}

void FadingScrollArea::placeFades() {
    const int gone = std::min(verticalScrollBar()->value(), look.upperFade);
    m_upperFade->setGeometry(0, gone - look.upperFade, width(), look.upperFade);
    m_lowerFade->setGeometry(0, height() - look.lowerFade, width(), look.lowerFade);
}

} // namespace tolvar
