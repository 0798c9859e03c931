#include "Views/StatusPill/StatusPill.h"

#include "Views/Paint/Paint.h"
#include "Views/StatusPill/StatusDrawing.h"
#include "Views/Theme/Instrument.h"

#include <QApplication>
#include <QBitmap>
#include <QMouseEvent>
#include <QScreen>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

/// Points that the pill is longer than the item within.
constexpr int endsLength = StatusPill::height - StatusPill::thickness;
const Eased hoverChange{0.15, Easing::easeOut()};

std::vector<PillPlacement::Screen> screens() {
    std::vector<PillPlacement::Screen> found;
    const QScreen* primary = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens())
        found.insert(screen == primary ? found.begin() : found.end(),
                     {screen->name(), screen->availableGeometry()});
    return found;
}

} // namespace

StatusPill::StatusPill(Preferences& preferences, AnimationDriver& motion, Ends ends)
    : m_preferences(preferences)
    , m_ends(ends)
    , m_placement(PillPlacement::fromText(preferences.text(placeKey)).value_or(PillPlacement()))
    , m_hover(motion, 0, [this] { update(); }) {
    // A window manager that has nobody else to give the keyboard to would give it to the pill, and
    // the next space typed would click it.
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowDoesNotAcceptFocus);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground, ends == Ends::smooth);
    // A dock is on every desktop, in no taskbar, and above what is not of full screen. The kind of
    // a window that is not made yet is forgotten when it is.
    create();
    setAttribute(Qt::WA_X11NetWmWindowTypeDock);
    setWindowTitle(QStringLiteral("Tolvar"));
    setCursor(Qt::PointingHandCursor);
    m_content.length = thickness;
    watchScreens();
    place();
}

void StatusPill::watchScreens() {
    const auto watch = [this](QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, &StatusPill::place);
    };
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [this, watch](QScreen* screen) {
        watch(screen);
        place();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &StatusPill::place);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &StatusPill::place);
}

void StatusPill::setContent(const StatusItemContent& content) {
    if (content == m_content)
        return;
    m_content = content;
    setAccessibleName(content.accessibleLabel);
    if (toolTip() != content.toolTip)
        setToolTip(content.toolTip);
    if (size() != sizeHint())
        place();
    update();
}

QSize StatusPill::sizeHint() const {
    return {m_content.length + endsLength, height};
}

QRectF StatusPill::itemRect() const {
    return QRectF(rect()).adjusted(endsLength / 2.0, endsLength / 2.0, -endsLength / 2.0,
                                   -endsLength / 2.0);
}

QRect StatusPill::castle() const {
    const QRectF item = itemRect();
    return StatusDrawing::iconPlace(m_content, item.size())
        .translated(item.topLeft() + QPointF(mapToGlobal(QPoint(0, 0))))
        .toAlignedRect();
}

void StatusPill::place() {
    if (const auto present = screens(); !present.empty() && !m_drag)
        setGeometry(m_placement.rectFor(sizeHint(), present));
}

void StatusPill::remember() {
    const auto present = screens();
    if (present.empty())
        return;
    m_placement = PillPlacement::of(geometry(), present);
    m_preferences.setText(placeKey, m_placement.text());
    place();
}

void StatusPill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF rim(rect());
    const double radius = rim.height() / 2;
    if (m_ends == Ends::cut) // else the window's own colour would shine through the edge
        painter.fillRect(rim, Palette::rule);
    Paint::bevel(painter, rim, radius, Bevel::card);
    Paint::hover(painter, rim, radius, Bevel::card, m_hover.value());
    const QRectF item = itemRect();
    painter.translate(item.topLeft());
    StatusDrawing::paint(painter, m_content, item.size(),
                         {.castle = m_content.isSessionActive ? Palette::amber : Palette::label,
                          .label = Palette::label});
}

void StatusPill::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_drag = Drag{event->globalPosition().toPoint(), pos()};
    QPushButton::mousePressEvent(event);
}

void StatusPill::mouseMoveEvent(QMouseEvent* event) {
    if (!m_drag)
        return;
    const QPoint way = event->globalPosition().toPoint() - m_drag->from;
    m_drag->hasBegun =
        m_drag->hasBegun || way.manhattanLength() >= QApplication::startDragDistance();
    if (m_drag->hasBegun)
        move(m_drag->origin + way);
}

/// A pill that was dragged was not clicked.
void StatusPill::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasDragged = m_drag && m_drag->hasBegun;
    m_drag.reset();
    if (!wasDragged)
        return QPushButton::mouseReleaseEvent(event);
    setDown(false);
    remember();
}

void StatusPill::contextMenuEvent(QContextMenuEvent*) {
    Q_EMIT menuWanted();
}

void StatusPill::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    m_hover.animateTo(1, hoverChange);
}

void StatusPill::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    m_hover.animateTo(0, hoverChange);
}

void StatusPill::moveEvent(QMoveEvent* event) {
    QPushButton::moveEvent(event);
    Q_EMIT moved();
}

void StatusPill::resizeEvent(QResizeEvent* event) {
    QPushButton::resizeEvent(event);
    if (m_ends == Ends::smooth)
        return;
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect(), rect().height() / 2.0, rect().height() / 2.0);
    painter.end();
    setMask(shape);
}

} // namespace tolvar
