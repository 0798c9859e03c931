#include "Views/Shared/CardList.h"

#include "Views/Shared/ActionMenu.h"
#include "Views/Shared/CardListFace.h"
#include "Views/Shared/EdgeFades.h"
#include "Views/Theme/Instrument.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

namespace {

CardColumn::Measures measuresOf(const CardList::Style& style) {
    return {.cardHeight = style.cardHeight,
            .spacing = style.spacing,
            .top = style.margins.top(),
            .bottom = style.margins.bottom()};
}

bool takesTab(const QWidget& widget) {
    return widget.isEnabled() && widget.isVisible() &&
           (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

bool isKeyboardReason(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

} // namespace

CardList::CardList(const ControlContext& context, TimerService& timers, CardSource& source,
                   const Style& style, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_context(context)
    , m_timers(timers)
    , m_source(source)
    , m_style(style)
    , m_column(measuresOf(style))
    , m_rows([this] { return makeRow(); })
    , m_hand(*new ScrollHand(*this, context.motion, timers)) {
    CardListFace::install();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(m_column.pitch());
    new EdgeFades(*this);
    connect(&m_hand, &ScrollHand::pulled, this, [this](double points, Hand hand) {
        for (const auto& [id, row] : m_rows.live())
            placeRow(*row);
        Q_EMIT pulled(points, hand);
    });
    connect(&m_hand, &ScrollHand::pullReleased, this, &CardList::pullReleased);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (const CardRow* row = m_rows.of(now))
            makeCurrent(row->id);
    });
}

CardList::~CardList() = default;

int CardList::scroll() const {
    return verticalScrollBar()->value();
}

// The rows in view

std::unique_ptr<CardRow> CardList::makeRow() {
    auto container = std::make_unique<SwipeActionsContainer>(m_context, m_timers, m_style.swipe,
                                                             m_source.makeCard(), viewport());
    SwipeActionsContainer* const made = container.get();
    orderTabs(*made);
    watchKeyboard(*made);
    made->setTakesTab(false);
    connect(made, &SwipeActionsContainer::openChanged, this, [this, made](bool isOpen) {
        if (const CardRow* row = m_rows.of(made); row && (isOpen || m_openId == row->id))
            setOpenId(isOpen ? std::optional(row->id) : std::nullopt);
    });
    connect(made, &SwipeActionsContainer::deleteRequested, this, [this, made] {
        if (const CardRow* row = m_rows.of(made)) {
            const QUuid id = row->id;
            Q_EMIT deleteRequested(id);
        }
    });
    return std::make_unique<CardRow>(m_context.motion, std::move(container),
                                     [this](CardRow& row) { rowMoved(row); });
}

/// Qt orders only what takes the keyboard, and puts what is made late behind everything else.
void CardList::orderTabs(SwipeActionsContainer& made) {
    setFocusPolicy(Qt::StrongFocus);
    QWidget* last = this;
    for (QWidget* part : made.tabParts()) {
        setTabOrder(last, part);
        last = part;
    }
    setFocusPolicy(Qt::NoFocus);
}

void CardList::fill(CardRow& row) {
    SwipeActionsContainer& container = row.container();
    m_source.fillCard(container.content(), row.id);
    container.setAccessibleName(m_source.cardName(row.id));
    container.setActions(m_source.actions(row.id));
    container.setCommonActions(m_commonActions);
    watchKeyboard(container);
}

/// The row is brought into view whichever of its parts the keyboard comes to; keys come and go with
/// the actions.
void CardList::watchKeyboard(SwipeActionsContainer& container) {
    for (QWidget* part : container.tabParts())
        part->installEventFilter(this);
}

CardRow& CardList::rowFor(int row) {
    const QUuid& id = m_column.id(row);
    if (CardRow* known = m_rows.find(id))
        return *known;
    CardRow& made = m_rows.take(id);
    fill(made);
    made.container().setOpen(m_openId == id, SwipeActionsContainer::Motion::atOnce);
    made.container().setTakesTab(m_current == id);
    placeRow(made);
    made.container().show();
    return made;
}

QRect CardList::rowRect(int row) const {
    if (row < 0 || row >= m_column.count())
        return {};
    const int width = viewport()->width() - m_style.margins.left() - m_style.margins.right();
    return {m_style.margins.left(), m_column.topOf(row) - scroll(), width, m_style.cardHeight};
}

QRect CardList::shownRect(const CardRow& row) const {
    return rowRect(m_column.rowOf(row.id)).translated(0, qRound(row.shift.value() + pull()));
}

void CardList::placeRow(CardRow& row) {
    row.container().setGeometry(shownRect(row));
}

/// The row the keyboard comes back to stays; so does one that a hand or an eye is on.
bool CardList::isKept(const CardRow& row) const {
    return row.id == m_current || row.container().isBusy() ||
           shownRect(row).intersects(viewport()->rect());
}

void CardList::showRows() {
    if (!m_isChanging)
        layOut();
}

void CardList::layOut() {
    const auto range = m_column.between(scroll(), scroll() + viewport()->height());
    std::vector<QUuid> gone;
    for (const auto& [id, row] : m_rows.live())
        if (!range.contains(m_column.rowOf(id)) && !isKept(*row))
            gone.push_back(id);
    for (const QUuid& id : gone)
        m_rows.giveBack(id);
    for (int row = range.first; row < range.end; ++row)
        rowFor(row);
    if (const int current = currentRow(); current >= 0)
        rowFor(current);
    for (const auto& [id, row] : m_rows.live())
        placeRow(*row);
}

void CardList::rowMoved(CardRow& row) {
    row.showPresence();
    if (m_column.rowOf(row.id) < 0 || m_rows.find(row.id) != &row)
        m_rows.collect(false);
    else if (row.shift.isMoving())
        placeRow(row);
    else
        showRows();
}

void CardList::updateScrollRange() {
    QScrollBar& bar = *verticalScrollBar();
    bar.setPageStep(viewport()->height());
    bar.setRange(0, std::max(0, m_column.height() - viewport()->height()));
}

void CardList::refresh() {
    for (const auto& [id, row] : m_rows.live())
        fill(*row);
}

void CardList::setCommonActions(std::vector<SwipeAction> actions) {
    m_commonActions = std::move(actions);
    for (const auto& [id, row] : m_rows.live())
        row->container().setCommonActions(m_commonActions);
}

void CardList::setOpenId(const std::optional<QUuid>& id) {
    const auto known = id && m_column.rowOf(*id) >= 0 ? id : std::nullopt;
    if (std::exchange(m_openId, known) == known)
        return;
    for (const auto& [rowId, row] : m_rows.live())
        if (row->container().isOpen() != (m_openId == rowId))
            row->container().setOpen(m_openId == rowId);
    Q_EMIT openIdChanged(m_openId);
}

// Records that come and go

void CardList::setIds(std::vector<QUuid> ids, Change change, const Spring& spring) {
    const Motion motion = change == Change::animated && isVisible() ? Motion(spring) : std::nullopt;
    const Before before{m_column, scroll()};
    const Tops tops = shownTops();
    m_isChanging = true;
    m_column.setIds(std::move(ids));
    const CardRow* focused = m_rows.of(QApplication::focusWidget());
    const bool losesFocus = focused && rowOf(focused->id) < 0;
    updateScrollRange();
    keepPlaceUnderTheEye(before);
    handOnCurrent(before);
    if (const int row = currentRow(); losesFocus && row >= 0)
        rowFor(row).container().setFocus(Qt::OtherFocusReason);
    else if (losesFocus)
        QAbstractScrollArea::focusNextPrevChild(true);
    removeRows(tops, motion);
    layOut();
    moveOver(before, tops, motion);
    m_isChanging = false;
    showRows();
    CardListFace::rowsChanged(*this);
    setOpenId(m_openId);
}

CardList::Tops CardList::shownTops() const {
    Tops tops;
    for (const auto& [id, row] : m_rows.live())
        tops[id] = shownRect(*row).top();
    return tops;
}

/// What comes or goes above the first row that is seen does not move it. At the top of the list
/// there is no above: what comes there is to be seen.
void CardList::keepPlaceUnderTheEye(const Before& before) {
    const auto seen = before.column.between(before.scroll, before.scroll + viewport()->height());
    for (int row = seen.first; before.scroll > 0 && row < seen.end; ++row)
        if (const int now = m_column.rowOf(before.column.id(row)); now >= 0) {
            verticalScrollBar()->setValue(before.scroll + (now - seen.first) * m_column.pitch());
            return;
        }
}

/// The row that takes the place of one that goes gets what it had.
void CardList::handOnCurrent(const Before& before) {
    if (currentRow() >= 0)
        return;
    const int place = std::clamp(before.column.rowOf(m_current), 0, m_column.count());
    const int row = std::min(place, m_column.count() - 1);
    makeCurrent(row >= 0 ? m_column.id(row) : QUuid());
}

void CardList::removeRows(const Tops& tops, const Motion& motion) {
    for (const auto& [id, top] : tops) {
        if (m_column.rowOf(id) >= 0)
            continue;
        const bool isSeen = top < viewport()->height() && top + m_column.cardHeight() > 0;
        if (motion && isSeen)
            m_rows.letLeave(id, *motion);
        else
            m_rows.giveBack(id);
    }
}

void CardList::moveOver(const Before& before, const Tops& tops, const Motion& motion) {
    for (const auto& [id, row] : m_rows.live()) {
        row->shift.jumpTo(0);
        if (!motion)
            continue;
        const auto seenAt = tops.find(id);
        if (const int old = before.column.rowOf(id); seenAt != tops.end())
            moveOver(*row, seenAt->second - pull(), *motion);
        else if (old >= 0)
            moveOver(*row, before.column.topOf(old) - before.scroll, *motion);
        else
            moveOver(*row, std::nullopt, *motion);
    }
}

/// To its place from `from`, or into sight where it stands.
void CardList::moveOver(CardRow& row, const std::optional<double>& from, const Spring& spring) {
    if (from) {
        const double farthest = viewport()->height();
        const double way = *from - rowRect(m_column.rowOf(row.id)).top();
        row.shift.jumpTo(std::clamp(way, -farthest, farthest));
        row.shift.animateTo(0, spring);
    } else {
        row.presence.jumpTo(0);
        row.presence.animateTo(1, spring);
    }
    placeRow(row);
}

// What assistive technology and the keyboard go by

int CardList::rowOf(const QUuid& id) const {
    return m_column.rowOf(id);
}

int CardList::rowAt(const QPoint& point) const {
    const int row = m_column.rowAt(point.y() + scroll());
    return rowRect(row).contains(point) && viewport()->rect().contains(point) ? row : -1;
}

int CardList::rowOfWidget(const QWidget* widget) const {
    const CardRow* row = m_rows.of(widget);
    return row ? rowOf(row->id) : -1;
}

QString CardList::rowName(int row) const {
    return m_source.cardName(m_column.id(row));
}

std::vector<SwipeAction> CardList::actionsOf(int row) const {
    return m_source.actions(m_column.id(row));
}

SwipeActionsContainer* CardList::containerOf(int row) const {
    const bool exists = row >= 0 && row < m_column.count();
    const CardRow* known = exists ? m_rows.find(m_column.id(row)) : nullptr;
    return known ? &known->container() : nullptr;
}

SwipeActionsContainer& CardList::containerInView(int row) {
    bringIntoView(row);
    return rowFor(row).container();
}

CardList::Widgets CardList::widgets() const {
    return {m_rows.used(), m_rows.spare()};
}

void CardList::bringIntoView(int row) {
    if (row >= 0 && row < m_column.count())
        verticalScrollBar()->setValue(m_column.scrollShowing(row, scroll(), viewport()->height()));
}

int CardList::currentRow() const {
    return rowOf(m_current);
}

void CardList::setCurrentRow(int row) {
    if (row >= 0 && row < m_column.count())
        makeCurrent(m_column.id(row));
}

void CardList::makeCurrent(const QUuid& id) {
    const QUuid before = std::exchange(m_current, id);
    if (before == id)
        return;
    if (const CardRow* row = m_rows.find(before))
        row->container().setTakesTab(false);
    if (m_column.rowOf(id) >= 0)
        rowFor(m_column.rowOf(id)).container().setTakesTab(true);
}

void CardList::focusRow(int row) {
    setCurrentRow(row);
    bringIntoView(row);
    rowFor(row).container().setFocus(Qt::TabFocusReason);
}

/// The row to go to by a key; -1 for none.
int CardList::keyTarget(int key) const {
    const int last = m_column.count() - 1;
    const int current = currentRow();
    const int page = std::max(1, viewport()->height() / m_column.pitch() - 1);
    switch (key) {
    case Qt::Key_Down:
        return current < last ? current + 1 : -1;
    case Qt::Key_Up:
        return current - 1;
    case Qt::Key_PageDown:
        return std::min(current + page, last);
    case Qt::Key_PageUp:
        return std::max(current - page, 0);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return -1;
    }
}

void CardList::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int row = isPlain && m_column.count() > 0 ? keyTarget(event->key()) : -1;
    event->setAccepted(row >= 0);
    if (row >= 0)
        focusRow(row);
}

/// Within a row in the order in which it is seen, and then out of the list.
bool CardList::focusNextPrevChild(bool next) {
    QWidget* const focused = QApplication::focusWidget();
    const CardRow* row = m_rows.of(focused);
    if (!row)
        return QAbstractScrollArea::focusNextPrevChild(next);
    const auto stops = row->container().tabStops();
    const auto at = std::ranges::find(stops, focused);
    const auto reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    if (next && at != stops.end() && at + 1 != stops.end())
        (*(at + 1))->setFocus(reason);
    else if (!next && at != stops.end() && at != stops.begin())
        (*(at - 1))->setFocus(reason);
    else if (!leaveByTab(*focused, next))
        (next ? stops.front() : stops.back())->setFocus(reason);
    return true;
}

bool CardList::leaveByTab(QWidget& from, bool next) {
    const auto step = [next](QWidget* widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget* widget = step(&from); widget != &from; widget = step(widget))
        if (!isAncestorOf(widget) && widget->window() == window() && takesTab(*widget)) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    return false;
}

bool CardList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && watched->isWidgetType() &&
        isKeyboardReason(static_cast<QFocusEvent*>(event)->reason()))
        bringIntoView(rowOfWidget(static_cast<QWidget*>(watched)));
    return QAbstractScrollArea::eventFilter(watched, event);
}

void CardList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollRange();
    showRows();
}

void CardList::scrollContentsBy(int, int) {
    showRows();
}

/// Also what it has no use for: a gesture that goes elsewhere with its first event stays there.
void CardList::wheelEvent(QWheelEvent* event) {
    m_hand.takeWheel(*event);
    event->accept();
}

void CardList::contextMenuEvent(QContextMenuEvent* event) {
    if (m_menu)
        return;
    m_menu = makeActionMenu({}, m_commonActions, *this);
    if (m_menu)
        m_menu->popup(event->globalPos());
}

void CardList::hideEvent(QHideEvent* event) {
    QAbstractScrollArea::hideEvent(event);
    if (m_menu)
        m_menu->close();
    m_hand.rest();
    setOpenId(std::nullopt);
    m_isChanging = true;
    m_rows.collect(true);
    for (const auto& [id, row] : m_rows.live())
        row->finish();
    m_isChanging = false;
    showRows();
}

} // namespace tolvar
