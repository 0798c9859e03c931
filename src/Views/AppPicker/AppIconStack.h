#pragma once

#include <QIcon>
#include <QStringList>
#include <QWidget>

#include <vector>

class QPainter;

namespace tolvar {

class ApplicationIcons;

/// A short row of icons that overlap, the first one on top, each with a shadow on the next. It runs
/// the way that is read.
namespace AppIconRow {

/// By how much of an icon's width it covers the next one.
inline constexpr double overlap = 0.27;

/// Room around the row for the shadow; the size of the row with `count` icons is without it.
inline constexpr double shadowRoom = 3;

QSizeF size(int count, double iconSize);
/// The place of an icon in the row that has its top left corner at `origin`.
QRectF place(int index, int count, double iconSize, const QPointF& origin,
             Qt::LayoutDirection direction);
/// For those that have the row move with what they paint; others take an AppIconStack.
void paint(QPainter& painter, const QPointF& origin, const std::vector<QIcon>& icons,
           double iconSize, Qt::LayoutDirection direction);

} // namespace AppIconRow

/// The icons of some applications as a row, each with its name as a tooltip. To assistive
/// technology it is one picture, called by all the names.
class AppIconStack final : public QWidget {
    Q_OBJECT

public:
    /// `icons` outlives the stack; `iconSize` is a side in points.
    AppIconStack(ApplicationIcons& icons, double iconSize, QWidget* parent = nullptr);

    const QStringList& appNames() const { return m_appNames; }
    void setAppNames(const QStringList& appNames);
    /// The application whose icon is seen at a point of the widget; empty where there is none.
    QString appAt(const QPointF& point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF origin() const;

    ApplicationIcons& m_icons;
    const double m_iconSize;
    QStringList m_appNames;
};

} // namespace tolvar
