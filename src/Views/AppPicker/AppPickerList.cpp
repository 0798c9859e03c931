#include "Views/AppPicker/AppPickerList.h"

#include "Views/AppPicker/AppPickerListFace.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/ScrollThumb.h"
#include "Views/Theme/Instrument.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double radius = 8;
    /// Above the first row and below the last.
    int padding = 4;
    double emptyMargin = 16;
};
constexpr Look look;

const Eased hoverChange{0.15, Easing::easeOut()};

} // namespace

AppPickerList::AppPickerList(const ControlContext& context, ApplicationIcons& icons,
                             QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_context(context)
    , m_icons(icons)
    , m_hover(context.motion, 0, [this] { updateRow(m_hovered); }) {
    AppPickerListFace::install();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    verticalScrollBar()->setSingleStep(AppPickerRow::height);
    new ScrollThumb(*this);
}

AppPickerList::~AppPickerList() = default;

void AppPickerList::setRows(std::vector<AppPickerModel::Row> rows, const QString& emptyText) {
    m_rows = std::move(rows);
    m_emptyText = emptyText;
    m_hovered = m_pressed = -1;
    m_tops.assign(1, look.padding);
    for (const auto& row : m_rows)
        m_tops.push_back(m_tops.back() + (row.kind == AppPickerModel::Row::Kind::heading
                                              ? AppPickerRow::headingHeight
                                              : AppPickerRow::height));
    m_current = nextApp(-1, 1);
    updateScrollRange();
    verticalScrollBar()->setValue(0);
    viewport()->update();
    AppPickerListFace::rowsChanged(*this);
}

void AppPickerList::updateScrollRange() {
    const int content = m_tops.back() + look.padding;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, content - viewport()->height()));
}

void AppPickerList::setSelectedApps(const std::set<QString>& names) {
    const auto before = std::exchange(m_selectedApps, names);
    std::erase_if(m_checks, [](const auto& check) { return !check.second->isMoving(); });
    for (int row = 0; row < static_cast<int>(m_rows.size()); ++row) {
        const QString& name = m_rows[static_cast<std::size_t>(row)].text;
        if (isApp(row) && before.contains(name) != names.contains(name))
            moveCheck(name, row, names.contains(name));
    }
}

/// What nobody sees need not move.
void AppPickerList::moveCheck(const QString& name, int row, bool isSelected) {
    AppPickerListFace::checkChanged(*this, row);
    updateRow(row);
    if (!isVisible() || !rowRect(row).intersects(viewport()->rect())) {
        m_checks.erase(name);
        return;
    }
    auto& check = m_checks[name];
    if (!check)
        check = std::make_unique<AnimatedValue>(m_context.motion, isSelected ? 0 : 1,
                                                [this] { viewport()->update(); });
    check->animateTo(isSelected ? 1 : 0, Instrument::Motion::latch);
}

double AppPickerList::checkOf(const QString& name) const {
    const auto moving = m_checks.find(name);
    if (moving != m_checks.end())
        return moving->second->value();
    return m_selectedApps.contains(name) ? 1 : 0;
}

bool AppPickerList::isApp(int row) const {
    return row >= 0 && row < static_cast<int>(m_rows.size()) &&
           m_rows[static_cast<std::size_t>(row)].kind == AppPickerModel::Row::Kind::app;
}

bool AppPickerList::isSelected(int row) const {
    return isApp(row) && m_selectedApps.contains(m_rows[static_cast<std::size_t>(row)].text);
}

int AppPickerList::rowAt(const QPoint& point) const {
    const int y = point.y() + verticalScrollBar()->value();
    if (y < m_tops.front() || y >= m_tops.back() || !viewport()->rect().contains(point))
        return -1;
    return static_cast<int>(std::ranges::upper_bound(m_tops, y) - m_tops.begin()) - 1;
}

QRect AppPickerList::rowRect(int row) const {
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return {};
    const auto index = static_cast<std::size_t>(row);
    return {0, m_tops[index] - verticalScrollBar()->value(), viewport()->width(),
            m_tops[index + 1] - m_tops[index]};
}

void AppPickerList::updateRow(int row) {
    viewport()->update(rowRect(row));
}

/// The next application from `from` on in the direction of `step`; -1 when there is none.
int AppPickerList::nextApp(int from, int step) const {
    int row = from + step;
    while (row >= 0 && row < static_cast<int>(m_rows.size()) && !isApp(row))
        row += step;
    return isApp(row) ? row : -1;
}

int AppPickerList::pageFrom(int row, int direction) const {
    const int rows = std::max(1, viewport()->height() / AppPickerRow::height - 1);
    for (int i = 0; i < rows; ++i)
        if (const int next = nextApp(row, direction); next >= 0)
            row = next;
    return row;
}

void AppPickerList::setCurrentRow(int row) {
    if (!isApp(row))
        return;
    updateRow(std::exchange(m_current, row));
    updateRow(row);
    const QRect rect = rowRect(row);
    QScrollBar& bar = *verticalScrollBar();
    // The heading of a section comes into view with its first row.
    const int top = isApp(row - 1) ? rect.top() : rect.top() - AppPickerRow::headingHeight;
    if (top < look.padding)
        bar.setValue(bar.value() + top - look.padding);
    else if (rect.bottom() > viewport()->height() - look.padding)
        bar.setValue(bar.value() + rect.bottom() - viewport()->height() + look.padding);
    AppPickerListFace::currentChanged(*this);
}

void AppPickerList::toggleRow(int row) {
    if (!isApp(row))
        return;
    const QString name = m_rows[static_cast<std::size_t>(row)].text;
    Q_EMIT toggled(name);
}

/// A row to go to by the keyboard; -1 stays.
void AppPickerList::moveBy(int row) {
    m_cameByKeyboard = true;
    setCurrentRow(row >= 0 ? row : m_current);
}

void AppPickerList::keyPressEvent(QKeyEvent* event) {
    const int last = static_cast<int>(m_rows.size());
    switch (event->key()) {
    case Qt::Key_Down:
        return moveBy(nextApp(m_current, 1));
    case Qt::Key_Up:
        if (nextApp(m_current, -1) < 0)
            Q_EMIT leftAtTop();
        return moveBy(nextApp(m_current, -1));
    case Qt::Key_PageDown:
        return moveBy(pageFrom(m_current, 1));
    case Qt::Key_PageUp:
        return moveBy(pageFrom(m_current, -1));
    case Qt::Key_Home:
        return moveBy(nextApp(-1, 1));
    case Qt::Key_End:
        return moveBy(nextApp(last, -1));
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            toggleRow(m_current);
        return;
    default:
        event->ignore();
    }
}

void AppPickerList::mousePressEvent(QMouseEvent* event) {
    m_cameByKeyboard = false;
    m_pressed = event->button() == Qt::LeftButton ? rowAt(event->position().toPoint()) : -1;
    if (!isApp(m_pressed))
        return;
    updateRow(std::exchange(m_current, m_pressed));
    updateRow(m_pressed);
}

void AppPickerList::mouseReleaseEvent(QMouseEvent* event) {
    const int row = rowAt(event->position().toPoint());
    if (std::exchange(m_pressed, -1) == row)
        toggleRow(row);
}

void AppPickerList::mouseMoveEvent(QMouseEvent* event) {
    updateHover(event->position().toPoint());
}

void AppPickerList::updateHover(const QPoint& point) {
    const int row = rowAt(point);
    const int hovered = isApp(row) ? row : -1;
    if (hovered == m_hovered)
        return;
    updateRow(std::exchange(m_hovered, hovered));
    m_hover.jumpTo(0);
    if (hovered >= 0)
        m_hover.animateTo(1, hoverChange);
}

void AppPickerList::leaveEvent(QEvent* event) {
    QAbstractScrollArea::leaveEvent(event);
    updateHover({-1, -1});
}

void AppPickerList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
        reason == Qt::ShortcutFocusReason)
        moveBy(m_current);
    updateRow(m_current);
}

void AppPickerList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    updateRow(m_current);
}

void AppPickerList::hideEvent(QHideEvent* event) {
    QAbstractScrollArea::hideEvent(event);
    m_checks.clear();
    m_hovered = m_pressed = -1;
    m_hover.jumpTo(0);
}

void AppPickerList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollRange();
}

void AppPickerList::scrollContentsBy(int, int) {
    updateHover(underMouse() ? viewport()->mapFromGlobal(QCursor::pos()) : QPoint(-1, -1));
    viewport()->update();
}

void AppPickerList::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QRect well = viewport()->rect();
    Paint::bevel(painter, well, look.radius, Bevel::well);
    if (m_rows.empty()) {
        Paint::text(painter, QRectF(well).adjusted(look.emptyMargin, 0, -look.emptyMargin, 0),
                    m_emptyText, Instrument::font(12), Palette::labelSecondary, Qt::AlignHCenter);
        return;
    }
    painter.setClipRect(well.adjusted(0, 1, 0, -1));
    for (int row = 0; row < static_cast<int>(m_rows.size()); ++row)
        if (rowRect(row).intersects(event->rect()))
            paintRow(painter, row);
}

void AppPickerList::paintRow(QPainter& painter, int row) const {
    const QString& text = m_rows[static_cast<std::size_t>(row)].text;
    if (!isApp(row)) {
        AppPickerRow::paintHeading(painter, rowRect(row), text, layoutDirection());
        return;
    }
    AppPickerRow{.appName = text,
                 .icon = m_icons.find(text),
                 .check = checkOf(text),
                 .hover = row == m_hovered ? m_hover.value() : 0,
                 .isFocused = hasFocus() && m_cameByKeyboard && row == m_current}
        .paint(painter, rowRect(row), layoutDirection());
}

} // namespace tolvar
